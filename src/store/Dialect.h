#pragma once

#include "store/StoreError.h"

#include <QString>
#include <QStringList>

#include <cstddef>

/// All that only this engine understands. Every other statement of the program is one that a server would
/// take as well, so that a school may move to one: names are bare or in double quotes, texts in single ones,
/// placeholders are `?` or `:Name`, and what a list groups by stands in its GROUP BY.
namespace tally::store::dialect {

// Kinds of columns. A text compares without case, in keys and orders too, as the office expects of names.

QString WholeNumber();
QString DecimalNumber();
/// A text of about `width` letters; the width itself is held by a check, see TextFits.
QString ShortText(int width);
QString LongText();
QString Day();

/// That a text has no more letters than `width`.
QString TextFits(const QString& column, int width);
/// That a date is ISO text, and a day of the calendar.
QString IsDay(const QString& column);
/// Behind the columns of a table: its rows lie in the order of its key.
QString InOrderOfKey();

// Parts of statements

/// Behind one side of a comparison of texts that tells small letters from capitals.
QString RespectingCase();
/// "?,?,?" for `count` values in brackets; for none "NULL", which nothing equals.
QString Placeholders(std::size_t count);

// The run of a connection

/// Reads the list of tables, which proves that the file is a database and that the password fits.
QString ReadSchema();
/// What a connection with a password runs before all else.
QStringList AfterKey();
/// What every connection runs once.
QStringList Settings();
/// For a file whose tables are made anew whenever they are needed: fewer waits for the disk.
QString WaitLessForDisk();

/// Takes the write lock at once, so that two clients queue; upgrading a read lock later could only fail.
QString BeginWriting();
QString BeginReading();

/// Reads the whole file and gives "ok" or what is wrong with it first; see Connection::Prove.
QString Prove(bool indexes);
/// Writes the file anew without its gaps.
QString Vacuum();
/// The names of the tables that the program itself has made.
QString ReadTableNames();

/// A number that changes with every commit of another connection.
QString ReadChangesByOthers();
/// The version of the tables, which lies in the file itself; 0 where none was ever set.
QString ReadSchemaVersion();
/// Part of the transaction it is run in.
QString WriteSchemaVersion(int version);

// What the numbers of the engine's errors mean

/// For a row that another client has deleted: the number that a broken reference has.
int ReferenceError();
/// For a file that opens and yet is not whole.
int DamagedFile();
/// For a copy that the disk has no room for.
int FullDisk();
/// For work that another client's save has come between.
int FileInUse();
ErrorKind KindOf(int engineCode, const QString& engineText);
bool IsLock(int engineCode);
bool IsDuplicateKey(int engineCode);
/// Words for the office. Empty where the engine's own words are all there is to say.
QString PlainWords(int engineCode);

} // namespace tally::store::dialect
