#pragma once

namespace tally::test {

/// While it lives, every disk says that it has no room left. What is written all the same finds some. A
/// program that links this takes the place of the system's call that tells so.
class NoRoom
{
public:
    NoRoom();
    NoRoom(const NoRoom&) = delete;
    NoRoom& operator=(const NoRoom&) = delete;
    ~NoRoom();
};

} // namespace tally::test
