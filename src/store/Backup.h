#pragma once

#include "store/Connection.h"

#include <QDate>

namespace tally::store {

/// What becomes of a file that lies at the destination.
enum class Occupied
{
    Replace,
    Refuse, ///< the user was asked about none
};

/// Copies the file under `main`, as it was last committed, to `destination`, while others go on working in
/// it; their saves wait for the own disk only, however slow the one of the destination is. The copy is whole,
/// proved and on the disk before it takes its place; a file that lies there stays as it is until then. Throws
/// StoreError: "Invalid File Name" where the place itself is none, Cancelled, a full disk, a missing right.
void BackUp(Connection& main, const QString& password, const QString& destination,
            const Progress& progress = {}, Occupied occupied = Occupied::Replace);

/// A backup beside the main file for one working day. It takes the place of that day's earlier one, and it
/// and six others are kept: those of days to come, which a wrong clock has left, go first, then the oldest.
/// Where the disk would be left without room, or anything else speaks against it, there is none, and nobody
/// hears of it: the work of the day is stored in the file itself.
void KeepDayCopy(Connection& main, const QString& password, const QDate& day);
/// The copies that KeepDayCopy has made beside the file `main`, the oldest first.
QStringList DayCopies(const QString& main);

/// Whether `path` lies beside the file `main` under a name that the program gives and takes away by itself.
bool IsOwnCopy(const QString& path, const QString& main);

} // namespace tally::store
