#include "store/Dialect.h"

#include <sqlcipher/sqlite3.h>

namespace tally::store::dialect {

namespace {

/// The password is fixed, long and built in; stretching it further guards nothing and costs the office a wait
/// at each opening, so a token number of rounds is enough.
constexpr int KeyDerivationRounds = 1000;
constexpr int PageSize = 4096;

constexpr int PrimaryCodeMask = 0xff;

/// A value too long, out of its range or missing: the row itself is wrong, whatever other rows there are.
bool IsUnfitValue(int engineCode)
{
    return engineCode == SQLITE_CONSTRAINT_CHECK || engineCode == SQLITE_CONSTRAINT_NOTNULL;
}

} // namespace

QString WholeNumber()
{
    return QStringLiteral("INTEGER");
}

QString DecimalNumber()
{
    return QStringLiteral("DOUBLE");
}

QString ShortText(int width)
{
    return QStringLiteral("VARCHAR(%1) COLLATE NOCASE").arg(width);
}

QString LongText()
{
    return QStringLiteral("TEXT COLLATE NOCASE");
}

QString Day()
{
    return QStringLiteral("VARCHAR(10)");
}

QString TextFits(const QString& column, int width)
{
    // The engine takes the width of the column's kind for a remark.
    return QStringLiteral("length(%1) <= %2").arg(column).arg(width);
}

QString IsDay(const QString& column)
{
    // Adding no days carries a 30th of February over into March, where it no longer equals what was written.
    return QStringLiteral("%1 IS date(%1, '+0 days')").arg(column);
}

QString InOrderOfKey()
{
    return QStringLiteral(" WITHOUT ROWID");
}

QString RespectingCase()
{
    return QStringLiteral(" COLLATE BINARY");
}

QString Placeholders(std::size_t count)
{
    if (count == 0)
        return QStringLiteral("NULL");
    QString text(static_cast<qsizetype>(2 * count - 1), QLatin1Char(','));
    for (qsizetype position = 0; position < text.size(); position += 2)
        text[position] = QLatin1Char('?');
    return text;
}

QString ReadSchema()
{
    return QStringLiteral("SELECT count(*) FROM sqlite_master");
}

QStringList AfterKey()
{
    return {
        // The third format is the one that every engine since 3.4 can read; those before 4 ignore this line.
        QStringLiteral("PRAGMA cipher_compatibility = 3"),
        QStringLiteral("PRAGMA cipher_page_size = %1").arg(PageSize),
        QStringLiteral("PRAGMA kdf_iter = %1").arg(KeyDerivationRounds)};
}

QStringList Settings()
{
    return {QStringLiteral("PRAGMA foreign_keys = ON"),
            // The files may lie on a shared folder, where a write-ahead log cannot work.
            QStringLiteral("PRAGMA journal_mode = DELETE"), QStringLiteral("PRAGMA synchronous = FULL"),
            QStringLiteral("PRAGMA temp_store = MEMORY")};
}

QString WaitLessForDisk()
{
    return QStringLiteral("PRAGMA synchronous = NORMAL");
}

QString BeginWriting()
{
    return QStringLiteral("BEGIN IMMEDIATE");
}

QString BeginReading()
{
    return QStringLiteral("BEGIN");
}

QString Prove(bool indexes)
{
    return indexes ? QStringLiteral("PRAGMA integrity_check(1)") : QStringLiteral("PRAGMA quick_check(1)");
}

QString Vacuum()
{
    return QStringLiteral("VACUUM");
}

QString ReadTableNames()
{
    return QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'"
                          " ORDER BY name");
}

QString ReadChangesByOthers()
{
    return QStringLiteral("PRAGMA data_version");
}

QString ReadSchemaVersion()
{
    return QStringLiteral("PRAGMA user_version");
}

QString WriteSchemaVersion(int version)
{
    return QStringLiteral("PRAGMA user_version = %1").arg(version);
}

int ReferenceError()
{
    return SQLITE_CONSTRAINT;
}

int DamagedFile()
{
    return SQLITE_CORRUPT;
}

int FullDisk()
{
    return SQLITE_FULL;
}

int FileInUse()
{
    return SQLITE_BUSY;
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

bool IsLock(int engineCode)
{
    const int primary = engineCode & PrimaryCodeMask;
    return primary == SQLITE_BUSY || primary == SQLITE_LOCKED;
}

bool IsDuplicateKey(int engineCode)
{
    return engineCode == SQLITE_CONSTRAINT_PRIMARYKEY || engineCode == SQLITE_CONSTRAINT_UNIQUE;
}

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
    case SQLITE_CANTOPEN:
        return QStringLiteral("The Database File Could Not Be Opened, Or Its Folder Can Only Be Read");
    case SQLITE_NOTADB:
        return QStringLiteral("This File Is Not A Database Of This Program, Or It Has Another Password");
    case SQLITE_CORRUPT: return QStringLiteral("The Database File Is Damaged");
    case SQLITE_IOERR: return QStringLiteral("The Database File Could Not Be Read Or Written");
    default: return {};
    }
}

} // namespace tally::store::dialect
