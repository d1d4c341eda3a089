#pragma once

#include "core/KeyFilters.h"

#include <QObject>

class QLineEdit;

namespace tally {

/// The keys that mean the same on every form, whatever field has the focus: F1 opens the help at the form's
/// number, Enter goes to the next field (on a button it presses it), and the quote is swallowed, since no
/// name in the office's records may hold one.
class FormKeys : public QObject
{
    Q_OBJECT

public:
    /// Watches `form` for as long as it lives. `helpScreenNo` 0 leaves F1 alone.
    explicit FormKeys(QWidget* form, int helpScreenNo = 0);

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    QWidget* form_;
    int helpScreenNo_;
};

/// A list with this property set to true keeps the focus on Enter until something has been chosen in it.
inline constexpr const char* EnterNeedsText = "enterNeedsText";

/// A control with this property set to true does something of its own on Enter.
inline constexpr const char* TakesEnter = "takesEnter";

/// Lets `field` take only what `filter` lets through and at most `maxLength` characters. Pasted text loses
/// the characters that could not have been typed, and what listened to the field's textEdited before this
/// call then hears the cleaned text as well.
void TakeOnly(QLineEdit* field, KeyFilter filter, int maxLength);

} // namespace tally
