// What backup, restore and compacting make of a disk that fails once, at each of their file operations.

#include "OldMainFile.h"
#include "SchoolFile.h"
#include "store/Backup.h"
#include "store/Compact.h"
#include "store/Restore.h"
#include "support/FileCalls.h"

#include <QDateTime>

namespace tally::test {
namespace {

using store::Connection;

class SafeCopyFaults : public testing::TestWithParam<Fault>
{
protected:
    void SetUp() override
    {
        LaySchoolFile(files.Path(), 3);
        LaySchoolFile(Other(), 40);
    }

    QString Other() const { return files.Path(QStringLiteral("Other.mdb")); }

    /// Lets each operation of `work` fail once; `look` sees what is left, and whether a failure was told.
    void FailEverywhere(const std::function<void()>& work, const std::function<void(bool told)>& look)
    {
        QMap<QString, QByteArray> laid;
        for (const QString& name : NamesIn(files.Folder()))
            laid.insert(name, files.Bytes(name));
        std::size_t failed = 0;
        std::size_t told = 0;
        int fullDisks = 0;
        for (bool ended = false; !ended && !HasFailure(); ++failed) {
            SCOPED_TRACE(failed);
            bool isTold = false;
            try {
                ended = RunWithFault(failed, GetParam(), work);
            } catch (const store::StoreError& error) {
                isTold = true;
                const QString& text = error.Description();
                EXPECT_FALSE(text.isEmpty());
                EXPECT_FALSE(text.contains(QLatin1String("Unknown error"))) << text.toStdString();
                fullDisks += text.startsWith(QLatin1String("The Disk Is Full.")) ? 1 : 0;
            }
            told += isTold ? 1 : 0;
            look(isTold);
            for (const QString& name : NamesIn(files.Folder()))
                ASSERT_TRUE(QFile::remove(files.Path(name)));
            for (auto file = laid.begin(); file != laid.end(); ++file)
                files.Write(file.value(), file.key());
        }
        EXPECT_GT(told, 1U) << "the operations were not seen";
        EXPECT_EQ(fullDisks > 0, GetParam() == Fault::Full) << "a full disk is called so, and nothing else";
    }

    StoreFiles files;
};

TEST_P(SafeCopyFaults, ABackupThatFailsIsToldAndLeavesTheEarlierOne)
{
    const QByteArray school = files.Bytes();
    const QByteArray earlier = files.Bytes(QStringLiteral("Other.mdb"));
    FailEverywhere(
        [this] {
            Connection main(files.Path(), Password);
            store::BackUp(main, Password, Other());
        },
        [&](bool told) {
            EXPECT_EQ(files.Bytes(), school);
            EXPECT_EQ(files.Bytes(QStringLiteral("Other.mdb")), told ? earlier : school);
        });
}

TEST_P(SafeCopyFaults, ARestoreThatFailsIsToldAndLeavesTheOldSchool)
{
    FailEverywhere(
        [this] {
            store::Restore restore(Other(), Password);
            Connection main(files.Path(), Password);
            restore.PourInto(main, QDateTime(QDate(2026, 11, 22), QTime(14, 5)));
        },
        [&](bool told) {
            const qint64 states = StatesIn(files.Path());
            EXPECT_EQ(states, told ? 3 : 40);
            EXPECT_EQ(StatesIn(Other()), 40);
            for (const QString& kept : store::KeptBeforeRestore(files.Path()))
                EXPECT_EQ(StatesIn(kept), 3);
            if (!told) {
                EXPECT_EQ(store::KeptBeforeRestore(files.Path()).size(), 1);
            }
        });
}

TEST_P(SafeCopyFaults, ARestoreOfAnOlderFileThatFailsIsToldAndLeavesTheOldSchool)
{
    const WorkFolder work(files);
    LayOldSchoolFile(Other());
    const QByteArray older = files.Bytes(QStringLiteral("Other.mdb"));
    int left = 0;
    FailEverywhere(
        [this] {
            store::Restore restore(Other(), Password);
            Connection main(files.Path(), Password);
            restore.PourInto(main, QDateTime(QDate(2026, 11, 22), QTime(14, 5)));
        },
        [&](bool told) {
            EXPECT_EQ(StatesIn(files.Path()), told ? 3 : 1);
            EXPECT_EQ(OldMarksIn(files.Path()), told ? 0 : 1);
            EXPECT_EQ(files.Bytes(QStringLiteral("Other.mdb")), older);
            left += work.Clear();
        });
    // Of the upgraded copy and the one that the upgrade itself lays beside it, where that very removal fails.
    EXPECT_LE(left, 2);
}

TEST_P(SafeCopyFaults, ACompactingThatFailsIsToldAndLeavesTheSameSchool)
{
    FailEverywhere(
        [this] {
            Connection main(files.Path(), Password);
            store::Compact(main, Password);
        },
        [&](bool told) {
            EXPECT_EQ(StatesIn(files.Path()), 3);
            // What stands beside the file is whole, and of this compacting or of the one before.
            for (const char* name : {"Tallyboard.Bak", "MarkTemp.mdb"}) {
                const QString copy = files.Path(QString::fromLatin1(name));
                EXPECT_TRUE(told || QFile::exists(copy)) << name;
                if (QFile::exists(copy)) {
                    EXPECT_EQ(StatesIn(copy), 3) << name;
                }
            }
        });
}

INSTANTIATE_TEST_SUITE_P(Disk, SafeCopyFaults, testing::Values(Fault::Broken, Fault::Full, Fault::Short));

} // namespace
} // namespace tally::test
