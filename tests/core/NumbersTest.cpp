#include "core/Numbers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace tally {
namespace {

/// `over` / `under` rounded to a whole number, a half up, in whole numbers only.
std::int64_t Quotient(std::int64_t over, std::int64_t under)
{
    return over / under + (over % under * 2 >= under ? 1 : 0);
}

QString Hundredths(std::int64_t count)
{
    return QStringLiteral("%1.%2").arg(count / 100).arg(count % 100, 2, 10, QLatin1Char('0'));
}

/// Marks with two decimals, added up one after the other as the program does.
class RandomMarks
{
public:
    /// The sum of `count` marks, and the same in hundredths.
    std::pair<double, std::int64_t> Sum(int count)
    {
        std::pair<double, std::int64_t> sums;
        for (int mark = 0; mark < count; ++mark) {
            const std::int64_t hundredths = Up(0, 10000);
            sums.first += static_cast<double>(hundredths) / 100;
            sums.second += hundredths;
        }
        return sums;
    }

    std::int64_t Up(std::int64_t low, std::int64_t high)
    {
        return std::uniform_int_distribution<std::int64_t>(low, high)(random_);
    }

private:
    std::mt19937 random_{20260711};
};

TEST(NumbersTest, RoundPutsAHalfToTheEvenNeighbour)
{
    EXPECT_DOUBLE_EQ(Round(0.5, 0), 0);
    EXPECT_DOUBLE_EQ(Round(1.5, 0), 2);
    EXPECT_DOUBLE_EQ(Round(2.5, 0), 2);
    EXPECT_DOUBLE_EQ(Round(-2.5, 0), -2);
    EXPECT_DOUBLE_EQ(Round(0.125, 2), 0.12);
    EXPECT_DOUBLE_EQ(Round(0.375, 2), 0.38);
    EXPECT_DOUBLE_EQ(Round(66.6666, 2), 66.67);
    EXPECT_DOUBLE_EQ(Round(-1.256, 2), -1.26);
}

TEST(NumbersTest, RoundTakesANumberAsItIsComputed)
{
    EXPECT_DOUBLE_EQ(Round(109.0 / 200 * 100, 0), 55) << "54.50000000000001";
    EXPECT_DOUBLE_EQ(Round(0.0049, 2), 0);
}

TEST(NumbersTest, ToWholePutsAHalfToTheEvenNeighbour)
{
    EXPECT_EQ(ToWhole(34.5), 34);
    EXPECT_EQ(ToWhole(35.5), 36);
    EXPECT_EQ(ToWhole(35.51), 36);
    EXPECT_EQ(ToWhole(-0.5), 0);
}

TEST(NumbersTest, FormatsPutAHalfAwayFromZero)
{
    EXPECT_EQ(Format0(34.5).toStdString(), "35");
    EXPECT_EQ(Format0(0).toStdString(), "0");
    EXPECT_EQ(Format0(-1.5).toStdString(), "-2");
    EXPECT_EQ(Format2(0.125).toStdString(), "0.13");
    EXPECT_EQ(Format2(3).toStdString(), "3.00");
    EXPECT_EQ(Format2(66.664).toStdString(), "66.66");
    EXPECT_EQ(Format2(1e-30).toStdString(), "0.00");
}

TEST(NumbersTest, WhatIsRoundedToNothingHasNoSign)
{
    EXPECT_EQ(Format0(-0.2).toStdString(), "0");
    EXPECT_EQ(Format2(-0.001).toStdString(), "0.00");
    EXPECT_EQ(PlainNumber(-0.0).toStdString(), "0");
    EXPECT_EQ(FormatMark(-0.001, 2).toStdString(), "0.00");
}

TEST(NumbersTest, AMarkHasDecimalsWhereFractionsAreEnteredAndNotRounded)
{
    EXPECT_EQ(MarkDecimals(true, false), 2);
    EXPECT_EQ(MarkDecimals(true, true), 0);
    EXPECT_EQ(MarkDecimals(false, false), 0);
    EXPECT_EQ(MarkDecimals(false, true), 0);
    EXPECT_EQ(FormatMark(34.5, 0).toStdString(), "34");
    EXPECT_EQ(FormatMark(34.125, 2).toStdString(), "34.12");
}

TEST(NumbersTest, AHalfIsOneAsItIsWrittenWhateverItsBinaryForm)
{
    EXPECT_EQ(Format2((67.46 + 72.57) / 2).toStdString(), "70.02");
    for (const double value : {1.005, 2.675, 8.345, 70.015, 1e6 + 0.005, 0.005})
        EXPECT_EQ(Format2(value), Format2(std::nextafter(value, HUGE_VAL))) << value;
    EXPECT_EQ(Format2(1.005).toStdString(), "1.01");
    EXPECT_EQ(Format2(-1.005).toStdString(), "-1.01");
    EXPECT_EQ(Format2(0.005).toStdString(), "0.01");
    EXPECT_EQ(Format2(0.00499999).toStdString(), "0.00");
}

/// The average of `count` marks, and what whole numbers alone make of it. `onAHalf` has the last mark bring
/// an even count to a half of a hundredth.
void ExpectExactAverage(RandomMarks& marks, std::int64_t count, bool onAHalf)
{
    ExactSum sum;
    std::int64_t hundredths = 0;
    for (std::int64_t number = 1; number <= count; ++number) {
        std::int64_t mark = marks.Up(0, 10000);
        if (onAHalf && number == count)
            mark = (count / 2 - hundredths % count + count) % count;
        sum.Add(static_cast<double>(mark) / 100);
        hundredths += mark;
    }
    ASSERT_EQ(Format2(sum.Value() / static_cast<double>(count)), Hundredths(Quotient(hundredths, count)))
        << hundredths << " hundredths over " << count;
}

TEST(NumbersTest, AveragesOfMarksAreThoseOfExactArithmetic)
{
    RandomMarks marks;
    for (int run = 0; run < 100000 && !HasFatalFailure(); ++run)
        ExpectExactAverage(marks, marks.Up(1, 60), false);
    for (int run = 0; run < 300 && !HasFatalFailure(); ++run)
        ExpectExactAverage(marks, marks.Up(1, 10000), false);
}

TEST(NumbersTest, AnAverageOnAHalfIsCountedUpHoweverManyMarksItIsOf)
{
    RandomMarks marks;
    for (std::int64_t count = 2; count <= 1000 && !HasFatalFailure(); count += 2)
        ExpectExactAverage(marks, count, true);
    for (int run = 0; run < 300 && !HasFatalFailure(); ++run)
        ExpectExactAverage(marks, marks.Up(1, 5000) * 2, true);
}

TEST(NumbersTest, ASumOfNumbersBeyondAllMarksIsBeyondThemToo)
{
    ExactSum sum;
    for (const double value : {1e15, 1e300, std::numeric_limits<double>::max()}) {
        sum.Add(value);
        EXPECT_GE(sum.Value(), value);
    }
}

TEST(NumbersTest, PercentagesOfMarksAreThoseOfExactArithmetic)
{
    RandomMarks marks;
    for (int run = 0; run < 100000; ++run) {
        const int count = static_cast<int>(marks.Up(1, 12));
        const auto [sum, hundredths] = marks.Sum(count);
        const std::int64_t maximum = marks.Up(1, 20) * 10 * count;
        const double percent = sum / static_cast<double>(maximum) * 100;
        ASSERT_EQ(Format2(percent), Hundredths(Quotient(hundredths * 100, maximum)))
            << hundredths << " hundredths out of " << maximum;
    }
}

TEST(NumbersTest, NumbersBeyondAllMarksStayShort)
{
    for (const double value : {1e15, -1e15, 1e300, -1e300, 1e-300, std::numeric_limits<double>::max(),
                               HUGE_VAL, -HUGE_VAL, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_LE(Format0(value).size(), 25) << value;
        EXPECT_LE(Format2(value).size(), 25) << value;
        EXPECT_LE(PlainNumber(value).size(), 25) << value;
        EXPECT_LE(FormatMark(value, 2).size(), 25) << value;
    }
    for (const auto& format : {&Format0, &Format2, &PlainNumber})
        EXPECT_EQ(format(1e15).toStdString(), "1e+15");
    EXPECT_EQ(Format2(1e300).toStdString(), "1e+300");
    EXPECT_EQ(Format2(123456789012.5).toStdString(), "123456789012.50");
    EXPECT_EQ(Round(1e300, 2), 1e300);
    EXPECT_EQ(ToWhole(1e300), std::numeric_limits<int>::max());
    EXPECT_EQ(ToWhole(-1e300), std::numeric_limits<int>::min());
}

TEST(NumbersTest, ValReadsTheNumberThatATextBeginsWith)
{
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("12")), 12);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral(" 12.5 marks")), 12.5);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("-3")), -3);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("+3")), 3);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("1e+2")), 100);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral(".5")), 0.5);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("Absent")), 0);
    EXPECT_DOUBLE_EQ(Val(QString()), 0);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("12,5")), 12);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("1 09")), 109);
    EXPECT_GE(Val(QString(100, u'9')), 1e63) << "no text is too long";
    for (const char* word : {"inf", "Infinity", "nan", "-inf", "+inf", "-nan"})
        EXPECT_DOUBLE_EQ(Val(QString::fromLatin1(word)), 0) << word;
}

TEST(NumbersTest, PlainNumberHasNoTrailingZeros)
{
    EXPECT_EQ(PlainNumber(251).toStdString(), "251");
    EXPECT_EQ(PlainNumber(0.5).toStdString(), "0.5");
    EXPECT_EQ(PlainNumber(100.0 / 3).toStdString(), "33.3333333333333");
    EXPECT_EQ(PlainNumber(0).toStdString(), "0");
    EXPECT_EQ(PlainNumber(-12.50).toStdString(), "-12.5");
    EXPECT_EQ(PlainNumber(1000000).toStdString(), "1000000");
}

} // namespace
} // namespace tally
