#pragma once

#include <QStyledItemDelegate>

namespace tally {

/// Paints the texts of a grid straight from its model: background, mark, text and focus frame. A list is
/// painted at each step of a scroll, and asking the style for every cell takes several times as long.
class PlainDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

} // namespace tally
