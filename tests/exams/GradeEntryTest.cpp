#include "exams/GradeScreen.h"

#include <QClipboard>

namespace tally::test {
namespace {

/// What the boxes take, what they refuse, and where keys and clicks lead.
class GradeEntry : public GradeScreen
{
protected:
    static void Keys(const char* keys)
    {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(keys));
    }
    static void Paste(const char* text)
    {
        QApplication::clipboard()->setText(QString::fromLatin1(text));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    }
    /// Alt+X, which leaves a list without reading what is chosen in it.
    void AskOnExitAndSayNo()
    {
        Session().gblnPromptOnExit = true;
        prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Classwise Rank - Grade Setup ?"), false);
        PressKey(form, Qt::Key_X, Qt::AltModifier);
        prompts.Verify();
    }
    void DeleteRow(const char* number, bool answer)
    {
        Retype("txtDeleteSlNo", number);
        prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete S.No. %1 ?").arg(QLatin1String(number)),
                               answer);
        Press(Button("cmdDeleteRow"));
        prompts.Verify();
    }
};

TEST_F(GradeEntry, ATableIsEnteredFromNewToSaveWithTheKeyboardAlone)
{
    OpenForm();
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(FocusName(), "dbcExam");
    for (const char* next : {"cboClass", "cboDivision"}) {
        PressKey(form, Qt::Key_Down);
        PressKey(form, Qt::Key_Return);
        EXPECT_EQ(FocusName(), next);
    }
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(OpenBox(), "Txttotalaverage 1");
    Enter("80");
    EXPECT_EQ(OpenBox(), "txtsubjectaverage 1");
    Enter("50");
    EXPECT_EQ(OpenBox(), "Txtgrade 1");
    Enter("A+");
    EXPECT_EQ(OpenBox(), "Txttotalaverage 2");
    TypeRows({{"60", "40", "A"}, {"0", "0", "B"}});
    EXPECT_EQ(OpenBox(), "Txttotalaverage 4");
    EXPECT_EQ(Rows(), "1|80|50|A+ 2|60|40|A 3|0|0|B 4|||");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    PressKey(form, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(Stored(), "1 80 50 A+ -; 2 60 40 A -; 3 0 0 B -");
    EXPECT_EQ(FocusName(), "cmdNew");
}

TEST_F(GradeEntry, NoStatementRunsWhileFortyRowsAreTyped)
{
    StartNew();
    const auto before = Session().gcnnMain->StatementsRun();
    for (int row = 39; row >= 0; --row) {
        const QByteArray average = QByteArray::number(row);
        const QByteArray letter{1, static_cast<char>('A' + row / 10)};
        TypeRows({{average.constData(), average.constData(),
                   (letter + QByteArray::number(row % 10)).constData()}});
    }
    EXPECT_EQ(Session().gcnnMain->StatementsRun(), before);
    Save();
    EXPECT_EQ(Count("SELECT count(*) FROM RankMaster WHERE ExamCode = 1 AND ClassCode = 1 AND "
                    "DivisionCode = 1 AND AcademicYearCode = 1"),
              40);
}

TEST_F(GradeEntry, ATableInRisingOrderIsRefusedAtTheSecondRowAtTheKeyThatRises)
{
    StartNew();
    TypeRows({{"40", "30", "B"}});
    Keys("7");
    EXPECT_EQ(Cell(2, 1), "7");
    prompts.ExpectInformation(FromHighestToZero);
    Keys("0");
    prompts.Verify();
    EXPECT_EQ(Cell(2, 1), "7");
    EXPECT_EQ(totalAverage->selectedText().toStdString(), "70");
    EXPECT_EQ(OpenBox(), "Txttotalaverage 2");
    Keys("30");
    EXPECT_EQ(Cell(2, 1), "30");
}

TEST_F(GradeEntry, ATotalAverageThatAnotherRowHasIsRefusedWhileItIsTyped)
{
    StartNew();
    TypeRows({{"40", "30", "B"}});
    prompts.ExpectInformation(AlreadyThere);
    Keys("40");
    prompts.Verify();
    EXPECT_EQ(totalAverage->selectedText().toStdString(), "40");
    EXPECT_EQ(Cell(2, 1), "4");
}

TEST_F(GradeEntry, EnterOnARefusedTotalAverageTellsItAgainAndStays)
{
    StartNew();
    TypeRows({{"40", "30", "B"}});
    prompts.ExpectInformation(AlreadyThere);
    Keys("40");
    prompts.ExpectInformation(AlreadyThere);
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(OpenBox(), "Txttotalaverage 2");
    Enter("35");
    EXPECT_EQ(OpenBox(), "txtsubjectaverage 2");
}

TEST_F(GradeEntry, ARefusedTotalAverageIsNotLeftForSave)
{
    StartNew();
    TypeRows({{"40", "30", "B"}, {"0", "0", "C"}});
    Click(2, 1);
    prompts.ExpectInformation(FromHighestToZero);
    Keys("50");
    prompts.ExpectInformation(FromHighestToZero);
    PressKey(form, Qt::Key_S, Qt::AltModifier);
    prompts.Verify();
    EXPECT_EQ(OpenBox(), "Txttotalaverage 2");
    EXPECT_EQ(Stored(), "");
    prompts.ExpectInformation(FromHighestToZero);
    Press(Button("cmdSave"));
    prompts.Verify();
    Settle();
    EXPECT_EQ(Stored(), "");
    Keys("0");
    Save();
    EXPECT_EQ(Stored(), "1 40 30 B -; 2 0 0 C -");
}

TEST_F(GradeEntry, ARowThatStoodRefusedIsLeftWhereNothingWasTyped)
{
    GivenGrades();
    StartEdit();
    Click(1, 1);
    Enter("50");
    prompts.ExpectInformation(FromHighestToZero);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(OpenBox(), "Txttotalaverage 2");
    Click(1, 1);
    EXPECT_EQ(OpenBox(), "Txttotalaverage 1");
    Keys("90");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(), "1 90 50 A -; 2 60 40 B -; 3 0 0 C -");
}

TEST_F(GradeEntry, ARepeatedRowThatASaveHasOpenedCanBeDeleted)
{
    school->AddBand(1, 60, 50, "A", 1);
    school->AddBand(1, 60, 0, "B", 2);
    StartEdit();
    prompts.ExpectInformation(AlreadyThere);
    Press(Button("cmdSave"));
    EXPECT_EQ(OpenBox(), "Txttotalaverage 2");
    DeleteRow("2", true);
    EXPECT_EQ(Rows(), "1|60|50|A 2|||");
}

TEST_F(GradeEntry, CancelAndExitAreReachedFromARefusedTotalAverage)
{
    StartNew();
    TypeRows({{"40", "30", "B"}});
    prompts.ExpectInformation(FromHighestToZero);
    Keys("50");
    PressKey(form, Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(EnabledControls(), Idle);
    prompts.Verify();
    Press(Button("cmdNew"));
    ChooseDivision();
    PressKey(form, Qt::Key_Return);
    TypeRows({{"40", "30", "B"}});
    prompts.ExpectInformation(FromHighestToZero);
    Keys("50");
    PressKey(form, Qt::Key_X, Qt::AltModifier);
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(GradeEntry, EscTakesBackWhatWasTyped)
{
    StartNew();
    TypeRows({{"40", "30", "B"}});
    Click(1, 1);
    Keys("55");
    EXPECT_EQ(Cell(1, 1), "55");
    PressKey(form, Qt::Key_Escape);
    EXPECT_EQ(Cell(1, 1), "40");
    Click(2, 1);
    prompts.ExpectInformation(FromHighestToZero);
    Keys("50");
    PressKey(form, Qt::Key_Escape);
    EXPECT_EQ(Cell(2, 1), "");
    Click(1, 3);
    Keys("Z");
    PressKey(form, Qt::Key_Escape);
    EXPECT_EQ(Rows(), "1|40|30|B 2|||");
}

TEST_F(GradeEntry, TheAveragesTakeDigitsAlone)
{
    StartNew();
    for (const char* keys : {"abc", "-", ".", " "}) {
        Keys(keys);
        EXPECT_EQ(Cell(1, 1), "") << keys;
    }
    Keys("6.5");
    EXPECT_EQ(Cell(1, 1), "65");
    PressKey(form, Qt::Key_Return);
    Keys("3.x5");
    EXPECT_EQ(Cell(1, 2), "35");
}

TEST_F(GradeEntry, APastedTextLeavesItsDigits)
{
    StartNew();
    Paste("7 5%");
    EXPECT_EQ(Cell(1, 1), "75");
    Paste("most");
    EXPECT_EQ(Cell(1, 1), "75") << "nothing is left of it to put in";
}

TEST_F(GradeEntry, APastedTotalAverageThatRisesIsRefused)
{
    StartNew();
    TypeRows({{"40", "30", "B"}});
    prompts.ExpectInformation(FromHighestToZero);
    Paste("999999");
    prompts.Verify();
    EXPECT_EQ(Cell(2, 1), "");
}

TEST_F(GradeEntry, AGradeHasTwoSignsOfThoseThatAGradeMayHave)
{
    StartNew();
    Enter("40");
    Enter("30");
    Keys("'#_");
    EXPECT_EQ(Cell(1, 3), "");
    Keys("A+9");
    EXPECT_EQ(Cell(1, 3), "A+");
}

TEST_F(GradeEntry, AStoredFractionKeepsItsPointWhileItIsTypedOver)
{
    school->AddBand(1, 40.25, 30.5, "A", 1);
    school->AddBand(1, 0, 0, "B", 2);
    StartEdit();
    Click(1, 1);
    PressKey(form, Qt::Key_End);
    PressKey(form, Qt::Key_Backspace);
    EXPECT_EQ(totalAverage->text().toStdString(), "40.2");
    EXPECT_EQ(Cell(1, 1), "40.2");
    Keys("7.");
    EXPECT_EQ(Cell(1, 1), "40.27");
    PressKey(form, Qt::Key_Return);
    PressKey(form, Qt::Key_Home);
    Keys("1");
    EXPECT_EQ(Cell(1, 2), "130.5");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(), "1 40.27 130.5 A -; 2 0 0 B -");
}

TEST_F(GradeEntry, AStoredFigureIsWholeInItsBoxHoweverLongItIs)
{
    school->AddBand(1, 12345678901234567890.0, 1.0 / 3, "A", 1);
    school->AddBand(1, 1.0 / 30000, -1.0 / 3e100, "B", 2);
    StartEdit();
    for (const auto& [row, col] : {std::pair(1, 1), std::pair(1, 2), std::pair(2, 1), std::pair(2, 2)}) {
        Click(row, col);
        const FloatingEditor* box = col == 1 ? totalAverage : subjectAverage;
        EXPECT_EQ(box->text().toStdString(), Cell(row, col));
    }
}

TEST_F(GradeEntry, AnEmptiedTotalAverageBlanksItsCell)
{
    GivenGrades();
    StartEdit();
    Click(2, 1);
    PressKey(form, Qt::Key_Delete);
    EXPECT_EQ(Rows(), "1|80|50|A 2||40|B 3|0|0|C 4|||");
}

TEST_F(GradeEntry, AGradeThatAnotherRowHasIsToldAndEmptied)
{
    StartNew();
    TypeRows({{"40", "30", "A"}});
    Enter("20");
    Enter("10");
    prompts.ExpectInformation(QStringLiteral("Grade Already Exists"));
    Enter("a");
    prompts.Verify();
    EXPECT_EQ(Rows(), "1|40|30|A 2|20|10|");
    EXPECT_EQ(OpenBox(), "Txtgrade 2");
    EXPECT_EQ(grade->text().toStdString(), "");
    Enter("B");
    EXPECT_EQ(OpenBox(), "Txttotalaverage 3");
}

TEST_F(GradeEntry, ABlankGradeLeadsNowhere)
{
    StartNew();
    Enter("40");
    Enter("30");
    for (const char* blank : {"", " "}) {
        Enter(blank);
        EXPECT_EQ(OpenBox(), "Txtgrade 1");
        EXPECT_EQ(grid->Rows(), 2);
    }
}

TEST_F(GradeEntry, EnterOnTheGradeOfARowInBetweenGoesToTheRowBelow)
{
    GivenGrades();
    StartEdit();
    Click(1, 3);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(OpenBox(), "Txttotalaverage 2");
    EXPECT_EQ(Rows(), UsualRows);
}

TEST_F(GradeEntry, AClickOpensTheBoxOfItsColumn)
{
    GivenGrades();
    StartEdit();
    Click(2, 1);
    EXPECT_EQ(OpenBox(), "Txttotalaverage 2");
    Click(2, 2);
    EXPECT_EQ(OpenBox(), "txtsubjectaverage 2");
    Click(3, 3);
    EXPECT_EQ(OpenBox(), "Txtgrade 3");
    Click(4, 1);
    EXPECT_EQ(OpenBox(), "Txttotalaverage 4");
}

TEST_F(GradeEntry, NothingOpensOnTheNumberAndBehindAnEmptyTotalAverage)
{
    GivenGrades();
    StartEdit();
    for (const auto& [row, col] : {std::pair(2, 0), std::pair(4, 0), std::pair(4, 2), std::pair(4, 3)}) {
        Click(row, col);
        EXPECT_EQ(OpenBox(), "none") << row << ' ' << col;
    }
}

TEST_F(GradeEntry, AClickThatOpensNothingPutsTheOpenBoxAway)
{
    GivenGrades();
    StartEdit();
    for (const auto& [row, col] : {std::pair(2, 0), std::pair(4, 2), std::pair(4, 3)}) {
        Click(2, 1);
        ASSERT_TRUE(totalAverage->isVisible());
        Click(row, col);
        for (const FloatingEditor* box : {totalAverage, subjectAverage, grade})
            EXPECT_FALSE(box->isVisible()) << row << ' ' << col;
    }
}

TEST_F(GradeEntry, AChoiceThatWasNotReadYetIsReadBeforeItsFirstBoxOpens)
{
    GivenGrades();
    OpenForm();
    Press(Button("cmdNew"));
    ChooseDivision();
    AskOnExitAndSayNo();
    EXPECT_EQ(Rows(), "1|||");
    Click(1, 1);
    EXPECT_EQ(Rows(), UsualRows);
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_FALSE(totalAverage->isVisible());
}

TEST_F(GradeEntry, AChoiceWithoutGradesIsReadByTheClickAndEntered)
{
    OpenForm();
    Press(Button("cmdNew"));
    ChooseDivision();
    AskOnExitAndSayNo();
    GivenMark();
    prompts.ExpectInformation(MarksStandAgainstIt);
    Click(1, 1);
    EXPECT_EQ(EnabledControls(), Locked);
    EXPECT_EQ(OpenBox(), "none");
    Choose("cboDivision", QStringLiteral("B"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(OpenBox(), "Txttotalaverage 1");
}

TEST_F(GradeEntry, WhileANewTableIsTypedNoKeyInAListTakesItAway)
{
    StartNew();
    EXPECT_EQ(EnabledControls(), Entering);
    Keys("8");
    EXPECT_EQ(EnabledControls(), Typing);
    PressKey(form, Qt::Key_Escape);
    EXPECT_EQ(EnabledControls(), Entering) << "nothing is typed that could be lost";
    TypeRows({{"80", "50", "A"}});
    for (const char* list : {"dbcExam", "cboClass", "cboDivision"}) {
        List(list)->setFocus();
        PressKey(form, Qt::Key_Down);
        EXPECT_EQ(Rows(), "1|80|50|A 2|||") << list;
    }
    Press(Button("cmdCancel"));
    EXPECT_EQ(EnabledControls(), Idle);
}

TEST_F(GradeEntry, ANewTableWhoseRowsAreAllDeletedMayBecomeThatOfAnotherDivision)
{
    StartNew();
    TypeRows({{"80", "50", "A"}});
    DeleteRow("1", true);
    EXPECT_EQ(EnabledControls(), Entering);
}

TEST_F(GradeEntry, NothingOpensBeforeExamClassAndDivisionAreChosen)
{
    OpenForm();
    Press(Button("cmdNew"));
    Choose("dbcExam", QStringLiteral("Term One"));
    Choose("cboClass", QStringLiteral("X"));
    Click(1, 1);
    EXPECT_EQ(OpenBox(), "none");
}

TEST_F(GradeEntry, NothingOpensWhileTheGradesAreOnlyShown)
{
    GivenGrades();
    ShowStored();
    Click(1, 1);
    EXPECT_EQ(OpenBox(), "none");
}

TEST_F(GradeEntry, AnEditIsStartedWithEnterOnItsFirstRow)
{
    GivenGrades();
    StartEdit();
    EXPECT_EQ(FocusName(), "msgDetails");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(OpenBox(), "Txttotalaverage 1");
    EXPECT_EQ(totalAverage->selectedText().toStdString(), "80");
}

TEST_F(GradeEntry, ADeletedRowIsAskedForAndTheRowsBelowAreNumberedAnew)
{
    GivenGrades();
    StartEdit();
    DeleteRow("1", false);
    EXPECT_EQ(Rows(), UsualRows);
    DeleteRow("1", true);
    EXPECT_EQ(Rows(), "1|60|40|B 2|0|0|C 3|||");
    EXPECT_EQ(TextOf("txtDeleteSlNo"), "");
    EXPECT_FALSE(IsEnabled("cmdDeleteRow"));
    EXPECT_EQ(Stored(), UsualStored);
}

TEST_F(GradeEntry, OnlyANumberOfARowCanBeDeleted)
{
    GivenGrades();
    StartEdit();
    for (const char* number : {"", "0", "5", "99"}) {
        Retype("txtDeleteSlNo", number);
        EXPECT_FALSE(IsEnabled("cmdDeleteRow")) << number;
    }
    Retype("txtDeleteSlNo", "x4");
    EXPECT_TRUE(IsEnabled("cmdDeleteRow"));
}

TEST_F(GradeEntry, ANewRowCanBeDeletedAsSoonAsItIsThere)
{
    StartNew();
    Retype("txtDeleteSlNo", "2");
    EXPECT_FALSE(IsEnabled("cmdDeleteRow"));
    Click(1, 1);
    TypeRows({{"40", "30", "B"}});
    EXPECT_TRUE(IsEnabled("cmdDeleteRow"));
}

TEST_F(GradeEntry, TheOnlyRowLeavesABlankOne)
{
    StartNew();
    Enter("40");
    DeleteRow("1", true);
    EXPECT_EQ(Rows(), "1|||");
    EXPECT_EQ(OpenBox(), "none");
}

TEST_F(GradeEntry, NoRowIsDeletedWhileTheGradesAreOnlyShown)
{
    GivenGrades();
    ShowStored();
    EXPECT_FALSE(IsEnabled("txtDeleteSlNo"));
    EXPECT_FALSE(IsEnabled("cmdDeleteRow"));
}

} // namespace
} // namespace tally::test
