#include "core/DayCopy.h"

#include "core/shell/mdiTallyboard.h"
#include "store/Backup.h"
#include "support/FileSizeLimit.h"
#include "support/ScreenFixture.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileInfo>

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
    EXPECT_EQ(QFileInfo(copy).lastModified(), made);
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
