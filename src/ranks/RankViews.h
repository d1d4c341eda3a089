#pragma once

#include "ranks/RankComputation.h"
#include "ranks/RankRepository.h"
#include "ranks/TempRankRepository.h"

#include <optional>
#include <vector>

namespace tally {

/// A rank list in the order the user picked, in the rows and columns of the grid that shows it: row 0 the
/// heads, row 1 the subject codes (hidden), students from row 2, a blank row, the "Average" row, a spare row.
/// Columns: name, admission number, class, division, division code (hidden), the subjects, the total of all
/// subjects, the total of those taken for rank (of the two one is hidden), average, rank, grade.
class RankView
{
public:
    /// `table` holds the rows in the order to show. `plainAverage` leaves the averages as they are stored
    /// instead of writing two decimals.
    RankView(std::vector<RankSubject> subjects, TempRankTable table, SubjectDisplay display,
             bool plainAverage);

    int Rows() const;
    int Cols() const { return FirstSubjectColumn + SubjectCount() + 5; }
    int SubjectCount() const { return static_cast<int>(subjects_.size()); }
    int StudentCount() const { return static_cast<int>(table_.rows.size()); }
    int AverageRow() const { return Rows() - 2; }
    QString Text(int row, int column) const;
    CellFlag Flag(int row, int column) const;
    bool ColumnHidden(int column) const;
    static bool RowHidden(int row) { return row == 1; }

    static constexpr int FixedColumns = 1; ///< the name, which stays in sight beside the ranks
    static constexpr int FirstSubjectColumn = 5;
    static constexpr int FirstStudentRow = 2;

private:
    /// A mark's text as it stands in the table, taken apart.
    struct Mark
    {
        QString text;
        double value = 0;
        bool failed = false;
        bool absent = false;
    };

    bool IsSubject(int column) const;
    const RankSubject& SubjectAt(int column) const;
    const Mark& MarkAt(int student, int column) const;
    QString HeadText(int column) const;
    QString StudentText(int student, int column) const;
    void ComputeAverages();

    std::vector<RankSubject> subjects_;
    TempRankTable table_;
    std::vector<Mark> marks_;       ///< one per different text of table_
    std::vector<bool> absent_;      ///< per student
    std::vector<QString> averages_; ///< from FirstSubjectColumn on
    SubjectDisplay display_;
    bool plainAverage_;
};

/// Reads TempRankCalculation for the divisions ticked, in the order picked. The grade order follows
/// `gradesInOrder` (LoadGradesInOrder; unused otherwise): it leaves out students whose grade is not among
/// them, absent ones too, and lists those twice whose grade stands at two positions.
RankView ShowRankList(TempRankRepository& working, const std::vector<int>& divisionCodes,
                      const std::vector<RankSubject>& subjects, RankOrder order,
                      const std::vector<QString>& gradesInOrder, SubjectDisplay display);

/// The full marks of one division; no value where no subject is taken for rank.
struct DivisionFullMark
{
    QString divisionItem; ///< the list item's whole text, its two-character mark included
    std::optional<double> fullMark;
};

/// One row of the summary panel, texts of its columns 0 to 3.
using GradeSummaryRow = std::array<QString, 4>;

/// Counts the students of the view by grade, those without one, and the full marks, from the panel's row 1
/// on.
std::vector<GradeSummaryRow> LoadGradeSummary(const RankView& view, const std::vector<QString>& grades,
                                              const QString& className,
                                              const std::vector<DivisionFullMark>& fullMarks);

} // namespace tally
