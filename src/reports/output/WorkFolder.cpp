#include "reports/output/WorkFolder.h"

#include "store/OwnFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>

namespace tally {

namespace {

const QString LockName = QStringLiteral("in-use.lock");

/// Whether an export makes a file of this name, for itself or as a working file of the library or of the
/// lock.
bool IsOwnName(const QString& name)
{
    return name == QLatin1String(WorkFolder::Draft) || name == QLatin1String(WorkFolder::Finished) ||
           name.startsWith(QLatin1String("tmp.")) || name.startsWith(LockName);
}

QStringList Names(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

/// Taken, or null, with the reason in `error`.
std::unique_ptr<QLockFile> TakeLock(const QString& folder, QLockFile::LockError& error)
{
    constexpr int LongestTaking = 60 * 60 * 1000; // in milliseconds
    const QString path = QDir(folder).filePath(LockName);
    auto lock = std::make_unique<QLockFile>(path);
    // Age says nothing, only whether the program lives does, and that only its own machine knows. A lock that
    // does not say whose it is belongs to a program that is just taking it, or died then.
    const bool isNobodys = store::IsPlainFile(path) && QFileInfo(path).size() == 0;
    lock->setStaleLockTime(isNobodys ? LongestTaking : 0);
    const bool taken = lock->tryLock(0);
    error = lock->error();
    return taken ? std::move(lock) : nullptr;
}

/// The lock goes last: it tells the next program that starts what a program left that was ended meanwhile.
void Clear(const QString& folder, QLockFile& lock)
{
    QStringList files = Names(folder);
    files.removeIf([](const QString& name) { return name == LockName || !IsOwnName(name); });
    store::RemoveOwnFolder(folder, files);
    lock.unlock();
    QDir().rmdir(folder);
}

} // namespace

WorkFolder::WorkFolder(const QDir& exports)
{
    // A program that starts just now may take the folder, still without its lock, for a dead one's. Each copy
    // of the program starts once, so a few tries are plenty.
    constexpr int MostTries = 100;
    for (int tries = 0; tries < MostTries && !lock_; ++tries) {
        QTemporaryDir folder(exports.filePath(QStringLiteral(".export-XXXXXX")));
        if (!folder.isValid())
            return;
        folder.setAutoRemove(false);
        path_ = folder.path();
        QLockFile::LockError error = QLockFile::NoError;
        lock_ = TakeLock(path_, error);
        // Where the folder is still there, and empty, nobody took it: nothing can be written.
        if (!lock_ && QDir().rmdir(path_) && error != QLockFile::LockFailedError)
            return;
    }
}

WorkFolder::~WorkFolder()
{
    if (lock_)
        Clear(path_, *lock_);
}

void WorkFolder::ClearDead(const QDir& exports)
{
    const QStringList folders =
        exports.entryList({QStringLiteral(".export-??????")}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (const QString& folder : folders) {
        const QString path = exports.filePath(folder);
        if (!store::IsPlainFolder(path))
            continue;
        const QStringList names = Names(path);
        if (!std::all_of(names.begin(), names.end(), IsOwnName))
            continue;
        QLockFile::LockError error = QLockFile::NoError;
        if (const auto lock = TakeLock(path, error))
            Clear(path, *lock);
    }
}

} // namespace tally
