#include "mutants/Equivalents.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace tally::mutants {
namespace {

TEST(EquivalentsTest, AnEntryIsAStatementAChangeAndAReason)
{
    Equivalents equivalents = Equivalents::FromText(QStringLiteral(
        "# A remark.\n\nSELECT 1\n  without a\n    It\n    matters not.\n  without b\n    Nor this.\n"));
    EXPECT_EQ(equivalents.Rest().size(), 2);
    EXPECT_TRUE(equivalents.Take(QStringLiteral("SELECT 1"), QStringLiteral("without b")));
    EXPECT_FALSE(equivalents.Take(QStringLiteral("SELECT 1"), QStringLiteral("without c")));
    EXPECT_FALSE(equivalents.Take(QStringLiteral("SELECT 2"), QStringLiteral("without a")));
    EXPECT_EQ(equivalents.Rest(), QStringList(QStringLiteral("SELECT 1\n    without a")));
}

TEST(EquivalentsTest, AnEntryWithoutAReasonIsRefused)
{
    for (const char* text : {"SELECT 1\n  without a\n", "SELECT 1\n  without a\n  without b\n    Why.\n",
                             "SELECT 1\n  without a\nSELECT 2\n", "  without a\n    Why.\n", "    Why.\n"})
        EXPECT_THROW(Equivalents::FromText(QString::fromLatin1(text)), std::runtime_error) << text;
}

} // namespace
} // namespace tally::mutants
