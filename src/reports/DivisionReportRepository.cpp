#include "reports/DivisionReportRepository.h"

#include "core/school/CodesQuery.h"
#include "core/school/DivisionRepository.h"
#include "store/Transaction.h"

namespace tally {

CommonSubjectsInput DivisionReportRepository::LoadCommonSubjects(const SchoolScope& scope,
                                                                 const std::vector<int>& divisionCodes,
                                                                 SubjectDisplay display)
{
    const store::ReadTransaction reading(main_);
    CommonSubjectsInput input;
    QString subjects = QStringLiteral(
        "SELECT a.SubjectCode, a.SubjectName FROM SubjectMaster a INNER JOIN ClassSubjectTeacher e ON "
        "e.SubjectCode = a.SubjectCode WHERE e.AcademicYearCode = ? AND e.ClassCode = ? AND "
        "e.DivisionCode IN (%1)");
    if (display == SubjectDisplay::TakenForRankOnly)
        subjects += QLatin1String(" AND e.TakenForRank = 'Yes'");
    subjects += QLatin1String(" GROUP BY a.SubjectCode ORDER BY min(e.SlNo), a.SubjectCode");
    input.subjects =
        ReadCodedTexts(QueryCodes(main_, subjects, divisionCodes, scope.academicYearCode, scope.classCode));

    store::Statement students =
        QueryCodes(main_,
                   QStringLiteral("SELECT StudentCode FROM StudentClassDivision WHERE "
                                  "AcademicYearCode = ? AND ClassCode = ? AND DivisionCode IN (%1)"),
                   divisionCodes, scope.academicYearCode, scope.classCode);
    while (students.Next())
        input.students.push_back(students.Int(0));

    store::Statement marks = QueryCodes(
        main_,
        QStringLiteral("SELECT StudentCode, SubjectCode FROM MarkMaster WHERE AcademicYearCode = ? AND "
                       "ExamCode = ? AND ClassCode = ? AND DivisionCode IN (%1)"),
        divisionCodes, scope.academicYearCode, scope.examCode, scope.classCode);
    while (marks.Next())
        input.marks.push_back({marks.Int(0), marks.Int(1)});
    return input;
}

DivisionAverageInput DivisionReportRepository::LoadDivisionAverages(const SchoolScope& scope,
                                                                    const std::vector<int>& divisionCodes)
{
    const store::ReadTransaction reading(main_);
    DivisionAverageInput input;
    input.setup = DivisionRepository(main_).LoadSubjectSetup(scope);
    store::Statement marks = QueryCodes(
        main_,
        QStringLiteral("SELECT DivisionCode, SubjectCode, Mark FROM MarkMaster WHERE AcademicYearCode = ? "
                       "AND ExamCode = ? AND ClassCode = ? AND DivisionCode IN (%1) AND "
                       "LeaveOrPresent = 'P'"),
        divisionCodes, scope.academicYearCode, scope.examCode, scope.classCode);
    while (marks.Next())
        input.marks.push_back({marks.Int(0), marks.Int(1), marks.Double(2)});
    return input;
}

} // namespace tally
