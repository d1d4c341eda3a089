#include "core/OwnFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace tally {

namespace {

bool IsLink(const QFileInfo& file)
{
    return file.isSymLink() || file.isJunction();
}

} // namespace

bool IsPlainFile(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() && !IsLink(file);
}

bool IsPlainFolder(const QString& path)
{
    const QFileInfo folder(path);
    return folder.isDir() && !IsLink(folder);
}

bool IsFreeName(const QString& path)
{
    const QFileInfo file(path);
    return !file.exists() && !IsLink(file);
}

void RemoveOwnFolder(const QString& folder, const QStringList& files)
{
    if (!IsPlainFolder(folder))
        return;
    for (const QString& name : files) {
        const QString file = QDir(folder).filePath(name);
        if (IsPlainFile(file))
            QFile::remove(file);
    }
    QDir().rmdir(folder);
}

bool BringToDisk(QFile& file)
{
    if (!file.flush())
        return false;
#ifdef Q_OS_WIN
    return FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()))) != 0;
#else
    return fsync(file.handle()) == 0;
#endif
}

bool MoveToFreeName(const QString& file, const QString& path)
{
    // QFile::rename copies over a file that takes the name at the last moment, and through a link to nowhere.
    const std::filesystem::path from = QFileInfo(file).filesystemFilePath();
    const std::filesystem::path to = QFileInfo(path).filesystemFilePath();
    std::error_code error;
    std::filesystem::create_hard_link(from, to, error);
    if (!error) {
        QFile::remove(file);
        return true;
    }
    // Memory sticks and some shared folders give a file one name only: there the name is taken first.
    QFile place(path);
    if (error == std::errc::file_exists || !place.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return false;
    place.close();
    std::filesystem::rename(from, to, error);
    if (error)
        place.remove();
    return !error;
}

} // namespace tally
