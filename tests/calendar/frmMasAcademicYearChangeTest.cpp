#include "calendar/frmMasAcademicYearChange.h"

#include "calendar/CalendarFixture.h"

#include <QLineEdit>

namespace tally::test {
namespace {

class AcademicYearChange : public CalendarFixture
{
protected:
    void SetUp() override
    {
        CalendarFixture::SetUp();
        GivenYear(1, 2006, "N");
        GivenYear(2, 2007, "Y");
        GivenDays({QDate(2006, 6, 5), QDate(2006, 6, 6), QDate(2007, 6, 20)});
    }
    void OpenForm()
    {
        Start();
        form = Open<frmMasAcademicYearChange>("frmMasAcademicYearChange");
        ASSERT_NE(form, nullptr);
    }
    void Retype(const QString& year)
    {
        auto* field = Find<QLineEdit>(form, "txtAcademicYearFrom");
        field->selectAll();
        Type(field, year);
    }
    void SaveExpecting(const QString& text)
    {
        prompts.ExpectInformation(text);
        Click(form, "cmdSave");
    }
    void ExpectUnchanged()
    {
        EXPECT_EQ(Session().gintAcademicYearCode, 2);
        EXPECT_EQ(Session().gintYearFrom, 2007);
        EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 20));
        EXPECT_EQ(Panel(1), "Academic Year : 2007-2008");
    }

    frmMasAcademicYearChange* form = nullptr;
};

TEST_F(AcademicYearChange, TheSessionMovesToTheYearAndNothingIsStored)
{
    OpenForm();
    EXPECT_FALSE(IsOn(form, "cmdSave"));
    Retype(QStringLiteral("2006"));
    EXPECT_EQ(Text(form, "lblAcadamicYearTo"), "2007");
    EXPECT_TRUE(IsOn(form, "cmdSave"));
    SaveExpecting(QStringLiteral("Academic Year Changed"));
    const SessionContext& session = Session();
    EXPECT_EQ(session.gintAcademicYearCode, 1);
    EXPECT_EQ(session.gintYearFrom, 2006);
    EXPECT_EQ(session.gintYearTo, 2007);
    EXPECT_EQ(session.gdtmFromDate, QDate(2006, 6, 1));
    EXPECT_EQ(session.gdtmToDate, QDate(2007, 5, 31));
    EXPECT_EQ(session.gdtmApplicationDate, QDate(2006, 6, 6));
    EXPECT_EQ(Panel(1), "Academic Year : 2006 - 2007");
    EXPECT_EQ(Panel(3), "Application Date : 06/Jun/2006");
    EXPECT_FALSE(IsOn(form, "cmdSave"));
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "2006");
    EXPECT_EQ(Count("SELECT AcademicYearCode FROM AcademicYearSetup WHERE Status = 'Y'"), 2);
    Start();
    EXPECT_EQ(Session().gintAcademicYearCode, 2);
}

TEST_F(AcademicYearChange, AnEmptyOrZeroYearIsAskedFor)
{
    OpenForm();
    for (const char* zero : {"0", "0000"}) {
        Retype(QString::fromLatin1(zero));
        SaveExpecting(QStringLiteral("Enter Academic Year 'From'"));
        EXPECT_TRUE(HasFocus(form, "txtAcademicYearFrom"));
    }
    QTest::keyClick(Find<QLineEdit>(form, "txtAcademicYearFrom"), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(Find<QLineEdit>(form, "txtAcademicYearFrom"), Qt::Key_Delete);
    SaveExpecting(QStringLiteral("Enter Academic Year 'From'"));
    ExpectUnchanged();
}

TEST_F(AcademicYearChange, AYearThatDoesNotFitItsEndIsRefusedAndEmptied)
{
    OpenForm();
    Retype(QStringLiteral("2006"));
    QTest::keyClick(Find<QLineEdit>(form, "txtAcademicYearFrom"), Qt::Key_Backspace);
    EXPECT_EQ(Text(form, "lblAcadamicYearTo"), "2007");
    SaveExpecting(QStringLiteral("Enter Correct Academic Year"));
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "");
    EXPECT_EQ(Text(form, "lblAcadamicYearTo"), "");
    EXPECT_TRUE(HasFocus(form, "txtAcademicYearFrom"));
    Retype(QStringLiteral("20"));
    SaveExpecting(QStringLiteral("Enter Correct Academic Year"));
    ExpectUnchanged();
}

TEST_F(AcademicYearChange, AYearThatDoesNotExistIsRefusedAndEmptied)
{
    OpenForm();
    Retype(QStringLiteral("2008"));
    SaveExpecting(QStringLiteral("No Academic Year Exists For The Value Entered"));
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "");
    EXPECT_EQ(Text(form, "lblAcadamicYearTo"), "");
    ExpectUnchanged();
}

TEST_F(AcademicYearChange, WithoutASchoolNoYearIsTheRightOne)
{
    OpenForm();
    Given("DELETE FROM SchoolMaster");
    Retype(QStringLiteral("2006"));
    SaveExpecting(QStringLiteral("Enter Correct Academic Year"));
    ExpectUnchanged();
}

TEST_F(AcademicYearChange, AYearWhoseWorkingDateCannotBeReadIsNotChangedTo)
{
    OpenForm();
    Retype(QStringLiteral("2006"));
    Given("ALTER TABLE ApplicationDate RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ApplicationDate"));
    Click(form, "cmdSave");
    prompts.Verify();
    ExpectUnchanged();
    EXPECT_TRUE(IsOn(form, "cmdSave"));
    Given("ALTER TABLE Away RENAME TO ApplicationDate");
    SaveExpecting(QStringLiteral("Academic Year Changed"));
}

TEST_F(AcademicYearChange, AProcessedYearCanNotBeEnteredAndItsTextStays)
{
    Given("UPDATE AcademicYearSetup SET Processed = 'Y' WHERE AcademicYearCode = 1");
    OpenForm();
    Retype(QStringLiteral("2006"));
    SaveExpecting(QStringLiteral("Already Processed For The Entered Academic Year.\n"
                                 "You Cannot Work In This Academic Year\n"
                                 "Contact Administrator"));
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "2006");
    EXPECT_TRUE(HasFocus(form, "txtAcademicYearFrom"));
    ExpectUnchanged();
}

TEST_F(AcademicYearChange, AYearWithoutAWorkingDateKeepsTheOldOne)
{
    Given("DELETE FROM ApplicationDate WHERE ApplicationDate BETWEEN '2000-01-01' AND '2007-01-01'");
    OpenForm();
    ASSERT_TRUE(Session().gblnApplicationDateExists);
    Retype(QStringLiteral("2006"));
    SaveExpecting(QStringLiteral("Academic Year Changed"));
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 20));
    EXPECT_FALSE(Session().gblnApplicationDateExists);
    EXPECT_EQ(Panel(3), "Application Date : 20/Jun/2007");
}

TEST_F(AcademicYearChange, AJanuarySchoolLooksForOneCalendarYear)
{
    GivenStartMonth("JAN");
    OpenForm();
    Retype(QStringLiteral("2007"));
    EXPECT_EQ(Text(form, "lblAcadamicYearTo"), "2007");
    SaveExpecting(QStringLiteral("No Academic Year Exists For The Value Entered"));
    Given("UPDATE AcademicYearSetup SET YearTo = 2007 WHERE AcademicYearCode = 2");
    Retype(QStringLiteral("2007"));
    SaveExpecting(QStringLiteral("Academic Year Changed"));
    EXPECT_EQ(Panel(1), "Academic Year : 2007 - 2007");
}

TEST_F(AcademicYearChange, SaveNeedsItsOwnRight)
{
    GivenSessionUser(0, {});
    OpenForm();
    for (const char* year : {"0", "2006"}) {
        Retype(QString::fromLatin1(year));
        SaveExpecting(QStringLiteral("You Have No Privilege To Change The Academic Year"));
        ExpectUnchanged();
    }
    Given("INSERT INTO UserPrivilegeDetails VALUES ('frmMasAcademicYearChange', 'S', 4)");
    SaveExpecting(QStringLiteral("Academic Year Changed"));
}

TEST_F(AcademicYearChange, CancelEmptiesTheFieldsAndTurnsSaveOff)
{
    OpenForm();
    Retype(QStringLiteral("2006"));
    Click(form, "cmdCancel");
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "");
    EXPECT_EQ(Text(form, "lblAcadamicYearTo"), "");
    EXPECT_FALSE(IsOn(form, "cmdSave"));
    ExpectUnchanged();
}

TEST_F(AcademicYearChange, MustBeAlone)
{
    Start();
    ASSERT_NE(OpenScreen(QStringLiteral("frmUtilOptions")), nullptr);
    prompts.ExpectInformation(QStringLiteral(
        "You Cannot Open 'Academic Year Change' Form When Other Forms Are Opened. First Close Other Forms"));
    EXPECT_EQ(OpenScreen(QStringLiteral("frmMasAcademicYearChange")), nullptr);
    EXPECT_TRUE(MenusAre(true));
}

TEST_F(AcademicYearChange, TheMenusAreOffUntilItClosesAndItsCaptionEndsInABlank)
{
    OpenForm();
    EXPECT_TRUE(MenusAre(false));
    EXPECT_TRUE(Session().gblnMenusLocked);
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Academic Year Change  ?"), true);
    Click(form, "cmdExit");
    Settle();
    EXPECT_FALSE(IsOpen("frmMasAcademicYearChange"));
    EXPECT_TRUE(MenusAre(true));
    EXPECT_FALSE(Session().gblnMenusLocked);
}

TEST_F(AcademicYearChange, ItsHelpIsNumber14)
{
    OpenForm();
    EXPECT_EQ(HelpNumber(form), 14);
}

TEST_F(AcademicYearChange, FitsTheSmallestScreenWithNothingCutOff)
{
    Start();
    ExpectToFit(QStringLiteral("frmMasAcademicYearChange"));
}

} // namespace
} // namespace tally::test
