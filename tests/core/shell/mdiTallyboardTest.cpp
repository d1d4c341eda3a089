#include "core/shell/mdiTallyboard.h"

#include "core/shell/frmStartLock.h"
#include "core/TempFolder.h"
#include "core/ui/controls/PictureArea.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/PresencePause.h"
#include "core/ui/ScreenRegistry.h"
#include "support/FileSizeLimit.h"
#include "support/ScreenFixture.h"
#include "support/StandIn.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>

namespace tally::test {
namespace {

class mdiTallyboardTest : public ScreenFixture
{
protected:
    QList<QLabel*> Panels() const
    {
        return window->statusBar()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    }
    std::string Panel(int number) const { return Panels().at(number - 1)->text().toStdString(); }
    void Activate()
    {
        QWidget other;
        other.show();
        QApplication::setActiveWindow(&other);
        QApplication::setActiveWindow(window);
        Settle();
    }
    void LoadAgain()
    {
        delete window;
        window = mdiTallyboard::Load();
        window->show();
        Activate();
    }
};

TEST_F(mdiTallyboardTest, TheStartWritesItsRows)
{
    EXPECT_EQ(Count("SELECT count(*) FROM AccessedDate"), 1);
    EXPECT_EQ(
        Count("SELECT count(*) FROM ExamBoardMaster WHERE BoardCode = 1 AND BoardNo = 1 AND Status = 'A'"),
        1);
}

TEST_F(mdiTallyboardTest, ANewStartFreesScreensAndReplacesThePresenceRow)
{
    Given("INSERT INTO ScreenStatus VALUES ('PromotionEntry')");
    Given("INSERT INTO ExamBoardMaster VALUES (9, 9, 'B')");
    LoadAgain();
    EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus"), 0);
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster"), 1);
    EXPECT_EQ(Count("SELECT count(*) FROM AccessedDate"), 2);
}

TEST_F(mdiTallyboardTest, TheTimerRefreshesThePresenceRowOnceASecond)
{
    EXPECT_EQ(Find<QTimer>(window, "tmrTimer")->interval(), 1000);
    Given("UPDATE ExamBoardMaster SET Status = 'Z'");
    Tick();
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster WHERE Status = 'A'"), 1);
}

TEST_F(mdiTallyboardTest, NeitherTheStartNorATickChangesHowLongAClerksSaveWaitsForAnotherClient)
{
    const auto patience = [this] { return Count("PRAGMA busy_timeout"); };
    EXPECT_EQ(patience(), store::Connection::DefaultPatience.count());
    Tick();
    EXPECT_EQ(patience(), store::Connection::DefaultPatience.count());
}

TEST_F(mdiTallyboardTest, TheTimerFillsAPresenceRowThatSaysNothing)
{
    Given("UPDATE ExamBoardMaster SET Status = NULL");
    Tick();
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster WHERE Status = 'A'"), 1);
}

TEST_F(mdiTallyboardTest, ATickWithoutAPresenceRowFailsSilently)
{
    Given("DELETE FROM ExamBoardMaster");
    Tick();
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster"), 0);
}

TEST_F(mdiTallyboardTest, ATickThatMeetsAnotherClientsLockIsSkippedWithoutWaiting)
{
    Given("UPDATE ExamBoardMaster SET Status = 'Z'");
    const auto other = AnotherClient();
    other->Begin();
    other->Execute(QStringLiteral("UPDATE ExamBoardMaster SET BoardNo = 1"));
    // A tick that waits would not come back before the tests are given up.
    Session().gcnnMain->SetPatience(std::chrono::hours(1));
    Tick();
    other->Rollback();
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster WHERE Status = 'Z'"), 1);
    Tick();
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster WHERE Status = 'A'"), 1);
}

TEST_F(mdiTallyboardTest, AFailingTickShowsOneBoxAtATimeAndTheTimerGoesOn)
{
    Given("DROP TABLE ExamBoardMaster");
    QStringList boxes;
    Prompts::AnswerWith([&](Prompts::Kind kind, const QString& text) {
        EXPECT_EQ(kind, Prompts::Kind::Critical);
        boxes.append(text);
        if (boxes.size() == 1)
            Tick();
        return true;
    });
    Tick();
    EXPECT_EQ(boxes, QStringList(NoSuchTable("ExamBoardMaster"))) << "the next one waits for the answer";
    Tick();
    EXPECT_EQ(boxes.size(), 2);
    EXPECT_TRUE(Find<QTimer>(window, "tmrTimer")->isActive());
}

TEST_F(mdiTallyboardTest, APausedTickNeitherReadsNorWritesUntilTheLastPauseHasEnded)
{
    Given("UPDATE ExamBoardMaster SET Status = 'Z'");
    const auto runBefore = Session().gcnnMain->StatementsRun();
    {
        const PresencePause backup;
        {
            const PresencePause within;
            Tick();
        }
        Tick();
        EXPECT_EQ(Session().gcnnMain->StatementsRun(), runBefore);
    }
    Tick();
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster WHERE Status = 'A'"), 1);
}

TEST_F(mdiTallyboardTest, APausedTickTellsNoFailure)
{
    Given("DROP TABLE ExamBoardMaster");
    {
        const PresencePause pause;
        Tick();
    }
    prompts.ExpectCritical(NoSuchTable("ExamBoardMaster"));
    Tick();
}

TEST_F(mdiTallyboardTest, BehindAPauseTheTickWorksWithTheConnectionThatIsThereByThen)
{
    Given("UPDATE ExamBoardMaster SET Status = 'Z'");
    {
        const PresencePause pause;
        Session().gcnnMain.reset();
        Tick();
        Session().gcnnMain = AnotherClient();
    }
    Tick();
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster WHERE Status = 'A'"), 1);
}

TEST_F(mdiTallyboardTest, AfterAnExceptionThePauseHasEnded)
{
    Given("UPDATE ExamBoardMaster SET Status = 'Z'");
    try {
        const PresencePause pause;
        throw store::StoreError(QStringLiteral("the copy failed"));
    } catch (const store::StoreError&) {
        Tick();
    }
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster WHERE Status = 'A'"), 1);
}

TEST_F(mdiTallyboardTest, WithAClosedConnectionTheTickIsSilentAndCloseStillEnds)
{
    Session().gcnnMain.reset();
    Tick();
    Tick();
    prompts.Verify();
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Close The 'KITE-Tally Board' ?"), true);
    prompts.ExpectCritical(QStringLiteral(
        "All Your Work Is Saved. Only Your Leaving Could Not Be Noted.\nThe Database Is Closed"));
    window->MenuItem(QStringLiteral("mnuClose"))->trigger();
    EXPECT_EQ(processEnds, 1);
}

TEST_F(mdiTallyboardTest, NoScreenAndNoCommandStartsBehindABoxThatWaits)
{
    int boxes = 0;
    Prompts::AnswerWith([&](Prompts::Kind, const QString&) {
        for (const char* entry : {"mnuLock", "mnuClose", "frmAboutUs"})
            window->MenuItem(QString::fromLatin1(entry))->trigger();
        ++boxes;
        return true;
    });
    Prompts::Information(QStringLiteral("Record Saved"));
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(window->findChild<frmStartLock*>(), nullptr);
    EXPECT_EQ(processEnds, 0);
    EXPECT_FALSE(AnyChildFormOpen());
}

TEST_F(mdiTallyboardTest, ThePanelsOfANewSystemHoldOnlyTheirLabels)
{
    ASSERT_EQ(Panels().size(), 3);
    Activate();
    EXPECT_EQ(Panel(1), "Academic Year : ");
    EXPECT_EQ(Panel(2), "User Name :   ");
    EXPECT_EQ(Panel(3), "Application Date : ");
    EXPECT_TRUE(Panels().at(2)->alignment().testFlag(Qt::AlignRight));
}

TEST_F(mdiTallyboardTest, EachActivationWritesThePanelsAnew)
{
    Session().gintYearFrom = 2024;
    Session().gintYearTo = 2025;
    Session().gstrUserName = QStringLiteral("Mary");
    Session().gdtmApplicationDate = QDate(2024, 6, 5);
    window->SetPanel(1, QStringLiteral("Academic Year : 2024 - 2025"));
    EXPECT_EQ(Panel(1), "Academic Year : 2024 - 2025");
    Activate();
    EXPECT_EQ(Panel(1), "Academic Year : 2024-2025");
    Session().gintYearFrom = 1;
    Activate();
    EXPECT_EQ(Panel(1), "Academic Year : 1-2025") << "0 is none";
    EXPECT_EQ(Panel(2), "User Name : Mary  ");
    EXPECT_EQ(Panel(3), "Application Date : 05/Jun/2024");
    EXPECT_EQ(Session().gstrMainCaption, window->windowTitle());
}

TEST_F(mdiTallyboardTest, NothingButAnActivationWritesThePanels)
{
    QWidget other;
    other.show();
    QApplication::setActiveWindow(window);
    const QString busy = QStringLiteral("Saving");
    window->SetPanel(1, busy);
    QEvent change(QEvent::ReadOnlyChange);
    QApplication::sendEvent(window, &change);
    QApplication::setActiveWindow(&other);
    EXPECT_EQ(Panel(1), busy.toStdString());
    QApplication::setActiveWindow(window);
    EXPECT_EQ(Panel(1), "Academic Year : ");
}

TEST_F(mdiTallyboardTest, NoNameIsTakenForMarkUpInAPanel)
{
    ASSERT_EQ(Panels().size(), 3);
    for (const QLabel* panel : Panels())
        EXPECT_EQ(panel->textFormat(), Qt::PlainText);
}

TEST_F(mdiTallyboardTest, EachPanelTakesAThirdOfTheWidthWithoutTheFreePart)
{
    window->resize(1024, 700);
    EXPECT_EQ(Panels().size(), 3);
    for (const QLabel* panel : Panels())
        EXPECT_EQ(panel->width(), (1024 - 183) / 3);
}

TEST_F(mdiTallyboardTest, TheWindowFillsTheScreenFromTheStart)
{
    EXPECT_TRUE(window->isMaximized());
}

TEST_F(mdiTallyboardTest, ThePanelsStandBesideOneAnotherAndNoNameIsCutOff)
{
    window->SetPanel(2, QStringLiteral("User Name : ") + QString(100, QLatin1Char('W')));
    Settle();
    const QList<QLabel*> panels = Panels();
    EXPECT_GE(panels[1]->width(), panels[1]->sizeHint().width());
    EXPECT_GT(panels[1]->x(), panels[0]->geometry().right());
    EXPECT_GT(panels[2]->x(), panels[1]->geometry().right());
}

TEST_F(mdiTallyboardTest, WhoLeavesAFormGoesOnInTheOneFromWhichItWasOpened)
{
    OpenScreen(QStringLiteral("frmMasStateMaster"));
    const Screen* cities = OpenScreen(QStringLiteral("frmMasCityMaster"));
    OpenScreen(QStringLiteral("frmMasBloodGroupMaster"));
    OpenScreen(QStringLiteral("frmMasCityMaster"));
    Screen* salutations = OpenScreen(QStringLiteral("frmSalutationMaster"));
    ASSERT_NE(salutations, nullptr);
    salutations->Unload();
    Settle();
    EXPECT_EQ(window->Area()->activeSubWindow(), cities->parentWidget());
}

TEST_F(mdiTallyboardTest, TheTitleEndsInARunOfBlanks)
{
    EXPECT_TRUE(window->windowTitle().startsWith(QStringLiteral("KITE - Tally Board   ")));
    EXPECT_EQ(window->windowTitle().trimmed().toStdString(), "KITE - Tally Board");
    EXPECT_EQ(window->windowTitle().size() - window->windowTitle().trimmed().size(), 20);
}

TEST_F(mdiTallyboardTest, TheCloseBoxIsRefusedEachTime)
{
    for (int time = 0; time < 2; ++time) {
        prompts.ExpectInformation(
            QStringLiteral("If You Want To Close 'KITE-Tally Board', Click On The Close Menu"));
        EXPECT_FALSE(window->close());
        EXPECT_TRUE(window->isVisible());
    }
    EXPECT_EQ(processEnds, 0);
}

TEST_F(mdiTallyboardTest, CloseAsksAndANoChangesNothing)
{
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Close The 'KITE-Tally Board' ?"), false);
    window->MenuItem(QStringLiteral("mnuClose"))->trigger();
    EXPECT_EQ(processEnds, 0);
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster"), 1);
}

TEST_F(mdiTallyboardTest, CloseRemovesThePresenceRowAndTheTempFolderAndEnds)
{
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Close The 'KITE-Tally Board' ?"), true);
    window->MenuItem(QStringLiteral("mnuClose"))->trigger();
    EXPECT_EQ(processEnds, 1);
    EXPECT_EQ(Session().gcnnMain, nullptr);
    EXPECT_FALSE(QDir(Folder() + QStringLiteral("/Temp")).exists());
    EXPECT_EQ(AnotherClient()->Number(QStringLiteral("SELECT count(*) FROM ExamBoardMaster")), 0);
    EXPECT_FALSE(Find<QTimer>(window, "tmrTimer")->isActive());
}

TEST_F(mdiTallyboardTest, ACloseThatFailsIsToldAndLetsTheClerkGo)
{
    Given("DROP TABLE ExamBoardMaster");
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Close The 'KITE-Tally Board' ?"), true);
    prompts.ExpectCritical(QStringLiteral("All Your Work Is Saved. Only Your Leaving Could Not Be Noted.\n") +
                           NoSuchTable("ExamBoardMaster"));
    window->MenuItem(QStringLiteral("mnuClose"))->trigger();
    EXPECT_EQ(processEnds, 1);
    EXPECT_EQ(Session().gcnnMain, nullptr);
    EXPECT_FALSE(QDir(Folder() + QStringLiteral("/Temp")).exists());
    EXPECT_FALSE(Find<QTimer>(window, "tmrTimer")->isActive());
}

TEST_F(mdiTallyboardTest, AFullDiskIsToldByCloseAndLetsTheClerkGo)
{
    QStringList boxes;
    Prompts::AnswerWith([&boxes](Prompts::Kind kind, const QString& text) {
        EXPECT_EQ(kind, boxes.isEmpty() ? Prompts::Kind::Question : Prompts::Kind::Critical);
        boxes.append(text);
        return true;
    });
    {
        const FileSizeLimit full(0);
        Tick();
        EXPECT_EQ(boxes, QStringList()) << "a full disk is no matter of the clock's";
        window->MenuItem(QStringLiteral("mnuClose"))->trigger();
    }
    ASSERT_EQ(boxes.size(), 2);
    EXPECT_TRUE(boxes.at(1).startsWith(QStringLiteral("All Your Work Is Saved. ")))
        << boxes.at(1).toStdString();
    EXPECT_EQ(processEnds, 1);
    EXPECT_EQ(Session().gcnnMain, nullptr);
    EXPECT_FALSE(QDir(Folder() + QStringLiteral("/Temp")).exists());
    EXPECT_EQ(AnotherClient()->Number(QStringLiteral("SELECT count(*) FROM ExamBoardMaster")), 1);
}

TEST_F(mdiTallyboardTest, ACloseThatMeetsAnotherClientsSaveIsToldAndGoesAtTheSecondTryAtTheLatest)
{
    const QString question = QStringLiteral("Do You Want To Close The 'KITE-Tally Board' ?");
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(0));
    const auto other = AnotherClient();
    other->Begin();
    prompts.ExpectQuestion(question, true);
    prompts.ExpectCritical(HeldByAnotherClient);
    window->MenuItem(QStringLiteral("mnuClose"))->trigger();
    EXPECT_EQ(processEnds, 0);
    EXPECT_TRUE(window->isVisible());
    ASSERT_NE(Session().gcnnMain, nullptr);
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    EXPECT_TRUE(QDir(Folder() + QStringLiteral("/Temp")).exists());
    EXPECT_TRUE(Find<QTimer>(window, "tmrTimer")->isActive());

    Session().gcnnMain->SetPatience(std::chrono::milliseconds(0));
    prompts.ExpectQuestion(question, true);
    prompts.ExpectCritical(HeldByAnotherClient);
    window->MenuItem(QStringLiteral("mnuClose"))->trigger();
    EXPECT_EQ(processEnds, 1);
    EXPECT_EQ(Session().gcnnMain, nullptr);
    EXPECT_FALSE(QDir(Folder() + QStringLiteral("/Temp")).exists());
    other->Rollback();
}

TEST_F(mdiTallyboardTest, BetweenCloseAndTheEndNothingAsksTheStore)
{
    Screen* screen = OpenScreen(QStringLiteral("frmMasCityMaster"));
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Close The 'KITE-Tally Board' ?"), true);
    window->MenuItem(QStringLiteral("mnuClose"))->trigger();
    Session().gblnSchoolExists = false;
    screen->Activate();
    Activate();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmMasSchoolSetup")), nullptr);
}

TEST_F(mdiTallyboardTest, AFailingTickWaitsForTheQuestionThatIsOpen)
{
    Screen* screen = OpenScreen(QStringLiteral("frmUtilOptions"));
    Session().gblnPromptOnExit = true;
    Given("ALTER TABLE ExamBoardMaster RENAME TO Gone");
    QStringList boxes;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        boxes.append(text);
        if (boxes.size() == 1) {
            Tick();
            EXPECT_EQ(boxes.size(), 1);
            Given("ALTER TABLE Gone RENAME TO ExamBoardMaster");
        }
        return true;
    });
    Press(Find<QAbstractButton>(screen, "cmdExit"));
    Settle();
    EXPECT_EQ(boxes, QStringList(QStringLiteral("Do You Want To Exit Options ?")));
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmUtilOptions")), nullptr);
}

TEST_F(mdiTallyboardTest, TheStartReadsTheOptions)
{
    Given("INSERT INTO Options VALUES ('', 'N', '2020-05-31', 'F', 'Y', 'Y')");
    LoadAgain();
    EXPECT_TRUE(Session().gblnPromptOnExit);
    EXPECT_FALSE(Session().gblnAutoGenerate);
    EXPECT_TRUE(Session().gblnFractionMarks);
    EXPECT_TRUE(Session().gblnRoundedMarks);
    EXPECT_EQ(Session().gvarDefaultDOB.toStdString(), "31/May/2020");
    EXPECT_EQ(Session().gstrDefaultGender.toStdString(), "F");
}

TEST_F(mdiTallyboardTest, TheStartKnowsTheSchoolAndItsYear)
{
    Given("INSERT INTO SchoolMaster VALUES ('School', 'Street', '', 0, '1', 'JUN', 1)");
    Given("INSERT INTO AcademicYearSetup VALUES (1, 2024, 2025, '2024-06-01', '2025-05-31', 'Y', 'N', 1)");
    Session().gblnSchoolExists = Session().gblnActiveYearExists = false;
    LoadAgain();
    EXPECT_TRUE(Session().gblnSchoolExists);
    EXPECT_TRUE(Session().gblnActiveYearExists);
    EXPECT_EQ(Session().gstrSchoolName.toStdString(), "School");
    EXPECT_FALSE(AnyChildFormOpen()) << "nothing is lacking";
}

TEST_F(mdiTallyboardTest, TheStartTakesTheWorkingDateOfTheActiveYear)
{
    Given("INSERT INTO AcademicYearSetup VALUES (1, 2024, 2025, '2024-06-01', '2025-05-31', 'Y', 'N', 1)");
    Given("INSERT INTO ApplicationDate VALUES ('2024-06-10', 1), ('2030-01-01', 1)");
    Session().gdtmApplicationDate = QDate(2030, 1, 1);
    LoadAgain();
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2024, 6, 10));
    EXPECT_EQ(Panel(1), "Academic Year : 2024-2025");
    EXPECT_EQ(Panel(3), "Application Date : 10/Jun/2024");
}

TEST_F(mdiTallyboardTest, ThePictureLiesInTheTempFolderAndBehindTheScreens)
{
    EXPECT_TRUE(QFile::exists(QStringLiteral("%1/Temp/1001.jpg").arg(Folder())));
    EXPECT_FALSE(static_cast<PictureArea*>(window->Area())->Picture().isNull());
}

TEST_F(mdiTallyboardTest, ThePicturesStayWhenAnotherClientTakesTheTempFolderAway)
{
    const auto* area = static_cast<PictureArea*>(window->Area());
    DeleteTempFolder();
    window->ShowPicture(1002);
    EXPECT_FALSE(area->Picture().isNull());
    // Something that is in the way of the folder does not take them either.
    DeleteTempFolder();
    QFile inTheWay(Folder() + QStringLiteral("/Temp"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    window->ShowPicture(1001);
    EXPECT_FALSE(area->Picture().isNull());
}

TEST_F(mdiTallyboardTest, ThePicturesStayWhenTheDiskIsFull)
{
    const FileSizeLimit full(1000);
    window->ShowPicture(1002);
    EXPECT_FALSE(static_cast<PictureArea*>(window->Area())->Picture().isNull());
}

TEST_F(mdiTallyboardTest, APictureThatCanNotBeReadLeavesThePlainBackground)
{
    window->ShowPicture(9999);
    EXPECT_TRUE(static_cast<PictureArea*>(window->Area())->Picture().isNull());
    const QColor shown = window->Area()->viewport()->grab().toImage().pixelColor(10, 10);
    EXPECT_EQ(shown, window->palette().color(QPalette::Window));
}

TEST_F(mdiTallyboardTest, EnteringANameThatIsNoMenuDoesNothing)
{
    window->EnableMenuItem(QStringLiteral("mnuNothing"), true);
    EXPECT_EQ(window->MenuItem(QStringLiteral("mnuNothing")), nullptr);
}

/// A screen that stands in for one that is forced on a new system.
class ForcedScreen : public Screen
{
public:
    explicit ForcedScreen(const QString& name) : Screen(name, 0) {}
};

TEST_F(mdiTallyboardTest, ANewSystemIsForcedToItsSchoolAndThenToItsYear)
{
    const QString school = QStringLiteral("frmMasSchoolSetup");
    const QString year = QStringLiteral("frmMasAcademicYearSetup");
    const StandIn forcedSchool(school, [school] { return new ForcedScreen(school); });
    const StandIn forcedYear(year, [year] { return new ForcedScreen(year); });

    Session().gblnSchoolExists = false;
    Session().gblnActiveYearExists = false;
    Activate();
    ASSERT_NE(ScreenRegistry::OpenInstance(school), nullptr);
    EXPECT_EQ(ScreenRegistry::OpenInstance(year), nullptr);

    Session().gblnSchoolExists = true;
    ScreenRegistry::OpenInstance(school)->Unload();
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(school), nullptr);
    ASSERT_NE(ScreenRegistry::OpenInstance(year), nullptr);

    Session().gblnActiveYearExists = true;
    ScreenRegistry::OpenInstance(year)->Unload();
    Settle();
    EXPECT_FALSE(AnyChildFormOpen());
    Activate();
    EXPECT_FALSE(AnyChildFormOpen());
}

} // namespace
} // namespace tally::test
