#pragma once

#include "core/KeyFilters.h"

class QLineEdit;
class QWidget;

namespace tally {

/// Lets `field`, which may be that of an editable list, take only what `filter` lets through and at most
/// `maxLength` characters. Text that is pasted or dropped loses the characters that could not have been
/// typed, and what listened to the field's textEdited before this call then hears the cleaned text as well. A
/// note at the field says which signs it takes when a key is dropped, and what was left out of a pasted text.
void TakeOnly(QLineEdit* field, KeyFilter filter, int maxLength);

/// Says at the field that `widget` is, or that a list has, that the quote was dropped. Nothing happens where
/// nobody can type.
void TellDroppedQuote(QWidget* widget);

} // namespace tally
