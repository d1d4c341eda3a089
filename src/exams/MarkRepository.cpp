#include "exams/MarkRepository.h"

namespace tally {

namespace {

/// The column that a mode holds fast: the subject of all students, or the student in all subjects.
QString FixedColumn(MarkMode mode)
{
    return mode == MarkMode::Subject ? QStringLiteral("SubjectCode") : QStringLiteral("StudentCode");
}

QString RowColumn(MarkMode mode)
{
    return FixedColumn(mode == MarkMode::Subject ? MarkMode::Student : MarkMode::Subject);
}

} // namespace

CodedTexts MarkRepository::Subjects(const MarkScope& scope)
{
    return ReadCodedTexts(main_.Query(
        QStringLiteral(
            "SELECT a.SubjectCode, b.SubjectName FROM ClassSubjectTeacher a, SubjectMaster b WHERE "
            "a.SubjectCode = b.SubjectCode AND a.ClassCode = ? AND a.DivisionCode = ? AND "
            "a.AcademicYearCode = ? ORDER BY b.SubjectName"),
        scope.classCode, scope.divisionCode, scope.academicYearCode));
}

CodedTexts MarkRepository::Students(const MarkScope& scope)
{
    return StudentsToMark(scope, false);
}

CodedTexts MarkRepository::StudentsToMark(const MarkScope& scope, bool withRelieved)
{
    const QString sql = QStringLiteral(
        "SELECT a.StudentCode, trim(b.StudentName) || '(' || ifnull(b.OptionalAdmissionNo,'') "
        "|| ')' FROM StudentClassDivision a, StudentMaster b WHERE a.StudentCode = b.StudentCode "
        "AND a.ClassCode = ?1 AND a.DivisionCode = ?2 AND a.AcademicYearCode = ?3 AND "
        "(b.TCNo = ''%1) ORDER BY b.StudentName, b.OptionalAdmissionNo");
    if (!withRelieved)
        return ReadCodedTexts(
            main_.Query(sql.arg(QString()), scope.classCode, scope.divisionCode, scope.academicYearCode));
    return ReadCodedTexts(
        main_.Query(sql.arg(QLatin1String(
                        " OR EXISTS (SELECT 1 FROM MarkMaster c WHERE c.StudentCode = a.StudentCode AND "
                        "c.ClassCode = ?1 AND c.DivisionCode = ?2 AND c.AcademicYearCode = ?3 AND "
                        "c.ExamCode = ?4)")),
                    scope.classCode, scope.divisionCode, scope.academicYearCode, scope.examCode));
}

std::vector<MarkSubject> MarkRepository::SubjectsToMark(const MarkScope& scope)
{
    std::vector<MarkSubject> subjects;
    store::Statement rows = main_.Query(
        QStringLiteral(
            "SELECT a.SubjectCode, b.SubjectName, a.TeacherCode, a.MaximumAllowed, a.MaximumMark FROM "
            "ClassSubjectTeacher a, SubjectMaster b WHERE a.SubjectCode = b.SubjectCode AND "
            "a.ClassCode = ? AND a.DivisionCode = ? AND a.AcademicYearCode = ? ORDER BY a.SlNo"),
        scope.classCode, scope.divisionCode, scope.academicYearCode);
    while (rows.Next())
        subjects.push_back({rows.Int(0), rows.Text(1), rows.Int(2), rows.Double(3), rows.Double(4)});
    return subjects;
}

std::optional<MarkSubject> MarkRepository::FindSubject(const MarkScope& scope, int subjectCode)
{
    store::Statement rows = main_.Query(
        QStringLiteral("SELECT TeacherCode, MaximumAllowed, MaximumMark FROM ClassSubjectTeacher WHERE "
                       "SubjectCode = ? AND ClassCode = ? AND DivisionCode = ? AND AcademicYearCode = ?"),
        subjectCode, scope.classCode, scope.divisionCode, scope.academicYearCode);
    if (!rows.Next())
        return {};
    return MarkSubject{subjectCode, {}, rows.Int(0), rows.Double(1), rows.Double(2)};
}

std::vector<StoredMark> MarkRepository::StoredMarks(const MarkScope& scope, MarkMode mode, int code)
{
    std::vector<StoredMark> marks;
    store::Statement rows = main_.Query(
        QStringLiteral("SELECT %1, Mark, LeaveOrPresent FROM MarkMaster WHERE %2 = ? AND ClassCode = ? AND "
                       "DivisionCode = ? AND ExamCode = ? AND AcademicYearCode = ? ORDER BY StudentCode")
            .arg(RowColumn(mode), FixedColumn(mode)),
        code, scope.classCode, scope.divisionCode, scope.examCode, scope.academicYearCode);
    while (rows.Next())
        marks.push_back({rows.Int(0), rows.Double(1), rows.FirstLetter(2) == 'P'});
    return marks;
}

bool MarkRepository::HasStudents(const MarkScope& scope)
{
    return HasRows(
        QStringLiteral("StudentClassDivision a, StudentMaster b WHERE a.StudentCode = b.StudentCode"), scope);
}

bool MarkRepository::HasSubjects(const MarkScope& scope)
{
    return HasRows(
        QStringLiteral("ClassSubjectTeacher a, SubjectMaster b WHERE a.SubjectCode = b.SubjectCode"), scope);
}

bool MarkRepository::HasRows(const QString& tables, const MarkScope& scope)
{
    return main_.Number(
               QStringLiteral("SELECT count(*) FROM %1 AND a.ClassCode = ? AND a.DivisionCode = ? AND "
                              "a.AcademicYearCode = ?")
                   .arg(tables),
               scope.classCode, scope.divisionCode, scope.academicYearCode) > 0;
}

void MarkRepository::Delete(store::Transaction& transaction, const MarkScope& scope, MarkMode mode, int code)
{
    transaction.Execute(QStringLiteral("DELETE FROM MarkMaster WHERE ClassCode = ? AND DivisionCode = ? AND "
                                       "ExamCode = ? AND AcademicYearCode = ? AND %1 = ?")
                            .arg(FixedColumn(mode)),
                        scope.classCode, scope.divisionCode, scope.examCode, scope.academicYearCode, code);
}

void MarkRepository::Insert(store::Transaction& transaction, const MarkScope& scope,
                            const std::vector<MarkRecord>& marks, int userCode)
{
    store::Statement insert = transaction.Prepare(QStringLiteral(
        "INSERT INTO MarkMaster (AcademicYearCode, StudentCode, ExamCode, ClassCode, DivisionCode, "
        "SubjectCode, Mark, LeaveOrPresent, TeacherCode, UserCode) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    for (const MarkRecord& mark : marks)
        insert.Run(scope.academicYearCode, mark.studentCode, scope.examCode, scope.classCode,
                   scope.divisionCode, mark.subjectCode, mark.mark, mark.present ? "P" : "A",
                   mark.teacherCode, userCode);
}

} // namespace tally
