#include "students/Promotion.h"

#include <algorithm>
#include <unordered_map>

namespace tally {

namespace {

/// The place in the list; -1 when the code is not in it.
std::ptrdiff_t PositionOf(const CodedTexts& list, int code)
{
    const auto found =
        std::find_if(list.begin(), list.end(), [code](const auto& entry) { return entry.first == code; });
    return found == list.end() ? -1 : found - list.begin();
}

bool Contains(const std::vector<PromotionStudent>& students, int studentCode)
{
    return std::any_of(students.begin(), students.end(), [studentCode](const PromotionStudent& student) {
        return student.studentCode == studentCode;
    });
}

PromotionFault Meanwhile(const QString& text)
{
    return {text + QStringLiteral(" By Another User Meanwhile.\nYou Cannot Save This Data."), true};
}

PromotionFault ChangedMeanwhile(const PromotionStudent& student)
{
    return Meanwhile(QStringLiteral("The Class-Division Of '%1' Was Changed").arg(student.name));
}

/// Of a student who was carried on from the next year, or taken back into it.
PromotionFault CarriedOnMeanwhile(const PromotionStudent& student)
{
    return Meanwhile(QStringLiteral("The Promote/Detain Entry Of '%1' In The Next Academic Year Was Changed")
                         .arg(student.name));
}

const QString Relieved = QStringLiteral("Promotion Cannot Be Done To The Relieved Student(s)");

/// Looks a student up in what is stored.
class Stored
{
public:
    explicit Stored(const std::vector<PromotionStudent>& students)
    {
        for (const PromotionStudent& student : students)
            students_.emplace(student.studentCode, student);
    }

    /// Without any place where the student is gone.
    const PromotionStudent& Of(const PromotionStudent& seen) const
    {
        static const PromotionStudent gone;
        const auto found = students_.find(seen.studentCode);
        return found == students_.end() ? gone : found->second;
    }

private:
    std::unordered_map<int, PromotionStudent> students_;
};

std::optional<PromotionFault> FaultOfListed(const PromotionPlan& plan, const PromotionStudent& seen,
                                            const PromotionStudent& stored)
{
    if (Contains(plan.before, seen.studentCode)) {
        if (stored.next != plan.target)
            return ChangedMeanwhile(seen);
    } else {
        if (stored.next.IsComplete())
            return PromotionFault{AlreadyCarried(stored), true};
        if (stored.current != seen.current)
            return ChangedMeanwhile(seen);
    }
    if (stored.carriedOn != seen.carriedOn)
        return CarriedOnMeanwhile(seen);
    return {};
}

std::optional<PromotionFault> FaultOfTakenBack(const PromotionPlan& plan, const PromotionStudent& seen,
                                               const PromotionStudent& stored)
{
    if (stored.relieved)
        return PromotionFault{Relieved, true};
    if (!stored.current.IsComplete() || stored.next != plan.target)
        return ChangedMeanwhile(seen);
    if (const QString refusal = TakeBackRefusal(stored); !refusal.isEmpty())
        return PromotionFault{refusal, true};
    return {};
}

/// Of the years and the class-divisions between which students are carried.
std::optional<PromotionFault> FaultOfPlaces(const PromotionPlan& plan, const PromotionFacts& stored)
{
    if (stored.years != plan.years)
        return Meanwhile(QStringLiteral("The Academic Year Setup Was Changed"));
    if (PositionOf(stored.classes, plan.fromClass) < 0)
        return Meanwhile(QStringLiteral("The Class On The 'From' Side Was Deleted"));
    if (PositionOf(stored.divisions, plan.target.divisionCode) < 0)
        return Meanwhile(QStringLiteral("The Class-Division On The 'To' Side Was Deleted"));
    const QString fault = ClassFault(stored.classes, plan.kind, plan.fromClass, plan.target.classCode);
    return fault.isEmpty() ? std::nullopt : std::optional(PromotionFault{fault, true});
}

} // namespace

int TargetClass(const CodedTexts& classes, PromotionKind kind, int fromClass)
{
    if (kind == PromotionKind::Retain)
        return fromClass;
    const std::ptrdiff_t position = PositionOf(classes, fromClass);
    return position > 0 ? classes[static_cast<std::size_t>(position - 1)].first : 0;
}

QString ClassFault(const CodedTexts& classes, PromotionKind kind, int fromClass, int toClass)
{
    if (kind == PromotionKind::Retain)
        return fromClass == toClass ? QString() : QStringLiteral("Retain Can Be Made Only In The Same Class");
    const std::ptrdiff_t above = PositionOf(classes, fromClass) - PositionOf(classes, toClass);
    if (above <= 0)
        return QStringLiteral("Promotion Cannot Be Done To The Same/Lower Classes");
    return above == 1 ? QString() : QStringLiteral("Promotion Can Be Done Only To Next Higher Class");
}

QString AlreadyCarried(const PromotionStudent& student)
{
    return QStringLiteral("Student '%1' Already Promoted/Detained To %2")
        .arg(student.name, student.nextPlace);
}

QString TakeBackRefusal(const PromotionStudent& student)
{
    if (student.hasMarks)
        return QStringLiteral(
            "Marks Are Already Entered For This Student, So Removing Of Student Is Not Possible");
    if (student.carriedOn)
        return QStringLiteral("Already Promotion/Detaining Made For This Student, So Removing Of Student Is "
                              "Not Possible");
    return {};
}

std::vector<int> PromotionPlan::Students() const
{
    std::vector<int> codes;
    for (const auto* students : {&listed, &takenBack})
        for (const PromotionStudent& student : *students)
            codes.push_back(student.studentCode);
    return codes;
}

std::optional<PromotionFault> FindFault(const PromotionPlan& plan, const PromotionFacts& stored)
{
    if (auto fault = FaultOfPlaces(plan, stored))
        return fault;
    const Stored students(stored.students);
    for (const PromotionStudent& seen : plan.listed)
        if (students.Of(seen).relieved)
            return PromotionFault{Relieved};
    for (const PromotionStudent& seen : plan.listed)
        if (!students.Of(seen).current.IsComplete())
            return PromotionFault{QStringLiteral("'Student Admission Entry' Not Exists For The Student ") +
                                  seen.name};
    for (const PromotionStudent& seen : plan.listed)
        if (auto fault = FaultOfListed(plan, seen, students.Of(seen)))
            return fault;
    for (const PromotionStudent& seen : plan.takenBack)
        if (auto fault = FaultOfTakenBack(plan, seen, students.Of(seen)))
            return fault;
    // The save replaces the whole class-division, so whoever came into it would be lost unseen.
    for (const PromotionStudent& student : stored.target)
        if (!Contains(plan.before, student.studentCode))
            return Meanwhile(QStringLiteral("'%1' Was Placed In %2").arg(student.name, student.nextPlace));
    return {};
}

} // namespace tally
