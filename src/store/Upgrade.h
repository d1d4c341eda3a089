#pragma once

#include "store/Connection.h"

namespace tally::store {

/// How long an upgrade waits for other clients: another one's upgrade takes longer than any save.
constexpr std::chrono::milliseconds UpgradePatience{60000};

/// Brings the main file of an older program to MainVersion. The file is old or upgraded, never in between,
/// whatever stops the work; before anything is changed, a whole copy of it lies beside it, named like
/// "Tallyboard before upgrade 2.mdb". Of several clients that start at once one does the work, and the others
/// find it done. A file that is up to date costs one statement. Throws StoreError in plain words, and leaves
/// the file as it is: a file of a newer program, one that is not the main file, no room or right for the copy
/// or the upgrade, and another client that does not let go for `patience`.
void Upgrade(Connection& main, std::chrono::milliseconds patience = UpgradePatience);

} // namespace tally::store
