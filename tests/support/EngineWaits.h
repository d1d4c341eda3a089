#pragma once

#include <cstddef>

namespace tally::test {

/// A program that links these takes the place of the system's call by which the engine waits for another
/// client's lock.

/// How often any connection of the program has waited so far.
std::size_t EngineWaits();
/// While it lives, each wait takes a hundredth of its time: a connection loses its patience soon.
class BriefWaits
{
public:
    BriefWaits();
    BriefWaits(const BriefWaits&) = delete;
    BriefWaits& operator=(const BriefWaits&) = delete;
    ~BriefWaits();
};

/// Returns as soon as a connection waits again, counted from `before`, which EngineWaits() gave.
void AwaitEngineWait(std::size_t before);

} // namespace tally::test
