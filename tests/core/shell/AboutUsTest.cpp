#include "core/shell/AboutUs.h"

#include "core/shell/mdiTallyboard.h"
#include "core/TempFolder.h"
#include "core/ui/controls/MovieView.h"
#include "core/ui/look/Look.h"
#include "core/ui/modTallyboardForms.h"
#include "core/ui/ScreenRegistry.h"
#include "support/ScreenFixture.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
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
    const QRect button = Find<QPushButton>(about, "cmdClose")->geometry();
    EXPECT_GT(button.left(), movie->width() / 2);
    EXPECT_GT(button.top(), movie->height() / 2) << "at the foot";
}

TEST_F(AboutUsTest, WithoutAMovieItsPlaceShowsTheTitleASecondTurnLater)
{
    struct Paints : QObject
    {
        int count = 0;
        bool eventFilter(QObject*, QEvent* event) override
        {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    };
    MovieView view;
    Paints paints;
    view.installEventFilter(&paints);
    view.resize(400, 120);
    view.show();
    EXPECT_TRUE(QTest::qWaitFor([&paints] { return paints.count >= 2; }));
    EXPECT_FALSE(view.IsPlaying());
    const QImage shown = view.grab().toImage();
    int letters = 0;
    for (int x = 0; x < shown.width(); ++x)
        for (int y = 0; y < shown.height(); ++y)
            letters += shown.pixelColor(x, y) == Qt::white ? 1 : 0;
    EXPECT_GT(letters, 100);
}

TEST_F(AboutUsTest, ItPlaysItsMovieAfterAnotherClientTookTheTempFolderAway)
{
    DeleteTempFolder();
    auto* movie = Find<MovieView>(OpenAbout(), "swfAboutUs");
    DeleteTempFolder();
    EXPECT_TRUE(QTest::qWaitFor([movie] { return movie->IsPlaying(); }));
    movie->hide();
    movie->show();
    EXPECT_TRUE(QTest::qWaitFor([movie] { return movie->IsPlaying(); }));
}

TEST_F(AboutUsTest, TheMoviesQuitUnloadsItWithoutAQuestion)
{
    Session().gblnPromptOnExit = true;
    AboutUs* about = OpenAbout();
    ASSERT_NE(about, nullptr);
    Press(Find<QPushButton>(about, "cmdClose"));
    EXPECT_FALSE(about->isVisible()) << "it goes at once";
    const auto* step = about->findChild<frmtest*>(QStringLiteral("frmtest"));
    ASSERT_NE(step, nullptr);
    EXPECT_TRUE(step->testAttribute(Qt::WA_DontShowOnScreen)) << "no window flickers";
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("AboutUs")), nullptr);
    EXPECT_FALSE(AnyChildFormOpen());
}

TEST_F(AboutUsTest, ItTellsVersionLicenceAndWhereToTurnAndTheTextCanBeCopied)
{
    AboutUs* about = OpenAbout();
    ASSERT_NE(about, nullptr);
    auto* text = Find<QLabel>(about, "lblAbout");
    const std::string told = text->text().toStdString();
    for (const char* part :
         {"KITE - Tally Board, version " TALLYBOARD_VERSION ",", "GNU General Public License, version 3",
          "whoever looks after the computers of your school"})
        EXPECT_NE(told.find(part), std::string::npos) << part;
    EXPECT_EQ(text->textFormat(), Qt::PlainText);
    EXPECT_TRUE(text->hasHeightForWidth()) << "its lines break where they are too long";
    EXPECT_LE(text->heightForWidth(text->width()), text->height());

    QTest::mouseClick(text, Qt::LeftButton, Qt::NoModifier, QPoint(40, 6));
    QTest::keyClick(text, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(text, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), told);
}

TEST_F(AboutUsTest, ItsTextIsBlackOnItsColourInEveryLook)
{
    AboutUs* about = OpenAbout();
    ASSERT_NE(about, nullptr);
    UseDarkLook(true);
    auto* text = Find<QLabel>(about, "lblAbout");
    EXPECT_EQ(about->palette().color(QPalette::Window), QColor(255, 204, 153));
    EXPECT_EQ(text->palette().color(QPalette::WindowText), QColor(Qt::black));
    UseDarkLook(false);
}

TEST_F(AboutUsTest, EscClosesItWithoutAQuestion)
{
    Session().gblnPromptOnExit = true;
    AboutUs* about = OpenAbout();
    ASSERT_NE(about, nullptr);
    PressKey(about, Qt::Key_Escape);
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("AboutUs")), nullptr);
    about = OpenAbout();
    QTest::mouseClick(Find<QLabel>(about, "lblAbout"), Qt::LeftButton);
    PressKey(about, Qt::Key_Escape);
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("AboutUs")), nullptr);
}

TEST_F(AboutUsTest, OtherKeysAreLeftToTheWindow)
{
    AboutUs* about = OpenAbout();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F7, Qt::NoModifier);
    QApplication::sendEvent(about, &key);
    EXPECT_FALSE(key.isAccepted());
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("AboutUs")), about);
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
