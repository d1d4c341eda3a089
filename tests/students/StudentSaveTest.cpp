#include "students/StudentSave.h"

#include "store/StoreError.h"
#include "students/StudentRows.h"
#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

class StudentSaveTest : public testing::Test
{
protected:
    StudentSaveTest()
    {
        LayStudentMasters(main);
        Run("INSERT INTO Options VALUES ('N', 'Y', '2018-05-31', 'A', 'N', 'N')");
    }

    void Run(const char* sql) { main.Execute(QString::fromLatin1(sql)); }
    StudentFault Save(Student& student)
    {
        store::Transaction transaction(main);
        const StudentFault fault = SaveStudent(transaction, student, saving);
        transaction.Commit();
        return fault;
    }
    static Student Newcomer(const char* name)
    {
        Student student = StudentNamed(0, name);
        student.admissionNo = 0;
        student.optionalAdmissionNo.clear();
        return student;
    }

    store::Connection main = DeliveredMainStore();
    StudentSaving saving{.autoGenerate = true, .today = QDate(2024, 6, 10), .userCode = 7};
};

TEST_F(StudentSaveTest, TheFirstStudentOfASchoolGetsTheNumberOne)
{
    Student student = Newcomer("Anu");
    ASSERT_EQ(Save(student), StudentFault::None);
    EXPECT_EQ(StoredStudent(main, 1), "1|1|1|2024-06-03|2|Anu||F|||0||||2015-01-02|0|Y|NULL|||NULL|7");
    EXPECT_EQ(student.code, 1);
    EXPECT_EQ(student.admissionNo, 1);
    EXPECT_EQ(student.optionalAdmissionNo.toStdString(), "1");
}

TEST_F(StudentSaveTest, AGeneratedNumberFollowsTheHighestOneTypedByHandIncluded)
{
    Student typed = StudentNamed(0, "Anu");
    typed.admissionNo = 5000;
    saving.autoGenerate = false;
    ASSERT_EQ(Save(typed), StudentFault::None);
    EXPECT_FALSE(StudentRepository(main).Find(typed.code)->numberGenerated);
    saving.autoGenerate = true;
    Student next = Newcomer("Binu");
    ASSERT_EQ(Save(next), StudentFault::None);
    EXPECT_EQ(next.code, typed.code + 1);
    EXPECT_EQ(next.admissionNo, 5001);
    EXPECT_EQ(StudentRepository(main).Find(next.code)->optionalAdmissionNo.toStdString(), "5001");
}

TEST_F(StudentSaveTest, NineDigitsAreTheLastNumberAndTheNextSaveWritesNothing)
{
    Student highest = StudentNamed(1, "Anu");
    highest.admissionNo = 999999998;
    StoreStudent(main, highest);
    Student last = Newcomer("Binu");
    ASSERT_EQ(Save(last), StudentFault::None);
    EXPECT_EQ(last.admissionNo, 999999999);
    const AllRows before(main);
    Student none = Newcomer("Chandra");
    EXPECT_EQ(Save(none), StudentFault::NumbersUsedUp);
    EXPECT_EQ(none.code, 0);
    before.ExpectTouchedOnly(main, "", {});
}

TEST_F(StudentSaveTest, AGeneratedNumberThatAnotherStudentHasAsTheSchoolsOwnIsNotGivenTwice)
{
    Student first = StudentNamed(1, "Anu");
    first.optionalAdmissionNo = QStringLiteral("102");
    StoreStudent(main, first);
    Student second = Newcomer("Binu");
    EXPECT_EQ(Save(second), StudentFault::OptionalNumberTaken);
    EXPECT_EQ(StoredStudent(main, 2), "");
}

TEST_F(StudentSaveTest, ATypedNumberIsRefusedWhereAnotherStudentHasIt)
{
    StoreStudent(main, StudentNamed(1, "Anu"));
    saving.autoGenerate = false;
    Student student = StudentNamed(0, "Binu");
    student.admissionNo = 101;
    EXPECT_EQ(Save(student), StudentFault::NumberTaken);
    student.admissionNo = 0;
    EXPECT_EQ(Save(student), StudentFault::NumberTaken) << "the number of the row for no student";
    student.admissionNo = 102;
    student.optionalAdmissionNo = QStringLiteral("a101");
    EXPECT_EQ(Save(student), StudentFault::OptionalNumberTaken);
    EXPECT_EQ(StoredStudent(main, 2), "");
    student.optionalAdmissionNo = QStringLiteral("A102");
    EXPECT_EQ(Save(student), StudentFault::None);
}

TEST_F(StudentSaveTest, AStudentKeepsHowHisNumberCameAboutWhateverTheOptionBecomes)
{
    for (const bool generated : {false, true}) {
        saving.autoGenerate = generated;
        Student student = StudentNamed(0, "Anu");
        student.admissionNo += generated ? 10 : 0;
        ASSERT_EQ(Save(student), StudentFault::None);
        saving.autoGenerate = !generated;
        student.telephone = QStringLiteral("0484");
        ASSERT_EQ(Save(student), StudentFault::None);
        const auto stored = StudentRepository(main).Find(student.code);
        EXPECT_EQ(stored->numberGenerated, generated);
        EXPECT_EQ(stored->telephone.toStdString(), "0484");
    }
}

TEST_F(StudentSaveTest, AStudentWithHisOwnNumbersUnchangedPasses)
{
    StoreStudent(main, StudentNamed(4, "Anu"));
    StoreStudent(main, StudentNamed(5, "Binu"));
    const AllRows before(main);
    Student student = *StudentRepository(main).Find(4);
    student.name = QStringLiteral("Anu K.");
    saving.autoGenerate = false;
    EXPECT_EQ(Save(student), StudentFault::None);
    before.ExpectTouchedOnly(main, "StudentMaster", {{QStringLiteral("StudentCode"), QStringLiteral("4")}});
    EXPECT_EQ(StudentRepository(main).Find(4)->name.toStdString(), "Anu K.");
}

TEST_F(StudentSaveTest, AGeneratedStudentsOwnNumberMayBeChangedButNotToAnothers)
{
    StoreStudent(main, StudentNamed(4, "Anu"));
    Student generated = Newcomer("Binu");
    ASSERT_EQ(Save(generated), StudentFault::None);
    generated.optionalAdmissionNo = QStringLiteral("A104");
    EXPECT_EQ(Save(generated), StudentFault::OptionalNumberTaken);
    generated.optionalAdmissionNo = QStringLiteral("B1");
    EXPECT_EQ(Save(generated), StudentFault::None);
    EXPECT_EQ(StudentRepository(main).Find(generated.code)->optionalAdmissionNo.toStdString(), "B1");
}

TEST_F(StudentSaveTest, AnOptionalNumberThatTheClerkLeftAloneIsThatOfTheStoreByThen)
{
    StoreStudent(main, StudentNamed(4, "Anu"));
    Student student = *StudentRepository(main).Find(4);
    saving.loadedOptionalNo = student.optionalAdmissionNo;
    Run("UPDATE StudentMaster SET OptionalAdmissionNo = 'N1' WHERE StudentCode = 4");
    StoreStudent(main, StudentNamed(5, "Binu"));
    Run("UPDATE StudentMaster SET OptionalAdmissionNo = 'A104' WHERE StudentCode = 5");
    ASSERT_EQ(Save(student), StudentFault::None);
    EXPECT_EQ(StudentRepository(main).Find(4)->optionalAdmissionNo.toStdString(), "N1");
}

TEST_F(StudentSaveTest, NobodyIsLookedForWhereTheStudentIsNew)
{
    Student student = Newcomer("Anu");
    const auto before = main.StatementsRun();
    KeepStoredNumber(main, student, saving);
    EXPECT_EQ(main.StatementsRun(), before);
}

TEST_F(StudentSaveTest, WhoWasRelievedMeanwhileIsNotChanged)
{
    StoreStudent(main, StudentNamed(4, "Anu"));
    Student student = *StudentRepository(main).Find(4);
    Relieve(main, 4);
    const std::string before = StoredStudent(main, 4);
    EXPECT_EQ(Save(student), StudentFault::Relieved);
    EXPECT_EQ(StoredStudent(main, 4), before);
}

TEST_F(StudentSaveTest, ASchoolThatHasSetNothingHasNoSettings)
{
    EXPECT_EQ(ReadStudentSettings(main).latestBirth, QDate(2018, 5, 31));
    EXPECT_EQ(ReadStudentSettings(main).gender.toStdString(), "A");
    Run("UPDATE Options SET DateOfBirthSetting = NULL, GenderOption = ''");
    EXPECT_FALSE(ReadStudentSettings(main).latestBirth.isValid());
    EXPECT_EQ(ReadStudentSettings(main).gender.toStdString(), "");
    Run("DELETE FROM Options");
    EXPECT_FALSE(ReadStudentSettings(main).latestBirth.isValid());
    Student student = Newcomer("Anu");
    EXPECT_EQ(Save(student), StudentFault::LatestBirthNotSet);
}

TEST_F(StudentSaveTest, ACityThatHasGoneIsAConflictAndNothingIsStored)
{
    Student student = Newcomer("Anu");
    student.cityCode = 9;
    try {
        Save(student);
        FAIL() << "stored";
    } catch (const store::StoreError& error) {
        EXPECT_TRUE(error.IsConflict());
    }
    EXPECT_EQ(StoredStudent(main, 1), "");
}

} // namespace
} // namespace tally::test
