#include "support/TestStore.h"

#include "store/DeliveredRows.h"
#include "store/Tables.h"

namespace tally::test {

store::Connection DeliveredMainStore()
{
    store::Connection connection = store::Connection::InMemory();
    store::Transaction transaction(connection);
    store::CreateMainTables(transaction);
    store::InsertDeliveredMainRows(transaction);
    transaction.Commit();
    return connection;
}

store::Connection DeliveredTempStore()
{
    store::Connection connection = store::Connection::InMemory();
    store::Transaction transaction(connection);
    store::CreateTempTables(transaction);
    transaction.Commit();
    return connection;
}

} // namespace tally::test
