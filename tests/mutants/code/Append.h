// How a test program that is watched writes down what it does, without being in the way of its tests.
#pragma once

#include <cstddef>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace mutants {

/// Lets files grow while it lives, where a test lets them grow no more than on a full disk.
class Room
{
public:
    Room()
    {
        syscall(SYS_prlimit64, 0, RLIMIT_FSIZE, nullptr, &before_);
        const rlimit most{before_.rlim_max, before_.rlim_max};
        syscall(SYS_prlimit64, 0, RLIMIT_FSIZE, &most, nullptr);
    }
    Room(const Room&) = delete;
    Room& operator=(const Room&) = delete;
    ~Room() { syscall(SYS_prlimit64, 0, RLIMIT_FSIZE, &before_, nullptr); }

private:
    rlimit before_{};
};

/// At the end of the file, which is made where there is none. In one piece, since programs that a test starts
/// write to the same file, and at once, since a test may kill its process. By the bare system calls, since
/// some tests take the place of those of the library, and count them.
inline void Append(const char* path, const char* text, std::size_t size)
{
    const Room room;
    const long file = syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    if (file < 0)
        return;
    syscall(SYS_write, file, text, size);
    syscall(SYS_close, file);
}

} // namespace mutants
