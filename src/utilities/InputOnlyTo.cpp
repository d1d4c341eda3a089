#include "utilities/InputOnlyTo.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

namespace tally {

namespace {

bool IsInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::Drop:
    case QEvent::Close: return true;
    default: return false;
    }
}

/// Whether a key would lead the keyboard away from a button, to where nothing is heard.
bool MovesFocus(const QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    switch (static_cast<const QKeyEvent*>(event)->key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down: return true;
    default: return false;
    }
}

} // namespace

InputOnlyTo::InputOnlyTo(QAbstractButton* button) : button_(button), before_(button->window()->focusWidget())
{
    button_->setFocus();
    qApp->installEventFilter(this);
}

InputOnlyTo::~InputOnlyTo()
{
    qApp->removeEventFilter(this);
    if (before_ && before_->isEnabled())
        before_->setFocus();
}

bool InputOnlyTo::eventFilter(QObject* receiver, QEvent* event)
{
    // What comes for a window comes for the widget in it as well, and is looked at there. A box that comes
    // all the same must be answered, and lets nothing through to what lies behind it.
    if (!receiver->isWidgetType() || !IsInput(event->type()) || QApplication::activeModalWidget() ||
        (receiver == button_ && !MovesFocus(event)))
        return QObject::eventFilter(receiver, event);
    // A window that hears nothing against it goes.
    if (event->type() == QEvent::Close)
        event->ignore();
    return true;
}

} // namespace tally
