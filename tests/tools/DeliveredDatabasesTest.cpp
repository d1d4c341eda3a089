#include "tools/DeliveredDatabases.h"

#include "store/StoreError.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <stdexcept>

namespace tally::test {

namespace {

const QString Password = QStringLiteral("wind_mill-27/harbour_lantern");
const QStringList Names{QStringLiteral("BackupRestoreDetails.mdb"), QStringLiteral("TempTallyboard.mdb"),
                        QStringLiteral("Tallyboard.mdb"), QStringLiteral("Tallyboardhelp.mdb")};

QStringList FilesIn(const QTemporaryDir& folder)
{
    QStringList files = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
    files.sort();
    return files;
}

QStringList Sorted(QStringList names)
{
    names.sort();
    return names;
}

void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray Read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(DeliveredDatabases, AreFourFilesThatOpenWithThePassword)
{
    const QTemporaryDir folder;
    const auto files = MakeDeliveredDatabases(folder.path(), Password);
    ASSERT_EQ(files.size(), 4);
    for (const DeliveredFile& file : files)
        EXPECT_TRUE(file.made) << qPrintable(file.name);
    EXPECT_EQ(FilesIn(folder), Sorted(Names));

    store::Connection main(folder.filePath(QStringLiteral("Tallyboard.mdb")), Password);
    EXPECT_EQ(main.Number(QStringLiteral("SELECT count(*) FROM MonthMaster")), 12);
    store::Connection temp(folder.filePath(QStringLiteral("TempTallyboard.mdb")), Password);
    EXPECT_EQ(temp.Number(QStringLiteral("SELECT count(*) FROM Options")), 0);
    store::Connection backup(folder.filePath(QStringLiteral("BackupRestoreDetails.mdb")), Password);
    EXPECT_EQ(backup.Number(QStringLiteral("SELECT count(*) FROM BackupDatabase")), 0);
    store::Connection help(folder.filePath(QStringLiteral("Tallyboardhelp.mdb")), Password);
    EXPECT_EQ(help.Number(QStringLiteral("SELECT count(*) FROM Tallyboarddetails")), 36);
}

TEST(DeliveredDatabases, AnExistingFileIsKeptByteForByteAndTheOthersAreMade)
{
    const QTemporaryDir folder;
    const QString main = folder.filePath(QStringLiteral("Tallyboard.mdb"));
    Write(main, "ten years of marks");
    const auto files = MakeDeliveredDatabases(folder.path(), Password);
    ASSERT_EQ(files.size(), 4);
    for (const DeliveredFile& file : files)
        EXPECT_EQ(file.made, file.name != QLatin1String("Tallyboard.mdb")) << qPrintable(file.name);
    EXPECT_EQ(Read(main), QByteArray("ten years of marks"));
    EXPECT_EQ(FilesIn(folder), Sorted(Names));
}

TEST(DeliveredDatabases, ASecondRunChangesNothing)
{
    const QTemporaryDir folder;
    MakeDeliveredDatabases(folder.path(), Password);
    const QByteArray before = Read(folder.filePath(QStringLiteral("Tallyboard.mdb")));
    const auto files = MakeDeliveredDatabases(folder.path(), Password);
    EXPECT_EQ(files.size(), 4);
    for (const DeliveredFile& file : files)
        EXPECT_FALSE(file.made) << qPrintable(file.name);
    EXPECT_EQ(Read(folder.filePath(QStringLiteral("Tallyboard.mdb"))), before);
}

TEST(DeliveredDatabases, NoneIsMadeBesideTheJournalOfAnotherOneWhichWouldSpoilIt)
{
    const QTemporaryDir folder;
    const QString journal = folder.filePath(QStringLiteral("Tallyboard.mdb-journal"));
    Write(journal, "half a save");
    try {
        MakeDeliveredDatabases(folder.path(), Password);
        ADD_FAILURE() << "made";
    } catch (const store::StoreError& error) {
        EXPECT_TRUE(error.Description().startsWith(QDir::toNativeSeparators(journal))) << error.what();
    }
    EXPECT_EQ(FilesIn(folder), QStringList{QStringLiteral("Tallyboard.mdb-journal")});
    EXPECT_EQ(Read(journal), QByteArray("half a save"));

    Write(folder.filePath(QStringLiteral("Tallyboard.mdb")), "the school whose save it is");
    EXPECT_FALSE(MakeDeliveredDatabases(folder.path(), Password).first().made);
}

TEST(DeliveredDatabases, ARunThatBreaksOffLeavesNoHalfDatabase)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Tallyboard.mdb"));
    const auto breakOff = [](store::Transaction& transaction) {
        transaction.Execute(QStringLiteral("CREATE TABLE Half (Half TEXT)"));
        throw std::runtime_error("power cut");
    };
    EXPECT_THROW(MakeDatabase(path, Password, breakOff), std::runtime_error);
    EXPECT_EQ(FilesIn(folder), QStringList());
}

TEST(DeliveredDatabases, TheRemainsOfAKilledRunAreClearedAway)
{
    const QTemporaryDir folder;
    Write(folder.filePath(QStringLiteral("Tallyboard.mdb.new")), "half a database");
    MakeDeliveredDatabases(folder.path(), Password);
    EXPECT_EQ(FilesIn(folder), Sorted(Names));
}

TEST(DeliveredDatabases, AMissingFolderIsAnErrorAndIsNotMade)
{
    const QTemporaryDir folder;
    const QString missing = folder.filePath(QStringLiteral("nowhere"));
    EXPECT_THROW(MakeDeliveredDatabases(missing, Password), store::StoreError);
    EXPECT_FALSE(QDir(missing).exists());
}

} // namespace tally::test
