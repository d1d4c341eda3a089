#pragma once

#include "store/Connection.h"

namespace tally {

/// The copy of the school's data that is kept beside it when the program is closed after work. It comes
/// without a word, and so does its absence. The rows that every start and every leaving write are no work.
class DayCopy
{
public:
    /// The main database is opened, as the first time or anew.
    static void NoteOpening() { ++openings; }

    /// At the start, before this client has written anything.
    void NoteFile(const store::Connection& main);
    /// Behind the rows that every start writes.
    void NoteStart(store::Connection& main);
    /// Whether anybody has stored anything that no copy holds. In doubt somebody has.
    bool IsDue(store::Connection& main) const;
    /// Makes the copy of today, for which `main` is read; see store::KeepDayCopy.
    static void Keep(store::Connection& main);
    /// Behind the rows of leaving, where no copy was due: the newest copy holds all work up to now.
    void NoteNoWork(store::Connection& main) const;

private:
    inline static int openings = 0;

    bool allWasCopied_ = false; ///< at the start
    int noted_ = 0;             ///< the opening that the numbers belong to
    qint64 ownChanges_ = 0;
    qint64 changesByOthers_ = 0;
};

} // namespace tally
