#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>

#include <cstdint>
#include <memory>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace tally::store {

/// Binds SQL Null.
struct Null
{};

/// One prepared statement. Placeholders are `?`, numbered from 1; columns are numbered from 0.
/// A prepared statement may be run many times; it must not outlive its Connection.
/// Every function that reaches the engine throws StoreError.
class Statement
{
public:
    Statement(sqlite3* engine, const QString& sql, std::shared_ptr<std::uint64_t> runs);
    Statement(Statement&&) noexcept = default;
    Statement& operator=(Statement&&) noexcept = default;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() = default;

    /// Binds all values, in order, and makes the statement ready to run from its start.
    template <typename... Values>
    Statement& Bind(const Values&... values)
    {
        Reset();
        int position = 0;
        (BindOne(++position, values), ...);
        return *this;
    }

    /// Binds all values and runs a statement that returns no rows. Gives the number of rows it changed.
    template <typename... Values>
    int Run(const Values&... values)
    {
        Bind(values...);
        return RunBound();
    }

    /// Steps to the next row; false when there is none left.
    bool Next();

    bool IsNull(int column) const;
    /// Null reads as 0.
    qint64 Long(int column) const;
    int Int(int column) const { return static_cast<int>(Long(column)); }
    double Double(int column) const;
    /// Null reads as the empty text.
    QString Text(int column) const;
    /// A text column without making a string of it; valid until the next row. Null reads as empty.
    std::string_view Utf8(int column) const;
    /// The first character's code of a text column, without making a string of it; 0 when empty or Null.
    char FirstLetter(int column) const;
    /// Null and any text that is not an ISO date read as an invalid date.
    QDate Date(int column) const;
    int ColumnCount() const;
    QString ColumnName(int column) const;

    /// One bound value, for rows whose number of columns is known at run time only. `position` from 1.
    void BindAt(int position, qint64 value) { BindOne(position, value); }
    void BindAt(int position, double value) { BindOne(position, value); }
    void BindAt(int position, const QString& value) { BindOne(position, value); }
    /// Binds the value of a named placeholder, such as `:Name`. A statement without it is left as it is.
    void BindNamed(const char* name, qint64 value);
    void BindNamed(const char* name, const QString& value);
    /// Latin text that stays unchanged until the statement has run; it is not copied.
    void BindStaticAt(int position, std::string_view text);
    void BindNullAt(int position) { BindOne(position, Null{}); }
    /// Forgets the row in hand, so that the statement can be bound and run anew.
    void Reset();
    /// Runs what has been bound; gives the number of rows changed.
    int RunBound();

private:
    struct Finalize
    {
        void operator()(sqlite3_stmt* statement) const;
    };

    void BindOne(int position, qint64 value);
    void BindOne(int position, int value) { BindOne(position, static_cast<qint64>(value)); }
    void BindOne(int position, bool value) = delete;
    void BindOne(int position, double value);
    void BindOne(int position, const QString& value);
    void BindOne(int position, const char* value) { BindOne(position, QString::fromUtf8(value)); }
    /// An invalid date binds Null.
    void BindOne(int position, const QDate& value);
    void BindOne(int position, Null value);
    void Check(int result) const;

    sqlite3* engine_ = nullptr;
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
    std::shared_ptr<std::uint64_t> runs_;
    bool started_ = false;
};

} // namespace tally::store
