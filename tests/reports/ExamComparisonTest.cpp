#include "core/ui/ScreenRegistry.h"
#include "reports/ComparisonScreen.h"
#include "reports/frmExamComparison.h"
#include "reports/output/WorkbookReader.h"

#include <algorithm>

namespace tally::test {
namespace {

/// Class X with divisions B (code 1) and A (code 2). In B: Asha with marks in both exams, but for Art in the
/// second one, and Binu, absent in Art, with marks in the first one only. In A: Zed without marks.
class ExamComparisonScreen : public ComparisonScreen<frmExamComparison>
{
protected:
    void SetUp() override
    {
        ComparisonScreen::SetUp();
        cards->AddExam(2, "Term Two", 2);
        school->AddDivision(1, "B");
        school->AddDivision(2, "A");
        school->AddSubject(1, 1, "Eng", 2);
        school->AddSubject(1, 2, "Mat", 1);
        school->AddSubject(1, 3, "Art", 3, "No");
        school->AddSubject(2, 1, "Eng", 1);
        const int asha = school->AddMarkedStudent(QStringLiteral("Asha"), {60, 70.5, 30});
        const int binu = school->AddMarkedStudent(QStringLiteral("Binu"), {0, 71});
        school->EnterAbsence(binu, 3);
        cards->EnterMarks(2, asha, {80, 90});
        school->AddStudent(2, QStringLiteral("Zed"));
    }

    void OpenExams(const char* formName, const std::set<Side>& sides)
    {
        OpenComparison(formName, sides);
        exams = Find<CheckList>(form, "Lstexamnames");
        allExams = Find<QCheckBox>(form, "chkSelectExamName");
    }

    /// With neighbours on all sides but other years, since a mark of another year counts as entered where
    /// the student sat in the same division.
    void OpenStudent() { OpenExams("frmstudentexamavg", {Side::Exam, Side::Class, Side::Division}); }
    void OpenDivision()
    {
        OpenExams("frmdivisionsubjectexamavg", {Side::Year, Side::Exam, Side::Class, Side::Division});
    }

    void ChooseDivisionB()
    {
        Choose("cboClass", QStringLiteral("X"));
        Choose("cboDivision", QStringLiteral("B"));
    }

    /// Both exams, division B, all subjects taken for rank.
    void ShowDivision()
    {
        OpenDivision();
        Press(allExams);
        ChooseDivisionB();
        Press(allSubjects);
        Press(Button("cmdView"));
        ASSERT_TRUE(IsEnabled("cmdExport"));
    }
    /// The same for Asha.
    void ShowStudent()
    {
        OpenStudent();
        Press(allExams);
        ChooseDivisionB();
        Choose("cbostudent", QStringLiteral("Asha (A1)"));
        Press(allSubjects);
        Press(Button("cmdView"));
        ASSERT_TRUE(IsEnabled("cmdExport"));
    }

    CheckList* exams = nullptr;
    QCheckBox* allExams = nullptr;
};

TEST_F(ExamComparisonScreen, EachOfTheTwoOpensWithItsOwnWords)
{
    OpenDivision();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Subject Average Based On Exam(s)"));
    EXPECT_FALSE(students->isVisibleTo(form));
    EXPECT_EQ(Items(exams), "Term One|Term Two");
    EXPECT_EQ(Items(classes), " |X");
    EXPECT_FALSE(classes->isEnabled());
    EXPECT_TRUE(exams->hasFocus());
    EXPECT_TRUE(Option("Optsubjectdisplayno")->isChecked());
    EXPECT_TRUE(Option("optBarGrph")->isChecked());
    EXPECT_FALSE(IsLineOffered());
    EXPECT_EQ(Button("cmdExport")->toolTip(), QStringLiteral("Export To EXCEL"));
    ExpectNoList();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 24);
}

TEST_F(ExamComparisonScreen, TheStudentsOneHasAStudentAndAHelpNumberOfItsOwn)
{
    OpenStudent();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Student Marks Based on Exam(s)"));
    EXPECT_TRUE(students->isVisibleTo(form));
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 25);
}

TEST_F(ExamComparisonScreen, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmdivisionsubjectexamavg"));
    ExpectToFit(QStringLiteral("frmstudentexamavg"));
}

TEST_F(ExamComparisonScreen, EachUnderlinedLetterLeadsToOneControl)
{
    OpenStudent();
    EXPECT_EQ(ExpectOneControlALetter(form),
              QStringList({QStringLiteral("Select All"), QStringLiteral("Select All"),
                           QStringLiteral("Don't Display The Subject(s) Which Is Not Taken For Rank"),
                           QStringLiteral("Display All Subject(s)"), QStringLiteral("Bar Graph"),
                           QStringLiteral("Line Graph")}));
}

TEST_F(ExamComparisonScreen, ADivisionsAveragesAreAskedForInTheirOrder)
{
    OpenDivision();
    ExpectMissing("Select Exam Name(s)", "Lstexamnames");
    Tick(exams, 0);
    ExpectMissing("Select Class", "cboClass");
    Choose("cboClass", QStringLiteral("X"));
    ExpectMissing("Select Division", "cboDivision");
    Choose("cboDivision", QStringLiteral("B"));
    ExpectMissing("Select Subject(s)", "Lstsubjects");
}

TEST_F(ExamComparisonScreen, AStudentIsAskedForBeforeTheSubjects)
{
    OpenStudent();
    ExpectMissing("Select Exam Name(s)", "Lstexamnames");
    Tick(exams, 0);
    ExpectMissing("Select Class", "cboClass");
    Choose("cboClass", QStringLiteral("X"));
    ExpectMissing("Select Division", "cboDivision");
    Choose("cboDivision", QStringLiteral("B"));
    ExpectMissing("Select Student", "cbostudent");
    Choose("cbostudent", QStringLiteral("Asha (A1)"));
    ExpectMissing("Select Subject(s)", "Lstsubjects");
}

TEST_F(ExamComparisonScreen, TheRankOptionWithoutAClassAsksForItAndIsTakenBack)
{
    OpenDivision();
    Tick(exams, 0);
    Press(Option("Optsubjectdisplayyes"));
    prompts.ExpectInformation(QStringLiteral("Select Class"));
    Press(Option("Optsubjectdisplayno"));
    Settle();
    prompts.Verify();
    EXPECT_FALSE(Option("Optsubjectdisplayno")->isChecked());
    EXPECT_FALSE(Option("Optsubjectdisplayyes")->isChecked());
    EXPECT_TRUE(classes->hasFocus());
    ChooseDivisionB();
    ExpectMissing("Select 'Subjects Taken For Rank' Option", "Optsubjectdisplayno");
    Press(Option("Optsubjectdisplayyes"));
    Settle();
    EXPECT_EQ(Items(subjects), "  Subject 2|  Subject 1|  Subject 3");
    Tick(subjects, 0);
    Press(Button("cmdView"));
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_TRUE(IsEnabled("cmdExport"));
    Press(Option("Optsubjectdisplayno"));
    EXPECT_FALSE(Option("Optsubjectdisplayyes")->isChecked()) << "of the two one is on again";
}

TEST_F(ExamComparisonScreen, AStudentIsAskedForBeforeTheRankOption)
{
    OpenStudent();
    EXPECT_EQ(Option("Optsubjectdisplayno")->text(),
              QStringLiteral("Don't Display The Subject(s) Which Is Not Taken For Rank"));
    EXPECT_EQ(Option("Optsubjectdisplayyes")->text(), QStringLiteral("Display All Subject(s)"));
    Tick(exams, 0);
    Press(Option("Optsubjectdisplayyes"));
    prompts.ExpectInformation(QStringLiteral("Select Class"));
    Press(Option("Optsubjectdisplayno"));
    Settle();
    prompts.Verify();
    EXPECT_TRUE(classes->hasFocus());
    EXPECT_FALSE(Option("Optsubjectdisplayno")->isChecked());
    ChooseDivisionB();
    ExpectMissing("Select Student", "cbostudent");
    Choose("cbostudent", QStringLiteral("Asha (A1)"));
    ExpectMissing("Select 'Subjects Taken For Rank' Option", "Optsubjectdisplayno");
}

TEST_F(ExamComparisonScreen, TheRankOptionWithoutAnExamLeadsToTheExams)
{
    for (const char* name : {"frmstudentexamavg", "frmdivisionsubjectexamavg"}) {
        OpenExams(name, {});
        Press(Option("Optsubjectdisplayyes"));
        prompts.ExpectInformation(QStringLiteral("Select Class"));
        Press(Option("Optsubjectdisplayno"));
        Settle();
        prompts.Verify();
        EXPECT_TRUE(HasFocus("Lstexamnames")) << FocusName();
        EXPECT_FALSE(Option("Optsubjectdisplayno")->isChecked());
    }
}

TEST_F(ExamComparisonScreen, TheClassIsOpenWhileAnExamIsTicked)
{
    OpenStudent();
    EXPECT_FALSE(classes->isEnabled());
    Tick(exams, 1);
    EXPECT_TRUE(classes->isEnabled());
    Tick(exams, 1);
    EXPECT_FALSE(classes->isEnabled());
    Press(allExams);
    EXPECT_TRUE(classes->isEnabled());
}

TEST_F(ExamComparisonScreen, DivisionsStandByNameAndByCodeForWhoComesByEnter)
{
    OpenStudent();
    Tick(exams, 0);
    classes->setFocus();
    QTest::keyClick(classes, Qt::Key_Return);
    EXPECT_TRUE(classes->hasFocus()) << "no class is chosen yet";
    Choose("cboClass", QStringLiteral("X"));
    EXPECT_EQ(Items(divisions), " |A|B");
    QTest::keyClick(classes, Qt::Key_Return);
    EXPECT_TRUE(divisions->hasFocus());
    EXPECT_EQ(Items(divisions), " |B|A");
    EXPECT_TRUE(divisions->IsBlank());
    Choose("cboDivision", QStringLiteral("A"));
    Choose("cbostudent", QStringLiteral("Zed (A3)"));
    classes->setFocus();
    QTest::keyClick(form->window()->windowHandle(), Qt::Key_Enter);
    EXPECT_TRUE(divisions->hasFocus()) << "one Enter leads one list on";
    EXPECT_EQ(divisions->currentText(), QStringLiteral("A")) << "what was chosen stays";
    EXPECT_EQ(students->currentText(), QStringLiteral("Zed (A3)"));
}

TEST_F(ExamComparisonScreen, EnterStaysAtABlankDivisionAndABlankStudent)
{
    OpenStudent();
    for (const char* list : {"cboDivision", "cbostudent"}) {
        List(list)->setFocus();
        PressKey(form, Qt::Key_Return);
        EXPECT_TRUE(HasFocus(list)) << list << ", not " << FocusName();
    }
}

TEST_F(ExamComparisonScreen, StudentsAndSubjectsGoWithTheChoiceThatTheyWereListedFor)
{
    Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 9, 2, 0)");
    ShowStudent();
    Choose("cbostudent", QStringLiteral(" "));
    EXPECT_EQ(subjects->count(), 0);
    EXPECT_FALSE(allSubjects->isChecked());
    Choose("cbostudent", QStringLiteral("Asha (A1)"));
    ASSERT_EQ(subjects->count(), 2);
    Choose("cboClass", QStringLiteral("IX"));
    EXPECT_EQ(Items(students), " ");
    EXPECT_EQ(subjects->count(), 0);
}

TEST_F(ExamComparisonScreen, ADivisionGoneMeanwhileTakesItsStudentsAway)
{
    OpenStudent();
    Tick(exams, 0);
    Choose("cboClass", QStringLiteral("X"));
    Choose("cboDivision", QStringLiteral("A"));
    LeaveOthersUnguarded();
    for (const char* table : {"MarkMaster", "TempRankTotal", "ClassSubjectTeacher", "StudentClassDivision",
                              "ClassDivisionDetails"})
        Session().gcnnMain->Execute(QStringLiteral("DELETE FROM %1 WHERE ClassCode = 1 AND DivisionCode = 2")
                                        .arg(QString::fromLatin1(table)));
    classes->setFocus();
    QTest::keyClick(classes, Qt::Key_Return);
    EXPECT_EQ(Items(divisions), " |B");
    EXPECT_EQ(Items(students), " ");
}

TEST_F(ExamComparisonScreen, ADivisionWithoutStudentsIsTold)
{
    Given("DELETE FROM StudentClassDivision WHERE DivisionCode = 2");
    OpenStudent();
    Tick(exams, 0);
    Choose("cboClass", QStringLiteral("X"));
    prompts.ExpectInformation(QStringLiteral("Student Admission Entry Is Not Made In This Class-Division"));
    Choose("cboDivision", QStringLiteral("A"));
    prompts.Verify();
    EXPECT_EQ(Items(students), " ");
    ExpectMissing("Select Student", "cbostudent");
}

TEST_F(ExamComparisonScreen, ADivisionsAveragesDoNotAskForStudents)
{
    Given("DELETE FROM StudentClassDivision WHERE DivisionCode = 2");
    OpenDivision();
    Tick(exams, 0);
    Choose("cboClass", QStringLiteral("X"));
    Choose("cboDivision", QStringLiteral("A"));
    EXPECT_EQ(Items(subjects), ". Subject 1");
}

TEST_F(ExamComparisonScreen, ASubjectOfADivisionWithoutMarksInATickedExamIsRefused)
{
    OpenDivision();
    Tick(exams, 0);
    ChooseDivisionB();
    EXPECT_EQ(Items(subjects), "  Subject 2|  Subject 1");
    Press(Option("Optsubjectdisplayyes"));
    Settle();
    EXPECT_EQ(Items(subjects), "  Subject 2|  Subject 1|  Subject 3");
    Tick(exams, 1);
    EXPECT_EQ(Items(subjects), "  Subject 2|  Subject 1|. Subject 3");
    prompts.ExpectInformation(QStringLiteral(
        "'Classwise Mark Entry' Is Not Made To The Subject-Subject 3 For One Or More Student(s)"));
    Tick(subjects, 2);
    prompts.Verify();
    EXPECT_FALSE(subjects->IsTicked(2));
    Press(allSubjects);
    EXPECT_EQ(subjects->TickedIndexes(), (QList<int>{0, 1}));
    Tick(subjects, 0);
    EXPECT_FALSE(allSubjects->isChecked());
    Press(allSubjects);
    Press(allSubjects);
    EXPECT_TRUE(subjects->TickedIndexes().isEmpty());
}

TEST_F(ExamComparisonScreen, ASubjectOfAStudentWithoutMarksInATickedExamIsRefused)
{
    OpenStudent();
    Press(allExams);
    ChooseDivisionB();
    EXPECT_EQ(Items(subjects), "");
    EXPECT_EQ(Items(students), " |Asha (A1)|Binu (A2)");
    Choose("cbostudent", QStringLiteral("Binu (A2)"));
    EXPECT_EQ(Items(subjects), ". Subject 2|. Subject 1");
    prompts.ExpectInformation(
        QStringLiteral("'Classwise Mark Entry' Is Not Made For The Subject - Subject 2"));
    Tick(subjects, 0);
    prompts.Verify();
    EXPECT_FALSE(subjects->IsTicked(0));
    Tick(exams, 1);
    EXPECT_FALSE(allExams->isChecked());
    EXPECT_EQ(Items(subjects), "  Subject 2|  Subject 1");
}

TEST_F(ExamComparisonScreen, AllSubjectsOfAStudentAreThoseWithMarksInEachExam)
{
    OpenStudent();
    Press(allExams);
    ChooseDivisionB();
    Choose("cbostudent", QStringLiteral("Asha (A1)"));
    Press(Option("Optsubjectdisplayyes"));
    Settle();
    EXPECT_EQ(Items(subjects), "  Subject 2|  Subject 1|. Subject 3");
    Press(allSubjects);
    EXPECT_EQ(subjects->TickedIndexes(), (QList<int>{0, 1}));
    Choose("cbostudent", QStringLiteral("Binu (A2)"));
    EXPECT_EQ(Items(subjects), ". Subject 2|. Subject 1|. Subject 3");
    Press(allSubjects);
    ExpectMissing("Select Subject(s)", "Lstsubjects");
}

TEST_F(ExamComparisonScreen, TheAveragesOfADivisionLeaveAbsenteesOut)
{
    OpenDivision();
    Tick(exams, 0);
    ChooseDivisionB();
    Press(Option("Optsubjectdisplayyes"));
    Settle();
    Press(allSubjects);
    Press(Button("cmdView"));
    EXPECT_EQ(Row(0), "Sl.No.|Student Name|Exam Name|Class|Div|2|Mat|1|Eng|3|Art");
    EXPECT_EQ(Row(1), "1||Term One|||2|70.75|1|30.00|3|30.00");
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_TRUE(Button("cmdExport")->hasFocus());
    EXPECT_TRUE(IsEnabled("cmdPrint"));
    EXPECT_TRUE(IsEnabled("Frame3"));
}

TEST_F(ExamComparisonScreen, ADivisionsAveragesHaveNoClosingRow)
{
    ShowDivision();
    ASSERT_EQ(grid->Rows(), 3);
    EXPECT_EQ(Row(1), "1||Term One|||2|70.75|1|30.00");
    EXPECT_EQ(Row(2), "2||Term Two|||2|90.00|1|80.00");
    for (const int hidden : {1, 3, 4, 5, 7})
        EXPECT_EQ(grid->ColWidth(hidden), 0) << hidden;
    ExpectWidth(0, 525);
    ExpectWidth(2, 3000);
    ExpectWidth(6, 600);
}

TEST_F(ExamComparisonScreen, ColumnsAreAtLeastAsWideAsTheFormGivesThem)
{
    Given("UPDATE SubjectMaster SET SubjectShortName = 'I' WHERE SubjectCode = 2");
    Given("UPDATE SubjectMaster SET SubjectShortName = 'Long66' WHERE SubjectCode = 1");
    ShowStudent();
    ExpectWidth(0, 525);
    ExpectWidth(2, 3000);
    ExpectWidth(6, 600);
    EXPECT_GE(grid->ColWidth(8), grid->fontMetrics().horizontalAdvance(QStringLiteral("Long66")));
}

TEST_F(ExamComparisonScreen, AStudentsMarksFollowTheOptionsOfTheSession)
{
    ShowStudent();
    ASSERT_EQ(grid->Rows(), 5);
    EXPECT_EQ(Row(0), "SlNo|Student Name|ExamName|Class|Div|2|Mat|1|Eng");
    EXPECT_EQ(Row(1), "1||Term One|||2|70|1|60");
    EXPECT_EQ(Row(2), "2||Term Two|||2|90|1|80");
    EXPECT_EQ(Row(3), "||Total Average||||80.25||70.00");
    Session().gblnFractionMarks = true;
    Press(Button("cmdView"));
    EXPECT_EQ(Row(1), "1||Term One|||2|70.50|1|60.00");
    Session().gblnRoundedMarks = true;
    Press(Button("cmdView"));
    EXPECT_EQ(Row(1), "1||Term One|||2|70|1|60");
}

TEST_F(ExamComparisonScreen, TheStoredMarkOfAnAbsentStudentCountsAsOneOfHis)
{
    Given("UPDATE MarkMaster SET Mark = 44 WHERE StudentCode = 2 AND SubjectCode = 3");
    OpenStudent();
    Tick(exams, 0);
    ChooseDivisionB();
    Choose("cbostudent", QStringLiteral("Binu (A2)"));
    Press(Option("Optsubjectdisplayyes"));
    Settle();
    Press(allSubjects);
    Press(Button("cmdView"));
    EXPECT_EQ(Row(1), "1||Term One|||2|71|1|0.00|3|44");
    EXPECT_EQ(Row(2), "||Total Average||||71.00||||44.00");
}

TEST_F(ExamComparisonScreen, EveryChangeOfTheSelectionTakesTheListAway)
{
    Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 9, 2, 0)");
    const std::vector<std::pair<const char*, std::function<void()>>> changes{
        {"a subject", [&] { Tick(subjects, 0); }},
        {"all subjects", [&] { Press(allSubjects); }},
        {"an exam", [&] { Tick(exams, 0); }},
        {"all exams", [&] { Press(allExams); }},
        {"the student", [&] { Choose("cbostudent", QStringLiteral("Binu (A2)")); }},
        {"the division", [&] { Choose("cboDivision", QStringLiteral("A")); }},
        {"the class", [&] { Choose("cboClass", QStringLiteral("IX")); }},
        {"the option", [&] { Press(Option("Optsubjectdisplayyes")); }},
    };
    for (const auto& [what, change] : changes) {
        SCOPED_TRACE(what);
        ShowStudent();
        change();
        Settle();
        ExpectNoList();
        Press(Button("cmdCancel"));
    }
}

TEST_F(ExamComparisonScreen, AMarkGoneMeanwhileLeavesItsCellBlank)
{
    OpenStudent();
    Press(allExams);
    ChooseDivisionB();
    Choose("cbostudent", QStringLiteral("Asha (A1)"));
    Press(allSubjects);
    Given("DELETE FROM MarkMaster WHERE StudentCode = 1 AND ExamCode = 2 AND AcademicYearCode = 1 AND "
          "ClassCode = 1 AND DivisionCode = 1");
    Press(Button("cmdView"));
    EXPECT_EQ(Row(1), "1||Term One|||2|70|1|60");
    EXPECT_EQ(Row(2), "2||Term Two||||||");
    EXPECT_EQ(Row(3), "||Total Average||||70.50||60.00");
}

TEST_F(ExamComparisonScreen, AnExamWhoseMarksAreGoneMeanwhileLeavesItsLineBlank)
{
    OpenDivision();
    Press(allExams);
    ChooseDivisionB();
    Press(allSubjects);
    Given("DELETE FROM MarkMaster WHERE ExamCode = 2 AND AcademicYearCode = 1 AND ClassCode = 1 AND "
          "DivisionCode = 1");
    Press(Button("cmdView"));
    EXPECT_EQ(Row(1), "1||Term One|||2|70.75|1|30.00");
    EXPECT_EQ(Row(2), "2||Term Two||||||");
}

TEST_F(ExamComparisonScreen, AMaximumMarkOfNothingChangesNoAverage)
{
    Given("UPDATE ClassSubjectTeacher SET MaximumMark = 0, MaximumAllowed = 0");
    ShowDivision();
    EXPECT_EQ(Row(1), "1||Term One|||2|70.75|1|30.00");
}

TEST_F(ExamComparisonScreen, SixtyExamsAndFortySubjectsWithLongNamesFit)
{
    for (int exam = 3; exam <= 60; ++exam)
        Given("INSERT INTO ExamMaster VALUES (?, ?, ?, 0)", exam, QString(50, QLatin1Char('e')), exam);
    Given("UPDATE StudentMaster SET StudentName = ? WHERE StudentCode = 1", QString(100, QLatin1Char('n')));
    for (int subject = 4; subject <= 40; ++subject)
        school->AddSubject(1, subject, "Long66", subject);
    for (int exam = 1; exam <= 60; ++exam)
        for (int subject = 1; subject <= 40; ++subject)
            Given("INSERT OR IGNORE INTO MarkMaster VALUES (1, 1, ?, 1, 1, ?, 50, 'P', 0, 0)", exam, subject);
    OpenStudent();
    Press(allExams);
    ChooseDivisionB();
    students->setFocus();
    QTest::keyClick(students, Qt::Key_End);
    Press(allSubjects);
    EXPECT_EQ(subjects->TickedIndexes().size(), 39) << "all but the one that is not taken for rank";
    Press(Button("cmdView"));
    EXPECT_EQ(grid->Rows(), 63);
    EXPECT_EQ(grid->Cols(), 5 + 2 * 39);
    Press(Button("cmdChart"));
    const std::string chart = ChartRows();
    EXPECT_EQ(std::count(chart.begin(), chart.end(), ';'), 59);
}

TEST_F(ExamComparisonScreen, SixtyExamsAndFortySubjectsOfADivisionFit)
{
    for (int exam = 3; exam <= 60; ++exam)
        cards->AddExam(exam, "Exam", exam);
    for (int subject = 4; subject <= 41; ++subject)
        school->AddSubject(1, subject, "Long66", subject);
    for (int exam = 1; exam <= 60; ++exam)
        for (int subject = 1; subject <= 41; ++subject)
            Given("INSERT OR IGNORE INTO MarkMaster VALUES (1, 1, ?, 1, 1, ?, 50, 'P', 0, 0)", exam, subject);
    OpenDivision();
    Press(allExams);
    ChooseDivisionB();
    Press(allSubjects);
    EXPECT_EQ(subjects->TickedIndexes().size(), 40);
    Press(Button("cmdView"));
    EXPECT_EQ(grid->Rows(), 61);
    EXPECT_EQ(grid->Cols(), 5 + 2 * 40);
    EXPECT_EQ(grid->Table().Text(60, grid->Cols() - 1), QStringLiteral("50.00"));
    Press(Button("cmdChart"));
    const std::string chart = ChartRows();
    EXPECT_EQ(std::count(chart.begin(), chart.end(), ';'), 59);
    Press(Button("cmdExport"));
    EXPECT_EQ(WorkbookReader(output->workbook).At(QStringLiteral("AP67")).value.toDouble(), 50.0);
}

TEST_F(ExamComparisonScreen, ALineIsOfferedForMoreThanOneExam)
{
    ShowStudent();
    EXPECT_TRUE(IsLineOffered());
    Press(Option("optLineGrph"));
    EXPECT_TRUE(Option("optLineGrph")->isChecked());
    Tick(exams, 0);
    EXPECT_FALSE(IsLineOffered());
    EXPECT_TRUE(Option("optBarGrph")->isChecked());
}

TEST_F(ExamComparisonScreen, TheChartOfAStudentLeavesTheAverageOut)
{
    Given("UPDATE MarkMaster SET Mark = 0 WHERE StudentCode = 1 AND ExamCode = 2 AND SubjectCode = 1");
    ShowStudent();
    Press(Button("cmdChart"));
    EXPECT_EQ(ChartRows(), "Term One|70|60;Term Two|90|0");
    EXPECT_NE(ScreenRegistry::OpenInstance(QStringLiteral("frmStudentExamAvgChart")), nullptr);
}

TEST_F(ExamComparisonScreen, TheChartOfADivisionHasALineForEachExam)
{
    ShowDivision();
    Press(Button("cmdChart"));
    EXPECT_EQ(ChartRows(), "Term One|70.75|30;Term Two|90|80");
}

TEST_F(ExamComparisonScreen, TheChartSaysWhoseMarksItShowsAndIsOfTheKindChosen)
{
    ShowStudent();
    Press(Button("cmdChart"));
    EXPECT_EQ(ChartWords(), "Marks For Asha (A1) Of X/B In Each Exam|EXAMS|MARKS");
    EXPECT_EQ(ShownChart()->kind, ChartKind::Bar);
    Press(Option("optLineGrph"));
    Press(Button("cmdChart"));
    EXPECT_EQ(ShownChart()->kind, ChartKind::Line);
    ShowDivision();
    Press(Button("cmdChart"));
    EXPECT_EQ(ChartWords(), "Subject Average Based On Exam(s) - X/B|EXAMS|MARKS");
}

TEST_F(ExamComparisonScreen, ShortNamesThatWouldBreakATableAreCharted)
{
    Given("UPDATE SubjectMaster SET SubjectShortName = 'select' WHERE SubjectCode = 1");
    Given("UPDATE SubjectMaster SET SubjectShortName = '1\" ,' WHERE SubjectCode = 2");
    ShowDivision();
    Press(Button("cmdChart"));
    EXPECT_EQ(ChartRows(), "Term One|70.75|30;Term Two|90|80");
    Given("UPDATE SubjectMaster SET SubjectShortName = '' WHERE SubjectCode IN (1, 2)");
    Press(Button("cmdView"));
    Press(Button("cmdChart"));
    EXPECT_EQ(ChartRows(), "Term One|70.75|30;Term Two|90|80");
}

TEST_F(ExamComparisonScreen, AChartThatCannotBeLaidDownIsToldAndNotShown)
{
    ShowStudent();
    BlockChart();
    prompts.ExpectCritical(QStringLiteral("use DROP VIEW to delete view TempChartReport"));
    Press(Button("cmdChart"));
    prompts.Verify();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmStudentExamAvgChart")), nullptr);
    EXPECT_TRUE(IsEnabled("cmdExport")) << "the list is as good as before";
}

TEST_F(ExamComparisonScreen, ADivisionsExportSaysWhatItIsOf)
{
    ShowDivision();
    Given("DELETE FROM MarkMaster WHERE AcademicYearCode = 1 AND ClassCode = 1 AND DivisionCode = 1 AND "
          "ExamCode < 10");
    Press(Button("cmdExport"));
    const WorkbookReader sheet(output->workbook);
    EXPECT_EQ(sheet.At(QStringLiteral("A5")).value, QStringLiteral("Subject Average Based On Exam(s)"));
    EXPECT_EQ(sheet.At(QStringLiteral("A6")).value, QStringLiteral("Class :X  Division :B"));
    EXPECT_EQ(sheet.At(QStringLiteral("B7")).value, QStringLiteral("Exam Name"));
    EXPECT_EQ(sheet.At(QStringLiteral("D8")).value.toDouble(), 30.0);
}

TEST_F(ExamComparisonScreen, AStudentsExportSaysWhatItIsOf)
{
    ShowStudent();
    // What has left the screen is what was seen, whatever happened to its rows since.
    Given("DELETE FROM MarkMaster WHERE StudentCode = 1 AND AcademicYearCode = 1 AND ClassCode = 1 AND "
          "DivisionCode = 1 AND ExamCode < 10");
    Press(Button("cmdExport"));
    const WorkbookReader sheet(output->workbook);
    EXPECT_EQ(sheet.At(QStringLiteral("A5")).value, QStringLiteral("Student Marks Based on Exam(s)"));
    EXPECT_EQ(sheet.At(QStringLiteral("A6")).value,
              QStringLiteral("Class :X Division : B Student Name :Asha (A1)"));
    EXPECT_EQ(sheet.At(QStringLiteral("B10")).value, QStringLiteral("Total Average"));
    EXPECT_EQ(sheet.At(QStringLiteral("C10")).value.toDouble(), 80.25);
}

TEST_F(ExamComparisonScreen, AStudentsMarksArePrintedAsAText)
{
    ShowStudent();
    Press(Button("cmdPrint"));
    EXPECT_TRUE(output->printed.empty());
    EXPECT_TRUE(output->textFile.endsWith(QLatin1String("StudentExamAvg.txt")))
        << output->textFile.toStdString();
    EXPECT_TRUE(output->text.contains(QLatin1String("Marks For Asha (A1) Of X/B In Each Exam")));
    EXPECT_TRUE(output->text.contains(QLatin1String("Total Average"))) << output->text.toStdString();
}

TEST_F(ExamComparisonScreen, ADivisionsAveragesArePrintedAsPages)
{
    ShowDivision();
    Press(Button("cmdPrint"));
    EXPECT_EQ(output->printed.size(), 1U);
    EXPECT_EQ(output->textFile, QString());
}

TEST_F(ExamComparisonScreen, WithoutTheRightExportSaysWhyAndPrintSaysNothing)
{
    GivenUser(7, QStringLiteral("clerk"), QStringLiteral("pass"));
    Session().gintPrivilegeUserCode = 7;
    ShowStudent();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
    Press(Button("cmdExport"));
    prompts.Verify();
    prompts.ExpectInformation(QString());
    Press(Button("cmdPrint"));
    prompts.Verify();
    EXPECT_EQ(output->workbook, QString());
    EXPECT_EQ(output->textFile, QString());
}

TEST_F(ExamComparisonScreen, CancelBringsTheScreenBackToItsStart)
{
    ShowStudent();
    Press(Option("Optsubjectdisplayyes"));
    Settle();
    Press(Option("optLineGrph"));
    Press(Button("cmdCancel"));
    Settle();
    ExpectNoList();
    EXPECT_EQ(Items(exams), "Term One|Term Two");
    EXPECT_TRUE(exams->TickedIndexes().isEmpty());
    EXPECT_FALSE(allExams->isChecked());
    EXPECT_FALSE(allSubjects->isChecked());
    EXPECT_FALSE(classes->isEnabled());
    EXPECT_TRUE(classes->IsBlank());
    EXPECT_EQ(Items(divisions), " ");
    EXPECT_EQ(Items(students), " ");
    EXPECT_EQ(subjects->count(), 0);
    EXPECT_TRUE(Option("Optsubjectdisplayno")->isChecked());
    EXPECT_TRUE(Option("optBarGrph")->isChecked());
    EXPECT_TRUE(exams->hasFocus());
}

TEST_F(ExamComparisonScreen, LeavingAsksByTheCaption)
{
    OpenStudent();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Student Marks Based on Exam(s) ?"), true);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmstudentexamavg")), nullptr);
}

TEST_F(ExamComparisonScreen, ASchoolWithoutExamsHasNothingToCompare)
{
    Given("DELETE FROM MarkMaster");
    Given("DELETE FROM ExamMaster");
    OpenDivision();
    EXPECT_EQ(exams->count(), 0);
    Press(allExams);
    EXPECT_FALSE(classes->isEnabled());
    ExpectMissing("Select Exam Name(s)", "Lstexamnames");
    OpenStudent();
    EXPECT_EQ(exams->count(), 0);
    ExpectMissing("Select Exam Name(s)", "Lstexamnames");
}

TEST_F(ExamComparisonScreen, AStudentOfADivisionWithoutSubjectsHasNothingToCompare)
{
    Given("DELETE FROM ClassSubjectTeacher WHERE DivisionCode = 1");
    OpenStudent();
    Press(allExams);
    ChooseDivisionB();
    Choose("cbostudent", QStringLiteral("Asha (A1)"));
    EXPECT_EQ(subjects->count(), 0);
    Press(allSubjects);
    ExpectMissing("Select Subject(s)", "Lstsubjects");
}

TEST_F(ExamComparisonScreen, AClassWithoutDivisionsAndADivisionWithoutSubjectsOfferNothing)
{
    Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 9, 2, 0)");
    Given("DELETE FROM ClassSubjectTeacher WHERE DivisionCode = 1");
    OpenDivision();
    Tick(exams, 0);
    Choose("cboClass", QStringLiteral("IX"));
    EXPECT_EQ(Items(divisions), " ");
    ExpectMissing("Select Division", "cboDivision");
    ChooseDivisionB();
    EXPECT_EQ(subjects->count(), 0);
    Press(allSubjects);
    ExpectMissing("Select Subject(s)", "Lstsubjects");
}

TEST_F(ExamComparisonScreen, ASubjectTakenOutOfTheRankMeanwhileHasNoColumn)
{
    OpenDivision();
    Press(allExams);
    ChooseDivisionB();
    Press(allSubjects);
    Given("UPDATE ClassSubjectTeacher SET TakenForRank = 'No' WHERE SubjectCode = 2 AND AcademicYearCode = 1 "
          "AND ClassCode = 1 AND DivisionCode = 1");
    Press(Button("cmdView"));
    EXPECT_EQ(Row(0), "Sl.No.|Student Name|Exam Name|Class|Div|1|Eng");
    EXPECT_EQ(Row(2), "2||Term Two|||1|80.00");
}

TEST_F(ExamComparisonScreen, ExamsAndClassesThatCannotBeReadAreToldInOneBoxAtOpeningAndAtCancel)
{
    LeaveOthersUnguarded();
    const auto hide = [this] {
        Given("ALTER TABLE ExamMaster RENAME TO Elsewhere");
        Given("ALTER TABLE ClassDivisionMaster RENAME TO Nowhere");
        prompts.ExpectCritical(NoSuchTable("ExamMaster"));
    };
    const auto giveBack = [this] {
        prompts.Verify();
        Given("ALTER TABLE Elsewhere RENAME TO ExamMaster");
        Given("ALTER TABLE Nowhere RENAME TO ClassDivisionMaster");
    };
    OpenStudent();
    Press(Button("cmdExit"));
    Settle();
    hide();
    OpenStudent();
    giveBack();
    EXPECT_EQ(exams->count(), 0);
    EXPECT_EQ(Items(classes), " ");
    EXPECT_FALSE(classes->isEnabled());
    Press(Button("cmdCancel"));
    EXPECT_EQ(Items(exams), "Term One|Term Two");
    EXPECT_EQ(Items(classes), " |X");
    ShowStudent();
    hide();
    Press(Button("cmdCancel"));
    giveBack();
    ExpectNoList();
    EXPECT_EQ(exams->count(), 0);
    EXPECT_TRUE(classes->IsBlank());
    EXPECT_EQ(Items(students), " ");
    EXPECT_EQ(subjects->count(), 0);
}

TEST_F(ExamComparisonScreen, StudentsThatCannotBeReadAreToldAndNoneIsOffered)
{
    OpenStudent();
    Tick(exams, 0);
    Choose("cboClass", QStringLiteral("X"));
    ExpectMissingTable("StudentMaster", [&] { Choose("cboDivision", QStringLiteral("A")); });
    EXPECT_EQ(Items(students), " ");
    Choose("cboDivision", QStringLiteral("B"));
    EXPECT_EQ(Items(students), " |Asha (A1)|Binu (A2)");
}

TEST_F(ExamComparisonScreen, SubjectsThatCannotBeReadAreToldAndNoneIsOffered)
{
    OpenStudent();
    Press(allExams);
    ChooseDivisionB();
    ExpectMissingTable("SubjectMaster", [&] { Choose("cbostudent", QStringLiteral("Asha (A1)")); });
    EXPECT_EQ(subjects->count(), 0);
    Tick(exams, 1);
    EXPECT_EQ(Items(subjects), "  Subject 2|  Subject 1");
}

TEST_F(ExamComparisonScreen, DivisionsThatCannotBeReadByEnterAreToldAndStay)
{
    OpenStudent();
    Tick(exams, 0);
    ChooseDivisionB();
    classes->setFocus();
    ExpectMissingTable("ClassDivisionDetails", [&] { QTest::keyClick(classes, Qt::Key_Return); });
    EXPECT_EQ(Items(divisions), " |A|B");
    EXPECT_EQ(divisions->currentText(), QStringLiteral("B"));
    EXPECT_EQ(Items(students), " |Asha (A1)|Binu (A2)");
    EXPECT_TRUE(divisions->hasFocus());
}

TEST_F(ExamComparisonScreen, WhatCannotBeReadIsToldAndShowsNothing)
{
    OpenDivision();
    Press(allExams);
    ChooseDivisionB();
    Press(allSubjects);
    LeaveOthersUnguarded();
    Given("ALTER TABLE MarkMaster RENAME TO Elsewhere");
    prompts.ExpectCritical(NoSuchTable("MarkMaster"));
    Press(Button("cmdView"));
    prompts.Verify();
    ExpectNoList();
}

} // namespace
} // namespace tally::test
