#include "store/Transaction.h"

#include "store/StoreError.h"

namespace tally::store {

namespace {

void RollBackQuietly(Connection& connection)
{
    try {
        connection.Rollback();
    } catch (const StoreError&) {
        // The engine has given up on the file; the journal beside it restores the old rows at the next
        // opening.
    }
}

} // namespace

Transaction::Transaction(Connection& connection) : connection_(connection)
{
    connection_.Begin();
}

Transaction::~Transaction()
{
    if (open_)
        RollBackQuietly(connection_);
}

void Transaction::Commit()
{
    connection_.Commit();
    open_ = false;
}

ReadTransaction::ReadTransaction(Connection& connection)
    : connection_(connection), begins_(connection.TransactionDepth() == 0)
{
    if (begins_)
        connection_.BeginReading();
}

ReadTransaction::~ReadTransaction()
{
    if (begins_)
        RollBackQuietly(connection_);
}

} // namespace tally::store
