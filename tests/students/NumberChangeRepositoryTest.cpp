#include "students/NumberChangeRepository.h"

#include "store/StoreError.h"
#include "students/PromotionSchool.h"
#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

constexpr SchoolScope InNineA{ThisYear, 0, NineA.classCode, NineA.divisionCode};

class NumberChangeRepositoryTest : public testing::Test
{
protected:
    NumberChangeRepository Repository() { return NumberChangeRepository(main); }
    static std::string ToText(const CodedTexts& numbers)
    {
        QStringList texts;
        for (const auto& [student, number] : numbers)
            texts.append(QStringLiteral("%1 %2").arg(student).arg(number));
        texts.sort();
        return texts.join(QStringLiteral("; ")).toStdString();
    }
    std::string Stored()
    {
        return ToText(ReadCodedTexts(main.Query(QStringLiteral(
            "SELECT StudentCode, OptionalAdmissionNo FROM StudentMaster WHERE StudentCode > 0"))));
    }
    OptionalNumbers Listed()
    {
        OptionalNumbers numbers;
        numbers.TakeSnapshot(Repository().AllNumbers());
        numbers.List(Repository().Students(InNineA));
        return numbers;
    }
    /// What the clerk is told; empty when the numbers are stored.
    std::string Save(const OptionalNumbers& numbers)
    {
        store::Transaction transaction(main);
        const auto fault = SaveNumbers(transaction, numbers);
        transaction.Commit();
        return fault ? fault->message.toStdString() : std::string();
    }

    store::Connection main = DeliveredMainStore();
    PromotionSchool school{main};
};

TEST_F(NumberChangeRepositoryTest, TheStudentsOfTheClassDivisionAreListedByNameWithoutTheRelievedOnes)
{
    school.Add(QStringLiteral("Cara"), NineA);
    school.Add(QStringLiteral("asha"), NineA);
    school.Add(QStringLiteral("OtherDivision"), NineB);
    school.Add(QStringLiteral("OtherClass"), TenA);
    school.Add(QStringLiteral("OtherYear"), NineA, NextYear);
    school.Relieve(school.Add(QStringLiteral("Relieved"), NineA));
    main.Execute(QStringLiteral("UPDATE StudentMaster SET TCNo = NULL WHERE StudentName = 'asha'"));
    std::string names;
    for (const NumberedStudent& student : Repository().Students(InNineA))
        names += QStringLiteral("%1 %2 %3 %4;")
                     .arg(student.studentCode)
                     .arg(student.name)
                     .arg(student.admissionNo)
                     .arg(student.number)
                     .toStdString();
    EXPECT_EQ(names, "2 asha 102 A2;1 Cara 101 A1;");
}

TEST_F(NumberChangeRepositoryTest, TheSnapshotHoldsTheNumbersOfRelievedStudentsToo)
{
    school.Add(QStringLiteral("Asha"), NineA);
    school.Relieve(school.Add(QStringLiteral("Binu"), NineA));
    OptionalNumbers numbers = Listed();
    EXPECT_EQ(numbers.RowCount(), 1);
    EXPECT_EQ(numbers.Enter(1, QStringLiteral("A2")).message.toStdString(),
              "Optional Admission No. Already Exists");
}

TEST_F(NumberChangeRepositoryTest, HoldersAreFoundWhateverTheirLettersAndHoweverMany)
{
    CodedTexts asked;
    for (int student = 1; student <= 1000; ++student) {
        school.Add(QStringLiteral("Student"), NineA);
        asked.emplace_back(5000 + student, QStringLiteral("a%1").arg(student));
    }
    EXPECT_EQ(Repository().Holders(asked).size(), 1000U);
    EXPECT_EQ(ToText(Repository().Holders({{1, QStringLiteral("a7")}, {2, QStringLiteral("none")}})), "7 A7");
    const auto before = main.StatementsRun();
    EXPECT_TRUE(Repository().Holders({}).empty());
    EXPECT_EQ(main.StatementsRun(), before) << "there is nothing to ask";
}

TEST_F(NumberChangeRepositoryTest, OnlyChangedNumbersAreWrittenAndNothingElse)
{
    for (const char* name : {"Asha", "Binu", "Cara"})
        school.Add(QString::fromLatin1(name), NineA);
    OptionalNumbers numbers = Listed();
    numbers.SetNumber(2, QStringLiteral("N2"));
    // Meanwhile another client gives Asha another number on the student master.
    main.Execute(QStringLiteral("UPDATE StudentMaster SET OptionalAdmissionNo = 'Z1' WHERE StudentCode = 1"));
    const AllRows before(main);
    EXPECT_EQ(Save(numbers), "");
    EXPECT_EQ(Stored(), "1 Z1; 2 N2; 3 A3");
    before.ExpectTouchedOnly(main, "StudentMaster", {{QStringLiteral("StudentCode"), QStringLiteral("2")}});
}

TEST_F(NumberChangeRepositoryTest, ANumberThatAnotherClientTookMeanwhileIsRefusedAndNothingIsStored)
{
    for (const char* name : {"Asha", "Binu"})
        school.Add(QString::fromLatin1(name), NineA);
    OptionalNumbers numbers = Listed();
    numbers.SetNumber(1, QStringLiteral("N1"));
    numbers.SetNumber(2, QStringLiteral("N2"));
    school.Add(QStringLiteral("Other"));
    main.Execute(QStringLiteral("UPDATE StudentMaster SET OptionalAdmissionNo = 'n2' WHERE StudentCode = 3"));
    EXPECT_EQ(Save(numbers), "Optional Admission No. Already Exists");
    EXPECT_EQ(Stored(), "1 A1; 2 A2; 3 n2");
}

TEST_F(NumberChangeRepositoryTest, AStudentWhoIsGoneFailsAndNothingIsStored)
{
    for (const char* name : {"Asha", "Binu"})
        school.Add(QString::fromLatin1(name), NineA);
    OptionalNumbers numbers = Listed();
    numbers.SetNumber(1, QStringLiteral("N1"));
    numbers.SetNumber(2, QStringLiteral("N2"));
    main.Execute(QStringLiteral("DELETE FROM StudentClassDivision WHERE StudentCode = 2"));
    main.Execute(QStringLiteral("DELETE FROM StudentMaster WHERE StudentCode = 2"));
    try {
        Save(numbers);
        FAIL() << "the student is gone";
    } catch (const store::StoreError& error) {
        EXPECT_TRUE(error.IsConflict());
    }
    EXPECT_EQ(Stored(), "1 A1");
}

} // namespace
} // namespace tally::test
