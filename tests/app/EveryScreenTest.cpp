// What holds for each screen of the program, whoever wrote it.

#include "core/shell/mdiTallyboard.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/Grid.h"
#include "core/ui/ScreenRegistry.h"
#include "support/ScreenFixture.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QGraphicsView>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace tally::test {
namespace {

class EveryScreen : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        window->setWindowState(Qt::WindowNoState);
        window->resize(1920, 1080);
        Settle();
    }

    /// Opens one screen after the other, each alone, and closes it.
    void ForEach(const std::function<void(const Screen&, QMdiSubWindow&)>& look)
    {
        const QStringList names = ScreenRegistry::Names();
        ASSERT_GE(names.size(), 20);
        for (const QString& name : names) {
            SCOPED_TRACE(name.toStdString());
            Screen* screen = OpenScreen(name);
            ASSERT_NE(screen, nullptr);
            auto* frame = qobject_cast<QMdiSubWindow*>(screen->parentWidget());
            ASSERT_NE(frame, nullptr);
            look(*screen, *frame);
            delete frame;
            Settle();
        }
    }

    /// All but those that say who may do what; gives their names.
    QStringList TakeTablesAway()
    {
        QStringList tables;
        auto rows = Session().gcnnMain->Query(
            QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'"
                           " AND name NOT LIKE 'User%'"));
        while (rows.Next())
            tables.append(rows.Text(0));
        for (const QString& table : tables)
            Session().gcnnMain->Execute(
                QStringLiteral("ALTER TABLE \"%1\" RENAME TO \"Away %1\"").arg(table));
        return tables;
    }
    void BringTablesBack(const QStringList& tables)
    {
        for (const QString& table : tables)
            Session().gcnnMain->Execute(
                QStringLiteral("ALTER TABLE \"Away %1\" RENAME TO \"%1\"").arg(table));
    }

    static bool Leaves(const QAbstractButton& button)
    {
        return button.objectName() == QLatin1String("cmdExit") ||
               button.objectName() == QLatin1String("cmdClose");
    }

    /// Whether another screen was open.
    bool CloseAllBut(const Screen& screen)
    {
        QList<QMdiSubWindow*> others = window->findChildren<QMdiSubWindow*>();
        others.removeOne(screen.parentWidget());
        qDeleteAll(others);
        Settle();
        return !others.isEmpty();
    }

    /// Neither a part of a control nor of a list.
    static bool IsOurs(const QWidget* control)
    {
        return !control->objectName().startsWith(QLatin1String("qt_")) &&
               !qobject_cast<const QAbstractScrollArea*>(control->parentWidget()) &&
               !control->parentWidget()->inherits("QTabWidget");
    }

    /// A sign may stand between the brackets of its note.
    static bool LiesOver(const QRect& one, const QRect& other)
    {
        return one.intersects(other) && !one.contains(other) && !other.contains(one);
    }

    static std::string Called(QWidget* control)
    {
        // On some platforms Qt lets a list's choice take the place of its name, and leads to its label
        // instead.
        if (qobject_cast<QComboBox*>(control))
            return control->accessibleName().toStdString();
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(control);
        return spoken ? spoken->text(QAccessible::Name).trimmed().toStdString() : std::string();
    }
};

TEST_F(EveryScreen, CallsEachControlThatTakesTheKeyboardByAName)
{
    ForEach([](const Screen& screen, const QMdiSubWindow&) {
        for (QWidget* control : screen.findChildren<QWidget*>()) {
            const bool takesKeys = control->focusPolicy() != Qt::NoFocus && !control->focusProxy();
            if (!takesKeys || control->window() != screen.window())
                continue;
            EXPECT_NE(Called(control), "")
                << control->metaObject()->className() << ' ' << control->objectName().toStdString();
        }
    });
}

TEST_F(EveryScreen, LeadsTheKeyboardToControlsThatTakeItAlsoBackwards)
{
    constexpr int Steps = 30;
    ForEach([](const Screen& screen, const QMdiSubWindow&) {
        for (int step = 0; step < Steps; ++step) {
            QWidget* reached = screen.focusWidget();
            ASSERT_NE(reached, nullptr);
            EXPECT_NE(reached->focusPolicy() & Qt::TabFocus, 0) << reached->objectName().toStdString();
            QTest::keyClick(reached, Qt::Key_Backtab, Qt::ShiftModifier);
        }
    });
}

TEST_F(EveryScreen, AsksAndReportsNothingMoreBehindAFailureAndStaysOpen)
{
    Session().gintUserCode = 1;
    LeaveOthersUnguarded();
    QStringList told;
    QStringList behindFailures;
    Prompts::AnswerWith([&](Prompts::Kind kind, const QString& text) {
        if (kind == Prompts::Kind::Critical)
            told.append(text);
        else if (!told.isEmpty())
            behindFailures.append(text);
        return true;
    });
    int failures = 0;
    ForEach([&](const Screen& screen, const QMdiSubWindow&) {
        const QStringList tables = TakeTablesAway();
        for (QAbstractButton* button : screen.findChildren<QAbstractButton*>()) {
            if (Leaves(*button) || !button->isVisible() || !button->isEnabled())
                continue;
            SCOPED_TRACE(button->objectName().toStdString());
            told.clear();
            Press(button);
            Settle();
            EXPECT_EQ(behindFailures.join(QLatin1String(" / ")).toStdString(), "");
            // A master that opened beside it tells of its own lists, and the screen then of its list again.
            if (!CloseAllBut(screen)) {
                EXPECT_EQ(told.removeDuplicates(), 0);
            }
            EXPECT_FALSE(screen.IsUnloaded());
            failures += static_cast<int>(told.size());
        }
        BringTablesBack(tables);
    });
    EXPECT_GE(failures, 20);
}

TEST_F(EveryScreen, ThatNobodyElseMayOpenMeanwhileGoesAgainWhereThatCannotBeNoted)
{
    Given("INSERT INTO AcademicYearSetup VALUES (1, 2007, 2008, '2007-06-01', '2008-05-31', 'Y', 'N', 1)");
    Given("ALTER TABLE ScreenStatus RENAME TO Away");
    int gone = 0;
    for (const QString& name : ScreenRegistry::Names()) {
        SCOPED_TRACE(name.toStdString());
        QStringList told;
        Prompts::AnswerWith([&told](Prompts::Kind, const QString& text) {
            told.append(text);
            return true;
        });
        Session().gblnMenusLocked = false;
        const Screen* screen = OpenScreen(name);
        if (screen)
            delete screen->parentWidget();
        EXPECT_EQ(screen == nullptr, !told.isEmpty()) << told.join(QLatin1Char(' ')).toStdString();
        EXPECT_LE(told.size(), 1);
        EXPECT_FALSE(Session().gblnMenusLocked && !screen);
        gone += screen ? 0 : 1;
        Settle();
    }
    EXPECT_GE(gone, 2);
    Given("ALTER TABLE Away RENAME TO ScreenStatus");
}

TEST_F(EveryScreen, ShowsNoControlOverAnother)
{
    ForEach([](const Screen& screen, const QMdiSubWindow&) {
        for (const QWidget* parent : screen.findChildren<QWidget*>()) {
            QList<const QWidget*> shown;
            for (const auto* control : parent->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
                if (control->isVisible() && !control->isWindow() && IsOurs(control))
                    shown.append(control);
            for (qsizetype one = 0; one < shown.size(); ++one)
                for (qsizetype other = 0; other < one; ++other)
                    EXPECT_FALSE(LiesOver(shown[one]->geometry(), shown[other]->geometry()))
                        << shown[one]->objectName().toStdString() << " lies over "
                        << shown[other]->objectName().toStdString();
        }
    });
}

TEST_F(EveryScreen, CanFillTheWindowIfItHasAListOrAChartAndOnlyThen)
{
    int growing = 0;
    ForEach([&](const Screen& screen, const QMdiSubWindow& frame) {
        const bool grows =
            screen.findChild<Grid*>() != nullptr || screen.findChild<QGraphicsView*>() != nullptr;
        growing += grows ? 1 : 0;
        EXPECT_EQ(frame.windowFlags().testFlag(Qt::WindowMaximizeButtonHint), grows);
    });
    EXPECT_GE(growing, 13);
}

TEST_F(EveryScreen, GivesItsListTheRoomOfAWideWindowAndItsFieldsNoMoreThanTheyNeed)
{
    ForEach([](const Screen& screen, QMdiSubWindow& frame) {
        const auto* list = screen.findChild<Grid*>();
        if (!list)
            return;
        // This one is shown when it is asked for.
        if (auto* details = screen.findChild<QAbstractButton*>(QStringLiteral("cmdDetails")))
            Press(details);
        const QSize before = list->size();
        frame.showMaximized();
        Settle();
        EXPECT_TRUE(frame.isMaximized());
        EXPECT_GT(list->height(), before.height());
        EXPECT_GT(list->width(), before.width());
        for (const QWidget* field : screen.findChildren<QWidget*>())
            if (qobject_cast<const QLineEdit*>(field) || qobject_cast<const QComboBox*>(field) ||
                qobject_cast<const CheckList*>(field)) {
                EXPECT_LE(field->width(), 480) << field->objectName().toStdString();
            }
        EXPECT_GT(list->height(), frame.height() / 3);
    });
}

/// Who sees badly has chosen larger letters, on the display that the office has.
class EveryScreenInLargeLetters : public EveryScreen
{
protected:
    void SetUp() override
    {
        EveryScreen::SetUp();
        QFont large = usual_;
        large.setPointSizeF(usual_.pointSizeF() * 4 / 3);
        QApplication::setFont(large);
        window->resize(800, 600);
        Settle();
    }
    void TearDown() override
    {
        EveryScreen::TearDown();
        QApplication::setFont(usual_);
    }

private:
    QFont usual_ = QApplication::font();
};

TEST_F(EveryScreenInLargeLetters, ShowsItsCaptionsAndDatesWhole)
{
    ForEach([](const Screen& screen, const QMdiSubWindow&) {
        for (const QWidget* widget : screen.findChildren<QWidget*>()) {
            const auto* label = qobject_cast<const QLabel*>(widget);
            const bool caption = label && label->buddy();
            if (widget->isVisible() && (caption || qobject_cast<const QDateEdit*>(widget))) {
                EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
                    << widget->objectName().toStdString();
            }
        }
    });
}

} // namespace
} // namespace tally::test
