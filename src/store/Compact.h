#pragma once

#include "store/Connection.h"

namespace tally::store {

/// Rewrites the main file in place without the gaps of what was deleted. Beside it lie afterwards
/// "Tallyboard.Bak", the file as it was, and "MarkTemp.mdb", the file as it is; those of an earlier time are
/// replaced when the new ones are whole. Other clients' saves wait meanwhile; one that comes all the same
/// ends the work. The main file holds the same at every moment, whatever stops the work. Throws StoreError;
/// one that IsLocked comes before the main file is written to.
void Compact(Connection& main, const QString& password, const Progress& progress = {});

} // namespace tally::store
