#include "masters/SchoolRepository.h"

namespace tally {

namespace {

constexpr int MonthsOfAYear = 12;

} // namespace

int MonthCodeOf(int month, int startMonth)
{
    return (month - startMonth + MonthsOfAYear) % MonthsOfAYear + 1;
}

std::optional<School> SchoolRepository::Load()
{
    auto row = main_.Query(
        QStringLiteral("SELECT a.SchoolName, a.SAddress1, a.SAddress2, c.StateCode, b.CityCode, a.CPinCode,"
                       " a.MonthShortName FROM SchoolMaster a, CityMaster b, StateMaster c"
                       " WHERE a.CCityCode = b.CityCode AND b.StateCode = c.StateCode"));
    if (!row.Next())
        return std::nullopt;
    return School{row.Text(0), row.Text(1), row.Text(2), row.Int(3), row.Int(4), row.Text(5), row.Text(6)};
}

bool SchoolRepository::Exists()
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM SchoolMaster")) > 0;
}

bool SchoolRepository::CheckAcademicYear()
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM AcademicYearSetup WHERE AcademicYearCode > 0")) >
           0;
}

QDate SchoolRepository::FirstAcademicYearFrom()
{
    auto row = main_.Query(QStringLiteral(
        "SELECT FromDate FROM AcademicYearSetup WHERE AcademicYearCode > 0 ORDER BY AcademicYearCode"));
    return row.Next() ? row.Date(0) : QDate();
}

CodedTexts SchoolRepository::Months()
{
    return ReadCodedTexts(
        main_.Query(QStringLiteral("SELECT MonthSlNo, MonthShortName FROM MonthMaster ORDER BY MonthSlNo")));
}

void SchoolRepository::Replace(store::Transaction& transaction, const School& school, int userCode)
{
    transaction.Execute(QStringLiteral("DELETE FROM SchoolMaster"));
    transaction.Execute(
        QStringLiteral("INSERT INTO SchoolMaster (SchoolName, SAddress1, SAddress2, CCityCode, CPinCode, "
                       "MonthShortName, UserCode) VALUES (?, ?, ?, ?, ?, ?, ?)"),
        school.name, school.address1, school.address2, school.cityCode, school.pinCode, school.startMonth,
        userCode);
}

void SchoolRepository::GenerateMonthCode(store::Transaction& transaction, int startMonth)
{
    auto update =
        transaction.Prepare(QStringLiteral("UPDATE MonthMaster SET MonthCode = ? WHERE MonthSlNo = ?"));
    for (int month = 1; month <= MonthsOfAYear; ++month)
        update.Run(MonthCodeOf(month, startMonth), month);
}

} // namespace tally
