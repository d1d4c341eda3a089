#include "students/AdmissionRepository.h"
#include "students/NumberChangeRepository.h"
#include "students/StudentSave.h"
#include "support/KilledSchool.h"

namespace tally::test {
namespace {

constexpr int Year = 1;
constexpr int Students = 60;
constexpr int Unplaced = Students; ///< the last one, who sits nowhere yet
constexpr Placement DivisionA{1, 1};
constexpr Placement DivisionB{1, 2};

/// Two divisions of a class, and clients that are killed while they store one student, where he sits, or the
/// numbers of all.
class StudentKill : public KilledSchool
{
protected:
    void SetUp() override
    {
        Lay(Students, [](store::Transaction& transaction) {
            for (const char* row : {"INSERT INTO Options VALUES ('N', 'N', '2018-05-31', 'A', 'N', 'N')",
                                    "INSERT INTO ClassDivisionDetails VALUES (1, 'B', 2)",
                                    "INSERT INTO StateMaster VALUES (1, 'Kerala', 1)",
                                    "INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1)"})
                transaction.Execute(QString::fromLatin1(row));
            AdmissionRepository::Delete(transaction, Unplaced, Year);
        });
    }

    /// As the clerk has entered him, under a new name and number.
    static Student Entered(int code)
    {
        const QString longText(100, QLatin1Char('x'));
        Student student;
        student.code = code;
        student.academicYearCode = Year;
        student.admissionNo = code;
        student.optionalAdmissionNo = QStringLiteral("B%1").arg(code);
        student.admissionDate = QDate(2024, 6, 3);
        student.name = QStringLiteral("Anu");
        student.dateOfBirth = QDate(2015, 1, 2);
        student.fatherOrGuardian = student.address1 = student.address2 = longText;
        student.cityCode = 1;
        return student;
    }

    static void SaveEntered(store::Transaction& transaction, int code, bool autoGenerate)
    {
        Student student = Entered(code);
        const StudentSaving saving{.autoGenerate = autoGenerate, .today = QDate(2024, 6, 10), .userCode = 1};
        if (const StudentFault fault = SaveStudent(transaction, student, saving); fault != StudentFault::None)
            throw store::StoreError(FaultText(fault));
    }

    static Reading StoredStudents() { return RowsOf("SELECT * FROM StudentMaster ORDER BY StudentCode"); }
    static Reading StoredPlaces()
    {
        return RowsOf("SELECT * FROM StudentClassDivision ORDER BY StudentCode, AcademicYearCode");
    }
};

TEST_F(StudentKill, ANewStudentKilledAtAnyFileOperationIsThereOrNot)
{
    ExpectWhole([](store::Transaction& transaction) { SaveEntered(transaction, 0, true); }, StoredStudents());
}

TEST_F(StudentKill, AnEditedStudentKilledAtAnyFileOperationIsTheOldOneOrTheNewOne)
{
    ExpectWhole([](store::Transaction& transaction) { SaveEntered(transaction, 7, false); },
                StoredStudents());
}

TEST_F(StudentKill, APlacementKilledAtAnyFileOperationIsMadeOrNot)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            AdmissionRepository::Insert(transaction, Unplaced, Year, DivisionA, 1);
        },
        StoredPlaces());
}

TEST_F(StudentKill, AChangedPlacementKilledAtAnyFileOperationIsInTheOldDivisionOrInTheNewOne)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            AdmissionRepository::Update(transaction, 7, Year, DivisionB, 1);
        },
        StoredPlaces());
}

TEST_F(StudentKill, ADeletedPlacementKilledAtAnyFileOperationIsThereOrGone)
{
    ExpectWhole([](store::Transaction& transaction) { AdmissionRepository::Delete(transaction, 7, Year); },
                StoredPlaces());
}

TEST_F(StudentKill, ChangedNumbersOfADivisionKilledAtAnyFileOperationAreAllOldOrAllNew)
{
    const Save renumberAll = [](store::Transaction& transaction) {
        NumberChangeRepository repository(transaction.On());
        OptionalNumbers numbers;
        numbers.TakeSnapshot(repository.AllNumbers());
        numbers.List(repository.Students({Year, 0, DivisionA.classCode, DivisionA.divisionCode}));
        ASSERT_EQ(numbers.RowCount(), Students - 1);
        for (int row = 1; row <= numbers.RowCount(); ++row)
            numbers.SetNumber(row, QStringLiteral("New %1").arg(row));
        if (const auto fault = SaveNumbers(transaction, numbers))
            throw store::StoreError(fault->message);
    };
    ExpectWhole(renumberAll, RowsOf("SELECT StudentCode, OptionalAdmissionNo FROM StudentMaster"));
}

} // namespace
} // namespace tally::test
