#include "reports/frmStudentList.h"

#include "core/KeyFilters.h"
#include "core/Numbers.h"
#include "core/SessionContext.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/TakeOnly.h"
#include "reports/ClassList.h"
#include "reports/ClassListRepository.h"
#include "reports/DivisionTicks.h"
#include "reports/TextReport.h"
#include "ui_frmStudentList.h"

namespace tally {

namespace {

constexpr int HelpScreenNo = 29;
constexpr int LongestNumber = 2;
constexpr int LongestColumnName = 15;
const QString AdmissionHead = QStringLiteral("Admission.No.");
const QString TextFileName = QStringLiteral("Studentlist.txt");

} // namespace

frmStudentList::frmStudentList()
    : ReportScreen(QStringLiteral("frmStudentList"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmStudentList>())
{
    ui_->setupUi(this);
    DressButtons(this);
    SetReportControls({.msgDetails = ui_->msgDetails,
                       .cmdPrint = ui_->cmdPrint,
                       .cmdCancel = ui_->cmdCancel,
                       .cmdExit = ui_->cmdExit});
    ConnectHandlers();
    Form_Load();
}

frmStudentList::~frmStudentList() = default;

void frmStudentList::ConnectHandlers()
{
    divisions_ = new DivisionTicks(this, {ui_->cboClass, ui_->Lstdivision, ui_->chkSelectAll},
                                   [this] { ClearList(); });
    connect(ui_->optAdmissionOrder, &QRadioButton::toggled, this, &frmStudentList::ClearList);
    TakeOnly(ui_->txtNoOfColumn, &KeyNumeric, LongestNumber);
    TakeOnly(ui_->txtColumnNumber, &KeyNumeric, LongestNumber);
    TakeOnly(ui_->txtColumnName, &KeyAlphaNumeric, LongestColumnName);
    connect(ui_->txtNoOfColumn, &QLineEdit::textEdited, this, &frmStudentList::ClearList);
    connect(ui_->cmdView, &QPushButton::clicked, this, &frmStudentList::cmdView_Click);
    connect(ui_->cmdAddColumnName, &QPushButton::clicked, this, &frmStudentList::cmdAddColumnName_Click);
}

void frmStudentList::Form_Load()
{
    EnableColumnBoxes(false);
    ui_->msgDetails->Show(ClassListTable({}, AdmissionHead, 0));
    divisions_->Load();
    ui_->cboClass->setFocus();
}

void frmStudentList::ClearList()
{
    ClearReport();
    EnableColumnBoxes(false);
}

void frmStudentList::EnableColumnBoxes(bool on)
{
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_->txtColumnNumber, ui_->txtColumnName, ui_->cmdAddColumnName})
        control->setEnabled(on);
}

void frmStudentList::cmdView_Click()
{
    if (ui_->cboClass->BoundCode() == 0) {
        Refuse(QStringLiteral("Select Class Name"), ui_->cboClass);
        return;
    }
    if (ui_->Lstdivision->TickedIndexes().isEmpty()) {
        Refuse(QStringLiteral("Select Division"), ui_->Lstdivision);
        return;
    }
    ClearList();
    Read([this] {
        const HourGlass hourGlass;
        const ClassListOrder order = ui_->optAdmissionOrder->isChecked() ? ClassListOrder::OptionalAdmissionNo
                                                                         : ClassListOrder::Alphabetical;
        added_ = ToWhole(Val(ui_->txtNoOfColumn->text()));
        ShowReport(
            ClassListTable(ClassListRepository(MainStore())
                               .LoadStudents(Session().gintAcademicYearCode, ui_->cboClass->BoundCode(),
                                             ui_->Lstdivision->TickedData(), order),
                           AdmissionHead, added_));
        EnableColumnBoxes(added_ > 0);
    });
}

void frmStudentList::cmdAddColumnName_Click()
{
    const QString number = ui_->txtColumnNumber->text();
    const QString name = ui_->txtColumnName->text();
    if (!IsAddedColumn(number, added_)) {
        Refuse(QStringLiteral("Enter Correct Column number"), ui_->txtColumnNumber);
        return;
    }
    if (name.trimmed().isEmpty()) {
        Refuse(QStringLiteral("Enter Column Name"), ui_->txtColumnName);
        return;
    }
    ui_->msgDetails->SetTextMatrix(0, ToWhole(Val(number)) + 1, name);
    ui_->txtColumnNumber->clear();
    ui_->txtColumnName->clear();
    ui_->txtColumnNumber->setFocus();
}

void frmStudentList::cmdPrint_Click()
{
    if (MayPrint())
        PrintText(TextFileName, ClassListText(ui_->msgDetails->Table(),
                                              ui_->cboClass->currentText().trimmed(), divisions_->Names()));
}

ReportScreen::ReportHead frmStudentList::Head() const
{
    return {QStringLiteral("STUDENT NAME LIST"),
            QStringLiteral("CLASS %1 %2").arg(ui_->cboClass->currentText().trimmed(), divisions_->Names())};
}

void frmStudentList::cmdCancel_Click()
{
    ResetReport();
    ui_->optAlphabeticalOrder->setChecked(true);
    Form_Load();
}

QSize frmStudentList::sizeHint() const
{
    // As much of a long list as most displays can show; a smaller one bounds it.
    return {900, 900};
}

} // namespace tally
