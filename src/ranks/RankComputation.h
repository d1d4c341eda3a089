#pragma once

#include "core/GridTable.h"
#include "core/school/SchoolTypes.h"

#include <array>
#include <exception>
#include <optional>
#include <string_view>
#include <vector>

namespace tally {

struct RankStudent
{
    int studentCode = 0;
    int divisionCode = 0;
    QString studentName;
    QString admissionNo; ///< OptionalAdmissionNo, the number shown everywhere
};

struct StudentMark
{
    int studentCode = 0;
    int divisionCode = 0; ///< the division in which the mark was entered
    int subjectCode = 0;
    bool present = false;
    double mark = 0;
};

/// All that a rank list and its summary are made from.
struct RankInput
{
    QString className;
    std::vector<SchoolDivision> divisions; ///< the selected ones, in list order
    std::vector<RankStudent>
        students; ///< of these divisions; those without any mark are left out of the list
    std::vector<SubjectSetup> subjects; ///< of these divisions, in SlNo order
    std::vector<StudentMark> marks;     ///< of the exam in these divisions, in any order
    std::vector<GradeBand> gradeTable;  ///< as LoadGradeTable gives it
    std::vector<QString> grades;        ///< each of these divisions' grades once, alphabetically
    /// Per division: the sum of MaximumAllowed of the subjects taken for rank, if there is any.
    std::vector<std::optional<double>> fullMarks;
};

struct RankOptions
{
    bool fractionMarks = false;
    bool roundedMarks = false;
    bool skipRanks = false; ///< chkRankSkipping: two students on rank 1 make the next rank 3
};

struct RankCell
{
    enum class Kind : std::uint8_t
    {
        Blank, ///< no mark was entered
        Mark,
        Absent,
    };

    double value = 0; ///< the number that the cell's text reads as; 0 for a blank and an absence
    Kind kind = Kind::Blank;
    CellMark mark = CellMark::None; ///< not taken for rank, or failed or absent where it is
};

struct RankSubject
{
    int subjectCode = 0;
    QString shortName; ///< trimmed
    bool takenForRank = false;
};

struct RankRow
{
    int studentCode = 0;
    std::size_t division = 0; ///< index into RankList::divisions
    QString studentName;
    QString admissionNo;
    double total = 0;     ///< of all marks above 0
    double rankTotal = 0; ///< of those in subjects taken for rank
    double average = 0;   ///< percent
    int rank = 0;         ///< 0: no rank
    QString grade;        ///< trimmed; empty where no band is reached
    double minMarks = 0;
};

/// The rank list: one row a student, one cell a student and subject.
struct RankList
{
    QString className;
    std::vector<SchoolDivision> divisions;
    std::vector<RankSubject> subjects;
    std::vector<RankRow> rows;
    std::vector<RankCell> cells; ///< row after row, subjects.size() of each
    int markDecimals = 0;        ///< 0 or 2: how marks are written

    const RankCell& Cell(std::size_t row, std::size_t subject) const
    {
        return cells[row * subjects.size() + subject];
    }
    /// Absent in a subject taken for rank: such a student gets no grade.
    bool MarkedAbsent(std::size_t row) const;
};

/// A list cannot be made of subjects whose maximum marks add up to 0. what() says so in the user's words.
class DivisionError : public std::exception
{
public:
    const char* what() const noexcept override { return "Division by zero"; }
};

/// The grade bands of the selected divisions (codes in list order), each division's in ascending
/// SubjectAverage, so that its row of zeros comes first. Bands that share a SubjectAverage follow by
/// TotalAverage.
std::vector<GradeBand> LoadGradeTable(const std::vector<GradeBand>& bands,
                                      const std::vector<int>& divisionCodes);

/// Totals, averages, ranks, grades and lowest marks of all students in one list, whatever their division.
/// Throws DivisionError when a student has marks but no maximum mark counts for rank.
RankList ComputeRankList(const RankInput& input, const RankOptions& options);

/// The text of a cell as the list writes it: empty, "A", or the mark with `markDecimals` decimals; behind
/// "Fail" where `marked` is set and the cell is failed or absent. The view lies in `buffer`.
using CellBuffer = std::array<char, 40>;
std::string_view CellText(const RankCell& cell, int markDecimals, bool marked, CellBuffer& buffer);

} // namespace tally
