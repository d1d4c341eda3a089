#include "ranks/RankRepository.h"

#include "core/school/CodesQuery.h"
#include "core/school/DivisionRepository.h"

#include <algorithm>
#include <map>

namespace tally {

namespace {

std::vector<QString> FirstColumn(store::Statement rows)
{
    std::vector<QString> texts;
    while (rows.Next())
        texts.push_back(rows.Text(0));
    return texts;
}

} // namespace

RankInput RankRepository::LoadRankInput(const SchoolScope& scope, const std::vector<int>& divisionCodes)
{
    const store::ReadTransaction reading(main_);
    RankInput input;
    store::Statement names = main_.Query(
        QStringLiteral(
            "SELECT c.ClassName, d.DivisionCode, d.DivisionName FROM ClassDivisionMaster c INNER JOIN "
            "ClassDivisionDetails d ON d.ClassCode = c.ClassCode WHERE c.ClassCode = ?"),
        scope.classCode);
    std::map<int, QString> divisionNames;
    while (names.Next()) {
        input.className = names.Text(0);
        divisionNames[names.Int(1)] = names.Text(2);
    }
    for (const int divisionCode : divisionCodes)
        input.divisions.push_back({divisionCode, divisionNames[divisionCode]});

    store::Statement students = QueryCodes(
        main_,
        QStringLiteral(
            "SELECT a.StudentCode, a.DivisionCode, b.StudentName, b.OptionalAdmissionNo FROM "
            "StudentClassDivision a INNER JOIN StudentMaster b ON b.StudentCode = a.StudentCode WHERE "
            "a.AcademicYearCode = ? AND a.ClassCode = ? AND a.DivisionCode IN (%1) "
            "ORDER BY a.DivisionCode, a.StudentCode"),
        divisionCodes, scope.academicYearCode, scope.classCode);
    while (students.Next())
        input.students.push_back({students.Int(0), students.Int(1), students.Text(2), students.Text(3)});

    input.subjects = DivisionRepository(main_).LoadSubjectSetup(scope);
    std::erase_if(input.subjects, [&](const SubjectSetup& subject) {
        return std::find(divisionCodes.begin(), divisionCodes.end(), subject.divisionCode) ==
               divisionCodes.end();
    });

    store::Statement marks = QueryCodes(
        main_,
        QStringLiteral(
            "SELECT StudentCode, DivisionCode, SubjectCode, LeaveOrPresent, Mark FROM MarkMaster WHERE "
            "AcademicYearCode = ? AND ExamCode = ? AND ClassCode = ? AND DivisionCode IN (%1)"),
        divisionCodes, scope.academicYearCode, scope.examCode, scope.classCode);
    while (marks.Next()) {
        input.marks.push_back(
            {marks.Int(0), marks.Int(1), marks.Int(2), marks.FirstLetter(3) == 'P', marks.Double(4)});
    }
    input.gradeTable = LoadGradeTable(DivisionRepository(main_).LoadGradeBands(scope), divisionCodes);
    input.grades = LoadDistinctGrades(scope, divisionCodes);
    input.fullMarks = LoadFullMarks(scope, divisionCodes);
    return input;
}

std::vector<QString> RankRepository::LoadGradesInOrder(const SchoolScope& scope,
                                                       const std::vector<int>& divisionCodes)
{
    return FirstColumn(QueryCodes(
        main_,
        QStringLiteral(
            "SELECT DISTINCT Grade, Status FROM RankMaster WHERE AcademicYearCode = ? AND ExamCode = ? AND "
            "ClassCode = ? AND DivisionCode IN (%1) ORDER BY Status, Grade"),
        divisionCodes, scope.academicYearCode, scope.examCode, scope.classCode));
}

std::vector<QString> RankRepository::LoadDistinctGrades(const SchoolScope& scope,
                                                        const std::vector<int>& divisionCodes)
{
    return FirstColumn(QueryCodes(main_,
                                  QStringLiteral("SELECT DISTINCT Grade FROM RankMaster WHERE "
                                                 "AcademicYearCode = ? AND ClassCode = ? AND ExamCode = ? "
                                                 "AND DivisionCode IN (%1) ORDER BY Grade"),
                                  divisionCodes, scope.academicYearCode, scope.classCode, scope.examCode));
}

std::vector<std::optional<double>> RankRepository::LoadFullMarks(const SchoolScope& scope,
                                                                 const std::vector<int>& divisionCodes)
{
    std::map<int, double> sums;
    store::Statement rows = QueryCodes(
        main_,
        QStringLiteral(
            "SELECT DivisionCode, sum(MaximumAllowed) FROM ClassSubjectTeacher WHERE "
            "AcademicYearCode = ? AND "
            "ClassCode = ? AND TakenForRank = 'Yes' AND DivisionCode IN (%1) GROUP BY DivisionCode"),
        divisionCodes, scope.academicYearCode, scope.classCode);
    while (rows.Next())
        sums[rows.Int(0)] = rows.Double(1);

    std::vector<std::optional<double>> fullMarks;
    for (const int divisionCode : divisionCodes) {
        const auto sum = sums.find(divisionCode);
        fullMarks.push_back(sum == sums.end() ? std::nullopt : std::optional<double>(sum->second));
    }
    return fullMarks;
}

void RankRepository::ReplaceRankTotals(store::Transaction& main, const SchoolScope& scope,
                                       const std::vector<int>& divisionCodes,
                                       const std::vector<RankTotal>& totals)
{
    store::Statement old = QueryCodes(
        main.On(),
        QStringLiteral(
            "DELETE FROM TempRankTotal WHERE ClassCode = ? AND AcademicYearCode = ? AND ExamCode = ? "
            "AND DivisionCode IN (%1)"),
        divisionCodes, scope.classCode, scope.academicYearCode, scope.examCode);
    old.RunBound();

    store::Statement insert = main.Prepare(
        QStringLiteral("INSERT INTO TempRankTotal (StudentCode, AcademicYearCode, ExamCode, ClassCode, "
                       "DivisionCode, Total, Average, Rank, Grade) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    for (const RankTotal& total : totals) {
        insert.Bind(total.studentCode, scope.academicYearCode, scope.examCode, scope.classCode,
                    total.divisionCode, total.rankTotal, total.average, total.rank.value_or(0), total.grade);
        if (!total.rank)
            insert.BindNullAt(8);
        insert.RunBound();
    }
}

} // namespace tally
