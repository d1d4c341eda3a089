#pragma once

#include "store/Transaction.h"

namespace tally::store {

/// The version of the tables that this program works with. A file of the first version carries none, and
/// reads as 0.
constexpr int MainVersion = 2;       ///< Tallyboard.mdb; Upgrade brings older ones along
constexpr int OtherFilesVersion = 1; ///< the three other files

/// Create every table, key and index of one database file, and write its version. The file must be new.
void CreateMainTables(Transaction& transaction);   ///< Tallyboard.mdb
void CreateTempTables(Transaction& transaction);   ///< TempTallyboard.mdb
void CreateBackupTables(Transaction& transaction); ///< BackupRestoreDetails.mdb
void CreateHelpTables(Transaction& transaction);   ///< Tallyboardhelp.mdb

/// The indexes by which a delete in one table finds out whether rows of another need it, without reading all
/// marks of the school. CreateMainTables makes them too.
void CreateGuardIndexes(Transaction& transaction);

} // namespace tally::store
