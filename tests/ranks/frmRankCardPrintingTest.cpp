#include "core/ui/ScreenRegistry.h"
#include "ranks/RankCardScreen.h"

#include <QLabel>
#include <QLineEdit>
#include <QToolBar>

#include <cstdlib>

namespace tally::test {
namespace {

class RankCardSelection : public RankCardScreen
{};

TEST_F(RankCardSelection, OpensWithTheExamsInFrontAndNothingChosen)
{
    GivenTwoStudents();
    OpenForm();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Rank Card"));
    EXPECT_TRUE(exams->hasFocus());
    EXPECT_EQ(Items(exams), QStringList({QStringLiteral("Term One"), QStringLiteral("Term Two")}));
    EXPECT_TRUE(exams->TickedIndexes().isEmpty());
    EXPECT_EQ(classes->currentText(), QStringLiteral(" "));
    EXPECT_EQ(divisions->count(), 1);
    EXPECT_EQ(students->count(), 0);
    EXPECT_TRUE(Option("Optsubjectdisplayno")->isChecked());
    EXPECT_EQ(Find<QLabel>(form, "Label5")->text(), QStringLiteral("."));
    EXPECT_EQ(Find<QLabel>(form, "Label4")->text(), QStringLiteral("[   ] Denotes Marks Are Not Entered "));
    EXPECT_EQ(Button("cmdExport")->toolTip(), QStringLiteral("Export To EXCEL"));
    ExpectNoCards();
}

TEST_F(RankCardSelection, TheSignOfTheKeyStandsBetweenTheBracketsOfItsNote)
{
    OpenForm();
    const auto* note = Find<QLabel>(form, "Label4");
    const auto* sign = Find<QLabel>(form, "Label5");
    const int brackets = note->fontMetrics().horizontalAdvance(QStringLiteral("[   ]"));
    EXPECT_LE(std::abs(2 * (sign->geometry().center().x() - note->x()) - brackets), 4);
}

TEST_F(RankCardSelection, AClassAloneReadsItsDivisionsAndNoStudents)
{
    GivenTwoStudents();
    OpenForm();
    StopPresence();
    const auto before = MainStore().StatementsRun();
    Choose(classes, QStringLiteral("X"));
    EXPECT_EQ(MainStore().StatementsRun() - before, 1U);
}

TEST_F(RankCardSelection, ControlsThatDoNothingAreNotShown)
{
    OpenForm();
    EXPECT_FALSE(Button("cmdPrint")->isVisible());
    EXPECT_FALSE(Find<QToolBar>(form, "Toolbar1")->isVisible());
    EXPECT_FALSE(Find<QLineEdit>(form, "txtmarkobtained")->isVisible());
}

TEST_F(RankCardSelection, TabGoesThroughTheSelectionInReadingOrder)
{
    GivenTwoStudents();
    OpenAndProceed();
    allExams->setFocus();
    QStringList order;
    for (int step = 0; step < 13; ++step) {
        order.append(form->focusWidget()->objectName());
        PressKey(form, Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(QLatin1Char(' ')).toStdString(),
              "chkSelectExamName Lstexamnames cboClass cboDivision chkSelectStudents LstStudents "
              "Optsubjectdisplayno cmdView msgDetails cmdExport cmdCancel cmdExit chkSelectExamName");
}

TEST_F(RankCardSelection, EachUnderlinedLetterLeadsToOneControl)
{
    OpenForm();
    EXPECT_EQ(ExpectOneControlALetter(form),
              QStringList({QStringLiteral("Select All"), QStringLiteral("Select All"),
                           QStringLiteral("Don't Display The Subject(s) Which Is Not Taken For Rank"),
                           QStringLiteral("Display All Subject(s)")}));
    const std::vector<std::pair<Qt::Key, QWidget*>> letters{
        {Qt::Key_L, classes}, {Qt::Key_D, divisions}, {Qt::Key_S, students}, {Qt::Key_N, exams}};
    for (const auto& [letter, field] : letters) {
        PressKey(form, letter, Qt::AltModifier);
        EXPECT_TRUE(field->hasFocus()) << field->objectName().toStdString();
    }
}

TEST_F(RankCardSelection, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmRankCardPrinting"));
}

TEST_F(RankCardSelection, HelpIsAskedForAtTheScreensNumber)
{
    OpenForm();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 22);
}

TEST_F(RankCardSelection, ProceedingAsksForExamThenClassThenDivisionThenStudent)
{
    GivenTwoStudents();
    OpenForm();
    prompts.ExpectInformation(QStringLiteral("Select Exam Name(s)"));
    Press(Button("cmdView"));
    EXPECT_TRUE(exams->hasFocus());

    Tick(exams, 0);
    prompts.ExpectInformation(QStringLiteral("Select Class"));
    Press(Button("cmdView"));
    EXPECT_TRUE(classes->hasFocus());

    Next(classes);
    prompts.ExpectInformation(QStringLiteral("Select Division"));
    Press(Button("cmdView"));
    EXPECT_TRUE(divisions->hasFocus());

    Next(divisions);
    prompts.ExpectInformation(QStringLiteral("Select Student(s)"));
    Press(Button("cmdView"));
    EXPECT_TRUE(students->hasFocus());
    ExpectNoCards();
}

TEST_F(RankCardSelection, EnterOnABlankClassStaysAndOnAChosenOneMovesOn)
{
    GivenTwoStudents();
    OpenForm();
    classes->setFocus();
    QTest::keyClick(classes, Qt::Key_Return);
    EXPECT_TRUE(classes->hasFocus());
    QTest::keyClick(classes, Qt::Key_Down);
    QTest::keyClick(classes, Qt::Key_Return);
    EXPECT_TRUE(divisions->hasFocus());
}

TEST_F(RankCardSelection, TheItemThatTheBlankKeyWouldTickShowsAsSoonAsTheKeysGoToItsList)
{
    GivenTwoStudents();
    OpenForm();
    EXPECT_TRUE(exams->item(0)->isSelected());
    ChooseDivision();
    PressKey(form, Qt::Key_Return);
    PressKey(form, Qt::Key_Tab);
    ASSERT_TRUE(students->hasFocus());
    EXPECT_TRUE(students->item(0)->isSelected());
    PressKey(form, Qt::Key_Space);
    EXPECT_EQ(students->TickedIndexes(), QList<int>{0});
    PressKey(form, Qt::Key_Down);
    EXPECT_TRUE(students->item(1)->isSelected());
    PressKey(form, Qt::Key_Tab);
    PressKey(form, Qt::Key_Backtab);
    EXPECT_TRUE(students->item(1)->isSelected()) << "the place in the list is kept";
    EXPECT_FALSE(students->item(0)->isSelected());
}

TEST_F(RankCardSelection, AnotherClassBringsItsDivisionsAndTakesTheStudentsAway)
{
    GivenTwoStudents();
    Given("Insert into ClassDivisionMaster values(2,'IX',9,2,0)");
    Given("Insert into ClassDivisionDetails values(2,'Q',2)");
    Given("Insert into ClassDivisionDetails values(2,'P',1)");
    OpenForm();
    ChooseDivision();
    EXPECT_EQ(Items(students), QStringList({QStringLiteral("  Asha"), QStringLiteral("  Binu")}));
    Next(classes);
    EXPECT_EQ(students->count(), 0);
    QStringList texts;
    for (int index = 0; index < divisions->count(); ++index)
        texts.append(divisions->itemText(index));
    EXPECT_EQ(texts, QStringList({QStringLiteral(" "), QStringLiteral("P"), QStringLiteral("Q")}));
}

TEST_F(RankCardSelection, AStudentIncompleteInAnyTickedExamCannotBeTicked)
{
    GivenTwoStudents();
    OpenForm();
    ChooseDivision();
    Tick(exams, 0);
    EXPECT_EQ(Items(students), QStringList({QStringLiteral("  Asha"), QStringLiteral("  Binu")}));
    Tick(exams, 1);
    EXPECT_EQ(Items(students), QStringList({QStringLiteral("  Asha"), QStringLiteral(". Binu")}));
    prompts.ExpectInformation(QStringLiteral("'Classwise Mark Entry' Is Not Made For This Student - . Binu"));
    Tick(students, 1);
    EXPECT_FALSE(students->IsTicked(1));
    Tick(students, 0);
    EXPECT_TRUE(students->IsTicked(0));
    Tick(exams, 1);
    EXPECT_EQ(Items(students), QStringList({QStringLiteral("  Asha"), QStringLiteral("  Binu")}));
}

TEST_F(RankCardSelection, SelectAllPassesOverIncompleteStudentsAndUnticksAllWhenCleared)
{
    GivenTwoStudents();
    OpenForm();
    ChooseDivision();
    Tick(exams, 1);
    allStudents->setFocus();
    QTest::keyClick(allStudents, Qt::Key_Space);
    EXPECT_EQ(students->TickedIndexes(), QList<int>{0});
    QTest::keyClick(allStudents, Qt::Key_Space);
    EXPECT_TRUE(students->TickedIndexes().isEmpty());
}

TEST_F(RankCardSelection, UntickingOneStudentClearsSelectAllAndKeepsTheOthers)
{
    GivenTwoStudents();
    OpenForm();
    ChooseDivision();
    Press(allStudents);
    ASSERT_EQ(students->TickedIndexes(), (QList<int>{0, 1}));
    Tick(students, 0);
    EXPECT_FALSE(allStudents->isChecked());
    EXPECT_EQ(students->TickedIndexes(), QList<int>{1});
}

TEST_F(RankCardSelection, SelectAllTicksAndUnticksEveryExamAndJudgesTheStudentsAnew)
{
    GivenTwoStudents();
    OpenForm();
    ChooseDivision();
    Press(allExams);
    EXPECT_EQ(exams->TickedIndexes(), (QList<int>{0, 1}));
    EXPECT_EQ(Items(students), QStringList({QStringLiteral("  Asha"), QStringLiteral(". Binu")}));
    Tick(exams, 1);
    EXPECT_FALSE(allExams->isChecked());
    EXPECT_EQ(exams->TickedIndexes(), QList<int>{0});
    Press(allExams);
    Press(allExams);
    EXPECT_TRUE(exams->TickedIndexes().isEmpty());
    EXPECT_EQ(Items(students), QStringList({QStringLiteral("  Asha"), QStringLiteral("  Binu")}));
}

TEST_F(RankCardSelection, AListThatIsMadeAnewIsNoLongerMarkedAsAllSelected)
{
    GivenTwoStudents();
    OpenForm();
    ChooseDivision();
    Press(allStudents);
    ASSERT_TRUE(allStudents->isChecked());
    Tick(exams, 0);
    EXPECT_FALSE(allStudents->isChecked());
    EXPECT_TRUE(students->TickedIndexes().isEmpty());
}

TEST_F(RankCardSelection, AnExamWithoutMarksLeavesNobodyToTick)
{
    GivenTwoStudents();
    cards->AddExam(3, "Term Three", 3);
    OpenForm();
    Tick(exams, 2);
    ChooseDivision();
    Press(allStudents);
    EXPECT_TRUE(students->TickedIndexes().isEmpty());
    prompts.ExpectInformation(QStringLiteral("Select Student(s)"));
    Press(Button("cmdView"));
}

TEST_F(RankCardSelection, CancelBringsTheScreenBackToItsStart)
{
    GivenTwoStudents();
    OpenAndProceed();
    Press(Option("Optsubjectdisplayyes"));
    Press(allExams);
    Press(Button("cmdCancel"));
    EXPECT_TRUE(Option("Optsubjectdisplayno")->isChecked());
    EXPECT_FALSE(allExams->isChecked());
    EXPECT_FALSE(allStudents->isChecked());
    EXPECT_EQ(exams->count(), 2);
    EXPECT_TRUE(exams->TickedIndexes().isEmpty());
    EXPECT_TRUE(classes->IsBlank());
    EXPECT_EQ(classes->count(), 2);
    EXPECT_EQ(divisions->count(), 1);
    EXPECT_EQ(students->count(), 0);
    EXPECT_TRUE(exams->hasFocus());
    ExpectNoCards();
}

TEST_F(RankCardSelection, CancelLeavesNothingChosenThatCouldNotBeReadAgain)
{
    GivenTwoStudents();
    OpenAndProceed();
    Given("ALTER TABLE ClassDivisionMaster RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionMaster"));
    Press(Button("cmdCancel"));
    prompts.Verify();
    EXPECT_TRUE(classes->IsBlank());
    EXPECT_EQ(students->count(), 0);
    ExpectNoCards();
    Given("ALTER TABLE Lost RENAME TO ClassDivisionMaster");
}

TEST_F(RankCardSelection, LeavingAsksByTheCaption)
{
    OpenForm();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Rank Card ?"), false);
    Press(Button("cmdExit"));
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Rank Card ?"), true);
    PressKey(form, Qt::Key_X, Qt::AltModifier);
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmRankCardPrinting")), nullptr);
}

} // namespace
} // namespace tally::test
