#include "core/MenuTree.h"

#include "core/ScreenRegistry.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <gtest/gtest.h>

namespace tally {
namespace {

class MenuTreeTest : public testing::Test
{
protected:
    QMenuBar bar;
    QStringList opened;
    QHash<QString, QAction*> items =
        BuildMenus(&bar, [this](const QString& screen) { opened.append(screen); });

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
    ASSERT_FALSE(ScreenRegistry::Knows(QStringLiteral("frmrptClasssubjectteacher")));
    EXPECT_FALSE(LeadsSomewhere(Item("mnufrmrptClassSubjectteacher")));
    EXPECT_FALSE(Item("mnufrmrptClassSubjectteacher")->isEnabled());
    EXPECT_TRUE(LeadsSomewhere(Item("mnufrmRankCalculation")));
    EXPECT_TRUE(LeadsSomewhere(Item("mnuMasters")));
    EXPECT_TRUE(LeadsSomewhere(Item("mnuLock")));
}

TEST_F(MenuTreeTest, AChosenEntryOpensItsScreen)
{
    Item("mnufrmRankCalculation")->setEnabled(true);
    Item("mnufrmRankCalculation")->trigger();
    Item("frmAboutUs")->trigger();
    EXPECT_EQ(opened, (QStringList{QStringLiteral("frmRankCalculation"), QStringLiteral("AboutUs")}));
}

TEST_F(MenuTreeTest, TheNameOfAnEntryIsThePrefixAndItsScreenExceptForThreeOldSpellings)
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
