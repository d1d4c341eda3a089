#include "core/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace tally {

namespace {

double PowerOfTen(int digits)
{
    static constexpr std::array<double, 16> Powers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                   1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    return Powers.at(static_cast<std::size_t>(digits));
}

/// Below it a number has decimals among the digits that people read, and its whole part is exact.
constexpr double LargestWhole = 1e15;
/// How many digits of a number are read; those behind them are noise of its binary form.
constexpr int SignificantDigits = 15;
/// No written number is longer: 15 digits with sign, point and exponent.
using Digits = std::array<char, 32>;

/// The digits of a number that has at most two decimals, both of them written.
QString TwoDecimals(double value)
{
    const auto hundredths = static_cast<qlonglong>(std::round(std::abs(value) * 100));
    QString digits = QString::number(hundredths).rightJustified(3, QLatin1Char('0'));
    digits.insert(digits.size() - 2, QLatin1Char('.'));
    return value < 0 && hundredths != 0 ? QLatin1Char('-') + digits : digits;
}

/// Decimal digits of `value`, the decimals exactly `digits` (0 or 2), or as many as needed for -1. A number
/// that is no mark or total any more is written with an exponent, which fits every column.
QString Decimal(double value, int digits)
{
    if (std::abs(value) < LargestWhole) {
        if (digits <= 0 && value == std::trunc(value))
            return QString::number(static_cast<qlonglong>(value));
        if (digits == 2)
            return TwoDecimals(value);
    }
    Digits text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general,
                                   SignificantDigits);
    return QString::fromLatin1(text.data(), end.ptr - text.data());
}

/// How many steps of `digits` decimals `size` has, a half counted up, taken from the digits that people read.
/// `size` is about half a step or more.
double StepsAsRead(double size, int digits)
{
    // "d.dddddddddddddde-XX": the first digit moves behind the point, and the digits are a whole number.
    Digits text{};
    char* const start = text.data() + 1;
    const char* const end = std::to_chars(text.data(), text.data() + text.size(), size,
                                          std::chars_format::scientific, SignificantDigits - 1)
                                .ptr;
    *start = text.front();
    qint64 read = 0;
    const char* const exponentSign = std::from_chars(start, start + SignificantDigits, read).ptr + 1;
    int exponent = 0;
    std::from_chars(*exponentSign == '+' ? exponentSign + 1 : exponentSign, end, exponent);

    const int surplus = SignificantDigits - 1 - exponent - digits;
    if (surplus <= 0)
        return static_cast<double>(read) * PowerOfTen(-surplus);
    const auto unit = static_cast<qint64>(PowerOfTen(surplus));
    const qint64 whole = read / unit;
    const bool up = read % unit * 2 >= unit;
    return static_cast<double>(up ? whole + 1 : whole);
}

/// The nearest number with `digits` decimals. A half is what people read as one: 2.675 is, although its
/// binary form lies a hair below.
double HalfAwayFromZero(double value, int digits)
{
    const double size = std::abs(value);
    if (!(size < LargestWhole))
        return value;
    const double scale = PowerOfTen(digits);
    const double scaled = size * scale;
    const double whole = std::floor(scaled);
    const double rest = scaled - whole;
    // What lies farther from a half than its last digit read can move it need not be read.
    constexpr double LastDigit = 1e-14;
    const bool plain = std::abs(rest - 0.5) > scaled * LastDigit;
    const double steps = plain ? whole + (rest > 0.5 ? 1 : 0) : StepsAsRead(size, digits);
    return std::copysign(steps / scale, value);
}

} // namespace

double Round(double value, int digits)
{
    if (!(std::abs(value) < LargestWhole))
        return value;
    const double scale = PowerOfTen(digits);
    return std::nearbyint(value * scale) / scale;
}

int ToWhole(double value)
{
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<double>(Round(value, 0), Limits::min(), Limits::max()));
}

QString Format0(double value)
{
    return Decimal(HalfAwayFromZero(value, 0) + 0.0, 0);
}

QString Format2(double value)
{
    return Decimal(AsFormat2(value) + 0.0, 2);
}

double AsFormat2(double value)
{
    return HalfAwayFromZero(value, 2);
}

void ExactSum::Add(double value)
{
    hundredths_ += std::round(value * 100);
}

double Val(const QString& text)
{
    std::array<char, 64> digits{};
    std::size_t length = 0;
    for (const QChar letter : text) {
        if (letter.isSpace())
            continue;
        const char latin = letter.toLatin1();
        const char before = length > 0 ? digits.at(length - 1) : 'e';
        const bool sign = (latin == '-' || latin == '+') && before == 'e';
        const bool exponent = latin == 'e' && length > 0;
        const bool numeric = (latin >= '0' && latin <= '9') || latin == '.' || sign || exponent;
        if (!numeric || length == digits.size())
            break;
        digits.at(length++) = latin;
    }
    const char* start = digits.data() + (length > 0 && digits[0] == '+' ? 1 : 0);
    double value = 0;
    std::from_chars(start, digits.data() + length, value);
    return value;
}

QString PlainNumber(double value)
{
    return Decimal(value + 0.0, -1);
}

int MarkDecimals(bool fractionMarks, bool roundedMarks)
{
    return fractionMarks && !roundedMarks ? 2 : 0;
}

QString FormatMark(double mark, int decimals)
{
    const double rounded = Round(mark, decimals);
    return decimals == 0 ? Format0(rounded) : Format2(rounded);
}

} // namespace tally
