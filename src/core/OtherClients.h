#pragma once

#include "store/Connection.h"

#include <chrono>
#include <functional>

namespace tally {

/// How long a client that works with the school may take to answer: it looks once a second, and somewhat
/// later where it is busy.
constexpr std::chrono::milliseconds RollPatience{3500};

/// Whether another client works with the school in `main` just now. The own clock must keep still meanwhile.
/// `whileWaiting` runs between one look and the next. Throws StoreError.
bool OtherClientsAnswer(store::Connection& main, std::chrono::milliseconds patience = RollPatience,
                        const std::function<void()>& whileWaiting = {});

} // namespace tally
