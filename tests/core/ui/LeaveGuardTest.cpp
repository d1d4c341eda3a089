#include "core/ui/controls/DataCombo.h"
#include "support/ScreenFixture.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QVBoxLayout>

namespace tally::test {
namespace {

/// Two guarded controls and a button in one form, and a field in another form of the same window.
class LeaveGuardTest : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        for (QWidget* form : {forms[0], forms[1]})
            form->setGeometry(form == forms[0] ? 0 : 220, 0, 200, 200);
        auto* rows = new QVBoxLayout(forms[0]);
        for (QWidget* widget : std::initializer_list<QWidget*>{list, field, button})
            rows->addWidget(widget);
        list->SetList({{1, QStringLiteral("One")}});
        list->SetValidate([this] { return Ask("list"); });
        AskBeforeLeaving(field, [this] { return Ask("field"); });
        around->resize(440, 200);
        around->show();
        QApplication::setActiveWindow(around);
        ASSERT_TRUE(QTest::qWaitForWindowActive(around));
        list->setFocus();
    }

    bool Ask(const char* control)
    {
        asked += control;
        return mayLeave;
    }
    std::string Asked() { return std::exchange(asked, {}); }

    /// The fixture deletes all windows that a test leaves.
    QWidget* around = new QWidget;
    QWidget* forms[2] = {new QWidget(around, Qt::SubWindow), new QWidget(around, Qt::SubWindow)};
    DataCombo* list = new DataCombo(forms[0]);
    QLineEdit* field = new QLineEdit(forms[0]);
    QPushButton* button = new QPushButton(forms[0]);
    QLineEdit* elsewhere = new QLineEdit(forms[1]);
    bool mayLeave = true;
    std::string asked;
};

TEST_F(LeaveGuardTest, WhoOnlyLooksAwayIsNotAsked)
{
    for (const auto& [reason, leaves] : {std::pair(Qt::MouseFocusReason, true),
                                         {Qt::TabFocusReason, true},
                                         {Qt::BacktabFocusReason, true},
                                         {Qt::ShortcutFocusReason, true},
                                         {Qt::OtherFocusReason, true},
                                         {Qt::ActiveWindowFocusReason, false},
                                         {Qt::PopupFocusReason, false},
                                         {Qt::MenuBarFocusReason, false}}) {
        for (QWidget* control : {static_cast<QWidget*>(list), static_cast<QWidget*>(field)}) {
            control->setFocus(Qt::ActiveWindowFocusReason);
            Asked();
            button->setFocus(reason);
            EXPECT_EQ(Asked(), !leaves ? "" : control == list ? "list" : "field") << reason;
        }
    }
}

TEST_F(LeaveGuardTest, WhatWasTypedCountsWhenTheGuardAsksAndTheFieldIsLeftOnce)
{
    auto* number = new QSpinBox(forms[0]);
    number->setKeyboardTracking(false);
    number->show();
    int value = -1;
    AskBeforeLeaving(number, [&] {
        value = number->value();
        return true;
    });
    const QSignalSpy finished(number, &QSpinBox::editingFinished);
    number->setFocus();
    number->selectAll();
    QTest::keyClick(number, Qt::Key_7);
    button->setFocus();
    EXPECT_EQ(value, 7);
    EXPECT_EQ(finished.count(), 1);
}

TEST_F(LeaveGuardTest, WhoGoesToAnotherFormOfTheWindowIsNotAsked)
{
    elsewhere->setFocus();
    EXPECT_EQ(Asked(), "");
    EXPECT_TRUE(elsewhere->hasFocus());
}

TEST_F(LeaveGuardTest, TheControlThatHadTheFocusMeanwhileHasNotBeenLeft)
{
    mayLeave = false;
    field->setFocus();
    EXPECT_EQ(Asked(), "list");
    EXPECT_TRUE(list->hasFocus());
}

TEST_F(LeaveGuardTest, ARefusalHoldsAgainstWhatStillMovesTheFocus)
{
    mayLeave = false;
    button->setFocus();
    EXPECT_TRUE(list->KeepsFocus());
    button->setFocus(Qt::ActiveWindowFocusReason);
    Settle();
    EXPECT_TRUE(list->hasFocus());
    EXPECT_FALSE(list->KeepsFocus());
    EXPECT_EQ(Asked(), "list");
}

TEST_F(LeaveGuardTest, AControlThatIsHiddenMeanwhileKeepsNothing)
{
    list->SetValidate([this] {
        list->hide();
        return false;
    });
    button->setFocus();
    EXPECT_FALSE(list->KeepsFocus());
    list->SetValidate([] { return false; });
    list->show();
    list->setFocus();
    button->setFocus();
    ASSERT_TRUE(list->KeepsFocus());
    list->hide();
    button->setFocus();
    Settle();
    EXPECT_TRUE(button->hasFocus());
}

/// Counts the clicks that reach a widget.
class Clicks : public QObject
{
public:
    explicit Clicks(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove: ++count; break;
        default: break;
        }
        return false;
    }
};

TEST_F(LeaveGuardTest, NoPartOfTheClickThatWasRefusedHitsAnything)
{
    const auto* clicks = new Clicks(button);
    button->setMouseTracking(true);
    const auto send = [this](QEvent::Type type) {
        QMouseEvent event(type, QPointF(3, 3), button->mapToGlobal(QPointF(3, 3)), Qt::LeftButton,
                          Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(button, &event);
    };
    mayLeave = false;
    for (const auto type :
         {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
        button->setFocus();
        ASSERT_TRUE(list->KeepsFocus());
        send(type);
        EXPECT_EQ(clicks->count, 0) << type;
        Settle();
    }
    button->setFocus();
    send(QEvent::MouseMove);
    EXPECT_EQ(clicks->count, 1);
    Settle();
    send(QEvent::MouseButtonRelease);
    EXPECT_EQ(clicks->count, 2) << "the next one does";
}

} // namespace
} // namespace tally::test
