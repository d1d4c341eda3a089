#pragma once

#include "store/Connection.h"

namespace tally {

/// The copy of the school's data that is kept beside it when the program is closed after work. It comes
/// without a word, and so does its absence.
class DayCopy
{
public:
    /// At the start, before this client has written anything.
    void NoteFile(const store::Connection& main);
    /// Behind the rows that every start writes, which are no work.
    void NoteStart(store::Connection& main);
    /// Whether anybody has stored anything that no copy holds. In doubt somebody has.
    bool IsDue(store::Connection& main) const;
    /// Makes the copy of today, for which `main` is read; see store::KeepDayCopy.
    static void Keep(store::Connection& main);

private:
    bool allWasCopied_ = false; ///< at the start
    const store::Connection* noted_ = nullptr;
    qint64 ownChanges_ = 0;
    qint64 changesByOthers_ = 0;
};

} // namespace tally
