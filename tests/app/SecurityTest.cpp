// What a user without rights meets on each screen, by whatever way he comes.

#include "core/shell/mdiTallyboard.h"
#include "core/shell/MenuTree.h"
#include "core/ui/controls/Grid.h"
#include "core/ui/ScreenRegistry.h"
#include "support/ScreenFixture.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QRadioButton>
#include <QRegularExpression>

#include <map>
#include <optional>
#include <set>

namespace tally::test {
namespace {

constexpr const char* MayNotCreate = "You Have No Privilege To Create New Entry";
constexpr const char* MayNotModify = "You Have No Privilege To Modify This Entry";
constexpr const char* MayNotDelete = "You Have No Privilege To Delete";
constexpr const char* MayNotExport = "You Have No Privilege To Export This Report";
constexpr const char* MayNotMoveDate = "You Have No Privilege To Modify Application Date";
/// A print is refused with a box that says nothing; only the export says why.
constexpr const char* MayNotPrint = "";

/// What is told at the buttons that bear these names everywhere.
const std::map<QString, const char*> Guarded{
    {QStringLiteral("cmdNew"), MayNotCreate},    {QStringLiteral("cmdEdit"), MayNotModify},
    {QStringLiteral("cmdDelete"), MayNotDelete}, {QStringLiteral("cmdExport"), MayNotExport},
    {QStringLiteral("cmdPrint"), MayNotPrint},
};

/// Where a screen has buttons of its own that are guarded, or guards one in its own way; nothing for one that
/// whoever opens the screen may press.
const std::map<std::pair<QString, QString>, const char*> OwnGuards{
    {{QStringLiteral("frmMasAcademicYearSetup"), QStringLiteral("cmdDelete")}, MayNotModify},
    {{QStringLiteral("frmMasAcademicYearChange"), QStringLiteral("cmdSave")},
     "You Have No Privilege To Change The Academic Year"},
    {{QStringLiteral("frmUtilApplicationDateChange"), QStringLiteral("cmdSave")}, MayNotMoveDate},
    {{QStringLiteral("frmUtilApplicationDateSetup"), QStringLiteral("cmdAddOneDay")}, MayNotMoveDate},
    {{QStringLiteral("frmUtilApplicationDateSetup"), QStringLiteral("cmdDeleteLastDay")}, MayNotMoveDate},
    {{QStringLiteral("frmUtilBackupRestore"), QStringLiteral("cmdBackup")},
     "You Have No Privilege To Take Database Backup"},
    {{QStringLiteral("frmUtilUserPrivileges"), QStringLiteral("cmdTransfer")}, MayNotModify},
    {{QStringLiteral("frmRankCalculation"), QStringLiteral("cmdPrintSetup")}, MayNotExport},
    {{QStringLiteral("frmMasOptionalAdmissionNoChange"), QStringLiteral("cmdEdit")}, nullptr},
    {{QStringLiteral("frmClassSubjectTeacherTransfer"), QStringLiteral("cmdNew")}, nullptr},
    {{QStringLiteral("frmrptClasssubjectteacher"), QStringLiteral("cmdExport")}, nullptr},
    {{QStringLiteral("frmStudentExamAvgChart"), QStringLiteral("cmdPrint")}, nullptr},
};

/// Buttons that lead to nothing, on or off.
const std::set<std::pair<QString, QString>> Dead{
    {QStringLiteral("frmRankCardPrinting"), QStringLiteral("cmdPrint")},
    {QStringLiteral("frmstudentyearlyexamavg"), QStringLiteral("cmdPrint")},
};

const char* RefusalOf(const QString& screen, const QString& button)
{
    if (Dead.contains({screen, button}))
        return nullptr;
    const auto own = OwnGuards.find({screen, button});
    if (own != OwnGuards.end())
        return own->second;
    const auto usual = Guarded.find(button);
    return usual == Guarded.end() ? nullptr : usual->second;
}

/// The program's own sources, one behind the other.
const QString& Sources()
{
    static const QString all = [] {
        QString text;
        QDirIterator files(QStringLiteral(TALLY_SOURCE_FOLDER), {QStringLiteral("*.cpp")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            text += QString::fromUtf8(file.readAll());
        }
        return text;
    }();
    return all;
}

/// Whether the handler of the button asks for a right; nothing where the screen has no handler of that name.
std::optional<bool> AsksForARight(const Screen& screen, const QString& button)
{
    static const QRegularExpression asks(
        QStringLiteral("\\b(MayUse|MayPrint|PrintList)\\(|ReportScreen::cmd\\w+_Click\\("));
    for (const QMetaObject* kind = screen.metaObject(); kind; kind = kind->superClass()) {
        const QString handler =
            QStringLiteral("\nvoid %1::%2_Click()\n")
                .arg(QString::fromLatin1(kind->className()).section(QStringLiteral("::"), -1), button);
        const qsizetype from = Sources().indexOf(handler);
        if (from >= 0)
            return Sources().mid(from, Sources().indexOf(QLatin1String("\n}\n"), from) - from).contains(asks);
    }
    return std::nullopt;
}

class SecurityTest : public ScreenFixture
{
protected:
    static constexpr int Clerk = 5;

    void SetUp() override
    {
        ScreenFixture::SetUp();
        StopPresence();
        // Nobody looks, and painting each screen would take most of the time.
        window->setUpdatesEnabled(false);
        Given("INSERT INTO SchoolMaster VALUES ('School', 'Street', '', 0, '1', 'JUN', 1)");
        Given(
            "INSERT INTO AcademicYearSetup VALUES (1, 2007, 2008, '2007-06-01', '2008-05-31', 'Y', 'N', 1)");
        Given("INSERT INTO ApplicationDate VALUES ('2007-06-01', 1)");
        Given("INSERT INTO Options VALUES ('N', 'N', '2005-05-31', 'A', 'N', 'N')");
        for (const char* row :
             {"StateMaster VALUES (1, 'Kerala', 1)", "CityMaster VALUES (1, 1, 'Kochi', 1)",
              "BloodGroupMaster VALUES (1, 'O', 1)", "SalutationMaster VALUES (1, 'Mr', 1)",
              "ExamMaster VALUES (1, 'Term', 1, 1)", "SubjectMaster VALUES (1, 'English', 'Eng', 1)",
              "ClassDivisionMaster VALUES (1, 'X', 1, 1, 1)", "ClassDivisionDetails VALUES (1, 'A', 1)",
              "TeacherMaster (TeacherCode, SalutationCode, TeacherName, TeacherShortName, CityCode,"
              " BloodGroupCode) VALUES (1, 1, 'Amala', 'AMA', 1, 1)",
              "StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo, AcademicYearCode, StudentName,"
              " CityCode, BloodGroupCode) VALUES (1, 1, '1', 1, 'Asha', 1, 1)",
              "StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo, AcademicYearCode, StudentName,"
              " CityCode, BloodGroupCode, RelievingDate, TCNo, TCDate)"
              " VALUES (2, 2, '2', 1, 'Binu', 1, 1, '2007-06-01', '7', '2007-06-01')",
              "StudentClassDivision VALUES (1, 1, 1, 1, 'Y', 1)",
              "StudentClassDivision VALUES (2, 1, 1, 1, 'N', 1)"})
            Session().gcnnMain->Execute(QStringLiteral("INSERT INTO ") + QLatin1String(row));
        GivenUser(1, QStringLiteral("boss"), QStringLiteral("Secret"),
                  {{QStringLiteral("ToolsMenu"), QStringLiteral("D")},
                   {QStringLiteral("frmUtilUserPrivileges"), QStringLiteral("N")}});
        GivenUser(Clerk, QStringLiteral("clerk"), QStringLiteral("Secret"));
        SessionContext& session = Session();
        session.gintUserCode = Clerk;
        session.gintPrivilegeUserCode = Clerk;
        session.gintAcademicYearCode = 1;
        session.gintYearFrom = 2007;
        session.gintYearTo = 2008;
        session.gdtmFromDate = QDate(2007, 6, 1);
        session.gdtmToDate = QDate(2008, 5, 31);
        session.gdtmApplicationDate = QDate(2007, 6, 1);
        session.gblnApplicationDateExists = true;
        session.gstrDefaultGender = QStringLiteral("A");
        session.gvarDefaultDOB = QStringLiteral("31/May/2005");
        Prompts::AnswerWith([this](Prompts::Kind, const QString& text) {
            told.append(text);
            return true;
        });
    }

    /// Opens one screen after the other, each alone.
    void ForEachScreen(const std::function<void(const QString& name, Screen& screen)>& look)
    {
        for (const QString& name : ScreenRegistry::Names()) {
            SCOPED_TRACE(name.toStdString());
            told.clear();
            Screen* screen = OpenScreen(name);
            ASSERT_NE(screen, nullptr) << told.join(QLatin1Char('/')).toStdString();
            look(name, *screen);
            CloseAll();
        }
    }
    void CloseAll()
    {
        for (const QString& name : ScreenRegistry::Names())
            if (Screen* screen = ScreenRegistry::OpenInstance(name))
                screen->Unload();
        Settle();
    }
    /// Presses each guarded button of the screen in all ways, also one that is off by now and would be on
    /// once a row is in hand. Gives how many there are.
    int ExpectRefusals(const QString& name, Screen& screen)
    {
        int guarded = 0;
        // A note that lies over the screen goes first.
        auto* note = screen.findChild<QAbstractButton*>(QStringLiteral("cmdClose"));
        if (note && note->isVisible() && screen.findChild<QAbstractButton*>(QStringLiteral("cmdNew")))
            note->click();
        for (auto* button : screen.findChildren<QAbstractButton*>()) {
            const char* refusal = RefusalOf(name, button->objectName());
            if (!refusal)
                continue;
            SCOPED_TRACE(button->objectName().toStdString());
            ++guarded;
            for (const auto& press : Ways(button)) {
                Enable(button);
                told.clear();
                press();
                Settle();
                EXPECT_EQ(told, QStringList{QString::fromLatin1(refusal)}) << told.join(u'/').toStdString();
            }
        }
        return guarded;
    }
    /// With all that it stands in, as it is once the screen has come so far.
    static void Enable(QWidget* control)
    {
        for (QWidget* part = control; !qobject_cast<Screen*>(part); part = part->parentWidget())
            part->setEnabled(true);
    }
    static std::vector<std::function<void()>> Ways(QAbstractButton* button)
    {
        std::vector<std::function<void()>> ways{
            [button] { button->click(); },
            [button] {
                button->setFocus();
                QTest::keyClick(button, Qt::Key_Return);
            },
        };
        if (button->isVisible())
            ways.push_back([button] { Press(button); });
        const QKeySequence letter = QKeySequence::mnemonic(button->text());
        if (!letter.isEmpty() && button->isVisible())
            ways.push_back(
                [button, letter] { QTest::keyClick(button, Qt::Key(letter[0].key()), Qt::AltModifier); });
        return ways;
    }
    QStringList Files() const { return QDir(Folder()).entryList(QDir::Files); }
    void Grant(const char* right)
    {
        for (const QString& name : ScreenRegistry::Names())
            Given("INSERT INTO UserPrivilegeDetails (FormName, ButtonName, UserCode) VALUES (?, ?, ?)", name,
                  right, Clerk);
    }

    QStringList told;
};

TEST_F(SecurityTest, EachGuardedButtonOfEachScreenIsRefusedInEveryWayAndNothingIsDone)
{
    const QStringList files = Files();
    int guarded = 0;
    ForEachScreen([&](const QString& name, Screen& screen) {
        const AllRows main(*Session().gcnnMain);
        const AllRows temp(*Session().gcnnTemp);
        guarded += ExpectRefusals(name, screen);
        main.ExpectTouchedOnly(*Session().gcnnMain, "none", {});
        temp.ExpectTouchedOnly(*Session().gcnnTemp, "none", {});
    });
    EXPECT_GE(guarded, 45);
    EXPECT_EQ(Files(), files);
}

TEST_F(SecurityTest, NoScreenOpensInAStateThatANeededRightWouldLeadTo)
{
    ForEachScreen([](const QString& name, const Screen& screen) {
        const auto* save = screen.findChild<QAbstractButton*>(QStringLiteral("cmdSave"));
        const bool needsARight = screen.findChild<QAbstractButton*>(QStringLiteral("cmdNew")) != nullptr;
        if (save && needsARight) {
            EXPECT_FALSE(save->isEnabled()) << name.toStdString();
        }
    });
}

TEST_F(SecurityTest, AMasterThatASideButtonOpensIsGuardedAsFromTheMenu)
{
    int opened = 0;
    ForEachScreen([&](const QString& name, const Screen& screen) {
        for (auto* button : screen.findChildren<QAbstractButton*>()) {
            if (!button->objectName().startsWith(QLatin1String("cmdAdd")) ||
                RefusalOf(name, button->objectName()))
                continue;
            SCOPED_TRACE(button->objectName().toStdString());
            Enable(button);
            button->click();
            Settle();
            for (const QString& other : ScreenRegistry::Names()) {
                Screen* beside = ScreenRegistry::OpenInstance(other);
                if (!beside || beside == &screen)
                    continue;
                ++opened;
                EXPECT_GE(ExpectRefusals(other, *beside), 2);
                beside->Unload();
                Settle();
            }
        }
    });
    EXPECT_EQ(opened, 19);
}

TEST_F(SecurityTest, TheTableOfGuardedButtonsIsThatOfTheProgram)
{
    int asking = 0;
    ForEachScreen([&](const QString& name, const Screen& screen) {
        for (const auto* button : screen.findChildren<QAbstractButton*>()) {
            if (Dead.contains({name, button->objectName()}))
                continue;
            const auto asks = AsksForARight(screen, button->objectName());
            asking += asks.value_or(false) ? 1 : 0;
            EXPECT_EQ(asks.value_or(false), RefusalOf(name, button->objectName()) != nullptr)
                << button->objectName().toStdString();
        }
    });
    EXPECT_GE(asking, 70);
}

TEST_F(SecurityTest, RestoringIsRefusedAsBackingUpIs)
{
    Screen* screen = OpenScreen(QStringLiteral("frmUtilBackupRestore"));
    ASSERT_NE(screen, nullptr);
    Find<QRadioButton>(screen, "optRecovery")->click();
    auto* button = Find<QAbstractButton>(screen, "cmdBackup");
    for (const auto& press : Ways(button)) {
        told.clear();
        press();
        Settle();
        EXPECT_EQ(told, QStringList{QStringLiteral("You Have No Privilege To Restore Database")});
    }
}

TEST_F(SecurityTest, ARowThatIsDoubleClickedOrEnteredCanBeLookedAtButNotChanged)
{
    std::set<QString> entered;
    ForEachScreen([&](const QString& name, Screen& screen) {
        auto* list = screen.findChild<Grid*>(QStringLiteral("dgdDetails"));
        auto* search = screen.findChild<QAbstractButton*>(QStringLiteral("cmdSearch"));
        if (list && search)
            search->click();
        if (!list || list->model()->rowCount() == 0)
            return;
        const AllRows main(*Session().gcnnMain);
        for (const bool byKey : {false, true}) {
            Screen* open = OpenScreen(name);
            list = open->findChild<Grid*>(QStringLiteral("dgdDetails"));
            if (list->model()->rowCount() == 0)
                Find<QAbstractButton>(open, "cmdSearch")->click();
            list->setFocus();
            list->selectRow(0);
            int column = 0;
            while (list->isColumnHidden(column))
                ++column;
            if (byKey)
                QTest::keyClick(list, Qt::Key_Return);
            else
                QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                                   list->visualRect(list->model()->index(0, column)).center());
            Settle();
            for (const QString& shown : ScreenRegistry::Names())
                if (Screen* form = ScreenRegistry::OpenInstance(shown);
                    form && ExpectRefusals(shown, *form) > 0)
                    entered.insert(shown);
        }
        main.ExpectTouchedOnly(*Session().gcnnMain, "none", {});
    });
    EXPECT_GE(entered.size(), 12U);
    for (const char* form : {"frmTeacherMaster", "frmMasStudentMaster", "frmMasStudentAdmissionEntry",
                             "frmMasStudentRelievingMaster"})
        EXPECT_TRUE(entered.contains(QString::fromLatin1(form))) << form;
}

TEST_F(SecurityTest, RightsThatAreTakenWhileTheUserWorksActAtTheNextButton)
{
    for (const char* right : {"N", "E", "X", "P", "A", "M", "S", "B", "R", "D"})
        Grant(right);
    const auto administrator = AnotherClient();
    int taken = 0;
    ForEachScreen([&](const QString& name, Screen& screen) {
        SCOPED_TRACE(name.toStdString());
        auto* button = screen.findChild<QAbstractButton*>(QStringLiteral("cmdNew"));
        if (button && button->isEnabled()) {
            Press(button);
            Settle();
            EXPECT_FALSE(told.contains(QLatin1String(MayNotCreate)));
        }
        administrator->Execute(
            QStringLiteral("DELETE FROM UserPrivilegeDetails WHERE UserCode = ? AND FormName = ?"), Clerk,
            name);
        taken += ExpectRefusals(name, screen) > 0 ? 1 : 0;
    });
    EXPECT_EQ(taken, 34);
}

TEST_F(SecurityTest, TheMenusOpenForAUserWithoutRightsOnlyWhatIsOpenToAll)
{
    for (const MenuDefinition& line : MenuDefinitions()) {
        if (line.kind == MenuKind::Separator)
            continue;
        QAction* action = window->MenuItem(QString::fromLatin1(line.name));
        ASSERT_NE(action, nullptr) << line.name;
        EXPECT_EQ(action->isEnabled(), line.startsOn && LeadsSomewhere(QString::fromLatin1(line.name)))
            << line.name;
        if (line.startsOn)
            continue;
        action->trigger();
        Settle();
        EXPECT_EQ(ScreenRegistry::OpenInstance(QString::fromLatin1(line.opens)), nullptr) << line.name;
    }
    EXPECT_EQ(told, QStringList());
}

} // namespace
} // namespace tally::test
