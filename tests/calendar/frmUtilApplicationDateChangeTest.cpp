#include "calendar/frmUtilApplicationDateChange.h"

#include "calendar/CalendarFixture.h"
#include "core/ui/controls/DatePicker.h"
#include "core/ui/controls/FieldHint.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tally::test {
namespace {

const QString NoPrivilege = QStringLiteral("You Have No Privilege To Work In This Date");

class ApplicationDateChange : public CalendarFixture
{
protected:
    void SetUp() override
    {
        CalendarFixture::SetUp();
        GivenYear(1, 2007, "Y");
    }
    /// Working days 18, 19, 20, 21, 22 and 25 of June; the last one is the working date.
    void OpenForm(int days, const QString& right = QStringLiteral("M"))
    {
        for (const int day : {18, 19, 20, 21, 22, 25})
            GivenDays({QDate(2007, 6, day)});
        OpenFor(days, right);
    }
    void OpenFor(int days, const QString& right = QStringLiteral("M"))
    {
        GivenSessionUser(days, {{QStringLiteral("frmUtilApplicationDateChange"), right}});
        Start();
        form = Open<frmUtilApplicationDateChange>("frmUtilApplicationDateChange");
        ASSERT_NE(form, nullptr);
    }
    DatePicker* Picker() { return Find<DatePicker>(form, "dtpApplicationDate"); }
    /// Chooses a date as the calendar does.
    void Pick(const QDate& date) { Picker()->setDate(date); }
    void ExpectRefused(const QDate& date)
    {
        Find<QWidget>(form, "cmdExit")->setFocus();
        prompts.ExpectInformation(NoPrivilege);
        Pick(date);
        prompts.Verify();
        EXPECT_EQ(Picker()->date(), Session().gdtmApplicationDate);
        EXPECT_TRUE(HasFocus(form, "dtpApplicationDate"));
    }
    void ExpectRange(const char* from, const char* to)
    {
        EXPECT_EQ(Text(form, "lblFrom"), from);
        EXPECT_EQ(Text(form, "lblTo"), to);
    }

    frmUtilApplicationDateChange* form = nullptr;
};

TEST_F(ApplicationDateChange, OpensOnTheWorkingDateWithSaveOff)
{
    OpenForm(5);
    EXPECT_EQ(Picker()->date(), QDate(2007, 6, 25));
    EXPECT_FALSE(IsOn(form, "cmdSave"));
    ExpectRange("20/Jun/2007", "25/Jun/2007");
    EXPECT_EQ(form->windowTitle().toStdString(), "Application Date Change");
}

TEST_F(ApplicationDateChange, ARangeThatCouldNotBeReadIsReadBeforeADayIsTested)
{
    GivenDays({QDate(2007, 6, 21), QDate(2007, 6, 25)});
    GivenSessionUser(5, {{QStringLiteral("frmUtilApplicationDateChange"), QStringLiteral("M")}});
    Start();
    Given("ALTER TABLE ApplicationDate RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ApplicationDate"));
    form = Open<frmUtilApplicationDateChange>("frmUtilApplicationDateChange");
    ASSERT_NE(form, nullptr);
    ExpectRange("", "");
    Given("ALTER TABLE Away RENAME TO ApplicationDate");
    Pick(QDate(2007, 6, 21));
    EXPECT_TRUE(IsOn(form, "cmdSave"));
    ExpectRange("20/Jun/2007", "25/Jun/2007");
}

TEST_F(ApplicationDateChange, AnEarlierDayWithinTheLimitBecomesTheSessionsDateOnly)
{
    OpenForm(5);
    Pick(QDate(2007, 6, 21));
    EXPECT_TRUE(IsOn(form, "cmdSave"));
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 25));
    prompts.ExpectInformation(QStringLiteral("Application Date Changed"));
    Click(form, "cmdSave");
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 21));
    EXPECT_EQ(Panel(3), "Application Date :21/Jun/2007");
    EXPECT_FALSE(IsOn(form, "cmdSave"));
    EXPECT_EQ(Days(), 6);
    Start();
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 25));
    EXPECT_EQ(Panel(3), "Application Date : 25/Jun/2007");
}

TEST_F(ApplicationDateChange, TheRangeIsThatOfTheRightsTheLimitThatOfTheUserAtWork)
{
    GivenUser(5, QStringLiteral("head"), QStringLiteral("secret"));
    Given("UPDATE UserPrivilegeMaster SET Days = 4 WHERE UserCode = 5");
    OpenForm(6);
    form->Unload();
    Settle();
    Session().gintUserCode = 5;
    form = Open<frmUtilApplicationDateChange>("frmUtilApplicationDateChange");
    ExpectRange("19/Jun/2007", "25/Jun/2007");
    Pick(QDate(2007, 6, 21));
    EXPECT_TRUE(IsOn(form, "cmdSave"));
    ExpectRefused(QDate(2007, 6, 20));
}

TEST_F(ApplicationDateChange, TheLimitIsCountedInDays)
{
    OpenForm(5);
    Pick(QDate(2007, 6, 20));
    EXPECT_TRUE(IsOn(form, "cmdSave"));
    ExpectRefused(QDate(2007, 6, 19));
    ExpectRefused(QDate(2007, 6, 26));
}

TEST_F(ApplicationDateChange, ADayThatWasNeverAddedIsRefusedThoughItLiesInTheRange)
{
    OpenForm(5);
    ExpectRefused(QDate(2007, 6, 23));
    ExpectRefused(QDate(2007, 6, 24));
}

TEST_F(ApplicationDateChange, AUserWithoutDaysSeesOneDateAndCanNotMove)
{
    OpenForm(0);
    ExpectRange("25/Jun/2007", "25/Jun/2007");
    ExpectRefused(QDate(2007, 6, 22));
    ExpectRefused(QDate(2007, 6, 26));
    EXPECT_FALSE(IsOn(form, "cmdSave"));
}

TEST_F(ApplicationDateChange, BeforeTheYearsStartTheWorkingDayIsWhatFails)
{
    GivenDays({QDate(2007, 6, 1), QDate(2007, 6, 4)});
    OpenFor(5);
    ExpectRange("01/Jun/2007", "04/Jun/2007");
    ExpectRefused(QDate(2007, 5, 30));
    Given("INSERT INTO ApplicationDate VALUES ('2007-05-30', 1)");
    Pick(QDate(2007, 5, 30));
    EXPECT_TRUE(IsOn(form, "cmdSave"));
}

TEST_F(ApplicationDateChange, CancelShowsTheWorkingDateAgain)
{
    OpenForm(5);
    Pick(QDate(2007, 6, 21));
    Click(form, "cmdCancel");
    EXPECT_EQ(Picker()->date(), QDate(2007, 6, 25));
    EXPECT_TRUE(HasFocus(form, "dtpApplicationDate"));
}

TEST_F(ApplicationDateChange, TheArrowsMoveTheDateAndNothingCanBeTyped)
{
    OpenForm(5);
    Picker()->setFocus();
    Picker()->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClicks(Picker(), QStringLiteral("1234567890"));
    QTest::keyClick(Picker(), Qt::Key_Backspace);
    QTest::keyClick(Picker(), Qt::Key_Delete);
    QGuiApplication::clipboard()->setText(QStringLiteral("20/Jun/2007"));
    QTest::keyClick(Picker(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(Picker(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Picker()->date(), QDate(2007, 6, 25));
    EXPECT_EQ(Picker()->text().toStdString(), "25/Jun/2007");
    QTest::keyClick(Picker(), Qt::Key_1);
    EXPECT_EQ(FieldHintAt(Picker()), QStringLiteral("The Arrow Keys And The Calendar Move This Date"));
    Given("INSERT INTO ApplicationDate VALUES ('2007-06-24', 1)");
    Picker()->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClick(Picker(), Qt::Key_Down);
    EXPECT_EQ(Picker()->date(), QDate(2007, 6, 24));
    EXPECT_TRUE(IsOn(form, "cmdSave"));
    QTest::keyClick(Picker(), Qt::Key_Up);
    EXPECT_EQ(Picker()->date(), QDate(2007, 6, 25));
}

TEST_F(ApplicationDateChange, EnterGoesOnToTheNextField)
{
    OpenForm(5);
    Pick(QDate(2007, 6, 21));
    Picker()->setFocus();
    QTest::keyClick(Picker(), Qt::Key_Return);
    EXPECT_TRUE(HasFocus(form, "cmdSave"));
}

TEST_F(ApplicationDateChange, TheSaveOfTheTreeOfRightsIsEnough)
{
    OpenForm(5, QStringLiteral("S"));
    Pick(QDate(2007, 6, 21));
    prompts.ExpectInformation(QStringLiteral("Application Date Changed"));
    Click(form, "cmdSave");
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 21));
}

TEST_F(ApplicationDateChange, SaveNeedsARightOfItsOwnAndSaysWhich)
{
    OpenForm(5, QStringLiteral("D"));
    Pick(QDate(2007, 6, 21));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify Application Date"));
    Click(form, "cmdSave");
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 25));
    EXPECT_FALSE(Session().gblnPrivilege);
}

TEST_F(ApplicationDateChange, MustBeAloneAndTakesTheMenus)
{
    OpenForm(5);
    EXPECT_TRUE(MenusAre(false));
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Application Date Change ?"), true);
    Click(form, "cmdExit");
    Settle();
    EXPECT_TRUE(MenusAre(true));
    ASSERT_NE(OpenScreen(QStringLiteral("frmUtilOptions")), nullptr);
    prompts.ExpectInformation(QStringLiteral("You Cannot Open 'Application Date Change' Form When Other "
                                             "Forms Are Opened. First Close Other Forms"));
    EXPECT_EQ(OpenScreen(QStringLiteral("frmUtilApplicationDateChange")), nullptr);
}

TEST_F(ApplicationDateChange, ItsHelpIsNumber32)
{
    OpenForm(5);
    EXPECT_EQ(HelpNumber(form), 32);
}

TEST_F(ApplicationDateChange, FitsTheSmallestScreenWithNothingCutOff)
{
    Start();
    ExpectToFit(QStringLiteral("frmUtilApplicationDateChange"));
}

} // namespace
} // namespace tally::test
