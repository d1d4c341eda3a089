#include "reports/SetupReportRepository.h"

namespace tally {

std::vector<SetupReportRow> SetupReportRepository::LoadSetup(int academicYearCode, int classCode,
                                                             int divisionCode)
{
    std::vector<SetupReportRow> setup;
    store::Statement rows = main_.Prepare(QStringLiteral(
        "SELECT d.ClassName, e.DivisionName, a.ClassCode, a.DivisionCode, b.SubjectName, c.TeacherName, "
        "a.MaximumMark, a.MaximumAllowed, a.TakenForRank, a.SlNo FROM ClassSubjectTeacher a, "
        "SubjectMaster b, TeacherMaster c, ClassDivisionMaster d, ClassDivisionDetails e "
        "WHERE a.SubjectCode = b.SubjectCode AND a.TeacherCode = c.TeacherCode AND "
        "a.ClassCode = d.ClassCode AND a.ClassCode = e.ClassCode AND a.DivisionCode = e.DivisionCode AND "
        "a.AcademicYearCode = :Year AND (:Class = 0 OR a.ClassCode = :Class) AND "
        "(:Division = 0 OR a.DivisionCode = :Division) "
        "ORDER BY d.ClassOrder, e.DivisionCode, a.SlNo, a.SubjectCode"));
    rows.BindNamed(":Year", academicYearCode);
    rows.BindNamed(":Class", classCode);
    rows.BindNamed(":Division", divisionCode);
    while (rows.Next())
        setup.push_back({rows.Text(0), rows.Text(1), rows.Int(2), rows.Int(3), rows.Text(4), rows.Text(5),
                         rows.Double(6), rows.Double(7), rows.Text(8), rows.Int(9)});
    return setup;
}

} // namespace tally
