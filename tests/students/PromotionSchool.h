#pragma once

#include "store/Connection.h"
#include "students/Placement.h"

#include <QString>
#include <QStringList>

#include <map>
#include <string>

namespace tally::test {

// The codes of years say nothing about their order: behind the next one comes the year with the code 3.
inline constexpr int ThisYear = 7;
inline constexpr int NextYear = 9;
inline constexpr int YearBehind = 3;

inline constexpr Placement TenA{1, 1};
inline constexpr Placement TenB{1, 2};
inline constexpr Placement NineA{2, 1};
inline constexpr Placement NineB{2, 2};
inline constexpr Placement EightA{3, 1};

/// How many students of a year sit in it only, how many in the next one too, and how many have a status that
/// does not tell which.
inline std::string Carried(store::Connection& main, int thisYear, int nextYear)
{
    auto row = main.Query(
        QStringLiteral("SELECT count(*) - count(b.StudentCode), count(b.StudentCode), "
                       "sum(CASE WHEN (b.StudentCode IS NULL) = (a.Status = 'Y') THEN 0 ELSE 1 END) FROM "
                       "StudentClassDivision a LEFT JOIN StudentClassDivision b ON b.StudentCode = "
                       "a.StudentCode AND b.AcademicYearCode = ? WHERE a.AcademicYearCode = ?"),
        nextYear, thisYear);
    row.Next();
    return QStringLiteral("%1 here, %2 carried, %3 wrong")
        .arg(row.Text(0), row.Text(1), row.Text(2))
        .toStdString();
}

/// A school with the classes X, IX and VIII, which have the divisions A and B each, and three years.
class PromotionSchool
{
public:
    explicit PromotionSchool(store::Connection& main) : main_(main)
    {
        AddYear(ThisYear, 2024, 'Y');
        AddYear(NextYear, 2025, 'N');
        AddYear(YearBehind, 2026, 'N');
        for (const char* row : {"INSERT INTO ClassDivisionMaster VALUES (1, 'X', 2, 1, 1)",
                                "INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 2, 2, 1)",
                                "INSERT INTO ClassDivisionMaster VALUES (3, 'VIII', 2, 3, 1)",
                                "INSERT INTO ClassDivisionDetails VALUES (1, 'A', 1), (1, 'B', 2)",
                                "INSERT INTO ClassDivisionDetails VALUES (2, 'A', 1), (2, 'B', 2)",
                                "INSERT INTO ClassDivisionDetails VALUES (3, 'A', 1), (3, 'B', 2)",
                                "INSERT INTO ExamMaster VALUES (1, 'Term One', 1, 1)",
                                "INSERT INTO SubjectMaster VALUES (1, 'English', 'Eng', 1)"})
            main.Execute(QString::fromLatin1(row));
    }

    void AddYear(int code, int yearFrom, char status)
    {
        main_.Execute(QStringLiteral("INSERT INTO AcademicYearSetup VALUES (?, ?, ?, ?, ?, ?, 'N', 1)"), code,
                      yearFrom, yearFrom + 1, QDate(yearFrom, 6, 1), QDate(yearFrom + 1, 5, 31),
                      QString(QLatin1Char(status)));
    }

    /// The number is "A" and the code. Without a place the student sits nowhere.
    int Add(const QString& name, const Placement& place = {}, int year = ThisYear)
    {
        const int code = ++students_;
        main_.Execute(QStringLiteral("INSERT INTO StudentMaster (StudentCode, AdmissionNo, "
                                     "OptionalAdmissionNo, StudentName, AcademicYearCode, CityCode, "
                                     "BloodGroupCode, TCNo) VALUES (?, ?, ?, ?, ?, 0, 0, '')"),
                      code, 100 + code, QStringLiteral("A%1").arg(code), name, ThisYear);
        if (place.IsComplete())
            Place(code, place, year);
        return code;
    }
    void Place(int student, const Placement& place, int year, char status = 'Y')
    {
        main_.Execute(QStringLiteral("INSERT INTO StudentClassDivision VALUES (?, ?, ?, ?, ?, 1)"), student,
                      year, place.classCode, place.divisionCode, QString(QLatin1Char(status)));
    }
    /// As a promotion does it.
    void Carry(int student, const Placement& place)
    {
        SetStatus(student, ThisYear, 'N');
        Place(student, place, NextYear);
    }
    void CarryOn(int student, const Placement& place)
    {
        SetStatus(student, NextYear, 'N');
        Place(student, place, YearBehind);
    }
    void EnterMark(int student, const Placement& place, int year)
    {
        main_.Execute(QStringLiteral("INSERT INTO MarkMaster VALUES (?, ?, 1, ?, ?, 1, 50, 'P', 0, 1)"), year,
                      student, place.classCode, place.divisionCode);
    }
    void Relieve(int student)
    {
        main_.Execute(QStringLiteral("UPDATE StudentMaster SET TCNo = 'TC 1' WHERE StudentCode = ?"),
                      student);
    }

    /// "A1 IX-A N, X-A Y" for each student who sits somewhere in this year or the next, by code.
    std::string Places() { return PlacesIn(main_); }
    static std::string PlacesIn(store::Connection& main)
    {
        std::map<int, QStringList> places;
        auto rows = main.Query(
            QStringLiteral("SELECT a.StudentCode, b.ClassName, c.DivisionName, a.Status FROM "
                           "StudentClassDivision a, ClassDivisionMaster b, ClassDivisionDetails c WHERE "
                           "b.ClassCode = a.ClassCode AND c.ClassCode = a.ClassCode AND c.DivisionCode = "
                           "a.DivisionCode AND a.AcademicYearCode IN (?, ?) ORDER BY a.AcademicYearCode"),
            ThisYear, NextYear);
        while (rows.Next())
            places[rows.Int(0)].append(
                QStringLiteral("%1-%2 %3").arg(rows.Text(1), rows.Text(2), rows.Text(3)));
        QStringList lines;
        for (const auto& [student, of] : places)
            lines.append(QStringLiteral("A%1 %2").arg(student).arg(of.join(QStringLiteral(", "))));
        return lines.join(QStringLiteral("; ")).toStdString();
    }

private:
    void SetStatus(int student, int year, char status)
    {
        main_.Execute(
            QStringLiteral(
                "UPDATE StudentClassDivision SET Status = ? WHERE StudentCode = ? AND AcademicYearCode = ?"),
            QString(QLatin1Char(status)), student, year);
    }

    store::Connection& main_;
    int students_ = 0;
};

} // namespace tally::test
