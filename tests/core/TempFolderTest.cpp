#include "core/TempFolder.h"

#include "core/SessionContext.h"
#include "support/ScreenFixture.h"

#include <QDir>
#include <QFile>

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
};

TEST_F(TempFolderTest, IsMadeAnewAndEmptyAndGoesAgain)
{
    ASSERT_TRUE(QDir(Folder()).mkpath(QStringLiteral("Temp/left")));
    Write("Temp/1001.jpg", "of an earlier run");
    EXPECT_TRUE(CreateTempFolder());
    EXPECT_EQ(Session().gstrTempPath, Path("Temp"));
    EXPECT_TRUE(QDir(Path("Temp")).exists());
    EXPECT_TRUE(QDir(Path("Temp")).isEmpty());
    DeleteTempFolder();
    EXPECT_FALSE(QDir(Path("Temp")).exists());
}

#ifndef Q_OS_WIN

struct HiddenList
{
    const char* before;
    const char* after;
};

class HidingTheTempFolder : public TempFolderTest, public testing::WithParamInterface<HiddenList>
{};

TEST_P(HidingTheTempFolder, KeepsWhatTheUserHid)
{
    Write(".hidden", GetParam().before);
    ASSERT_TRUE(CreateTempFolder());
    ASSERT_TRUE(CreateTempFolder());
    QFile list(Path(".hidden"));
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    EXPECT_EQ(list.readAll().toStdString(), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(Lists, HidingTheTempFolder,
                         testing::Values(HiddenList{"", "Temp\n"}, HiddenList{"Backup\n", "Backup\nTemp\n"},
                                         HiddenList{"Backup", "Backup\nTemp\n"}, HiddenList{"Temp", "Temp"},
                                         HiddenList{"Temporary\n", "Temporary\nTemp\n"}));

#endif

} // namespace
} // namespace tally::test
