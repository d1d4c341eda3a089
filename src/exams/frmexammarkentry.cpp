#include "exams/frmexammarkentry.h"

#include "core/Numbers.h"
#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/DivisionChoice.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/SideButton.h"
#include "exams/MarkGrid.h"
#include "store/StoreError.h"
#include "ui_frmexammarkentry.h"

#include <QKeyEvent>
#include <QScrollBar>

namespace tally {

namespace {

constexpr int HelpScreenNo = 19;

QString NameOf(MarkMode mode)
{
    return mode == MarkMode::Subject ? QStringLiteral("Subject") : QStringLiteral("Student");
}

/// Two clients entered the first marks at once, and the other one was faster.
QString EnteredMeanwhile(MarkMode mode)
{
    return QStringLiteral(
               "Marks Of This %1 Were Entered By Another User Meanwhile.\nYou Cannot Save This Data.")
        .arg(NameOf(mode));
}

} // namespace

frmexammarkentry::frmexammarkentry()
    : Screen(QStringLiteral("frmexammarkentry"), HelpScreenNo), ui_(std::make_unique<Ui::frmexammarkentry>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ui_->cmdAddExam->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_E));
    ui_->msgDetails->SetReadableWhileClosed();
    marks_ = new MarkGrid(ui_->msgDetails, entry_.Sheet(), this);
    ConnectHandlers();
    SetExitButton(ui_->cmdExit);
    Form_Load();
}

frmexammarkentry::~frmexammarkentry() = default;

void frmexammarkentry::ConnectHandlers()
{
    using Form = frmexammarkentry;
    new SideButton(this, ui_->cmdAddExam, ui_->dbcExam, QStringLiteral("frmexamnamemaster"),
                   [this] { LoadExam(); });
    connect(ui_->dbcExam, &DataCombo::Chosen, this, &Form::dbcExam_Change);
    classDivision_ = new DivisionChoice(this, ui_->cboClass, ui_->cboDivision, DivisionChoice::Order::ByName);
    connect(ui_->cboClass, &DataCombo::Chosen, this, &Form::cboClass_Click);
    connect(ui_->cboDivision, &DataCombo::Chosen, this, &Form::cboDivision_Click);
    connect(ui_->Optsubject, &QRadioButton::clicked, this, &Form::Optsubject_Click);
    connect(ui_->Optstudent, &QRadioButton::clicked, this, &Form::Optstudent_Click);
    for (DataCombo* list : {ui_->dbcSubject, ui_->dbcStudent}) {
        connect(list, &DataCombo::Chosen, this, &Form::List_Change);
        list->SetValidate([this, list] { return list != List() || List_Validate(); });
    }
    connect(ui_->msgDetails, &FlexGrid::CellClicked, this, &Form::msgDetails_Click);
    connect(marks_, &MarkGrid::MarkEntered, this, &Form::ShowAverage);
    connect(marks_, &MarkGrid::AllEntered, ui_->cmdSave, [this] { ui_->cmdSave->setFocus(); });
    connect(ui_->cmdNew, &QPushButton::clicked, this, &Form::cmdNew_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &Form::cmdEdit_Click);
    connect(ui_->cmdDelete, &QPushButton::clicked, this, &Form::cmdDelete_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &Form::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &Form::cmdCancel_Click);

    for (DataCombo* combo : {ui_->dbcExam, ui_->cboClass, ui_->dbcSubject, ui_->dbcStudent})
        combo->setProperty(EnterNeedsText, true);
    ui_->cboDivision->setProperty(TakesEnter, true);
    ui_->cboDivision->installEventFilter(this);
}

void frmexammarkentry::Form_Load()
{
    LoadExam();
    Read([this] { classDivision_->Load(); });
    ui_->cmdNew->setFocus();
}

SchoolScope frmexammarkentry::Scope() const
{
    return {Session().gintAcademicYearCode, ui_->dbcExam->BoundCode(), ui_->cboClass->BoundCode(),
            ui_->cboDivision->BoundCode()};
}

DataCombo* frmexammarkentry::List() const
{
    return Mode() == MarkMode::Subject ? ui_->dbcSubject : ui_->dbcStudent;
}

void frmexammarkentry::LoadExam()
{
    const int chosen = ui_->dbcExam->BoundCode();
    Read([this] { ui_->dbcExam->SetList(SchoolListRepository(MainStore()).ExamsBehindBlank()); });
    ui_->dbcExam->SetBoundCode(chosen);
}

void frmexammarkentry::dbcExam_Change()
{
    // What is on the screen belongs to the exam before.
    ResetGrid();
    ListMode(Mode());
}

void frmexammarkentry::cboClass_Click()
{
    EmptyLists();
    ResetGrid();
}

void frmexammarkentry::cboDivision_Click()
{
    ResetGrid();
    if (Scope().divisionCode == 0)
        EmptyLists();
    Optsubject_Click();
}

bool frmexammarkentry::cboDivision_KeyPress(int key)
{
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    if (Scope().divisionCode != 0) {
        Optsubject_Click();
        focusNextChild();
    }
    return true;
}

void frmexammarkentry::UseMode(MarkMode mode)
{
    const bool bySubject = mode == MarkMode::Subject;
    if (mode != Mode())
        ResetGrid();
    entry_.Sheet().UseMode(mode);
    (bySubject ? ui_->Optsubject : ui_->Optstudent)->setChecked(true);
    for (DataCombo* list : {ui_->dbcSubject, ui_->dbcStudent}) {
        list->SetBoundCode(0);
        list->setEnabled(list == List());
        list->setVisible(list == List());
    }
    EmptyMarks();
    ui_->Label4->setText(NameOf(mode) + QStringLiteral(" Name :"));
    ui_->Label4->setBuddy(List());
    ui_->Label2->setText(bySubject ? QStringLiteral("Class Average For The Selected Subject :")
                                   : QStringLiteral("Average :"));
    for (QWidget* limit : std::initializer_list<QWidget*>{ui_->lblMaximumAllowed, ui_->txtmaximumallowed})
        limit->setVisible(bySubject);
}

void frmexammarkentry::ListMode(MarkMode mode)
{
    UseMode(mode);
    if (!IsComplete(Scope()))
        return;
    const auto choices = Fetch([this] { return entry_.List(MainStore(), Scope()); });
    if (!choices) {
        // Whoever could be chosen without his rows would lose his marks with the next save.
        EmptyLists();
        ResetGrid();
        return;
    }
    List()->SetList(choices->entries);
    if (!choices->noEntry.isEmpty())
        Prompts::Information(choices->noEntry);
    ShowRows();
    if (!choices->noRow.isEmpty())
        Prompts::Information(choices->noRow);
}

void frmexammarkentry::EmptyLists()
{
    for (DataCombo* list : {ui_->dbcSubject, ui_->dbcStudent})
        list->SetList({});
}

void frmexammarkentry::EmptyList()
{
    List()->SetBoundCode(0);
    EmptyMarks();
}

void frmexammarkentry::EmptyMarks()
{
    entry_.Sheet().EmptyMarks();
    ShowRows();
}

void frmexammarkentry::List_Change()
{
    marks_->Close();
    const int chosen = List()->BoundCode();
    if (!IsComplete(Scope()) || chosen == 0) {
        EmptyMarks();
        return;
    }
    const bool known = Read([&] {
        if (entry_.Choose(MainStore(), Scope(), chosen))
            ShowRows();
    });
    if (known)
        return;
    // The rows are those of the choice before.
    EmptyList();
    entry_.ForgetMarks();
}

bool frmexammarkentry::List_Validate()
{
    if (!ui_->fraMain->isEnabled() || !IsComplete(Scope()) || List()->IsBlank())
        return true;
    if (!entry_.MarksExist()) {
        marks_->Open(1, MarkColumn::Mark);
        return true;
    }
    if (!Prompts::Ask(QStringLiteral("Marks Are Already Entered For This %1. Do You Want To "
                                     "View/Edit/Delete The Details ?")
                          .arg(NameOf(Mode())))) {
        EmptyList();
        entry_.ForgetMarks();
        return false;
    }
    marks_->Close();
    ui_->fraMain->setEnabled(false);
    ui_->cmdEdit->setEnabled(true);
    ui_->cmdDelete->setEnabled(true);
    ui_->cmdSave->setEnabled(false);
    ui_->cmdEdit->setFocus();
    return true;
}

bool frmexammarkentry::IsChosen()
{
    return !List()->IsBlank() || Refuse(QStringLiteral("Select %1 Name").arg(NameOf(Mode())), List());
}

void frmexammarkentry::msgDetails_Click(int row, int col)
{
    marks_->Close();
    if (IsChosen())
        marks_->Open(row, col);
}

void frmexammarkentry::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    ui_->fraMain->setEnabled(true);
    ui_->Frame1->setEnabled(true);
    ui_->dbcSubject->setEnabled(true);
    ui_->dbcStudent->setEnabled(false);
    ui_->msgDetails->SetTextMatrix(1, MarkColumn::Serial, QStringLiteral("1"));
    ui_->cmdSave->setEnabled(true);
    const std::initializer_list<DataCombo*> selections{ui_->dbcExam, ui_->cboClass, ui_->cboDivision};
    QWidget* next = List()->isEnabled() ? static_cast<QWidget*>(List()) : ui_->Optstudent;
    for (DataCombo* selection : selections) {
        if (selection->BoundCode() == 0) {
            next = selection;
            break;
        }
    }
    next->setFocus();
    ui_->cmdNew->setEnabled(false);
}

void frmexammarkentry::cmdEdit_Click()
{
    if (!MayUse(Right::Edit) || !IsChosen())
        return;
    if (Mode() == MarkMode::Subject && !ListStudentsForEdit())
        return;
    EditMode_ = true;
    ui_->cmdSave->setEnabled(true);
    ui_->fraMain->setEnabled(true);
    ui_->Frame1->setEnabled(false);
    ui_->cmdEdit->setEnabled(false);
    ui_->cmdDelete->setEnabled(false);
}

bool frmexammarkentry::ListStudentsForEdit()
{
    if (!Read([this] { entry_.ListForEdit(MainStore(), Scope(), List()->BoundCode()); }))
        return false;
    ShowRows();
    if (entry_.Sheet().RowCount() == 0)
        Prompts::Information(NoStudents);
    return true;
}

void frmexammarkentry::cmdDelete_Click()
{
    if (!MayUse(Right::Delete) || !IsChosen() ||
        !Prompts::Ask(QStringLiteral("Do You Want To Delete This 'Classwise Mark Entry' ?")))
        return;
    const bool deleted = Write(Conflict::DataIsInUse, [this](store::Transaction& transaction) {
        MarkRepository::Delete(transaction, Scope(), Mode(), List()->BoundCode());
    });
    if (!deleted)
        return;
    AfterCommit([this] {
        cmdCancel_Click();
        Prompts::Information(QStringLiteral("Record Deleted"));
    });
}

bool frmexammarkentry::IsReady()
{
    if (ui_->dbcExam->IsBlank())
        return Refuse(QStringLiteral("Select Exam Name"), ui_->dbcExam);
    if (ui_->cboClass->BoundCode() == 0)
        return Refuse(QStringLiteral("Select Class"), ui_->cboClass);
    if (ui_->cboDivision->BoundCode() == 0)
        return Refuse(QStringLiteral("Select Division"), ui_->cboDivision);
    if (!IsChosen())
        return false;
    const auto missing = Fetch([this] { return MarkEntry::Missing(MainStore(), Scope()); });
    if (!missing)
        return false;
    if (*missing == NoStudents)
        ui_->dbcStudent->SetBoundCode(0);
    if (!missing->isEmpty()) {
        Prompts::Information(*missing);
        return false;
    }
    if (const auto fault = entry_.Sheet().FindFault()) {
        marks_->Take(*fault);
        return false;
    }
    return true;
}

void frmexammarkentry::cmdSave_Click()
{
    if (!IsReady())
        return;
    const int chosen = List()->BoundCode();
    std::optional<MarkStep> aboveLimit;
    const auto error = TryWrite([&](store::Transaction& transaction) {
        // Another client may have set up the subjects anew while the marks were typed.
        entry_.TakeLimits(transaction.On(), Scope(), chosen, EditMode_);
        aboveLimit = entry_.Sheet().FindMarkAboveLimit();
        if (aboveLimit)
            return;
        if (EditMode_)
            MarkRepository::Delete(transaction, Scope(), Mode(), chosen);
        MarkRepository::Insert(transaction, Scope(), entry_.Sheet().Records(chosen), Session().gintUserCode);
    });
    if (error) {
        // What was typed stays, for a second try or to be compared with what another client has entered. Only
        // where its student or subject has gone there is no use for it.
        Prompts::Critical(error->IsDuplicate() ? EnteredMeanwhile(Mode())
                                               : TextOf(*error, Conflict::MasterIsGone));
        if (error->IsConflict() && !error->IsDuplicate())
            cmdCancel_Click();
        return;
    }
    if (aboveLimit) {
        ShowRows();
        marks_->Take(*aboveLimit);
        return;
    }
    Prompts::Information(EditMode_ ? QStringLiteral("Record Updated") : QStringLiteral("Record Saved"));
    if (EditMode_ ||
        !Prompts::Ask(QStringLiteral("Do You Want To Enter Marks For The Same 'Exam-Class-Division' ?"))) {
        AfterCommit([this] { cmdCancel_Click(); });
        return;
    }
    EmptyList();
    List()->setFocus();
}

void frmexammarkentry::cmdCancel_Click()
{
    TellOnce([this] {
        LoadExam();
        ClearControls(this);
        Read([this] { classDivision_->Load(); });
        cboClass_Click();
        Optsubject_Click();
    });
    ui_->cmdNew->setEnabled(true);
    for (QWidget* control :
         std::initializer_list<QWidget*>{ui_->cmdEdit, ui_->cmdSave, ui_->cmdDelete, ui_->fraMain})
        control->setEnabled(false);
    ui_->txtaverageMark->setText(QStringLiteral(" "));
    ui_->Frame1->setEnabled(true);
    EditMode_ = false;
    ui_->cmdNew->setFocus();
}

void frmexammarkentry::ResetGrid()
{
    entry_.Sheet().Clear();
    ShowRows();
}

void frmexammarkentry::ShowRows()
{
    marks_->ShowRows();
    const bool limited = Mode() == MarkMode::Subject && !List()->IsBlank();
    ui_->txtmaximumallowed->setText(limited ? PlainNumber(entry_.Sheet().MaximumAllowed()) : QString());
    ShowAverage();
}

void frmexammarkentry::ShowAverage()
{
    ui_->txtaverageMark->setText(entry_.Sheet().Average());
}

bool frmexammarkentry::eventFilter(QObject* receiver, QEvent* event)
{
    return receiver == ui_->cboDivision && event->type() == QEvent::KeyPress
               ? cboDivision_KeyPress(static_cast<QKeyEvent*>(event)->key())
               : Screen::eventFilter(receiver, event);
}

void frmexammarkentry::keyPressEvent(QKeyEvent* event)
{
    QScrollBar* bar = ui_->msgDetails->verticalScrollBar();
    if (event->key() == Qt::Key_PageDown)
        bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    else if (event->key() == Qt::Key_PageUp)
        bar->triggerAction(QAbstractSlider::SliderPageStepSub);
    else
        Screen::keyPressEvent(event);
}

QSize frmexammarkentry::sizeHint() const
{
    // As much of a long class as most displays can show; a smaller one bounds it.
    return {820, 1400};
}

QString frmexammarkentry::ExitCaption() const
{
    return QStringLiteral("Marks Entry");
}

} // namespace tally
