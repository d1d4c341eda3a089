#include "core/DatabasePassword.h"

#include <QCryptographicHash>

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

TEST(DatabasePassword, OpensTheFilesThatSchoolsHaveAlready)
{
    SessionContext session;
    BuildDatabasePassword(session);
    const QByteArray hash =
        QCryptographicHash::hash(DatabasePassword(session).toUtf8(), QCryptographicHash::Sha256).toHex();
    EXPECT_EQ(hash.toStdString(), "22af4e6bbc519e9f747ffa7b72b6a8b7fd72f1d52c6f7421edb246e5bb16e26e");
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
