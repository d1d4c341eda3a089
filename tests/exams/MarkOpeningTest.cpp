#include "core/shell/mdiTallyboard.h"
#include "core/ui/ScreenRegistry.h"
#include "exams/MarkScreen.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>

namespace tally::test {
namespace {

/// What the screen is like before anything is chosen on it, and its place in the main window.
class MarkOpening : public MarkScreen
{
protected:
    bool IsSeen(int row) const { return grid->viewport()->rect().intersects(grid->CellRect(row, 1)); }
    /// 120 is a notch; a touch pad sends many small parts of one.
    void TurnWheel(int delta)
    {
        const QPointF middle = QRectF(grid->viewport()->rect()).center();
        QWheelEvent turn(middle, grid->viewport()->mapToGlobal(middle), {}, {0, delta}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(grid->viewport(), &turn);
    }
};

/// The same in a division with students.
class MarkOpeningOfThree : public MarkScreenOfThree
{};

TEST_F(MarkOpening, TheScreenOpensForBrowsing)
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

TEST_F(MarkOpening, ASchoolWithoutExamsHasNoneToChoose)
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

TEST_F(MarkOpening, AClassWithoutDivisionsHasNoneToChoose)
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

TEST_F(MarkOpening, ADivisionWithoutStudentsSaysSoInBothModes)
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

TEST_F(MarkOpening, EachReturnFromTheOpenExamMasterBringsWhatWasAddedThere)
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

TEST_F(MarkOpening, ALongClassThatIsOnlyShownCanBeLookedThrough)
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

TEST_F(MarkOpening, SmallTurnsOfTheWheelAddUpOverAClassThatIsOnlyShown)
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

TEST_F(MarkOpening, ExitAsksByTheNameOfTheWork)
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

TEST_F(MarkOpening, HelpOpensAtTheNumberOfTheScreen)
{
    OpenForm();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 19);
}

TEST_F(MarkOpening, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmexammarkentry"));
}

TEST_F(MarkOpeningOfThree, NewOpensTheEntryAndTakesToTheFirstChoiceThatIsMissing)
{
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

TEST_F(MarkOpeningOfThree, NewOpensTheListOfSubjectsWhateverTheOptionSays)
{
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

TEST_F(MarkOpeningOfThree, AfterCancelNothingOfTheOldClassIsOffered)
{
    OpenNew();
    ChooseClassDivision();
    Press(byStudent);
    Choose(students, QStringLiteral("Asha(A1)"));
    Given("INSERT INTO ExamMaster VALUES (2, 'Annual', 2, 0)");
    Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 1, 2, 0)");
    Press(Button("cmdCancel"));
    EXPECT_EQ(Entries(exam), " |Term One|Annual") << "the lists are read anew";
    EXPECT_EQ(Entries(classes), " |X|IX");
    EXPECT_EQ(Entries(divisions), " ");
    EXPECT_EQ(Entries(subjects), "");
    EXPECT_EQ(Entries(students), "");
    EXPECT_TRUE(bySubject->isChecked());
    EXPECT_EQ(EnabledControls(), Browse);
}

TEST_F(MarkOpeningOfThree, AnExamAddedOnTheWayCanBeChosenOnReturnAndTheChoiceStays)
{
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

TEST_F(MarkOpeningOfThree, AnotherProgramInFrontIsNoReturnFromTheExamMaster)
{
    StartSubject(QStringLiteral("English"));
    Press(Button("cmdAddExam"));
    window->Area()->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(form->parentWidget()));
    Settle();
    Click(2, 2);
    ASSERT_EQ(Focus(), "txtmarkobtained");
    QApplication::setActiveWindow(nullptr);
    Settle();
    QApplication::setActiveWindow(window);
    Settle();
    EXPECT_EQ(Focus(), "txtmarkobtained") << "a mark that is being typed keeps the keys";
}

TEST_F(MarkOpeningOfThree, OpeningTheExamMasterFromAChosenSubjectAsksNothingBehindIt)
{
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    OpenScreen(QStringLiteral("frmexamnamemaster"));
    EXPECT_FALSE(mark->isVisible()) << "another screen in front is no leaving of the list";
    ScreenRegistry::OpenInstance(QStringLiteral("frmexamnamemaster"))->Unload();
    Settle();
    EXPECT_EQ(subjects->currentText().toStdString(), "English");
}

TEST_F(MarkOpeningOfThree, ClosingFromTheListOfSubjectsAsksNoQuestionAboutMarks)
{
    school->EnterMark(1, 1, 45);
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    form->parentWidget()->close();
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmexammarkentry")), nullptr);
}

} // namespace
} // namespace tally::test
