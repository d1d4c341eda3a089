#include "core/SearchConditions.h"

namespace tally {

void SearchConditions::Add(const QString& condition, const QString& text)
{
    if (text.isEmpty())
        return;
    conditions_.append(condition);
    values_.emplace_back(text);
}

void SearchConditions::Add(const QString& condition, int code)
{
    if (code != 0)
        Bound(condition, code);
}

void SearchConditions::Add(const QString& condition, const QDate& date)
{
    Add(condition, date.toString(Qt::ISODate));
}

void SearchConditions::Bound(const QString& condition, int code)
{
    conditions_.append(condition);
    values_.emplace_back(qint64(code));
}

store::Statement SearchConditions::Query(store::Connection& connection, const QString& select,
                                         const QString& order) const
{
    QString sql = select;
    for (const QString& condition : conditions_)
        sql += QStringLiteral(" AND ") + condition;
    store::Statement statement = connection.Prepare(sql + order);
    int position = 0;
    for (const auto& value : values_)
        std::visit([&](const auto& bound) { statement.BindAt(++position, bound); }, value);
    return statement;
}

} // namespace tally
