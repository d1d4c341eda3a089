#include "utilities/InputOnlyTo.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>

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

} // namespace

InputOnlyTo::InputOnlyTo(QAbstractButton* button) : button_(button), before_(QApplication::focusWidget())
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
    // What comes for a window comes for the widget in it as well, and is looked at there.
    if (receiver == button_ || !receiver->isWidgetType() || !IsInput(event->type()))
        return QObject::eventFilter(receiver, event);
    return true;
}

} // namespace tally
