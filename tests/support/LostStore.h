#pragma once

#include <cstddef>
#include <functional>

namespace tally::test {

/// Does the work. From its statement `number` on, counted from 0, no connection of the program gets an answer
/// to a new statement, as when the shared folder is gone; only rolling back works. True when the work came so
/// far.
bool LosesStoreAt(std::size_t number, const std::function<void()>& work);

} // namespace tally::test
