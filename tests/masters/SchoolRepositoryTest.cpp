#include "masters/SchoolRepository.h"

#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

class SchoolRepositoryTest : public testing::Test
{
protected:
    SchoolRepositoryTest()
    {
        Run("INSERT INTO StateMaster VALUES (1, 'Kerala', 1), (2, 'Goa', 1), (3, 'Punjab', 1)");
        Run("INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1), (2, 2, 'Panaji', 1), (3, 3, 'Patiala', 1)");
    }

    void Run(const char* sql) { main.Execute(QString::fromLatin1(sql)); }

    store::Connection main = DeliveredMainStore();
    SchoolRepository schools{main};
};

TEST_F(SchoolRepositoryTest, TheSchoolStandsInItsOwnCityAndState)
{
    EXPECT_FALSE(schools.Load());
    EXPECT_FALSE(schools.Exists());
    Run("INSERT INTO SchoolMaster VALUES ('Hill School', 'Main Road', 'Hill', 2, '403001', 'APR', 1)");
    const auto school = schools.Load();
    ASSERT_TRUE(school);
    EXPECT_TRUE(schools.Exists());
    EXPECT_EQ(school->name.toStdString(), "Hill School");
    EXPECT_EQ(school->cityCode, 2);
    EXPECT_EQ(school->stateCode, 2);
}

TEST_F(SchoolRepositoryTest, TheRowForNoYearIsNoYear)
{
    EXPECT_FALSE(schools.CheckAcademicYear());
    EXPECT_FALSE(schools.FirstAcademicYearFrom().isValid());
    Run("UPDATE AcademicYearSetup SET FromDate = '1999-06-01'");
    EXPECT_FALSE(schools.CheckAcademicYear());
    EXPECT_FALSE(schools.FirstAcademicYearFrom().isValid());
}

TEST_F(SchoolRepositoryTest, TheFirstYearIsTheOneWithTheLowestCode)
{
    Run("INSERT INTO AcademicYearSetup VALUES (2, 2008, 2009, '2008-06-01', '2009-05-31', 'Y', 'N', 1), "
        "(1, 2007, 2008, '2007-06-01', '2008-05-31', 'N', 'N', 1)");
    EXPECT_TRUE(schools.CheckAcademicYear());
    EXPECT_EQ(schools.FirstAcademicYearFrom(), QDate(2007, 6, 1));
}

TEST_F(SchoolRepositoryTest, TheMonthsStandInTheOrderOfTheCalendarAndAreNumberedFromTheFirstOfTheYear)
{
    EXPECT_EQ(schools.Months().front(), (std::pair{1, QStringLiteral("JAN")}));
    EXPECT_EQ(schools.Months().back(), (std::pair{12, QStringLiteral("DEC")}));
    const AllRows before(main);
    store::Transaction transaction(main);
    schools.GenerateMonthCode(transaction, 6);
    auto rows = main.Query(QStringLiteral("SELECT MonthCode FROM MonthMaster ORDER BY MonthSlNo"));
    QStringList codes;
    while (rows.Next())
        codes.append(rows.Text(0));
    EXPECT_EQ(codes.join(QLatin1Char(' ')).toStdString(), "8 9 10 11 12 1 2 3 4 5 6 7");
    before.ExpectTouchedOnly(main, "MonthMaster", {});
}

TEST_F(SchoolRepositoryTest, ANewSchoolTakesThePlaceOfTheOldOne)
{
    const AllRows before(main);
    for (const char* name : {"Hill School", "Lake School"}) {
        store::Transaction transaction(main);
        schools.Replace(transaction, {QString::fromLatin1(name), {}, {}, 0, 3, {}, QStringLiteral("APR")}, 4);
        transaction.Commit();
    }
    EXPECT_EQ(main.Number(QStringLiteral("SELECT count(*) FROM SchoolMaster")), 1);
    EXPECT_EQ(schools.Load()->name.toStdString(), "Lake School");
    before.ExpectTouchedOnly(main, "SchoolMaster", {});
}

} // namespace
} // namespace tally::test
