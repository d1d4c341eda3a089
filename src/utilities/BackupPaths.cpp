#include "utilities/BackupPaths.h"

#include "core/modTallyboard.h"
#include "core/ProgramFolder.h"
#include "store/Backup.h"
#include "store/OwnFiles.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace tally {

namespace {

bool HasSuffix(const QString& path)
{
    return path.right(4) == QLatin1String(".mdb");
}

/// The path by whatever spelling of its folder, and through whatever link that leads to the folder.
QString Canonical(const QString& path)
{
    const QFileInfo file(QDir::cleanPath(path));
    const QString folder = QDir(file.path()).canonicalPath();
    return folder.isEmpty() ? file.filePath() : QDir(folder).filePath(file.fileName());
}

bool AreSame(const QString& path, const QString& other)
{
    return Canonical(path) == Canonical(other) || store::AreOneFile(path, other);
}

constexpr std::array OwnNames{"Tallyboard.mdb", "TempTallyboard.mdb", "BackupRestoreDetails.mdb",
                              "Tallyboardhelp.mdb", "MarkTemp.mdb"};

/// Whether the file is named like one of the program's own and another of those lies beside it: one more
/// installation, or this one by a way on which nobody can see that it is the same.
bool IsOfAnInstallation(const QString& path)
{
    const QFileInfo file(path);
    // A disk may take capitals and small letters for the same.
    const auto isNamed = [&file](const char* name) {
        return file.fileName().compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
    };
    return std::any_of(OwnNames.begin(), OwnNames.end(), isNamed) &&
           std::any_of(OwnNames.begin(), OwnNames.end(), [&](const char* name) {
               return !isNamed(name) && file.dir().exists(QLatin1String(name));
           });
}

} // namespace

bool IsProgramsOwnFile(const QString& path)
{
    return IsOfAnInstallation(path) || store::IsOwnCopy(path, MainFile()) ||
           std::any_of(OwnNames.begin(), OwnNames.end(), [&path](const char* name) {
               return AreSame(path, ProgramFile(QString::fromLatin1(name)));
           });
}

std::optional<PathRefusal> RefusePaths(CopyMode mode, const QString& source, const QString& destination)
{
    constexpr auto Source = PathRefusal::Field::Source;
    constexpr auto Destination = PathRefusal::Field::Destination;
    const auto noSuffix = QStringLiteral("Give File Name With .mdb As Its Suffix");
    if (source.trimmed().isEmpty())
        return PathRefusal{QStringLiteral("Enter Source Path"), Source};
    if (destination.trimmed().isEmpty())
        return PathRefusal{QStringLiteral("Enter Destination Path"), Destination};
    if (!HasSuffix(source))
        return PathRefusal{noSuffix, Source};
    if (mode == CopyMode::Backup && !HasSuffix(destination))
        return PathRefusal{noSuffix, Destination};
    if (AreSame(source, destination))
        return PathRefusal{QStringLiteral("Source And Destination Paths Should Not Be Same"),
                           mode == CopyMode::Backup ? Destination : Source};
    // Where a path begins in some folder, nobody knows in which.
    const QFileInfo file(source);
    if (!file.isAbsolute() || !file.isFile())
        return PathRefusal{QStringLiteral("Enter Source File Path Correctly"), Source};
    if (mode == CopyMode::Backup && IsProgramsOwnFile(destination))
        return PathRefusal{
            QStringLiteral("This File Belongs To The Program Itself. Give A Different File Name"),
            Destination};
    return {};
}

} // namespace tally
