#include "core/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tally {

namespace {

double PowerOfTen(int digits)
{
    static constexpr std::array<double, 16> Powers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                   1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    return Powers.at(static_cast<std::size_t>(digits));
}

/// Numbers of this size and smaller are exact as whole numbers, whose digits come many times faster.
constexpr double LargestWhole = 1e15;

/// The digits of a number that has at most two decimals, both of them written.
QString TwoDecimals(double value)
{
    const auto hundredths = static_cast<qlonglong>(std::round(std::abs(value) * 100));
    QString digits = QString::number(hundredths).rightJustified(3, QLatin1Char('0'));
    digits.insert(digits.size() - 2, QLatin1Char('.'));
    return value < 0 && hundredths != 0 ? QLatin1Char('-') + digits : digits;
}

/// Decimal digits of `value`, the decimals exactly `digits`, or as many as 15 significant digits need for -1.
QString Decimal(double value, int digits)
{
    if (std::abs(value) < LargestWhole) {
        if (digits <= 0 && value == std::trunc(value))
            return QString::number(static_cast<qlonglong>(value));
        if (digits == 2)
            return TwoDecimals(value);
    }
    std::array<char, 400> text{};
    const auto format = digits < 0 ? std::chars_format::general : std::chars_format::fixed;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, format, digits < 0 ? 15 : digits);
    return QString::fromLatin1(text.data(), end.ptr - text.data());
}

/// The nearest number with `digits` decimals as people read it: 2.675 counts as a half although its binary
/// form lies a hair below.
double HalfAwayFromZero(double value, int digits)
{
    const double scale = PowerOfTen(digits);
    const double scaled = value * scale;
    const double nudged = std::nextafter(scaled, scaled < 0 ? -HUGE_VAL : HUGE_VAL);
    return std::round(nudged) / scale;
}

} // namespace

double Round(double value, int digits)
{
    const double scale = PowerOfTen(digits);
    return std::nearbyint(value * scale) / scale;
}

int ToWhole(double value)
{
    return static_cast<int>(std::nearbyint(value));
}

QString Format0(double value)
{
    return Decimal(HalfAwayFromZero(value, 0) + 0.0, 0);
}

QString Format2(double value)
{
    return Decimal(HalfAwayFromZero(value, 2) + 0.0, 2);
}

double Val(const QString& text)
{
    std::array<char, 64> digits{};
    std::size_t length = 0;
    for (const QChar letter : text) {
        if (letter.isSpace())
            continue;
        const char latin = letter.toLatin1();
        const bool numeric =
            (latin >= '0' && latin <= '9') || latin == '.' || ((latin == '-' || latin == '+') && length == 0);
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
