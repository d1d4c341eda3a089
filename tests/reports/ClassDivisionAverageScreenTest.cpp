#include "core/ui/ScreenRegistry.h"
#include "reports/DivisionReportScreen.h"
#include "reports/frmclassdivisionsubjectavg.h"
#include "reports/output/WorkbookReader.h"

#include <QButtonGroup>
#include <QLabel>

namespace tally::test {
namespace {

class DivisionAverageScreen : public DivisionReportScreen<frmclassdivisionsubjectavg>
{
protected:
    void OpenForm() { OpenReport("frmclassdivisionsubjectavg", "ChkSelectDivision", "chkSelectSubjects"); }

    void ShowAverages()
    {
        OpenForm();
        ChooseAll();
        Press(Button("cmdView"));
        ASSERT_TRUE(IsEnabled("cmdExport"));
    }

    const QString CountsDiffer =
        QStringLiteral("Subject(s) Taken For Rank Are Not Same For The Selected Division");
    const QString NoDivision = QStringLiteral("Select Division(s)");
};

TEST_F(DivisionAverageScreen, OpensWithTheExamInFrontAndNothingChosen)
{
    GivenTwoDivisions();
    OpenForm();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Subject Average Based On Class - Division"));
    EXPECT_TRUE(exams->hasFocus());
    EXPECT_TRUE(exams->IsBlank());
    EXPECT_FALSE(classes->isEnabled());
    EXPECT_EQ(divisions->count(), 0);
    EXPECT_EQ(subjects->count(), 0);
    EXPECT_TRUE(Option("Optsubjectdisplayno")->isChecked());
    EXPECT_TRUE(Option("optBarGrph")->isChecked());
    EXPECT_FALSE(IsEnabled("Frame3"));
    EXPECT_EQ(Button("cmdExport")->toolTip(), QStringLiteral("Export To EXCEL"));
    ExpectNoList();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 23);
}

TEST_F(DivisionAverageScreen, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmclassdivisionsubjectavg"));
}

TEST_F(DivisionAverageScreen, EachUnderlinedLetterLeadsToOneControl)
{
    OpenForm();
    EXPECT_EQ(ExpectOneControlALetter(form),
              QStringList({QStringLiteral("Don't Display The Subject(s) Which Is Not Taken For Rank"),
                           QStringLiteral("Display All Subject(s)"), QStringLiteral("Select All"),
                           QStringLiteral("Select All"), QStringLiteral("Bar Graph"),
                           QStringLiteral("Line Graph")}));
}

TEST_F(DivisionAverageScreen, WhatIsMissingIsAskedForInItsOrder)
{
    GivenTwoDivisions();
    OpenForm();
    ExpectMissing("Select Exam Name", "Cboexamname");
    Choose("Cboexamname", QStringLiteral("Term One"));
    ExpectMissing("Select Class", "cboClass");
    Choose("cboClass", QStringLiteral("X"));
    Option("Optsubjectdisplayno")->group()->setExclusive(false);
    Option("Optsubjectdisplayno")->setChecked(false);
    ExpectMissing("Select Division(s)", "Lstdivision");
    Tick(divisions, 0);
    ExpectMissing("Select 'Subjects Taken For Rank' Option", "Optsubjectdisplayno");
    Press(Option("Optsubjectdisplayno"));
    ExpectMissing("Select Subject(s)", "Lstsubjects");
}

TEST_F(DivisionAverageScreen, TheWholeListIsShownWithKeysAlone)
{
    GivenTwoDivisions();
    OpenForm();
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(exams->hasFocus()) << "a blank exam keeps the keys";
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Return);
    ASSERT_TRUE(classes->hasFocus());
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(classes->hasFocus());
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_D, Qt::AltModifier);
    ASSERT_TRUE(divisions->hasFocus());
    PressKey(form, Qt::Key_Space);
    PressKey(form, Qt::Key_S, Qt::AltModifier);
    ASSERT_TRUE(subjects->hasFocus());
    PressKey(form, Qt::Key_Space);
    PressKey(form, Qt::Key_K, Qt::AltModifier);
    EXPECT_EQ(Row(1), "1|||X|  A|1|60.00");
    EXPECT_TRUE(Button("cmdExport")->hasFocus());
}

TEST_F(DivisionAverageScreen, TheClassIsOpenWhileAnExamIsChosenAndAnotherExamTakesItBack)
{
    GivenTwoDivisions();
    Given("INSERT INTO ExamMaster VALUES (2, 'Term Two', 2, 0)");
    OpenForm();
    ChooseAll();
    Choose("Cboexamname", QStringLiteral("Term Two"));
    EXPECT_TRUE(classes->isEnabled());
    EXPECT_TRUE(classes->IsBlank());
    EXPECT_EQ(divisions->count(), 0);
    EXPECT_EQ(subjects->count(), 0);
    EXPECT_FALSE(allDivisions->isChecked());
    EXPECT_FALSE(allSubjects->isChecked());
    Choose("Cboexamname", QStringLiteral(" "));
    EXPECT_FALSE(classes->isEnabled());
}

TEST_F(DivisionAverageScreen, DivisionsStandByNameEachWithWhatIsMissing)
{
    GivenDivision(1, "D");
    GivenDivision(2, "C");
    GivenDivision(3, "A");
    school->AddDivision(4, "B");
    GivenStudentWithMarks(1, "Dev", {10, 20, 30});
    GivenStudentWithMarks(2, "Cara", {10});
    school->AddStudent(4, QStringLiteral("Binu"));
    OpenForm();
    ChooseClass();
    EXPECT_EQ(Items(divisions), ". A|$ B|# C|  D");
    EXPECT_FALSE(allDivisions->isEnabled());

    prompts.ExpectInformation(QStringLiteral("Student Admission Entry Is Not Made In This Class-Division"));
    Tick(divisions, 0);
    prompts.Verify();
    prompts.ExpectInformation(
        QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For This Division"));
    Tick(divisions, 1);
    prompts.Verify();
    Tick(divisions, 2);
    EXPECT_TRUE(divisions->TickedIndexes().isEmpty());
    Tick(divisions, 3);
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{3});
    EXPECT_EQ(Items(subjects), "  Subject 1|  Subject 2");
}

TEST_F(DivisionAverageScreen, MarksOfSubjectsNotTakenForRankAreMissedWhereTheyAreDisplayed)
{
    GivenDivision(1, "A");
    GivenStudentWithMarks(1, "Asha", {10, 20});
    OpenForm();
    ChooseClass();
    EXPECT_EQ(Items(divisions), "  A");
    prompts.ExpectInformation(NoDivision);
    Display("Optsubjectdisplayyes");
    EXPECT_EQ(Items(divisions), "  A") << "judged when the class was chosen";
    Choose("cboClass", QStringLiteral(" "));
    Choose("cboClass", QStringLiteral("X"));
    EXPECT_EQ(Items(divisions), "# A");
}

TEST_F(DivisionAverageScreen, SelectAllPassesOverDivisionsThatAreNotReadyHoweverItWasReached)
{
    GivenTwoDivisions();
    GivenDivision(3, "C");
    school->AddStudent(3, QStringLiteral("Cara"));
    GivenDivision(4, "D");
    GivenDivision(5, "E");
    Given("DELETE FROM ClassSubjectTeacher WHERE DivisionCode = 5");
    OpenForm();
    ChooseClass();
    ASSERT_FALSE(allDivisions->isEnabled());
    allDivisions->setEnabled(true);
    prompts.ExpectInformation(
        QStringLiteral("Student Admission Entry Is Not Made For The Following Division(s) D,E"));
    prompts.ExpectInformation(QStringLiteral(
        "Subjects' Maximum Mark For E Division(s) Does Not Match With The Selected Division(s)"));
    Press(allDivisions);
    prompts.Verify();
    EXPECT_EQ(Items(divisions), "  A|  B|# C|. D|. E");
    EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 1}));
    EXPECT_FALSE(allDivisions->isChecked());
}

TEST_F(DivisionAverageScreen, SelectAllUnticksTheDivisionsThatDifferAndClearsItself)
{
    GivenTwoDivisions();
    GivenDivision(3, "C", "No", 90);
    GivenStudentWithMarks(3, "Dev", {10, 20, 30});
    OpenForm();
    ChooseClass();
    prompts.ExpectInformation(QStringLiteral(
        "Subjects' Maximum Mark For C Division(s) Does Not Match With The Selected Division(s)"));
    Press(allDivisions);
    prompts.Verify();
    EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 1}));
    EXPECT_FALSE(allDivisions->isChecked());
    EXPECT_EQ(Items(subjects), "  Subject 1|  Subject 2");
}

TEST_F(DivisionAverageScreen, SelectAllUntickedUnticksAllAndAsksForDivisions)
{
    GivenTwoDivisions();
    OpenForm();
    ChooseClass();
    Press(allDivisions);
    EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 1}));
    EXPECT_TRUE(allDivisions->isChecked());
    EXPECT_TRUE(IsLineOffered()) << "of two divisions";
    prompts.ExpectInformation(NoDivision);
    Press(allDivisions);
    prompts.Verify();
    EXPECT_TRUE(divisions->TickedIndexes().isEmpty());
    EXPECT_EQ(subjects->count(), 0);
    EXPECT_TRUE(divisions->hasFocus());
}

TEST_F(DivisionAverageScreen, AfterSelectAllTheFirstOfTheListIsComparedWithWhateverWasTickedBefore)
{
    GivenTwoDivisions();
    Given("DELETE FROM ClassSubjectTeacher WHERE DivisionCode = 2 AND SubjectCode = 3");
    GivenDivision(3, "C");
    Given("DELETE FROM ClassSubjectTeacher WHERE DivisionCode = 3 AND SubjectCode = 3");
    GivenStudentWithMarks(3, "Dev", {10, 20});
    const std::vector<std::pair<const char*, std::function<void()>>> before{
        {"nothing", [] {}},
        {"a division", [&] { Tick(divisions, 1); }},
        {"one that is ticked no more",
         [&] {
             prompts.ExpectInformation(NoDivision);
             Tick(divisions, 1);
             Tick(divisions, 1);
         }},
        {"one under a class chosen before",
         [&] {
             Tick(divisions, 1);
             Choose("cboClass", QStringLiteral(" "));
             Choose("cboClass", QStringLiteral("X"));
         }},
    };
    OpenForm();
    for (const auto& [what, step] : before) {
        SCOPED_TRACE(what);
        ChooseClass();
        step();
        Press(allDivisions);
        Tick(divisions, 2);
        Display("Optsubjectdisplayyes");
        // With all subjects, A and C have two, and B three.
        prompts.ExpectInformation(CountsDiffer);
        Tick(divisions, 2);
        prompts.Verify();
        EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 2}));
        Press(Button("cmdCancel"));
    }
}

TEST_F(DivisionAverageScreen, UntickingADivisionClearsSelectAllAndKeepsTheOthers)
{
    GivenTwoDivisions();
    OpenForm();
    ChooseClass();
    Press(allDivisions);
    Tick(divisions, 0);
    EXPECT_FALSE(allDivisions->isChecked());
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{1});
    prompts.ExpectInformation(NoDivision);
    Tick(divisions, 1);
}

TEST_F(DivisionAverageScreen, ADivisionWithAnotherNumberOfSubjectsIsUntickedByTheOneTickedFirst)
{
    GivenTwoDivisions();
    GivenDivision(3, "C", "Yes");
    GivenStudentWithMarks(3, "Dev", {10, 20, 30});
    OpenForm();
    ChooseClass();
    Tick(divisions, 2);
    prompts.ExpectInformation(CountsDiffer);
    Tick(divisions, 0);
    prompts.Verify();
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{2}) << "C was there first, though A stands before it";
    EXPECT_FALSE(IsLineOffered()) << "of the one that stays";
    EXPECT_EQ(Items(subjects), "  Subject 1|  Subject 2|  Subject 3");

    prompts.ExpectInformation(NoDivision);
    Tick(divisions, 2);
    prompts.Verify();
    Tick(divisions, 0);
    Tick(divisions, 1);
    EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 1}));
}

TEST_F(DivisionAverageScreen, TheNextOneIsComparedWithWhenTheFirstIsUnticked)
{
    GivenTwoDivisions();
    GivenDivision(3, "C", "Yes");
    GivenStudentWithMarks(3, "Dev", {10, 20, 30});
    OpenForm();
    ChooseClass();
    Tick(divisions, 0);
    Tick(divisions, 1);
    Tick(divisions, 0);
    prompts.ExpectInformation(CountsDiffer);
    Tick(divisions, 2);
    prompts.Verify();
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{1});
}

TEST_F(DivisionAverageScreen, OtherMaximumMarksAreNoDifferenceByHand)
{
    GivenTwoDivisions();
    GivenDivision(3, "C", "No", 90);
    GivenStudentWithMarks(3, "Dev", {45, 20, 30});
    OpenForm();
    ChooseClass();
    Tick(divisions, 0);
    Tick(divisions, 2);
    EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 2}));
    Press(allSubjects);
    Press(Button("cmdView"));
    EXPECT_EQ(Row(2), "2|||X|  C|1|50.00|2|20.00");
}

TEST_F(DivisionAverageScreen, TheOptionListsTheSubjectsAnew)
{
    GivenTwoDivisions();
    OpenForm();
    ChooseClass();
    Press(allDivisions);
    EXPECT_EQ(Items(subjects), "  Subject 1|  Subject 2");
    Press(allSubjects);
    Display("Optsubjectdisplayyes");
    EXPECT_EQ(Items(subjects), "  Subject 1|  Subject 2|  Subject 3");
    EXPECT_TRUE(subjects->TickedIndexes().isEmpty());
    EXPECT_FALSE(allSubjects->isChecked());
    Display("Optsubjectdisplayno");
    EXPECT_EQ(Items(subjects), "  Subject 1|  Subject 2");
}

TEST_F(DivisionAverageScreen, TheArrowKeyToAnotherOptionLeavesTheKeyboardWithTheDivisionsThatAreMissing)
{
    GivenTwoDivisions();
    OpenForm();
    ChooseClass();
    Press(Option("Optsubjectdisplayno"));
    prompts.ExpectInformation(NoDivision);
    QTest::keyClick(Option("Optsubjectdisplayno"), Qt::Key_Down);
    Settle();
    prompts.Verify();
    EXPECT_TRUE(Option("Optsubjectdisplayyes")->isChecked());
    EXPECT_TRUE(divisions->hasFocus());
}

TEST_F(DivisionAverageScreen, DivisionsWithoutASubjectTakenForRankAreAllUntickedByTheOption)
{
    GivenDivision(1, "A");
    Given("UPDATE ClassSubjectTeacher SET TakenForRank = 'No' WHERE ClassCode = 1");
    GivenStudentWithMarks(1, "Asha", {10, 20, 30});
    OpenForm();
    prompts.ExpectInformation(NoDivision);
    Display("Optsubjectdisplayyes");
    prompts.Verify();
    ChooseAll();
    ASSERT_EQ(divisions->TickedIndexes(), QList<int>{0});
    Display("Optsubjectdisplayno");
    EXPECT_TRUE(divisions->TickedIndexes().isEmpty());
    EXPECT_FALSE(allDivisions->isChecked());
    EXPECT_EQ(subjects->count(), 0);
}

TEST_F(DivisionAverageScreen, ASubjectIsOfferedWhenItHasAMarkForEachStudent)
{
    GivenTwoDivisions();
    OpenForm();
    ChooseClass();
    Press(allDivisions);
    ASSERT_EQ(Items(subjects), "  Subject 1|  Subject 2");
    // Another client takes marks back.
    Given("DELETE FROM MarkMaster WHERE AcademicYearCode = 1 AND ExamCode = 1 AND ClassCode = 1 AND "
          "DivisionCode = 1 AND StudentCode = 3 AND SubjectCode = 2");
    Tick(divisions, 0);
    EXPECT_EQ(Items(subjects), "  Subject 1");
}

TEST_F(DivisionAverageScreen, ASubjectWithoutAMarkForSomeStudentIsRefused)
{
    GivenTwoDivisions();
    Given("INSERT INTO StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo, StudentName, "
          "AcademicYearCode, CityCode, BloodGroupCode, TCNo) VALUES (50, 50, '50', 'Gone', 1, 0, 0, '')");
    Given("UPDATE MarkMaster SET StudentCode = 50 WHERE StudentCode = 3 AND SubjectCode = 2");
    OpenForm();
    ChooseClass();
    Press(allDivisions);
    EXPECT_EQ(Items(subjects), "  Subject 1|. Subject 2");
    prompts.ExpectInformation(QStringLiteral(
        "'Classwise Mark Entry' Is Not Made To The Subject-Subject 2 For One Or More Student(s)"));
    Tick(subjects, 1);
    prompts.Verify();
    EXPECT_FALSE(subjects->IsTicked(1));
    Press(allSubjects);
    EXPECT_EQ(subjects->TickedIndexes(), QList<int>{0});
}

TEST_F(DivisionAverageScreen, ShowsARowForEachDivisionInListOrder)
{
    GivenTwoDivisions();
    OpenForm();
    ChooseClass();
    Press(allDivisions);
    Display("Optsubjectdisplayyes");
    Press(allSubjects);
    Press(Button("cmdView"));
    EXPECT_EQ(GridText(grid->Table()), "Sl.No.|Student Name|Ad.No|Class|Div|1|Eng|2|Mat|3|Mor\n"
                                       "1|||X|  A|1|60.00|2|80.00|3|20.00\n"
                                       "2|||X|  B|1|37.75|2|50.00|3|50.00\n");
    EXPECT_TRUE(Button("cmdExport")->hasFocus());
    for (const char* control : {"Frame3", "cmdPrint", "cmdExport"})
        EXPECT_TRUE(IsEnabled(control)) << control;
    for (const int hidden : {1, 2, 5, 7, 9})
        EXPECT_EQ(grid->ColWidth(hidden), 0) << hidden;
}

TEST_F(DivisionAverageScreen, AnAbsenteeCountsNowhereAndARelievedStudentEverywhere)
{
    GivenTwoDivisions();
    Given("UPDATE StudentMaster SET TCNo = '17' WHERE StudentCode = 3");
    ShowAverages();
    EXPECT_EQ(Row(2), "2|||X|  B|1|37.75|2|50.00");
}

TEST_F(DivisionAverageScreen, EveryChangeOfTheSelectionTakesTheListAway)
{
    GivenTwoDivisions();
    Given("INSERT INTO ExamMaster VALUES (2, 'Term Two', 2, 0)");
    Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 9, 2, 0)");
    const std::vector<std::pair<const char*, std::function<void()>>> changes{
        {"the exam", [&] { Choose("Cboexamname", QStringLiteral("Term Two")); }},
        {"the class", [&] { Choose("cboClass", QStringLiteral("IX")); }},
        {"a division", [&] { Tick(divisions, 0); }},
        {"all divisions",
         [&] {
             prompts.ExpectInformation(NoDivision);
             Press(allDivisions);
         }},
        {"a subject", [&] { Tick(subjects, 0); }},
        {"all subjects", [&] { Press(allSubjects); }},
        {"the option", [&] { Display("Optsubjectdisplayyes"); }},
    };
    for (const auto& [what, change] : changes) {
        SCOPED_TRACE(what);
        ShowAverages();
        change();
        prompts.Verify();
        ExpectNoList();
        EXPECT_FALSE(IsEnabled("Frame3"));
        Press(Button("cmdCancel"));
    }
}

TEST_F(DivisionAverageScreen, ALineIsOfferedForMoreThanOneDivision)
{
    GivenTwoDivisions();
    ShowAverages();
    EXPECT_TRUE(IsLineOffered());
    Press(Option("optLineGrph"));
    EXPECT_TRUE(Option("optLineGrph")->isChecked());
    Tick(divisions, 0);
    EXPECT_FALSE(IsLineOffered());
    EXPECT_TRUE(Option("optBarGrph")->isChecked());
    Press(allSubjects);
    Press(Button("cmdView"));
    EXPECT_TRUE(IsEnabled("Frame3"));
    EXPECT_FALSE(IsLineOffered());
}

TEST_F(DivisionAverageScreen, TheChartNamesClassAndDivision)
{
    GivenTwoDivisions();
    ShowAverages();
    Press(Button("cmdChart"));
    EXPECT_EQ(ChartRows(), "X A|60|80;X B|37.75|50");
    EXPECT_EQ(Session().gcnnTemp->Prepare(QStringLiteral("SELECT * FROM TempChartReport")).ColumnName(0),
              QStringLiteral("Class"));
    Screen* chart = ScreenRegistry::OpenInstance(QStringLiteral("frmStudentExamAvgChart"));
    ASSERT_NE(chart, nullptr);
    EXPECT_EQ(Find<QWidget>(chart, "mscChart")->accessibleName(),
              QStringLiteral("Chart: Class-Division wise Subject Average For Term One"));
    EXPECT_EQ(ChartWords(), "Class-Division wise Subject Average For Term One|CLASS|AVERAGE");
}

TEST_F(DivisionAverageScreen, SubjectsWithNamesThatWouldBreakATableAreCharted)
{
    GivenTwoDivisions();
    for (const char* name : {"select", "1\" ,", "Class", ""}) {
        SCOPED_TRACE(name);
        Given("UPDATE SubjectMaster SET SubjectShortName = ? WHERE SubjectCode IN (1, 2)", name);
        ShowAverages();
        Press(Button("cmdChart"));
        EXPECT_EQ(ChartRows(), "X A|60|80;X B|37.75|50");
        Press(Button("cmdCancel"));
    }
}

TEST_F(DivisionAverageScreen, TheExportSaysWhatItIsOf)
{
    GivenTwoDivisions();
    ShowAverages();
    // What has left the screen is what was seen, whatever happened to its rows since.
    Given("DELETE FROM MarkMaster WHERE AcademicYearCode = 1 AND ExamCode = 1 AND ClassCode = 1 AND "
          "DivisionCode < 10");
    Press(Button("cmdExport"));
    const WorkbookReader sheet(output->workbook);
    EXPECT_EQ(sheet.At(QStringLiteral("A5")).value,
              QStringLiteral("Subject Average Based On Class/Division"));
    EXPECT_EQ(sheet.At(QStringLiteral("A6")).value, QStringLiteral("Exam Name :Term One"));
    EXPECT_EQ(sheet.At(QStringLiteral("B7")).value, QStringLiteral("Class"));
    EXPECT_EQ(sheet.At(QStringLiteral("C8")).value, QStringLiteral("A"));
    EXPECT_EQ(sheet.At(QStringLiteral("D9")).value.toDouble(), 37.75);
}

TEST_F(DivisionAverageScreen, ThePagesOfTheListAreShownForPrinting)
{
    GivenTwoDivisions();
    ShowAverages();
    Press(Button("cmdPrint"));
    EXPECT_FALSE(output->printed.empty());
    EXPECT_TRUE(output->textFile.isEmpty());
}

TEST_F(DivisionAverageScreen, WithoutTheRightExportSaysWhyAndPrintSaysNothing)
{
    GivenTwoDivisions();
    GivenUser(7, QStringLiteral("clerk"), QStringLiteral("pass"));
    Session().gintPrivilegeUserCode = 7;
    ShowAverages();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
    Press(Button("cmdExport"));
    prompts.Verify();
    prompts.ExpectInformation(QString());
    Press(Button("cmdPrint"));
    prompts.Verify();
    EXPECT_TRUE(output->workbook.isEmpty());
    EXPECT_TRUE(output->printed.empty());
}

TEST_F(DivisionAverageScreen, CancelBringsTheScreenBackToItsStart)
{
    GivenTwoDivisions();
    ShowAverages();
    Display("Optsubjectdisplayyes");
    Press(Option("optLineGrph"));
    Press(Button("cmdCancel"));
    Settle();
    ExpectNoList();
    EXPECT_TRUE(exams->IsBlank());
    EXPECT_EQ(exams->count(), 2);
    EXPECT_TRUE(classes->IsBlank());
    EXPECT_FALSE(classes->isEnabled());
    EXPECT_EQ(divisions->count(), 0);
    EXPECT_EQ(subjects->count(), 0);
    EXPECT_FALSE(allDivisions->isChecked());
    EXPECT_FALSE(allSubjects->isChecked());
    EXPECT_TRUE(Option("Optsubjectdisplayno")->isChecked());
    EXPECT_TRUE(Option("optBarGrph")->isChecked());
    EXPECT_FALSE(IsLineOffered());
    EXPECT_TRUE(exams->hasFocus());
}

TEST_F(DivisionAverageScreen, LeavingAsksByTheCaption)
{
    OpenForm();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Subject Average Based On Class - Division ?"),
                           true);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmclassdivisionsubjectavg")), nullptr);
}

TEST_F(DivisionAverageScreen, ASchoolWithoutExamsHasNothingToShow)
{
    Given("DELETE FROM ExamMaster");
    OpenForm();
    EXPECT_EQ(exams->count(), 1);
    ExpectMissing("Select Exam Name", "Cboexamname");
}

TEST_F(DivisionAverageScreen, AClassWithoutDivisionsHasNothingToTick)
{
    OpenForm();
    ChooseClass();
    EXPECT_EQ(divisions->count(), 0);
    prompts.ExpectInformation(NoDivision);
    Press(allDivisions);
    prompts.Verify();
    EXPECT_FALSE(allDivisions->isChecked());
    ExpectMissing("Select Division(s)", "Lstdivision");
}

TEST_F(DivisionAverageScreen, ASetUpThatIsGoneSinceLeavesAListWithoutSubjects)
{
    GivenTwoDivisions();
    OpenForm();
    ChooseAll();
    Given(
        "DELETE FROM ClassSubjectTeacher WHERE AcademicYearCode = 1 AND ClassCode = 1 AND DivisionCode < 10");
    Press(Button("cmdView"));
    EXPECT_EQ(Row(0), "Sl.No.|Student Name|Ad.No|Class|Div");
    EXPECT_EQ(Row(1), "1|||X|  A");
}

TEST_F(DivisionAverageScreen, AYearGoneSinceLeavesAListWithoutSubjects)
{
    GivenTwoDivisions();
    OpenForm();
    ChooseAll();
    GivenNothingOfTheYear();
    Press(Button("cmdView"));
    EXPECT_EQ(GridText(grid->Table()), "Sl.No.|Student Name|Ad.No|Class|Div\n"
                                       "1|||X|  A\n"
                                       "2|||X|  B\n");
}

TEST_F(DivisionAverageScreen, AMarkGoneSinceCountsNowhere)
{
    GivenTwoDivisions();
    OpenForm();
    ChooseAll();
    Given("DELETE FROM MarkMaster WHERE AcademicYearCode = 1 AND ExamCode = 1 AND ClassCode = 1 AND "
          "DivisionCode = 1 AND StudentCode = 3 AND SubjectCode = 1");
    Press(Button("cmdView"));
    EXPECT_EQ(Row(2), "2|||X|  B|1|30.00|2|50.00");
}

TEST_F(DivisionAverageScreen, SixtyExamsAndFortySubjectsAreListedAndCharted)
{
    GivenManyExamsAndSubjects();
    OpenForm();
    EXPECT_EQ(exams->count(), ManyExams + 1);
    Choose("Cboexamname", QStringLiteral("Test 60"));
    EXPECT_TRUE(classes->isEnabled());
    ChooseAll();
    Press(Button("cmdView"));
    EXPECT_EQ(grid->Cols(), 5 + 2 * ManySubjects);
    EXPECT_EQ(grid->TextMatrix(1, 84), QStringLiteral("63.33"));
    Press(Button("cmdChart"));
    EXPECT_EQ(ChartRows(), "X A" + QStringLiteral("|63.33").repeated(ManySubjects).toStdString());
    Press(Button("cmdExport"));
    EXPECT_EQ(WorkbookReader(output->workbook).At(QStringLiteral("AQ8")).value.toDouble(), 63.33);
}

TEST_F(DivisionAverageScreen, TheLongestNamesKeepScreenPagesAndChartInShape)
{
    GivenTwoDivisions();
    GivenLongNames();
    window->setWindowState(Qt::WindowNoState);
    window->resize(800, 600);
    OpenForm();
    const int widest = form->width();
    ChooseAllWithLongNames();
    Press(Button("cmdView"));
    EXPECT_LE(form->minimumSizeHint().width(), widest);
    EXPECT_EQ(grid->TextMatrix(1, 4), QStringLiteral("  Aww"));
    Press(Button("cmdPrint"));
    ExpectPrintWithinItsPages();
    Press(Button("cmdChart"));
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmStudentExamAvgChart")), nullptr);
}

TEST_F(DivisionAverageScreen, RowsAreAsHighAsTheOfficeKnowsThem)
{
    GivenTwoDivisions();
    ShowAverages();
    EXPECT_GE(grid->rowHeight(0), 21);
}

TEST_F(DivisionAverageScreen, TheListsOfTheSelectionUseTheRoom)
{
    ExpectListsToUseTheRoom("frmclassdivisionsubjectavg");
}

TEST_F(DivisionAverageScreen, WhatCannotBeReadIsToldAndShowsNothing)
{
    GivenTwoDivisions();
    OpenForm();
    ChooseClass();
    LeaveOthersUnguarded();
    const auto without = [&](const char* table, const std::function<void()>& work) {
        SCOPED_TRACE(table);
        Session().gcnnMain->Execute(
            QStringLiteral("ALTER TABLE %1 RENAME TO Lost").arg(QLatin1String(table)));
        prompts.ExpectCritical(NoSuchTable(table));
        work();
        prompts.Verify();
        Session().gcnnMain->Execute(
            QStringLiteral("ALTER TABLE Lost RENAME TO %1").arg(QLatin1String(table)));
    };
    Tick(divisions, 1);
    ASSERT_EQ(subjects->count(), 2);
    without("ClassSubjectTeacher", [&] { Press(allDivisions); });
    EXPECT_FALSE(allDivisions->isChecked());
    EXPECT_TRUE(divisions->TickedIndexes().isEmpty());
    EXPECT_EQ(subjects->count(), 0) << "those of a division that is ticked no more";
    without("ClassSubjectTeacher", [&] { Tick(divisions, 0); });
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{0}) << "the first one is compared with none";
    prompts.ExpectInformation(NoDivision);
    Tick(divisions, 0);
    prompts.Verify();
    without("MarkMaster", [&] { Tick(divisions, 0); });
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{0});
    EXPECT_EQ(subjects->count(), 0) << "no list rather than a wrong one";
    Press(allDivisions);
    Press(allSubjects);
    without("MarkMaster", [&] { Press(Button("cmdView")); });
    ExpectNoList();
    Choose("cboClass", QStringLiteral(" "));
    without("StudentClassDivision", [&] {
        classes->setFocus();
        PressKey(form, Qt::Key_Down);
    });
    EXPECT_EQ(divisions->count(), 0);
    EXPECT_TRUE(classes->IsBlank()) << "a class over no divisions could not be chosen again";
    Choose("cboClass", QStringLiteral("X"));
    EXPECT_EQ(Items(divisions), "  A|  B");
}

TEST_F(DivisionAverageScreen, ExamsAndClassesThatCannotBeReadAtCancelAreToldAndLeftOut)
{
    GivenTwoDivisions();
    OpenForm();
    ChooseAll();
    LeaveOthersUnguarded();
    Given("ALTER TABLE ExamMaster RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("ExamMaster"));
    Press(Button("cmdCancel"));
    prompts.Verify();
    Given("ALTER TABLE Lost RENAME TO ExamMaster");
    EXPECT_EQ(Items(exams), " ");
    EXPECT_EQ(Items(classes), " ");
    Press(Button("cmdCancel"));
    EXPECT_EQ(Items(exams), " |Term One");
    EXPECT_EQ(Items(classes), " |X");
}

TEST_F(DivisionAverageScreen, CancelOpensSelectAllThatADivisionWithoutMarksHadClosed)
{
    GivenDivision(1, "A");
    school->AddStudent(1, QStringLiteral("Asha"));
    OpenForm();
    ChooseClass();
    ASSERT_FALSE(allDivisions->isEnabled());
    Press(Button("cmdCancel"));
    EXPECT_TRUE(allDivisions->isEnabled());
}

TEST_F(DivisionAverageScreen, ADivisionThatCannotBeComparedIsNotAdded)
{
    GivenTwoDivisions();
    OpenForm();
    ChooseClass();
    Tick(divisions, 0);
    LeaveOthersUnguarded();
    Given("ALTER TABLE ClassSubjectTeacher RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("ClassSubjectTeacher"));
    Tick(divisions, 1);
    prompts.Verify();
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{0});
    EXPECT_EQ(Items(subjects), "  Subject 1|  Subject 2") << "those of the division that stays";
}

} // namespace
} // namespace tally::test
