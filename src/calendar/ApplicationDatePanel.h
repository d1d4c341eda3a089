#pragma once

namespace tally {

/// Writes the session's working date into the status bar after it was moved, without a blank behind the
/// colon.
void ShowMovedApplicationDate();

} // namespace tally
