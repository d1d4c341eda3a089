#include "core/shell/mdiTallyboard.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/ScreenRegistry.h"
#include "support/ScreenFixture.h"

#include <QAction>

#include <array>

namespace tally::test {
namespace {

constexpr std::array WorkMenus{"mnuMasters", "mnuTransactions", "mnuReports", "mnuToolsMenu"};
const QString School = QStringLiteral("frmMasSchoolSetup");
const QString Year = QStringLiteral("frmMasAcademicYearSetup");

/// The four work menus, which screens take that must have the client to themselves.
class WorkMenusTest : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        StopPresence();
        Given("INSERT INTO SchoolMaster VALUES ('School', 'Street', '', 0, '1', 'JUN', 1)");
        Given(
            "INSERT INTO AcademicYearSetup VALUES (1, 2007, 2008, '2007-06-01', '2008-05-31', 'Y', 'N', 1)");
        Given("INSERT INTO ApplicationDate VALUES ('2007-06-01', 1)");
        Session().gblnApplicationDateExists = true;
    }

    /// One sign for each menu in its order: M, T, R, U for one that is on and a dot for one that is off.
    std::string Menus() const
    {
        std::string signs = "MTRU";
        for (std::size_t i = 0; i < WorkMenus.size(); ++i)
            if (!window->MenuItem(QString::fromLatin1(WorkMenus.at(i)))->isEnabled())
                signs[i] = '.';
        return signs;
    }
    void Switch(const char* menu, bool on) { window->EnableMenuItem(QString::fromLatin1(menu), on); }
    void Leave(const QString& name)
    {
        ScreenRegistry::OpenInstance(name)->Unload();
        Settle();
        ASSERT_EQ(ScreenRegistry::OpenInstance(name), nullptr);
    }
};

TEST_F(WorkMenusTest, ComeBackWithTheLastOfTheScreensThatTookThemAsTheyWereBeforeTheFirst)
{
    Switch("mnuToolsMenu", true);
    ASSERT_EQ(Menus(), "...U");
    for (const auto& [first, second] : {std::pair(School, Year), std::pair(Year, School)})
        for (const bool firstGoesFirst : {true, false}) {
            OpenScreen(first);
            EXPECT_EQ(Menus(), "....");
            OpenScreen(second);
            EXPECT_EQ(Menus(), "....");
            Leave(firstGoesFirst ? first : second);
            EXPECT_EQ(Menus(), "....");
            EXPECT_TRUE(Session().gblnMenusLocked);
            Leave(firstGoesFirst ? second : first);
            EXPECT_EQ(Menus(), "...U");
            EXPECT_FALSE(Session().gblnMenusLocked);
        }
}

TEST_F(WorkMenusTest, ARightThatIsGivenMeanwhileShowsWhenTheLastScreenHasGone)
{
    OpenScreen(School);
    Switch("mnuReports", true);
    EXPECT_EQ(Menus(), "....");
    OpenScreen(Year);
    window->EnableFirstRunMenus();
    EXPECT_EQ(Menus(), "....");
    Leave(School);
    Switch("mnuMasters", true);
    Switch("mnuReports", false);
    EXPECT_EQ(Menus(), "....");
    Leave(Year);
    EXPECT_EQ(Menus(), "M..U");
}

TEST_F(WorkMenusTest, NoScreenGivesAMenuThatTheRightsDidNotGive)
{
    Switch("mnuTransactions", true);
    for (const char* name : {"frmMasSchoolSetup", "frmMasAcademicYearSetup", "frmMasAcademicYearChange",
                             "frmUtilApplicationDateChange", "frmUtilApplicationDateSetup"}) {
        SCOPED_TRACE(name);
        ASSERT_NE(OpenScreen(QString::fromLatin1(name)), nullptr);
        EXPECT_EQ(Menus(), "....");
        Leave(QString::fromLatin1(name));
        EXPECT_EQ(Menus(), ".T..");
    }
}

TEST_F(WorkMenusTest, AScreenThatIsRefusedLeavesThemToTheOneThatHasThem)
{
    Switch("mnuTransactions", true);
    OpenScreen(School);
    prompts.ExpectInformation(QStringLiteral(
        "You Cannot Open 'Academic Year Change' Form When Other Forms Are Opened. First Close Other Forms"));
    EXPECT_EQ(OpenScreen(QStringLiteral("frmMasAcademicYearChange")), nullptr);
    AnotherClient()->Execute(QStringLiteral("INSERT INTO ScreenStatus VALUES ('AcademicYearSetup')"));
    prompts.ExpectInformation(
        QStringLiteral("This Screen Is Already Opened By Another User. So You Cannot Open This Screen"));
    EXPECT_EQ(OpenScreen(Year), nullptr);
    EXPECT_EQ(Menus(), "....");
    EXPECT_TRUE(Session().gblnMenusLocked);
    Leave(School);
    EXPECT_EQ(Menus(), ".T..");
}

} // namespace
} // namespace tally::test
