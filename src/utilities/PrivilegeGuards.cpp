#include "utilities/PrivilegeGuards.h"

#include "utilities/PrivilegeTree.h"

#include <algorithm>

namespace tally {

namespace {

/// The ticked lines let a user reach the screen of privileges and work in it.
bool LetManage(const std::set<int>& lines)
{
    return std::all_of(PrivilegeLine::Managing.begin(), PrivilegeLine::Managing.end(),
                       [&lines](int line) { return lines.contains(line); });
}

/// Whether the holders of a right hang on the login that is to be changed.
bool HangOn(const PrivilegeChange& change, const std::set<int>& holders, const std::set<int>& unblocked)
{
    const std::set alone{change.userCode};
    if (holders.size() == 1)
        return holders == alone;
    return holders.size() > 1 && unblocked == alone;
}

} // namespace

bool PrivilegeHolders::MayGiveRights(int user) const
{
    return newRights.contains(user) && toolsMenu.contains(user) && privilegesScreen.contains(user);
}

std::set<int> PrivilegeHolders::Managers() const
{
    std::set<int> managers;
    for (const int user : unblocked)
        if (MayGiveRights(user))
            managers.insert(user);
    return managers;
}

QString TextOf(PrivilegeFault fault)
{
    switch (fault) {
    case PrivilegeFault::None: break;
    case PrivilegeFault::AlreadyExists:
        return QStringLiteral("Privilege Already Exists To This User. Do You Want To View The Details ?");
    case PrivilegeFault::ChangedMeanwhile:
        return QStringLiteral("Privileges Of This User Were Changed By Another User Meanwhile.\n"
                              "You Cannot Save This Data.");
    case PrivilegeFault::LoginIdTaken: return QStringLiteral("Login ID Already Exists");
    case PrivilegeFault::AllBlocked: return QStringLiteral("All The Users Cannot Be Blocked");
    case PrivilegeFault::NobodyManages:
        return QStringLiteral("Atleast One User Should Have Privilege To 'Utility Privilege' Menu");
    }
    return {};
}

PrivilegeFault FaultOfGuard(const PrivilegeHolders& stored, const PrivilegeChange& change)
{
    const bool isGuarded = !stored.anyLogin || HangOn(change, stored.newRights, stored.unblocked) ||
                           HangOn(change, stored.toolsMenu, stored.unblocked) ||
                           stored.Managers() == std::set{change.userCode};
    if (!isGuarded)
        return PrivilegeFault::None;
    if (change.blocked)
        return PrivilegeFault::AllBlocked;
    return LetManage(change.lines) ? PrivilegeFault::None : PrivilegeFault::NobodyManages;
}

QString TextOf(CopyFault fault, const QString& fromName, const QString& toName)
{
    switch (fault) {
    case CopyFault::None: break;
    case CopyFault::SourceWithoutRights: return QStringLiteral("No Privilege Exists For ") + fromName;
    case CopyFault::TargetWithoutLogin: return QStringLiteral("Login Not Created For ") + toName;
    case CopyFault::WouldReplace:
        return QStringLiteral("Privilege Already Exists For %1.Do You Want To Replace The Existing "
                              "Privilege ?")
            .arg(toName);
    case CopyFault::NobodyManages:
        return QStringLiteral("Selected USer Doesnot Have Any Privilege To Transfer");
    case CopyFault::TakesLastManager:
        return QStringLiteral("Atleast One User Should Have Privilege To Work Cannot Able To Tansfer");
    }
    return {};
}

CopyFault FaultOfCopy(const PrivilegeHolders& stored, const PrivilegeCopy& copy)
{
    if (!copy.sourceHasRights)
        return CopyFault::SourceWithoutRights;
    if (!copy.targetHasLogin)
        return CopyFault::TargetWithoutLogin;
    if (copy.targetHasRights && !copy.replaces)
        return CopyFault::WouldReplace;
    if (stored.newRights.empty())
        return CopyFault::NobodyManages;
    const std::set target{copy.toUser};
    if (stored.newRights == target || (stored.Managers() == target && !stored.MayGiveRights(copy.fromUser)))
        return CopyFault::TakesLastManager;
    return CopyFault::None;
}

} // namespace tally
