#pragma once

#include "core/GridTable.h"

namespace tally::test {

/// A table of these rows, the heads first.
inline GridTable TableOf(std::vector<GridTable::Row> rows)
{
    std::vector<GridColumn> columns;
    for (const GridCell& head : rows.at(0))
        columns.push_back({head.text});
    GridTable table(std::move(columns));
    for (std::size_t row = 1; row < rows.size(); ++row)
        table.AddRow(std::move(rows[row]));
    return table;
}

} // namespace tally::test
