#include "core/ui/controls/CheckList.h"

#include <QEvent>
#include <QPainter>
#include <QSignalBlocker>

namespace tally {

namespace {

constexpr int CodeRole = Qt::UserRole;
constexpr int RefusalRole = Qt::UserRole + 1;

} // namespace

CheckList::CheckList(QWidget* parent) : QListWidget(parent)
{
    setUniformItemSizes(true);
    setSpacing(2);
    connect(this, &QListWidget::itemChanged, this,
            [this](QListWidgetItem* item) { Q_EMIT Ticked(row(item), item->checkState() == Qt::Checked); });
}

void CheckList::AddItem(const ListItem& item)
{
    const QSignalBlocker quiet(this);
    auto* entry = new QListWidgetItem(item.text, this);
    entry->setCheckState(Qt::Unchecked);
    entry->setData(CodeRole, item.code);
    entry->setData(RefusalRole, item.refusal);
}

int CheckList::ItemData(int index) const
{
    return item(index)->data(CodeRole).toInt();
}

QString CheckList::Refusal(int index) const
{
    return item(index)->data(RefusalRole).toString();
}

bool CheckList::IsTicked(int index) const
{
    return item(index)->checkState() == Qt::Checked;
}

void CheckList::SetTicked(int index, bool ticked)
{
    const QSignalBlocker quiet(this);
    item(index)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
}

void CheckList::SetAllTicked(bool ticked)
{
    for (int index = 0; index < count(); ++index)
        SetTicked(index, ticked && Refusal(index).isEmpty());
}

bool CheckList::AreAllTicked() const
{
    for (int index = 0; index < count(); ++index)
        if (!IsTicked(index) && Refusal(index).isEmpty())
            return false;
    return !TickedIndexes().isEmpty();
}

QList<int> CheckList::TickedIndexes() const
{
    QList<int> ticked;
    for (int index = 0; index < count(); ++index)
        if (IsTicked(index))
            ticked.append(index);
    return ticked;
}

std::vector<int> CheckList::TickedData() const
{
    std::vector<int> codes;
    for (const int index : TickedIndexes())
        codes.push_back(ItemData(index));
    return codes;
}

void CheckList::initViewItemOption(QStyleOptionViewItem* option) const
{
    QListWidget::initViewItemOption(option);
    if (hasFocus())
        return;
    // The strong paint is for the item that the keys would tick.
    option->palette.setBrush(QPalette::Highlight, palette().midlight());
    option->palette.setBrush(QPalette::HighlightedText, palette().text());
}

bool CheckList::event(QEvent* event)
{
    const bool handled = QListWidget::event(event);
    if (event->type() == QEvent::Paint) {
        // What no whole line fits into looks as the list does.
        const QRect lines = viewport()->geometry();
        QPainter(this).fillRect(lines.left(), lines.bottom() + 1, lines.width(), viewportMargins().bottom(),
                                palette().base());
    }
    return handled;
}

void CheckList::updateGeometries()
{
    if (count() > 1) {
        const int line = visualItemRect(item(1)).top() - visualItemRect(item(0)).top();
        const int room = viewport()->height() + viewportMargins().bottom();
        const int rest = room > line ? room % line : 0;
        if (rest != viewportMargins().bottom())
            setViewportMargins(0, 0, 0, rest);
    }
    QListWidget::updateGeometries();
}

void CheckList::focusInEvent(QFocusEvent* event)
{
    QListWidget::focusInEvent(event);
    // Coming in by Tab makes an item current, and it shows at once which one the blank key is meant for.
    if (currentItem())
        currentItem()->setSelected(true);
}

} // namespace tally
