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
#include <QEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTransform>

#include <cstdlib>
#include <functional>
#include <tuple>

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

TEST_F(frmStartLoginTest, ItsButtonsAreDrawnInTheColoursOfTheSystemAndLitInTheAccent)
{
    const auto picture = [this](const char* name) {
        return Find<QLabel>(form, name)->pixmap(Qt::ReturnByValue).toImage();
    };
    const auto holds = [](const QImage& image, const QColor& color) {
        for (int y = 3; y < image.height() - 3; ++y)
            for (int x = 16; x < image.width() - 16; ++x)
                if (std::abs(image.pixelColor(x, y).lightness() - color.lightness()) < 30)
                    return true;
        return false;
    };
    EXPECT_NE(picture("ImgOK1"), picture("ImgCancel1")) << "each has its caption";
    const int room = QFontMetrics(form->font()).horizontalAdvance(QStringLiteral("Cancel")) + 6 * LookUnit;
    for (const bool dark : {false, true}) {
        UseDarkLook(dark);
        const QPalette palette = form->palette();
        for (const auto& [name, body, edge, text] :
             {std::tuple("ImgOK1", QPalette::Button, QPalette::Mid, QPalette::ButtonText),
              {"ImgCancel1", QPalette::Button, QPalette::Mid, QPalette::ButtonText},
              {"ImgOK2", QPalette::Highlight, QPalette::Highlight, QPalette::HighlightedText},
              {"ImgCancel2", QPalette::Highlight, QPalette::Highlight, QPalette::HighlightedText}}) {
            const QImage drawn = picture(name);
            EXPECT_EQ(drawn.width(), room) << name;
            EXPECT_EQ(drawn.pixelColor(0, 0).alpha(), 0) << name;
            EXPECT_EQ(drawn.pixelColor(8, drawn.height() / 2), palette.color(body)) << name;
            EXPECT_EQ(drawn.pixelColor(drawn.width() / 2, 0), palette.color(edge)) << name;
            EXPECT_TRUE(holds(drawn, palette.color(text))) << name;
        }
    }
    UseDarkLook(false);
}

TEST_F(frmStartLoginTest, ABandAndAKiteStandBehindItsFieldsInTheAccent)
{
    const QImage drawn = Find<QLabel>(form, "Image1")->pixmap(Qt::ReturnByValue).toImage();
    const QPalette palette = form->palette();
    const QColor sheet = palette.color(QPalette::Window);
    const QColor accent = palette.color(QPalette::Highlight);
    ASSERT_EQ(drawn.size(), form->size());
    EXPECT_EQ(drawn.pixelColor(3, drawn.height() / 2), accent);
    EXPECT_EQ(drawn.pixelColor(drawn.width() / 2, drawn.height() / 2), sheet);
    // From the middle of the kite, which leans to the right.
    const auto at = [&](double x, double y) {
        const QPointF place = QTransform().translate(form->width() - 52, 34).rotate(24).map(QPointF(x, y));
        return drawn.pixelColor(place.toPoint());
    };
    const auto strength = [&](const QColor& color) {
        return std::abs(color.lightness() - sheet.lightness());
    };
    const int faint = strength(at(5, 4));
    EXPECT_GT(faint, 0) << "its cloth";
    EXPECT_LT(faint, strength(accent) / 2);
    for (const auto& [x, y] : {std::pair(0.0, -12.0), {0.0, 12.0}, {8.0, -4.0}, {-8.0, -4.0}})
        EXPECT_GT(strength(at(x, y)), faint + 10) << "its spars: " << x << ' ' << y;
    for (const auto& [x, y] : {std::pair(7.0, -12.0), {-7.0, -12.0}, {7.0, 10.0}, {-7.0, 10.0}})
        EXPECT_GT(strength(at(x, y)), faint + 10) << "its edges: " << x << ' ' << y;
    EXPECT_EQ(strength(at(12, 16)), 0);
    EXPECT_EQ(strength(at(-12, 16)), 0);
}

TEST_F(frmStartLoginTest, ItIsAsLargeAsItsFieldsNeedAndNothingLiesOverThem)
{
    EXPECT_EQ(form->size(), form->sizeHint());
    for (QWidget* field : {static_cast<QWidget*>(loginId), static_cast<QWidget*>(password)})
        EXPECT_EQ(form->childAt(field->geometry().center()), field);
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
    EXPECT_EQ(processEnds, 0) << "it gives way";
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
    auto* background = Find<QLabel>(form, "Image1");
    EXPECT_TRUE(shows(ok, "ImgOK1"));
    EXPECT_TRUE(shows(cancel, "ImgCancel1"));
    const auto moveTo = [](QWidget* over) {
        QMouseEvent event(QEvent::MouseMove, QPointF(3, 3), over->mapToGlobal(QPointF(3, 3)), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(over, &event);
    };
    const auto enter = [](QWidget* over) {
        QEnterEvent event(QPointF(3, 3), QPointF(3, 3), over->mapToGlobal(QPointF(3, 3)));
        QApplication::sendEvent(over, &event);
    };
    for (const auto& leave : {std::function<void(QWidget*)>(moveTo), std::function<void(QWidget*)>(enter)}) {
        enter(ok);
        EXPECT_TRUE(shows(ok, "ImgOK2"));
        EXPECT_TRUE(shows(cancel, "ImgCancel1"));
        enter(cancel);
        EXPECT_TRUE(shows(ok, "ImgOK1"));
        EXPECT_TRUE(shows(cancel, "ImgCancel2"));
        leave(background);
        EXPECT_TRUE(shows(ok, "ImgOK1"));
        EXPECT_TRUE(shows(cancel, "ImgCancel1"));
    }
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
    EXPECT_FALSE(form->close());
    EXPECT_EQ(processEnds, 3);
    EXPECT_TRUE(form->isVisible()) << "it stays in sight as long as the process ends";
}

TEST_F(frmStartLoginTest, AStoreThatFailsIsToldAndTheFormStays)
{
    Given("DROP TABLE ApplicationDate");
    prompts.ExpectCritical(NoSuchTable("ApplicationDate"));
    LogIn(mary, secret);
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(MainWindowShown());
}

TEST_F(frmStartLoginTest, ASchoolThatCanNotBeReadIsToldAndTheFormStays)
{
    GivenMary();
    Given("ALTER TABLE SchoolMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("SchoolMaster"));
    LogIn(mary, secret);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(processEnds, 0);
    Given("ALTER TABLE Away RENAME TO SchoolMaster");
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
