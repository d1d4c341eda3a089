#include "core/modTallyboard.h"
#include "core/SessionContext.h"
#include "core/shell/mdiTallyboard.h"
#include "support/EngineWaits.h"
#include "support/ScreenFixture.h"

#include <functional>
#include <thread>

namespace tally::test {
namespace {

/// Clients that are started while another one restores or compacts, which takes longer than any save may.
class StartBesideRestore : public ProgramFixture
{
protected:
    /// Several times as many as a connection has patience for by itself.
    static constexpr std::size_t ManyWaits = 200;

    /// `start` meets a file into which nobody else can look, until it has waited that often.
    void StartBeside(const std::function<void()>& start)
    {
        const BriefWaits soon;
        const auto restoring = AnotherClient();
        restoring->Execute(QStringLiteral("BEGIN EXCLUSIVE"));
        restoring->Execute(QStringLiteral("INSERT INTO StateMaster VALUES (7, 'Kerala', 1)"));
        const std::size_t before = EngineWaits();
        std::thread other([&] {
            for (std::size_t seen = before; seen < before + ManyWaits; seen = EngineWaits())
                AwaitEngineWait(seen);
            restoring->Execute(QStringLiteral("COMMIT"));
        });
        start();
        // One that has given up early waits no more.
        while (EngineWaits() < before + ManyWaits)
            AnotherClientTries();
        other.join();
    }

private:
    void AnotherClientTries() const
    {
        try {
            AnotherClient();
        } catch (const store::StoreError&) {
            return;
        }
    }
};

TEST_F(StartBesideRestore, OpeningTheFilesWaits)
{
    LeaveOthersUnguarded();
    StartBeside([this] { ASSERT_NO_THROW(OpenConnections()); });
    ASSERT_NE(Session().gcnnMain, nullptr);
    EXPECT_EQ(Count("SELECT count(*) FROM StateMaster WHERE StateCode = 7"), 1);
}

TEST_F(StartBesideRestore, TheMainWindowWaitsWithItsRows)
{
    LeaveOthersUnguarded();
    OpenConnections();
    StartBeside([] { EXPECT_NE(mdiTallyboard::Load(), nullptr); });
    EXPECT_EQ(processEnds, 0);
    EXPECT_EQ(Count("SELECT count(*) FROM AccessedDate"), 1);
    EXPECT_EQ(Count("SELECT count(*) FROM StateMaster WHERE StateCode = 7"), 1);
}

TEST_F(StartBesideRestore, BehindItASaveWaitsNoLongerThanAnyOther)
{
    tally::OpenConnections();
    constexpr int Normal = 1;
    constexpr int Full = 2;
    EXPECT_EQ(MainStore().Number(QStringLiteral("PRAGMA synchronous")), Full);
    EXPECT_EQ(TempStore().Number(QStringLiteral("PRAGMA synchronous")), Normal);

    const BriefWaits soon;
    const auto client = AnotherClient();
    const auto saving = AnotherClient();
    saving->Execute(QStringLiteral("BEGIN IMMEDIATE"));
    const auto waits = [](store::Connection& connection) {
        const std::size_t before = EngineWaits();
        EXPECT_THROW(connection.Begin(), store::StoreError);
        return EngineWaits() - before;
    };
    EXPECT_EQ(waits(MainStore()), waits(*client));
}

} // namespace
} // namespace tally::test
