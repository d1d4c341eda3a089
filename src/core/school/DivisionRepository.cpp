#include "core/school/DivisionRepository.h"

#include "core/school/CodesQuery.h"
#include "core/school/SchoolListRepository.h"
#include "store/Transaction.h"

#include <map>

namespace tally {

namespace {

bool IsYes(const QString& takenForRank)
{
    return takenForRank.compare(QLatin1String("Yes"), Qt::CaseInsensitive) == 0;
}

} // namespace

std::vector<DivisionFacts> DivisionRepository::LoadDivisionFacts(const SchoolScope& scope,
                                                                 DivisionOrder order)
{
    const store::ReadTransaction reading(main_);
    std::vector<DivisionFacts> divisions;
    std::vector<int> codes;
    SchoolListRepository lists(main_);
    for (const auto& [code, name] : order == DivisionOrder::ByName ? lists.DivisionsByName(scope.classCode)
                                                                   : lists.DivisionsByCode(scope.classCode)) {
        divisions.push_back({SchoolDivision{code, name}});
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

std::vector<SubjectSetup> DivisionRepository::LoadSubjectSetup(const SchoolScope& scope)
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

std::vector<GradeBand> DivisionRepository::LoadGradeBands(const SchoolScope& scope)
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

} // namespace tally
