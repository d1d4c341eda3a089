#include "calendar/AcademicYearDates.h"

namespace tally {

int YearToOf(int yearFrom, int startMonth)
{
    return startMonth == 1 ? yearFrom : yearFrom + 1;
}

std::optional<AcademicYearDates> DatesOfYear(const QString& typedYearFrom, int startMonth)
{
    const int yearFrom = typedYearFrom.toInt();
    if (yearFrom < FirstRecordedYear || yearFrom > LastRecordedYear)
        return std::nullopt;
    const QDate fromDate(yearFrom, startMonth, 1);
    // Stepping back from the next beginning finds the 29th of February by itself.
    return AcademicYearDates{YearToOf(yearFrom, startMonth), fromDate, fromDate.addYears(1).addDays(-1)};
}

bool IsWithinRecords(int yearFrom, int yearTo)
{
    return yearFrom >= FirstRecordedYear && yearTo >= yearFrom && yearTo <= LastRecordedYear;
}

PlaceInSeries PlaceOf(int yearFrom, const std::optional<YearSeries>& series)
{
    if (!series)
        return PlaceInSeries::Allowed;
    if (yearFrom < series->first)
        return PlaceInSeries::BeforeFirst;
    return yearFrom - 1 > series->last ? PlaceInSeries::LeavesAGap : PlaceInSeries::Allowed;
}

} // namespace tally
