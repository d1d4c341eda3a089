#include "core/controls/PlainDelegate.h"

#include <QPainter>

namespace tally {

namespace {

constexpr int Margin = 4;

} // namespace

void PlainDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const
{
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const QPalette::ColorGroup group =
        option.state.testFlag(QStyle::State_Enabled) ? QPalette::Active : QPalette::Disabled;
    const QVariant mark = index.data(Qt::BackgroundRole);
    const QVariant markText = index.data(Qt::ForegroundRole);

    // Rows alternate beneath; only what differs from them is filled.
    if (selected)
        painter->fillRect(option.rect, option.palette.color(group, QPalette::Highlight));
    else if (mark.isValid())
        painter->fillRect(option.rect, mark.value<QColor>());
    else if (option.features.testFlag(QStyleOptionViewItem::Alternate))
        painter->fillRect(option.rect, option.palette.color(group, QPalette::AlternateBase));

    const QString text = index.data(Qt::DisplayRole).toString();
    if (!text.isEmpty()) {
        QFont font = option.font;
        const QVariant ownFont = index.data(Qt::FontRole);
        if (ownFont.isValid())
            font = ownFont.value<QFont>().resolve(option.font);
        painter->setFont(font);
        painter->setPen(
            !selected && markText.isValid()
                ? markText.value<QColor>()
                : option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
        const QRect area = option.rect.adjusted(Margin, 0, -Margin, 0);
        const QFontMetrics metrics(font);
        const QString shown = metrics.horizontalAdvance(text) > area.width()
                                  ? metrics.elidedText(text, Qt::ElideRight, area.width())
                                  : text;
        painter->drawText(area, index.data(Qt::TextAlignmentRole).toInt() | Qt::TextSingleLine, shown);
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(option.palette.color(group, QPalette::Text));
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
}

} // namespace tally
