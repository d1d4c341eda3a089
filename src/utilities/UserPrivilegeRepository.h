#pragma once

#include "core/CodedTexts.h"
#include "store/Transaction.h"
#include "utilities/PrivilegeGuards.h"
#include "utilities/PrivilegeTree.h"

#include <QString>

#include <optional>
#include <vector>

namespace tally {

/// With what a person logs in, and how far back he may work.
struct UserLogin
{
    QString loginId;
    QString password;
    bool blocked = false;
    int days = 0; ///< 0 to 365; 0 lets him work on the last working day only

    bool operator==(const UserLogin&) const = default;
};

/// All that is stored of a person who can log in.
struct UserPrivileges
{
    UserLogin login;
    std::vector<FormRight> rights; ///< by form and right

    bool operator==(const UserPrivileges&) const = default;
};

/// Every statement on logins and rights. Throws StoreError.
class UserPrivilegeRepository
{
public:
    /// `main` must outlive the repository.
    explicit UserPrivilegeRepository(store::Connection& main) : main_(main) {}

    /// All people, by name, behind a blank line.
    CodedTexts People();
    /// Those who have a login, but for the person `leftOut`; behind a blank line.
    CodedTexts PeopleWithLogin(int leftOut);

    /// Nothing for a person without a login.
    std::optional<UserPrivileges> Find(int userCode);
    /// Small and capital letters are the same at the login too.
    bool LoginIdTaken(const QString& loginId, int exceptUser);
    PrivilegeHolders Holders();
    /// What a copy of the rights has to know of the two.
    PrivilegeCopy ReadCopy(int fromUser, int toUser);

    static void Insert(store::Transaction& transaction, int userCode, const UserLogin& login,
                       const std::vector<FormRight>& rights, int enteredBy);
    static void Delete(store::Transaction& transaction, int userCode);
    /// The target has the rights of the source then, and no others.
    static void CopyRights(store::Transaction& transaction, int fromUser, int toUser);

private:
    std::set<int> HoldersOf(const FormRight& right);

    store::Connection& main_;
};

/// Stores a login with the rights of `change`, unless something speaks against it; then nothing is written.
/// `found` is what the clerk was shown of it before, nothing for a new one. All is looked at within the
/// transaction: two who take the right to give rights from each other at one moment would lock all out.
PrivilegeFault SavePrivileges(store::Transaction& transaction, const PrivilegeChange& change,
                              const UserLogin& login, const std::optional<UserPrivileges>& found,
                              int enteredBy);

/// Gives one user the rights of another, unless something speaks against it or is to be asked before; then
/// nothing is written. `replaces`: the clerk has agreed to replace the target's rights.
CopyFault CopyPrivileges(store::Transaction& transaction, int fromUser, int toUser, bool replaces);

} // namespace tally
