#include "exams/SetupCopyRepository.h"

#include "core/school/SchoolListRepository.h"
#include "exams/GradeSetupRepository.h"

#include <QDate>

#include <algorithm>

namespace tally {

namespace {

QString YearName(int yearFrom, int yearTo)
{
    return QStringLiteral("%1 - %2").arg(yearFrom).arg(yearTo);
}

} // namespace

CopyChoices SetupCopyRepository::Choices(int academicYearCode)
{
    SchoolListRepository lists(main_);
    CopyChoices choices;
    choices.exams = lists.ExamsBehindBlank();
    choices.classes = lists.Classes();
    // The row with the code 0 stands for no year at all.
    store::Statement current = main_.Query(
        QStringLiteral("SELECT YearFrom, YearTo, ToDate FROM AcademicYearSetup WHERE AcademicYearCode = ? "
                       "AND AcademicYearCode > 0"),
        academicYearCode);
    if (!current.Next())
        return choices;
    choices.fromYears.emplace_back(academicYearCode, YearName(current.Int(0), current.Int(1)));
    choices.toYears = choices.fromYears;
    // Codes say nothing about which year follows; the years and their dates do.
    store::Statement next = main_.Query(
        QStringLiteral("SELECT AcademicYearCode, YearFrom, YearTo FROM AcademicYearSetup WHERE YearFrom = ? "
                       "AND FromDate = ?"),
        current.Int(1), current.Date(2).addDays(1));
    if (next.Next())
        choices.toYears.emplace_back(next.Int(0), YearName(next.Int(1), next.Int(2)));
    return choices;
}

SubjectTargets SetupCopyRepository::TargetsOfSubjects(const SchoolScope& scope)
{
    SubjectTargets targets;
    store::Statement rows = main_.Query(
        QStringLiteral("SELECT DivisionCode, SubjectCode, TeacherCode, MaximumMark, MaximumAllowed, "
                       "TakenForRank, SlNo FROM ClassSubjectTeacher WHERE AcademicYearCode = ? AND "
                       "ClassCode = ?"),
        scope.academicYearCode, scope.classCode);
    while (rows.Next()) {
        targets.subjects[rows.Int(0)].push_back({.subjectCode = rows.Int(1),
                                                 .subjectName = {},
                                                 .teacherCode = rows.Int(2),
                                                 .teacherName = {},
                                                 .maximumMark = rows.Double(3),
                                                 .maximumAllowed = rows.Double(4),
                                                 .takenForRank = rows.Text(5),
                                                 .slNo = rows.Int(6)});
    }
    targets.items = CopyItems(SubjectCopy, SchoolListRepository(main_).DivisionsByName(scope.classCode),
                              SetUpDivisions(targets.subjects));
    return targets;
}

std::vector<ListItem> SetupCopyRepository::TargetsOfGrades(const SchoolScope& scope)
{
    return CopyItems(GradeCopy, SchoolListRepository(main_).DivisionsByName(scope.classCode),
                     GradeSetupRepository(main_).DivisionsWithTable(scope));
}

QString SaveGradeCopy(store::Transaction& transaction, const SchoolScope& to,
                      const std::vector<int>& divisions, const std::vector<GradeRecord>& table, int userCode)
{
    std::set<int> entered = GradeSetupRepository(transaction.On()).DivisionsWithTable(to);
    for (auto code = entered.begin(); code != entered.end();)
        code = std::find(divisions.begin(), divisions.end(), *code) == divisions.end() ? entered.erase(code)
                                                                                       : std::next(code);
    if (!entered.empty()) {
        QStringList names;
        for (const auto& [code, name] : SchoolListRepository(transaction.On()).DivisionsByName(to.classCode))
            if (entered.count(code) > 0)
                names.append(name);
        return TablesEnteredMeanwhile(names);
    }
    SchoolScope scope = to;
    for (const int division : divisions) {
        scope.divisionCode = division;
        GradeSetupRepository::Replace(transaction, scope, table, userCode);
    }
    return {};
}

} // namespace tally
