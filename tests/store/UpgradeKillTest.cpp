#include "NamedFromTheDisk.h"
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
    ExpectNamedFromTheDisk(operations, files, 1);
    const auto named = First(operations, QStringLiteral("name ") + CopyName);
    const auto journal = First(operations, QStringLiteral("write Tallyboard.mdb-journal"));
    const auto changed = First(operations, QStringLiteral("write Tallyboard.mdb"));
    EXPECT_GE(named, 0);
    EXPECT_GT(changed, named);
    EXPECT_GE(journal, 0);
    EXPECT_GT(changed, journal);
}

TEST_F(UpgradeKill, ACopyThatDoesNotReachTheDiskEndsTheUpgrade)
{
    const auto upgrade = [this] {
        Connection main(files.Path(), Password);
        store::Upgrade(main);
    };
    const auto sync = First(OperationsOf(upgrade), QStringLiteral("sync Tallyboard.mdb.copy"));
    ASSERT_GE(sync, 0);
    ASSERT_TRUE(QFile::remove(files.Path(CopyName)));
    files.Write(old);
    const auto error = ErrorOf([&] { RunWithFault(static_cast<std::size_t>(sync), Fault::Broken, upgrade); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Description().contains(QLatin1String("No Copy Of It Could Be Made Beside It (")))
        << error->what();
    EXPECT_EQ(files.Bytes(), old);
    EXPECT_EQ(FilesIn(files), QStringList{QStringLiteral("Tallyboard.mdb")});
}

class UpgradeFaults : public UpgradeKill, public testing::WithParamInterface<Fault>
{};

TEST_P(UpgradeFaults, AnUpgradeThatFailsIsToldAndLeavesTheOldFile)
{
    QStringList oldDefinitions;
    {
        Connection main(files.Path(), Password);
        oldDefinitions = Definitions(main);
    }
    std::size_t told = 0;
    std::size_t failed = 0;
    for (bool ended = false; !ended && !HasFailure(); ++failed) {
        SCOPED_TRACE(failed);
        bool isTold = false;
        try {
            ended = RunWithFault(failed, GetParam(), [this] {
                Connection main(files.Path(), Password);
                store::Upgrade(main);
            });
        } catch (const store::StoreError& error) {
            isTold = true;
            EXPECT_TRUE(error.Description().contains(files.Path())) << error.what();
        }
        told += isTold ? 1 : 0;
        {
            Connection main(files.Path(), Password);
            EXPECT_EQ(IsUpgraded(main, oldDefinitions), !isTold);
        }
        // Where the very removal of a needless one fails, it stays.
        EXPECT_TRUE(isTold || files.Bytes(CopyName) == old);
        for (const QString& name : FilesIn(files))
            ASSERT_TRUE(QFile::remove(files.Path(name)));
        files.Write(old);
    }
    EXPECT_GT(told, 5U) << "the operations were not seen";
}

INSTANTIATE_TEST_SUITE_P(Disk, UpgradeFaults, testing::Values(Fault::Broken, Fault::Full, Fault::Short));

} // namespace

} // namespace tally::test
