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
        QStringLiteral("Select a.SubjectCode,b.SubjectName from ClassSubjectTeacher a,SubjectMaster b where "
                       "a.SubjectCode=b.SubjectCode and a.ClassCode=? and a.DivisionCode=? and "
                       "a.AcademicYearCode=? order by b.SubjectName"),
        scope.classCode, scope.divisionCode, scope.academicYearCode));
}

CodedTexts MarkRepository::Students(const MarkScope& scope)
{
    return StudentsToMark(scope, false);
}

CodedTexts MarkRepository::StudentsToMark(const MarkScope& scope, bool withRelieved)
{
    const QString sql =
        QStringLiteral("Select a.StudentCode,trim(b.StudentName) || '(' || ifnull(b.OptionalAdmissionNo,'') "
                       "|| ')' from StudentClassDivision a,StudentMaster b where a.StudentCode=b.StudentCode "
                       "and a.ClassCode=?1 and a.DivisionCode=?2 and a.AcademicYearCode=?3 and "
                       "(b.TCNo=''%1) order by b.StudentName,b.OptionalAdmissionNo");
    if (!withRelieved)
        return ReadCodedTexts(
            main_.Query(sql.arg(QString()), scope.classCode, scope.divisionCode, scope.academicYearCode));
    return ReadCodedTexts(main_.Query(
        sql.arg(QLatin1String(" or exists (Select 1 from MarkMaster c where c.StudentCode=a.StudentCode and "
                              "c.ClassCode=?1 and c.DivisionCode=?2 and c.AcademicYearCode=?3 and "
                              "c.ExamCode=?4)")),
        scope.classCode, scope.divisionCode, scope.academicYearCode, scope.examCode));
}

std::vector<MarkSubject> MarkRepository::SubjectsToMark(const MarkScope& scope)
{
    std::vector<MarkSubject> subjects;
    store::Statement rows = main_.Query(
        QStringLiteral("Select a.SubjectCode,b.SubjectName,a.TeacherCode,a.MaximumAllowed,a.MaximumMark from "
                       "ClassSubjectTeacher a,SubjectMaster b where a.SubjectCode=b.SubjectCode and "
                       "a.ClassCode=? and a.DivisionCode=? and a.AcademicYearCode=? order by a.SlNo"),
        scope.classCode, scope.divisionCode, scope.academicYearCode);
    while (rows.Next())
        subjects.push_back({rows.Int(0), rows.Text(1), rows.Int(2), rows.Double(3), rows.Double(4)});
    return subjects;
}

std::optional<MarkSubject> MarkRepository::FindSubject(const MarkScope& scope, int subjectCode)
{
    store::Statement rows = main_.Query(
        QStringLiteral("Select TeacherCode,MaximumAllowed,MaximumMark from ClassSubjectTeacher where "
                       "SubjectCode=? and ClassCode=? and DivisionCode=? and AcademicYearCode=?"),
        subjectCode, scope.classCode, scope.divisionCode, scope.academicYearCode);
    if (!rows.Next())
        return {};
    return MarkSubject{subjectCode, {}, rows.Int(0), rows.Double(1), rows.Double(2)};
}

std::vector<StoredMark> MarkRepository::StoredMarks(const MarkScope& scope, MarkMode mode, int code)
{
    std::vector<StoredMark> marks;
    store::Statement rows = main_.Query(
        QStringLiteral("Select %1,Mark,LeaveOrPresent from MarkMaster where %2=? and ClassCode=? and "
                       "DivisionCode=? and ExamCode=? and AcademicYearCode=? order by StudentCode")
            .arg(RowColumn(mode), FixedColumn(mode)),
        code, scope.classCode, scope.divisionCode, scope.examCode, scope.academicYearCode);
    while (rows.Next())
        marks.push_back({rows.Int(0), rows.Double(1), rows.FirstLetter(2) == 'P'});
    return marks;
}

bool MarkRepository::HasStudents(const MarkScope& scope)
{
    return HasRows(QStringLiteral("StudentClassDivision a,StudentMaster b where a.StudentCode=b.StudentCode"),
                   scope);
}

bool MarkRepository::HasSubjects(const MarkScope& scope)
{
    return HasRows(QStringLiteral("ClassSubjectTeacher a,SubjectMaster b where a.SubjectCode=b.SubjectCode"),
                   scope);
}

bool MarkRepository::HasRows(const QString& tables, const MarkScope& scope)
{
    return main_.Number(QStringLiteral("Select Count(*) from %1 and a.ClassCode=? and a.DivisionCode=? and "
                                       "a.AcademicYearCode=?")
                            .arg(tables),
                        scope.classCode, scope.divisionCode, scope.academicYearCode) > 0;
}

void MarkRepository::Delete(store::Transaction& transaction, const MarkScope& scope, MarkMode mode, int code)
{
    transaction.Execute(QStringLiteral("Delete from MarkMaster where ClassCode=? and DivisionCode=? and "
                                       "ExamCode=? and AcademicYearCode=? and %1=?")
                            .arg(FixedColumn(mode)),
                        scope.classCode, scope.divisionCode, scope.examCode, scope.academicYearCode, code);
}

void MarkRepository::Insert(store::Transaction& transaction, const MarkScope& scope,
                            const std::vector<MarkRecord>& marks, int userCode)
{
    store::Statement insert = transaction.Prepare(
        QStringLiteral("Insert into MarkMaster(AcademicYearCode,StudentCode,ExamCode,ClassCode,DivisionCode,"
                       "SubjectCode,Mark,LeaveOrPresent,TeacherCode,UserCode) values(?,?,?,?,?,?,?,?,?,?)"));
    for (const MarkRecord& mark : marks)
        insert.Run(scope.academicYearCode, mark.studentCode, scope.examCode, scope.classCode,
                   scope.divisionCode, mark.subjectCode, mark.mark, mark.present ? "P" : "A",
                   mark.teacherCode, userCode);
}

} // namespace tally
