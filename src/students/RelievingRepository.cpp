#include "students/RelievingRepository.h"

#include "core/SearchConditions.h"
#include "store/Dialect.h"
#include "store/StoreError.h"
#include "students/AdmissionRepository.h"
#include "students/StudentRepository.h"

namespace tally {

namespace {

/// The student, as long as his certificate has this number. On roll is also whose number is blank or Null.
const QString WhereKnownAs = QStringLiteral(" WHERE StudentCode = ? AND trim(coalesce(TCNo, '')) = ?");

} // namespace

std::optional<ClassNames> RelievingRepository::LastClassOf(int studentCode)
{
    auto row = main_.Query(QStringLiteral("SELECT e.ClassName, f.DivisionName FROM StudentClassDivision a"
                                          " JOIN ClassDivisionMaster e ON e.ClassCode = a.ClassCode"
                                          " JOIN ClassDivisionDetails f ON f.ClassCode = a.ClassCode"
                                          " AND f.DivisionCode = a.DivisionCode WHERE a.StudentCode = ?"
                                          " ORDER BY a.AcademicYearCode DESC"),
                           studentCode);
    if (!row.Next())
        return std::nullopt;
    return ClassNames{row.Text(0), row.Text(1)};
}

bool RelievingRepository::IsPromoted(int studentCode, int academicYearCode)
{
    auto row = main_.Query(QStringLiteral("SELECT Status FROM StudentClassDivision"
                                          " WHERE StudentCode = ? AND AcademicYearCode = ?"),
                           studentCode, academicYearCode);
    return row.Next() && row.Text(0) == QLatin1String("N");
}

RelievingFacts RelievingRepository::Facts(int studentCode, int formerCode, int academicYearCode,
                                          const QString& tcNo)
{
    const auto student = StudentRepository(main_).Find(studentCode);
    return {
        .relieved = student && student->IsRelieved() && studentCode != formerCode,
        .placed = AdmissionRepository(main_).Find(studentCode, academicYearCode).has_value(),
        .promoted = IsPromoted(studentCode, academicYearCode),
        .admissionDate = student ? student->admissionDate : QDate(),
        .lastWorkingDay = LastWorkingDay(),
        .tcNoTaken = TCNoTaken(tcNo, studentCode, formerCode),
    };
}

QDate RelievingRepository::LastWorkingDay()
{
    auto row = main_.Query(QStringLiteral("SELECT max(ApplicationDate) FROM ApplicationDate"));
    return row.Next() ? row.Date(0) : QDate();
}

bool RelievingRepository::TCNoTaken(const QString& tcNo, int studentCode, int formerCode)
{
    // A number that was stored in small letters is another one than the same in capitals.
    return !tcNo.isEmpty() &&
           main_.Number(QStringLiteral("SELECT count(*) FROM StudentMaster WHERE TCNo = ?") +
                            store::dialect::RespectingCase() +
                            QStringLiteral(" AND StudentCode <> ? AND StudentCode <> ?"),
                        tcNo.toUpper(), studentCode, formerCode) > 0;
}

GridResult RelievingRepository::Search(const RelievedFilter& filter)
{
    SearchConditions conditions;
    conditions.Add(QStringLiteral("OptionalAdmissionNo LIKE '%' || ? || '%'"), filter.admissionNo);
    conditions.Add(QStringLiteral("StudentName LIKE '%' || ? || '%'"), filter.studentName);
    conditions.Add(QStringLiteral("AdmissionDate >= ?"), filter.admissionFrom);
    conditions.Add(QStringLiteral("AdmissionDate <= ?"), filter.admissionTo);
    conditions.Add(QStringLiteral("RelievingDate >= ?"), filter.relievingFrom);
    conditions.Add(QStringLiteral("RelievingDate <= ?"), filter.relievingTo);
    return ReadGrid(
        conditions.Query(
            main_,
            QStringLiteral("SELECT StudentCode, OptionalAdmissionNo AS \"Admission No\","
                           " AdmissionDate AS \"Admission Date\", StudentName AS \"Student Name\","
                           " RelievingDate AS \"Relieving Date\", TCDate AS \"TC Date\", RelievingReason,"
                           " TCNo AS \"TC No\", AcademicYearCode FROM StudentMaster"
                           " WHERE StudentCode > 0 AND TCNo <> ''"),
            QStringLiteral(" ORDER BY StudentName")),
        {QStringLiteral("Admission Date"), QStringLiteral("Relieving Date"), QStringLiteral("TC Date")});
}

void RelievingRepository::Relieve(store::Transaction& transaction, int studentCode, const Relieving& entry,
                                  const QString& tcNo)
{
    const QString update =
        QStringLiteral("UPDATE StudentMaster SET RelievingDate = ?, RelievingReason = ?, TCNo = ?,"
                       " TCDate = ?") +
        WhereKnownAs;
    if (transaction.Execute(update, entry.relievingDate, entry.reason, entry.tcNo, entry.tcDate, studentCode,
                            tcNo.trimmed()) == 0)
        throw store::StoreError::RowIsGone(update);
}

void RelievingRepository::PutBackOnRoll(store::Transaction& transaction, int studentCode, const QString& tcNo)
{
    const QString update = QStringLiteral("UPDATE StudentMaster SET RelievingDate = NULL,"
                                          " RelievingReason = '', TCNo = '', TCDate = NULL") +
                           WhereKnownAs;
    if (transaction.Execute(update, studentCode, tcNo.trimmed()) == 0)
        throw store::StoreError::RowIsGone(update);
}

} // namespace tally
