#pragma once

#include "store/DeliveredRows.h"
#include "store/Tables.h"
#include "StoreFiles.h"

#include <QDir>

namespace tally::test {

inline void AddState(store::Connection& main, int code, const QString& name)
{
    main.Execute(QStringLiteral("INSERT INTO StateMaster (StateCode, StateName, UserCode) VALUES (?, ?, 1)"),
                 code, name);
}

/// A delivered main file under `path` with so many states in it.
inline void LaySchoolFile(const QString& path, int states)
{
    store::Connection main(path, Password, store::Connection::Mode::Create);
    store::Transaction transaction(main);
    store::CreateMainTables(transaction);
    store::InsertDeliveredMainRows(transaction);
    for (int code = 1; code <= states; ++code)
        AddState(main, code, QStringLiteral("State %1").arg(code));
    transaction.Commit();
}

inline qint64 States(store::Connection& main)
{
    return main.Number(QStringLiteral("SELECT count(*) FROM StateMaster WHERE StateCode > 0"));
}

/// In the whole file of that path, which a test may read anew at any time.
inline qint64 StatesIn(const QString& path)
{
    store::Connection main(path, Password);
    main.Prove(true);
    return States(main);
}

/// The files of a folder by name, hidden ones too.
inline QStringList NamesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

} // namespace tally::test
