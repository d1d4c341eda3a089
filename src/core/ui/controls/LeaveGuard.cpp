#include "core/ui/controls/LeaveGuard.h"

#include <QApplication>
#include <QFocusEvent>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWidget>

namespace tally {

namespace {

/// The form that a control belongs to: its child window, or the window itself.
const QWidget* FormOf(const QWidget* control)
{
    while (!control->isWindow() && control->windowType() != Qt::SubWindow)
        control = control->parentWidget();
    return control;
}

} // namespace

LeaveGuard::LeaveGuard(QWidget* control) : QObject(control), control_(control) {}

bool LeaveGuard::Leaves(const QFocusEvent* event)
{
    const bool looksAway = event->reason() == Qt::ActiveWindowFocusReason ||
                           event->reason() == Qt::PopupFocusReason ||
                           event->reason() == Qt::MenuBarFocusReason;
    if (asking_ || looksAway || !IsWithinForm())
        return false;
    bool accepted = true;
    Unasked([&] { accepted = !validate_ || validate_(); });
    if (!accepted && control_->isVisible())
        KeepFocus();
    return accepted;
}

void LeaveGuard::Unasked(const std::function<void()>& work)
{
    const QScopedValueRollback asking(asking_, true);
    work();
}

bool LeaveGuard::IsWithinForm() const
{
    const QWidget* next = QApplication::focusWidget();
    return next && FormOf(control_)->isAncestorOf(next);
}

void LeaveGuard::KeepFocus()
{
    keepsFocus_ = true;
    control_->setFocus();
    // The click that was to take the focus away must not act on what it hits.
    qApp->installEventFilter(this);
    QTimer::singleShot(0, this, [this] {
        qApp->removeEventFilter(this);
        keepsFocus_ = false;
        if (control_->isVisible())
            control_->setFocus();
    });
}

bool LeaveGuard::eventFilter(QObject* receiver, QEvent* event)
{
    const bool mouse = event->type() == QEvent::MouseButtonPress ||
                       event->type() == QEvent::MouseButtonRelease ||
                       event->type() == QEvent::MouseButtonDblClick;
    return (keepsFocus_ && mouse) || QObject::eventFilter(receiver, event);
}

} // namespace tally
