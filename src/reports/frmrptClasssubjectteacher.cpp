#include "reports/frmrptClasssubjectteacher.h"

#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "reports/ExportFlexGridToExcel1.h"
#include "reports/output/ExportWorkbook.h"
#include "reports/SetupReport.h"
#include "reports/SetupReportRepository.h"
#include "ui_frmrptClasssubjectteacher.h"

namespace tally {

namespace {

constexpr int HelpScreenNo = 30;
/// Serial number, class and division stay in sight beside the rest.
constexpr int FirstColumnsInSight = 3;

} // namespace

frmrptClasssubjectteacher::frmrptClasssubjectteacher()
    : ReportScreen(QStringLiteral("frmrptClasssubjectteacher"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmrptClasssubjectteacher>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ui_->msgDetails->SetFixedCols(FirstColumnsInSight);
    SetReportControls({.msgDetails = ui_->msgDetails,
                       .cmdExport = ui_->cmdExport,
                       .cmdCancel = ui_->cmdCancel,
                       .cmdExit = ui_->cmdExit});
    ConnectHandlers();
    Form_Load();
}

frmrptClasssubjectteacher::~frmrptClasssubjectteacher() = default;

void frmrptClasssubjectteacher::ConnectHandlers()
{
    using Form = frmrptClasssubjectteacher;
    connect(ui_->optAllClass, &QRadioButton::clicked, this, &Form::optAllClass_Click);
    connect(ui_->optSpecificClass, &QRadioButton::clicked, this, &Form::optSpecificClass_Click);
    connect(ui_->optAllDivision, &QRadioButton::clicked, this, &Form::optAllDivision_Click);
    connect(ui_->optSpecificDivision, &QRadioButton::clicked, this, &Form::optSpecificDivision_Click);
    connect(ui_->dbcClass, &DataCombo::Chosen, this, &Form::dbcClass_Change);
    connect(ui_->dbcDivision, &DataCombo::Chosen, this, &Form::ClearReport);
    connect(ui_->cmdView, &QPushButton::clicked, this, &Form::cmdView_Click);
}

void frmrptClasssubjectteacher::Form_Load()
{
    ui_->dbcClass->SetListBehindBlank({});
    Read([this] { ui_->dbcClass->SetListBehindBlank(SchoolListRepository(MainStore()).Classes()); });
    ui_->optAllClass->setChecked(true);
    optAllClass_Click();
    ui_->optAllClass->setFocus();
}

void frmrptClasssubjectteacher::optAllClass_Click()
{
    ClearReport();
    ui_->dbcClass->SetBoundCode(0);
    ui_->dbcClass->setEnabled(false);
    ui_->dbcDivision->SetListBehindBlank({});
    ui_->optAllDivision->setChecked(true);
    optAllDivision_Click();
    ui_->Frame3->setEnabled(false);
}

void frmrptClasssubjectteacher::optSpecificClass_Click()
{
    ClearReport();
    ui_->dbcClass->setEnabled(true);
}

void frmrptClasssubjectteacher::optAllDivision_Click()
{
    ClearReport();
    ui_->dbcDivision->SetBoundCode(0);
    ui_->dbcDivision->setEnabled(false);
}

void frmrptClasssubjectteacher::optSpecificDivision_Click()
{
    ClearReport();
    ui_->dbcDivision->setEnabled(true);
}

void frmrptClasssubjectteacher::dbcClass_Change()
{
    ui_->dbcDivision->SetListBehindBlank({});
    ui_->optAllDivision->setChecked(true);
    optAllDivision_Click();
    const bool isRead = Read([this] {
        ui_->dbcDivision->SetListBehindBlank(
            SchoolListRepository(MainStore()).DivisionsByName(ui_->dbcClass->BoundCode()));
    });
    // A class over no divisions could not be chosen again.
    if (!isRead)
        ui_->dbcClass->SetBoundCode(0);
    ui_->Frame3->setEnabled(!ui_->dbcClass->IsBlank());
}

void frmrptClasssubjectteacher::cmdView_Click()
{
    if (ui_->optSpecificClass->isChecked() && ui_->dbcClass->IsBlank()) {
        Refuse(QStringLiteral("Select Class"), ui_->dbcClass);
        return;
    }
    if (ui_->optSpecificDivision->isChecked() && ui_->dbcDivision->IsBlank()) {
        Refuse(QStringLiteral("Select Division"), ui_->dbcDivision);
        return;
    }
    ClearReport();
    std::vector<SetupReportRow> setup;
    const bool read = Read([&] {
        const HourGlass hourGlass;
        setup = SetupReportRepository(MainStore())
                    .LoadSetup(Session().gintAcademicYearCode, ui_->dbcClass->BoundCode(),
                               ui_->dbcDivision->BoundCode());
    });
    if (!read)
        return;
    if (setup.empty()) {
        Prompts::Information(QStringLiteral("No Record Exists"));
        return;
    }
    ShowReport(SetupReportTable(setup));
}

ReportScreen::ReportHead frmrptClasssubjectteacher::Head() const
{
    ReportHead head{QStringLiteral("Classwise  Subject / Teacher / Marks Details"), {}};
    if (!ui_->dbcClass->IsBlank() || !ui_->dbcDivision->IsBlank())
        head.subTitle =
            QStringLiteral("Class : %1  Division : %2")
                .arg(ui_->dbcClass->currentText().trimmed(), ui_->dbcDivision->currentText().trimmed());
    return head;
}

void frmrptClasssubjectteacher::cmdExport_Click()
{
    // Whoever may open the list may take it away: this export asks for no right.
    const GridTable& list = ui_->msgDetails->Table();
    const ReportHead head = Head();
    RunExport(
        [&] { ExportFlexGridToExcel1(list, list.Rows() - 1, list.Cols() - 1, head.title, head.subTitle); });
}

void frmrptClasssubjectteacher::cmdCancel_Click()
{
    ResetReport();
    Form_Load();
}

QSize frmrptClasssubjectteacher::sizeHint() const
{
    // As much of a long and wide list as most displays can show; a smaller one bounds it.
    return {1100, 900};
}

} // namespace tally
