#pragma once

#include <chrono>
#include <cstdio>

namespace tally::bench {

/// Tells the process that started this one that something has been reached, by the clock that both share.
inline void PrintMilestone(const char* name)
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    std::printf("%s %lld\n", name,
                static_cast<long long>(std::chrono::duration_cast<std::chrono::microseconds>(now).count()));
    std::fflush(stdout);
}

} // namespace tally::bench
