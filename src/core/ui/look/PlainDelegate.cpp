#include "core/ui/look/PlainDelegate.h"

#include <QPainter>
#include <QTableView>

namespace tally {

namespace {

constexpr int Margin = 4;
/// How much of the accent lies over the ground of the current row, in hundredths.
constexpr int LineShade = 22;

QColor Mixed(const QColor& ground, const QColor& over)
{
    const auto mix = [](int below, int above) {
        return (below * (100 - LineShade) + above * LineShade) / 100;
    };
    return {mix(ground.red(), over.red()), mix(ground.green(), over.green()),
            mix(ground.blue(), over.blue())};
}

} // namespace

PlainDelegate::PlainDelegate(QTableView* grid) : QStyledItemDelegate(grid), grid_(grid)
{
    // The view itself paints only the two cells anew.
    connect(grid->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [grid](const QModelIndex& current, const QModelIndex& previous) {
                for (const QModelIndex& index : {current, previous})
                    grid->viewport()->update(0, grid->rowViewportPosition(index.row()),
                                             grid->viewport()->width(), grid->rowHeight(index.row()));
            });
}

void PlainDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const
{
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const QPalette::ColorGroup group =
        option.state.testFlag(QStyle::State_Enabled) ? QPalette::Active : QPalette::Disabled;
    const QVariant mark = index.data(Qt::BackgroundRole);
    const QVariant markText = index.data(Qt::ForegroundRole);
    const QColor accent = option.palette.color(group, QPalette::Highlight);
    const bool onCurrentRow = grid_->currentIndex().row() == index.row();

    // Rows alternate beneath; only what differs from them is filled. A mark is more than a selection and
    // keeps its paint.
    if (mark.isValid())
        painter->fillRect(option.rect, mark.value<QColor>());
    else if (selected)
        painter->fillRect(option.rect, accent);
    else if (onCurrentRow)
        painter->fillRect(option.rect, Mixed(option.palette.color(group, QPalette::Base), accent));
    else if (option.features.testFlag(QStyleOptionViewItem::Alternate))
        painter->fillRect(option.rect, option.palette.color(group, QPalette::AlternateBase));

    const QString text = index.data(Qt::DisplayRole).toString();
    if (!text.isEmpty()) {
        QFont font = option.font;
        const QVariant ownFont = index.data(Qt::FontRole);
        if (ownFont.isValid())
            font = ownFont.value<QFont>().resolve(option.font);
        painter->setFont(font);
        painter->setPen(markText.isValid() ? markText.value<QColor>()
                                           : option.palette.color(group, selected ? QPalette::HighlightedText
                                                                                  : QPalette::Text));
        PaintText(painter, option.rect.adjusted(Margin, 0, -Margin, 0),
                  index.data(Qt::TextAlignmentRole).toInt(), text);
    }
    const QColor edge = markText.isValid() ? markText.value<QColor>() : accent;
    if (onCurrentRow) {
        painter->setPen(edge);
        painter->drawLine(option.rect.topLeft(), option.rect.topRight());
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    }
    if (selected && mark.isValid()) {
        painter->setPen(edge);
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
        painter->drawRect(option.rect.adjusted(1, 1, -2, -2));
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(option.palette.color(group, QPalette::Text));
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
}

QSize PlainDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QString text = index.data(Qt::DisplayRole).toString();
    return {option.fontMetrics.horizontalAdvance(text) + 2 * Margin, option.fontMetrics.height()};
}

void PlainDelegate::PaintText(QPainter* painter, const QRect& area, int alignment, const QString& text) const
{
    const QStaticText laidOut = LaidOut(painter->font(), text);
    const QSizeF size = laidOut.size();
    if (size.width() > area.width()) {
        painter->drawText(area, alignment | Qt::TextSingleLine,
                          painter->fontMetrics().elidedText(text, Qt::ElideRight, area.width()));
        return;
    }
    double left = 0;
    if ((alignment & Qt::AlignRight) != 0)
        left = area.width() - size.width();
    else if ((alignment & Qt::AlignHCenter) != 0)
        left = (area.width() - size.width()) / 2;
    painter->drawStaticText(QPointF(area.left() + left, area.top() + (area.height() - size.height()) / 2),
                            laidOut);
}

QStaticText PlainDelegate::LaidOut(const QFont& font, const QString& text) const
{
    constexpr qsizetype MostTexts = 4096;
    QHash<QString, QStaticText>& texts = laidOut_[font.key()];
    const auto found = texts.constFind(text);
    if (found != texts.constEnd())
        return *found;
    if (texts.size() >= MostTexts)
        texts.clear();
    QStaticText laidOut(text);
    laidOut.setTextFormat(Qt::PlainText);
    laidOut.prepare(QTransform(), font);
    return *texts.insert(text, laidOut);
}

} // namespace tally
