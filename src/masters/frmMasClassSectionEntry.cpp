#include "masters/frmMasClassSectionEntry.h"

#include "core/SessionContext.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/FloatingEditor.h"
#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"
#include "masters/ClassSectionColumns.h"
#include "masters/ClassSectionSave.h"
#include "store/StoreError.h"
#include "ui_frmMasClassSectionEntry.h"

#include <algorithm>
#include <utility>

namespace tally {

namespace {

constexpr int HelpScreenNo = 4;

/// Hidden numbers that stand for nothing show as nothing.
QString Shown(int number)
{
    return number == 0 ? QString() : QString::number(number);
}

void SetRow(FlexGrid* grid, int row, const QStringList& texts)
{
    for (int col = 0; col < texts.size(); ++col)
        grid->SetTextMatrix(row, col, texts.at(col));
}

void ShowEmpty(FlexGrid* grid, std::vector<GridColumn> columns)
{
    GridTable table(std::move(columns));
    table.AddRow();
    grid->Show(std::move(table));
    grid->setProperty(TakesEnter, true);
    grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

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
    ShowEmpty(ui_->msgClassDetails, {{QStringLiteral("S.No"), NumberAlignment},
                                     {.head = QStringLiteral("Class Name"), .stretched = true},
                                     {QStringLiteral("No. Of Divisions"), NumberAlignment},
                                     {QStringLiteral("Class Order"), NumberAlignment},
                                     {.head = QStringLiteral("OldNoofdivisions"), .hidden = true},
                                     {.head = QStringLiteral("OldDivision"), .hidden = true},
                                     {.head = QStringLiteral("Classcode"), .hidden = true}});
    ShowEmpty(ui_->msgDivisionDetails, {{QStringLiteral("Sl.No."), NumberAlignment},
                                        {.head = QStringLiteral("Division Name"), .stretched = true},
                                        {.head = QStringLiteral("ClassCode"), .hidden = true}});
}

void frmMasClassSectionEntry::BuildEditors()
{
    const auto make = [this](FlexGrid* grid, const char* name, KeyFilter filter, int maxLength) {
        auto* editor = new FloatingEditor(grid);
        editor->setObjectName(QString::fromLatin1(name));
        TakeOnly(editor, filter, maxLength);
        connect(editor, &FloatingEditor::TakenBack, this, &frmMasClassSectionEntry::TakeBack);
        return editor;
    };
    txtClassName_ = make(ui_->msgClassDetails, "txtClassName", &KeyAllButQuote, 4);
    txtNoOfDivisions_ = make(ui_->msgClassDetails, "txtNoOfDivisions", &KeyNumeric, 2);
    txtClassOrder_ = make(ui_->msgClassDetails, "txtClassOrder", &KeyNumeric, 2);
    txtDivisionName_ = make(ui_->msgDivisionDetails, "txtDivisionName", &KeyAllButQuote, 3);
    TakeOnly(ui_->txtDeleteSlNo, &KeyNumeric, 2);
    txtNoOfDivisions_->installEventFilter(this);
    txtClassOrder_->installEventFilter(this);

    QWidget* before = ui_->msgClassDetails;
    for (QWidget* next : std::initializer_list<QWidget*>{
             txtClassName_, txtNoOfDivisions_, txtClassOrder_, ui_->msgDivisionDetails, txtDivisionName_,
             ui_->txtDeleteSlNo, ui_->cmdDeleteRow, ui_->cmdNew}) {
        setTabOrder(before, next);
        before = next;
    }
}

void frmMasClassSectionEntry::ConnectHandlers()
{
    using Form = frmMasClassSectionEntry;
    connect(ui_->cmdClose, &QPushButton::clicked, this, &Form::cmdClose_Click);
    connect(ui_->cmdNew, &QPushButton::clicked, this, &Form::cmdNew_Click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, &Form::cmdEdit_Click);
    const auto onClick = [this](const QPushButton* button, void (Form::*handler)()) {
        connect(button, &QPushButton::clicked, this, [this, handler] {
            if (!IsRefused())
                (this->*handler)();
        });
    };
    onClick(ui_->cmdSave, &Form::cmdSave_Click);
    onClick(ui_->cmdCancel, &Form::cmdCancel_Click);
    onClick(ui_->cmdDeleteRow, &Form::cmdDeleteRow_Click);

    connect(ui_->msgClassDetails, &FlexGrid::CellClicked, this, &Form::msgClassDetails_Click);
    // The arrows choose a class as a click does; the boxes that go from row to row do not.
    connect(ui_->msgClassDetails->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        if (ui_->msgClassDetails->hasFocus())
            LoadOldDetails();
    });
    connect(ui_->msgDivisionDetails, &FlexGrid::CellClicked, this, &Form::msgDivisionDetails_Click);

    connect(txtClassName_, &FloatingEditor::Typed, this, &Form::txtClassName_Change);
    connect(txtClassName_, &FloatingEditor::EnterPressed, this, &Form::txtClassName_Enter);
    txtClassName_->SetValidate([this] { return txtClassName_Validate(); });
    connect(txtNoOfDivisions_, &FloatingEditor::Typed, this, &Form::txtNoOfDivisions_Change);
    connect(txtNoOfDivisions_, &FloatingEditor::EnterPressed, this, &Form::txtNoOfDivisions_Enter);
    connect(txtNoOfDivisions_, &FloatingEditor::Left, this, &Form::LoadOldDetails);
    txtNoOfDivisions_->SetValidate([this] { return txtNoOfDivisions_Validate(); });
    connect(txtClassOrder_, &FloatingEditor::Typed, this, &Form::txtClassOrder_Change);
    connect(txtClassOrder_, &FloatingEditor::EnterPressed, this, &Form::txtClassOrder_Enter);
    txtClassOrder_->SetValidate([this] { return txtClassOrder_Validate(); });
    connect(txtDivisionName_, &FloatingEditor::Typed, this, &Form::txtDivisionName_Change);
    connect(txtDivisionName_, &FloatingEditor::EnterPressed, this, &Form::txtDivisionName_Enter);
    txtDivisionName_->SetValidate([this] { return txtDivisionName_Validate(); });
    connect(ui_->txtDeleteSlNo, &QLineEdit::textChanged, this, &Form::txtDeleteSlNo_Change);
}

void frmMasClassSectionEntry::Form_Load()
{
    classes_.Clear();
    txtDeleteSlNo_Change();
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
    ui_->msgDivisionDetails->SetTextMatrix(1, DivisionCodeCol, QStringLiteral("1"));
    HideControls();
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
    OpenClass(ClassField::ClassName, 1);
}

void frmMasClassSectionEntry::cmdEdit_Click()
{
    if (!MayUse(Right::Edit))
        return;
    SetEntering(true);
    ui_->cmdEdit->setEnabled(false);
    editing_ = true;
    ui_->msgClassDetails->SetCurrentCell(1, ClassNameCol);
    LoadOldDetails();
    ui_->cmdSave->setFocus();
}

void frmMasClassSectionEntry::cmdSave_Click()
{
    HideControls();
    if (const auto fault = FindFault(classes_)) {
        Prompts::Information(fault->message);
        OpenClass(fault->field, fault->row);
        return;
    }
    QStringList kept;
    const auto tellKept = [&kept] {
        for (const QString& sentence : std::as_const(kept))
            Prompts::Information(sentence);
    };
    try {
        const int userCode = Session().gintUserCode;
        if (editing_)
            SaveEditedClasses(MainStore(), classes_, userCode, kept);
        else
            SaveNewClasses(MainStore(), classes_, userCode);
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
    HideControls();
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
    if (!IsRefused())
        Screen::cmdExit_Click();
}

void frmMasClassSectionEntry::cmdDeleteRow_Click()
{
    const int row = ui_->txtDeleteSlNo->text().toInt();
    if (!Prompts::Ask(QStringLiteral("Do You Want To Delete S.No. %1 ?").arg(row)))
        return;
    HideControls();
    classes_.DeleteRow(row);
    ShowClasses();
    LoadOldDetails();
    ui_->txtDeleteSlNo->clear();
    ui_->txtDeleteSlNo->setFocus();
}

void frmMasClassSectionEntry::txtDeleteSlNo_Change()
{
    const int row = ui_->txtDeleteSlNo->text().toInt();
    const bool mayDelete = IsEntering() && row >= 1 && row <= classes_.RowCount();
    ui_->cmdDeleteRow->setEnabled(mayDelete);
    // Enter leads to the button, and nowhere while there is nothing to delete.
    ui_->txtDeleteSlNo->setProperty(TakesEnter, !mayDelete);
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
    std::vector<ClassRecord> classes;
    std::vector<ClassDivision> divisions;
    {
        const store::ReadTransaction reading(MainStore());
        classes = repository.Classes();
        divisions = repository.Divisions();
    }
    const bool fits = classes_.Load(classes, divisions);
    ShowClasses();
    if (!fits) {
        Prompts::Information(QStringLiteral("You Cannot Create More Than 99 Classes"));
        return;
    }
    if (!classes.empty()) {
        ui_->cmdEdit->setEnabled(true);
        SetEntering(false);
        ui_->cmdNew->setEnabled(false);
        ui_->cmdEdit->setFocus();
    }
    ui_->msgDivisionDetails->SetRows(1);
}

void frmMasClassSectionEntry::LoadOldDetails()
{
    FlexGrid* grid = ui_->msgDivisionDetails;
    const int row = ui_->msgClassDetails->CurrentRow();
    const int classCode = row >= 1 && row <= classes_.RowCount() ? classes_.Row(row).classCode : 0;
    const std::vector<ClassDivision> divisions = classes_.DivisionsOf(classCode);
    grid->SetRows(static_cast<int>(divisions.size()) + 1);
    int next = 0;
    for (const ClassDivision& division : divisions)
        SetRow(grid, ++next,
               {QString::number(division.divisionCode), division.divisionName,
                QString::number(division.classCode)});
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
    FlexGrid* grid = ui_->msgClassDetails;
    grid->SetRows(classes_.RowCount() + 1);
    for (int row = 1; row <= classes_.RowCount(); ++row) {
        const ClassRow& entry = classes_.Row(row);
        SetRow(grid, row,
               {Shown(entry.serial), entry.className, entry.noOfDivisions, entry.classOrder,
                QString::number(entry.oldNoOfDivisions), QString::number(entry.oldDivision),
                Shown(entry.classCode)});
    }
}

bool frmMasClassSectionEntry::IsEntering() const
{
    return !ui_->cmdNew->isEnabled() && !ui_->cmdEdit->isEnabled();
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
