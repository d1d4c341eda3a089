#include "calendar/AcademicYearRepository.h"

#include "store/StoreError.h"

namespace tally {

namespace {

QString StatusOf(bool active)
{
    return active ? QStringLiteral("Y") : QStringLiteral("N");
}

} // namespace

std::optional<int> AcademicYearRepository::StartMonth()
{
    auto row = main_.Query(QStringLiteral("SELECT a.MonthSlNo FROM MonthMaster a, SchoolMaster b"
                                          " WHERE a.MonthShortName = b.MonthShortName"));
    if (!row.Next())
        return std::nullopt;
    return row.Int(0);
}

GridResult AcademicYearRepository::List()
{
    return ReadGrid(
        main_.Query(QStringLiteral(
            "SELECT AcademicYearCode, YearFrom AS \"Academic Year From\", YearTo AS \"Academic Year To\","
            " FromDate AS \"From Date\", ToDate AS \"To Date\","
            " CASE WHEN Status = 'Y' THEN 'YES' ELSE 'NO' END AS \"Status\""
            " FROM AcademicYearSetup WHERE AcademicYearCode > 0 ORDER BY AcademicYearCode")),
        {QStringLiteral("From Date"), QStringLiteral("To Date")});
}

int AcademicYearRepository::Count()
{
    return static_cast<int>(
        main_.Number(QStringLiteral("SELECT count(*) FROM AcademicYearSetup WHERE AcademicYearCode > 0")));
}

bool AcademicYearRepository::HasActive()
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM AcademicYearSetup"
                                       " WHERE AcademicYearCode > 0 AND upper(Status) = 'Y'")) > 0;
}

bool AcademicYearRepository::OtherIsActive(int code)
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM AcademicYearSetup WHERE AcademicYearCode > 0"
                                       " AND upper(Status) = 'Y' AND AcademicYearCode <> ?"),
                        code) > 0;
}

bool AcademicYearRepository::YearFromExists(int yearFrom, int code)
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM AcademicYearSetup WHERE AcademicYearCode > 0"
                                       " AND YearFrom = ? AND AcademicYearCode <> ?"),
                        yearFrom, code) > 0;
}

std::optional<YearSeries> AcademicYearRepository::Series()
{
    auto row = main_.Query(QStringLiteral("SELECT min(YearFrom), max(YearFrom) FROM AcademicYearSetup"
                                          " WHERE AcademicYearCode > 0"));
    if (!row.Next() || row.IsNull(0))
        return std::nullopt;
    return YearSeries{row.Int(0), row.Int(1)};
}

bool AcademicYearRepository::HasLaterThan(int code)
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM AcademicYearSetup WHERE AcademicYearCode > ?"),
                        code) > 0;
}

std::optional<StoredYear> AcademicYearRepository::Find(int yearFrom, int yearTo)
{
    auto row = main_.Query(
        QStringLiteral("SELECT AcademicYearCode, YearFrom, YearTo, FromDate, ToDate, Processed"
                       " FROM AcademicYearSetup WHERE AcademicYearCode > 0 AND YearFrom = ? AND YearTo = ?"),
        yearFrom, yearTo);
    if (!row.Next())
        return std::nullopt;
    return StoredYear{{row.Int(0), row.Int(1), row.Int(2), row.Date(3), row.Date(4)},
                      row.FirstLetter(5) == 'Y'};
}

void AcademicYearRepository::Insert(store::Transaction& transaction, const AcademicYear& year, bool active,
                                    int userCode)
{
    transaction.Execute(
        QStringLiteral("INSERT INTO AcademicYearSetup (AcademicYearCode, YearFrom, YearTo, FromDate, ToDate, "
                       "Status, Processed, UserCode) VALUES (?, ?, ?, ?, ?, ?, 'N', ?)"),
        year.code, year.yearFrom, year.yearTo, year.fromDate, year.toDate, StatusOf(active), userCode);
}

void AcademicYearRepository::UpdateStatus(store::Transaction& transaction, int code, bool active)
{
    const QString update =
        QStringLiteral("UPDATE AcademicYearSetup SET Status = ? WHERE AcademicYearCode = ?");
    if (transaction.Execute(update, StatusOf(active), code) == 0)
        throw store::StoreError::RowIsGone(update);
}

void AcademicYearRepository::Delete(store::Transaction& transaction, int code)
{
    transaction.Execute(QStringLiteral("DELETE FROM AcademicYearSetup WHERE AcademicYearCode = ?"), code);
}

} // namespace tally
