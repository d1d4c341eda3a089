#include "core/ui/controls/FieldHint.h"

#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// A field in a frame of a window.
class FieldHint : public testing::Test
{
protected:
    FieldHint()
    {
        window.resize(400, 300);
        frame->setGeometry(20, 20, 300, 200);
        field->setGeometry(10, 10, 100, 24);
        window.show();
        QApplication::setActiveWindow(&window);
    }
    void SetUp() override
    {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        field->setFocus();
        ShowFieldHint(field, Text);
    }

    QLabel* Note() const { return window.findChild<QLabel*>(QStringLiteral("fieldHint")); }
    /// How far the note lies below the field and to the right of it.
    QPoint Away() const { return Note()->pos() - field->mapTo(&window, QPoint(0, field->height())); }

    const QString Text = QStringLiteral("<b>Only Digits</b>");
    QWidget window;
    QWidget* frame = new QWidget(&window);
    QLineEdit* field = new QLineEdit(frame);
};

TEST_F(FieldHint, GoesWithItsFieldWhateverMovesIt)
{
    const QPoint away = Away();
    frame->move(60, 40);
    EXPECT_EQ(Away(), away);
    field->move(30, 50);
    EXPECT_EQ(Away(), away);
    field->resize(100, 40);
    EXPECT_EQ(Away(), away);
    window.resize(400, frame->y() + field->geometry().bottom() + 8);
    EXPECT_LT(Note()->geometry().bottom(), field->mapTo(&window, QPoint()).y())
        << "above it, where there is room";
}

TEST_F(FieldHint, StandsBelowItsFieldAsLongAsThereIsRoomAndNeverAboveItsWindow)
{
    const int below = Note()->geometry().bottom();
    constexpr int Margin = 4;
    window.resize(400, below + 1 + Margin);
    EXPECT_EQ(Note()->geometry().bottom(), below) << "just room";
    window.resize(400, below + Margin);
    EXPECT_LT(Note()->geometry().bottom(), below);
    frame->move(20, 0);
    window.resize(400, 45);
    EXPECT_EQ(Note()->y(), Margin);
}

TEST_F(FieldHint, StandsOutFromWhatItLiesOverAndShowsItsTextAsItIs)
{
    const QImage note = Note()->grab().toImage();
    EXPECT_EQ(note.pixelColor(note.width() / 2, 0), QApplication::palette().color(QPalette::Highlight));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(Note())->text(QAccessible::Name), Text);
}

TEST_F(FieldHint, IsGoneWithItsField)
{
    delete field;
    field = nullptr;
    EXPECT_EQ(Note(), nullptr);
    frame->move(60, 40);
}

TEST_F(FieldHint, GoesByItselfAfterItsTime)
{
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(Note());
    ASSERT_EQ(timers.size(), 1);
    QTimerEvent over(timers[0].timerId);
    QCoreApplication::sendEvent(Note(), &over);
    EXPECT_EQ(FieldHintAt(field), QString());
    EXPECT_FALSE(Note()->isVisible());
    QTest::qWait(0);
    EXPECT_EQ(Note(), nullptr) << "nothing is left of it";
}

TEST_F(FieldHint, AnotherOneTakesItsPlace)
{
    HideFieldHint(field);
    field->setAccessibleDescription(QStringLiteral("Code"));
    auto* other = new QLineEdit(frame);
    ShowFieldHint(field, QStringLiteral("One"));
    ShowFieldHint(other, QStringLiteral("Two"));
    EXPECT_EQ(FieldHintAt(field), QString());
    EXPECT_EQ(field->accessibleDescription().toStdString(), "Code");
    EXPECT_EQ(FieldHintAt(other).toStdString(), "Two");
    EXPECT_EQ(other->accessibleDescription().toStdString(), "Two");
    int seen = 0;
    for (const QLabel* note : window.findChildren<QLabel*>(QStringLiteral("fieldHint")))
        seen += note->isVisible() ? 1 : 0;
    EXPECT_EQ(seen, 1);
}

TEST_F(FieldHint, GoesWithTheWindowOrTheFrameOfItsField)
{
    frame->hide();
    EXPECT_EQ(FieldHintAt(field), QString());
    frame->show();
    EXPECT_EQ(FieldHintAt(field), QString()) << "and does not come back";
}

TEST_F(FieldHint, IsTakenAwayFromItsOwnFieldOnly)
{
    auto* other = new QLineEdit(frame);
    HideFieldHint(other);
    EXPECT_EQ(FieldHintAt(field), Text);
    EXPECT_EQ(FieldHintAt(other), QString());
    HideFieldHint(field);
    EXPECT_EQ(FieldHintAt(field), QString());
    EXPECT_EQ(field->accessibleDescription(), QString());
    field->setAccessibleDescription(QStringLiteral("Code"));
    HideFieldHint(field);
    EXPECT_EQ(field->accessibleDescription().toStdString(), "Code") << "a note that is gone has no say";
}

} // namespace
} // namespace tally::test
