#include "core/KeyFilters.h"

#include <QStringList>

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

int KeyLetters(int keyCode)
{
    return IsLetter(keyCode) || IsControl(keyCode) ? keyCode : 0;
}

int KeyAllButQuote(int keyCode)
{
    return keyCode == '\'' ? 0 : keyCode;
}

QString TakenSigns(KeyFilter filter)
{
    constexpr int FirstSign = '!';
    constexpr int LastSign = '~';
    if (filter(FirstSign) != 0)
        return QStringLiteral("The Sign ' Cannot Be Entered Here");
    QStringList signs;
    for (int code = FirstSign; code <= LastSign; ++code) {
        if (!IsLetter(code) && !IsDigit(code) && filter(code) != 0)
            signs.append(QChar(code));
    }
    QStringList kinds;
    if (filter('A') != 0)
        kinds.append(QStringLiteral("Letters A To Z"));
    if (filter('0') != 0)
        kinds.append(QStringLiteral("Digits"));
    if (filter(' ') != 0)
        kinds.append(QStringLiteral("Blank"));
    if (!signs.isEmpty())
        kinds.append(signs.join(QLatin1Char(' ')));
    const QString last = kinds.takeLast();
    const QString before =
        kinds.isEmpty() ? QString() : kinds.join(QStringLiteral(", ")) + QStringLiteral(" And ");
    return QStringLiteral("Only %1%2 Can Be Entered Here").arg(before, last);
}

} // namespace tally
