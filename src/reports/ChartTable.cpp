#include "reports/ChartTable.h"

#include "core/Numbers.h"

#include <algorithm>

namespace tally {

ChartTable ChartOf(const GridTable& grid, const char* labelColumn, const std::vector<ChartLabel>& labels)
{
    ChartTable chart{.labelColumn = labelColumn, .series = {}, .rows = {}};
    std::vector<int> columns;
    for (int col = FirstSubjectColumn; col < grid.Cols(); ++col) {
        if (grid.Column(col).hidden)
            continue;
        columns.push_back(col);
        chart.series.append(grid.Text(0, col).trimmed());
    }
    for (const auto& [row, label] : labels) {
        ChartTable::Row& line = chart.rows.emplace_back(ChartTable::Row{label, {}});
        for (const int col : columns)
            line.values.push_back(std::max(0.0, Val(grid.Text(row, col))));
    }
    return chart;
}

} // namespace tally
