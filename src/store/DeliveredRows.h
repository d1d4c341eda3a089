#pragma once

#include "store/Transaction.h"

namespace tally::store {

/// The rows that must stand before the first use: the code-0 rows that mean "not chosen", the twelve months
/// and the marker row of the main file.
void InsertDeliveredMainRows(Transaction& transaction);
/// One help text for each screen that has a help number.
void InsertDeliveredHelpRows(Transaction& transaction);

} // namespace tally::store
