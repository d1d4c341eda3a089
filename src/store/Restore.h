#pragma once

#include "store/Connection.h"

#include <QDateTime>
#include <QTemporaryDir>

#include <memory>

namespace tally::store {

/// Whether a file that opens with the password holds the table by which this program's main files are known.
bool IsMainFile(Connection& file);

/// A file that is to take the place of the school's: proved first, then poured into it.
class Restore
{
public:
    /// Opens the file and proves that it is a whole main file of this program or an older one: password,
    /// every page, every index, the marker, all tables and columns. An older one is upgraded in a copy; the
    /// file itself stays as it is. Throws StoreError in plain words, and Cancelled.
    Restore(const QString& source, const QString& password, const Progress& progress = {});
    ~Restore();
    Restore(const Restore&) = delete;
    Restore& operator=(const Restore&) = delete;

    /// Lets the file under `main` hold what the source holds, in one step that nothing can stop half way.
    /// Clients that have it open go on in the restored school. What it held lies beside it afterwards, under
    /// the path that is given, until the next restore; no save of any client is missing from the one or the
    /// other. Throws StoreError and leaves all as it was.
    QString PourInto(Connection& main, const QDateTime& now, const Progress& progress = {});

private:
    void UpgradeInCopy(const QString& password, const Progress& progress);

    std::unique_ptr<Connection> source_;
    qint64 provedAt_ = 0;                       ///< the source's ChangesByOthers
    std::unique_ptr<QTemporaryDir> workFolder_; ///< only for an older file
};

/// What earlier restores into the file `main` have left beside it.
QStringList KeptBeforeRestore(const QString& main);

} // namespace tally::store
