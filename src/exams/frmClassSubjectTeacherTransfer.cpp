#include "exams/frmClassSubjectTeacherTransfer.h"

#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "exams/SubjectSetupRepository.h"
#include "exams/SubjectSetupSave.h"
#include "exams/SubjectSetupSheet.h"
#include "ui_frmClassSubjectTeacherTransfer.h"

#include <algorithm>

namespace tally {

namespace {

constexpr int HelpScreenNo = 16;

SetupCopyRepository Setups()
{
    return SetupCopyRepository(MainStore());
}

/// As they are shown where they are entered. Nothing is entered here, so the last row has no number.
GridTable TableOf(const std::vector<TaughtSubject>& subjects)
{
    SubjectSetupSheet sheet;
    sheet.Load(subjects, {});
    GridTable table = sheet.Table();
    table.SetText(table.Rows() - 1, SubjectColumn::Serial, {});
    return table;
}

} // namespace

frmClassSubjectTeacherTransfer::frmClassSubjectTeacherTransfer()
    : Screen(QStringLiteral("frmClassSubjectTeacherTransfer"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmClassSubjectTeacherTransfer>())
{
    ui_->setupUi(this);
    DressButtons(this);
    from_.emplace(QStringLiteral("From"),
                  CopySide::Lists{ui_->cboFromAcademicyear, nullptr, ui_->cboClassFrom, ui_->cboDivision});
    to_.emplace(QStringLiteral("To"),
                CopySide::Lists{ui_->cboAcademicYearTo, nullptr, ui_->cboClassTo, ui_->cboDivisionTo});
    for (FlexGrid* grid : {ui_->msgDetails, ui_->msgToDetails})
        grid->SetReadableWhileClosed();
    ConnectHandlers();
    SetExitButton(ui_->cmdExit);
    cmdCancel_Click();
}

frmClassSubjectTeacherTransfer::~frmClassSubjectTeacherTransfer() = default;

void frmClassSubjectTeacherTransfer::ConnectHandlers()
{
    using Form = frmClassSubjectTeacherTransfer;
    for (DataCombo* list : Lists())
        list->SetGivingUp({ui_->cmdCancel, ui_->cmdExit});
    connect(ui_->cboFromAcademicyear, &DataCombo::Chosen, this, &Form::cboFromAcademicyear_Click);
    connect(ui_->cboClassFrom, &DataCombo::Chosen, this, &Form::cboClassFrom_Click);
    connect(ui_->cboClassFrom, &DataCombo::Settled, this, &Form::ListSources);
    connect(ui_->cboDivision, &DataCombo::Chosen, this, &Form::cboDivision_Click);
    connect(ui_->cboDivision, &DataCombo::Settled, this, &Form::cboDivision_Settled);
    connect(ui_->cboAcademicYearTo, &DataCombo::Chosen, this, &Form::cboAcademicYearTo_Click);
    connect(ui_->cboClassTo, &DataCombo::Chosen, this, &Form::cboClassTo_Click);
    connect(ui_->cboClassTo, &DataCombo::Settled, this, &Form::ListTargets);
    connect(ui_->cboDivisionTo, &DataCombo::Chosen, this, &Form::cboDivisionTo_Click);
    connect(ui_->cboDivisionTo, &DataCombo::Settled, this, &Form::cboDivisionTo_Settled);
    connect(ui_->cmdTransfer, &QPushButton::clicked, this, &Form::cmdTransfer_Click);
    connect(ui_->cmdNew, &QPushButton::clicked, this, &Form::cmdNew_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &Form::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &Form::cmdCancel_Click);
}

std::array<DataCombo*, 6> frmClassSubjectTeacherTransfer::Lists() const
{
    return {ui_->cboFromAcademicyear, ui_->cboClassFrom, ui_->cboDivision,
            ui_->cboAcademicYearTo,   ui_->cboClassTo,   ui_->cboDivisionTo};
}

void frmClassSubjectTeacherTransfer::ShowFrom(std::vector<TaughtSubject> subjects)
{
    source_ = std::move(subjects);
    ui_->msgDetails->Show(TableOf(source_));
}

void frmClassSubjectTeacherTransfer::ShowTo(std::vector<TaughtSubject> subjects)
{
    copy_ = std::move(subjects);
    ui_->msgToDetails->Show(TableOf(copy_));
}

void frmClassSubjectTeacherTransfer::ClearTo()
{
    ShowTo({});
    targets_ = {};
    ui_->chkselectAll->setChecked(false);
    ui_->lstDivision->clear();
    ui_->cmdTransfer->setEnabled(false);
}

void frmClassSubjectTeacherTransfer::cboFromAcademicyear_Click()
{
    from_->BlankBelow(ui_->cboFromAcademicyear);
    ShowFrom({});
    cboAcademicYearTo_Click();
}

void frmClassSubjectTeacherTransfer::cboClassFrom_Click()
{
    from_->BlankBelow(ui_->cboClassFrom);
    ShowFrom({});
    ShowTo({});
    ui_->cmdTransfer->setEnabled(false);
}

void frmClassSubjectTeacherTransfer::ListSources()
{
    const int classCode = from_->Scope().classCode;
    const auto divisions =
        Fetch([classCode] { return SchoolListRepository(MainStore()).DivisionsByName(classCode); });
    if (divisions)
        from_->OfferDivisions(*divisions);
    else
        ui_->cboClassFrom->SetBoundCode(0);
}

void frmClassSubjectTeacherTransfer::cboDivision_Click()
{
    // A copy that was made before is none of this source.
    ShowFrom({});
    ShowTo({});
    ui_->cmdTransfer->setEnabled(false);
}

void frmClassSubjectTeacherTransfer::cboDivision_Settled()
{
    SchoolScope from = from_->Scope();
    if (from.divisionCode == 0)
        return;
    // The current year is the only source, chosen or not yet.
    from.academicYearCode = Session().gintAcademicYearCode;
    auto subjects = Fetch([&from] { return SubjectSetupRepository(MainStore()).Read(from); });
    if (!subjects) {
        ui_->cboDivision->SetBoundCode(0);
        return;
    }
    if (subjects->empty()) {
        Prompts::Information(NotMade(SubjectCopy));
        ui_->cboDivision->setFocus();
        ui_->cboDivision->TakeBack();
        return;
    }
    ShowFrom(std::move(*subjects));
    if (to_->Scope().divisionCode != 0)
        ui_->cmdTransfer->setEnabled(IsAnotherPlace() && TargetRefusal().isEmpty());
}

void frmClassSubjectTeacherTransfer::cboAcademicYearTo_Click()
{
    to_->BlankBelow(ui_->cboAcademicYearTo);
    ClearTo();
}

void frmClassSubjectTeacherTransfer::cboClassTo_Click()
{
    to_->BlankBelow(ui_->cboClassTo);
    ClearTo();
}

void frmClassSubjectTeacherTransfer::ListTargets()
{
    targets_ = {};
    ui_->cmdTransfer->setEnabled(false);
    to_->BlankBelow(ui_->cboClassTo);
    const SchoolScope to = to_->Scope();
    if (to.academicYearCode == 0 || to.classCode == 0)
        return;
    auto targets = Fetch([&to] { return Setups().TargetsOfSubjects(to); });
    if (!targets) {
        ui_->cboClassTo->SetBoundCode(0);
        return;
    }
    targets_ = std::move(*targets);
    to_->OfferDivisions(targets_.items);
}

QString frmClassSubjectTeacherTransfer::TargetRefusal() const
{
    const int division = to_->Scope().divisionCode;
    const auto target = std::find_if(targets_.items.begin(), targets_.items.end(),
                                     [division](const ListItem& item) { return item.code == division; });
    return target == targets_.items.end() ? QString() : target->refusal;
}

bool frmClassSubjectTeacherTransfer::IsAnotherPlace()
{
    const SchoolScope from = from_->Scope();
    const SchoolScope to = to_->Scope();
    const bool same = from.divisionCode != 0 && from.academicYearCode == to.academicYearCode &&
                      from.classCode == to.classCode && from.divisionCode == to.divisionCode;
    if (!same)
        return true;
    Prompts::Information(
        QStringLiteral("Copying Cannot Be Made Within The Same 'Academic Year-Class-Division'"));
    ui_->cboDivisionTo->setFocus();
    ui_->cboDivisionTo->TakeBack();
    return false;
}

void frmClassSubjectTeacherTransfer::cboDivisionTo_Click()
{
    ui_->cmdTransfer->setEnabled(false);
}

void frmClassSubjectTeacherTransfer::cboDivisionTo_Settled(bool goesOn)
{
    if (to_->Scope().divisionCode == 0 || !IsAnotherPlace())
        return;
    if (const QString refusal = TargetRefusal(); !refusal.isEmpty()) {
        Refuse(refusal, ui_->cboDivisionTo);
        return;
    }
    ui_->cmdTransfer->setEnabled(true);
    if (goesOn)
        ui_->cmdTransfer->setFocus();
}

void frmClassSubjectTeacherTransfer::cmdTransfer_Click()
{
    ShowTo(source_);
}

void frmClassSubjectTeacherTransfer::cmdNew_Click()
{
    ui_->fraMain->setEnabled(true);
    ui_->cmdSave->setEnabled(true);
    ui_->cboFromAcademicyear->setFocus();
    ui_->cmdNew->setEnabled(false);
}

bool frmClassSubjectTeacherTransfer::IsReady()
{
    if (!from_->IsComplete() || !to_->IsComplete() || !IsAnotherPlace())
        return false;
    // A copy that was made before for another division is not stored over this one.
    if (const QString refusal = TargetRefusal(); !refusal.isEmpty())
        return Refuse(refusal, ui_->cboDivisionTo);
    if (copy_.empty())
        return Refuse(QStringLiteral("Record Does Not Exist On The 'To' Side For Copying"),
                      ui_->msgToDetails);
    return true;
}

void frmClassSubjectTeacherTransfer::cmdSave_Click()
{
    if (!IsReady())
        return;
    const SchoolScope to = to_->Scope();
    std::optional<SubjectRefusal> refusal;
    const auto error = TryWrite([&](store::Transaction& transaction) {
        refusal = ReplaceSubjects(transaction, to, targets_.subjects[to.divisionCode], copy_);
    });
    if (error) {
        Prompts::Critical(TextOf(*error, Conflict::MasterIsGone));
        if (error->IsConflict())
            cmdCancel_Click();
        return;
    }
    if (refusal) {
        // What was copied stays, for another division.
        Prompts::Information(refusal->text);
        ListTargets();
        ui_->cboDivisionTo->setFocus();
        return;
    }
    AfterCommit([this] {
        if (!AskToCopyAgain(QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Copied"))) {
            cmdCancel_Click();
            return;
        }
        to_->Blank();
        ClearTo();
        ui_->cboAcademicYearTo->setFocus();
    });
}

void frmClassSubjectTeacherTransfer::cmdCancel_Click()
{
    ClearControls(this);
    const auto choices = Fetch([] { return Setups().Choices(Session().gintAcademicYearCode); });
    const CopyChoices offered = choices.value_or(CopyChoices());
    from_->Offer(offered.fromYears, offered);
    to_->Offer(offered.toYears, offered);
    ShowFrom({});
    ClearTo();
    // Without the lists nothing can be copied, only tried again.
    ui_->cmdNew->setEnabled(choices.has_value());
    ui_->fraMain->setEnabled(false);
    ui_->cmdSave->setEnabled(false);
    (choices ? ui_->cmdNew : ui_->cmdCancel)->setFocus();
}

QSize frmClassSubjectTeacherTransfer::sizeHint() const
{
    // As much of both lists as most displays can show; a smaller one bounds it.
    return {900, 720};
}

} // namespace tally
