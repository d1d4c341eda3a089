#include "masters/frmSimpleMaster.h"

#include "core/SessionContext.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/Prompts.h"
#include "core/ui/SideButton.h"
#include "core/ui/TakeOnly.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace tally {

namespace {

constexpr int LeastRowsShown = 8;
constexpr int RowsShown = 20;
constexpr int LeastWidth = 480;
constexpr int WidestField = 420;

QString Words(const char* text)
{
    return QString::fromLatin1(text);
}

QLabel* LabelFor(QWidget* field, const char* text)
{
    auto* label = new QLabel(Words(text));
    label->setBuddy(field);
    return label;
}

/// The field at the left of a row, as wide as its text may need; the rest of the row stays empty.
QBoxLayout* AtLeft(QWidget* field)
{
    field->setMaximumWidth(WidestField);
    auto* row = new QHBoxLayout;
    row->addWidget(field, 1);
    row->addStretch();
    return row;
}

QLineEdit* Box(const char* name, KeyFilter filter, int maxLength)
{
    auto* box = new QLineEdit;
    box->setObjectName(Words(name));
    TakeOnly(box, filter, maxLength);
    return box;
}

} // namespace

frmSimpleMaster::frmSimpleMaster(const SimpleMasterDefinition& definition)
    : MasterScreen(Words(definition.formName), definition.helpScreenNo), definition_(definition)
{
    setWindowTitle(Words(definition.caption));
    BuildControls();
    LoadLists(0);
    // Whole rows under their head, which has a height only now that it has columns.
    dgdDetails_->setMinimumHeight(LeastRowsShown * dgdDetails_->verticalHeader()->defaultSectionSize() +
                                  dgdDetails_->horizontalHeader()->sizeHint().height() +
                                  2 * dgdDetails_->frameWidth());
}

void frmSimpleMaster::BuildControls()
{
    dgdDetails_ = new DataGrid;
    dgdDetails_->setObjectName(QStringLiteral("dgdDetails"));
    dgdDetails_->setAccessibleName(windowTitle());

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(2 * LookUnit, 2 * LookUnit, 2 * LookUnit, 2 * LookUnit);
    rows->setSpacing(LookUnit);
    // Made from top to bottom, which is the order of Tab as well.
    rows->addWidget(BuildSearch());
    rows->addWidget(dgdDetails_, 1);
    rows->addWidget(BuildEntry());
    rows->addWidget(BuildButtons());
    setMinimumWidth(LeastWidth);
    DressButtons(this);

    connect(txtSearch_, &QLineEdit::textChanged, this, &frmSimpleMaster::LoadGrid);
    connect(dgdDetails_, &DataGrid::RowEntered, this, &frmSimpleMaster::SelectRow);
    connect(dgdDetails_, &DataGrid::RowDoubleClicked, this, &frmSimpleMaster::SelectRow);
}

QWidget* frmSimpleMaster::BuildSearch()
{
    const SimpleMasterField& name = definition_.fields.front();
    txtSearch_ = Box(definition_.searchControl, name.filter, name.maxLength);
    auto* frame = new QGroupBox(QStringLiteral("Search"));
    auto* row = new QHBoxLayout(frame);
    row->addWidget(LabelFor(txtSearch_, definition_.searchLabel));
    row->addLayout(AtLeft(txtSearch_), 1);
    return frame;
}

QWidget* frmSimpleMaster::BuildEntry()
{
    Frame1_ = new QGroupBox(QStringLiteral("Details"));
    Frame1_->setObjectName(QStringLiteral("Frame1"));
    auto* grid = new QGridLayout(Frame1_);
    grid->setColumnStretch(1, 1);
    int row = 0;
    if (const auto& parent = definition_.parent) {
        dbcParent_ = new DataCombo;
        dbcParent_->setObjectName(Words(parent->control));
        auto* cmdAdd = new QPushButton(Words(parent->addCaption));
        cmdAdd->setObjectName(Words(parent->addControl));
        new SideButton(this, cmdAdd, dbcParent_, Words(parent->addForm), [this] { LoadLists(0); });
        grid->addWidget(LabelFor(dbcParent_, parent->label), row, 0);
        QBoxLayout* choice = AtLeft(dbcParent_);
        choice->insertWidget(1, cmdAdd);
        grid->addLayout(choice, row++, 1);
        connect(dbcParent_, &DataCombo::Chosen, this, &frmSimpleMaster::LoadGrid);
    }
    for (const SimpleMasterField& field : definition_.fields) {
        boxes_.push_back(Box(field.control, field.filter, field.maxLength));
        grid->addWidget(LabelFor(boxes_.back(), field.label), row, 0);
        grid->addLayout(AtLeft(boxes_.back()), row++, 1);
    }
    if (*definition_.note != '\0') {
        auto* note = new QLabel(Words(definition_.note));
        note->setObjectName(QStringLiteral("lblNote"));
        note->setWordWrap(true);
        grid->addWidget(note, row, 0, 1, 2);
    }
    return Frame1_;
}

QWidget* frmSimpleMaster::BuildButtons()
{
    auto* frame = new QWidget;
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(LookUnit);
    row->addStretch();
    const auto add = [row](const char* name, const char* caption) {
        auto* button = new QPushButton(Words(caption));
        button->setObjectName(Words(name));
        row->addWidget(button);
        return button;
    };
    cmdNew_ = add("cmdNew", "&New");
    cmdEdit_ = add("cmdEdit", "&Edit");
    auto* cmdDelete = add("cmdDelete", "&Delete");
    cmdSave_ = add("cmdSave", "&Save");
    auto* cmdCancel = add("cmdCancel", "&Cancel");
    auto* cmdExit = add("cmdExit", "E&xit");
    SetMasterControls({Frame1_, cmdNew_, cmdEdit_, cmdDelete, cmdSave_});
    SetExitButton(cmdExit);
    connect(cmdNew_, &QPushButton::clicked, this, &frmSimpleMaster::cmdNew_Click);
    connect(cmdEdit_, &QPushButton::clicked, this, &frmSimpleMaster::cmdEdit_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &frmSimpleMaster::cmdDelete_Click);
    connect(cmdSave_, &QPushButton::clicked, this, &frmSimpleMaster::cmdSave_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmSimpleMaster::cmdCancel_Click);
    return frame;
}

QSize frmSimpleMaster::sizeHint() const
{
    const int more = (RowsShown - LeastRowsShown) * dgdDetails_->verticalHeader()->defaultSectionSize();
    return Screen::sizeHint() + QSize(0, more);
}

void frmSimpleMaster::RefillLists()
{
    LoadLists(ParentCode());
}

void frmSimpleMaster::LoadLists(int parentCode)
{
    Read([&] {
        const store::ReadTransaction moment(MainStore());
        if (dbcParent_) {
            dbcParent_->SetList(Repository().Parents());
            dbcParent_->SetBoundCode(parentCode);
        }
        ShowRows();
    });
}

void frmSimpleMaster::LoadGrid()
{
    Read([this] { ShowRows(); });
}

void frmSimpleMaster::ShowRows()
{
    QStringList hidden{Words(definition_.codeColumn)};
    if (definition_.parent)
        hidden.append(Words(definition_.parent->gridColumn));
    dgdDetails_->Bind(Repository().Rows(txtSearch_->text().trimmed(), ParentCode()), hidden);
}

int frmSimpleMaster::ParentCode() const
{
    return dbcParent_ ? dbcParent_->BoundCode() : 0;
}

void frmSimpleMaster::SelectRow(int row)
{
    const int code = dgdDetails_->Code(row, Words(definition_.codeColumn));
    const QString name = dgdDetails_->Text(row, Words(definition_.fields.front().gridColumn));
    const bool selectable = definition_.selectable == SimpleMasterDefinition::Selectable::CodeAboveZero
                                ? code > 0
                                : !name.trimmed().isEmpty();
    if (!selectable || !Prompts::Ask(Words(definition_.selectQuestion)))
        return;
    code_ = code;
    heldName_ = name;
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        boxes_[i]->setText(dgdDetails_->Text(row, Words(definition_.fields[i].gridColumn)));
    ShowState(MasterState::RowSelected);
    cmdEdit_->setFocus();
    if (dbcParent_) {
        const int parentCode = dgdDetails_->Code(row, Words(definition_.parent->gridColumn));
        dbcParent_->SetBoundCode(parentCode);
        // Another client may have added the parent since the list was read.
        LoadLists(parentCode);
    }
}

void frmSimpleMaster::cmdNew_Click()
{
    if (!MayUse(Right::New))
        return;
    ShowState(MasterState::New);
    txtSearch_->clear();
    QWidget* const firstField = dbcParent_ ? static_cast<QWidget*>(dbcParent_) : boxes_.front();
    firstField->setFocus();
}

void frmSimpleMaster::cmdEdit_Click()
{
    if (!MayUse(Right::Edit))
        return;
    ShowState(MasterState::Editing);
    cmdSave_->setFocus();
}

void frmSimpleMaster::cmdDelete_Click()
{
    if (!MayUse(Right::Delete) || !Prompts::Ask(Words(definition_.deleteQuestion)))
        return;
    DeleteRow([this](store::Transaction& transaction) { Repository().Delete(transaction, code_); });
}

void frmSimpleMaster::cmdSave_Click()
{
    if (!IsComplete())
        return;
    const SimpleMasterEntry entry = Entry();
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        if (definition_.fields[i].kind == SimpleMasterField::Kind::WithoutBlanks)
            boxes_[i]->setText(entry.values[static_cast<qsizetype>(i)]);
    if (IsDuplicate(entry))
        return;
    SaveRow(
        [&](store::Transaction& transaction) {
            const int userCode = Session().gintUserCode;
            if (IsEditing())
                Repository().Update(transaction, entry, userCode);
            else
                Repository().Insert(transaction, entry, userCode);
        },
        OnRefusal::Refill);
}

void frmSimpleMaster::cmdCancel_Click()
{
    {
        // The grid is loaded once, below.
        const QSignalBlocker quiet(txtSearch_);
        ClearControls(this);
    }
    code_ = 0;
    heldName_.clear();
    LoadLists(0);
    ShowState(MasterState::Idle);
    cmdNew_->setFocus();
}

bool frmSimpleMaster::IsComplete()
{
    if (dbcParent_ && dbcParent_->IsBlank())
        return Refuse(Words(definition_.parent->emptyMessage), dbcParent_);
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        if (!RequireText(Words(definition_.fields[i].emptyMessage), boxes_[i]))
            return false;
    return true;
}

bool frmSimpleMaster::IsDuplicate(const SimpleMasterEntry& entry)
{
    const auto duplicate = Fetch([&] { return Repository().Duplicate(entry); });
    if (!duplicate)
        return true;
    if (!*duplicate)
        return false;
    return !Refuse(Words((*duplicate)->message), boxes_[(*duplicate)->field]);
}

SimpleMasterEntry frmSimpleMaster::Entry() const
{
    SimpleMasterEntry entry;
    entry.code = code_;
    entry.parentCode = ParentCode();
    entry.heldName = heldName_;
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        QString value = boxes_[i]->text().trimmed();
        if (definition_.fields[i].kind == SimpleMasterField::Kind::WithoutBlanks)
            value.remove(QLatin1Char(' '));
        entry.values.append(value);
    }
    return entry;
}

SimpleMasterRepository frmSimpleMaster::Repository() const
{
    return {MainStore(), definition_};
}

} // namespace tally
