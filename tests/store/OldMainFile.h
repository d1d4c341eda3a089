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

/// A main file of the first version under `path`, in place of one that lies there.
inline void LayOldSchoolFile(const QString& path)
{
    QFile::remove(path);
    store::Connection connection(path, Password, store::Connection::Mode::Create);
    store::Transaction transaction(connection);
    LayOldMainFile(transaction);
    transaction.Commit();
}

/// The same as the main file of the folder; gives its bytes.
inline QByteArray MakeOldMainFile(const StoreFiles& files)
{
    LayOldSchoolFile(files.Path());
    return files.Bytes();
}

/// How often the one mark stands in a file that the first version's has.
inline qint64 OldMarksIn(const QString& path)
{
    return store::Connection(path, Password)
        .Number(QStringLiteral("SELECT count(*) FROM MarkMaster WHERE Mark = 50"));
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
