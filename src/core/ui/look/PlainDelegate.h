#pragma once

#include <QFont>
#include <QHash>
#include <QStaticText>
#include <QStyledItemDelegate>

class QTableView;

namespace tally {

/// Paints the texts of a grid straight from its model: background, mark, text and focus frame, and the
/// current row as a line along the whole grid. A list is painted at each step of a scroll, and asking the
/// style for every cell takes several times as long.
class PlainDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit PlainDelegate(QTableView* grid);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// What the text takes on one line.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void PaintText(QPainter* painter, const QRect& area, int alignment, const QString& text) const;
    /// The text laid out in the painter's font. The same few hundred marks come again and again.
    QStaticText LaidOut(const QFont& font, const QString& text) const;

    QTableView* grid_;
    mutable QHash<QString, QHash<QString, QStaticText>> laidOut_; ///< by font and text
};

} // namespace tally
