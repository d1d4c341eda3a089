#include "store/Connection.h"

#include "store/Dialect.h"
#include "store/OwnFiles.h"
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
/// Pages that are poured between two words about how far it has come.
constexpr int PourStep = 256;
/// The first page of every file, which each commit writes anew: its counter of changes stands there, and what
/// is encrypted begins with other random bytes each time.
constexpr qint64 FirstPageSize = 4096;
/// Steps of the engine's machine between two words about a long statement.
constexpr int StepsBetweenWords = 200000;

/// The file under a connection, reached through the engine's own handle: where a process closes a second one
/// on the same file, it loses the locks that it holds there.
class FileOf
{
public:
    explicit FileOf(sqlite3* engine)
    {
        Check(sqlite3_file_control(engine, "main", SQLITE_FCNTL_FILE_POINTER, &file_));
    }

    qint64 Size() const
    {
        sqlite3_int64 size = 0;
        Check(file_->pMethods->xFileSize(file_, &size));
        return size;
    }

    QByteArray Read(qint64 from, qint64 count) const
    {
        QByteArray bytes(count, Qt::Uninitialized);
        Check(file_->pMethods->xRead(file_, bytes.data(), static_cast<int>(count), from));
        return bytes;
    }

private:
    static void Check(int result)
    {
        if (result != SQLITE_OK)
            throw StoreError(result, QString::fromUtf8(sqlite3_errstr(result)));
    }

    sqlite3_file* file_ = nullptr;
};

/// While it lives, `progress` hears of each stretch of a long statement and may end it.
class Words
{
public:
    Words(sqlite3* engine, const Progress& progress) : engine_(engine), progress_(progress)
    {
        if (progress_)
            sqlite3_progress_handler(engine_, StepsBetweenWords, &Words::Say, this);
    }
    Words(const Words&) = delete;
    Words& operator=(const Words&) = delete;
    ~Words() { sqlite3_progress_handler(engine_, 0, nullptr, nullptr); }

    bool WereCutShort() const { return cutShort_; }

private:
    static int Say(void* self)
    {
        auto* words = static_cast<Words*>(self);
        words->cutShort_ = !words->progress_(0, 0);
        return words->cutShort_ ? 1 : 0;
    }

    sqlite3* engine_;
    const Progress& progress_;
    bool cutShort_ = false;
};

struct EndPouring
{
    void operator()(sqlite3_backup* pouring) const { sqlite3_backup_finish(pouring); }
};

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

qint64 Connection::RowsChanged() const
{
    return sqlite3_total_changes(engine_.get());
}

void Connection::CopyTo(QIODevice& copy, const Progress& progress)
{
    const FileOf file(engine_.get());
    const qint64 size = file.Size();
    for (qint64 done = 0; done < size;) {
        Tell(progress, done, size);
        const QByteArray bytes = file.Read(done, std::min(CopyStep, size - done));
        WriteAll(copy, bytes);
        done += bytes.size();
    }
}

QByteArray Connection::CommitMark()
{
    const FileOf file(engine_.get());
    return file.Read(0, std::min(FirstPageSize, file.Size()));
}

void Connection::Prove(bool indexes, const Progress& progress)
{
    const Words words(engine_.get(), progress);
    try {
        Statement rows = Query(dialect::Prove(indexes));
        if (rows.Next() && rows.Text(0) != QLatin1String("ok"))
            throw StoreError(dialect::DamagedFile(), rows.Text(0));
    } catch (const StoreError&) {
        if (words.WereCutShort())
            throw Cancelled();
        throw;
    }
}

void Connection::Vacuum()
{
    Execute(dialect::Vacuum());
}

void Connection::PourFrom(Connection& source, const std::function<void()>& locked, const Progress& progress)
{
    const std::unique_ptr<sqlite3_backup, EndPouring> pouring(
        sqlite3_backup_init(engine_.get(), "main", source.engine_.get(), "main"));
    if (!pouring)
        throw StoreError(sqlite3_extended_errcode(engine_.get()),
                         QString::fromUtf8(sqlite3_errmsg(engine_.get())));
    // A step of no pages takes the lock against all others, and the last step commits.
    int result = sqlite3_backup_step(pouring.get(), 0);
    if (result == SQLITE_OK)
        locked();
    while (result == SQLITE_OK) {
        result = sqlite3_backup_step(pouring.get(), PourStep);
        if (result == SQLITE_OK) {
            const int total = sqlite3_backup_pagecount(pouring.get());
            Tell(progress, total - sqlite3_backup_remaining(pouring.get()), total);
        }
    }
    if (result != SQLITE_DONE)
        throw StoreError(result, QString::fromUtf8(sqlite3_errstr(result)));
}

void Connection::SetPatience(std::chrono::milliseconds patience)
{
    sqlite3_busy_timeout(engine_.get(), static_cast<int>(patience.count()));
}

} // namespace tally::store
