#include "reports/frmrptClassList.h"

#include "core/SessionContext.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "reports/ClassList.h"
#include "reports/ClassListRepository.h"
#include "reports/DivisionTicks.h"
#include "ui_frmrptClassList.h"

namespace tally {

namespace {

constexpr int HelpScreenNo = 29;
const QString AdmissionHead = QStringLiteral("Admission No.");

} // namespace

frmrptClassList::frmrptClassList()
    : ReportScreen(QStringLiteral("frmrptClassList"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmrptClassList>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetReportControls({.msgDetails = ui_->msgDetails,
                       .cmdExport = ui_->cmdExport,
                       .cmdCancel = ui_->cmdCancel,
                       .cmdExit = ui_->cmdExit});
    divisions_ = new DivisionTicks(this, {ui_->cboClass, ui_->Lstdivision, ui_->chkSelectAll},
                                   [this] { ClearReport(); });
    connect(ui_->optAdmissionOrder, &QRadioButton::toggled, this, &frmrptClassList::ClearReport);
    connect(ui_->cmdView, &QPushButton::clicked, this, &frmrptClassList::cmdView_Click);
    Form_Load();
}

frmrptClassList::~frmrptClassList() = default;

void frmrptClassList::Form_Load()
{
    ui_->msgDetails->Show(ClassListTable({}, AdmissionHead, 0));
    divisions_->Load();
    ui_->cboClass->setFocus();
}

void frmrptClassList::cmdView_Click()
{
    if (ui_->cboClass->BoundCode() == 0) {
        Refuse(QStringLiteral("Select Class"), ui_->cboClass);
        return;
    }
    if (ui_->Lstdivision->TickedIndexes().isEmpty()) {
        Refuse(QStringLiteral("Select Division(s)"), ui_->Lstdivision);
        return;
    }
    ClearReport();
    Read([this] {
        const HourGlass hourGlass;
        const ClassListOrder order =
            ui_->optAdmissionOrder->isChecked() ? ClassListOrder::AdmissionNo : ClassListOrder::Alphabetical;
        ShowReport(
            ClassListTable(ClassListRepository(MainStore())
                               .LoadStudents(Session().gintAcademicYearCode, ui_->cboClass->BoundCode(),
                                             ui_->Lstdivision->TickedData(), order),
                           AdmissionHead, 0));
    });
}

ReportScreen::ReportHead frmrptClassList::Head() const
{
    return {QStringLiteral("CLASS LIST"),
            QStringLiteral("STUDENT LIST FOR CLASS   %1 %2")
                .arg(ui_->cboClass->currentText().trimmed(), divisions_->Names())};
}

void frmrptClassList::cmdCancel_Click()
{
    ResetReport();
    ui_->optAlphabeticalOrder->setChecked(true);
    Form_Load();
}

QSize frmrptClassList::sizeHint() const
{
    // As much of a long list as most displays can show; a smaller one bounds it.
    return {900, 900};
}

} // namespace tally
