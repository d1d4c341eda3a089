#include "students/AdmissionRepository.h"

#include "core/SearchConditions.h"
#include "store/StoreError.h"
#include "students/StudentRepository.h"

namespace tally {

CodedTexts AdmissionRepository::StudentsToPlace(int academicYearCode)
{
    return ReadCodedTexts(
        main_.Query(QStringLiteral("SELECT a.StudentCode, a.OptionalAdmissionNo FROM StudentMaster a"
                                   " LEFT JOIN StudentClassDivision b ON a.StudentCode = b.StudentCode"
                                   " WHERE b.ClassCode IS NULL AND a.AcademicYearCode = ?"
                                   " AND a.StudentCode > 0 ORDER BY a.OptionalAdmissionNo"),
                    academicYearCode));
}

std::optional<Placement> AdmissionRepository::Find(int studentCode, int academicYearCode)
{
    auto row = main_.Query(QStringLiteral("SELECT ClassCode, DivisionCode FROM StudentClassDivision"
                                          " WHERE StudentCode = ? AND AcademicYearCode = ?"),
                           studentCode, academicYearCode);
    if (!row.Next())
        return std::nullopt;
    return Placement{row.Int(0), row.Int(1)};
}

PlacementFacts AdmissionRepository::Facts(int studentCode, int academicYearCode)
{
    return {
        .relieved = StudentRepository(main_).IsRelieved(studentCode),
        .placements = static_cast<int>(main_.Number(
            QStringLiteral("SELECT count(*) FROM StudentClassDivision WHERE StudentCode = ?"), studentCode)),
        .laterPlacements = CountOf(QStringLiteral("SELECT count(*) FROM StudentClassDivision"
                                                  " WHERE StudentCode = ? AND AcademicYearCode > ?"),
                                   studentCode, academicYearCode),
        .marks = CountOf(QStringLiteral("SELECT count(*) FROM MarkMaster"
                                        " WHERE StudentCode = ? AND AcademicYearCode = ?"),
                         studentCode, academicYearCode),
    };
}

int AdmissionRepository::CountOf(const QString& sql, int studentCode, int academicYearCode)
{
    return static_cast<int>(main_.Number(sql, studentCode, academicYearCode));
}

GridResult AdmissionRepository::Search(int academicYearCode, const PlacementFilter& filter)
{
    SearchConditions conditions;
    conditions.Bound(QStringLiteral("d.AcademicYearCode = ?"), academicYearCode);
    conditions.Add(QStringLiteral("upper(a.StudentName) LIKE '%' || upper(?) || '%'"), filter.studentName);
    conditions.Add(QStringLiteral("upper(a.OptionalAdmissionNo) LIKE '%' || upper(?) || '%'"),
                   filter.admissionNo);
    conditions.Add(QStringLiteral("d.ClassCode = ?"), filter.classCode);
    conditions.Add(QStringLiteral("d.DivisionCode = ?"), filter.divisionCode);
    QString select =
        QStringLiteral("SELECT a.StudentName AS \"Student Name\", a.StudentCode,"
                       " a.OptionalAdmissionNo AS \"Admission No\", b.ClassName AS \"Class Name\","
                       " c.DivisionName AS \"Division Name\", b.ClassCode AS \"Class Code\", b.ClassOrder,"
                       " d.AcademicYearCode FROM StudentClassDivision d"
                       " JOIN StudentMaster a ON a.StudentCode = d.StudentCode"
                       " JOIN ClassDivisionMaster b ON b.ClassCode = d.ClassCode"
                       " JOIN ClassDivisionDetails c ON c.ClassCode = d.ClassCode"
                       " AND c.DivisionCode = d.DivisionCode WHERE a.StudentCode > 0");
    if (filter.onRollOnly)
        select += QStringLiteral(" AND a.TCNo = '' AND d.Status = 'Y'");
    return ReadGrid(conditions.Query(
        main_, select, QStringLiteral(" ORDER BY b.ClassOrder, d.DivisionCode, a.StudentName")));
}

void AdmissionRepository::Insert(store::Transaction& transaction, int studentCode, int academicYearCode,
                                 const Placement& placement, int userCode)
{
    transaction.Execute(QStringLiteral("INSERT INTO StudentClassDivision (StudentCode, AcademicYearCode,"
                                       " ClassCode, DivisionCode, Status, UserCode)"
                                       " VALUES (?, ?, ?, ?, 'Y', ?)"),
                        studentCode, academicYearCode, placement.classCode, placement.divisionCode, userCode);
}

void AdmissionRepository::Update(store::Transaction& transaction, int studentCode, int academicYearCode,
                                 const Placement& placement, int userCode)
{
    const QString update =
        QStringLiteral("UPDATE StudentClassDivision SET ClassCode = ?, DivisionCode = ?, UserCode = ?"
                       " WHERE StudentCode = ? AND AcademicYearCode = ?");
    if (transaction.Execute(update, placement.classCode, placement.divisionCode, userCode, studentCode,
                            academicYearCode) == 0)
        throw store::StoreError::RowIsGone(update);
}

void AdmissionRepository::Delete(store::Transaction& transaction, int studentCode, int academicYearCode)
{
    transaction.Execute(QStringLiteral("DELETE FROM StudentClassDivision"
                                       " WHERE StudentCode = ? AND AcademicYearCode = ?"),
                        studentCode, academicYearCode);
}

} // namespace tally
