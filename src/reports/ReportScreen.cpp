#include "reports/ReportScreen.h"

#include "core/modTallyboard.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/ListRoom.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/ScreenRegistry.h"
#include "reports/ChartRepository.h"
#include "reports/frmStudentExamAvgChart.h"
#include "reports/output/ExportGridToExcel.h"
#include "reports/output/GridPrint.h"
#include "reports/output/TextFile.h"
#include "reports/TextReport.h"

#include <QAction>
#include <QPushButton>
#include <QRadioButton>

#include <initializer_list>

namespace tally {

namespace {

const QString ChartForm = QStringLiteral("frmStudentExamAvgChart");

} // namespace

QSize ReportScreen::sizeHint() const
{
    return ListRoom;
}

void ReportScreen::SetReportControls(const ReportControls& controls)
{
    controls_ = controls;
    const auto handle = [this](QPushButton* button, void (ReportScreen::*handler)()) {
        if (button)
            connect(button, &QPushButton::clicked, this, handler);
    };
    handle(controls.cmdExport, &ReportScreen::cmdExport_Click);
    handle(controls.cmdPrint, &ReportScreen::cmdPrint_Click);
    handle(controls.cmdChart, &ReportScreen::cmdChart_Click);
    handle(controls.cmdCancel, &ReportScreen::cmdCancel_Click);
    SetExitButton(controls.cmdExit);

    if (controls.printing == Printing::OfLists)
        OfferPrint();
    SwitchOutput(false);
}

void ReportScreen::OfferPrint()
{
    print_ = new QAction(QStringLiteral("Print List..."), this);
    print_->setShortcut(QKeySequence::Print);
    print_->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(print_, &QAction::triggered, this, &ReportScreen::PrintList);
    addAction(print_);
    for (FlexGrid* grid : {controls_.msgDetails, controls_.msgSummary}) {
        if (!grid)
            continue;
        grid->addAction(print_);
        grid->setContextMenuPolicy(Qt::ActionsContextMenu);
    }
}

void ReportScreen::ShowReport(GridTable list)
{
    controls_.msgDetails->Show(std::move(list));
    SwitchOutput(true);
    if (controls_.cmdExport)
        controls_.cmdExport->setFocus();
}

bool ReportScreen::ViewReport(const std::function<GridTable()>& read)
{
    ClearReport();
    auto list = Fetch([&read] {
        const HourGlass hourGlass;
        return read();
    });
    if (!list)
        return false;
    ShowReport(std::move(*list));
    return true;
}

void ReportScreen::SwitchOutput(bool on)
{
    for (QWidget* control :
         std::initializer_list<QWidget*>{controls_.cmdExport, controls_.cmdPrint, controls_.Frame3})
        if (control)
            control->setEnabled(on);
    if (print_)
        print_->setEnabled(on);
}

void ReportScreen::ClearReport()
{
    for (FlexGrid* grid : {controls_.msgDetails, controls_.msgSummary})
        if (grid)
            ClearMSGrid(grid);
    SwitchOutput(false);
}

void ReportScreen::ResetReport()
{
    ClearControls(this);
    ClearReport();
    OfferLineGraph(0);
}

void ReportScreen::OfferLineGraph(int labels)
{
    if (!controls_.optLineGrph)
        return;
    controls_.optLineGrph->setEnabled(labels > 1);
    if (labels <= 1)
        controls_.optBarGrph->setChecked(true);
}

void ReportScreen::cmdExport_Click()
{
    if (!MayUse(Right::Print))
        return;
    const ReportHead head = Head();
    ExportReport(ShownList()->Table(), head.title, head.subTitle);
}

void ReportScreen::cmdPrint_Click()
{
    if (MayPrint())
        ShowPages();
}

bool ReportScreen::MayPrint()
{
    const auto allowed = HasRight(Right::Print);
    // The button alone does not say why it refuses.
    if (allowed && !*allowed)
        Prompts::Information({});
    return allowed.value_or(false);
}

void ReportScreen::PrintList()
{
    if (MayUse(Right::Print))
        ShowPages();
}

void ReportScreen::ShowPages()
{
    const ReportHead head = Head();
    ShowGridPreview(ShownList()->Table(), head.title, head.subTitle);
}

void ReportScreen::PrintText(const QString& fileName, const TextReport& report)
{
    if (!Read([] { LoadReportSchoolDetails(); }))
        return;
    const SessionContext& session = Session();
    ShowTextFile(fileName, LayOutText(report, {session.gstrReportSchoolName, session.gstrReportSchoolAddress,
                                               session.gstrReportSchoolCity}));
}

std::optional<ChartTable> ReportScreen::LayDownChart(const ChartTable& chart)
{
    std::optional<ChartTable> laidDown;
    Read([&] { laidDown = ChartRepository(TempStore()).LayDown(chart); });
    return laidDown;
}

void ReportScreen::ShowChart(const ChartTable& chart, const ChartHeads& heads)
{
    ShowForm(ChartForm);
    if (auto* window = qobject_cast<frmStudentExamAvgChart*>(ScreenRegistry::OpenInstance(ChartForm)))
        window->ShowChart(chart, heads,
                          controls_.optLineGrph->isChecked() ? ChartKind::Line : ChartKind::Bar);
}

} // namespace tally
