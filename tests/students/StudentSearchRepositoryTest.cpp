#include "students/StudentSearchRepository.h"

#include "students/Narrowings.h"
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

    std::string Names(const StudentFilters& filters)
    {
        QStringList names;
        for (const QStringList& row : StudentSearchRepository(main).Search(filters).rows)
            names.append(row.at(3));
        return names.join(QLatin1Char('|')).toStdString();
    }

    store::Connection main = DeliveredMainStore();
};

TEST_F(StudentSearchRepositoryTest, WithoutAFilterAllStudentsComeByNameAndTheRowForNoStudentDoesNot)
{
    const GridResult found = StudentSearchRepository(main).Search({});
    EXPECT_EQ(found.heads.join(QLatin1Char('|')).toStdString(),
              "StudentCode|Admission No|Admission Date|Student Name|Telephone|State Name|City Name|CityCode");
    EXPECT_EQ(Names({}), "Asha|Bhama|Binu|Chandra");
    EXPECT_EQ(found.rows.at(0).join(QLatin1Char('|')).toStdString(),
              "2|A102|04/Jun/2024|Asha|0484|Goa|Panaji|2");
    EXPECT_EQ(found.rows.at(2).join(QLatin1Char('|')).toStdString(), "3|A103|05/Jun/2024|Binu|0484|||0");
}

TEST_F(StudentSearchRepositoryTest, HoweverFiltersMeetWhomNoneLeavesOutIsFoundByName)
{
    main.Execute(QStringLiteral("DELETE FROM StudentMaster WHERE StudentCode > 0"));
    Lay(1, "Nandana", 1, QDate(2024, 6, 4));
    Lay(2, "Ananya", 1, QDate(2024, 6, 6));
    Lay(3, "Kannan", 1, QDate(2024, 6, 5));
    Lay(4, "OtherNumberAn", 1, QDate(2024, 6, 5));
    Lay(5, "Binu", 1, QDate(2024, 6, 5));
    Lay(6, "EarlierAn", 1, QDate(2024, 6, 3));
    Lay(7, "LaterAn", 1, QDate(2024, 6, 7));
    Lay(8, "OtherCityAn", 3, QDate(2024, 6, 5));
    Lay(9, "OtherStateAn", 2, QDate(2024, 6, 5));
    for (const char* change :
         {"OptionalAdmissionNo = 'B9' WHERE StudentName = 'OtherNumberAn'",
          "OptionalAdmissionNo = 'A10', StudentName = 'NobodyAn', CityCode = 1, AdmissionDate = '2024-06-05'"
          " WHERE StudentCode = 0"})
        main.Execute(QStringLiteral("UPDATE StudentMaster SET ") + QString::fromLatin1(change));
    const Narrowings<StudentFilters> narrowings{
        {"number", {[](auto& by) { by.admissionNo = QStringLiteral("a10"); }, {"OtherNumberAn"}}},
        {"name", {[](auto& by) { by.name = QStringLiteral("AN"); }, {"Binu"}}},
        {"from", {[](auto& by) { by.admittedFrom = QDate(2024, 6, 4); }, {"EarlierAn"}}},
        {"to", {[](auto& by) { by.admittedTo = QDate(2024, 6, 6); }, {"LaterAn"}}},
        {"state", {[](auto& by) { by.stateCode = 1; }, {"OtherStateAn"}}},
        {"city", {[](auto& by) { by.cityCode = 1; }, {"OtherStateAn", "OtherCityAn"}}}};
    const QString whole = QStringLiteral("number name from to state city");
    ExpectNarrowed(narrowings,
                   {"", "number", "name", "from", "to", "state", "city", "from to", "state city",
                    "name state", "name from to state", whole},
                   {"Ananya", "Binu", "EarlierAn", "Kannan", "LaterAn", "Nandana", "OtherCityAn",
                    "OtherNumberAn", "OtherStateAn"},
                   [this](const StudentFilters& filters) { return Names(filters); });
    for (const QString& combination : {QStringLiteral("state city"), whole}) {
        StudentFilters filters = Filled(narrowings, combination);
        filters.stateCode = 2;
        EXPECT_EQ(Names(filters), "") << "the city lies in another state";
    }
}

TEST_F(StudentSearchRepositoryTest, RelievedStudentsAreFoundAsWell)
{
    Relieve(main, 2);
    EXPECT_EQ(Names(By([](StudentFilters& by) { by.cityCode = 2; })), "Asha");
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
