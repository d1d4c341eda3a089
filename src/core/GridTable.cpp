#include "core/GridTable.h"

#include <algorithm>

namespace tally {

QString CellWords(CellMark mark)
{
    switch (mark) {
    case CellMark::NotTakenForRank: return QStringLiteral("Not Taken For Rank");
    case CellMark::FailedOrAbsent: return QStringLiteral("Failed Or Absent");
    case CellMark::Sum: return QStringLiteral("Sum");
    case CellMark::None: break;
    }
    return {};
}

const GridCell& GridTable::CellAt(int row, GridCol col) const
{
    static const GridCell Empty;
    const auto r = static_cast<std::size_t>(row) - 1;
    const auto c = static_cast<std::size_t>(col);
    return row >= 1 && r < rows_.size() && col >= 0 && c < rows_[r].size() ? rows_[r][c] : Empty;
}

GridCell* GridTable::Find(int row, GridCol col)
{
    if (row < 1 || row >= Rows() || !HasCol(col))
        return nullptr;
    Row& cells = rows_[static_cast<std::size_t>(row) - 1];
    const auto c = static_cast<std::size_t>(col);
    if (cells.size() <= c)
        cells.resize(columns_.size());
    return &cells[c];
}

const QString& GridTable::Text(int row, GridCol col) const
{
    return row == 0 && HasCol(col) ? Column(col).head : CellAt(row, col).text;
}

void GridTable::SetText(int row, GridCol col, const QString& text)
{
    if (row == 0 && HasCol(col))
        Column(col).head = text;
    else if (GridCell* cell = Find(row, col))
        cell->text = text;
}

void GridTable::SetMark(int row, GridCol col, CellMark mark)
{
    if (GridCell* cell = Find(row, col))
        cell->mark = mark;
}

void GridTable::SetRow(int row, Row cells)
{
    if (row >= 1 && row < Rows())
        rows_[static_cast<std::size_t>(row) - 1] = std::move(cells);
}

void GridTable::SetRows(int rows)
{
    rows_.resize(static_cast<std::size_t>(std::max(0, rows - 1)));
    while (!hiddenRows_.empty() && hiddenRows_.back() >= Rows())
        hiddenRows_.pop_back();
}

void GridTable::SetCols(int cols)
{
    columns_.resize(static_cast<std::size_t>(std::max(0, cols)));
    for (Row& row : rows_)
        row.resize(std::min(row.size(), columns_.size()));
}

void GridTable::RemoveRow(int row)
{
    if (row < 1 || row >= Rows())
        return;
    rows_.erase(rows_.begin() + (row - 1));
    HideRow(row, false);
    for (int& hidden : hiddenRows_)
        hidden -= hidden > row ? 1 : 0;
}

bool GridTable::Repeats(int row, GridCol col) const
{
    if (!HasCol(col) || !Column(col).merged)
        return false;
    int above = row - 1;
    while (above > 0 && RowHidden(above))
        --above;
    if (above < 1 || row >= Rows())
        return false;
    for (int before = 0; before <= col; ++before)
        if (Column(before).merged && Text(row, before) != Text(above, before))
            return false;
    return true;
}

void GridTable::HideRow(int row, bool hidden)
{
    const auto place = std::lower_bound(hiddenRows_.begin(), hiddenRows_.end(), row);
    const bool found = place != hiddenRows_.end() && *place == row;
    if (hidden && !found && row >= 0 && row < Rows())
        hiddenRows_.insert(place, row);
    else if (!hidden && found)
        hiddenRows_.erase(place);
}

bool GridTable::RowHidden(int row) const
{
    return std::binary_search(hiddenRows_.begin(), hiddenRows_.end(), row);
}

} // namespace tally
