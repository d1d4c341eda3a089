#include "exams/frmClassRankSetup.h"

#include "core/school/SchoolListRepository.h"
#include "core/SessionContext.h"
#include "core/ui/controls/CellEditors.h"
#include "core/ui/controls/ClosedGridKeys.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/RowDelete.h"
#include "core/ui/DivisionChoice.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/SideButton.h"
#include "exams/GradeSetupRepository.h"
#include "exams/MarkTypes.h"
#include "ui_frmClassRankSetup.h"

#include <functional>
#include <utility>

namespace tally {

namespace {

constexpr int HelpScreenNo = 17;
/// No stored figure is written with more signs, however it came into the table: sign, 15 digits, point and
/// exponent.
constexpr int AverageLength = 22;
constexpr int GradeLength = 2;

} // namespace

frmClassRankSetup::frmClassRankSetup()
    : MasterScreen(QStringLiteral("frmClassRankSetup"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmClassRankSetup>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ui_->cmdDeleteRow->setIcon(LookIcon(QStringLiteral("delete")));
    ui_->cmdAddExam->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_E));
    ui_->cmdAddClass->setShortcut(QKeySequence(Qt::ALT | Qt::SHIFT | Qt::Key_C));
    ui_->msgDetails->SetReadableWhileClosed();
    ui_->msgDetails->setProperty(TakesEnter, true);
    ui_->msgDetails->Show(grades_.Table());
    BuildEditors();
    ConnectHandlers();
    SetExitButton(ui_->cmdExit);
    Form_Load();
}

frmClassRankSetup::~frmClassRankSetup() = default;

void frmClassRankSetup::BuildEditors()
{
    using Form = frmClassRankSetup;
    boxes_ = new CellEditors(this);
    boxes_->AddText(ui_->msgDetails, {.column = GradeColumn::TotalAverage,
                                      .name = "Txttotalaverage",
                                      .filter = &KeyNumeric,
                                      .maxLength = AverageLength,
                                      .typed = std::bind_front(&Form::Txttotalaverage_Change, this),
                                      .enter = std::bind_front(&Form::Txttotalaverage_Enter, this),
                                      .leave = std::bind_front(&Form::Txttotalaverage_Leave, this)});
    boxes_->AddText(ui_->msgDetails, {.column = GradeColumn::SubjectAverage,
                                      .name = "txtsubjectaverage",
                                      .filter = &KeyNumeric,
                                      .maxLength = AverageLength,
                                      .typed = std::bind_front(&Form::txtsubjectaverage_Change, this)});
    boxes_->AddText(ui_->msgDetails, {.column = GradeColumn::Grade,
                                      .name = "Txtgrade",
                                      .filter = &KeyAlphaNumeric,
                                      .maxLength = GradeLength,
                                      .typed = std::bind_front(&Form::Txtgrade_Change, this),
                                      .enter = [this](int row, const QString&) { Txtgrade_Enter(row); }});
    boxes_->SetTakeBack([this](int row) {
        return [this, row, before = grades_.Row(row)] {
            grades_.PutBack(row, before);
            ShowRow(row);
        };
    });
    deleteRow_ = new RowDelete(ui_->txtDeleteSlNo, ui_->cmdDeleteRow, boxes_,
                               {.lastRow = [this] { return grades_.RowCount(); },
                                .takeOut =
                                    [this](int row) {
                                        grades_.DeleteRow(row);
                                        ShowRows();
                                    }});
}

void frmClassRankSetup::ConnectHandlers()
{
    using Form = frmClassRankSetup;
    classDivision_ = new DivisionChoice(this, ui_->cboClass, ui_->cboDivision, DivisionChoice::Order::ByName,
                                        DivisionChoice::Reads::OnceSettled);
    new SideButton(this, ui_->cmdAddExam, ui_->dbcExam, QStringLiteral("frmexamnamemaster"),
                   [this] { RefillLists(); });
    new SideButton(this, ui_->cmdAddClass, ui_->cboClass, QStringLiteral("frmMasClassSectionEntry"),
                   [this] { RefillLists(); });
    for (DataCombo* list : Lists()) {
        list->setProperty(EnterNeedsText, true);
        list->SetGivingUp({ui_->cmdCancel, ui_->cmdExit});
        connect(list, &DataCombo::Chosen, this, &Form::List_Change);
        connect(list, &DataCombo::Settled, this, &Form::ReadChoice);
    }
    ui_->cboDivision->setProperty(TakesEnter, true);
    new ClosedGridKeys(ui_->msgDetails, this);
    connect(ui_->msgDetails, &FlexGrid::CellClicked, this, &Form::msgDetails_Click);
    connect(ui_->cmdNew, &QPushButton::clicked, this, &Form::cmdNew_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &Form::cmdEdit_Click);
    connect(ui_->cmdDelete, &QPushButton::clicked, this, &Form::cmdDelete_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &Form::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &Form::cmdCancel_Click);
}

void frmClassRankSetup::Form_Load()
{
    SetMasterControls({ui_->fraMain, ui_->cmdNew, ui_->cmdEdit, ui_->cmdDelete, ui_->cmdSave});
    ShowRows();
    LoadLists();
    ui_->cmdNew->setFocus();
}

void frmClassRankSetup::ShowState(MasterState state)
{
    MasterScreen::ShowState(state);
    GuardChoice();
}

void frmClassRankSetup::GuardChoice()
{
    // What is changed or typed belongs to the exam and the class-division that it was begun for.
    ui_->Frame1->setEnabled(!IsEditing() && !(IsNew() && grades_.IsBegun()));
}

SchoolScope frmClassRankSetup::Scope() const
{
    return {Session().gintAcademicYearCode, ui_->dbcExam->BoundCode(), ui_->cboClass->BoundCode(),
            ui_->cboDivision->BoundCode()};
}

std::array<DataCombo*, 3> frmClassRankSetup::Lists() const
{
    return {ui_->dbcExam, ui_->cboClass, ui_->cboDivision};
}

void frmClassRankSetup::LoadLists()
{
    const int chosen = ui_->dbcExam->BoundCode();
    Read([this, chosen] {
        ui_->dbcExam->SetList(SchoolListRepository(MainStore()).ExamsBehindBlank());
        ui_->dbcExam->SetBoundCode(chosen);
        classDivision_->Refill();
    });
}

void frmClassRankSetup::RefillLists()
{
    SettleChoice();
    const SchoolScope before = Scope();
    LoadLists();
    const SchoolScope after = Scope();
    if (after.examCode != before.examCode || after.divisionCode != before.divisionCode)
        List_Change();
}

void frmClassRankSetup::List_Change()
{
    // What is on the screen belongs to the choice before.
    boxes_->Close();
    isRead_ = false;
    found_.clear();
    grades_.Clear();
    ShowState(entering_ ? MasterState::New : MasterState::Idle);
    ShowRows();
}

void frmClassRankSetup::ReadChoice(bool goesOn)
{
    if (IsComplete(Scope()))
        LoadGrades();
    if (goesOn && isRead_)
        GoOn();
    if (goesOn && focusWidget() == ui_->cboDivision && !ui_->cboDivision->IsBlank())
        focusNextChild();
}

void frmClassRankSetup::SettleChoice()
{
    for (DataCombo* list : Lists())
        list->Settle();
}

void frmClassRankSetup::GoOn()
{
    if (!found_.empty())
        ui_->cmdEdit->setFocus();
    else if (IsNew())
        boxes_->Open(ui_->msgDetails, 1, GradeColumn::TotalAverage);
}

void frmClassRankSetup::LoadGrades(bool marksWereMet)
{
    auto stored = Fetch([this] { return ReadGrades(MainStore(), Scope()); });
    if (!stored) {
        // Grades that cannot be read must not look like none.
        ui_->cboDivision->SetBoundCode(0);
        List_Change();
        ui_->cboDivision->setFocus();
        return;
    }
    const bool hasMarks = stored->hasMarks || marksWereMet;
    boxes_->Close();
    isRead_ = true;
    found_ = std::move(stored->rows);
    grades_.Load(found_);
    if (!found_.empty())
        ShowState(hasMarks ? MasterState::Viewing : MasterState::RowSelected);
    else if (entering_)
        ShowState(hasMarks ? MasterState::Viewing : MasterState::New);
    else
        ShowState(MasterState::Idle);
    ShowRows();
    if (hasMarks)
        TellOfMarks();
}

void frmClassRankSetup::LoadShownGrades()
{
    LoadGrades();
    if (!isRead_)
        return;
    if (found_.empty() && !IsNew())
        ui_->cboDivision->setFocus();
    else
        GoOn();
}

void frmClassRankSetup::TellOfMarks()
{
    Refuse(GradesHaveMarks, ui_->cboDivision);
    ui_->cboDivision->TakeBack();
    isRead_ = false;
}

bool frmClassRankSetup::IsGivingUp() const
{
    return ui_->cmdCancel->hasFocus() || ui_->cmdExit->hasFocus();
}

void frmClassRankSetup::ShowRows()
{
    ui_->msgDetails->ShowRows(grades_.Table());
    // The first row is numbered once it may be entered.
    if (!isRead_ && !IsNew())
        ui_->msgDetails->SetTextMatrix(1, GradeColumn::Serial, {});
    deleteRow_->Refresh();
    GuardChoice();
}

void frmClassRankSetup::ShowRow(int row)
{
    ui_->msgDetails->ShowRow(row, grades_.Cells(row));
    GuardChoice();
}

void frmClassRankSetup::msgDetails_Click(int row, int col)
{
    boxes_->Close();
    // Whoever gave up leaving the screen has chosen without a look at what is stored.
    SettleChoice();
    if (isRead_ && (IsNew() || IsEditing()) && grades_.MayEnter(row, col))
        boxes_->Open(ui_->msgDetails, row, col);
}

void frmClassRankSetup::Txttotalaverage_Change(int row, const QString& text)
{
    const QString refusal = grades_.RefusalOfTotalAverage(row, text);
    if (!refusal.isEmpty()) {
        boxes_->Refuse(refusal);
        return;
    }
    grades_.SetTotalAverage(row, text);
    ShowRow(row);
}

void frmClassRankSetup::Txttotalaverage_Enter(int row, const QString& text)
{
    const QString refusal = grades_.RefusalOfTotalAverage(row, text);
    if (refusal.isEmpty())
        boxes_->OpenNext();
    else
        boxes_->Refuse(refusal);
}

QString frmClassRankSetup::Txttotalaverage_Leave(int row, const QString& text) const
{
    // The cell holds what was typed before the refused figure, which must not be saved for it. What stood
    // there when the box opened may stay until the save: the mend can lie in another row.
    const bool isInCell = text == grades_.Row(row).totalAverage;
    return isInCell || IsGivingUp() ? QString() : grades_.RefusalOfTotalAverage(row, text);
}

void frmClassRankSetup::txtsubjectaverage_Change(int row, const QString& text)
{
    grades_.SetSubjectAverage(row, text);
    ShowRow(row);
}

void frmClassRankSetup::Txtgrade_Change(int row, const QString& text)
{
    grades_.SetGrade(row, text);
    ShowRow(row);
}

void frmClassRankSetup::Txtgrade_Enter(int row)
{
    const GradeStep step = grades_.EnterGrade(row);
    ShowRows();
    Take(step);
}

void frmClassRankSetup::Take(const GradeStep& step)
{
    if (!step.message.isEmpty())
        Prompts::Information(step.message);
    if (step.row > 0)
        boxes_->Open(ui_->msgDetails, step.row, step.column);
}

void frmClassRankSetup::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    SettleChoice();
    entering_ = true;
    List_Change();
    for (DataCombo* list : Lists()) {
        if (list->BoundCode() == 0) {
            list->setFocus();
            return;
        }
    }
    ReadChoice(true);
}

void frmClassRankSetup::cmdEdit_Click()
{
    if (!MayUse(Right::Edit))
        return;
    // Another client may have changed what is shown.
    LoadShownGrades();
    if (!isRead_ || found_.empty())
        return;
    ShowState(MasterState::Editing);
    // Enter opens the box of the first grade.
    ui_->msgDetails->SetCurrentCell(1, GradeColumn::TotalAverage);
    ui_->msgDetails->setFocus();
}

void frmClassRankSetup::cmdDelete_Click()
{
    if (!MayUse(Right::Delete) ||
        !Prompts::Ask(QStringLiteral("Do You Want To Delete This 'Classwise Rank-Grade Setup' ?")))
        return;
    QString obstacle;
    const bool done = WriteRow(
        Conflict::DataIsInUse,
        [&](store::Transaction& transaction) { obstacle = DeleteGrades(transaction, Scope(), found_); },
        OnRefusal::Stay);
    if (!done)
        return;
    if (obstacle.isEmpty()) {
        CancelAndTellDeleted();
        return;
    }
    Explain(obstacle);
    if (obstacle != GradesHaveMarks)
        LoadShownGrades();
}

bool frmClassRankSetup::IsReady()
{
    if (ui_->dbcExam->IsBlank())
        return Refuse(QStringLiteral("Select Exam Name"), ui_->dbcExam);
    if (ui_->cboClass->IsBlank())
        return Refuse(QStringLiteral("Select Class"), ui_->cboClass);
    if (ui_->cboDivision->IsBlank())
        return Refuse(QStringLiteral("Select Division"), ui_->cboDivision);
    if (const auto fault = grades_.FindFault()) {
        Take(*fault);
        return false;
    }
    return true;
}

void frmClassRankSetup::cmdSave_Click()
{
    SettleChoice();
    // The choice may have brought stored grades on the screen, and nothing was entered for those.
    if (!ui_->cmdSave->isEnabled())
        return;
    boxes_->Close();
    if (!IsReady())
        return;
    QString obstacle;
    const bool done = WriteRow(
        Conflict::MasterIsGone,
        [&](store::Transaction& transaction) {
            obstacle = SaveGrades(transaction, Scope(), found_, grades_.Records());
        },
        OnRefusal::StartAnew);
    if (!done)
        return;
    if (obstacle.isEmpty())
        TellSaved();
    else
        Explain(obstacle);
}

void frmClassRankSetup::Explain(const QString& obstacle)
{
    if (obstacle == GradesHaveMarks)
        LoadGrades(true);
    else
        // What was typed stays, to be compared with what the other user has stored.
        Prompts::Information(obstacle);
}

void frmClassRankSetup::cmdCancel_Click()
{
    entering_ = false;
    ClearControls(this);
    List_Change();
    LoadLists();
    ui_->cmdNew->setFocus();
}

QSize frmClassRankSetup::sizeHint() const
{
    return {780, 560};
}

} // namespace tally
