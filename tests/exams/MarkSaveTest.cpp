#include "exams/MarkScreen.h"

namespace tally::test {
namespace {

const QString DeleteQuestion = QStringLiteral("Do You Want To Delete This 'Classwise Mark Entry' ?");

class MarkSave : public MarkScreenOfThree
{
protected:
    /// Asha has marks in both subjects, and the clerk says Yes to looking at them.
    void ShowStoredMarksOfAsha()
    {
        GivenEnglishMarks();
        school->EnterMark(1, 2, 99);
        ShowStoredStudent(QStringLiteral("Asha(A1)"));
    }

    void GivenEnglishMarks()
    {
        school->EnterMark(1, 1, 45);
        school->EnterAbsence(2, 1);
        school->EnterMark(3, 1, 30);
    }

    void ExpectRefusal(const char* text, const char* focus)
    {
        prompts.ExpectInformation(QString::fromLatin1(text));
        Press(Button("cmdSave"));
        EXPECT_EQ(Focus(), focus);
        prompts.Verify();
        EXPECT_EQ(Stored(), "");
    }

    void EnterThree(const char* first, const char* second, const char* third)
    {
        for (const char* digits : {first, second, third})
            Enter(digits);
        ASSERT_EQ(Focus(), "cmdSave");
    }

    void SaveAndStop()
    {
        prompts.ExpectInformation(QStringLiteral("Record Saved"));
        prompts.ExpectQuestion(SameAgain, false);
        PressKey(form, Qt::Key_Return);
        prompts.Verify();
    }
};

TEST_F(MarkSave, WhatIsMissingIsToldInItsOrderAndTheFieldGetsTheFocus)
{
    OpenNew();
    ExpectRefusal("Select Exam Name", "dbcExam");
    Choose(exam, QStringLiteral("Term One"));
    ExpectRefusal("Select Class", "cboClass");
    Choose(classes, QStringLiteral("X"));
    ExpectRefusal("Select Division", "cboDivision");
    Choose(divisions, QStringLiteral("A"));
    ExpectRefusal("Select Subject Name", "dbcSubject");
    Press(byStudent);
    ExpectRefusal("Select Student Name", "dbcStudent");
    Press(bySubject);
    Choose(subjects, QStringLiteral("English"));
    PressKey(form, Qt::Key_Return);
    ExpectRefusal("Enter Mark", "txtmarkobtained");
    Enter("45");
    Enter("0");
    Enter("a");
    ExpectRefusal("Enter Mark", "txtmarkobtained");
    EXPECT_EQ(mark->Row(), 3);
    Click(1, 3);
    QTest::keyClick(presence, Qt::Key_Down);
    ExpectRefusal("Mark Entry Is Not Allowed When A Student Is Absent", "txtmarkobtained");
    EXPECT_EQ(mark->Row(), 1);
}

TEST_F(MarkSave, AStudentNeedsAMarkInEverySubject)
{
    StartStudent(QStringLiteral("Binu(A2)"));
    Enter("88");
    ExpectRefusal("Enter Mark", "txtmarkobtained");
    EXPECT_EQ(mark->Row(), 2);
}

TEST_F(MarkSave, AZeroMarkAndAnAbsenceAreStoredApart)
{
    StartSubject(QStringLiteral("English"));
    Enter("0");
    Enter("");
    Enter("0");
    Enter("a");
    Enter("50");
    EXPECT_EQ(Average(), "25") << "the zero counts, the absence does not";
    SaveAndStop();
    EXPECT_EQ(Stored(), "1 1 0 P 7 5; 2 1 0 A 7 5; 3 1 50 P 7 5");
}

TEST_F(MarkSave, OnYesTheNextSubjectOfTheSameClassIsChosen)
{
    StartSubject(QStringLiteral("English"));
    EnterThree("45", "40", "35");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    prompts.ExpectQuestion(SameAgain, true);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "dbcSubject");
    EXPECT_TRUE(subjects->IsBlank());
    EXPECT_EQ(exam->currentText().toStdString(), "Term One");
    EXPECT_EQ(Rows(), "1|Asha(A1)|| 2|Binu(A2)|| 3|Cara(A3)|| |||");
    EXPECT_EQ(Average(), "");
    PressKey(form, Qt::Key_M);
    PressKey(form, Qt::Key_Return);
    EnterThree("90", "80", "70");
    SaveAndStop();
    EXPECT_EQ(Marks(), 6);
    EXPECT_EQ(EnabledControls(), Browse);
    EXPECT_TRUE(exam->IsBlank());
    EXPECT_EQ(grid->Rows(), 2);
}

TEST_F(MarkSave, AnEditReplacesTheWholeSubject)
{
    GivenEnglishMarks();
    school->EnterMark(1, 2, 99);
    ShowStoredSubject(QStringLiteral("English"));
    Press(Button("cmdEdit"));
    EXPECT_EQ(Rows(), "1|Asha(A1)|45|Present 2|Binu(A2)|0|Absent 3|Cara(A3)|30|Present |||");
    Click(3, 2);
    Enter("31");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Stored(), "1 1 45 P 7 5; 1 2 99 P 0 0; 2 1 0 A 7 5; 3 1 31 P 7 5");
    EXPECT_EQ(EnabledControls(), Browse);
}

TEST_F(MarkSave, AnEditReplacesTheWholeStudent)
{
    ShowStoredMarksOfAsha();
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Rows(), "1|Maths|99|Present 2|English|45|Present |||");
    Click(1, 2);
    Enter("98");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(Stored(), "1 1 45 P 7 5; 1 2 98 P 8 5; 2 1 0 A 0 0; 3 1 30 P 0 0");
}

TEST_F(MarkSave, AfterAnEditTheNextMarksAreAFirstEntry)
{
    GivenEnglishMarks();
    ShowStoredSubject(QStringLiteral("English"));
    Press(Button("cmdEdit"));
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_Return);
    Press(Button("cmdNew"));
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("Maths"));
    PressKey(form, Qt::Key_Return);
    EnterThree("90", "80", "70");
    SaveAndStop();
    EXPECT_EQ(Marks(), 6);
}

TEST_F(MarkSave, AnEditLeavesRelievedStudentsOutAndItsSaveTakesTheirMarks)
{
    GivenEnglishMarks();
    GivenRelieved(3);
    ShowStoredSubject(QStringLiteral("English"));
    EXPECT_EQ(RowText(3), "3|Cara(A3)|30|Present") << "with marks she stays in the list of a new entry";
    Press(Button("cmdEdit"));
    EXPECT_EQ(Rows(), "1|Asha(A1)|45|Present 2|Binu(A2)|0|Absent |||");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Stored(), "1 1 45 P 7 5; 2 1 0 A 7 5");
}

TEST_F(MarkSave, ADeleteTakesTheSubjectOnYesOnly)
{
    GivenEnglishMarks();
    school->EnterMark(1, 2, 99);
    ShowStoredSubject(QStringLiteral("English"));
    prompts.ExpectQuestion(DeleteQuestion, false);
    Press(Button("cmdDelete"));
    EXPECT_EQ(Marks(), 4);
    EXPECT_TRUE(IsEnabled("cmdDelete"));
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Stored(), "1 2 99 P 0 0");
    EXPECT_EQ(EnabledControls(), Browse);
}

TEST_F(MarkSave, ADeleteTakesTheStudentInStudentMode)
{
    ShowStoredMarksOfAsha();
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    PressKey(form, Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(Stored(), "2 1 0 A 0 0; 3 1 30 P 0 0");
}

TEST_F(MarkSave, CancelForgetsWhatWasTyped)
{
    StartSubject(QStringLiteral("English"));
    Enter("45");
    Press(Button("cmdCancel"));
    EXPECT_EQ(EnabledControls(), Browse);
    EXPECT_EQ(Rows(), "|||");
    EXPECT_FALSE(mark->isVisible());
    EXPECT_TRUE(exam->IsBlank());
    EXPECT_EQ(Focus(), "cmdNew");
    EXPECT_EQ(Stored(), "");
}

TEST_F(MarkSave, NewEditAndDeleteNeedTheirRights)
{
    GivenEnglishMarks();
    GivenUser(9, QStringLiteral("clerk"), QStringLiteral("x"),
              {{QStringLiteral("frmexammarkentry"), QStringLiteral("N")}});
    Session().gintPrivilegeUserCode = 9;
    ShowStoredSubject(QStringLiteral("English"));
    GivenRelieved(3);
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Press(Button("cmdEdit"));
    EXPECT_EQ(RowText(3), "3|Cara(A3)|30|Present") << "she would be left out of an edit";
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Delete"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Marks(), 3);
    Press(Button("cmdCancel"));
    Given("DELETE FROM UserPrivilegeDetails");
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    EXPECT_FALSE(IsEnabled("cmdSave"));
}

TEST_F(MarkSave, ASaveRunsOneInsertPerStudentAndNothingElseGrowsWithTheClass)
{
    const auto statementsOfSave = [this](const QString& subject) {
        StartSubject(subject);
        for (int row = 1; row < grid->Rows() - 1; ++row)
            Enter("10");
        const auto before = Session().gcnnMain->StatementsRun();
        prompts.ExpectInformation(QStringLiteral("Record Saved"));
        prompts.ExpectQuestion(SameAgain, true);
        PressKey(form, Qt::Key_Return);
        const auto run = Session().gcnnMain->StatementsRun() - before;
        Press(Button("cmdExit"));
        Settle();
        return run;
    };
    const auto few = statementsOfSave(QStringLiteral("English"));
    for (int student = 4; student <= 60; ++student)
        school->AddStudent(1, QStringLiteral("Student %1").arg(student));
    EXPECT_EQ(statementsOfSave(QStringLiteral("Maths")) - few, 57U);
    EXPECT_LE(few, 3U + 7U);
    EXPECT_EQ(Marks(), 63);
}

} // namespace
} // namespace tally::test
