#include "StoreFiles.h"
#include "support/TestStore.h"

namespace tally::test {

using store::Connection;
using store::ErrorKind;

/// A small school in which each row is used by one other.
class References : public testing::Test
{
protected:
    References()
    {
        const char* const rows[] = {
            "StateMaster VALUES (1, 'Kerala', 1), (2, 'Goa', 1)",
            "CityMaster VALUES (1, 1, 'Kochi', 1), (2, 1, 'Kollam', 1), (3, 1, 'Kottayam', 1)",
            "BloodGroupMaster VALUES (1, 'A+', 1), (2, 'O+', 1)",
            "SalutationMaster VALUES (1, 'Mr.', 1)",
            "ExamMaster VALUES (1, 'Annual', 1, 1), (2, 'Quarterly', 2, 1)",
            "SubjectMaster VALUES (1, 'English', 'Eng', 1)",
            ("TeacherMaster (TeacherCode, SalutationCode, TeacherShortName, CityCode, BloodGroupCode)"
             " VALUES (1, 1, 'AMA', 1, 1)"),
            "ClassDivisionMaster VALUES (1, 'X', 2, 1, 1)",
            "ClassDivisionDetails VALUES (1, 'A', 1), (1, 'B', 2)",
            "AcademicYearSetup VALUES (1, 2025, 2026, '2025-06-01', '2026-05-31', 'Y', 'N', 1)",
            ("StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo, AcademicYearCode, CityCode, "
             "BloodGroupCode) VALUES (1, 1, '1', 1, 2, 2)"),
            "SchoolMaster VALUES ('Silver Oak', '14, Lake Road', '', 3, '682001', 'JUN', 1)",
            "StudentClassDivision VALUES (1, 1, 1, 1, 'Y', 1)",
            "MarkMaster VALUES (1, 1, 1, 1, 1, 1, 50, 'P', 1, 1)",
            "RankMaster VALUES (1, 2, 1, 1, 0, 0, 'A', 1, NULL)",
            "UserMaster VALUES (1, 'Asha', 1)",
            "UserPrivilegeMaster VALUES (1, 'asha', 'secret', 'N', 1, 0)",
        };
        for (const char* row : rows)
            store_.Execute(QStringLiteral("INSERT INTO ") + QLatin1String(row));
    }

    bool IsRefused(const char* sql)
    {
        const auto error = ErrorOf([&] { store_.Execute(QLatin1String(sql)); });
        return error && error->Kind() == ErrorKind::GeneralFailure && !error->IsLocked();
    }

    Connection store_ = DeliveredMainStore();
};

TEST_F(References, EveryCodeOfAnotherTablesRowIsBoundToIt)
{
    const char* const expected[] = {
        "AcademicYearSetup: -",
        "CityMaster: StateCode>StateMaster",
        "ClassDivisionDetails: ClassCode>ClassDivisionMaster",
        "ClassDivisionMaster: -",
        "ClassSubjectTeacher: AcademicYearCode>AcademicYearSetup ClassCode>ClassDivisionDetails "
        "DivisionCode>ClassDivisionDetails SubjectCode>SubjectMaster TeacherCode>TeacherMaster",
        "FeesSetup: ClassCode>ClassDivisionMaster",
        "MarkMaster: AcademicYearCode>AcademicYearSetup ClassCode>ClassDivisionDetails "
        "DivisionCode>ClassDivisionDetails ExamCode>ExamMaster StudentCode>StudentMaster "
        "SubjectCode>SubjectMaster "
        "TeacherCode>TeacherMaster",
        "RankMaster: AcademicYearCode>AcademicYearSetup ClassCode>ClassDivisionDetails "
        "DivisionCode>ClassDivisionDetails ExamCode>ExamMaster",
        "SchoolMaster: CCityCode>CityMaster",
        "SchoolSetUp: CityCode>CityMaster",
        "StudentClassDivision: AcademicYearCode>AcademicYearSetup ClassCode>ClassDivisionDetails "
        "DivisionCode>ClassDivisionDetails StudentCode>StudentMaster",
        "StudentMaster: AcademicYearCode>AcademicYearSetup BloodGroupCode>BloodGroupMaster "
        "CityCode>CityMaster",
        "TeacherMaster: BloodGroupCode>BloodGroupMaster CityCode>CityMaster SalutationCode>SalutationMaster",
        "TempRankTotal: AcademicYearCode>AcademicYearSetup ClassCode>ClassDivisionDetails "
        "DivisionCode>ClassDivisionDetails ExamCode>ExamMaster StudentCode>StudentMaster",
        "TransactionMaster: AcademicYearCode>AcademicYearSetup StudentCode>StudentMaster",
        "UserPrivilegeDetails: UserCode>UserMaster",
        "UserPrivilegeMaster: UserCode>UserMaster",
    };
    for (const char* line : expected) {
        const QString table = QString::fromLatin1(line).section(u':', 0, 0);
        QStringList references;
        auto keys = store_.Query(QStringLiteral("PRAGMA foreign_key_list(%1)").arg(table));
        while (keys.Next())
            references << keys.Text(3) + u'>' + keys.Text(2);
        references.sort();
        const QString found = references.isEmpty() ? QStringLiteral("-") : references.join(u' ');
        EXPECT_EQ(table + QLatin1String(": ") + found, QLatin1String(line));
    }
}

TEST_F(References, AStateThatACityUsesStays)
{
    EXPECT_TRUE(IsRefused("DELETE FROM StateMaster WHERE StateCode = 1"));
    EXPECT_FALSE(IsRefused("DELETE FROM StateMaster WHERE StateCode = 2"));
    EXPECT_EQ(store_.Number(QStringLiteral("SELECT count(*) FROM CityMaster WHERE StateCode = 1")), 3);
}

TEST_F(References, ARowInUseCannotBeDeleted)
{
    for (const char* sql :
         {"DELETE FROM CityMaster WHERE CityCode = 1", "DELETE FROM CityMaster WHERE CityCode = 2",
          "DELETE FROM CityMaster WHERE CityCode = 3",
          "DELETE FROM BloodGroupMaster WHERE BloodGroupCode = 1",
          "DELETE FROM BloodGroupMaster WHERE BloodGroupCode = 2",
          "DELETE FROM SalutationMaster WHERE SalutationCode = 1",
          "DELETE FROM ExamMaster WHERE ExamCode = 1", "DELETE FROM ExamMaster WHERE ExamCode = 2",
          "DELETE FROM SubjectMaster WHERE SubjectCode = 1",
          "DELETE FROM TeacherMaster WHERE TeacherCode = 1",
          "DELETE FROM ClassDivisionMaster WHERE ClassCode = 1",
          "DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 1",
          "DELETE FROM AcademicYearSetup WHERE AcademicYearCode = 1",
          "DELETE FROM StudentMaster WHERE StudentCode = 1", "DELETE FROM UserMaster WHERE UserCode = 1"})
        EXPECT_TRUE(IsRefused(sql)) << sql;
}

TEST_F(References, ADivisionThatNobodyUsesCanBeDeleted)
{
    EXPECT_FALSE(IsRefused("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 2"));
}

TEST_F(References, ASaveThatNamesADeletedRowIsRefused)
{
    EXPECT_TRUE(IsRefused("INSERT INTO CityMaster VALUES (4, 77, 'Panaji', 1)"));
    EXPECT_TRUE(IsRefused("UPDATE StudentMaster SET CityCode = 77 WHERE StudentCode = 1"));
    EXPECT_TRUE(IsRefused("INSERT INTO MarkMaster VALUES (1, 1, 77, 1, 1, 1, 50, 'P', 1, 1)"));
    EXPECT_TRUE(IsRefused("INSERT INTO MarkMaster VALUES (1, 1, 2, 1, 77, 1, 50, 'P', 1, 1)"));
    EXPECT_TRUE(IsRefused("INSERT INTO MarkMaster VALUES (1, 77, 2, 1, 1, 1, 50, 'P', 1, 1)"));
    EXPECT_TRUE(IsRefused("INSERT INTO StudentClassDivision VALUES (1, 77, 1, 1, 'Y', 1)"));
    EXPECT_TRUE(IsRefused("INSERT INTO ClassSubjectTeacher VALUES (1, 1, 2, 77, 1, 100, 100, 'Yes', 1)"));
    EXPECT_TRUE(IsRefused("INSERT INTO TempRankTotal VALUES (1, 1, 77, 1, 1, 50, 50, 1, 'A')"));
}

TEST_F(References, CodeZeroStandsForNothingChosen)
{
    EXPECT_FALSE(
        IsRefused("UPDATE StudentMaster SET CityCode = 0, BloodGroupCode = 0 WHERE StudentCode = 1"));
    EXPECT_FALSE(
        IsRefused("UPDATE TeacherMaster SET CityCode = 0, BloodGroupCode = 0 WHERE TeacherCode = 1"));
}

TEST_F(References, TheUserWhoLastSavedARowIsNotBoundToIt)
{
    EXPECT_FALSE(IsRefused("INSERT INTO SubjectMaster VALUES (2, 'Tamil', 'Tam', 99)"));
}

TEST_F(References, ASetOfAClassDivisionCanBeReplacedWhole)
{
    store::Transaction transaction(store_);
    transaction.Execute(QStringLiteral("DELETE FROM MarkMaster WHERE ClassCode = 1 AND DivisionCode = 1"));
    transaction.Execute(QStringLiteral("INSERT INTO MarkMaster VALUES (1, 1, 1, 1, 1, 1, 70, 'P', 1, 1)"));
    transaction.Execute(QStringLiteral("DELETE FROM UserPrivilegeMaster WHERE UserCode = 1"));
    transaction.Execute(
        QStringLiteral("INSERT INTO UserPrivilegeMaster VALUES (1, 'asha', 'new', 'N', 1, 5)"));
    transaction.Commit();
    EXPECT_EQ(store_.Number(QStringLiteral("SELECT Mark FROM MarkMaster")), 70);
}

TEST_F(References, ClassesCanSwapTheirOrders)
{
    store_.Execute(QStringLiteral("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 1, 2, 1)"));
    EXPECT_FALSE(IsRefused("UPDATE ClassDivisionMaster SET ClassOrder = 2 WHERE ClassCode = 1"));
    EXPECT_FALSE(IsRefused("UPDATE ClassDivisionMaster SET ClassOrder = 1 WHERE ClassCode = 2"));
}

} // namespace tally::test
