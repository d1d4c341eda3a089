#pragma once

#include "store/Connection.h"

#include <QDate>
#include <QString>

#include <memory>

namespace tally {

/// The values of the running session. There is one interface thread, and every screen reads them there.
/// Codes are 0 while nothing is known; texts are empty; dates are invalid where the office says "no date".
struct SessionContext
{
    std::unique_ptr<store::Connection> gcnnMain; ///< Tallyboard.mdb, open from the splash until Close
    std::unique_ptr<store::Connection> gcnnTemp; ///< TempTallyboard.mdb, open from the splash to the end
    int gintAcademicYearCode = 0;                ///< the year that all screens work in
    int gintYearFrom = 0;
    int gintYearTo = 0;
    QString gstrReportSchoolName; ///< the head of text reports
    QString gstrReportSchoolAddress;
    QString gstrReportSchoolCity;
    int gintPrivilegeUserCode = 0;  ///< whose rights CheckPrivilege looks up
    bool gblnPrivilege = false;     ///< the result of the last CheckPrivilege
    bool gblnPromptOnExit = false;  ///< ask before a screen closes
    bool gblnAutoGenerate = false;  ///< admission numbers are generated
    bool gblnFractionMarks = false; ///< marks may have decimals
    bool gblnRoundedMarks = false;  ///< marks are rounded in reports
    int gintUserCode = 0;           ///< written into saved rows
    QString gstrUserName;
    QString gstrMainCaption;
    int glngScreenNo = 0; ///< the help number of the screen that called help
    QString gstrLoginId;  ///< as typed
    QString gstrPassword; ///< as typed
    bool gblnCalledFromSearch = false;
    QString gvarDefaultDOB;    ///< "dd/MMM/yyyy", empty, or "Null" where the stored date is blank
    QString gstrDefaultGender; ///< "M", "F", "A" or empty
    bool gblnSchoolExists = false;
    bool gblnMenusLocked = false; ///< a screen that must be alone on this client is open
    QDate gdtmFromDate;
    QDate gdtmToDate;
    QDate gdtmApplicationDate;    ///< the working date; invalid when there is none
    QString gstrPrivilegeMessage; ///< the text of the last refusal
    QString gstrTempPath;         ///< the hidden folder for pictures and movies
    bool gblnActiveYearExists = false;
    bool gblnApplicationDateExists = false;
    QString gstrSchoolName;
    QString gstrSchoolAddress;
    QString gstrSchoolCity;
    QString gstrDatabasePassword1;
    QString gstrDatabasePassword2;
    QString gstrDatabasePassword3;
    QString gstrDatabasePassword4;
};

/// The one session of this process.
SessionContext& Session();

/// The session's two databases. Throw StoreError while they are closed.
store::Connection& MainStore();
store::Connection& TempStore();

} // namespace tally
