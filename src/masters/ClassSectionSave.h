#pragma once

#include "masters/ClassSectionRepository.h"

#include <QStringList>

namespace tally {

/// What has to be written so that the database agrees with the grid, in the order in which it is written.
struct ClassSectionPlan
{
    std::vector<DivisionKey> deleteDivisions;
    std::vector<ClassRecord> insertClasses;
    std::vector<ClassRecord> updateClasses;
    std::vector<ClassDivision> insertDivisions;
    std::vector<ClassDivision> renameDivisions;
    QStringList blockedDivisions; ///< "class - division", in use and therefore kept
    std::vector<int> deleteClasses;
    QStringList blockedClasses; ///< their students keep them
};

/// Compares the grid with the database. Where a division had to be kept, that row of the grid and every row
/// behind it get the number of divisions that the database is left with.
ClassSectionPlan Reconcile(ClassSectionGrid& grid, const StoredClassSections& stored);

/// How a class of the grid is stored.
ClassRecord RecordOf(const ClassRow& row);

/// Stores the first classes of a school. Throws StoreError; then nothing is stored.
void SaveNewClasses(store::Connection& connection, const ClassSectionGrid& grid, int userCode);

/// True when somebody else added or changed a class or a division after `loaded` was read.
bool HoldsWorkOfOthers(const ClassSections& stored, const ClassSections& loaded);

/// Makes the database agree with the grid as far as nothing else refers to what would go, and puts what is
/// missing then back in a second transaction. `loaded` is what the grid was filled with. False, and nothing
/// is stored, when the database holds work of others since then: the grid does not show it, so the save would
/// wipe it out. Adds to `kept` what stayed because of its uses, in sentences that the user is to be told;
/// mostly none. Throws StoreError: when the second transaction fails, what the first one stored stays, and
/// `kept` and `loaded` tell of it; when the first one fails, nothing is stored, and `grid`, `loaded` and
/// `kept` are as they were. Nothing is read once something is stored.
[[nodiscard]] bool SaveEditedClasses(store::Connection& connection, ClassSectionGrid& grid,
                                     ClassSections& loaded, int userCode, QStringList& kept);

} // namespace tally
