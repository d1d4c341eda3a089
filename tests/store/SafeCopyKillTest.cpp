// Clients that are killed while they back up, restore or compact.

#include "NamedFromTheDisk.h"
#include "OldMainFile.h"
#include "SchoolFile.h"
#include "store/Backup.h"
#include "store/Compact.h"
#include "store/OwnFiles.h"
#include "store/Restore.h"
#include "support/FileCalls.h"

#include <QDateTime>

#include <algorithm>

namespace tally::test {
namespace {

using store::Connection;

class SafeCopyKill : public testing::Test
{
protected:
    void SetUp() override
    {
        LaySchoolFile(files.Path(), 3);
        LaySchoolFile(Other(), 40);
    }

    QString Other() const { return files.Path(QStringLiteral("Other.mdb")); }
    /// Does `work` again and again, killed at one operation after the other, and looks at what each has left;
    /// the files are then as before.
    void KillEverywhere(const std::function<void()>& work, const std::function<void()>& look)
    {
        QMap<QString, QByteArray> laid;
        for (const QString& name : NamesIn(files.Folder()))
            laid.insert(name, files.Bytes(name));
        std::size_t killed = 0;
        for (; !HasFailure() && !RunAndDieAt(killed, work); ++killed) {
            SCOPED_TRACE(killed);
            look();
            for (const QString& name : NamesIn(files.Folder()))
                ASSERT_TRUE(QFile::remove(files.Path(name)));
            for (auto file = laid.begin(); file != laid.end(); ++file)
                files.Write(file.value(), file.key());
        }
        look();
        EXPECT_GT(killed, 3U) << "the operations were not seen";
    }

    StoreFiles files;
};

TEST_F(SafeCopyKill, ABackupLeavesTheEarlierOneOrTheNewOneAndTheSchoolUntouched)
{
    const QByteArray school = files.Bytes();
    KillEverywhere(
        [this] {
            Connection main(files.Path(), Password);
            store::BackUp(main, Password, Other());
        },
        [&] {
            EXPECT_EQ(files.Bytes(), school);
            const qint64 states = StatesIn(Other());
            EXPECT_TRUE(states == 40 || states == 3) << states;
        });
    EXPECT_EQ(StatesIn(Other()), 3);
}

TEST_F(SafeCopyKill, ARestoreLeavesTheOldSchoolOrTheNewOneAndNeverLosesTheOldOne)
{
    bool wasRestored = false;
    KillEverywhere(
        [this] {
            store::Restore restore(Other(), Password);
            Connection main(files.Path(), Password);
            restore.PourInto(main, QDateTime(QDate(2026, 11, 22), QTime(14, 5)));
        },
        [&] {
            const qint64 states = StatesIn(files.Path());
            const QStringList kept = store::KeptBeforeRestore(files.Path());
            EXPECT_TRUE(states == 3 || states == 40) << states;
            EXPECT_TRUE(states == 40 || !wasRestored) << "a later kill has left the older school";
            wasRestored = states == 40;
            for (const QString& path : kept)
                EXPECT_EQ(StatesIn(path), 3);
            EXPECT_FALSE(wasRestored && kept.isEmpty()) << "the old school is lost";
            EXPECT_EQ(StatesIn(Other()), 40);
        });
    EXPECT_TRUE(wasRestored);
}

TEST_F(SafeCopyKill, ARestoreOfAnOlderFileLeavesTheOldSchoolOrTheUpgradedOne)
{
    const WorkFolder work(files);
    LayOldSchoolFile(Other());
    const QByteArray older = files.Bytes(QStringLiteral("Other.mdb"));
    bool wasRestored = false;
    KillEverywhere(
        [this] {
            store::Restore restore(Other(), Password);
            Connection main(files.Path(), Password);
            restore.PourInto(main, QDateTime(QDate(2026, 11, 22), QTime(14, 5)));
        },
        [&] {
            const bool restored = OldMarksIn(files.Path()) == 1;
            EXPECT_EQ(StatesIn(files.Path()), restored ? 1 : 3);
            EXPECT_TRUE(restored || !wasRestored) << "a later kill has left the older school";
            wasRestored = restored;
            EXPECT_FALSE(restored && store::KeptBeforeRestore(files.Path()).isEmpty());
            EXPECT_EQ(files.Bytes(QStringLiteral("Other.mdb")), older);
            work.Empty();
        });
    EXPECT_TRUE(wasRestored);
    EXPECT_EQ(Connection(files.Path(), Password).SchemaVersion(), store::MainVersion);
}

TEST_F(SafeCopyKill, ACompactingLeavesTheSameSchoolAndTheNextOneIsWhole)
{
    KillEverywhere(
        [this] {
            Connection main(files.Path(), Password);
            store::Compact(main, Password);
        },
        [&] {
            EXPECT_EQ(StatesIn(files.Path()), 3);
            Connection main(files.Path(), Password);
            store::Compact(main, Password);
            EXPECT_EQ(States(main), 3);
            EXPECT_EQ(StatesIn(files.Path(QStringLiteral("MarkTemp.mdb"))), 3);
            EXPECT_EQ(StatesIn(files.Path(QStringLiteral("Tallyboard.Bak"))), 3);
        });
}

TEST_F(SafeCopyKill, WhatARestoreReplacesLiesOnTheDiskUnderItsNameBeforeTheFileIsTouched)
{
    store::Restore restore(Other(), Password);
    Connection main(files.Path(), Password);
    const QStringList operations =
        OperationsOf([&] { restore.PourInto(main, QDateTime(QDate(2026, 11, 22), QTime(14, 5))); });
    ExpectNamedFromTheDisk(operations, files, 1);
    const auto named =
        operations.indexOf(QStringLiteral("name Tallyboard before restore 2026-11-22 14.05.mdb"));
    const auto changed = operations.indexOf(QStringLiteral("write Tallyboard.mdb"));
    const auto journal = operations.indexOf(QStringLiteral("sync Tallyboard.mdb-journal"));
    EXPECT_GE(named, 0);
    EXPECT_GT(journal, named);
    EXPECT_GT(changed, journal);
}

TEST_F(SafeCopyKill, ABackupAndBothCopiesOfACompactingLieOnTheDiskBeforeTheyTakeTheirPlaces)
{
    Connection main(files.Path(), Password);
    ExpectNamedFromTheDisk(OperationsOf([&] { store::BackUp(main, Password, Other()); }), files, 1);
    ExpectNamedFromTheDisk(OperationsOf([&] { store::Compact(main, Password); }), files, 2);
}

TEST_F(SafeCopyKill, AFileIsReplacedOnlyByOneThatLiesOnTheDisk)
{
    const QString name = QStringLiteral("letter.txt");
    files.Write("the letter before", name);
    bool replaced = true;
    const auto replace = [&] { replaced = store::ReplaceFile(files.Path(name), "the letter"); };
    const QStringList operations = OperationsOf(replace);
    const auto sync = std::find_if(operations.begin(), operations.end(), [](const QString& operation) {
        return operation.startsWith(QLatin1String("sync "));
    });
    ASSERT_TRUE(replaced && sync != operations.end()) << operations.join(u'\n').toStdString();
    files.Write("the letter before", name);
    RunWithFault(static_cast<std::size_t>(sync - operations.begin()), Fault::Broken, replace);
    EXPECT_FALSE(replaced);
    EXPECT_EQ(files.Bytes(name), QByteArray("the letter before"));
}

} // namespace
} // namespace tally::test
