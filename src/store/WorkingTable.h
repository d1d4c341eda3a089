#pragma once

#include "store/Transaction.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace tally::store {

/// A table in which a screen lays down one list for the length of its work. Some of its columns are known
/// only then, such as one for each subject. What it holds was checked where it is kept, so it checks nothing.
class WorkingTable
{
public:
    /// `name` is the program's own and outlives the object, as those of its fixed columns do.
    explicit WorkingTable(const char* name) : name_(name) {}

    /// The columns, in their order.
    WorkingTable& Text(const char* name, int width);
    WorkingTable& Whole(const char* name);
    WorkingTable& Decimal(const char* name);
    /// Columns named after data, which may be any text. A name that another column has, in whatever letters,
    /// gets further underscores.
    WorkingTable& TextOfData(const QString& name, int width);
    WorkingTable& DecimalOfData(const QString& name);

    /// The columns as the store knows them.
    QStringList Columns() const;

    /// Makes the table anew, without rows; one of its name is dropped.
    void Create(Transaction& transaction) const;
    /// Stores one row, with a value bound for each column in their order; to be run for all rows.
    Statement Insert(Transaction& transaction) const;
    /// Stores all rows of a query, whose columns are those of the table in their order; its values are to be
    /// bound.
    Statement InsertRowsOf(Transaction& transaction, const QString& query) const;
    /// Nothing happens where there is no table.
    static void Drop(Transaction& transaction, const char* name);

private:
    struct Column
    {
        QString name;
        QString kind;
        bool ofData;
    };

    WorkingTable& Add(const QString& name, const QString& kind, bool ofData);
    /// For a statement: names of data are quoted, the program's own are not, since a server that folds names
    /// folds them wherever they stand.
    QStringList WrittenColumns() const;
    /// The part of a statement before the values.
    QString InsertInto() const;

    const char* name_;
    std::vector<Column> columns_;
};

} // namespace tally::store
