#pragma once

#include "store/Transaction.h"

#include <QDate>

namespace tally {

/// The school's working days, one row each, and how far back a user may go among them.
class ApplicationDateRepository
{
public:
    explicit ApplicationDateRepository(store::Connection& main) : main_(main) {}

    /// The last working day from `from` to `to`; invalid when there is none.
    QDate Last(const QDate& from, const QDate& to);
    int Count(const QDate& from, const QDate& to);
    bool IsWorkingDay(const QDate& day);
    /// 0 to 365; 0 also for a user without a login.
    int DaysOf(int userCode);

    /// A general failure when the day is there already.
    static void Insert(store::Transaction& transaction, const QDate& day, int userCode);
    static void Delete(store::Transaction& transaction, const QDate& day);
    static void DeleteBetween(store::Transaction& transaction, const QDate& from, const QDate& to);

private:
    store::Connection& main_;
};

} // namespace tally
