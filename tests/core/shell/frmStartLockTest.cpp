#include "core/shell/frmStartLock.h"

#include "core/shell/frmStartUnlock.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/FlexGrid.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "support/ScreenFixture.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QToolTip>

namespace tally::test {
namespace {

class frmStartLockTest : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        GivenUser(4, QStringLiteral("mary"), QStringLiteral("secret"));
        GivenUser(5, QStringLiteral("john"), QStringLiteral("other"));
        Session().gstrLoginId = QStringLiteral("mary");
        Session().gstrPassword = QStringLiteral("Secret");
        window->MenuItem(QStringLiteral("mnuLock"))->trigger();
        lock = window->findChild<frmStartLock*>();
        ASSERT_NE(lock, nullptr);
    }

    frmStartUnlock* AskForUnlocking()
    {
        QTest::keyClick(lock, Qt::Key_F10);
        auto* unlock = lock->findChild<frmStartUnlock*>();
        if (unlock) {
            QApplication::setActiveWindow(unlock);
            EXPECT_TRUE(QTest::qWaitForWindowActive(unlock));
        }
        return unlock;
    }
    void Unlock(const QString& id, const QString& password)
    {
        auto* unlock = AskForUnlocking();
        ASSERT_NE(unlock, nullptr);
        Type(Find<QLineEdit>(unlock, "txtLoginID"), id);
        Type(Find<QLineEdit>(unlock, "txtPassword"), password);
        Press(Find<QPushButton>(unlock, "cmdOK"));
        Settle();
    }

    QPointer<frmStartLock> lock;
};

TEST_F(frmStartLockTest, TheLockLiesOverEverything)
{
    EXPECT_TRUE(lock->isVisible());
    EXPECT_EQ(lock->windowModality(), Qt::ApplicationModal);
    bool found = false;
    const auto labels = lock->findChildren<QLabel*>();
    for (const QLabel* label : labels)
        found =
            found || label->text() == QLatin1String("Your Application Is Locked. Press F10 For Unlocking");
    EXPECT_TRUE(found);
}

TEST_F(frmStartLockTest, ItsPadlockFollowsTheSystemIntoTheDark)
{
    const auto picture = [this] { return Find<QLabel>(lock, "Image1")->pixmap(Qt::ReturnByValue).toImage(); };
    const QImage light = picture();
    UseDarkLook(true);
    EXPECT_NE(picture(), light);
    UseDarkLook(false);
    EXPECT_EQ(picture(), light);
}

TEST_F(frmStartLockTest, ItStandsOutByItsRoundCornersItsOutlineAndItsPadlock)
{
    EXPECT_TRUE(lock->mask().contains(lock->rect().center()));
    const QRect sheet = lock->rect();
    for (const QPoint corner : {sheet.topLeft(), sheet.topRight(), sheet.bottomLeft(), sheet.bottomRight()})
        EXPECT_FALSE(lock->mask().contains(corner)) << corner.x() << ' ' << corner.y();
    EXPECT_EQ(lock->mask().boundingRect(), sheet);
    const QPalette palette = lock->palette();
    const QImage seen = lock->grab().toImage();
    EXPECT_EQ(seen.pixelColor(seen.width() / 2, 0), palette.color(QPalette::Highlight));
    const QImage padlock = Find<QLabel>(lock, "Image1")->pixmap(Qt::ReturnByValue).toImage();
    EXPECT_EQ(padlock.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(padlock.pixelColor(20, 4), palette.color(QPalette::WindowText)) << "its shackle";
    EXPECT_EQ(padlock.pixelColor(9, 27), palette.color(QPalette::Highlight)) << "its body";
    EXPECT_EQ(padlock.pixelColor(6, 27), palette.color(QPalette::Highlight)) << "has no other edge";
    EXPECT_EQ(padlock.pixelColor(20, 25), palette.color(QPalette::HighlightedText)) << "its keyhole";
    EXPECT_EQ(padlock.pixelColor(20, 31), palette.color(QPalette::HighlightedText));
}

TEST_F(frmStartLockTest, ItStandsInTheMiddleOfTheWindow)
{
    const QPoint apart = lock->geometry().center() - window->geometry().center();
    EXPECT_LE(apart.manhattanLength(), 2);
}

TEST_F(frmStartLockTest, OtherKeysAndClosingDoNothing)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_F4, Qt::Key_F9, Qt::Key_A})
        QTest::keyClick(lock, key);
    EXPECT_FALSE(lock->close());
    Settle();
    ASSERT_FALSE(lock.isNull());
    EXPECT_TRUE(lock->isVisible());
    EXPECT_EQ(lock->findChild<frmStartUnlock*>(), nullptr);
}

TEST_F(frmStartLockTest, EscAsksAndANoKeepsTheLock)
{
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Close 'KITE - Tally Board' ?"), false);
    QTest::keyClick(lock, Qt::Key_Escape);
    EXPECT_EQ(processEnds, 0);
    EXPECT_TRUE(lock->isVisible());
}

TEST_F(frmStartLockTest, EscAndYesEndAtOnceAndLeaveThePresenceRowAndTheTempFolder)
{
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Close 'KITE - Tally Board' ?"), true);
    QTest::keyClick(lock, Qt::Key_Escape);
    EXPECT_EQ(processEnds, 1);
    EXPECT_EQ(Count("SELECT count(*) FROM ExamBoardMaster"), 1);
    EXPECT_TRUE(QDir(Folder() + QStringLiteral("/Temp")).exists());
}

TEST_F(frmStartLockTest, TheUserWhoLoggedInUnlocksWhateverTheCase)
{
    Unlock(QStringLiteral(" MARY "), QStringLiteral("sECRET"));
    EXPECT_TRUE(lock.isNull());
    EXPECT_TRUE(window->isActiveWindow());
}

TEST_F(frmStartLockTest, TheLoginGoesAtOnceWhenItHasUnlocked)
{
    auto* unlock = AskForUnlocking();
    ASSERT_NE(unlock, nullptr);
    Type(Find<QLineEdit>(unlock, "txtLoginID"), QStringLiteral("mary"));
    Type(Find<QLineEdit>(unlock, "txtPassword"), QStringLiteral("secret"));
    Press(Find<QPushButton>(unlock, "cmdOK"));
    EXPECT_FALSE(unlock->isVisible());
}

TEST_F(frmStartLockTest, F1ShowsNoHelpBehindTheLock)
{
    auto* unlock = AskForUnlocking();
    ASSERT_NE(unlock, nullptr);
    PressKey(unlock, Qt::Key_F1);
    QTest::keyClick(lock, Qt::Key_F1);
    EXPECT_FALSE(AnyChildFormOpen());
}

TEST_F(frmStartLockTest, AnotherUserCanNotUnlock)
{
    prompts.ExpectInformation(QStringLiteral("Enter Correct Login ID / Password"));
    Unlock(QStringLiteral("john"), QStringLiteral("other"));
    ASSERT_FALSE(lock.isNull());
    auto* unlock = lock->findChild<frmStartUnlock*>();
    ASSERT_NE(unlock, nullptr);
    EXPECT_EQ(Find<QLineEdit>(unlock, "txtLoginID")->text().toStdString(), "");
    EXPECT_EQ(Find<QLineEdit>(unlock, "txtPassword")->text().toStdString(), "");
    EXPECT_TRUE(Find<QLineEdit>(unlock, "txtLoginID")->hasFocus());
}

TEST_F(frmStartLockTest, OnesOwnPasswordUnderAnotherNameAndAnothersUnderOnesOwnDoNotUnlock)
{
    prompts.ExpectInformation(QStringLiteral("Enter Correct Login ID / Password"));
    Unlock(QStringLiteral("john"), QStringLiteral("secret"));
    ASSERT_FALSE(lock.isNull());
    delete lock->findChild<frmStartUnlock*>();
    prompts.ExpectInformation(QStringLiteral("Enter Correct Login ID / Password"));
    Unlock(QStringLiteral("mary"), QStringLiteral("other"));
    EXPECT_FALSE(lock.isNull());
}

TEST_F(frmStartLockTest, AStoreThatFailsIsToldAndTheLockStays)
{
    Given("ALTER TABLE UserPrivilegeMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("UserPrivilegeMaster"));
    Unlock(QStringLiteral("mary"), QStringLiteral("secret"));
    ASSERT_FALSE(lock.isNull());
    EXPECT_TRUE(lock->findChild<frmStartUnlock*>()->isVisible());
    Given("ALTER TABLE Away RENAME TO UserPrivilegeMaster");
}

TEST_F(frmStartLockTest, EmptyFieldsAreAskedForInTheirOrder)
{
    prompts.ExpectInformation(QStringLiteral("Enter Login ID"));
    Unlock(QStringLiteral("  "), QString());
    auto* unlock = lock->findChild<frmStartUnlock*>();
    EXPECT_TRUE(Find<QLineEdit>(unlock, "txtLoginID")->hasFocus());
    Find<QLineEdit>(unlock, "txtLoginID")->clear();
    Type(Find<QLineEdit>(unlock, "txtLoginID"), QStringLiteral("mary"));
    prompts.ExpectInformation(QStringLiteral("Enter Password"));
    Press(Find<QPushButton>(unlock, "cmdOK"));
    EXPECT_TRUE(Find<QLineEdit>(unlock, "txtPassword")->hasFocus());
}

TEST_F(frmStartLockTest, OnANewInstallationAnyTextUnlocks)
{
    Given("DELETE FROM UserPrivilegeMaster");
    Unlock(QStringLiteral("x"), QStringLiteral("y"));
    EXPECT_TRUE(lock.isNull());
}

TEST_F(frmStartLockTest, CancelKeepsTheLock)
{
    auto* unlock = AskForUnlocking();
    Press(Find<QPushButton>(unlock, "cmdCancel"));
    Settle();
    ASSERT_FALSE(lock.isNull());
    EXPECT_TRUE(lock->isVisible());
    EXPECT_EQ(lock->findChild<frmStartUnlock*>(), nullptr);
}

TEST_F(frmStartLockTest, EnterGoesFromFieldToField)
{
    auto* unlock = AskForUnlocking();
    EXPECT_EQ(unlock->windowTitle().toStdString(), "Unlock");
    PressKey(unlock, Qt::Key_Return);
    EXPECT_TRUE(Find<QLineEdit>(unlock, "txtPassword")->hasFocus());
    PressKey(unlock, Qt::Key_Return);
    EXPECT_TRUE(Find<QPushButton>(unlock, "cmdOK")->hasFocus());
}

TEST_F(frmStartLockTest, TheLoginAboveTheLockIsAloneAndItsFieldsTakeFifteenLettersAndDigits)
{
    auto* unlock = AskForUnlocking();
    EXPECT_TRUE(unlock->isModal());
    auto* id = Find<QLineEdit>(unlock, "txtLoginID");
    Type(id, QStringLiteral("m_a'r;y12345678901234567890"));
    EXPECT_EQ(id->text().toStdString(), "mary12345678901");
    auto* password = Find<QLineEdit>(unlock, "txtPassword");
    Type(password, QStringLiteral("s'e_c;r\"et7890123456789"));
    EXPECT_EQ(password->text().toStdString(), "secret789012345");
    EXPECT_EQ(password->displayText().toStdString(), "***************");
}

TEST_F(frmStartLockTest, ALockedProgramIsNotLockedTwice)
{
    frmStartLock::Lock(window);
    EXPECT_EQ(window->findChildren<frmStartLock*>().size(), 1);
}

/// What a stranger at the desk of a clerk who went away must not read: windows full of marks, here in a
/// colour that nothing else in the program has.
class WhatLiesBehindTheLock : public ScreenFixture
{
protected:
    static constexpr QRgb MarkColor = qRgb(255, 0, 200);

    void SetUp() override
    {
        ScreenFixture::SetUp();
        Session().gstrLoginId = QStringLiteral("mary");
        Session().gstrPassword = QStringLiteral("secret");
        GivenUser(4, QStringLiteral("mary"), QStringLiteral("secret"));
        window->Area()->addSubWindow(Marks())->showMaximized();
        window->statusBar()->addWidget(Marks());
        Settle();
        ASSERT_TRUE(ShowsMarks(window));
    }

    /// A grid of marks; every cell is in the colour.
    static FlexGrid* Marks(QWidget* parent = nullptr)
    {
        auto* grid = new FlexGrid(parent);
        grid->SetCols(4);
        grid->SetRows(40);
        QPalette colors = grid->palette();
        for (const auto role : {QPalette::Base, QPalette::AlternateBase})
            colors.setColor(role, QColor(MarkColor));
        grid->setPalette(colors);
        return grid;
    }
    static bool ShowsMarks(QWidget* shown)
    {
        const QImage picture = shown->grab().toImage().convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixel(x, y) == MarkColor)
                    return true;
        return false;
    }
    void Lock()
    {
        window->MenuItem(QStringLiteral("mnuLock"))->trigger();
        lock = window->findChild<frmStartLock*>();
        ASSERT_NE(lock, nullptr);
        Settle();
    }
    void Unlock()
    {
        QTest::keyClick(lock, Qt::Key_F10);
        auto* unlock = lock->findChild<frmStartUnlock*>();
        ASSERT_NE(unlock, nullptr);
        EXPECT_FALSE(ShowsMarks(window)) << "while it asks for the login";
        Type(Find<QLineEdit>(unlock, "txtLoginID"), QStringLiteral("mary"));
        Type(Find<QLineEdit>(unlock, "txtPassword"), QStringLiteral("secret"));
        Press(Find<QPushButton>(unlock, "cmdOK"));
        Settle();
    }

    QPointer<frmStartLock> lock;
};

TEST_F(WhatLiesBehindTheLock, IsOutOfSightUntilItIsUnlocked)
{
    Lock();
    EXPECT_FALSE(ShowsMarks(window));
    window->resize(window->width() - 60, window->height() - 40);
    Settle();
    EXPECT_FALSE(ShowsMarks(window));
    window->resize(window->width() + 90, window->height() + 70);
    Settle();
    EXPECT_FALSE(ShowsMarks(window));
    Unlock();
    EXPECT_TRUE(lock.isNull());
    EXPECT_TRUE(ShowsMarks(window));
}

TEST_F(WhatLiesBehindTheLock, StaysSoWhileTheLocksQuestionStands)
{
    Lock();
    Prompts::AnswerWith({});
    bool shown = true;
    QTimer::singleShot(0, lock, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        shown = ShowsMarks(window);
        QTest::keyClick(box, Qt::Key_N);
    });
    QTest::keyClick(lock, Qt::Key_Escape);
    EXPECT_FALSE(shown);
    EXPECT_FALSE(ShowsMarks(window));
}

TEST_F(WhatLiesBehindTheLock, AFailureThatTheTickTellsUncoversNothing)
{
    Lock();
    Given("DROP TABLE ExamBoardMaster");
    Prompts::AnswerWith({});
    QPointer<QMessageBox> told;
    bool shown = true;
    bool readable = false;
    QTimer::singleShot(0, lock, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        told = box;
        shown = ShowsMarks(window);
        readable = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->visibleRegion() ==
                   QRegion(box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))->rect());
        box->accept();
    });
    Tick();
    StopPresence();
    EXPECT_FALSE(shown);
    EXPECT_TRUE(readable);
    EXPECT_FALSE(ShowsMarks(window));
}

TEST_F(WhatLiesBehindTheLock, OtherWindowsOfTheProgramAreCoveredAsWell)
{
    auto* list = Marks(new QDialog(window));
    list->window()->resize(300, 200);
    list->resize(300, 200);
    list->window()->show();
    ASSERT_TRUE(ShowsMarks(list->window()));
    Lock();
    EXPECT_FALSE(ShowsMarks(list->window()));

    auto* late = Marks(new QDialog(window));
    late->resize(300, 200);
    late->window()->show();
    Settle();
    EXPECT_FALSE(ShowsMarks(late->window())) << "one that comes up while it is locked";
    Unlock();
    EXPECT_TRUE(ShowsMarks(list->window()));
    EXPECT_TRUE(ShowsMarks(late->window()));
}

TEST_F(WhatLiesBehindTheLock, MenusAndTipsThatOpenAboveTheLockCanBeRead)
{
    Lock();
    auto* menu = new QMenu(lock);
    menu->addAction(QStringLiteral("Paste"));
    menu->popup(lock->mapToGlobal(QPoint(5, 5)));
    QToolTip::showText(lock->mapToGlobal(QPoint(90, 5)), QStringLiteral("Press F10"), lock);
    int read = 0;
    for (const QWidget* shown : QApplication::topLevelWidgets())
        if (shown->isVisible() && (shown == menu || shown->windowType() == Qt::ToolTip)) {
            EXPECT_EQ(shown->findChildren<QWidget*>().size(), 0) << "something lies over it";
            ++read;
        }
    EXPECT_EQ(read, 2);
}

TEST_F(WhatLiesBehindTheLock, OpenListsAndTipsGo)
{
    auto* menu = new QMenu(window);
    menu->addAction(QStringLiteral("Asha 99"));
    menu->popup(window->mapToGlobal(QPoint(50, 50)));
    QToolTip::showText(window->mapToGlobal(QPoint(90, 90)), QStringLiteral("Asha 99"), window);
    Lock();
    EXPECT_FALSE(menu->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

} // namespace
} // namespace tally::test
