#include "store/TableDefinition.h"

#include "store/Dialect.h"

#include <QStringList>

namespace tally::store {

Column::Column(const QString& name, const QString& kind, const QString& check)
    : name_(name), sql_(name + QLatin1Char(' ') + kind)
{
    if (!check.isEmpty())
        sql_ += QStringLiteral(" CHECK (") + check + QLatin1Char(')');
}

Column Column::With(const QString& constraint) const
{
    Column column = *this;
    column.sql_ += constraint;
    return column;
}

Column Column::To(const char* table) const
{
    return With(QStringLiteral(" REFERENCES %1").arg(QLatin1String(table)));
}

Column Column::Between(int low, int high) const
{
    return With(QStringLiteral(" CHECK (%1 BETWEEN %2 AND %3)").arg(name_).arg(low).arg(high));
}

Column Column::In(const char* texts) const
{
    return With(QStringLiteral(" CHECK (%1 IN (%2))").arg(name_, QLatin1String(texts)));
}

Column Long(const char* name)
{
    return {QLatin1String(name), dialect::WholeNumber()};
}

Column Integer(const char* name)
{
    return Long(name);
}

Column Double(const char* name)
{
    return {QLatin1String(name), dialect::DecimalNumber()};
}

Column Text(const char* name, int width)
{
    return {QLatin1String(name), dialect::ShortText(width), dialect::TextFits(QLatin1String(name), width)};
}

Column Memo(const char* name)
{
    return {QLatin1String(name), dialect::LongText()};
}

Column Date(const char* name)
{
    return {QLatin1String(name), dialect::Day(), dialect::IsDay(QLatin1String(name))};
}

void CreateTable(Transaction& transaction, const char* name, std::initializer_list<Column> columns,
                 std::initializer_list<const char*> constraints)
{
    QStringList lines;
    for (const Column& column : columns)
        lines << column.Sql();
    bool keyOverSeveralColumns = false;
    for (const char* constraint : constraints) {
        lines << QLatin1String(constraint);
        keyOverSeveralColumns |= lines.constLast().startsWith(QLatin1String("PRIMARY KEY"));
    }
    transaction.Execute(QStringLiteral("CREATE TABLE %1 (\n    %2)%3")
                            .arg(QLatin1String(name), lines.join(QLatin1String(",\n    ")),
                                 keyOverSeveralColumns ? dialect::InOrderOfKey() : QString()));
}

} // namespace tally::store
