#include "StoreFiles.h"

#include <QDir>

namespace tally::test {

using store::Connection;
using store::ErrorKind;

TEST(Connection, ReopenedWithItsPasswordShowsItsRows)
{
    const StoreFiles files;
    files.MakeNameList();
    Connection connection(files.Path(), Password);
    EXPECT_EQ(connection.Number(QStringLiteral("SELECT count(*) FROM NameList WHERE Name = 'Amala'")), 1);
    EXPECT_EQ(connection.Path(), files.Path());
}

TEST(Connection, FileHidesItsFormatAndItsTexts)
{
    const StoreFiles files;
    files.MakeNameList();
    const QByteArray bytes = files.Bytes();
    ASSERT_FALSE(bytes.isEmpty());
    EXPECT_FALSE(bytes.contains("SQLite format"));
    EXPECT_FALSE(bytes.contains("NameList"));
    EXPECT_FALSE(bytes.contains("Amala"));
}

TEST(Connection, FailsWithoutAPasswordOnAProtectedFile)
{
    const StoreFiles files;
    files.MakeNameList();
    const QByteArray before = files.Bytes();
    const auto error = ErrorOf([&] { Connection(files.Path(), QString()); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Description().contains(QLatin1String("Is Not A Database Of This Program")))
        << error->what();
    EXPECT_EQ(files.Bytes(), before);
}

TEST(Connection, AnotherPasswordIsRefusedInPlainWordsThatDoNotTellIt)
{
    const StoreFiles files;
    files.MakeNameList();
    const QByteArray before = files.Bytes();
    const auto error = ErrorOf([&] { Connection(files.Path(), QStringLiteral("open-sesame")); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Description().contains(QLatin1String("Or It Has Another Password"))) << error->what();
    EXPECT_TRUE(error->Description().contains(QLatin1String("Tallyboard.mdb"))) << error->what();
    EXPECT_FALSE(error->Description().contains(QLatin1String("open-sesame")));
    EXPECT_FALSE(error->Statement().contains(QLatin1String("open-sesame")));
    EXPECT_EQ(files.Bytes(), before);
}

TEST(Connection, MissingFileIsNamedAndNotCreated)
{
    const StoreFiles files;
    const auto error = ErrorOf([&] { Connection(files.Path(), Password); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Description().endsWith(QLatin1String("Tallyboard.mdb Is Missing"))) << error->what();
    EXPECT_FALSE(QFile::exists(files.Path()));
}

TEST(Connection, EmptyFileIsRefusedAndStaysEmpty)
{
    const StoreFiles files;
    files.Write({});
    const auto error = ErrorOf([&] { Connection(files.Path(), Password); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Description().endsWith(QLatin1String("Tallyboard.mdb Is Empty"))) << error->what();
    EXPECT_EQ(QFile(files.Path()).size(), 0);
}

TEST(Connection, AFolderInThePlaceOfTheFileIsRefused)
{
    const StoreFiles files;
    ASSERT_TRUE(QDir().mkdir(files.Path()));
    const auto error = ErrorOf([&] { Connection(files.Path(), Password); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Description(),
              QDir::toNativeSeparators(files.Path()) +
                  QStringLiteral(": The Database File Could Not Be Opened, Or Its "
                                 "Folder Can Only Be Read (unable to open database file)"));
}

TEST(Connection, FileOfAnotherKindIsRefusedAndUnchanged)
{
    const StoreFiles files;
    const QByteArray letter =
        QByteArray("Dear parents, the school opens on the first of June. ").repeated(400);
    files.Write(letter);
    const auto error = ErrorOf([&] { Connection(files.Path(), Password); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Description().contains(QLatin1String("Is Not A Database Of This Program")))
        << error->what();
    EXPECT_EQ(files.Bytes(), letter);
}

TEST(Connection, FileCutWithinItsFirstPageIsRefusedAndUnchanged)
{
    const StoreFiles files;
    files.MakeNameList();
    const QByteArray half = files.Bytes().first(1000);
    files.Write(half);
    const auto error = ErrorOf([&] { Connection(files.Path(), Password); });
    ASSERT_TRUE(error);
    EXPECT_FALSE(error->Description().isEmpty());
    EXPECT_EQ(files.Bytes(), half);
}

TEST(Connection, FileThatLostItsLastPagesIsReportedAsDamaged)
{
    const StoreFiles files;
    {
        Connection connection = files.MakeNameList();
        for (int i = 0; i < 60; ++i)
            connection.Execute(
                QStringLiteral("CREATE TABLE Filler%1 (%2 TEXT)").arg(i).arg(QString(200, u'x')));
    }
    constexpr qsizetype TwoPages = 8192;
    const QByteArray start = files.Bytes().first(TwoPages);
    files.Write(start);
    const auto error = ErrorOf([&] { Connection(files.Path(), Password); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Description().contains(QLatin1String("Damaged"))) << error->what();
    EXPECT_EQ(files.Bytes(), start);
}

TEST(Connection, CreatingNeverTakesOverAnExistingFile)
{
    const StoreFiles files;
    files.MakeNameList();
    const QByteArray before = files.Bytes();
    const auto error = ErrorOf([&] { Connection(files.Path(), Password, Connection::Mode::Create); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Description().contains(QLatin1String("Exists Already"))) << error->what();
    EXPECT_EQ(files.Bytes(), before);
}

TEST(Connection, NoFileButTheDatabaseIsLeftBehind)
{
    const StoreFiles files;
    files.MakeNameList();
    EXPECT_EQ(QDir(files.Folder()).entryList(QDir::Files), QStringList{QStringLiteral("Tallyboard.mdb")});
}

TEST(Connection, ForeignKeysAreOnFromTheStart)
{
    const StoreFiles files;
    files.MakeNameList();
    Connection connection(files.Path(), Password);
    EXPECT_EQ(connection.Number(QStringLiteral("PRAGMA foreign_keys")), 1);
}

TEST(Connection, FileIsMadeForASharedFolderAndSurvivesALossOfPower)
{
    const StoreFiles files;
    files.MakeNameList();
    Connection connection(files.Path(), Password);
    auto journal = connection.Query(QStringLiteral("PRAGMA journal_mode"));
    ASSERT_TRUE(journal.Next());
    EXPECT_EQ(journal.Text(0), QLatin1String("delete"));
    constexpr int Full = 2;
    EXPECT_EQ(connection.Number(QStringLiteral("PRAGMA synchronous")), Full);
}

TEST(Connection, NumberIsZeroForNullAndForNoRow)
{
    Connection connection = Connection::InMemory();
    EXPECT_EQ(connection.Number(QStringLiteral("SELECT NULL")), 0);
    EXPECT_EQ(connection.Number(QStringLiteral("SELECT 7 WHERE 1 = 2")), 0);
    EXPECT_EQ(connection.Number(QStringLiteral("SELECT ?"), 41), 41);
}

TEST(Connection, CountsTheStatementsItHasRun)
{
    Connection connection = Connection::InMemory();
    EXPECT_EQ(connection.StatementsRun(), 0U);
    connection.Execute(QStringLiteral("CREATE TABLE NameList (Name TEXT)"));
    auto rows = connection.Query(QStringLiteral("SELECT 1 UNION SELECT 2"));
    while (rows.Next()) {
    }
    EXPECT_EQ(connection.StatementsRun(), 2U);
    auto insert = connection.Prepare(QStringLiteral("INSERT INTO NameList VALUES (?)"));
    for (const char* name : {"Asha", "Binu", "Chitra"})
        insert.Run(name);
    EXPECT_EQ(connection.StatementsRun(), 5U) << "one that runs again counts again";
}

TEST(Connection, CreatingATableTwiceAndReadingNoneAreTheirOwnKinds)
{
    Connection connection = Connection::InMemory();
    connection.Execute(QStringLiteral("CREATE TABLE TempTotal (Total REAL)"));
    const auto exists =
        ErrorOf([&] { connection.Execute(QStringLiteral("CREATE TABLE TempTotal (Total REAL)")); });
    ASSERT_TRUE(exists);
    EXPECT_EQ(exists->Kind(), ErrorKind::TableExists);
    const auto missing =
        ErrorOf([&] { connection.Execute(QStringLiteral("DROP TABLE TempRankCalculation")); });
    ASSERT_TRUE(missing);
    EXPECT_EQ(missing->Kind(), ErrorKind::NoSuchTable);
    const auto wrong = ErrorOf([&] { connection.Execute(QStringLiteral("SELECT Nothing FROM TempTotal")); });
    ASSERT_TRUE(wrong);
    EXPECT_EQ(wrong->Kind(), ErrorKind::Other);
}

} // namespace tally::test
