#pragma once

#include "store/Connection.h"
#include "students/StudentRepository.h"

namespace tally::test {

/// Two years, two states with their cities, and two blood groups, for students to be entered with.
inline void LayStudentMasters(store::Connection& main)
{
    for (const char* row :
         {"INSERT INTO StateMaster VALUES (1, 'Kerala', 1), (2, 'Goa', 1)",
          "INSERT INTO CityMaster VALUES (1, 1, 'Kochi', 1), (2, 2, 'Panaji', 1), (3, 1, 'Aluva', 1)",
          "INSERT INTO BloodGroupMaster VALUES (1, 'O+', 1), (2, 'A-', 1)",
          "INSERT INTO AcademicYearSetup VALUES (1, 2023, 2024, '2023-06-01', '2024-05-31', 'N', 'N', 1),"
          " (2, 2024, 2025, '2024-06-01', '2025-05-31', 'Y', 'N', 1)"})
        main.Execute(QString::fromLatin1(row));
}

/// A student of the second year with nothing but his numbers, a name and the dates that every student has.
inline Student StudentNamed(int code, const char* name)
{
    Student student;
    student.code = code;
    student.admissionNo = 100 + code;
    student.optionalAdmissionNo = QStringLiteral("A%1").arg(student.admissionNo);
    student.admissionDate = QDate(2024, 6, 3);
    student.academicYearCode = 2;
    student.name = QString::fromUtf8(name);
    student.dateOfBirth = QDate(2015, 1, 2);
    return student;
}

inline void StoreStudent(store::Connection& main, const Student& student, int userCode = 1)
{
    store::Transaction transaction(main);
    StudentRepository::Insert(transaction, student, userCode);
    transaction.Commit();
}

/// Lets the student leave the school.
inline void Relieve(store::Connection& main, int studentCode, const char* tcNo = "TC 1")
{
    main.Execute(QStringLiteral("UPDATE StudentMaster SET TCNo = ?, TCDate = '2024-09-02',"
                                " RelievingDate = '2024-09-01', RelievingReason = 'Moved'"
                                " WHERE StudentCode = ?"),
                 tcNo, studentCode);
}

/// All columns of a student's row in their order, with "NULL" for Null; empty where he is not stored.
inline std::string StoredStudent(store::Connection& main, int studentCode)
{
    auto row = main.Query(QStringLiteral("SELECT * FROM StudentMaster WHERE StudentCode = ?"), studentCode);
    QStringList values;
    for (bool found = row.Next(); found && values.size() < row.ColumnCount();) {
        const auto column = static_cast<int>(values.size());
        values.append(row.IsNull(column) ? QStringLiteral("NULL") : row.Text(column));
    }
    return values.join(QLatin1Char('|')).toStdString();
}

} // namespace tally::test
