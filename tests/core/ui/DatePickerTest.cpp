#include "core/ui/controls/DatePicker.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>
#include <ostream>

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
                    TypedDate{"05", QDate(2026, 3, 5)}, TypedDate{"05jul", QDate(2026, 7, 5)},
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

TEST_F(DatePickerTest, AltDownOpensTheCalendarAndMovesNothing)
{
    date->setFocus();
    QTest::keyClick(date, Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(date->calendarWidget()->isVisible());
    EXPECT_EQ(date->date(), QDate(2026, 3, 16));
    date->calendarWidget()->window()->close();
}

} // namespace
} // namespace tally::test
