#pragma once

#include <QString>

namespace tally {

/// What an entry field takes. Each filter gets a character's code and gives it back when the field takes it,
/// or 0, which drops the key. Backspace (8) and Enter (13) always pass.
using KeyFilter = int (*)(int keyCode);

int KeyNumeric(int keyCode);        ///< digits
int KeyNumericDecimal(int keyCode); ///< digits and "."
int KeyAlpha(int keyCode);          ///< letters, blank, "."
int KeyAlphaNumeric(int keyCode);   ///< letters, digits, blank, + , - . /
int KeyLetters(int keyCode);        ///< letters
int KeyAllButQuote(int keyCode); ///< everything but the quote, which no name in the office's records may hold

/// What a field with this filter takes, in words for a user whose key was dropped.
QString TakenSigns(KeyFilter filter);

} // namespace tally
