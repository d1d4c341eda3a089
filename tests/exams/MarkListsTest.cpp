#include "core/mdiTallyboard.h"
#include "core/ScreenRegistry.h"
#include "exams/MarkScreen.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>

namespace tally::test {
namespace {

const std::string Browse = "Frame1 dbcSubject cmdNew cmdCancel cmdExit";
const std::string New = "Frame1 dbcSubject fraMain cmdSave cmdCancel cmdExit";
const std::string Found = "Frame1 dbcSubject cmdEdit cmdDelete cmdCancel cmdExit";

class MarkLists : public MarkScreen
{
protected:
    void OpenNew()
    {
        OpenForm();
        Press(Button("cmdNew"));
    }

    std::string Entries(const QComboBox* list)
    {
        QStringList texts;
        for (int index = 0; index < list->count(); ++index)
            texts.append(list->itemText(index));
        return texts.join(QLatin1Char('|')).toStdString();
    }

    std::string AllowedMark() { return Find<QLineEdit>(form, "txtmaximumallowed")->text().toStdString(); }
    bool IsSeen(int row) const { return grid->viewport()->rect().intersects(grid->CellRect(row, 1)); }
    /// 120 is a notch; a touch pad sends many small parts of one.
    void TurnWheel(int delta)
    {
        const QPointF middle = QRectF(grid->viewport()->rect()).center();
        QWheelEvent turn(middle, grid->viewport()->mapToGlobal(middle), {}, {0, delta}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(grid->viewport(), &turn);
    }

    std::string Text(const char* label) { return Find<QLabel>(form, label)->text().toStdString(); }
};

TEST_F(MarkLists, TheScreenOpensForBrowsing)
{
    OpenForm();
    EXPECT_EQ(form->windowTitle().toStdString(), "Classwise Mark Entry");
    EXPECT_EQ(EnabledControls(), Browse);
    EXPECT_EQ(Entries(exam), " |Term One");
    EXPECT_EQ(Entries(classes), " |X");
    EXPECT_EQ(Entries(divisions), " ");
    EXPECT_TRUE(bySubject->isChecked());
    EXPECT_FALSE(mark->isVisible());
    EXPECT_FALSE(presence->isVisible());
    const char* const heads[] = {"S.No.", "Student  Name", "Mark Obtained", "Present/Absent", "Studentcode"};
    for (int col = 0; col < 5; ++col)
        EXPECT_EQ(grid->TextMatrix(0, col).toStdString(), heads[col]);
    EXPECT_GT(grid->ColWidth(3), 0);
    for (int col = 4; col < 8; ++col)
        EXPECT_EQ(grid->ColWidth(col), 0);
}

TEST_F(MarkLists, ASchoolWithoutExamsHasNoneToChoose)
{
    Given("DELETE FROM ExamMaster");
    OpenNew();
    EXPECT_EQ(Entries(exam), "");
    Choose(classes, QStringLiteral("X"));
    Choose(divisions, QStringLiteral("A"));
    EXPECT_EQ(grid->Rows(), 2);
    prompts.ExpectInformation(QStringLiteral("Select Exam Name"));
    Press(Button("cmdSave"));
}

TEST_F(MarkLists, TheDivisionListsItsSubjectsAndStudentsWithABlankRowBehind)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, AStudentsRowsAreTheSubjectsWithTheirLimitsAndTeachers)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, ADivisionWithoutSubjectsSaysSoInBothModes)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, ADivisionWithoutStudentsSaysSoInBothModes)
{
    OpenNew();
    Choose(exam, QStringLiteral("Term One"));
    Choose(classes, QStringLiteral("X"));
    prompts.ExpectInformation(NoStudentsText);
    Choose(divisions, QStringLiteral("A"));
    EXPECT_EQ(grid->Rows(), 2);
    prompts.ExpectInformation(NoStudentsText);
    Press(byStudent);
    EXPECT_EQ(Entries(students), "");
}

TEST_F(MarkLists, AStudentRelievedBeforeTheExamIsLeftOutAndOneWithMarksStays)
{
    GivenThreeStudents();
    school->EnterMark(2, 1, 30);
    GivenRelieved(2);
    GivenRelieved(3);
    OpenForm();
    ChooseClassDivision();
    EXPECT_EQ(Rows(), "1|Asha(A1)||Present 2|Binu(A2)||Present |||");
    Press(byStudent);
    EXPECT_EQ(Entries(students), "Asha(A1)") << "no relieved student is entered alone";
}

TEST_F(MarkLists, StoredMarksComeUpWithTheirAverageAndAbsences)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, WhileBrowsingTheListIsLeftWithoutAQuestion)
{
    GivenThreeStudents();
    school->EnterMark(1, 1, 45);
    OpenForm();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "cmdNew");
    EXPECT_FALSE(mark->isVisible());
}

TEST_F(MarkLists, AnotherClassEmptiesEverythingBelowIt)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, AnotherExamStartsWithoutChoiceAndWithItsOwnStudents)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, AnotherExamListsTheSubjectsOfAStudentAgain)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, WithoutASubjectThereIsNothingToEditOrDelete)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, EmptyingTheDivisionClearsBothLists)
{
    GivenThreeStudents();
    OpenForm();
    ChooseClassDivision();
    Press(byStudent);
    Choose(divisions, QStringLiteral(" "));
    EXPECT_EQ(Entries(subjects), "");
    EXPECT_EQ(Entries(students), "");
    EXPECT_EQ(Rows(), "|||");
    EXPECT_TRUE(bySubject->isChecked());
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "cboDivision") << "Enter waits for a division";
}

TEST_F(MarkLists, EnterInTheDivisionReadsItsListsAnew)
{
    GivenThreeStudents();
    OpenForm();
    ChooseClassDivision();
    school->AddStudent(1, QStringLiteral("Dev"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(grid->Rows(), 6);
    EXPECT_EQ(Focus(), "Optsubject");
}

TEST_F(MarkLists, EnterInTheDivisionLeadsBackFromTheStudentsToTheSubjects)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, TheOtherModeStartsWithoutChoiceAndMarks)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, NewOpensTheEntryAndTakesToTheFirstChoiceThatIsMissing)
{
    GivenThreeStudents();
    OpenNew();
    EXPECT_EQ(EnabledControls(), New);
    EXPECT_EQ(Focus(), "dbcExam");
    EXPECT_EQ(RowText(1), "1|||");
    Press(Button("cmdCancel"));
    EXPECT_EQ(EnabledControls(), Browse);
    EXPECT_EQ(Average(), " ");
    ChooseClassDivision();
    Press(Button("cmdNew"));
    EXPECT_EQ(Focus(), "dbcSubject");
}

TEST_F(MarkLists, NewOpensTheListOfSubjectsWhateverTheOptionSays)
{
    GivenThreeStudents();
    OpenForm();
    ChooseClassDivision();
    Press(byStudent);
    Press(Button("cmdNew"));
    EXPECT_TRUE(byStudent->isChecked());
    EXPECT_TRUE(subjects->isEnabled());
    EXPECT_FALSE(students->isEnabled());
    EXPECT_EQ(Focus(), "Optstudent");
    PressKey(form, Qt::Key_Space);
    EXPECT_TRUE(students->isEnabled()) << "choosing the option again opens its list";
}

TEST_F(MarkLists, ASubjectWithMarksIsShownOnYesForEditOrDelete)
{
    GivenThreeStudents();
    school->EnterMark(1, 1, 45);
    ShowStoredSubject(QStringLiteral("English"));
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(Focus(), "cmdEdit");
    Press(Button("cmdEdit"));
    EXPECT_EQ(EnabledControls(), "fraMain cmdSave cmdCancel cmdExit");
    EXPECT_EQ(Focus(), "cmdSave");
}

TEST_F(MarkLists, ASubjectWithMarksIsPutBackOnNoAndTheListKeepsTheFocus)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, AClickAwayFromASubjectWithMarksAsksOnceAndHasNoEffectOnNo)
{
    GivenThreeStudents();
    school->EnterMark(1, 1, 45);
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    prompts.ExpectQuestion(AlreadyEntered, false);
    Press(Button("cmdSave"));
    Settle();
    EXPECT_EQ(Focus(), "dbcSubject");
}

TEST_F(MarkLists, AStudentWithMarksIsAskedForInHisOwnWords)
{
    GivenThreeStudents();
    school->EnterMark(2, 1, 45);
    OpenNew();
    ChooseClassDivision();
    Press(byStudent);
    Choose(students, QStringLiteral("Binu(A2)"));
    EXPECT_EQ(Rows(), "1|Maths||Present 2|English|45|Present |||");
    EXPECT_EQ(Average(), "22.5");
    prompts.ExpectQuestion(
        QStringLiteral(
            "Marks Are Already Entered For This Student. Do You Want To View/Edit/Delete The Details ?"),
        true);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "cmdEdit");
    EXPECT_EQ(EnabledControls(), "Frame1 dbcStudent cmdEdit cmdDelete cmdCancel cmdExit");
}

TEST_F(MarkLists, ALongClassThatIsOnlyShownCanBeLookedThrough)
{
    for (int student = 0; student < 60; ++student)
        school->AddStudent(1, QStringLiteral("Student %1").arg(student));
    school->EnterMark(1, 1, 45);
    ShowStoredSubject(QStringLiteral("English"));
    ASSERT_TRUE(IsSeen(1));
    ASSERT_FALSE(IsSeen(60));
    for (int page = 0; page < 10; ++page)
        PressKey(form, Qt::Key_PageDown);
    EXPECT_TRUE(IsSeen(60));
    for (int notch = 0; notch < 60; ++notch)
        TurnWheel(120);
    EXPECT_TRUE(IsSeen(1));
    PressKey(form, Qt::Key_PageDown);
    EXPECT_FALSE(IsSeen(1));
    PressKey(form, Qt::Key_PageUp);
    EXPECT_TRUE(IsSeen(1));
}

TEST_F(MarkLists, SmallTurnsOfTheWheelAddUpOverAClassThatIsOnlyShown)
{
    for (int student = 0; student < 60; ++student)
        school->AddStudent(1, QStringLiteral("Student %1").arg(student));
    school->EnterMark(1, 1, 45);
    ShowStoredSubject(QStringLiteral("English"));
    Settle();
    ASSERT_FALSE(IsSeen(60));
    const int top = grid->verticalScrollBar()->value();
    for (int part = 0; part < 7; ++part)
        TurnWheel(-15);
    EXPECT_EQ(grid->verticalScrollBar()->value(), top);
    TurnWheel(-15);
    const int notch = grid->verticalScrollBar()->value() - top;
    EXPECT_GT(notch, 0);
    TurnWheel(-120);
    EXPECT_EQ(grid->verticalScrollBar()->value(), top + 2 * notch);
    TurnWheel(-119);
    TurnWheel(120);
    EXPECT_EQ(grid->verticalScrollBar()->value(), top + notch) << "the other way begins anew";
}

TEST_F(MarkLists, LookingAtAnotherProgramIsNoLeaving)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, ASubjectThatTheDivisionNoLongerTakesLeavesTheGridAndTheLimitsAsTheyWere)
{
    GivenThreeStudents();
    Given("UPDATE ClassSubjectTeacher SET MaximumMark = 200 WHERE SubjectCode = 2");
    StartSubject(QStringLiteral("English"));
    Enter("45");
    Given("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 2");
    Choose(subjects, QStringLiteral("Maths"));
    EXPECT_EQ(RowText(1), "1|Asha(A1)|45|Present");
    EXPECT_EQ(Average(), "15");
    EXPECT_EQ(AllowedMark(), "50");
    PressKey(form, Qt::Key_Return);
    Enter("30");
    EXPECT_EQ(Average(), "10") << "out of the hundred of the subject before";
    prompts.ExpectInformation(QStringLiteral("Entered Mark Should Not Exceed Maximum Allowed Mark : 50"));
    QTest::keyClicks(mark, QStringLiteral("51"));
}

TEST_F(MarkLists, ASubjectThatTheDivisionNoLongerTakesHasNoneOfTheMarksShownBeforeIt)
{
    GivenThreeStudents();
    school->EnterMark(1, 1, 45);
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    ASSERT_EQ(RowText(1), "1|Asha(A1)|45|Present");
    Given("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 2");
    Choose(subjects, QStringLiteral("Maths"));
    // No question whether to edit or delete marks that are those of English.
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(EnabledControls(), New);
    EXPECT_EQ(Focus(), "txtmarkobtained");
}

TEST_F(MarkLists, TheAllowedMarkIsShownWhileASubjectIsChosen)
{
    GivenThreeStudents();
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

TEST_F(MarkLists, AClassWithoutDivisionsHasNoneToChoose)
{
    Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 1, 2, 0)");
    OpenNew();
    Choose(exam, QStringLiteral("Term One"));
    Choose(classes, QStringLiteral("IX"));
    EXPECT_EQ(Entries(divisions), " ");
    PressKey(form, Qt::Key_Return);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "cboDivision");
    prompts.ExpectInformation(QStringLiteral("Select Division"));
    Press(Button("cmdSave"));
    EXPECT_EQ(Rows(), "|||");
}

TEST_F(MarkLists, AfterCancelNothingOfTheOldClassIsOffered)
{
    GivenThreeStudents();
    OpenNew();
    ChooseClassDivision();
    Press(byStudent);
    Choose(students, QStringLiteral("Asha(A1)"));
    Press(Button("cmdCancel"));
    EXPECT_EQ(Entries(exam), " |Term One");
    EXPECT_EQ(Entries(classes), " |X");
    EXPECT_EQ(Entries(divisions), " ");
    EXPECT_EQ(Entries(subjects), "");
    EXPECT_EQ(Entries(students), "");
    EXPECT_TRUE(bySubject->isChecked());
    EXPECT_EQ(EnabledControls(), Browse);
}

TEST_F(MarkLists, AnExamAddedOnTheWayCanBeChosenOnReturnAndTheChoiceStays)
{
    GivenThreeStudents();
    OpenNew();
    Choose(exam, QStringLiteral("Term One"));
    Press(Button("cmdAddExam"));
    Screen* master = ScreenRegistry::OpenInstance(QStringLiteral("frmexamnamemaster"));
    ASSERT_NE(master, nullptr);
    EXPECT_EQ(window->Area()->activeSubWindow()->widget(), master);
    Given("INSERT INTO ExamMaster VALUES (2, 'Annual', 2, 0)");
    master->Unload();
    Settle();
    EXPECT_EQ(Entries(exam), " |Term One|Annual");
    EXPECT_EQ(exam->currentText().toStdString(), "Term One");
    EXPECT_EQ(Focus(), "dbcExam");
}

TEST_F(MarkLists, EachReturnFromTheOpenExamMasterBringsWhatWasAddedThere)
{
    OpenNew();
    Press(Button("cmdAddExam"));
    auto* master = ScreenRegistry::OpenInstance(QStringLiteral("frmexamnamemaster"));
    const auto goTo = [this](const QWidget* screen) {
        window->Area()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(screen->parentWidget()));
        Settle();
    };
    goTo(form);
    goTo(master);
    Given("INSERT INTO ExamMaster VALUES (2, 'Annual', 2, 0)");
    goTo(form);
    EXPECT_EQ(Entries(exam), " |Term One|Annual");
    goTo(master);
    Given("INSERT INTO ExamMaster VALUES (3, 'Final', 3, 0)");
    master->Unload();
    Settle();
    EXPECT_EQ(Entries(exam), " |Term One|Annual|Final");
    EXPECT_EQ(Focus(), "dbcExam");
}

TEST_F(MarkLists, AnotherProgramInFrontIsNoReturnFromTheExamMaster)
{
    GivenThreeStudents();
    StartSubject(QStringLiteral("English"));
    Press(Button("cmdAddExam"));
    window->Area()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(form->parentWidget()));
    Click(2, 2);
    ASSERT_EQ(Focus(), "txtmarkobtained");
    QApplication::setActiveWindow(nullptr);
    Settle();
    QApplication::setActiveWindow(window);
    Settle();
    EXPECT_EQ(Focus(), "txtmarkobtained") << "a mark that is being typed keeps the keys";
}

TEST_F(MarkLists, OpeningTheExamMasterFromAChosenSubjectAsksNothingBehindIt)
{
    GivenThreeStudents();
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    OpenScreen(QStringLiteral("frmexamnamemaster"));
    EXPECT_FALSE(mark->isVisible()) << "another screen in front is no leaving of the list";
    ScreenRegistry::OpenInstance(QStringLiteral("frmexamnamemaster"))->Unload();
    Settle();
    EXPECT_EQ(subjects->currentText().toStdString(), "English");
}

TEST_F(MarkLists, ExitAsksByTheNameOfTheWork)
{
    OpenForm();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Marks Entry ?"), false);
    Press(Button("cmdExit"));
    EXPECT_FALSE(form->IsUnloaded());
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Marks Entry ?"), true);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmexammarkentry")), nullptr);
}

TEST_F(MarkLists, ClosingFromTheListOfSubjectsAsksNoQuestionAboutMarks)
{
    GivenThreeStudents();
    school->EnterMark(1, 1, 45);
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    form->parentWidget()->close();
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmexammarkentry")), nullptr);
}

TEST_F(MarkLists, HelpOpensAtTheNumberOfTheScreen)
{
    OpenForm();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 19);
}

TEST_F(MarkLists, FitsTheSmallestScreenWithNothingCutOff)
{
    window->resize(800, 600);
    OpenForm();
    EXPECT_TRUE(window->Area()->viewport()->rect().contains(form->parentWidget()->geometry()));
    EXPECT_LE(form->minimumSizeHint().width(), form->width());
    EXPECT_LE(form->minimumSizeHint().height(), form->height());
}

} // namespace
} // namespace tally::test
