#include "utilities/CompactDatabase.h"

#include "core/shell/mdiTallyboard.h"
#include "support/ScreenFixture.h"

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
    CompactDatabase();
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
    prompts.ExpectCritical(
        QStringLiteral("Another Client Is Still Working With 'KITE-Tally Board'.\n"
                       "Nothing Was Compacted. Please Log Out All Other Clients And Try Again"));
    CompactDatabase();
    left = true;
    clock.join();
    EXPECT_FALSE(QFileInfo::exists(In("Tallyboard.Bak")));
    EXPECT_NE(Session().gcnnMain, nullptr);
}

TEST_F(CompactDatabaseTest, AFailureIsToldAndEveryButtonSaysThatTheDatabaseIsClosed)
{
    ASSERT_TRUE(QDir(Folder()).mkdir(QStringLiteral("MarkTemp.mdb")));
    prompts.ExpectConfirmation(Question, true);
    prompts.ExpectCritical(QStringLiteral("The Copy Could Not Be Written (its name could not be given)"));
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
