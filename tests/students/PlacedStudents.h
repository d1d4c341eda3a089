#pragma once

#include "students/AdmissionRepository.h"
#include "students/StudentRows.h"

#include <QString>

namespace tally::test {

/// Two more years behind the two of the students' masters, and the classes V (1) and IV (2), in this order,
/// with the divisions A and B (1 and 2) and one exam in one subject.
inline void LayClasses(store::Connection& main)
{
    for (const char* row :
         {"INSERT INTO AcademicYearSetup VALUES (3, 2025, 2026, '2025-06-01', '2026-05-31', 'N', 'N', 1)",
          "INSERT INTO AcademicYearSetup VALUES (4, 2026, 2027, '2026-06-01', '2027-05-31', 'N', 'N', 1)",
          "INSERT INTO ClassDivisionMaster VALUES (1, 'V', 2, 1, 1), (2, 'IV', 2, 2, 1)",
          "INSERT INTO ClassDivisionDetails VALUES (1, 'B', 2), (1, 'A', 1), (2, 'A', 1), (2, 'B', 2)",
          "INSERT INTO ExamMaster VALUES (1, 'Term', 1, 1)",
          "INSERT INTO SubjectMaster VALUES (1, 'English', 'Eng', 1)"})
        main.Execute(QString::fromLatin1(row));
}

inline void Place(store::Connection& main, int studentCode, int year, const Placement& placement = {1, 1},
                  const char* status = "Y")
{
    main.Execute(QStringLiteral("INSERT INTO StudentClassDivision VALUES (?, ?, ?, ?, ?, 1)"), studentCode,
                 year, placement.classCode, placement.divisionCode, status);
}

inline void EnterMark(store::Connection& main, int studentCode, int year)
{
    main.Execute(QStringLiteral("INSERT INTO MarkMaster VALUES (?, ?, 1, 1, 1, 1, 40, 'P', 0, 1)"), year,
                 studentCode);
}

/// "1/2 V-A Y 3": student and year, class-division, status and user of each placement.
inline std::string Placements(store::Connection& main)
{
    auto rows = main.Query(
        QStringLiteral("SELECT a.StudentCode, a.AcademicYearCode, b.ClassName, c.DivisionName, a.Status,"
                       " a.UserCode FROM StudentClassDivision a"
                       " JOIN ClassDivisionMaster b ON b.ClassCode = a.ClassCode"
                       " JOIN ClassDivisionDetails c ON c.ClassCode = a.ClassCode"
                       " AND c.DivisionCode = a.DivisionCode ORDER BY a.StudentCode, a.AcademicYearCode"));
    QStringList placements;
    while (rows.Next())
        placements.append(
            QStringLiteral("%1/%2 %3-%4 %5 %6")
                .arg(rows.Text(0), rows.Text(1), rows.Text(2), rows.Text(3), rows.Text(4), rows.Text(5)));
    return placements.join(QStringLiteral("; ")).toStdString();
}

} // namespace tally::test
