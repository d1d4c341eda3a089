#pragma once

#include "core/CodedTexts.h"
#include "core/GridTable.h"
#include "core/school/SchoolTypes.h"
#include "reports/PercentAverage.h"
#include "reports/TextReport.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace tally {

/// Students whose mark in a subject lies on one side of the subject's class average, or of a given value.

enum class AverageSide : std::uint8_t
{
    Below,
    Above,
};

/// The two lists are one screen; all in which they differ stands here and in the rules of the side.
struct StudentsListDefinition
{
    const char* formName;
    const char* caption;
    int helpScreenNo;
    AverageSide side;
    const char* noDivision;      ///< told where subjects are to be listed
    const char* exitCaption;     ///< in the exit question
    const char* titleGivenValue; ///< of the export behind which the given value stands; null for the caption
    const char* divisionsOfHead; ///< before the divisions in the export's second line
    bool exportsSummary;         ///< where the summary is shown; else the students' list is exported
    bool printsText;             ///< as a text file; else as it is shown
    int headHeight;              ///< of the students' list, in twips
};

const std::array<StudentsListDefinition, 2>& StudentsListDefinitions();

/// Stands for a mark of 0 in the list below and is shown as 0.
inline constexpr double StoredZero = -1;

/// A student as TempClassAverage holds him.
struct ClassAverageRow
{
    QString studentName; ///< "Asha(A17)"
    /// One for each subject; no value without a mark. The list above takes in no mark of 0.
    std::vector<std::optional<double>> marks;
};

/// From what the list is made.
struct StudentsListInput
{
    CodedTexts subjects;                   ///< chosen, with their short names, in the order of the columns
    std::vector<SubjectSetup> setup;       ///< of the whole class
    std::vector<DivisionMark> marks;       ///< of the exam, the divisions and the subjects chosen
    std::vector<ClassAverageRow> students; ///< by name
};

struct StudentsListOptions
{
    AverageSide side = AverageSide::Below;
    std::optional<QString> givenValue; ///< as it was typed; without it the class averages count
    int markDecimals = 0;              ///< as MarkDecimals gives it
};

/// The columns before the subjects.
enum class StudentsListColumn : int
{
    Blank, ///< hidden: nothing stands in it
    StudentName,
    FirstSubject,
};
enum class StudentsSummaryColumn : int
{
    Subject,
    Students,
    FirstStudentsMark, ///< hidden
};

/// Below the students: a blank row and that of the averages.
inline constexpr int RowsBelowStudents = 2;

/// What the marks of a subject are measured by.
struct SubjectLimit
{
    int subjectCode = 0;
    QString text; ///< as the list's last row tells it; empty where marks out of 0 give no average
};

/// For each subject with a mark above 0 in a division that takes it: the average of those marks in percent of
/// the maximum mark, absent students or not; or the given value. Of divisions with different maximum marks
/// the average of those with the highest stands.
std::vector<SubjectLimit> SubjectLimits(const StudentsListInput& input, const StudentsListOptions& options);

/// A row for each student with at least one mark on the side, showing those marks, below them a blank row and
/// one of the limits. Marks are compared as they are with averages in percent. In a subject that has no
/// average, as nobody has more than 0 or its set-up is gone, those with 0 are below it and nobody is above.
GridTable ListStudents(const StudentsListInput& input, const StudentsListOptions& options);

/// How many students the list shows in each subject; blank for none. Marks that are written as 0 count in the
/// list below only.
GridTable SummariseStudents(const GridTable& list, AverageSide side);

/// The list as a text, without its first student: the office's paper begins with the second.
TextReport PrintedStudents(const GridTable& list);
TextReport PrintedSummary(const GridTable& summary);

} // namespace tally
