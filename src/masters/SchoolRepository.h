#pragma once

#include "core/CodedTexts.h"
#include "store/Transaction.h"

#include <QDate>
#include <QString>

#include <optional>

namespace tally {

/// The one row of SchoolMaster.
struct School
{
    QString name;
    QString address1;
    QString address2;
    int stateCode = 0; ///< of the city; not stored with the school
    int cityCode = 0;
    QString pinCode;
    QString startMonth; ///< short name of the academic year's first month, as "JUN"
};

/// The number of calendar month `month` within an academic year that starts in `startMonth`, all 1 to 12: the
/// first month is 1 and the one before it, a year later, 12.
int MonthCodeOf(int month, int startMonth);

/// The statements of the school's own details. Throws StoreError.
class SchoolRepository
{
public:
    /// `main` must outlive the repository.
    explicit SchoolRepository(store::Connection& main) : main_(main) {}

    /// Empty until the school has been entered.
    std::optional<School> Load();
    bool Exists();
    /// Whether any academic year has been set up.
    bool CheckAcademicYear();
    /// The first day of the first academic year; invalid without one.
    QDate FirstAcademicYearFrom();

    /// Number and short name of the twelve months.
    CodedTexts Months();

    /// Takes the place of the stored row. A general failure when the city is no longer there.
    void Replace(store::Transaction& transaction, const School& school, int userCode);
    /// Numbers the months in the order of an academic year that starts in `startMonth`, 1 to 12.
    void GenerateMonthCode(store::Transaction& transaction, int startMonth);

private:
    store::Connection& main_;
};

} // namespace tally
