#include "utilities/UserPrivilegeRepository.h"

#include "store/StoreError.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

using Fault = PrivilegeFault;

const std::set<int> ManagingLines(PrivilegeLine::Managing.begin(), PrivilegeLine::Managing.end());

class UserPrivilegeRepositoryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const auto& [code, name] : {std::pair(1, "Meena"), std::pair(2, "arun"), std::pair(3, "Bala")})
            main.Execute(QStringLiteral("INSERT INTO UserMaster (UserCode, UserName, EnteredBy)"
                                        " VALUES (?, ?, 0)"),
                         code, name);
    }

    static UserLogin Login(const char* id, bool blocked = false)
    {
        return {QString::fromLatin1(id), QStringLiteral("Secret"), blocked, 7};
    }
    Fault Save(int userCode, const UserLogin& login, const std::set<int>& lines,
               const std::optional<UserPrivileges>& found = {})
    {
        store::Transaction transaction(main);
        const PrivilegeChange change{userCode, login.blocked, lines};
        const Fault fault = SavePrivileges(transaction, change, login, found, 9);
        transaction.Commit();
        return fault;
    }
    Fault Edit(int userCode, const UserLogin& login, const std::set<int>& lines)
    {
        return Save(userCode, login, lines, Privileges().Find(userCode));
    }
    CopyFault Copy(int from, int to, bool replaces = false)
    {
        store::Transaction transaction(main);
        const CopyFault fault = CopyPrivileges(transaction, from, to, replaces);
        transaction.Commit();
        return fault;
    }
    UserPrivilegeRepository Privileges() { return UserPrivilegeRepository(main); }
    std::set<int> LinesOfUser(int userCode)
    {
        const auto stored = Privileges().Find(userCode);
        return stored ? LinesOf(stored->rights) : std::set{-1};
    }
    qint64 Rows(const char* tableAndCondition)
    {
        return main.Number(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(tableAndCondition));
    }

    store::Connection main = DeliveredMainStore();
};

TEST_F(UserPrivilegeRepositoryTest, PeopleComeByNameBehindABlankLine)
{
    EXPECT_EQ(Privileges().People(), (CodedTexts{{0, QStringLiteral(" ")},
                                                 {2, QStringLiteral("arun")},
                                                 {3, QStringLiteral("Bala")},
                                                 {1, QStringLiteral("Meena")}}));
}

TEST_F(UserPrivilegeRepositoryTest, PeopleWithALoginComeWithoutTheOneWhoIsLeftOut)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    ASSERT_EQ(Save(3, Login("three"), {}), Fault::None);
    EXPECT_EQ(
        Privileges().PeopleWithLogin(0),
        (CodedTexts{{0, QStringLiteral(" ")}, {3, QStringLiteral("Bala")}, {1, QStringLiteral("Meena")}}));
    EXPECT_EQ(Privileges().PeopleWithLogin(3),
              (CodedTexts{{0, QStringLiteral(" ")}, {1, QStringLiteral("Meena")}}));
    main.Execute(QStringLiteral("UPDATE UserPrivilegeMaster SET LoginId = NULL WHERE UserCode = 1"));
    EXPECT_EQ(Privileges().PeopleWithLogin(3), (CodedTexts{{0, QStringLiteral(" ")}}));
}

TEST_F(UserPrivilegeRepositoryTest, ALoginComesBackAsItWasSaved)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    ASSERT_EQ(Save(2, {QStringLiteral("Two"), QStringLiteral("a B.c"), true, 365}, {3, 81, 109, 110}),
              Fault::None);
    const auto stored = Privileges().Find(2);
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->login, (UserLogin{QStringLiteral("Two"), QStringLiteral("a B.c"), true, 365}));
    EXPECT_EQ(LinesOf(stored->rights), (std::set{3, 81, 109, 110}));
    EXPECT_EQ(Rows("UserPrivilegeMaster WHERE UserCode = 2 AND Block = 'Y' AND EnteredBy = 9"), 1);
    EXPECT_EQ(Rows("UserPrivilegeDetails WHERE UserCode = 2"), 4);
    EXPECT_EQ(Rows("UserPrivilegeDetails WHERE UserCode = 2 AND FormName = 'frmMasStateMaster'"
                   " AND ButtonName = 'N'"),
              1);
    EXPECT_FALSE(Privileges().Find(3));
}

TEST_F(UserPrivilegeRepositoryTest, ALoginWithoutRightsIsOneAllTheSame)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    ASSERT_EQ(Save(2, Login("two"), {}), Fault::None);
    ASSERT_TRUE(Privileges().Find(2));
    EXPECT_TRUE(Privileges().Find(2)->rights.empty());
}

TEST_F(UserPrivilegeRepositoryTest, AnEditReplacesLoginAndRightsOfThatUserOnly)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    ASSERT_EQ(Save(2, Login("two"), {1, 2, 3}), Fault::None);
    ASSERT_EQ(Edit(2, Login("second", true), {3, 4}), Fault::None);
    EXPECT_EQ(Privileges().Find(2)->login, Login("second", true));
    EXPECT_EQ(LinesOfUser(2), (std::set{3, 4}));
    EXPECT_EQ(LinesOfUser(1), ManagingLines);
    EXPECT_EQ(Rows("UserPrivilegeMaster"), 2);
}

TEST_F(UserPrivilegeRepositoryTest, ALoginIdIsTakenInSmallAndCapitalLetters)
{
    ASSERT_EQ(Save(1, Login("Office"), ManagingLines), Fault::None);
    EXPECT_TRUE(Privileges().LoginIdTaken(QStringLiteral("oFFICE"), 2));
    EXPECT_FALSE(Privileges().LoginIdTaken(QStringLiteral("oFFICE"), 1));
    EXPECT_FALSE(Privileges().LoginIdTaken(QStringLiteral("Of fice"), 2));
    EXPECT_EQ(Save(2, Login("OFFICE"), {}), Fault::LoginIdTaken);
    EXPECT_EQ(Edit(1, Login("OFFICE"), ManagingLines), Fault::None);
    EXPECT_FALSE(Privileges().Find(2));
}

TEST_F(UserPrivilegeRepositoryTest, ANewLoginOfWhoHasOneMeanwhileIsNotWritten)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    ASSERT_EQ(Save(2, Login("two"), {}), Fault::None);
    EXPECT_EQ(Save(1, Login("again"), {}), Fault::AlreadyExists);
    EXPECT_EQ(Save(1, Login("two"), {}), Fault::AlreadyExists) << "before it is looked whose the name is";
    EXPECT_EQ(Privileges().Find(1)->login.loginId.toStdString(), "one");
}

TEST_F(UserPrivilegeRepositoryTest, AnEditOfWhatAnotherHasChangedMeanwhileIsNotWritten)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    ASSERT_EQ(Save(2, Login("two"), {1, 2}), Fault::None);
    const auto shown = Privileges().Find(2);
    const char* const changes[] = {
        "UPDATE UserPrivilegeMaster SET Password = 'Other' WHERE UserCode = 2",
        "UPDATE UserPrivilegeMaster SET Block = 'Y' WHERE UserCode = 2",
        "UPDATE UserPrivilegeMaster SET Days = 8 WHERE UserCode = 2",
        "DELETE FROM UserPrivilegeDetails WHERE UserCode = 2 AND FormName = 'Masters'",
        "DELETE FROM UserPrivilegeMaster WHERE UserCode = 2",
    };
    for (const char* change : changes) {
        store::Transaction transaction(main);
        transaction.Execute(QString::fromLatin1(change));
        EXPECT_EQ(SavePrivileges(transaction, {2, false, {5}}, Login("two"), shown, 9),
                  Fault::ChangedMeanwhile)
            << change;
    }
    EXPECT_EQ(Save(2, Login("two"), {5}, shown), Fault::None);
}

TEST_F(UserPrivilegeRepositoryTest, AUserWhoIsGoneCannotGetALogin)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    main.Execute(QStringLiteral("DELETE FROM UserMaster WHERE UserCode = 2"));
    try {
        Save(2, Login("two"), {1});
        ADD_FAILURE() << "stored";
    } catch (const store::StoreError& error) {
        EXPECT_TRUE(error.IsConflict());
    }
    EXPECT_EQ(Rows("UserPrivilegeDetails WHERE UserCode = 2"), 0);
}

TEST_F(UserPrivilegeRepositoryTest, HoldersAreThoseWithALoginAndTheRight)
{
    EXPECT_FALSE(Privileges().Holders().anyLogin);
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    ASSERT_EQ(Save(2, Login("two"), {PrivilegeLine::Utilities, PrivilegeLine::UserPrivileges}), Fault::None);
    ASSERT_EQ(Save(3, Login("three", true), {PrivilegeLine::UserPrivilegesNew}), Fault::None);
    main.Execute(QStringLiteral("INSERT INTO UserMaster (UserCode, UserName, EnteredBy) VALUES (4, 'D', 0)"));
    for (const char* right : {"('frmUtilUserPrivileges', 'N', 4)", "('ToolsMenu', 'D', 4)",
                              "('ToolsMenu', 'N', 3)", "('frmUtilUserMaster', 'N', 2)"})
        main.Execute(QStringLiteral("INSERT INTO UserPrivilegeDetails (FormName, ButtonName, UserCode)"
                                    " VALUES ") +
                     QLatin1String(right));
    const PrivilegeHolders holders = Privileges().Holders();
    EXPECT_TRUE(holders.anyLogin);
    EXPECT_EQ(holders.newRights, (std::set{1, 3}));
    EXPECT_EQ(holders.toolsMenu, (std::set{1, 2}));
    EXPECT_EQ(holders.privilegesScreen, (std::set{1, 2}));
    EXPECT_EQ(holders.unblocked, (std::set{1, 2}));
    EXPECT_EQ(holders.Managers(), std::set{1});
}

TEST_F(UserPrivilegeRepositoryTest, TheFirstLoginMustBeAbleToGiveRights)
{
    std::set<int> lines = ManagingLines;
    lines.erase(PrivilegeLine::UserPrivilegesEdit);
    EXPECT_EQ(Save(1, Login("one"), lines), Fault::NobodyManages);
    EXPECT_EQ(Save(1, Login("one", true), ManagingLines), Fault::AllBlocked);
    EXPECT_EQ(Rows("UserPrivilegeMaster"), 0);
    EXPECT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
}

TEST_F(UserPrivilegeRepositoryTest, OfTwoWhoTakeTheRightFromEachOtherTheSecondIsRefused)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    ASSERT_EQ(Save(2, Login("two"), ManagingLines), Fault::None);
    const auto first = Privileges().Find(1);
    const auto second = Privileges().Find(2);
    EXPECT_EQ(Save(2, Login("two"), {}, second), Fault::None);
    EXPECT_EQ(Save(1, Login("one"), {}, first), Fault::NobodyManages);
    EXPECT_EQ(Save(1, Login("one", true), ManagingLines, first), Fault::AllBlocked);
    EXPECT_EQ(LinesOfUser(1), ManagingLines);
}

TEST_F(UserPrivilegeRepositoryTest, ACopyGivesTheRightsOfTheSourceAndNothingElseOfIt)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    ASSERT_EQ(Save(2, Login("two", true), {}), Fault::None);
    ASSERT_EQ(Save(3, Login("three"), {3, 4}), Fault::None);
    EXPECT_EQ(Copy(3, 2), CopyFault::None);
    EXPECT_EQ(LinesOfUser(2), (std::set{3, 4}));
    EXPECT_EQ(Privileges().Find(2)->login, Login("two", true));
    EXPECT_EQ(Copy(1, 3), CopyFault::WouldReplace);
    EXPECT_EQ(LinesOfUser(3), (std::set{3, 4}));
    EXPECT_EQ(Copy(1, 3, true), CopyFault::None);
    EXPECT_EQ(LinesOfUser(3), ManagingLines);
    EXPECT_EQ(LinesOfUser(1), ManagingLines);
}

TEST_F(UserPrivilegeRepositoryTest, ACopyIsRefusedAsItsRulesSay)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    EXPECT_EQ(Copy(2, 1), CopyFault::SourceWithoutRights);
    ASSERT_EQ(Save(2, Login("two"), {}), Fault::None);
    EXPECT_EQ(Copy(2, 1), CopyFault::SourceWithoutRights);
    EXPECT_EQ(Copy(1, 3), CopyFault::TargetWithoutLogin);
    ASSERT_EQ(Edit(2, Login("two"), {5}), Fault::None);
    EXPECT_EQ(Copy(2, 1), CopyFault::WouldReplace);
    EXPECT_EQ(Copy(2, 1, true), CopyFault::TakesLastManager);
    main.Execute(QStringLiteral("DELETE FROM UserPrivilegeDetails WHERE FormName = 'frmUtilUserPrivileges'"));
    EXPECT_EQ(Copy(2, 1, true), CopyFault::NobodyManages);
    EXPECT_EQ(LinesOfUser(1), std::set{PrivilegeLine::Utilities});
}

TEST_F(UserPrivilegeRepositoryTest, ACopyToOneselfWritesNothing)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    EXPECT_EQ(Copy(1, 1), CopyFault::WouldReplace);
    EXPECT_EQ(Copy(1, 1, true), CopyFault::TakesLastManager);
    EXPECT_EQ(LinesOfUser(1), ManagingLines);
}

TEST_F(UserPrivilegeRepositoryTest, ACopyReadsAsManyTimesWithManyRightsAndUsersAsWithFew)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    ASSERT_EQ(Save(2, Login("two"), {1}), Fault::None);
    const auto statements = [this](int from) {
        const auto before = main.StatementsRun();
        EXPECT_EQ(Copy(from, 2, true), CopyFault::None);
        return main.StatementsRun() - before;
    };
    const auto few = statements(1);
    std::set<int> all;
    for (int line = 1; line <= static_cast<int>(PrivilegeNodes().size()); ++line)
        all.insert(line);
    ASSERT_EQ(Save(3, Login("three"), all), Fault::None);
    EXPECT_EQ(statements(3), few);
}

TEST_F(UserPrivilegeRepositoryTest, ASaveReadsAsManyTimesWithManyUsersAsWithOne)
{
    ASSERT_EQ(Save(1, Login("one"), ManagingLines), Fault::None);
    const auto statements = [this] {
        const auto before = main.StatementsRun();
        EXPECT_EQ(Edit(1, Login("one"), ManagingLines), Fault::None);
        return main.StatementsRun() - before;
    };
    const auto alone = statements();
    for (int code = 4; code < 60; ++code) {
        main.Execute(QStringLiteral("INSERT INTO UserMaster (UserCode, UserName, EnteredBy)"
                                    " VALUES (?, 'More', 0)"),
                     code);
        const QString loginId = QStringLiteral("more%1").arg(code);
        ASSERT_EQ(Save(code, {loginId, QStringLiteral("x"), false, 0}, ManagingLines), Fault::None);
    }
    EXPECT_EQ(statements(), alone);
}

} // namespace
} // namespace tally::test
