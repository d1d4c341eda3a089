#include "core/ui/controls/DataCombo.h"
#include "core/ui/FormKeys.h"
#include "support/EventCounter.h"
#include "support/ScreenFixture.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPushButton>
#include <QVBoxLayout>

#include <string>

namespace tally::test {
namespace {

/// A form with a list between two buttons, and one that gives up.
class SettledChoice : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        auto* rows = new QVBoxLayout(form);
        for (QWidget* widget : std::initializer_list<QWidget*>{before, list, button, cancel})
            rows->addWidget(widget);
        list->SetListBehindBlank({{1, QStringLiteral("One")}, {2, QStringLiteral("Two")}});
        list->SetGivingUp({cancel});
        QObject::connect(list, &DataCombo::Settled, list, [this](bool goesOn) {
            told += list->currentText().toStdString() + (goesOn ? " goes on;" : " is left;");
        });
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        list->setFocus();
    }

    void Press(Qt::Key key) const { QTest::keyClick(list, key); }

    /// The fixture deletes all windows that a test leaves.
    QWidget* form = new QWidget;
    QPushButton* before = new QPushButton(form);
    DataCombo* list = new DataCombo(form);
    QPushButton* button = new QPushButton(form);
    QPushButton* cancel = new QPushButton(form);
    std::string told;
};

TEST_F(SettledChoice, TheArrowsSettleNothingAndTabSettlesWhereTheyLedTo)
{
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    EXPECT_EQ(told, "");
    Press(Qt::Key_Tab);
    EXPECT_EQ(told, "Two goes on;");
}

TEST_F(SettledChoice, AChoiceIsSettledOnce)
{
    Press(Qt::Key_Down);
    Press(Qt::Key_Tab);
    list->setFocus();
    Press(Qt::Key_Tab);
    EXPECT_EQ(told, "One goes on;");
}

TEST_F(SettledChoice, WhoGoesElsewhereByMouseOrBackwardsIsNotLedOn)
{
    Press(Qt::Key_Down);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(told, "One is left;");
    list->setFocus();
    Press(Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(told, "One is left;Two is left;");
}

TEST_F(SettledChoice, WhoGivesUpSettlesNothingUntilTheScreenAsksForIt)
{
    Press(Qt::Key_Down);
    cancel->setFocus();
    EXPECT_EQ(told, "");
    list->Settle();
    list->Settle();
    EXPECT_EQ(told, "One is left;");
}

TEST_F(SettledChoice, AnOpenedListSettlesWhenItClosesOverAnotherEntry)
{
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_Down);
    EXPECT_EQ(told, "");
    QTest::keyClick(list->view(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(told, "One goes on;");
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(told, "One goes on;") << "the same entry is no other choice";
}

TEST_F(SettledChoice, EnterSettlesAtAnyTimeInAListThatTakesIt)
{
    const EventCounter keys(form, QEvent::KeyPress);
    Press(Qt::Key_Return);
    EXPECT_EQ(told, "") << "it does not take it yet";
    EXPECT_EQ(keys.Count(), 1);
    list->setProperty(TakesEnter, true);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    Press(Qt::Key_Enter);
    EXPECT_EQ(keys.Count(), 1) << "it ends there";
    EXPECT_EQ(told, "One goes on;One goes on;");
    Press(Qt::Key_Tab);
    EXPECT_EQ(told, "One goes on;One goes on;");
}

TEST_F(SettledChoice, BehindARefusalTheArrowsGoOnFromTheRefusedEntryAsLongAsTheListKeepsTheFocus)
{
    const auto refuse = [this](int code = 1) {
        list->setFocus();
        list->SetBoundCode(code);
        list->TakeBack();
        EXPECT_EQ(list->BoundCode(), 0);
    };
    const auto leadsTo = [this](Qt::Key key) {
        QTest::keyClick(list, key);
        return list->BoundCode();
    };
    refuse();
    EXPECT_EQ(leadsTo(Qt::Key_Down), 2);
    refuse(2);
    EXPECT_EQ(leadsTo(Qt::Key_Up), 1);
    refuse();
    EXPECT_EQ(leadsTo(Qt::Key_F8), 0);
    refuse();
    EXPECT_EQ(leadsTo(Qt::Key_O), 1) << "the refused entry may be typed again";
    refuse();
    EXPECT_EQ(leadsTo(Qt::Key_Home), 0);
    EXPECT_EQ(leadsTo(Qt::Key_Down), 1) << "another key was pressed";

    for (const auto& [reason, next] : {std::pair(Qt::ActiveWindowFocusReason, 2),
                                       {Qt::PopupFocusReason, 2},
                                       {Qt::TabFocusReason, 1},
                                       {Qt::MouseFocusReason, 1}}) {
        refuse();
        button->setFocus(reason);
        list->setFocus();
        EXPECT_EQ(leadsTo(Qt::Key_Down), next) << reason;
    }
    button->setFocus();
    list->SetBoundCode(1);
    list->TakeBack();
    list->setFocus();
    EXPECT_EQ(leadsTo(Qt::Key_Down), 1) << "the list had been left";

    list->SetBoundCode(2);
    list->TakeBack();
    EXPECT_EQ(leadsTo(Qt::Key_Down), 0) << "there is no other behind the last one";
}

TEST_F(SettledChoice, WhatTheScreenChoosesBehindARefusalIsWhereTheArrowsGoOn)
{
    list->SetBoundCode(2);
    list->TakeBack();
    list->SetBoundCode(1);
    Press(Qt::Key_Down);
    EXPECT_EQ(list->BoundCode(), 2);
}

TEST_F(SettledChoice, TheFirstEntryOfAListWithoutABlankLineIsTakenBackToo)
{
    for (const DataCombo::Entries& entries :
         {DataCombo::Entries{{1, QStringLiteral("One")}, {2, QStringLiteral("Two")}},
          DataCombo::Entries{{1, QStringLiteral("One")}}}) {
        list->SetList(entries);
        EXPECT_EQ(list->currentIndex(), -1);
        list->SetBoundCode(1);
        EXPECT_EQ(list->currentIndex(), 0);
        list->TakeBack();
        EXPECT_EQ(list->currentIndex(), -1);
        Press(Qt::Key_Down);
        EXPECT_EQ(list->BoundCode(), entries.size() > 1 ? 2 : 0) << "there is no other behind the last one";
    }
}

TEST_F(SettledChoice, WhatIsNotInTheListIsTheBlankLine)
{
    list->SetBoundCode(2);
    list->SetBoundCode(7);
    EXPECT_EQ(list->currentIndex(), 0);
    list->SetText(QStringLiteral("two"));
    EXPECT_EQ(list->BoundCode(), 2);
    list->SetText(QStringLiteral("Three"));
    EXPECT_EQ(list->currentIndex(), 0);
    list->SetList({{2, QStringLiteral("Two")}, {0, QStringLiteral(" ")}});
    EXPECT_EQ(list->currentIndex(), 1) << "wherever it stands";
    list->SetText(QStringLiteral("TWO"));
    EXPECT_EQ(list->currentIndex(), 0);
    list->SetBoundCode(2);
    EXPECT_EQ(list->currentIndex(), 0);
}

TEST_F(SettledChoice, WhoOnlyLooksAwaySettlesNothing)
{
    Press(Qt::Key_Down);
    for (const auto reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        button->setFocus(reason);
        EXPECT_EQ(told, "") << reason;
        list->setFocus(reason);
    }
    Press(Qt::Key_Tab);
    EXPECT_EQ(told, "One goes on;");
}

TEST_F(SettledChoice, AListThatWasOpenedOnceDoesNotSettleByClosingWhatIsClosed)
{
    list->showPopup();
    list->hidePopup();
    EXPECT_FALSE(list->view()->isVisible());
    Settle();
    Press(Qt::Key_Down);
    list->hidePopup();
    Settle();
    EXPECT_EQ(told, "");
}

TEST_F(SettledChoice, WhatTheScreenChoosesIsSettled)
{
    Press(Qt::Key_Down);
    list->SetBoundCode(2);
    Press(Qt::Key_Tab);
    EXPECT_EQ(told, "");
    list->setFocus();
    Press(Qt::Key_Up);
    list->TakeBack();
    Press(Qt::Key_Tab);
    EXPECT_EQ(told, "");
}

} // namespace
} // namespace tally::test
