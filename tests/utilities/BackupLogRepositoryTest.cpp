#include "utilities/BackupLogRepository.h"

#include "store/Tables.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

class BackupLogRepositoryTest : public testing::Test
{
protected:
    BackupLogRepositoryTest()
    {
        store::Transaction transaction(log);
        store::CreateBackupTables(transaction);
        transaction.Commit();
    }

    void Add(CopyMode mode, const QString& path)
    {
        store::Transaction transaction(log);
        BackupLogRepository::Add(transaction, mode, path, QDateTime(QDate(2026, 11, 22), QTime(14, 5, 9)));
        transaction.Commit();
    }

    store::Connection log = store::Connection::InMemory();
};

TEST_F(BackupLogRepositoryTest, EachModeHasItsOwnTableAndCountsFromOne)
{
    Add(CopyMode::Backup, QStringLiteral("/stick/a.mdb"));
    Add(CopyMode::Backup, QStringLiteral("/stick/b.mdb"));
    Add(CopyMode::Restore, QStringLiteral("/stick/c.mdb"));
    const auto backups = BackupLogRepository::All(log, CopyMode::Backup);
    ASSERT_EQ(backups.size(), 2);
    EXPECT_EQ(backups[0].code, 1);
    EXPECT_EQ(backups[0].path.toStdString(), "/stick/a.mdb");
    EXPECT_EQ(backups[1].code, 2);
    const auto restores = BackupLogRepository::All(log, CopyMode::Restore);
    ASSERT_EQ(restores.size(), 1);
    EXPECT_EQ(restores[0].code, 1);
    EXPECT_EQ(restores[0].path.toStdString(), "/stick/c.mdb");
}

TEST_F(BackupLogRepositoryTest, ACodeIsTheHighestPlusOne)
{
    Add(CopyMode::Backup, QStringLiteral("/a.mdb"));
    Add(CopyMode::Backup, QStringLiteral("/b.mdb"));
    log.Execute(QStringLiteral("DELETE FROM BackupDatabase WHERE BackupCode = 1"));
    Add(CopyMode::Backup, QStringLiteral("/c.mdb"));
    EXPECT_EQ(BackupLogRepository::All(log, CopyMode::Backup).last().code, 3);
}

TEST_F(BackupLogRepositoryTest, APathOf300LettersIsKeptWhole)
{
    const QString path(300, QChar(0x0BAA));
    Add(CopyMode::Restore, path);
    EXPECT_EQ(BackupLogRepository::All(log, CopyMode::Restore).first().path, path);
}

TEST_F(BackupLogRepositoryTest, TheDayIsShownAsEverywhereAndAnOddTextAsItStands)
{
    Add(CopyMode::Backup, QStringLiteral("/a.mdb"));
    const QString stored = BackupLogRepository::All(log, CopyMode::Backup).first().date;
    EXPECT_EQ(stored.toStdString(), "2026-11-22 14:05:09");
    EXPECT_EQ(ShownLogDate(stored).toStdString(), "22/Nov/2026");
    EXPECT_EQ(ShownLogDate(QStringLiteral("yesterday")).toStdString(), "yesterday");
    EXPECT_EQ(ShownLogDate(QString()).toStdString(), "");
}

} // namespace
} // namespace tally::test
