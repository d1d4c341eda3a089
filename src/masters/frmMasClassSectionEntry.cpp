#include "masters/frmMasClassSectionEntry.h"

#include "core/SessionContext.h"
#include "core/ui/controls/CellEditors.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/RowDelete.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "masters/ClassSectionSave.h"
#include "store/StoreError.h"
#include "ui_frmMasClassSectionEntry.h"

#include <algorithm>
#include <utility>

namespace tally {

namespace {

constexpr int HelpScreenNo = 4;

} // namespace

frmMasClassSectionEntry::frmMasClassSectionEntry()
    : Screen(QStringLiteral("frmMasClassSectionEntry"), HelpScreenNo),
      ui_(std::make_unique<Ui::frmMasClassSectionEntry>())
{
    ui_->setupUi(this);
    DressButtons(this);
    ui_->cmdDeleteRow->setIcon(LookIcon(QStringLiteral("delete")));
    BuildGrids();
    BuildEditors();
    ConnectHandlers();
    SetExitButton(ui_->cmdExit);
    Form_Load();
}

frmMasClassSectionEntry::~frmMasClassSectionEntry() = default;

void frmMasClassSectionEntry::BuildGrids()
{
    classes_.Clear();
    ui_->msgClassDetails->Show(classes_.ClassTable());
    ui_->msgDivisionDetails->Show(classes_.DivisionTable(0));
    ui_->msgDivisionDetails->SetRows(2);
    for (FlexGrid* grid : {ui_->msgClassDetails, ui_->msgDivisionDetails}) {
        grid->setProperty(TakesEnter, true);
        grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
}

void frmMasClassSectionEntry::BuildEditors()
{
    using Form = frmMasClassSectionEntry;
    boxes_ = new CellEditors(this);
    boxes_->AddText(ui_->msgClassDetails, {.column = ClassColumn::ClassName,
                                           .name = "txtClassName",
                                           .filter = &KeyAllButQuote,
                                           .maxLength = 4,
                                           .typed = std::bind_front(&Form::txtClassName_Change, this),
                                           .enter = std::bind_front(&Form::txtClassName_Enter, this),
                                           .leave = std::bind_front(&Form::txtClassName_Validate, this)});
    boxes_->AddText(ui_->msgClassDetails, {.column = ClassColumn::NoOfDivisions,
                                           .name = "txtNoOfDivisions",
                                           .filter = &KeyNumeric,
                                           .maxLength = 2,
                                           .typed = std::bind_front(&Form::txtNoOfDivisions_Change, this),
                                           .enter = std::bind_front(&Form::txtNoOfDivisions_Enter, this),
                                           .leave = std::bind_front(&Form::txtNoOfDivisions_Validate, this),
                                           .mayType = std::bind_front(&Form::IsNamed, this)});
    boxes_->AddText(ui_->msgClassDetails, {.column = ClassColumn::ClassOrder,
                                           .name = "txtClassOrder",
                                           .filter = &KeyNumeric,
                                           .maxLength = 2,
                                           .typed = std::bind_front(&Form::txtClassOrder_Change, this),
                                           .enter = std::bind_front(&Form::txtClassOrder_Enter, this),
                                           .leave = std::bind_front(&Form::txtClassOrder_Validate, this),
                                           .mayType = std::bind_front(&Form::IsNamed, this)});
    boxes_->AddText(ui_->msgDivisionDetails,
                    {.column = DivisionColumn::DivisionName,
                     .name = "txtDivisionName",
                     .filter = &KeyAllButQuote,
                     .maxLength = 3,
                     .typed = std::bind_front(&Form::txtDivisionName_Change, this),
                     .leave = std::bind_front(&Form::txtDivisionName_Validate, this)});
    boxes_->SetTakeBack([this](int) {
        return [this, before = classes_] {
            classes_ = before;
            ShowClasses();
            LoadOldDetails();
        };
    });
    deleteRow_ = new RowDelete(ui_->txtDeleteSlNo, ui_->cmdDeleteRow, boxes_,
                               {.lastRow = [this] { return classes_.RowCount(); },
                                .takeOut = std::bind_front(&Form::DeleteRow, this)});
}

void frmMasClassSectionEntry::ConnectHandlers()
{
    using Form = frmMasClassSectionEntry;
    connect(ui_->cmdClose, &QPushButton::clicked, this, &Form::cmdClose_Click);
    connect(ui_->cmdNew, &QPushButton::clicked, this, &Form::cmdNew_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &Form::cmdEdit_Click);
    const auto onClick = [this](const QPushButton* button, void (Form::*handler)()) {
        connect(button, &QPushButton::clicked, this, [this, handler] {
            if (!boxes_->KeepsFocus())
                (this->*handler)();
        });
    };
    onClick(ui_->cmdSave, &Form::cmdSave_Click);
    onClick(ui_->cmdCancel, &Form::cmdCancel_Click);

    connect(ui_->msgClassDetails, &FlexGrid::CellClicked, this, &Form::msgClassDetails_Click);
    // The arrows choose a class as a click does; the boxes that go from row to row do not.
    connect(ui_->msgClassDetails->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        if (ui_->msgClassDetails->hasFocus())
            LoadOldDetails();
    });
    connect(ui_->msgDivisionDetails, &FlexGrid::CellClicked, this, &Form::msgDivisionDetails_Click);
}

void frmMasClassSectionEntry::Form_Load()
{
    SetEntering(false);
    // The note about the order of the classes is to be read before anything else.
    ui_->fraButtons->setEnabled(false);
    ui_->fraAboutEntry->raise();
    ui_->cmdClose->setFocus();
}

void frmMasClassSectionEntry::cmdClose_Click()
{
    ui_->fraAboutEntry->hide();
    ui_->fraButtons->setEnabled(true);
    classes_.StartFirstRow();
    ShowClasses();
    ui_->msgDivisionDetails->SetTextMatrix(1, DivisionColumn::DivisionCode, QStringLiteral("1"));
    boxes_->Close();
    ui_->cmdNew->setFocus();
    ReadClasses();
}

void frmMasClassSectionEntry::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    SetEntering(true);
    ui_->cmdNew->setEnabled(false);
    classes_.StartFirstRow();
    ShowClasses();
    boxes_->Open(ui_->msgClassDetails, 1, ClassColumn::ClassName);
}

void frmMasClassSectionEntry::cmdEdit_Click()
{
    if (!MayUse(Right::Edit))
        return;
    SetEntering(true);
    ui_->cmdEdit->setEnabled(false);
    editing_ = true;
    ui_->msgClassDetails->SetCurrentCell(1, ClassColumn::ClassName);
    LoadOldDetails();
    ui_->cmdSave->setFocus();
}

void frmMasClassSectionEntry::cmdSave_Click()
{
    boxes_->Close();
    if (const auto fault = FindFault(classes_)) {
        Prompts::Information(fault->message);
        boxes_->Open(ui_->msgClassDetails, fault->row, fault->column);
        return;
    }
    QStringList kept;
    const auto tellKept = [&kept] {
        for (const QString& sentence : std::as_const(kept))
            Prompts::Information(sentence);
    };
    try {
        const int userCode = Session().gintUserCode;
        if (!editing_) {
            SaveNewClasses(MainStore(), classes_, userCode);
        } else if (!SaveEditedClasses(MainStore(), classes_, loaded_, userCode, kept)) {
            Prompts::Critical(QStringLiteral(
                "The Classes Were Changed By Another User Meanwhile.\nYou Cannot Save This Data."));
            cmdCancel_Click();
            return;
        }
    } catch (const store::StoreError& error) {
        ShowClasses();
        tellKept();
        // Another client's save is over in a moment, so what was entered stays for a second try.
        Prompts::Critical(TextOf(error, Conflict::DataIsInUse));
        if (error.IsConflict())
            cmdCancel_Click();
        return;
    }
    AfterCommit([&] {
        tellKept();
        if (Read([this] { LoadData(); }))
            ReArrangeClassOrder();
        Prompts::Information(editing_ ? QStringLiteral("Record Updated") : QStringLiteral("Record Saved"));
        cmdCancel_Click();
    });
}

void frmMasClassSectionEntry::cmdCancel_Click()
{
    boxes_->Close();
    ClearControls(this);
    classes_.Clear();
    ShowClasses();
    SetEntering(false);
    editing_ = false;
    ui_->cmdNew->setEnabled(true);
    ui_->cmdEdit->setEnabled(false);
    ui_->cmdNew->setFocus();
    ReadClasses();
}

void frmMasClassSectionEntry::cmdExit_Click()
{
    if (!boxes_->KeepsFocus())
        Screen::cmdExit_Click();
}

void frmMasClassSectionEntry::DeleteRow(int row)
{
    classes_.DeleteRow(row);
    ShowClasses();
    LoadOldDetails();
}

void frmMasClassSectionEntry::ReadClasses()
{
    if (Read([this] { LoadData(); }))
        return;
    // The school may have classes that only could not be read: they must not be entered anew.
    ui_->cmdNew->setEnabled(false);
    ui_->cmdCancel->setFocus();
}

void frmMasClassSectionEntry::LoadData()
{
    ClassSectionRepository repository(MainStore());
    {
        const store::ReadTransaction reading(MainStore());
        loaded_ = {repository.Classes(), repository.Divisions()};
    }
    const bool fits = classes_.Load(loaded_.classes, loaded_.divisions);
    ShowClasses();
    if (!fits) {
        Prompts::Information(QStringLiteral("You Cannot Create More Than 99 Classes"));
        return;
    }
    if (!loaded_.classes.empty()) {
        ui_->cmdEdit->setEnabled(true);
        SetEntering(false);
        ui_->cmdNew->setEnabled(false);
        ui_->cmdEdit->setFocus();
    }
    ui_->msgDivisionDetails->SetRows(1);
}

void frmMasClassSectionEntry::LoadOldDetails()
{
    const int row = ui_->msgClassDetails->CurrentRow();
    const int classCode = row >= 1 && row <= classes_.RowCount() ? classes_.Row(row).classCode : 0;
    ui_->msgDivisionDetails->ShowRows(classes_.DivisionTable(classCode));
}

void frmMasClassSectionEntry::ReArrangeClassOrder()
{
    if (!classes_.HasOrderTie())
        return;
    const auto error =
        TryWrite([](store::Transaction& transaction) { ClassSectionRepository::OrderByCode(transaction); });
    if (error)
        Prompts::Critical(
            QStringLiteral("The Classes Are Saved. Only Their Order Could Not Be Renumbered.\n") +
            error->Description());
    else
        Prompts::Information(QStringLiteral("Re-Arrange Class Order"));
}

void frmMasClassSectionEntry::ShowClasses()
{
    ui_->msgClassDetails->ShowRows(classes_.ClassTable());
}

void frmMasClassSectionEntry::msgClassDetails_Click(int row, int col)
{
    boxes_->Close();
    LoadOldDetails();
    boxes_->Open(ui_->msgClassDetails, row, col);
}

void frmMasClassSectionEntry::msgDivisionDetails_Click(int row)
{
    boxes_->Open(ui_->msgDivisionDetails, row, DivisionColumn::DivisionName);
}

bool frmMasClassSectionEntry::IsNamed(int row)
{
    if (classes_.Row(row).IsNamed())
        return true;
    // A class gets its name before its numbers.
    Prompts::Information(QStringLiteral("Enter Class Name"));
    boxes_->Open(ui_->msgClassDetails, row, ClassColumn::ClassName);
    return false;
}

void frmMasClassSectionEntry::txtClassName_Change(int row, const QString& text)
{
    if (text.trimmed().isEmpty())
        return;
    classes_.Row(row).className = text.trimmed();
    ShowClasses();
}

void frmMasClassSectionEntry::txtClassName_Enter(int, const QString& text)
{
    if (!text.isEmpty() && boxes_->MayLeave())
        boxes_->OpenNext();
}

QString frmMasClassSectionEntry::txtClassName_Validate(int row, const QString& text)
{
    if (!classes_.ClassNameTaken(row, text.trimmed()))
        return {};
    classes_.Row(row).className = text.trimmed();
    ShowClasses();
    return QStringLiteral("Class Name Already Exists");
}

void frmMasClassSectionEntry::txtNoOfDivisions_Change(int row, const QString& text)
{
    classes_.SetNoOfDivisions(row, text);
    ShowClasses();
    LoadOldDetails();
}

void frmMasClassSectionEntry::txtNoOfDivisions_Enter(int row, const QString& text)
{
    ClassRow& entry = classes_.Row(row);
    if (entry.Divisions() == 0)
        return;
    if (entry.Order() == 0)
        entry.classOrder = QString::number(classes_.NextClassOrder());
    txtNoOfDivisions_Validate(row, text);
    boxes_->OpenNext();
}

QString frmMasClassSectionEntry::txtNoOfDivisions_Validate(int row, const QString&)
{
    classes_.Row(row).oldNoOfDivisions = classes_.Row(row).Divisions();
    ShowClasses();
    LoadOldDetails();
    return {};
}

void frmMasClassSectionEntry::txtClassOrder_Change(int row, const QString& text)
{
    classes_.Row(row).classOrder = text;
    ShowClasses();
}

void frmMasClassSectionEntry::txtClassOrder_Enter(int row, const QString& text)
{
    txtClassOrder_Validate(row, text);
    if (row == classes_.RowCount()) {
        if (classes_.IsFull()) {
            Prompts::Information(QStringLiteral("You Cannot Create More Than 99 Classes"));
            return;
        }
        classes_.AddRow();
        ShowClasses();
        deleteRow_->Refresh();
    }
    boxes_->OpenNext();
}

QString frmMasClassSectionEntry::txtClassOrder_Validate(int row, const QString&)
{
    classes_.ShiftClassOrders(row);
    ShowClasses();
    return {};
}

void frmMasClassSectionEntry::txtDivisionName_Change(int row, const QString& text)
{
    FlexGrid* grid = ui_->msgDivisionDetails;
    const int classCode = grid->TextMatrix(row, DivisionColumn::ClassCode).toInt();
    const QString name = text.trimmed();
    if (classes_.DivisionNameTaken(classCode, row, name, false))
        boxes_->Refuse(QStringLiteral("Division Name Already Exists"));
    grid->SetTextMatrix(row, DivisionColumn::DivisionName, name);
    classes_.NameDivision(classCode, row, name);
}

QString frmMasClassSectionEntry::txtDivisionName_Validate(int row, const QString& text)
{
    const int classCode = ui_->msgDivisionDetails->TextMatrix(row, DivisionColumn::ClassCode).toInt();
    return classes_.DivisionNameTaken(classCode, row, text.trimmed(), true)
               ? QStringLiteral("Division Name Already Exists")
               : QString();
}

void frmMasClassSectionEntry::SetEntering(bool entering)
{
    for (QWidget* widget : std::initializer_list<QWidget*>{ui_->fraClassDetails, ui_->fraDivisionDetails,
                                                           ui_->Frame1, ui_->cmdSave})
        widget->setEnabled(entering);
}

void frmMasClassSectionEntry::resizeEvent(QResizeEvent* event)
{
    Screen::resizeEvent(event);
    const int width = std::min(460, this->width() - 4 * LookUnit);
    const int height =
        std::max(ui_->fraAboutEntry->heightForWidth(width), ui_->fraAboutEntry->sizeHint().height());
    ui_->fraAboutEntry->setGeometry((this->width() - width) / 2, (this->height() - height) / 2, width,
                                    height);
}

QSize frmMasClassSectionEntry::sizeHint() const
{
    return {840, 720};
}

} // namespace tally
