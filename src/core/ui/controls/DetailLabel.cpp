#include "core/ui/controls/DetailLabel.h"

#include "core/ui/look/Look.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace tally {

namespace {

constexpr int LeastLetters = 12;

} // namespace

DetailLabel::DetailLabel(QWidget* parent) : QLabel(parent)
{
    // The office's texts are no markup, whatever signs they hold.
    setTextFormat(Qt::PlainText);
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    setFont(bold);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void DetailLabel::SetLines(int lines)
{
    lines_ = lines;
    updateGeometry();
}

QSize DetailLabel::minimumSizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return {metrics.averageCharWidth() * LeastLetters, metrics.lineSpacing() * lines_};
}

QString DetailLabel::Fitting() const
{
    QStringList lines = text().split(QLatin1Char('\n')).mid(0, lines_);
    for (QString& line : lines)
        line = fontMetrics().elidedText(line, Qt::ElideRight, contentsRect().width());
    return lines.join(QLatin1Char('\n'));
}

bool DetailLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    if (Fitting() != text())
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), WrappedToolTip(text()), this);
    return true;
}

void DetailLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(),
                          Fitting(), foregroundRole());
}

} // namespace tally
