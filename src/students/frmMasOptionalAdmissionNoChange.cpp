#include "students/frmMasOptionalAdmissionNoChange.h"

#include "core/SessionContext.h"
#include "core/ui/controls/CellEditors.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/FloatingEditor.h"
#include "core/ui/DivisionChoice.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "students/NumberChangeRepository.h"
#include "ui_frmMasOptionalAdmissionNoChange.h"

namespace tally {

namespace {

/// That of the form from which it is opened.
constexpr int HelpScreenNo = 10;
constexpr int NumberLength = 15;

NumberChangeRepository Repository()
{
    return NumberChangeRepository(MainStore());
}

} // namespace

frmMasOptionalAdmissionNoChange::frmMasOptionalAdmissionNoChange()
    : Screen(QStringLiteral("frmMasOptionalAdmissionNoChange"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmMasOptionalAdmissionNoChange>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ui_->msgDetails->setProperty(TakesEnter, true);
    ui_->msgDetails->Show(numbers_.Table());
    ConnectHandlers();
    SetExitButton(ui_->cmdExit);
    LoadLists();
}

frmMasOptionalAdmissionNoChange::~frmMasOptionalAdmissionNoChange() = default;

void frmMasOptionalAdmissionNoChange::ConnectHandlers()
{
    using Form = frmMasOptionalAdmissionNoChange;
    choice_ = new DivisionChoice(this, ui_->dbcClass, ui_->dbcDivision, DivisionChoice::Order::ByName);
    connect(ui_->dbcClass, &DataCombo::Chosen, this, &Form::EmptyGrid);
    connect(ui_->dbcDivision, &DataCombo::Chosen, this, &Form::dbcDivision_Change);
    for (DataCombo* list : {ui_->dbcClass, ui_->dbcDivision})
        list->SetValidate([this, list] {
            if (list->IsBlank())
                EmptyGrid();
            return true;
        });
    boxes_ = new CellEditors(this);
    boxes_->AddText(ui_->msgDetails, {.column = NumberColumn::Number,
                                      .name = "txtOptionalAdmissionNo",
                                      .filter = &KeyAlphaNumeric,
                                      .maxLength = NumberLength,
                                      .typed = std::bind_front(&Form::txtOptionalAdmissionNo_Change, this),
                                      .enter = std::bind_front(&Form::txtOptionalAdmissionNo_Enter, this)});
    boxes_->SetTakeBack([this](int row) {
        return [this, row, before = numbers_.Number(row)] { txtOptionalAdmissionNo_Change(row, before); };
    });
    connect(ui_->msgDetails, &FlexGrid::CellClicked, this, &Form::msgDetails_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &Form::cmdEdit_Click);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &Form::cmdSave_Click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &Form::cmdCancel_Click);
}

void frmMasOptionalAdmissionNoChange::LoadLists()
{
    const auto numbers = Fetch([this] {
        choice_->Load();
        return Repository().AllNumbers();
    });
    numbers_.TakeSnapshot(numbers.value_or(CodedTexts()));
    ui_->cmdEdit->setEnabled(numbers.has_value());
}

void frmMasOptionalAdmissionNoChange::cmdEdit_Click()
{
    for (QWidget* control : std::initializer_list<QWidget*>{ui_->fraSelection, ui_->fraDetails, ui_->cmdSave})
        control->setEnabled(true);
    ui_->dbcClass->setFocus();
    ui_->cmdEdit->setEnabled(false);
}

void frmMasOptionalAdmissionNoChange::dbcDivision_Change()
{
    EmptyGrid();
    if (ui_->dbcDivision->BoundCode() == 0)
        return;
    const SchoolScope scope{Session().gintAcademicYearCode, 0, ui_->dbcClass->BoundCode(),
                            ui_->dbcDivision->BoundCode()};
    const auto students = Fetch([&] { return Repository().Students(scope); });
    if (!students) {
        ui_->dbcDivision->SetBoundCode(0);
        return;
    }
    numbers_.List(*students);
    ShowRows();
    if (students->empty()) {
        Refuse(QStringLiteral("'Student Admission Entry' Is Not Made For This Division"), ui_->dbcDivision);
        return;
    }
    // Enter in the grid opens the box of the first student.
    ui_->msgDetails->SetCurrentCell(1, NumberColumn::Number);
}

void frmMasOptionalAdmissionNoChange::EmptyGrid()
{
    boxes_->Close();
    numbers_.Clear();
    ShowRows();
}

void frmMasOptionalAdmissionNoChange::ShowRows()
{
    ui_->msgDetails->ShowRows(numbers_.Table());
}

void frmMasOptionalAdmissionNoChange::msgDetails_Click(int row, int col)
{
    if (GridCol(col) == GridCol(NumberColumn::Number) && numbers_.HasRow(row))
        boxes_->Open(ui_->msgDetails, row, col);
}

void frmMasOptionalAdmissionNoChange::txtOptionalAdmissionNo_Change(int row, const QString& text)
{
    numbers_.SetNumber(row, text);
    ui_->msgDetails->ShowRow(row, numbers_.Cells(row));
}

void frmMasOptionalAdmissionNoChange::txtOptionalAdmissionNo_Enter(int row, const QString& text)
{
    const NumberStep step = numbers_.Enter(row, text);
    ui_->msgDetails->ShowRow(row, numbers_.Cells(row));
    if (step.message.isEmpty())
        Take(step);
    else
        boxes_->Refuse(step.message);
}

void frmMasOptionalAdmissionNoChange::Take(const NumberStep& step)
{
    if (!step.message.isEmpty())
        Prompts::Information(step.message);
    boxes_->Close();
    if (step.row > 0)
        boxes_->Open(ui_->msgDetails, step.row, NumberColumn::Number);
    else
        ui_->cmdSave->setFocus();
}

void frmMasOptionalAdmissionNoChange::cmdSave_Click()
{
    if (ui_->dbcClass->BoundCode() == 0) {
        Refuse(QStringLiteral("Select Class"), ui_->dbcClass);
        return;
    }
    if (ui_->dbcDivision->BoundCode() == 0) {
        Refuse(QStringLiteral("Select Division"), ui_->dbcDivision);
        return;
    }
    std::optional<NumberStep> fault;
    const auto error =
        TryWrite([&](store::Transaction& transaction) { fault = SaveNumbers(transaction, numbers_); });
    if (error) {
        // What was typed stays for a second try, unless a student has gone and there is nobody to try for.
        Prompts::Critical(TextOf(*error, Conflict::MasterIsGone));
        if (error->IsConflict())
            cmdCancel_Click();
        return;
    }
    if (fault) {
        Take(*fault);
        return;
    }
    AfterCommit([this] {
        Prompts::Information(QStringLiteral("Record Updated"));
        cmdCancel_Click();
    });
}

void frmMasOptionalAdmissionNoChange::cmdCancel_Click()
{
    ClearControls(this);
    EmptyGrid();
    for (QWidget* control : std::initializer_list<QWidget*>{ui_->fraSelection, ui_->fraDetails, ui_->cmdSave})
        control->setEnabled(false);
    LoadLists();
    (ui_->cmdEdit->isEnabled() ? ui_->cmdEdit : ui_->cmdCancel)->setFocus();
}

QSize frmMasOptionalAdmissionNoChange::sizeHint() const
{
    // As much of a long class as most displays can show; a smaller one bounds it.
    return {700, 1400};
}

} // namespace tally
