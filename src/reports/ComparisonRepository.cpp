#include "reports/ComparisonRepository.h"

#include "core/school/CodesQuery.h"
#include "store/Transaction.h"

#include <QHash>

namespace tally {

namespace {

QString RankCondition(SubjectDisplay display)
{
    return display == SubjectDisplay::TakenForRankOnly ? QStringLiteral(" AND a.TakenForRank = 'Yes'")
                                                       : QString();
}

std::vector<EnteredSubject> ReadEntered(store::Statement rows)
{
    std::vector<EnteredSubject> entered;
    while (rows.Next())
        entered.push_back({rows.Int(0), rows.Int(1)});
    return entered;
}

std::vector<ComparedMark> ReadMarks(store::Statement rows)
{
    std::vector<ComparedMark> marks;
    while (rows.Next())
        marks.push_back({rows.Int(0), rows.Int(1), rows.Double(2)});
    return marks;
}

} // namespace

CodedTexts ComparisonRepository::Students(const SchoolScope& scope)
{
    CodedTexts students;
    store::Statement rows = main_.Query(
        QStringLiteral(
            "SELECT a.StudentCode, b.StudentName, b.OptionalAdmissionNo FROM StudentClassDivision a INNER "
            "JOIN StudentMaster b ON b.StudentCode = a.StudentCode WHERE a.ClassCode = ? AND "
            "a.DivisionCode = ? AND a.AcademicYearCode = ? ORDER BY b.StudentName, b.OptionalAdmissionNo"),
        scope.classCode, scope.divisionCode, scope.academicYearCode);
    while (rows.Next())
        students.emplace_back(rows.Int(0), QStringLiteral("%1 (%2)").arg(rows.Text(1), rows.Text(2)));
    return students;
}

CodedTexts ComparisonRepository::DivisionSubjects(const SchoolScope& scope, SubjectDisplay display)
{
    return ReadCodedTexts(main_.Query(
        QStringLiteral("SELECT b.SubjectCode, b.SubjectName FROM ClassSubjectTeacher a INNER JOIN "
                       "SubjectMaster b ON b.SubjectCode = a.SubjectCode WHERE a.AcademicYearCode = ? AND "
                       "a.ClassCode = ? AND a.DivisionCode = ?") +
            RankCondition(display) + QLatin1String(" ORDER BY a.SlNo, a.SubjectCode"),
        scope.academicYearCode, scope.classCode, scope.divisionCode));
}

SubjectListInput ComparisonRepository::LoadDivisionSubjects(const SchoolScope& scope,
                                                            const std::vector<int>& examCodes,
                                                            SubjectDisplay display)
{
    const store::ReadTransaction reading(main_);
    // The first mark of a subject answers for it, so that a large division costs no more than a small one.
    return {DivisionSubjects(scope, display),
            ReadEntered(QueryCodes(
                main_,
                QStringLiteral(
                    "SELECT e.ExamCode, s.SubjectCode FROM ClassSubjectTeacher s CROSS JOIN ExamMaster e "
                    "WHERE s.AcademicYearCode = ? AND s.ClassCode = ? AND s.DivisionCode = ? AND EXISTS "
                    "(SELECT 1 FROM MarkMaster a INNER JOIN StudentClassDivision b ON b.StudentCode = "
                    "a.StudentCode AND b.ClassCode = a.ClassCode AND b.DivisionCode = a.DivisionCode WHERE "
                    "a.AcademicYearCode = s.AcademicYearCode AND a.ClassCode = s.ClassCode AND "
                    "a.DivisionCode = s.DivisionCode AND a.ExamCode = e.ExamCode AND a.SubjectCode = "
                    "s.SubjectCode) AND e.ExamCode IN (%1)"),
                examCodes, scope.academicYearCode, scope.classCode, scope.divisionCode))};
}

SubjectListInput ComparisonRepository::LoadStudentSubjects(const SchoolScope& scope, int studentCode,
                                                           const std::vector<int>& examCodes,
                                                           SubjectDisplay display)
{
    const store::ReadTransaction reading(main_);
    // Naming all years lets the engine go straight to the student's marks in each exam.
    return {DivisionSubjects(scope, display),
            ReadEntered(QueryCodes(
                main_,
                QStringLiteral("SELECT a.ExamCode, a.SubjectCode FROM MarkMaster a INNER JOIN "
                               "StudentClassDivision b ON b.StudentCode = a.StudentCode AND b.ClassCode = "
                               "a.ClassCode AND b.DivisionCode = a.DivisionCode WHERE a.ClassCode = ? AND "
                               "a.DivisionCode = ? AND a.StudentCode = ? AND a.AcademicYearCode IN (SELECT "
                               "AcademicYearCode FROM AcademicYearSetup) AND a.ExamCode IN (%1)"),
                examCodes, scope.classCode, scope.divisionCode, studentCode))};
}

CodedTexts ComparisonRepository::SubjectColumns(const SchoolScope& scope,
                                                const std::vector<int>& subjectCodes, SubjectDisplay display)
{
    return ReadCodedTexts(QueryCodes(
        main_,
        QStringLiteral("SELECT a.SubjectCode, b.SubjectShortName FROM ClassSubjectTeacher a INNER JOIN "
                       "SubjectMaster b ON b.SubjectCode = a.SubjectCode WHERE a.AcademicYearCode = ? AND "
                       "a.ClassCode = ? AND a.DivisionCode = ?") +
            RankCondition(display) +
            QLatin1String(" AND a.SubjectCode IN (%1) ORDER BY a.SlNo, a.SubjectCode"),
        subjectCodes, scope.academicYearCode, scope.classCode, scope.divisionCode));
}

ComparisonInput ComparisonRepository::LoadDivisionMarks(const SchoolScope& scope,
                                                        const std::vector<int>& examCodes,
                                                        const std::vector<int>& subjectCodes,
                                                        SubjectDisplay display)
{
    const store::ReadTransaction reading(main_);
    ComparisonInput input;
    input.subjects = SubjectColumns(scope, subjectCodes, display);
    input.marks = ReadMarks(QueryCodes(
        main_,
        QStringLiteral("SELECT ExamCode, SubjectCode, Mark FROM MarkMaster WHERE AcademicYearCode = ? AND "
                       "ClassCode = ? AND DivisionCode = ? AND LeaveOrPresent = 'P' AND Mark IS NOT NULL AND "
                       "ExamCode IN (%1)"),
        examCodes, scope.academicYearCode, scope.classCode, scope.divisionCode));
    return input;
}

ComparisonInput ComparisonRepository::LoadStudentMarks(const SchoolScope& scope, int studentCode,
                                                       const std::vector<int>& examCodes,
                                                       const std::vector<int>& subjectCodes,
                                                       SubjectDisplay display)
{
    const store::ReadTransaction reading(main_);
    ComparisonInput input;
    input.subjects = SubjectColumns(scope, subjectCodes, display);
    input.marks = ReadMarks(QueryCodes(
        main_,
        QStringLiteral("SELECT ExamCode, SubjectCode, Mark FROM MarkMaster WHERE AcademicYearCode = ? AND "
                       "ClassCode = ? AND DivisionCode = ? AND StudentCode = ? AND Mark IS NOT NULL AND "
                       "ExamCode IN (%1)"),
        examCodes, scope.academicYearCode, scope.classCode, scope.divisionCode, studentCode));
    return input;
}

CodedTexts ComparisonRepository::StudentYears(int studentCode)
{
    CodedTexts years;
    store::Statement rows = main_.Query(
        QStringLiteral(
            "SELECT a.AcademicYearCode, y.YearFrom, y.YearTo, c.ClassName, d.DivisionName FROM "
            "StudentClassDivision a INNER JOIN AcademicYearSetup y ON y.AcademicYearCode = "
            "a.AcademicYearCode INNER JOIN ClassDivisionMaster c ON c.ClassCode = a.ClassCode INNER JOIN "
            "ClassDivisionDetails d ON d.ClassCode = a.ClassCode AND d.DivisionCode = a.DivisionCode WHERE "
            "a.StudentCode = ? ORDER BY a.AcademicYearCode"),
        studentCode);
    while (rows.Next())
        years.emplace_back(rows.Int(0), QStringLiteral("%1 - %2 %3/%4")
                                            .arg(QString::number(rows.Int(1)), QString::number(rows.Int(2)),
                                                 rows.Text(3), rows.Text(4)));
    return years;
}

SubjectListInput ComparisonRepository::LoadYearSubjects(int studentCode, int examCode,
                                                        const std::vector<int>& yearCodes)
{
    const store::ReadTransaction reading(main_);
    return {ReadCodedTexts(QueryCodes(
                main_,
                QStringLiteral("SELECT DISTINCT b.SubjectCode, b.SubjectName FROM MarkMaster a INNER JOIN "
                               "SubjectMaster b ON b.SubjectCode = a.SubjectCode WHERE a.StudentCode = ? AND "
                               "a.AcademicYearCode IN (%1) ORDER BY b.SubjectName, b.SubjectCode"),
                yearCodes, studentCode)),
            ReadEntered(QueryCodes(
                main_,
                QStringLiteral("SELECT AcademicYearCode, SubjectCode FROM MarkMaster WHERE StudentCode = ? "
                               "AND ExamCode = ? AND AcademicYearCode IN (%1)"),
                yearCodes, studentCode, examCode))};
}

ComparisonInput ComparisonRepository::LoadYearMarks(int studentCode, int examCode,
                                                    const std::vector<int>& yearCodes,
                                                    const std::vector<int>& subjectCodes)
{
    const store::ReadTransaction reading(main_);
    ComparisonInput input;
    QHash<int, QString> shortNames;
    for (const auto& [code, shortName] : ReadCodedTexts(QueryCodes(
             main_,
             QStringLiteral("SELECT SubjectCode, SubjectShortName FROM SubjectMaster WHERE SubjectCode IN "
                            "(%1)"),
             subjectCodes)))
        shortNames.insert(code, shortName);
    for (const int subjectCode : subjectCodes) {
        if (const auto found = shortNames.constFind(subjectCode); found != shortNames.constEnd())
            input.subjects.emplace_back(subjectCode, *found);
    }
    // Marks of a year in which the student has no place any more are those of nobody's class.
    input.marks = ReadMarks(QueryCodes(
        main_,
        QStringLiteral("SELECT a.AcademicYearCode, a.SubjectCode, a.Mark FROM MarkMaster a INNER JOIN "
                       "StudentClassDivision c ON c.StudentCode = a.StudentCode AND c.AcademicYearCode = "
                       "a.AcademicYearCode WHERE a.StudentCode = ? AND a.ExamCode = ? AND a.Mark IS NOT NULL "
                       "AND a.AcademicYearCode IN (%1)"),
        yearCodes, studentCode, examCode));
    return input;
}

} // namespace tally
