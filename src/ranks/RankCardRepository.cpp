#include "ranks/RankCardRepository.h"

#include "ranks/CodesQuery.h"
#include "store/Transaction.h"

#include <QHash>

namespace tally {

namespace {

std::optional<double> Value(const store::Statement& row, int column)
{
    return row.IsNull(column) ? std::nullopt : std::optional<double>(row.Double(column));
}

} // namespace

StudentListInput RankCardRepository::LoadStudentList(const RankCardScope& scope)
{
    const store::ReadTransaction reading(main_);
    StudentListInput input;
    store::Statement students = main_.Query(
        QStringLiteral("Select a.StudentCode,a.StudentName from StudentMaster a inner join "
                       "StudentClassDivision b on a.StudentCode=b.StudentCode where b.ClassCode=? "
                       "and b.DivisionCode=? and b.AcademicYearCode=? order by a.StudentName,a.StudentCode"),
        scope.classCode, scope.divisionCode, scope.academicYearCode);
    while (students.Next())
        input.students.push_back({students.Int(0), students.Text(1)});

    input.subjectCount = static_cast<int>(main_.Number(
        QStringLiteral("Select Count(*) from ClassSubjectTeacher where ClassCode=? and DivisionCode=? and "
                       "AcademicYearCode=?"),
        scope.classCode, scope.divisionCode, scope.academicYearCode));

    // All exams at once: one reading of the division's marks, however many exams are ticked.
    store::Statement counts = main_.Query(
        QStringLiteral("Select StudentCode,ExamCode,Count(*) from MarkMaster where ClassCode=? and "
                       "DivisionCode=? and AcademicYearCode=? group by ExamCode,StudentCode"),
        scope.classCode, scope.divisionCode, scope.academicYearCode);
    while (counts.Next())
        input.counts.push_back({counts.Int(0), counts.Int(1), counts.Int(2)});
    return input;
}

RankCardInput RankCardRepository::LoadRankCards(const RankCardScope& scope,
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

void RankCardRepository::LoadNames(const RankCardScope& scope, RankCardInput& input)
{
    store::Statement rows = main_.Query(
        QStringLiteral("Select c.ClassName,d.DivisionName from ClassDivisionMaster c inner join "
                       "ClassDivisionDetails d on c.ClassCode=d.ClassCode where d.ClassCode=? and "
                       "d.DivisionCode=?"),
        scope.classCode, scope.divisionCode);
    if (rows.Next()) {
        input.className = rows.Text(0);
        input.divisionName = rows.Text(1);
    }
}

void RankCardRepository::LoadStudents(const RankCardScope& scope, const std::vector<int>& studentCodes,
                                      RankCardInput& input)
{
    QHash<int, CardStudent> marked;
    store::Statement rows = main_.Query(
        QStringLiteral("Select StudentCode,StudentName,OptionalAdmissionNo from StudentMaster where "
                       "StudentCode in (Select StudentCode from MarkMaster where ClassCode=? and "
                       "DivisionCode=?)"),
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
                   QStringLiteral("Select ExamCode,ExamName from ExamMaster where ExamCode in (%1) order by "
                                  "ExamOrder,ExamCode"),
                   examCodes);
    while (rows.Next())
        input.exams.push_back({rows.Int(0), rows.Text(1)});
}

void RankCardRepository::LoadSubjects(const RankCardScope& scope, SubjectDisplay display,
                                      RankCardInput& input)
{
    QString sql = QStringLiteral("Select a.SubjectShortName,a.SubjectCode from SubjectMaster a inner join "
                                 "ClassSubjectTeacher b on a.SubjectCode=b.SubjectCode where "
                                 "b.AcademicYearCode=? and b.ClassCode=? and b.DivisionCode=?");
    if (display == SubjectDisplay::TakenForRankOnly)
        sql += QLatin1String(" and b.TakenForRank='Yes'");
    store::Statement rows = main_.Query(sql + QLatin1String(" order by b.SlNo,a.SubjectCode"),
                                        scope.academicYearCode, scope.classCode, scope.divisionCode);
    while (rows.Next())
        input.subjects.push_back({rows.Int(1), rows.Text(0).trimmed()});
}

void RankCardRepository::LoadMarks(const RankCardScope& scope, const std::vector<int>& examCodes,
                                   RankCardInput& input)
{
    // A student who repeats the class has marks of two years in it; the later ones are read last and stand.
    store::Statement rows = QueryCodes(
        main_,
        QStringLiteral("Select StudentCode,ExamCode,SubjectCode,Mark from MarkMaster where ClassCode=? and "
                       "DivisionCode=? and ExamCode in (%1) order by "
                       "AcademicYearCode,ExamCode,StudentCode,SubjectCode"),
        examCodes, scope.classCode, scope.divisionCode);
    while (rows.Next())
        input.marks.push_back({rows.Int(0), rows.Int(1), rows.Int(2), rows.Double(3)});
}

void RankCardRepository::LoadRanks(const RankCardScope& scope, const std::vector<int>& examCodes,
                                   RankCardInput& input)
{
    store::Statement rows = QueryCodes(
        main_,
        QStringLiteral("Select StudentCode,ExamCode,Total,Average,Rank,Grade from TempRankTotal where "
                       "ClassCode=? and DivisionCode=? and ExamCode in (%1) order by "
                       "AcademicYearCode,ExamCode,StudentCode"),
        examCodes, scope.classCode, scope.divisionCode);
    while (rows.Next())
        input.ranks.push_back({rows.Int(0), rows.Int(1), Value(rows, 2), Value(rows, 3),
                               rows.IsNull(4) ? NoRank : rows.Long(4), rows.Text(5)});
}

} // namespace tally
