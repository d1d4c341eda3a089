#include "utilities/PrivilegeGuards.h"

#include "utilities/PrivilegeTree.h"

#include <algorithm>
#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace tally {
namespace {

using Fault = PrivilegeFault;

const std::set<int> GuardedLines(PrivilegeLine::Managing.begin(), PrivilegeLine::Managing.end());

/// One of the people of a small office.
struct Person
{
    bool hasLogin = false;
    bool blocked = false;
    bool mayMakeEntries = false; ///< on the screen of privileges
    bool mayOpenTools = false;
    bool mayOpenScreen = false; ///< that of privileges, from the menu of tools

    bool Manages() const { return hasLogin && !blocked && mayMakeEntries && mayOpenTools && mayOpenScreen; }
};

using Office = std::array<Person, 3>;

PrivilegeHolders HoldersIn(const Office& office)
{
    PrivilegeHolders holders;
    for (std::size_t index = 0; index < office.size(); ++index) {
        const Person& person = office.at(index);
        const int code = static_cast<int>(index) + 1;
        if (!person.hasLogin)
            continue;
        holders.anyLogin = true;
        if (person.mayMakeEntries)
            holders.newRights.insert(code);
        if (person.mayOpenTools)
            holders.toolsMenu.insert(code);
        if (person.mayOpenScreen)
            holders.privilegesScreen.insert(code);
        if (!person.blocked)
            holders.unblocked.insert(code);
    }
    return holders;
}

bool SomeoneManages(const Office& office)
{
    return std::any_of(office.begin(), office.end(), [](const Person& person) { return person.Manages(); });
}

bool SomeoneElseManages(Office office, std::size_t than)
{
    office.at(than) = {};
    return SomeoneManages(office);
}

/// All that a person may be: without a login, or with one, blocked or not, with any of the rights.
std::vector<Person> Kinds()
{
    std::vector<Person> kinds{{}};
    for (const bool blocked : {false, true})
        for (const bool entries : {false, true})
            for (const bool tools : {false, true})
                for (const bool screen : {false, true})
                    kinds.push_back({true, blocked, entries, tools, screen});
    return kinds;
}

void ForEachOffice(const std::function<void(const Office&)>& look)
{
    const std::vector<Person> kinds = Kinds();
    for (const Person& first : kinds)
        for (const Person& second : kinds)
            for (const Person& third : kinds)
                look({first, second, third});
}

/// All choices among the guarded lines.
std::vector<std::set<int>> Choices()
{
    std::vector<std::set<int>> choices{{}};
    for (const int line : GuardedLines) {
        const std::vector<std::set<int>> without = choices;
        for (std::set<int> choice : without) {
            choice.insert(line);
            choices.push_back(choice);
        }
    }
    return choices;
}

/// Every login that can be stored in every office, new or edited.
void ForEachChange(
    const std::function<void(const Office& before, const PrivilegeChange&, const Office& after)>& look)
{
    const auto choices = Choices();
    ForEachOffice([&](const Office& before) {
        for (std::size_t index = 0; index < before.size(); ++index)
            for (const bool blocked : {false, true})
                for (const std::set<int>& lines : choices) {
                    Office after = before;
                    after.at(index) = {true, blocked, lines.contains(PrivilegeLine::UserPrivilegesNew),
                                       lines.contains(PrivilegeLine::Utilities),
                                       lines.contains(PrivilegeLine::UserPrivileges)};
                    look(before, {static_cast<int>(index) + 1, blocked, lines}, after);
                }
    });
}

std::size_t IndexOf(const PrivilegeChange& change)
{
    return static_cast<std::size_t>(change.userCode) - 1;
}

TEST(PrivilegeGuards, WhatIsStoredNeverLocksAnOfficeOutThatWasNot)
{
    int refused = 0;
    ForEachChange([&](const Office& before, const PrivilegeChange& change, const Office& after) {
        const PrivilegeHolders holders = HoldersIn(before);
        const Fault fault = FaultOfGuard(holders, change);
        refused += fault == Fault::None ? 0 : 1;
        if (fault == Fault::None && (SomeoneManages(before) || !holders.anyLogin)) {
            ASSERT_TRUE(SomeoneManages(after)) << change.userCode;
        }
    });
    EXPECT_GT(refused, 1000);
}

TEST(PrivilegeGuards, NothingIsRefusedWhileSomeoneElseCanGiveRights)
{
    ForEachChange([](const Office& before, const PrivilegeChange& change, const Office&) {
        if (SomeoneElseManages(before, IndexOf(change))) {
            ASSERT_EQ(FaultOfGuard(HoldersIn(before), change), Fault::None);
        }
    });
}

TEST(PrivilegeGuards, NothingIsRefusedThatIsNotBlockedAndKeepsAllFourLines)
{
    ForEachChange([](const Office& before, const PrivilegeChange& change, const Office&) {
        if (!change.blocked && change.lines == GuardedLines) {
            ASSERT_EQ(FaultOfGuard(HoldersIn(before), change), Fault::None);
        }
    });
}

TEST(PrivilegeGuards, ABlockedLoginIsRefusedForThatAndAnotherForItsLines)
{
    ForEachChange([](const Office& before, const PrivilegeChange& change, const Office&) {
        const Fault fault = FaultOfGuard(HoldersIn(before), change);
        if (fault != Fault::None) {
            ASSERT_EQ(fault, change.blocked ? Fault::AllBlocked : Fault::NobodyManages);
        }
    });
}

TEST(PrivilegeGuards, WhoAloneHasARightForItKeepsItEvenIfNobodyCouldUseIt)
{
    // The one who may make entries is blocked, and another may open the menu.
    const PrivilegeHolders stored{true, {1}, {2}, {}, {2}};
    EXPECT_EQ(FaultOfGuard(stored, {1, true, GuardedLines}), Fault::AllBlocked);
    EXPECT_EQ(FaultOfGuard(stored, {1, false, {}}), Fault::NobodyManages);
    EXPECT_EQ(FaultOfGuard(stored, {2, false, {}}), Fault::NobodyManages);
    EXPECT_EQ(FaultOfGuard(stored, {3, true, {}}), Fault::None);
}

TEST(PrivilegeGuards, TheOnlyOneNotBlockedKeepsTheRightsThatSeveralHave)
{
    const PrivilegeHolders stored{true, {2, 3}, {2, 3}, {2, 3}, {1}};
    EXPECT_EQ(FaultOfGuard(stored, {1, false, {}}), Fault::NobodyManages);
    EXPECT_EQ(FaultOfGuard(stored, {1, true, GuardedLines}), Fault::AllBlocked);
    EXPECT_EQ(FaultOfGuard(stored, {2, true, {}}), Fault::None);
}

TEST(PrivilegeGuards, WhereNobodyHasTheRightsNobodyIsAskedToKeepThem)
{
    const PrivilegeHolders stored{true, {}, {}, {}, {1}};
    EXPECT_EQ(FaultOfGuard(stored, {1, false, {}}), Fault::None);
    EXPECT_EQ(FaultOfGuard(stored, {1, true, {}}), Fault::None);
}

TEST(PrivilegeGuards, WithSeveralHoldersAndSeveralNotBlockedNothingIsAsked)
{
    const PrivilegeHolders stored{true, {1, 2}, {1, 2}, {1, 2}, {1, 2}};
    for (const int user : {1, 2}) {
        EXPECT_EQ(FaultOfGuard(stored, {user, false, {}}), Fault::None);
        EXPECT_EQ(FaultOfGuard(stored, {user, true, {}}), Fault::None);
    }
}

TEST(PrivilegeGuards, ANewLoginBesideTheOnlyHolderIsFree)
{
    const PrivilegeHolders stored{true, {1}, {1}, {1}, {1}};
    EXPECT_EQ(FaultOfGuard(stored, {2, true, {}}), Fault::None);
    EXPECT_EQ(FaultOfGuard(stored, {2, false, {}}), Fault::None);
}

TEST(PrivilegeGuards, TheFirstLoginNeedsEachOfTheFourLines)
{
    for (const int line : GuardedLines) {
        std::set<int> lines = GuardedLines;
        lines.erase(line);
        EXPECT_EQ(FaultOfGuard({}, {1, false, lines}), Fault::NobodyManages) << line;
        EXPECT_EQ(FaultOfGuard({}, {1, true, lines}), Fault::AllBlocked) << line;
    }
    EXPECT_EQ(FaultOfGuard({}, {1, true, GuardedLines}), Fault::AllBlocked);
    EXPECT_EQ(FaultOfGuard({}, {1, false, GuardedLines}), Fault::None);
}

TEST(PrivilegeGuards, WhoAloneManagesKeepsIt)
{
    // A second one has all rights and is blocked, and a third one can log in without them.
    const PrivilegeHolders stored{true, {1, 2}, {1, 2}, {1, 2}, {1, 3}};
    EXPECT_EQ(FaultOfGuard(stored, {1, false, {}}), Fault::NobodyManages);
    EXPECT_EQ(FaultOfGuard(stored, {1, true, GuardedLines}), Fault::AllBlocked);
    EXPECT_EQ(FaultOfGuard(stored, {2, false, {}}), Fault::None);
    EXPECT_EQ(FaultOfGuard(stored, {3, true, {}}), Fault::None);
}

TEST(PrivilegeGuards, WhoCannotOpenTheScreenManagesNothing)
{
    // The second one may make entries there and open its menu, but the line of the screen itself stays off.
    const PrivilegeHolders stored{true, {1, 2}, {1, 2}, {1}, {1, 2}};
    EXPECT_EQ(stored.Managers(), std::set{1});
    EXPECT_EQ(FaultOfGuard(stored, {1, false, {}}), Fault::NobodyManages);
    EXPECT_EQ(FaultOfGuard(stored, {2, false, {}}), Fault::None);
    const PrivilegeCopy copy{.fromUser = 2,
                             .toUser = 1,
                             .sourceHasRights = true,
                             .targetHasLogin = true,
                             .targetHasRights = true,
                             .replaces = true};
    EXPECT_EQ(FaultOfCopy(stored, copy), CopyFault::TakesLastManager);
}

void ForEachCopy(
    const std::function<void(const Office& before, const PrivilegeCopy&, const Office& after)>& look)
{
    ForEachOffice([&](const Office& before) {
        for (std::size_t from = 0; from < before.size(); ++from)
            for (std::size_t to = 0; to < before.size(); ++to) {
                if (from == to)
                    continue;
                const Person& source = before.at(from);
                const Person& target = before.at(to);
                const PrivilegeCopy copy{
                    .fromUser = static_cast<int>(from) + 1,
                    .toUser = static_cast<int>(to) + 1,
                    .sourceHasRights = source.hasLogin,
                    .targetHasLogin = target.hasLogin,
                    .targetHasRights = target.mayMakeEntries || target.mayOpenTools || target.mayOpenScreen,
                    .replaces = true,
                };
                Office after = before;
                after.at(to).mayMakeEntries = source.mayMakeEntries;
                after.at(to).mayOpenTools = source.mayOpenTools;
                after.at(to).mayOpenScreen = source.mayOpenScreen;
                look(before, copy, after);
            }
    });
}

TEST(PrivilegeGuards, ACopyNeverLocksAnOfficeOutThatWasNot)
{
    int refused = 0;
    ForEachCopy([&](const Office& before, const PrivilegeCopy& copy, const Office& after) {
        const CopyFault fault = FaultOfCopy(HoldersIn(before), copy);
        refused += fault == CopyFault::TakesLastManager ? 1 : 0;
        if (fault == CopyFault::None && SomeoneManages(before)) {
            ASSERT_TRUE(SomeoneManages(after));
        }
    });
    EXPECT_GT(refused, 50);
}

TEST(PrivilegeGuards, ACopyIsRefusedForThatOnlyWhereItWouldTakeTheRightFromTheLastOne)
{
    ForEachCopy([](const Office& before, const PrivilegeCopy& copy, const Office& after) {
        if (FaultOfCopy(HoldersIn(before), copy) != CopyFault::TakesLastManager)
            return;
        const bool nobodyMakesEntries = HoldersIn(after).newRights.empty();
        ASSERT_TRUE(nobodyMakesEntries || (SomeoneManages(before) && !SomeoneManages(after)));
    });
}

TEST(PrivilegeGuards, ACopyIsLookedAtInItsOrder)
{
    const PrivilegeHolders nobody{true, {}, {}, {}, {1, 2}};
    PrivilegeCopy copy{.fromUser = 1, .toUser = 2, .targetHasRights = true};
    EXPECT_EQ(FaultOfCopy(nobody, copy), CopyFault::SourceWithoutRights);
    copy.sourceHasRights = true;
    EXPECT_EQ(FaultOfCopy(nobody, copy), CopyFault::TargetWithoutLogin);
    copy.targetHasLogin = true;
    EXPECT_EQ(FaultOfCopy(nobody, copy), CopyFault::WouldReplace);
    copy.replaces = true;
    EXPECT_EQ(FaultOfCopy(nobody, copy), CopyFault::NobodyManages);
    EXPECT_EQ(FaultOfCopy({true, {2}, {1, 2}, {1, 2}, {1, 2}}, copy), CopyFault::TakesLastManager);
    EXPECT_EQ(FaultOfCopy({true, {1, 2}, {2}, {1, 2}, {1, 2}}, copy), CopyFault::TakesLastManager);
    EXPECT_EQ(FaultOfCopy({true, {1}, {1}, {1}, {1, 2}}, copy), CopyFault::None);
    copy.targetHasRights = false;
    copy.replaces = false;
    EXPECT_EQ(FaultOfCopy({true, {1}, {1}, {1}, {1, 2}}, copy), CopyFault::None);
}

TEST(PrivilegeGuards, ACopyToOneselfChangesNothingAndIsRefusedOnlyWhereTheRightWouldHangOnIt)
{
    PrivilegeCopy copy{
        .fromUser = 1, .toUser = 1, .sourceHasRights = true, .targetHasLogin = true, .targetHasRights = true};
    const PrivilegeHolders two{true, {1, 2}, {1, 2}, {1, 2}, {1, 2}};
    EXPECT_EQ(FaultOfCopy(two, copy), CopyFault::WouldReplace);
    copy.replaces = true;
    EXPECT_EQ(FaultOfCopy(two, copy), CopyFault::None);
    EXPECT_EQ(FaultOfCopy({true, {1}, {1}, {1}, {1}}, copy), CopyFault::TakesLastManager);
}

TEST(PrivilegeGuards, EachFaultHasItsOwnWords)
{
    EXPECT_EQ(TextOf(Fault::None).toStdString(), "");
    EXPECT_EQ(TextOf(Fault::AlreadyExists).toStdString(),
              "Privilege Already Exists To This User. Do You Want To View The Details ?");
    EXPECT_EQ(TextOf(Fault::ChangedMeanwhile).toStdString(),
              "Privileges Of This User Were Changed By Another User Meanwhile.\nYou Cannot Save This Data.");
    EXPECT_EQ(TextOf(Fault::LoginIdTaken).toStdString(), "Login ID Already Exists");
    EXPECT_EQ(TextOf(Fault::AllBlocked).toStdString(), "All The Users Cannot Be Blocked");
    EXPECT_EQ(TextOf(Fault::NobodyManages).toStdString(),
              "Atleast One User Should Have Privilege To 'Utility Privilege' Menu");
    const auto text = [](CopyFault fault) {
        return TextOf(fault, QStringLiteral("Asha"), QStringLiteral("Bala %1")).toStdString();
    };
    EXPECT_EQ(text(CopyFault::None), "");
    EXPECT_EQ(text(CopyFault::SourceWithoutRights), "No Privilege Exists For Asha");
    EXPECT_EQ(text(CopyFault::TargetWithoutLogin), "Login Not Created For Bala %1");
    EXPECT_EQ(text(CopyFault::WouldReplace),
              "Privilege Already Exists For Bala %1.Do You Want To Replace The Existing Privilege ?");
    EXPECT_EQ(text(CopyFault::NobodyManages), "Selected USer Doesnot Have Any Privilege To Transfer");
    EXPECT_EQ(text(CopyFault::TakesLastManager),
              "Atleast One User Should Have Privilege To Work Cannot Able To Tansfer");
}

} // namespace
} // namespace tally
