#include "exams/GradeTable.h"

#include "core/Numbers.h"

#include <algorithm>

namespace tally {

namespace {

const QString GradeMissing = QStringLiteral("Grade Should Not Be Empty");
const QString GradeExists = QStringLiteral("Grade Already Exists");
const QString TotalAverageExists = QStringLiteral("'Total Average' Already Exists");
const QString TotalAverageRises =
    QStringLiteral("'Total Average' Should Be Entered From Highest Average To 0(Zero)");
const QString ReferNotes = QStringLiteral("Enter Values Properly, Refer Notes Given Below");

bool SameGrade(const GradeRow& a, const GradeRow& b)
{
    return a.grade.trimmed().compare(b.grade.trimmed(), Qt::CaseInsensitive) == 0;
}

} // namespace

double GradeRow::TotalAverage() const
{
    return Val(totalAverage);
}

double GradeRow::SubjectAverage() const
{
    return Val(subjectAverage);
}

void GradeTable::Clear()
{
    rows_.assign(1, {});
}

void GradeTable::Load(const std::vector<GradeRecord>& stored)
{
    rows_.clear();
    for (const GradeRecord& record : stored)
        rows_.push_back({PlainNumber(record.totalAverage), PlainNumber(record.subjectAverage), record.grade});
    rows_.emplace_back();
}

bool GradeTable::IsBegun() const
{
    return !std::all_of(rows_.begin(), rows_.end(), [](const GradeRow& row) { return row.IsBlank(); });
}

bool GradeTable::MayEnter(int row, GridCol column) const
{
    return HasRow(row) && (column == GridCol(GradeColumn::TotalAverage) || Row(row).IsFilled());
}

GridTable GradeTable::Table() const
{
    GridTable table({{QStringLiteral("S.No."), NumberAlignment},
                     {QStringLiteral("Total Average Is >="), NumberAlignment},
                     {QStringLiteral("Subject Average Is >="), NumberAlignment},
                     {.head = QStringLiteral("Grade"), .stretched = true}});
    for (int row = 1; row <= RowCount(); ++row)
        table.AddRow(Cells(row));
    return table;
}

GridTable::Row GradeTable::Cells(int row) const
{
    const GradeRow& entry = Row(row);
    return {{QString::number(row)}, {entry.totalAverage}, {entry.subjectAverage}, {entry.grade}};
}

const GradeRow* GradeTable::FilledAbove(int row) const
{
    for (int above = row - 1; above >= 1; --above)
        if (Row(above).IsFilled())
            return &Row(above);
    return nullptr;
}

QString GradeTable::RefusalOfTotalAverage(int row, const QString& text) const
{
    if (text.trimmed().isEmpty())
        return {};
    const double average = Val(text);
    // The last row may be half typed; a save asks it too.
    for (int other = 1; other < RowCount(); ++other)
        if (other != row && Row(other).IsFilled() && Row(other).TotalAverage() == average)
            return TotalAverageExists;
    const GradeRow* above = FilledAbove(row);
    return above && above->TotalAverage() < average ? TotalAverageRises : QString();
}

GradeStep GradeTable::EnterGrade(int row)
{
    if (!Row(row).HasGrade())
        return {};
    for (int other = 1; other <= RowCount(); ++other) {
        if (other == row || !SameGrade(Row(other), Row(row)))
            continue;
        At(row).grade.clear();
        return {GradeExists, GradeColumn::Grade, row};
    }
    if (row == RowCount())
        rows_.emplace_back();
    return {{}, GradeColumn::TotalAverage, row + 1};
}

void GradeTable::DeleteRow(int row)
{
    rows_.erase(rows_.begin() + (row - 1));
    if (rows_.empty() || !rows_.back().IsBlank())
        rows_.emplace_back();
}

std::optional<GradeStep> GradeTable::FindFault() const
{
    const auto inSomeRow = [this](const QString& message, GradeColumn column,
                                  const auto& isAtFault) -> std::optional<GradeStep> {
        for (int row = 1; row <= RowCount(); ++row)
            if (Row(row).IsFilled() && isAtFault(row))
                return GradeStep{message, column, row};
        return {};
    };
    const auto repeats = [this](int row, const auto& same) {
        return std::any_of(rows_.begin(), rows_.begin() + (row - 1),
                           [&](const GradeRow& above) { return above.IsFilled() && same(above, Row(row)); });
    };
    if (auto fault =
            inSomeRow(GradeMissing, GradeColumn::Grade, [this](int row) { return !Row(row).HasGrade(); }))
        return fault;
    if (auto fault =
            inSomeRow(GradeExists, GradeColumn::Grade, [&](int row) { return repeats(row, SameGrade); }))
        return fault;
    const auto sameTotalAverage = [](const GradeRow& a, const GradeRow& b) {
        return a.TotalAverage() == b.TotalAverage();
    };
    if (auto fault = inSomeRow(TotalAverageExists, GradeColumn::TotalAverage,
                               [&](int row) { return repeats(row, sameTotalAverage); }))
        return fault;
    if (auto fault = inSomeRow(TotalAverageRises, GradeColumn::TotalAverage, [this](int row) {
            const GradeRow* above = FilledAbove(row);
            return above && above->TotalAverage() < Row(row).TotalAverage();
        }))
        return fault;
    return FindGap();
}

std::optional<GradeStep> GradeTable::FindGap() const
{
    const auto isFilled = [](const GradeRow& row) { return row.IsFilled(); };
    const auto isBand = [](const GradeRow& row) {
        return row.IsFilled() && row.TotalAverage() != 0 && row.SubjectAverage() != 0;
    };
    const auto isLast = [](const GradeRow& row) {
        return row.IsFilled() && row.TotalAverage() == 0 && row.SubjectAverage() == 0;
    };
    if (std::any_of(rows_.begin(), rows_.end(), isBand) && std::none_of(rows_.begin(), rows_.end(), isLast))
        return GradeStep{ReferNotes};
    // What was typed into a row without a total average would go without a word, and so would a whole table
    // whose rows were all emptied.
    const auto begun = std::find_if(rows_.begin(), rows_.end(),
                                    [](const GradeRow& row) { return !row.IsFilled() && !row.IsBlank(); });
    if (begun != rows_.end())
        return GradeStep{ReferNotes, GradeColumn::TotalAverage, static_cast<int>(begun - rows_.begin()) + 1};
    if (std::none_of(rows_.begin(), rows_.end(), isFilled))
        return GradeStep{ReferNotes, GradeColumn::TotalAverage, 1};
    return {};
}

std::vector<GradeRecord> GradeTable::Records() const
{
    std::vector<GradeRecord> records;
    for (const GradeRow& row : rows_)
        if (row.IsFilled())
            records.push_back({row.TotalAverage(), row.SubjectAverage(), row.grade.trimmed()});
    return records;
}

} // namespace tally
