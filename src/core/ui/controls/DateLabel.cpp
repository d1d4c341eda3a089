#include "core/ui/controls/DateLabel.h"

#include "core/modTallyboard.h"
#include "core/ui/Prompts.h"

#include <QKeyEvent>
#include <QPainter>

namespace tally {

namespace {

constexpr QColor Awaiting{255, 255, 174};

} // namespace

DateLabel::DateLabel(QWidget* parent) : QLabel(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::StyledPanel);
    setAlignment(Qt::AlignCenter);
    setAutoFillBackground(true);
    setToolTip(QStringLiteral("The date chosen. Click to clear it."));
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("28/May/2008")) +
                    2 * fontMetrics().averageCharWidth());
    SetAwaiting(false);
    SetDate({});
}

QDate DateLabel::Date() const
{
    return DateShown(text());
}

void DateLabel::SetDate(const QDate& date)
{
    setText(ShownDate(date));
    // A label is called by its text, and this one takes the keyboard without one too.
    setAccessibleName(date.isValid() ? QStringLiteral("Date chosen: ") + text()
                                     : QStringLiteral("No date chosen"));
}

void DateLabel::SetAwaiting(bool awaiting)
{
    QPalette colors;
    if (awaiting) {
        colors.setColor(QPalette::Base, Awaiting);
        // The yellow is pale in the dark look too, where texts are.
        colors.setColor(QPalette::Text, Qt::black);
    }
    setPalette(colors);
    setBackgroundRole(QPalette::Base);
    setForegroundRole(QPalette::Text);
}

void DateLabel::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    Click();
}

void DateLabel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space)
        Click();
    else
        QLabel::keyPressEvent(event);
}

void DateLabel::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    constexpr int Width = 2;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), Width));
    painter.drawRect(rect().adjusted(Width / 2, Width / 2, -Width / 2, -Width / 2));
}

void DateLabel::Click()
{
    if (text().isEmpty() || !Prompts::Ask(QStringLiteral("Do You Want To Clear This Date ?")))
        return;
    SetDate({});
    Q_EMIT Cleared();
}

} // namespace tally
