#pragma once

#include "core/ui/Screen.h"
#include "reports/ChartTable.h"

#include <memory>

class QChart;

namespace Ui {
class frmStudentExamAvgChart;
}

namespace tally {

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

/// The chart window of all reports: bars or lines with the values of its own copy of TempChartReport.
class frmStudentExamAvgChart : public Screen
{
    Q_OBJECT

public:
    frmStudentExamAvgChart();
    ~frmStudentExamAvgChart() override;

    /// Takes the place of the chart that was shown.
    void ShowChart(const ChartTable& chart, const ChartHeads& heads, ChartKind kind);

    QSize sizeHint() const override;

private:
    void cmdPrint_Click();
    void CopyPicture();
    void SavePicture();

    std::unique_ptr<Ui::frmStudentExamAvgChart> ui_;
};

} // namespace tally
