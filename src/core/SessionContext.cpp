#include "core/SessionContext.h"

namespace tally {

SessionContext& Session()
{
    static SessionContext session;
    return session;
}

} // namespace tally
