#pragma once

#include "store/Transaction.h"

namespace tally::store {

/// Create every table, key and index of one database file. The file must be new.
void CreateMainTables(Transaction& transaction);   ///< Tallyboard.mdb
void CreateTempTables(Transaction& transaction);   ///< TempTallyboard.mdb
void CreateBackupTables(Transaction& transaction); ///< BackupRestoreDetails.mdb
void CreateHelpTables(Transaction& transaction);   ///< Tallyboardhelp.mdb

} // namespace tally::store
