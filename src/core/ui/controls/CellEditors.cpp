#include "core/ui/controls/CellEditors.h"

#include "core/ui/controls/FlexGrid.h"
#include "core/ui/controls/FloatingCombo.h"
#include "core/ui/controls/FloatingEditor.h"
#include "core/ui/Prompts.h"
#include "core/ui/TakeOnly.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

namespace tally {

namespace {

bool IsTyping(const QKeyEvent* key)
{
    return !key->text().isEmpty() && key->key() != Qt::Key_Tab && key->key() != Qt::Key_Backtab &&
           key->key() != Qt::Key_Escape;
}

} // namespace

struct CellEditors::Entry
{
    CellBox* box;
    QWidget* control; ///< the same box
    QLineEdit* field; ///< what is typed into: the box, or a part of it
    CellColumn column;

    int Row() const { return box->Row(); }
};

CellEditors::CellEditors(QWidget* form) : QObject(form) {}

CellEditors::~CellEditors() = default;

void CellEditors::SetTakeBack(std::function<std::function<void()>(int row)> remember)
{
    remember_ = std::move(remember);
}

FloatingEditor* CellEditors::AddText(FlexGrid* grid, const CellColumn& column)
{
    auto* box = new FloatingEditor(grid);
    // Before its filter, which tells the cleaned text to whoever heard the uncleaned one.
    const Entry& entry = Add(grid, box, box, box, column);
    connect(box, &FloatingEditor::Typed, this, [this, &entry] { Typed(entry); });
    connect(box, &FloatingEditor::EnterPressed, this, [this, &entry] { Enter(entry); });
    connect(box, &FloatingEditor::TakenBack, this, [this, &entry] { TakeBack(entry); });
    box->SetValidate([this, &entry] { return MayLeave(entry); });
    return box;
}

FloatingCombo* CellEditors::AddList(FlexGrid* grid, const QStringList& texts, const CellColumn& column)
{
    auto* box = new FloatingCombo(grid);
    box->addItems(texts);
    const Entry& entry = Add(grid, box, box, box->lineEdit(), column);
    connect(box->lineEdit(), &QLineEdit::textEdited, this, [this, &entry] { Typed(entry); });
    connect(box, &DataCombo::Chosen, this, [this, &entry] { Typed(entry); });
    connect(box, &FloatingCombo::EnterPressed, this, [this, &entry] { Enter(entry); });
    connect(box, &FloatingCombo::TakenBack, this, [this, &entry] { TakeBack(entry); });
    box->SetValidate([this, &entry] { return MayLeave(entry); });
    return box;
}

CellEditors::Entry& CellEditors::Add(FlexGrid* grid, CellBox* box, QWidget* control, QLineEdit* field,
                                     const CellColumn& column)
{
    control->setObjectName(QString::fromLatin1(column.name));
    control->setAccessibleName(grid->TextMatrix(0, column.column));
    if (column.filter)
        TakeOnly(field, column.filter, column.maxLength);
    control->installEventFilter(this);
    QWidget* before = grid;
    for (const auto& entry : entries_)
        if (entry->box->Grid() == grid)
            before = entry->control;
    QWidget::setTabOrder(before, control);
    return *entries_.emplace_back(std::make_unique<Entry>(Entry{box, control, field, column}));
}

void CellEditors::Open(const FlexGrid* grid, int row, GridCol column)
{
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const auto& entry) {
        return entry->box->Grid() == grid && entry->column.column == column;
    });
    if (found != entries_.end() && row >= 1 && row < grid->Rows())
        Open(**found, row);
}

void CellEditors::Open(const Entry& entry, int row)
{
    Close();
    open_ = &entry;
    takeBack_ = remember_ ? remember_(row) : nullptr;
    entry.box->OpenAt(row, entry.column.column);
}

void CellEditors::OpenNext()
{
    if (!open_)
        return;
    const Entry* first = nullptr;
    const Entry* next = nullptr;
    for (const auto& entry : entries_) {
        if (entry->box->Grid() != open_->box->Grid())
            continue;
        const auto isBefore = [&entry](const Entry* other) {
            return !other || entry->column.column < other->column.column;
        };
        if (isBefore(first))
            first = entry.get();
        if (entry->column.column > open_->column.column && isBefore(next))
            next = entry.get();
    }
    if (next)
        Open(*next, open_->Row());
    else
        Open(*first, std::min(open_->Row() + 1, open_->box->Grid()->Rows() - 1));
}

void CellEditors::Close()
{
    for (const auto& entry : entries_)
        entry->box->Close();
}

void CellEditors::Typed(const Entry& entry)
{
    const QString text = entry.box->Text();
    const KeyFilter filter = entry.column.filter;
    if (entry.column.typed && (!filter || KeepsText(entry.field, text, filter)))
        entry.column.typed(entry.Row(), text);
}

void CellEditors::Enter(const Entry& entry)
{
    if (entry.column.enter)
        entry.column.enter(entry.Row(), entry.box->Text());
    else
        OpenNext();
}

void CellEditors::TakeBack(const Entry& entry)
{
    if (&entry == open_ && takeBack_)
        takeBack_();
}

bool CellEditors::MayLeave()
{
    return !open_ || MayLeave(*open_);
}

bool CellEditors::MayLeave(const Entry& entry)
{
    const QString reason =
        entry.column.leave ? entry.column.leave(entry.Row(), entry.box->Text()) : QString();
    if (reason.isEmpty())
        return true;
    Prompts::Information(reason);
    entry.box->SelectText();
    return false;
}

void CellEditors::Refuse(const QString& reason)
{
    Prompts::Information(reason);
    open_->box->SelectText();
    open_->control->setFocus();
}

bool CellEditors::KeepsFocus() const
{
    return std::any_of(entries_.begin(), entries_.end(),
                       [](const auto& entry) { return entry->box->KeepsFocus(); });
}

bool CellEditors::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && IsTyping(static_cast<QKeyEvent*>(event)))
        for (const auto& entry : entries_)
            if (entry->control == receiver && entry->column.mayType)
                return !entry->column.mayType(entry->Row());
    return QObject::eventFilter(receiver, event);
}

} // namespace tally
