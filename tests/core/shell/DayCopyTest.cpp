#include "core/DayCopy.h"

#include "core/shell/mdiTallyboard.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/ScreenRegistry.h"
#include "store/Backup.h"
#include "support/FileSizeLimit.h"
#include "support/ScreenFixture.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>

namespace tally::test {
namespace {

class DayCopyTest : public ScreenFixture
{
protected:
    QString MainFile() const { return Folder() + QStringLiteral("/Tallyboard.mdb"); }
    QStringList Copies() const { return store::DayCopies(MainFile()); }
    void Close()
    {
        prompts.ExpectQuestion(QStringLiteral("Do You Want To Close The 'KITE-Tally Board' ?"), true);
        window->MenuItem(QStringLiteral("mnuClose"))->trigger();
        prompts.Verify();
    }
    void StartAgain()
    {
        delete window;
        OpenConnections();
        window = mdiTallyboard::Load();
        ASSERT_NE(window, nullptr);
        window->show();
    }
    qint64 StatesIn(const QString& copy) const
    {
        return AnotherClient(QFileInfo(copy).fileName())
            ->Number(QStringLiteral("SELECT count(*) FROM StateMaster WHERE StateCode > 0"));
    }
};

TEST_F(DayCopyTest, ClosingAfterWorkKeepsACopyOfTheDayWithoutAWord)
{
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    Close();
    ASSERT_EQ(Copies().size(), 1);
    EXPECT_EQ(QFileInfo(Copies().first()).fileName(),
              QStringLiteral("Tallyboard copy of %1.mdb").arg(QDate::currentDate().toString(Qt::ISODate)));
    EXPECT_EQ(StatesIn(Copies().first()), 1);
    EXPECT_EQ(processEnds, 1);
}

TEST_F(DayCopyTest, ASecondSessionWithoutWorkKeepsNoOther)
{
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    Close();
    const QString copy = Copies().first();
    const QDateTime made = QFileInfo(copy).lastModified();
    StartAgain();
    Tick();
    Close();
    EXPECT_EQ(Copies(), QStringList{copy});
    EXPECT_GE(QFileInfo(copy).lastModified(), made);
}

TEST_F(DayCopyTest, HoweverManySessionsOnlyLogInAndOutNoOtherIsMade)
{
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    Close();
    const QString copy = Copies().first();
    // A copy that is made anew would have this byte no more.
    QFile mark(copy);
    ASSERT_TRUE(mark.open(QIODevice::ReadWrite));
    const QDateTime made = QFileInfo(copy).lastModified();
    ASSERT_TRUE(mark.seek(mark.size() - 1));
    ASSERT_EQ(mark.write("x"), 1);
    ASSERT_TRUE(mark.setFileTime(made, QFileDevice::FileModificationTime));
    mark.close();
    for (int session = 0; session < 4; ++session) {
        StartAgain();
        Tick();
        Close();
        ASSERT_TRUE(mark.open(QIODevice::ReadOnly));
        EXPECT_TRUE(mark.readAll().endsWith('x')) << session;
        mark.close();
    }
    EXPECT_EQ(Copies(), QStringList{copy});
    StartAgain();
    Given("INSERT INTO StateMaster VALUES (8, 'Goa', 1)");
    Close();
    EXPECT_EQ(StatesIn(Copies().first()), 2);
}

TEST_F(DayCopyTest, TheCopyThatWasMadeLastCountsWhateverDaysTheNamesTell)
{
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    Close();
    const QString copy = Copies().first();
    for (const char* day : {"2020-01-01", "2099-01-01"}) {
        QFile other(QStringLiteral("%1/Tallyboard copy of %2.mdb").arg(Folder(), QLatin1String(day)));
        ASSERT_TRUE(other.open(QIODevice::WriteOnly));
        ASSERT_TRUE(
            other.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    }
    // A copy that is made anew would have this byte no more.
    QFile mark(copy);
    const QDateTime made = QFileInfo(copy).lastModified();
    ASSERT_TRUE(mark.open(QIODevice::ReadWrite) && mark.seek(mark.size() - 1));
    ASSERT_EQ(mark.write("x"), 1);
    ASSERT_TRUE(mark.setFileTime(made, QFileDevice::FileModificationTime));
    mark.close();
    StartAgain();
    Close();
    ASSERT_TRUE(mark.open(QIODevice::ReadOnly));
    EXPECT_TRUE(mark.readAll().endsWith('x'));
}

TEST_F(DayCopyTest, WorkBehindTheLastCopyIsCopiedByTheNextSessionWhereItsOwnWasKilled)
{
    Close();
    StartAgain();
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    StartAgain();
    Close();
    ASSERT_EQ(Copies().size(), 1);
    EXPECT_EQ(StatesIn(Copies().first()), 1);
}

TEST_F(DayCopyTest, WorkIsCopiedAlsoWhereABackupWasMadeBehindIt)
{
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    Close();
    StartAgain();
    Given("INSERT INTO StateMaster VALUES (8, 'Goa', 1)");
    ShowForm(QStringLiteral("frmUtilBackupRestore"));
    Settle();
    auto* screen = ScreenRegistry::OpenInstance(QStringLiteral("frmUtilBackupRestore"));
    ASSERT_NE(screen, nullptr);
    Type(Find<QLineEdit>(screen, "txtDestinationPath"), Folder() + QStringLiteral("/Copy.mdb"));
    prompts.ExpectInformation(QStringLiteral("Database Backup Completed"));
    Press(Find<QPushButton>(screen, "cmdBackup"));
    prompts.Verify();
    Close();
    EXPECT_EQ(StatesIn(Copies().first()), 2);
}

TEST_F(DayCopyTest, ACopyThatAWrongClockHasMadeDoesNotPassForTodays)
{
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    Close();
    const QString copy = Copies().first();
    const QString wrong = Folder() + QStringLiteral("/Tallyboard copy of 2099-01-01.mdb");
    ASSERT_TRUE(QFile::rename(copy, wrong));
    QFile file(wrong);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(
        file.setFileTime(QDateTime(QDate(2099, 1, 1), QTime(12, 0)), QFileDevice::FileModificationTime));
    file.close();
    StartAgain();
    Close();
    EXPECT_EQ(Copies(), (QStringList{copy, wrong}));
}

TEST_F(DayCopyTest, WithoutTheDatabaseTheProgramIsClosedAllTheSame)
{
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    Session().gcnnMain.reset();
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Close The 'KITE-Tally Board' ?"), true);
    prompts.ExpectCritical(QStringLiteral(
        "All Your Work Is Saved. Only Your Leaving Could Not Be Noted.\nThe Database Is Closed"));
    window->MenuItem(QStringLiteral("mnuClose"))->trigger();
    prompts.Verify();
    EXPECT_EQ(Copies(), QStringList());
    EXPECT_EQ(processEnds, 1);
}

TEST_F(DayCopyTest, AnotherClientsWorkIsWorkToo)
{
    Close();
    StartAgain();
    AnotherClient()->Execute(QStringLiteral("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)"));
    Close();
    ASSERT_EQ(Copies().size(), 1);
    EXPECT_EQ(StatesIn(Copies().first()), 1);
}

TEST_F(DayCopyTest, WorkOfASessionThatWasKilledIsCopiedByTheNext)
{
    Close();
    ASSERT_TRUE(QFile::remove(Copies().first()));
    StartAgain();
    Close();
    EXPECT_EQ(Copies().size(), 1);
}

TEST_F(DayCopyTest, WhereThereIsNoRoomTheClerkLeavesWithoutAWord)
{
    Given("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)");
    const auto limit = static_cast<rlim_t>(QFileInfo(MainFile()).size() / 2);
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Close The 'KITE-Tally Board' ?"), true);
    // The row of presence is in the first pages; only a whole copy is too much.
    {
        const FileSizeLimit full(limit);
        window->MenuItem(QStringLiteral("mnuClose"))->trigger();
    }
    EXPECT_EQ(Copies(), QStringList());
    EXPECT_EQ(processEnds, 1);
}

} // namespace
} // namespace tally::test
