#pragma once

#include <cstdlib>
#include <unistd.h>

namespace tally::test {

/// Runs as somebody who may not write everywhere: the owner of the machine may.
class AsOrdinaryUser
{
public:
    AsOrdinaryUser()
    {
        constexpr uid_t Nobody = 65534;
        if (geteuid() == 0)
            changed_ = seteuid(Nobody) == 0;
    }
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;
    ~AsOrdinaryUser()
    {
        if (changed_ && seteuid(0) != 0)
            std::abort();
    }

private:
    bool changed_ = false;
};

} // namespace tally::test
