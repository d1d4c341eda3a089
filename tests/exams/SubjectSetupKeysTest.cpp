#include "core/ui/controls/FieldHint.h"
#include "exams/SubjectSetupScreen.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLabel>

namespace tally::test {
namespace {

/// Where keys and clicks lead, and what the boxes take.
class SubjectSetupKeys : public SubjectSetupScreen
{
protected:
    std::string Cell(int row, int col) const { return grid->TextMatrix(row, col).toStdString(); }
    /// The row of Art is typed up to its order.
    void StartArt()
    {
        StartNew();
        EnterCells({"Art", "Omar", "100", "80", "Yes"});
        ASSERT_EQ(Focus(), "txtOrder");
    }
};

TEST_F(SubjectSetupKeys, ASetIsEnteredFromNewToSaveWithTheKeyboardAlone)
{
    OpenForm();
    EXPECT_EQ(Focus(), "cmdNew");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "cboClass");
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "cboDivision");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("B"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "dbcSubject");
    Enter("ta");
    EXPECT_EQ(RowText(1), "1|Tamil|||||");
    EXPECT_EQ(Focus(), "dbcTeacher");
    Enter("om");
    EXPECT_EQ(RowText(1), "1|Tamil|Omar||||");
    EXPECT_EQ(Focus(), "txtmaximummark");
    Enter("100");
    EXPECT_EQ(Focus(), "TxtMaximumAllowed");
    EXPECT_EQ(allowed->text().toStdString(), "100") << "the usual case";
    Enter("80");
    EXPECT_EQ(Focus(), "cboRankYesNo");
    Enter("y");
    EXPECT_EQ(Focus(), "txtOrder");
    Enter("2");
    EXPECT_EQ(Focus(), "dbcSubject");
    EXPECT_EQ(subject->Row(), 2);
    EnterCells({"art", "mary", "50", "", "n", "1"});
    EXPECT_EQ(subject->Row(), 3);
    EXPECT_EQ(Rows(), "1|Tamil|Omar|100|80|Yes|2 2|Art|Mary|50|50|No|1 3||||||");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    PressKey(form, Qt::Key_S, Qt::AltModifier);
    prompts.Verify();
    EXPECT_EQ(Stored(2), "1 3 7 50/50 No; 2 4 9 80/100 Yes");
    EXPECT_EQ(Stored(1), "1 2 8 100/100 Yes; 2 1 7 50/100 No");
    EXPECT_EQ(Focus(), "cmdNew");
    EXPECT_EQ(EnabledControls(), Idle);
}

TEST_F(SubjectSetupKeys, NoStatementRunsWhileASetIsTyped)
{
    StartNew();
    const auto before = Session().gcnnMain->StatementsRun();
    EnterCells({"Art", "Omar", "100", "80", "Yes", "1", "English", "Mary", "50", "", "No", "2"});
    Click(1, 4);
    Enter("70");
    PressKey(form, Qt::Key_Tab);
    EXPECT_EQ(Session().gcnnMain->StatementsRun(), before);
    EXPECT_EQ(RowText(1), "1|Art|Omar|100|70|Yes|1");
}

TEST_F(SubjectSetupKeys, NoStatementRunsWhileASetWithMarksIsEdited)
{
    GivenMark(1, 45);
    StartEdit();
    const auto before = Session().gcnnMain->StatementsRun();
    Click(2, 4);
    Enter("47");
    Enter("Yes");
    prompts.ExpectInformation(FrozenText);
    Click(2, 1);
    EXPECT_EQ(Session().gcnnMain->StatementsRun(), before);
}

TEST_F(SubjectSetupKeys, ASubjectWithMarksOpensOnlyTwoColumns)
{
    GivenMark(1, 45);
    StartEdit();
    for (const int col : {0, 1, 2, 3, 6}) {
        prompts.ExpectInformation(FrozenText);
        Click(2, col);
        prompts.Verify();
        for (const QWidget* box : std::initializer_list<QWidget*>{subject, teacher, maximum, order})
            EXPECT_FALSE(box->isVisible()) << col;
    }
    Click(2, 4);
    EXPECT_EQ(Focus(), "TxtMaximumAllowed");
    Click(2, 5);
    EXPECT_EQ(Focus(), "cboRankYesNo");
    Click(1, 0);
    EXPECT_FALSE(rank->isVisible());
    const char* const boxes[] = {"dbcSubject",        "dbcTeacher",   "txtmaximummark",
                                 "TxtMaximumAllowed", "cboRankYesNo", "txtOrder"};
    for (int col = 1; col <= 6; ++col) {
        Click(1, col);
        EXPECT_EQ(Focus(), boxes[col - 1]) << "Maths has no marks";
    }
}

TEST_F(SubjectSetupKeys, EnterPassesByWhatIsFrozen)
{
    GivenMark(2, 60);
    StartEdit();
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "TxtMaximumAllowed") << "the grid stands on the first cell that opens";
    Enter("");
    EXPECT_EQ(Focus(), "cboRankYesNo");
    Enter("");
    EXPECT_EQ(Focus(), "dbcSubject");
    EXPECT_EQ(subject->Row(), 2);
}

TEST_F(SubjectSetupKeys, ABlankRowOpensOnlyItsSubject)
{
    StartNew();
    for (int col = 2; col <= 6; ++col) {
        Click(1, col);
        EXPECT_EQ(Focus(), "msgDetails") << col;
    }
    Click(1, 1);
    EXPECT_EQ(Focus(), "dbcSubject");
}

TEST_F(SubjectSetupKeys, AClickBeforeADivisionIsChosenOpensNothing)
{
    OpenNew();
    Click(1, 1);
    EXPECT_FALSE(subject->isVisible());
    Choose(classes, QStringLiteral("X"));
    Click(1, 1);
    EXPECT_FALSE(subject->isVisible());
}

TEST_F(SubjectSetupKeys, AMaximumMarkIsAllowedInFullAndLoweringThatKeepsIt)
{
    StartNew();
    EnterCells({"Art", "Omar"});
    QTest::keyClicks(maximum, QStringLiteral("100"));
    EXPECT_EQ(RowText(1), "1|Art|Omar|100|100||");
    Enter("");
    Enter("80");
    EXPECT_EQ(RowText(1), "1|Art|Omar|100|80||");
}

TEST_F(SubjectSetupKeys, TheTotalFollowsEachKey)
{
    StartEdit();
    EXPECT_EQ(Total(), "100") << "English is not taken for rank";
    Click(2, 5);
    QTest::keyClick(rank, Qt::Key_Y);
    EXPECT_EQ(Total(), "200");
    Click(1, 3);
    QTest::keyClicks(maximum, QStringLiteral("75"));
    EXPECT_EQ(Total(), "175");
    Click(1, 5);
    QTest::keyClick(rank, Qt::Key_N);
    EXPECT_EQ(Total(), "100");
    Press(Button("cmdCancel"));
    EXPECT_EQ(Total(), "0");
}

TEST_F(SubjectSetupKeys, ALetterAmongTheDigitsBeginsTheMaximumMarkAnew)
{
    StartNew();
    EnterCells({"Art", "Omar"});
    QTest::keyClicks(maximum, QStringLiteral("12x"));
    EXPECT_EQ(maximum->text().toStdString(), "");
    EXPECT_EQ(RowText(1), "1|Art|Omar|0|||");
    EXPECT_FALSE(FieldHintAt(maximum).isEmpty());
    QTest::keyClicks(maximum, QStringLiteral("9.5"));
    EXPECT_EQ(maximum->text().toStdString(), "5") << "no decimals either";
    QTest::keyClick(maximum, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(maximum->selectedText().toStdString(), "5") << "a command is no letter";
    QKeyEvent withAltGr(QEvent::KeyPress, Qt::Key_At, Qt::ControlModifier | Qt::AltModifier,
                        QStringLiteral("@"));
    QApplication::sendEvent(maximum, &withAltGr);
    EXPECT_EQ(maximum->text().toStdString(), "") << "a sign typed by AltGr is one";
}

TEST_F(SubjectSetupKeys, ADroppedLetterLeavesTheOtherNumbersAlone)
{
    StartArt();
    QTest::keyClicks(order, QStringLiteral("1x2"));
    EXPECT_EQ(order->text().toStdString(), "12");
    Click(1, 4);
    QTest::keyClicks(allowed, QStringLiteral("7x."));
    EXPECT_EQ(allowed->text().toStdString(), "7");
}

TEST_F(SubjectSetupKeys, WhatIsPastedKeepsItsDigitsOnly)
{
    StartNew();
    EnterCells({"Art", "Omar"});
    Paste(maximum, QStringLiteral("a1b0c0"));
    EXPECT_EQ(RowText(1), "1|Art|Omar|100|100||");
    Paste(maximum, QStringLiteral("abc"));
    EXPECT_EQ(maximum->text().toStdString(), "100") << "nothing of it is a number";
    Paste(maximum, QStringLiteral("62.5"));
    EXPECT_EQ(RowText(1), "1|Art|Omar|625|625||");
    Paste(maximum, QStringLiteral("12345678"));
    EXPECT_EQ(RowText(1), "1|Art|Omar|123456|123456||") << "and no more digits than fit";
}

TEST_F(SubjectSetupKeys, EnterOnNoMaximumMarkStays)
{
    StartNew();
    EnterCells({"Art", "Omar"});
    for (const char* digits : {"", "0"}) {
        Enter(digits);
        EXPECT_EQ(Focus(), "txtmaximummark") << digits;
    }
    QTest::keyClick(maximum, Qt::Key_A, Qt::ControlModifier);
    Enter("999999");
    EXPECT_EQ(Focus(), "TxtMaximumAllowed");
    EXPECT_EQ(Total(), "999999");
}

TEST_F(SubjectSetupKeys, MoreThanTheMaximumMarkIsRefusedAtTheKeyThatMakesItSo)
{
    StartNew();
    EnterCells({"Art", "Omar", "100"});
    prompts.ExpectInformation(
        QStringLiteral("'Maximum Allowed' Mark Should Not Be Greater Than 'Maximum Mark' Entered"));
    QTest::keyClicks(allowed, QStringLiteral("101"));
    prompts.Verify();
    EXPECT_EQ(allowed->text().toStdString(), "");
    EXPECT_EQ(Cell(1, 4), "0");
    EXPECT_EQ(Cell(1, 3), "100");
    QTest::keyClick(allowed, Qt::Key_Return);
    EXPECT_EQ(Focus(), "TxtMaximumAllowed") << "nothing is allowed yet";
}

TEST_F(SubjectSetupKeys, LessThanAMarkThatWasEnteredIsRefusedOnEnterAndOnLeaving)
{
    GivenMark(1, 45);
    StartEdit();
    const QString text = QStringLiteral(
        "'Maximum Allowed' Marks Should Not Be Lesser Than Mark (45) Entered In 'Classwise Mark Entry'");
    Click(2, 4);
    prompts.ExpectInformation(text);
    Enter("40");
    prompts.Verify();
    EXPECT_EQ(Focus(), "TxtMaximumAllowed");
    EXPECT_EQ(allowed->text().toStdString(), "");
    EXPECT_EQ(Cell(2, 4), "0");
    QTest::keyClicks(allowed, QStringLiteral("44"));
    prompts.ExpectInformation(text);
    QTest::keyClick(allowed, Qt::Key_Tab);
    Settle();
    prompts.Verify();
    EXPECT_EQ(Focus(), "TxtMaximumAllowed");
    EXPECT_EQ(allowed->selectedText().toStdString(), "44") << "to be mended or typed over";
    EXPECT_EQ(Cell(2, 4), "44");
    Enter("45");
    EXPECT_EQ(Focus(), "cboRankYesNo");
    EXPECT_EQ(RowText(2), "2|English|Mary|100|45|No|2");
}

TEST_F(SubjectSetupKeys, ARefusedMaximumAllowedKeepsTheSaveAwayButNotTheCancel)
{
    GivenMark(1, 45);
    StartEdit();
    Click(2, 4);
    QTest::keyClicks(allowed, QStringLiteral("4"));
    prompts.ExpectInformation(QStringLiteral(
        "'Maximum Allowed' Marks Should Not Be Lesser Than Mark (45) Entered In 'Classwise Mark Entry'"));
    PressKey(form, Qt::Key_S, Qt::AltModifier);
    Settle();
    prompts.Verify();
    EXPECT_EQ(Focus(), "TxtMaximumAllowed");
    Press(Button("cmdCancel"));
    EXPECT_EQ(EnabledControls(), Idle) << "who gives up is not kept";
    EXPECT_EQ(Stored(1), "1 2 8 100/100 Yes; 2 1 7 50/100 No");
}

TEST_F(SubjectSetupKeys, ARankIsChosenAndABlankOneIsRefused)
{
    StartNew();
    EnterCells({"Art", "Omar", "100", ""});
    ASSERT_EQ(Focus(), "cboRankYesNo");
    EXPECT_EQ(rank->currentText().trimmed().toStdString(), "");
    prompts.ExpectInformation(QStringLiteral("Select Rank"));
    QTest::keyClick(rank, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(Focus(), "cboRankYesNo");
    prompts.ExpectInformation(QStringLiteral("Select Rank"));
    QTest::keyClick(rank, Qt::Key_Tab);
    Settle();
    prompts.Verify();
    EXPECT_EQ(Focus(), "cboRankYesNo");
    prompts.ExpectInformation(QStringLiteral("Select Rank"));
    Enter("may");
    prompts.Verify();
    EXPECT_EQ(Cell(1, 5), "") << "a word that is neither";
    QTest::keyClick(rank, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(rank, Qt::Key_Delete);
    for (int entry = 0; entry < rank->count() && rank->currentText() != NoText; ++entry)
        QTest::keyClick(rank, Qt::Key_Down);
    EXPECT_EQ(Cell(1, 5), "No") << "the cell has it at once";
    QTest::keyClick(rank, Qt::Key_Return);
    EXPECT_EQ(Focus(), "txtOrder");
}

TEST_F(SubjectSetupKeys, TheRankTakesAsManyLettersAsItsWordHas)
{
    StartNew();
    EnterCells({"Art", "Omar", "100", ""});
    QTest::keyClicks(rank, QStringLiteral("yess"));
    EXPECT_EQ(rank->currentText().toLower().toStdString(), "yes");
}

TEST_F(SubjectSetupKeys, WhoGivesUpIsNotKeptInABlankRank)
{
    StartNew();
    EnterCells({"Art", "Omar", "100", ""});
    ASSERT_EQ(Focus(), "cboRankYesNo");
    PressKey(form, Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(EnabledControls(), Idle);
}

TEST_F(SubjectSetupKeys, AnOrderThatStandsInAnotherRowIsRefusedOnEnterAndOnLeaving)
{
    StartEdit();
    Click(2, 6);
    prompts.ExpectInformation(QStringLiteral("Subject Order Already Exists"));
    Enter("1");
    prompts.Verify();
    EXPECT_EQ(Focus(), "txtOrder");
    prompts.ExpectInformation(QStringLiteral("Subject Order Already Exists"));
    QTest::keyClick(order, Qt::Key_Tab);
    Settle();
    prompts.Verify();
    EXPECT_EQ(Focus(), "txtOrder");
    EXPECT_EQ(Cell(2, 6), "") << "leaving empties the cell";
    EXPECT_EQ(order->text().toStdString(), "") << "and the box with it";
    QTest::keyClick(order, Qt::Key_Tab);
    Settle();
    EXPECT_NE(Focus(), "txtOrder");
    EXPECT_EQ(Cell(2, 6), "");
    Click(2, 6);
    for (int press = 0; press < 2; ++press) {
        prompts.ExpectInformation(QStringLiteral("Subject Order Already Exists"));
        Enter(press == 0 ? "1" : "");
        prompts.Verify();
        EXPECT_EQ(Focus(), "txtOrder");
        EXPECT_EQ(order->selectedText().toStdString(), "1");
        EXPECT_EQ(Cell(2, 6), "1");
    }
    Enter("05");
    EXPECT_EQ(RowText(2), "2|English|Mary|100|50|No|5");
    EXPECT_EQ(subject->Row(), 3);
}

TEST_F(SubjectSetupKeys, AnOrderHasFiveDigitsAtMost)
{
    StartArt();
    for (const char* digits : {"", "0"}) {
        Enter(digits);
        EXPECT_EQ(Focus(), "txtOrder");
    }
    QTest::keyClick(order, Qt::Key_A, Qt::ControlModifier);
    Enter("123456");
    EXPECT_EQ(RowText(1), "1|Art|Omar|100|80|Yes|12345");
    EXPECT_EQ(RowText(2), "2||||||") << "and the next row is there";
    EXPECT_EQ(subject->Row(), 2);
}

TEST_F(SubjectSetupKeys, ASubjectOfAnotherRowIsRefused)
{
    StartArt();
    Enter("1");
    prompts.ExpectInformation(QStringLiteral("Subject Already Selected"));
    QTest::keyClicks(subject, QStringLiteral("Art"));
    prompts.Verify();
    EXPECT_EQ(RowText(2), "2||||||");
    EXPECT_EQ(subject->currentText().trimmed().toStdString(), "");
    prompts.ExpectInformation(QStringLiteral("Subject Already Selected"));
    Enter("ar");
    prompts.Verify();
    EXPECT_EQ(Focus(), "dbcSubject");
    EXPECT_EQ(subject->currentText().trimmed().toStdString(), "");
    EXPECT_EQ(RowText(2), "2||||||");
}

TEST_F(SubjectSetupKeys, TheArrowsPassASubjectThatIsRefused)
{
    StartArt();
    Enter("1");
    prompts.ExpectInformation(QStringLiteral("Subject Already Selected"));
    QTest::keyClick(subject, Qt::Key_Down);
    prompts.Verify();
    QTest::keyClick(subject, Qt::Key_Down);
    EXPECT_EQ(RowText(2), "2|English|||||");
}

TEST_F(SubjectSetupKeys, ANameThatBeginsAnotherOneCanBeTypedOn)
{
    Given("INSERT INTO SubjectMaster VALUES (6, 'Art Of Speech', 'Spe', 0)");
    StartArt();
    Enter("1");
    QTest::keyClicks(subject, QStringLiteral("Art Of Speech"));
    EXPECT_EQ(RowText(2), "2|Art Of Speech|||||");
    QTest::keyClick(subject, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(subject, QStringLiteral("Art"));
    QTest::keyClick(subject, Qt::Key_Delete);
    ASSERT_EQ(subject->currentText().toStdString(), "Art");
    prompts.ExpectInformation(QStringLiteral("Subject Already Selected"));
    QTest::keyClick(subject, Qt::Key_Tab);
    Settle();
    prompts.Verify();
    EXPECT_EQ(Focus(), "dbcSubject");
    EXPECT_EQ(subject->currentText().trimmed().toStdString(), "");
    EXPECT_EQ(RowText(2), "2||||||");
}

TEST_F(SubjectSetupKeys, ARepeatedSubjectTakenFromTheListIsRefusedThoughALongerNameBeginsWithIt)
{
    Given("INSERT INTO SubjectMaster VALUES (6, 'Art Of Speech', 'Spe', 0)");
    StartArt();
    Enter("1");
    prompts.ExpectInformation(QStringLiteral("Subject Already Selected"));
    QTest::keyClick(subject, Qt::Key_Down);
    prompts.Verify();
    EXPECT_EQ(RowText(2), "2||||||");
    QTest::keyClick(subject, Qt::Key_Down);
    EXPECT_EQ(RowText(2), "2|Art Of Speech|||||");
    prompts.ExpectInformation(QStringLiteral("Subject Already Selected"));
    subject->showPopup();
    subject->view()->setCurrentIndex(subject->model()->index(subject->findText(QStringLiteral("Art")), 0));
    QTest::keyClick(subject->view(), Qt::Key_Return);
    Settle();
    prompts.Verify();
    EXPECT_EQ(RowText(2), "2||||||");
}

TEST_F(SubjectSetupKeys, ASubjectThatTheListHasCompletedStandsInTheCellThoughItStoodThereBefore)
{
    StartNew();
    Enter("Art");
    Click(1, 1);
    QTest::keyClicks(subject, QStringLiteral("Ar"));
    ASSERT_EQ(subject->currentText().toStdString(), "Art");
    QTest::keyClick(subject, Qt::Key_Tab);
    Settle();
    EXPECT_EQ(RowText(1), "1|Art|||||");
    EXPECT_EQ(grid->TextMatrix(1, SubjectColumn::SubjectCode).toStdString(), "3");
}

TEST_F(SubjectSetupKeys, ATeacherWhomTheListHasCompletedStandsInTheCellHoweverTheListIsLeft)
{
    StartNew();
    Enter("Art");
    QTest::keyClicks(teacher, QStringLiteral("Om"));
    EXPECT_EQ(teacher->currentText().toStdString(), "Omar");
    QTest::keyClick(teacher, Qt::Key_Tab);
    Settle();
    EXPECT_EQ(RowText(1), "1|Art|Omar||||");
    EXPECT_EQ(grid->TextMatrix(1, SubjectColumn::TeacherCode).toStdString(), "9");
    Click(1, 2);
    QTest::keyClicks(teacher, QStringLiteral("Om"));
    QTest::keyClick(teacher, Qt::Key_Tab);
    Settle();
    EXPECT_EQ(RowText(1), "1|Art|Omar||||") << "the entry that was chosen before";
    EXPECT_EQ(grid->TextMatrix(1, SubjectColumn::TeacherCode).toStdString(), "9");
    Click(1, 2);
    QTest::keyClicks(teacher, QStringLiteral("Ma"));
    Click(1, 3);
    EXPECT_EQ(RowText(1), "1|Art|Mary||||");
    EXPECT_EQ(grid->TextMatrix(1, SubjectColumn::TeacherCode).toStdString(), "7");
}

TEST_F(SubjectSetupKeys, AWordThatIsNoSubjectOrTeacherIsRefusedOnEnter)
{
    StartNew();
    prompts.ExpectInformation(QStringLiteral("Select Subject Name"));
    Enter("Xyz");
    prompts.Verify();
    EXPECT_EQ(Focus(), "dbcSubject");
    EXPECT_EQ(subject->lineEdit()->selectedText().toStdString(), "Xyz") << "to be typed over";
    Enter("Art");
    prompts.ExpectInformation(QStringLiteral("Select Teacher Name"));
    Enter("Nobody");
    prompts.Verify();
    EXPECT_EQ(Focus(), "dbcTeacher");
    Enter("Mary");
    EXPECT_EQ(Focus(), "txtmaximummark");
    EXPECT_EQ(grid->TextMatrix(1, SubjectColumn::SubjectCode).toStdString(), "3");
    EXPECT_EQ(grid->TextMatrix(1, SubjectColumn::TeacherCode).toStdString(), "7");
}

TEST_F(SubjectSetupKeys, EnterOnNoSubjectStaysAndTabLeadsOn)
{
    StartNew();
    Enter("");
    EXPECT_EQ(Focus(), "dbcSubject");
    QTest::keyClick(subject, Qt::Key_Tab);
    Settle();
    EXPECT_NE(Focus(), "dbcSubject");
}

TEST_F(SubjectSetupKeys, AnEmptiedSubjectLosesItsCode)
{
    StartEdit();
    Click(2, 1);
    QTest::keyClick(subject, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(subject, Qt::Key_Delete);
    EXPECT_EQ(RowText(2), "2||Mary|100|50|No|2");
    EXPECT_EQ(grid->TextMatrix(2, SubjectColumn::SubjectCode).toStdString(), "");
}

TEST_F(SubjectSetupKeys, OfTwoTeachersWithOneNameTheChosenOneStays)
{
    Given("INSERT INTO TeacherMaster (TeacherCode, TeacherName, TeacherShortName) VALUES (10, 'Mary', 'M2')");
    Given("UPDATE ClassSubjectTeacher SET TeacherCode = 10 WHERE SubjectCode = 1 AND DivisionCode = 1");
    StartEdit();
    Click(2, 2);
    EXPECT_EQ(teacher->currentText().toStdString(), "Mary");
    QTest::keyClick(teacher, Qt::Key_Return);
    EXPECT_EQ(grid->TextMatrix(2, SubjectColumn::TeacherCode).toStdString(), "10");
    Click(2, 2);
    QTest::keyClick(teacher, Qt::Key_Up);
    EXPECT_EQ(grid->TextMatrix(2, SubjectColumn::TeacherCode).toStdString(), "7");
}

TEST_F(SubjectSetupKeys, OfTwoSubjectsWithOneNameTheOtherOneCanBeChosen)
{
    Given("INSERT INTO SubjectMaster VALUES (6, 'Art', 'Ar2', 0)");
    StartNew();
    Enter("Art");
    const auto code = [this] { return grid->TextMatrix(1, SubjectColumn::SubjectCode).toStdString(); };
    ASSERT_EQ(code(), "3");
    Click(1, 1);
    QTest::keyClick(subject, Qt::Key_Down);
    EXPECT_EQ(RowText(1), "1|Art|||||");
    EXPECT_EQ(code(), "6");
}

TEST_F(SubjectSetupKeys, EscTakesBackWhatWasTypedInEachBox)
{
    StartEdit();
    const std::string before = RowText(2);
    const char* const typed[] = {"Art", "Omar", "7", "7", "Yes", "7"};
    for (int col = 1; col <= 6; ++col) {
        Click(2, col);
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(typed[col - 1]));
        EXPECT_NE(RowText(2), before) << col;
        PressKey(form, Qt::Key_Escape);
        EXPECT_EQ(RowText(2), before) << col;
        EXPECT_EQ(grid->TextMatrix(2, SubjectColumn::SubjectCode).toStdString(), "1");
        EXPECT_EQ(grid->TextMatrix(2, SubjectColumn::TeacherCode).toStdString(), "7");
    }
}

TEST_F(SubjectSetupKeys, ARowIsDeletedByItsNumberAndTheOthersMoveUp)
{
    StartEdit();
    DeleteRow(1, false);
    EXPECT_EQ(grid->Rows(), 4) << "on No nothing goes";
    DeleteRow(1);
    EXPECT_EQ(Rows(), "1|English|Mary|100|50|No|2 2||||||");
    EXPECT_EQ(TextOf("txtDeleteSlNo"), "");
    EXPECT_EQ(Total(), "0");
    DeleteRow(2);
    EXPECT_EQ(Rows(), "1|English|Mary|100|50|No|2 2||||||") << "the blank row is always there";
    DeleteRow(1);
    EXPECT_EQ(Rows(), "1||||||");
}

TEST_F(SubjectSetupKeys, ANewRowCanBeDeletedAsSoonAsItIsThere)
{
    StartArt();
    Retype("txtDeleteSlNo", "2");
    EXPECT_FALSE(IsEnabled("cmdDeleteRow"));
    Click(1, 6);
    Enter("1");
    EXPECT_TRUE(IsEnabled("cmdDeleteRow"));
}

TEST_F(SubjectSetupKeys, NoRowIsTheCurrentOneWhereOneHasGone)
{
    StartEdit();
    Click(2, 3);
    ASSERT_EQ(grid->CurrentRow(), 2);
    DeleteRow(1);
    EXPECT_EQ(grid->CurrentRow(), 0);
}

TEST_F(SubjectSetupKeys, ASubjectWithMarksCannotBeDeleted)
{
    GivenMark(1, 45);
    StartEdit();
    Retype("txtDeleteSlNo", "2");
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete S.No. 2 ?"), true);
    prompts.ExpectInformation(HasMarksText);
    Press(Button("cmdDeleteRow"));
    prompts.Verify();
    EXPECT_EQ(TextOf("txtDeleteSlNo"), "");
    EXPECT_EQ(grid->Rows(), 4);
}

TEST_F(SubjectSetupKeys, ASubjectTypedAnewIsFilledOnceBesideItsMarksAndCannotBeDeletedEither)
{
    GivenMark(3, 45);
    StartEdit();
    Click(3, 1);
    EnterCells({"Art", "Omar", "100"});
    prompts.ExpectInformation(QStringLiteral(
        "'Maximum Allowed' Marks Should Not Be Lesser Than Mark (45) Entered In 'Classwise Mark Entry'"));
    EnterCells({"40"});
    prompts.Verify();
    EnterCells({"80", "Yes", "3"});
    EXPECT_EQ(RowText(3), "3|Art|Omar|100|80|Yes|3");
    Retype("txtDeleteSlNo", "3");
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete S.No. 3 ?"), true);
    prompts.ExpectInformation(HasMarksText);
    Press(Button("cmdDeleteRow"));
    prompts.Verify();
    Save(QStringLiteral("Record Updated"));
    ChooseDivision("A");
    Press(Button("cmdEdit"));
    prompts.ExpectInformation(FrozenText);
    Click(3, 2);
}

TEST_F(SubjectSetupKeys, ARowWithThreeDigitsCanBeDeleted)
{
    for (int code = 10; code < 110; ++code)
        school->AddSubject(1, code, QByteArray::number(code).constData(), code);
    StartEdit();
    ASSERT_EQ(grid->Rows(), 104);
    DeleteRow(101);
    EXPECT_EQ(grid->Rows(), 103);
    EXPECT_EQ(Cell(101, 6), "109") << "the one below has moved up";
}

TEST_F(SubjectSetupKeys, OnlyARowThatThereIsCanBeDeleted)
{
    StartEdit();
    const std::pair<const char*, bool> numbers[] = {{"", false}, {"0", false}, {"1", true},
                                                    {"3", true}, {"4", false}, {"99", false}};
    for (const auto& [number, may] : numbers) {
        Retype("txtDeleteSlNo", number);
        EXPECT_EQ(IsEnabled("cmdDeleteRow"), may) << number;
    }
    Retype("txtDeleteSlNo", "2");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "cmdDeleteRow");
    Retype("txtDeleteSlNo", "0");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "txtDeleteSlNo");
}

TEST_F(SubjectSetupKeys, TheLettersLeadToOneControlEach)
{
    OpenForm();
    ExpectOneControlALetter(form);
    EXPECT_EQ(form->windowTitle().toStdString(), "Classwise Subject - Teacher - Mark  Entry");
    EXPECT_EQ(Find<QLabel>(form, "lblNote")->text().toStdString(),
              "Note :" + std::string(113, ' ') +
                  "Depending Upon The Numeric Value Given In 'Subject Order' Column, Subjects Will Be "
                  "Displayed In Ascending Order In All The Report Screens And Print-Outs");
    EXPECT_EQ(Box("txtDeleteSlNo")->toolTip().toStdString(), "Enter Sl No. To Delete ");
}

TEST_F(SubjectSetupKeys, TheScreenFitsASmallDisplay)
{
    ExpectToFit(QStringLiteral("frmClassSubjectTeacher"));
}

} // namespace
} // namespace tally::test
