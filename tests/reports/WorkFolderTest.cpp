#include "reports/WorkFolder.h"

#include "core/OpenDocument.h"
#include "reports/ExportWorkbook.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSysInfo>

#include <gtest/gtest.h>
#include <memory>

namespace tally::test {
namespace {

/// The folder that workbooks are saved in, with what exports left there.
class WorkFolders : public testing::Test
{
protected:
    void SetUp() override { SetExportFolder(home_.path()); }
    void TearDown() override { SetExportFolder({}); }

    QString Path(const char* name) const { return home_.filePath(QString::fromLatin1(name)); }
    void Write(const char* name, const QByteArray& text) const
    {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    /// A work folder that a program with a process that has ended left on `machine`.
    void LeaveDead(const char* folder, const QString& machine = QSysInfo::machineHostName()) const
    {
        QProcess ended;
        ended.start(QStringLiteral("true"), QStringList());
        const qint64 id = ended.processId();
        ASSERT_TRUE(ended.waitForFinished());
        ASSERT_TRUE(QDir(home_.path()).mkdir(QString::fromLatin1(folder)));
        Write((QByteArray(folder) + "/in-use.lock").constData(),
              QByteArray::number(id) + "\ntallyboard\n" + machine.toUtf8() + '\n');
        Write((QByteArray(folder) + "/draft.xlsx").constData(), "half a workbook");
    }
    QStringList Left() const
    {
        return QDir(home_.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QTemporaryDir home_;
};

TEST_F(WorkFolders, GoWithTheirContentAtTheEndOfTheExport)
{
    {
        const WorkFolder work{QDir(home_.path())};
        ASSERT_TRUE(work.IsValid());
        QFile draft(work.Path() + QStringLiteral("/draft.xlsx"));
        ASSERT_TRUE(draft.open(QIODevice::WriteOnly));
        EXPECT_EQ(Left().size(), 1);
    }
    EXPECT_EQ(Left(), QStringList());
}

TEST_F(WorkFolders, OfAKilledProgramAreClearedAwayAndThoseOfALivingOneAreNot)
{
    QProcess client;
    client.start(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("export_client")),
                 {home_.path()});
    ASSERT_TRUE(client.waitForStarted());
    ASSERT_TRUE(client.waitForReadyRead(60000)) << client.readAllStandardError().toStdString();
    ASSERT_EQ(client.readLine(), "writing\n");
    ASSERT_EQ(Left().size(), 1);

    ClearDeadExports();
    EXPECT_EQ(Left().size(), 1) << "the export goes on";

    client.kill();
    ASSERT_TRUE(client.waitForFinished());
    EXPECT_EQ(Left().size(), 1);
    ClearDeadExports();
    EXPECT_EQ(Left(), QStringList());
}

TEST_F(WorkFolders, OfAnotherMachineAreLeftToIt)
{
    LeaveDead(".export-aaaaaa");
    LeaveDead(".export-bbbbbb", QStringLiteral("the-head-s-room"));
    ClearDeadExports();
    EXPECT_EQ(Left(), QStringList(QStringLiteral(".export-bbbbbb")));
    EXPECT_TRUE(QFile::exists(Path(".export-bbbbbb/draft.xlsx")));
}

TEST_F(WorkFolders, ThatDiedBeforeTheyWereLockedAreClearedAway)
{
    ASSERT_TRUE(QDir(home_.path()).mkdir(QStringLiteral(".export-aaaaaa")));
    ClearDeadExports();
    EXPECT_EQ(Left(), QStringList());
}

TEST_F(WorkFolders, OnlyAreClearedAwayAndNoLinkIsFollowed)
{
    ASSERT_TRUE(QDir(home_.path()).mkdir(QStringLiteral(".export-photos")));
    Write(".export-photos/photo.jpg", "a clerk's photo");
    ASSERT_TRUE(QDir(home_.path()).mkdir(QStringLiteral("elsewhere")));
    LeaveDead("elsewhere/.export-aaaaaa");
    ASSERT_TRUE(QFile::link(Path("elsewhere/.export-aaaaaa"), Path(".export-linked")));
    LeaveDead(".export-bbbbbb");
    ASSERT_TRUE(QFile::link(Path("elsewhere"), Path(".export-bbbbbb/folder")));
    ASSERT_TRUE(QFile::link(Path(".export-photos/photo.jpg"), Path(".export-bbbbbb/photo.jpg")));
    Write("Rank List.xlsx", "a workbook");
    const QStringList before = Left();

    ClearDeadExports();
    EXPECT_EQ(Left(), before);
    EXPECT_TRUE(QFile::exists(Path(".export-photos/photo.jpg")));
    EXPECT_TRUE(QFile::exists(Path("elsewhere/.export-aaaaaa/draft.xlsx")));
    EXPECT_FALSE(QFile::exists(Path(".export-bbbbbb/draft.xlsx")));
}

TEST_F(WorkFolders, AreNotLookedForWhereNoWorkbookWasEverSaved)
{
    SetExportFolder(Path("Tally Board"));
    ClearDeadExports();
    EXPECT_FALSE(QFileInfo::exists(Path("Tally Board")));
}

} // namespace
} // namespace tally::test
