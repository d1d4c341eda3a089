#pragma once

#include <QString>

namespace tally::store {

/// Quotes a table or column name that is made from data, such as a subject's short name. Any text is safe.
QString QuotedIdentifier(const QString& name);

} // namespace tally::store
