#include "mutants/SourceTexts.h"

#include <gtest/gtest.h>

namespace tally::mutants {
namespace {

std::string TextsIn(const char* code)
{
    QString texts;
    for (const SourceText& text : StatementTextsIn(QStringLiteral("a.cpp"), QString::fromLatin1(code)))
        texts += QStringLiteral("%1:%2<%3>").arg(text.file).arg(text.line).arg(text.text);
    return texts.toStdString();
}

TEST(SourceTextsTest, LiteralsThatFollowOneAnotherAreOneStatement)
{
    EXPECT_EQ(TextsIn("Query(\n    \"SELECT a AS \\\"A\\\"\"\n    \" FROM t\");"),
              "a.cpp:2<SELECT a AS \"A\" FROM t>");
}

TEST(SourceTextsTest, AStatementWithGapsIsItsPieces)
{
    EXPECT_EQ(TextsIn("\"SELECT max(%1) FROM %2 WHERE a = ?\""),
              "a.cpp:1<SELECT max(>a.cpp:1<) FROM >a.cpp:1< WHERE a = ?>");
}

TEST(SourceTextsTest, AClauseThatIsPutBehindIsAPiece)
{
    EXPECT_EQ(TextsIn("sql += \" AND a = ?\";\nsql += \" ORDER BY a\";"),
              "a.cpp:1< AND a = ?>a.cpp:2< ORDER BY a>");
}

TEST(SourceTextsTest, OtherTextsAreNoStatements)
{
    EXPECT_EQ(TextsIn("\"Select A Name\" \"Y\" \"\\\\\" \"WHEREVER\""), "");
}

} // namespace
} // namespace tally::mutants
