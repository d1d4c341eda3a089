#include "ranks/RankRepository.h"

#include "core/school/SchoolListRepository.h"
#include "ranks/CodesQuery.h"

#include <algorithm>
#include <map>

namespace tally {

namespace {

bool IsYes(const QString& takenForRank)
{
    return takenForRank.compare(QLatin1String("Yes"), Qt::CaseInsensitive) == 0;
}

std::vector<QString> FirstColumn(store::Statement rows)
{
    std::vector<QString> texts;
    while (rows.Next())
        texts.push_back(rows.Text(0));
    return texts;
}

} // namespace

std::vector<DivisionFacts> RankRepository::LoadDivisionFacts(const RankScope& scope)
{
    const store::ReadTransaction reading(main_);
    std::vector<DivisionFacts> divisions;
    std::vector<int> codes;
    for (const auto& [code, name] : SchoolListRepository(main_).DivisionsByCode(scope.classCode)) {
        divisions.push_back({RankDivision{code, name}});
        codes.push_back(code);
    }

    const auto count = [&](int DivisionFacts::*fact, store::Statement rows) {
        while (rows.Next()) {
            for (DivisionFacts& facts : divisions) {
                if (facts.division.divisionCode == rows.Int(0))
                    facts.*fact = rows.Int(1);
            }
        }
    };
    // Naming the divisions lets the engine go straight to this year's rows of each.
    count(&DivisionFacts::students,
          QueryCodes(main_,
                     QStringLiteral("SELECT DivisionCode, count(*) FROM StudentClassDivision WHERE "
                                    "AcademicYearCode = ? AND ClassCode = ? AND DivisionCode IN (%1) "
                                    "GROUP BY DivisionCode"),
                     codes, scope.academicYearCode, scope.classCode));
    count(&DivisionFacts::gradeBands,
          QueryCodes(
              main_,
              QStringLiteral("SELECT DivisionCode, count(*) FROM RankMaster WHERE AcademicYearCode = ? AND "
                             "ClassCode = ? AND ExamCode = ? AND DivisionCode IN (%1) GROUP BY DivisionCode"),
              codes, scope.academicYearCode, scope.classCode, scope.examCode));

    std::map<std::pair<int, int>, int> marks;
    store::Statement counts = QueryCodes(
        main_,
        QStringLiteral(
            "SELECT DivisionCode, SubjectCode, count(*) FROM MarkMaster WHERE AcademicYearCode = ? AND "
            "ExamCode = ? AND ClassCode = ? AND DivisionCode IN (%1) GROUP BY DivisionCode, SubjectCode"),
        codes, scope.academicYearCode, scope.examCode, scope.classCode);
    while (counts.Next())
        marks[{counts.Int(0), counts.Int(1)}] = counts.Int(2);

    for (const SubjectSetup& subject : LoadSubjectSetup(scope)) {
        const auto entered = marks.find({subject.divisionCode, subject.subjectCode});
        for (DivisionFacts& facts : divisions) {
            if (facts.division.divisionCode != subject.divisionCode)
                continue;
            const bool complete = entered != marks.end() && entered->second == facts.students;
            ++facts.subjects;
            facts.completeSubjects += complete ? 1 : 0;
            facts.subjectsTakenForRank += subject.takenForRank ? 1 : 0;
            facts.completeSubjectsTakenForRank += complete && subject.takenForRank ? 1 : 0;
        }
    }
    return divisions;
}

std::vector<SubjectSetup> RankRepository::LoadSubjectSetup(const RankScope& scope)
{
    std::vector<SubjectSetup> subjects;
    store::Statement rows = main_.Query(
        QStringLiteral(
            "SELECT a.DivisionCode, a.SubjectCode, b.SubjectShortName, a.TakenForRank, a.MaximumMark, "
            "a.MaximumAllowed FROM ClassSubjectTeacher a INNER JOIN SubjectMaster b ON "
            "b.SubjectCode = a.SubjectCode WHERE a.AcademicYearCode = ? AND a.ClassCode = ? "
            "ORDER BY a.SlNo, a.DivisionCode, a.SubjectCode"),
        scope.academicYearCode, scope.classCode);
    while (rows.Next()) {
        subjects.push_back(
            {rows.Int(0), rows.Int(1), rows.Text(2), IsYes(rows.Text(3)), rows.Double(4), rows.Double(5)});
    }
    return subjects;
}

std::vector<GradeBand> RankRepository::LoadGradeBands(const RankScope& scope)
{
    std::vector<GradeBand> bands;
    store::Statement rows = main_.Query(
        QStringLiteral(
            "SELECT DivisionCode, TotalAverage, SubjectAverage, Grade FROM RankMaster WHERE "
            "AcademicYearCode = ? AND ClassCode = ? AND ExamCode = ? ORDER BY DivisionCode, Status"),
        scope.academicYearCode, scope.classCode, scope.examCode);
    while (rows.Next())
        bands.push_back({rows.Int(0), rows.Double(1), rows.Double(2), rows.Text(3)});
    return bands;
}

RankInput RankRepository::LoadRankInput(const RankScope& scope, const std::vector<int>& divisionCodes)
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

    input.subjects = LoadSubjectSetup(scope);
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
    input.gradeTable = LoadGradeTable(LoadGradeBands(scope), divisionCodes);
    input.grades = LoadDistinctGrades(scope, divisionCodes);
    input.fullMarks = LoadFullMarks(scope, divisionCodes);
    return input;
}

std::vector<QString> RankRepository::LoadGradesInOrder(const RankScope& scope,
                                                       const std::vector<int>& divisionCodes)
{
    return FirstColumn(QueryCodes(
        main_,
        QStringLiteral(
            "SELECT DISTINCT Grade, Status FROM RankMaster WHERE AcademicYearCode = ? AND ExamCode = ? AND "
            "ClassCode = ? AND DivisionCode IN (%1) ORDER BY Status, Grade"),
        divisionCodes, scope.academicYearCode, scope.examCode, scope.classCode));
}

std::vector<QString> RankRepository::LoadDistinctGrades(const RankScope& scope,
                                                        const std::vector<int>& divisionCodes)
{
    return FirstColumn(QueryCodes(main_,
                                  QStringLiteral("SELECT DISTINCT Grade FROM RankMaster WHERE "
                                                 "AcademicYearCode = ? AND ClassCode = ? AND ExamCode = ? "
                                                 "AND DivisionCode IN (%1) ORDER BY Grade"),
                                  divisionCodes, scope.academicYearCode, scope.classCode, scope.examCode));
}

std::vector<std::optional<double>> RankRepository::LoadFullMarks(const RankScope& scope,
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

void RankRepository::ReplaceRankTotals(store::Transaction& main, const RankScope& scope,
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
