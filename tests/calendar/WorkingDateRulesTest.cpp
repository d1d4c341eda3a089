#include "calendar/WorkingDateRules.h"

#include <gtest/gtest.h>
#include <ostream>

namespace tally {
namespace {

const QDate YearStart(2024, 6, 1);
const QDate YearEnd(2025, 5, 31);

struct NextDayCase
{
    QDate day;
    QDate workingDate;
    NextDay expected;

    friend void PrintTo(const NextDayCase& row, std::ostream* out)
    {
        *out << row.day.toString(Qt::ISODate).toStdString() << " on "
             << row.workingDate.toString(Qt::ISODate).toStdString();
    }
};

class TheNextDay : public testing::TestWithParam<NextDayCase>
{};

TEST_P(TheNextDay, StaysNearTheWorkingDateAndWithinTheYear)
{
    EXPECT_EQ(CheckNextDay(GetParam().day, GetParam().workingDate, YearEnd), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Boundaries, TheNextDay,
    testing::Values(NextDayCase{QDate(2024, 6, 11), QDate(2024, 6, 10), NextDay::Allowed},
                    NextDayCase{QDate(2024, 7, 11), QDate(2024, 6, 10), NextDay::Allowed},
                    NextDayCase{QDate(2024, 7, 12), QDate(2024, 6, 10), NextDay::TooFarAhead},
                    NextDayCase{QDate(2024, 6, 2), QDate(2024, 9, 10), NextDay::Allowed},
                    NextDayCase{QDate(2025, 5, 31), QDate(2025, 5, 30), NextDay::Allowed},
                    NextDayCase{QDate(2025, 6, 1), QDate(2025, 5, 31), NextDay::BeyondYear},
                    NextDayCase{QDate(2025, 6, 1), QDate(2025, 4, 1), NextDay::TooFarAhead},
                    NextDayCase{QDate(2024, 6, 1), QDate(), NextDay::Allowed},
                    NextDayCase{QDate(), QDate(), NextDay::BeyondYear}));

TEST(WorkingDateRules, WithoutAYearNoDayFits)
{
    EXPECT_EQ(CheckNextDay(QDate(2024, 6, 1), QDate(), QDate()), NextDay::BeyondYear);
}

TEST(WorkingDateRules, TheCalendarStepsBackOnlyToTheYearsFirstDay)
{
    EXPECT_TRUE(MayStepBack(QDate(2024, 6, 2), YearStart));
    EXPECT_FALSE(MayStepBack(QDate(2024, 6, 1), YearStart));
    EXPECT_FALSE(MayStepBack(QDate(), YearStart));
    EXPECT_FALSE(MayStepBack(QDate(), QDate())) << "no year";
}

struct RangeCase
{
    QDate last;
    int days;
    QDate from;

    friend void PrintTo(const RangeCase& row, std::ostream* out)
    {
        *out << row.days << " days back from " << row.last.toString(Qt::ISODate).toStdString();
    }
};

class TheRangeShown : public testing::TestWithParam<RangeCase>
{};

TEST_P(TheRangeShown, GoesBackByTheDaysButNotBeforeTheYear)
{
    const WorkableRange range = RangeFor(GetParam().last, GetParam().days, YearStart);
    EXPECT_EQ(range.to, GetParam().last);
    EXPECT_EQ(range.from, GetParam().from);
}

INSTANTIATE_TEST_SUITE_P(Days, TheRangeShown,
                         testing::Values(RangeCase{QDate(2024, 6, 10), 0, QDate(2024, 6, 10)},
                                         RangeCase{QDate(2024, 6, 10), 1, QDate(2024, 6, 9)},
                                         RangeCase{QDate(2024, 6, 10), 9, QDate(2024, 6, 1)},
                                         RangeCase{QDate(2024, 6, 4), 5, QDate(2024, 6, 1)},
                                         RangeCase{QDate(2025, 3, 2), 5, QDate(2025, 2, 25)},
                                         RangeCase{QDate(2024, 6, 10), 365, QDate(2024, 6, 1)},
                                         RangeCase{QDate(2024, 5, 31), 0, QDate(2024, 5, 31)},
                                         RangeCase{QDate(), 5, QDate()}));

struct LimitCase
{
    QDate day;
    int days;
    bool within;

    friend void PrintTo(const LimitCase& row, std::ostream* out)
    {
        *out << row.day.toString(Qt::ISODate).toStdString() << " within " << row.days << " days";
    }
};

class TheLimit : public testing::TestWithParam<LimitCase>
{};

TEST_P(TheLimit, CountsBackFromTheLastDay)
{
    EXPECT_EQ(IsWithinLimit(GetParam().day, QDate(2024, 6, 10), GetParam().days), GetParam().within);
}

INSTANTIATE_TEST_SUITE_P(
    Boundaries, TheLimit,
    testing::Values(LimitCase{QDate(2024, 6, 10), 0, false}, LimitCase{QDate(2024, 6, 10), 1, true},
                    LimitCase{QDate(2024, 6, 11), 1, false}, LimitCase{QDate(2024, 6, 9), 1, true},
                    LimitCase{QDate(2024, 6, 8), 1, false}, LimitCase{QDate(2024, 5, 28), 13, true}));

TEST(WorkingDateRules, WithoutAWorkingDayNoDayIsWithinTheLimit)
{
    EXPECT_FALSE(IsWithinLimit(QDate(2024, 6, 10), QDate(), 5));
    EXPECT_FALSE(IsWithinLimit(QDate(), QDate(), 5));
}

} // namespace
} // namespace tally
