#pragma once

#include <chrono>

namespace tally {

/// How long a client that is started waits for another one that restores, compacts or upgrades the school's
/// file just now.
constexpr std::chrono::milliseconds StartPatience{60000};

} // namespace tally
