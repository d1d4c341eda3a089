#include "core/KeyFilters.h"

#include <string_view>

namespace tally {

namespace {

constexpr int Backspace = 8;
constexpr int Enter = 13;

bool IsControl(int code)
{
    return code == Backspace || code == Enter;
}

bool IsDigit(int code)
{
    return code >= '0' && code <= '9';
}

bool IsLetter(int code)
{
    return (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
}

bool IsOneOf(int code, std::string_view signs)
{
    return code > 0 && code < 128 && signs.find(static_cast<char>(code)) != std::string_view::npos;
}

} // namespace

int KeyNumeric(int keyCode)
{
    return IsDigit(keyCode) || IsControl(keyCode) ? keyCode : 0;
}

int KeyNumericDecimal(int keyCode)
{
    return KeyNumeric(keyCode) != 0 || keyCode == '.' ? keyCode : 0;
}

int KeyAlpha(int keyCode)
{
    return IsLetter(keyCode) || IsControl(keyCode) || IsOneOf(keyCode, " .") ? keyCode : 0;
}

int KeyAlphaNumeric(int keyCode)
{
    return IsLetter(keyCode) || IsDigit(keyCode) || IsControl(keyCode) || IsOneOf(keyCode, " +,-./") ? keyCode
                                                                                                     : 0;
}

int KeyAllButQuote(int keyCode)
{
    return keyCode == '\'' ? 0 : keyCode;
}

} // namespace tally
