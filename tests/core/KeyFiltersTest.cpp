#include "core/KeyFilters.h"

#include <gtest/gtest.h>
#include <string>

namespace tally {
namespace {

struct FilterCase
{
    const char* name;
    KeyFilter filter;
    const char* taken;
};

class KeyFiltersTest : public testing::TestWithParam<FilterCase>
{};

TEST_P(KeyFiltersTest, EveryPrintableKeyIsTakenOrDroppedByTheList)
{
    const std::string taken = GetParam().taken;
    for (int code = 32; code < 400; ++code) {
        const bool isTaken = code < 127 && taken.find(static_cast<char>(code)) != std::string::npos;
        EXPECT_EQ(GetParam().filter(code), isTaken ? code : 0) << code;
    }
}

TEST(KeyAllButQuoteTest, OnlyTheQuoteIsDropped)
{
    for (int code = 1; code < 400; ++code)
        EXPECT_EQ(KeyAllButQuote(code), code == '\'' ? 0 : code);
}

TEST_P(KeyFiltersTest, BackspaceAndEnterAlwaysPass)
{
    EXPECT_EQ(GetParam().filter(8), 8);
    EXPECT_EQ(GetParam().filter(13), 13);
    EXPECT_EQ(GetParam().filter(9), 0);
}

#define LETTERS "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"

INSTANTIATE_TEST_SUITE_P(Filters, KeyFiltersTest,
                         testing::Values(FilterCase{"KeyNumeric", &KeyNumeric, "0123456789"},
                                         FilterCase{"KeyNumericDecimal", &KeyNumericDecimal, "0123456789."},
                                         FilterCase{"KeyAlpha", &KeyAlpha, LETTERS " ."},
                                         FilterCase{"KeyAlphaNumeric", &KeyAlphaNumeric,
                                                    LETTERS "0123456789 +,-./"}),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
} // namespace tally
