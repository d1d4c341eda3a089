#pragma once

#include "core/Right.h"
#include "store/Transaction.h"

#include <QDate>
#include <QList>
#include <QString>

#include <optional>

namespace tally {

struct AcademicYear
{
    int code = 0;
    int yearFrom = 0;
    int yearTo = 0;
    QDate fromDate;
    QDate toDate;
};

struct SchoolDetails
{
    QString name;
    QString address1;
    std::optional<QString> address2; ///< unset where the store holds Null
    QString city;
    QString state; ///< empty for the report head
    QString pinCode;
};

/// The row of Options in the main file. Flags are "Y", "N" or empty, as stored.
struct StoredOptions
{
    QString exitPrompt;
    QString admissionNoAutoGen;
    std::optional<QDate> dateOfBirthSetting; ///< unset where Null, invalid where blank or unreadable
    QString genderOption;
    QString marksInFraction;
    QString marksRounded;
};

struct LoginUser
{
    int code = 0;
    QString name;
};

/// Every statement that the start, the login, the main window and the shared routines run.
class SessionRepository
{
public:
    explicit SessionRepository(store::Connection& main) : main_(main) {}

    std::optional<AcademicYear> ActiveAcademicYear();
    std::optional<QDate> LastApplicationDate(int yearCode);
    /// The last working date of all years; invalid when there is none.
    QDate LastApplicationDate();
    std::optional<SchoolDetails> School();
    std::optional<SchoolDetails> ReportSchool();
    std::optional<StoredOptions> Options();
    /// Of a table in the file that is written, whichever that is; 0 in an empty table. With `year` above 0
    /// only that academic year counts, and `table` ends in " where "; that ending is dropped for year 0.
    static int HighestCode(store::Transaction& writing, const QString& column, const QString& table,
                           int year);

    /// True until the first login has been created.
    bool IsNewInstallation();
    bool HasPrivilege(const QString& formName, Right right, int userCode);
    std::optional<LoginUser> FindLogin(const QString& loginId, const QString& password);
    bool IsUnblocked(const QString& loginId, const QString& password);
    /// The form and group names that the user may open.
    QStringList OpenableForms(int userCode);

    /// One line in the log of starts, no screen held by anybody, this client present.
    void WriteStartRows(store::Transaction& transaction, const QDate& today);
    void RefreshPresence(store::Transaction& transaction);
    void RemovePresence(store::Transaction& transaction);
    /// Asks who is there: each client that works with the school answers within about a second, through
    /// RefreshPresence.
    void CallRoll(store::Transaction& transaction);
    /// Whether a client has answered since.
    bool IsRollAnswered();

    /// Enters a screen among those in use; a general failure when another client has it open.
    void TakeScreen(store::Transaction& transaction, const QString& screenName);
    void ReleaseScreen(store::Transaction& transaction, const QString& screenName);

private:
    store::Connection& main_;
};

} // namespace tally
