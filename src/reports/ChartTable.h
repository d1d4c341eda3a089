#pragma once

#include "core/GridTable.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace tally {

/// What a chart shows: groups of values along its axis, one value of each series in each group.
struct ChartTable
{
    struct Row
    {
        QString label;
        std::vector<double> values; ///< one for each series
    };

    const char* labelColumn = ""; ///< the head of the labels in TempChartReport; the program's own
    QStringList series;
    std::vector<Row> rows;
};

/// The numbers under which the office knows the two kinds of graph.
enum class ChartKind
{
    Bar = 1,
    Line = 3,
};

/// The words on a chart.
struct ChartHeads
{
    QString title;
    QString xAxis;
    QString yAxis;
};

/// A chart and how it is to be drawn.
struct Chart
{
    ChartTable table;
    ChartHeads heads;
    ChartKind kind = ChartKind::Bar;
};

/// A row of a report's grid that goes into the chart, and what the axis calls it.
struct ChartLabel
{
    int row = 0;
    QString label;
};

/// The first column of a report's grid that can hold marks. The columns before it say whose they are; from it
/// on every second one is hidden and holds the subject's code, and the one behind it shows the subject.
inline constexpr int FirstSubjectColumn = 5;
/// Sets the two columns of a subject behind the others, with the least width that the forms give a subject.
void AddSubjectColumns(std::vector<GridColumn>& columns, int subjectCode, const QString& shortName);

/// The visible subject columns of a report's grid as series, named by their heads without blanks around them.
/// A cell that holds no number, or one that is not above 0, counts as 0.
ChartTable ChartOf(const GridTable& grid, const char* labelColumn, const std::vector<ChartLabel>& labels);

/// The axis of values: from 0 to a round number that no value exceeds.
struct ChartAxis
{
    double top = 0;
    double step = 0; ///< between two lines; 1, 2 or 5 and zeros
    int Lines() const;
    /// So many has the step.
    int Decimals() const;
};
/// At least the share `free` of the axis, half of it at most, lies above the largest value.
ChartAxis AxisOf(const ChartTable& chart, double free = 0);

} // namespace tally
