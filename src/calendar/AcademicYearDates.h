#pragma once

#include <QDate>
#include <QString>

#include <optional>

namespace tally {

/// The first and the last calendar year of the school's records.
inline constexpr int FirstRecordedYear = 1980;
inline constexpr int LastRecordedYear = 2099;

/// What follows from an academic year's first calendar year.
struct AcademicYearDates
{
    int yearTo = 0;
    QDate fromDate; ///< the first of the start month
    QDate toDate;   ///< the day before the next academic year begins
};

/// The calendar year in which an academic year ends. `startMonth` is 1 to 12; a year that starts in January
/// ends in the same calendar year.
int YearToOf(int yearFrom, int startMonth);

/// The year that the typed text stands for; unset while it is none from 1980 to 2099. The year it ends in may
/// lie beyond those.
std::optional<AcademicYearDates> DatesOfYear(const QString& typedYearFrom, int startMonth);

/// True if the academic year lies within the records from its beginning to its end.
bool IsWithinRecords(int yearFrom, int yearTo);

/// The `YearFrom` of the first and of the last academic year there is.
struct YearSeries
{
    int first = 0;
    int last = 0;
};

enum class PlaceInSeries
{
    Allowed,
    BeforeFirst, ///< the series never grows backwards
    LeavesAGap,  ///< the years between would be missing
};

/// Where a new academic year would stand. Without any year yet, every one is allowed.
PlaceInSeries PlaceOf(int yearFrom, const std::optional<YearSeries>& series);

} // namespace tally
