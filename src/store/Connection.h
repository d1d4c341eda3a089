#pragma once

#include "store/Progress.h"
#include "store/Statement.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

class QIODevice;
struct sqlite3;

namespace tally::store {

/// One open database file. The engine stays behind this class; a server's engine could take its place.
/// All functions throw StoreError on failure. A connection is used from one thread only.
class Connection
{
public:
    enum class Mode
    {
        MustExist, ///< a missing or empty file is an error, never silently created
        Create,    ///< a new file; an existing one is an error, so that no school's data is overwritten
    };

    /// How long a statement waits for another client before it gives up with a lock error.
    static constexpr std::chrono::milliseconds DefaultPatience{5000};

    /// Opens the file and proves that it is a database with this password. With an empty password the file is
    /// plain.
    Connection(const QString& path, const QString& password, Mode mode = Mode::MustExist);
    /// A private store in memory, gone with the connection.
    static Connection InMemory();
    Connection(Connection&&) noexcept = default;
    Connection& operator=(Connection&&) noexcept = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() = default;

    /// Runs one statement that returns no rows. Gives the number of rows it changed.
    template <typename... Values>
    int Execute(const QString& sql, const Values&... values)
    {
        return Prepare(sql).Run(values...);
    }

    /// A statement with its values bound, ready for `while (rows.Next())`.
    template <typename... Values>
    Statement Query(const QString& sql, const Values&... values)
    {
        Statement statement = Prepare(sql);
        statement.Bind(values...);
        return statement;
    }

    /// The first column of the first row as a whole number; 0 when there is no row or it is Null.
    template <typename... Values>
    qint64 Number(const QString& sql, const Values&... values)
    {
        Statement statement = Query(sql, values...);
        return statement.Next() ? statement.Long(0) : 0;
    }

    Statement Prepare(const QString& sql);

    /// Transactions nest: the inner ones are savepoints. Prefer the class Transaction.
    void Begin();
    /// The same for work that only reads; prefer the class ReadTransaction. Waits for no other writer until
    /// one is about to commit.
    void BeginReading();
    void Commit();
    void Rollback();
    int TransactionDepth() const { return depth_; }

    /// The file's tables are made anew whenever they are needed: its commits wait for the disk fewer times. A
    /// killed program still leaves it whole.
    void HoldsWorkingTables();
    void SetPatience(std::chrono::milliseconds patience);
    /// A number that stays the same until another connection, of this program or another client, changes
    /// anything in the file; what this one writes leaves it as it is. Within a transaction it belongs to all
    /// that the transaction reads. The numbers of two connections say nothing about each other.
    qint64 ChangesByOthers();
    /// Of which program's time the tables are; 0 where the file does not say so. Set by Upgrade alone.
    int SchemaVersion();
    /// Writes the bytes of the file, as they were last committed, to `copy`. Not for a store in memory. Only
    /// in a transaction that has changed nothing yet; it keeps other writers away meanwhile.
    void CopyTo(QIODevice& copy, const Progress& progress = {});
    /// Bytes of the file that no two commits leave alike, whoever makes them. Only in a transaction or under
    /// the lock of PourFrom.
    QByteArray CommitMark();
    /// Reads the whole file: every page and how the pages hang together, with `indexes` also that each index
    /// leads to the rows it should. Throws where it is damaged.
    void Prove(bool indexes, const Progress& progress = {});
    /// Writes the file anew without the gaps that deleted rows have left.
    void Vacuum();
    /// Gives this file all that `source` holds, in one step: whatever stops the work leaves the one content
    /// or the other. Other clients that have the file open wait, and go on in what was poured. `locked` runs
    /// when nobody else can read or write this file any more and nothing in it has changed yet; where it
    /// throws, nothing is poured. Both files have their passwords or neither has one; no transaction is open
    /// on this one. `source` must keep still: begin reading on it first where other clients may write to it.
    void PourFrom(Connection& source, const std::function<void()>& locked, const Progress& progress = {});
    /// Rows that this connection has written, changed or deleted so far, kept or not.
    qint64 RowsChanged() const;
    /// Statements run so far, for proving that an action's cost does not grow with the school.
    std::uint64_t StatementsRun() const { return *runs_; }
    /// Empty for a store in memory.
    const QString& Path() const { return path_; }

private:
    struct Close
    {
        void operator()(sqlite3* engine) const;
    };

    Connection() = default;
    void Open(const QByteArray& name, int flags);
    void Key(const QString& password);
    void Configure();
    void BeginWith(const QString& outermost);

    std::unique_ptr<sqlite3, Close> engine_;
    std::shared_ptr<std::uint64_t> runs_ = std::make_shared<std::uint64_t>(0);
    QString path_;
    int depth_ = 0;
};

} // namespace tally::store
