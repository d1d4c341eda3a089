#pragma once

#include "store/StoreError.h"

#include <QtGlobal>

#include <functional>

namespace tally::store {

/// Hears how far long work on a file has come; a `total` of 0 where nobody can know. Giving false ends the
/// work, which then throws Cancelled and leaves every file as it was.
using Progress = std::function<bool(qint64 done, qint64 total)>;

/// The user has ended the work. Nothing was changed.
class Cancelled : public StoreError
{
public:
    Cancelled() : StoreError(QStringLiteral("Cancelled. Nothing Was Changed")) {}
};

/// Tells whoever listens. Throws Cancelled when that one has had enough.
inline void Tell(const Progress& progress, qint64 done, qint64 total)
{
    if (progress && !progress(done, total))
        throw Cancelled();
}

} // namespace tally::store
