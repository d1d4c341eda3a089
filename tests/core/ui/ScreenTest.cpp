#include "core/ui/MasterScreen.h"
#include "core/ui/ScreenRegistry.h"
#include "support/ScreenFixture.h"

#include <QMdiSubWindow>
#include <QPushButton>

#include <algorithm>

namespace tally::test {
namespace {

using namespace std::chrono_literals;

/// A list of states and nothing else.
class States : public MasterScreen
{
public:
    States() : MasterScreen(QStringLiteral("States"), 0) {}

    using MasterScreen::AfterCommit;
    using MasterScreen::Conflict;
    using MasterScreen::DeleteRow;
    using MasterScreen::IsEditing;
    using MasterScreen::MayUse;
    using MasterScreen::OnRefusal;
    using MasterScreen::SaveRow;
    using MasterScreen::SetExitButton;
    using MasterScreen::SetMasterControls;
    using MasterScreen::ShowState;
    using MasterScreen::TellOnce;
    using MasterScreen::Write;

    int cancels = 0;
    int refills = 0;
    int activations = 0;
    int unloads = 0;

protected:
    void cmdCancel_Click() override { ++cancels; }
    void RefillLists() override { ++refills; }
    void Form_Activate(bool) override { ++activations; }
    void Form_Unload() override { ++unloads; }
};

class ScreenTest : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        Given("INSERT INTO StateMaster VALUES (1, 'Kerala', 1)");
        Given("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1)");
        MainStore().SetPatience(0ms);
    }

    static void Add(store::Transaction& transaction)
    {
        transaction.Execute(QStringLiteral("INSERT INTO StateMaster VALUES (2, 'Goa', 1)"));
    }
    static void AddAgain(store::Transaction& transaction)
    {
        transaction.Execute(QStringLiteral("INSERT INTO StateMaster VALUES (1, 'Goa', 1)"));
    }
    static void Delete(store::Transaction& transaction)
    {
        transaction.Execute(QStringLiteral("DELETE FROM StateMaster WHERE StateCode = 1"));
    }
    void ExpectWay(int cancels, int refills)
    {
        EXPECT_EQ(screen.cancels, cancels);
        EXPECT_EQ(screen.refills, refills);
        screen.cancels = screen.refills = 0;
    }

    States& screen = *new States; ///< deleted with all windows that a test leaves
    const QString gone = QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data.");
    const QString inUse =
        QStringLiteral("This Data Is Already Used By Other Screen(s).\nYou Cannot Delete This Data.");
};

TEST_F(ScreenTest, WhatAFetchReadsIsOfOneMoment)
{
    const auto client = AnotherClient();
    client->SetPatience(0ms);
    const auto found = screen.Fetch([&] {
        const qint64 before = Count("SELECT count(*) FROM StateMaster");
        EXPECT_THROW(client->Execute(QStringLiteral("DELETE FROM CityMaster WHERE CityCode > 0")),
                     store::StoreError);
        return std::pair(before, Count("SELECT count(*) FROM CityMaster WHERE CityCode > 0"));
    });
    ASSERT_TRUE(found);
    EXPECT_EQ(found->second, 1);
    EXPECT_EQ(client->Execute(QStringLiteral("DELETE FROM CityMaster WHERE CityCode > 0")), 1)
        << "nobody waits for a fetch that has ended";
}

TEST_F(ScreenTest, AFetchThatFailsIsToldAndGivesNothing)
{
    Given("DROP TABLE Options");
    prompts.ExpectCritical(NoSuchTable("Options"));
    EXPECT_FALSE(screen.Fetch([&] { return Count("SELECT count(*) FROM Options"); }));
    EXPECT_EQ(MainStore().TransactionDepth(), 0);
}

TEST_F(ScreenTest, ARowThatIsStoredIsToldAndFollowedByCancelsSteps)
{
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    bool then = false;
    screen.SaveRow(Add, States::OnRefusal::Stay, [&] { then = screen.cancels == 1; });
    EXPECT_TRUE(then);
    EXPECT_EQ(Count("SELECT count(*) FROM StateMaster WHERE StateCode = 2"), 1);
}

TEST_F(ScreenTest, AStoredRowThatIsChangedIsToldAsUpdated)
{
    screen.ShowState(MasterState::Editing);
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    screen.SaveRow(Add, States::OnRefusal::Stay);
    ExpectWay(1, 0);
}

TEST_F(ScreenTest, ADeletedRowLeavesAScreenThatHasStartedAnewBeforeItIsTold)
{
    Given("DELETE FROM CityMaster WHERE CityCode = 1");
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    screen.DeleteRow(Delete);
    ExpectWay(1, 0);
    EXPECT_EQ(Count("SELECT count(*) FROM StateMaster WHERE StateCode = 1"), 0);
}

TEST_F(ScreenTest, ARefusedRowLeavesTheScreenAsItIsOrStartedAnewOrItsListsReadAnew)
{
    const std::pair<States::OnRefusal, std::pair<int, int>> ways[] = {
        {States::OnRefusal::Stay, {0, 0}},
        {States::OnRefusal::StartAnew, {1, 0}},
        {States::OnRefusal::Refill, {0, 1}},
    };
    for (const auto& [way, expected] : ways) {
        prompts.ExpectCritical(gone);
        screen.SaveRow(AddAgain, way, [] { ADD_FAILURE() << "nothing was stored"; });
        ExpectWay(expected.first, expected.second);
        prompts.ExpectCritical(inUse);
        screen.DeleteRow(Delete, way);
        ExpectWay(expected.first, expected.second);
    }
    EXPECT_EQ(Count("SELECT count(*) FROM StateMaster WHERE StateCode > 0 AND StateName = 'Kerala'"), 1);
}

TEST_F(ScreenTest, AConflictForWhichThereIsNoTextIsDescribedAsItIs)
{
    prompts.ExpectCritical(
        QStringLiteral("The Data Contradicts Other Data That Is Already Stored (UNIQUE constraint failed: "
                       "StateMaster.StateCode)"));
    EXPECT_FALSE(screen.Write(States::Conflict::Describe, AddAgain));
}

TEST_F(ScreenTest, ALockNeverTakesAwayWhatWasTyped)
{
    const auto client = AnotherClient();
    store::Transaction held(*client);
    for (const auto way :
         {States::OnRefusal::Stay, States::OnRefusal::StartAnew, States::OnRefusal::Refill}) {
        prompts.ExpectCritical(HeldByAnotherClient);
        screen.SaveRow(Add, way);
        prompts.ExpectCritical(HeldByAnotherClient);
        screen.DeleteRow(Delete, way);
        ExpectWay(0, 0);
    }
}

TEST_F(ScreenTest, OfStepsThatFailTheFirstFailureIsToldAndOnlyOnce)
{
    const auto steps = [this] {
        for (const char* missing : {"SELECT count(*) FROM First", "SELECT count(*) FROM Second"})
            EXPECT_FALSE(screen.Read([&] { Count(missing); }));
        EXPECT_TRUE(screen.Read([] {}));
    };
    prompts.ExpectCritical(NoSuchTable("First"));
    screen.TellOnce(steps);
    prompts.Verify();
    prompts.ExpectCritical(NoSuchTable("First"));
    screen.TellOnce([&] { screen.TellOnce(steps); });
    prompts.Verify();
    prompts.ExpectInformation(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.\n"
                                             "Only The Screen Could Not Be Read Anew : ") +
                              NoSuchTable("First"));
    screen.AfterCommit([&] { screen.TellOnce(steps); });
    prompts.Verify();
    screen.TellOnce([] {});
    screen.AfterCommit([] {});
}

TEST_F(ScreenTest, WhereTheRightsCannotBeReadNobodyMayGoOn)
{
    Session().gblnPrivilege = true;
    Given("ALTER TABLE UserPrivilegeMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("UserPrivilegeMaster"));
    EXPECT_FALSE(screen.MayUse(Right::New));
    EXPECT_FALSE(Session().gblnPrivilege);
    Given("ALTER TABLE Away RENAME TO UserPrivilegeMaster");
    EXPECT_TRUE(screen.MayUse(Right::New)) << "there is no login yet";
    EXPECT_TRUE(Session().gblnPrivilege);
}

TEST_F(ScreenTest, OneOfTwoRightsIsEnoughWhereEitherIsAskedFor)
{
    GivenUser(4, QStringLiteral("mary"), QStringLiteral("secret"),
              {{QStringLiteral("States"), QStringLiteral("E")}});
    Session().gintPrivilegeUserCode = 4;
    EXPECT_TRUE(screen.MayUse(Right::Edit));
    EXPECT_TRUE(screen.MayUse(Right::New, Right::Edit));
    EXPECT_TRUE(screen.MayUse(Right::Edit, Right::New));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    EXPECT_FALSE(screen.MayUse(Right::New));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Delete"));
    EXPECT_FALSE(screen.MayUse(Right::Delete, Right::New));
}

TEST_F(ScreenTest, TheCloseBoxIsRefusedWhileExitIsOff)
{
    auto* exit = new QPushButton(&screen);
    screen.SetExitButton(exit);
    exit->setEnabled(false);
    EXPECT_FALSE(screen.close());
    EXPECT_FALSE(screen.IsUnloaded());
    exit->setEnabled(true);
    screen.close();
    EXPECT_TRUE(screen.IsUnloaded());
}

TEST_F(ScreenTest, AScreenGoesOnceAndDoesNotComeToTheFrontAfterwards)
{
    screen.Unload();
    screen.Unload();
    screen.Activate();
    EXPECT_EQ(screen.unloads, 1);
    EXPECT_EQ(screen.activations, 0);
}

TEST_F(ScreenTest, AScreenInAFrameOfItsOwnGoesAsWell)
{
    auto* frame = new QMdiSubWindow;
    frame->setWidget(&screen);
    screen.Unload();
    EXPECT_EQ(screen.unloads, 1);
    Settle();
}

TEST_F(ScreenTest, TheNamesOfAllScreensStandInTheOrderOfTheAlphabet)
{
    const QStringList names = ScreenRegistry::Names();
    EXPECT_GE(names.size(), 20);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
}

TEST_F(ScreenTest, AMasterOpensIdleAndTellsWhetherAStoredRowIsBeingChanged)
{
    QPushButton cmdNew;
    QPushButton cmdSave;
    cmdNew.setEnabled(false);
    screen.SetMasterControls({nullptr, &cmdNew, nullptr, nullptr, &cmdSave});
    EXPECT_TRUE(cmdNew.isEnabled());
    EXPECT_FALSE(cmdSave.isEnabled());
    for (const MasterState state : {MasterState::New, MasterState::RowSelected, MasterState::Idle}) {
        screen.ShowState(state);
        EXPECT_FALSE(screen.IsEditing());
    }
    screen.ShowState(MasterState::Editing);
    EXPECT_TRUE(screen.IsEditing());
    EXPECT_TRUE(cmdSave.isEnabled());
}

} // namespace
} // namespace tally::test
