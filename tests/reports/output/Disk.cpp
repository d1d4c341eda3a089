#include "reports/output/Disk.h"

#include "support/OpenFiles.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <sys/syscall.h>
#include <unistd.h>

namespace tally::test {

Disk disk; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

} // namespace tally::test

/// Stands before the function of the system in this program.
extern "C" int fsync(int descriptor)
{
    using tally::test::disk;
    const QFileInfo file(QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(descriptor)));
    if (!disk.fails.isEmpty() && file.fileName().startsWith(disk.fails)) {
        errno = EIO;
        return -1;
    }
    disk.synced[file.fileName()] = file.size();
    disk.openMeanwhile[file.fileName()] = tally::test::OpenFiles();
    return static_cast<int>(syscall(SYS_fsync, descriptor));
}
