#pragma once

#include "store/StoreError.h"
#include "store/Transaction.h"

#include <QFile>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>
#include <optional>

namespace tally::test {

inline const QString Password = QStringLiteral("wind_mill-27/harbour_lantern");

/// A folder of its own for database files, gone after the test.
class StoreFiles
{
public:
    QString Path(const QString& name = QStringLiteral("Tallyboard.mdb")) const
    {
        return folder_.filePath(name);
    }
    QString Folder() const { return folder_.path(); }

    /// A database with one table, NameList(Name), and one row in it.
    store::Connection MakeNameList() const
    {
        store::Connection connection(Path(), Password, store::Connection::Mode::Create);
        connection.Execute(QStringLiteral("CREATE TABLE NameList (Name TEXT)"));
        connection.Execute(QStringLiteral("INSERT INTO NameList VALUES ('Amala')"));
        return connection;
    }

    QByteArray Bytes(const QString& name = QStringLiteral("Tallyboard.mdb")) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void Write(const QByteArray& bytes, const QString& name = QStringLiteral("Tallyboard.mdb")) const
    {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
    }

private:
    QTemporaryDir folder_;
};

/// The error that `work` throws, or nothing.
inline std::optional<store::StoreError> ErrorOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const store::StoreError& error) {
        return error;
    }
    return std::nullopt;
}

} // namespace tally::test
