#include "calendar/WorkingDateRules.h"

#include <algorithm>

namespace tally {

NextDay CheckNextDay(const QDate& day, const QDate& workingDate, const QDate& yearEnd)
{
    if (workingDate.daysTo(day) > MostDaysAhead)
        return NextDay::TooFarAhead;
    return day.isValid() && day <= yearEnd ? NextDay::Allowed : NextDay::BeyondYear;
}

bool MayStepBack(const QDate& lastDay, const QDate& yearStart)
{
    return lastDay.isValid() && lastDay.addDays(-1) >= yearStart;
}

WorkableRange RangeFor(const QDate& lastDay, int days, const QDate& yearStart)
{
    if (!lastDay.isValid() || days == 0)
        return {lastDay, lastDay};
    return {std::max(lastDay.addDays(-days), yearStart), lastDay};
}

bool IsWithinLimit(const QDate& day, const QDate& lastDay, int days)
{
    return days != 0 && lastDay.isValid() && day <= lastDay && day >= lastDay.addDays(-days);
}

} // namespace tally
