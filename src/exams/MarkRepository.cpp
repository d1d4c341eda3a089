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

CodedTexts MarkRepository::Subjects(const SchoolScope& scope)
{
    return ReadCodedTexts(main_.Query(
        QStringLiteral(
            "SELECT a.SubjectCode, b.SubjectName FROM ClassSubjectTeacher a, SubjectMaster b WHERE "
            "a.SubjectCode = b.SubjectCode AND a.ClassCode = ? AND a.DivisionCode = ? AND "
            "a.AcademicYearCode = ? ORDER BY b.SubjectName"),
        scope.classCode, scope.divisionCode, scope.academicYearCode));
}

CodedTexts MarkRepository::Students(const SchoolScope& scope)
{
    return StudentsToMark(scope, false);
}

CodedTexts MarkRepository::StudentsToMark(const SchoolScope& scope, bool withRelieved)
{
    const QString orMarked =
        withRelieved
            ? QStringLiteral(
                  " OR EXISTS (SELECT 1 FROM MarkMaster c WHERE c.StudentCode = a.StudentCode AND "
                  "c.ClassCode = :Class AND c.DivisionCode = :Division AND c.AcademicYearCode = :Year AND "
                  "c.ExamCode = :Exam)")
            : QString();
    store::Statement students = main_.Prepare(
        QStringLiteral(
            "SELECT a.StudentCode, trim(b.StudentName) || '(' || coalesce(b.OptionalAdmissionNo, '') "
            "|| ')' FROM StudentClassDivision a, StudentMaster b WHERE a.StudentCode = b.StudentCode "
            "AND a.ClassCode = :Class AND a.DivisionCode = :Division AND a.AcademicYearCode = :Year AND "
            "(b.TCNo = ''%1) ORDER BY b.StudentName, b.OptionalAdmissionNo")
            .arg(orMarked));
    students.BindNamed(":Class", qint64{scope.classCode});
    students.BindNamed(":Division", qint64{scope.divisionCode});
    students.BindNamed(":Year", qint64{scope.academicYearCode});
    students.BindNamed(":Exam", qint64{scope.examCode});
    return ReadCodedTexts(std::move(students));
}

std::vector<MarkSubject> MarkRepository::SubjectsToMark(const SchoolScope& scope)
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

std::optional<MarkSubject> MarkRepository::FindSubject(const SchoolScope& scope, int subjectCode)
{
    store::Statement rows = main_.Query(
        QStringLiteral("SELECT TeacherCode, MaximumAllowed, MaximumMark FROM ClassSubjectTeacher WHERE "
                       "SubjectCode = ? AND ClassCode = ? AND DivisionCode = ? AND AcademicYearCode = ?"),
        subjectCode, scope.classCode, scope.divisionCode, scope.academicYearCode);
    if (!rows.Next())
        return {};
    return MarkSubject{subjectCode, {}, rows.Int(0), rows.Double(1), rows.Double(2)};
}

std::vector<StoredMark> MarkRepository::StoredMarks(const SchoolScope& scope, MarkMode mode, int code)
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

bool MarkRepository::HasStudents(const SchoolScope& scope)
{
    return HasRows(
        QStringLiteral("StudentClassDivision a, StudentMaster b WHERE a.StudentCode = b.StudentCode"), scope);
}

bool MarkRepository::HasSubjects(const SchoolScope& scope)
{
    return HasRows(
        QStringLiteral("ClassSubjectTeacher a, SubjectMaster b WHERE a.SubjectCode = b.SubjectCode"), scope);
}

bool MarkRepository::HasRows(const QString& tables, const SchoolScope& scope)
{
    return main_.Number(
               QStringLiteral("SELECT count(*) FROM %1 AND a.ClassCode = ? AND a.DivisionCode = ? AND "
                              "a.AcademicYearCode = ?")
                   .arg(tables),
               scope.classCode, scope.divisionCode, scope.academicYearCode) > 0;
}

void MarkRepository::Delete(store::Transaction& transaction, const SchoolScope& scope, MarkMode mode,
                            int code)
{
    transaction.Execute(QStringLiteral("DELETE FROM MarkMaster WHERE ClassCode = ? AND DivisionCode = ? AND "
                                       "ExamCode = ? AND AcademicYearCode = ? AND %1 = ?")
                            .arg(FixedColumn(mode)),
                        scope.classCode, scope.divisionCode, scope.examCode, scope.academicYearCode, code);
}

void MarkRepository::Insert(store::Transaction& transaction, const SchoolScope& scope,
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
