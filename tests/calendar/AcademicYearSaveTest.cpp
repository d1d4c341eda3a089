#include "calendar/CalendarFixture.h"
#include "calendar/frmMasAcademicYearSetup.h"
#include "core/ui/controls/DataGrid.h"
#include "store/StoreError.h"

#include <QComboBox>
#include <QLineEdit>

namespace tally::test {
namespace {

/// What a save of a year leaves behind, and what happens while its result is being read.
class AcademicYearSave : public CalendarFixture
{
protected:
    void OpenForm()
    {
        Start();
        form = Open<frmMasAcademicYearSetup>("frmMasAcademicYearSetup");
        ASSERT_NE(form, nullptr);
    }
    void Enter(const QString& year, Qt::Key status)
    {
        Click(form, "cmdNew");
        Type(Find<QLineEdit>(form, "txtAcademicYearFrom"), year);
        QTest::keyClick(Find<QComboBox>(form, "cbostatus"), status);
    }
    void Save(const QString& year, Qt::Key status)
    {
        Enter(year, status);
        prompts.ExpectInformation(QStringLiteral("Academic Year Saved"));
        Click(form, "cmdSave");
    }
    /// Saves the year while `meanwhile` happens behind the result box. Gives the boxes that came.
    QStringList SaveWhile(const std::function<void()>& meanwhile)
    {
        QStringList boxes;
        Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
            boxes.append(text);
            if (text == QLatin1String("Academic Year Saved"))
                meanwhile();
            return true;
        });
        Enter(QStringLiteral("2007"), Qt::Key_Y);
        Click(form, "cmdSave");
        return boxes;
    }
    qint64 YearsSeenBy(store::Connection& client)
    {
        return client.Number(
            QStringLiteral("SELECT count(*) FROM AcademicYearSetup WHERE AcademicYearCode > 0"));
    }

    frmMasAcademicYearSetup* form = nullptr;
};

TEST_F(AcademicYearSave, TheFirstYearSeedsTheWorkingDateAndTheSession)
{
    OpenForm();
    Save(QStringLiteral("2007"), Qt::Key_Y);
    EXPECT_EQ(Count("SELECT count(*) FROM AcademicYearSetup WHERE AcademicYearCode = 1 AND YearFrom = 2007"
                    " AND YearTo = 2008 AND FromDate = '2007-06-01' AND ToDate = '2008-05-31'"
                    " AND Status = 'Y' AND Processed = 'N' AND UserCode = 4"),
              1);
    EXPECT_EQ(
        Count("SELECT count(*) FROM ApplicationDate WHERE ApplicationDate = '2007-06-01' AND UserCode = 4"),
        1);
    const SessionContext& session = Session();
    EXPECT_EQ(session.gintAcademicYearCode, 1);
    EXPECT_EQ(session.gintYearFrom, 2007);
    EXPECT_EQ(session.gintYearTo, 2008);
    EXPECT_EQ(session.gdtmFromDate, QDate(2007, 6, 1));
    EXPECT_EQ(session.gdtmToDate, QDate(2008, 5, 31));
    EXPECT_EQ(session.gdtmApplicationDate, QDate(2007, 6, 1));
    EXPECT_TRUE(session.gblnActiveYearExists);
    EXPECT_TRUE(session.gblnApplicationDateExists);
    EXPECT_EQ(Panel(1), "Academic Year : 2007-2008");
    EXPECT_EQ(Panel(3), "Application Date : 01/Jun/2007");
    EXPECT_TRUE(IsOn(form, "cmdNew"));
    EXPECT_FALSE(IsOn(form, "cmdSave"));
    EXPECT_FALSE(Find<QWidget>(form, "fraSchoolSetupOpen")->isVisibleTo(form));
    EXPECT_EQ(Find<DataGrid>(form, "dgdDetails")->RowCount(), 1);
    Click(form, "cmdExit");
    Settle();
    EXPECT_FALSE(IsOpen("frmMasAcademicYearSetup"));
    EXPECT_FALSE(IsOpen("frmUtilApplicationDateSetup"));
}

TEST_F(AcademicYearSave, AFirstYearThatIsNotActiveIsStillTheOneInUse)
{
    OpenForm();
    Save(QStringLiteral("2007"), Qt::Key_N);
    EXPECT_FALSE(Session().gblnActiveYearExists);
    EXPECT_TRUE(Session().gblnApplicationDateExists);
    EXPECT_EQ(Session().gintAcademicYearCode, 1);
    EXPECT_EQ(Session().gdtmToDate, QDate(2008, 5, 31));
    EXPECT_FALSE(Session().gdtmFromDate.isValid());
    EXPECT_EQ(Panel(1), "Academic Year : 2007-2008");
    EXPECT_EQ(Panel(3), "Application Date : ");
    EXPECT_EQ(Days(), 1);
    prompts.ExpectInformation(QStringLiteral("Atleast One Academic Year Should Have Active Status"));
    Click(form, "cmdExit");
    EXPECT_FALSE(Session().gdtmApplicationDate.isValid());
    EXPECT_EQ(Panel(3), "Application Date : ");
}

TEST_F(AcademicYearSave, ALaterYearLeavesTheYearInUse)
{
    GivenYear(1, 2007, "Y");
    GivenYear(2, 2008, "N");
    GivenDays({QDate(2007, 6, 20)});
    OpenForm();
    Save(QStringLiteral("2009"), Qt::Key_N);
    EXPECT_EQ(Count("SELECT AcademicYearCode FROM AcademicYearSetup WHERE YearFrom = 2009"), 3);
    EXPECT_EQ(Count("SELECT count(*) FROM ApplicationDate WHERE ApplicationDate = '2009-06-01'"), 1);
    EXPECT_EQ(Session().gintAcademicYearCode, 1);
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 6, 20));
    EXPECT_EQ(Panel(1), "Academic Year : 2007-2008");
    EXPECT_EQ(Panel(3), "Application Date : 20/Jun/2007");
}

TEST_F(AcademicYearSave, ALaterActiveYearBringsItsWorkingDateButNotItself)
{
    GivenYear(1, 2007, "Y");
    OpenForm();
    Given("UPDATE AcademicYearSetup SET Status = 'N'");
    Save(QStringLiteral("2008"), Qt::Key_Y);
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2008, 6, 1));
    EXPECT_EQ(Session().gintAcademicYearCode, 1);
    EXPECT_EQ(Panel(1), "Academic Year : 2007-2008");
}

TEST_F(AcademicYearSave, DaysThatStandAlreadyAreKept)
{
    GivenDays({QDate(2007, 6, 10), QDate(2007, 8, 2)});
    OpenForm();
    Save(QStringLiteral("2007"), Qt::Key_Y);
    EXPECT_EQ(Days(), 2);
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2007, 8, 2));
    EXPECT_EQ(Panel(3), "Application Date : 02/Aug/2007");
}

TEST_F(AcademicYearSave, ALeapYearEndsOnThe29thOfFebruary)
{
    GivenStartMonth("MAR");
    OpenForm();
    Save(QStringLiteral("2007"), Qt::Key_Y);
    EXPECT_EQ(Count("SELECT count(*) FROM AcademicYearSetup WHERE ToDate = '2008-02-29'"), 1);
}

TEST_F(AcademicYearSave, WorksWithTheKeysAlone)
{
    OpenForm();
    PressKey(form, Qt::Key_N, Qt::AltModifier);
    for (const Qt::Key digit : {Qt::Key_2, Qt::Key_0, Qt::Key_0, Qt::Key_7})
        PressKey(form, digit);
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(HasFocus(form, "cbostatus"));
    PressKey(form, Qt::Key_Y);
    prompts.ExpectInformation(QStringLiteral("Academic Year Saved"));
    PressKey(form, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(Count("SELECT count(*) FROM AcademicYearSetup WHERE YearFrom = 2007 AND Status = 'Y'"), 1);
}

TEST_F(AcademicYearSave, TheResultIsToldWhenTheWorkIsStoredAndNobodyWaitsForItsReader)
{
    OpenForm();
    const auto other = AnotherClient();
    other->SetPatience(std::chrono::milliseconds(0));
    Given("UPDATE ExamBoardMaster SET Status = 'Z'");
    const QStringList boxes = SaveWhile([&] {
        EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
        EXPECT_EQ(YearsSeenBy(*other), 1);
        EXPECT_EQ(Session().gintYearFrom, 2007);
        EXPECT_EQ(Panel(1), "Academic Year : 2007-2008");
        Tick();
        EXPECT_EQ(other->Number(QStringLiteral("SELECT count(*) FROM ExamBoardMaster WHERE Status = 'A'")),
                  1);
        store::Transaction save(*other);
        save.Commit();
    });
    EXPECT_EQ(boxes, QStringList{QStringLiteral("Academic Year Saved")});
}

TEST_F(AcademicYearSave, AFaultInReadingBackTheYearSaysThatItIsSaved)
{
    OpenForm();
    const QStringList boxes = SaveWhile([this] { Given("ALTER TABLE AcademicYearSetup RENAME TO Away"); });
    ASSERT_EQ(boxes.size(), 2);
    EXPECT_TRUE(boxes.at(1).startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
    EXPECT_EQ(Count("SELECT YearFrom FROM Away WHERE AcademicYearCode = 1"), 2007);
}

TEST_F(AcademicYearSave, ACommitThatIsRefusedTakesEverythingBack)
{
    OpenForm();
    StopPresence();
    const auto other = AnotherClient();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(0));
    auto reader = other->Query(QStringLiteral("SELECT * FROM MonthMaster"));
    ASSERT_TRUE(reader.Next());
    const QStringList boxes = SaveWhile([] {});
    EXPECT_EQ(boxes, QStringList{HeldByAnotherClient}) << "what is not stored is not told as stored";
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    EXPECT_EQ(YearsSeenBy(*other), 0);
    EXPECT_FALSE(Session().gdtmApplicationDate.isValid());
    EXPECT_EQ(Session().gintYearFrom, 0);
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "2007");
    EXPECT_TRUE(IsOn(form, "cmdSave"));
}

TEST_F(AcademicYearSave, WhileAnotherClientSavesItSaysThatTheDataIsInUse)
{
    OpenForm();
    StopPresence();
    const auto other = AnotherClient();
    store::Transaction save(*other);
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(0));
    Enter(QStringLiteral("2007"), Qt::Key_Y);
    prompts.ExpectCritical(HeldByAnotherClient);
    Click(form, "cmdSave");
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "2007");
    EXPECT_TRUE(IsOn(form, "cmdSave"));
    EXPECT_EQ(YearsSeenBy(*other), 0);
}

TEST_F(AcademicYearSave, WhereTheFilesCanOnlyBeReadTheEntryStays)
{
    OpenForm();
    MakeReadOnly();
    Enter(QStringLiteral("2007"), Qt::Key_Y);
    prompts.ExpectCritical(OnlyReadable);
    Click(form, "cmdSave");
    EXPECT_EQ(Text(form, "txtAcademicYearFrom"), "2007");
    EXPECT_TRUE(IsOn(form, "cmdSave"));
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    EXPECT_EQ(YearsSeenBy(*Session().gcnnMain), 0);
}

} // namespace
} // namespace tally::test
