#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/PictureArea.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/ScreenRegistry.h"
#include "support/ScreenFixture.h"
#include "support/StandIn.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QStyleOption>

namespace tally::test {
namespace {

class ShowFormTest : public ScreenFixture
{
protected:
    QString PictureFile(int id) const { return QStringLiteral("%1/Temp/%2.jpg").arg(Folder()).arg(id); }
    qint64 ShownPicture() const { return static_cast<PictureArea*>(window->Area())->Picture().cacheKey(); }
    bool On(const char* name) const { return window->MenuItem(QString::fromLatin1(name))->isEnabled(); }
};

TEST_F(ShowFormTest, AnOpenScreenLiesBeforeThePlainPictureUntilTheLastOneCloses)
{
    const qint64 mainPicture = ShownPicture();
    Screen* about = OpenScreen(QStringLiteral("AboutUs"));
    Screen* options = OpenScreen(QStringLiteral("frmUtilOptions"));
    ASSERT_NE(options, nullptr);
    EXPECT_TRUE(QFile::exists(PictureFile(1002)));
    const qint64 plainPicture = ShownPicture();
    EXPECT_NE(plainPicture, mainPicture);

    about->Unload();
    Settle();
    EXPECT_EQ(ShownPicture(), plainPicture);
    options->Unload();
    Settle();
    EXPECT_NE(ShownPicture(), plainPicture);
}

TEST_F(ShowFormTest, AScreenBearsTheProgramsIcon)
{
    const QSize size(16, 16);
    const Screen* options = OpenScreen(QStringLiteral("frmUtilOptions"));
    ASSERT_NE(options, nullptr);
    EXPECT_EQ(options->parentWidget()->windowIcon().pixmap(size).toImage(),
              LookIcon(QStringLiteral("app")).pixmap(size).toImage());
}

TEST_F(ShowFormTest, TheScreenInFrontHasTheKeyboardAfterItOpensAndAfterAMessageBox)
{
    Screen* options = OpenScreen(QStringLiteral("frmUtilOptions"));
    EXPECT_TRUE(options->isAncestorOf(QApplication::focusWidget()));

    // What the end of a message box amounts to: the window is in front again and nothing in it has the
    // keyboard.
    QApplication::focusWidget()->clearFocus();
    ASSERT_FALSE(options->isAncestorOf(QApplication::focusWidget()));
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(window);
    Settle();
    EXPECT_TRUE(options->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(ShowFormTest, TheFirstFieldShowsThatItHasTheKeyboardBeforeAnyKeyIsPressed)
{
    window->setAttribute(Qt::WA_KeyboardFocusChange, false);
    OpenScreen(QStringLiteral("frmUtilOptions"));
    QStyleOption option;
    option.initFrom(QApplication::focusWidget());
    EXPECT_TRUE(option.state.testFlag(QStyle::State_KeyboardFocusChange));
}

TEST_F(ShowFormTest, AScreenHasOneInstanceUntilItCloses)
{
    Screen* first = OpenScreen(QStringLiteral("frmUtilOptions"));
    EXPECT_EQ(OpenScreen(QStringLiteral("frmUtilOptions")), first);
    EXPECT_EQ(window->Area()->subWindowList().size(), 1);
    first->Unload();
    Settle();
    EXPECT_EQ(window->Area()->subWindowList().size(), 0);
    EXPECT_NE(OpenScreen(QStringLiteral("frmUtilOptions")), nullptr);
}

TEST_F(ShowFormTest, HelpOpensAtTheScreensNumberBeforeThePlainPictureWhichStaysUntilTheScreenCloses)
{
    const QString help = QStringLiteral("frmHelp");
    Screen* options = OpenScreen(QStringLiteral("frmUtilOptions"));
    const qint64 plainPicture = ShownPicture();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    Settle();
    ASSERT_NE(ScreenRegistry::OpenInstance(help), nullptr);
    EXPECT_EQ(Session().glngScreenNo, 37);
    EXPECT_EQ(ShownPicture(), plainPicture);

    ScreenRegistry::OpenInstance(help)->Unload();
    Settle();
    EXPECT_EQ(ShownPicture(), plainPicture) << "a screen is open still";
    options->Unload();
    Settle();
    EXPECT_NE(ShownPicture(), plainPicture);
}

TEST_F(ShowFormTest, AScreenFitsTheSmallScreenAndStandsInTheMiddle)
{
    window->resize(800, 600);
    Settle();
    Screen* options = OpenScreen(QStringLiteral("frmUtilOptions"));
    const QRect frame = options->parentWidget()->geometry();
    const QRect area = window->Area()->viewport()->rect();
    EXPECT_TRUE(area.contains(frame));
    EXPECT_LE(std::abs(frame.center().x() - area.center().x()), 1);
    EXPECT_LE(std::abs(frame.center().y() - area.center().y()), 1);
}

class MaximisedScreen : public ShowFormTest
{
protected:
    void SetUp() override
    {
        ShowFormTest::SetUp();
        ranks = OpenScreen(QStringLiteral("frmRankCalculation"));
        ASSERT_NE(ranks, nullptr);
        Frame(ranks)->showMaximized();
        Settle();
        ASSERT_TRUE(Frame(ranks)->isMaximized());
    }

    static QMdiSubWindow* Frame(const Screen* screen)
    {
        return qobject_cast<QMdiSubWindow*>(screen->parentWidget());
    }

    Screen* ranks = nullptr;
};

TEST_F(MaximisedScreen, IsNamedInTheTitleWhileTheSessionKeepsTheProgramsCaption)
{
    EXPECT_TRUE(window->windowTitle().startsWith(QStringLiteral("KITE - Tally Board")));
    EXPECT_TRUE(window->windowTitle().contains(QStringLiteral("[Rank List Preparation]")));
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(window);
    Settle();
    EXPECT_EQ(Session().gstrMainCaption.trimmed().toStdString(), "KITE - Tally Board");
    ranks->Unload();
    Settle();
    EXPECT_EQ(window->windowTitle().trimmed().toStdString(), "KITE - Tally Board");
}

TEST_F(MaximisedScreen, LeavesTheMenusAndTheLettersAsTheyAre)
{
    EXPECT_TRUE(window->menuWidget()->isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_L, Qt::AltModifier);
    prompts.ExpectInformation(QStringLiteral("Select Exam Name"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_K, Qt::AltModifier);
    prompts.Verify();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 21);
}

TEST_F(MaximisedScreen, ClosesByItsCloseBoxInTheMenuBar)
{
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Rank Calculation ?"), false);
    Frame(ranks)->close();
    prompts.Verify();
    ASSERT_FALSE(ranks->IsUnloaded());
    EXPECT_TRUE(Frame(ranks)->isMaximized());
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Rank Calculation ?"), true);
    Frame(ranks)->close();
    prompts.Verify();
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmRankCalculation")), nullptr);
}

TEST_F(MaximisedScreen, StaysSoBehindASmallFormThatKeepsItsSizeAndWhenItComesBack)
{
    const Screen* options = OpenScreen(QStringLiteral("frmUtilOptions"));
    EXPECT_FALSE(Frame(options)->isMaximized());
    EXPECT_LT(Frame(options)->height(), window->Area()->viewport()->height());
    OpenScreen(QStringLiteral("frmRankCalculation"));
    EXPECT_TRUE(Frame(ranks)->isMaximized());
    EXPECT_TRUE(ranks->isAncestorOf(QApplication::focusWidget()));
    EXPECT_EQ(Frame(ranks)->size(), window->Area()->viewport()->size());
}

TEST_F(MaximisedScreen, HasItsBoxesInTheMenuBarOnlyWhileItIsInFront)
{
    const QWidget* boxes = window->findChild<QMenuBar*>()->cornerWidget(Qt::TopRightCorner);
    ASSERT_NE(boxes, nullptr);
    EXPECT_TRUE(boxes->isVisible());
    Screen* options = OpenScreen(QStringLiteral("frmUtilOptions"));
    EXPECT_FALSE(boxes->isVisible());
    options->Unload();
    Settle();
    EXPECT_TRUE(boxes->isVisible());
}

TEST_F(ShowFormTest, WhoLeavesAScreenGoesOnInTheOneFromWhichItWasOpened)
{
    OpenScreen(QStringLiteral("frmRankCalculation"));
    Screen* cities = OpenScreen(QStringLiteral("frmMasCityMaster"));
    Screen* states = OpenScreen(QStringLiteral("frmMasStateMaster"));
    states->Unload();
    Settle();
    EXPECT_EQ(window->Area()->activeSubWindow(), cities->parentWidget());
    EXPECT_EQ(window->Area()->subWindowList(QMdiArea::StackingOrder).constLast(), cities->parentWidget());
    EXPECT_TRUE(cities->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(ShowFormTest, AnOpenScreenStaysInSightWhenTheWindowBecomesSmaller)
{
    window->setWindowState(Qt::WindowNoState);
    window->resize(1920, 1080);
    Settle();
    const Screen* ranks = OpenScreen(QStringLiteral("frmRankCalculation"));
    window->resize(800, 600);
    Settle();
    EXPECT_TRUE(window->Area()->viewport()->rect().contains(ranks->parentWidget()->geometry()));
}

TEST_F(ShowFormTest, ALongListOpensAsHighAsTheWindowLetsIt)
{
    window->setWindowState(Qt::WindowNoState);
    window->resize(1920, 1080);
    Settle();
    for (const char* name : {"frmRankCalculation", "frmRankCardPrinting", "frmexammarkentry"}) {
        const Screen* screen = OpenScreen(QString::fromLatin1(name));
        EXPECT_EQ(screen->parentWidget()->height(), window->Area()->viewport()->height()) << name;
    }
}

TEST_F(ShowFormTest, AFormStandsInTheMiddleOfAnotherParentWhereOneIsNamed)
{
    QWidget parent;
    parent.resize(400, 300);
    QWidget form(&parent);
    form.resize(100, 60);
    CenterForm(&form, &parent);
    EXPECT_EQ(form.pos(), QPoint(150, 120));
}

/// A screen of fields one under the other.
class Fields : public Screen
{
public:
    explicit Fields(int count) : Screen(QStringLiteral("Fields"), 0)
    {
        for (int number = 0; number < count; ++number)
            fields.append(new QLineEdit(this));
    }
    QList<QLineEdit*> fields;
};

class FocusOfAScreen : public ShowFormTest
{
protected:
    Fields* OpenFields() { return static_cast<Fields*>(OpenScreen(QStringLiteral("Fields"))); }

    int count = 5;
    const StandIn entered{QStringLiteral("Fields"), [this] { return new Fields(count); }};
};

TEST_F(FocusOfAScreen, GoesToTheFirstFieldThatTakesKeys)
{
    Fields* screen = OpenFields();
    ASSERT_NE(screen, nullptr);
    EXPECT_TRUE(screen->fields[0]->hasFocus());
    screen->fields[0]->hide();
    screen->fields[1]->setEnabled(false);
    screen->fields[2]->setFocusPolicy(Qt::ClickFocus);
    QApplication::focusWidget()->clearFocus();
    FocusActiveScreen();
    EXPECT_TRUE(screen->fields[3]->hasFocus());
}

TEST_F(FocusOfAScreen, GoesBackToTheFieldThatHadItOrToTheFirstWhereThatHasGoneOff)
{
    Fields* screen = OpenFields();
    for (const bool on : {true, false}) {
        screen->fields[3]->setFocus();
        OpenScreen(QStringLiteral("frmUtilOptions"));
        screen->fields[3]->setEnabled(on);
        OpenFields();
        EXPECT_TRUE(screen->fields[on ? 3 : 0]->hasFocus());
    }
}

TEST_F(FocusOfAScreen, StaysWhereTheMouseAloneLeads)
{
    Fields* screen = OpenFields();
    screen->fields[2]->setFocusPolicy(Qt::ClickFocus);
    screen->fields[2]->setFocus();
    FocusActiveScreen();
    EXPECT_TRUE(screen->fields[2]->hasFocus());
}

TEST_F(FocusOfAScreen, IsTheScreensOwnWhereItHasNoField)
{
    OpenScreen(QStringLiteral("frmUtilOptions"));
    count = 0;
    const Fields* screen = OpenFields();
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), screen)
        << QApplication::focusWidget()->metaObject()->className() << ' '
        << QApplication::focusWidget()->objectName().toStdString();
}

TEST_F(FocusOfAScreen, IsNotTakenByAScreenThatGoesBehindIt)
{
    Screen* behind = OpenScreen(QStringLiteral("frmUtilOptions"));
    const Fields* screen = OpenFields();
    screen->fields[1]->setFocus();
    behind->Unload();
    EXPECT_TRUE(screen->fields[1]->hasFocus());
    Settle();
    EXPECT_TRUE(screen->fields[1]->hasFocus());
}

TEST_F(ShowFormTest, OtherFormsAreThoseBesideTheOneThatAsks)
{
    Screen* options = OpenScreen(QStringLiteral("frmUtilOptions"));
    EXPECT_FALSE(OtherFormsOpen(options));
    EXPECT_TRUE(OtherFormsOpen(nullptr));
}

TEST_F(ShowFormTest, TheWorkMenusGoOffTogetherAndComeBackAsTheyWereUnlessLocked)
{
    for (const char* name : {"mnuMasters", "mnuReports", "mnuToolsMenu"})
        window->EnableMenuItem(QString::fromLatin1(name), true);
    EnableMainMenus();
    EXPECT_FALSE(On("mnuTransactions")) << "nothing was taken";
    DisableMainMenus();
    DisableMainMenus();
    for (const char* name : {"mnuMasters", "mnuTransactions", "mnuReports", "mnuToolsMenu"})
        EXPECT_FALSE(On(name)) << name;
    for (const char* name : {"mnuHelp", "mnuLock", "mnuClose"})
        EXPECT_TRUE(On(name)) << name;
    Session().gblnMenusLocked = true;
    EnableMainMenus();
    EXPECT_FALSE(On("mnuMasters"));
    Session().gblnMenusLocked = false;
    EnableMainMenus();
    for (const char* name : {"mnuMasters", "mnuReports", "mnuToolsMenu"})
        EXPECT_TRUE(On(name)) << name;
    EXPECT_FALSE(On("mnuTransactions"));
}

TEST_F(ShowFormTest, AScreenThatIsRefusedBesideAnotherTakesNothingFromOtherClients)
{
    const QString setup = QStringLiteral("frmUtilApplicationDateSetup");
    OpenScreen(QStringLiteral("frmUtilOptions"));
    prompts.ExpectInformation(QStringLiteral("You Cannot Open 'Application Date Setup' Form When Other Forms "
                                             "Are Opened. First Close Other Forms"));
    EXPECT_EQ(OpenScreen(setup), nullptr);
    EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus"), 0);
    ScreenRegistry::OpenInstance(QStringLiteral("frmUtilOptions"))->Unload();
    Settle();
    EXPECT_NE(OpenScreen(setup), nullptr);
    EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus"), 1) << "alone it has it to itself";
}

TEST_F(ShowFormTest, LeavingIsAskedForOnlyWhereTheOfficeWantsIt)
{
    Session().gblnPromptOnExit = false;
    EXPECT_TRUE(ConfirmExit(QStringLiteral("Options")));
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Options ?"), false);
    EXPECT_FALSE(ConfirmExit(QStringLiteral("Options")));
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Options ?"), true);
    EXPECT_TRUE(ConfirmExit(QStringLiteral("Options")));
}

} // namespace
} // namespace tally::test
