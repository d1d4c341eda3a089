#pragma once

#include <QList>
#include <QObject>

#include <functional>

class QFocusEvent;
class QWidget;

namespace tally {

/// Asks before the focus leaves an entry control for another one of its form, and brings it back on a
/// refusal. The control owns its guard and hands it every focus event that it gets.
class LeaveGuard : public QObject
{
    Q_OBJECT

public:
    explicit LeaveGuard(QWidget* control);

    /// Asked once for each leaving; false refuses it. Empty lets everything pass.
    void SetValidate(std::function<bool()> validate) { validate_ = std::move(validate); }
    /// Takes a focus-out event of the control. True when the focus has left with consent; false when it was
    /// refused, or when the user only looks at a menu, a list or another window and will be back.
    bool Leaves(const QFocusEvent* event);
    /// Runs what takes the focus away without asking.
    void Unasked(const std::function<void()>& work);
    /// True from a refusal until the focus is back: what a click or key wanted to start must not start.
    bool KeepsFocus() const { return keepsFocus_; }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    bool IsWithinForm() const;
    void KeepFocus();
    void TakeFocusBack();

    /// A field gets the keyboard back. The one that has had it meanwhile has not been left.
    inline static bool takingBack_ = false;

    QWidget* control_;
    std::function<bool()> validate_;
    bool asking_ = false;
    bool keepsFocus_ = false;
};

/// Guards an entry control that has no guard of its own for as long as it lives: `validate` is asked before
/// the focus leaves it for another control of its form, and false keeps it there. Those in `free` are reached
/// unasked: who gives up, or looks something up, must not be kept in a field that is not filled yet.
void AskBeforeLeaving(QWidget* field, std::function<bool()> validate, const QList<QWidget*>& free = {});

} // namespace tally
