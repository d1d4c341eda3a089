#pragma once

#include "core/CodedTexts.h"
#include "students/Placement.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace tally {

/// Where students of the next academic year go.
enum class PromotionKind : std::uint8_t
{
    Promote, ///< into the next higher class
    Retain,  ///< into the same class once more
};

/// The years that a promotion has to do with, by their codes, and how the screen names two of them. A code of
/// 0: the school has no such year.
struct PromotionYears
{
    int current = 0;
    int next = 0;        ///< the one that students are carried into
    int following = 0;   ///< the one behind that
    QString currentName; ///< empty where there is no row for that year
    QString nextName;    ///< as it has to be, also where there is no such year

    bool operator==(const PromotionYears&) const = default;
};

/// A student as he is placed in the two years.
struct PromotionStudent
{
    int studentCode = 0;
    QString name;
    QString admissionNo; ///< OptionalAdmissionNo, the number shown everywhere
    bool relieved = false;
    Placement current;
    Placement next;
    QString nextPlace;      ///< such as "X-A"; empty without a place
    bool hasMarks = false;  ///< in the class-division of the next year
    bool carriedOn = false; ///< placed in the following year already
};

inline const QString NoHigherClass = QStringLiteral("Higher Class Does Not Exist For Promotion");

/// The class into which a class is carried; 0 when there is none above it. `classes` from the highest on.
int TargetClass(const CodedTexts& classes, PromotionKind kind, int fromClass);
/// Why students of one class can't be carried into the other; empty when they can.
QString ClassFault(const CodedTexts& classes, PromotionKind kind, int fromClass, int toClass);

/// That the next year holds the student already.
QString AlreadyCarried(const PromotionStudent& student);
/// Why a student can't be taken back from the next year; empty when he can.
QString TakeBackRefusal(const PromotionStudent& student);

/// What a save makes of a class-division of the next year. Students are as the clerk saw them.
struct PromotionPlan
{
    PromotionKind kind = PromotionKind::Promote;
    PromotionYears years;
    int fromClass = 0;
    Placement target;
    std::vector<PromotionStudent> before;    ///< in the target, relieved ones left out
    std::vector<PromotionStudent> listed;    ///< who shall be in it
    std::vector<PromotionStudent> takenBack; ///< who was in it and is in the current year only again

    /// All students whom the save has to do with.
    std::vector<int> Students() const;
};

/// Why a plan can't be stored.
struct PromotionFault
{
    QString text;
    bool startAnew = false; ///< another client has changed what the lists show
};

/// What is stored where a plan has to fit in.
struct PromotionFacts
{
    PromotionYears years;
    CodedTexts classes;                     ///< from the highest on
    CodedTexts divisions;                   ///< of the class that students are carried into
    std::vector<PromotionStudent> students; ///< those of the plan, as far as there are any, relieved ones too
    std::vector<PromotionStudent> target;   ///< in its class-division, relieved ones left out
};

/// Why a plan does not fit what is stored.
std::optional<PromotionFault> FindFault(const PromotionPlan& plan, const PromotionFacts& stored);

} // namespace tally
