#pragma once

#include "store/Connection.h"

#include <QDate>
#include <QStringList>

#include <variant>
#include <vector>

namespace tally {

/// The conditions of a search, one for each filter that the user has filled, with the values to which they
/// are bound.
class SearchConditions
{
public:
    /// Adds `condition`, which holds one "?" for the value. An empty text, code 0 and an invalid date filter
    /// nothing: they add no condition.
    void Add(const QString& condition, const QString& text);
    void Add(const QString& condition, int code);
    void Add(const QString& condition, const QDate& date);
    /// Adds `condition` with any code: a bound of the search that is no filter of the user's.
    void Bound(const QString& condition, int code);

    /// `select`, which ends in a condition of its own, with all that were added and then `order`; ready for
    /// its rows to be read.
    store::Statement Query(store::Connection& connection, const QString& select, const QString& order) const;

private:
    QStringList conditions_;
    std::vector<std::variant<qint64, QString>> values_; ///< one for each condition
};

} // namespace tally
