#include "masters/TeacherRepository.h"

#include "core/SearchConditions.h"
#include "store/Dialect.h"
#include "store/StoreError.h"

namespace tally {

namespace {

QString MaritalStatus(const Teacher& teacher)
{
    return teacher.married ? QStringLiteral("M") : QStringLiteral("S");
}

} // namespace

DateFault FaultWhileChoosing(const QDate& date, const QDate& birth)
{
    if (!date.isValid())
        return DateFault::None;
    if (!birth.isValid())
        return DateFault::BirthMissing;
    return date < birth ? DateFault::NotAfterBirth : DateFault::None;
}

DateFault FaultAtSave(const QDate& date, const QDate& birth)
{
    return date.isValid() && date == birth ? DateFault::NotAfterBirth : FaultWhileChoosing(date, birth);
}

CodedTexts TeacherRepository::Salutations()
{
    return ReadCodedTexts(main_.Query(QStringLiteral(
        "SELECT SalutationCode, SalutationName FROM SalutationMaster ORDER BY SalutationName")));
}

std::optional<Teacher> TeacherRepository::Find(int teacherCode)
{
    auto row = main_.Query(
        QStringLiteral("SELECT a.SalutationCode, a.TeacherName, a.TeacherShortName, a.DOB, a.MaritalStatus,"
                       " a.WeddingDate, a.JoiningDate, a.FHName, a.Address1, a.Address2, b.StateCode,"
                       " a.CityCode, a.PinCode, a.Telephone, a.BloodGroupCode, a.Qualification"
                       " FROM TeacherMaster a LEFT JOIN CityMaster b ON a.CityCode = b.CityCode"
                       " WHERE a.TeacherCode = ?"),
        teacherCode);
    if (!row.Next())
        return std::nullopt;
    return Teacher{
        .salutationCode = row.Int(0),
        .name = row.Text(1),
        .shortName = row.Text(2),
        .dateOfBirth = row.Date(3),
        .married = row.Text(4) == QLatin1String("M"),
        .weddingDate = row.Date(5),
        .joiningDate = row.Date(6),
        .fatherOrSpouse = row.Text(7),
        .address1 = row.Text(8),
        .address2 = row.Text(9),
        .stateCode = row.Int(10),
        .cityCode = row.Int(11),
        .pinCode = row.Text(12),
        .telephone = row.Text(13),
        .bloodGroupCode = row.Int(14),
        .qualification = row.Text(15),
    };
}

bool TeacherRepository::NameTaken(const QString& name, int exceptCode)
{
    // Two teachers may differ in the case of their names alone, which the column itself does not see.
    return main_.Number(QStringLiteral("SELECT count(*) FROM TeacherMaster WHERE TeacherName = ?") +
                            store::dialect::RespectingCase() +
                            QStringLiteral(" AND TeacherCode <> ? AND TeacherCode > 0"),
                        name, exceptCode) > 0;
}

bool TeacherRepository::ShortNameTaken(const QString& shortName, int exceptCode)
{
    auto found =
        main_.Query(QStringLiteral("SELECT TeacherShortName FROM TeacherMaster WHERE TeacherCode <> ?"
                                   " AND TeacherCode > 0 AND upper(TeacherShortName) = upper(?)"),
                    exceptCode, shortName);
    return found.Next();
}

GridResult TeacherRepository::Search(const QString& name, const QString& city)
{
    SearchConditions conditions;
    conditions.Add(QStringLiteral("upper(a.TeacherName) LIKE '%' || upper(?) || '%'"), name);
    conditions.Add(QStringLiteral("upper(b.CityName) LIKE '%' || upper(?) || '%'"), city);
    return ReadGrid(conditions.Query(
        main_,
        QStringLiteral("SELECT a.TeacherName AS \"Teacher Name\", a.TeacherShortName AS \"Short Name\","
                       " CASE WHEN d.StateCode = 0 THEN '' ELSE d.StateName END AS \"State Name\","
                       " CASE WHEN b.CityCode = 0 THEN '' ELSE b.CityName END AS \"City Name\", a.Telephone "
                       "AS \"Telephone\", a.TeacherCode"
                       " FROM TeacherMaster a LEFT JOIN CityMaster b ON a.CityCode = b.CityCode"
                       " LEFT JOIN StateMaster d ON b.StateCode = d.StateCode WHERE a.TeacherCode > 0"),
        QStringLiteral(" ORDER BY a.TeacherName")));
}

void TeacherRepository::Insert(store::Transaction& transaction, int teacherCode, const Teacher& teacher,
                               int userCode)
{
    transaction.Execute(
        QStringLiteral("INSERT INTO TeacherMaster (TeacherCode, SalutationCode, TeacherName, "
                       "TeacherShortName, DOB, MaritalStatus, WeddingDate, JoiningDate, FHName, Address1, "
                       "Address2, CityCode, PinCode, Telephone, BloodGroupCode, Qualification, UserCode) "
                       "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        teacherCode, teacher.salutationCode, teacher.name, teacher.shortName, teacher.dateOfBirth,
        MaritalStatus(teacher), teacher.weddingDate, teacher.joiningDate, teacher.fatherOrSpouse,
        teacher.address1, teacher.address2, teacher.cityCode, teacher.pinCode, teacher.telephone,
        teacher.bloodGroupCode, teacher.qualification, userCode);
}

void TeacherRepository::Update(store::Transaction& transaction, int teacherCode, const Teacher& teacher,
                               int userCode)
{
    const QString update =
        QStringLiteral("UPDATE TeacherMaster SET SalutationCode = ?, TeacherName = ?,"
                       " TeacherShortName = ?, DOB = ?, MaritalStatus = ?, WeddingDate = ?,"
                       " JoiningDate = ?, FHName = ?, Address1 = ?, Address2 = ?, CityCode = ?,"
                       " PinCode = ?, Telephone = ?, BloodGroupCode = ?, Qualification = ?,"
                       " UserCode = ? WHERE TeacherCode = ?");
    const int changed = transaction.Execute(
        update, teacher.salutationCode, teacher.name, teacher.shortName, teacher.dateOfBirth,
        MaritalStatus(teacher), teacher.weddingDate, teacher.joiningDate, teacher.fatherOrSpouse,
        teacher.address1, teacher.address2, teacher.cityCode, teacher.pinCode, teacher.telephone,
        teacher.bloodGroupCode, teacher.qualification, userCode, teacherCode);
    if (changed == 0)
        throw store::StoreError::RowIsGone(update);
}

void TeacherRepository::Delete(store::Transaction& transaction, int teacherCode)
{
    transaction.Execute(QStringLiteral("DELETE FROM TeacherMaster WHERE TeacherCode = ?"), teacherCode);
}

} // namespace tally
