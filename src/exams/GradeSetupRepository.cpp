#include "exams/GradeSetupRepository.h"

namespace tally {

std::vector<GradeRecord> GradeSetupRepository::Rows(const SchoolScope& scope)
{
    std::vector<GradeRecord> table;
    store::Statement rows = main_.Query(
        QStringLiteral("SELECT TotalAverage, SubjectAverage, Grade FROM RankMaster WHERE ClassCode = ? AND "
                       "DivisionCode = ? AND AcademicYearCode = ? AND ExamCode = ? ORDER BY Status"),
        scope.classCode, scope.divisionCode, scope.academicYearCode, scope.examCode);
    while (rows.Next())
        table.push_back({rows.Double(0), rows.Double(1), rows.Text(2)});
    return table;
}

bool GradeSetupRepository::HasMarks(const SchoolScope& scope)
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM MarkMaster WHERE ClassCode = ? AND "
                                       "DivisionCode = ? AND ExamCode = ? AND AcademicYearCode = ?"),
                        scope.classCode, scope.divisionCode, scope.examCode, scope.academicYearCode) > 0;
}

std::set<int> GradeSetupRepository::DivisionsWithTable(const SchoolScope& scope)
{
    std::set<int> divisions;
    store::Statement rows = main_.Query(
        QStringLiteral("SELECT DISTINCT DivisionCode FROM RankMaster WHERE AcademicYearCode = ? AND "
                       "ExamCode = ? AND ClassCode = ?"),
        scope.academicYearCode, scope.examCode, scope.classCode);
    while (rows.Next())
        divisions.insert(rows.Int(0));
    return divisions;
}

void GradeSetupRepository::Delete(store::Transaction& transaction, const SchoolScope& scope)
{
    transaction.Execute(QStringLiteral("DELETE FROM RankMaster WHERE ClassCode = ? AND DivisionCode = ? AND "
                                       "AcademicYearCode = ? AND ExamCode = ?"),
                        scope.classCode, scope.divisionCode, scope.academicYearCode, scope.examCode);
}

void GradeSetupRepository::Replace(store::Transaction& transaction, const SchoolScope& scope,
                                   const std::vector<GradeRecord>& rows, std::optional<int> userCode)
{
    Delete(transaction, scope);
    store::Statement insert = transaction.Prepare(
        QStringLiteral("INSERT INTO RankMaster (AcademicYearCode, ExamCode, ClassCode, DivisionCode, "
                       "TotalAverage, SubjectAverage, Grade, Status, UserCode) VALUES "
                       "(?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    const int userPosition = 9;
    int status = 0;
    for (const GradeRecord& row : rows) {
        insert.Bind(scope.academicYearCode, scope.examCode, scope.classCode, scope.divisionCode,
                    row.totalAverage, row.subjectAverage, row.grade, ++status);
        if (userCode)
            insert.BindAt(userPosition, qint64{*userCode});
        else
            insert.BindNullAt(userPosition);
        insert.RunBound();
    }
}

} // namespace tally
