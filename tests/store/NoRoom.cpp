#include "NoRoom.h"

#include <dlfcn.h>
#include <sys/statvfs.h>

namespace {

bool isFull = false;

} // namespace

// Qt calls this instead of the system's own, because a program comes before its libraries.
extern "C" int statvfs64(const char* path, struct statvfs64* disk) noexcept
{
    using Call = int (*)(const char*, struct statvfs64*);
    static const auto system = reinterpret_cast<Call>(dlsym(RTLD_NEXT, "statvfs64"));
    const int result = system(path, disk);
    if (isFull)
        disk->f_bavail = 0;
    return result;
}

namespace tally::test {

NoRoom::NoRoom()
{
    isFull = true;
}

NoRoom::~NoRoom()
{
    isFull = false;
}

} // namespace tally::test
