#pragma once

#include "store/Connection.h"

#include <QDate>

namespace tally::store {

/// Copies the file under `main`, as it was last committed, to `destination`, while others go on working in
/// it. The copy is whole, proved and on the disk before it takes its place; a file that lies there stays as
/// it is until then. Throws StoreError: "Invalid File Name" where the place itself is none, Cancelled, a full
/// disk, a missing right.
void BackUp(Connection& main, const QString& password, const QString& destination,
            const Progress& progress = {});

/// A backup beside the main file for one working day. It takes the place of that day's earlier one, and the
/// last seven such days are kept. Where the disk would be left without room, or anything else speaks against
/// it, there is none, and nobody hears of it: the work of the day is stored in the file itself.
void KeepDayCopy(Connection& main, const QString& password, const QDate& day);
/// The copies that KeepDayCopy has made beside the file `main`, the oldest first.
QStringList DayCopies(const QString& main);

} // namespace tally::store
