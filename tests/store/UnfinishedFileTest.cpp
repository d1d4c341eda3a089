#include "store/UnfinishedFile.h"

#include "SchoolFile.h"
#include "store/Backup.h"
#include "store/Compact.h"
#include "store/Restore.h"

#include <QDateTime>
#include <QRandomGenerator>

#include <sys/wait.h>
#include <unistd.h>

namespace tally::test {
namespace {

using store::Connection;

const QString School = QStringLiteral("Tallyboard.mdb");
const QString Place = QStringLiteral("Copy.mdb");

class UnfinishedFile : public testing::Test
{
protected:
    UnfinishedFile() { files.Write(QByteArray("a school")); }

    store::UnfinishedFile Begin() const { return {files.Folder(), files.Path()}; }
    QString Refusal(const std::function<void()>& work) const
    {
        const auto error = ErrorOf(work);
        return error ? error->Description() : QString();
    }
    /// A file that nobody has written to for so many seconds.
    void WriteOld(const QString& name, qint64 seconds) const
    {
        files.Write(QByteArray("half"), name);
        QFile file(files.Path(name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds),
                                     QFileDevice::FileModificationTime));
    }

    StoreFiles files;
};

TEST_F(UnfinishedFile, ThatIsGivenUpLeavesNothingBehind)
{
    {
        store::UnfinishedFile copy = Begin();
        // An engine has been stopped in it.
        files.Write(QByteArray("old pages"), QFileInfo(copy.Path()).fileName() + QStringLiteral("-journal"));
        EXPECT_EQ(NamesIn(files.Folder()).size(), 3);
    }
    EXPECT_EQ(NamesIn(files.Folder()), QStringList{School});
}

TEST_F(UnfinishedFile, ThatIsFinishedIsWrittenToNoMore)
{
    store::UnfinishedFile copy = Begin();
    EXPECT_TRUE(copy.File().isOpen());
    copy.Finish();
    EXPECT_FALSE(copy.File().isOpen());
}

TEST_F(UnfinishedFile, ThatHasItsPlaceLeavesAloneWhatTakesItsOldName)
{
    const std::function<void(store::UnfinishedFile&)> ways[] = {
        [this](auto& copy) { copy.TakePlace(files.Path(Place)); },
        [this](auto& copy) { copy.TakeFreePlace(files.Path(QStringLiteral("Second.mdb"))); },
        [](auto& copy) { copy.TakeNumberedName(QStringLiteral("Third"), QStringLiteral("mdb")); },
    };
    for (const auto& take : ways) {
        QString name;
        {
            store::UnfinishedFile copy = Begin();
            name = QFileInfo(copy.Path()).fileName();
            copy.Finish();
            take(copy);
            files.Write(QByteArray("somebody's"), name);
        }
        EXPECT_EQ(files.Bytes(name), QByteArray("somebody's"));
    }
}

TEST_F(UnfinishedFile, ThatCannotTakeItsPlaceSaysWhyAndIsGivenUp)
{
    const QString noName = QStringLiteral("The Copy Could Not Be Written (its name could not be given)");
    ASSERT_TRUE(QDir(files.Folder()).mkdir(Place));
    const QString gone = files.Path(QStringLiteral("Nowhere/Copy.mdb"));
    const auto refusal = [this](const auto& take) {
        return Refusal([&] {
            store::UnfinishedFile copy = Begin();
            copy.Finish();
            take(copy);
        });
    };
    EXPECT_EQ(refusal([this](auto& copy) { copy.TakePlace(files.Path(Place)); }), noName);
    EXPECT_EQ(refusal([&](auto& copy) { copy.TakeFreePlace(gone); }), noName);
    EXPECT_EQ(refusal([](auto& copy) { copy.TakeNumberedName(QStringLiteral("no/such"), {}); }), noName);
    EXPECT_EQ(refusal([this](auto& copy) { copy.TakeFreePlace(files.Path()); }),
              QStringLiteral("File With The Given Name Already Exists. It Is Left As It Is"));
    EXPECT_EQ(NamesIn(files.Folder()), QStringList{School});
}

TEST_F(UnfinishedFile, TakesNoPlaceBesideAnUnfinishedSave)
{
    const QString journal = Place + QStringLiteral("-journal");
    const auto take = [this](bool free) {
        store::UnfinishedFile copy = Begin();
        copy.Finish();
        free ? copy.TakeFreePlace(files.Path(Place)) : copy.TakePlace(files.Path(Place));
    };
    files.Write(QByteArray("a save"), journal);
    for (const bool free : {false, true})
        EXPECT_EQ(
            Refusal([&] { take(free); }),
            QStringLiteral("The Copy Could Not Be Written (%1 belongs to a file that is in use, or holds "
                           "an unfinished save)")
                .arg(QDir::toNativeSeparators(files.Path(journal))));
    EXPECT_FALSE(QFile::exists(files.Path(Place)));
    files.Write(QByteArray(), journal);
    EXPECT_EQ(Refusal([&] { take(true); }), QString()) << "a save that has ended may leave an empty one";
}

TEST_F(UnfinishedFile, IsClearedAwayWhenNobodyHasWrittenToItForAnHour)
{
    const QString live = QStringLiteral("Tallyboard.0000abce.part");
    const QString notes = QStringLiteral("Tallyboard.notes.part");
    const QString link = QStringLiteral("Tallyboard.0000abcf.part");
    WriteOld(live, 3500);
    WriteOld(notes, 3700);
    WriteOld(QStringLiteral("letter"), 3700);
    ASSERT_TRUE(QFile::link(files.Path(QStringLiteral("letter")), files.Path(link)));
    for (int program = 0; program < 40; ++program) {
        const auto copy = std::make_unique<store::UnfinishedFile>(files.Folder(), files.Path());
        const QString name = QFileInfo(copy->Path()).fileName();
        // Gone without a word, as a killed program goes.
        ASSERT_TRUE(QFile::remove(copy->Path()));
        WriteOld(name, 3700);
        WriteOld(name + QStringLiteral("-journal"), 3700);
        store::RemoveDeadUnfinishedFiles(files.Folder());
        EXPECT_FALSE(QFile::exists(files.Path(name))) << name.toStdString();
        EXPECT_FALSE(QFile::exists(files.Path(name + QStringLiteral("-journal")))) << name.toStdString();
    }
    EXPECT_EQ(NamesIn(files.Folder()), (QStringList{live, link, School, notes, QStringLiteral("letter")}));
}

TEST_F(UnfinishedFile, WhateverIsCopiedClearsAwayWhatKilledProgramsHaveLeft)
{
    const QString other = files.Path(QStringLiteral("Other.mdb"));
    LaySchoolFile(other, 3);
    const std::pair<const char*, std::function<void(Connection&)>> works[] = {
        {"backup", [this](auto& main) { store::BackUp(main, Password, files.Path(Place)); }},
        {"restore",
         [&](auto& main) { store::Restore(other, Password).PourInto(main, QDateTime::currentDateTime()); }},
        {"compacting", [](auto& main) { store::Compact(main, Password); }},
    };
    const QString left = QStringLiteral("Tallyboard.0000abcd.part");
    for (const auto& [name, work] : works) {
        QFile::remove(files.Path());
        LaySchoolFile(files.Path(), 3);
        WriteOld(left, 3700);
        Connection main(files.Path(), Password);
        work(main);
        EXPECT_FALSE(QFile::exists(files.Path(left))) << name;
    }
}

/// Begins a file in a process of its own, which draws the same numbers as all others, and leaves it there.
/// False when it could not be begun.
bool BeginAndDie(const StoreFiles& files)
{
    const pid_t program = fork();
    if (program == 0) {
        const auto error = ErrorOf([&files] { new store::UnfinishedFile(files.Folder(), files.Path()); });
        _exit(error ? 1 : 0);
    }
    int state = 0;
    EXPECT_EQ(waitpid(program, &state, 0), program);
    return WIFEXITED(state) && WEXITSTATUS(state) == 0;
}

TEST_F(UnfinishedFile, WhoseNameIsTakenTriesAnotherOneUpToTenTimes)
{
    QRandomGenerator::global()->generate();
    for (int taken = 0; taken < 10; ++taken)
        EXPECT_TRUE(BeginAndDie(files)) << taken;
    EXPECT_EQ(NamesIn(files.Folder()).size(), 1 + 10);
    EXPECT_FALSE(BeginAndDie(files));
    EXPECT_EQ(NamesIn(files.Folder()).size(), 1 + 10);
}

} // namespace
} // namespace tally::test
