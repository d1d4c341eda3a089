#include "endtoend/Office.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace tally::test {

namespace {

const QString Program = QStringLiteral("tallyboard");
const QString Admin = QStringLiteral("admin");
const QString AdminPassword = QStringLiteral("admin2025");
const QString Yes = QStringLiteral("y");
const QString No = QStringLiteral("n");

/// What the title of the main window looks like; its trailing blanks set it apart from all other windows.
bool IsMainWindow(const Desktop::Window& window)
{
    return window.title.startsWith(QLatin1String("KITE - Tally Board ")) && window.width >= 640;
}

class EndToEndTest : public testing::Test
{
protected:
    Desktop desktop_;
    Office office_;
};

} // namespace

TEST_F(EndToEndTest, ClerkStartsLogsInAndClosesByKeyboardAlone)
{
    Client clerk(desktop_, office_, Program);
    const Desktop::Window mainWindow = clerk.LogIn(Admin, AdminPassword);
    EXPECT_TRUE(IsMainWindow(mainWindow)) << mainWindow.title.toStdString();
    EXPECT_TRUE(clerk.IsAlone(mainWindow)) << "splash and login have gone";
    EXPECT_EQ(office_.PresenceRows(), 1);
    EXPECT_EQ(office_.Starts(), 1);

    clerk.ChooseClose(mainWindow, No);
    EXPECT_TRUE(clerk.IsAlone(mainWindow));
    EXPECT_TRUE(clerk.IsRunning()) << "No keeps the program open";
    EXPECT_EQ(office_.PresenceRows(), 1);

    clerk.ChooseClose(mainWindow, Yes);
    EXPECT_EQ(clerk.ExitCode(), 0);
    EXPECT_EQ(office_.PresenceRows(), 0);
    EXPECT_FALSE(QFileInfo::exists(office_.Folder() + QStringLiteral("/Temp")))
        << "the working folder is cleared";
}

TEST_F(EndToEndTest, WrongPasswordKeepsTheLoginOpen)
{
    Client clerk(desktop_, office_, Program);
    desktop_.Press(clerk.Appeared(), {QStringLiteral("Return")});
    const Desktop::Window login = clerk.Appeared();
    desktop_.Type(login, Admin);
    desktop_.Press(login, {QStringLiteral("Return")});
    desktop_.Type(login, QStringLiteral("guess"));
    desktop_.Press(login, {QStringLiteral("Return")});
    const Desktop::Window message = clerk.Appeared();
    EXPECT_FALSE(IsMainWindow(message));
    desktop_.Press(message, {QStringLiteral("Return")});
    EXPECT_TRUE(clerk.IsAlone(login));
    EXPECT_EQ(office_.Starts(), 0);
}

TEST_F(EndToEndTest, SecondCopyOfTheSameProgramSaysSoAndEnds)
{
    Client first(desktop_, office_, Program);
    const Desktop::Window mainWindow = first.LogIn(Admin, AdminPassword);

    Client second(desktop_, office_, Program);
    const Desktop::Window message = second.Appeared();
    EXPECT_EQ(message.title, QStringLiteral("KITE - Tally Board"));
    EXPECT_LT(message.height, 300) << "a message box, not the splash";
    EXPECT_TRUE(second.IsAlone(message));
    desktop_.Press(message, {QStringLiteral("Return")});
    EXPECT_EQ(second.ExitCode(), 0);

    EXPECT_TRUE(first.IsRunning());
    EXPECT_TRUE(first.IsAlone(mainWindow));
    EXPECT_EQ(office_.PresenceRows(), 1);
    EXPECT_EQ(office_.Starts(), 1);
}

TEST_F(EndToEndTest, TwoClientsOfOneFolderWorkSideBySide)
{
    Client first(desktop_, office_, Program);
    const Desktop::Window firstWindow = first.LogIn(Admin, AdminPassword);
    Client second(desktop_, office_, QStringLiteral("tallyboard-office"));
    const Desktop::Window secondWindow = second.LogIn(QStringLiteral("office"), QStringLiteral("office2025"));
    EXPECT_TRUE(IsMainWindow(secondWindow));
    EXPECT_EQ(office_.Starts(), 2);
    EXPECT_EQ(office_.PresenceRows(), 1) << "the row tells that somebody is there, not how many";

    // The first client still answers its keyboard and shows no complaint.
    first.ChooseClose(firstWindow, No);
    EXPECT_TRUE(first.IsAlone(firstWindow));

    second.ChooseClose(secondWindow, Yes);
    EXPECT_EQ(second.ExitCode(), 0);
    EXPECT_TRUE(first.IsRunning());
    first.ChooseClose(firstWindow, No);
    EXPECT_TRUE(first.IsAlone(firstWindow));
    first.ChooseClose(firstWindow, Yes);
    EXPECT_EQ(first.ExitCode(), 0);
}

TEST_F(EndToEndTest, ProgramThatWasKilledStartsAgain)
{
    {
        Client killed(desktop_, office_, Program);
        killed.LogIn(Admin, AdminPassword);
        killed.Kill();
    }
    EXPECT_EQ(office_.PresenceRows(), 1) << "nothing was cleaned up";

    Client again(desktop_, office_, Program);
    const Desktop::Window mainWindow = again.LogIn(Admin, AdminPassword);
    EXPECT_TRUE(IsMainWindow(mainWindow));
    EXPECT_EQ(office_.PresenceRows(), 1);
    again.ChooseClose(mainWindow, Yes);
    EXPECT_EQ(again.ExitCode(), 0);
    EXPECT_EQ(office_.PresenceRows(), 0);
}

TEST_F(EndToEndTest, TheStartClearsAwayWhatAKilledExportLeft)
{
    const QString left = office_.Home() + QStringLiteral("/Documents/Tally Board/.export-aaaaaa");
    ASSERT_TRUE(QDir().mkpath(left));
    const Client clerk(desktop_, office_, Program);
    EXPECT_TRUE(Eventually([&] { return !QFileInfo::exists(left); }));
}

TEST_F(EndToEndTest, QuitOnTheSplashEndsTheProgram)
{
    Client clerk(desktop_, office_, Program);
    desktop_.Press(clerk.Appeared(), {QStringLiteral("alt+q")});
    EXPECT_EQ(clerk.ExitCode(), 0);
    EXPECT_EQ(office_.Starts(), 0);
}

} // namespace tally::test
