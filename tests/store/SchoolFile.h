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

/// Makes a file so large that copying and pouring it takes several steps.
inline void AddBallast(store::Connection& file)
{
    file.Execute(QStringLiteral("CREATE TABLE Ballast (Sand)"));
    file.Execute(QStringLiteral("INSERT INTO Ballast VALUES (zeroblob(3000000))"));
}

/// Makes a table so long that proving it with its index takes several words.
inline void AddLongTable(store::Connection& file)
{
    file.Execute(QStringLiteral("CREATE TABLE Numbers (Number INTEGER UNIQUE)"));
    file.Execute(QStringLiteral("WITH RECURSIVE Count (Number) AS (SELECT 1 UNION ALL SELECT Number + 1 FROM "
                                "Count WHERE Number < 100000) INSERT INTO Numbers SELECT Number FROM Count"));
}

/// Leaves a row of the file out of one of its indexes: the index is one over another column now.
inline void SpoilIndex(const QString& path)
{
    store::Connection file(path, Password);
    file.Execute(QStringLiteral("INSERT INTO CityMaster (CityCode, StateCode) VALUES (5, 1)"));
    file.Execute(QStringLiteral("PRAGMA writable_schema = ON"));
    file.Execute(QStringLiteral("UPDATE sqlite_master SET sql = 'CREATE INDEX StateCities ON CityMaster "
                                "(CityCode)' WHERE name = 'StateCities'"));
    file.Execute(QStringLiteral("PRAGMA schema_version = %1")
                     .arg(file.Number(QStringLiteral("PRAGMA schema_version")) + 1));
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

/// While it lives, the program lays its working folders below a folder of the files.
class WorkFolder
{
public:
    explicit WorkFolder(const StoreFiles& files)
        : path_(files.Path(QStringLiteral("Work"))), before_(qgetenv(Variable))
    {
        EXPECT_TRUE(QDir().mkdir(path_));
        qputenv(Variable, QFile::encodeName(path_));
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    ~WorkFolder() { before_.isEmpty() ? qunsetenv(Variable) : qputenv(Variable, before_); }

    /// Removes what lies there. Gives how many files and folders those were.
    int Clear() const
    {
        const QFileInfoList left =
            QDir(path_).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        for (const QFileInfo& entry : left)
            EXPECT_TRUE(entry.isDir() ? QDir(entry.filePath()).removeRecursively()
                                      : QFile::remove(entry.filePath()));
        return static_cast<int>(left.size());
    }

    /// Takes away what programs that were killed have left there: each tries the same names, and not for
    /// ever.
    void Empty() const
    {
        EXPECT_TRUE(QDir(path_).removeRecursively());
        EXPECT_TRUE(QDir().mkdir(path_));
    }

private:
    static constexpr const char* Variable = "TMPDIR";
    QString path_;
    QByteArray before_;
};

} // namespace tally::test
