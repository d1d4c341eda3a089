#pragma once

#include "core/GridTable.h"
#include "core/school/ListItem.h"
#include "core/school/SchoolTypes.h"
#include "ranks/TempRankTable.h"

#include <optional>
#include <vector>

namespace tally {

/// A student of the list from which the cards are chosen.
struct ListedStudent
{
    int studentCode = 0;
    QString studentName;
};

/// How many marks a student has in one exam.
struct ExamMarkCount
{
    int studentCode = 0;
    int examCode = 0;
    int marks = 0;
};

/// From what the list of students is made.
struct StudentListInput
{
    std::vector<ListedStudent> students; ///< in list order
    int subjectCount = 0;                ///< set up for the division, taken for rank or not
    std::vector<ExamMarkCount> counts;   ///< of any exams and students; none means no marks
};

/// A student has as many marks in each of the exams as the division has subjects. One flag per student of the
/// input; without exams every student is complete.
std::vector<bool> MarksComplete(const StudentListInput& input, const std::vector<int>& examCodes);

/// The student's line in the list: a two-character mark, which is blank when the marks are complete, and the
/// name. Without them he cannot be ticked.
ListItem StudentItem(const ListedStudent& student, bool complete);

struct CardStudent
{
    int studentCode = 0;
    QString studentName;
    QString admissionNo; ///< OptionalAdmissionNo, the number shown everywhere
};

struct CardSubject
{
    int subjectCode = 0;
    QString shortName;
};

struct CardMark
{
    int studentCode = 0;
    int examCode = 0;
    int subjectCode = 0;
    double mark = 0;
};

/// What the saved rank list says of a student in an exam; no value where it leaves one open.
struct CardRank
{
    int studentCode = 0;
    int examCode = 0;
    std::optional<double> total;
    std::optional<double> average;
    qint64 rank = NoRank;
    QString grade;
};

/// All that rank cards are made from. Marks and ranks may be those of more students than the cards
/// are for; where two say something of the same student, exam and subject, the later one counts.
struct RankCardInput
{
    QString className;
    QString divisionName;
    std::vector<SchoolExam> exams;     ///< the ticked ones in the order of a card's lines
    std::vector<CardStudent> students; ///< the ticked ones in the order of the cards
    std::vector<CardSubject> subjects; ///< the columns
    std::vector<CardMark> marks;
    std::vector<CardRank> ranks;
};

/// The columns of the cards up to their subjects. Behind the subjects stand total, average, rank and grade.
enum class CardColumn : int
{
    Exam,
    StudentName,
    AdmissionNo,
    Class,
    Division,
    FirstSubject,
};

/// The cards in the rows and columns of the grid that shows them: row 0 the heads, row 1 the subject codes
/// (hidden), and the lines of the exams.
struct RankCardGrid
{
    static constexpr int CodesRow = 1;
    static constexpr int FirstLineRow = 2;
    static constexpr int FixedColumns = 2; ///< exam and student, which stay in sight beside the ranks

    GridTable table; ///< a blank row has no cells
    int lines = 0;   ///< exam lines of all cards
};

/// One line for each ticked exam in which the student has a mark, and a blank line behind each student.
/// `markDecimals` as MarkDecimals gives it.
RankCardGrid ComputeRankCards(const RankCardInput& input, int markDecimals);

} // namespace tally
