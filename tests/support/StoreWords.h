#pragma once

#include <QString>

namespace tally::test {

/// What the office reads of a fault of the store: the plain words, and the engine's own behind them.

inline const QString HeldByAnotherClient =
    QStringLiteral("The Data Is In Use By Another Client. Please Try Again In A Moment (database is locked)");
inline const QString DiskIsFull =
    QStringLiteral("The Disk Is Full. This Was Not Saved (database or disk is full)");
inline const QString DiskTakesNothing =
    QStringLiteral("The Database File Could Not Be Read Or Written (disk I/O error)");
inline const QString OnlyReadable = QStringLiteral("The Database Can Only Be Read, Not Written. This Was Not "
                                                   "Saved (attempt to write a readonly database)");

inline QString NoSuchTable(const char* table)
{
    return QStringLiteral("no such table: ") + QLatin1String(table);
}

} // namespace tally::test
