#include "store/Identifier.h"

namespace tally::store {

QString QuotedIdentifier(const QString& name)
{
    QString doubled = name;
    doubled.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + doubled + QLatin1Char('"');
}

} // namespace tally::store
