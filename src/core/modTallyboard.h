#pragma once

#include "core/Right.h"
#include "store/Transaction.h"

#include <QDate>
#include <QString>

namespace tally {

/// The routines that every screen calls, as far as they need no window. They read and fill Session() and
/// throw StoreError when a statement fails.

/// The full path of the main database.
QString MainFile();

/// Builds the database password and opens both shared connections in the program's folder; a main file of an
/// older program is upgraded first. Throws StoreError and leaves both closed when one of them can't be used.
void OpenConnections();
/// Opens the main database anew after work on its file closed it. Throws StoreError and leaves it closed when
/// it can't be used.
void OpenMainAgain();

/// Fills the year's values from the active academic year; without one only gblnActiveYearExists changes.
void GetActiveAcademicYear();
/// The same, and says that the year has a working date when a year was found.
void LoadActiveAcademicYear();
/// The last working date within the year `yearCode`. Without one the date in hand stays.
void LoadApplicationDate(int yearCode);
/// School name, address and city for screens and rank cards.
void LoadSchoolDetails();
/// School texts for the head of text reports, from a table of their own that only a delivery fills.
void LoadReportSchoolDetails();
/// Defaults for a new student: date of birth limit and gender.
void LoadOptions();

/// The highest code of `column` in `table` plus one, in the file that the transaction saves in; 1 in an empty
/// table. With `year` above 0 only that academic year counts, and `table` then ends in " where ".
int GetNextCode(store::Transaction& saving, const QString& column, const QString& table, int year);

/// Whether the user has the right on form `formName`. Before the first login was created everything is
/// allowed. On a refusal the text for the user is in gstrPrivilegeMessage; for Right::Open, which has none,
/// the text of the refusal before stays.
[[nodiscard]] bool CheckPrivilege(const QString& formName, Right right);

/// How dates are shown everywhere: "05/Jun/2024"; empty for no date.
QString ShownDate(const QDate& date);
/// The day that ShownDate gave this text for; invalid for any other text.
QDate DateShown(const QString& shown);

} // namespace tally
