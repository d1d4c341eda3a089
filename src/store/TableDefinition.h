#pragma once

#include "store/Transaction.h"

#include <QString>

#include <initializer_list>

namespace tally::store {

/// One column of a table to be created. Text compares without case, as the office expects of names and
/// numbers; every stated width, list of letters, range and date is held by the store itself.
class Column
{
public:
    Column(const QString& name, const QString& kind, const QString& check = {});

    /// The table's own key.
    Column Key() const { return With(QStringLiteral(" PRIMARY KEY")); }
    Column Unique() const { return With(QStringLiteral(" UNIQUE")); }
    /// The code names a row of that table, which then cannot be deleted. Null names none.
    Column To(const char* table) const;
    /// `low` to `high`, both allowed; Null is allowed.
    Column Between(int low, int high) const;
    /// Exactly these texts, given in SQL as 'Y', 'N'; Null is allowed.
    Column In(const char* texts) const;

    const QString& Sql() const { return sql_; }

private:
    Column With(const QString& constraint) const;

    QString name_;
    QString sql_;
};

Column Long(const char* name);
Column Integer(const char* name);
Column Double(const char* name);
/// Text of at most `width` characters.
Column Text(const char* name, int width);
/// Text of any length.
Column Memo(const char* name);
/// An ISO date or Null.
Column Date(const char* name);

/// `constraints` are those of the table as a whole, in SQL. A table with a key over several columns is stored
/// in the order of that key, so that reading one class-division is one run of neighbouring pages.
void CreateTable(Transaction& transaction, const char* name, std::initializer_list<Column> columns,
                 std::initializer_list<const char*> constraints = {});

} // namespace tally::store
