#pragma once

#include "store/Connection.h"
#include "store/Dialect.h"

#include <QString>

#include <initializer_list>
#include <vector>

namespace tally {

/// `sql` holds %1 where the first list of codes goes, and %2 for a second one, behind all other placeholders.
/// The engine takes 999 values in all, more than a school has divisions in a class.
template <typename... Values>
store::Statement QueryCodes(store::Connection& connection, const QString& sql,
                            std::initializer_list<std::vector<int>> lists, const Values&... values)
{
    QString filled = sql;
    for (const std::vector<int>& codes : lists)
        filled = filled.arg(store::dialect::Placeholders(codes.size()));
    store::Statement statement = connection.Prepare(filled);
    int position = 0;
    (statement.BindAt(++position, static_cast<qint64>(values)), ...);
    for (const std::vector<int>& codes : lists)
        for (const int code : codes)
            statement.BindAt(++position, static_cast<qint64>(code));
    return statement;
}

/// With one list.
template <typename... Values>
store::Statement QueryCodes(store::Connection& connection, const QString& sql, const std::vector<int>& codes,
                            const Values&... values)
{
    return QueryCodes(connection, sql, {codes}, values...);
}

} // namespace tally
