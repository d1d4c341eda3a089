#include "store/WorkingTable.h"

#include "store/Dialect.h"
#include "store/Identifier.h"

#include <QSet>

namespace tally::store {

WorkingTable& WorkingTable::Text(const char* name, int width)
{
    return Add(QString::fromLatin1(name), dialect::ShortText(width), false);
}

WorkingTable& WorkingTable::Whole(const char* name)
{
    return Add(QString::fromLatin1(name), dialect::WholeNumber(), false);
}

WorkingTable& WorkingTable::Decimal(const char* name)
{
    return Add(QString::fromLatin1(name), dialect::DecimalNumber(), false);
}

WorkingTable& WorkingTable::TextOfData(const QString& name, int width)
{
    return Add(name, dialect::ShortText(width), true);
}

WorkingTable& WorkingTable::DecimalOfData(const QString& name)
{
    return Add(name, dialect::DecimalNumber(), true);
}

WorkingTable& WorkingTable::Add(const QString& name, const QString& kind, bool ofData)
{
    columns_.push_back({name, kind, ofData});
    return *this;
}

QStringList WorkingTable::Columns() const
{
    QSet<QString> taken;
    for (const Column& column : columns_)
        if (!column.ofData)
            taken.insert(column.name.toCaseFolded());
    QStringList names;
    for (const Column& column : columns_) {
        QString name = column.name;
        if (column.ofData) {
            while (name.isEmpty() || taken.contains(name.toCaseFolded()))
                name += QLatin1Char('_');
            taken.insert(name.toCaseFolded());
        }
        names.append(name);
    }
    return names;
}

QStringList WorkingTable::WrittenColumns() const
{
    QStringList names = Columns();
    for (std::size_t column = 0; column < columns_.size(); ++column)
        if (columns_[column].ofData) {
            QString& name = names[static_cast<qsizetype>(column)];
            name = QuotedIdentifier(name);
        }
    return names;
}

void WorkingTable::Create(Transaction& transaction) const
{
    Drop(transaction, name_);
    QStringList columns = WrittenColumns();
    for (std::size_t column = 0; column < columns_.size(); ++column)
        columns[static_cast<qsizetype>(column)] += QLatin1Char(' ') + columns_[column].kind;
    transaction.Execute(QStringLiteral("CREATE TABLE ") + QLatin1String(name_) + QLatin1String(" (") +
                        columns.join(QLatin1String(", ")) + QLatin1Char(')'));
}

Statement WorkingTable::Insert(Transaction& transaction) const
{
    return transaction.Prepare(InsertInto() + QLatin1String("VALUES (") +
                               dialect::Placeholders(columns_.size()) + QLatin1Char(')'));
}

Statement WorkingTable::InsertRowsOf(Transaction& transaction, const QString& query) const
{
    return transaction.Prepare(InsertInto() + query);
}

QString WorkingTable::InsertInto() const
{
    return QStringLiteral("INSERT INTO ") + QLatin1String(name_) + QLatin1String(" (") +
           WrittenColumns().join(QLatin1String(", ")) + QLatin1String(") ");
}

void WorkingTable::Drop(Transaction& transaction, const char* name)
{
    transaction.Execute(QStringLiteral("DROP TABLE IF EXISTS ") + QLatin1String(name));
}

} // namespace tally::store
