#include "reports/ChartTable.h"

#include "core/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tally {

void AddSubjectColumns(std::vector<GridColumn>& columns, int subjectCode, const QString& shortName)
{
    constexpr int SubjectTwips = 600;
    columns.push_back({.head = QString::number(subjectCode), .hidden = true});
    columns.push_back({.head = shortName, .alignment = NumberAlignment, .twips = SubjectTwips});
}

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

int ChartAxis::Lines() const
{
    return static_cast<int>(std::lround(top / step)) + 1;
}

int ChartAxis::Decimals() const
{
    // Beside the step, its logarithm too may lie a hair below a whole number.
    constexpr double Hair = 1e-9;
    return std::max(0, static_cast<int>(-std::floor(std::log10(step) + Hair)));
}

ChartAxis AxisOf(const ChartTable& chart, double free)
{
    constexpr double MostSteps = 6;
    constexpr std::array Rounds{1.0, 2.0, 5.0, 10.0};
    // Binary forms lie a hair beside what people read.
    constexpr double Hair = 1e-9;

    double largest = 0;
    for (const ChartTable::Row& row : chart.rows)
        for (const double value : row.values)
            largest = std::max(largest, value);
    if (largest <= 0)
        return {10, 2};
    const double unit = std::pow(10, std::floor(std::log10(largest / MostSteps)));
    const double round = *std::find_if(Rounds.begin(), Rounds.end(), [&](double candidate) {
        return largest / (candidate * unit) <= MostSteps + Hair;
    });
    const double step = round * unit;
    ChartAxis axis{std::ceil(largest / step - Hair) * step, step};
    constexpr double MostFree = 0.5;
    while (axis.top - largest < axis.top * (std::min(free, MostFree) - Hair))
        axis.top += step;
    return axis;
}

} // namespace tally
