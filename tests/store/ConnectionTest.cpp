#include "SchoolFile.h"
#include "support/EngineWaits.h"
#include "support/OpenFiles.h"
#include "support/StoreWords.h"

#include <QBuffer>
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
    // In the brackets stand the engine's own words, which are others in each of its releases.
    EXPECT_TRUE(error->Description().startsWith(
        QDir::toNativeSeparators(files.Path()) +
        QLatin1String(": This File Is Not A Database Of This Program, Or It Has Another Password (")))
        << error->what();
    EXPECT_EQ(QString::fromUtf8(error->what()), error->Description());
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
    EXPECT_EQ(error->Description(),
              QStringLiteral("The Database File %1 Is Missing").arg(QDir::toNativeSeparators(files.Path())));
    EXPECT_FALSE(QFile::exists(files.Path()));
}

TEST(Connection, EmptyFileIsRefusedAndStaysEmpty)
{
    const StoreFiles files;
    files.Write({});
    const auto error = ErrorOf([&] { Connection(files.Path(), Password); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Description(),
              QStringLiteral("The Database File %1 Is Empty").arg(QDir::toNativeSeparators(files.Path())));
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
    EXPECT_EQ(error->Description(),
              QDir::toNativeSeparators(files.Path()) +
                  QStringLiteral(": The Database File Is Damaged (database disk image is malformed)"));
    EXPECT_EQ(files.Bytes(), start);
}

TEST(Connection, CreatingNeverTakesOverAnExistingFile)
{
    const StoreFiles files;
    files.MakeNameList();
    const QByteArray before = files.Bytes();
    const auto error = ErrorOf([&] { Connection(files.Path(), Password, Connection::Mode::Create); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Description(), QStringLiteral("The File %1 Exists Already And Is Left As It Is")
                                        .arg(QDir::toNativeSeparators(files.Path())));
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

TEST(Connection, AFileOfWorkingTablesWaitsForTheDiskFewerTimes)
{
    const StoreFiles files;
    Connection connection = files.MakeNameList();
    connection.HoldsWorkingTables();
    constexpr int Normal = 1;
    EXPECT_EQ(connection.Number(QStringLiteral("PRAGMA synchronous")), Normal);
}

TEST(Connection, AFileThatAnotherClientHoldsIsWaitedForAndThenToldAsALock)
{
    const BriefWaits soon;
    const StoreFiles files;
    Connection other = files.MakeNameList();
    other.Execute(QStringLiteral("BEGIN EXCLUSIVE"));
    const std::size_t before = EngineWaits();
    const auto error = ErrorOf([&] { Connection(files.Path(), Password); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->IsLocked());
    EXPECT_FALSE(error->IsConflict());
    EXPECT_EQ(error->Description(), HeldByAnotherClient);
    EXPECT_GT(EngineWaits(), before);
}

TEST(Connection, ThatIsGoneHoldsNoFileOpenAndNeitherDoesAStatementOfIt)
{
    const StoreFiles files;
    const std::string before = OpenFiles();
    {
        Connection connection = files.MakeNameList();
        auto rows = connection.Query(QStringLiteral("SELECT Name FROM NameList"));
        EXPECT_TRUE(rows.Next());
        EXPECT_NE(OpenFiles(), before);
    }
    EXPECT_EQ(OpenFiles(), before);
}

TEST(Connection, AFileThatLosesItsEndWhileItIsCopiedIsToldOf)
{
    const StoreFiles files;
    Connection connection = files.MakeNameList();
    AddBallast(connection);
    QBuffer copy;
    ASSERT_TRUE(copy.open(QIODevice::WriteOnly));
    const store::ReadTransaction moment(connection);
    connection.SchemaVersion();
    const auto error = ErrorOf([&] {
        connection.CopyTo(
            copy, [&](qint64 done, qint64) { return done == 0 || QFile::resize(files.Path(), done); });
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Description(), DiskTakesNothing);
}

TEST(Connection, AProofOfALongTableIsHeardOfAndEndsWhenSomebodyHasEnough)
{
    Connection connection = Connection::InMemory();
    AddLongTable(connection);
    int words = 0;
    connection.Prove(true, [&words](qint64 done, qint64 total) {
        EXPECT_EQ(done, 0);
        EXPECT_EQ(total, 0) << "nobody knows how long it takes";
        return ++words > 0;
    });
    EXPECT_GT(words, 0);
    words = 0;
    EXPECT_THROW(connection.Prove(true, [&words](qint64, qint64) { return ++words < 1; }), store::Cancelled);
    EXPECT_EQ(words, 1);
    // Behind the proof nobody hears of long statements.
    EXPECT_EQ(connection.Number(
                  QStringLiteral("SELECT count(*) FROM Numbers a JOIN Numbers b ON b.Number = a.Number")),
              100000);
    EXPECT_EQ(words, 1);
}

/// Two files of one password.
class Pouring : public testing::Test
{
protected:
    qint64 Names() { return main.Number(QStringLiteral("SELECT count(*) FROM NameList")); }

    StoreFiles files;
    Connection main = files.MakeNameList();
    Connection source{files.Path(QStringLiteral("Source.mdb")), Password, Connection::Mode::Create};
};

TEST_F(Pouring, OfALargeFileTellsHowFarItHasComeAndCanBeEnded)
{
    AddBallast(source);
    qint64 last = 0;
    const auto pour = [&](int allowed) {
        int heard = 0;
        main.PourFrom(
            source, [] {},
            [&](qint64 done, qint64 total) {
                EXPECT_GT(done, last);
                EXPECT_LT(done, total);
                last = done;
                return heard++ != allowed;
            });
        return heard;
    };
    for (const int allowed : {0, 1}) {
        last = 0;
        EXPECT_THROW(pour(allowed), store::Cancelled);
        EXPECT_EQ(Names(), 1);
    }
    last = 0;
    EXPECT_GT(pour(-1), 1);
    EXPECT_EQ(main.Number(QStringLiteral("SELECT count(*) FROM Ballast")), 1);
}

TEST_F(Pouring, OfTheSmallestFileAsksBeforehandToo)
{
    source.Execute(QStringLiteral("PRAGMA user_version = 7"));
    EXPECT_THROW(main.PourFrom(source, [] { throw store::Cancelled(); }), store::Cancelled);
    EXPECT_EQ(Names(), 1);
    int asked = 0;
    main.PourFrom(source, [&asked] { ++asked; });
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(main.SchemaVersion(), 7);
}

TEST_F(Pouring, WithinATransactionIsRefused)
{
    AddBallast(source);
    const store::Transaction saving(main);
    const auto error = ErrorOf([this] { main.PourFrom(source, [] {}); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Description().toStdString(), "destination database is in use");
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
    while (rows.Next()) {
    }
    EXPECT_EQ(connection.StatementsRun(), 3U) << "behind its last row it begins anew";
    auto insert = connection.Prepare(QStringLiteral("INSERT INTO NameList VALUES (?)"));
    for (const char* name : {"Asha", "Binu", "Chitra"})
        insert.Run(name);
    EXPECT_EQ(connection.StatementsRun(), 6U) << "one that runs again counts again";
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
    connection.Execute(QStringLiteral("CREATE INDEX Totals ON TempTotal (Total)"));
    for (const char* statement : {"SELECT Nothing FROM TempTotal", "CREATE INDEX Totals ON TempTotal (Total)",
                                  "INSERT INTO TempTotal (Nothing) VALUES (1)"}) {
        const auto wrong = ErrorOf([&] { connection.Execute(QString::fromLatin1(statement)); });
        ASSERT_TRUE(wrong) << statement;
        EXPECT_EQ(wrong->Kind(), ErrorKind::Other) << wrong->what();
    }
}

} // namespace tally::test
