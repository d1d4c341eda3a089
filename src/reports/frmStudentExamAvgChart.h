#pragma once

#include "core/ui/Screen.h"
#include "reports/ChartTable.h"

#include <memory>

namespace Ui {
class frmStudentExamAvgChart;
}

namespace tally {

/// The chart window of all reports: bars or lines with the values of its own copy of TempChartReport.
class frmStudentExamAvgChart : public Screen
{
    Q_OBJECT

public:
    frmStudentExamAvgChart();
    ~frmStudentExamAvgChart() override;

    /// Takes the place of the chart that was shown.
    void ShowChart(const ChartTable& table, const ChartHeads& heads, ChartKind kind);

    QSize sizeHint() const override;

private:
    void cmdPrint_Click();

    std::unique_ptr<Ui::frmStudentExamAvgChart> ui_;
};

} // namespace tally
