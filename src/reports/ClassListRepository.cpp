#include "reports/ClassListRepository.h"

#include "core/school/CodesQuery.h"

namespace tally {

namespace {

/// Students of one name stand in the order of their numbers.
QString OrderOf(ClassListOrder order)
{
    switch (order) {
    case ClassListOrder::AdmissionNo: return QStringLiteral("a.AdmissionNo");
    case ClassListOrder::OptionalAdmissionNo: return QStringLiteral("a.OptionalAdmissionNo");
    case ClassListOrder::Alphabetical: break;
    }
    return QStringLiteral("a.StudentName, a.AdmissionNo");
}

} // namespace

std::vector<ClassListStudent> ClassListRepository::LoadStudents(int academicYearCode, int classCode,
                                                                const std::vector<int>& divisionCodes,
                                                                ClassListOrder order)
{
    std::vector<ClassListStudent> students;
    store::Statement rows = QueryCodes(
        main_,
        QStringLiteral("SELECT a.OptionalAdmissionNo, a.StudentName FROM StudentMaster a, "
                       "StudentClassDivision b WHERE a.StudentCode = b.StudentCode AND "
                       "b.AcademicYearCode = ? AND b.ClassCode = ? AND b.DivisionCode IN (%1) ORDER BY ") +
            OrderOf(order),
        divisionCodes, academicYearCode, classCode);
    while (rows.Next())
        students.push_back({rows.Text(0), rows.Text(1)});
    return students;
}

} // namespace tally
