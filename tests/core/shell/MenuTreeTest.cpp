#include "core/shell/MenuTree.h"

#include "app/Screens.h"
#include "core/shell/MenuCommands.h"
#include "support/StandIn.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <array>
#include <gtest/gtest.h>
#include <string>

namespace tally {
namespace {

class MenuTreeTest : public testing::Test
{
protected:
    QMenuBar bar;
    QStringList opened;
    QHash<QString, QAction*> items = BuildMenus(
        &bar, [this](const MenuDefinition& entry) { opened.append(QString::fromLatin1(entry.opens)); });

    QAction* Item(const char* name) { return items.value(QString::fromLatin1(name)); }
};

TEST_F(MenuTreeTest, TheMenuBarReadsFromLeftToRight)
{
    QStringList captions;
    const auto actions = bar.actions();
    for (const QAction* action : actions)
        captions.append(action->text());
    EXPECT_EQ(
        captions.join(QLatin1Char('|')).toStdString(),
        " &Masters     |     &Transactions     |     &Reports     |     &Utilities|     Help     |    Loc&k|"
        "     Cl&ose     ");
}

/// name|caption|parent|start, from top to bottom; a separator has the caption "-" and no start.
// clang-format off
constexpr std::array MenuLines{
    "mnuMasters| &Masters     ||off",
    "mnufrmMasStateMaster|State Master|mnuMasters|off",
    "mnufrmMasCityMaster|City Master|mnuMasters|off",
    "mnufrmMasSchoolSetup|School Setup|mnuMasters|off",
    "mnusep1|-|mnuMasters|",
    "mnufrmMasClassSectionEntry|Class && Section Details|mnuMasters|off",
    "mnufrmexamnamemaster|Exam Name Master|mnuMasters|off",
    "mnufrmSubjectMaster|Subject Master|mnuMasters|off",
    "mnufrmMasBloodGroupMaster|Blood Group Master|mnuMasters|off",
    "mnufrmSalutationMaster|Salutation Master|mnuMasters|off",
    "mnufrmTeacherMaster|Teacher Master|mnuMasters|off",
    "mnufrmMasStudentMaster|Student Master|mnuMasters|off",
    "mnufrmMasStudentAdmissionEntry|Student Admission Entry|mnuMasters|off",
    "mnufrmMasStudentRelievingMaster|Student Relieving Entry|mnuMasters|off",
    "mnuSep2|-|mnuMasters|",
    "mnufrmMasAcademicYearSetup|Academic Year Setup|mnuMasters|off",
    "mnufrmMasAcademicYearChange|Academic Year Change|mnuMasters|off",
    "mnuTransactions|     &Transactions     ||off",
    "mnufrmClassSubjectTeacher|Classwise Subject - Teacher - Mark Entry|mnuTransactions|off",
    "mnufrmClassSubjectTeacherTransfer|Classwise Subject - Teacher - Mark Entry - Copy|mnuTransactions|off",
    "mnuSep6|-|mnuTransactions|",
    "mnufrmClassRankSetup|Classwise Rank - Grade Setup|mnuTransactions|off",
    "mnufrmClassRankTransferSetup|Classwise Rank - Grade Setup - Copy|mnuTransactions|off",
    "mnusep8|-|mnuTransactions|",
    "mnufrmexammarkentry|Classwise Mark Entry|mnuTransactions|off",
    "mnuSeo9|-|mnuTransactions|",
    "mnufrmpromotionentry|Promotion Entry|mnuTransactions|off",
    "mnuReports|     &Reports     ||off",
    "mnufrmRankCalculation|Rank List Preparation|mnuReports|off",
    "mnufrmRankCardPrinting|Rank Card Printing|mnuReports|on",
    "mnuSep4|-|mnuReports|",
    "mnuSubjectAverage|Subject Average|mnuReports|off",
    "mnufrmclassdivisionsubjectavg|Based On Class - Division|mnuSubjectAverage|off",
    "mnufrmdivisionsubjectexamavg|Based On Exam(s)|mnuSubjectAverage|off",
    "mnuStudentMarkComparision|Student Mark Comparison|mnuReports|off",
    "mnufrmstudentexamavg|Based On Exam(s)|mnuStudentMarkComparision|off",
    "mnufrmstudentyearlyexamavg|Based On AcademicYear(s)|mnuStudentMarkComparision|off",
    "mnuStudentsList|Students List|mnuReports|off",
    "mnufrmstudentslistbelow|Below Class Average|mnuStudentsList|off",
    "mnufrmstudentslistabove|Above Class Average|mnuStudentsList|off",
    "mnufrmrptClassList|Class List|mnuReports|off",
    "mnufrmrptClassSubjectteacher|Classwise Subject - Teacher - Mark Report|mnuReports|on",
    "mnuToolsMenu|     &Utilities||off",
    "mnufrmUtilApplicationDateSetup|Application Date Setup|mnuToolsMenu|off",
    "mnufrmUtilApplicationDateChange|Application Date Change|mnuToolsMenu|off",
    "mnuSep3|-|mnuToolsMenu|",
    "mnufrmUtilUserMaster|User Master|mnuToolsMenu|off",
    "mnufrmUtilUserPrivileges|User Privileges|mnuToolsMenu|off",
    "mnuSep5|-|mnuToolsMenu|",
    "mnufrmUtilBackupRestore|Database Backup / Database Restore|mnuToolsMenu|off",
    "mnufrmCompactDatabase|Compress Database Size|mnuToolsMenu|off",
    "mnufrmUtilOptions|Options|mnuToolsMenu|off",
    "mnuHelp|     Help     ||on",
    "mnuTallyboardHelp|Tally Board Help|mnuHelp|on",
    "frmAboutUs| About Us     |mnuHelp|on",
    "mnuLock|    Loc&k||on",
    "mnuClose|     Cl&ose     ||on",
};
// clang-format on

std::string LineText(const MenuDefinition& line)
{
    const bool separator = line.kind == MenuKind::Separator;
    return std::string(line.name) + '|' + (separator ? "-" : line.caption) + '|' + line.parent + '|' +
           (separator       ? ""
            : line.startsOn ? "on"
                            : "off");
}

TEST_F(MenuTreeTest, EveryLineHasItsPlaceItsCaptionAndItsStart)
{
    const auto lines = MenuDefinitions();
    ASSERT_EQ(lines.size(), MenuLines.size());
    for (std::size_t index = 0; index < lines.size(); ++index)
        EXPECT_EQ(LineText(lines[index]), MenuLines[index]);
}

TEST_F(MenuTreeTest, EveryLineStandsUnderItsNameInItsGroup)
{
    for (const MenuDefinition& line : MenuDefinitions()) {
        QAction* action = Item(line.name);
        ASSERT_NE(action, nullptr) << line.name;
        EXPECT_EQ(action->objectName().toStdString(), line.name);
        EXPECT_EQ(action->isSeparator(), line.kind == MenuKind::Separator);
        EXPECT_EQ(action->menu() != nullptr, line.kind == MenuKind::Group);
        if (line.kind != MenuKind::Separator) {
            EXPECT_EQ(action->text().toStdString(), line.caption);
        }
        const QAction* parent = Item(line.parent);
        const QList<QAction*> siblings = parent ? parent->menu()->actions() : bar.actions();
        EXPECT_TRUE(siblings.contains(action)) << line.name;
    }
    EXPECT_EQ(MenuDefinitions().size(), 57u);
}

TEST_F(MenuTreeTest, TheReportsMenuReadsFromTopToBottom)
{
    QStringList names;
    const auto actions = Item("mnuReports")->menu()->actions();
    for (const QAction* action : actions)
        names.append(action->objectName());
    EXPECT_EQ(
        names.join(QLatin1Char(' ')).toStdString(),
        "mnufrmRankCalculation mnufrmRankCardPrinting mnuSep4 mnuSubjectAverage mnuStudentMarkComparision"
        " mnuStudentsList mnufrmrptClassList mnufrmrptClassSubjectteacher");
}

TEST_F(MenuTreeTest, AllButHelpLockAndCloseStartOff)
{
    for (const char* name : {"mnuMasters", "mnuTransactions", "mnuReports", "mnuToolsMenu",
                             "mnufrmRankCalculation", "mnufrmUtilOptions", "mnuSubjectAverage"})
        EXPECT_FALSE(Item(name)->isEnabled()) << name;
    for (const char* name : {"mnuHelp", "frmAboutUs", "mnuLock", "mnuClose"})
        EXPECT_TRUE(Item(name)->isEnabled()) << name;
}

TEST_F(MenuTreeTest, AnEntryWhoseScreenIsMissingLeadsNowhere)
{
    const QString entry = QStringLiteral("mnufrmUtilUserPrivileges");
    EXPECT_TRUE(LeadsSomewhere(entry));
    {
        const test::StandIn nothing(QStringLiteral("frmUtilUserPrivileges"));
        EXPECT_FALSE(LeadsSomewhere(entry));
    }
    EXPECT_TRUE(LeadsSomewhere(entry));
    for (const char* name : {"mnufrmRankCalculation", "mnuMasters", "mnuLock"})
        EXPECT_TRUE(LeadsSomewhere(QString::fromLatin1(name))) << name;
    for (const char* name : {"mnuSep2", "mnuNothing", ""})
        EXPECT_FALSE(LeadsSomewhere(QString::fromLatin1(name))) << name;
}

TEST_F(MenuTreeTest, AnEntryWhoseCommandIsMissingLeadsNowhere)
{
    const QString entry = QStringLiteral("mnuLock");
    const auto lockOfANewBar = [&entry] {
        QMenuBar another;
        return BuildMenus(&another, [](const MenuDefinition&) {}).value(entry)->isEnabled();
    };
    EXPECT_TRUE(lockOfANewBar());
    MenuCommands::Forget(QStringLiteral("Lock"));
    EXPECT_FALSE(LeadsSomewhere(entry));
    EXPECT_FALSE(lockOfANewBar());
    RegisterCommands();
    EXPECT_TRUE(LeadsSomewhere(entry));
}

/// An open menu of the bar, in which letters are pressed.
class MenuLetters : public MenuTreeTest
{
protected:
    void SetUp() override
    {
        for (QAction* item : std::as_const(items)) {
            if (!item->isSeparator())
                item->setEnabled(true);
            QObject::connect(item, &QAction::triggered, item,
                             [this, item] { triggered.append(item->objectName()); });
        }
        bar.show();
    }
    QMenu* Open(const char* group)
    {
        QMenu* menu = Item(group)->menu();
        menu->popup(QPoint(10, 10));
        return menu;
    }
    /// The entry that has the keys in the menu in front.
    static std::string Active()
    {
        const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return menu && menu->activeAction() ? menu->activeAction()->objectName().toStdString() : "";
    }
    static void PressLetter(char letter) { QTest::keyClick(QApplication::activePopupWidget(), letter); }

    QStringList triggered;
};

TEST_F(MenuLetters, ALetterOfOneEntryChoosesIt)
{
    Open("mnuMasters");
    PressLetter('b');
    EXPECT_EQ(triggered, QStringList{QStringLiteral("mnufrmMasBloodGroupMaster")});
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    Open("mnuHelp");
    PressLetter('A');
    EXPECT_EQ(triggered.last().toStdString(), "frmAboutUs") << "blanks before a caption are no letters";
}

TEST_F(MenuLetters, ALetterThatChoosesIsUsedUpAndAllOtherKeysAreLeftToTheMenu)
{
    QMenu* menu = Open("mnuMasters");
    const auto isUsedUp = [menu](Qt::Key key, Qt::KeyboardModifiers modifiers, const char* text) {
        QKeyEvent press(QEvent::KeyPress, key, modifiers, QString::fromLatin1(text));
        QApplication::sendEvent(menu, &press);
        return press.isAccepted();
    };
    EXPECT_TRUE(isUsedUp(Qt::Key_S, Qt::NoModifier, "s"));
    EXPECT_EQ(Active(), "mnufrmMasStateMaster");
    EXPECT_TRUE(isUsedUp(Qt::Key_S, Qt::ShiftModifier, "S"));
    EXPECT_EQ(Active(), "mnufrmMasSchoolSetup");
    EXPECT_FALSE(isUsedUp(Qt::Key_Z, Qt::NoModifier, "z"));
    EXPECT_FALSE(isUsedUp(Qt::Key_S, Qt::ControlModifier, "s"));
    EXPECT_FALSE(isUsedUp(Qt::Key_F7, Qt::NoModifier, ""));
    EXPECT_EQ(Active(), "mnufrmMasSchoolSetup");
    EXPECT_TRUE(isUsedUp(Qt::Key_B, Qt::NoModifier, "b"));
    EXPECT_EQ(triggered, QStringList{QStringLiteral("mnufrmMasBloodGroupMaster")});
}

TEST_F(MenuLetters, ALetterOfSeveralEntriesGoesRoundAmongThem)
{
    Open("mnuMasters");
    PressLetter('s');
    EXPECT_EQ(Active(), "mnufrmMasStateMaster");
    PressLetter('s');
    EXPECT_EQ(Active(), "mnufrmMasSchoolSetup");
    for (int rest = 0; rest < 5; ++rest)
        PressLetter('s');
    EXPECT_EQ(Active(), "mnufrmMasStudentRelievingMaster");
    PressLetter('s');
    EXPECT_EQ(Active(), "mnufrmMasStateMaster");
    EXPECT_TRUE(triggered.isEmpty());
    PressLetter('c');
    EXPECT_EQ(Active(), "mnufrmMasCityMaster");
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    EXPECT_EQ(triggered, QStringList{QStringLiteral("mnufrmMasCityMaster")});
}

TEST_F(MenuLetters, EntriesThatAreOffAreSkipped)
{
    Item("mnufrmMasStateMaster")->setEnabled(false);
    Item("mnufrmMasClassSectionEntry")->setEnabled(false);
    Open("mnuMasters");
    PressLetter('s');
    EXPECT_EQ(Active(), "mnufrmMasSchoolSetup");
    PressLetter('z');
    EXPECT_EQ(Active(), "mnufrmMasSchoolSetup");
    PressLetter('c');
    EXPECT_EQ(triggered, QStringList{QStringLiteral("mnufrmMasCityMaster")}) << "the only one that is on";
}

TEST_F(MenuLetters, AGroupWithinAMenuOpensAndTakesTheNextLetter)
{
    Item("mnuStudentMarkComparision")->setEnabled(false);
    Item("mnuStudentsList")->setEnabled(false);
    QMenu* reports = Open("mnuReports");
    PressLetter('s');
    ASSERT_EQ(QApplication::activePopupWidget(), Item("mnuSubjectAverage")->menu());
    EXPECT_EQ(Active(), "mnufrmclassdivisionsubjectavg");
    PressLetter('b');
    EXPECT_EQ(Active(), "mnufrmdivisionsubjectexamavg");
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    EXPECT_EQ(triggered, QStringList{QStringLiteral("mnufrmdivisionsubjectexamavg")});
    EXPECT_FALSE(reports->isVisible());
}

TEST_F(MenuLetters, ALetterOfSeveralGroupsGoesRoundAmongThemAlthoughEachShowsItsEntries)
{
    const QMenu* reports = Open("mnuReports");
    for (const char* group :
         {"mnuSubjectAverage", "mnuStudentMarkComparision", "mnuStudentsList", "mnuSubjectAverage"}) {
        PressLetter('s');
        EXPECT_EQ(reports->activeAction()->objectName().toStdString(), group);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Item(group)->menu()->isVisible(); }));
    }
    PressLetter('b');
    EXPECT_EQ(Active(), "mnufrmclassdivisionsubjectavg") << "letters of the entries shown go before";
}

TEST_F(MenuTreeTest, AChosenEntryOpensItsScreen)
{
    Item("mnufrmRankCalculation")->setEnabled(true);
    Item("mnufrmRankCalculation")->trigger();
    Item("frmAboutUs")->trigger();
    EXPECT_EQ(opened, (QStringList{QStringLiteral("frmRankCalculation"), QStringLiteral("AboutUs")}));
}

TEST_F(MenuTreeTest, AChosenCommandIsHandedOverAsOne)
{
    Item("mnuClose")->trigger();
    EXPECT_EQ(opened, QStringList{QStringLiteral("Close")});
}

TEST_F(MenuTreeTest, TheNameOfAnEntryIsThePrefixAndItsScreenExceptForTwoOldSpellingsAndTheHelpMenu)
{
    QStringList different;
    for (const MenuDefinition& line : MenuDefinitions())
        if (*line.opens && std::string("mnu") + line.opens != line.name)
            different.append(QString::fromLatin1(line.name));
    EXPECT_EQ(different.join(QLatin1Char(' ')).toStdString(),
              "mnufrmpromotionentry mnufrmrptClassSubjectteacher mnuTallyboardHelp frmAboutUs");
}

} // namespace
} // namespace tally
