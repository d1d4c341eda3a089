#pragma once

#include "calendar/AcademicYearDates.h"
#include "core/GridResult.h"
#include "core/SessionRepository.h"
#include "store/Transaction.h"

#include <optional>

namespace tally {

struct StoredYear
{
    AcademicYear year;
    bool processed = false; ///< closed for all work
};

/// The academic years. The row with code 0 stands for no year and is never counted or listed.
class AcademicYearRepository
{
public:
    explicit AcademicYearRepository(store::Connection& main) : main_(main) {}

    /// The month, 1 to 12, in which the school's years begin; unset before the school has been entered.
    std::optional<int> StartMonth();
    /// All years as the grid shows them: "AcademicYearCode", "Academic Year From", "Academic Year To",
    /// "From Date", "To Date", "Status" with YES or NO.
    GridResult List();
    int Count();
    bool HasActive();
    /// Whether a year other than `code` is active.
    bool OtherIsActive(int code);
    /// Whether a year other than `code` starts in `yearFrom`.
    bool YearFromExists(int yearFrom, int code);
    std::optional<YearSeries> Series();
    bool HasLaterThan(int code);
    std::optional<StoredYear> Find(int yearFrom, int yearTo);

    /// Adds a year that is open for work.
    static void Insert(store::Transaction& transaction, const AcademicYear& year, bool active, int userCode);
    /// A general failure when the year is no longer there.
    static void UpdateStatus(store::Transaction& transaction, int code, bool active);
    /// A general failure while other rows belong to the year.
    static void Delete(store::Transaction& transaction, int code);

private:
    store::Connection& main_;
};

} // namespace tally
