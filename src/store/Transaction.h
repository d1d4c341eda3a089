#pragma once

#include "store/Connection.h"

namespace tally::store {

/// A unit of work on one connection: all of it is stored by Commit(), or none of it. Leaving the scope
/// without Commit() rolls back. Functions that write take a Transaction&, so a write outside one does not
/// compile.
class Transaction
{
public:
    /// Waits for other writers as long as the connection's patience lasts, then throws a lock error.
    explicit Transaction(Connection& connection);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();

    /// Throws StoreError when the store refuses; the work is then rolled back.
    void Commit();

    Connection& On() { return connection_; }

    template <typename... Values>
    int Execute(const QString& sql, const Values&... values)
    {
        return connection_.Execute(sql, values...);
    }

    Statement Prepare(const QString& sql) { return connection_.Prepare(sql); }

private:
    Connection& connection_;
    bool open_ = true;
};

/// While it lives, all that is read on one connection is of one moment, whatever other clients store
/// meanwhile; they wait with their commit. For work that writes nothing. Within another transaction, which
/// holds the moment already, it does nothing.
class ReadTransaction
{
public:
    explicit ReadTransaction(Connection& connection);
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;
    ~ReadTransaction();

private:
    Connection& connection_;
    const bool begins_; ///< it is the outermost one
};

} // namespace tally::store
