#include "core/shell/mdiTallyboard.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/ScreenRegistry.h"
#include "support/ScreenFixture.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QStyleOptionTitleBar>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <array>
#include <functional>

namespace tally::test {
namespace {

/// The cross in the title bar, where the mouse finds it.
QPoint CloseBoxOf(const QMdiSubWindow* frame)
{
    constexpr int Border = 4;
    QStyleOptionTitleBar bar;
    bar.initFrom(frame);
    bar.titleBarFlags = frame->windowFlags();
    bar.titleBarState = static_cast<int>(frame->windowState().toInt());
    bar.subControls = QStyle::SC_All;
    bar.rect = QRect(Border, Border, frame->width() - 2 * Border,
                     frame->style()->pixelMetric(QStyle::PM_TitleBarHeight, &bar, frame) - Border);
    const QRect cross =
        frame->style()->subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarCloseButton, frame);
    EXPECT_TRUE(cross.isValid());
    return cross.center();
}

/// With a mouse that comes from elsewhere: a cross is lit before it can be pressed.
void ClickOn(const QWidget* window, const QPoint& place)
{
    QTest::mouseMove(window->windowHandle(), QPoint(1, window->height() - 1));
    QTest::mouseMove(window->windowHandle(), place);
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
}

void ClickCloseBox(const Screen* screen)
{
    const auto* frame = qobject_cast<QMdiSubWindow*>(screen->parentWidget());
    ASSERT_NE(frame, nullptr);
    ClickOn(frame->window(), frame->mapTo(frame->window(), CloseBoxOf(frame)));
}

bool MayFillTheWindow(const Screen* screen)
{
    return screen->parentWidget()->windowFlags().testFlag(Qt::WindowMaximizeButtonHint);
}

/// The cross that a screen which fills the window has at the end of the menu bar.
void FillTheWindowAndClickCloseBox(const Screen* screen)
{
    auto* frame = qobject_cast<QMdiSubWindow*>(screen->parentWidget());
    ASSERT_NE(frame, nullptr);
    frame->showMaximized();
    Settle();
    QWidget* buttons = mdiTallyboard::Instance()->menuBar()->cornerWidget();
    ASSERT_NE(buttons, nullptr);
    ASSERT_TRUE(buttons->isVisible());
    QStyleOptionComplex bar;
    bar.initFrom(buttons);
    bar.subControls = QStyle::SC_MdiCloseButton | QStyle::SC_MdiNormalButton;
    const QRect cross =
        buttons->style()->subControlRect(QStyle::CC_MdiControls, &bar, QStyle::SC_MdiCloseButton, buttons);
    ASSERT_TRUE(cross.isValid());
    ClickOn(frame->window(), buttons->mapTo(frame->window(), cross.center()));
}

void CloseBySystemMenu(const Screen* screen)
{
    const auto* frame = qobject_cast<QMdiSubWindow*>(screen->parentWidget());
    ASSERT_NE(frame, nullptr);
    const QKeySequence close(QKeySequence::Close);
    for (QAction* entry : frame->systemMenu()->actions())
        if (entry->shortcut() == close)
            return entry->trigger();
    ADD_FAILURE() << "no entry that closes";
}

void ClickExit(const Screen* screen)
{
    // On the windows that only show something it is called Close.
    const bool shows = !screen->findChild<QAbstractButton*>(QStringLiteral("cmdExit"));
    Press(Find<QAbstractButton>(screen, shows ? "cmdClose" : "cmdExit"));
}

/// Every screen of the program, on a school that has all that a screen asks for before it lets anybody go.
class LeavingScreens : public ScreenFixture
{
protected:
    using Way = std::function<void(const Screen* screen)>;

    void SetUp() override
    {
        ScreenFixture::SetUp();
        StopPresence();
        Given("INSERT INTO SchoolMaster VALUES ('School', 'Street', '', 0, '1', 'JUN', 1)");
        Given(
            "INSERT INTO AcademicYearSetup VALUES (1, 2007, 2008, '2007-06-01', '2008-05-31', 'Y', 'N', 1)");
        Given("INSERT INTO ApplicationDate VALUES ('2007-06-01', 1)");
        Session().gblnApplicationDateExists = true;
        for (const char* menu : WorkMenus)
            window->EnableMenuItem(QString::fromLatin1(menu), true);
    }

    static constexpr std::array WorkMenus{"mnuMasters", "mnuTransactions", "mnuReports", "mnuToolsMenu"};

    bool WorkMenusAreOn() const
    {
        return std::all_of(WorkMenus.begin(), WorkMenus.end(), [this](const char* menu) {
            return window->MenuItem(QString::fromLatin1(menu))->isEnabled();
        });
    }

    static QStringList AllScreens()
    {
        EXPECT_GE(ScreenRegistry::Names().size(), 20);
        return ScreenRegistry::Names();
    }

    /// Those whose close box is no way out.
    static bool OnlyExitLeaves(const QString& name)
    {
        static const QStringList names{
            QStringLiteral("frmMasBloodGroupMaster"),  QStringLiteral("frmMasCityMaster"),
            QStringLiteral("frmMasClassSectionEntry"), QStringLiteral("frmMasStateMaster"),
            QStringLiteral("frmSalutationMaster"),     QStringLiteral("frmSubjectMaster"),
            QStringLiteral("frmUtilUserMaster"),       QStringLiteral("frmexamnamemaster")};
        return names.contains(name);
    }

    /// What is only looked at is left without a question.
    static bool LeavesWithoutAsking(const QString& name)
    {
        return name == QLatin1String("AboutUs") || name == QLatin1String("frmHelp");
    }

    Screen* OpenOne(const QString& name)
    {
        Screen* screen = OpenScreen(name);
        EXPECT_NE(screen, nullptr);
        EXPECT_TRUE(screen->isVisible());
        // Its opening note is read first; the buttons are off till then.
        if (name == QLatin1String("frmMasClassSectionEntry"))
            Press(Find<QAbstractButton>(screen, "cmdClose"));
        return screen;
    }

    void ExpectGone(const QString& name, const Way& leave)
    {
        SCOPED_TRACE(name.toStdString());
        const QPointer<Screen> screen = OpenOne(name);
        const QPointer<QWidget> frame = screen->parentWidget();
        leave(screen);
        EXPECT_TRUE(!screen || !screen->isVisible());
        Settle();
        EXPECT_TRUE(screen.isNull()) << "what is destroyed saves nothing";
        EXPECT_TRUE(frame.isNull());
        EXPECT_TRUE(window->Area()->subWindowList().isEmpty());
        EXPECT_EQ(ScreenRegistry::OpenInstance(name), nullptr);
        EXPECT_TRUE(WorkMenusAreOn());
        EXPECT_FALSE(Session().gblnMenusLocked);
        EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus"), 0);
    }

    void ExpectAlive(const QString& name, const Way& leave)
    {
        SCOPED_TRACE(name.toStdString());
        Screen* screen = OpenOne(name);
        const bool menusOn = WorkMenusAreOn();
        const qint64 taken = Count("SELECT count(*) FROM ScreenStatus");
        leave(screen);
        Settle();
        ASSERT_EQ(ScreenRegistry::OpenInstance(name), screen);
        EXPECT_TRUE(screen->isVisible());
        EXPECT_TRUE(screen->parentWidget()->isVisible());
        EXPECT_EQ(window->Area()->activeSubWindow(), screen->parentWidget());
        EXPECT_EQ(WorkMenusAreOn(), menusOn);
        EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus"), taken);
        screen->Unload();
        Settle();
    }
};

TEST_F(LeavingScreens, TheCloseBoxTakesTheWholeScreenAway)
{
    Session().gblnPromptOnExit = true;
    Prompts::AnswerWith([](Prompts::Kind, const QString&) { return true; });
    int left = 0;
    for (const QString& name : AllScreens())
        if (!OnlyExitLeaves(name)) {
            ExpectGone(name, &ClickCloseBox);
            ++left;
        }
    EXPECT_GE(left, 10);
}

TEST_F(LeavingScreens, TheCloseBoxInTheMenuBarTakesAScreenThatFillsTheWindowAway)
{
    Session().gblnPromptOnExit = true;
    int filled = 0;
    for (const QString& name : AllScreens()) {
        if (OnlyExitLeaves(name) || !MayFillTheWindow(OpenOne(name))) {
            if (Screen* fixed = ScreenRegistry::OpenInstance(name))
                fixed->Unload();
            Settle();
            continue;
        }
        Prompts::AnswerWith([](Prompts::Kind, const QString&) { return false; });
        ExpectAlive(name, &FillTheWindowAndClickCloseBox);
        Prompts::AnswerWith([](Prompts::Kind, const QString&) { return true; });
        ExpectGone(name, &FillTheWindowAndClickCloseBox);
        const QWidget* buttons = window->menuBar()->cornerWidget();
        EXPECT_TRUE(!buttons || !buttons->isVisible()) << name.toStdString();
        ++filled;
    }
    EXPECT_GE(filled, 4);
}

TEST_F(LeavingScreens, TheSystemMenuTakesTheWholeScreenAway)
{
    for (const QString& name : AllScreens())
        if (!OnlyExitLeaves(name))
            ExpectGone(name, &CloseBySystemMenu);
}

TEST_F(LeavingScreens, ExitTakesTheWholeScreenAway)
{
    for (const QString& name : AllScreens())
        ExpectGone(name, &ClickExit);
}

TEST_F(LeavingScreens, AScreenThatLeftOpensAnew)
{
    for (const QString& name : AllScreens()) {
        ExpectGone(name, &ClickExit);
        ExpectGone(name, OnlyExitLeaves(name) ? Way(&ClickExit) : Way(&ClickCloseBox));
    }
}

TEST_F(LeavingScreens, WhoAnswersNoStaysInAnUntouchedScreen)
{
    Session().gblnPromptOnExit = true;
    int questions = 0;
    Prompts::AnswerWith([&questions](Prompts::Kind kind, const QString&) {
        EXPECT_EQ(kind, Prompts::Kind::Question);
        ++questions;
        return false;
    });
    int asked = 0;
    for (const QString& name : AllScreens()) {
        if (LeavesWithoutAsking(name))
            continue;
        ExpectAlive(name, &ClickExit);
        EXPECT_EQ(questions, ++asked);
        if (OnlyExitLeaves(name))
            continue;
        ExpectAlive(name, &ClickCloseBox);
        EXPECT_EQ(questions, ++asked);
    }
}

TEST_F(LeavingScreens, WhereOnlyExitLeavesTheCloseBoxAsksNothingAndChangesNothing)
{
    Session().gblnPromptOnExit = true;
    int left = 0;
    for (const QString& name : AllScreens())
        if (OnlyExitLeaves(name)) {
            ExpectAlive(name, &ClickCloseBox);
            ExpectAlive(name, &CloseBySystemMenu);
            ++left;
        }
    EXPECT_EQ(left, 8);
}

TEST_F(LeavingScreens, WhileAScreensQuestionIsOpenNothingAsksAgain)
{
    Session().gblnPromptOnExit = true;
    for (const QString& name : AllScreens()) {
        if (LeavesWithoutAsking(name))
            continue;
        SCOPED_TRACE(name.toStdString());
        const QPointer<Screen> screen = OpenOne(name);
        int questions = 0;
        Prompts::AnswerWith([&](Prompts::Kind, const QString&) {
            if (++questions == 1) {
                ClickExit(screen);
                ClickCloseBox(screen);
                window->MenuItem(QStringLiteral("mnuClose"))->trigger();
                Settle();
            }
            return !screen.isNull() && screen->isVisible();
        });
        ClickExit(screen);
        EXPECT_EQ(questions, 1);
        EXPECT_EQ(processEnds, 0);
        Settle();
        EXPECT_TRUE(screen.isNull()) << "the first question was answered with Yes";
    }
}

TEST_F(LeavingScreens, AScreenThatGoesUnderItsOwnBoxIsOutOfSightAtOnceAndLivesUntilItsHandlerIsDone)
{
    Session().gblnPromptOnExit = true;
    for (const QString& name : AllScreens()) {
        if (LeavesWithoutAsking(name))
            continue;
        SCOPED_TRACE(name.toStdString());
        const QPointer<Screen> screen = OpenOne(name);
        Prompts::AnswerWith([&](Prompts::Kind, const QString&) {
            screen->Unload();
            Settle();
            EXPECT_FALSE(screen.isNull()) << "its handler is waiting for this answer";
            if (screen) {
                EXPECT_FALSE(screen->isVisible());
            }
            EXPECT_TRUE(window->Area()->subWindowList().isEmpty());
            EXPECT_EQ(ScreenRegistry::OpenInstance(name), nullptr);
            return true;
        });
        ClickExit(screen);
        Settle();
        EXPECT_TRUE(screen.isNull());
    }
}

TEST_F(LeavingScreens, ARefusedScreenLivesUntilItsRefusalIsRead)
{
    AnotherClient()->Execute(QStringLiteral("INSERT INTO ScreenStatus VALUES ('AcademicYearSetup')"));
    QPointer<Screen> screen;
    Prompts::AnswerWith([&](Prompts::Kind, const QString&) {
        screen = ScreenRegistry::OpenInstance(QStringLiteral("frmMasAcademicYearSetup"));
        EXPECT_FALSE(screen.isNull());
        if (screen)
            ClickCloseBox(screen);
        Settle();
        EXPECT_FALSE(screen.isNull());
        return true;
    });
    EXPECT_EQ(OpenScreen(QStringLiteral("frmMasAcademicYearSetup")), nullptr);
    EXPECT_TRUE(screen.isNull());
    EXPECT_TRUE(window->Area()->subWindowList().isEmpty());
}

TEST_F(LeavingScreens, AMenuOpensNothingBehindABox)
{
    window->EnableMenuItem(QStringLiteral("mnufrmUtilOptions"), true);
    Session().gblnPromptOnExit = true;
    Screen* screen = OpenOne(QStringLiteral("frmSubjectMaster"));
    Prompts::AnswerWith([this](Prompts::Kind, const QString&) {
        window->MenuItem(QStringLiteral("mnufrmUtilOptions"))->trigger();
        Settle();
        EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmUtilOptions")), nullptr);
        return false;
    });
    ClickExit(screen);
    window->MenuItem(QStringLiteral("mnufrmUtilOptions"))->trigger();
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmUtilOptions")), nullptr);
}

/// Real boxes, each with an event loop of its own.
class LeavingUnderRealBoxes : public LeavingScreens
{
protected:
    void SetUp() override
    {
        LeavingScreens::SetUp();
        Prompts::AnswerWith({});
        Session().gblnPromptOnExit = true;
    }

    static QDialog* Box() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }
    /// A button that was pressed by its letter stays down for a moment before it does its work.
    static bool NoButtonIsDown()
    {
        const QWidgetList widgets = QApplication::allWidgets();
        return std::none_of(widgets.begin(), widgets.end(), [](const QWidget* widget) {
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            return button && button->isDown();
        });
    }
    /// Runs `work` as soon as a box is open, lets all buttons do theirs, and answers what is open.
    static void WhileABoxIsOpen(int answer, const std::function<void()>& work)
    {
        QTimer::singleShot(0, [answer, work] {
            ASSERT_NE(Box(), nullptr);
            work();
            EXPECT_TRUE(QTest::qWaitFor(&NoButtonIsDown));
            Settle();
            // The box on top first; there should be one only.
            while (Box()) {
                Box()->done(answer);
                Settle();
            }
        });
    }
};

TEST_F(LeavingUnderRealBoxes, AnExitThatWasPressedJustBeforeABoxCameAsksNothing)
{
    const QPointer<Screen> screen = OpenOne(QStringLiteral("frmSubjectMaster"));
    int boxes = 0;
    WhileABoxIsOpen(QMessageBox::No, [&] {
        // The window system still hands the key to the window that was in front.
        QApplication::setActiveWindow(window);
        QTest::keyClick(window->windowHandle(), Qt::Key_X, Qt::AltModifier);
        Find<QAbstractButton>(screen, "cmdExit")->animateClick();
        EXPECT_TRUE(QTest::qWaitFor(&NoButtonIsDown));
        Settle();
        for (const QWidget* widget : QApplication::topLevelWidgets())
            boxes += widget->inherits("QMessageBox") && widget->isVisible() ? 1 : 0;
    });
    EXPECT_FALSE(Prompts::Ask(QStringLiteral("Do You Want To Edit/Delete ?")));
    EXPECT_EQ(boxes, 1);
    ASSERT_FALSE(screen.isNull());
    EXPECT_TRUE(screen->isVisible());
    Settle();
    EXPECT_TRUE(screen->isVisible()) << "and nothing comes afterwards";
}

TEST_F(LeavingUnderRealBoxes, ASaveThatWasPressedJustBeforeABoxCameDoesNothing)
{
    Screen* screen = OpenOne(QStringLiteral("frmSubjectMaster"));
    auto* save = Find<QAbstractButton>(screen, "cmdSave");
    save->setEnabled(true);
    int saves = 0;
    QObject::connect(save, &QAbstractButton::clicked, save, [&saves] { ++saves; });
    WhileABoxIsOpen(QMessageBox::No, [&] {
        QApplication::setActiveWindow(window);
        QTest::keyClick(window->windowHandle(), Qt::Key_S, Qt::AltModifier);
    });
    EXPECT_FALSE(Prompts::Ask(QStringLiteral("Do You Want To Edit/Delete ?")));
    Settle();
    EXPECT_EQ(saves, 0);
}

TEST_F(LeavingUnderRealBoxes, TheScreenOutlivesTheBoxThatItsHandlerWaitsFor)
{
    const QPointer<Screen> screen = OpenOne(QStringLiteral("frmSubjectMaster"));
    WhileABoxIsOpen(QMessageBox::Yes, [&] {
        screen->Unload();
        Settle();
        EXPECT_FALSE(screen.isNull());
    });
    ClickExit(screen);
    Settle();
    EXPECT_TRUE(screen.isNull());
}

TEST_F(LeavingUnderRealBoxes, OneBoxOverAnotherKeepsTheLowerOnesScreen)
{
    const QPointer<Screen> lower = OpenOne(QStringLiteral("frmSubjectMaster"));
    const QPointer<Screen> upper = OpenOne(QStringLiteral("frmUtilOptions"));
    WhileABoxIsOpen(QMessageBox::No, [&] {
        WhileABoxIsOpen(QMessageBox::Ok, [&] {
            lower->Unload();
            upper->Unload();
        });
        Prompts::Critical(QStringLiteral("The disk is full"));
        Settle();
        EXPECT_FALSE(lower.isNull());
        EXPECT_FALSE(upper.isNull());
    });
    ClickExit(lower);
    Settle();
    EXPECT_TRUE(lower.isNull());
    EXPECT_TRUE(upper.isNull());
}

} // namespace
} // namespace tally::test
