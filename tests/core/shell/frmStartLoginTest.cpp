#include "core/shell/frmStartLogin.h"

#include "core/shell/mdiTallyboard.h"
#include "core/shell/MenuCommands.h"
#include "core/ui/controls/ImageButton.h"
#include "core/ui/look/Look.h"
#include "core/ui/Screen.h"
#include "support/ScreenFixture.h"
#include "support/StandIn.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>

namespace tally::test {
namespace {

class frmStartLoginTest : public ProgramFixture
{
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        OpenConnections();
        frmStartLogin::Open();
        const auto widgets = QApplication::topLevelWidgets();
        for (QWidget* widget : widgets)
            if (qobject_cast<frmStartLogin*>(widget))
                form = widget;
        ASSERT_NE(form, nullptr);
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        loginId = Find<QLineEdit>(form, "txtLoginID");
        password = Find<QLineEdit>(form, "txtPassword");
    }

    void LogIn(const QString& typedId, const QString& typedPassword)
    {
        Type(loginId, typedId);
        Type(password, typedPassword);
        PressKey(form, Qt::Key_Return);
    }
    static bool MainWindowShown()
    {
        return mdiTallyboard::Instance() && mdiTallyboard::Instance()->isVisible();
    }
    static bool On(const char* name)
    {
        return mdiTallyboard::Instance()->MenuItem(QString::fromLatin1(name))->isEnabled();
    }
    void GivenMary(const QList<std::pair<QString, QString>>& rights = {},
                   const QString& block = QStringLiteral("N"))
    {
        GivenUser(4, QStringLiteral("mary"), QStringLiteral("secret"), rights, block);
    }

    QPointer<QWidget> form;
    QLineEdit* loginId = nullptr;
    QLineEdit* password = nullptr;
    const QString mary = QStringLiteral("mary");
    const QString secret = QStringLiteral("secret");
    const QString wrongText = QStringLiteral("Enter Correct Login ID And Password");
};

TEST_F(frmStartLoginTest, ItsPicturesFollowTheSystemIntoTheDark)
{
    const auto brightness = [this] {
        return form->grab()
            .toImage()
            .scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .pixelColor(0, 0)
            .lightness();
    };
    EXPECT_GT(brightness(), 180);
    UseDarkLook(true);
    EXPECT_LT(brightness(), 90);
    UseDarkLook(false);
    EXPECT_GT(brightness(), 180);
}

TEST_F(frmStartLoginTest, ItStandsInTheMiddleOfTheScreen)
{
    const QPoint apart = form->frameGeometry().center() - form->screen()->availableGeometry().center();
    EXPECT_LE(apart.manhattanLength(), 8) << "but for its frame";
}

TEST_F(frmStartLoginTest, AnIdOfBlanksIsNoId)
{
    prompts.ExpectInformation(QStringLiteral("Enter Login ID"));
    LogIn(QStringLiteral("   "), secret);
    EXPECT_TRUE(loginId->hasFocus());
    EXPECT_FALSE(MainWindowShown());
}

TEST_F(frmStartLoginTest, AnEmptyPasswordIsAskedFor)
{
    prompts.ExpectInformation(QStringLiteral("Enter Password"));
    LogIn(mary, QString());
    EXPECT_TRUE(password->hasFocus());
    EXPECT_FALSE(MainWindowShown());
}

TEST_F(frmStartLoginTest, TheLastWorkingDateIsReadBeforeTheFieldsAreLookedAt)
{
    Given("INSERT INTO ApplicationDate VALUES ('2024-06-10', 1), ('2024-06-12', 1)");
    prompts.ExpectInformation(QStringLiteral("Enter Login ID"));
    LogIn(QString(), QString());
    EXPECT_EQ(Session().gdtmApplicationDate, QDate(2024, 6, 12));
}

TEST_F(frmStartLoginTest, WithoutAnyWorkingDateTheProgramHasNone)
{
    Session().gdtmApplicationDate = QDate(2024, 6, 12);
    LogIn(mary, secret);
    EXPECT_TRUE(Session().gdtmApplicationDate.isNull());
}

TEST_F(frmStartLoginTest, EnterInTheIdGoesToThePasswordWithoutLoggingIn)
{
    Type(loginId, mary);
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(password->hasFocus());
    EXPECT_FALSE(MainWindowShown());
}

TEST_F(frmStartLoginTest, FieldsTakeFifteenCharactersAndNoQuote)
{
    Type(loginId, QStringLiteral("a'b\"c;1234567890123456789"));
    EXPECT_EQ(loginId->text().toStdString(), "abc123456789012");
    Type(password, QStringLiteral("'x_y'"));
    EXPECT_EQ(password->text().toStdString(), "xy");
    EXPECT_EQ(password->displayText().toStdString(), "**");
}

TEST_F(frmStartLoginTest, OnANewInstallationAnybodyGetsInAndReachesOnlyTheUserMenus)
{
    LogIn(QStringLiteral(" nobody "), QStringLiteral("wrong"));
    ASSERT_TRUE(MainWindowShown());
    Settle();
    EXPECT_TRUE(form.isNull());
    // The group itself stays off as long as the school that is asked for first is open.
    EXPECT_TRUE(On("mnufrmUtilUserMaster"));
    EXPECT_FALSE(On("mnuToolsMenu"));
    EXPECT_FALSE(On("mnuMasters"));
    EXPECT_FALSE(On("mnuReports"));
    EXPECT_FALSE(On("mnufrmUtilOptions"));
    EXPECT_EQ(Session().gstrLoginId.toStdString(), "nobody");
    EXPECT_EQ(Session().gintUserCode, 0);
    EXPECT_EQ(Session().gstrUserName.toStdString(), "");
}

TEST_F(frmStartLoginTest, AWrongPasswordEmptiesBothFieldsAsOftenAsItIsTried)
{
    GivenMary();
    for (int attempt = 0; attempt < 5; ++attempt) {
        prompts.ExpectInformation(wrongText);
        LogIn(mary, QStringLiteral("guess"));
        EXPECT_EQ(loginId->text().toStdString(), "");
        EXPECT_EQ(password->text().toStdString(), "");
        EXPECT_TRUE(loginId->hasFocus());
    }
    EXPECT_EQ(processEnds, 0);
    EXPECT_FALSE(MainWindowShown());
}

TEST_F(frmStartLoginTest, ABlockedUserIsToldAndTheProcessEnds)
{
    GivenMary({}, QStringLiteral("Y"));
    prompts.ExpectInformation(QStringLiteral("Your ID Has Been Blocked. Contact Administrator"));
    LogIn(mary, secret);
    EXPECT_EQ(processEnds, 1);
    EXPECT_EQ(Session().gcnnMain, nullptr);
    EXPECT_FALSE(MainWindowShown());
}

TEST_F(frmStartLoginTest, ABlockedUserWithAWrongPasswordSeesTheWrongPasswordText)
{
    GivenMary({}, QStringLiteral("Y"));
    prompts.ExpectInformation(wrongText);
    LogIn(mary, QStringLiteral("guess"));
    EXPECT_EQ(processEnds, 0);
}

TEST_F(frmStartLoginTest, CaseDoesNotMatterToTheStore)
{
    GivenMary();
    LogIn(QStringLiteral("MARY"), QStringLiteral("Secret"));
    ASSERT_TRUE(MainWindowShown());
    EXPECT_EQ(Session().gintUserCode, 4);
    EXPECT_EQ(Session().gintPrivilegeUserCode, 4);
    EXPECT_EQ(Session().gstrUserName.toStdString(), "User mary");
    EXPECT_EQ(Session().gstrLoginId.toStdString(), "MARY");
}

TEST_F(frmStartLoginTest, RightsEnableTheirMenusAndNothingElse)
{
    GivenMary({{QStringLiteral("Reports"), QStringLiteral("D")},
               {QStringLiteral("frmRankCalculation"), QStringLiteral("D")},
               {QStringLiteral("frmUtilOptions"), QStringLiteral("N")}});
    LogIn(mary, secret);
    ASSERT_TRUE(MainWindowShown());
    EXPECT_TRUE(On("mnuReports"));
    EXPECT_TRUE(On("mnufrmRankCalculation"));
    EXPECT_FALSE(On("mnufrmUtilOptions"));
    EXPECT_FALSE(On("mnuToolsMenu"));
}

TEST_F(frmStartLoginTest, ALeafRightWithoutItsGroupLeavesTheGroupOff)
{
    GivenMary({{QStringLiteral("frmRankCalculation"), QStringLiteral("D")}});
    LogIn(mary, secret);
    EXPECT_TRUE(On("mnufrmRankCalculation"));
    EXPECT_FALSE(On("mnuReports"));
}

TEST_F(frmStartLoginTest, TwoReportsNeedNoRightEvenWhereTheirMenuIsOff)
{
    GivenMary({{QStringLiteral("frmUtilOptions"), QStringLiteral("N")}});
    LogIn(mary, secret);
    EXPECT_TRUE(On("mnufrmRankCardPrinting"));
    EXPECT_TRUE(On("mnufrmrptClassSubjectteacher"));
    EXPECT_FALSE(On("mnufrmrptClassList"));
    EXPECT_FALSE(On("mnuReports"));
}

TEST_F(frmStartLoginTest, ARightInAnotherCaseDoesNotReachItsMenu)
{
    GivenMary({{QStringLiteral("FRMRANKCALCULATION"), QStringLiteral("D")}});
    LogIn(mary, secret);
    EXPECT_FALSE(On("mnufrmRankCalculation"));
}

TEST_F(frmStartLoginTest, ARightToAScreenThatIsMissingEnablesNothing)
{
    const QString states = QStringLiteral("frmMasStateMaster");
    GivenMary({{states, QStringLiteral("D")}});
    const StandIn nothing(states);
    LogIn(mary, secret);
    EXPECT_FALSE(On("mnufrmMasStateMaster"));
}

TEST_F(frmStartLoginTest, ACommandOfTheMenusNeedsItsRightAndRunsByItsKeys)
{
    const QString compact = QStringLiteral("frmCompactDatabase");
    const QString canOpen = QStringLiteral("D");
    int runs = 0;
    MenuCommands::Register(compact, [&runs] { ++runs; });
    // Without a school and a year the window would force their screens, which take the menus.
    Given("INSERT INTO SchoolMaster VALUES ('School', 'Street', '', 0, '1', 'JUN', 1)");
    Given("INSERT INTO AcademicYearSetup VALUES (1, 2007, 2008, '2007-06-01', '2008-05-31', 'Y', 'N', 1)");
    GivenMary({{QStringLiteral("ToolsMenu"), canOpen}, {compact, canOpen}});
    LogIn(mary, secret);
    ASSERT_TRUE(On("mnufrmCompactDatabase"));
    QApplication::setActiveWindow(mdiTallyboard::Instance());
    Settle();
    QTest::keyClick(mdiTallyboard::Instance(), Qt::Key_U, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_C);
    EXPECT_EQ(runs, 1);
    MenuCommands::Forget(compact);
}

TEST_F(frmStartLoginTest, WithoutItsRightACommandOfTheMenusIsOff)
{
    const QString compact = QStringLiteral("frmCompactDatabase");
    MenuCommands::Register(compact, [] { ADD_FAILURE(); });
    GivenMary({{QStringLiteral("ToolsMenu"), QStringLiteral("D")}, {compact, QStringLiteral("N")}});
    LogIn(mary, secret);
    EXPECT_TRUE(On("mnuToolsMenu"));
    EXPECT_FALSE(On("mnufrmCompactDatabase"));
    mdiTallyboard::Instance()->MenuItem(QStringLiteral("mnufrmCompactDatabase"))->trigger();
    MenuCommands::Forget(compact);
}

TEST_F(frmStartLoginTest, ARightToACommandThatIsMissingEnablesNothing)
{
    const QString compact = QStringLiteral("frmCompactDatabase");
    MenuCommands::Forget(compact);
    GivenMary({{compact, QStringLiteral("D")}});
    LogIn(mary, secret);
    EXPECT_FALSE(On("mnufrmCompactDatabase"));
}

TEST_F(frmStartLoginTest, ThePicturesFollowTheMouse)
{
    auto* ok = Find<ImageButton>(form, "ImgOK");
    auto* cancel = Find<ImageButton>(form, "ImgCancel");
    const auto shows = [this](const ImageButton* button, const char* picture) {
        return button->Picture().cacheKey() ==
               Find<QLabel>(form, picture)->pixmap(Qt::ReturnByValue).cacheKey();
    };
    EXPECT_TRUE(shows(ok, "ImgOK1"));
    QTest::mouseMove(ok);
    EXPECT_TRUE(shows(ok, "ImgOK2"));
    EXPECT_TRUE(shows(cancel, "ImgCancel1"));
    QTest::mouseMove(cancel);
    EXPECT_TRUE(shows(ok, "ImgOK1"));
    EXPECT_TRUE(shows(cancel, "ImgCancel2"));
    QTest::mouseMove(Find<QLabel>(form, "Image1"), QPoint(3, 3));
    EXPECT_TRUE(shows(cancel, "ImgCancel1"));
}

TEST_F(frmStartLoginTest, OkWorksByMouseAndByKeyboard)
{
    prompts.ExpectInformation(QStringLiteral("Enter Login ID"));
    Press(Find<ImageButton>(form, "ImgOK"));
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        prompts.ExpectInformation(QStringLiteral("Enter Login ID"));
        Find<ImageButton>(form, "ImgOK")->setFocus();
        PressKey(form, key);
        prompts.Verify();
    }
    Find<ImageButton>(form, "ImgOK")->setFocus();
    PressKey(form, Qt::Key_A);
}

TEST_F(frmStartLoginTest, CancelAndExitEndWithoutAQuestion)
{
    Press(Find<ImageButton>(form, "ImgCancel"));
    EXPECT_EQ(processEnds, 1);
    Press(Find<QPushButton>(form, "cmdExit"));
    EXPECT_EQ(processEnds, 2);
    form->close();
    EXPECT_EQ(processEnds, 3);
}

TEST_F(frmStartLoginTest, AStoreThatFailsIsToldAndTheFormStays)
{
    Given("DROP TABLE ApplicationDate");
    prompts.ExpectCritical(NoSuchTable("ApplicationDate"));
    LogIn(mary, secret);
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(MainWindowShown());
}

TEST_F(frmStartLoginTest, AStartThatCanNotWriteItsRowsEndsTheProcess)
{
    Given("DROP TABLE ScreenStatus");
    prompts.ExpectCritical(NoSuchTable("ScreenStatus"));
    LogIn(mary, secret);
    EXPECT_EQ(processEnds, 1);
    EXPECT_EQ(mdiTallyboard::Instance(), nullptr);
    EXPECT_EQ(Count("SELECT count(*) FROM AccessedDate"), 0);
}

TEST_F(frmStartLoginTest, TheSameStartEndsAfterALoginToo)
{
    GivenMary();
    Given("DROP TABLE ScreenStatus");
    prompts.ExpectCritical(NoSuchTable("ScreenStatus"));
    LogIn(mary, secret);
    EXPECT_EQ(processEnds, 1);
    EXPECT_EQ(mdiTallyboard::Instance(), nullptr);
}

} // namespace
} // namespace tally::test
