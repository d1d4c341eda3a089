#include "core/Numbers.h"

#include <gtest/gtest.h>

namespace tally {
namespace {

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
}

TEST(NumbersTest, ValReadsTheNumberThatATextBeginsWith)
{
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("12")), 12);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral(" 12.5 marks")), 12.5);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("-3")), -3);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral(".5")), 0.5);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("Absent")), 0);
    EXPECT_DOUBLE_EQ(Val(QString()), 0);
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("12,5")), 12);
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
