#include "support/EngineWaits.h"

#include <atomic>
#include <ctime>
#include <unistd.h>

namespace {

constexpr long MicrosecondsOfASecond = 1000000;
constexpr long NanosecondsOfAMicrosecond = 1000;

std::atomic<std::size_t> waits = 0;
std::atomic<bool> brief = false;

} // namespace

// The engine calls this instead of the system's own, because a program comes before its libraries.
extern "C" int usleep(useconds_t microseconds)
{
    ++waits;
    waits.notify_all();
    const long time = brief ? microseconds / 100 : microseconds;
    const timespec length{time / MicrosecondsOfASecond,
                          time % MicrosecondsOfASecond * NanosecondsOfAMicrosecond};
    return nanosleep(&length, nullptr);
}

namespace tally::test {

BriefWaits::BriefWaits()
{
    brief = true;
}

BriefWaits::~BriefWaits()
{
    brief = false;
}

std::size_t EngineWaits()
{
    return waits;
}

void AwaitEngineWait(std::size_t before)
{
    waits.wait(before);
}

} // namespace tally::test
