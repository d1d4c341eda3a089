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

/// Hands a field's focus events to a guard, which belongs to the field.
class FieldGuard : public QObject
{
public:
    FieldGuard(QWidget* field, std::function<bool()> validate, const QList<QWidget*>& free)
        : QObject(field), guard_(field), free_(free)
    {
        guard_.SetValidate(std::move(validate));
        field->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() != QEvent::FocusOut)
            return QObject::eventFilter(receiver, event);
        // The field ends its own work first: what has been typed into it counts when the guard asks.
        receiver->event(event);
        if (!free_.contains(QApplication::focusWidget()))
            guard_.Leaves(static_cast<QFocusEvent*>(event));
        return true;
    }

private:
    LeaveGuard guard_;
    QList<QWidget*> free_;
};

} // namespace

LeaveGuard::LeaveGuard(QWidget* control) : QObject(control), control_(control) {}

bool LeaveGuard::Leaves(const QFocusEvent* event)
{
    const bool looksAway = event->reason() == Qt::ActiveWindowFocusReason ||
                           event->reason() == Qt::PopupFocusReason ||
                           event->reason() == Qt::MenuBarFocusReason;
    if (asking_ || takingBack_ || looksAway || !IsWithinForm())
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
    TakeFocusBack();
    // The click that was to take the focus away must not act on what it hits.
    qApp->installEventFilter(this);
    QTimer::singleShot(0, this, [this] {
        qApp->removeEventFilter(this);
        keepsFocus_ = false;
        if (control_->isVisible())
            TakeFocusBack();
    });
}

void LeaveGuard::TakeFocusBack()
{
    const QScopedValueRollback takingBack(takingBack_, true);
    control_->setFocus();
}

bool LeaveGuard::eventFilter(QObject* receiver, QEvent* event)
{
    const bool mouse = event->type() == QEvent::MouseButtonPress ||
                       event->type() == QEvent::MouseButtonRelease ||
                       event->type() == QEvent::MouseButtonDblClick;
    return mouse || QObject::eventFilter(receiver, event);
}

void AskBeforeLeaving(QWidget* field, std::function<bool()> validate, const QList<QWidget*>& free)
{
    new FieldGuard(field, std::move(validate), free);
}

} // namespace tally
