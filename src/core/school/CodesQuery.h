#pragma once

#include "store/Connection.h"
#include "store/Dialect.h"

#include <QString>

#include <vector>

namespace tally {

/// `sql` holds one %1 where the list of codes goes, behind all other placeholders. The engine takes 999
/// values in all, more than a school has divisions in a class.
template <typename... Values>
store::Statement QueryCodes(store::Connection& connection, const QString& sql, const std::vector<int>& codes,
                            const Values&... values)
{
    store::Statement statement = connection.Prepare(sql.arg(store::dialect::Placeholders(codes.size())));
    int position = 0;
    (statement.BindAt(++position, static_cast<qint64>(values)), ...);
    for (const int code : codes)
        statement.BindAt(++position, static_cast<qint64>(code));
    return statement;
}

} // namespace tally
