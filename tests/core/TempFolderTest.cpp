#include "core/TempFolder.h"

#include "core/SessionContext.h"
#include "support/FileSizeLimit.h"
#include "support/ScreenFixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tally::test {
namespace {

class TempFolderTest : public ProgramFixture
{
protected:
    QString Path(const char* name) const { return Folder() + QLatin1Char('/') + QLatin1String(name); }
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
    QString Extract() const { return ExtractResource(1001, Session().gstrTempPath, QStringLiteral("jpg")); }
};

TEST_F(TempFolderTest, IsMadeAnewAndEmptyAndGoesAgain)
{
    ASSERT_TRUE(QDir(Folder()).mkpath(QStringLiteral("Temp")));
    for (const char* name : {"1001.jpg", "1002.jpg", "1003.jpg", "1004.jpg", "1005.swf", "1006.swf"})
        Write(qPrintable(QStringLiteral("Temp/") + QLatin1String(name)), "of an earlier run");
    CreateTempFolder();
    EXPECT_EQ(Session().gstrTempPath, Path("Temp"));
    EXPECT_TRUE(QDir(Path("Temp")).exists());
    EXPECT_TRUE(QDir(Path("Temp")).isEmpty());
    DeleteTempFolder();
    EXPECT_FALSE(QDir(Path("Temp")).exists());
}

TEST_F(TempFolderTest, KeepsWhatTheProgramDidNotPutThere)
{
    ASSERT_TRUE(QDir(Folder()).mkpath(QStringLiteral("Temp/Letters")));
    Write("Temp/Letters/1001.jpg", "a clerk's scan");
    Write("Temp/notes.txt", "a clerk's notes");
    Write("Temp/1001.jpg", "of an earlier run");
    CreateTempFolder();
    DeleteTempFolder();
    EXPECT_EQ(Read("Temp/Letters/1001.jpg"), "a clerk's scan");
    EXPECT_EQ(Read("Temp/notes.txt"), "a clerk's notes");
    EXPECT_FALSE(QFile::exists(Path("Temp/1001.jpg")));
}

TEST_F(TempFolderTest, ThatIsALinkIsNeitherEmptiedNorUsed)
{
    ASSERT_TRUE(QDir(Folder()).mkdir(QStringLiteral("Photos")));
    Write("Photos/1001.jpg", "another person's photo");
    Write("Photos/leave.txt", "another person's text");
    Link("Temp", "Photos");
    CreateTempFolder();
    EXPECT_EQ(Extract(), QString());
    DeleteTempFolder();
    EXPECT_EQ(Read("Photos/1001.jpg"), "another person's photo");
    EXPECT_EQ(Read("Photos/leave.txt"), "another person's text");
    EXPECT_TRUE(QFileInfo(Path("Temp")).isSymLink());
}

TEST_F(TempFolderTest, ThatIsALinkToNowhereMakesNothingThere)
{
    Link("Temp", "Photos");
    CreateTempFolder();
    EXPECT_EQ(Extract(), QString());
    EXPECT_FALSE(QFileInfo::exists(Path("Photos")));
    EXPECT_TRUE(QFileInfo(Path("Temp")).isSymLink());
}

TEST_F(TempFolderTest, ThatIsAFileIsLeftAsItIs)
{
    Write("Temp", "a clerk's notes");
    CreateTempFolder();
    EXPECT_EQ(Extract(), QString());
    DeleteTempFolder();
    EXPECT_EQ(Read("Temp"), "a clerk's notes");
}

TEST_F(TempFolderTest, APictureIsNeverWrittenThroughALink)
{
    Write("victim", "another person's text");
    CreateTempFolder();
    Link("Temp/1001.jpg", "victim");
    EXPECT_EQ(Extract(), QString());
    EXPECT_EQ(Read("victim"), "another person's text");
    CreateTempFolder();
    EXPECT_EQ(Read("victim"), "another person's text");
    EXPECT_TRUE(QFileInfo(Path("Temp/1001.jpg")).isSymLink());

    ASSERT_TRUE(QFile::remove(Path("victim")));
    EXPECT_EQ(Extract(), QString());
    EXPECT_FALSE(QFileInfo::exists(Path("victim")));
}

TEST_F(TempFolderTest, APictureReplacesTheOneOfAnEarlierClient)
{
    CreateTempFolder();
    Write("Temp/1001.jpg", "half a pict");
    EXPECT_EQ(Extract(), Path("Temp/1001.jpg"));
    EXPECT_GT(QFileInfo(Path("Temp/1001.jpg")).size(), 1000);
}

TEST_F(TempFolderTest, APictureThatFindsNoRoomLeavesNoHalfOne)
{
    CreateTempFolder();
    {
        const FileSizeLimit full(1000);
        EXPECT_EQ(Extract(), QString());
    }
    EXPECT_TRUE(QDir(Path("Temp")).isEmpty());
}

TEST_F(TempFolderTest, APictureIsShownAlsoWhereItCannotBeExtracted)
{
    CreateTempFolder();
    const QByteArray shown = ReadResource(1001, QStringLiteral("jpg"));
    EXPECT_EQ(Read("Temp/1001.jpg"), shown);
    DeleteTempFolder();
    Write("Temp", "a clerk's notes");
    EXPECT_EQ(ReadResource(1001, QStringLiteral("jpg")), shown);
    EXPECT_GT(shown.size(), 1000);
}

TEST_F(TempFolderTest, NothingIsExtractedWithoutAPictureOrAFolder)
{
    CreateTempFolder();
    EXPECT_EQ(ExtractResource(7, Session().gstrTempPath, QStringLiteral("jpg")), QString());
    EXPECT_TRUE(ReadResource(7, QStringLiteral("jpg")).isEmpty());
    EXPECT_TRUE(QDir(Path("Temp")).isEmpty());
    const QString startedIn = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(Folder()));
    EXPECT_EQ(ExtractResource(1001, QString(), QStringLiteral("jpg")), QString());
    EXPECT_TRUE(QDir::setCurrent(startedIn));
    EXPECT_FALSE(QFile::exists(Path("1001.jpg")));
}

TEST_F(TempFolderTest, IsMadeAgainForAPictureWhenAnotherClientTookItAway)
{
    CreateTempFolder();
    DeleteTempFolder();
    EXPECT_EQ(Extract(), Path("Temp/1001.jpg"));
    EXPECT_TRUE(QFile::exists(Path("Temp/1001.jpg")));
}

#ifndef Q_OS_WIN

struct HiddenList
{
    const char* before;
    const char* after;

    friend void PrintTo(const HiddenList& row, std::ostream* out)
    {
        *out << testing::PrintToString(row.before);
    }
};

class HidingTheTempFolder : public TempFolderTest, public testing::WithParamInterface<HiddenList>
{};

TEST_P(HidingTheTempFolder, KeepsWhatTheUserHid)
{
    Write(".hidden", GetParam().before);
    CreateTempFolder();
    CreateTempFolder();
    EXPECT_EQ(Read(".hidden"), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(Lists, HidingTheTempFolder,
                         testing::Values(HiddenList{"", "Temp\n"}, HiddenList{"Backup\n", "Backup\nTemp\n"},
                                         HiddenList{"Backup", "Backup\nTemp\n"}, HiddenList{"Temp", "Temp"},
                                         HiddenList{"Temporary\n", "Temporary\nTemp\n"}));

TEST_F(TempFolderTest, TheListOfHiddenNamesIsNeverWrittenThroughALink)
{
    Write("victim", "another person's text");
    Link(".hidden", "victim");
    CreateTempFolder();
    EXPECT_EQ(Read("victim"), "another person's text");

    ASSERT_TRUE(QFile::remove(Path("victim")));
    CreateTempFolder();
    EXPECT_FALSE(QFileInfo::exists(Path("victim")));
}

TEST_F(TempFolderTest, TheListOfHiddenNamesStaysWholeWhenTheDiskIsFull)
{
    Write(".hidden", "Backup\nLetters");
    {
        const FileSizeLimit full(16);
        CreateTempFolder();
    }
    EXPECT_EQ(Read(".hidden"), "Backup\nLetters");
}

#endif

} // namespace
} // namespace tally::test
