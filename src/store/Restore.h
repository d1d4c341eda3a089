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
    /// Opens the file and proves that it is a whole main file of this program or an older one, all of one
    /// moment: password, the marker, every page, every index, all tables and columns. An older one is
    /// upgraded in a copy; the file itself stays as it is. Throws StoreError in plain words, and Cancelled.
    Restore(const QString& source, const QString& password, const Progress& progress = {});
    ~Restore() = default;
    Restore(const Restore&) = delete;
    Restore& operator=(const Restore&) = delete;

    /// Lets the file under `main` hold what the source holds, in one step that nothing can stop half way.
    /// Clients that have it open go on in the restored school. What it held lies beside it afterwards, under
    /// the path that is given, until the next restore; no save of any client is missing from the one or the
    /// other. The source itself is never taken away, even where an earlier restore has kept it. Which screens
    /// the clients have open stays what it was. Throws StoreError and leaves all as it was.
    QString PourInto(Connection& main, const QDateTime& now, const Progress& progress = {});

private:
    /// Within a transaction that reads the source.
    void Prove(const Progress& progress);
    /// The same. Gives the path of the copy.
    QString CopyForUpgrade(const Progress& progress);
    void UpgradeCopy(const QString& copy);

    QString path_; ///< as the user gave it
    QString password_;
    /// Only for an older file. The folder goes when what lies in it is closed.
    std::unique_ptr<QTemporaryDir> workFolder_;
    std::unique_ptr<Connection> source_;
    qint64 provedAt_ = 0; ///< the source's ChangesByOthers
};

/// What earlier restores into the file `main` have left beside it.
QStringList KeptBeforeRestore(const QString& main);

} // namespace tally::store
