#include "exams/frmexammarkentry.h"

#include "core/Numbers.h"
#include "core/SessionContext.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/FloatingCombo.h"
#include "core/ui/controls/FloatingEditor.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "exams/MarkEntryColumns.h"
#include "exams/MarkEntryTexts.h"
#include "store/StoreError.h"
#include "ui_frmexammarkentry.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

namespace tally {

namespace {

constexpr int HelpScreenNo = 19;

/// Two clients entered the first marks at once, and the other one was faster.
QString EnteredMeanwhile(MarkMode mode)
{
    return QStringLiteral(
               "Marks Of This %1 Were Entered By Another User Meanwhile.\nYou Cannot Save This Data.")
        .arg(mode == MarkMode::Student ? QStringLiteral("Student") : QStringLiteral("Subject"));
}

} // namespace

frmexammarkentry::frmexammarkentry()
    : Screen(QStringLiteral("frmexammarkentry"), HelpScreenNo), ui_(std::make_unique<Ui::frmexammarkentry>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ui_->cmdAddExam->setIcon(LookIcon(QStringLiteral("add")));
    ui_->cmdAddExam->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_E));
    BuildGrid();
    BuildBoxes();
    ConnectHandlers();
    SetExitButton(ui_->cmdExit);
    Form_Load();
}

frmexammarkentry::~frmexammarkentry() = default;

void frmexammarkentry::BuildGrid()
{
    GridTable marks({{QStringLiteral("S.No."), NumberAlignment},
                     {.head = QStringLiteral("Student  Name"), .stretched = true},
                     {QStringLiteral("Mark Obtained"), NumberAlignment},
                     {QStringLiteral("Present/Absent")},
                     {.head = QStringLiteral("Studentcode"), .hidden = true},
                     {.head = QStringLiteral("MaximumAllowed"), .hidden = true},
                     {.head = QStringLiteral("TeacherCode"), .hidden = true},
                     {.head = QStringLiteral("MaximumMark"), .hidden = true}});
    marks.AddRow();
    ui_->msgDetails->Show(std::move(marks));
    ui_->msgDetails->setProperty(TakesEnter, true);
}

void frmexammarkentry::ConnectHandlers()
{
    using Form = frmexammarkentry;
    connect(ui_->cmdAddExam, &QPushButton::clicked, this, &Form::cmdAddExam_Click);
    connect(ui_->dbcExam, &DataCombo::Chosen, this, &Form::dbcExam_Change);
    connect(ui_->cboClass, &DataCombo::Chosen, this, &Form::cboClass_Click);
    connect(ui_->cboDivision, &DataCombo::Chosen, this, &Form::cboDivision_Click);
    connect(ui_->Optsubject, &QRadioButton::clicked, this, &Form::Optsubject_Click);
    connect(ui_->Optstudent, &QRadioButton::clicked, this, &Form::Optstudent_Click);
    for (DataCombo* list : {ui_->dbcSubject, ui_->dbcStudent}) {
        connect(list, &DataCombo::Chosen, this, &Form::List_Change);
        list->SetValidate([this, list] { return list != List() || List_Validate(); });
    }
    connect(ui_->msgDetails, &FlexGrid::CellClicked, this, &Form::msgDetails_Click);
    connect(ui_->cmdNew, &QPushButton::clicked, this, &Form::cmdNew_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &Form::cmdEdit_Click);
    connect(ui_->cmdDelete, &QPushButton::clicked, this, &Form::cmdDelete_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &Form::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &Form::cmdCancel_Click);

    for (DataCombo* combo : {ui_->dbcExam, ui_->cboClass, ui_->dbcSubject, ui_->dbcStudent})
        combo->setProperty(EnterNeedsText, true);
    ui_->cboDivision->setProperty(TakesEnter, true);
    ui_->cboDivision->installEventFilter(this);
    ui_->msgDetails->viewport()->installEventFilter(this);
}

void frmexammarkentry::Form_Load()
{
    LoadExam();
    LoadClass();
    LoadDivision();
    ui_->cmdNew->setFocus();
}

SchoolListRepository frmexammarkentry::Lists() const
{
    return SchoolListRepository(MainStore());
}

MarkRepository frmexammarkentry::Marks() const
{
    return MarkRepository(MainStore());
}

MarkScope frmexammarkentry::Scope() const
{
    return {Session().gintAcademicYearCode, ui_->dbcExam->BoundCode(), ui_->cboClass->BoundCode(),
            ui_->cboDivision->BoundCode()};
}

DataCombo* frmexammarkentry::List() const
{
    return sheet_.Mode() == MarkMode::Subject ? ui_->dbcSubject : ui_->dbcStudent;
}

void frmexammarkentry::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    ui_->fraMain->setEnabled(true);
    ui_->Frame1->setEnabled(true);
    ui_->dbcSubject->setEnabled(true);
    ui_->dbcStudent->setEnabled(false);
    ui_->msgDetails->SetTextMatrix(1, SerialCol, QStringLiteral("1"));
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
    if (sheet_.Mode() == MarkMode::Subject && !ListStudentsForEdit())
        return;
    EditMode_ = true;
    ui_->cmdSave->setEnabled(true);
    ui_->fraMain->setEnabled(true);
    ui_->Frame1->setEnabled(false);
    ui_->cmdSave->setFocus();
    ui_->cmdEdit->setEnabled(false);
    ui_->cmdDelete->setEnabled(false);
}

void frmexammarkentry::cmdDelete_Click()
{
    if (!MayUse(Right::Delete) || !IsChosen() ||
        !Prompts::Ask(QStringLiteral("Do You Want To Delete This 'Classwise Mark Entry' ?")))
        return;
    const bool deleted = Write(Conflict::DataIsInUse, [this](store::Transaction& transaction) {
        MarkRepository::Delete(transaction, Scope(), sheet_.Mode(), List()->BoundCode());
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
    bool students = false;
    bool subjects = false;
    const bool known = Read([&] {
        students = Marks().HasStudents(Scope());
        subjects = Marks().HasSubjects(Scope());
    });
    if (!known)
        return false;
    if (!students) {
        ui_->dbcStudent->SetBoundCode(0);
        Prompts::Information(NoStudents);
        return false;
    }
    if (!subjects) {
        Prompts::Information(NoSubjects);
        return false;
    }
    if (const auto fault = sheet_.FindFault()) {
        Take(*fault);
        return false;
    }
    return true;
}

void frmexammarkentry::cmdSave_Click()
{
    if (!IsReady())
        return;
    const int chosen = List()->BoundCode();
    const auto error = TryWrite([&](store::Transaction& transaction) {
        if (EditMode_)
            MarkRepository::Delete(transaction, Scope(), sheet_.Mode(), chosen);
        MarkRepository::Insert(transaction, Scope(), sheet_.Records(chosen), Session().gintUserCode);
    });
    if (error) {
        // What was typed stays, for a second try or to be compared with what another client has entered. Only
        // where its student or subject has gone there is no use for it.
        Prompts::Critical(error->IsDuplicate() ? EnteredMeanwhile(sheet_.Mode())
                                               : TextOf(*error, Conflict::MasterIsGone));
        if (error->IsConflict() && !error->IsDuplicate())
            cmdCancel_Click();
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
    LoadExam();
    LoadClass();
    ClearControls(this);
    // No class is chosen any more, and so nothing below it.
    cboClass_Click();
    Optsubject_Click();
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
    sheet_.Clear();
    ShowRows();
}

void frmexammarkentry::ShowRow(int row)
{
    FlexGrid* grid = ui_->msgDetails;
    const MarkRow& entry = sheet_.Row(row);
    grid->SetTextMatrix(row, MarkObtainedCol, entry.mark);
    grid->SetTextMatrix(row, PresentAbsentCol, entry.presence);
    for (const int col : {MarkObtainedCol, PresentAbsentCol})
        grid->SetMark(row, col, entry.IsAbsent() ? CellMark::FailedOrAbsent : CellMark::None);
}

void frmexammarkentry::ShowRows()
{
    // A box would stand over a row that is no longer the one it was opened for.
    HideEntryControls();
    FlexGrid* grid = ui_->msgDetails;
    // One blank row stands behind the rows.
    grid->SetRows(1);
    grid->SetRows(sheet_.RowCount() + 2);
    for (int row = 1; row <= sheet_.RowCount(); ++row) {
        const MarkRow& entry = sheet_.Row(row);
        grid->SetTextMatrix(row, SerialCol, QString::number(row));
        grid->SetTextMatrix(row, NameCol, entry.name);
        grid->SetTextMatrix(row, CodeCol, QString::number(entry.code));
        grid->SetTextMatrix(row, TeacherCodeCol, QString::number(entry.teacherCode));
        if (sheet_.Mode() == MarkMode::Student) {
            grid->SetTextMatrix(row, MaximumAllowedCol, PlainNumber(entry.maximumAllowed));
            grid->SetTextMatrix(row, MaximumMarkCol, PlainNumber(entry.maximumMark));
        }
        ShowRow(row);
    }
    const bool limited = sheet_.Mode() == MarkMode::Subject && !List()->IsBlank();
    ui_->txtmaximumallowed->setText(limited ? PlainNumber(sheet_.MaximumAllowed()) : QString());
    ShowAverage();
}

void frmexammarkentry::ShowAverage()
{
    ui_->txtaverageMark->setText(sheet_.Average());
}

bool frmexammarkentry::eventFilter(QObject* receiver, QEvent* event)
{
    if (receiver == ui_->cboDivision && event->type() == QEvent::KeyPress)
        return cboDivision_KeyPress(static_cast<QKeyEvent*>(event)->key());
    if (receiver == ui_->msgDetails->viewport())
        return event->type() == QEvent::Wheel && msgDetails_Wheel(static_cast<QWheelEvent*>(event));
    // What is left are the two parts of the presence: the list and its text.
    const bool onPresence = receiver != ui_->cboDivision;
    if (onPresence && event->type() == QEvent::MouseButtonPress)
        cboPresentAbsent_MouseDown();
    return false;
}

bool frmexammarkentry::msgDetails_Wheel(const QWheelEvent* event)
{
    // A long class can be looked through while its marks may not be entered.
    if (ui_->fraMain->isEnabled())
        return false;
    QScrollBar* bar = ui_->msgDetails->verticalScrollBar();
    const int turn = event->angleDelta().y();
    if ((turn < 0) != (wheelTurned_ < 0))
        wheelTurned_ = 0;
    wheelTurned_ += turn;
    const int notches = wheelTurned_ / QWheelEvent::DefaultDeltasPerStep;
    wheelTurned_ -= notches * QWheelEvent::DefaultDeltasPerStep;
    bar->setValue(bar->value() - notches * QApplication::wheelScrollLines() * bar->singleStep());
    return true;
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
