#pragma once

#include <QLockFile>

namespace tally {

/// Tells whether another copy of this program runs on this machine, and keeps the place for as long as it
/// lives. A copy that died does not hold the place. Copies on other machines, or of a program elsewhere on
/// this one, do not count.
class SingleCopy
{
public:
    /// For the program at `executable`; its canonical path counts, so a link to it is the same program.
    explicit SingleCopy(const QString& executable);

    bool AnotherIsRunning() const { return !first_; }

private:
    QLockFile lock_;
    bool first_;
};

} // namespace tally
