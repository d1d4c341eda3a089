#include "exams/SubjectSetupScreen.h"
#include "support/FileSizeLimit.h"

#include <chrono>

namespace tally::test {
namespace {

const QString DeleteQuestion =
    QStringLiteral("Do You Want To Delete This 'Classwise Subject-Teacher-Mark Entry' ?");
const QString MasterIsGoneText =
    QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data.");

/// What Save and Delete ask for, store and tell, also where another client was faster.
class SubjectSetupSave : public SubjectSetupScreen
{
protected:
    /// The statement ends in a condition and works on division A of the year.
    void OtherInA(const char* sql)
    {
        AnotherClient()->Execute(
            QString::fromLatin1(sql) +
            QStringLiteral(" AND ClassCode = 1 AND DivisionCode = 1 AND AcademicYearCode = 1"));
    }
    void OtherMark(int subjectCode, double mark)
    {
        AnotherClient()->Execute(
            QStringLiteral("INSERT INTO MarkMaster VALUES (1, 1, 1, 1, 1, ?, ?, 'P', 7, 0)"), subjectCode,
            mark);
    }
    /// Saves, is told `text`, and finds what was typed as it was.
    void SaveIsRefused(const QString& text)
    {
        const std::string stored = Stored(1) + Stored(2);
        const std::string rows = Rows();
        prompts.ExpectInformation(text);
        Press(Button("cmdSave"));
        prompts.Verify();
        EXPECT_EQ(Rows(), rows);
        EXPECT_EQ(EnabledControls(), Typing);
        EXPECT_EQ(Stored(1) + Stored(2), stored);
        EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    }
    /// Saves, is told `text`, finds `rows` on the screen and nothing stored, and the keyboard in what can
    /// still be entered of the subject.
    void SavePutsBack(const QString& text, const std::string& rows, int row)
    {
        const std::string stored = Stored(1);
        prompts.ExpectInformation(text);
        Press(Button("cmdSave"));
        prompts.Verify();
        EXPECT_EQ(Rows(), rows);
        EXPECT_EQ(EnabledControls(), Typing);
        EXPECT_EQ(Focus(), "TxtMaximumAllowed");
        EXPECT_EQ(allowed->Row(), row);
        EXPECT_EQ(Stored(1), stored);
        EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    }
    void SaveStartsAnew(const QString& text)
    {
        const std::string stored = Stored(1) + Stored(2);
        prompts.ExpectCritical(text);
        Press(Button("cmdSave"));
        prompts.Verify();
        EXPECT_EQ(EnabledControls(), Idle);
        EXPECT_EQ(Rows(), "1||||||");
        EXPECT_EQ(Stored(1) + Stored(2), stored);
        EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    }
    void StartArt()
    {
        StartNew();
        EnterCells({"Art", "Omar", "100", "80", "Yes", "1"});
    }
    void EditMaximumOfMaths()
    {
        StartEdit();
        Click(1, 3);
        QTest::keyClicks(maximum, QStringLiteral("60"));
    }
};

TEST_F(SubjectSetupSave, WhatIsMissingIsToldInItsOrderAndTheBoxGetsTheKeyboard)
{
    OpenNew();
    ExpectRefusal(QStringLiteral("Select Class"), "cboClass");
    Choose(classes, QStringLiteral("X"));
    ExpectRefusal(QStringLiteral("Select Division"), "cboDivision");
    Choose(divisions, QStringLiteral("B"));
    ExpectRefusal(QStringLiteral("Enter Details Properly"), "dbcSubject");
    EnterCells({"Art"});
    ASSERT_EQ(Focus(), "dbcTeacher");
    ExpectRefusal(QStringLiteral("Select Rank"), "cboRankYesNo");
    Enter("Yes");
    ExpectRefusal(QStringLiteral("Subject Order Should Not Be Empty"), "txtOrder");
    Enter("1");
    ASSERT_EQ(subject->Row(), 2);
    ExpectRefusal(QStringLiteral("Enter Details Properly"), "dbcSubject");
    EXPECT_EQ(subject->Row(), 1);
    EnterCells({"", "Omar"});
    ExpectRefusal(QStringLiteral("Enter Details Properly"), "dbcSubject");
    EnterCells({"", "", "100"});
    Save();
    EXPECT_EQ(Stored(2), "1 3 9 100/100 Yes");
}

TEST_F(SubjectSetupSave, AnOrderThatStandsTwiceKeepsTheSaveAway)
{
    StartEdit();
    Click(1, 6);
    QTest::keyClicks(order, QStringLiteral("2"));
    prompts.ExpectInformation(QStringLiteral("Subject Order Already Exists"));
    Press(Button("cmdSave"));
    Settle();
    prompts.Verify();
    EXPECT_EQ(Focus(), "txtOrder");
    EXPECT_EQ(order->Row(), 1);
    EXPECT_EQ(Stored(1), "1 2 8 100/100 Yes; 2 1 7 50/100 No");
}

TEST_F(SubjectSetupSave, ALastRowLeftHalfFilledIsRefused)
{
    StartArt();
    Enter("Tamil");
    SaveIsRefused(QStringLiteral("Select Rank"));
    EXPECT_EQ(Focus(), "cboRankYesNo");
    EXPECT_EQ(rank->Row(), 2);
    Enter("No");
    Enter("2");
    SaveIsRefused(QStringLiteral("Enter Details Properly"));
    EXPECT_EQ(subject->Row(), 2);
}

TEST_F(SubjectSetupSave, ARowLeftHalfFilledInTheMiddleIsRefused)
{
    StartEdit();
    Click(1, 1);
    QTest::keyClick(subject, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(subject, Qt::Key_Delete);
    SaveIsRefused(QStringLiteral("Enter Details Properly"));
    EXPECT_EQ(subject->Row(), 1);
    Enter("Tamil");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), "1 4 8 100/100 Yes; 2 1 7 50/100 No");
}

TEST_F(SubjectSetupSave, AnEditReplacesTheWholeSet)
{
    StartEdit();
    DeleteRow(2);
    Click(2, 1);
    EnterCells({"Art", "Omar", "40", "", "No", "7"});
    Click(1, 4);
    Enter("90");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), "1 2 8 90/100 Yes; 7 3 9 40/40 No");
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(Focus(), "cmdNew");
}

TEST_F(SubjectSetupSave, TwoSubjectsChangePlaces)
{
    StartEdit();
    Click(1, 6);
    Enter("9");
    Click(2, 6);
    Enter("1");
    Click(1, 6);
    Enter("2");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), "1 1 7 50/100 No; 2 2 8 100/100 Yes");
}

TEST_F(SubjectSetupSave, ASubjectWithMarksIsMendedInItsTwoFields)
{
    GivenMark(1, 45);
    StartEdit();
    Click(2, 4);
    Enter("45");
    Enter("Yes");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), "1 2 8 100/100 Yes; 2 1 7 45/100 Yes");
}

TEST_F(SubjectSetupSave, ASetThatAnotherClientEnteredMeanwhileIsNotAddedTo)
{
    StartArt();
    Other("INSERT INTO ClassSubjectTeacher VALUES (1, 1, 2, 4, 9, 50, 40, 'Yes', 5)");
    SaveIsRefused(EnteredMeanwhileText);
    EXPECT_FALSE(subject->isVisible()) << "the box of the next row";
    EXPECT_EQ(Stored(2), "5 4 9 40/50 Yes");
}

TEST_F(SubjectSetupSave, ASetThatAnotherClientChangedMeanwhileIsNotWrittenOver)
{
    EditMaximumOfMaths();
    OtherInA("UPDATE ClassSubjectTeacher SET TakenForRank = 'Yes' WHERE SubjectCode = 1");
    SaveIsRefused(ChangedMeanwhileText);
}

TEST_F(SubjectSetupSave, WhatWasTypedStaysBesideASetThatGotMarksAsWellAsAnotherChange)
{
    EditMaximumOfMaths();
    OtherInA("UPDATE ClassSubjectTeacher SET TakenForRank = 'Yes' WHERE SubjectCode = 1");
    OtherMark(2, 30);
    SaveIsRefused(ChangedMeanwhileText);
}

TEST_F(SubjectSetupSave, ASetThatAnotherClientDeletedMeanwhileIsNotStoredAgain)
{
    EditMaximumOfMaths();
    OtherInA("DELETE FROM ClassSubjectTeacher WHERE SubjectCode > 0");
    SaveIsRefused(ChangedMeanwhileText);
    EXPECT_EQ(Stored(1), "");
}

TEST_F(SubjectSetupSave, ASubjectThatGotMarksWhileItWasTakenOutStays)
{
    StartEdit();
    DeleteRow(1);
    OtherMark(2, 60);
    SavePutsBack(HasMarksText, "1|English|Mary|100|50|No|2 2|Maths|Noor|100|100|Yes|1 3||||||", 2);
    Enter("70");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), "1 2 8 70/100 Yes; 2 1 7 50/100 No");
}

TEST_F(SubjectSetupSave, ASubjectThatGotMarksWhileAnotherOneTookItsRowStays)
{
    StartEdit();
    Click(1, 1);
    EnterCells({"Tamil"});
    OtherMark(2, 60);
    SavePutsBack(HasMarksText,
                 "1|Tamil|Noor|100|100|Yes|1 2|English|Mary|100|50|No|2 3|Maths|Noor|100|100|Yes|1 4||||||",
                 3);
    prompts.ExpectInformation(QStringLiteral("Subject Order Already Exists"));
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(order->Row(), 1) << "the one that can be mended";
    Enter("3");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), "1 2 8 100/100 Yes; 2 1 7 50/100 No; 3 4 8 100/100 Yes");
}

TEST_F(SubjectSetupSave, ASubjectThatGotMarksWhileItWasChangedKeepsWhatIsFrozen)
{
    StartEdit();
    Click(1, 2);
    EnterCells({"Omar", "80", "70", "No", "9"});
    Click(2, 4);
    Enter("40");
    OtherMark(2, 60);
    SavePutsBack(FrozenText, "1|Maths|Noor|100|70|No|1 2|English|Mary|100|40|No|2 3||||||", 1);
    prompts.ExpectInformation(FrozenText);
    Click(1, 3);
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), "1 2 8 70/100 No; 2 1 7 40/100 No");
}

TEST_F(SubjectSetupSave, AFrozenSubjectIsNotAllowedMoreThanItsMaximumMark)
{
    StartEdit();
    Click(1, 3);
    Enter("200");
    OtherMark(2, 60);
    SavePutsBack(FrozenText, "1|Maths|Noor|100|100|Yes|1 2|English|Mary|100|50|No|2 3||||||", 1);
}

TEST_F(SubjectSetupSave, AMarkEnteredWhileLessWasAllowedIsToldAndTheBoxOpens)
{
    StartEdit();
    Click(2, 4);
    Enter("40");
    OtherMark(1, 45);
    SaveIsRefused(QStringLiteral(
        "'Maximum Allowed' Marks Should Not Be Lesser Than Mark (45) Entered In 'Classwise Mark Entry'"));
    EXPECT_EQ(Focus(), "TxtMaximumAllowed");
    EXPECT_EQ(allowed->Row(), 2);
    Enter("45");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(1), "1 2 8 100/100 Yes; 2 1 7 45/100 No");
}

TEST_F(SubjectSetupSave, ASubjectDeletedMeanwhileIsToldAndTheScreenStartsAnew)
{
    StartArt();
    LeaveOthersUnguarded();
    Other("DELETE FROM SubjectMaster WHERE SubjectCode = 3");
    SaveStartsAnew(MasterIsGoneText);
}

TEST_F(SubjectSetupSave, ATeacherDeletedMeanwhileIsToldAndTheScreenStartsAnew)
{
    StartArt();
    LeaveOthersUnguarded();
    Other("DELETE FROM TeacherMaster WHERE TeacherCode = 9");
    SaveStartsAnew(MasterIsGoneText);
}

TEST_F(SubjectSetupSave, ADivisionDeletedMeanwhileIsToldAndTheScreenStartsAnew)
{
    StartArt();
    LeaveOthersUnguarded();
    Other("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 2");
    SaveStartsAnew(MasterIsGoneText);
    ChooseClass();
    EXPECT_EQ(divisions->count(), 2);
    EXPECT_EQ(divisions->findText(QStringLiteral("B")), -1) << "the lists are read anew";
}

TEST_F(SubjectSetupSave, AClassDeletedMeanwhileIsToldAndTheScreenStartsAnew)
{
    StartArt();
    LeaveOthersUnguarded();
    for (const char* table : {"RankMaster", "MarkMaster", "TempRankTotal", "StudentClassDivision",
                              "ClassSubjectTeacher", "ClassDivisionDetails", "ClassDivisionMaster"})
        AnotherClient()->Execute(
            QStringLiteral("DELETE FROM %1 WHERE ClassCode = 1").arg(QLatin1String(table)));
    SaveStartsAnew(MasterIsGoneText);
    EXPECT_EQ(classes->findText(QStringLiteral("X")), -1) << "the lists are read anew";
}

TEST_F(SubjectSetupSave, ALockKeepsWhatWasTypedForASecondTry)
{
    StartArt();
    {
        const auto other = AnotherClient();
        const store::Transaction held(*other);
        Session().gcnnMain->SetPatience(std::chrono::milliseconds(1));
        prompts.ExpectCritical(HeldByAnotherClient);
        Press(Button("cmdSave"));
        prompts.Verify();
    }
    EXPECT_EQ(RowText(1), "1|Art|Omar|100|80|Yes|1");
    EXPECT_EQ(EnabledControls(), Typing);
    Save();
    EXPECT_EQ(Stored(2), "1 3 9 80/100 Yes");
}

TEST_F(SubjectSetupSave, ADiskThatTakesNothingMoreKeepsWhatWasTypedForASecondTry)
{
    StartArt();
    {
        const FileSizeLimit full(0);
        prompts.ExpectCritical(
            QStringLiteral("The Database File Could Not Be Read Or Written (disk I/O error)"));
        Press(Button("cmdSave"));
        prompts.Verify();
    }
    EXPECT_EQ(RowText(1), "1|Art|Omar|100|80|Yes|1");
    EXPECT_EQ(Stored(2), "");
    Save();
    EXPECT_EQ(Stored(2), "1 3 9 80/100 Yes");
}

TEST_F(SubjectSetupSave, AFaultInReadingTheListsAnewSaysThatTheSetIsSaved)
{
    StartArt();
    Prompts::AnswerWith([&](Prompts::Kind kind, const QString& text) {
        EXPECT_NE(kind, Prompts::Kind::Critical) << text.toStdString();
        if (text == QStringLiteral("Record Saved"))
            Given("ALTER TABLE ClassDivisionMaster RENAME TO FarAway");
        else
            EXPECT_TRUE(text.startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
        return true;
    });
    LeaveOthersUnguarded();
    Press(Button("cmdSave"));
    Given("ALTER TABLE FarAway RENAME TO ClassDivisionMaster");
    EXPECT_EQ(Stored(2), "1 3 9 80/100 Yes");
    EXPECT_EQ(EnabledControls(), "Frame1 cmdCancel cmdExit") << "without the lists nothing is begun";
    EXPECT_EQ(Rows(), "1||||||");
}

TEST_F(SubjectSetupSave, ASetIsDeletedAfterTheQuestion)
{
    OpenForm();
    ChooseDivision("A");
    prompts.ExpectQuestion(DeleteQuestion, false);
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(EnabledControls(), Found);
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(Stored(1), "");
    EXPECT_EQ(EnabledControls(), Idle);
}

TEST_F(SubjectSetupSave, ASetWithMarksIsNotDeleted)
{
    GivenMark(2, 10);
    OpenForm();
    ChooseDivision("A");
    prompts.ExpectInformation(HasMarksText);
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(Stored(1), "1 2 8 100/100 Yes; 2 1 7 50/100 No");
}

TEST_F(SubjectSetupSave, ASetWhoseMarksCannotBeReadIsNotAskedForAndNotDeleted)
{
    OpenForm();
    ChooseDivision("A");
    Given("ALTER TABLE MarkMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("MarkMaster"));
    Press(Button("cmdDelete"));
    prompts.Verify();
    Given("ALTER TABLE Away RENAME TO MarkMaster");
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(Stored(1), "1 2 8 100/100 Yes; 2 1 7 50/100 No");
}

TEST_F(SubjectSetupSave, AMarkEnteredWhileTheQuestionStandsKeepsTheSet)
{
    OpenForm();
    ChooseDivision("A");
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
        if (text == DeleteQuestion)
            OtherMark(1, 45);
        told.append(text);
        return true;
    });
    Press(Button("cmdDelete"));
    EXPECT_EQ(told, (QStringList{DeleteQuestion, HasMarksText}));
    EXPECT_EQ(Stored(1), "1 2 8 100/100 Yes; 2 1 7 50/100 No");
}

TEST_F(SubjectSetupSave, ASetChangedSinceItWasShownIsNotDeletedUnseen)
{
    OpenForm();
    ChooseDivision("A");
    OtherInA("UPDATE ClassSubjectTeacher SET TakenForRank = 'Yes' WHERE SubjectCode = 1");
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(QStringLiteral("Subjects Of This Class-Division Were Changed By Another User "
                                             "Meanwhile.\nYou Cannot Delete This Data."));
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(Stored(1), "1 2 8 100/100 Yes; 2 1 7 50/100 Yes");
    EXPECT_EQ(RowText(2), "2|English|Mary|100|50|Yes|2") << "and is seen then";
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Stored(1), "");
}

TEST_F(SubjectSetupSave, ASetThatAnotherClientHasDeletedIsGoneFromTheScreenToo)
{
    OpenForm();
    ChooseDivision("A");
    OtherInA("DELETE FROM ClassSubjectTeacher WHERE SubjectCode > 0");
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(QStringLiteral("Subjects Of This Class-Division Were Changed By Another User "
                                             "Meanwhile.\nYou Cannot Delete This Data."));
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(Rows(), "1||||||");
    EXPECT_EQ(EnabledControls(), Idle);
}

TEST_F(SubjectSetupSave, ADiskThatTakesNothingMoreKeepsTheSetThatWasToGo)
{
    OpenForm();
    ChooseDivision("A");
    {
        const FileSizeLimit full(0);
        prompts.ExpectQuestion(DeleteQuestion, true);
        prompts.ExpectCritical(
            QStringLiteral("The Database File Could Not Be Read Or Written (disk I/O error)"));
        Press(Button("cmdDelete"));
        prompts.Verify();
    }
    EXPECT_EQ(Stored(1), "1 2 8 100/100 Yes; 2 1 7 50/100 No");
    EXPECT_EQ(EnabledControls(), Found);
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Stored(1), "");
}

TEST_F(SubjectSetupSave, ALockedDeleteIsToldInItsOwnWords)
{
    OpenForm();
    ChooseDivision("A");
    const auto other = AnotherClient();
    const store::Transaction held(*other);
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(1));
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(EnabledControls(), Found);
}

} // namespace
} // namespace tally::test
