#pragma once

#include "store/Transaction.h"

#include <QDateTime>
#include <QList>
#include <QString>

namespace tally {

/// The two directions in which the school's file is copied.
enum class CopyMode
{
    Backup,
    Restore,
};

struct LoggedCopy
{
    int code = 0;
    QString path; ///< the file of the user's choice
    QString date; ///< as stored
};

/// The log of all backups and restores, in a file of its own.
class BackupLogRepository
{
public:
    static QList<LoggedCopy> All(store::Connection& log, CopyMode mode);
    static void Add(store::Transaction& log, CopyMode mode, const QString& path, const QDateTime& now);
};

/// "dd/MMM/yyyy" of a stored date; a text of another form as it stands.
QString ShownLogDate(const QString& stored);

} // namespace tally
