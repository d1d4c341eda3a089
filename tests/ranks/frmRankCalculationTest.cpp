#include "ranks/frmRankCalculation.h"

#include "core/ui/ScreenRegistry.h"
#include "ranks/RankScreen.h"

namespace tally::test {
namespace {

class RankListSelection : public RankScreen
{
protected:
    void GivenDivision(int code, const char* name, double allowed = 100, const char* bestGrade = "A")
    {
        school->AddDivision(code, name);
        school->AddSubject(code, 1, "Eng", 1, "Yes", 100, allowed);
        school->AddBand(code, 80, 50, bestGrade, 1);
        school->AddBand(code, 0, 0, "D", 2);
        const int student = school->AddStudent(code, QStringLiteral("Student ") + QString::fromLatin1(name));
        school->EnterMark(student, 1, 50 + code);
    }

    /// Class 2, after the first one in the list; its two ready divisions allow 100 and 50 marks in Eng.
    void GivenClassIXWithDivisionsThatDiffer()
    {
        Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 9, 2, 0)");
        for (const int division : {1, 2}) {
            const int student = 100 + division;
            Given("INSERT INTO ClassDivisionDetails VALUES (2, ?, ?)",
                  division == 1 ? QStringLiteral("A") : QStringLiteral("B"), division);
            Given("INSERT INTO ClassSubjectTeacher VALUES (1, 2, ?, 1, 0, 100, ?, 'Yes', 1)", division,
                  division == 1 ? 100 : 50);
            Given("INSERT INTO RankMaster VALUES (1, 1, 2, ?, 0, 0, 'D', 1, 0)", division);
            Given("INSERT INTO StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo, StudentName,"
                  " AcademicYearCode, CityCode, BloodGroupCode, TCNo) VALUES (?, ?, ?, 'Gita', 1, 0, 0, '')",
                  student, student, student);
            Given("INSERT INTO StudentClassDivision VALUES (?, 1, 2, ?, 'Y', 0)", student, division);
            Given("INSERT INTO MarkMaster VALUES (1, ?, 1, 2, ?, 1, 40, 'P', 0, 0)", student, division);
        }
    }

    void ChooseClassIX()
    {
        QTest::keyClick(classes, Qt::Key_Down);
        ASSERT_EQ(classes->currentText(), QStringLiteral("IX"));
    }

    const QString SubjectsDiffer =
        QStringLiteral("Selected Division's 'Subjects Taken For Rank' Does Not Match With Already "
                       "Selected Division(s)");
};

TEST_F(RankListSelection, OpensWithTheClassClosedUntilAnExamIsChosen)
{
    OpenForm();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Rank List Preparation"));
    EXPECT_EQ(exam->currentText(), QStringLiteral(" "));
    EXPECT_FALSE(classes->isEnabled());
    EXPECT_TRUE(exam->hasFocus());
    QTest::keyClick(exam, Qt::Key_Down);
    EXPECT_TRUE(classes->isEnabled());
    QTest::keyClick(exam, Qt::Key_Up);
    EXPECT_FALSE(classes->isEnabled());
}

TEST_F(RankListSelection, EnterOnABlankExamStaysAndOnAChosenOneMovesOn)
{
    OpenForm();
    QTest::keyClick(exam, Qt::Key_Return);
    EXPECT_TRUE(exam->hasFocus());
    QTest::keyClick(exam, Qt::Key_Down);
    QTest::keyClick(exam, Qt::Key_Return);
    EXPECT_TRUE(classes->hasFocus());
}

TEST_F(RankListSelection, TheArrowKeyToAllSubjectsLeavesTheKeyboardWithWhatIsMissing)
{
    GivenDivision(1, "A");
    OpenForm();
    const auto expectToBeLedTo = [&](QWidget* missing, const char* text) {
        prompts.ExpectInformation(QString::fromLatin1(text));
        Press(Option("Optsubjectdisplayno"));
        QTest::keyClick(Option("Optsubjectdisplayno"), Qt::Key_Down);
        Settle();
        prompts.Verify();
        EXPECT_TRUE(Option("Optsubjectdisplayyes")->isChecked());
        EXPECT_TRUE(missing->hasFocus()) << text;
    };
    expectToBeLedTo(exam, "Select Exam Name");
    QTest::keyClick(exam, Qt::Key_Down);
    expectToBeLedTo(classes, "Select Class");
    QTest::keyClick(classes, Qt::Key_Down);
    expectToBeLedTo(divisions, "Select Division(s)");
}

TEST_F(RankListSelection, EnterOnABlankClassStaysAndOnAChosenOneMovesOn)
{
    OpenForm();
    QTest::keyClick(exam, Qt::Key_Down);
    QTest::keyClick(exam, Qt::Key_Return);
    QTest::keyClick(classes, Qt::Key_Return);
    EXPECT_TRUE(classes->hasFocus());
    QTest::keyClick(classes, Qt::Key_Down);
    QTest::keyClick(classes, Qt::Key_Return);
    EXPECT_EQ(form->focusWidget()->objectName(), QStringLiteral("chkRankSkipping"));
}

TEST_F(RankListSelection, HelpIsAskedForAtTheScreensNumber)
{
    OpenForm();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 21);
}

TEST_F(RankListSelection, ChoosingAnExamTakesTheClassAndItsDivisionsBack)
{
    GivenDivision(1, "A");
    Given("INSERT INTO ExamMaster VALUES (2, 'Term Two', 2, 0)");
    OpenForm();
    ChooseExamAndClass();
    ASSERT_EQ(divisions->count(), 1);
    QTest::keyClick(exam, Qt::Key_Down);
    ASSERT_EQ(exam->currentText(), QStringLiteral("Term Two"));
    EXPECT_EQ(classes->currentText(), QStringLiteral(" "));
    EXPECT_TRUE(classes->isEnabled());
    EXPECT_EQ(divisions->count(), 0);
}

TEST_F(RankListSelection, ARelievedStudentCountsForCompleteMarks)
{
    GivenDivision(1, "A");
    school->AddStudent(1, QStringLiteral("Relieved"));
    Given("UPDATE StudentMaster SET TCNo = '17' WHERE StudentName = 'Relieved'");
    OpenForm();
    ChooseExamAndClass();
    EXPECT_EQ(divisions->item(0)->text(), QStringLiteral("$ A"));
}

TEST_F(RankListSelection, ProceedingAsksForExamThenClassThenDivisions)
{
    GivenDivision(1, "A");
    OpenForm();
    prompts.ExpectInformation(QStringLiteral("Select Exam Name"));
    Press(Button("cmdUpdate"));
    EXPECT_TRUE(exam->hasFocus());

    QTest::keyClick(exam, Qt::Key_Down);
    prompts.ExpectInformation(QStringLiteral("Select Class"));
    Press(Button("cmdUpdate"));
    EXPECT_TRUE(classes->hasFocus());

    QTest::keyClick(classes, Qt::Key_Down);
    prompts.ExpectInformation(QStringLiteral("Select Division(s)"));
    Press(Button("cmdUpdate"));
    EXPECT_TRUE(divisions->hasFocus());
    EXPECT_FALSE(Button("cmdExport")->isEnabled());
}

TEST_F(RankListSelection, EachDivisionThatIsNotReadyCarriesItsMarkAndIsRefusedWithItsReason)
{
    school->AddDivision(1, "A");
    school->AddDivision(2, "B");
    school->AddStudent(2, QStringLiteral("Binu"));
    school->AddDivision(3, "C");
    school->AddStudent(3, QStringLiteral("Cara"));
    school->AddSubject(3, 1, "Eng", 1);
    school->AddDivision(4, "D");
    school->AddStudent(4, QStringLiteral("Dev"));
    school->AddSubject(4, 1, "Eng", 1);
    school->AddUsualBands(4);
    OpenForm();
    ChooseExamAndClass();
    ASSERT_EQ(divisions->count(), 4);
    const QStringList items{QStringLiteral(". A"), QStringLiteral("* B"), QStringLiteral("# C"),
                            QStringLiteral("$ D")};
    const QStringList reasons{
        QStringLiteral("Student Admission Entry Is Not Made In This Division"),
        QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For This Division"),
        QStringLiteral("'Classwise Rank-Grade Setup' Is Not Made For This Division"),
        QStringLiteral("'Classwise Mark Entry' Is Not Fully Completed For Student(s) In This Division")};
    for (int index = 0; index < 4; ++index) {
        EXPECT_EQ(divisions->item(index)->text(), items[index]);
        prompts.ExpectInformation(reasons[index]);
        Tick(index);
        EXPECT_FALSE(divisions->IsTicked(index));
    }
    EXPECT_FALSE(selectAll->isEnabled());
    prompts.ExpectInformation(QStringLiteral("Select Division(s)"));
    Press(Button("cmdUpdate"));
}

TEST_F(RankListSelection, TheMarksOfTheDivisionsStayWhenTheSubjectsToDisplayChange)
{
    GivenDivision(1, "A");
    school->AddSubject(1, 2, "Mor", 2, "No");
    OpenForm();
    ChooseExamAndClass();
    EXPECT_EQ(divisions->item(0)->text(), QStringLiteral("  A"));
    Tick(0);
    DisplayAllSubjects();
    EXPECT_EQ(divisions->item(0)->text(), QStringLiteral("  A"));

    QTest::keyClick(classes, Qt::Key_Up);
    QTest::keyClick(classes, Qt::Key_Down);
    EXPECT_EQ(divisions->item(0)->text(), QStringLiteral("$ A"));
}

TEST_F(RankListSelection, DisplayingAllSubjectsBeforeAnExamIsChosenAsksForIt)
{
    OpenForm();
    prompts.ExpectInformation(QStringLiteral("Select Exam Name"));
    DisplayAllSubjects();
}

TEST_F(RankListSelection, ADivisionWithOtherMaximumMarksIsUntickedWithOneMessage)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B", 50);
    OpenForm();
    ChooseExamAndClass();
    Tick(0);
    prompts.ExpectInformation(
        QStringLiteral("Selected Division's 'Subjects Taken For Rank' Does Not Match With "
                       "Already Selected Division(s)"));
    Tick(1);
    EXPECT_TRUE(divisions->IsTicked(0));
    EXPECT_FALSE(divisions->IsTicked(1));
}

TEST_F(RankListSelection, ADivisionWithAnotherGradeTableIsUntickedWithOneMessage)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B", 100, "S");
    OpenForm();
    ChooseExamAndClass();
    Tick(0);
    prompts.ExpectInformation(
        QStringLiteral("Selected Division's 'Classwise Rank-Grade Setup' Does Not Match With "
                       "Already Selected Division(s)"));
    Tick(1);
    EXPECT_FALSE(divisions->IsTicked(1));
}

TEST_F(RankListSelection, DivisionsThatCannotBeComparedAreNotTickedTogether)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B");
    OpenForm();
    ChooseExamAndClass();
    Tick(0);
    for (const char* table : {"ClassSubjectTeacher", "RankMaster"}) {
        SCOPED_TRACE(table);
        const QString name = QString::fromLatin1(table);
        Session().gcnnMain->Execute(QStringLiteral("ALTER TABLE %1 RENAME TO Lost").arg(name));
        prompts.ExpectCritical(NoSuchTable(table));
        Tick(1);
        prompts.Verify();
        EXPECT_EQ(divisions->TickedIndexes(), QList<int>{0});

        prompts.ExpectCritical(NoSuchTable(table));
        Press(selectAll);
        prompts.Verify();
        EXPECT_EQ(divisions->TickedIndexes(), QList<int>());
        EXPECT_FALSE(selectAll->isChecked());

        Session().gcnnMain->Execute(QStringLiteral("ALTER TABLE Lost RENAME TO %1").arg(name));
        Tick(0);
        EXPECT_EQ(divisions->TickedIndexes(), QList<int>{0});
    }

    Given("ALTER TABLE ClassSubjectTeacher RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("ClassSubjectTeacher"));
    DisplayAllSubjects();
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>());
}

TEST_F(RankListSelection, AClassWhoseDivisionsCannotBeReadIsTakenBackAndCanBeChosenAgain)
{
    GivenDivision(1, "A");
    OpenForm();
    ChooseExamAndClass();
    Choose("cboClass", QStringLiteral(" "));
    Given("ALTER TABLE RankMaster RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("RankMaster"));
    PressKey(form, Qt::Key_Down);
    prompts.Verify();
    EXPECT_TRUE(List("cboClass")->IsBlank());
    EXPECT_EQ(divisions->count(), 0);
    Given("ALTER TABLE Lost RENAME TO RankMaster");
    Choose("cboClass", QStringLiteral("X"));
    EXPECT_EQ(divisions->count(), 1);
}

TEST_F(RankListSelection, DisplayingAllSubjectsUnticksADivisionThatDiffersInASubjectNotTakenForRank)
{
    GivenDivision(1, "A");
    school->AddSubject(1, 2, "Mor", 2, "No");
    GivenDivision(2, "B");
    OpenForm();
    ChooseExamAndClass();
    Tick(0);
    Tick(1);
    ASSERT_EQ(divisions->TickedIndexes(), (QList<int>{0, 1}));
    prompts.ExpectInformation(
        QStringLiteral("Selected Divisions' 'Subject(s) Taken For Rank' Does Not Match With "
                       "The Non Selected Division(s)"));
    DisplayAllSubjects();
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{0});
}

TEST_F(RankListSelection, TheDivisionComparedWithStaysTheBaseInAnotherClass)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B");
    GivenClassIXWithDivisionsThatDiffer();
    OpenForm();
    ChooseExamAndClass();
    Tick(1);
    ASSERT_EQ(divisions->TickedIndexes(), QList<int>{1});

    ChooseClassIX();
    prompts.ExpectInformation(SubjectsDiffer);
    Tick(0);
    EXPECT_TRUE(divisions->TickedIndexes().isEmpty()) << "A differs from B, the second division here too";
    Tick(1);
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{1});
}

TEST_F(RankListSelection, ABaseThatAnotherClassLacksRefusesItsDivisionsUntilSelectAllStartsAnew)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B");
    GivenDivision(3, "C");
    GivenClassIXWithDivisionsThatDiffer();
    OpenForm();
    ChooseExamAndClass();
    Tick(2);
    ASSERT_EQ(divisions->TickedIndexes(), QList<int>{2});

    ChooseClassIX();
    for (const int index : {0, 1}) {
        prompts.ExpectInformation(SubjectsDiffer);
        Tick(index);
        EXPECT_TRUE(divisions->TickedIndexes().isEmpty());
    }
    prompts.ExpectInformation(
        QStringLiteral("Selected Divisions' 'Subject(s) Taken For Rank' Does Not Match With "
                       "The Non Selected Division(s)"));
    Press(selectAll);
    EXPECT_TRUE(divisions->TickedIndexes().isEmpty());
    EXPECT_FALSE(selectAll->isChecked());
    Tick(0);
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{0});
}

TEST_F(RankListSelection, AnotherClassTakesSelectAllBackWhichStartsTheComparisonAnew)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B");
    GivenClassIXWithDivisionsThatDiffer();
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    ASSERT_EQ(divisions->TickedIndexes(), (QList<int>{0, 1}));

    ChooseClassIX();
    EXPECT_FALSE(selectAll->isChecked());
    Tick(1);
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{1});
    prompts.ExpectInformation(SubjectsDiffer);
    Tick(0);
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{1}) << "B is the base";
}

TEST_F(RankListSelection, SelectAllUnticksTheDivisionsThatDifferWithOneMessageAndClearsItself)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B", 50);
    GivenDivision(3, "C");
    OpenForm();
    ChooseExamAndClass();
    prompts.ExpectInformation(
        QStringLiteral("Selected Divisions' 'Subject(s) Taken For Rank' Does Not Match With "
                       "The Non Selected Division(s)"));
    Press(selectAll);
    EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 2}));
    EXPECT_FALSE(selectAll->isChecked());
}

TEST_F(RankListSelection, SelectAllPassesOverADivisionThatIsNotReadyHoweverItWasReached)
{
    GivenDivision(1, "A");
    school->AddDivision(2, "B");
    GivenDivision(3, "C");
    OpenForm();
    ChooseExamAndClass();
    ASSERT_FALSE(selectAll->isEnabled());
    selectAll->setEnabled(true);
    Press(selectAll);
    EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 2}));
}

TEST_F(RankListSelection, CancelOpensSelectAllForTheNextClassAndOffersWhatTheSchoolHasByThen)
{
    school->AddDivision(1, "A");
    OpenForm();
    ChooseExamAndClass();
    ASSERT_FALSE(selectAll->isEnabled());
    const auto exams = exam->count();
    const auto others = classes->count();
    Given("INSERT INTO ExamMaster VALUES (2, 'Term Two', 2, 0)");
    Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 9, 2, 0)");
    Press(Button("cmdCancel"));
    EXPECT_TRUE(selectAll->isEnabled());
    EXPECT_EQ(exam->count(), exams + 1);
    EXPECT_EQ(classes->count(), others + 1);
}

TEST_F(RankListSelection, CancelOffersNothingThatCouldNotBeReadAgain)
{
    GivenDivision(1, "A");
    OpenForm();
    Given("ALTER TABLE ExamMaster RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("ExamMaster"));
    Press(Button("cmdCancel"));
    prompts.Verify();
    for (const char* list : {"Cboexamname", "cboClass"}) {
        EXPECT_EQ(List(list)->count(), 1) << list;
        EXPECT_TRUE(List(list)->IsBlank()) << list;
    }
    Given("ALTER TABLE Lost RENAME TO ExamMaster");
}

TEST_F(RankListSelection, SelectAllUntickedStartsTheComparisonOfGradesAnew)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B");
    school->AddBand(2, 60, 40, "B", 3);
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    ASSERT_EQ(divisions->TickedIndexes(), (QList<int>{0, 1})) << "B has all the grades of A";
    Press(selectAll);
    Tick(1);
    prompts.ExpectInformation(
        QStringLiteral("Selected Division's 'Classwise Rank-Grade Setup' Does Not Match With "
                       "Already Selected Division(s)"));
    Tick(0);
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{1}) << "A lacks a grade of B";
}

TEST_F(RankListSelection, SelectAllUntickedStartsTheComparisonOfSubjectsAnew)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B");
    school->AddSubject(2, 2, "Mor", 2, "No");
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    Press(selectAll);
    prompts.ExpectInformation(QStringLiteral("Select Division(s)"));
    DisplayAllSubjects();
    Tick(1);
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{1});
}

TEST_F(RankListSelection, SelectAllThatClearedItselfStartsTheComparisonAnew)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B", 50);
    OpenForm();
    ChooseExamAndClass();
    prompts.ExpectInformation(
        QStringLiteral("Selected Divisions' 'Subject(s) Taken For Rank' Does Not Match With "
                       "The Non Selected Division(s)"));
    Press(selectAll);
    Tick(0);
    ASSERT_TRUE(divisions->TickedIndexes().isEmpty());
    Tick(1);
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{1});
}

TEST_F(RankListSelection, SelectAllWithDifferingGradeTablesSaysSo)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B", 100, "S");
    OpenForm();
    ChooseExamAndClass();
    prompts.ExpectInformation(
        QStringLiteral("Selected Divisions' 'Classwise Rank-Grade Setup' Does Not Match With "
                       "The Non Selected Division(s)"));
    Press(selectAll);
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{0});
}

TEST_F(RankListSelection, UntickingOneDivisionClearsSelectAllAndKeepsTheOthers)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B");
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 1}));
    Tick(0);
    EXPECT_FALSE(selectAll->isChecked());
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{1});
    Press(selectAll);
    EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 1}));
    Press(selectAll);
    EXPECT_TRUE(divisions->TickedIndexes().isEmpty());
}

TEST_F(RankListSelection, WithoutAnyMaximumMarkTheListIsRefusedAndTheSelectionStaysOpen)
{
    school->AddDivision(1, "A");
    school->AddUsualBands(1);
    school->AddSubject(1, 1, "Eng", 1, "Yes", 0, 100);
    school->AddMarkedStudent(QStringLiteral("Asha"), {60});
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    prompts.ExpectCritical(QStringLiteral("Division by zero"));
    Press(Button("cmdUpdate"));
    EXPECT_TRUE(Find<QGroupBox>(form, "Frame2")->isEnabled());
    EXPECT_FALSE(Button("cmdSave")->isEnabled());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(RankListSelection, AListWhoseSummaryCannotBeReadIsNotShownAndTheSelectionStaysOpen)
{
    GivenFiveStudents();
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    // Each limit can be read, but the sum of two is more than the engine counts.
    Given("ALTER TABLE ClassSubjectTeacher RENAME TO Limits");
    Given("CREATE VIEW ClassSubjectTeacher AS SELECT AcademicYearCode, ClassCode, DivisionCode, SubjectCode, "
          "MaximumMark, 9223372036854775807 AS MaximumAllowed, TakenForRank, SlNo FROM Limits");
    prompts.ExpectCritical(QStringLiteral("integer overflow"));
    Press(Button("cmdUpdate"));
    prompts.Verify();
    EXPECT_TRUE(ShownNames().isEmpty());
    EXPECT_TRUE(Find<QGroupBox>(form, "Frame2")->isEnabled());
    for (const char* button : {"cmdSave", "cmdExport", "cmdPrintSetup", "cmdTotalDetails"})
        EXPECT_FALSE(Button(button)->isEnabled()) << button;

    Given("DROP VIEW ClassSubjectTeacher");
    Given("ALTER TABLE Limits RENAME TO ClassSubjectTeacher");
    Press(Button("cmdUpdate"));
    EXPECT_EQ(ShownNames().size(), 5);
}

TEST_F(RankListSelection, CancelEmptiesEverythingAndDropsTheWorkingTable)
{
    GivenFiveStudents();
    OpenAndProceed();
    Press(Button("cmdCancel"));
    EXPECT_TRUE(Find<QGroupBox>(form, "Frame2")->isEnabled());
    EXPECT_TRUE(exam->hasFocus());
    EXPECT_EQ(exam->currentText(), QStringLiteral(" "));
    EXPECT_FALSE(classes->isEnabled());
    EXPECT_EQ(divisions->count(), 0);
    EXPECT_TRUE(selectAll->isEnabled());
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_EQ(grid->Cols(), 4);
    EXPECT_TRUE(grid->Table().RowHidden(RankListRows::Codes));
    for (const char* name : {"cmdSave", "cmdExport", "cmdPrintSetup", "cmdTotalDetails"})
        EXPECT_FALSE(Button(name)->isEnabled()) << name;
    EXPECT_EQ(Session().gcnnTemp->Number(
                  QStringLiteral("SELECT count(*) FROM sqlite_master WHERE name = 'TempRankCalculation'")),
              0);
}

TEST_F(RankListSelection, CancelTakesTheOptionsBackAndStartsTheComparisonAnew)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B", 50, "S");
    OpenForm();
    ChooseExamAndClass();
    Tick(0);
    DisplayAllSubjects();
    Press(Option("optGradeOrder"));
    Press(Button("cmdCancel"));
    EXPECT_TRUE(Option("Optsubjectdisplayno")->isChecked());
    EXPECT_TRUE(Option("optRankOrder")->isChecked());
    ChooseExamAndClass();
    Tick(1);
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{1});
}

TEST_F(RankListSelection, ExitAsksWithItsOwnNameAndDropsTheWorkingTable)
{
    GivenFiveStudents();
    OpenAndProceed();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Rank Calculation ?"), false);
    Press(Button("cmdExit"));
    prompts.Verify();
    EXPECT_TRUE(form->isVisible());
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Rank Calculation ?"), true);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmRankCalculation")), nullptr);
    EXPECT_EQ(Session().gcnnTemp->Number(
                  QStringLiteral("SELECT count(*) FROM sqlite_master WHERE name = 'TempRankCalculation'")),
              0);
}

TEST_F(RankListSelection, AltAndKProceedsInsteadOfLockingTheProgram)
{
    GivenFiveStudents();
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    QTest::keyClick(divisions, Qt::Key_K, Qt::AltModifier);
    EXPECT_EQ(ShownNames().size(), 5);
}

TEST_F(RankListSelection, TheWholeListIsPreparedAndSavedWithKeysAlone)
{
    GivenFiveStudents();
    OpenForm();
    QTest::keyClick(exam, Qt::Key_Down);
    PressKey(form, Qt::Key_Return);
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(form->focusWidget()->objectName(), QStringLiteral("chkRankSkipping"));
    PressKey(form, Qt::Key_Return);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(form->focusWidget()->objectName(), QStringLiteral("chkSelectAll"));
    PressKey(form, Qt::Key_Space);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(form->focusWidget()->objectName(), QStringLiteral("Lstdivision"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(form->focusWidget()->objectName(), QStringLiteral("cmdUpdate"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(ShownNames().size(), 5);
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    PressKey(form, Qt::Key_S, Qt::AltModifier);
}

TEST_F(RankListSelection, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmRankCalculation"));
}

} // namespace
} // namespace tally::test
