#include "exams/frmClassSubjectTeacher.h"

#include "core/Numbers.h"
#include "core/SessionContext.h"
#include "core/ui/controls/CellEditors.h"
#include "core/ui/controls/ClosedGridKeys.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/RowDelete.h"
#include "core/ui/DivisionChoice.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/SideButton.h"
#include "exams/SubjectSetupGrid.h"
#include "exams/SubjectSetupRepository.h"
#include "ui_frmClassSubjectTeacher.h"

#include <functional>
#include <optional>
#include <utility>

namespace tally {

namespace {

constexpr int HelpScreenNo = 15;

} // namespace

frmClassSubjectTeacher::frmClassSubjectTeacher()
    : MasterScreen(QStringLiteral("frmClassSubjectTeacher"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmClassSubjectTeacher>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ui_->cmdDeleteRow->setIcon(LookIcon(QStringLiteral("delete")));
    ui_->cmdAddClass->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_C));
    ui_->cmdAddSubject->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_S));
    ui_->cmdAddTeacher->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_T));
    ui_->msgDetails->SetReadableWhileClosed();
    new ClosedGridKeys(ui_->msgDetails, this);
    subjects_ = new SubjectSetupGrid(ui_->msgDetails, sheet_, this, {ui_->cmdCancel, ui_->cmdExit});
    deleteRow_ = new RowDelete(ui_->txtDeleteSlNo, ui_->cmdDeleteRow, subjects_->Boxes(),
                               {.lastRow = [this] { return sheet_.RowCount(); },
                                .takeOut = std::bind_front(&frmClassSubjectTeacher::DeleteRow, this)});
    ConnectHandlers();
    SetExitButton(ui_->cmdExit);
    SetMasterControls({ui_->fraMain, ui_->cmdNew, ui_->cmdEdit, ui_->cmdDelete, ui_->cmdSave});
    Form_Load();
}

frmClassSubjectTeacher::~frmClassSubjectTeacher() = default;

void frmClassSubjectTeacher::ConnectHandlers()
{
    using Form = frmClassSubjectTeacher;
    new SideButton(this, ui_->cmdAddClass, ui_->cboClass, QStringLiteral("frmMasClassSectionEntry"),
                   [this] { RefillClass(); });
    new SideButton(this, ui_->cmdAddSubject, ui_->msgDetails, QStringLiteral("frmSubjectMaster"),
                   [this] { LoadSubjectList(); });
    new SideButton(this, ui_->cmdAddTeacher, ui_->msgDetails, QStringLiteral("frmTeacherMaster"),
                   [this] { LoadTeacherList(); });
    classDivision_ = new DivisionChoice(this, ui_->cboClass, ui_->cboDivision, DivisionChoice::Order::ByName,
                                        DivisionChoice::Reads::OnceSettled);
    for (DataCombo* list : {ui_->cboClass, ui_->cboDivision}) {
        list->SetGivingUp({ui_->cmdCancel, ui_->cmdExit});
        connect(list, &DataCombo::Chosen, this, &Form::List_Change);
        connect(list, &DataCombo::Settled, this, &Form::ReadChoice);
    }
    ui_->cboDivision->setProperty(TakesEnter, true);
    connect(ui_->msgDetails, &FlexGrid::CellClicked, this, &Form::msgDetails_Click);
    connect(subjects_, &SubjectSetupGrid::Changed, this, &Form::Sheet_Change);
    const auto onClick = [this](const QPushButton* button, void (Form::*handler)()) {
        connect(button, &QPushButton::clicked, this, [this, handler] {
            if (!subjects_->Boxes()->KeepsFocus())
                (this->*handler)();
        });
    };
    onClick(ui_->cmdNew, &Form::cmdNew_Click);
    onClick(ui_->cmdEdit, &Form::cmdEdit_Click);
    onClick(ui_->cmdDelete, &Form::cmdDelete_Click);
    onClick(ui_->cmdSave, &Form::cmdSave_Click);
    onClick(ui_->cmdCancel, &Form::cmdCancel_Click);
}

void frmClassSubjectTeacher::Form_Load()
{
    LoadLists();
    Show({});
    (listsAreRead_ ? ui_->cmdNew : ui_->cmdCancel)->setFocus();
}

void frmClassSubjectTeacher::LoadLists()
{
    const auto lists = Fetch([this] {
        SubjectSetupRepository repository(MainStore());
        auto read = std::pair(repository.SubjectsBehindBlank(), repository.TeachersBehindBlank());
        classDivision_->Load();
        return read;
    });
    listsAreRead_ = lists.has_value();
    if (!listsAreRead_) {
        classDivision_->ChooseClass(0);
        return;
    }
    subjects_->SetSubjects(lists->first);
    subjects_->SetTeachers(lists->second);
}

void frmClassSubjectTeacher::ShowState(MasterState state)
{
    MasterScreen::ShowState(state);
    ui_->cmdNew->setEnabled(ui_->cmdNew->isEnabled() && listsAreRead_);
    LockChoice();
}

void frmClassSubjectTeacher::LockChoice()
{
    ui_->Frame1->setEnabled(!IsEditing() && !(IsNew() && !sheet_.IsBlank()));
}

void frmClassSubjectTeacher::RefillClass()
{
    SettleChoice();
    const SchoolScope before = Scope();
    Read([this] { classDivision_->Refill(); });
    // What is on the screen stays, unless its division has gone.
    if (Scope().classCode != before.classCode || Scope().divisionCode != before.divisionCode)
        ShowSubjects();
}

void frmClassSubjectTeacher::LoadSubjectList()
{
    Read([this] { subjects_->SetSubjects(SubjectSetupRepository(MainStore()).SubjectsBehindBlank()); });
}

void frmClassSubjectTeacher::LoadTeacherList()
{
    Read([this] { subjects_->SetTeachers(SubjectSetupRepository(MainStore()).TeachersBehindBlank()); });
}

SchoolScope frmClassSubjectTeacher::Scope() const
{
    return {.academicYearCode = Session().gintAcademicYearCode,
            .classCode = ui_->cboClass->BoundCode(),
            .divisionCode = ui_->cboDivision->BoundCode()};
}

bool frmClassSubjectTeacher::IsChosen() const
{
    return ui_->cboClass->BoundCode() != 0 && ui_->cboDivision->BoundCode() != 0;
}

void frmClassSubjectTeacher::ShowSubjects()
{
    StoredSubjects stored;
    if (IsChosen()) {
        auto found = Fetch([this] { return ReadStoredSubjects(MainStore(), Scope()); });
        if (found)
            stored = std::move(*found);
        else
            // A set that could not be read must not pass for none.
            ui_->cboDivision->SetBoundCode(0);
    }
    Show(std::move(stored));
}

void frmClassSubjectTeacher::Show(StoredSubjects stored)
{
    shown_ = std::move(stored.subjects);
    sheet_.Load(shown_, stored.marks);
    subjects_->ShowRows();
    if (!shown_.empty())
        ShowState(MasterState::RowSelected);
    else
        ShowState(entering_ ? MasterState::New : MasterState::Idle);
}

void frmClassSubjectTeacher::List_Change()
{
    Show({});
}

void frmClassSubjectTeacher::ReadChoice(bool goesOn)
{
    ShowSubjects();
    if (goesOn && IsChosen())
        GoOn();
}

void frmClassSubjectTeacher::SettleChoice()
{
    for (DataCombo* list : {ui_->cboClass, ui_->cboDivision})
        list->Settle();
}

void frmClassSubjectTeacher::GoOn()
{
    if (!shown_.empty())
        ui_->cmdEdit->setFocus();
    else if (IsNew())
        subjects_->Open(1, SubjectColumn::Subject);
    else if (ui_->cboDivision->hasFocus())
        focusNextChild();
}

void frmClassSubjectTeacher::msgDetails_Click(int row, int col)
{
    SettleChoice();
    if (IsChosen() && ui_->fraMain->isEnabled())
        subjects_->Click(row, col);
}

void frmClassSubjectTeacher::ShowTotalMark()
{
    ui_->lblMaximumMark->setText(PlainNumber(sheet_.TotalMark()));
}

void frmClassSubjectTeacher::Sheet_Change()
{
    ShowTotalMark();
    deleteRow_->Refresh();
    LockChoice();
}

void frmClassSubjectTeacher::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    SettleChoice();
    entering_ = true;
    ShowState(MasterState::New);
    if (IsChosen())
        ReadChoice(true);
    else
        (ui_->cboClass->BoundCode() == 0 ? ui_->cboClass : ui_->cboDivision)->setFocus();
}

void frmClassSubjectTeacher::cmdEdit_Click()
{
    if (!MayUse(Right::Edit))
        return;
    // Another client may have changed what is shown.
    ShowSubjects();
    if (shown_.empty()) {
        ui_->cboDivision->setFocus();
        return;
    }
    ShowState(MasterState::Editing);
    ui_->msgDetails->SetCurrentCell(1, sheet_.FirstOpen(1));
    ui_->msgDetails->setFocus();
}

void frmClassSubjectTeacher::DeleteRow(int row)
{
    if (sheet_.HasMarks(row)) {
        Prompts::Information(SubjectsHaveMarks);
        return;
    }
    sheet_.DeleteRow(row);
    subjects_->ShowRows();
}

bool frmClassSubjectTeacher::IsReady()
{
    if (ui_->cboClass->BoundCode() == 0)
        return Refuse(QStringLiteral("Select Class"), ui_->cboClass);
    if (ui_->cboDivision->BoundCode() == 0)
        return Refuse(QStringLiteral("Select Division"), ui_->cboDivision);
    const auto fault = sheet_.FindFault();
    if (fault)
        subjects_->Take(*fault);
    return !fault;
}

void frmClassSubjectTeacher::cmdSave_Click()
{
    SettleChoice();
    // The choice may have brought a stored set on the screen, and nothing was entered for that.
    if (!ui_->cmdSave->isEnabled())
        return;
    subjects_->Close();
    if (!IsReady())
        return;
    std::optional<SubjectRefusal> refusal;
    const bool written = WriteRow(
        Conflict::MasterIsGone,
        [&](store::Transaction& transaction) {
            refusal = ReplaceSubjects(transaction, Scope(), shown_, sheet_.Subjects());
        },
        OnRefusal::StartAnew);
    if (!written)
        return;
    if (refusal)
        TellRefusal(*refusal);
    else
        TellSaved();
}

void frmClassSubjectTeacher::TellRefusal(const SubjectRefusal& refusal)
{
    // What was typed stays, to be mended or compared with what another client has entered.
    Prompts::Information(refusal.text);
    sheet_.TakeMarks(refusal.marks);
    if (refusal.subjectCode == 0)
        return;
    // But what can't be typed any more would be refused for ever.
    sheet_.PutBackFrozen(shown_);
    subjects_->ShowRows();
    subjects_->Open(sheet_.FindRow(refusal.subjectCode), SubjectColumn::MaximumAllowed);
}

void frmClassSubjectTeacher::cmdDelete_Click()
{
    if (!MayUse(Right::Delete))
        return;
    const auto marks = Fetch([this] { return SubjectSetupRepository(MainStore()).Marks(Scope()); });
    if (!marks)
        return;
    if (!marks->empty()) {
        Prompts::Information(SubjectsHaveMarks);
        return;
    }
    if (!Prompts::Ask(QStringLiteral("Do You Want To Delete This 'Classwise Subject-Teacher-Mark Entry' ?")))
        return;
    QString refusal;
    const bool deleted = Write(Conflict::Describe, [&](store::Transaction& transaction) {
        refusal = DeleteSubjects(transaction, Scope(), shown_);
    });
    if (!deleted)
        return;
    if (!refusal.isEmpty()) {
        Prompts::Information(refusal);
        ShowSubjects();
        return;
    }
    CancelAndTellDeleted();
}

void frmClassSubjectTeacher::cmdCancel_Click()
{
    entering_ = false;
    subjects_->Close();
    ClearControls(this);
    sheet_.Clear();
    LoadLists();
    Show({});
    (listsAreRead_ ? ui_->cmdNew : ui_->cmdCancel)->setFocus();
}

void frmClassSubjectTeacher::cmdExit_Click()
{
    if (!subjects_->Boxes()->KeepsFocus())
        MasterScreen::cmdExit_Click();
}

QSize frmClassSubjectTeacher::sizeHint() const
{
    return {1000, 680};
}

} // namespace tally
