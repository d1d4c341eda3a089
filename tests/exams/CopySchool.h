#pragma once

#include "core/school/SchoolTypes.h"
#include "store/Connection.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <string>

namespace tally::test {

// The codes of years say nothing about their order: behind the next one comes the year with the code 3.
inline constexpr int ThisYear = 7;
inline constexpr int NextYear = 9;
inline constexpr int YearBehind = 3;

/// Class-divisions of this year, for the first exam.
inline constexpr SchoolScope TenA{ThisYear, 1, 1, 1};
inline constexpr SchoolScope TenB{ThisYear, 1, 1, 2};
inline constexpr SchoolScope TenC{ThisYear, 1, 1, 3};
inline constexpr SchoolScope NineA{ThisYear, 1, 2, 1};
inline constexpr SchoolScope NineB{ThisYear, 1, 2, 2};

constexpr SchoolScope InNextYear(SchoolScope scope)
{
    scope.academicYearCode = NextYear;
    return scope;
}

constexpr SchoolScope InTermTwo(SchoolScope scope)
{
    scope.examCode = 2;
    return scope;
}

/// A school with three years, the exams "Term One" and "Term Two", the class X with the divisions A, B and C
/// and the class IX with A and B, three subjects and two teachers.
class CopySchool
{
public:
    explicit CopySchool(store::Connection& main) : main_(main)
    {
        AddYear(ThisYear, 2024, 'Y');
        AddYear(NextYear, 2025, 'N');
        AddYear(YearBehind, 2026, 'N');
        for (const char* row :
             {"INSERT INTO ExamMaster VALUES (1, 'Term One', 1, 1), (2, 'Term Two', 2, 1)",
              "INSERT INTO ClassDivisionMaster VALUES (1, 'X', 3, 2, 1), (2, 'IX', 2, 1, 1)",
              "INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1), (1, 'B', 2), (1, 'C', 3)",
              "INSERT INTO ClassDivisionDetails VALUES (2, 'A', 1), (2, 'B', 2)",
              "INSERT INTO SubjectMaster VALUES (1, 'English', 'Eng', 1), (2, 'Maths', 'Mat', 1), "
              "(3, 'Art', 'Art', 1)",
              "INSERT INTO TeacherMaster (TeacherCode, TeacherName, TeacherShortName, CityCode, "
              "BloodGroupCode) VALUES (1, 'Rao', 'R', 0, 0), (2, 'Sen', 'S', 0, 0)"})
            main_.Execute(QString::fromLatin1(row));
    }

    void AddYear(int code, int yearFrom, char status)
    {
        main_.Execute(QStringLiteral("INSERT INTO AcademicYearSetup VALUES (?, ?, ?, ?, ?, ?, 'N', 1)"), code,
                      yearFrom, yearFrom + 1, QDate(yearFrom, 6, 1), QDate(yearFrom + 1, 5, 31),
                      QString(QLatin1Char(status)));
    }

    /// The teacher is that with the code 1.
    void AddSubject(const SchoolScope& scope, int subject, int slNo, double maximum = 100)
    {
        InsertSubject(scope, subject, 1, maximum, maximum, "Yes", slNo);
    }
    /// Maths comes first and English second.
    void SetUpSubjects(const SchoolScope& scope)
    {
        InsertSubject(scope, 1, 1, 100, 80, "Yes", 2);
        InsertSubject(scope, 2, 2, 50, 50, "No", 1);
    }
    void AddGrade(const SchoolScope& scope, double total, double subject, const char* grade, int status)
    {
        main_.Execute(QStringLiteral("INSERT INTO RankMaster VALUES (?, ?, ?, ?, ?, ?, ?, ?, NULL)"),
                      scope.academicYearCode, scope.examCode, scope.classCode, scope.divisionCode, total,
                      subject, QString::fromLatin1(grade), status);
    }
    /// A from 80, D below.
    void SetUpGrades(const SchoolScope& scope)
    {
        AddGrade(scope, 80, 50, "A", 1);
        AddGrade(scope, 0, 0, "D", 2);
    }
    /// The mark of a student of the class-division.
    void EnterMark(const SchoolScope& scope, int subject, double mark)
    {
        const int student = ++students_;
        main_.Execute(QStringLiteral("INSERT INTO StudentMaster (StudentCode, AdmissionNo, "
                                     "OptionalAdmissionNo, StudentName, AcademicYearCode, CityCode, "
                                     "BloodGroupCode, TCNo) VALUES (?, ?, ?, 'Student', ?, 0, 0, '')"),
                      student, 100 + student, QStringLiteral("A%1").arg(student), ThisYear);
        main_.Execute(QStringLiteral("INSERT INTO MarkMaster VALUES (?, ?, ?, ?, ?, ?, ?, 'P', 1, 1)"),
                      scope.academicYearCode, student, scope.examCode, scope.classCode, scope.divisionCode,
                      subject, mark);
    }

    /// "Maths Sen 50/50 No 1; English Rao 100/80 Yes 2", what is stored for the class-division.
    std::string Subjects(const SchoolScope& scope) { return SubjectsIn(main_, scope); }
    static std::string SubjectsIn(store::Connection& main, const SchoolScope& scope)
    {
        QStringList subjects;
        auto rows = main.Query(
            QStringLiteral("SELECT b.SubjectName, c.TeacherName, a.MaximumMark, a.MaximumAllowed, "
                           "a.TakenForRank, a.SlNo FROM ClassSubjectTeacher a, SubjectMaster b, "
                           "TeacherMaster c WHERE b.SubjectCode = a.SubjectCode AND c.TeacherCode = "
                           "a.TeacherCode AND a.AcademicYearCode = ? AND a.ClassCode = ? AND a.DivisionCode "
                           "= ? ORDER BY a.SlNo"),
            scope.academicYearCode, scope.classCode, scope.divisionCode);
        while (rows.Next())
            subjects.append(QStringLiteral("%1 %2 %3/%4 %5 %6")
                                .arg(rows.Text(0), rows.Text(1), QString::number(rows.Double(2)),
                                     QString::number(rows.Double(3)), rows.Text(4), rows.Text(5)));
        return subjects.join(QStringLiteral("; ")).toStdString();
    }
    /// "80/50 A 1 -; 0/0 D 2 5", the table and whose copy it is.
    std::string Grades(const SchoolScope& scope) { return GradesIn(main_, scope); }
    static std::string GradesIn(store::Connection& main, const SchoolScope& scope)
    {
        QStringList grades;
        auto rows = main.Query(
            QStringLiteral("SELECT TotalAverage, SubjectAverage, Grade, Status, coalesce(UserCode, '-') FROM "
                           "RankMaster WHERE AcademicYearCode = ? AND ExamCode = ? AND ClassCode = ? AND "
                           "DivisionCode = ? ORDER BY Status"),
            scope.academicYearCode, scope.examCode, scope.classCode, scope.divisionCode);
        while (rows.Next())
            grades.append(QStringLiteral("%1/%2 %3 %4 %5")
                              .arg(QString::number(rows.Double(0)), QString::number(rows.Double(1)),
                                   rows.Text(2), rows.Text(3), rows.Text(4)));
        return grades.join(QStringLiteral("; ")).toStdString();
    }

private:
    void InsertSubject(const SchoolScope& scope, int subject, int teacher, double maximum, double allowed,
                       const char* takenForRank, int slNo)
    {
        main_.Execute(QStringLiteral("INSERT INTO ClassSubjectTeacher VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                      scope.academicYearCode, scope.classCode, scope.divisionCode, subject, teacher, maximum,
                      allowed, QString::fromLatin1(takenForRank), slNo);
    }

    store::Connection& main_;
    int students_ = 0;
};

} // namespace tally::test
