#pragma once

#include <QHash>
#include <QString>

#include <string>

namespace tally::test {

/// What the disk was asked to take for good, and what it refuses, in programs that are linked with it.
struct Disk
{
    QHash<QString, qint64> synced;             ///< the size at that time, by the name of the file
    QHash<QString, std::string> openMeanwhile; ///< what the program held open then
    QString fails;                             ///< how the name of a file begins that it cannot take
};

extern Disk disk; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

} // namespace tally::test
