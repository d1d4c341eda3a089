#include "reports/ClassList.h"

#include "reports/GridText.h"
#include "support/Neighbours.h"
#include "support/TestSchool.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

const std::vector<ClassListStudent> TwoStudents{{QStringLiteral("B7"), QStringLiteral("Asha")},
                                                {QStringLiteral("A9"), QStringLiteral("Binu")}};

TEST(ClassListTest, TheStudentsStandUnderTheirHeadsInTheOrderGiven)
{
    EXPECT_EQ(GridText(ClassListTable(TwoStudents, QStringLiteral("Admission No."), 0)),
              "Admission No.|Student Name\nB7|Asha\nA9|Binu\n");
    EXPECT_EQ(GridText(ClassListTable({}, QStringLiteral("Admission No."), 0)),
              "Admission No.|Student Name\n");
}

TEST(ClassListTest, AddedColumnsAreEmpty)
{
    EXPECT_EQ(GridText(ClassListTable(TwoStudents, QStringLiteral("Admission.No."), 2)),
              "Admission.No.|Student Name||\nB7|Asha||\nA9|Binu||\n");
}

TEST(ClassListTest, TheTextHasFiveLettersForEachAddedColumn)
{
    GridTable list = ClassListTable(TwoStudents, QStringLiteral("Admission.No."), 1);
    list.SetText(0, 2, QStringLiteral("Remarks"));
    const QString text = LayOutText(ClassListText(list, QStringLiteral("X"), QStringLiteral("A,B")), {});
    EXPECT_EQ(text.section(QLatin1Char('\n'), 3).toStdString(),
              "      STUDENT NAME LIST FOR CLASS X A,B\n"
              "----------------------------------------------\n"
              "|Admission.No|      Student Name       |Remar|\n"
              "----------------------------------------------\n"
              "|     B7     |          Asha           |     |\n"
              "----------------------------------------------\n"
              "|     A9     |          Binu           |     |\n"
              "----------------------------------------------\n");
}

TEST(ClassListTest, TheTextHasACellForEachColumnOfAStudent)
{
    const GridTable list = ClassListTable(TwoStudents, QStringLiteral("Admission.No."), 1);
    const TextReport text = ClassListText(list, QStringLiteral("X"), QStringLiteral("A"));
    ASSERT_EQ(text.rows.size(), 2U);
    EXPECT_EQ(text.rows[0], QStringList({QStringLiteral("B7"), QStringLiteral("Asha"), {}}));
}

TEST(ClassListTest, AddedColumnsCountFromOne)
{
    for (const char* number : {"", "0", "4", "99", "-1", "abc"})
        EXPECT_FALSE(IsAddedColumn(QString::fromLatin1(number), 3)) << number;
    for (const char* number : {"1", "3"})
        EXPECT_TRUE(IsAddedColumn(QString::fromLatin1(number), 3)) << number;
}

/// Class X with divisions A, B and C, and neighbours on all sides.
class ClassListRows : public testing::Test
{
protected:
    ClassListRows()
    {
        school.AddDivision(1, "A");
        school.AddDivision(2, "B");
        school.AddDivision(3, "C");
        school.AddStudent(1, QStringLiteral("Cara"), QStringLiteral("9"));
        school.AddStudent(2, QStringLiteral("Asha"), QStringLiteral("20"));
        school.AddStudent(1, QStringLiteral("Asha"), QStringLiteral("100"));
        school.AddStudent(3, QStringLiteral("Dev"), QStringLiteral("7"));
        school.main.Execute(
            QStringLiteral("UPDATE StudentMaster SET AdmissionNo = 50 WHERE StudentCode = 1"));
        school.main.Execute(
            QStringLiteral("UPDATE StudentMaster SET AdmissionNo = 60 WHERE StudentCode = 3"));
        AddNeighbours(school.main);
    }

    std::string Load(ClassListOrder order, const std::vector<int>& divisions = {1, 2})
    {
        QStringList students;
        for (const ClassListStudent& student :
             ClassListRepository(school.main).LoadStudents(1, 1, divisions, order))
            students.append(student.optionalAdmissionNo + QLatin1Char(' ') + student.studentName);
        return students.join(QStringLiteral("; ")).toStdString();
    }

    TestSchool school;
};

TEST_F(ClassListRows, OfTheDivisionsAskedForStandByName)
{
    EXPECT_EQ(Load(ClassListOrder::Alphabetical), "20 Asha; 100 Asha; 9 Cara")
        << "those of one name by their numbers";
    EXPECT_EQ(Load(ClassListOrder::Alphabetical, {3}), "7 Dev");
}

TEST_F(ClassListRows, StandByTheProgramsNumberOrByTheSchoolsOwnAsAText)
{
    EXPECT_EQ(Load(ClassListOrder::AdmissionNo), "20 Asha; 9 Cara; 100 Asha");
    EXPECT_EQ(Load(ClassListOrder::OptionalAdmissionNo), "100 Asha; 20 Asha; 9 Cara");
    school.main.Execute(QStringLiteral("UPDATE StudentMaster SET StudentName = 'Zoe' WHERE StudentCode = 3"));
    EXPECT_EQ(Load(ClassListOrder::OptionalAdmissionNo), "100 Zoe; 20 Asha; 9 Cara");
}

TEST_F(ClassListRows, HoldWhoHasLeft)
{
    school.main.Execute(QStringLiteral(
        "UPDATE StudentMaster SET TCNo = 'T1', RelievingDate = '2024-09-01' WHERE StudentCode = 1"));
    EXPECT_EQ(Load(ClassListOrder::Alphabetical), "20 Asha; 100 Asha; 9 Cara");
}

TEST_F(ClassListRows, AreThoseOfTheYearAskedFor)
{
    school.main.Execute(QStringLiteral(
        "INSERT INTO AcademicYearSetup (AcademicYearCode, YearFrom, YearTo) VALUES (2, 2025, 2026)"));
    school.main.Execute(QStringLiteral("INSERT INTO StudentClassDivision (StudentCode, AcademicYearCode, "
                                       "ClassCode, DivisionCode) VALUES (1, 2, 1, 3)"));
    EXPECT_EQ(Load(ClassListOrder::Alphabetical), "20 Asha; 100 Asha; 9 Cara");
    EXPECT_EQ(Load(ClassListOrder::Alphabetical, {3}), "7 Dev") << "Cara is there a year later";
}

TEST_F(ClassListRows, AreNoneInADivisionWithoutStudents)
{
    school.AddDivision(4, "D");
    EXPECT_EQ(Load(ClassListOrder::Alphabetical, {4}), "");
}

TEST_F(ClassListRows, TakeOneStatementHoweverManyDivisionsThereAre)
{
    const auto before = school.main.StatementsRun();
    Load(ClassListOrder::Alphabetical, {1, 2, 3});
    EXPECT_EQ(school.main.StatementsRun() - before, 1);
}

} // namespace
} // namespace tally::test
