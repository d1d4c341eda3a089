#include "exams/MarkScreen.h"
#include "support/OneMoment.h"

namespace tally::test {
namespace {

/// What the choice of an exam, a division, a mode and a subject or student brings, and how the list is left.
class MarkChoosing : public MarkScreenOfThree
{
protected:
    std::string AllowedMark() { return Find<QLineEdit>(form, "txtmaximumallowed")->text().toStdString(); }
    std::string Text(const char* label) { return Find<QLabel>(form, label)->text().toStdString(); }
};

TEST_F(MarkChoosing, TheDivisionListsItsSubjectsAndStudentsWithABlankRowBehind)
{
    OpenForm();
    ChooseClassDivision();
    EXPECT_EQ(Entries(subjects), "English|Maths");
    EXPECT_TRUE(subjects->IsBlank());
    EXPECT_EQ(Rows(), "1|Asha(A1)||Present 2|Binu(A2)||Present 3|Cara(A3)||Present |||");
    EXPECT_EQ(grid->TextMatrix(2, 4).toStdString(), "2");
    EXPECT_EQ(grid->TextMatrix(0, 1).toStdString(), "Student Name");
    EXPECT_EQ(Text("Label4"), "Subject Name :");
    EXPECT_EQ(Text("Label2"), "Class Average For The Selected Subject :");
}

TEST_F(MarkChoosing, AStudentsRowsAreTheSubjectsWithTheirLimitsAndTeachers)
{
    OpenForm();
    ChooseClassDivision();
    Press(byStudent);
    EXPECT_EQ(EnabledControls(), "Frame1 dbcStudent cmdNew cmdCancel cmdExit");
    EXPECT_EQ(Entries(students), "Asha(A1)|Binu(A2)|Cara(A3)");
    EXPECT_EQ(Rows(), "1|Maths|| 2|English|| |||");
    const char* const english[] = {"1", "50", "7", "100"};
    for (int col = 4; col < 8; ++col)
        EXPECT_EQ(grid->TextMatrix(2, col).toStdString(), english[col - 4]);
    EXPECT_EQ(grid->TextMatrix(0, 1).toStdString(), "Subject Name");
    EXPECT_EQ(Text("Label4"), "Student Name :");
    EXPECT_EQ(Text("Label2"), "Average :");
}

TEST_F(MarkChoosing, TheLabelLeadsToTheListOfTheModeAndASubjectAloneHasOneLimit)
{
    OpenForm();
    const auto expect = [this](const QWidget* list, bool limited) {
        EXPECT_EQ(Find<QLabel>(form, "Label4")->buddy(), list);
        for (const char* limit : {"lblMaximumAllowed", "txtmaximumallowed"})
            EXPECT_EQ(Find<QWidget>(form, limit)->isVisible(), limited) << limit;
    };
    expect(subjects, true);
    Press(byStudent);
    expect(students, false);
    Press(bySubject);
    expect(subjects, true);
}

TEST_F(MarkChoosing, ADivisionWithoutSubjectsSaysSoInBothModes)
{
    Given("DELETE FROM ClassSubjectTeacher");
    OpenNew();
    Choose(exam, QStringLiteral("Term One"));
    Choose(classes, QStringLiteral("X"));
    prompts.ExpectInformation(NoSubjectsText);
    Choose(divisions, QStringLiteral("A"));
    EXPECT_EQ(Entries(subjects), "");
    prompts.ExpectInformation(NoSubjectsText);
    Press(byStudent);
    EXPECT_EQ(grid->Rows(), 2);
}

TEST_F(MarkChoosing, AStudentRelievedBeforeTheExamIsLeftOutAndOneWithMarksStays)
{
    school->EnterMark(2, 1, 30);
    GivenRelieved(2);
    GivenRelieved(3);
    OpenForm();
    ChooseClassDivision();
    EXPECT_EQ(Rows(), "1|Asha(A1)||Present 2|Binu(A2)||Present |||");
    Press(byStudent);
    EXPECT_EQ(Entries(students), "Asha(A1)") << "no relieved student is entered alone";
}

TEST_F(MarkChoosing, ADivisionOfRelievedStudentsHasNobodyToMarkAndWasNotForgotten)
{
    for (const int student : {1, 2, 3})
        GivenRelieved(student);
    OpenForm();
    ChooseClassDivision();
    EXPECT_EQ(Rows(), "|||");
}

TEST_F(MarkChoosing, StoredMarksComeUpWithTheirAverageAndAbsences)
{
    school->EnterMark(1, 1, 45);
    school->EnterAbsence(2, 1);
    OpenForm();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    EXPECT_EQ(Rows(), "1|Asha(A1)|45|Present 2|Binu(A2)|0|Absent 3|Cara(A3)||Present |||");
    EXPECT_EQ(Average(), "22.5");
    EXPECT_EQ(AllowedMark(), "50");
    EXPECT_EQ(grid->TextMatrix(1, 6).toStdString(), "7");
    Choose(subjects, QStringLiteral("Maths"));
    EXPECT_EQ(Rows(), "1|Asha(A1)||Present 2|Binu(A2)||Present 3|Cara(A3)||Present |||");
    EXPECT_EQ(Average(), "");
    EXPECT_EQ(grid->TextMatrix(1, 6).toStdString(), "8");
}

TEST_F(MarkChoosing, WhileBrowsingTheListIsLeftWithoutAQuestionOrAnOpenMark)
{
    school->EnterMark(1, 1, 45);
    OpenForm();
    ChooseClassDivision();
    for (const char* subject : {"English", "Maths"}) {
        Choose(subjects, QString::fromLatin1(subject));
        PressKey(form, Qt::Key_Return);
        EXPECT_EQ(Focus(), "cmdNew");
        EXPECT_FALSE(mark->isVisible());
    }
}

TEST_F(MarkChoosing, AnotherClassEmptiesEverythingBelowIt)
{
    Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 1, 2, 0)");
    Given("INSERT INTO ClassDivisionDetails VALUES (2, 'Red', 1)");
    OpenForm();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    Choose(classes, QStringLiteral("IX"));
    EXPECT_EQ(Entries(divisions), " |Red");
    EXPECT_EQ(Entries(subjects), "");
    EXPECT_EQ(Rows(), "|||");
    EXPECT_EQ(Average(), "");
}

TEST_F(MarkChoosing, AnotherExamStartsWithoutChoiceAndWithItsOwnStudents)
{
    GivenRelieved(3);
    Given("INSERT INTO ExamMaster VALUES (2, 'Term Two', 2, 1)");
    school->EnterMark(1, 1, 45);
    school->EnterMark(3, 1, 35);
    ShowStoredSubject(QStringLiteral("English"));
    EXPECT_EQ(Rows(), "1|Asha(A1)|45|Present 2|Binu(A2)||Present 3|Cara(A3)|35|Present |||");
    Choose(exam, QStringLiteral("Term Two"));
    EXPECT_TRUE(subjects->IsBlank());
    EXPECT_EQ(Entries(subjects), "English|Maths");
    EXPECT_EQ(Rows(), "1|Asha(A1)||Present 2|Binu(A2)||Present |||");
    EXPECT_EQ(Average(), "");
}

TEST_F(MarkChoosing, WithoutAnExamASubjectHasNoRows)
{
    school->EnterMark(1, 1, 45);
    ShowStoredSubject(QStringLiteral("English"));
    Choose(exam, QStringLiteral(" "));
    EXPECT_EQ(Rows(), "|||");
    EXPECT_EQ(Average(), "");
    Choose(subjects, QStringLiteral("English"));
    EXPECT_EQ(Rows(), "|||");
    EXPECT_EQ(Average(), "");
}

TEST_F(MarkChoosing, WithoutAnExamNothingIsAskedAboutMarks)
{
    school->EnterMark(1, 1, 45);
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    prompts.ExpectQuestion(AlreadyEntered, false);
    PressKey(form, Qt::Key_Tab);
    prompts.Verify();
    Settle();
    Choose(exam, QStringLiteral(" "));
    Choose(subjects, QStringLiteral("English"));
    PressKey(form, Qt::Key_Tab);
    EXPECT_NE(Focus(), "dbcSubject");
}

TEST_F(MarkChoosing, AListInWhichNothingIsChosenIsLeftWithoutAMarkOpening)
{
    OpenNew();
    ChooseClassDivision();
    subjects->setFocus();
    PressKey(form, Qt::Key_Tab);
    EXPECT_FALSE(mark->isVisible());
}

TEST_F(MarkChoosing, AnotherExamListsTheSubjectsOfAStudentAgain)
{
    Given("INSERT INTO ExamMaster VALUES (2, 'Term Two', 2, 1)");
    OpenForm();
    ChooseClassDivision();
    Press(byStudent);
    Choose(students, QStringLiteral("Asha(A1)"));
    Choose(exam, QStringLiteral("Term Two"));
    EXPECT_TRUE(byStudent->isChecked());
    EXPECT_TRUE(students->IsBlank());
    EXPECT_EQ(Rows(), "1|Maths|| 2|English|| |||");
}

TEST_F(MarkChoosing, WithoutASubjectThereIsNothingToEditOrDelete)
{
    Given("INSERT INTO ExamMaster VALUES (2, 'Term Two', 2, 1)");
    school->EnterMark(1, 1, 45);
    ShowStoredSubject(QStringLiteral("English"));
    Choose(exam, QStringLiteral("Term Two"));
    for (const char* button : {"cmdEdit", "cmdDelete"}) {
        prompts.ExpectInformation(QStringLiteral("Select Subject Name"));
        Press(Button(button));
        prompts.Verify();
        EXPECT_EQ(Focus(), "dbcSubject") << button;
    }
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(Stored(), "1 1 45 P 0 0");
}

TEST_F(MarkChoosing, EmptyingTheDivisionClearsBothLists)
{
    OpenForm();
    ChooseClassDivision();
    Choose(divisions, QStringLiteral(" "));
    EXPECT_EQ(Rows(), "|||");
    Choose(divisions, QStringLiteral("A"));
    Press(byStudent);
    Choose(divisions, QStringLiteral(" "));
    EXPECT_EQ(Entries(subjects), "");
    EXPECT_EQ(Entries(students), "");
    EXPECT_EQ(Rows(), "|||");
    EXPECT_TRUE(bySubject->isChecked());
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "cboDivision") << "Enter waits for a division";
}

TEST_F(MarkChoosing, EitherEnterInTheDivisionReadsItsListsAnew)
{
    OpenForm();
    ChooseClassDivision();
    int rows = grid->Rows();
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        school->AddStudent(1, QStringLiteral("Dev"));
        divisions->setFocus();
        PressKey(form, enter);
        EXPECT_EQ(grid->Rows(), ++rows);
        EXPECT_EQ(Focus(), "Optsubject");
    }
}

TEST_F(MarkChoosing, EnterInTheDivisionLeadsBackFromTheStudentsToTheSubjects)
{
    OpenForm();
    ChooseClassDivision();
    Press(byStudent);
    divisions->setFocus();
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(bySubject->isChecked());
    EXPECT_FALSE(byStudent->isChecked());
    EXPECT_EQ(EnabledControls(), Browse);
    EXPECT_EQ(RowText(1), "1|Asha(A1)||Present");
}

TEST_F(MarkChoosing, TheOtherModeStartsWithoutChoiceAndMarks)
{
    OpenForm();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    Press(byStudent);
    Choose(students, QStringLiteral("Binu(A2)"));
    Press(bySubject);
    EXPECT_TRUE(subjects->IsBlank());
    EXPECT_TRUE(students->IsBlank());
    EXPECT_EQ(Rows(), "1|Asha(A1)||Present 2|Binu(A2)||Present 3|Cara(A3)||Present |||");
}

TEST_F(MarkChoosing, ASubjectWithMarksIsShownOnYesForEditOrDelete)
{
    school->EnterMark(1, 1, 45);
    ShowStoredSubject(QStringLiteral("English"));
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(Focus(), "cmdEdit");
    Press(Button("cmdEdit"));
    EXPECT_EQ(EnabledControls(), "fraMain cmdSave cmdCancel cmdExit");
    EXPECT_EQ(Focus(), "cmdSave");
}

TEST_F(MarkChoosing, ASubjectWithMarksIsPutBackOnNoAndTheListKeepsTheFocus)
{
    school->EnterMark(1, 1, 45);
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    prompts.ExpectQuestion(AlreadyEntered, false);
    PressKey(form, Qt::Key_Return);
    Settle();
    EXPECT_EQ(Focus(), "dbcSubject");
    EXPECT_TRUE(subjects->IsBlank());
    EXPECT_EQ(RowText(1), "1|Asha(A1)||");
    EXPECT_EQ(EnabledControls(), New);
    EXPECT_FALSE(mark->isVisible());
    prompts.Verify();
}

TEST_F(MarkChoosing, AClickAwayFromASubjectWithMarksAsksOnceAndHasNoEffectOnNo)
{
    school->EnterMark(1, 1, 45);
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    prompts.ExpectQuestion(AlreadyEntered, false);
    Press(Button("cmdSave"));
    Settle();
    EXPECT_EQ(Focus(), "dbcSubject");
}

TEST_F(MarkChoosing, AStudentWithMarksIsAskedForInHisOwnWords)
{
    school->EnterMark(2, 1, 45);
    OpenNew();
    ChooseClassDivision();
    Press(byStudent);
    Choose(students, QStringLiteral("Binu(A2)"));
    EXPECT_EQ(Rows(), "1|Maths||Present 2|English|45|Present |||");
    EXPECT_EQ(Average(), "22.5");
    prompts.ExpectQuestion(AlreadyEnteredForStudent, true);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "cmdEdit");
    EXPECT_EQ(EnabledControls(), "Frame1 dbcStudent cmdEdit cmdDelete cmdCancel cmdExit");
}

TEST_F(MarkChoosing, LookingAtAnotherProgramIsNoLeaving)
{
    school->EnterMark(1, 1, 45);
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    for (const auto reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        QFocusEvent away(QEvent::FocusOut, reason);
        QApplication::sendEvent(subjects, &away);
    }
    prompts.ExpectQuestion(AlreadyEntered, true);
    PressKey(form, Qt::Key_Tab);
}

TEST_F(MarkChoosing, ASubjectThatTheDivisionNoLongerTakesLeavesTheGridAndTheLimitsAsTheyWere)
{
    Given("UPDATE ClassSubjectTeacher SET MaximumMark = 200 WHERE SubjectCode = 2");
    StartSubject(QStringLiteral("English"));
    Enter("45");
    Given("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 2 AND ClassCode = 1 "
          "AND DivisionCode = 1 AND AcademicYearCode = 1");
    Choose(subjects, QStringLiteral("Maths"));
    EXPECT_EQ(RowText(1), "1|Asha(A1)|45|Present");
    EXPECT_EQ(Average(), "15");
    EXPECT_EQ(AllowedMark(), "50");
    PressKey(form, Qt::Key_Return);
    Enter("30");
    EXPECT_EQ(Average(), "10") << "out of the hundred of the subject before";
    prompts.ExpectInformation(AboveFiftyText);
    QTest::keyClicks(mark, QStringLiteral("51"));
}

TEST_F(MarkChoosing, ASubjectThatTheDivisionNoLongerTakesHasNoneOfTheMarksShownBeforeIt)
{
    school->EnterMark(1, 1, 45);
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    ASSERT_EQ(RowText(1), "1|Asha(A1)|45|Present");
    Given("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 2 AND ClassCode = 1 "
          "AND DivisionCode = 1 AND AcademicYearCode = 1");
    Choose(subjects, QStringLiteral("Maths"));
    // No question whether to edit or delete marks that are those of English.
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(EnabledControls(), New);
    EXPECT_EQ(Focus(), "txtmarkobtained");
}

TEST_F(MarkChoosing, TheAllowedMarkIsShownWhileASubjectIsChosen)
{
    school->EnterMark(1, 2, 45);
    OpenNew();
    ChooseClassDivision();
    EXPECT_EQ(AllowedMark(), "");
    Choose(subjects, QStringLiteral("English"));
    EXPECT_EQ(AllowedMark(), "50");
    Choose(subjects, QStringLiteral("Maths"));
    EXPECT_EQ(AllowedMark(), "100");
    prompts.ExpectQuestion(AlreadyEntered, false);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(AllowedMark(), "") << "put back on No";
    Settle();
    Choose(subjects, QStringLiteral("English"));
    Press(byStudent);
    Press(bySubject);
    EXPECT_EQ(AllowedMark(), "") << "the mode changed";
    Choose(subjects, QStringLiteral("English"));
    Choose(divisions, QStringLiteral(" "));
    EXPECT_EQ(AllowedMark(), "") << "no division";
    Choose(divisions, QStringLiteral("A"));
    Choose(subjects, QStringLiteral("English"));
    Choose(classes, QStringLiteral(" "));
    EXPECT_EQ(AllowedMark(), "") << "no class";
}

TEST_F(MarkChoosing, TheLimitAndTheMarksOfASubjectAreOfOneMoment)
{
    school->EnterMark(1, 1, 0);
    Given("UPDATE ClassSubjectTeacher SET MaximumAllowed = 0 WHERE SubjectCode = 1");
    OpenNew();
    ChooseClassDivision();
    // What the other client changes is all that the store holds of the subject.
    LeaveOthersUnguarded();
    const auto change = [](store::Transaction& transaction, int state) {
        transaction.Execute(
            QStringLiteral("UPDATE ClassSubjectTeacher SET MaximumAllowed = ? WHERE SubjectCode = 1"), state);
        transaction.Execute(QStringLiteral("UPDATE MarkMaster SET Mark = ?"), state);
    };
    ExpectOneMoment(*AnotherClient(), change, [this] {
        Choose(subjects, QStringLiteral("Maths"));
        Choose(subjects, QStringLiteral("English"));
        return QStringList{QString::fromStdString(AllowedMark()), grid->TextMatrix(1, 2)};
    });
}

} // namespace
} // namespace tally::test
