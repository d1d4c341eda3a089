#include "students/StudentSearchRepository.h"

#include "core/SearchConditions.h"

namespace tally {

GridResult StudentSearchRepository::Search(const StudentFilters& filters)
{
    SearchConditions conditions;
    conditions.Add(QStringLiteral("a.OptionalAdmissionNo LIKE '%' || ? || '%'"), filters.admissionNo);
    conditions.Add(QStringLiteral("a.StudentName LIKE '%' || ? || '%'"), filters.name);
    conditions.Add(QStringLiteral("a.AdmissionDate >= ?"), filters.admittedFrom);
    conditions.Add(QStringLiteral("a.AdmissionDate <= ?"), filters.admittedTo);
    conditions.Add(QStringLiteral("b.StateCode = ?"), filters.stateCode);
    conditions.Add(QStringLiteral("a.CityCode = ?"), filters.cityCode);
    return ReadGrid(
        conditions.Query(
            main_,
            QStringLiteral("SELECT a.StudentCode, a.OptionalAdmissionNo AS \"Admission No\", a.AdmissionDate"
                           " AS \"Admission Date\", a.StudentName AS \"Student Name\", a.Telephone,"
                           " c.StateName AS \"State Name\", b.CityName AS \"City Name\", a.CityCode"
                           " FROM StudentMaster a, CityMaster b, StateMaster c"
                           " WHERE a.CityCode = b.CityCode AND c.StateCode = b.StateCode"
                           " AND a.StudentCode > 0"),
            QStringLiteral(" ORDER BY a.StudentName")),
        {QStringLiteral("Admission Date")});
}

} // namespace tally
