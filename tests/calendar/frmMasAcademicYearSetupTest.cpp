#include "calendar/frmMasAcademicYearSetup.h"

#include "calendar/CalendarFixture.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/controls/DatePicker.h"
#include "core/ui/ScreenRegistry.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace tally::test {
namespace {

const QString NoActiveYear = QStringLiteral("Atleast One Academic Year Should Have Active Status");
const QString OpenedByAnother =
    QStringLiteral("This Screen Is Already Opened By Another User. So You Cannot Open This Screen");

/// Counts how often a widget is painted.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
    int Count() const { return count_; }

    bool eventFilter(QObject*, QEvent* event) override
    {
        count_ += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int count_ = 0;
};

class AcademicYearSetup : public CalendarFixture
{
protected:
    void OpenForm()
    {
        Start();
        form = Open<frmMasAcademicYearSetup>("frmMasAcademicYearSetup");
        ASSERT_NE(form, nullptr);
    }
    /// Presses New, types the year and chooses the status with the keys.
    void Enter(const QString& year, const QString& status = {})
    {
        Click(form, "cmdNew");
        Retype(year);
        ChooseStatus(status);
    }
    void Retype(const QString& year)
    {
        auto* field = Find<QLineEdit>(form, "txtAcademicYearFrom");
        field->selectAll();
        Type(field, year);
    }
    void ChooseStatus(const QString& status)
    {
        auto* list = Find<QComboBox>(form, "cbostatus");
        list->setFocus();
        if (!status.isEmpty())
            QTest::keyClick(list, status == QLatin1String("YES") ? Qt::Key_Y : Qt::Key_N);
    }
    void SaveExpecting(const QString& text)
    {
        prompts.ExpectInformation(text);
        Click(form, "cmdSave");
    }
    void Select(int row)
    {
        prompts.ExpectQuestion(QStringLiteral("Do You Want To Edit/Delete ?"), true);
        DoubleClick(row);
    }
    void DoubleClick(int row)
    {
        auto* grid = Find<DataGrid>(form, "dgdDetails");
        const QPoint place = grid->visualRect(grid->model()->index(row, 1)).center();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, place);
    }
    void DeleteRow(int row)
    {
        Select(row);
        prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Entry ?"), true);
        prompts.ExpectInformation(QStringLiteral("Record Deleted"));
        Click(form, "cmdDelete");
    }
    /// Adds the next day to the working calendar; it is expected to be `shown`.
    void AddOneDay(const QString& shown)
    {
        if (!IsOpen("frmUtilApplicationDateSetup"))
            OpenScreen(QStringLiteral("frmUtilApplicationDateSetup"));
        prompts.ExpectQuestion(QStringLiteral("Do You Want To Add Application Date : %1 ?").arg(shown), true);
        prompts.ExpectInformation(QStringLiteral("Application Date Added"));
        Click(ScreenRegistry::OpenInstance(QStringLiteral("frmUtilApplicationDateSetup")), "cmdAddOneDay");
    }
    /// The session is in the first of two years, on its fourth day.
    void ExpectWorkingIn2007()
    {
        const SessionContext& session = Session();
        EXPECT_EQ(session.gintAcademicYearCode, 1);
        EXPECT_EQ(session.gintYearFrom, 2007);
        EXPECT_EQ(session.gdtmFromDate, QDate(2007, 6, 1));
        EXPECT_EQ(session.gdtmToDate, QDate(2008, 5, 31));
        EXPECT_EQ(session.gdtmApplicationDate, QDate(2007, 6, 4));
        EXPECT_TRUE(session.gblnActiveYearExists);
        EXPECT_TRUE(session.gblnApplicationDateExists);
        EXPECT_EQ(Panel(1), "Academic Year : 2007-2008");
        EXPECT_EQ(Panel(3), "Application Date : 04/Jun/2007");
    }
    void ExpectButtons(bool newOn, bool editOn, bool deleteOn, bool saveOn)
    {
        EXPECT_EQ(IsOn(form, "cmdNew"), newOn);
        EXPECT_EQ(IsOn(form, "cmdEdit"), editOn);
        EXPECT_EQ(IsOn(form, "cmdDelete"), deleteOn);
        EXPECT_EQ(IsOn(form, "cmdSave"), saveOn);
    }
    void ExpectIdle()
    {
        ExpectButtons(true, false, false, false);
        EXPECT_FALSE(IsOn(form, "Frame1"));
        EXPECT_FALSE(IsOn(form, "Frame3"));
        EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "");
        EXPECT_EQ(Text(form, "lblAcademicYearTo"), "");
        EXPECT_EQ(Text(form, "cbostatus"), "");
        EXPECT_EQ(DateIn(form, "dtpFromDate"), QDate::currentDate());
        EXPECT_EQ(DateIn(form, "dtpToDate"), QDate::currentDate());
    }
    bool OffersSchoolSetup() { return Find<QWidget>(form, "fraSchoolSetupOpen")->isVisibleTo(form); }
    qint64 Years() { return Count("SELECT count(*) FROM AcademicYearSetup WHERE AcademicYearCode > 0"); }

    frmMasAcademicYearSetup* form = nullptr;
};

TEST_F(AcademicYearSetup, ANewSystemIsForcedHereAndOfferedItsSchoolSetup)
{
    Start();
    EXPECT_TRUE(IsOpen("frmMasAcademicYearSetup"));
    OpenForm();
    EXPECT_TRUE(OffersSchoolSetup());
    EXPECT_EQ(form->windowTitle().toStdString(), "Academic Year Setup");
    ExpectIdle();
    Click(form, "cmdOpenSchoolSetup");
    Settle();
    EXPECT_TRUE(IsOpen("frmMasSchoolSetup"));
}

TEST_F(AcademicYearSetup, TheTypedYearShowsItsEndAndItsDates)
{
    OpenForm();
    Click(form, "cmdNew");
    EXPECT_TRUE(HasFocus(form, "txtAcademicYearFrom"));
    Retype(QStringLiteral("200"));
    EXPECT_EQ(Text(form, "lblAcademicYearTo"), "");
    EXPECT_EQ(DateIn(form, "dtpFromDate"), QDate::currentDate());
    Type(Find<QLineEdit>(form, "txtAcademicYearFrom"), QStringLiteral("7"));
    EXPECT_EQ(Text(form, "lblAcademicYearTo"), "2008");
    EXPECT_EQ(DateIn(form, "dtpFromDate"), QDate(2007, 6, 1));
    EXPECT_EQ(DateIn(form, "dtpToDate"), QDate(2008, 5, 31));
}

TEST_F(AcademicYearSetup, TheDatesFollowFromTheYearAndNobodyTypesThem)
{
    OpenForm();
    Enter(QStringLiteral("2007"));
    for (const char* name : {"dtpFromDate", "dtpToDate"}) {
        auto* date = Find<DatePicker>(form, name);
        date->setFocus();
        QTest::keyClick(date, Qt::Key_Up);
        QTest::keyClicks(date, QStringLiteral("15"));
        QTest::keyClick(date, Qt::Key_Delete);
    }
    EXPECT_EQ(DateIn(form, "dtpFromDate"), QDate(2007, 6, 1));
    EXPECT_EQ(DateIn(form, "dtpToDate"), QDate(2008, 5, 31));
}

TEST_F(AcademicYearSetup, ASchoolThatStartsInJanuaryKeepsToOneCalendarYear)
{
    GivenStartMonth("jan");
    OpenForm();
    Enter(QStringLiteral("2007"));
    EXPECT_EQ(Text(form, "lblAcademicYearTo"), "2007");
    EXPECT_EQ(DateIn(form, "dtpFromDate"), QDate(2007, 1, 1));
    EXPECT_EQ(DateIn(form, "dtpToDate"), QDate(2007, 12, 31));
}

TEST_F(AcademicYearSetup, TheYearFieldTakesFourDigitsAndNothingElse)
{
    OpenForm();
    Enter(QStringLiteral("2a0-0.'7 8"));
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "2007");
}

TEST_F(AcademicYearSetup, ASaveIsCheckedInItsOrder)
{
    GivenYear(1, 2007, "Y");
    OpenForm();
    Click(form, "cmdNew");
    SaveExpecting(QStringLiteral("Enter 'Academic Year From' "));
    EXPECT_TRUE(HasFocus(form, "txtAcademicYearFrom"));

    Retype(QStringLiteral("1979"));
    SaveExpecting(QStringLiteral("Select Status"));
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "1979");

    ChooseStatus(QStringLiteral("YES"));
    SaveExpecting(QStringLiteral("Academic Year Should Be Within 1980 To 2099"));
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "");
    EXPECT_TRUE(HasFocus(form, "txtAcademicYearFrom"));

    Retype(QStringLiteral("2007"));
    SaveExpecting(QStringLiteral("'Academic Year From' Already Exists"));
    Retype(QStringLiteral("2006"));
    SaveExpecting(QStringLiteral("You Cannot Enter Academic Year Lesser Than Existing Academic Year"));
    Retype(QStringLiteral("2009"));
    SaveExpecting(QStringLiteral("You Can Enter Only Next Academic Year 2008 - 2009"));
    Retype(QStringLiteral("2008"));
    SaveExpecting(QStringLiteral("Already One Academic Year Has An Active Status"));
    EXPECT_TRUE(HasFocus(form, "cbostatus"));
    EXPECT_EQ(Years(), 1);
    ExpectButtons(false, false, false, true);
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "2008");
}

TEST_F(AcademicYearSetup, AfterCancelTheYearThatWasInHandIsOneLikeAllOthers)
{
    GivenYear(1, 2007, "Y");
    OpenForm();
    Select(0);
    Click(form, "cmdCancel");
    Enter(QStringLiteral("2007"), QStringLiteral("NO"));
    SaveExpecting(QStringLiteral("'Academic Year From' Already Exists"));
    EXPECT_EQ(Years(), 1);
}

TEST_F(AcademicYearSetup, WhereTheOtherYearsCannotBeReadThatIsToldOnceAndNothingIsSaved)
{
    GivenYear(1, 2007, "Y");
    OpenForm();
    Enter(QStringLiteral("2008"), QStringLiteral("NO"));
    Given("ALTER TABLE AcademicYearSetup RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("AcademicYearSetup"));
    Click(form, "cmdSave");
    prompts.Verify();
    Given("ALTER TABLE Away RENAME TO AcademicYearSetup");
    EXPECT_EQ(Years(), 1);
    SaveExpecting(QStringLiteral("Academic Year Saved"));
    EXPECT_EQ(Years(), 2);
}

TEST_F(AcademicYearSetup, AFirstYearThatBecomesActiveOnlyLaterLeadsOutOfTheScreenToo)
{
    OpenForm();
    Session().gblnActiveYearExists = false;
    Enter(QStringLiteral("2007"), QStringLiteral("NO"));
    SaveExpecting(QStringLiteral("Academic Year Saved"));
    // A list takes letters typed close together as the beginning of one word; an empty one begins anew.
    Find<QComboBox>(form, "cbostatus")->view()->keyboardSearch({});
    Enter(QStringLiteral("2008"), QStringLiteral("YES"));
    SaveExpecting(QStringLiteral("Academic Year Saved"));
    Click(form, "cmdExit");
    Settle();
    EXPECT_TRUE(Session().gblnActiveYearExists);
    EXPECT_EQ(Session().gintYearFrom, 2008);
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmMasAcademicYearSetup")), nullptr);
}

TEST_F(AcademicYearSetup, AYearThatEndsAfter2099IsRefused)
{
    OpenForm();
    Enter(QStringLiteral("2099"), QStringLiteral("YES"));
    EXPECT_EQ(Text(form, "lblAcademicYearTo"), "2100");
    SaveExpecting(QStringLiteral("Academic Year Should Be Within 1980 To 2099"));
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "");
    EXPECT_EQ(Text(form, "lblAcademicYearTo"), "");
}

TEST_F(AcademicYearSetup, TheLastYearOfAJanuarySchoolIs2099)
{
    GivenStartMonth("JAN");
    OpenForm();
    Enter(QStringLiteral("2099"), QStringLiteral("YES"));
    SaveExpecting(QStringLiteral("Academic Year Saved"));
    EXPECT_EQ(Years(), 1);
}

TEST_F(AcademicYearSetup, AJanuarySchoolIsToldItsNextYearTwice)
{
    GivenStartMonth("JAN");
    Given("INSERT INTO AcademicYearSetup VALUES (1, 2007, 2007, '2007-01-01', '2007-12-31', 'Y', 'N', 1)");
    OpenForm();
    Enter(QStringLiteral("2010"), QStringLiteral("NO"));
    SaveExpecting(QStringLiteral("You Can Enter Only Next Academic Year 2008 - 2008"));
}

TEST_F(AcademicYearSetup, OneDigitTakenAwayIsNoYearAnyMore)
{
    OpenForm();
    Enter(QStringLiteral("2007"), QStringLiteral("YES"));
    QTest::keyClick(Find<QLineEdit>(form, "txtAcademicYearFrom"), Qt::Key_Backspace);
    EXPECT_EQ(Text(form, "lblAcademicYearTo"), "2008");
    SaveExpecting(QStringLiteral("Academic Year Should Be Within 1980 To 2099"));
}

TEST_F(AcademicYearSetup, ASelectedYearCanBeEditedInItsStatusOnly)
{
    GivenYear(1, 2007, "N");
    OpenForm();
    GivenStartMonth("JAN");
    Select(0);
    ExpectButtons(false, true, true, false);
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "2007");
    EXPECT_EQ(Text(form, "lblAcademicYearTo"), "2008");
    EXPECT_EQ(Text(form, "cbostatus"), "NO");
    EXPECT_EQ(DateIn(form, "dtpFromDate"), QDate(2007, 6, 1));
    EXPECT_EQ(DateIn(form, "dtpToDate"), QDate(2008, 5, 31));

    Click(form, "cmdEdit");
    ExpectButtons(false, false, false, true);
    EXPECT_FALSE(IsOn(form, "Frame1"));
    EXPECT_TRUE(IsOn(form, "Frame3"));
    EXPECT_TRUE(HasFocus(form, "cbostatus"));
    ChooseStatus(QStringLiteral("YES"));
    SaveExpecting(QStringLiteral("Academic Year Updated"));
    EXPECT_EQ(Count("SELECT count(*) FROM AcademicYearSetup WHERE AcademicYearCode = 1 AND YearFrom = 2007"
                    " AND YearTo = 2008 AND FromDate = '2007-06-01' AND ToDate = '2008-05-31'"
                    " AND Status = 'Y' AND UserCode = 1"),
              1);
    ExpectIdle();
}

TEST_F(AcademicYearSetup, AnEditIsToldWhenItIsStored)
{
    GivenYear(1, 2007, "Y");
    OpenForm();
    Select(0);
    Click(form, "cmdEdit");
    ChooseStatus(QStringLiteral("NO"));
    QStringList boxes;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        boxes.append(text);
        EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
        EXPECT_EQ(AnotherClient()->Number(
                      QStringLiteral("SELECT count(*) FROM AcademicYearSetup WHERE Status = 'Y'")),
                  0);
        return true;
    });
    Click(form, "cmdSave");
    EXPECT_EQ(boxes, QStringList(QStringLiteral("Academic Year Updated")));
}

TEST_F(AcademicYearSetup, AnEditOfAYearThatAnotherClientDeletedIsNotCalledSaved)
{
    GivenYear(1, 2007, "Y");
    GivenYear(2, 2008, "N");
    OpenForm();
    Select(1);
    Click(form, "cmdEdit");
    AnotherClient()->Execute(QStringLiteral("DELETE FROM AcademicYearSetup WHERE AcademicYearCode = 2"));
    prompts.ExpectCritical(QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data."));
    Click(form, "cmdSave");
    prompts.Verify();
    EXPECT_EQ(Find<DataGrid>(form, "dgdDetails")->RowCount(), 1);
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    Click(form, "cmdCancel");
    ExpectIdle();
}

TEST_F(AcademicYearSetup, AYearMayStayActiveInAnEdit)
{
    GivenYear(1, 2007, "Y");
    OpenForm();
    Select(0);
    Click(form, "cmdEdit");
    SaveExpecting(QStringLiteral("Academic Year Updated"));
}

TEST_F(AcademicYearSetup, ANoToTheQuestionSelectsNothing)
{
    GivenYear(1, 2007, "N");
    OpenForm();
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Edit/Delete ?"), false);
    DoubleClick(0);
    ExpectIdle();
}

TEST_F(AcademicYearSetup, TheGridShowsAllYearsWithoutTheirCodes)
{
    GivenYear(1, 2007, "N");
    GivenYear(2, 2008, "Y");
    OpenForm();
    const auto* grid = Find<DataGrid>(form, "dgdDetails");
    ASSERT_EQ(grid->RowCount(), 2);
    EXPECT_TRUE(grid->isColumnHidden(0));
    EXPECT_EQ(grid->Code(1, QStringLiteral("AcademicYearCode")), 2);
    EXPECT_EQ(grid->Text(1, QStringLiteral("From Date")).toStdString(), "01/Jun/2008");
    EXPECT_EQ(grid->Text(1, QStringLiteral("Status")).toStdString(), "YES");
    EXPECT_FALSE(OffersSchoolSetup());
}

TEST_F(AcademicYearSetup, CancelGoesBackToIdle)
{
    GivenYear(1, 2007, "Y");
    OpenForm();
    Enter(QStringLiteral("2008"), QStringLiteral("NO"));
    Click(form, "cmdCancel");
    ExpectIdle();
    EXPECT_TRUE(HasFocus(form, "cmdNew"));
    Select(0);
    Click(form, "cmdCancel");
    ExpectIdle();
    EXPECT_EQ(Years(), 1);
}

TEST_F(AcademicYearSetup, DeleteAsksForTheRightToEdit)
{
    GivenYear(1, 2007, "Y");
    const QString name = QStringLiteral("frmMasAcademicYearSetup");
    GivenSessionUser(0, {{name, QStringLiteral("X")}});
    OpenForm();
    Select(0);
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Click(form, "cmdDelete");
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Click(form, "cmdEdit");
    Click(form, "cmdCancel");
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Click(form, "cmdNew");
    EXPECT_EQ(Years(), 1);
    Given("UPDATE UserPrivilegeDetails SET ButtonName = 'E'");
    Select(0);
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Entry ?"), true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Click(form, "cmdDelete");
    EXPECT_EQ(Years(), 0);
}

TEST_F(AcademicYearSetup, OnlyTheLastYearCanBeDeleted)
{
    GivenYear(1, 2007, "Y");
    GivenYear(2, 2008, "N");
    OpenForm();
    Select(0);
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Entry ?"), false);
    Click(form, "cmdDelete");
    ExpectButtons(false, true, true, false);
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Entry ?"), true);
    prompts.ExpectInformation(
        QStringLiteral("You Cannot Delete This Academic Year. You Can Delete Last Academic Year"));
    Click(form, "cmdDelete");
    EXPECT_EQ(Years(), 2);
}

TEST_F(AcademicYearSetup, NoYearGoesWhereTheLaterOnesCannotBeRead)
{
    GivenYear(1, 2007, "Y");
    OpenForm();
    Select(0);
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        told.append(text);
        if (told.size() == 1)
            Given("ALTER TABLE AcademicYearSetup RENAME TO Away");
        return true;
    });
    Click(form, "cmdDelete");
    EXPECT_EQ(told, QStringList({QStringLiteral("Do You Want To Delete This Entry ?"),
                                 NoSuchTable("AcademicYearSetup")}));
    Given("ALTER TABLE Away RENAME TO AcademicYearSetup");
    EXPECT_EQ(Years(), 1);
    ExpectButtons(false, true, true, false);
}

TEST_F(AcademicYearSetup, AFaultInReadingBackAfterADeleteSaysThatItIsDone)
{
    GivenYear(1, 2007, "Y");
    GivenYear(2, 2008, "N");
    OpenForm();
    Select(1);
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        told.append(text);
        if (text == QStringLiteral("Record Deleted"))
            Given("ALTER TABLE AcademicYearSetup RENAME TO Away");
        return true;
    });
    Click(form, "cmdDelete");
    ASSERT_EQ(told.size(), 3);
    EXPECT_TRUE(told.at(2).startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
    EXPECT_EQ(Count("SELECT count(*) FROM Away WHERE AcademicYearCode > 0"), 1);
}

TEST_F(AcademicYearSetup, DeletingAnotherYearThanTheOneInUseLeavesTheSession)
{
    GivenYear(1, 2007, "Y");
    GivenYear(2, 2008, "N");
    GivenDays({QDate(2008, 5, 31), QDate(2008, 6, 1), QDate(2009, 5, 31), QDate(2009, 6, 1)});
    OpenForm();
    Select(1);
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Entry ?"), true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Click(form, "cmdDelete");
    EXPECT_EQ(Years(), 1);
    EXPECT_EQ(Find<DataGrid>(form, "dgdDetails")->RowCount(), 1);
    EXPECT_EQ(Days(), 2);
    EXPECT_EQ(Session().gintYearFrom, 2007);
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2008, 5, 31));
    EXPECT_EQ(Panel(1), "Academic Year : 2007-2008");
    EXPECT_EQ(Panel(3), "Application Date : 31/May/2008");
    ExpectIdle();
}

TEST_F(AcademicYearSetup, DeletingTheOnlyYearLeavesTheSessionWithoutOne)
{
    GivenYear(1, 2007, "Y");
    GivenDays({QDate(2007, 6, 4)});
    OpenForm();
    ASSERT_EQ(Panel(1), "Academic Year : 2007-2008");
    Select(0);
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Entry ?"), true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Click(form, "cmdDelete");
    EXPECT_EQ(Session().gintYearFrom, 0);
    EXPECT_EQ(Session().gintYearTo, 0);
    EXPECT_FALSE(Session().gdtmApplicationDate.isValid());
    EXPECT_EQ(Panel(1), "Academic Year : ");
    EXPECT_EQ(Panel(3), "Application Date : ");
    EXPECT_EQ(Days(), 0);
    EXPECT_TRUE(OffersSchoolSetup());
    prompts.ExpectInformation(NoActiveYear);
    Click(form, "cmdExit");

    Enter(QStringLiteral("2010"), QStringLiteral("YES"));
    SaveExpecting(QStringLiteral("Academic Year Saved"));
    EXPECT_EQ(Panel(1), "Academic Year : 2010-2011");
    EXPECT_EQ(Panel(3), "Application Date : 01/Jun/2010");
}

TEST_F(AcademicYearSetup, WithTheYearInUseGoesAllThatTheSessionKnewOfIt)
{
    GivenYear(1, 2007, "N");
    GivenYear(2, 2008, "Y");
    GivenDays({QDate(2007, 6, 4), QDate(2008, 6, 9)});
    OpenForm();
    ASSERT_EQ(Session().gintAcademicYearCode, 2);
    DeleteRow(1);
    const SessionContext& session = Session();
    EXPECT_EQ(session.gintAcademicYearCode, 0);
    EXPECT_EQ(session.gintYearFrom, 0);
    EXPECT_EQ(session.gintYearTo, 0);
    EXPECT_FALSE(session.gdtmFromDate.isValid());
    EXPECT_FALSE(session.gdtmToDate.isValid());
    EXPECT_FALSE(session.gdtmApplicationDate.isValid());
    EXPECT_FALSE(session.gblnActiveYearExists);
    EXPECT_FALSE(session.gblnApplicationDateExists);
    EXPECT_EQ(Panel(1), "Academic Year : ");
    EXPECT_EQ(Panel(3), "Application Date : ");
    prompts.ExpectInformation(NoActiveYear);
    Click(form, "cmdExit");
    EXPECT_TRUE(IsOpen("frmMasAcademicYearSetup"));
}

TEST_F(AcademicYearSetup, TheYearThatIsMadeActiveAfterwardsBringsItsDatesToTheWorkingCalendar)
{
    GivenYear(1, 2007, "N");
    GivenYear(2, 2008, "Y");
    GivenDays({QDate(2007, 6, 4), QDate(2008, 6, 9)});
    OpenForm();
    DeleteRow(1);
    Select(0);
    Click(form, "cmdEdit");
    ChooseStatus(QStringLiteral("YES"));
    SaveExpecting(QStringLiteral("Academic Year Updated"));
    Click(form, "cmdExit");
    Settle();
    ASSERT_FALSE(IsOpen("frmMasAcademicYearSetup"));
    ExpectWorkingIn2007();
    AddOneDay(QStringLiteral("05/Jun/2007"));
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 5));
    EXPECT_EQ(Count("SELECT count(*) FROM ApplicationDate WHERE ApplicationDate > '2008-05-31'"), 0)
        << "no day of a year that is gone";
}

TEST_F(AcademicYearSetup, AYearWithoutDaysThatIsMadeActiveAfterwardsBeginsItsCalendar)
{
    GivenYear(1, 2007, "N");
    GivenYear(2, 2008, "Y");
    GivenDays({QDate(2008, 6, 9)});
    OpenForm();
    DeleteRow(1);
    Select(0);
    Click(form, "cmdEdit");
    ChooseStatus(QStringLiteral("YES"));
    SaveExpecting(QStringLiteral("Academic Year Updated"));
    Click(form, "cmdExit");
    Settle();
    ASSERT_TRUE(IsOpen("frmUtilApplicationDateSetup"));
    AddOneDay(QStringLiteral("01/Jun/2007"));
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 1));
    EXPECT_TRUE(Session().gblnApplicationDateExists);
}

TEST_F(AcademicYearSetup, AnotherActiveYearIsTheOneInUseAgainWhenTheOneInUseIsDeleted)
{
    GivenYear(1, 2007, "Y");
    GivenYear(2, 2008, "N");
    GivenDays({QDate(2007, 6, 4), QDate(2008, 6, 9)});
    Start();
    Screen* change = OpenScreen(QStringLiteral("frmMasAcademicYearChange"));
    Type(Find<QLineEdit>(change, "txtAcademicYearFrom"), QStringLiteral("2008"));
    GivenSessionUser(0, {{QStringLiteral("frmMasAcademicYearChange"), QStringLiteral("S")},
                         {QStringLiteral("frmMasAcademicYearSetup"), QStringLiteral("E")}});
    prompts.ExpectInformation(QStringLiteral("Academic Year Changed"));
    Click(change, "cmdSave");
    Click(change, "cmdExit");
    Settle();
    ASSERT_EQ(Session().gintAcademicYearCode, 2);
    form = Open<frmMasAcademicYearSetup>("frmMasAcademicYearSetup");
    DeleteRow(1);
    EXPECT_EQ(Session().gintAcademicYearCode, 0);
    EXPECT_EQ(Panel(1), "Academic Year : ");
    Click(form, "cmdExit");
    Settle();
    ASSERT_FALSE(IsOpen("frmMasAcademicYearSetup"));
    ExpectWorkingIn2007();
}

TEST_F(AcademicYearSetup, LeavesTheYearThatTheUserWorksIn)
{
    GivenYear(1, 2007, "Y");
    GivenYear(2, 2008, "N");
    GivenDays({QDate(2007, 6, 4), QDate(2008, 6, 9)});
    Start();
    Screen* change = OpenScreen(QStringLiteral("frmMasAcademicYearChange"));
    Type(Find<QLineEdit>(change, "txtAcademicYearFrom"), QStringLiteral("2008"));
    GivenSessionUser(0, {{QStringLiteral("frmMasAcademicYearChange"), QStringLiteral("S")}});
    prompts.ExpectInformation(QStringLiteral("Academic Year Changed"));
    Click(change, "cmdSave");
    Click(change, "cmdExit");
    Settle();
    form = Open<frmMasAcademicYearSetup>("frmMasAcademicYearSetup");
    Click(form, "cmdExit");
    Settle();
    EXPECT_FALSE(IsOpen("frmMasAcademicYearSetup"));
    EXPECT_EQ(Session().gintAcademicYearCode, 2);
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2008, 6, 9));
    EXPECT_EQ(Panel(1), "Academic Year : 2008 - 2009");
}

TEST_F(AcademicYearSetup, AYearWithClassesStaysAndSoDoItsDays)
{
    GivenYear(1, 2007, "Y");
    GivenDays({QDate(2007, 6, 4)});
    Given("INSERT INTO ClassDivisionMaster VALUES (1, 'I', 1, 1, 1)");
    Given("INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1)");
    Given("INSERT INTO ClassSubjectTeacher VALUES (1, 1, 1, 0, 0, 100, 100, 'Yes', 1)");
    OpenForm();
    Select(0);
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This Entry ?"), true);
    prompts.ExpectCritical(
        QStringLiteral("This Data Is Already Used By Other Screen(s).\nYou Cannot Delete This Data."));
    Click(form, "cmdDelete");
    EXPECT_EQ(Years(), 1);
    EXPECT_EQ(Days(), 1);
    EXPECT_EQ(Session().gintYearFrom, 2007);
    EXPECT_EQ(Panel(1), "Academic Year : 2007-2008");
    ExpectButtons(false, true, true, false);
}

TEST_F(AcademicYearSetup, TheMenusAreOffWhileItIsOpenAndAsTheyWereAfterwards)
{
    GivenYear(1, 2007, "Y");
    GivenDays({QDate(2007, 6, 4)});
    OpenForm();
    EXPECT_TRUE(MenusAre(false));
    EXPECT_TRUE(Session().gblnMenusLocked);
    Click(form, "cmdExit");
    Settle();
    EXPECT_FALSE(IsOpen("frmMasAcademicYearSetup"));
    EXPECT_TRUE(MenusAre(true));
    EXPECT_FALSE(Session().gblnMenusLocked);

    window->EnableMenuItem(QStringLiteral("mnuMasters"), false);
    form = Open<frmMasAcademicYearSetup>("frmMasAcademicYearSetup");
    EXPECT_TRUE(MenusAre(false));
    Click(form, "cmdExit");
    Settle();
    EXPECT_FALSE(window->MenuItem(QStringLiteral("mnuMasters"))->isEnabled());
    for (const char* menu : {"mnuTransactions", "mnuReports", "mnuToolsMenu"})
        EXPECT_TRUE(window->MenuItem(QString::fromLatin1(menu))->isEnabled()) << menu;
    EXPECT_FALSE(Session().gblnMenusLocked);
}

TEST_F(AcademicYearSetup, SchoolSetupOpenedFromHereAndClosedLeavesTheMenusAsTheyWere)
{
    for (const bool menusOn : {false, true}) {
        GivenYear(1, 2007, "Y");
        Start();
        Given("DELETE FROM AcademicYearSetup WHERE AcademicYearCode > 0");
        EnableMenus(menusOn);
        form = Open<frmMasAcademicYearSetup>("frmMasAcademicYearSetup");
        Click(form, "cmdOpenSchoolSetup");
        Settle();
        Screen* school = ScreenRegistry::OpenInstance(QStringLiteral("frmMasSchoolSetup"));
        ASSERT_NE(school, nullptr);
        EXPECT_TRUE(MenusAre(false));
        Click(school, "cmdExit");
        Settle();
        ASSERT_FALSE(IsOpen("frmMasSchoolSetup"));

        Enter(QStringLiteral("2007"), QStringLiteral("YES"));
        SaveExpecting(QStringLiteral("Academic Year Saved"));
        Click(form, "cmdExit");
        Settle();
        ASSERT_FALSE(IsOpen("frmMasAcademicYearSetup"));
        EXPECT_TRUE(MenusAre(menusOn));
        EXPECT_FALSE(Session().gblnMenusLocked);
        Given("DELETE FROM AcademicYearSetup WHERE AcademicYearCode > 0");
        Given("DELETE FROM ApplicationDate WHERE UserCode > 0");
    }
}

TEST_F(AcademicYearSetup, ANewStartMonthMovesTheYearThatIsBeingEntered)
{
    OpenForm();
    Enter(QStringLiteral("2007"), QStringLiteral("YES"));
    ASSERT_EQ(Text(form, "lblAcademicYearTo"), "2008");
    Click(form, "cmdOpenSchoolSetup");
    Settle();
    GivenStartMonth("JAN");
    Click(ScreenRegistry::OpenInstance(QStringLiteral("frmMasSchoolSetup")), "cmdExit");
    Settle();
    EXPECT_EQ(Text(form, "lblAcademicYearTo"), "2007");
    EXPECT_EQ(DateIn(form, "dtpFromDate"), QDate(2007, 1, 1));
    EXPECT_EQ(DateIn(form, "dtpToDate"), QDate(2007, 12, 31));
    EXPECT_EQ(Text(form, "cbostatus"), "YES");
    SaveExpecting(QStringLiteral("Academic Year Saved"));
    EXPECT_EQ(Count("SELECT count(*) FROM AcademicYearSetup WHERE YearTo = 2007 AND FromDate = '2007-01-01'"
                    " AND ToDate = '2007-12-31'"),
              1);
}

TEST_F(AcademicYearSetup, ANewStartMonthLeavesAStoredYearAsItIs)
{
    GivenYear(1, 2007, "Y");
    OpenForm();
    Select(0);
    GivenStartMonth("JAN");
    OpenScreen(QStringLiteral("frmUtilOptions"));
    OpenScreen(QStringLiteral("frmMasAcademicYearSetup"));
    EXPECT_EQ(Text(form, "lblAcademicYearTo"), "2008");
    EXPECT_EQ(DateIn(form, "dtpFromDate"), QDate(2007, 6, 1));
}

TEST_F(AcademicYearSetup, OpensAmongOtherScreens)
{
    GivenYear(1, 2007, "Y");
    Start();
    ASSERT_NE(OpenScreen(QStringLiteral("frmUtilOptions")), nullptr);
    EXPECT_NE(OpenScreen(QStringLiteral("frmMasAcademicYearSetup")), nullptr);
    EXPECT_TRUE(IsOpen("frmUtilOptions"));
}

TEST_F(AcademicYearSetup, ExitAsksAndLeadsToTheWorkingDateWhereTheYearHasNone)
{
    GivenYear(1, 2007, "Y");
    OpenForm();
    ASSERT_FALSE(Session().gblnApplicationDateExists);
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Academic Year Setup ?"), false);
    Click(form, "cmdExit");
    EXPECT_TRUE(IsOpen("frmMasAcademicYearSetup"));
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Academic Year Setup ?"), true);
    Click(form, "cmdExit");
    Settle();
    EXPECT_FALSE(IsOpen("frmMasAcademicYearSetup"));
    EXPECT_TRUE(IsOpen("frmUtilApplicationDateSetup"));
}

TEST_F(AcademicYearSetup, WithoutAnActiveYearNeitherExitNorTheCloseBoxLeaves)
{
    GivenYear(1, 2007, "N");
    GivenYear(2, 2008, "N");
    OpenForm();
    Session().gblnPromptOnExit = true;
    prompts.ExpectInformation(NoActiveYear);
    Click(form, "cmdExit");
    prompts.Verify();
    Session().gblnPromptOnExit = false;
    prompts.ExpectInformation(NoActiveYear);
    form->parentWidget()->close();
    prompts.ExpectInformation(NoActiveYear);
    form->Unload();
    Settle();
    EXPECT_TRUE(IsOpen("frmMasAcademicYearSetup"));
    EXPECT_TRUE(MenusAre(false));
    EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus WHERE Screen = 'AcademicYearSetup'"), 1);
}

TEST_F(AcademicYearSetup, StaysWhereItCannotBeReadWhetherAYearIsActive)
{
    GivenYear(1, 2007, "Y");
    GivenDays({QDate(2007, 6, 4)});
    OpenForm();
    Given("ALTER TABLE AcademicYearSetup RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("AcademicYearSetup"));
    Click(form, "cmdExit");
    Settle();
    prompts.Verify();
    EXPECT_TRUE(IsOpen("frmMasAcademicYearSetup"));
    Given("ALTER TABLE Away RENAME TO AcademicYearSetup");
    Click(form, "cmdExit");
    Settle();
    EXPECT_FALSE(IsOpen("frmMasAcademicYearSetup"));
}

TEST_F(AcademicYearSetup, HoldsItsRowFromTheFirstActivationToTheExit)
{
    GivenYear(1, 2007, "Y");
    GivenDays({QDate(2007, 6, 4)});
    for (int time = 0; time < 2; ++time) {
        OpenForm();
        form->Activate();
        EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus WHERE Screen = 'AcademicYearSetup'"), 1);
        Click(form, "cmdExit");
        Settle();
        EXPECT_EQ(ScreensTaken(), 0);
    }
}

TEST_F(AcademicYearSetup, AnotherClientsSaveKeepsItOpenUntilItsRowCanGo)
{
    GivenYear(1, 2007, "Y");
    OpenForm();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    const auto other = AnotherClient();
    other->Begin();
    prompts.ExpectCritical(HeldByAnotherClient);
    Click(form, "cmdExit");
    Settle();
    prompts.Verify();
    EXPECT_TRUE(IsOpen("frmMasAcademicYearSetup"));
    EXPECT_FALSE(IsOpen("frmUtilApplicationDateSetup")) << "it comes when this screen has gone";
    EXPECT_TRUE(MenusAre(false));
    other->Rollback();
    Session().gblnApplicationDateExists = true;
    Click(form, "cmdExit");
    Settle();
    EXPECT_FALSE(IsOpen("frmMasAcademicYearSetup"));
    EXPECT_EQ(ScreensTaken(), 0);
    EXPECT_TRUE(MenusAre(true));
}

TEST_F(AcademicYearSetup, ARowThatCanNotGoAtAllKeepsNobodyInTheScreen)
{
    GivenYear(1, 2007, "Y");
    GivenDays({QDate(2007, 6, 4)});
    OpenForm();
    Given("DROP TABLE ScreenStatus");
    prompts.ExpectCritical(NoSuchTable("ScreenStatus"));
    Click(form, "cmdExit");
    Settle();
    prompts.Verify();
    EXPECT_FALSE(IsOpen("frmMasAcademicYearSetup"));
    EXPECT_TRUE(MenusAre(true));
}

TEST_F(AcademicYearSetup, AnotherClientThatHoldsTheRowKeepsItShut)
{
    GivenYear(1, 2007, "Y");
    Start();
    AnotherClient()->Execute(QStringLiteral("INSERT INTO ScreenStatus VALUES ('AcademicYearSetup')"));
    prompts.ExpectInformation(OpenedByAnother);
    EXPECT_EQ(OpenScreen(QStringLiteral("frmMasAcademicYearSetup")), nullptr);
    EXPECT_EQ(ScreensTaken(), 1);
    EXPECT_TRUE(MenusAre(true));
    EXPECT_FALSE(Session().gblnMenusLocked);
}

TEST_F(AcademicYearSetup, ARefusalStandsOverAWindowThatIsDrawn)
{
    GivenYear(1, 2007, "Y");
    Start();
    AnotherClient()->Execute(QStringLiteral("INSERT INTO ScreenStatus VALUES ('AcademicYearSetup')"));
    bool drawn = false;
    Prompts::AnswerWith([&](Prompts::Kind, const QString&) {
        const PaintCounter painted(window->Area()->subWindowList().constLast());
        drawn = QTest::qWaitFor([&painted] { return painted.Count() > 0; });
        return true;
    });
    EXPECT_EQ(OpenScreen(QStringLiteral("frmMasAcademicYearSetup")), nullptr);
    EXPECT_TRUE(drawn);
}

TEST_F(AcademicYearSetup, ShowsItsYearsWithoutCuttingThemOff)
{
    GivenYear(1, 2007, "Y");
    GivenYear(2, 2008, "N");
    OpenForm();
    const auto* grid = Find<DataGrid>(form, "dgdDetails");
    int width = 0;
    for (int column = 1; column < grid->model()->columnCount(); ++column) {
        const QString text = grid->model()->index(0, column).data().toString();
        EXPECT_GE(grid->columnWidth(column), grid->fontMetrics().horizontalAdvance(text) + 8) << column;
        EXPECT_GE(grid->columnWidth(column), grid->horizontalHeader()->sectionSizeHint(column)) << column;
        width += grid->columnWidth(column);
    }
    EXPECT_EQ(width, grid->viewport()->width());
}

TEST_F(AcademicYearSetup, ARefusedClientWithoutAnActiveYearCanNotCloseIt)
{
    GivenYear(1, 2007, "Y");
    Start();
    Given("UPDATE AcademicYearSetup SET Status = 'N'");
    AnotherClient()->Execute(QStringLiteral("INSERT INTO ScreenStatus VALUES ('AcademicYearSetup')"));
    prompts.ExpectInformation(OpenedByAnother);
    prompts.ExpectInformation(NoActiveYear);
    EXPECT_NE(OpenScreen(QStringLiteral("frmMasAcademicYearSetup")), nullptr);
}

TEST_F(AcademicYearSetup, ItsHelpIsNumber13)
{
    GivenYear(1, 2007, "Y");
    OpenForm();
    EXPECT_EQ(HelpNumber(form), 13);
}

TEST_F(AcademicYearSetup, FitsTheSmallestScreenWithNothingCutOff)
{
    GivenYear(1, 2007, "Y");
    Start();
    // Without a year it has one more row to show.
    Given("DELETE FROM AcademicYearSetup WHERE AcademicYearCode = 1");
    ExpectToFit(QStringLiteral("frmMasAcademicYearSetup"));
}

} // namespace
} // namespace tally::test
