#include "core/DatabasePassword.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tally::test {

TEST(DatabasePassword, IsTheSameTextForEverySession)
{
    SessionContext first;
    SessionContext second;
    BuildDatabasePassword(first);
    BuildDatabasePassword(second);
    EXPECT_EQ(DatabasePassword(first), DatabasePassword(second));
}

TEST(DatabasePassword, IsLongAndPrintable)
{
    SessionContext session;
    BuildDatabasePassword(session);
    const QString password = DatabasePassword(session);
    EXPECT_GE(password.size(), 24);
    EXPECT_TRUE(std::all_of(password.begin(), password.end(),
                            [](QChar letter) { return letter > u' ' && letter <= u'~'; }));
    EXPECT_TRUE(password.contains(u'_'));
}

TEST(DatabasePassword, IsJoinedFromAllFourPiecesOfTheSession)
{
    SessionContext session;
    BuildDatabasePassword(session);
    const QString password = DatabasePassword(session);
    for (const QString& piece : {session.gstrDatabasePassword1, session.gstrDatabasePassword2,
                                 session.gstrDatabasePassword3, session.gstrDatabasePassword4}) {
        EXPECT_FALSE(piece.isEmpty());
        EXPECT_TRUE(password.contains(piece));
        EXPECT_LT(piece.size(), password.size() / 2);
    }
}

} // namespace tally::test
