#include "core/shell/frmSplash.h"

#include "core/DatabasePassword.h"
#include "core/shell/frmStartLogin.h"
#include "core/ui/controls/MovieView.h"
#include "store/OldMainFile.h"
#include "store/Tables.h"
#include "support/FileSizeLimit.h"
#include "support/ScreenFixture.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QScreen>

namespace tally::test {
namespace {

class frmSplashTest : public ProgramFixture
{
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        // A place of its own for each test: copies of the test program may run side by side.
        executable = Folder() + QStringLiteral("/program");
        QFile file(executable);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    frmSplash* Show()
    {
        auto* splash = new frmSplash(executable);
        EXPECT_TRUE(splash->Form_Load());
        splash->show();
        QApplication::setActiveWindow(splash);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(splash));
        Settle();
        return splash;
    }
    static frmStartLogin* Login()
    {
        const auto widgets = QApplication::topLevelWidgets();
        for (QWidget* widget : widgets)
            if (auto* login = qobject_cast<frmStartLogin*>(widget))
                return login;
        return nullptr;
    }
    void Spoil(const char* file, const QByteArray& content)
    {
        QFile database(Folder() + QLatin1Char('/') + QString::fromLatin1(file));
        ASSERT_TRUE(database.open(QIODevice::WriteOnly | QIODevice::Truncate));
        database.write(content);
    }
    /// `fault` is told of the database file.
    void ExpectNoLoginAfterEnter(const char* file, const QString& fault)
    {
        frmSplash* splash = Show();
        prompts.ExpectCritical(
            fault.arg(QDir::toNativeSeparators(Folder() + QLatin1Char('/') + QLatin1String(file))));
        PressKey(splash, Qt::Key_Return);
        EXPECT_EQ(Login(), nullptr);
        EXPECT_TRUE(splash->isVisible());
        EXPECT_EQ(Session().gcnnMain, nullptr);
        EXPECT_EQ(Session().gcnnTemp, nullptr);
        EXPECT_EQ(processEnds, 0);
    }

    QString executable;
};

TEST_F(frmSplashTest, ASecondCopyIsRefusedAndEnds)
{
    const SingleCopy running(executable);
    frmSplash splash(executable);
    prompts.ExpectInformation(QStringLiteral("Tally Board Is Already Opened"));
    EXPECT_FALSE(splash.Form_Load());
    EXPECT_EQ(processEnds, 1);
}

TEST_F(frmSplashTest, TheMovieFillsItsTwelveByNineThousandTwipsAndPlaysFromTheTempFolder)
{
    QDir(Folder()).mkdir(QStringLiteral("Temp"));
    QFile old(Folder() + QStringLiteral("/Temp/1001.jpg"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));

    frmSplash* splash = Show();
    auto* movie = Find<MovieView>(splash, "swfSplash");
    EXPECT_EQ(movie->size(), QSize(800, 600));
    EXPECT_TRUE(QFile::exists(Folder() + QStringLiteral("/Temp/1006.swf")));
    EXPECT_FALSE(old.exists());
    EXPECT_EQ(Session().gstrTempPath, Folder() + QStringLiteral("/Temp"));
    EXPECT_TRUE(QTest::qWaitFor([movie] { return movie->IsPlaying(); }));
}

TEST_F(frmSplashTest, ItStandsInTheMiddleOfTheScreenAndItsMovieInItsOwn)
{
    frmSplash splash(executable);
    const QPoint apart = splash.geometry().center() - splash.screen()->availableGeometry().center();
    EXPECT_LE(apart.manhattanLength(), 2);
    splash.resize(700, 500);
    splash.show();
    const auto* movie = Find<MovieView>(&splash, "swfSplash");
    EXPECT_EQ(movie->size(), QSize(800, 600));
    EXPECT_LE((movie->geometry().center() - splash.rect().center()).manhattanLength(), 2)
        << "a smaller display cuts all its edges";
}

TEST_F(frmSplashTest, TheMoviePlaysWhereTheTempFolderCanNotBeMade)
{
    QFile inTheWay(Folder() + QStringLiteral("/Temp"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    auto* movie = Find<MovieView>(Show(), "swfSplash");
    EXPECT_TRUE(QTest::qWaitFor([movie] { return movie->IsPlaying(); }));
}

TEST_F(frmSplashTest, TheMoviePlaysThoughItFindsNoRoomOnTheDisk)
{
    const FileSizeLimit full(0);
    auto* movie = Find<MovieView>(Show(), "swfSplash");
    EXPECT_TRUE(QTest::qWaitFor([movie] { return movie->IsPlaying(); }));
}

TEST_F(frmSplashTest, EnterOpensBothDatabasesAndTheLoginInPlaceOfTheSplash)
{
    frmSplash* splash = Show();
    EXPECT_EQ(QApplication::focusWidget(), Find<QPushButton>(splash, "cmdEnter"));
    PressKey(splash, Qt::Key_Return);
    ASSERT_NE(Login(), nullptr);
    EXPECT_TRUE(Login()->isVisible());
    EXPECT_FALSE(splash->isVisible());
    EXPECT_NE(Session().gcnnMain, nullptr);
    EXPECT_NE(Session().gcnnTemp, nullptr);
}

TEST_F(frmSplashTest, AHiddenSplashPlaysNoMovie)
{
    frmSplash* splash = Show();
    auto* movie = Find<MovieView>(splash, "swfSplash");
    ASSERT_TRUE(QTest::qWaitFor([movie] { return movie->IsPlaying(); }));
    PressKey(splash, Qt::Key_Return);
    EXPECT_FALSE(movie->IsPlaying());
}

TEST_F(frmSplashTest, EnterOnTheQuitButtonEndsAndDoesNotLogIn)
{
    frmSplash* splash = Show();
    Find<QPushButton>(splash, "cmdQuit")->setFocus();
    PressKey(splash, Qt::Key_Return);
    EXPECT_EQ(processEnds, 1);
    EXPECT_EQ(Login(), nullptr);
}

TEST_F(frmSplashTest, OnlyTheTwoKnownMovieCommandsDoAnything)
{
    frmSplash* splash = Show();
    auto* movie = Find<MovieView>(splash, "swfSplash");
    Q_EMIT movie->FSCommand(QStringLiteral("quit"), QStringLiteral("false"));
    Q_EMIT movie->FSCommand(QStringLiteral("play"), QStringLiteral("enter"));
    EXPECT_EQ(processEnds, 0);
    EXPECT_EQ(Login(), nullptr);
    EXPECT_TRUE(splash->isVisible());
}

TEST_F(frmSplashTest, ClosingTheSplashEndsTheProcess)
{
    frmSplash* splash = Show();
    EXPECT_FALSE(splash->close());
    EXPECT_EQ(processEnds, 1);
    EXPECT_TRUE(splash->isVisible()) << "it stays in sight as long as the process ends";
}

TEST_F(frmSplashTest, AMissingMainDatabaseKeepsTheLoginAwayAndIsNotCreated)
{
    LeaveOthersUnguarded();
    const QString file = Folder() + QStringLiteral("/Tallyboard.mdb");
    ASSERT_TRUE(QFile::remove(file));
    ExpectNoLoginAfterEnter("Tallyboard.mdb", QStringLiteral("The Database File %1 Is Missing"));
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(frmSplashTest, AMissingTemporaryDatabaseKeepsTheLoginAway)
{
    LeaveOthersUnguarded();
    ASSERT_TRUE(QFile::remove(Folder() + QStringLiteral("/TempTallyboard.mdb")));
    ExpectNoLoginAfterEnter("TempTallyboard.mdb", QStringLiteral("The Database File %1 Is Missing"));
}

TEST_F(frmSplashTest, AnEmptyDatabaseKeepsTheLoginAway)
{
    LeaveOthersUnguarded();
    Spoil("Tallyboard.mdb", {});
    ExpectNoLoginAfterEnter("Tallyboard.mdb", QStringLiteral("The Database File %1 Is Empty"));
}

TEST_F(frmSplashTest, AFileThatIsNoDatabaseKeepsTheLoginAway)
{
    LeaveOthersUnguarded();
    Spoil("Tallyboard.mdb", QByteArray(8192, 'x'));
    ExpectNoLoginAfterEnter("Tallyboard.mdb",
                            QStringLiteral("%1: This File Is Not A Database Of This Program, Or It Has "
                                           "Another Password (file is encrypted or is not a database)"));
}

TEST_F(frmSplashTest, ADatabaseOfANewerProgramKeepsTheLoginAway)
{
    AnotherClient()->Execute(QStringLiteral("PRAGMA user_version = 1000"));
    ExpectNoLoginAfterEnter(
        "Tallyboard.mdb", QStringLiteral("The Database File %1 Belongs To A Newer Tally Board Than This One, "
                                         "And Is Left As It Is. Please Start The Newer Program"));
}

TEST_F(frmSplashTest, ADatabaseOfAnOlderProgramIsUpgradedOnTheWayToTheLogin)
{
    LeaveOthersUnguarded();
    const QString file = Folder() + QStringLiteral("/Tallyboard.mdb");
    ASSERT_TRUE(QFile::remove(file));
    {
        SessionContext session;
        BuildDatabasePassword(session);
        store::Connection old(file, DatabasePassword(session), store::Connection::Mode::Create);
        store::Transaction transaction(old);
        LayOldMainFile(transaction);
        transaction.Commit();
    }
    PressKey(Show(), Qt::Key_Return);
    EXPECT_NE(Login(), nullptr);
    EXPECT_EQ(AnotherClient()->SchemaVersion(), store::MainVersion);
    EXPECT_EQ(AnotherClient(QStringLiteral("Tallyboard before upgrade 2.mdb"))->SchemaVersion(), 0);
}

TEST_F(frmSplashTest, AnUpgradeThatFailedIsTriedAgainWithTheNextEnter)
{
    // As the indexes of today are there already, the upgrade of this file can't succeed.
    AnotherClient()->Execute(QStringLiteral("PRAGMA user_version = 1"));
    ExpectNoLoginAfterEnter(
        "Tallyboard.mdb",
        QStringLiteral("The Database File %1 Must Be Upgraded For This Program, And Could Not "
                       "Be. It Is As It Was. index YearAdmissions already exists"));
    AnotherClient()->Execute(QStringLiteral("PRAGMA user_version = 2"));
    PressKey(QApplication::activeWindow(), Qt::Key_Return);
    EXPECT_NE(Login(), nullptr);
}

} // namespace
} // namespace tally::test
