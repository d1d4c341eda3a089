#include "core/ui/controls/ClosedGridKeys.h"

#include "core/ui/controls/FlexGrid.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>

namespace tally {

namespace {

/// How the key turns the rows when it is pressed on the control.
QAbstractSlider::SliderAction TurnOf(const QKeyEvent* key, const QWidget* control)
{
    const bool isButton = qobject_cast<const QAbstractButton*>(control) != nullptr;
    switch (key->key()) {
    case Qt::Key_PageUp: return QAbstractSlider::SliderPageStepSub;
    case Qt::Key_PageDown: return QAbstractSlider::SliderPageStepAdd;
    case Qt::Key_Up: return isButton ? QAbstractSlider::SliderSingleStepSub : QAbstractSlider::SliderNoAction;
    case Qt::Key_Down:
        return isButton ? QAbstractSlider::SliderSingleStepAdd : QAbstractSlider::SliderNoAction;
    default: return QAbstractSlider::SliderNoAction;
    }
}

} // namespace

ClosedGridKeys::ClosedGridKeys(FlexGrid* grid, QWidget* form) : QObject(form), grid_(grid), form_(form)
{
    // The keys reach a control before its form.
    qApp->installEventFilter(this);
}

bool ClosedGridKeys::eventFilter(QObject* receiver, QEvent* event)
{
    const auto* control = qobject_cast<QWidget*>(receiver);
    if (event->type() != QEvent::KeyPress || !control || !form_->isAncestorOf(control))
        return false;
    QScrollBar* bar = grid_->verticalScrollBar();
    if (grid_->isEnabled() || bar->maximum() == bar->minimum())
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const auto turn = TurnOf(key, control);
    if (turn == QAbstractSlider::SliderNoAction || key->modifiers() != Qt::NoModifier)
        return false;
    bar->triggerAction(turn);
    return true;
}

} // namespace tally
