#include "support/FileCalls.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <exception>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <iostream>
#include <optional>
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

/// The one that fails instead.
std::size_t failing = SIZE_MAX;
tally::test::Fault fault = tally::test::Fault::Broken;

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

/// What the caller gets instead of the operation that was asked for last, if that is to fail.
std::optional<int> Failure()
{
    if (!watching || done.size() != failing + 1)
        return {};
    errno = fault == tally::test::Fault::Full ? ENOSPC : EIO;
    return -1;
}

/// Whether the write that was asked for last is to be done by half.
bool IsShort()
{
    return watching && done.size() == failing + 1 && fault == tally::test::Fault::Short;
}

/// True when the process must end with this one.
bool IsLast(const char* what, const std::string& name)
{
    if (!watching)
        return false;
    done.push_back(what + (' ' + name));
    return done.size() > last;
}

/// A file that is opened only to be read is not changed.
bool MayChange(int flags)
{
    return (flags & O_ACCMODE) != O_RDONLY || (flags & O_CREAT) != 0;
}

} // namespace

// The engine and Qt call these instead of the system's own, because a program comes before its libraries.
extern "C" {

ssize_t write(int file, const void* bytes, std::size_t size)
{
    const bool dies = IsLast("write", NameOf(file));
    const bool half = dies || IsShort();
    if (const auto failure = Failure(); failure && !half)
        return *failure;
    const ssize_t written = syscall(SYS_write, file, bytes, half ? size / 2 : size);
    if (dies)
        Die();
    return written;
}

ssize_t pwrite64(int file, const void* bytes, std::size_t size, off64_t place)
{
    const bool dies = IsLast("write", NameOf(file));
    const bool half = dies || IsShort();
    if (const auto failure = Failure(); failure && !half)
        return *failure;
    const ssize_t written = syscall(SYS_pwrite64, file, bytes, half ? size / 2 : size, place);
    if (dies)
        Die();
    return written;
}

int open64(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    if (MayChange(flags)) {
        if (IsLast("open", NameOf(path)))
            Die();
        if (const auto failure = Failure())
            return *failure;
    }
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t place)
{
    return pwrite64(file, bytes, size, place);
}

// What a killed program has written stays with the system, and nobody pulls the plug: a test that waited for
// the disk would do little else.
int fsync(int file)
{
    if (IsLast("sync", NameOf(file)))
        Die();
    return Failure().value_or(0);
}

int fdatasync(int file)
{
    return fsync(file);
}

int ftruncate64(int file, off64_t size)
{
    if (IsLast("truncate", NameOf(file)))
        Die();
    if (const auto failure = Failure())
        return *failure;
    return static_cast<int>(syscall(SYS_ftruncate, file, size));
}

int unlink(const char* path) noexcept
{
    if (IsLast("remove", NameOf(path)))
        Die();
    if (const auto failure = Failure())
        return *failure;
    return static_cast<int>(syscall(SYS_unlink, path));
}

int remove(const char* path) noexcept
{
    return unlink(path);
}

int rename(const char* from, const char* to) noexcept
{
    if (IsLast("name", NameOf(to)))
        Die();
    if (const auto failure = Failure())
        return *failure;
    return static_cast<int>(syscall(SYS_renameat, AT_FDCWD, from, AT_FDCWD, to));
}

int link(const char* from, const char* to) noexcept
{
    if (IsLast("name", NameOf(to)))
        Die();
    if (const auto failure = Failure())
        return *failure;
    return static_cast<int>(syscall(SYS_link, from, to));
}

} // extern "C"

namespace tally::test {

bool RunAndDieAt(std::size_t number, const std::function<void()>& work)
{
    const pid_t client = fork();
    if (client == 0) {
        last = number;
        watching = true;
        try {
            work();
        } catch (const std::exception& error) {
            std::cerr << error.what() << '\n';
            _exit(1);
        }
        _exit(0);
    }
    int state = 0;
    EXPECT_EQ(waitpid(client, &state, 0), client);
    EXPECT_TRUE(WIFSIGNALED(state) || WEXITSTATUS(state) == 0) << "the work failed by itself";
    return WIFEXITED(state);
}

bool RunWithFault(std::size_t number, Fault how, const std::function<void()>& work)
{
    struct Watch
    {
        ~Watch()
        {
            watching = false;
            failing = SIZE_MAX;
        }
    } const watch;
    done.clear();
    failing = number;
    fault = how;
    watching = true;
    work();
    return done.size() <= number;
}

QStringList OperationsOf(const std::function<void()>& work)
{
    done.clear();
    watching = true;
    work();
    watching = false;
    QStringList operations;
    for (const std::string& operation : done)
        operations << QString::fromStdString(operation);
    return operations;
}

} // namespace tally::test
