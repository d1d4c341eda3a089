#pragma once

#include <cstdint>
#include <random>

namespace tally {

/// Random numbers that are the same on every machine: the engine's sequence is fixed by the language, and the
/// distributions, which are not, are our own.
class SampleRandom
{
public:
    explicit SampleRandom(std::uint64_t seed) : engine_(seed) {}

    /// 0 to limit - 1. The slight favour of low numbers does not matter for a school that is made up.
    int Below(int limit) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(limit)); }
    /// low to high, both included.
    int Between(int low, int high) { return low + Below(high - low + 1); }
    bool OneIn(int chances) { return Below(chances) == 0; }
    /// Around 0, mostly within -spread and spread, rarely up to twice as far: a sum of even throws is close
    /// enough to a bell.
    int Around(int spread)
    {
        int sum = 0;
        for (int i = 0; i < 4; ++i)
            sum += Between(-spread, spread);
        return sum / 2;
    }

private:
    std::mt19937_64 engine_;
};

} // namespace tally
