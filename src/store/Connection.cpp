#include "store/Connection.h"

#include "store/StoreError.h"

#include <QDir>
#include <QFileInfo>

// The header shows the functions of the cipher only to a file that says it wants them.
#ifndef SQLITE_HAS_CODEC
#define SQLITE_HAS_CODEC
#endif
#include <sqlcipher/sqlite3.h>

namespace tally::store {

namespace {

/// The password is fixed, long and built in; stretching it further guards nothing and costs the office a wait
/// at each opening, so a token number of rounds is enough.
constexpr int KeyDerivationRounds = 1000;
constexpr int PageSize = 4096;

} // namespace

void Connection::Close::operator()(sqlite3* engine) const
{
    sqlite3_close_v2(engine);
}

Connection::Connection(const QString& path, const QString& password, Mode mode) : path_(path)
{
    const QFileInfo file(path);
    const QString shown = QDir::toNativeSeparators(path);
    if (mode == Mode::Create && file.exists())
        throw StoreError(QStringLiteral("The File %1 Exists Already And Is Left As It Is").arg(shown));
    if (mode == Mode::MustExist && !file.exists())
        throw StoreError(QStringLiteral("The Database File %1 Is Missing").arg(shown));
    if (mode == Mode::MustExist && file.size() == 0)
        throw StoreError(QStringLiteral("The Database File %1 Is Empty").arg(shown));

    try {
        Open(path.toUtf8(), SQLITE_OPEN_READWRITE | (mode == Mode::Create ? SQLITE_OPEN_CREATE : 0));
        if (!password.isEmpty())
            Key(password);
        Configure();
    } catch (const StoreError& error) {
        if (error.IsLocked())
            throw;
        throw StoreError(QStringLiteral("%1: %2").arg(shown, error.Description()));
    }
}

Connection Connection::InMemory()
{
    Connection connection;
    connection.Open(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    connection.Configure();
    return connection;
}

void Connection::Open(const QByteArray& name, int flags)
{
    sqlite3* engine = nullptr;
    // One thread uses a connection, so the engine need not guard it at every call.
    const int result = sqlite3_open_v2(name.constData(), &engine, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    engine_.reset(engine);
    if (result != SQLITE_OK)
        throw StoreError(result, QString::fromUtf8(engine ? sqlite3_errmsg(engine) : sqlite3_errstr(result)));
    sqlite3_extended_result_codes(engine, 1);
    SetPatience(DefaultPatience);
}

void Connection::Key(const QString& password)
{
    const QByteArray key = password.toUtf8();
    const int result = sqlite3_key(engine_.get(), key.constData(), static_cast<int>(key.size()));
    if (result != SQLITE_OK)
        throw StoreError(result, QString::fromUtf8(sqlite3_errmsg(engine_.get())));
    // The third format is the one that every engine since 3.4 can read; those before 4 ignore the first line.
    Execute(QStringLiteral("PRAGMA cipher_compatibility = 3"));
    Execute(QStringLiteral("PRAGMA cipher_page_size = %1").arg(PageSize));
    Execute(QStringLiteral("PRAGMA kdf_iter = %1").arg(KeyDerivationRounds));
}

void Connection::Configure()
{
    // Reading the schema is the proof that the file is a database and that the password fits.
    Execute(QStringLiteral("SELECT count(*) FROM sqlite_master"));
    Execute(QStringLiteral("PRAGMA foreign_keys = ON"));
    // The files may lie on a shared folder, where a write-ahead log cannot work.
    Execute(QStringLiteral("PRAGMA journal_mode = DELETE"));
    Execute(QStringLiteral("PRAGMA synchronous = FULL"));
    Execute(QStringLiteral("PRAGMA temp_store = MEMORY"));
    *runs_ = 0;
}

Statement Connection::Prepare(const QString& sql)
{
    return {engine_.get(), sql, runs_};
}

void Connection::Begin()
{
    // Taking the write lock at once lets two clients queue; upgrading a read lock later could only fail.
    BeginWith(QStringLiteral("BEGIN IMMEDIATE"));
}

void Connection::BeginReading()
{
    BeginWith(QStringLiteral("BEGIN"));
}

void Connection::BeginWith(const QString& outermost)
{
    if (depth_ == 0)
        Execute(outermost);
    else
        Execute(QStringLiteral("SAVEPOINT nested%1").arg(depth_));
    ++depth_;
}

void Connection::Commit()
{
    if (depth_ == 1)
        Execute(QStringLiteral("COMMIT"));
    else if (depth_ > 1)
        Execute(QStringLiteral("RELEASE nested%1").arg(depth_ - 1));
    else
        return;
    --depth_;
}

void Connection::Rollback()
{
    if (depth_ == 0)
        return;
    --depth_;
    // A full disk or a lost file ends the engine's transaction by itself; then there is nothing left to undo.
    if (sqlite3_get_autocommit(engine_.get()) != 0)
        return;
    if (depth_ == 0) {
        Execute(QStringLiteral("ROLLBACK"));
    } else {
        Execute(QStringLiteral("ROLLBACK TO nested%1").arg(depth_));
        Execute(QStringLiteral("RELEASE nested%1").arg(depth_));
    }
}

void Connection::HoldsWorkingTables()
{
    Execute(QStringLiteral("PRAGMA synchronous = NORMAL"));
}

qint64 Connection::ChangesByOthers()
{
    return Number(QStringLiteral("PRAGMA data_version"));
}

void Connection::SetPatience(std::chrono::milliseconds patience)
{
    sqlite3_busy_timeout(engine_.get(), static_cast<int>(patience.count()));
}

} // namespace tally::store
