#include "exams/GradeSetupRepository.h"

namespace tally {

namespace {

/// Why the table can no longer become another one than the clerk found; empty where it can.
QString Obstacle(store::Transaction& transaction, const SchoolScope& scope,
                 const std::vector<GradeRecord>& found, const QString& consequence)
{
    const StoredGrades stored = ReadGrades(transaction.On(), scope);
    if (stored.hasMarks)
        return GradesHaveMarks;
    if (stored.rows == found)
        return {};
    const QString how = found.empty()         ? QStringLiteral("Entered")
                        : stored.rows.empty() ? QStringLiteral("Deleted")
                                              : QStringLiteral("Changed");
    return QStringLiteral("This 'Classwise Rank-Grade Setup' Was %1 By Another User Meanwhile.\n").arg(how) +
           consequence;
}

} // namespace

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
        QStringLiteral("SELECT DivisionCode FROM RankMaster WHERE AcademicYearCode = ? AND ExamCode = ? AND "
                       "ClassCode = ?"),
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
    constexpr int UserPosition = 9;
    int status = 0;
    for (const GradeRecord& row : rows) {
        insert.Bind(scope.academicYearCode, scope.examCode, scope.classCode, scope.divisionCode,
                    row.totalAverage, row.subjectAverage, row.grade, ++status);
        if (userCode)
            insert.BindAt(UserPosition, qint64{*userCode});
        else
            insert.BindNullAt(UserPosition);
        insert.RunBound();
    }
}

StoredGrades ReadGrades(store::Connection& main, const SchoolScope& scope)
{
    const store::ReadTransaction reading(main);
    GradeSetupRepository grades(main);
    return {grades.Rows(scope), grades.HasMarks(scope)};
}

QString SaveGrades(store::Transaction& transaction, const SchoolScope& scope,
                   const std::vector<GradeRecord>& found, const std::vector<GradeRecord>& rows)
{
    QString obstacle = Obstacle(transaction, scope, found, QStringLiteral("You Cannot Save This Data."));
    if (obstacle.isEmpty())
        GradeSetupRepository::Replace(transaction, scope, rows);
    return obstacle;
}

QString DeleteGrades(store::Transaction& transaction, const SchoolScope& scope,
                     const std::vector<GradeRecord>& found)
{
    QString obstacle = Obstacle(transaction, scope, found, QStringLiteral("You Cannot Delete This Data."));
    if (obstacle.isEmpty())
        GradeSetupRepository::Delete(transaction, scope);
    return obstacle;
}

} // namespace tally
