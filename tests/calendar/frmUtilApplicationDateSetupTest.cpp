#include "calendar/frmUtilApplicationDateSetup.h"

#include "calendar/CalendarFixture.h"
#include "core/ui/controls/DatePicker.h"

namespace tally::test {
namespace {

const QString BeyondYear = QStringLiteral("Application Date Should Not Exceed Academic Year Last Date");

class ApplicationDateSetup : public CalendarFixture
{
protected:
    void SetUp() override
    {
        CalendarFixture::SetUp();
        GivenYear(1, 2007, "Y");
    }
    void OpenForm(const QList<QDate>& days)
    {
        GivenDays(days);
        Start();
        form = Open<frmUtilApplicationDateSetup>("frmUtilApplicationDateSetup");
        ASSERT_NE(form, nullptr);
    }
    QDate Picker() { return DateIn(form, "dtpNextWorkingDay"); }
    void ExpectAddQuestion(const char* date, bool answer)
    {
        prompts.ExpectQuestion(
            QStringLiteral("Do You Want To Add Application Date : %1 ?").arg(QString::fromLatin1(date)),
            answer);
    }
    void ExpectDeleteQuestion(const char* date, bool answer)
    {
        prompts.ExpectPlainQuestion(
            QStringLiteral("Do You Want To Delete Application Date : %1 ?").arg(QString::fromLatin1(date)),
            answer);
    }

    frmUtilApplicationDateSetup* form = nullptr;
};

TEST_F(ApplicationDateSetup, OpensOnTheYearsLastWorkingDayAndLetsNobodyTypeIt)
{
    OpenForm({QDate(2007, 6, 1), QDate(2007, 6, 20), QDate(2008, 6, 1)});
    EXPECT_EQ(Picker(), QDate(2007, 6, 20));
    EXPECT_EQ(form->windowTitle().toStdString(), "Application Date Setup");
    auto* picker = Find<DatePicker>(form, "dtpNextWorkingDay");
    picker->setFocus();
    QTest::keyClick(picker, Qt::Key_Up);
    QTest::keyClicks(picker, QStringLiteral("15"));
    EXPECT_EQ(Picker(), QDate(2007, 6, 20));
}

TEST_F(ApplicationDateSetup, ALastDateThatCouldNotBeReadIsReadBeforeADayIsAdded)
{
    GivenDays({QDate(2007, 6, 20)});
    Start();
    Given("ALTER TABLE ApplicationDate RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ApplicationDate"));
    form = Open<frmUtilApplicationDateSetup>("frmUtilApplicationDateSetup");
    ASSERT_NE(form, nullptr);
    for (const char* button : {"cmdAddOneDay", "cmdDeleteLastDay"}) {
        prompts.ExpectCritical(NoSuchTable("ApplicationDate"));
        Click(form, button);
        prompts.Verify();
    }
    Given("ALTER TABLE Away RENAME TO ApplicationDate");
    ExpectAddQuestion("21/Jun/2007", true);
    prompts.ExpectInformation(QStringLiteral("Application Date Added"));
    Click(form, "cmdAddOneDay");
    EXPECT_EQ(Picker(), QDate(2007, 6, 21));
}

TEST_F(ApplicationDateSetup, AddingADayMovesTheCalendarForEverybody)
{
    OpenForm({QDate(2007, 6, 20)});
    EXPECT_EQ(Panel(3), "Application Date : 20/Jun/2007");
    ExpectAddQuestion("21/Jun/2007", true);
    prompts.ExpectInformation(QStringLiteral("Application Date Added"));
    Click(form, "cmdAddOneDay");
    EXPECT_EQ(Picker(), QDate(2007, 6, 21));
    EXPECT_EQ(
        Count("SELECT count(*) FROM ApplicationDate WHERE ApplicationDate = '2007-06-21' AND UserCode = 4"),
        1);
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 21));
    EXPECT_EQ(Panel(3), "Application Date :21/Jun/2007");
    EXPECT_TRUE(IsOn(form, "cmdAddOneDay"));
}

TEST_F(ApplicationDateSetup, ANoPutsThePickerBack)
{
    OpenForm({QDate(2007, 6, 20)});
    ExpectAddQuestion("21/Jun/2007", false);
    Click(form, "cmdAddOneDay");
    EXPECT_EQ(Picker(), QDate(2007, 6, 20));
    EXPECT_EQ(Days(), 1);
    EXPECT_EQ(Panel(3), "Application Date : 20/Jun/2007");
}

TEST_F(ApplicationDateSetup, ThePickerShowsTheNewDayWhileTheQuestionStands)
{
    OpenForm({QDate(2007, 6, 20)});
    QDate asked;
    Prompts::AnswerWith([&](Prompts::Kind, const QString&) {
        asked = Picker();
        return false;
    });
    Click(form, "cmdAddOneDay");
    EXPECT_EQ(asked, QDate(2007, 6, 21));
}

TEST_F(ApplicationDateSetup, ALeapDayIsADay)
{
    OpenForm({QDate(2008, 2, 28)});
    for (const char* day : {"29/Feb/2008", "01/Mar/2008"}) {
        ExpectAddQuestion(day, true);
        prompts.ExpectInformation(QStringLiteral("Application Date Added"));
        Click(form, "cmdAddOneDay");
    }
    EXPECT_EQ(Count("SELECT count(*) FROM ApplicationDate WHERE ApplicationDate = '2008-02-29'"), 1);
    ExpectDeleteQuestion("01/Mar/2008", true);
    prompts.ExpectInformation(QStringLiteral("Application Date Deleted"));
    Click(form, "cmdDeleteLastDay");
    EXPECT_EQ(Picker(), QDate(2008, 2, 29));
}

TEST_F(ApplicationDateSetup, ReachingTheYearsLastDayIsToldAndEndsTheAdding)
{
    OpenForm({QDate(2008, 5, 30)});
    ExpectAddQuestion("31/May/2008", true);
    prompts.ExpectInformation(QStringLiteral("Application Date Added"));
    prompts.ExpectInformation(QStringLiteral("Reached Last Date Of This Academic Year"));
    Click(form, "cmdAddOneDay");
    EXPECT_FALSE(IsOn(form, "cmdAddOneDay"));
    ExpectDeleteQuestion("31/May/2008", false);
    Click(form, "cmdDeleteLastDay");
    EXPECT_TRUE(IsOn(form, "cmdAddOneDay"));
}

TEST_F(ApplicationDateSetup, OnTheYearsLastDayNothingIsAdded)
{
    OpenForm({QDate(2008, 5, 31)});
    prompts.ExpectInformation(BeyondYear);
    Click(form, "cmdAddOneDay");
    EXPECT_EQ(Picker(), QDate(2008, 5, 31));
    EXPECT_EQ(Days(), 1);
}

TEST_F(ApplicationDateSetup, MoreThan31DaysAheadOfTheSessionsDateAreRefusedUntilItHasCaughtUp)
{
    OpenForm({QDate(2007, 7, 20)});
    Session().gdtmApplicationDate = QDate(2007, 6, 19);
    prompts.ExpectInformation(QStringLiteral("Entry Date Exceeds More Than 31 Days Of Application Date"));
    Click(form, "cmdAddOneDay");
    EXPECT_EQ(Picker(), QDate(2007, 7, 20));
    EXPECT_EQ(Days(), 1);
    Session().gdtmApplicationDate = QDate(2007, 6, 20);
    ExpectAddQuestion("21/Jul/2007", true);
    prompts.ExpectInformation(QStringLiteral("Application Date Added"));
    Click(form, "cmdAddOneDay");
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 7, 21));
}

TEST_F(ApplicationDateSetup, DeletingTheLastDayGoesBackToTheOneBefore)
{
    OpenForm({QDate(2007, 6, 1), QDate(2007, 6, 4), QDate(2007, 6, 20)});
    ExpectDeleteQuestion("20/Jun/2007", true);
    prompts.ExpectInformation(QStringLiteral("Application Date Deleted"));
    Click(form, "cmdDeleteLastDay");
    EXPECT_EQ(Picker(), QDate(2007, 6, 4));
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 4));
    EXPECT_EQ(Panel(3), "Application Date :04/Jun/2007");
    EXPECT_EQ(Days(), 2);
    EXPECT_TRUE(IsOn(form, "cmdDeleteLastDay"));

    ExpectDeleteQuestion("04/Jun/2007", true);
    prompts.ExpectInformation(QStringLiteral("Application Date Deleted"));
    prompts.ExpectInformation(QStringLiteral("Reached Academic Year Start Date"));
    Click(form, "cmdDeleteLastDay");
    EXPECT_FALSE(IsOn(form, "cmdDeleteLastDay"));
    ExpectAddQuestion("02/Jun/2007", false);
    Click(form, "cmdAddOneDay");
    EXPECT_TRUE(IsOn(form, "cmdDeleteLastDay"));
}

TEST_F(ApplicationDateSetup, ANoDeletesNothing)
{
    OpenForm({QDate(2007, 6, 1), QDate(2007, 6, 4)});
    ExpectDeleteQuestion("04/Jun/2007", false);
    Click(form, "cmdDeleteLastDay");
    EXPECT_EQ(Days(), 2);
}

TEST_F(ApplicationDateSetup, TheOnlyDayOfAYearStays)
{
    OpenForm({QDate(2007, 6, 20), QDate(2008, 6, 2)});
    ExpectDeleteQuestion("20/Jun/2007", true);
    prompts.ExpectInformation(QStringLiteral("20/Jun/2007 Is The First Date Of This Academic Year.\n"
                                             "So You Cannot Delete Application Date"));
    Click(form, "cmdDeleteLastDay");
    EXPECT_EQ(Days(), 2);
}

TEST_F(ApplicationDateSetup, TheYearsFirstDayStays)
{
    OpenForm({QDate(2007, 6, 1)});
    prompts.ExpectInformation(
        QStringLiteral("Application Date Should Not Be Lesser Than Application Start Date"));
    Click(form, "cmdDeleteLastDay");
    EXPECT_EQ(Days(), 1);
}

TEST_F(ApplicationDateSetup, AYearWithoutADayGoesOnFromTheDateInHand)
{
    GivenYear(2, 2008, "N");
    Given("UPDATE AcademicYearSetup SET Status = CASE AcademicYearCode WHEN 2 THEN 'Y' ELSE 'N' END");
    GivenDays({QDate(2008, 5, 31)});
    Start();
    Session().gdtmApplicationDate = QDate(2008, 5, 31);
    form = Open<frmUtilApplicationDateSetup>("frmUtilApplicationDateSetup");
    EXPECT_EQ(Picker(), QDate(2008, 5, 31));
    ExpectAddQuestion("01/Jun/2008", true);
    prompts.ExpectInformation(QStringLiteral("Application Date Added"));
    Click(form, "cmdAddOneDay");
    EXPECT_TRUE(Session().gblnApplicationDateExists);
}

TEST_F(ApplicationDateSetup, WithoutAnyDayTheFirstOneAddedIsTheYearsFirst)
{
    OpenForm({});
    ExpectAddQuestion("01/Jun/2007", true);
    prompts.ExpectInformation(QStringLiteral("Application Date Added"));
    Click(form, "cmdAddOneDay");
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 1));
}

TEST_F(ApplicationDateSetup, EachButtonHasItsOwnRight)
{
    GivenSessionUser(0, {});
    OpenForm({QDate(2007, 6, 1), QDate(2007, 6, 4)});
    for (const char* button : {"cmdAddOneDay", "cmdDeleteLastDay"}) {
        prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify Application Date"));
        Click(form, button);
    }
    Given("INSERT INTO UserPrivilegeDetails VALUES ('frmUtilApplicationDateSetup', 'A', 4)");
    ExpectAddQuestion("05/Jun/2007", false);
    Click(form, "cmdAddOneDay");
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify Application Date"));
    Click(form, "cmdDeleteLastDay");
    Given("INSERT INTO UserPrivilegeDetails VALUES ('frmUtilApplicationDateSetup', 'M', 4)");
    ExpectDeleteQuestion("04/Jun/2007", false);
    Click(form, "cmdDeleteLastDay");
}

TEST_F(ApplicationDateSetup, WhoHasNoRightIsToldSoBeforeAnythingIsRead)
{
    GivenSessionUser(0, {});
    Start();
    Given("ALTER TABLE ApplicationDate RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ApplicationDate"));
    form = Open<frmUtilApplicationDateSetup>("frmUtilApplicationDateSetup");
    ASSERT_NE(form, nullptr);
    for (const char* button : {"cmdAddOneDay", "cmdDeleteLastDay"}) {
        prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify Application Date"));
        Click(form, button);
        prompts.Verify();
    }
    Given("ALTER TABLE Away RENAME TO ApplicationDate");
}

TEST_F(ApplicationDateSetup, NoDayGoesWhereTheDaysLeftCannotBeCounted)
{
    OpenForm({QDate(2007, 6, 1), QDate(2007, 6, 4)});
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        told.append(text);
        if (told.size() == 1)
            Given("ALTER TABLE ApplicationDate RENAME TO Away");
        return true;
    });
    Click(form, "cmdDeleteLastDay");
    EXPECT_EQ(told, QStringList({QStringLiteral("Do You Want To Delete Application Date : 04/Jun/2007 ?"),
                                 NoSuchTable("ApplicationDate")}));
    Given("ALTER TABLE Away RENAME TO ApplicationDate");
    EXPECT_EQ(Days(), 2);
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 4));
}

TEST_F(ApplicationDateSetup, AFailedWriteLeavesTheCalendarAndTheSession)
{
    OpenForm({QDate(2007, 6, 1), QDate(2007, 6, 4)});
    MakeReadOnly();
    ExpectAddQuestion("05/Jun/2007", true);
    prompts.ExpectCritical(OnlyReadable);
    Click(form, "cmdAddOneDay");
    EXPECT_EQ(Picker(), QDate(2007, 6, 4));
    ExpectDeleteQuestion("04/Jun/2007", true);
    prompts.ExpectCritical(OnlyReadable);
    Click(form, "cmdDeleteLastDay");
    EXPECT_EQ(Picker(), QDate(2007, 6, 4));
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 4));
    EXPECT_EQ(Days(), 2);
    Given("PRAGMA query_only = OFF");
}

TEST_F(ApplicationDateSetup, ADayThatAnotherClientAddedMeanwhileIsShownAndTheNextOneFollowsIt)
{
    OpenForm({QDate(2007, 6, 4)});
    AnotherClient()->Execute(QStringLiteral("INSERT INTO ApplicationDate VALUES ('2007-06-05', 1)"));
    ExpectAddQuestion("05/Jun/2007", true);
    prompts.ExpectCritical(QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data."));
    Click(form, "cmdAddOneDay");
    EXPECT_EQ(Picker(), QDate(2007, 6, 5));
    EXPECT_EQ(Days(), 2);
    ExpectAddQuestion("06/Jun/2007", true);
    prompts.ExpectInformation(QStringLiteral("Application Date Added"));
    Click(form, "cmdAddOneDay");
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 6));
}

TEST_F(ApplicationDateSetup, WhileAnotherClientSavesItSaysThatTheDataIsInUse)
{
    OpenForm({QDate(2007, 6, 4)});
    StopPresence();
    const auto other = AnotherClient();
    const store::Transaction save(*other);
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(0));
    ExpectAddQuestion("05/Jun/2007", true);
    prompts.ExpectCritical(HeldByAnotherClient);
    Click(form, "cmdAddOneDay");
    EXPECT_EQ(Picker(), QDate(2007, 6, 4));
}

TEST_F(ApplicationDateSetup, MustBeAloneOnThisClient)
{
    Start();
    ASSERT_NE(OpenScreen(QStringLiteral("frmUtilOptions")), nullptr);
    prompts.ExpectInformation(QStringLiteral("You Cannot Open 'Application Date Setup' Form When Other Forms "
                                             "Are Opened. First Close Other Forms"));
    EXPECT_EQ(OpenScreen(QStringLiteral("frmUtilApplicationDateSetup")), nullptr);
    EXPECT_TRUE(MenusAre(true));
    EXPECT_EQ(ScreensTaken(), 0);
}

TEST_F(ApplicationDateSetup, AnotherClientThatHoldsTheRowKeepsItShut)
{
    Start();
    AnotherClient()->Execute(QStringLiteral("INSERT INTO ScreenStatus VALUES ('ApplicationDateSetup')"));
    prompts.ExpectInformation(
        QStringLiteral("This Screen Is Already Opened By Another User. So You Cannot Open This Screen"));
    EXPECT_EQ(OpenScreen(QStringLiteral("frmUtilApplicationDateSetup")), nullptr);
    EXPECT_TRUE(MenusAre(true));
    EXPECT_FALSE(Session().gblnMenusLocked);
    EXPECT_EQ(ScreensTaken(), 1);
}

TEST_F(ApplicationDateSetup, HoldsItsRowAndTheMenusUntilItCloses)
{
    OpenForm({QDate(2007, 6, 4)});
    EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus WHERE Screen = 'ApplicationDateSetup'"), 1);
    EXPECT_TRUE(MenusAre(false));
    form->Activate();
    EXPECT_EQ(ScreensTaken(), 1);
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Application Date Setup ?"), true);
    Click(form, "cmdExit");
    Settle();
    EXPECT_EQ(ScreensTaken(), 0);
    EXPECT_TRUE(MenusAre(true));
}

TEST_F(ApplicationDateSetup, ItsHelpIsNumber31)
{
    OpenForm({QDate(2007, 6, 4)});
    EXPECT_EQ(HelpNumber(form), 31);
}

TEST_F(ApplicationDateSetup, FitsTheSmallestScreenWithNothingCutOff)
{
    Start();
    ExpectToFit(QStringLiteral("frmUtilApplicationDateSetup"));
}

} // namespace
} // namespace tally::test
