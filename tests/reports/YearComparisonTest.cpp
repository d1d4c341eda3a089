#include "core/ui/ScreenRegistry.h"
#include "reports/ComparisonScreen.h"
#include "reports/frmstudentyearlyexamavg.h"
#include "reports/output/WorkbookReader.h"

namespace tally::test {
namespace {

/// Two years, of which the second one is in work. Asha was in IX/P and is in X/A; both years have English,
/// the second one Arts and Mathematics too. Binu has come this year. Zed left last year.
class YearComparisonScreen : public ComparisonScreen<frmstudentyearlyexamavg>
{
protected:
    void SetUp() override
    {
        ComparisonScreen::SetUp();
        cards->AddYear(2, 2025);
        cards->AddExam(2, "Term Two", 2);
        Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 9, 2, 0)");
        Given("INSERT INTO ClassDivisionDetails VALUES (2, 'P', 1)");
        school->AddDivision(1, "A");
        school->AddDivision(2, "E");
        Given("INSERT INTO SubjectMaster VALUES (1, 'English', 'Eng', 0), (2, 'Mathematics', 'Mat', 0), (3, "
              "'Arts', 'Art', 0)");
        for (const char* name : {"Asha", "Binu", "Zed"})
            school->AddStudent(1, QString::fromLatin1(name));
        Given("DELETE FROM StudentClassDivision WHERE StudentCode < 3");
        Given("INSERT INTO StudentClassDivision VALUES (1, 1, 2, 1, 'N', 0), (1, 2, 1, 1, 'Y', 0), (2, 2, 1, "
              "1, 'Y', 0)");
        Given("INSERT INTO MarkMaster VALUES (1, 1, 1, 2, 1, 1, 60.5, 'P', 0, 0), (1, 1, 2, 2, 1, 1, 99, "
              "'P', 0, 0)");
        Given("INSERT INTO MarkMaster VALUES (2, 1, 1, 1, 1, 1, 71.5, 'P', 0, 0), (2, 1, 1, 1, 1, 2, 40, "
              "'A', 0, 0), (2, 1, 1, 1, 1, 3, 0, 'P', 0, 0)");
        Given("INSERT INTO MarkMaster VALUES (2, 2, 1, 1, 1, 2, 55, 'P', 0, 0)");
        Session().gintAcademicYearCode = 2;
    }

    void OpenYears()
    {
        // A student is followed wherever he was: another class or exam of his is no neighbour here.
        OpenComparison("frmstudentyearlyexamavg", {Side::Year});
        exam = List("Cboexamname");
        years = Find<CheckList>(form, "Lstacademicyear");
        allYears = Find<QCheckBox>(form, "chkSelectYear");
    }

    void ChooseStudent(const char* student)
    {
        Choose("cboClass", QStringLiteral("X"));
        Choose("cboDivision", QStringLiteral("A"));
        Choose("cbostudent", QString::fromLatin1(student));
    }

    /// Asha in both years in Term One, English and nothing else.
    void ShowYears()
    {
        OpenYears();
        ChooseStudent("Asha (A1)");
        Press(allYears);
        Choose("Cboexamname", QStringLiteral("Term One"));
        Press(allSubjects);
        Press(Button("cmdView"));
        ASSERT_TRUE(IsEnabled("cmdExport"));
    }

    DataCombo* exam = nullptr;
    CheckList* years = nullptr;
    QCheckBox* allYears = nullptr;
};

TEST_F(YearComparisonScreen, OpensWithTheClassInFrontAndNothingChosen)
{
    OpenYears();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Subject Marks Based On AcademicYear(s)"));
    EXPECT_TRUE(classes->hasFocus());
    EXPECT_EQ(Items(classes), " |X|IX");
    EXPECT_EQ(Items(exam), " |Term One|Term Two");
    EXPECT_EQ(years->count(), 0);
    EXPECT_TRUE(Option("optBarGrph")->isChecked());
    EXPECT_EQ(Button("cmdExport")->toolTip(), QStringLiteral("Export To EXCEL"));
    ExpectNoList();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 26);
}

TEST_F(YearComparisonScreen, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmstudentyearlyexamavg"));
}

TEST_F(YearComparisonScreen, EachUnderlinedLetterLeadsToOneControl)
{
    OpenYears();
    EXPECT_EQ(ExpectOneControlALetter(form),
              QStringList({QStringLiteral("Select All"), QStringLiteral("Select All"),
                           QStringLiteral("Bar Graph"), QStringLiteral("Line Graph")}));
}

TEST_F(YearComparisonScreen, EnterStaysAtEachListInWhichNothingIsChosen)
{
    OpenYears();
    for (const char* list : {"cboClass", "cboDivision", "cbostudent", "Cboexamname"}) {
        List(list)->setFocus();
        PressKey(form, Qt::Key_Return);
        EXPECT_TRUE(HasFocus(list)) << list << ", not " << FocusName();
    }
}

TEST_F(YearComparisonScreen, AsksForEachChoiceInItsOrder)
{
    OpenYears();
    ExpectMissing("Select Class", "cboClass");
    Choose("cboClass", QStringLiteral("X"));
    ExpectMissing("Select Division", "cboDivision");
    Choose("cboDivision", QStringLiteral("A"));
    ExpectMissing("Select Student", "cbostudent");
    Choose("cbostudent", QStringLiteral("Asha (A1)"));
    ExpectMissing("Select Academic Year(s)", "Lstacademicyear");
    Tick(years, 0);
    ExpectMissing("Select Exam Name", "Cboexamname");
    Choose("Cboexamname", QStringLiteral("Term One"));
    ExpectMissing("Select Subject(s)", "Lstsubjects");
}

TEST_F(YearComparisonScreen, StudentsAreThoseOfThisYear)
{
    OpenYears();
    Choose("cboClass", QStringLiteral("X"));
    EXPECT_EQ(Items(divisions), " |A|E");
    Choose("cboDivision", QStringLiteral("A"));
    EXPECT_EQ(Items(students), " |Asha (A1)|Binu (A2)");
    prompts.ExpectInformation(QStringLiteral("Student Admission Entry Is Not Made In This Class-Division"));
    Choose("cboDivision", QStringLiteral("E"));
    prompts.Verify();
    EXPECT_EQ(Items(students), " ");
}

TEST_F(YearComparisonScreen, AStudentIsFollowedThroughHisOwnYears)
{
    OpenYears();
    ChooseStudent("Asha (A1)");
    EXPECT_EQ(Items(years), "2024 - 2025 IX/P|2025 - 2026 X/A");
    Choose("cbostudent", QStringLiteral("Binu (A2)"));
    EXPECT_EQ(Items(years), "2025 - 2026 X/A");
}

TEST_F(YearComparisonScreen, AStudentWithOnePlaceHasOnlyTheBarGraph)
{
    OpenYears();
    ChooseStudent("Binu (A2)");
    Press(allYears);
    EXPECT_EQ(years->TickedIndexes(), QList<int>{0});
    EXPECT_FALSE(IsLineOffered());
    EXPECT_TRUE(Option("optBarGrph")->isChecked());
}

TEST_F(YearComparisonScreen, MoreThanOneYearOffersTheLine)
{
    ShowYears();
    EXPECT_TRUE(IsLineOffered());
    Press(Option("optLineGrph"));
    Tick(years, 0);
    EXPECT_FALSE(IsLineOffered());
    EXPECT_TRUE(Option("optBarGrph")->isChecked());
}

TEST_F(YearComparisonScreen, ASubjectWithoutMarksInOneYearIsMarkedLeftOutOfAllAndTickedByHand)
{
    OpenYears();
    ChooseStudent("Asha (A1)");
    Press(allYears);
    Choose("Cboexamname", QStringLiteral("Term One"));
    EXPECT_EQ(Items(subjects), ". Arts|  English|. Mathematics");
    Press(allSubjects);
    EXPECT_EQ(subjects->TickedIndexes(), QList<int>{1});
    Tick(subjects, 2);
    EXPECT_EQ(subjects->TickedIndexes(), (QList<int>{1, 2}));
    Press(Button("cmdView"));
    EXPECT_EQ(Row(0), "Sl.No.|Academic Year/Class/Division|Ad.No|Class|Div|1|Eng|2|Mat");
    EXPECT_EQ(Row(1), "1|2024 - 2025 IX/P||||1|60||");
    EXPECT_EQ(Row(2), "2|2025 - 2026 X/A||||1|72|2|40") << "the stored mark of an absence counts";
    EXPECT_EQ(grid->Rows(), 3);
    EXPECT_TRUE(Button("cmdExport")->hasFocus());
    for (const int hidden : {2, 3, 4, 5, 7})
        EXPECT_EQ(grid->ColWidth(hidden), 0) << hidden;
    ExpectWidth(0, 525);
    ExpectWidth(1, 3000);
    ExpectWidth(6, 600);
}

TEST_F(YearComparisonScreen, UntickingAYearClearsItsBoxAndAsksForTheExamAnew)
{
    OpenYears();
    ChooseStudent("Asha (A1)");
    Press(allYears);
    Choose("Cboexamname", QStringLiteral("Term One"));
    Press(allSubjects);
    Tick(years, 0);
    EXPECT_FALSE(allYears->isChecked());
    EXPECT_EQ(years->TickedIndexes(), QList<int>{1});
    EXPECT_TRUE(exam->IsBlank());
    EXPECT_EQ(subjects->count(), 0);
    EXPECT_FALSE(allSubjects->isChecked());
    Choose("Cboexamname", QStringLiteral("Term One"));
    EXPECT_EQ(Items(subjects), "  Arts|  English|  Mathematics");
}

TEST_F(YearComparisonScreen, AnExamWithoutAYearOffersNoSubject)
{
    OpenYears();
    ChooseStudent("Asha (A1)");
    Choose("Cboexamname", QStringLiteral("Term One"));
    EXPECT_EQ(subjects->count(), 0);
}

TEST_F(YearComparisonScreen, MarksFollowTheOptionsOfTheSession)
{
    ShowYears();
    EXPECT_EQ(Row(1), "1|2024 - 2025 IX/P||||1|60");
    EXPECT_EQ(Row(2), "2|2025 - 2026 X/A||||1|72");
    Session().gblnFractionMarks = true;
    Press(Button("cmdView"));
    EXPECT_EQ(Row(1), "1|2024 - 2025 IX/P||||1|60.50");
    Session().gblnRoundedMarks = true;
    Press(Button("cmdView"));
    EXPECT_EQ(Row(2), "2|2025 - 2026 X/A||||1|72");
}

TEST_F(YearComparisonScreen, EveryChangeOfTheSelectionTakesTheListAway)
{
    const std::vector<std::pair<const char*, std::function<void()>>> changes{
        {"a subject", [&] { Tick(subjects, 0); }},
        {"all subjects", [&] { Press(allSubjects); }},
        {"the exam", [&] { Choose("Cboexamname", QStringLiteral("Term Two")); }},
        {"a year", [&] { Tick(years, 0); }},
        {"all years", [&] { Press(allYears); }},
        {"the student", [&] { Choose("cbostudent", QStringLiteral("Binu (A2)")); }},
        {"the division", [&] { Choose("cboDivision", QStringLiteral(" ")); }},
        {"the class", [&] { Choose("cboClass", QStringLiteral("IX")); }},
    };
    for (const auto& [what, change] : changes) {
        SCOPED_TRACE(what);
        ShowYears();
        change();
        ExpectNoList();
        Press(Button("cmdCancel"));
    }
}

TEST_F(YearComparisonScreen, ANewStudentStartsWithoutYearsExamAndSubjects)
{
    ShowYears();
    Choose("cbostudent", QStringLiteral("Binu (A2)"));
    EXPECT_TRUE(years->TickedIndexes().isEmpty());
    EXPECT_FALSE(allYears->isChecked());
    EXPECT_FALSE(allSubjects->isChecked());
    EXPECT_TRUE(exam->IsBlank());
    EXPECT_EQ(subjects->count(), 0);
}

TEST_F(YearComparisonScreen, AYearWithoutMarksStaysBlankAndOutOfTheChart)
{
    OpenYears();
    ChooseStudent("Asha (A1)");
    Press(allYears);
    Choose("Cboexamname", QStringLiteral("Term One"));
    Tick(subjects, 2);
    Press(Button("cmdView"));
    EXPECT_EQ(Row(1), "1|2024 - 2025 IX/P|||||");
    Press(Button("cmdChart"));
    EXPECT_EQ(ChartRows(), "2025 - 2026 X/A|40");
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmStudentExamAvgChart")), nullptr);
}

TEST_F(YearComparisonScreen, TheChartSaysWhoseMarksItShows)
{
    ShowYears();
    Press(Button("cmdChart"));
    EXPECT_EQ(ChartWords(),
              "Subject Marks Based On AcademicYear(s) - Asha (A1) Term One|ACADEMIC YEAR|MARKS");
}

TEST_F(YearComparisonScreen, WithoutAnyMarkThereIsNoChartUntilTheNextList)
{
    OpenYears();
    ChooseStudent("Asha (A1)");
    Tick(years, 0);
    Choose("Cboexamname", QStringLiteral("Term One"));
    Press(allSubjects);
    Given("UPDATE MarkMaster SET ExamCode = 2, SubjectCode = 3 WHERE StudentCode = 1 AND ExamCode = 1 AND "
          "AcademicYearCode = 1");
    Press(Button("cmdView"));
    prompts.ExpectInformation(QStringLiteral("Required Data Is Not Available For Displaying The Chart"));
    Press(Button("cmdChart"));
    prompts.Verify();
    EXPECT_FALSE(IsEnabled("cmdChart"));
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmStudentExamAvgChart")), nullptr);
    Press(Button("cmdView"));
    EXPECT_TRUE(IsEnabled("cmdChart"));
}

TEST_F(YearComparisonScreen, MarksOfAYearThatIsGoneAreLeftOut)
{
    OpenYears();
    ChooseStudent("Asha (A1)");
    Press(allYears);
    Choose("Cboexamname", QStringLiteral("Term One"));
    Press(allSubjects);
    Given("DELETE FROM MarkMaster WHERE AcademicYearCode = 1");
    Given("DELETE FROM StudentClassDivision WHERE AcademicYearCode = 1");
    Press(Button("cmdView"));
    EXPECT_EQ(Row(1), "1|2024 - 2025 IX/P|||||");
    EXPECT_EQ(Row(2), "2|2025 - 2026 X/A||||1|72");
}

TEST_F(YearComparisonScreen, AYearDeletedMeanwhileIsABlankLine)
{
    OpenYears();
    ChooseStudent("Asha (A1)");
    Press(allYears);
    Choose("Cboexamname", QStringLiteral("Term One"));
    Press(allSubjects);
    LeaveOthersUnguarded();
    Given("DELETE FROM MarkMaster WHERE AcademicYearCode = 1");
    Given("DELETE FROM StudentClassDivision WHERE AcademicYearCode = 1");
    Given("PRAGMA foreign_keys = OFF");
    Given("DELETE FROM AcademicYearSetup WHERE AcademicYearCode = 1");
    Press(Button("cmdView"));
    EXPECT_EQ(Row(1), "1|2024 - 2025 IX/P|||||");
    EXPECT_EQ(Row(2), "2|2025 - 2026 X/A||||1|72");
    Press(Button("cmdChart"));
    EXPECT_EQ(ChartRows(), "2025 - 2026 X/A|72");
}

TEST_F(YearComparisonScreen, ASubjectDeletedMeanwhileHasNoColumn)
{
    OpenYears();
    ChooseStudent("Asha (A1)");
    Press(allYears);
    Choose("Cboexamname", QStringLiteral("Term One"));
    Tick(subjects, 1);
    Tick(subjects, 2);
    LeaveOthersUnguarded();
    Given("DELETE FROM MarkMaster WHERE SubjectCode = 1");
    Given("DELETE FROM SubjectMaster WHERE SubjectCode = 1");
    Press(Button("cmdView"));
    EXPECT_EQ(Row(0), "Sl.No.|Academic Year/Class/Division|Ad.No|Class|Div|2|Mat");
    EXPECT_EQ(Row(2), "2|2025 - 2026 X/A||||2|40");
}

TEST_F(YearComparisonScreen, FortySubjectsFit)
{
    for (int subject = 4; subject <= 40; ++subject) {
        Given("INSERT INTO SubjectMaster VALUES (?, 'Subject', 'Long66', 0)", subject);
        for (int year = 1; year <= 2; ++year)
            Given("INSERT INTO MarkMaster VALUES (?, 1, 1, ?, 1, ?, 50, 'P', 0, 0)", year, year == 1 ? 2 : 1,
                  subject);
    }
    OpenYears();
    ChooseStudent("Asha (A1)");
    Press(allYears);
    Choose("Cboexamname", QStringLiteral("Term One"));
    EXPECT_EQ(subjects->count(), 40);
    Press(allSubjects);
    EXPECT_EQ(subjects->TickedIndexes().size(), 38) << "all but the two of one year only";
    Press(Button("cmdView"));
    EXPECT_EQ(grid->Rows(), 3);
    EXPECT_EQ(grid->Cols(), 5 + 2 * 38);
    EXPECT_EQ(grid->Table().Text(2, grid->Cols() - 1), QStringLiteral("50"));
    Press(Button("cmdChart"));
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmStudentExamAvgChart")), nullptr);
}

TEST_F(YearComparisonScreen, WithoutExamsNothingCanBeCompared)
{
    LeaveOthersUnguarded();
    Given("DELETE FROM MarkMaster");
    Given("DELETE FROM ExamMaster");
    OpenYears();
    EXPECT_EQ(Items(exam), " ");
    ChooseStudent("Asha (A1)");
    Press(allYears);
    ExpectMissing("Select Exam Name", "Cboexamname");
}

TEST_F(YearComparisonScreen, WithoutMarksThereIsNoSubject)
{
    Given("DELETE FROM MarkMaster WHERE StudentCode = 1");
    OpenYears();
    ChooseStudent("Asha (A1)");
    Press(allYears);
    Choose("Cboexamname", QStringLiteral("Term One"));
    EXPECT_EQ(subjects->count(), 0);
    Press(allSubjects);
    ExpectMissing("Select Subject(s)", "Lstsubjects");
}

TEST_F(YearComparisonScreen, TheExportSaysWhatItIsOf)
{
    ShowYears();
    // What leaves the screen is what was seen, whatever happened to its rows since.
    Given("DELETE FROM MarkMaster WHERE StudentCode = 1 AND AcademicYearCode < 3");
    Press(Button("cmdExport"));
    const WorkbookReader sheet(output->workbook);
    EXPECT_EQ(sheet.At(QStringLiteral("A5")).value, QStringLiteral("Subject Marks Based On AcademicYear(s)"));
    EXPECT_EQ(sheet.At(QStringLiteral("A6")).value,
              QStringLiteral("Class :X Division :A Student Name :Asha (A1) Exam Name : Term One"));
    EXPECT_EQ(sheet.At(QStringLiteral("B8")).value, QStringLiteral("2024 - 2025 IX/P"));
    EXPECT_EQ(sheet.At(QStringLiteral("C8")).value.toDouble(), 60.0);
}

TEST_F(YearComparisonScreen, WithoutTheRightExportSaysWhy)
{
    GivenUser(7, QStringLiteral("clerk"), QStringLiteral("pass"));
    Session().gintPrivilegeUserCode = 7;
    ShowYears();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
    Press(Button("cmdExport"));
    prompts.Verify();
    EXPECT_EQ(output->workbook, QString());
}

TEST_F(YearComparisonScreen, PrintStaysOffByEachWay)
{
    ShowYears();
    EXPECT_FALSE(IsEnabled("cmdPrint"));
    for (const QWidget* widget : {static_cast<QWidget*>(form), static_cast<QWidget*>(grid)})
        for (const QAction* action : widget->actions())
            EXPECT_NE(action->text(), QStringLiteral("Print List..."));
    PressKey(form, Qt::Key_P, Qt::ControlModifier);
    Settle();
    EXPECT_TRUE(output->printed.empty());
}

TEST_F(YearComparisonScreen, CancelBringsTheScreenBackToItsStart)
{
    ShowYears();
    Press(Option("optLineGrph"));
    Press(Button("cmdCancel"));
    ExpectNoList();
    EXPECT_TRUE(classes->IsBlank());
    EXPECT_EQ(Items(classes), " |X|IX");
    EXPECT_EQ(Items(divisions), " ");
    EXPECT_EQ(Items(students), " ");
    EXPECT_EQ(years->count(), 0);
    EXPECT_TRUE(exam->IsBlank());
    EXPECT_EQ(Items(exam), " |Term One|Term Two");
    EXPECT_EQ(subjects->count(), 0);
    EXPECT_FALSE(allYears->isChecked());
    EXPECT_FALSE(allSubjects->isChecked());
    EXPECT_TRUE(Option("optBarGrph")->isChecked());
    EXPECT_FALSE(IsLineOffered());
    EXPECT_TRUE(classes->hasFocus());
}

TEST_F(YearComparisonScreen, LeavingAsksByTheCaption)
{
    OpenYears();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Subject Marks Based On AcademicYear(s) ?"),
                           true);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmstudentyearlyexamavg")), nullptr);
}

TEST_F(YearComparisonScreen, ClassesAndExamsThatCannotBeReadAreToldInOneBoxAtOpeningAndAtCancel)
{
    LeaveOthersUnguarded();
    const auto hide = [this] {
        Given("ALTER TABLE ExamMaster RENAME TO Elsewhere");
        Given("ALTER TABLE ClassDivisionMaster RENAME TO Nowhere");
        prompts.ExpectCritical(NoSuchTable("ClassDivisionMaster"));
    };
    const auto giveBack = [this] {
        prompts.Verify();
        Given("ALTER TABLE Elsewhere RENAME TO ExamMaster");
        Given("ALTER TABLE Nowhere RENAME TO ClassDivisionMaster");
    };
    OpenYears();
    Press(Button("cmdExit"));
    Settle();
    hide();
    OpenYears();
    giveBack();
    EXPECT_EQ(Items(classes), " ");
    EXPECT_EQ(Items(exam), " ");
    Press(Button("cmdCancel"));
    EXPECT_EQ(Items(classes), " |X|IX");
    EXPECT_EQ(Items(exam), " |Term One|Term Two");
    ShowYears();
    hide();
    Press(Button("cmdCancel"));
    giveBack();
    ExpectNoList();
    EXPECT_TRUE(classes->IsBlank());
    EXPECT_EQ(Items(exam), " ");
    EXPECT_EQ(Items(students), " ");
    EXPECT_EQ(years->count(), 0);
}

TEST_F(YearComparisonScreen, StudentsYearsAndSubjectsThatCannotBeReadAreToldAndNoneIsOffered)
{
    OpenYears();
    Choose("cboClass", QStringLiteral("X"));
    ExpectMissingTable("StudentMaster", [&] { Choose("cboDivision", QStringLiteral("A")); });
    EXPECT_EQ(Items(students), " ");
    Choose("cboDivision", QStringLiteral(" "));
    Choose("cboDivision", QStringLiteral("A"));
    ExpectMissingTable("AcademicYearSetup", [&] { Choose("cbostudent", QStringLiteral("Asha (A1)")); });
    EXPECT_EQ(years->count(), 0);
    Choose("cbostudent", QStringLiteral(" "));
    Choose("cbostudent", QStringLiteral("Asha (A1)"));
    Press(allYears);
    ExpectMissingTable("SubjectMaster", [&] { Choose("Cboexamname", QStringLiteral("Term One")); });
    EXPECT_EQ(subjects->count(), 0);
    Tick(years, 0);
    Choose("Cboexamname", QStringLiteral("Term One"));
    EXPECT_EQ(Items(subjects), "  Arts|  English|  Mathematics");
}

TEST_F(YearComparisonScreen, AChartThatCannotBeLaidDownIsToldAndNotShown)
{
    ShowYears();
    BlockChart();
    prompts.ExpectCritical(QStringLiteral("use DROP VIEW to delete view TempChartReport"));
    Press(Button("cmdChart"));
    prompts.Verify();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmStudentExamAvgChart")), nullptr);
    EXPECT_TRUE(IsEnabled("cmdChart"));
}

TEST_F(YearComparisonScreen, WhatCannotBeReadIsToldAndShowsNothing)
{
    ShowYears();
    LeaveOthersUnguarded();
    Given("ALTER TABLE MarkMaster RENAME TO Elsewhere");
    prompts.ExpectCritical(NoSuchTable("MarkMaster"));
    Press(Button("cmdView"));
    prompts.Verify();
    ExpectNoList();
}

} // namespace
} // namespace tally::test
