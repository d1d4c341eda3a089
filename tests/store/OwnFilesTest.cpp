#include "store/OwnFiles.h"

#include "store/StoreError.h"
#include "support/FileSizeLimit.h"
#include "support/OpenFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <array>
#include <cerrno>
#include <gtest/gtest.h>
#include <limits>
#include <sys/inotify.h>
#include <unistd.h>

namespace tally::test {

using namespace store;

namespace {

class OwnFiles : public testing::Test
{
protected:
    QString Path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }
    void Write(const char* name, const QByteArray& text) const
    {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QByteArray Read(const char* name) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
    }
    void Link(const char* name, const char* target) const
    {
        ASSERT_TRUE(QFile::link(Path(target), Path(name)));
    }
    std::filesystem::path Native(const char* name) const
    {
        return QFileInfo(Path(name)).filesystemFilePath();
    }
    /// A draft, and names that are taken in every manner.
    void LayLetters() const
    {
        Write("draft", "text");
        Write("letter", "a clerk's letter");
        Link("to letter", "letter");
        Link("to nowhere", "nowhere");
    }
    void ExpectLettersUntouched() const
    {
        EXPECT_EQ(Read("draft"), "text");
        EXPECT_EQ(Read("letter"), "a clerk's letter");
        EXPECT_FALSE(QFileInfo::exists(Path("nowhere")));
        EXPECT_TRUE(QFileInfo(Path("to nowhere")).isSymLink());
    }

    QTemporaryDir folder_;
};

TEST_F(OwnFiles, WhatADiskHasNoRoomForDoesNotLieOnIt)
{
    QFile file(Path("letter"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write("a clerk's letter"), 16);
    {
        const FileSizeLimit full(4);
        EXPECT_FALSE(BringToDisk(file));
    }
    EXPECT_TRUE(BringToDisk(file));
    EXPECT_EQ(Read("letter"), "a clerk's letter");
}

TEST_F(OwnFiles, AReplacedFileIsWholeOrTheOneBefore)
{
    const QString path = Path("letter");
    EXPECT_TRUE(ReplaceFile(path, "a clerk's letter"));
    EXPECT_EQ(Read("letter"), "a clerk's letter");
    EXPECT_TRUE(ReplaceFile(path, "short"));
    EXPECT_EQ(Read("letter"), "short");
    {
        const FileSizeLimit full(4);
        EXPECT_FALSE(ReplaceFile(path, "another letter"));
    }
    EXPECT_EQ(Read("letter"), "short");
    EXPECT_FALSE(ReplaceFile(Path("no folder/letter"), "text"));
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files).join(u' ').toStdString(), "letter");
}

TEST_F(OwnFiles, ALinkIsNeitherAPlainFileNorAPlainFolderNorAFreeName)
{
    Write("file", "text");
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("folder")));
    Link("to file", "file");
    Link("to folder", "folder");
    Link("to nowhere", "nowhere");
    EXPECT_TRUE(IsPlainFile(Path("file")));
    EXPECT_TRUE(IsPlainFolder(Path("folder")));
    EXPECT_TRUE(IsFreeName(Path("nowhere")));
    EXPECT_FALSE(IsPlainFile(Path("folder")));
    EXPECT_FALSE(IsPlainFolder(Path("file")));
    for (const char* name : {"to file", "to folder", "to nowhere"}) {
        EXPECT_FALSE(IsPlainFile(Path(name))) << name;
        EXPECT_FALSE(IsPlainFolder(Path(name))) << name;
        EXPECT_FALSE(IsFreeName(Path(name))) << name;
    }
}

TEST_F(OwnFiles, AFileMovesToAFreeName)
{
    Write("draft", "text");
    EXPECT_TRUE(MoveToFreeName(Path("draft"), Path("letter")));
    EXPECT_EQ(Read("letter"), "text");
    EXPECT_FALSE(QFile::exists(Path("draft")));
}

TEST_F(OwnFiles, WhateverIsMovedOrReplacedIsHeldOpenByNobody)
{
    const std::string before = OpenFiles();
    Write("draft", "text");
    EXPECT_TRUE(MoveToFreeName(Path("draft"), Path("letter")));
    EXPECT_TRUE(MoveInPlace(Path("letter"), Path("draft")));
    EXPECT_TRUE(ReplaceFile(Path("draft"), "another text"));
    EXPECT_EQ(OpenFiles(), before);
}

TEST_F(OwnFiles, AFileNeverMovesOverAnotherOneOrThroughALink)
{
    LayLetters();
    for (const char* name : {"letter", "to letter", "to nowhere"})
        EXPECT_FALSE(MoveToFreeName(Path("draft"), Path(name))) << name;
    ExpectLettersUntouched();
}

TEST_F(OwnFiles, AFileMovesInEveryWayThatAFileSystemMayKnow)
{
    for (const MoveWay move : MoveWays()) {
        Write("draft", "text");
        EXPECT_FALSE(move(Native("draft"), Native("letter")));
        EXPECT_EQ(Read("letter"), "text");
        EXPECT_FALSE(QFile::exists(Path("draft")));
        ASSERT_TRUE(QFile::remove(Path("letter")));
    }
}

TEST_F(OwnFiles, AFileNeverMovesOverAnotherOneOrThroughALinkInAnyWay)
{
    LayLetters();
    for (const MoveWay move : MoveWays()) {
        for (const char* name : {"letter", "to letter", "to nowhere"})
            EXPECT_EQ(move(Native("draft"), Native(name)), std::errc::file_exists) << name;
        ExpectLettersUntouched();
    }
}

TEST_F(OwnFiles, OnlyTheLastWayLaysAnEmptyFileUnderTheNewName)
{
    for (const MoveWay move : MoveWays()) {
        Write("draft", "text");
        const int watch = inotify_init1(IN_NONBLOCK);
        ASSERT_GE(inotify_add_watch(watch, QFile::encodeName(folder_.path()).constData(), IN_OPEN), 0);
        EXPECT_FALSE(move(Native("draft"), Native("letter")));
        std::array<char, 4096> opened{};
        const bool wasOpened = read(watch, opened.data(), opened.size()) > 0;
        close(watch);
        EXPECT_EQ(wasOpened, move == MoveWays().back());
        ASSERT_TRUE(QFile::remove(Path("letter")));
    }
}

TEST_F(OwnFiles, AMoveThatFailsLeavesNothingUnderTheNewName)
{
    for (const MoveWay move : MoveWays()) {
        EXPECT_TRUE(move(Native("nowhere"), Native("letter")));
        EXPECT_TRUE(IsFreeName(Path("letter")));
    }
    EXPECT_FALSE(MoveToFreeName(Path("nowhere"), Path("letter")));
    EXPECT_TRUE(IsFreeName(Path("letter")));
}

TEST_F(OwnFiles, AFolderGoesOnlyWhenNothingButOwnFilesLiesInIt)
{
    const QStringList own{QStringLiteral("picture"), QStringLiteral("movie")};
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("folder")));
    Write("folder/picture", "own");
    Write("folder/notes", "a clerk's notes");
    Write("letter", "a clerk's letter");
    Link("folder/movie", "letter");
    RemoveOwnFolder(Path("folder"), own);
    EXPECT_FALSE(QFile::exists(Path("folder/picture")));
    EXPECT_EQ(Read("folder/notes"), "a clerk's notes");
    EXPECT_EQ(Read("folder/movie"), "a clerk's letter");

    ASSERT_TRUE(QFile::remove(Path("folder/notes")));
    ASSERT_TRUE(QFile::remove(Path("folder/movie")));
    RemoveOwnFolder(Path("folder"), own);
    EXPECT_FALSE(QFileInfo::exists(Path("folder")));
}

TEST_F(OwnFiles, AFolderBehindALinkIsNotEntered)
{
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("photos")));
    Write("photos/picture", "another person's photo");
    Link("folder", "photos");
    RemoveOwnFolder(Path("folder"), {QStringLiteral("picture")});
    EXPECT_EQ(Read("photos/picture"), "another person's photo");
    EXPECT_TRUE(QFileInfo(Path("folder")).isSymLink());
}

/// A disk that takes nothing and does not say why.
class StubbornDisk : public QIODevice
{
protected:
    qint64 readData(char*, qint64) override { return 0; }
    qint64 writeData(const char*, qint64) override { return 0; }
};

TEST(WriteAll, GivesUpWhereNothingIsTaken)
{
    StubbornDisk disk;
    ASSERT_TRUE(disk.open(QIODevice::WriteOnly));
    EXPECT_THROW(store::WriteAll(disk, "a clerk's letter"), StoreError);
}

TEST(CopyFailure, CallsADiskWithoutRoomByItsNameWhoeverSetTheLimit)
{
    const auto told = [](int reason) {
        errno = reason;
        return CopyFailure().Description();
    };
    const QString full = QStringLiteral("The Disk Is Full. This Was Not Saved (%1)");
    for (const int reason : {ENOSPC, EDQUOT})
        EXPECT_EQ(told(reason), full.arg(qt_error_string(reason)));
    EXPECT_EQ(told(EIO), QStringLiteral("The Copy Could Not Be Written (%1)").arg(qt_error_string(EIO)));
}

TEST_F(OwnFiles, ACopyOfWhatIsNoLongerThereKeepsItsRights)
{
    Write("copy", "text");
    QFile copy(Path("copy"));
    ASSERT_TRUE(copy.open(QIODevice::ReadWrite));
    const auto before = copy.permissions();
    TakeRightsOf(copy, Path("nowhere"));
    EXPECT_EQ(QFile::permissions(Path("copy")), before);
}

TEST(OwnFilesRoomTest, ACopyLeavesRoomForTwoFilesLikeIt)
{
    EXPECT_TRUE(LeavesRoom(300, 100));
    EXPECT_FALSE(LeavesRoom(299, 100));
    EXPECT_TRUE(LeavesRoom(0, 0));
    const QTemporaryDir folder;
    EXPECT_TRUE(HasRoomFor(1, folder.path()));
    EXPECT_FALSE(HasRoomFor(std::numeric_limits<qint64>::max() / 4, folder.path()));
    EXPECT_TRUE(HasRoomFor(1, folder.filePath(QStringLiteral("Nowhere")))) << "in doubt there is";
}

TEST(OwnFilesRoomTest, AFolderLiesOnTheDiskOfTheFolderAroundItAndInDoubtEverythingDoes)
{
    const QTemporaryDir folder;
    EXPECT_TRUE(AreOnOneDisk(folder.path(), QFileInfo(folder.path()).path()));
    EXPECT_TRUE(AreOnOneDisk(folder.path(), folder.filePath(QStringLiteral("Nowhere"))));
    EXPECT_FALSE(AreOnOneDisk(folder.path(), QStringLiteral("/proc")));
}

} // namespace
} // namespace tally::test
