#include "exams/SubjectSetupRepository.h"

namespace tally {

std::vector<TaughtSubject> SubjectSetupRepository::Read(const SchoolScope& scope)
{
    std::vector<TaughtSubject> subjects;
    store::Statement rows = main_.Query(
        QStringLiteral("SELECT a.SubjectCode, b.SubjectName, a.TeacherCode, c.TeacherName, a.MaximumMark, "
                       "a.MaximumAllowed, a.TakenForRank, a.SlNo FROM ClassSubjectTeacher a, SubjectMaster "
                       "b, TeacherMaster c WHERE a.SubjectCode = b.SubjectCode AND a.TeacherCode = "
                       "c.TeacherCode AND a.ClassCode = ? AND a.DivisionCode = ? AND a.AcademicYearCode = ? "
                       "ORDER BY a.SlNo"),
        scope.classCode, scope.divisionCode, scope.academicYearCode);
    while (rows.Next()) {
        subjects.push_back({.subjectCode = rows.Int(0),
                            .subjectName = rows.Text(1),
                            .teacherCode = rows.Int(2),
                            .teacherName = rows.Text(3),
                            .maximumMark = rows.Double(4),
                            .maximumAllowed = rows.Double(5),
                            .takenForRank = rows.Text(6),
                            .slNo = rows.Int(7)});
    }
    return subjects;
}

MarksBySubject SubjectSetupRepository::Marks(const SchoolScope& scope)
{
    MarksBySubject marks;
    store::Statement rows = main_.Query(
        QStringLiteral("SELECT SubjectCode, count(*), max(Mark) FROM MarkMaster WHERE ClassCode = ? AND "
                       "DivisionCode = ? AND AcademicYearCode = ? GROUP BY SubjectCode"),
        scope.classCode, scope.divisionCode, scope.academicYearCode);
    while (rows.Next())
        marks[rows.Int(0)] = {rows.Int(1), rows.Double(2)};
    return marks;
}

CodedTexts SubjectSetupRepository::SubjectsBehindBlank()
{
    return ReadCodedTexts(main_.Query(
        QStringLiteral("SELECT 0 AS SubjectCode, ' ' AS SubjectName FROM SubjectMaster UNION SELECT "
                       "SubjectCode, SubjectName FROM SubjectMaster WHERE SubjectCode > 0 ORDER BY "
                       "SubjectName")));
}

CodedTexts SubjectSetupRepository::TeachersBehindBlank()
{
    return ReadCodedTexts(main_.Query(
        QStringLiteral("SELECT 0 AS TeacherCode, ' ' AS TeacherName FROM TeacherMaster UNION SELECT "
                       "TeacherCode, TeacherName FROM TeacherMaster WHERE TeacherCode > 0 ORDER BY "
                       "TeacherName")));
}

void SubjectSetupRepository::Delete(store::Transaction& transaction, const SchoolScope& scope)
{
    transaction.Execute(QStringLiteral("DELETE FROM ClassSubjectTeacher WHERE ClassCode = ? AND "
                                       "DivisionCode = ? AND AcademicYearCode = ?"),
                        scope.classCode, scope.divisionCode, scope.academicYearCode);
}

void SubjectSetupRepository::Insert(store::Transaction& transaction, const SchoolScope& scope,
                                    const std::vector<TaughtSubject>& subjects)
{
    store::Statement insert = transaction.Prepare(QStringLiteral(
        "INSERT INTO ClassSubjectTeacher (AcademicYearCode, ClassCode, DivisionCode, SubjectCode, "
        "TeacherCode, MaximumMark, MaximumAllowed, TakenForRank, SlNo) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    for (const TaughtSubject& subject : subjects)
        insert.Run(scope.academicYearCode, scope.classCode, scope.divisionCode, subject.subjectCode,
                   subject.teacherCode, subject.maximumMark, subject.maximumAllowed, subject.takenForRank,
                   subject.slNo);
}

} // namespace tally
