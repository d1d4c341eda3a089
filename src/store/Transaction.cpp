#include "store/Transaction.h"

#include "store/StoreError.h"

namespace tally::store {

Transaction::Transaction(Connection& connection) : connection_(connection)
{
    connection_.Begin();
}

Transaction::~Transaction()
{
    if (!open_)
        return;
    try {
        connection_.Rollback();
    } catch (const StoreError&) {
        // The engine has given up on the file; the journal beside it restores the old rows at the next
        // opening.
    }
}

void Transaction::Commit()
{
    connection_.Commit();
    open_ = false;
}

} // namespace tally::store
