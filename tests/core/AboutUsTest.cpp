#include "core/AboutUs.h"

#include "core/controls/MovieView.h"
#include "core/mdiTallyboard.h"
#include "core/modTallyboardForms.h"
#include "core/ScreenRegistry.h"
#include "support/ScreenFixture.h"

#include <QAction>
#include <QFile>
#include <QPushButton>

namespace tally::test {
namespace {

class AboutUsTest : public ScreenFixture
{
protected:
    AboutUs* OpenAbout()
    {
        window->MenuItem(QStringLiteral("frmAboutUs"))->trigger();
        Settle();
        return qobject_cast<AboutUs*>(ScreenRegistry::OpenInstance(QStringLiteral("AboutUs")));
    }
};

TEST_F(AboutUsTest, ItPlaysItsMovieOnItsColour)
{
    AboutUs* about = OpenAbout();
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(about->palette().color(QPalette::Window), QColor(255, 204, 153));
    EXPECT_TRUE(QFile::exists(Folder() + QStringLiteral("/Temp/1005.swf")));
    auto* movie = Find<MovieView>(about, "swfAboutUs");
    EXPECT_TRUE(QTest::qWaitFor([movie] { return movie->IsPlaying(); }));
}

TEST_F(AboutUsTest, TheMoviesQuitUnloadsItWithoutAQuestion)
{
    Session().gblnPromptOnExit = true;
    AboutUs* about = OpenAbout();
    ASSERT_NE(about, nullptr);
    Press(Find<QPushButton>(about, "cmdClose"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("AboutUs")), nullptr);
    EXPECT_FALSE(AnyChildFormOpen());
}

TEST_F(AboutUsTest, OtherMovieCommandsDoNothing)
{
    AboutUs* about = OpenAbout();
    Q_EMIT Find<MovieView>(about, "swfAboutUs")->FSCommand(QStringLiteral("play"), QStringLiteral("true"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("AboutUs")), about);
}

TEST_F(AboutUsTest, ItDoesNotCountAsAnotherFormButAsAnOpenOne)
{
    ASSERT_NE(OpenAbout(), nullptr);
    EXPECT_TRUE(AnyChildFormOpen());
    EXPECT_FALSE(OtherFormsOpen(nullptr));
}

} // namespace
} // namespace tally::test
