#pragma once

#include "core/SessionContext.h"
#include "core/ui/PresencePause.h"

namespace tally {

/// While it lives, this client's clock leaves the main database alone, which is closed for work on its file
/// until OpenMainAgain. Where that never comes about, it stays closed, and every button says so.
class ClosedMain
{
public:
    ClosedMain() { Session().gcnnMain.reset(); }

private:
    PresencePause clockIsStill_;
};

} // namespace tally
