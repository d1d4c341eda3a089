#include "core/KeyFilters.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace tally {
namespace {

struct FilterCase
{
    const char* name;
    KeyFilter filter;
    const char* taken;
    const char* words;

    friend void PrintTo(const FilterCase& row, std::ostream* out) { *out << row.name; }
};

class KeyFiltersTest : public testing::TestWithParam<FilterCase>
{};

TEST_P(KeyFiltersTest, EveryPrintableKeyIsTakenOrDroppedByTheList)
{
    const std::string taken = GetParam().taken;
    for (int code = -300; code < 400; ++code) {
        if (code == 8 || code == 13)
            continue;
        const bool isTaken =
            code >= 32 && code < 127 && taken.find(static_cast<char>(code)) != std::string::npos;
        EXPECT_EQ(GetParam().filter(code), isTaken ? code : 0) << code;
    }
}

TEST(KeyAllButQuoteTest, OnlyTheQuoteIsDropped)
{
    for (int code = 1; code < 400; ++code)
        EXPECT_EQ(KeyAllButQuote(code), code == '\'' ? 0 : code);
}

TEST_P(KeyFiltersTest, WhatIsTakenIsSaidInPlainWords)
{
    EXPECT_EQ(TakenSigns(GetParam().filter).toStdString(), GetParam().words);
}

TEST(KeyAllButQuoteTest, TheOneSignThatIsDroppedIsNamed)
{
    EXPECT_EQ(TakenSigns(KeyAllButQuote).toStdString(), "The Sign ' Cannot Be Entered Here");
}

TEST_P(KeyFiltersTest, BackspaceAndEnterAlwaysPass)
{
    EXPECT_EQ(GetParam().filter(8), 8);
    EXPECT_EQ(GetParam().filter(13), 13);
    EXPECT_EQ(GetParam().filter(9), 0);
}

#define LETTERS "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"

INSTANTIATE_TEST_SUITE_P(
    Filters, KeyFiltersTest,
    testing::Values(FilterCase{"KeyNumeric", &KeyNumeric, "0123456789", "Only Digits Can Be Entered Here"},
                    FilterCase{"KeyNumericDecimal", &KeyNumericDecimal, "0123456789.",
                               "Only Digits And . Can Be Entered Here"},
                    FilterCase{"KeyAlpha", &KeyAlpha, LETTERS " .",
                               "Only Letters A To Z, Blank And . Can Be Entered Here"},
                    FilterCase{"KeyLetters", &KeyLetters, LETTERS, "Only Letters A To Z Can Be Entered Here"},
                    FilterCase{"KeyAlphaNumeric", &KeyAlphaNumeric, LETTERS "0123456789 +,-./",
                               "Only Letters A To Z, Digits, Blank And + , - . / Can Be Entered Here"}),
    [](const auto& test) { return std::string(test.param.name); });

} // namespace
} // namespace tally
