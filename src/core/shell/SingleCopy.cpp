#include "core/shell/SingleCopy.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QSysInfo>

namespace tally {

namespace {

/// User and machine are part of the name: whether a copy is dead can only be told on its own machine, and
/// what a dead copy left can only be cleared away by its own user.
QString LockName(const QString& executable)
{
    const QString place = QFileInfo(executable).canonicalFilePath() + QLatin1Char('\n') + QDir::homePath() +
                          QLatin1Char('\n') + QSysInfo::machineHostName();
    const QByteArray hash = QCryptographicHash::hash(place.toUtf8(), QCryptographicHash::Sha256).toHex();
    // A desktop session has a folder in memory for such files, which no disk makes the start wait for.
    const QDir folder = qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")
                            ? QDir(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation))
                            : QDir::temp();
    return folder.filePath(QStringLiteral("tallyboard-%1.lock").arg(QString::fromLatin1(hash.left(24))));
}

} // namespace

SingleCopy::SingleCopy(const QString& executable) : lock_(LockName(executable))
{
    // Age says nothing, a clerk's program may run for days; only whether the process lives does.
    lock_.setStaleLockTime(0);
    // A folder that can't be written to must not keep the office from working.
    first_ = lock_.tryLock(0) || lock_.error() != QLockFile::LockFailedError;
}

} // namespace tally
