#include "OldMainFile.h"
#include "store/Tables.h"
#include "store/Upgrade.h"
#include "support/FileCalls.h"

namespace tally::test {

using store::Connection;

namespace {

const QString CopyName = QStringLiteral("Tallyboard before upgrade 2.mdb");

class UpgradeKill : public testing::Test
{
protected:
    /// True when the upgrade came to its end before the operation `number`.
    bool UpgradeAndDieAt(std::size_t number) const
    {
        return RunAndDieAt(number, [this] {
            Connection main(files.Path(), Password);
            store::Upgrade(main);
        });
    }

    static bool IsUpgraded(Connection& main, const QStringList& oldDefinitions)
    {
        const bool upgraded = main.SchemaVersion() == store::MainVersion;
        EXPECT_EQ(Definitions(main) == oldDefinitions, !upgraded);
        EXPECT_TRUE(IsWhole(main));
        EXPECT_EQ(main.Number(QStringLiteral("SELECT count(*) FROM MarkMaster WHERE Mark = 50")), 1);
        return upgraded;
    }

    StoreFiles files;
    QByteArray old = MakeOldMainFile(files);
};

/// Where the first operation of that name stands; -1 for none.
qsizetype First(const QStringList& operations, const QString& name)
{
    return operations.indexOf(name);
}

TEST_F(UpgradeKill, AProgramKilledAtAnyOperationLeavesTheOldFileOrTheUpgradedOneAndOnlyWholeCopies)
{
    QStringList oldDefinitions;
    {
        Connection main(files.Path(), Password);
        oldDefinitions = Definitions(main);
    }
    std::size_t killed = 0;
    bool wasUpgraded = false;
    for (;; ++killed) {
        for (const QString& name : FilesIn(files))
            ASSERT_TRUE(QFile::remove(files.Path(name)));
        files.Write(old);
        if (UpgradeAndDieAt(killed))
            break;
        SCOPED_TRACE(killed);
        const QByteArray copy = files.Bytes(CopyName);
        EXPECT_TRUE(copy.isEmpty() || copy == old);
        EXPECT_EQ(copy.isEmpty(), !FilesIn(files).contains(CopyName));
        {
            Connection main(files.Path(), Password);
            const bool upgraded = IsUpgraded(main, oldDefinitions);
            EXPECT_TRUE(upgraded || !wasUpgraded) << "the later kill left the older state";
            wasUpgraded = upgraded;
            EXPECT_FALSE(upgraded && copy.isEmpty()) << "no copy was taken";
        }
        Connection main(files.Path(), Password);
        store::Upgrade(main);
        EXPECT_TRUE(IsUpgraded(main, oldDefinitions));
        EXPECT_EQ(files.Bytes(CopyName), old);
        EXPECT_FALSE(FilesIn(files).contains(QStringLiteral("Tallyboard.mdb.copy")));
        if (HasFailure())
            break;
    }
    EXPECT_GT(killed, 50U) << "the operations were not seen";
}

TEST_F(UpgradeKill, TheCopyLiesOnTheDiskUnderItsNameBeforeTheFileIsTouched)
{
    Connection main(files.Path(), Password);
    const QStringList operations = OperationsOf([&main] { store::Upgrade(main); });
    const auto written = operations.lastIndexOf(QStringLiteral("write Tallyboard.mdb.copy"));
    const auto synced = First(operations, QStringLiteral("sync Tallyboard.mdb.copy"));
    const auto named = First(operations, QStringLiteral("name ") + CopyName);
    const auto folderSynced = First(operations, QStringLiteral("sync ") + QDir(files.Folder()).dirName());
    const auto journal = First(operations, QStringLiteral("write Tallyboard.mdb-journal"));
    const auto changed = First(operations, QStringLiteral("write Tallyboard.mdb"));
    EXPECT_GE(written, 0);
    EXPECT_GT(synced, written);
    EXPECT_GT(named, synced);
    EXPECT_GT(folderSynced, named);
    EXPECT_GT(changed, folderSynced);
    EXPECT_GE(journal, 0);
    EXPECT_GT(changed, journal);
}

} // namespace

} // namespace tally::test
