#include "students/StudentSearchRepository.h"

#include "students/StudentRows.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

class StudentSearchRepositoryTest : public testing::Test
{
protected:
    StudentSearchRepositoryTest()
    {
        LayStudentMasters(main);
        Lay(1, "Chandra", 1, QDate(2024, 6, 3));
        Lay(2, "Asha", 2, QDate(2024, 6, 4));
        Lay(3, "Binu", 0, QDate(2024, 6, 5));
        Lay(4, "Bhama", 3, QDate(2024, 6, 6));
    }

    void Lay(int code, const char* name, int cityCode, const QDate& admission)
    {
        Student student = StudentNamed(code, name);
        student.cityCode = cityCode;
        student.admissionDate = admission;
        student.telephone = QStringLiteral("0484");
        StoreStudent(main, student);
    }

    static StudentFilters By(void (*fill)(StudentFilters&))
    {
        StudentFilters filters;
        fill(filters);
        return filters;
    }

    std::string Found(void (*fill)(StudentFilters&))
    {
        QStringList names;
        for (const QStringList& row : StudentSearchRepository(main).Search(By(fill)).rows)
            names.append(row.at(3));
        return names.join(QLatin1Char(' ')).toStdString();
    }

    store::Connection main = DeliveredMainStore();
};

TEST_F(StudentSearchRepositoryTest, WithoutAFilterAllStudentsComeByNameAndTheRowForNoStudentDoesNot)
{
    const GridResult found = StudentSearchRepository(main).Search({});
    EXPECT_EQ(found.heads.join(QLatin1Char('|')).toStdString(),
              "StudentCode|Admission No|Admission Date|Student Name|Telephone|State Name|City Name|CityCode");
    EXPECT_EQ(Found([](StudentFilters&) {}), "Asha Bhama Binu Chandra");
    EXPECT_EQ(found.rows.at(0).join(QLatin1Char('|')).toStdString(),
              "2|A102|04/Jun/2024|Asha|0484|Goa|Panaji|2");
    EXPECT_EQ(found.rows.at(2).join(QLatin1Char('|')).toStdString(), "3|A103|05/Jun/2024|Binu|0484|||0");
}

TEST_F(StudentSearchRepositoryTest, EachFilterNarrowsAndAllTogetherToo)
{
    EXPECT_EQ(Found([](StudentFilters& by) { by.name = QStringLiteral("HA"); }), "Asha Bhama Chandra");
    EXPECT_EQ(Found([](StudentFilters& by) { by.admissionNo = QStringLiteral("10"); }),
              "Asha Bhama Binu Chandra");
    EXPECT_EQ(Found([](StudentFilters& by) { by.admissionNo = QStringLiteral("a103"); }), "Binu");
    EXPECT_EQ(Found([](StudentFilters& by) { by.stateCode = 1; }), "Bhama Chandra");
    EXPECT_EQ(Found([](StudentFilters& by) {
                  by.stateCode = 1;
                  by.cityCode = 3;
              }),
              "Bhama");
    EXPECT_EQ(Found([](StudentFilters& by) { by.cityCode = 2; }), "Asha");
    EXPECT_EQ(Found([](StudentFilters& by) { by.admittedFrom = QDate(2024, 6, 4); }), "Asha Bhama Binu");
    EXPECT_EQ(Found([](StudentFilters& by) { by.admittedTo = QDate(2024, 6, 4); }), "Asha Chandra");
    EXPECT_EQ(Found([](StudentFilters& by) {
                  by.admittedFrom = QDate(2024, 6, 4);
                  by.admittedTo = QDate(2024, 6, 5);
              }),
              "Asha Binu");
    EXPECT_EQ(Found([](StudentFilters& by) {
                  by.name = QStringLiteral("a");
                  by.stateCode = 1;
                  by.admittedFrom = QDate(2024, 6, 4);
                  by.admittedTo = QDate(2024, 6, 30);
              }),
              "Bhama");
    EXPECT_EQ(Found([](StudentFilters& by) { by.name = QStringLiteral("Zed"); }), "");
}

TEST_F(StudentSearchRepositoryTest, RelievedStudentsAreFoundAsWell)
{
    Relieve(main, 2);
    EXPECT_EQ(Found([](StudentFilters& by) { by.cityCode = 2; }), "Asha");
}

TEST_F(StudentSearchRepositoryTest, AnyFilledFieldIsAFilter)
{
    EXPECT_TRUE(StudentFilters().AreEmpty());
    for (const auto fill : std::initializer_list<void (*)(StudentFilters&)>{
             [](StudentFilters& by) { by.admissionNo = QStringLiteral("1"); },
             [](StudentFilters& by) { by.name = QStringLiteral("a"); },
             [](StudentFilters& by) { by.stateCode = 1; }, [](StudentFilters& by) { by.cityCode = 1; },
             [](StudentFilters& by) { by.admittedFrom = QDate(2024, 1, 1); },
             [](StudentFilters& by) { by.admittedTo = QDate(2024, 1, 1); }})
        EXPECT_FALSE(By(fill).AreEmpty());
}

} // namespace
} // namespace tally::test
