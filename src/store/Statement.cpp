#include "store/Statement.h"

#include "store/StoreError.h"

#include <sqlcipher/sqlite3.h>

namespace tally::store {

namespace {

StoreError ErrorOf(sqlite3* engine, const QString& statement)
{
    return {sqlite3_extended_errcode(engine), QString::fromUtf8(sqlite3_errmsg(engine)), statement};
}

} // namespace

void Statement::Finalize::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

Statement::Statement(sqlite3* engine, const QString& sql, std::shared_ptr<std::uint64_t> runs)
    : engine_(engine), runs_(std::move(runs))
{
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt* handle = nullptr;
    const int result =
        sqlite3_prepare_v2(engine_, text.constData(), static_cast<int>(text.size()) + 1, &handle, nullptr);
    handle_.reset(handle);
    if (result != SQLITE_OK)
        throw ErrorOf(engine_, sql);
}

void Statement::Check(int result) const
{
    if (result != SQLITE_OK)
        throw ErrorOf(engine_, QString::fromUtf8(sqlite3_sql(handle_.get())));
}

void Statement::Reset()
{
    // The result of a reset repeats the failure of the run before it, which was reported then.
    sqlite3_reset(handle_.get());
    started_ = false;
}

bool Statement::Next()
{
    if (!started_) {
        started_ = true;
        ++*runs_;
    }
    const int result = sqlite3_step(handle_.get());
    if (result == SQLITE_ROW)
        return true;
    if (result == SQLITE_DONE) {
        Reset();
        return false;
    }
    const StoreError error = ErrorOf(engine_, QString::fromUtf8(sqlite3_sql(handle_.get())));
    Reset();
    throw error;
}

int Statement::RunBound()
{
    while (Next()) {
    }
    return sqlite3_changes(engine_);
}

bool Statement::IsNull(int column) const
{
    return sqlite3_column_type(handle_.get(), column) == SQLITE_NULL;
}

qint64 Statement::Long(int column) const
{
    return sqlite3_column_int64(handle_.get(), column);
}

double Statement::Double(int column) const
{
    return sqlite3_column_double(handle_.get(), column);
}

QString Statement::Text(int column) const
{
    const auto* text =
        static_cast<const char*>(static_cast<const void*>(sqlite3_column_text(handle_.get(), column)));
    return QString::fromUtf8(text, sqlite3_column_bytes(handle_.get(), column));
}

std::string_view Statement::Utf8(int column) const
{
    // Text asked for as bytes comes as it lies in the page, without a copy that ends in a zero.
    const auto* text = static_cast<const char*>(sqlite3_column_blob(handle_.get(), column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column))};
}

char Statement::FirstLetter(int column) const
{
    const std::string_view text = Utf8(column);
    return text.empty() ? '\0' : text.front();
}

QDate Statement::Date(int column) const
{
    return QDate::fromString(Text(column), Qt::ISODate);
}

int Statement::ColumnCount() const
{
    return sqlite3_column_count(handle_.get());
}

QString Statement::ColumnName(int column) const
{
    return QString::fromUtf8(sqlite3_column_name(handle_.get(), column));
}

void Statement::BindOne(int position, qint64 value)
{
    Check(sqlite3_bind_int64(handle_.get(), position, value));
}

void Statement::BindOne(int position, double value)
{
    Check(sqlite3_bind_double(handle_.get(), position, value));
}

void Statement::BindOne(int position, const QString& value)
{
    const QByteArray text = value.toUtf8();
    Check(sqlite3_bind_text(handle_.get(), position, text.constData(), static_cast<int>(text.size()),
                            SQLITE_TRANSIENT));
}

void Statement::BindStaticAt(int position, std::string_view text)
{
    Check(sqlite3_bind_text(handle_.get(), position, text.data(), static_cast<int>(text.size()),
                            SQLITE_STATIC));
}

void Statement::BindOne(int position, const QDate& value)
{
    if (value.isValid())
        BindOne(position, value.toString(Qt::ISODate));
    else
        BindOne(position, Null{});
}

void Statement::BindOne(int position, Null)
{
    Check(sqlite3_bind_null(handle_.get(), position));
}

void Statement::BindNamed(const char* name, qint64 value)
{
    if (const int position = sqlite3_bind_parameter_index(handle_.get(), name); position > 0)
        BindOne(position, value);
}

void Statement::BindNamed(const char* name, const QString& value)
{
    if (const int position = sqlite3_bind_parameter_index(handle_.get(), name); position > 0)
        BindOne(position, value);
}

} // namespace tally::store
