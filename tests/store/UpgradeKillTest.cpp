#include "OldMainFile.h"
#include "store/Tables.h"
#include "store/Upgrade.h"

#include <csignal>
#include <cstdarg>
#include <fcntl.h>
#include <string>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

/// What the program asked of its files, in order, as far as it changes them: "write Tallyboard.mdb".
std::vector<std::string> done;
bool watching = false;
/// The one that the process does not live to see done, counted from 0. A write is done by half.
std::size_t last = SIZE_MAX;

void Die()
{
    std::raise(SIGKILL);
}

std::string NameOf(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

std::string NameOf(int descriptor)
{
    char path[4096] = "";
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), path, sizeof path - 1);
    return length < 0 ? std::string() : NameOf(std::string(path, static_cast<std::size_t>(length)));
}

/// True when the process must end with this one.
bool IsLast(const char* what, const std::string& name)
{
    if (!watching)
        return false;
    done.push_back(what + (' ' + name));
    return done.size() > last;
}

} // namespace

// The engine and Qt call these instead of the system's own, because a program comes before its libraries.
extern "C" {

ssize_t write(int file, const void* bytes, std::size_t size)
{
    const bool dies = IsLast("write", NameOf(file));
    const ssize_t written = syscall(SYS_write, file, bytes, dies ? size / 2 : size);
    if (dies)
        Die();
    return written;
}

ssize_t pwrite64(int file, const void* bytes, std::size_t size, off64_t place)
{
    const bool dies = IsLast("write", NameOf(file));
    const ssize_t written = syscall(SYS_pwrite64, file, bytes, dies ? size / 2 : size, place);
    if (dies)
        Die();
    return written;
}

ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t place)
{
    return pwrite64(file, bytes, size, place);
}

int fsync(int file)
{
    if (IsLast("sync", NameOf(file)))
        Die();
    return static_cast<int>(syscall(SYS_fsync, file));
}

int fdatasync(int file)
{
    if (IsLast("sync", NameOf(file)))
        Die();
    return static_cast<int>(syscall(SYS_fdatasync, file));
}

int ftruncate64(int file, off64_t size)
{
    if (IsLast("truncate", NameOf(file)))
        Die();
    return static_cast<int>(syscall(SYS_ftruncate, file, size));
}

int unlink(const char* path) noexcept
{
    if (IsLast("remove", NameOf(path)))
        Die();
    return static_cast<int>(syscall(SYS_unlink, path));
}

int remove(const char* path) noexcept
{
    return unlink(path);
}

int link(const char* from, const char* to) noexcept
{
    if (IsLast("name", NameOf(to)))
        Die();
    return static_cast<int>(syscall(SYS_link, from, to));
}

} // extern "C"

namespace tally::test {

using store::Connection;

namespace {

const QString CopyName = QStringLiteral("Tallyboard before upgrade 2.mdb");

class UpgradeKill : public testing::Test
{
protected:
    /// What a process does that upgrades the file and dies with the operation `number`, which is half done.
    /// True when it came to its end before.
    bool UpgradeAndDieAt(std::size_t number)
    {
        const pid_t client = fork();
        if (client == 0) {
            last = number;
            watching = true;
            try {
                Connection main(files.Path(), Password);
                store::Upgrade(main);
            } catch (const store::StoreError&) {
                _exit(1);
            }
            _exit(0);
        }
        int state = 0;
        EXPECT_EQ(waitpid(client, &state, 0), client);
        EXPECT_TRUE(WIFSIGNALED(state) || WEXITSTATUS(state) == 0);
        return WIFEXITED(state);
    }

    static bool IsUpgraded(Connection& main, const QStringList& oldDefinitions)
    {
        const bool upgraded = main.SchemaVersion() == store::MainVersion;
        EXPECT_EQ(Definitions(main) == oldDefinitions, !upgraded);
        EXPECT_TRUE(IsWhole(main));
        EXPECT_EQ(main.Number(QStringLiteral("SELECT count(*) FROM MarkMaster WHERE Mark = 50")), 1);
        return upgraded;
    }

    StoreFiles files;
    QByteArray old = MakeOldMainFile(files);
};

/// Where the first operation of that name stands; -1 for none.
qsizetype First(const QStringList& operations, const QString& name)
{
    return operations.indexOf(name);
}

TEST_F(UpgradeKill, AProgramKilledAtAnyOperationLeavesTheOldFileOrTheUpgradedOneAndOnlyWholeCopies)
{
    QStringList oldDefinitions;
    {
        Connection main(files.Path(), Password);
        oldDefinitions = Definitions(main);
    }
    std::size_t killed = 0;
    bool wasUpgraded = false;
    for (;; ++killed) {
        for (const QString& name : FilesIn(files))
            ASSERT_TRUE(QFile::remove(files.Path(name)));
        files.Write(old);
        if (UpgradeAndDieAt(killed))
            break;
        SCOPED_TRACE(killed);
        const QByteArray copy = files.Bytes(CopyName);
        EXPECT_TRUE(copy.isEmpty() || copy == old);
        EXPECT_EQ(copy.isEmpty(), !FilesIn(files).contains(CopyName));
        {
            Connection main(files.Path(), Password);
            const bool upgraded = IsUpgraded(main, oldDefinitions);
            EXPECT_TRUE(upgraded || !wasUpgraded) << "the later kill left the older state";
            wasUpgraded = upgraded;
            EXPECT_FALSE(upgraded && copy.isEmpty()) << "no copy was taken";
        }
        Connection main(files.Path(), Password);
        store::Upgrade(main);
        EXPECT_TRUE(IsUpgraded(main, oldDefinitions));
        EXPECT_EQ(files.Bytes(CopyName), old);
        EXPECT_FALSE(FilesIn(files).contains(QStringLiteral("Tallyboard.mdb.copy")));
        if (HasFailure())
            break;
    }
    EXPECT_GT(killed, 50U) << "the operations were not seen";
}

TEST_F(UpgradeKill, TheCopyLiesOnTheDiskUnderItsNameBeforeTheFileIsTouched)
{
    Connection main(files.Path(), Password);
    done.clear();
    watching = true;
    store::Upgrade(main);
    watching = false;
    QStringList operations;
    for (const std::string& operation : done)
        operations << QString::fromStdString(operation);
    const auto written = operations.lastIndexOf(QStringLiteral("write Tallyboard.mdb.copy"));
    const auto synced = First(operations, QStringLiteral("sync Tallyboard.mdb.copy"));
    const auto named = First(operations, QStringLiteral("name ") + CopyName);
    const auto folderSynced = First(operations, QStringLiteral("sync ") + QDir(files.Folder()).dirName());
    const auto journal = First(operations, QStringLiteral("write Tallyboard.mdb-journal"));
    const auto changed = First(operations, QStringLiteral("write Tallyboard.mdb"));
    EXPECT_GE(written, 0);
    EXPECT_GT(synced, written);
    EXPECT_GT(named, synced);
    EXPECT_GT(folderSynced, named);
    EXPECT_GT(changed, folderSynced);
    EXPECT_GE(journal, 0);
    EXPECT_GT(changed, journal);
}

} // namespace

} // namespace tally::test
