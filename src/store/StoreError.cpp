#include "store/StoreError.h"

#include <sqlcipher/sqlite3.h>

namespace tally::store {

namespace {

constexpr int PrimaryCodeMask = 0xff;

/// A value too long, out of its range or missing: the row itself is wrong, whatever other rows there are.
bool IsUnfitValue(int engineCode)
{
    return engineCode == SQLITE_CONSTRAINT_CHECK || engineCode == SQLITE_CONSTRAINT_NOTNULL;
}

ErrorKind KindOf(int engineCode, const QString& engineText)
{
    if (IsUnfitValue(engineCode))
        return ErrorKind::Other;
    switch (engineCode & PrimaryCodeMask) {
    case SQLITE_CONSTRAINT:
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return ErrorKind::GeneralFailure;
    case SQLITE_ERROR:
        if (engineText.startsWith(QLatin1String("table")) &&
            engineText.endsWith(QLatin1String("already exists")))
            return ErrorKind::TableExists;
        if (engineText.startsWith(QLatin1String("no such table")))
            return ErrorKind::NoSuchTable;
        return ErrorKind::Other;
    default: return ErrorKind::Other;
    }
}

/// Words for the office. Empty where the engine's own words are all there is to say.
QString PlainWords(int engineCode)
{
    if (IsUnfitValue(engineCode))
        return QStringLiteral("A Value Is Too Long, Out Of Its Range Or Missing. Nothing Was Saved");
    switch (engineCode & PrimaryCodeMask) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QStringLiteral("The Data Is In Use By Another Client. Please Try Again In A Moment");
    case SQLITE_CONSTRAINT: return QStringLiteral("The Data Contradicts Other Data That Is Already Stored");
    case SQLITE_FULL: return QStringLiteral("The Disk Is Full. This Was Not Saved");
    case SQLITE_READONLY:
        return QStringLiteral("The Database Can Only Be Read, Not Written. This Was Not Saved");
    case SQLITE_CANTOPEN: return QStringLiteral("The Database File Could Not Be Opened");
    case SQLITE_NOTADB:
        return QStringLiteral("This File Is Not A Database Of This Program, Or It Has Another Password");
    case SQLITE_CORRUPT: return QStringLiteral("The Database File Is Damaged");
    case SQLITE_IOERR: return QStringLiteral("The Database File Could Not Be Read Or Written");
    default: return {};
    }
}

} // namespace

StoreError::StoreError(int engineCode, const QString& engineText, QString statement)
    : kind_(KindOf(engineCode, engineText)), engineCode_(engineCode), statement_(std::move(statement))
{
    const QString words = PlainWords(engineCode);
    description_ = words.isEmpty() ? engineText : words + QLatin1String(" (") + engineText + QLatin1Char(')');
    what_ = description_.toUtf8();
}

StoreError::StoreError(QString description)
    : description_(std::move(description)), what_(description_.toUtf8())
{}

StoreError StoreError::RowIsGone(const QString& statement)
{
    return {SQLITE_CONSTRAINT, QStringLiteral("the row is no longer there"), statement};
}

bool StoreError::IsLocked() const
{
    const int primary = engineCode_ & PrimaryCodeMask;
    return primary == SQLITE_BUSY || primary == SQLITE_LOCKED;
}

bool StoreError::IsDuplicate() const
{
    return engineCode_ == SQLITE_CONSTRAINT_PRIMARYKEY || engineCode_ == SQLITE_CONSTRAINT_UNIQUE;
}

} // namespace tally::store
