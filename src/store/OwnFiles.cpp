#include "store/OwnFiles.h"

#include "store/Dialect.h"
#include "store/StoreError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <cerrno>

namespace tally::store {

namespace {

using FilePath = std::filesystem::path;

/// More files of one name than this are no accident, and the folder is left to people.
constexpr int MostNumbers = 99;

bool IsLink(const QFileInfo& file)
{
    return file.isSymLink() || file.isJunction();
}

std::error_code MoveByLink(const FilePath& from, const FilePath& to)
{
    std::error_code error;
    std::filesystem::create_hard_link(from, to, error);
    std::error_code ignored;
    if (!error)
        std::filesystem::remove(from, ignored);
    return error;
}

/// For memory sticks and some shared folders, which give a file one name only.
std::error_code MoveWithoutReplacing(const FilePath& from, const FilePath& to)
{
#if defined(Q_OS_WIN)
    const bool moved = MoveFileW(from.c_str(), to.c_str()) != 0;
    return moved ? std::error_code() : std::error_code(GetLastError(), std::system_category());
#elif defined(Q_OS_LINUX)
    const bool moved = renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0;
    return moved ? std::error_code() : std::error_code(errno, std::generic_category());
#else
    return std::make_error_code(std::errc::function_not_supported);
#endif
}

/// Takes the name first, for folders that can do nothing better: a program that is killed meanwhile leaves an
/// empty file there.
std::error_code MoveOverPlace(const FilePath& from, const FilePath& to)
{
    QFile place(to);
    if (!place.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return std::make_error_code(IsFreeName(place.fileName()) ? std::errc::io_error
                                                                 : std::errc::file_exists);
    place.close();
    std::error_code error;
    std::filesystem::rename(from, to, error);
    if (error)
        place.remove();
    return error;
}

/// As far as the file system does so for a folder; the move stands either way.
void BringNamesToDisk([[maybe_unused]] const FilePath& folder)
{
#ifdef Q_OS_UNIX
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        fsync(descriptor);
        close(descriptor);
    }
#endif
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

bool BringToDisk(QFileDevice& file)
{
    if (!file.flush())
        return false;
#ifdef Q_OS_WIN
    return FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()))) != 0;
#else
    return fsync(file.handle()) == 0;
#endif
}

bool ReplaceFile(const QString& path, const QByteArray& content, QIODevice::OpenMode mode)
{
    QSaveFile file(path);
    // The commit takes no notice of a disk that only finds itself full when it has to keep the file.
    return file.open(QIODevice::WriteOnly | mode) && file.write(content) == content.size() &&
           BringToDisk(file) && file.commit();
}

const std::array<MoveWay, 3>& MoveWays()
{
    static constexpr std::array<MoveWay, 3> ways{MoveByLink, MoveWithoutReplacing, MoveOverPlace};
    return ways;
}

bool MoveToFreeName(const QString& file, const QString& path)
{
    // QFile::rename copies over a file that takes the name at the last moment, and through a link to nowhere.
    const FilePath from = QFileInfo(file).filesystemFilePath();
    const FilePath to = QFileInfo(path).filesystemFilePath();
    for (const MoveWay move : MoveWays()) {
        const std::error_code error = move(from, to);
        if (!error)
            BringNamesToDisk(to.parent_path());
        if (!error || error == std::errc::file_exists)
            return !error;
    }
    return false;
}

QString MoveToNumberedName(const QString& file, const QString& folder, const QString& base,
                           const QString& suffix)
{
    for (int number = 1; number <= MostNumbers; ++number) {
        const QString again = number == 1 ? QString() : QStringLiteral(" (%1)").arg(number);
        QString path = QDir(folder).filePath(base + again + QLatin1Char('.') + suffix);
        if (MoveToFreeName(file, path))
            return path;
        if (IsFreeName(path))
            break;
    }
    return {};
}

bool MoveInPlace(const QString& file, const QString& path)
{
    const FilePath to = QFileInfo(path).filesystemFilePath();
    std::error_code error;
    std::filesystem::rename(QFileInfo(file).filesystemFilePath(), to, error);
    if (!error)
        BringNamesToDisk(to.parent_path());
    return !error;
}

bool AreOneFile(const QString& path, const QString& other)
{
    std::error_code error;
    return std::filesystem::equivalent(QFileInfo(path).filesystemFilePath(),
                                       QFileInfo(other).filesystemFilePath(), error);
}

bool AreOnOneDisk(const QString& path, const QString& other)
{
#ifdef Q_OS_UNIX
    struct stat one = {};
    struct stat two = {};
    return stat(QFile::encodeName(path).constData(), &one) != 0 ||
           stat(QFile::encodeName(other).constData(), &two) != 0 || one.st_dev == two.st_dev;
#else
    return QStorageInfo(path).device() == QStorageInfo(other).device();
#endif
}

bool LeavesRoom(qint64 available, qint64 size)
{
    constexpr qint64 FilesLikeIt = 2;
    return available >= (1 + FilesLikeIt) * size;
}

bool HasRoomFor(qint64 size, const QString& folder)
{
    const QStorageInfo disk(folder);
    return !disk.isValid() || LeavesRoom(disk.bytesAvailable(), size);
}

void WriteAll(QIODevice& file, const QByteArray& bytes)
{
    // Where the disk is full in the middle, the system takes what fits and gives its reason only to who goes
    // on.
    for (qint64 done = 0; done < bytes.size();) {
        const qint64 taken = file.write(bytes.constData() + done, bytes.size() - done);
        if (taken <= 0)
            throw CopyFailure();
        done += taken;
    }
}

StoreError CopyFailure()
{
#ifdef Q_OS_WIN
    const auto error = static_cast<int>(GetLastError());
    const bool full = error == ERROR_DISK_FULL || error == ERROR_HANDLE_DISK_FULL;
#else
    const int error = errno;
    const bool full = error == ENOSPC || error == EDQUOT;
#endif
    const QString reason = qt_error_string(error);
    if (full)
        return {dialect::FullDisk(), reason};
    return StoreError(QStringLiteral("The Copy Could Not Be Written (%1)").arg(reason));
}

void TakeRightsOf(QFile& copy, const QString& original)
{
#ifdef Q_OS_UNIX
    struct stat wanted = {};
    struct stat given = {};
    const int descriptor = copy.handle();
    if (stat(QFile::encodeName(original).constData(), &wanted) != 0 || fstat(descriptor, &given) != 0)
        return;
    mode_t mode = wanted.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    // The people of another group get no more than everybody else.
    if (given.st_gid != wanted.st_gid && fchown(descriptor, static_cast<uid_t>(-1), wanted.st_gid) != 0)
        mode = (mode & ~S_IRWXG) | ((mode & S_IRWXO) << 3U);
    fchmod(descriptor, mode);
#else
    copy.setPermissions(QFile::permissions(original));
#endif
}

} // namespace tally::store
