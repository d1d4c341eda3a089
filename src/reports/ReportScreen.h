#pragma once

#include "core/GridTable.h"
#include "core/ui/Screen.h"
#include "reports/ChartTable.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

class QAction;
class QPushButton;
class QRadioButton;

namespace tally {

class FlexGrid;
struct TextReport;

/// What the report screens share: a list that is shown from a table, the buttons that follow it, and the ways
/// in which it leaves the screen: workbook, paper, text, chart. A change of the selection takes list and
/// buttons back, so that nothing leaves the screen that is not what is selected.
class ReportScreen : public Screen
{
    Q_OBJECT

public:
    /// ListRoom, unless a report is content with less.
    QSize sizeHint() const override;

protected:
    /// Whether a report may go to a printer.
    enum class Printing
    {
        OfLists,
        Never, ///< cmdPrint of the form stays off, and so does every other way to it
    };

    /// The controls of a report. A screen without one of them leaves it null.
    struct ReportControls
    {
        FlexGrid* msgDetails = nullptr;
        FlexGrid* msgSummary = nullptr; ///< a second list, cleared with the first
        QPushButton* cmdExport = nullptr;
        QPushButton* cmdPrint = nullptr; ///< follows the list; null where it stays as it is in the form
        QWidget* Frame3 = nullptr;       ///< holds the buttons of the chart
        QPushButton* cmdChart = nullptr;
        QRadioButton* optBarGrph = nullptr;
        QRadioButton* optLineGrph = nullptr;
        QPushButton* cmdCancel = nullptr;
        QPushButton* cmdExit = nullptr;
        Printing printing = Printing::OfLists;
    };

    /// The two lines over an exported or printed list.
    struct ReportHead
    {
        QString title;
        QString subTitle;
    };

    using Screen::Screen;

    /// Says which controls these are and connects the buttons among them to their handlers.
    void SetReportControls(const ReportControls& controls);

    /// The head of the list as it is selected.
    virtual ReportHead Head() const = 0;
    /// The list that is exported and printed; msgDetails unless a screen says otherwise.
    virtual const FlexGrid* ShownList() const { return controls_.msgDetails; }
    /// Cancel's steps: the screen as it was when it opened, with its lists read anew. Most of it is
    /// ResetReport.
    virtual void cmdCancel_Click() = 0;
    /// Proves the privilege and exports ShownList under Head.
    virtual void cmdExport_Click();
    /// Proves the privilege and shows how ShownList comes out of a printer. A screen with a text report
    /// prints that instead.
    virtual void cmdPrint_Click();
    /// Shows the chart. A screen with one lays it down with LayDownChart and shows it with ShowChart.
    virtual void cmdChart_Click() {}

    /// Shows the list in msgDetails and switches the buttons on; cmdExport takes the keyboard.
    void ShowReport(GridTable list);
    /// Shows the list that `read` reads from the main database, all of one moment, in place of the one
    /// before. False when it could not be read: the user has been told and nothing is shown.
    bool ViewReport(const std::function<GridTable()>& read);
    /// Switches export, print and chart on or off.
    void SwitchOutput(bool on);
    /// What every change of the selection does: the lists are emptied with ClearMSGrid, export, print and
    /// chart are off.
    void ClearReport();
    /// ClearControls and ClearReport, and the bar graph chosen.
    void ResetReport();
    /// A line needs two points: with fewer than two labels on the axis only the bar graph is offered, and it
    /// is chosen.
    void OfferLineGraph(int labels);

    /// Whether the user may print; a refusal is a box without a text.
    [[nodiscard]] bool MayPrint();
    /// Writes the text report as `fileName` into the program's folder and opens it. A failure is told.
    void PrintText(const QString& fileName, const TextReport& report);
    /// The chart as TempChartReport holds it; nothing when it could not be laid down and the user has been
    /// told.
    [[nodiscard]] std::optional<ChartTable> LayDownChart(const ChartTable& chart);
    /// Opens the chart window with the chart, as bars or lines after the option chosen.
    void ShowChart(const ChartTable& chart, const ChartHeads& heads);

private:
    /// "Print List..." by Ctrl+P and in the menus of the lists.
    void OfferPrint();
    void PrintList();
    void ShowPages();

    ReportControls controls_;
    QAction* print_ = nullptr; ///< Ctrl+P, also where cmdPrint prints a text; null for Printing::Never
};

} // namespace tally
