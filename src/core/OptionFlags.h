#pragma once

#include "core/SessionRepository.h"

namespace tally {

/// Fills the session's flags from the stored options. The two prompts count as wanted unless "N" is stored,
/// the two mark settings only where "Y" is.
void TakeOptionFlags(const StoredOptions& options);

} // namespace tally
