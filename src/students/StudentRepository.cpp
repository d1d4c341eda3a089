#include "students/StudentRepository.h"

#include "store/StoreError.h"

namespace tally {

namespace {

QString Sex(const Student& student)
{
    return student.male ? QStringLiteral("M") : QStringLiteral("F");
}

Student StudentOf(const store::Statement& row)
{
    return {
        .code = row.Int(0),
        .admissionNo = row.Int(1),
        .optionalAdmissionNo = row.Text(2),
        .admissionDate = row.Date(3),
        .academicYearCode = row.Int(4),
        .name = row.Text(5),
        .fatherOrGuardian = row.Text(6),
        .male = row.Text(7) == QLatin1String("M"),
        .address1 = row.Text(8),
        .address2 = row.Text(9),
        .cityCode = row.Int(10),
        .pinCode = row.Text(11),
        .telephone = row.Text(12),
        .email = row.Text(13),
        .dateOfBirth = row.Date(14),
        .bloodGroupCode = row.Int(15),
        .numberGenerated = row.Text(16) == QLatin1String("Y"),
        .relievingDate = row.Date(17),
        .relievingReason = row.Text(18),
        .tcNo = row.Text(19),
        .tcDate = row.Date(20),
        .yearFrom = row.Int(21),
        .yearTo = row.Int(22),
        .cityName = row.Text(23),
        .stateCode = row.Int(24),
        .stateName = row.Text(25),
        .bloodGroupName = row.Text(26),
    };
}

} // namespace

std::optional<Student> StudentRepository::FindWhere(const QString& condition, const auto& value)
{
    auto row = main_.Query(
        QStringLiteral(
            "SELECT a.StudentCode, a.AdmissionNo, a.OptionalAdmissionNo, a.AdmissionDate, a.AcademicYearCode,"
            " a.StudentName, a.FgName, a.Sex, a.Address1, a.Address2, a.CityCode, a.Pincode, a.Telephone,"
            " a.Email, a.DOB, a.BloodGroupCode, a.ManGenAutoGen, a.RelievingDate, a.RelievingReason, a.TCNo,"
            " a.TCDate, e.YearFrom, e.YearTo, b.CityName, b.StateCode, c.StateName, d.BloodGroupName"
            " FROM StudentMaster a LEFT JOIN CityMaster b ON a.CityCode = b.CityCode"
            " LEFT JOIN StateMaster c ON b.StateCode = c.StateCode"
            " LEFT JOIN BloodGroupMaster d ON a.BloodGroupCode = d.BloodGroupCode"
            " LEFT JOIN AcademicYearSetup e ON a.AcademicYearCode = e.AcademicYearCode"
            " WHERE a.StudentCode > 0 AND ") +
            condition,
        value);
    if (!row.Next())
        return std::nullopt;
    return StudentOf(row);
}

std::optional<Student> StudentRepository::Find(int studentCode)
{
    return FindWhere(QStringLiteral("a.StudentCode = ?"), studentCode);
}

std::optional<Student> StudentRepository::FindByAdmissionNo(int number)
{
    return FindWhere(QStringLiteral("a.AdmissionNo = ?"), number);
}

std::optional<Student> StudentRepository::FindByOptionalAdmissionNo(const QString& number)
{
    return FindWhere(QStringLiteral("a.OptionalAdmissionNo = ?"), number);
}

bool StudentRepository::IsRelieved(int studentCode)
{
    auto row =
        main_.Query(QStringLiteral("SELECT TCNo FROM StudentMaster WHERE StudentCode = ?"), studentCode);
    return row.Next() && !row.Text(0).trimmed().isEmpty();
}

// The row that stands for no student has a number as well, which no student can have.

bool StudentRepository::AdmissionNoTaken(int admissionNo, int exceptCode)
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM StudentMaster"
                                       " WHERE AdmissionNo = ? AND (StudentCode <> ? OR StudentCode = 0)"),
                        admissionNo, exceptCode) > 0;
}

bool StudentRepository::OptionalAdmissionNoTaken(const QString& number, int exceptCode)
{
    return main_.Number(
               QStringLiteral("SELECT count(*) FROM StudentMaster"
                              " WHERE OptionalAdmissionNo = ? AND (StudentCode <> ? OR StudentCode = 0)"),
               number, exceptCode) > 0;
}

void StudentRepository::Insert(store::Transaction& transaction, const Student& student, int userCode)
{
    transaction.Execute(
        QStringLiteral("INSERT INTO StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo,"
                       " AdmissionDate, AcademicYearCode, StudentName, FgName, Sex, Address1, Address2,"
                       " CityCode, Pincode, Telephone, Email, DOB, BloodGroupCode, ManGenAutoGen,"
                       " RelievingDate, RelievingReason, TCNo, TCDate, UserCode)"
                       " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, NULL, '', '', NULL, ?)"),
        student.code, student.admissionNo, student.optionalAdmissionNo, student.admissionDate,
        student.academicYearCode, student.name, student.fatherOrGuardian, Sex(student), student.address1,
        student.address2, student.cityCode, student.pinCode, student.telephone, student.email,
        student.dateOfBirth, student.bloodGroupCode,
        student.numberGenerated ? QStringLiteral("Y") : QStringLiteral("N"), userCode);
}

void StudentRepository::Update(store::Transaction& transaction, const Student& student, int userCode)
{
    const QString update =
        QStringLiteral("UPDATE StudentMaster SET StudentName = ?, OptionalAdmissionNo = ?, AdmissionDate = ?,"
                       " FgName = ?, Sex = ?, Address1 = ?, Address2 = ?, CityCode = ?, Pincode = ?,"
                       " Telephone = ?, Email = ?, DOB = ?, BloodGroupCode = ?, UserCode = ?"
                       " WHERE StudentCode = ?");
    const int changed =
        transaction.Execute(update, student.name, student.optionalAdmissionNo, student.admissionDate,
                            student.fatherOrGuardian, Sex(student), student.address1, student.address2,
                            student.cityCode, student.pinCode, student.telephone, student.email,
                            student.dateOfBirth, student.bloodGroupCode, userCode, student.code);
    if (changed == 0)
        throw store::StoreError::RowIsGone(update);
}

void StudentRepository::Delete(store::Transaction& transaction, int studentCode)
{
    transaction.Execute(QStringLiteral("DELETE FROM StudentMaster WHERE StudentCode = ?"), studentCode);
}

} // namespace tally
