#include "support/KilledSchool.h"
#include "utilities/UserPrivilegeRepository.h"

namespace tally::test {
namespace {

const std::set<int> ManagingLines(PrivilegeLine::Managing.begin(), PrivilegeLine::Managing.end());
constexpr const char* LoginsAndRights =
    "SELECT a.UserCode, LoginId, Password, Block, Days, FormName, ButtonName"
    " FROM UserPrivilegeMaster a LEFT JOIN UserPrivilegeDetails b"
    " ON a.UserCode = b.UserCode ORDER BY a.UserCode, FormName, ButtonName";

class UserPrivilegeKill : public KilledSchool
{
protected:
    void LayTwoUsers()
    {
        Lay(0, [](store::Transaction& transaction) {
            for (const int code : {11, 12}) {
                transaction.Execute(QStringLiteral("INSERT INTO UserMaster (UserCode, UserName, EnteredBy)"
                                                   " VALUES (?, 'Someone', 0)"),
                                    code);
                const UserLogin login{QStringLiteral("user%1").arg(code), QStringLiteral("x"), false, 0};
                SavePrivileges(transaction, {code, false, ManagingLines}, login, {}, 0);
            }
        });
    }
};

TEST_F(UserPrivilegeKill, ALoginWithItsRightsIsTheOldOneOrTheNewOne)
{
    LayTwoUsers();
    ExpectWhole(
        [](store::Transaction& transaction) {
            const auto found = UserPrivilegeRepository(transaction.On()).Find(12);
            const UserLogin login{QStringLiteral("another"), QStringLiteral("y"), true, 30};
            EXPECT_EQ(SavePrivileges(transaction, {12, true, {1, 2, 3, 81}}, login, found, 11),
                      PrivilegeFault::None);
        },
        RowsOf(LoginsAndRights));
}

TEST_F(UserPrivilegeKill, CopiedRightsAreAllThereOrTheOldOnesAre)
{
    LayTwoUsers();
    ExpectWhole(
        [](store::Transaction& transaction) {
            transaction.Execute(QStringLiteral("UPDATE UserPrivilegeDetails SET FormName = 'Masters'"
                                               " WHERE UserCode = 12 AND ButtonName = 'E'"));
            EXPECT_EQ(CopyPrivileges(transaction, 12, 11, true), CopyFault::None);
        },
        RowsOf(LoginsAndRights));
}

} // namespace
} // namespace tally::test
