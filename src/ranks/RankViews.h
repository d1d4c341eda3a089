#pragma once

#include "ranks/RankComputation.h"
#include "ranks/RankRepository.h"
#include "ranks/TempRankRepository.h"

#include <optional>
#include <vector>

namespace tally {

/// The columns of a rank list up to its subjects. Behind the subjects stand the total of all of them, the
/// total of those taken for rank (of the two one is hidden), average, rank and grade.
enum class RankColumn : int
{
    StudentName,
    AdmissionNo,
    Class,
    Division,
    DivisionCode, ///< hidden
    FirstSubject,
};

/// The rows of a rank list: row 0 the heads, row 1 the subject codes (hidden), the students, a blank row, the
/// "Average" row, a spare row.
namespace RankListRows {
inline constexpr int Codes = 1;
inline constexpr int FirstStudent = 2;
inline constexpr int BelowStudents = 3;
} // namespace RankListRows

/// Reads TempRankCalculation for the divisions ticked, in the order picked. The grade order follows
/// `gradesInOrder` (LoadGradesInOrder; unused otherwise): it leaves out students whose grade is not among
/// them, absent ones too, lists those twice whose grade stands at two positions, and leaves the averages as
/// they are stored instead of writing two decimals.
GridTable ShowRankList(TempRankRepository& working, const std::vector<int>& divisionCodes,
                       const std::vector<RankSubject>& subjects, RankOrder order,
                       const std::vector<QString>& gradesInOrder, SubjectDisplay display);

/// The full marks of one division; no value where no subject is taken for rank.
struct DivisionFullMark
{
    QString divisionItem; ///< the list item's whole text, its two-character mark included
    std::optional<double> fullMark;
};

/// Counts the students of a rank list by grade, those without one, and the full marks, from row 1 on.
/// Columns: the text, a number of students or marks, a count by grade, the grade (hidden). The head is
/// hidden.
GridTable LoadGradeSummary(const GridTable& list, const std::vector<QString>& grades,
                           const QString& className, const std::vector<DivisionFullMark>& fullMarks);

} // namespace tally
