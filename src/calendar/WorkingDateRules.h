#pragma once

#include <QDate>

namespace tally {

/// How far the calendar may run ahead of the working date of the session, in days.
inline constexpr int MostDaysAhead = 31;

enum class NextDay
{
    Allowed,
    TooFarAhead, ///< more than MostDaysAhead after the working date
    BeyondYear,  ///< after the academic year's last day, or there is no year
};

/// Whether `day` may be added to the calendar. Without a working date nothing is too far ahead of it.
NextDay CheckNextDay(const QDate& day, const QDate& workingDate, const QDate& yearEnd);

/// Whether the day before `lastDay` still belongs to the year that begins with `yearStart`.
bool MayStepBack(const QDate& lastDay, const QDate& yearStart);

/// The days that a user may work on, as shown. Both are invalid while the year has no working day.
struct WorkableRange
{
    QDate from;
    QDate to;
};

/// `days` is how many days before the last working day the user may go back; 0 leaves the last day alone.
WorkableRange RangeFor(const QDate& lastDay, int days, const QDate& yearStart);

/// Whether a user with `days` may go to `day`, as far as the limit decides: with 0 to no day at all.
bool IsWithinLimit(const QDate& day, const QDate& lastDay, int days);

} // namespace tally
