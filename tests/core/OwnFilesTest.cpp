#include "core/OwnFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tally::test {
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

    QTemporaryDir folder_;
};

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

TEST_F(OwnFiles, AFileNeverMovesOverAnotherOneOrThroughALink)
{
    Write("draft", "text");
    Write("letter", "a clerk's letter");
    Link("to letter", "letter");
    Link("to nowhere", "nowhere");
    for (const char* name : {"letter", "to letter", "to nowhere"})
        EXPECT_FALSE(MoveToFreeName(Path("draft"), Path(name))) << name;
    EXPECT_EQ(Read("draft"), "text");
    EXPECT_EQ(Read("letter"), "a clerk's letter");
    EXPECT_FALSE(QFileInfo::exists(Path("nowhere")));
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

} // namespace
} // namespace tally::test
