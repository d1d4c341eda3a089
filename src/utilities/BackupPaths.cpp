#include "utilities/BackupPaths.h"

#include "core/ProgramFolder.h"
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

bool AreSame(const QString& path, const QString& other)
{
    return QDir::cleanPath(path) == QDir::cleanPath(other) || store::AreOneFile(path, other);
}

} // namespace

bool IsProgramsOwnFile(const QString& path)
{
    constexpr std::array Names{"Tallyboard.mdb", "TempTallyboard.mdb", "BackupRestoreDetails.mdb",
                               "Tallyboardhelp.mdb", "MarkTemp.mdb"};
    return std::any_of(Names.begin(), Names.end(), [&path](const char* name) {
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
