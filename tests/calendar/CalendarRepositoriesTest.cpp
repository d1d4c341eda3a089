#include "calendar/AcademicYearRepository.h"
#include "calendar/ApplicationDateRepository.h"
#include "store/StoreError.h"
#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

class CalendarRepositories : public testing::Test
{
protected:
    void Add(int code, int yearFrom, bool active)
    {
        store::Transaction transaction(main);
        AcademicYearRepository::Insert(
            transaction, {code, yearFrom, yearFrom + 1, QDate(yearFrom, 6, 1), QDate(yearFrom + 1, 5, 31)},
            active, 3);
        transaction.Commit();
    }
    void AddDay(const QDate& day)
    {
        store::Transaction transaction(main);
        ApplicationDateRepository::Insert(transaction, day, 3);
        transaction.Commit();
    }

    template <typename Work>
    void Write(Work work)
    {
        store::Transaction transaction(main);
        work(transaction);
        transaction.Commit();
    }

    store::Connection main = DeliveredMainStore();
    AcademicYearRepository years{main};
    ApplicationDateRepository days{main};
};

TEST_F(CalendarRepositories, TheRowForNoYearIsNeitherCountedNorListed)
{
    ASSERT_EQ(main.Number(QStringLiteral("SELECT count(*) FROM AcademicYearSetup")), 1);
    main.Execute(QStringLiteral("UPDATE AcademicYearSetup SET Status = 'Y', YearFrom = 1999, YearTo = 2000"));
    EXPECT_EQ(years.Count(), 0);
    EXPECT_TRUE(years.List().rows.empty());
    EXPECT_FALSE(years.HasActive());
    EXPECT_FALSE(years.OtherIsActive(5));
    EXPECT_FALSE(years.YearFromExists(1999, 5));
    EXPECT_FALSE(years.Series());
    EXPECT_FALSE(years.HasLaterThan(0));
    EXPECT_FALSE(years.Find(1999, 2000));
}

TEST_F(CalendarRepositories, YearsAreListedInOrderWithTheirDatesInWords)
{
    Add(2, 2008, true);
    Add(1, 2007, false);
    const GridResult list = years.List();
    EXPECT_EQ(list.heads.join(QLatin1Char('|')).toStdString(),
              "AcademicYearCode|Academic Year From|Academic Year To|From Date|To Date|Status");
    ASSERT_EQ(list.rows.size(), 2U);
    EXPECT_EQ(list.rows[0].join(QLatin1Char('|')).toStdString(), "1|2007|2008|01/Jun/2007|31/May/2008|NO");
    EXPECT_EQ(list.rows[1].join(QLatin1Char('|')).toStdString(), "2|2008|2009|01/Jun/2008|31/May/2009|YES");
}

TEST_F(CalendarRepositories, AYearIsAskedForWithoutItself)
{
    Add(2, 2008, false);
    EXPECT_FALSE(years.HasActive());
    Add(1, 2007, true);
    EXPECT_TRUE(years.HasActive());
    EXPECT_FALSE(years.OtherIsActive(1));
    EXPECT_TRUE(years.OtherIsActive(2));
    EXPECT_FALSE(years.YearFromExists(2007, 1));
    EXPECT_TRUE(years.YearFromExists(2007, 2));
    EXPECT_TRUE(years.HasLaterThan(1));
    EXPECT_FALSE(years.HasLaterThan(2));
    EXPECT_EQ(years.Series()->first, 2007);
    EXPECT_EQ(years.Series()->last, 2008);
}

TEST_F(CalendarRepositories, AYearIsFoundByBothItsEndsAndOpenAtFirst)
{
    Add(1, 2007, true);
    const auto found = years.Find(2007, 2008);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->year.code, 1);
    EXPECT_EQ(found->year.toDate, QDate(2008, 5, 31));
    EXPECT_FALSE(found->processed);
    EXPECT_FALSE(years.Find(2007, 2007));
    EXPECT_FALSE(years.Find(2006, 2008));
    main.Execute(QStringLiteral("UPDATE AcademicYearSetup SET Processed = 'Y' WHERE AcademicYearCode = 1"));
    EXPECT_TRUE(years.Find(2007, 2008)->processed);
}

TEST_F(CalendarRepositories, TheStartMonthIsTheSchools)
{
    EXPECT_FALSE(years.StartMonth());
    main.Execute(QStringLiteral("INSERT INTO SchoolMaster VALUES ('School', '', '', 0, '', 'jun', 1)"));
    EXPECT_EQ(years.StartMonth(), 6);
}

TEST_F(CalendarRepositories, AYearIsActivatedAndDeletedAlone)
{
    Add(1, 2007, true);
    Add(2, 2008, false);
    Add(3, 2009, false);
    const AllRows before(main);
    const AllRows::Row second{{QStringLiteral("AcademicYearCode"), QStringLiteral("2")}};
    Write([](auto& transaction) { AcademicYearRepository::UpdateStatus(transaction, 2, true); });
    EXPECT_EQ(years.List().rows.at(1).last().toStdString(), "YES");
    before.ExpectTouchedOnly(main, "AcademicYearSetup", second);
    Write([](auto& transaction) { AcademicYearRepository::Delete(transaction, 2); });
    EXPECT_EQ(years.Count(), 2);
    before.ExpectTouchedOnly(main, "AcademicYearSetup", second);
}

TEST_F(CalendarRepositories, AChangeOfAYearThatHasGoneIsToldAndTouchesNothing)
{
    Add(1, 2007, false);
    const AllRows before(main);
    try {
        Write([](auto& transaction) { AcademicYearRepository::UpdateStatus(transaction, 2, true); });
        FAIL();
    } catch (const store::StoreError& error) {
        EXPECT_TRUE(error.IsConflict());
    }
    before.ExpectTouchedOnly(main, "AcademicYearSetup",
                             {{QStringLiteral("AcademicYearCode"), QStringLiteral("2")}});
}

TEST_F(CalendarRepositories, WorkingDaysAreCountedWithinTheirBounds)
{
    for (const int day : {1, 2, 30})
        AddDay(QDate(2024, 6, day));
    EXPECT_EQ(days.Count(QDate(2024, 6, 2), QDate(2024, 6, 30)), 2);
    EXPECT_EQ(days.Count(QDate(2024, 6, 1), QDate(2024, 6, 2)), 2);
    EXPECT_EQ(days.Last(QDate(2024, 6, 1), QDate(2024, 6, 29)), QDate(2024, 6, 2));
    EXPECT_FALSE(days.Last(QDate(2024, 7, 1), QDate(2024, 7, 31)).isValid());
    EXPECT_TRUE(days.IsWorkingDay(QDate(2024, 6, 30)));
    EXPECT_FALSE(days.IsWorkingDay(QDate(2024, 6, 3)));
}

TEST_F(CalendarRepositories, WorkingDaysAreDeletedOneByOneAndWithinTheirBounds)
{
    for (const int day : {1, 2, 3, 29, 30})
        AddDay(QDate(2024, 6, day));
    Write([](auto& transaction) { ApplicationDateRepository::Delete(transaction, QDate(2024, 6, 2)); });
    EXPECT_EQ(days.Count(QDate(2024, 6, 1), QDate(2024, 6, 30)), 4);
    EXPECT_FALSE(days.IsWorkingDay(QDate(2024, 6, 2)));
    Write([](auto& transaction) {
        ApplicationDateRepository::DeleteBetween(transaction, QDate(2024, 6, 3), QDate(2024, 6, 29));
    });
    EXPECT_EQ(days.Count(QDate(2024, 6, 1), QDate(2024, 6, 30)), 2);
    EXPECT_TRUE(days.IsWorkingDay(QDate(2024, 6, 1)));
    EXPECT_TRUE(days.IsWorkingDay(QDate(2024, 6, 30)));
}

TEST_F(CalendarRepositories, ADayCanNotBeAddedTwice)
{
    AddDay(QDate(2024, 2, 29));
    try {
        AddDay(QDate(2024, 2, 29));
        FAIL();
    } catch (const store::StoreError& error) {
        EXPECT_EQ(error.Kind(), store::ErrorKind::GeneralFailure);
    }
}

TEST_F(CalendarRepositories, AUserWithoutALoginHasNoDays)
{
    main.Execute(QStringLiteral("INSERT INTO UserMaster VALUES (3, 'Clerk', 0)"));
    main.Execute(QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (3, 'clerk', 'pw', 'N', 0, 7)"));
    EXPECT_EQ(days.DaysOf(3), 7);
    EXPECT_EQ(days.DaysOf(4), 0);
}

} // namespace
} // namespace tally::test
