#pragma once

namespace tally {

/// The menu entry "Compress Database Size": asks, sees that nobody else works with the school, and rewrites
/// the main file without the gaps of what was deleted. Where somebody comes between all the same, nothing is
/// done. After any other failure the main database stays closed until the program is started again.
void CompactDatabase();

} // namespace tally
