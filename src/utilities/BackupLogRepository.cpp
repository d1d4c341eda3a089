#include "utilities/BackupLogRepository.h"

#include "core/modTallyboard.h"

namespace tally {

QList<LoggedCopy> BackupLogRepository::All(store::Connection& log, CopyMode mode)
{
    QList<LoggedCopy> copies;
    auto rows = mode == CopyMode::Backup
                    ? log.Query(QStringLiteral("SELECT BackupCode, BackupPath, BackupDate FROM BackupDatabase"
                                               " ORDER BY BackupCode"))
                    : log.Query(QStringLiteral("SELECT RestoreCode, RestorePath, RestoreDate"
                                               " FROM RestoreDatabase ORDER BY RestoreCode"));
    while (rows.Next())
        copies.append({rows.Int(0), rows.Text(1), rows.Text(2)});
    return copies;
}

void BackupLogRepository::Add(store::Transaction& log, CopyMode mode, const QString& path,
                              const QDateTime& now)
{
    const QString date = now.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    if (mode == CopyMode::Backup)
        log.Execute(QStringLiteral("INSERT INTO BackupDatabase (BackupCode, BackupPath, BackupDate)"
                                   " VALUES (?, ?, ?)"),
                    GetNextCode(log, QStringLiteral("BackupCode"), QStringLiteral("BackupDatabase"), 0), path,
                    date);
    else
        log.Execute(QStringLiteral("INSERT INTO RestoreDatabase (RestoreCode, RestorePath, RestoreDate)"
                                   " VALUES (?, ?, ?)"),
                    GetNextCode(log, QStringLiteral("RestoreCode"), QStringLiteral("RestoreDatabase"), 0),
                    path, date);
}

QString ShownLogDate(const QString& stored)
{
    const QDate date = QDate::fromString(stored.left(10), Qt::ISODate);
    return date.isValid() ? ShownDate(date) : stored;
}

} // namespace tally
