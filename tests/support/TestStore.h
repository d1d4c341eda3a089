#pragma once

#include "store/Connection.h"

namespace tally::test {

/// A main database in memory, as delivered: all tables, the code-0 rows, the months.
store::Connection DeliveredMainStore();
/// A temporary database in memory, as delivered.
store::Connection DeliveredTempStore();

} // namespace tally::test
