#include "core/SessionContext.h"

#include "store/StoreError.h"

namespace tally {

namespace {

store::Connection& Open(const std::unique_ptr<store::Connection>& store)
{
    if (!store)
        throw store::StoreError(QStringLiteral("The Database Is Closed"));
    return *store;
}

} // namespace

SessionContext& Session()
{
    static SessionContext session;
    return session;
}

store::Connection& MainStore()
{
    return Open(Session().gcnnMain);
}

store::Connection& TempStore()
{
    return Open(Session().gcnnTemp);
}

} // namespace tally
