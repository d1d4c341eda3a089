#include "masters/ClassSectionScreen.h"

#include <QClipboard>

namespace tally::test {
namespace {

class ClassSectionKeys : public ClassSectionScreen
{
protected:
    void Paste(QWidget* box, const QString& text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    }
};

TEST_F(ClassSectionKeys, TheFirstClassesAreEnteredAndSavedWithoutTheMouse)
{
    OpenForm();
    EXPECT_TRUE(Button("cmdClose")->hasFocus());
    QTest::keyClick(Button("cmdClose"), Qt::Key_Return);
    EXPECT_TRUE(Button("cmdNew")->hasFocus());
    QTest::keyClick(Button("cmdNew"), Qt::Key_Return);

    EXPECT_TRUE(txtClassName->hasFocus());
    EXPECT_EQ(txtClassName->Row(), 1);
    Enter("X");
    EXPECT_TRUE(txtNoOfDivisions->hasFocus());
    Enter("3");
    EXPECT_TRUE(txtClassOrder->hasFocus());
    EXPECT_EQ(txtClassOrder->text().toStdString(), "1") << "the order comes by itself";
    EXPECT_EQ(DivisionTexts(), "1A 2B 3C");
    Enter("1");
    EXPECT_TRUE(txtClassName->hasFocus());
    EXPECT_EQ(txtClassName->Row(), 2);
    EXPECT_EQ(classes->TextMatrix(2, 0).toStdString(), "2");
    EXPECT_EQ(classes->TextMatrix(2, 6).toStdString(), "2");
    Enter("IX");
    Enter("2");
    EXPECT_EQ(txtClassOrder->text().toStdString(), "2");
    Enter("");
    EXPECT_EQ(txtClassName->Row(), 3);

    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    QTest::keyClick(txtClassName, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(StoredClasses(), "1 X 3 1; 2 IX 2 2;");
    EXPECT_EQ(StoredDivisions(1), "1A 2B 3C");
    EXPECT_EQ(Count("SELECT UserCode FROM ClassDivisionMaster WHERE ClassCode = 2"), 5);
    EXPECT_TRUE(Button("cmdEdit")->hasFocus());
}

TEST_F(ClassSectionKeys, TheDivisionsJustMadeCanBeNamedFromTheNextBlankRow)
{
    New();
    Enter("X");
    Enter("2");
    Enter("");
    EXPECT_EQ(txtClassName->Row(), 2);
    Click(divisions, 2, 1);
    QTest::keyClicks(txtDivisionName, QStringLiteral("Red"));
    EXPECT_EQ(DivisionTexts(), "1A 2Red");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredDivisions(1), "1A 2Red");
}

TEST_F(ClassSectionKeys, EnterOnAnEmptyNameStays)
{
    New();
    Enter("");
    EXPECT_TRUE(txtClassName->hasFocus());
    EXPECT_TRUE(txtClassName->isVisible());
}

TEST_F(ClassSectionKeys, EnterWithoutDivisionsStays)
{
    New();
    Enter("X");
    Enter("0");
    EXPECT_TRUE(txtNoOfDivisions->hasFocus());
}

TEST_F(ClassSectionKeys, ATakenNameIsRefusedOnEnter)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 3, 1);
    prompts.ExpectInformation(QStringLiteral("Class Name Already Exists"));
    Enter("XI");
    EXPECT_TRUE(txtClassName->hasFocus());
    EXPECT_EQ(txtClassName->selectedText().toStdString(), "XI");
    EXPECT_EQ(classes->TextMatrix(3, 1).toStdString(), "XI");
    Enter("Xi");
    EXPECT_TRUE(txtNoOfDivisions->hasFocus()) << "a name that differs in case only is another one";
}

TEST_F(ClassSectionKeys, ATakenNameKeepsTheFocusAndTheClickHasNoEffect)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 3, 1);
    QTest::keyClicks(txtClassName, QStringLiteral("XI"));
    prompts.ExpectInformation(QStringLiteral("Class Name Already Exists"));
    Press(Button("cmdSave"));
    Settle();
    EXPECT_TRUE(txtClassName->hasFocus());
    prompts.Verify();

    prompts.ExpectInformation(QStringLiteral("Class Name Already Exists"));
    QTest::keyClick(txtClassName, Qt::Key_S, Qt::AltModifier);
    Settle();
    EXPECT_TRUE(txtClassName->hasFocus());
    EXPECT_EQ(StoredClasses(), "1 XII 2 1; 2 XI 3 2; 3 X 1 3;");
}

TEST_F(ClassSectionKeys, EmptyingTheNameBoxLeavesTheCell)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 2, 1);
    QTest::keyClick(txtClassName, Qt::Key_Delete);
    EXPECT_EQ(txtClassName->text().toStdString(), "");
    EXPECT_EQ(classes->TextMatrix(2, 1).toStdString(), "XI");
}

TEST_F(ClassSectionKeys, AnEmptiedNameIsThatOfABlankRowAndIsTakenIntoItsCell)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 3, 3);
    Enter("");
    ASSERT_EQ(txtClassName->Row(), 4);
    Click(classes, 2, 1);
    QTest::keyClick(txtClassName, Qt::Key_Delete);
    prompts.ExpectInformation(QStringLiteral("Class Name Already Exists"));
    txtDeleteSlNo->setFocus();
    Settle();
    EXPECT_TRUE(txtClassName->hasFocus());
    EXPECT_EQ(classes->TextMatrix(2, 1).toStdString(), "");
}

TEST_F(ClassSectionKeys, ANumberBeforeTheNameAsksForTheName)
{
    New();
    for (const int col : {2, 3}) {
        Click(classes, 1, col);
        prompts.ExpectInformation(QStringLiteral("Enter Class Name"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_3);
        EXPECT_TRUE(txtClassName->hasFocus());
        EXPECT_EQ(classes->TextMatrix(1, col).toStdString(), "");
    }
}

TEST_F(ClassSectionKeys, EveryKeystrokeThatChangesTheNumberMakesTheDivisionsAnew)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 2, 2);
    QTest::keyClick(txtNoOfDivisions, Qt::Key_1);
    EXPECT_EQ(DivisionTexts(), "1A");
    QTest::keyClick(txtNoOfDivisions, Qt::Key_2);
    EXPECT_EQ(divisions->Rows(), 13);
    QTest::keyClick(txtNoOfDivisions, Qt::Key_Backspace);
    EXPECT_EQ(DivisionTexts(), "1A");
    QTest::keyClick(txtNoOfDivisions, Qt::Key_Backspace);
    EXPECT_EQ(DivisionTexts(), "");
}

TEST_F(ClassSectionKeys, FromThreeDivisionsToFourAndBackResetsTheirNames)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 2, 1);
    Click(divisions, 2, 1);
    QTest::keyClicks(txtDivisionName, QStringLiteral("Red"));
    EXPECT_EQ(DivisionTexts(), "1A 2Red 3C");
    Click(classes, 2, 2);
    QTest::keyClicks(txtNoOfDivisions, QStringLiteral("4"));
    QTest::keyClick(txtNoOfDivisions, Qt::Key_Backspace);
    QTest::keyClicks(txtNoOfDivisions, QStringLiteral("3"));
    EXPECT_EQ(DivisionTexts(), "1A 2B 3C");
}

TEST_F(ClassSectionKeys, EscTakesBackWhatWasTypedInEachBox)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 2, 1);
    QTest::keyClicks(txtClassName, QStringLiteral("9"));
    QTest::keyClick(txtClassName, Qt::Key_Escape);
    EXPECT_EQ(ClassRowText(2), "2|XI|3|2");
    Click(classes, 2, 3);
    QTest::keyClicks(txtClassOrder, QStringLiteral("7"));
    QTest::keyClick(txtClassOrder, Qt::Key_Escape);
    EXPECT_EQ(ClassRowText(2), "2|XI|3|2");
    Click(divisions, 2, 1);
    QTest::keyClicks(txtDivisionName, QStringLiteral("Red"));
    EXPECT_EQ(DivisionTexts(), "1A 2Red 3C");
    QTest::keyClick(txtDivisionName, Qt::Key_Escape);
    EXPECT_EQ(DivisionTexts(), "1A 2B 3C");
    EXPECT_TRUE(txtDivisionName->hasFocus());
}

TEST_F(ClassSectionKeys, EscAfterATypedCountBringsTheNamesOfTheDivisionsBack)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 2, 2);
    Click(divisions, 2, 1);
    QTest::keyClicks(txtDivisionName, QStringLiteral("Red"));
    Click(classes, 2, 2);
    QTest::keyClicks(txtNoOfDivisions, QStringLiteral("12"));
    QTest::keyClick(txtNoOfDivisions, Qt::Key_Escape);
    EXPECT_EQ(txtNoOfDivisions->text().toStdString(), "3");
    EXPECT_EQ(ClassRowText(2), "2|XI|3|2");
    EXPECT_EQ(DivisionTexts(), "1A 2Red 3C");
}

TEST_F(ClassSectionKeys, EscInANewRowLeavesItBlank)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 3, 3);
    Enter("");
    ASSERT_EQ(txtClassName->Row(), 4);
    QTest::keyClicks(txtClassName, QStringLiteral("IX"));
    QTest::keyClick(txtClassName, Qt::Key_Backspace);
    QTest::keyClick(txtClassName, Qt::Key_Backspace);
    EXPECT_EQ(ClassRowText(4), "4|I||");
    QTest::keyClick(txtClassName, Qt::Key_Escape);
    EXPECT_EQ(ClassRowText(4), "4|||");
    Click(classes, 4, 2);
    QTest::keyClick(txtNoOfDivisions, Qt::Key_Escape);
    EXPECT_TRUE(txtNoOfDivisions->hasFocus()) << "nothing was typed, so no name is missing yet";
}

TEST_F(ClassSectionKeys, ATypedOrderPushesTheOthersDownInGridOrder)
{
    GivenThreeClasses();
    GivenClass(4, QStringLiteral("IX"), 1, 4);
    GivenClass(5, QStringLiteral("VIII"), 1, 5);
    Edit();
    Click(classes, 5, 3);
    Enter("2");
    EXPECT_EQ(ClassRowText(1), "1|XII|2|1");
    EXPECT_EQ(ClassRowText(2), "2|XI|3|3");
    EXPECT_EQ(ClassRowText(3), "3|X|1|4");
    EXPECT_EQ(ClassRowText(4), "4|IX|1|5");
    EXPECT_EQ(ClassRowText(5), "5|VIII|1|2");
    EXPECT_EQ(ClassRowText(6), "6|||");
}

TEST_F(ClassSectionKeys, TheOrderShiftsWhenTheBoxIsLeftToo)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 3, 3);
    QTest::keyClicks(txtClassOrder, QStringLiteral("1"));
    EXPECT_EQ(classes->TextMatrix(1, 3).toStdString(), "1");
    txtDeleteSlNo->setFocus();
    EXPECT_EQ(classes->TextMatrix(1, 3).toStdString(), "2");
    EXPECT_EQ(classes->TextMatrix(2, 3).toStdString(), "3");
}

TEST_F(ClassSectionKeys, EnterOnTheLastOfNinetyEightClassesSaysThatItIsTheLast)
{
    for (int code = 1; code <= 98; ++code)
        GivenClass(code, QString::number(code), 1, code);
    Edit();
    classes->SetCurrentCell(98, 3);
    classes->setFocus();
    QTest::keyClick(classes, Qt::Key_Return);
    ASSERT_TRUE(txtClassOrder->hasFocus());
    QTest::keyClicks(txtClassOrder, QStringLiteral("1"));
    prompts.ExpectInformation(QStringLiteral("You Cannot Create More Than 99 Classes"));
    QTest::keyClick(txtClassOrder, Qt::Key_Return);
    EXPECT_EQ(classes->Rows(), 99);
    EXPECT_TRUE(txtClassOrder->hasFocus());
    EXPECT_EQ(txtClassOrder->Row(), 98);
    EXPECT_EQ(classes->TextMatrix(1, 3).toStdString(), "2") << "its order counts all the same";
}

TEST_F(ClassSectionKeys, DivisionsAreNamedDownTheGridAndTheLastOneKeepsTheBox)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 2, 1);
    Click(divisions, 1, 0);
    EXPECT_TRUE(txtDivisionName->hasFocus());
    Enter("Red");
    EXPECT_EQ(txtDivisionName->Row(), 2);
    Enter("Blue");
    EXPECT_EQ(txtDivisionName->Row(), 3);
    Enter("Tan");
    EXPECT_EQ(txtDivisionName->Row(), 3);
    EXPECT_TRUE(txtDivisionName->isVisible());
    EXPECT_EQ(DivisionTexts(), "1Red 2Blu 3Tan");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    QTest::keyClick(txtDivisionName, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(StoredDivisions(2), "1Red 2Blu 3Tan");
}

TEST_F(ClassSectionKeys, ATakenDivisionNameIsToldWhileTyping)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 2, 1);
    Click(divisions, 3, 1);
    prompts.ExpectInformation(QStringLiteral("Division Name Already Exists"));
    QTest::keyClicks(txtDivisionName, QStringLiteral("B"));
    prompts.Verify();
    EXPECT_TRUE(txtDivisionName->hasFocus());
    EXPECT_EQ(txtDivisionName->selectedText().toStdString(), "B");
    QTest::keyClicks(txtDivisionName, QStringLiteral("Q"));
    EXPECT_EQ(DivisionTexts(), "1A 2B 3Q");
}

TEST_F(ClassSectionKeys, TheNameOfTheLastDivisionIsComparedOnlyWhenTheBoxIsLeft)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 2, 1);
    Click(divisions, 1, 1);
    QTest::keyClicks(txtDivisionName, QStringLiteral("C"));
    prompts.ExpectInformation(QStringLiteral("Division Name Already Exists"));
    Click(classes, 1, 1);
    EXPECT_TRUE(txtDivisionName->hasFocus());
    EXPECT_EQ(classes->CurrentRow(), 2) << "the click did not reach the other class";
    QTest::keyClicks(txtDivisionName, QStringLiteral("Z"));
    EXPECT_EQ(DivisionTexts(), "1Z 2B 3C");
}

TEST_F(ClassSectionKeys, TheGridsAreWalkedWithArrowsAndOpenedWithEnterAndF2)
{
    GivenThreeClasses();
    Edit();
    EXPECT_TRUE(Button("cmdSave")->hasFocus());
    EXPECT_EQ(DivisionTexts(), "1A 2B");
    classes->setFocus();
    QTest::keyClick(classes, Qt::Key_Down);
    EXPECT_EQ(DivisionTexts(), "1A 2B 3C") << "the divisions follow the class";
    QTest::keyClick(classes, Qt::Key_Return);
    EXPECT_TRUE(txtClassName->hasFocus());
    EXPECT_EQ(txtClassName->text().toStdString(), "XI");
    QTest::keyClick(txtClassName, Qt::Key_Tab);
    EXPECT_TRUE(divisions->hasFocus());
    QTest::keyClick(divisions, Qt::Key_Down);
    QTest::keyClick(divisions, Qt::Key_F2);
    EXPECT_TRUE(txtDivisionName->hasFocus());
    EXPECT_EQ(txtDivisionName->text().toStdString(), "B");
    QTest::keyClick(txtDivisionName, Qt::Key_Tab);
    EXPECT_TRUE(txtDeleteSlNo->hasFocus());
}

TEST_F(ClassSectionKeys, TheSerialNumberOpensNoBoxAndClosesAnOpenOne)
{
    GivenThreeClasses();
    Edit();
    Click(classes, 1, 1);
    Click(classes, 2, 0);
    for (const FloatingEditor* box : {txtClassName, txtNoOfDivisions, txtClassOrder})
        EXPECT_FALSE(box->isVisible());
    EXPECT_EQ(DivisionTexts(), "1A 2B 3C");
}

TEST_F(ClassSectionKeys, BoxesTakeNoMoreThanTheirLengthAndNumbersOnlyDigits)
{
    New();
    Enter("VIIIa");
    EXPECT_EQ(classes->TextMatrix(1, 1).toStdString(), "VIII");
    QTest::keyClicks(txtNoOfDivisions, QStringLiteral("1a-23"));
    EXPECT_EQ(txtNoOfDivisions->text().toStdString(), "12");
    QTest::keyClick(txtNoOfDivisions, Qt::Key_Return);
    QTest::keyClicks(txtClassOrder, QStringLiteral("x5.67"));
    EXPECT_EQ(txtClassOrder->text().toStdString(), "56");
    EXPECT_EQ(classes->TextMatrix(1, 3).toStdString(), "56");
}

TEST_F(ClassSectionKeys, QuotesAreDroppedWhetherTypedOrPasted)
{
    New();
    QTest::keyClicks(txtClassName, QStringLiteral("I'X"));
    EXPECT_EQ(classes->TextMatrix(1, 1).toStdString(), "IX");
    txtClassName->selectAll();
    Paste(txtClassName, QStringLiteral("V'I"));
    EXPECT_EQ(txtClassName->text().toStdString(), "VI");
    EXPECT_EQ(classes->TextMatrix(1, 1).toStdString(), "VI");
    QTest::keyClick(txtClassName, Qt::Key_Return);
    QApplication::clipboard()->setText(QStringLiteral("2b"));
    txtNoOfDivisions->paste();
    EXPECT_EQ(classes->TextMatrix(1, 2).toStdString(), "2");
}

TEST_F(ClassSectionKeys, LettersOfOtherScriptsArePastedAndStored)
{
    New();
    Paste(txtClassName, QStringLiteral("दसवींएक"));
    const QString name = QStringLiteral("दसवींएक").left(4);
    QTest::keyClick(txtClassName, Qt::Key_Return);
    Enter("1");
    Click(divisions, 1, 1);
    Paste(txtDivisionName, QStringLiteral("Éß"));
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    Press(Button("cmdSave"));
    const auto stored = ClassSectionRepository(*Session().gcnnMain).Classes();
    ASSERT_EQ(stored.size(), 1U);
    EXPECT_EQ(stored[0].className, name);
    EXPECT_EQ(StoredDivisions(1), QStringLiteral("1Éß").toStdString());
}

TEST_F(ClassSectionKeys, BlanksAroundANameAreNotStored)
{
    New();
    Enter(" X ");
    Enter("1");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    Press(Button("cmdSave"));
    EXPECT_EQ(StoredClasses(), "1 X 1 1;");
}

TEST_F(ClassSectionKeys, EnterInTheDeleteBoxLeadsToTheButtonOnlyWhenThereIsSuchARow)
{
    GivenThreeClasses();
    Edit();
    txtDeleteSlNo->setFocus();
    for (const char* none : {"", "0", "4"}) {
        txtDeleteSlNo->selectAll();
        QTest::keyClick(txtDeleteSlNo, Qt::Key_Delete);
        Enter(none);
        EXPECT_TRUE(txtDeleteSlNo->hasFocus()) << none;
        EXPECT_FALSE(IsEnabled("cmdDeleteRow")) << none;
    }
    txtDeleteSlNo->selectAll();
    Enter("3");
    EXPECT_TRUE(Button("cmdDeleteRow")->hasFocus());
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete S.No. 3 ?"), true);
    QTest::keyClick(Button("cmdDeleteRow"), Qt::Key_Return);
    EXPECT_EQ(classes->Rows(), 3);
    EXPECT_EQ(txtDeleteSlNo->text().toStdString(), "");
}

TEST_F(ClassSectionKeys, ARowThatIsAddedCanBeDeletedByTheNumberThatStandsInTheBoxAlready)
{
    GivenThreeClasses();
    Edit();
    Type(txtDeleteSlNo, QStringLiteral("4"));
    EXPECT_FALSE(IsEnabled("cmdDeleteRow"));
    Click(classes, 3, 3);
    Enter("");
    ASSERT_EQ(classes->Rows(), 5);
    EXPECT_TRUE(IsEnabled("cmdDeleteRow"));
}

TEST_F(ClassSectionKeys, F1AsksForTheHelpOfThisScreen)
{
    Browse();
    QTest::keyClick(Button("cmdNew"), Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 4);
}

} // namespace
} // namespace tally::test
