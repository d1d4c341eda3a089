#include "calendar/ApplicationDateRepository.h"

namespace tally {

QDate ApplicationDateRepository::Last(const QDate& from, const QDate& to)
{
    auto row = main_.Query(QStringLiteral("SELECT max(ApplicationDate) FROM ApplicationDate"
                                          " WHERE ApplicationDate BETWEEN ? AND ?"),
                           from, to);
    return row.Next() ? row.Date(0) : QDate();
}

int ApplicationDateRepository::Count(const QDate& from, const QDate& to)
{
    return static_cast<int>(main_.Number(
        QStringLiteral("SELECT count(*) FROM ApplicationDate WHERE ApplicationDate BETWEEN ? AND ?"), from,
        to));
}

bool ApplicationDateRepository::IsWorkingDay(const QDate& day)
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM ApplicationDate WHERE ApplicationDate = ?"),
                        day) > 0;
}

int ApplicationDateRepository::DaysOf(int userCode)
{
    return static_cast<int>(
        main_.Number(QStringLiteral("SELECT Days FROM UserPrivilegeMaster WHERE UserCode = ?"), userCode));
}

void ApplicationDateRepository::Insert(store::Transaction& transaction, const QDate& day, int userCode)
{
    transaction.Execute(
        QStringLiteral("INSERT INTO ApplicationDate (ApplicationDate, UserCode) VALUES (?, ?)"), day,
        userCode);
}

void ApplicationDateRepository::Delete(store::Transaction& transaction, const QDate& day)
{
    transaction.Execute(QStringLiteral("DELETE FROM ApplicationDate WHERE ApplicationDate = ?"), day);
}

void ApplicationDateRepository::DeleteBetween(store::Transaction& transaction, const QDate& from,
                                              const QDate& to)
{
    transaction.Execute(QStringLiteral("DELETE FROM ApplicationDate WHERE ApplicationDate BETWEEN ? AND ?"),
                        from, to);
}

} // namespace tally
