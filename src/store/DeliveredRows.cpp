#include "store/DeliveredRows.h"

#include "store/HelpTexts.h"

namespace tally::store {

namespace {

/// Parents stand before the rows that point at them. Dates and years that nobody chose are Null, so that the
/// lowest and highest year of the school are those of its real years.
void InsertNotChosenRows(Transaction& transaction)
{
    const char* const rows[] = {
        "StateMaster VALUES (0, '', 0)",
        "CityMaster VALUES (0, 0, '', 0)",
        "BloodGroupMaster VALUES (0, '', 0)",
        "SubjectMaster VALUES (0, '', '', 0)",
        // There is no salutation with the code 0 to point at.
        "TeacherMaster VALUES (0, NULL, '', '', NULL, '', NULL, NULL, '', '', '', 0, '', '', 0, '', 0)",
        "UserMaster VALUES (0, '', 0)",
        "ClassDivisionMaster VALUES (0, '', 0, 0, 0)",
        "AcademicYearSetup VALUES (0, NULL, NULL, NULL, NULL, 'N', 'N', 0)",
        ("StudentMaster VALUES (0, 0, '', NULL, 0, '', '', '', '', '', 0, '', '', '', NULL, 0, '', NULL, '', "
         "'', NULL, 0)"),
    };
    for (const char* row : rows)
        transaction.Execute(QStringLiteral("INSERT INTO ") + QLatin1String(row));
}

void InsertMonths(Transaction& transaction)
{
    const char* const months[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                  "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    Statement insert = transaction.Prepare(QStringLiteral("INSERT INTO MonthMaster VALUES (?, ?, ?)"));
    int number = 0;
    for (const char* month : months) {
        ++number;
        insert.Run(number, month, number);
    }
}

} // namespace

void InsertDeliveredMainRows(Transaction& transaction)
{
    InsertNotChosenRows(transaction);
    InsertMonths(transaction);
    transaction.Execute(QStringLiteral("INSERT INTO MRCODE VALUES ('TALLYBOARD')"));
}

void InsertDeliveredHelpRows(Transaction& transaction)
{
    Statement insert = transaction.Prepare(QStringLiteral("INSERT INTO Tallyboarddetails VALUES (?, ?, ?)"));
    for (const HelpText& text : HelpTexts())
        insert.Run(text.screenNumber, text.screenName, text.details);
}

} // namespace tally::store
