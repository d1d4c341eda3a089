#pragma once

#include "utilities/BackupLogRepository.h"

#include <QString>

#include <optional>

namespace tally {

/// Why two paths cannot be copied from and to, and which of them is to be typed anew.
struct PathRefusal
{
    enum class Field
    {
        Source,
        Destination,
    };

    QString text;
    Field field;

    bool operator==(const PathRefusal&) const = default;
};

/// What speaks against copying from `source` to `destination`, in the order in which the office is told;
/// nothing where the copy may be tried.
std::optional<PathRefusal> RefusePaths(CopyMode mode, const QString& source, const QString& destination);

/// Whether the path is one of the files that the program keeps in its folder for itself, or may be one of
/// another installation's.
bool IsProgramsOwnFile(const QString& path);

} // namespace tally
