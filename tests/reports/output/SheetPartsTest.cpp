#include "reports/output/SheetParts.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

TEST(SheetParts, ACapitalLetterIsAsWideAsOneAndAQuarter)
{
    EXPECT_EQ(LettersOnPaper(QStringLiteral("rank list")), 9);
    EXPECT_EQ(LettersOnPaper(QStringLiteral("RANK List")), 4 * 1.25 + 1.25 + 4);
}

TEST(SheetParts, ALineIsAsHighAsTheLinesThatItsTextTakesInItsLetters)
{
    const QString text(30, u'x');
    EXPECT_EQ(HeadLineHeight(text, {}, 31), 15);
    EXPECT_EQ(HeadLineHeight(text, {}, 29), 30);
    EXPECT_EQ(HeadLineHeight(text, {}, 31, 20), 20) << "the least";
    EXPECT_EQ(HeadLineHeight(text, {.points = 22}, 61), 30) << "of letters twice as high and wide";
    EXPECT_EQ(HeadLineHeight(text, {.points = 22}, 59), 60);
}

TEST(SheetParts, OnlyWhatACellShowsJustSoIsANumber)
{
    for (const char* number : {"0", "7", "90", "-3", "0.5", "-0.5", "62.75", "123456789012345",
                               "-123456789012345", "33.3333333333333"})
        EXPECT_TRUE(IsNumber(QString::fromLatin1(number))) << number;
    for (const char* text : {"", "-", ".", "-.", "5.", ".5", "-.5", "00", "-01", "1.2.3", "1e5", "+7",
                             "1,000", "1/2", "1:2", "1 ", "1234567890123456", "33.33333333333333", "A"})
        EXPECT_FALSE(IsNumber(QString::fromLatin1(text))) << text;
}

TEST(SheetParts, DigitsThatBeginWithAZeroOrAreTooManyStandForAPerson)
{
    for (const char* identity : {"00", "0042", "1234567890123456"})
        EXPECT_TRUE(IsIdentity(QString::fromLatin1(identity))) << identity;
    for (const char* other : {"", "0", "42", "0.5", "0042A", "123456789012345"})
        EXPECT_FALSE(IsIdentity(QString::fromLatin1(other))) << other;
}

} // namespace
} // namespace tally::test
