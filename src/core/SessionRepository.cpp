#include "core/SessionRepository.h"

namespace tally {

namespace {

std::optional<QString> TextOrNull(const store::Statement& row, int column)
{
    if (row.IsNull(column))
        return std::nullopt;
    return row.Text(column);
}

} // namespace

std::optional<AcademicYear> SessionRepository::ActiveAcademicYear()
{
    auto row = main_.Query(QStringLiteral("SELECT AcademicYearCode, YearFrom, YearTo, FromDate, ToDate"
                                          " FROM AcademicYearSetup WHERE Status = 'Y'"));
    if (!row.Next())
        return std::nullopt;
    return AcademicYear{row.Int(0), row.Int(1), row.Int(2), row.Date(3), row.Date(4)};
}

std::optional<QDate> SessionRepository::LastApplicationDate(int yearCode)
{
    auto row =
        main_.Query(QStringLiteral("SELECT max(d.ApplicationDate) FROM ApplicationDate d, AcademicYearSetup y"
                                   " WHERE y.AcademicYearCode = ?"
                                   " AND d.ApplicationDate BETWEEN y.FromDate AND y.ToDate"),
                    yearCode);
    if (!row.Next() || row.IsNull(0))
        return std::nullopt;
    return row.Date(0);
}

QDate SessionRepository::LastApplicationDate()
{
    auto row = main_.Query(QStringLiteral("SELECT max(ApplicationDate) FROM ApplicationDate"));
    return row.Next() ? row.Date(0) : QDate();
}

std::optional<SchoolDetails> SessionRepository::School()
{
    auto row = main_.Query(
        QStringLiteral("SELECT a.SchoolName, a.SAddress1, a.SAddress2, b.CityName, c.StateName, a.CPinCode"
                       " FROM SchoolMaster a, CityMaster b, StateMaster c"
                       " WHERE b.CityCode = a.CCityCode AND c.StateCode = b.StateCode"));
    if (!row.Next())
        return std::nullopt;
    return SchoolDetails{row.Text(0), row.Text(1), TextOrNull(row, 2), row.Text(3), row.Text(4), row.Text(5)};
}

std::optional<SchoolDetails> SessionRepository::ReportSchool()
{
    auto row = main_.Query(QStringLiteral("SELECT a.SchoolName, a.Address1, a.Address2, b.CityName, a.PinCode"
                                          " FROM SchoolSetUp a, CityMaster b WHERE a.CityCode = b.CityCode"));
    if (!row.Next())
        return std::nullopt;
    return SchoolDetails{row.Text(0), row.Text(1), row.Text(2), row.Text(3), QString(), row.Text(4)};
}

std::optional<StoredOptions> SessionRepository::Options()
{
    auto row =
        main_.Query(QStringLiteral("SELECT ExitPrompt, AdmissionNoAutoGen, DateOfBirthSetting, GenderOption,"
                                   " MarksInFraction, MarksRounded FROM Options"));
    if (!row.Next())
        return std::nullopt;
    StoredOptions options{row.Text(0), row.Text(1), std::nullopt, row.Text(3), row.Text(4), row.Text(5)};
    if (!row.IsNull(2))
        options.dateOfBirthSetting = row.Date(2);
    return options;
}

int SessionRepository::HighestCode(store::Transaction& writing, const QString& column, const QString& table,
                                   int year)
{
    if (year > 0)
        return static_cast<int>(writing.On().Number(
            QStringLiteral("SELECT max(%1) FROM %2 AcademicYearCode = ?").arg(column, table), year));
    static const QLatin1String Dangling(" where ");
    QString clause = table;
    if (clause.endsWith(Dangling, Qt::CaseInsensitive))
        clause.chop(Dangling.size());
    return static_cast<int>(
        writing.On().Number(QStringLiteral("SELECT max(%1) FROM %2").arg(column, clause)));
}

bool SessionRepository::IsNewInstallation()
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM UserPrivilegeMaster")) == 0;
}

bool SessionRepository::HasPrivilege(const QString& formName, Right right, int userCode)
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM UserPrivilegeDetails"
                                       " WHERE FormName = ? AND ButtonName = ? AND UserCode = ?"),
                        formName, QString(LetterOf(right)), userCode) > 0;
}

std::optional<LoginUser> SessionRepository::FindLogin(const QString& loginId, const QString& password)
{
    auto row =
        main_.Query(QStringLiteral("SELECT a.UserCode, b.UserName FROM UserPrivilegeMaster a, UserMaster b"
                                   " WHERE a.LoginId = ? AND a.Password = ? AND a.UserCode = b.UserCode"),
                    loginId, password);
    if (!row.Next())
        return std::nullopt;
    return LoginUser{row.Int(0), row.Text(1)};
}

bool SessionRepository::IsUnblocked(const QString& loginId, const QString& password)
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM UserPrivilegeMaster"
                                       " WHERE LoginId = ? AND Password = ? AND Block = 'N'"),
                        loginId, password) > 0;
}

QStringList SessionRepository::OpenableForms(int userCode)
{
    QStringList names;
    auto rows = main_.Query(
        QStringLiteral("SELECT FormName FROM UserPrivilegeDetails WHERE UserCode = ? AND ButtonName = 'D'"),
        userCode);
    while (rows.Next())
        names.append(rows.Text(0));
    return names;
}

void SessionRepository::WriteStartRows(store::Transaction& transaction, const QDate& today)
{
    transaction.Execute(QStringLiteral("INSERT INTO AccessedDate (AccessedDate) VALUES (?)"), today);
    transaction.Execute(QStringLiteral("DELETE FROM ScreenStatus"));
    transaction.Execute(QStringLiteral("DELETE FROM ExamBoardMaster"));
    transaction.Execute(
        QStringLiteral("INSERT INTO ExamBoardMaster (BoardCode, BoardNo, Status) VALUES (1, 1, 'A')"));
}

void SessionRepository::RefreshPresence(store::Transaction& transaction)
{
    // A row that says so already is not written again: each second's write would wait for the disk, and fail
    // each second on one that is full.
    transaction.Execute(QStringLiteral("UPDATE ExamBoardMaster SET Status = 'A'"
                                       " WHERE BoardCode = 1 AND (Status IS NULL OR Status <> 'A')"));
}

void SessionRepository::RemovePresence(store::Transaction& transaction)
{
    transaction.Execute(QStringLiteral("DELETE FROM ExamBoardMaster WHERE BoardCode = 1"));
}

void SessionRepository::CallRoll(store::Transaction& transaction)
{
    // The row may be missing while clients are there: the one that left last has taken it along.
    transaction.Execute(QStringLiteral("DELETE FROM ExamBoardMaster"));
    transaction.Execute(
        QStringLiteral("INSERT INTO ExamBoardMaster (BoardCode, BoardNo, Status) VALUES (1, 1, '?')"));
}

bool SessionRepository::IsRollAnswered()
{
    return main_.Number(QStringLiteral(
               "SELECT count(*) FROM ExamBoardMaster WHERE BoardCode = 1 AND Status = 'A'")) > 0;
}

void SessionRepository::TakeScreen(store::Transaction& transaction, const QString& screenName)
{
    transaction.Execute(QStringLiteral("INSERT INTO ScreenStatus (Screen) VALUES (?)"), screenName);
}

void SessionRepository::ReleaseScreen(store::Transaction& transaction, const QString& screenName)
{
    transaction.Execute(QStringLiteral("DELETE FROM ScreenStatus WHERE Screen = ?"), screenName);
}

} // namespace tally
