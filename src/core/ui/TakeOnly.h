#pragma once

#include "core/KeyFilters.h"

class QKeyEvent;
class QLineEdit;
class QString;
class QWidget;

namespace tally {

/// Lets `field`, which may be that of an editable list, take only what `filter` lets through and at most
/// `maxLength` characters. Text that is pasted or dropped loses the characters that could not have been
/// typed, and what listened to the field's textEdited before this call then hears the cleaned text as well. A
/// note at the field says which signs it takes when a key is dropped, and what was left out of a pasted text.
void TakeOnly(QLineEdit* field, KeyFilter filter, int maxLength);

/// Whether a field with this filter keeps all of `text`: signs that the filter takes, and those that the
/// program has filled the field with, such as the point of a stored figure where digits alone are typed.
bool KeepsText(const QLineEdit* field, const QString& text, KeyFilter filter);

/// Whether a field with this filter drops the key for the sign that it types.
bool IsDropped(const QKeyEvent* key, KeyFilter filter);

/// Says at the field that `widget` is, or that a list has, that the quote was dropped. Nothing happens where
/// nobody can type.
void TellDroppedQuote(QWidget* widget);

} // namespace tally
