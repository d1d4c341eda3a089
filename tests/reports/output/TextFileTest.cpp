#include "reports/output/TextFile.h"

#include "core/ProgramFolder.h"
#include "core/ui/OpenDocument.h"
#include "reports/output/Disk.h"
#include "support/AsOrdinaryUser.h"
#include "support/ExpectedPrompts.h"
#include "support/FileSizeLimit.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLockFile>
#include <QTemporaryDir>

#include <deque>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tally::test {
namespace {

/// A program's folder, and a program for texts that remembers what it was asked to open.
class TextFileTest : public testing::Test
{
protected:
    void SetUp() override
    {
        SetProgramFolder(folder_.path());
        UseTextProgram([this](const QString& path) {
            EXPECT_FALSE(path.isEmpty()) << "nothing was written that could be opened";
            EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
            opened = QFileInfo(path).fileName();
            read = Content(opened);
            return opens;
        });
    }
    void TearDown() override
    {
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        GiveTextFilesBack();
        UseTextProgram({});
        SetProgramFolder({});
    }

    QString Path(const QString& name) const { return QDir(folder_.path()).filePath(name); }
    std::string Content(const QString& name) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no file";
    }
    std::string Files() const
    {
        return QDir(folder_.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
            .join(QLatin1Char(' '))
            .toStdString();
    }
    void Show(const char* text) const
    {
        ShowTextFile(QStringLiteral("Summary.txt"), QString::fromUtf8(text));
    }
    QString NotWritten() const
    {
        return QStringLiteral("The report could not be written into the folder \"%1\". The disk may be full, "
                              "or you may not write there.")
            .arg(folder_.path());
    }

    ExpectedPrompts prompts;
    QString opened;   ///< the file that was opened last
    std::string read; ///< what it held then
    bool opens = true;

private:
    QTemporaryDir folder_;
};

TEST_F(TextFileTest, AReportIsWrittenIntoTheProgramsFolderAndOpened)
{
    Show("Marks of Élève\n");
    EXPECT_EQ(opened.toStdString(), "Summary.txt");
    EXPECT_EQ(read, "Marks of Élève\n");
}

TEST_F(TextFileTest, TheNextReportOfTheSameClientTakesThePlaceOfTheOneBefore)
{
    Show("a long report of many lines\n");
    Show("short\n");
    EXPECT_EQ(opened.toStdString(), "Summary.txt");
    EXPECT_EQ(read, "short\n");
}

TEST_F(TextFileTest, AFileOfDaysAgoIsReplaced)
{
    QFile old(Path(QStringLiteral("Summary.txt")));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    Show("new\n");
    EXPECT_EQ(Content(QStringLiteral("Summary.txt")), "new\n");
}

TEST_F(TextFileTest, WhileAnotherClientHasTheFileTheReportGetsANameOfItsOwn)
{
    QLockFile other(Path(QStringLiteral("Summary.txt.lock")));
    ASSERT_TRUE(other.tryLock(0));
    QFile theirs(Path(QStringLiteral("Summary.txt")));
    ASSERT_TRUE(theirs.open(QIODevice::WriteOnly));
    theirs.write("theirs");
    theirs.close();

    Show("mine\n");
    EXPECT_EQ(opened.toStdString(), "Summary 2.txt");
    EXPECT_EQ(read, "mine\n");
    EXPECT_EQ(Content(QStringLiteral("Summary.txt")), "theirs");

    other.unlock();
    Show("mine again\n");
    EXPECT_EQ(opened.toStdString(), "Summary 2.txt") << "a client keeps its file as long as it runs";
    EXPECT_EQ(Content(QStringLiteral("Summary.txt")), "theirs");
}

TEST_F(TextFileTest, TheThirdClientGetsAThirdName)
{
    QLockFile first(Path(QStringLiteral("Summary.txt.lock")));
    QLockFile second(Path(QStringLiteral("Summary 2.txt.lock")));
    ASSERT_TRUE(first.tryLock(0));
    ASSERT_TRUE(second.tryLock(0));
    Show("third\n");
    EXPECT_EQ(opened.toStdString(), "Summary 3.txt");
}

TEST_F(TextFileTest, AHundredClientsHaveANameEach)
{
    std::deque<QLockFile> others;
    for (int client = 1; client < 100; ++client) {
        const QString number = client > 1 ? QStringLiteral(" %1").arg(client) : QString();
        ASSERT_TRUE(others.emplace_back(Path(QStringLiteral("Summary%1.txt.lock").arg(number))).tryLock(0));
    }
    Show("the last one's\n");
    EXPECT_EQ(opened.toStdString(), "Summary 100.txt");
}

TEST_F(TextFileTest, TheLockOfAClientOnAnotherMachineHoldsHoweverOldItIs)
{
    QFile lock(Path(QStringLiteral("Summary.txt.lock")));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write("99999999\ntallyboard\nthe-head-s-room\n");
    ASSERT_TRUE(lock.flush());
    constexpr int AnHour = 3600;
    ASSERT_TRUE(
        lock.setFileTime(QDateTime::currentDateTime().addSecs(-AnHour), QFileDevice::FileModificationTime));
    lock.close();
    Show("mine\n");
    EXPECT_EQ(opened.toStdString(), "Summary 2.txt");
}

TEST_F(TextFileTest, TheLockOfAClientThatDiedIsNobodys)
{
    // A program that nobody has started wrote it: the number of its process is beyond all that there are.
    QFile lock(Path(QStringLiteral("Summary.txt.lock")));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write("99999999\ntallyboard\n" + QSysInfo::machineHostName().toUtf8() + "\n" +
               QSysInfo::machineUniqueId() + "\n" + QSysInfo::bootUniqueId() + "\n");
    lock.close();
    Show("mine\n");
    EXPECT_EQ(opened.toStdString(), "Summary.txt");
}

TEST_F(TextFileTest, AtTheEndOfTheProgramItsFilesAreFreeAgain)
{
    Show("mine\n");
    EXPECT_EQ(Files(), "Summary.txt Summary.txt.lock");
    GiveTextFilesBack();
    EXPECT_EQ(Files(), "Summary.txt");
    QLockFile other(Path(QStringLiteral("Summary.txt.lock")));
    EXPECT_TRUE(other.tryLock(0));
}

TEST_F(TextFileTest, NothingIsWrittenThroughALinkThatSomebodyHasPutThere)
{
    QFile elsewhere(Path(QStringLiteral("letter")));
    ASSERT_TRUE(elsewhere.open(QIODevice::WriteOnly));
    elsewhere.write("Dear Sir");
    elsewhere.close();
    ASSERT_TRUE(QFile::link(elsewhere.fileName(), Path(QStringLiteral("Summary.txt"))));
    Show("mine\n");
    EXPECT_EQ(opened.toStdString(), "Summary 2.txt");
    EXPECT_EQ(Content(QStringLiteral("letter")), "Dear Sir");
}

TEST_F(TextFileTest, OnAFullDiskTheUserIsToldAndTheReportBeforeStands)
{
    Show("before\n");
    opened.clear();
    {
        const FileSizeLimit full(4096);
        prompts.ExpectCritical(NotWritten());
        Show(std::string(100000, 'x').c_str());
        prompts.Verify();
    }
    EXPECT_EQ(opened.toStdString(), "");
    EXPECT_EQ(Content(QStringLiteral("Summary.txt")), "before\n");
    EXPECT_EQ(Files(), "Summary.txt Summary.txt.lock") << "no half of a file is left";
    Show("after\n");
    EXPECT_EQ(read, "after\n");
}

TEST_F(TextFileTest, ADiskThatIsOnlyFoundFullInTheEndLeavesTheReportBefore)
{
    Show("before\n");
    opened.clear();
    // The file has no name of its own until it is whole.
    disk.fails = QStringLiteral("#");
    prompts.ExpectCritical(NotWritten());
    Show("after\n");
    prompts.Verify();
    disk.fails.clear();
    EXPECT_EQ(opened.toStdString(), "");
    EXPECT_EQ(Content(QStringLiteral("Summary.txt")), "before\n");
    EXPECT_EQ(Files(), "Summary.txt Summary.txt.lock");
}

TEST_F(TextFileTest, AReportThatSomebodyElseHasLeftAndNobodyMayReplaceIsPassedOver)
{
    QFile theirs(Path(QStringLiteral("Summary.txt")));
    ASSERT_TRUE(theirs.open(QIODevice::WriteOnly));
    theirs.write("theirs");
    theirs.close();
    constexpr auto OwnerWrites = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther;
    ASSERT_TRUE(theirs.setPermissions(OwnerWrites));
    // Everybody may write into such a folder, and replace nothing but his own.
    constexpr mode_t EachHisOwn = S_ISVTX | S_IRWXU | S_IRWXG | S_IRWXO;
    ASSERT_EQ(chmod(QFile::encodeName(ProgramFolder()).constData(), EachHisOwn), 0);
    {
        const AsOrdinaryUser clerk;
        Show("mine\n");
        prompts.Verify();
    }
    EXPECT_EQ(opened.toStdString(), "Summary 2.txt");
    EXPECT_EQ(read, "mine\n");
    EXPECT_EQ(Content(QStringLiteral("Summary.txt")), "theirs");
}

TEST_F(TextFileTest, AFolderThatCannotBeWrittenIsTold)
{
    constexpr auto ReadOnly = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
    ASSERT_TRUE(QFile::setPermissions(ProgramFolder(), ReadOnly));
    {
        const AsOrdinaryUser clerk;
        prompts.ExpectCritical(NotWritten());
        Show("mine\n");
        prompts.Verify();
    }
    EXPECT_EQ(opened.toStdString(), "");
    ASSERT_TRUE(QFile::setPermissions(ProgramFolder(), ReadOnly | QFile::WriteOwner));
}

TEST_F(TextFileTest, WithoutAProgramForTextsTheUserIsToldWhereTheReportIs)
{
    opens = false;
    prompts.ExpectCritical(
        QStringLiteral("The report is saved as \"%1\", but the program for texts did not start.")
            .arg(Path(QStringLiteral("Summary.txt"))));
    Show("mine\n");
    prompts.Verify();
    EXPECT_EQ(Content(QStringLiteral("Summary.txt")), "mine\n");
}

} // namespace
} // namespace tally::test
