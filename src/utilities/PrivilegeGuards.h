#pragma once

#include <QString>

#include <set>

namespace tally {

/// Which logins can do what, as it is stored, by the codes of their users.
struct PrivilegeHolders
{
    bool anyLogin = false;          ///< someone can log in already
    std::set<int> newRights;        ///< may make entries on the screen of privileges
    std::set<int> toolsMenu;        ///< may open the menu in which it stands
    std::set<int> privilegesScreen; ///< may open it there
    std::set<int> unblocked;        ///< are not blocked

    /// All three of these rights, without which nobody can give any.
    bool MayGiveRights(int user) const;
    /// Those who may and are not blocked.
    std::set<int> Managers() const;
};

/// A login with its rights as it is about to be stored.
struct PrivilegeChange
{
    int userCode = 0;
    bool blocked = false;
    std::set<int> lines; ///< the ticked lines of the tree
};

/// Why a login cannot be stored.
enum class PrivilegeFault
{
    None,
    AlreadyExists,    ///< a new login for a user who has one
    ChangedMeanwhile, ///< what is stored is not what the clerk was shown
    LoginIdTaken,
    AllBlocked,
    NobodyManages,
};

/// What the user is told of it; empty for None.
QString TextOf(PrivilegeFault fault);

/// Keeps an installation from locking itself out: someone who is not blocked must be left who can give
/// rights. The first login must be such a one. Afterwards a login is looked at that alone has one of the
/// rights for it, or that is the only one not blocked while several have it, or that alone can give rights.
PrivilegeFault FaultOfGuard(const PrivilegeHolders& stored, const PrivilegeChange& change);

/// What is stored of two users when the rights of one are copied to the other.
struct PrivilegeCopy
{
    int fromUser = 0;
    int toUser = 0;
    bool sourceHasRights = false; ///< and a login
    bool targetHasLogin = false;
    bool targetHasRights = false;
    bool replaces = false; ///< the clerk has agreed to replace the rights of the target
};

/// Why rights cannot be copied.
enum class CopyFault
{
    None,
    SourceWithoutRights,
    TargetWithoutLogin,
    WouldReplace, ///< no refusal yet: the clerk has to be asked
    NobodyManages,
    TakesLastManager,
};

/// What the clerk is told of it, or asked; empty for None.
QString TextOf(CopyFault fault, const QString& fromName, const QString& toName);

CopyFault FaultOfCopy(const PrivilegeHolders& stored, const PrivilegeCopy& copy);

} // namespace tally
