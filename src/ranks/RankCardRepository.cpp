#include "ranks/RankCardRepository.h"

#include "core/school/CodesQuery.h"
#include "store/Transaction.h"

#include <QHash>

namespace tally {

namespace {

std::optional<double> Value(const store::Statement& row, int column)
{
    return row.IsNull(column) ? std::nullopt : std::optional<double>(row.Double(column));
}

} // namespace

StudentListInput RankCardRepository::LoadStudentList(const SchoolScope& scope)
{
    const store::ReadTransaction reading(main_);
    StudentListInput input;
    store::Statement students = main_.Query(
        QStringLiteral(
            "SELECT a.StudentCode, a.StudentName FROM StudentMaster a INNER JOIN "
            "StudentClassDivision b ON a.StudentCode = b.StudentCode WHERE b.ClassCode = ? "
            "AND b.DivisionCode = ? AND b.AcademicYearCode = ? ORDER BY a.StudentName, a.StudentCode"),
        scope.classCode, scope.divisionCode, scope.academicYearCode);
    while (students.Next())
        input.students.push_back({students.Int(0), students.Text(1)});

    input.subjectCount = static_cast<int>(main_.Number(
        QStringLiteral(
            "SELECT count(*) FROM ClassSubjectTeacher WHERE ClassCode = ? AND DivisionCode = ? AND "
            "AcademicYearCode = ?"),
        scope.classCode, scope.divisionCode, scope.academicYearCode));

    // All exams at once: one reading of the division's marks, however many exams are ticked.
    store::Statement counts = main_.Query(
        QStringLiteral("SELECT StudentCode, ExamCode, count(*) FROM MarkMaster WHERE ClassCode = ? AND "
                       "DivisionCode = ? AND AcademicYearCode = ? GROUP BY ExamCode, StudentCode"),
        scope.classCode, scope.divisionCode, scope.academicYearCode);
    while (counts.Next())
        input.counts.push_back({counts.Int(0), counts.Int(1), counts.Int(2)});
    return input;
}

RankCardInput RankCardRepository::LoadRankCards(const SchoolScope& scope,
                                                const std::vector<int>& studentCodes,
                                                const std::vector<int>& examCodes, SubjectDisplay display)
{
    const store::ReadTransaction reading(main_);
    RankCardInput input;
    LoadNames(scope, input);
    LoadStudents(scope, studentCodes, input);
    LoadExams(examCodes, input);
    LoadSubjects(scope, display, input);
    LoadMarks(scope, examCodes, input);
    LoadRanks(scope, examCodes, input);
    return input;
}

void RankCardRepository::LoadNames(const SchoolScope& scope, RankCardInput& input)
{
    store::Statement rows = main_.Query(
        QStringLiteral("SELECT c.ClassName, d.DivisionName FROM ClassDivisionMaster c INNER JOIN "
                       "ClassDivisionDetails d ON c.ClassCode = d.ClassCode WHERE d.ClassCode = ? AND "
                       "d.DivisionCode = ?"),
        scope.classCode, scope.divisionCode);
    if (rows.Next()) {
        input.className = rows.Text(0);
        input.divisionName = rows.Text(1);
    }
}

void RankCardRepository::LoadStudents(const SchoolScope& scope, const std::vector<int>& studentCodes,
                                      RankCardInput& input)
{
    QHash<int, CardStudent> marked;
    store::Statement rows = main_.Query(
        QStringLiteral("SELECT StudentCode, StudentName, OptionalAdmissionNo FROM StudentMaster WHERE "
                       "StudentCode IN (SELECT StudentCode FROM MarkMaster WHERE ClassCode = ? AND "
                       "DivisionCode = ?)"),
        scope.classCode, scope.divisionCode);
    while (rows.Next())
        marked.insert(rows.Int(0), {rows.Int(0), rows.Text(1), rows.Text(2)});
    for (const int studentCode : studentCodes)
        input.students.push_back(marked.value(studentCode, {studentCode, {}, {}}));
}

void RankCardRepository::LoadExams(const std::vector<int>& examCodes, RankCardInput& input)
{
    store::Statement rows =
        QueryCodes(main_,
                   QStringLiteral("SELECT ExamCode, ExamName FROM ExamMaster WHERE ExamCode IN (%1) ORDER BY "
                                  "ExamOrder, ExamCode"),
                   examCodes);
    while (rows.Next())
        input.exams.push_back({rows.Int(0), rows.Text(1)});
}

void RankCardRepository::LoadSubjects(const SchoolScope& scope, SubjectDisplay display, RankCardInput& input)
{
    QString sql = QStringLiteral("SELECT a.SubjectShortName, a.SubjectCode FROM SubjectMaster a INNER JOIN "
                                 "ClassSubjectTeacher b ON a.SubjectCode = b.SubjectCode WHERE "
                                 "b.AcademicYearCode = ? AND b.ClassCode = ? AND b.DivisionCode = ?");
    if (display == SubjectDisplay::TakenForRankOnly)
        sql += QLatin1String(" AND b.TakenForRank = 'Yes'");
    store::Statement rows = main_.Query(sql + QLatin1String(" ORDER BY b.SlNo, a.SubjectCode"),
                                        scope.academicYearCode, scope.classCode, scope.divisionCode);
    while (rows.Next())
        input.subjects.push_back({rows.Int(1), rows.Text(0).trimmed()});
}

void RankCardRepository::LoadMarks(const SchoolScope& scope, const std::vector<int>& examCodes,
                                   RankCardInput& input)
{
    // A student who repeats the class has marks of two years in it; the later ones are read last and stand.
    store::Statement rows = QueryCodes(
        main_,
        QStringLiteral(
            "SELECT StudentCode, ExamCode, SubjectCode, Mark FROM MarkMaster WHERE ClassCode = ? AND "
            "DivisionCode = ? AND ExamCode IN (%1) ORDER BY "
            "AcademicYearCode, ExamCode, StudentCode, SubjectCode"),
        examCodes, scope.classCode, scope.divisionCode);
    while (rows.Next())
        input.marks.push_back({rows.Int(0), rows.Int(1), rows.Int(2), rows.Double(3)});
}

void RankCardRepository::LoadRanks(const SchoolScope& scope, const std::vector<int>& examCodes,
                                   RankCardInput& input)
{
    store::Statement rows = QueryCodes(
        main_,
        QStringLiteral("SELECT StudentCode, ExamCode, Total, Average, Rank, Grade FROM TempRankTotal WHERE "
                       "ClassCode = ? AND DivisionCode = ? AND ExamCode IN (%1) ORDER BY "
                       "AcademicYearCode, ExamCode, StudentCode"),
        examCodes, scope.classCode, scope.divisionCode);
    while (rows.Next())
        input.ranks.push_back({rows.Int(0), rows.Int(1), Value(rows, 2), Value(rows, 3),
                               rows.IsNull(4) ? NoRank : rows.Long(4), rows.Text(5)});
}

} // namespace tally
