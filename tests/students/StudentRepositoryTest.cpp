#include "students/StudentRepository.h"

#include "store/StoreError.h"
#include "students/StudentRows.h"
#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

class StudentRepositoryTest : public testing::Test
{
protected:
    StudentRepositoryTest() { LayStudentMasters(main); }

    void Update(const Student& student, int userCode)
    {
        store::Transaction transaction(main);
        StudentRepository::Update(transaction, student, userCode);
        transaction.Commit();
    }

    store::Connection main = DeliveredMainStore();
    StudentRepository students{main};
};

/// Something in every field.
Student Anu()
{
    Student student = StudentNamed(4, "Anu");
    student.fatherOrGuardian = QStringLiteral("Babu");
    student.male = true;
    student.address1 = QStringLiteral("House");
    student.address2 = QStringLiteral("Street");
    student.cityCode = 3;
    student.pinCode = QStringLiteral("682001");
    student.telephone = QStringLiteral("0484");
    student.email = QStringLiteral("anu@school.org");
    student.bloodGroupCode = 2;
    student.numberGenerated = true;
    return student;
}

TEST_F(StudentRepositoryTest, AStoredStudentStandsInTheColumnsInTheirOrderAndIsOnRoll)
{
    StoreStudent(main, Anu(), 7);
    EXPECT_EQ(StoredStudent(main, 4), "4|104|A104|2024-06-03|2|Anu|Babu|M|House|Street|3|682001|0484|"
                                      "anu@school.org|2015-01-02|2|Y|NULL|||NULL|7");
    StoreStudent(main, StudentNamed(5, "Binu"));
    EXPECT_EQ(StoredStudent(main, 5), "5|105|A105|2024-06-03|2|Binu||F|||0||||2015-01-02|0|N|NULL|||NULL|1");
}

TEST_F(StudentRepositoryTest, AStudentComesBackAsStoredWithTheNamesBehindHisCodes)
{
    StoreStudent(main, StudentNamed(3, "Asha"));
    StoreStudent(main, Anu());
    StoreStudent(main, StudentNamed(5, "Binu"));
    Relieve(main, 4, "TC 9");
    for (const auto& found : {students.Find(4), students.FindByAdmissionNo(104),
                              students.FindByOptionalAdmissionNo(QStringLiteral("a104"))}) {
        ASSERT_TRUE(found);
        EXPECT_EQ(found->code, 4);
        EXPECT_EQ(found->admissionNo, 104);
        EXPECT_EQ(found->optionalAdmissionNo.toStdString(), "A104");
        EXPECT_EQ(found->admissionDate, QDate(2024, 6, 3));
        EXPECT_EQ(found->academicYearCode, 2);
        EXPECT_EQ(found->yearFrom, 2024);
        EXPECT_EQ(found->yearTo, 2025);
        EXPECT_EQ(found->name.toStdString(), "Anu");
        EXPECT_EQ(found->fatherOrGuardian.toStdString(), "Babu");
        EXPECT_TRUE(found->male);
        EXPECT_EQ(found->address1.toStdString(), "House");
        EXPECT_EQ(found->address2.toStdString(), "Street");
        EXPECT_EQ(found->cityCode, 3);
        EXPECT_EQ(found->cityName.toStdString(), "Aluva");
        EXPECT_EQ(found->stateCode, 1);
        EXPECT_EQ(found->stateName.toStdString(), "Kerala");
        EXPECT_EQ(found->pinCode.toStdString(), "682001");
        EXPECT_EQ(found->telephone.toStdString(), "0484");
        EXPECT_EQ(found->email.toStdString(), "anu@school.org");
        EXPECT_EQ(found->dateOfBirth, QDate(2015, 1, 2));
        EXPECT_EQ(found->bloodGroupCode, 2);
        EXPECT_EQ(found->bloodGroupName.toStdString(), "A-");
        EXPECT_TRUE(found->numberGenerated);
        EXPECT_EQ(found->relievingDate, QDate(2024, 9, 1));
        EXPECT_EQ(found->relievingReason.toStdString(), "Moved");
        EXPECT_EQ(found->tcNo.toStdString(), "TC 9");
        EXPECT_EQ(found->tcDate, QDate(2024, 9, 2));
        EXPECT_TRUE(found->IsRelieved());
    }
}

TEST_F(StudentRepositoryTest, AStudentWithoutCityBloodGroupOrLeavingIsFoundWithThemBlank)
{
    StoreStudent(main, StudentNamed(5, "Binu"));
    const auto found = students.Find(5);
    ASSERT_TRUE(found);
    EXPECT_FALSE(found->male);
    EXPECT_FALSE(found->numberGenerated);
    EXPECT_FALSE(found->IsRelieved());
    EXPECT_FALSE(found->relievingDate.isValid());
    for (const QString& blank : {found->cityName, found->stateName, found->bloodGroupName, found->tcNo})
        EXPECT_EQ(blank.toStdString(), "");
    Student broken = StudentNamed(6, "Chandra");
    StoreStudent(main, broken);
    main.Execute(QStringLiteral("UPDATE StudentMaster SET CityCode = NULL, BloodGroupCode = NULL,"
                                " AcademicYearCode = NULL WHERE StudentCode = 6"));
    EXPECT_TRUE(students.Find(6)) << "what another program left out does not hide him";
}

TEST_F(StudentRepositoryTest, TheRowForNoStudentIsNeverFoundThoughItsNumbersAreTaken)
{
    EXPECT_FALSE(students.Find(0));
    EXPECT_FALSE(students.FindByOptionalAdmissionNo(QString()));
    EXPECT_FALSE(students.FindByAdmissionNo(0));
    EXPECT_TRUE(students.AdmissionNoTaken(0, 0));
    EXPECT_TRUE(students.OptionalAdmissionNoTaken(QStringLiteral(""), 0));
    EXPECT_FALSE(students.IsRelieved(0));
}

TEST_F(StudentRepositoryTest, ANumberIsTakenByAnyStudentButTheOneInHand)
{
    StoreStudent(main, StudentNamed(4, "Anu"));
    StoreStudent(main, StudentNamed(5, "Binu"));
    EXPECT_TRUE(students.AdmissionNoTaken(104, 0));
    EXPECT_FALSE(students.AdmissionNoTaken(104, 4));
    EXPECT_FALSE(students.AdmissionNoTaken(106, 0));
    EXPECT_TRUE(students.OptionalAdmissionNoTaken(QStringLiteral("a104"), 5)) << "in whatever case";
    EXPECT_FALSE(students.OptionalAdmissionNoTaken(QStringLiteral("A104"), 4));
    EXPECT_FALSE(students.OptionalAdmissionNoTaken(QStringLiteral("A10"), 0));
}

TEST_F(StudentRepositoryTest, AStudentIsRelievedExactlyWhileThereIsATransferCertificate)
{
    StoreStudent(main, StudentNamed(4, "Anu"));
    StoreStudent(main, StudentNamed(5, "Binu"));
    Relieve(main, 5);
    EXPECT_FALSE(students.IsRelieved(4));
    EXPECT_TRUE(students.IsRelieved(5));
    EXPECT_FALSE(students.IsRelieved(6));
    for (const char* blank : {"", "  "}) {
        Relieve(main, 5, blank);
        EXPECT_FALSE(students.IsRelieved(5));
        EXPECT_FALSE(students.Find(5)->IsRelieved());
    }
}

TEST_F(StudentRepositoryTest, AnUpdateChangesWhatTheClerkTypedAndKeepsNumberYearAndLeaving)
{
    StoreStudent(main, StudentNamed(4, "Anna"));
    StoreStudent(main, StudentNamed(5, "Binu"));
    Relieve(main, 4);
    const AllRows before(main);
    Student changed = Anu();
    changed.admissionNo = 999;
    changed.optionalAdmissionNo = QStringLiteral("B1");
    changed.admissionDate = QDate(2024, 7, 8);
    changed.academicYearCode = 1;
    changed.dateOfBirth = QDate(2016, 2, 29);
    Update(changed, 9);
    before.ExpectTouchedOnly(main, "StudentMaster", {{QStringLiteral("StudentCode"), QStringLiteral("4")}});
    EXPECT_EQ(StoredStudent(main, 4),
              "4|104|B1|2024-07-08|2|Anu|Babu|M|House|Street|3|682001|0484|anu@school.org|"
              "2016-02-29|2|N|2024-09-01|Moved|TC 1|2024-09-02|9");
}

TEST_F(StudentRepositoryTest, AnUpdateOfAStudentWhoHasGoneIsAConflict)
{
    try {
        Update(Anu(), 1);
        FAIL() << "nobody was updated";
    } catch (const store::StoreError& error) {
        EXPECT_TRUE(error.IsConflict());
    }
}

TEST_F(StudentRepositoryTest, ADeleteTakesItsOwnStudent)
{
    StoreStudent(main, StudentNamed(4, "Anu"));
    StoreStudent(main, StudentNamed(5, "Binu"));
    const AllRows before(main);
    {
        store::Transaction transaction(main);
        StudentRepository::Delete(transaction, 4);
        transaction.Commit();
    }
    before.ExpectTouchedOnly(main, "StudentMaster", {{QStringLiteral("StudentCode"), QStringLiteral("4")}});
    EXPECT_FALSE(students.Find(4));
}

} // namespace
} // namespace tally::test
