#include "utilities/UserPrivilegeRepository.h"

namespace tally {

namespace {

const FormRight NewPrivileges{QStringLiteral("frmUtilUserPrivileges"), Right::New};
const FormRight OpenTools{QStringLiteral("ToolsMenu"), Right::Open};
const FormRight OpenPrivileges{QStringLiteral("frmUtilUserPrivileges"), Right::Open};

std::set<int> ReadCodes(store::Statement rows)
{
    std::set<int> codes;
    while (rows.Next())
        codes.insert(rows.Int(0));
    return codes;
}

} // namespace

CodedTexts UserPrivilegeRepository::People()
{
    return ReadCodedTexts(
        main_.Query(QStringLiteral("SELECT 0 AS UserCode, ' ' AS UserName FROM UserMaster"
                                   " UNION SELECT UserCode, UserName FROM UserMaster WHERE UserCode > 0"
                                   " ORDER BY UserName")));
}

CodedTexts UserPrivilegeRepository::PeopleWithLogin(int leftOut)
{
    return ReadCodedTexts(
        main_.Query(QStringLiteral("SELECT 0 AS UserCode, ' ' AS UserName FROM UserMaster"
                                   " UNION SELECT a.UserCode, a.UserName FROM UserMaster a"
                                   " JOIN UserPrivilegeMaster b ON a.UserCode = b.UserCode"
                                   " WHERE a.UserCode > 0 AND a.UserCode <> ? AND b.LoginId IS NOT NULL"
                                   " ORDER BY UserName"),
                    leftOut));
}

std::optional<UserPrivileges> UserPrivilegeRepository::Find(int userCode)
{
    auto rows = main_.Query(
        QStringLiteral("SELECT a.LoginId, a.Password, a.Block, a.Days, b.FormName, b.ButtonName"
                       " FROM UserPrivilegeMaster a LEFT JOIN UserPrivilegeDetails b"
                       " ON a.UserCode = b.UserCode WHERE a.UserCode = ? ORDER BY b.FormName, b.ButtonName"),
        userCode);
    std::optional<UserPrivileges> found;
    while (rows.Next()) {
        if (!found)
            found = UserPrivileges{
                {rows.Text(0), rows.Text(1), rows.Text(2) == QLatin1String("Y"), rows.Int(3)}, {}};
        if (!rows.IsNull(4))
            found->rights.push_back({rows.Text(4), static_cast<Right>(rows.FirstLetter(5))});
    }
    return found;
}

bool UserPrivilegeRepository::LoginIdTaken(const QString& loginId, int exceptUser)
{
    return main_.Number(QStringLiteral("SELECT count(*) FROM UserPrivilegeMaster"
                                       " WHERE LoginId = ? AND UserCode <> ?"),
                        loginId, exceptUser) > 0;
}

PrivilegeHolders UserPrivilegeRepository::Holders()
{
    return {
        .anyLogin = main_.Number(QStringLiteral("SELECT count(*) FROM UserMaster a, UserPrivilegeMaster b"
                                                " WHERE a.UserCode = b.UserCode")) > 0,
        .newRights = HoldersOf(NewPrivileges),
        .toolsMenu = HoldersOf(OpenTools),
        .privilegesScreen = HoldersOf(OpenPrivileges),
        .unblocked = ReadCodes(
            main_.Query(QStringLiteral("SELECT UserCode FROM UserPrivilegeMaster WHERE Block = 'N'"))),
    };
}

std::set<int> UserPrivilegeRepository::HoldersOf(const FormRight& right)
{
    return ReadCodes(
        main_.Query(QStringLiteral("SELECT a.UserCode FROM UserPrivilegeDetails a, UserPrivilegeMaster b"
                                   " WHERE a.FormName = ? AND a.ButtonName = ? AND a.UserCode = b.UserCode"),
                    right.formName, QString(LetterOf(right.right))));
}

PrivilegeCopy UserPrivilegeRepository::ReadCopy(int fromUser, int toUser)
{
    const auto source = Find(fromUser);
    const auto target = Find(toUser);
    return {
        .fromUser = fromUser,
        .toUser = toUser,
        .sourceHasRights = source && !source->rights.empty(),
        .targetHasLogin = target.has_value(),
        .targetHasRights = target && !target->rights.empty(),
    };
}

void UserPrivilegeRepository::Insert(store::Transaction& transaction, int userCode, const UserLogin& login,
                                     const std::vector<FormRight>& rights, int enteredBy)
{
    transaction.Execute(
        QStringLiteral("INSERT INTO UserPrivilegeMaster (UserCode, LoginId, Password, Block, EnteredBy, Days)"
                       " VALUES (?, ?, ?, ?, ?, ?)"),
        userCode, login.loginId, login.password, login.blocked ? "Y" : "N", enteredBy, login.days);
    store::Statement insert = transaction.Prepare(
        QStringLiteral("INSERT INTO UserPrivilegeDetails (FormName, ButtonName, UserCode) VALUES (?, ?, ?)"));
    for (const FormRight& right : rights)
        insert.Run(right.formName, QString(LetterOf(right.right)), userCode);
}

void UserPrivilegeRepository::Delete(store::Transaction& transaction, int userCode)
{
    transaction.Execute(QStringLiteral("DELETE FROM UserPrivilegeDetails WHERE UserCode = ?"), userCode);
    transaction.Execute(QStringLiteral("DELETE FROM UserPrivilegeMaster WHERE UserCode = ?"), userCode);
}

void UserPrivilegeRepository::CopyRights(store::Transaction& transaction, int fromUser, int toUser)
{
    transaction.Execute(QStringLiteral("DELETE FROM UserPrivilegeDetails WHERE UserCode = ?"), toUser);
    transaction.Execute(
        QStringLiteral(
            "INSERT INTO UserPrivilegeDetails (FormName, ButtonName, UserCode)"
            " SELECT b.FormName, b.ButtonName, ? FROM UserPrivilegeMaster a, UserPrivilegeDetails b"
            " WHERE a.UserCode = b.UserCode AND a.UserCode = ?"),
        toUser, fromUser);
}

PrivilegeFault SavePrivileges(store::Transaction& transaction, const PrivilegeChange& change,
                              const UserLogin& login, const std::optional<UserPrivileges>& found,
                              int enteredBy)
{
    UserPrivilegeRepository stored(transaction.On());
    const auto present = stored.Find(change.userCode);
    if (present != found)
        return found ? PrivilegeFault::ChangedMeanwhile : PrivilegeFault::AlreadyExists;
    if (stored.LoginIdTaken(login.loginId, change.userCode))
        return PrivilegeFault::LoginIdTaken;
    const PrivilegeFault fault = FaultOfGuard(stored.Holders(), change);
    if (fault != PrivilegeFault::None)
        return fault;
    if (found)
        UserPrivilegeRepository::Delete(transaction, change.userCode);
    UserPrivilegeRepository::Insert(transaction, change.userCode, login, RightsOf(change.lines), enteredBy);
    return PrivilegeFault::None;
}

CopyFault CopyPrivileges(store::Transaction& transaction, int fromUser, int toUser, bool replaces)
{
    UserPrivilegeRepository stored(transaction.On());
    PrivilegeCopy copy = stored.ReadCopy(fromUser, toUser);
    copy.replaces = replaces;
    const CopyFault fault = FaultOfCopy(stored.Holders(), copy);
    if (fault == CopyFault::None)
        UserPrivilegeRepository::CopyRights(transaction, fromUser, toUser);
    return fault;
}

} // namespace tally
