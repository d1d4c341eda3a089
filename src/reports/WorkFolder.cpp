#include "reports/WorkFolder.h"

#include "core/OwnFiles.h"

#include <QDir>

namespace tally {

namespace {

const QString LockName = QStringLiteral("in-use.lock");

/// Taken, or null, with the reason in `error`.
std::unique_ptr<QLockFile> TakeLock(const QString& folder, QLockFile::LockError& error)
{
    auto lock = std::make_unique<QLockFile>(QDir(folder).filePath(LockName));
    // Age says nothing, only whether the program lives does, and that only its own machine knows.
    lock->setStaleLockTime(0);
    const bool taken = lock->tryLock(0);
    error = lock->error();
    return taken ? std::move(lock) : nullptr;
}

} // namespace

WorkFolder::WorkFolder(const QDir& exports)
{
    QLockFile::LockError error = QLockFile::NoError;
    do {
        folder_ = std::make_unique<QTemporaryDir>(exports.filePath(QStringLiteral(".export-XXXXXX")));
        if (folder_->isValid())
            lock_ = TakeLock(folder_->path(), error);
        // A program that starts just now may have taken the folder, still without its lock, for a dead one's.
    } while (folder_->isValid() && error == QLockFile::LockFailedError);
}

void WorkFolder::ClearDead(const QDir& exports)
{
    const QStringList names =
        exports.entryList({QStringLiteral(".export-??????")}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (const QString& name : names) {
        const QString path = exports.filePath(name);
        const QDir folder(path);
        const bool isOurs = IsPlainFolder(path) && (folder.isEmpty() || folder.exists(LockName));
        QLockFile::LockError error = QLockFile::NoError;
        const auto lock = isOurs ? TakeLock(path, error) : nullptr;
        if (!lock)
            continue;
        QStringList files = folder.entryList(QDir::Files | QDir::Hidden | QDir::System);
        files.removeAll(LockName);
        RemoveOwnFolder(path, files);
        lock->unlock();
        QDir().rmdir(path);
    }
}

} // namespace tally
