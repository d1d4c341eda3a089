#pragma once

#include "StoreFiles.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace tally::test {

/// Runs the statements by which a main file of the first version came to be.
inline void LayOldMainFile(store::Transaction& transaction)
{
    QFile file(QStringLiteral(TALLY_MAIN_FILE_OF_VERSION_1));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList statements = QString::fromUtf8(file.readAll()).split(QStringLiteral(";\n"));
    for (const QString& statement : statements)
        if (!statement.trimmed().isEmpty())
            transaction.Execute(statement);
}

/// A main file of the first version; gives its bytes.
inline QByteArray MakeOldMainFile(const StoreFiles& files)
{
    {
        store::Connection connection(files.Path(), Password, store::Connection::Mode::Create);
        store::Transaction transaction(connection);
        LayOldMainFile(transaction);
        transaction.Commit();
    }
    return files.Bytes();
}

/// Tables and indexes by their names, each with the statement that made it.
inline QStringList Definitions(store::Connection& store)
{
    QStringList definitions;
    auto rows = store.Query(
        QStringLiteral("SELECT name || ': ' || sql FROM sqlite_master WHERE sql IS NOT NULL ORDER BY name"));
    while (rows.Next())
        definitions << rows.Text(0);
    return definitions;
}

inline bool IsWhole(store::Connection& store)
{
    auto check = store.Query(QStringLiteral("PRAGMA integrity_check"));
    return check.Next() && check.Text(0) == QLatin1String("ok");
}

/// The files of the folder by name, hidden ones too.
inline QStringList FilesIn(const StoreFiles& files)
{
    return QDir(files.Folder()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

} // namespace tally::test
