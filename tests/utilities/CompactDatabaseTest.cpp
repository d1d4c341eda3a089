#include "utilities/CompactDatabase.h"

#include "core/shell/mdiTallyboard.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/ScreenRegistry.h"
#include "store/Transaction.h"
#include "support/EngineWaits.h"
#include "support/ScreenFixture.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <atomic>
#include <thread>

namespace tally::test {
namespace {

const QString Question = QStringLiteral(
    "Before Compacting, All The Clients(If Applicable) Should Be Logged Out From 'KITE-Tally Board'\n"
    "Do You Want To Compact The Database ?");

const QString OthersAreThere =
    QStringLiteral("Another Client Is Still Working With 'KITE-Tally Board'.\n"
                   "Nothing Was Compacted. Please Log Out All Other Clients And Try Again");

class CompactDatabaseTest : public ScreenFixture
{
protected:
    QString In(const char* name) const { return Folder() + QLatin1Char('/') + QString::fromLatin1(name); }
};

TEST_F(CompactDatabaseTest, IsAskedForAndAnythingButOkEndsIt)
{
    prompts.ExpectConfirmation(Question, false);
    CompactDatabase();
    EXPECT_FALSE(QFileInfo::exists(In("Tallyboard.Bak")));
}

TEST_F(CompactDatabaseTest, LeavesTheSchoolSmallerAndTheProgramAtWork)
{
    Given("CREATE TABLE Gone (Bytes BLOB)");
    Given("INSERT INTO Gone VALUES (zeroblob(500000))");
    Given("DROP TABLE Gone");
    const qint64 before = QFileInfo(In("Tallyboard.mdb")).size();
    prompts.ExpectConfirmation(Question, true);
    prompts.ExpectInformation(QStringLiteral("Database Compacting Completed"));
    bool painted = false;
    QTimer::singleShot(0, window, [&painted] { painted = true; });
    CompactDatabase();
    EXPECT_TRUE(painted) << "the question must be seen to go while the others are called";
    EXPECT_LT(QFileInfo(In("Tallyboard.mdb")).size(), before);
    EXPECT_TRUE(QFileInfo::exists(In("Tallyboard.Bak")));
    EXPECT_TRUE(QFileInfo::exists(In("MarkTemp.mdb")));
    Tick();
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster WHERE Status = 'A'"), 1);
}

TEST_F(CompactDatabaseTest, IsRefusedWhileAnotherClientWorks)
{
    std::atomic<bool> left = false;
    std::thread clock([&] {
        const auto other = AnotherClient();
        while (!left) {
            other->Execute(QStringLiteral("UPDATE ExamBoardMaster SET Status = 'A' WHERE Status <> 'A'"));
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    });
    prompts.ExpectConfirmation(Question, true);
    prompts.ExpectCritical(OthersAreThere);
    CompactDatabase();
    left = true;
    clock.join();
    EXPECT_FALSE(QFileInfo::exists(In("Tallyboard.Bak")));
    EXPECT_NE(Session().gcnnMain, nullptr);
}

TEST_F(CompactDatabaseTest, WhereAClientReadsAllTheTimeItIsRefusedAndTheProgramGoesOn)
{
    const BriefWaits soon;
    const auto other = AnotherClient();
    const store::ReadTransaction reading(*other);
    EXPECT_EQ(other->Number(QStringLiteral("SELECT count(*) FROM AccessedDate")), 1);
    prompts.ExpectConfirmation(Question, true);
    prompts.ExpectCritical(OthersAreThere);
    CompactDatabase();
    prompts.Verify();
    ASSERT_NE(Session().gcnnMain, nullptr);
    EXPECT_EQ(Count("SELECT count(*) FROM AccessedDate"), 1);
}

TEST_F(CompactDatabaseTest, WhereAClientComesBehindTheRollItIsRefusedAndTheProgramGoesOn)
{
    const BriefWaits soon;
    std::atomic<bool> refused = false;
    std::thread late([&] {
        const auto other = AnotherClient();
        const QString called = QStringLiteral("SELECT count(*) FROM ExamBoardMaster WHERE Status = '?'");
        while (other->Number(called) == 0 && !refused)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        const store::ReadTransaction reading(*other);
        EXPECT_EQ(other->Number(called), 1);
        while (!refused)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
    });
    prompts.ExpectConfirmation(Question, true);
    prompts.ExpectCritical(OthersAreThere);
    CompactDatabase();
    refused = true;
    late.join();
    prompts.Verify();
    ASSERT_NE(Session().gcnnMain, nullptr);
    Tick();
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster WHERE Status = 'A'"), 1);
}

TEST_F(CompactDatabaseTest, BehindAFailureNoScreenDoesMoreThanSayThatTheDatabaseIsClosed)
{
    LeaveOthersUnguarded();
    ASSERT_TRUE(QDir(Folder()).mkdir(QStringLiteral("MarkTemp.mdb")));
    QStringList told;
    Prompts::AnswerWith([&told](Prompts::Kind, const QString& text) {
        told.append(text);
        return true;
    });
    CompactDatabase();
    ASSERT_EQ(told.size(), 2);
    ASSERT_EQ(Session().gcnnMain, nullptr);
    int opened = 0;
    for (const QString& name : ScreenRegistry::Names()) {
        told.clear();
        ShowForm(name);
        Settle();
        if (Screen* screen = ScreenRegistry::OpenInstance(name)) {
            ++opened;
            for (auto* button : screen->findChildren<QAbstractButton*>())
                if (button->isVisible() && button->objectName() == QLatin1String("cmdSave"))
                    Press(button);
            screen->Unload();
            Settle();
        }
        for (const QString& text : told)
            EXPECT_TRUE(text.contains(QLatin1String("The Database Is Closed")))
                << name.toStdString() << ": " << text.toStdString();
    }
    EXPECT_GT(opened, 0);
    EXPECT_EQ(Session().gcnnMain, nullptr);
}

TEST_F(CompactDatabaseTest, AFailureIsToldAndEveryButtonSaysThatTheDatabaseIsClosed)
{
    ASSERT_TRUE(QDir(Folder()).mkdir(QStringLiteral("MarkTemp.mdb")));
    prompts.ExpectConfirmation(Question, true);
    prompts.ExpectCritical(
        QStringLiteral("The Copy Could Not Be Written (its name could not be given)\n"
                       "The Database Is Closed. Please Close The Program And Start It Again"));
    CompactDatabase();
    prompts.Verify();
    EXPECT_EQ(Session().gcnnMain, nullptr);
    Tick();
    prompts.ExpectConfirmation(Question, true);
    prompts.ExpectCritical(QStringLiteral("The Database Is Closed"));
    CompactDatabase();
    prompts.Verify();
}

} // namespace
} // namespace tally::test
