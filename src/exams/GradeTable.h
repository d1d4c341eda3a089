#pragma once

#include "core/GridTable.h"
#include "exams/GradeRecord.h"

#include <optional>
#include <vector>

namespace tally {

/// One line of the grade table as it is typed. A text without a number counts as 0.
struct GradeRow
{
    QString totalAverage;
    QString subjectAverage;
    QString grade;

    /// The line is one of the table. A typed 0 fills it as any other figure does.
    bool IsFilled() const { return !totalAverage.trimmed().isEmpty(); }
    bool HasGrade() const { return !grade.trimmed().isEmpty(); }
    bool IsBlank() const { return !IsFilled() && !HasGrade() && subjectAverage.trimmed().isEmpty(); }
    double TotalAverage() const;
    double SubjectAverage() const;
};

enum class GradeColumn : int
{
    Serial,
    TotalAverage,
    SubjectAverage,
    Grade,
};

/// Where the entry goes on, and what the clerk is told before. An empty message: nothing.
struct GradeStep
{
    QString message;
    GradeColumn column = GradeColumn::TotalAverage;
    int row = 0; ///< from 1; 0: nowhere
};

/// The grades of a class-division while they are entered, from the highest total average down to 0, so that
/// every student falls into one. Grades that differ in small letters and capitals alone are the same. Rows
/// count from 1, as the grid shows them below its head.
class GradeTable
{
public:
    /// One blank row.
    GradeTable() { Clear(); }
    void Clear();
    /// What is stored, with a blank row behind it for the next grade.
    void Load(const std::vector<GradeRecord>& stored);

    int RowCount() const { return static_cast<int>(rows_.size()); }
    /// Anything is typed, or stored.
    bool IsBegun() const;
    bool HasRow(int row) const { return row >= 1 && row <= RowCount(); }
    /// `row` from 1 to RowCount(), as for all that follows.
    const GradeRow& Row(int row) const { return rows_[static_cast<std::size_t>(row - 1)]; }
    /// Whether the row may be entered in this column: a row begins with its total average.
    bool MayEnter(int row, GridCol column) const;
    GridTable Table() const;
    GridTable::Row Cells(int row) const;

    /// Why the text can't be the total average of the row; empty where it can. The last row is compared with
    /// no other one until a save.
    QString RefusalOfTotalAverage(int row, const QString& text) const;
    void SetTotalAverage(int row, const QString& text) { At(row).totalAverage = text; }
    void SetSubjectAverage(int row, const QString& text) { At(row).subjectAverage = text; }
    void SetGrade(int row, const QString& text) { At(row).grade = text; }
    /// A grade was ended with Enter. One that another row has is taken out; behind the last row a blank one
    /// is added. A blank grade leads nowhere.
    GradeStep EnterGrade(int row);
    /// The row as it was in `before`.
    void PutBack(int row, const GradeRow& before) { At(row) = before; }
    /// The rows below it move up. A blank row stays at the end.
    void DeleteRow(int row);

    /// The first reason why the table can't be stored.
    std::optional<GradeStep> FindFault() const;
    /// The filled rows.
    std::vector<GradeRecord> Records() const;

private:
    GradeRow& At(int row) { return rows_[static_cast<std::size_t>(row - 1)]; }
    /// The nearest filled row above; null for none.
    const GradeRow* FilledAbove(int row) const;
    /// What is wrong with the table as a whole, where no single row is.
    std::optional<GradeStep> FindGap() const;

    std::vector<GradeRow> rows_;
};

} // namespace tally
