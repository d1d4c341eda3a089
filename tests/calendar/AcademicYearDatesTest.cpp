#include "calendar/AcademicYearDates.h"

#include <gtest/gtest.h>
#include <ostream>

namespace tally {
namespace {

struct YearCase
{
    const char* typed;
    int startMonth;
    int yearTo;
    const char* from;
    const char* to;

    friend void PrintTo(const YearCase& row, std::ostream* out)
    {
        *out << row.typed << " from month " << row.startMonth;
    }
};

class AYearFollowsFromItsText : public testing::TestWithParam<YearCase>
{};

TEST_P(AYearFollowsFromItsText, AndTheStartMonth)
{
    const YearCase& year = GetParam();
    const auto dates = DatesOfYear(QString::fromLatin1(year.typed), year.startMonth);
    ASSERT_TRUE(dates);
    EXPECT_EQ(dates->yearTo, year.yearTo);
    EXPECT_EQ(dates->fromDate.toString(Qt::ISODate).toStdString(), year.from);
    EXPECT_EQ(dates->toDate.toString(Qt::ISODate).toStdString(), year.to);
}

INSTANTIATE_TEST_SUITE_P(Months, AYearFollowsFromItsText,
                         testing::Values(YearCase{"2007", 1, 2007, "2007-01-01", "2007-12-31"},
                                         YearCase{"2007", 6, 2008, "2007-06-01", "2008-05-31"},
                                         YearCase{"2007", 12, 2008, "2007-12-01", "2008-11-30"},
                                         YearCase{"2007", 3, 2008, "2007-03-01", "2008-02-29"},
                                         YearCase{"2008", 3, 2009, "2008-03-01", "2009-02-28"},
                                         YearCase{"2099", 3, 2100, "2099-03-01", "2100-02-28"},
                                         YearCase{"1999", 3, 2000, "1999-03-01", "2000-02-29"},
                                         YearCase{"2008", 2, 2009, "2008-02-01", "2009-01-31"},
                                         YearCase{"1980", 1, 1980, "1980-01-01", "1980-12-31"},
                                         YearCase{"2099", 1, 2099, "2099-01-01", "2099-12-31"},
                                         YearCase{"2099", 6, 2100, "2099-06-01", "2100-05-31"}));

TEST(AcademicYearDates, ATextOutsideTheRecordsGivesNoYear)
{
    for (const char* typed : {"", "2", "200", "0000", "1979", "2100", "9999", "20x7", " "})
        EXPECT_FALSE(DatesOfYear(QString::fromLatin1(typed), 6)) << typed;
}

struct BoundaryCase
{
    int from;
    int to;
    bool within;

    friend void PrintTo(const BoundaryCase& row, std::ostream* out) { *out << row.from << " to " << row.to; }
};

class TheRecordsReach : public testing::TestWithParam<BoundaryCase>
{};

TEST_P(TheRecordsReach, From1980To2099)
{
    EXPECT_EQ(IsWithinRecords(GetParam().from, GetParam().to), GetParam().within);
}

INSTANTIATE_TEST_SUITE_P(Boundaries, TheRecordsReach,
                         testing::Values(BoundaryCase{1979, 1980, false}, BoundaryCase{1979, 1979, false},
                                         BoundaryCase{1980, 1980, true}, BoundaryCase{1980, 1981, true},
                                         BoundaryCase{2098, 2099, true}, BoundaryCase{2099, 2099, true},
                                         BoundaryCase{2099, 2100, false}, BoundaryCase{2100, 2100, false},
                                         BoundaryCase{0, 0, false}, BoundaryCase{2007, 0, false}));

TEST(AcademicYearDates, AnyYearMayBeTheFirst)
{
    EXPECT_EQ(PlaceOf(1980, std::nullopt), PlaceInSeries::Allowed);
    EXPECT_EQ(PlaceOf(2099, std::nullopt), PlaceInSeries::Allowed);
}

TEST(AcademicYearDates, TheSeriesGrowsUpwardByOne)
{
    const YearSeries series{2005, 2007};
    EXPECT_EQ(PlaceOf(2004, series), PlaceInSeries::BeforeFirst);
    EXPECT_EQ(PlaceOf(2005, series), PlaceInSeries::Allowed);
    EXPECT_EQ(PlaceOf(2008, series), PlaceInSeries::Allowed);
    EXPECT_EQ(PlaceOf(2009, series), PlaceInSeries::LeavesAGap);
}

} // namespace
} // namespace tally
