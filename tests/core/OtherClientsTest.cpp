#include "core/OtherClients.h"

#include "core/SessionRepository.h"
#include "store/StoreFiles.h"
#include "store/Tables.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace tally::test {
namespace {

using std::chrono::milliseconds;
using store::Connection;

class OtherClientsTest : public testing::Test
{
protected:
    OtherClientsTest()
    {
        Connection main(files.Path(), Password, Connection::Mode::Create);
        store::Transaction transaction(main);
        store::CreateMainTables(transaction);
        SessionRepository(main).WriteStartRows(transaction, QDate(2026, 11, 22));
        transaction.Commit();
    }

    StoreFiles files;
};

/// A client whose clock ticks, faster than in the office.
class WorkingClient
{
public:
    explicit WorkingClient(const QString& path)
        : clock_([this, path] {
              Connection main(path, Password);
              while (!left_) {
                  store::Transaction transaction(main);
                  SessionRepository(main).RefreshPresence(transaction);
                  transaction.Commit();
                  std::this_thread::sleep_for(milliseconds(10));
              }
          })
    {}
    ~WorkingClient()
    {
        left_ = true;
        clock_.join();
    }
    WorkingClient(const WorkingClient&) = delete;
    WorkingClient& operator=(const WorkingClient&) = delete;

private:
    std::atomic<bool> left_ = false;
    std::thread clock_;
};

TEST_F(OtherClientsTest, NobodyAnswersWhereNobodyWorks)
{
    Connection main(files.Path(), Password);
    EXPECT_FALSE(OtherClientsAnswer(main, milliseconds(100)));
}

TEST_F(OtherClientsTest, TheirClockAnswersForThem)
{
    const WorkingClient other(files.Path());
    Connection main(files.Path(), Password);
    EXPECT_TRUE(OtherClientsAnswer(main, milliseconds(60000)));
}

TEST_F(OtherClientsTest, TheyAreFoundAlsoWhereAnotherHasTakenThePresenceRowAlong)
{
    const WorkingClient other(files.Path());
    Connection main(files.Path(), Password);
    {
        store::Transaction leaving(main);
        SessionRepository(main).RemovePresence(leaving);
        leaving.Commit();
    }
    EXPECT_TRUE(OtherClientsAnswer(main, milliseconds(60000)));
}

TEST_F(OtherClientsTest, TheOwnClockPutsThePresenceRowRightAgain)
{
    Connection main(files.Path(), Password);
    EXPECT_FALSE(OtherClientsAnswer(main, milliseconds(0)));
    store::Transaction tick(main);
    SessionRepository(main).RefreshPresence(tick);
    tick.Commit();
    EXPECT_TRUE(SessionRepository(main).IsRollAnswered());
}

TEST_F(OtherClientsTest, WhoWaitsForAnAnswerLeavesTheFileFreeMostOfTheTime)
{
    Connection main(files.Path(), Password);
    const auto before = main.StatementsRun();
    EXPECT_FALSE(OtherClientsAnswer(main, milliseconds(600)));
    // The call itself, three looks, and one at the end.
    EXPECT_LE(main.StatementsRun() - before, 10U);
}

TEST_F(OtherClientsTest, TheWindowMayBePaintedBetweenTheLooks)
{
    Connection main(files.Path(), Password);
    int paints = 0;
    EXPECT_FALSE(OtherClientsAnswer(main, milliseconds(300), [&paints] { ++paints; }));
    EXPECT_GE(paints, 1);
}

TEST_F(OtherClientsTest, AnotherClientsSaveThatIsUnderWayIsTold)
{
    Connection other(files.Path(), Password);
    const store::Transaction saving(other);
    Connection main(files.Path(), Password);
    main.SetPatience(milliseconds(20));
    const auto error = ErrorOf([&] { OtherClientsAnswer(main, milliseconds(0)); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->IsLocked());
}

} // namespace
} // namespace tally::test
