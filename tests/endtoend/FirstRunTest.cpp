#include "endtoend/Office.h"

#include <gtest/gtest.h>

namespace tally::test {

namespace {

/// The keys of a clerk who sets up a school in the main window and its message boxes.
class FirstDay
{
public:
    FirstDay(const Desktop& desktop, Client& clerk, const Desktop::Window& mainWindow)
        : desktop_(desktop), clerk_(clerk), mainWindow_(mainWindow)
    {}

    void Press(const QStringList& keys) { desktop_.Press(mainWindow_, keys); }
    void Type(const char* text) { desktop_.Type(mainWindow_, QString::fromLatin1(text)); }
    void Fill(const char* text)
    {
        Type(text);
        Press({QStringLiteral("Return")});
    }
    void ChooseNext(int steps = 1)
    {
        for (int step = 0; step < steps; ++step)
            Press({QStringLiteral("Down")});
        Press({QStringLiteral("Return")});
    }
    /// Saves and answers the box that says so.
    void Save()
    {
        Press({QStringLiteral("alt+s")});
        AnswerBox(QStringLiteral("Return"));
    }
    void AnswerBox(const QString& key)
    {
        const Desktop::Window box = clerk_.Appeared();
        desktop_.Press(box, {key});
        clerk_.WaitUntilGone(box);
    }
    void New() { Press({QStringLiteral("alt+n")}); }
    void Exit() { Press({QStringLiteral("alt+x")}); }
    void ExitIsRefused()
    {
        Exit();
        AnswerBox(QStringLiteral("Return"));
    }

private:
    const Desktop& desktop_;
    Client& clerk_;
    Desktop::Window mainWindow_;
};

} // namespace

TEST(FirstRunTest, FromDeliveredDatabasesToTheFirstWorkingDayAndTheFirstLogin)
{
    Desktop desktop;
    const Office office(Office::Databases::Delivered);
    Client clerk(desktop, office, QStringLiteral("tallyboard"));
    const Desktop::Window mainWindow = clerk.LogIn(QStringLiteral("anybody"), QStringLiteral("anything"));
    FirstDay day(desktop, clerk, mainWindow);

    // School Setup stands open by itself and does not let go without a school.
    day.ExitIsRefused();
    day.AnswerBox(QStringLiteral("n"));
    EXPECT_TRUE(clerk.IsRunning());

    day.New();
    day.Press({QStringLiteral("alt+d")});
    day.New();
    day.Type("Kerala");
    day.Save();
    day.Exit();
    EXPECT_EQ(office.Number("SELECT count(*) FROM StateMaster WHERE StateName = 'Kerala'"), 1);

    day.Press({QStringLiteral("alt+y")});
    day.New();
    day.ChooseNext();
    day.Type("Kochi");
    day.Save();
    day.Exit();
    EXPECT_EQ(office.Number("SELECT count(*) FROM CityMaster WHERE CityName = 'Kochi' AND StateCode = 1"), 1);

    day.Press({QStringLiteral("alt+m")});
    day.Fill("Hill View School");
    day.Fill("1 Bell Road");
    day.Fill("");
    day.ChooseNext();
    day.ChooseNext();
    day.Fill("682001");
    day.ChooseNext(6);
    day.Save();
    EXPECT_EQ(office.Number("SELECT count(*) FROM SchoolMaster WHERE MonthShortName = 'JUN'"), 1);
    EXPECT_EQ(office.Number("SELECT MonthCode FROM MonthMaster WHERE MonthSlNo = 5"), 12);

    // Leaving School Setup brings up Academic Year Setup, which does not let go without an active year.
    day.Exit();
    day.ExitIsRefused();
    day.New();
    day.Fill("2025");
    day.ChooseNext();
    day.Save();
    EXPECT_TRUE(Eventually([&] {
        return office.Number("SELECT count(*) FROM AcademicYearSetup WHERE YearFrom = 2025 AND YearTo = 2026"
                             " AND FromDate = '2025-06-01' AND ToDate = '2026-05-31' AND Status = 'Y'") == 1;
    }));
    EXPECT_EQ(office.Number("SELECT count(*) FROM ApplicationDate WHERE ApplicationDate = '2025-06-01'"), 1);
    EXPECT_EQ(office.Number("SELECT count(*) FROM ScreenStatus WHERE Screen = 'AcademicYearSetup'"), 1);
    day.Exit();
    EXPECT_TRUE(Eventually([&] { return office.Number("SELECT count(*) FROM ScreenStatus") == 0; }));
    // The year is asked for as soon as the school is stored, in front of the form that stored it.
    day.Exit();

    // The menu opens on the first of its two entries that begin with U, since those above are off.
    day.Press({QStringLiteral("alt+u"), QStringLiteral("Return")});
    day.New();
    day.Type("Asha Menon");
    day.Save();
    day.Exit();
    day.Press({QStringLiteral("alt+u"), QStringLiteral("u"), QStringLiteral("Return")});
    day.New();
    day.ChooseNext();
    for (const char* text : {"asha", "Secret9", "Secret9"})
        day.Fill(text);
    day.ChooseNext(2);
    day.Fill("30");
    constexpr int Groups = 4;
    for (int group = 0; group < Groups; ++group)
        day.Press({QStringLiteral("space"), QStringLiteral("Left"), QStringLiteral("Down")});
    day.Save();
    EXPECT_EQ(office.Number("SELECT count(*) FROM UserPrivilegeMaster WHERE LoginId = 'asha' AND Block = 'N'"
                            " AND Days = 30"),
              1);
    EXPECT_EQ(office.Number("SELECT count(*) FROM UserPrivilegeDetails WHERE UserCode = 1"), 115);
    day.Exit();
    clerk.ChooseClose(mainWindow, QStringLiteral("y"));
    EXPECT_EQ(clerk.ExitCode(), 0);

    Client administrator(desktop, office, QStringLiteral("tallyboard"));
    const Desktop::Window nextDay = administrator.LogIn(QStringLiteral("Asha"), QStringLiteral("secret9"));
    EXPECT_EQ(office.Starts(), 2);
    administrator.ChooseClose(nextDay, QStringLiteral("y"));
    EXPECT_EQ(administrator.ExitCode(), 0);
}

} // namespace tally::test
