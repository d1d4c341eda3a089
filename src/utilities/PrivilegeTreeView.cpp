#include "utilities/PrivilegeTreeView.h"

#include "utilities/PrivilegeTree.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>

namespace tally {

namespace {

constexpr int NumberRole = Qt::UserRole;

} // namespace

PrivilegeTreeView::PrivilegeTreeView(QWidget* parent) : QTreeWidget(parent)
{
    header()->hide();
    // No caption is cut: two of them may differ in their last word only.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setUniformRowHeights(true);
    DisplayTreeView();
    connect(this, &QTreeWidget::itemChanged, this, &PrivilegeTreeView::NodeCheck);
}

void PrivilegeTreeView::DisplayTreeView()
{
    int number = 0;
    for (const PrivilegeNode& node : PrivilegeNodes()) {
        QTreeWidgetItem* const above =
            node.parent > 0 ? items_.at(static_cast<std::size_t>(node.parent) - 1) : invisibleRootItem();
        auto* item = new QTreeWidgetItem(above, {node.caption});
        item->setData(0, NumberRole, ++number);
        item->setCheckState(0, Qt::Unchecked);
        items_.push_back(item);
    }
    // The screens are seen at once; their rights open below them.
    expandToDepth(0);
    setCurrentItem(items_.front());
}

std::set<int> PrivilegeTreeView::Checked() const
{
    std::set<int> lines;
    for (const QTreeWidgetItem* item : items_)
        if (item->checkState(0) == Qt::Checked)
            lines.insert(item->data(0, NumberRole).toInt());
    return lines;
}

void PrivilegeTreeView::SetChecked(const std::set<int>& lines)
{
    const QSignalBlocker quiet(this);
    for (QTreeWidgetItem* item : items_)
        item->setCheckState(0,
                            lines.contains(item->data(0, NumberRole).toInt()) ? Qt::Checked : Qt::Unchecked);
}

void PrivilegeTreeView::SetClosed(bool closed)
{
    closed_ = closed;
    const QSignalBlocker quiet(this);
    for (QTreeWidgetItem* item : items_)
        item->setFlags(item->flags().setFlag(Qt::ItemIsUserCheckable, !closed));
    viewport()->update();
}

void PrivilegeTreeView::NodeCheck(const QTreeWidgetItem* node)
{
    const QSignalBlocker quiet(this);
    for (const int below : PrivilegeLinesBelow(node->data(0, NumberRole).toInt()))
        items_.at(static_cast<std::size_t>(below) - 1)->setCheckState(0, node->checkState(0));
    // Nobody has told the view of them.
    viewport()->update();
}

QSize PrivilegeTreeView::sizeHint() const
{
    const QSize usual = QTreeWidget::sizeHint();
    const int beside = verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    return {std::max(usual.width(), sizeHintForColumn(0) + beside), usual.height()};
}

void PrivilegeTreeView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const
{
    QStyleOptionViewItem row(option);
    // What cannot be ticked looks so, as the fields beside it do; the line in hand could not be read so.
    if (closed_ && !selectionModel()->isSelected(index))
        row.state.setFlag(QStyle::State_Enabled, false);
    QTreeWidget::drawRow(painter, row, index);
}

} // namespace tally
