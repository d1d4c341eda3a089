#include "utilities/frmHelp.h"

#include "core/shell/mdiTallyboard.h"
#include "core/ui/ScreenRegistry.h"
#include "store/HelpTexts.h"
#include "support/FormDriver.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QScrollBar>
#include <QTextEdit>
#include <QTreeWidget>

namespace tally::test {
namespace {

class frmHelpTest : public FormDriver<frmHelp>
{
protected:
    void OpenHelp(int screenNo)
    {
        Session().glngScreenNo = screenNo;
        OpenForm("frmHelp");
    }
    /// As another client finds the help file, and as a delivery may have filled it.
    void GivenHelp(const char* sql)
    {
        AnotherClient(QStringLiteral("Tallyboardhelp.mdb"))->Execute(QString::fromLatin1(sql));
    }
    std::string Name() const { return Find<QLabel>(form, "lblName")->text().toStdString(); }
    QTextEdit* Text() const { return Find<QTextEdit>(form, "txtDetail"); }
    std::string Details() const { return Text()->toPlainText().toStdString(); }
    QTreeWidget* Tree() const { return Find<QTreeWidget>(form, "tvwDisplay"); }
    void ClickLine(int row) const
    {
        QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          Tree()->visualItemRect(Tree()->topLevelItem(row)).center());
    }
    static const store::HelpText& TextNo(int number)
    {
        const auto texts = store::HelpTexts();
        const auto* found = &texts.front();
        for (const store::HelpText& text : texts)
            if (text.screenNumber == number)
                found = &text;
        return *found;
    }
};

TEST_F(frmHelpTest, ShowsTheTextOfTheScreenThatAskedAndAllScreens)
{
    OpenHelp(6);
    EXPECT_EQ(form->windowTitle().toStdString(), "Tally Board - Help");
    EXPECT_EQ(Name(), "Subject Master");
    EXPECT_EQ(Details(), TextNo(6).details);
    EXPECT_EQ(Tree()->headerItem()->text(0).toStdString(), "SCREEN NAME");
    ASSERT_EQ(Tree()->topLevelItemCount(), static_cast<int>(store::HelpTexts().size()));
    int row = 0;
    for (const store::HelpText& text : store::HelpTexts())
        EXPECT_EQ(Tree()->topLevelItem(row++)->text(0).toStdString(), text.screenName);
}

TEST_F(frmHelpTest, AScreenWithoutATextShowsTheTreeAndEmptyFields)
{
    for (const int number : {0, 36}) {
        OpenHelp(number);
        EXPECT_EQ(Name(), "");
        EXPECT_EQ(Details(), "");
        EXPECT_GT(Tree()->topLevelItemCount(), 30);
        form->Unload();
        Settle();
    }
}

TEST_F(frmHelpTest, ANameWithAnAmpersandShowsIt)
{
    OpenHelp(4);
    EXPECT_EQ(Name(), "Class&&Section Details");
    EXPECT_EQ(Find<QLabel>(form, "lblName")->buddy(), Text());
}

TEST_F(frmHelpTest, ANameIsShownAsItIsWrittenAndALongOneInFurtherLines)
{
    OpenHelp(4);
    const auto* name = Find<QLabel>(form, "lblName");
    EXPECT_EQ(name->textFormat(), Qt::PlainText);
    EXPECT_TRUE(name->wordWrap());
}

TEST_F(frmHelpTest, TheHelpHasNoHelpOfItsOwn)
{
    OpenHelp(6);
    QTest::keyClick(form->focusWidget(), Qt::Key_F1);
    Settle();
    EXPECT_EQ(Name(), "Subject Master");
    EXPECT_EQ(Session().glngScreenNo, 6);
}

TEST_F(frmHelpTest, AClickOrEnterOnALineShowsItsText)
{
    OpenHelp(0);
    ClickLine(2);
    EXPECT_EQ(Name(), TextNo(3).screenName);
    EXPECT_EQ(Details(), TextNo(3).details);
    Tree()->setFocus();
    QTest::keyClick(Tree(), Qt::Key_Down);
    EXPECT_EQ(Name(), TextNo(3).screenName);
    QTest::keyClick(Tree(), Qt::Key_Return);
    EXPECT_EQ(Name(), "Class&&Section Details");
    EXPECT_TRUE(HasFocus("tvwDisplay"));
}

TEST_F(frmHelpTest, OfTwoLinesWithOneNameBothShowTheFirst)
{
    GivenHelp("UPDATE Tallyboarddetails SET ScreenName = 'state master' WHERE Scrno = 6");
    OpenHelp(0);
    ClickLine(5);
    EXPECT_EQ(Name(), "State Master");
    EXPECT_EQ(Details(), TextNo(1).details);
}

TEST_F(frmHelpTest, ARowThatIsMissingIsMissingInTheTreeAndLeavesTheTextAlone)
{
    OpenHelp(1);
    GivenHelp("DELETE FROM Tallyboarddetails WHERE Scrno = 2");
    ClickLine(1);
    EXPECT_EQ(Name(), "State Master");
    form->Unload();
    Settle();
    OpenHelp(2);
    EXPECT_EQ(Name(), "");
    EXPECT_EQ(Tree()->topLevelItem(1)->text(0).toStdString(), "SchoolSetUp");
}

TEST_F(frmHelpTest, TheTextCannotBeEditedAndLeadsTheKeyboardOn)
{
    OpenHelp(1);
    QTest::mouseClick(Text()->viewport(), Qt::LeftButton);
    EXPECT_EQ(FocusName(), "cmdExit");
    QTest::keyClicks(Text(), QStringLiteral("words"));
    EXPECT_EQ(Details(), TextNo(1).details);
    Tree()->setFocus();
    Text()->setFocus();
    EXPECT_EQ(FocusName(), "cmdExit");
}

TEST_F(frmHelpTest, ALongTextIsTurnedWithThePageKeys)
{
    GivenHelp("UPDATE Tallyboarddetails SET Details = replace(hex(zeroblob(400)), '0', 'line' || char(10))"
              " WHERE Scrno = 1");
    OpenHelp(1);
    ClickLine(0);
    const QScrollBar* bar = Text()->verticalScrollBar();
    for (QWidget* focused : std::initializer_list<QWidget*>{Button("cmdExit"), Tree()}) {
        focused->setFocus();
        QTest::keyClick(focused, Qt::Key_PageDown);
        EXPECT_EQ(bar->value(), bar->pageStep());
        EXPECT_EQ(Tree()->currentIndex().row(), 0) << "the list stays where it is";
        QTest::keyClick(focused, Qt::Key_PageUp);
        EXPECT_EQ(bar->value(), 0);
    }
}

TEST_F(frmHelpTest, ExitLeavesWithoutAQuestion)
{
    Session().gblnPromptOnExit = true;
    OpenHelp(1);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmHelp")), nullptr);
}

TEST_F(frmHelpTest, TheCloseBoxIsRefusedWhileExitIsOff)
{
    OpenHelp(1);
    Button("cmdExit")->setEnabled(false);
    form->parentWidget()->close();
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmHelp")), form);
}

TEST_F(frmHelpTest, TheMenuShowsTheTextThatWasAskedForLast)
{
    const Screen* screen = OpenScreen(QStringLiteral("frmSubjectMaster"));
    ASSERT_NE(screen, nullptr);
    QTest::keyClick(screen->focusWidget(), Qt::Key_F1);
    Settle();
    form = qobject_cast<frmHelp*>(ScreenRegistry::OpenInstance(QStringLiteral("frmHelp")));
    ASSERT_NE(form, nullptr);
    form->Unload();
    Settle();
    Find<QAction>(window, "mnuTallyboardHelp")->trigger();
    Settle();
    form = qobject_cast<frmHelp*>(ScreenRegistry::OpenInstance(QStringLiteral("frmHelp")));
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(Name(), "Subject Master");
}

TEST_F(frmHelpTest, AnotherScreensF1BringsItsTextIntoTheHelpThatIsOpen)
{
    OpenHelp(1);
    const Screen* screen = OpenScreen(QStringLiteral("frmSubjectMaster"));
    ASSERT_NE(screen, nullptr);
    QTest::keyClick(screen->focusWidget(), Qt::Key_F1);
    Settle();
    EXPECT_EQ(Name(), "Subject Master");
    // Who comes back by a click finds what he was reading.
    ClickLine(0);
    OpenScreen(QStringLiteral("frmSubjectMaster"));
    OpenScreen(QStringLiteral("frmHelp"));
    EXPECT_EQ(Name(), "State Master");
}

TEST_F(frmHelpTest, F1BringsItsTextBackWhereAnotherOneWasChosenMeanwhile)
{
    const Screen* screen = OpenScreen(QStringLiteral("frmSubjectMaster"));
    ASSERT_NE(screen, nullptr);
    QTest::keyClick(screen->focusWidget(), Qt::Key_F1);
    Settle();
    form = qobject_cast<frmHelp*>(ScreenRegistry::OpenInstance(QStringLiteral("frmHelp")));
    ASSERT_NE(form, nullptr);
    ClickLine(0);
    EXPECT_EQ(Name(), "State Master");
    OpenScreen(QStringLiteral("frmSubjectMaster"));
    QTest::keyClick(screen->focusWidget(), Qt::Key_F1);
    Settle();
    EXPECT_EQ(Name(), "Subject Master");
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmHelp")), form);
}

TEST_F(frmHelpTest, ATextThatCannotBeReadLeavesTheOneThatIsShown)
{
    OpenHelp(1);
    const Screen* screen = OpenScreen(QStringLiteral("frmSubjectMaster"));
    ASSERT_NE(screen, nullptr);
    GivenHelp("ALTER TABLE Tallyboarddetails RENAME TO Away");
    QStringList told;
    Prompts::AnswerWith([&told](Prompts::Kind, const QString& text) {
        told.append(text);
        return true;
    });
    QTest::keyClick(screen->focusWidget(), Qt::Key_F1);
    Settle();
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(Name(), "State Master");
    EXPECT_EQ(Details(), TextNo(1).details);
}

TEST_F(frmHelpTest, ARowWithoutANameOrTextIsShownEmpty)
{
    GivenHelp("UPDATE Tallyboarddetails SET ScreenName = NULL, Details = NULL WHERE Scrno = 1");
    GivenHelp("UPDATE Tallyboarddetails SET ScreenName = '' WHERE Scrno = 2");
    OpenHelp(1);
    EXPECT_EQ(Name(), "");
    EXPECT_EQ(Details(), "");
    ASSERT_EQ(Tree()->topLevelItemCount(), static_cast<int>(store::HelpTexts().size()));
    ClickLine(2);
    EXPECT_EQ(Name(), TextNo(3).screenName);
    ClickLine(1);
    EXPECT_EQ(Name(), "");
    EXPECT_EQ(Details(), TextNo(2).details);
}

TEST_F(frmHelpTest, NoNameOfAScreenIsCut)
{
    OpenHelp(1);
    Tree()->setFixedWidth(90);
    Settle();
    for (int row = 0; row < Tree()->topLevelItemCount(); ++row) {
        const QString name = Tree()->topLevelItem(row)->text(0);
        EXPECT_GE(Tree()->visualItemRect(Tree()->topLevelItem(row)).width(),
                  Tree()->fontMetrics().horizontalAdvance(name))
            << name.toStdString();
    }
}

TEST_F(frmHelpTest, AHelpFileThatIsMissingIsToldAndTheScreenStaysEmpty)
{
    const QString path = Folder() + QStringLiteral("/Tallyboardhelp.mdb");
    ASSERT_TRUE(QFile::remove(path));
    QStringList told;
    Prompts::AnswerWith([&told](Prompts::Kind kind, const QString& text) {
        EXPECT_EQ(kind, Prompts::Kind::Critical);
        told.append(text);
        return true;
    });
    OpenHelp(1);
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(Name(), "");
    EXPECT_EQ(Tree()->topLevelItemCount(), 0);
    EXPECT_FALSE(QFile::exists(path));
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmHelp")), nullptr);
    EXPECT_EQ(told.size(), 1);
}

TEST_F(frmHelpTest, ADamagedHelpFileIsToldAndTheProgramGoesOn)
{
    QFile file(Folder() + QStringLiteral("/Tallyboardhelp.mdb"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QByteArray whole = file.readAll();
    for (const qsizetype from : {qsizetype{20}, qsizetype{1030}, whole.size() / 2}) {
        QByteArray damaged = whole;
        damaged.replace(from, 900, QByteArray(900, 'x'));
        ASSERT_TRUE(file.seek(0));
        ASSERT_EQ(file.write(damaged), damaged.size());
        ASSERT_TRUE(file.flush());
        QStringList told;
        Prompts::AnswerWith([&told](Prompts::Kind, const QString& text) {
            told.append(text);
            return true;
        });
        OpenHelp(1);
        EXPECT_EQ(told.size(), 1) << from;
        form->Unload();
        Settle();
    }
}

TEST_F(frmHelpTest, FitsASmallDisplay)
{
    ExpectToFit("frmHelp");
}

} // namespace
} // namespace tally::test
