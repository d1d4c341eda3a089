#include "store/Connection.h"

#include "store/Dialect.h"
#include "store/StoreError.h"

#include <QDir>
#include <QFileInfo>
#include <QIODevice>

#include <algorithm>

// The header shows the functions of the cipher only to a file that says it wants them.
#ifndef SQLITE_HAS_CODEC
#define SQLITE_HAS_CODEC
#endif
#include <sqlcipher/sqlite3.h>

namespace tally::store {

namespace {

/// In bytes.
constexpr qint64 CopyStep = 1 << 20;

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
        throw StoreError(result, QString::fromUtf8(sqlite3_errstr(result)));
    sqlite3_extended_result_codes(engine, 1);
    SetPatience(DefaultPatience);
}

void Connection::Key(const QString& password)
{
    const QByteArray key = password.toUtf8();
    const int result = sqlite3_key(engine_.get(), key.constData(), static_cast<int>(key.size()));
    if (result != SQLITE_OK)
        throw StoreError(result, QString::fromUtf8(sqlite3_errmsg(engine_.get())));
    for (const QString& statement : dialect::AfterKey())
        Execute(statement);
}

void Connection::Configure()
{
    Execute(dialect::ReadSchema());
    for (const QString& statement : dialect::Settings())
        Execute(statement);
    *runs_ = 0;
}

Statement Connection::Prepare(const QString& sql)
{
    return {engine_.get(), sql, runs_};
}

void Connection::Begin()
{
    BeginWith(dialect::BeginWriting());
}

void Connection::BeginReading()
{
    BeginWith(dialect::BeginReading());
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
    Execute(dialect::WaitLessForDisk());
}

qint64 Connection::ChangesByOthers()
{
    return Number(dialect::ReadChangesByOthers());
}

int Connection::SchemaVersion()
{
    return static_cast<int>(Number(dialect::ReadSchemaVersion()));
}

void Connection::CopyTo(QIODevice& copy)
{
    // Through the engine's own handle: where a process closes a second one on the same file, it loses the
    // locks that it holds there.
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    int result = sqlite3_file_control(engine_.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (result == SQLITE_OK)
        result = file->pMethods->xFileSize(file, &size);
    QByteArray bytes;
    for (qint64 done = 0; result == SQLITE_OK && done < size; done += bytes.size()) {
        bytes.resize(std::min(CopyStep, size - done));
        result = file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), done);
        if (result == SQLITE_OK && copy.write(bytes) != bytes.size())
            throw StoreError(QStringLiteral("The Copy Could Not Be Written (%1)").arg(copy.errorString()));
    }
    if (result != SQLITE_OK)
        throw StoreError(result, QString::fromUtf8(sqlite3_errstr(result)));
}

void Connection::SetPatience(std::chrono::milliseconds patience)
{
    sqlite3_busy_timeout(engine_.get(), static_cast<int>(patience.count()));
}

} // namespace tally::store
