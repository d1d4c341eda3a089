#include "core/ui/controls/DateFilter.h"

#include "core/ui/controls/DateLabel.h"
#include "core/ui/controls/DatePicker.h"
#include "support/ScreenFixture.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QSignalSpy>
#include <QStyleOptionComboBox>
#include <QVBoxLayout>

namespace tally::test {
namespace {

const QDate Start(2024, 6, 10);
const QString MayClear = QStringLiteral("Do You Want To Clear This Date ?");

/// A form with two dates between which a search may lie.
class DateFilterTest : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        auto* rows = new QVBoxLayout(form);
        for (QWidget* widget : std::initializer_list<QWidget*>{fromPicker, fromLabel, toPicker, toLabel})
            rows->addWidget(widget);
        range.from->Reset(Start);
        range.to->Reset(Start);
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    }

    /// Types two digits over the day and goes on.
    static void TypeDay(DatePicker* picker, const char* day)
    {
        picker->setFocus();
        picker->setSelectedSection(QDateTimeEdit::DaySection);
        QTest::keyClicks(picker, QString::fromLatin1(day));
        QTest::keyClick(picker, Qt::Key_Tab);
    }
    /// Opens the calendar with the mouse.
    static void OpenCalendar(DatePicker* picker)
    {
        QTest::mouseClick(picker, Qt::LeftButton, Qt::NoModifier,
                          QPoint(picker->width() - 8, picker->height() / 2));
        ASSERT_TRUE(picker->calendarWidget()->isVisible());
    }
    static void CloseCalendar(DatePicker* picker)
    {
        picker->calendarWidget()->window()->close();
        Settle();
    }
    static QColor GroundOf(QWidget* label)
    {
        return label->grab().toImage().pixelColor(label->width() / 2, 3);
    }

    /// The fixture deletes all windows that a test leaves.
    QWidget* form = new QWidget;
    DatePicker* fromPicker = new DatePicker(form);
    DateLabel* fromLabel = new DateLabel(form);
    DatePicker* toPicker = new DatePicker(form);
    DateLabel* toLabel = new DateLabel(form);
    DateRange range{new DateFilter(fromPicker, fromLabel), new DateFilter(toPicker, toLabel),
                    QStringLiteral("Too early"), QStringLiteral("No start"), QStringLiteral("No end")};
};

TEST_F(DateFilterTest, TakesNoPartUntilADateIsChosen)
{
    EXPECT_EQ(fromPicker->date(), Start);
    EXPECT_EQ(fromLabel->text().toStdString(), "");
    EXPECT_FALSE(range.from->Date().isValid());
    fromPicker->setFocus();
    QTest::keyClick(fromPicker, Qt::Key_Tab);
    EXPECT_FALSE(range.from->Date().isValid()) << "who passes by chooses nothing";
    EXPECT_TRUE(fromLabel->hasFocus()) << "the keyboard reaches what is to be cleared";
    range.from->Reset({});
    EXPECT_EQ(fromPicker->date(), QDate::currentDate());
}

TEST_F(DateFilterTest, ATypedDateCountsOnceItIsComplete)
{
    fromPicker->setFocus();
    fromPicker->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClicks(fromPicker, QStringLiteral("0"));
    EXPECT_EQ(fromLabel->text().toStdString(), "");
    QTest::keyClicks(fromPicker, QStringLiteral("3"));
    EXPECT_EQ(fromLabel->text().toStdString(), "") << "the month may still follow";
    QTest::keyClick(fromPicker, Qt::Key_Tab);
    EXPECT_EQ(fromLabel->text().toStdString(), "03/Jun/2024");
    EXPECT_EQ(fromLabel->accessibleName().toStdString(), "Date chosen: 03/Jun/2024");
    EXPECT_EQ(range.from->Date(), QDate(2024, 6, 3));
}

TEST_F(DateFilterTest, TheDateThatStandsThereCanBeChosenByTypingItAgain)
{
    TypeDay(fromPicker, "10");
    EXPECT_EQ(range.from->Date(), Start);
}

TEST_F(DateFilterTest, WhatWasTypedBeforeTheDatesBeganAnewIsForgotten)
{
    fromPicker->setFocus();
    fromPicker->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClicks(fromPicker, QStringLiteral("03"));
    range.from->Reset(Start);
    QTest::keyClick(fromPicker, Qt::Key_Tab);
    EXPECT_FALSE(range.from->Date().isValid());
}

TEST_F(DateFilterTest, AChoiceIsToldOnce)
{
    const QSignalSpy chosen(range.from, &DateFilter::Chosen);
    TypeDay(fromPicker, "03");
    EXPECT_EQ(chosen.count(), 1);
    TypeDay(fromPicker, "03");
    EXPECT_EQ(chosen.count(), 2) << "the same once more";
}

TEST_F(DateFilterTest, TheArrowKeysChooseADateToo)
{
    fromPicker->setFocus();
    fromPicker->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClick(fromPicker, Qt::Key_Up);
    EXPECT_EQ(range.from->Date(), Start.addDays(1));
}

TEST_F(DateFilterTest, ClosingTheCalendarFillsTheLabelWhichIsPaleYellowMeanwhile)
{
    const QColor before = GroundOf(fromLabel);
    OpenCalendar(fromPicker);
    EXPECT_EQ(GroundOf(fromLabel), QColor(255, 255, 174));
    EXPECT_EQ(GroundOf(toLabel), before);
    EXPECT_EQ(fromLabel->text().toStdString(), "");
    CloseCalendar(fromPicker);
    EXPECT_EQ(GroundOf(fromLabel), before);
    EXPECT_EQ(range.from->Date(), Start);
    EXPECT_FALSE(range.to->Date().isValid());
}

TEST_F(DateFilterTest, ADayOfTheCalendarIsTaken)
{
    OpenCalendar(fromPicker);
    fromPicker->calendarWidget()->setSelectedDate(QDate(2024, 6, 20));
    EXPECT_EQ(fromLabel->text().toStdString(), "") << "it is still open";
    Q_EMIT fromPicker->calendarWidget()->activated(QDate(2024, 6, 20));
    Settle();
    EXPECT_FALSE(fromPicker->calendarWidget()->isVisible());
    EXPECT_EQ(fromLabel->text().toStdString(), "20/Jun/2024");
}

TEST_F(DateFilterTest, AFilledLabelAsksBeforeItLetsItsDateGo)
{
    EXPECT_EQ(DateLabel().accessibleName().toStdString(), "No date chosen");
    EXPECT_EQ(fromLabel->toolTip().toStdString(), "The date chosen. Click to clear it.");
    const QSignalSpy cleared(fromLabel, &DateLabel::Cleared);
    QTest::mouseClick(fromLabel, Qt::LeftButton);
    TypeDay(fromPicker, "03");
    prompts.ExpectQuestion(MayClear, false);
    QTest::mouseClick(fromLabel, Qt::LeftButton);
    EXPECT_EQ(fromLabel->text().toStdString(), "03/Jun/2024");
    prompts.ExpectQuestion(MayClear, true);
    fromLabel->setFocus();
    QTest::keyClick(fromLabel, Qt::Key_Space);
    EXPECT_EQ(fromLabel->text().toStdString(), "");
    EXPECT_FALSE(range.from->Date().isValid());
    EXPECT_EQ(fromLabel->accessibleName().toStdString(), "No date chosen");
    EXPECT_EQ(cleared.count(), 1);
    fromPicker->setFocus();
    QTest::keyClick(fromPicker, Qt::Key_Tab);
    EXPECT_FALSE(range.from->Date().isValid()) << "who passes by still chooses nothing";
    TypeDay(fromPicker, "03");
    EXPECT_EQ(range.from->Date(), QDate(2024, 6, 3)) << "the date just cleared can be chosen again";
}

TEST_F(DateFilterTest, AnEndBeforeItsStartIsRefusedAndCleared)
{
    TypeDay(fromPicker, "10");
    TypeDay(toPicker, "10");
    EXPECT_FALSE(RefuseOrder(range)) << "one day is a range";
    TypeDay(toPicker, "09");
    prompts.ExpectInformation(QStringLiteral("Too early"));
    EXPECT_TRUE(RefuseOrder(range));
    EXPECT_EQ(toLabel->text().toStdString(), "");
    EXPECT_EQ(range.from->Date(), Start);
    EXPECT_TRUE(toPicker->hasFocus());
    EXPECT_FALSE(RefuseOrder(range));
    range.from->Clear();
    EXPECT_FALSE(RefuseOrder(range)) << "neither is given";
    TypeDay(toPicker, "09");
    EXPECT_FALSE(RefuseOrder(range)) << "the start is not given";
}

TEST_F(DateFilterTest, HalfARangeIsRefused)
{
    EXPECT_FALSE(RefuseHalf(range));
    TypeDay(fromPicker, "03");
    prompts.ExpectInformation(QStringLiteral("No end"));
    EXPECT_TRUE(RefuseHalf(range));
    EXPECT_TRUE(toPicker->hasFocus());
    TypeDay(toPicker, "04");
    EXPECT_FALSE(RefuseHalf(range));
    range.from->Clear();
    prompts.ExpectInformation(QStringLiteral("No start"));
    EXPECT_TRUE(RefuseHalf(range));
    EXPECT_TRUE(fromPicker->hasFocus());
}

} // namespace
} // namespace tally::test
