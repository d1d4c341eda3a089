#include "core/shell/frmStartLock.h"
#include "core/shell/mdiTallyboard.h"
#include "core/ui/ScreenRegistry.h"
#include "support/ScreenFixture.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

namespace tally::test {
namespace {

/// Alt and a letter, on the keyboard of the whole window: the form in front and the menu bar above it.
class LettersTest : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        StopPresence();
        Given(
            "INSERT INTO AcademicYearSetup VALUES (1, 2007, 2008, '2007-06-01', '2008-05-31', 'Y', 'N', 1)");
        for (const char* menu : {"mnuMasters", "mnuTransactions", "mnuReports", "mnuToolsMenu"})
            window->EnableMenuItem(QString::fromLatin1(menu), true);
        Prompts::AnswerWith([this](Prompts::Kind, const QString& text) {
            boxes.append(text);
            return false;
        });
    }

    void PressLetter(int letter)
    {
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : window, Qt::Key(letter), Qt::AltModifier);
        Settle();
    }
    static const QAction* OpenMenu()
    {
        const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return menu ? menu->menuAction() : nullptr;
    }
    void ExpectNoMenu()
    {
        EXPECT_EQ(OpenMenu(), nullptr);
        EXPECT_EQ(boxes, QStringList());
        EXPECT_EQ(window->findChild<frmStartLock*>(), nullptr);
    }
    /// The letters of the menu bar that the form has as well.
    QList<int> SharedLetters(const QWidget* form) const
    {
        QStringList texts;
        for (const auto* button : form->findChildren<QAbstractButton*>())
            texts.append(button->text());
        for (const auto* label : form->findChildren<QLabel*>())
            if (label->buddy())
                texts.append(label->text());
        QList<QKeySequence> own;
        for (const QString& text : texts)
            own.append(QKeySequence::mnemonic(text));
        QList<int> shared;
        for (const QAction* menu : window->menuBar()->actions()) {
            const QKeySequence letter = QKeySequence::mnemonic(menu->text());
            if (!letter.isEmpty() && own.contains(letter))
                shared.append(letter[0].key());
        }
        return shared;
    }

    QStringList boxes;
};

TEST_F(LettersTest, ALetterOfTheFormInFrontIsItsOwnWhileItsControlIsOff)
{
    int tried = 0;
    for (const QString& name : ScreenRegistry::Names()) {
        SCOPED_TRACE(name.toStdString());
        Screen* form = OpenScreen(name);
        ASSERT_NE(form, nullptr);
        const QList<int> letters = SharedLetters(form);
        const auto controls = form->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (const int letter : letters) {
            SCOPED_TRACE(std::string(1, static_cast<char>(letter)));
            for (QWidget* control : controls)
                control->setEnabled(false);
            PressLetter(letter);
            ExpectNoMenu();
            for (QWidget* control : controls)
                control->hide();
            PressLetter(letter);
            ExpectNoMenu();
            for (QWidget* control : controls)
                control->setEnabled(true);
            ++tried;
        }
        form->Unload();
        Settle();
        boxes.clear();
    }
    EXPECT_GE(tried, 8);
}

TEST_F(LettersTest, InClassAndSectionTheLetterOfTheSwitchedOffNumberAsksForNoClose)
{
    Screen* form = OpenScreen(QStringLiteral("frmMasClassSectionEntry"));
    Press(Find<QAbstractButton>(form, "cmdClose"));
    ASSERT_FALSE(Find<QLineEdit>(form, "txtDeleteSlNo")->isEnabled());
    PressLetter(Qt::Key_O);
    ExpectNoMenu();
}

TEST_F(LettersTest, OnTheRankListTheLetterOfTheButtonThatIsOffDoesNotLock)
{
    Screen* form = OpenScreen(QStringLiteral("frmRankCalculation"));
    auto* proceed = Find<QAbstractButton>(form, "cmdUpdate");
    ASSERT_TRUE(proceed->text().contains(QStringLiteral("Clic&k")));
    proceed->parentWidget()->setEnabled(false);
    PressLetter(Qt::Key_K);
    ExpectNoMenu();
}

TEST_F(LettersTest, ALetterThatTheFormDoesNotHaveStillOpensItsMenu)
{
    Screen* form = OpenScreen(QStringLiteral("frmUtilOptions"));
    ASSERT_FALSE(SharedLetters(form).contains(Qt::Key_R));
    PressLetter(Qt::Key_R);
    ASSERT_NE(OpenMenu(), nullptr);
    EXPECT_EQ(OpenMenu()->objectName().toStdString(), "mnuReports");
    QApplication::activePopupWidget()->close();
    PressLetter(Qt::Key_O);
    EXPECT_EQ(boxes, QStringList(QStringLiteral("Do You Want To Close The 'KITE-Tally Board' ?")));
}

TEST_F(LettersTest, WithoutAFormEveryMenuHasItsLetter)
{
    PressLetter(Qt::Key_M);
    ASSERT_NE(OpenMenu(), nullptr);
    EXPECT_EQ(OpenMenu()->objectName().toStdString(), "mnuMasters");
    QApplication::activePopupWidget()->close();
    PressLetter(Qt::Key_K);
    EXPECT_NE(window->findChild<frmStartLock*>(), nullptr);
}

TEST_F(LettersTest, OnlyTheFormInFrontKeepsALetterFromTheMenus)
{
    OpenScreen(QStringLiteral("frmRankCalculation"));
    Screen* front = OpenScreen(QStringLiteral("frmUtilOptions"));
    ASSERT_FALSE(SharedLetters(front).contains(Qt::Key_K));
    PressLetter(Qt::Key_K);
    EXPECT_NE(window->findChild<frmStartLock*>(), nullptr);
}

TEST_F(LettersTest, ALetterReachesTheFormAtOnceAlsoWhenNothingInItHasTheKeyboard)
{
    Session().gblnPromptOnExit = true;
    OpenScreen(QStringLiteral("frmUtilOptions"));
    QApplication::focusWidget()->clearFocus();
    PressLetter(Qt::Key_X);
    EXPECT_EQ(boxes, QStringList(QStringLiteral("Do You Want To Exit Options ?")));
}

} // namespace
} // namespace tally::test
