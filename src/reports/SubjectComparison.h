#pragma once

#include "core/CodedTexts.h"
#include "core/GridTable.h"
#include "core/school/ListItem.h"
#include "reports/ChartTable.h"
#include "reports/TextReport.h"

#include <vector>

namespace tally {

/// Lists that compare marks over several exams or several academic years: a line for each of these, a column
/// for each subject.

/// That a subject has marks in an exam or a year.
struct EnteredSubject
{
    int lineCode = 0; ///< ExamCode or AcademicYearCode
    int subjectCode = 0;
};

/// From what the list of subjects to choose from is made.
struct SubjectListInput
{
    CodedTexts subjects; ///< in list order
    std::vector<EnteredSubject> entered;
};

/// The subjects as list items: the name behind ". " where one of the lines has no marks of it, with `refusal`
/// as the reason, %1 standing for the name; behind two blanks otherwise. An empty `refusal` lets it be ticked
/// all the same.
std::vector<ListItem> SubjectItems(const SubjectListInput& input, const std::vector<int>& lineCodes,
                                   const QString& refusal);

/// One mark that counts. Several of one line and subject are averaged.
struct ComparedMark
{
    int lineCode = 0; ///< ExamCode or AcademicYearCode
    int subjectCode = 0;
    double mark = 0;
};

struct ComparisonInput
{
    CodedTexts lines;                ///< exams or years, in the order of the rows
    CodedTexts subjects;             ///< with their short names, in the order of the columns
    std::vector<ComparedMark> marks; ///< those of other lines and subjects count nowhere
};

/// The columns before the subjects; each subject has two, of which the first is hidden and holds its code.
enum class ExamLineColumn : int
{
    SerialNo,
    StudentName, ///< hidden, as class and division are; the selection says them
    ExamName,
    Class,
    Division,
};
enum class YearLineColumn : int
{
    SerialNo,
    YearAndClass,
    AdmissionNo, ///< hidden, as class and division are
    Class,
    Division,
};

/// A division's average of each subject in each exam, with two decimals.
GridTable ShowDivisionAverages(const ComparisonInput& input);
/// A student's marks in each exam, and below them a row with their average and a blank one. A mark of 0 keeps
/// its two decimals and counts in no average; the others are averaged as they are stored and shown with
/// `markDecimals`, as MarkDecimals gives it.
GridTable ShowStudentMarks(const ComparisonInput& input, int markDecimals);
/// A student's marks in one exam in each year.
GridTable ShowYearMarks(const ComparisonInput& input, int markDecimals);

/// The lines of a list that a chart shows: those that are numbered, so no row below the exams.
std::vector<ChartLabel> ExamLabels(const GridTable& list);
/// Those in which the first subject has a mark.
std::vector<ChartLabel> YearLabels(const GridTable& list);

/// A student's marks and their average, for the text file.
TextReport StudentMarksText(const GridTable& list, const QString& title);

} // namespace tally
