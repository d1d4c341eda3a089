#pragma once

#include "store/Transaction.h"

#include <QString>
#include <QVector>

#include <functional>

namespace tally {

struct DeliveredFile
{
    QString name; ///< the file's name within its folder
    bool made;    ///< false when a file of that name stood there already and was kept as it is
};

/// Makes a new database and lets `fill` create its tables and rows. The file appears under its name only when
/// it is whole: a run that breaks off leaves nothing, or a file ending in ".new" that the next run clears
/// away. Gives false, and touches nothing, when a file of that name exists. Throws StoreError; one is that
/// another run is making the same file.
bool MakeDatabase(const QString& path, const QString& password,
                  const std::function<void(store::Transaction&)>& fill);

/// Makes those of the four delivered databases that the folder lacks, with the rows of an empty system.
/// `fillMain`, if given, adds to the rows of a newly made Tallyboard.mdb. Existing files are never touched.
/// Throws StoreError; a missing folder is one.
QVector<DeliveredFile> MakeDeliveredDatabases(const QString& folder, const QString& password,
                                              const std::function<void(store::Transaction&)>& fillMain = {});

} // namespace tally
