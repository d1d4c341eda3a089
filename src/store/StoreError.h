#pragma once

#include <QString>

#include <exception>

namespace tally::store {

/// The kinds of failure that screens tell apart. The numbers are the ones the office's earlier records and
/// support notes use, so they are kept as the values of the enumerators.
enum class ErrorKind : quint32
{
    Other = 0,
    GeneralFailure =
        0x80004005,           ///< other rows or another client stand against it: a key, a reference, a lock
    TableExists = 0x80040E14, ///< a create met a table that stands already
    NoSuchTable = 0x80040E37, ///< a statement named a table that is not there
};

/// What went wrong in the store. Bound values and the database password never appear in it.
class StoreError : public std::exception
{
public:
    /// `engineCode` is the engine's extended result code, `engineText` its own words, `statement` the SQL
    /// text with its placeholders (empty when no statement was involved).
    StoreError(int engineCode, const QString& engineText, QString statement = {});
    /// A failure found by the store itself, such as a missing file; `description` is shown to the user.
    explicit StoreError(QString description);
    /// A change met no row, because another client deleted it: a general failure.
    static StoreError RowIsGone(const QString& statement);

    ErrorKind Kind() const { return kind_; }
    int EngineCode() const { return engineCode_; }
    const QString& Statement() const { return statement_; }
    /// Plain words for a message box, the engine's own words in brackets behind them where that helps.
    const QString& Description() const { return description_; }
    /// True when another client held the file for longer than the waiting time. Trying again later may
    /// succeed.
    bool IsLocked() const;
    /// True when a row with the same key is stored already, another client's mostly. Such an error is a
    /// conflict too.
    bool IsDuplicate() const;
    /// True when the change contradicts rows that others have stored or deleted: trying again will not help.
    bool IsConflict() const { return kind_ == ErrorKind::GeneralFailure && !IsLocked(); }

    const char* what() const noexcept override { return what_.constData(); }

private:
    ErrorKind kind_ = ErrorKind::Other;
    int engineCode_ = 0;
    QString statement_;
    QString description_;
    QByteArray what_;
};

} // namespace tally::store
