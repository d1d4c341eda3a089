#include "core/ui/controls/DatePicker.h"
#include "core/ui/controls/OptionalDatePicker.h"
#include "support/ScreenFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QSignalSpy>

namespace tally::test {
namespace {

const QDate Day(2020, 6, 10);

/// A date that may be left out; it shows the 10th of June and is not ticked.
class OptionalDate : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        optional->SetShownDate(Day);
        optional->show();
        QApplication::setActiveWindow(optional);
        ASSERT_TRUE(QTest::qWaitForWindowActive(optional));
    }

    /// The fixture deletes all windows that a test leaves.
    OptionalDatePicker* optional = new OptionalDatePicker;
    QCheckBox* tick = optional->findChild<QCheckBox*>();
    DatePicker* date = optional->findChild<DatePicker*>();
    QSignalSpy changes{optional, &OptionalDatePicker::Changed};
};

TEST_F(OptionalDate, IsEnteredByItsTickWhichOpensTheDate)
{
    EXPECT_FALSE(date->isEnabled());
    EXPECT_LT(tick->geometry().right(), date->x());
    EXPECT_EQ(date->geometry().right(), optional->rect().right());
    optional->setFocus();
    EXPECT_TRUE(tick->hasFocus());
    EXPECT_FALSE(optional->Date().isValid());
    QTest::keyClick(tick, Qt::Key_Space);
    EXPECT_TRUE(date->isEnabled());
    EXPECT_EQ(optional->Date(), Day);
    EXPECT_EQ(changes.count(), 1);
    QTest::keyClick(tick, Qt::Key_Space);
    EXPECT_FALSE(date->isEnabled());
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(OptionalDate, ATypedDateIsToldOnceWhenItIsComplete)
{
    optional->SetTicked(true);
    date->setFocus();
    date->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClicks(date, QStringLiteral("03"));
    EXPECT_EQ(changes.count(), 0);
    tick->setFocus();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(optional->Date(), Day.addDays(-7));
}

TEST_F(OptionalDate, WhatTheScreenSetsIsToldToNobody)
{
    optional->SetDate(Day.addDays(1));
    EXPECT_TRUE(optional->IsTicked());
    EXPECT_EQ(optional->Date(), Day.addDays(1));
    EXPECT_TRUE(date->isEnabled());
    optional->SetDate({});
    EXPECT_FALSE(optional->IsTicked());
    EXPECT_EQ(optional->ShownDate(), Day.addDays(1));
    EXPECT_FALSE(date->isEnabled());
    EXPECT_EQ(changes.count(), 0);
}

} // namespace
} // namespace tally::test
