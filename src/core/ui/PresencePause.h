#pragma once

namespace tally {

/// While one lives, the main window's clock leaves the databases alone, for work that closes them meanwhile.
/// Pauses nest. The first tick behind the last of them works with the connection that is there by then.
class PresencePause
{
public:
    PresencePause() { ++pauses; }
    PresencePause(const PresencePause&) = delete;
    PresencePause& operator=(const PresencePause&) = delete;
    ~PresencePause() { --pauses; }

    static bool Lasts() { return pauses > 0; }

private:
    inline static int pauses = 0;
};

} // namespace tally
