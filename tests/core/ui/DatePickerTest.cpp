#include "core/ui/controls/DatePicker.h"

#include "core/ui/controls/FieldHint.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>
#include <ostream>
#include <utility>

namespace tally::test {
namespace {

/// A date between two other fields, on the 16th of March 2026.
class DatePickerTest : public testing::Test
{
protected:
    DatePickerTest()
    {
        auto* rows = new QVBoxLayout(&form);
        for (QWidget* field : std::initializer_list<QWidget*>{before, date, behind})
            rows->addWidget(field);
        date->setDate(QDate(2026, 3, 16));
        form.show();
        QApplication::setActiveWindow(&form);
    }

    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&form)); }

    /// Comes to the date with Tab, types, and goes on.
    void Type(const char* text)
    {
        before->setFocus();
        Press(Qt::Key_Tab);
        ASSERT_TRUE(date->hasFocus());
        QTest::keyClicks(date, QString::fromLatin1(text));
        EXPECT_TRUE(date->hasFocus()) << text << " leads out of the field";
        Press(Qt::Key_Tab);
    }
    void Press(Qt::Key key) { QTest::keyClick(form.focusWidget(), key); }

    QWidget form;
    QLineEdit* before = new QLineEdit;
    DatePicker* date = new DatePicker;
    QLineEdit* behind = new QLineEdit;
};

struct TypedDate
{
    const char* text;
    QDate date;
};

void PrintTo(const TypedDate& typed, std::ostream* out)
{
    *out << typed.text;
}

class TypedDates : public DatePickerTest, public testing::WithParamInterface<TypedDate>
{};

TEST_P(TypedDates, CountAsAClerkWritesThem)
{
    Type(GetParam().text);
    EXPECT_EQ(date->date(), GetParam().date);
    EXPECT_TRUE(behind->hasFocus());
    EXPECT_EQ(behind->text().toStdString(), "") << "nothing is typed into the next field";
}

INSTANTIATE_TEST_SUITE_P(
    Each, TypedDates,
    testing::Values(TypedDate{"08Feb2026", QDate(2026, 2, 8)}, TypedDate{"08/Feb/2026", QDate(2026, 2, 8)},
                    TypedDate{"08/02/2026", QDate(2026, 2, 8)}, TypedDate{"08-02-2026", QDate(2026, 2, 8)},
                    TypedDate{"08.02.2026", QDate(2026, 2, 8)}, TypedDate{"08 02 2026", QDate(2026, 2, 8)},
                    TypedDate{"8/2/2026", QDate(2026, 2, 8)}, TypedDate{"8/1/2026", QDate(2026, 1, 8)},
                    TypedDate{"08022026", QDate(2026, 2, 8)}, TypedDate{"31122025", QDate(2025, 12, 31)},
                    TypedDate{"01102025", QDate(2025, 10, 1)}, TypedDate{"01112025", QDate(2025, 11, 1)},
                    TypedDate{"01012025", QDate(2025, 1, 1)}, TypedDate{"0171999", QDate(1999, 7, 1)},
                    TypedDate{"29022024", QDate(2024, 2, 29)}, TypedDate{"29/Feb/2016", QDate(2016, 2, 29)},
                    TypedDate{"31042026", QDate(2026, 4, 30)}, TypedDate{"31/May/2026", QDate(2026, 5, 31)},
                    TypedDate{"05", QDate(2026, 3, 5)}, TypedDate{"08/0/2025", QDate(2025, 3, 8)},
                    TypedDate{"05jul", QDate(2026, 7, 5)}, TypedDate{"1/2/2026", QDate(2026, 2, 1)},
                    TypedDate{"3-11-2025", QDate(2025, 11, 3)}, TypedDate{"0113999", QDate(3999, 1, 1)},
                    TypedDate{"0507", QDate(2026, 7, 5)}));

TEST_F(DatePickerTest, ADateTypedBehindARefusedOneCounts)
{
    Type("01Jun2027");
    date->setFocus(Qt::OtherFocusReason);
    QTest::keyClicks(date, QStringLiteral("05Jan2026"));
    Press(Qt::Key_Tab);
    EXPECT_EQ(date->date(), QDate(2026, 1, 5));
}

TEST_F(DatePickerTest, ASecondDigitBelongsToTheMonthOnlyWhileNothingElseWasPressed)
{
    before->setFocus();
    Press(Qt::Key_Tab);
    QTest::keyClicks(date, QStringLiteral("081"));
    Press(Qt::Key_Up);
    EXPECT_EQ(date->date().month(), 2);
    QTest::keyClicks(date, QStringLiteral("2"));
    EXPECT_EQ(date->date().month(), 2);
}

TEST_F(DatePickerTest, WhatWasTypedIsForgottenWithTheNextArrowAndWithTheField)
{
    before->setFocus();
    Press(Qt::Key_Tab);
    QTest::keyClicks(date, QStringLiteral("31"));
    Press(Qt::Key_Up);
    EXPECT_EQ(date->date(), QDate(2026, 4, 30));
    QTest::keyClicks(date, QStringLiteral("may"));
    Press(Qt::Key_Tab);
    EXPECT_EQ(date->date(), QDate(2026, 5, 30));

    date->setDate(QDate(2026, 3, 16));
    Type("31");
    date->setDate(QDate(2026, 3, 5));
    date->setFocus();
    date->setSelectedSection(QDateTimeEdit::MonthSection);
    QTest::keyClicks(date, QStringLiteral("may"));
    Press(Qt::Key_Tab);
    EXPECT_EQ(date->date(), QDate(2026, 5, 5));

    Type("081");
    date->setFocus();
    date->setSelectedSection(QDateTimeEdit::MonthSection);
    QTest::keyClicks(date, QStringLiteral("2"));
    Press(Qt::Key_Tab);
    EXPECT_EQ(date->date(), QDate(2026, 2, 8));
}

TEST_F(DatePickerTest, ALetterOfAMonthEndsItsDigits)
{
    Type("081f2");
    EXPECT_EQ(date->date().month(), 2);
}

TEST_F(DatePickerTest, AMonthThatIsWholeLeadsToTheYear)
{
    before->setFocus();
    Press(Qt::Key_Tab);
    QTest::keyClicks(date, QStringLiteral("085"));
    EXPECT_EQ(date->currentSection(), QDateTimeEdit::YearSection);
}

TEST_F(DatePickerTest, AMonthIsTypedOverWhereverTheCaretStandsInIt)
{
    date->setFocus();
    date->findChild<QLineEdit*>()->setCursorPosition(4);
    QTest::keyClicks(date, QStringLiteral("5"));
    Press(Qt::Key_Tab);
    EXPECT_EQ(date->date(), QDate(2026, 5, 16));
}

TEST_F(DatePickerTest, ATypedDateIsTheSameWhateverMonthTheFieldShowed)
{
    for (int month = 1; month <= 12; ++month)
        for (const auto& [text, typed] : {std::pair("31/05/2026", QDate(2026, 5, 31)),
                                          {"31052026", QDate(2026, 5, 31)},
                                          {"30042026", QDate(2026, 4, 30)},
                                          {"29022024", QDate(2024, 2, 29)},
                                          {"3/1/2025", QDate(2025, 1, 3)},
                                          {"352025", QDate(2025, 5, 3)},
                                          {"0222025", QDate(2025, 2, 2)},
                                          {"29-Jan-2025", QDate(2025, 1, 29)}}) {
            date->setDate(QDate(2026, month, 10));
            Type(text);
            EXPECT_EQ(date->date(), typed) << text << " in month " << month;
        }
}

TEST_F(DatePickerTest, WhoComesBackTypesItAnew)
{
    Type("10/02/2026");
    Type("31/01/2026");
    EXPECT_EQ(date->date(), QDate(2026, 1, 31));
    QTest::keyClick(behind, Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClicks(date, QStringLiteral("05/06/2027"));
    Press(Qt::Key_Tab);
    EXPECT_EQ(date->date(), QDate(2027, 6, 5));
}

TEST_F(DatePickerTest, ADateThatCountsWhenItIsCompleteIsToldOnce)
{
    date->setKeyboardTracking(false);
    QList<QDate> told;
    QObject::connect(date, &QDateEdit::dateChanged, &form, [&told](QDate changed) { told.append(changed); });
    for (const auto& [text, typed] : {std::pair("31/12/2026", QDate(2026, 12, 31)),
                                      {"30Sep2026", QDate(2026, 9, 30)},
                                      {"3", QDate(2026, 2, 3)},
                                      {"3/1", QDate(2026, 1, 3)},
                                      {"31", QDate(2026, 2, 28)},
                                      {"05", QDate(2026, 2, 5)},
                                      {"29022024", QDate(2024, 2, 29)}}) {
        date->setDate(QDate(2026, 2, 10));
        told.clear();
        Type(text);
        EXPECT_EQ(told, QList<QDate>{typed}) << text;
    }
}

TEST_F(DatePickerTest, ADateThatItsFormSetsQuietlyIsNotToldByWhoLeaves)
{
    date->setDate(QDate(2026, 2, 10));
    {
        const QSignalBlocker quiet(date);
        date->setDate(QDate(2026, 2, 11));
    }
    bool told = false;
    QObject::connect(date, &QDateEdit::dateChanged, &form, [&told] { told = true; });
    Type("");
    EXPECT_FALSE(told);
}

TEST_F(DatePickerTest, ADayThatTheMonthLacksIsItsLastOne)
{
    date->setDate(QDate(2026, 2, 10));
    Type("31");
    EXPECT_EQ(date->date(), QDate(2026, 2, 28));
    Type("0");
    EXPECT_EQ(date->date(), QDate(2026, 2, 28)) << "no day begins with nothing behind it";
}

TEST_F(DatePickerTest, ASecondDigitBelongsToTheDayOnlyWhileNothingElseWasPressed)
{
    before->setFocus();
    Press(Qt::Key_Tab);
    QTest::keyClicks(date, QStringLiteral("2"));
    EXPECT_EQ(date->currentSection(), QDateTimeEdit::DaySection);
    Press(Qt::Key_Up);
    QTest::keyClicks(date, QStringLiteral("1"));
    EXPECT_EQ(date->date().day(), 1);
}

TEST_F(DatePickerTest, WhoComesBackwardsBeginsWithTheDayToo)
{
    behind->setFocus();
    QTest::keyClick(behind, Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_TRUE(date->hasFocus());
    EXPECT_EQ(date->currentSection(), QDateTimeEdit::DaySection);
}

TEST_F(DatePickerTest, WhoComesBackFromAnotherWindowGoesOnTypingWhereHeWas)
{
    before->setFocus();
    Press(Qt::Key_Tab);
    QTest::keyClicks(date, QStringLiteral("08"));
    QLineEdit other;
    other.show();
    QApplication::setActiveWindow(&other);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    ASSERT_FALSE(date->hasFocus());
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_EQ(date->currentSection(), QDateTimeEdit::MonthSection);
    QTest::keyClicks(date, QStringLiteral("02"));
    Press(Qt::Key_Tab);
    EXPECT_EQ(date->date(), QDate(2026, 2, 8));
}

TEST_F(DatePickerTest, ADateThatIsOnlyLookedAtGetsNoKeyboardByItsLine)
{
    DatePicker shown;
    shown.setFocusPolicy(Qt::NoFocus);
    shown.show();
    EXPECT_EQ(shown.findChild<QLineEdit*>()->focusPolicy(), Qt::NoFocus);
}

TEST_F(DatePickerTest, ItsMonthsAreEnglishOnEveryMachine)
{
    const QLocale machine;
    QLocale::setDefault(QLocale(QLocale::German));
    DatePicker other;
    QLocale::setDefault(machine);
    other.setDate(QDate(2026, 5, 16));
    EXPECT_EQ(other.text().toStdString(), "16/May/2026");
    EXPECT_EQ(other.calendarWidget()->locale(), QLocale::c());
    EXPECT_EQ(other.calendarWidget()->verticalHeaderFormat(), QCalendarWidget::NoVerticalHeader);
}

TEST_F(DatePickerTest, AClickOnTheYearLeadsToTheYear)
{
    before->setFocus();
    QWidget* line = date->findChild<QLineEdit*>();
    const int year = date->fontMetrics().horizontalAdvance(QStringLiteral("16/Mar/20"));
    QTest::mouseClick(line, Qt::LeftButton, {}, QPoint(year, line->height() / 2));
    EXPECT_EQ(date->currentSection(), QDateTimeEdit::YearSection);
    EXPECT_TRUE(date->hasFocus());
}

TEST_F(DatePickerTest, WhereOnlyTheArrowsMoveTheDateASignIsToldSo)
{
    const QString note = QStringLiteral("The Arrow Keys And The Calendar Move This Date");
    date->setFocus();
    Press(Qt::Key_7);
    EXPECT_EQ(FieldHintAt(date), QString()) << "digits are taken";
    date->setDate(QDate(2026, 3, 16));
    date->TakeArrowsOnly();
    date->setSelectedSection(QDateTimeEdit::DaySection);
    for (const auto key : {Qt::Key_Home, Qt::Key_Return, Qt::Key_F5}) {
        Press(key);
        EXPECT_EQ(FieldHintAt(date), QString()) << key;
    }
    Press(Qt::Key_Slash);
    EXPECT_TRUE(date->hasFocus());
    EXPECT_EQ(FieldHintAt(date), note);
    Press(Qt::Key_Up);
    EXPECT_EQ(FieldHintAt(date), QString());
    EXPECT_EQ(date->date(), QDate(2026, 3, 17)) << "the sign has moved nothing";
    Press(Qt::Key_7);
    EXPECT_EQ(FieldHintAt(date), note);
    EXPECT_EQ(date->date(), QDate(2026, 3, 17));
    Press(Qt::Key_Up);
    QTest::keyClick(date, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(FieldHintAt(date), QString()) << "the letter of a button";
    date->setReadOnly(true);
    Press(Qt::Key_Up);
    Press(Qt::Key_7);
    EXPECT_EQ(FieldHintAt(date), QString()) << "no key moves it";
}

TEST_F(DatePickerTest, AltDownOpensTheCalendarAndMovesNothing)
{
    date->setFocus();
    for (const auto key : {Qt::Key_Up, Qt::Key_Left}) {
        QTest::keyClick(date, key, Qt::AltModifier);
        EXPECT_FALSE(date->calendarWidget()->isVisible()) << key;
    }
    Press(Qt::Key_Down);
    EXPECT_FALSE(date->calendarWidget()->isVisible()) << "without Alt";
    date->setDate(QDate(2026, 3, 16));
    QTest::keyClick(date, Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(date->calendarWidget()->isVisible());
    EXPECT_EQ(date->date(), QDate(2026, 3, 16));
    date->calendarWidget()->window()->close();
}

} // namespace
} // namespace tally::test
