#include "store/DeliveredRows.h"

#include "store/HelpTexts.h"

namespace tally::store {

namespace {

/// Parents stand before the rows that point at them. Dates and years that nobody chose are Null, so that the
/// lowest and highest year of the school are those of its real years.
void InsertNotChosenRows(Transaction& transaction)
{
    const char* const rows[] = {
        "StateMaster (StateCode, StateName, UserCode) VALUES (0, '', 0)",
        "CityMaster (CityCode, StateCode, CityName, UserCode) VALUES (0, 0, '', 0)",
        "BloodGroupMaster (BloodGroupCode, BloodGroupName, UserCode) VALUES (0, '', 0)",
        "SubjectMaster (SubjectCode, SubjectName, SubjectShortName, UserCode) VALUES (0, '', '', 0)",
        // There is no salutation with the code 0 to point at.
        "TeacherMaster (TeacherCode, SalutationCode, TeacherName, TeacherShortName, DOB, MaritalStatus, "
        "WeddingDate, JoiningDate, FHName, Address1, Address2, CityCode, PinCode, Telephone, BloodGroupCode, "
        "Qualification, UserCode) VALUES (0, NULL, '', '', NULL, '', NULL, NULL, '', '', '', 0, '', '', 0, "
        "'', 0)",
        "UserMaster (UserCode, UserName, EnteredBy) VALUES (0, '', 0)",
        "ClassDivisionMaster (ClassCode, ClassName, NoOfDivisions, ClassOrder, UserCode) VALUES (0, '', 0, "
        "0, 0)",
        "AcademicYearSetup (AcademicYearCode, YearFrom, YearTo, FromDate, ToDate, Status, Processed, "
        "UserCode) VALUES (0, NULL, NULL, NULL, NULL, 'N', 'N', 0)",
        ("StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo, AdmissionDate, AcademicYearCode, "
         "StudentName, FgName, Sex, Address1, Address2, CityCode, Pincode, Telephone, Email, DOB, "
         "BloodGroupCode, ManGenAutoGen, RelievingDate, RelievingReason, TCNo, TCDate, UserCode) VALUES (0, "
         "0, '', NULL, 0, '', '', '', '', '', 0, '', '', '', NULL, 0, '', NULL, '', '', NULL, 0)"),
    };
    for (const char* row : rows)
        transaction.Execute(QStringLiteral("INSERT INTO ") + QLatin1String(row));
}

void InsertMonths(Transaction& transaction)
{
    const char* const months[] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                  "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    Statement insert = transaction.Prepare(
        QStringLiteral("INSERT INTO MonthMaster (MonthSlNo, MonthShortName, MonthCode) VALUES (?, ?, ?)"));
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
    transaction.Execute(QStringLiteral("INSERT INTO MRCODE (MRCODE) VALUES ('TALLYBOARD')"));
}

void InsertDeliveredHelpRows(Transaction& transaction)
{
    Statement insert = transaction.Prepare(
        QStringLiteral("INSERT INTO Tallyboarddetails (Scrno, ScreenName, Details) VALUES (?, ?, ?)"));
    for (const HelpText& text : HelpTexts())
        insert.Run(text.screenNumber, text.screenName, text.details);
}

} // namespace tally::store
