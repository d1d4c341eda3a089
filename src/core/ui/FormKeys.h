#pragma once

#include <QObject>

class QKeyEvent;

namespace tally {

/// The keys that mean the same on every form, whatever field has the focus: F1 opens the help at the form's
/// number, Enter goes to the next field (on a button it presses it), and the quote is swallowed, since no
/// name in the office's records may hold one. Alt and an underlined letter press the button or lead to the
/// field that has it, at once; the letter of one that is switched off or hidden does nothing. While the form
/// is in front, its letters are its own before those of the menu bar, wherever the keyboard is.
class FormKeys : public QObject
{
    Q_OBJECT

public:
    /// Watches `form` for as long as it lives. `helpScreenNo` 0 leaves F1 alone.
    explicit FormKeys(QWidget* form, int helpScreenNo = 0);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    bool IsInFront() const;
    bool TakeLetter(QEvent* event);
    bool TakeKey(QWidget* widget, const QKeyEvent* key);
    void Reach(QWidget* target);

    QWidget* form_;
    int helpScreenNo_;
};

/// A list with this property set to true keeps the focus on Enter until something has been chosen in it.
inline constexpr const char* EnterNeedsText = "enterNeedsText";

/// A control with this property set to true does something of its own on Enter.
inline constexpr const char* TakesEnter = "takesEnter";

} // namespace tally
