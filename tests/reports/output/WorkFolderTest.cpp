#include "reports/output/WorkFolder.h"

#include "core/ui/OpenDocument.h"
#include "reports/output/ExportWorkbook.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSysInfo>
#include <QTemporaryDir>

#include <array>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <thread>
#include <unistd.h>

namespace tally::test {
namespace {

constexpr int TwoHours = 7200; // in seconds

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
    /// Makes the file look as if it had been written so long ago.
    void Age(const char* name, int seconds) const
    {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds),
                                     QFileDevice::FileModificationTime));
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

TEST_F(WorkFolders, LeaveWhatSomebodyHasPutIntoThemMeanwhile)
{
    QString letter;
    {
        const WorkFolder work{QDir(home_.path())};
        ASSERT_TRUE(work.IsValid());
        letter = QFileInfo(work.Path()).fileName() + QStringLiteral("/letter.odt");
        Write(letter.toUtf8().constData(), "a clerk's letter");
    }
    EXPECT_TRUE(QFile::exists(home_.filePath(letter)));
}

/// The names to which `change` happened in the folder that `watch` is put on, in their order.
QStringList Reported(int watch, std::uint32_t change)
{
    std::array<char, 4096> events{};
    const ssize_t length = read(watch, events.data(), events.size());
    QStringList names;
    for (ssize_t at = 0; at < length;) {
        inotify_event event{};
        std::memcpy(&event, events.data() + at, sizeof event);
        at += static_cast<ssize_t>(sizeof event);
        if ((event.mask & change) != 0)
            names += QString::fromUtf8(events.data() + at);
        at += event.len;
    }
    return names;
}

TEST_F(WorkFolders, AreEmptiedBeforeTheirLockGoes)
{
    const int watch = inotify_init1(IN_NONBLOCK);
    {
        const WorkFolder work{QDir(home_.path())};
        ASSERT_TRUE(work.IsValid());
        for (const char* name : {"draft.xlsx", "workbook.xlsx", "tmp.a1B2c3D4e5"})
            Write((QFileInfo(work.Path()).fileName() + u'/' + QLatin1String(name)).toUtf8().constData(),
                  "rows");
        ASSERT_GE(inotify_add_watch(watch, QFile::encodeName(work.Path()).constData(), IN_DELETE), 0);
    }
    const QStringList removed = Reported(watch, IN_DELETE);
    close(watch);
    ASSERT_EQ(removed.size(), 4);
    EXPECT_EQ(removed.last(), QStringLiteral("in-use.lock"))
        << "a program that is killed meanwhile leaves a folder that tells it is dead";
    EXPECT_EQ(Left(), QStringList());
}

TEST_F(WorkFolders, AreMadeWhileOtherCopiesStart)
{
    // As a copy does that starts between the making of the folder and the taking of its lock.
    const int watch = inotify_init1(0);
    ASSERT_GE(inotify_add_watch(watch, QFile::encodeName(home_.path()).constData(), IN_CREATE), 0);
    // Each copy starts once. One that never ended would take folder after folder, as fast as they are made.
    constexpr int Starts = 3;
    std::atomic<bool> done = false;
    std::atomic<int> cleared = 0;
    std::thread starting([&] {
        while (!done && cleared < Starts) {
            for (const QString& name : Reported(watch, IN_CREATE))
                cleared += QDir().rmdir(home_.filePath(name)) ? 1 : 0;
        }
    });
    constexpr int MostExports = 5000;
    int notMade = 0;
    for (int i = 0; i < MostExports && cleared < Starts; ++i)
        notMade += WorkFolder(QDir(home_.path())).IsValid() ? 0 : 1;
    done = true;
    Write("wake up", "");
    starting.join();
    close(watch);
    EXPECT_GE(cleared, Starts);
    EXPECT_EQ(notMade, 0);
    EXPECT_EQ(Left(), QStringList(QStringLiteral("wake up")));
}

TEST_F(WorkFolders, AreNotMadeWhereNothingCanBeWritten)
{
    Write("file", "text");
    EXPECT_FALSE(WorkFolder(QDir(Path("file"))).IsValid());
    EXPECT_EQ(Left(), QStringList(QStringLiteral("file")));
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
    // It may still be at work: how long that has been so says nothing.
    Age(".export-bbbbbb/in-use.lock", TwoHours);
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

TEST_F(WorkFolders, ThatDiedWhileTheyWereLockedAreClearedAwayAfterAnHour)
{
    for (const char* name : {".export-aaaaaa", ".export-bbbbbb"}) {
        ASSERT_TRUE(QDir(home_.path()).mkdir(QString::fromLatin1(name)));
        Write((QByteArray(name) + "/in-use.lock").constData(), "");
    }
    Age(".export-aaaaaa/in-use.lock", TwoHours);
    ClearDeadExports();
    EXPECT_EQ(Left(), QStringList(QStringLiteral(".export-bbbbbb"))) << "it may just be getting its lock";
}

TEST_F(WorkFolders, ThatDiedWhileTheyWereClearedAreClearedAway)
{
    LeaveDead(".export-aaaaaa");
    Write(".export-aaaaaa/workbook.xlsx", "a workbook");
    Write(".export-aaaaaa/tmp.a1B2c3D4e5", "rows");
    Write(".export-aaaaaa/in-use.lock.rmlock", "");
    ASSERT_TRUE(QFile::remove(Path(".export-aaaaaa/in-use.lock")));
    ClearDeadExports();
    EXPECT_EQ(Left(), QStringList());
}

TEST_F(WorkFolders, ThatHoldWhatNoExportMakesAreNotTouched)
{
    ASSERT_TRUE(QDir(home_.path()).mkdir(QStringLiteral(".export-hidden")));
    Write(".export-hidden/.mine", "a clerk's file");
    LeaveDead(".export-aaaaaa");
    Write(".export-aaaaaa/letter.odt", "a clerk's letter");
    ClearDeadExports();
    for (const char* name :
         {".export-hidden/.mine", ".export-aaaaaa/letter.odt", ".export-aaaaaa/draft.xlsx"})
        EXPECT_TRUE(QFile::exists(Path(name))) << name;
    EXPECT_FALSE(QFile::exists(Path(".export-hidden/in-use.lock")));
}

TEST_F(WorkFolders, OnlyAreClearedAwayAndNoLinkIsFollowed)
{
    ASSERT_TRUE(QDir(home_.path()).mkdir(QStringLiteral(".export-photos")));
    Write(".export-photos/photo.jpg", "a clerk's photo");
    ASSERT_TRUE(QDir(home_.path()).mkdir(QStringLiteral("elsewhere")));
    LeaveDead("elsewhere/.export-aaaaaa");
    ASSERT_TRUE(QFile::link(Path("elsewhere/.export-aaaaaa"), Path(".export-linked")));
    LeaveDead(".export-bbbbbb");
    ASSERT_TRUE(QFile::link(Path("elsewhere"), Path(".export-bbbbbb/tmp.folder")));
    ASSERT_TRUE(QFile::link(Path(".export-photos/photo.jpg"), Path(".export-bbbbbb/workbook.xlsx")));
    Write("Rank List.xlsx", "a workbook");
    const QStringList before = Left();

    ClearDeadExports();
    EXPECT_EQ(Left(), before);
    EXPECT_TRUE(QFile::exists(Path(".export-photos/photo.jpg")));
    EXPECT_TRUE(QFile::exists(Path("elsewhere/.export-aaaaaa/draft.xlsx")));
    EXPECT_FALSE(QFile::exists(Path(".export-bbbbbb/draft.xlsx")));
}

TEST_F(WorkFolders, WhoseLockIsALinkAreNotTouched)
{
    Write("a clerk's empty file", "");
    Age("a clerk's empty file", TwoHours);
    ASSERT_TRUE(QDir(home_.path()).mkdir(QStringLiteral(".export-aaaaaa")));
    ASSERT_TRUE(QFile::link(Path("a clerk's empty file"), Path(".export-aaaaaa/in-use.lock")));
    const QStringList before = Left();
    ClearDeadExports();
    EXPECT_EQ(Left(), before);
}

TEST_F(WorkFolders, AreNotLookedForWhereNoWorkbookWasEverSaved)
{
    SetExportFolder(Path("Tally Board"));
    ClearDeadExports();
    EXPECT_FALSE(QFileInfo::exists(Path("Tally Board")));
}

} // namespace
} // namespace tally::test
