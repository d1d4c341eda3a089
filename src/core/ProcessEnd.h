#pragma once

#include <functional>

namespace tally {

/// Ends the process once the event in hand is over. No window is asked, and nothing is cleaned up beyond
/// closing the database files.
void EndProcess();
/// Lets `end` take the place of ending. An empty function brings the real end back. For tests.
void EndProcessWith(std::function<void()> end);

} // namespace tally
