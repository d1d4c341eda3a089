#include "core/ui/ScreenRegistry.h"
#include "reports/DivisionReportScreen.h"
#include "reports/frmstudentslist.h"
#include "reports/output/WorkbookReader.h"
#include "support/StoreWords.h"
#include "support/TestPaper.h"

#include <QButtonGroup>
#include <QHeaderView>

namespace tally::test {
namespace {

const QString Detail = QStringLiteral("Detail ( With Student Name)");
const QString Summary = QStringLiteral("Summary ( No.Of Sudents)");

class StudentsListScreen : public DivisionReportScreen<frmstudentslist>
{
protected:
    void OpenBelow() { OpenReport("frmstudentslistbelow", "chkSelectAllDivision", "chkSelectAll"); }
    void OpenAbove() { OpenReport("frmstudentslistabove", "chkSelectAllDivision", "chkSelectAll"); }

    /// All divisions, all subjects taken for rank.
    void Proceed(const QString& type)
    {
        ChooseAll();
        Choose("cboReportType", type);
        Press(Button("cmdView"));
        ASSERT_TRUE(IsEnabled("cmdExport"));
    }

    void ProceedWithValue(const char* value, const QString& type = Detail)
    {
        ChooseAll();
        Press(Option("optGivenValue"));
        Retype("Txtgivenvalue", value);
        Choose("cboReportType", type);
        Press(Button("cmdView"));
    }

    std::string ListText() const { return GridText(grid->Table()); }
    std::string SummaryText() const { return GridText(Find<FlexGrid>(form, "msgSummary")->Table()); }
    bool IsShown(const char* panel) const { return Find<QWidget>(form, panel)->isVisibleTo(form); }

    const QString SetupsDiffer =
        QStringLiteral("Selected Division's 'Subjects Taken For Rank' Does Not Match With Already Selected "
                       "Division(s)");
};

TEST_F(StudentsListScreen, OpensWithTheClassAverageAndNothingChosen)
{
    GivenTwoDivisions();
    OpenBelow();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("List Of Students Below Class Average"));
    EXPECT_TRUE(exams->hasFocus());
    EXPECT_FALSE(classes->isEnabled());
    for (const char* option : {"Optsubjectdisplayno", "optClassAverage", "optAll"})
        EXPECT_TRUE(Option(option)->isChecked()) << option;
    EXPECT_FALSE(IsEnabled("Txtgivenvalue"));
    EXPECT_TRUE(List("cboReportType")->IsBlank());
    EXPECT_EQ(List("cboReportType")->count(), 2);
    EXPECT_TRUE(IsShown("Frame2"));
    EXPECT_FALSE(IsShown("Frame6"));
    ExpectNoList();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 27);
}

TEST_F(StudentsListScreen, EachOfTheTwoHasItsOwnWords)
{
    GivenTwoDivisions();
    OpenAbove();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("List Of Students Above Class Average"));
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 28);
    ChooseClass();
    prompts.ExpectInformation(QStringLiteral("Select Division(s)"));
    Display("Optsubjectdisplayyes");
    prompts.Verify();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(
        QStringLiteral("Do You Want To Exit Students Above Class Avg. / Given Value Report ?"), true);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmstudentslistabove")), nullptr);

    Session().gblnPromptOnExit = false;
    OpenBelow();
    ChooseClass();
    prompts.ExpectInformation(QStringLiteral(" Select Division(s)"));
    Display("Optsubjectdisplayyes");
    prompts.Verify();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit List Of Students Below Class Average ?"),
                           true);
    Press(Button("cmdExit"));
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmstudentslistbelow")), nullptr);
}

TEST_F(StudentsListScreen, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmstudentslistbelow"));
    ExpectToFit(QStringLiteral("frmstudentslistabove"));
}

TEST_F(StudentsListScreen, EachUnderlinedLetterLeadsToOneControl)
{
    OpenBelow();
    EXPECT_EQ(ExpectOneControlALetter(form),
              QStringList({QStringLiteral("Don't Display The Subject(s) Which Is Not Taken For Rank"),
                           QStringLiteral("Display All Subject(s)"), QStringLiteral("Select All"),
                           QStringLiteral("Select All"), QStringLiteral("Class Average"),
                           QStringLiteral("Given Value"), QStringLiteral("All Subject"),
                           QStringLiteral("Any One Subject")}));
}

TEST_F(StudentsListScreen, WhatIsMissingIsAskedForInItsOrder)
{
    GivenTwoDivisions();
    OpenBelow();
    ExpectMissing("Select Exam Name", "Cboexamname");
    Choose("Cboexamname", QStringLiteral("Term One"));
    ExpectMissing("Select Class", "cboClass");
    Choose("cboClass", QStringLiteral("X"));
    ExpectMissing("Select Division(s)", "Lstdivision");
    Tick(divisions, 0);
    ExpectMissing("Select Subject(s)", "Lstsubjects");
    Tick(subjects, 0);
    Press(Option("optGivenValue"));
    ExpectMissing("'Given Value' Should Be Greater Than 0(Zero)", "Txtgivenvalue");
    for (const char* value : {"0", "abc", "-5", "0.0"}) {
        SCOPED_TRACE(value);
        Retype("Txtgivenvalue", value);
        ExpectMissing("'Given Value' Should Be Greater Than 0(Zero)", "Txtgivenvalue");
    }
    Retype("Txtgivenvalue", "0.5");
    ExpectMissing("Select Report Type", "cboReportType");
    Option("Optsubjectdisplayno")->group()->setExclusive(false);
    Option("Optsubjectdisplayno")->setChecked(false);
    ExpectMissing("Select 'Subjects Taken For Rank' Option", "Optsubjectdisplayno");
}

TEST_F(StudentsListScreen, TheGivenValueIsOpenForItsOptionAndEmptiedByTheOther)
{
    OpenBelow();
    Press(Option("optGivenValue"));
    EXPECT_TRUE(IsEnabled("Txtgivenvalue"));
    Retype("Txtgivenvalue", "40");
    Press(Option("optClassAverage"));
    EXPECT_FALSE(IsEnabled("Txtgivenvalue"));
    EXPECT_EQ(TextOf("Txtgivenvalue"), "");
}

TEST_F(StudentsListScreen, DivisionsWithIncompleteMarksMayBeChosen)
{
    GivenDivision(1, "B");
    GivenDivision(2, "A");
    school->AddDivision(3, "C");
    GivenDivision(4, "D");
    GivenStudentWithMarks(1, "Binu", {10});
    GivenStudentWithMarks(2, "Asha", {20, 30});
    school->AddStudent(3, QStringLiteral("Cara"));
    OpenBelow();
    ChooseClass();
    EXPECT_EQ(Items(divisions), "  A|  B|$ C|. D");
    EXPECT_TRUE(allDivisions->isEnabled());
    prompts.ExpectInformation(
        QStringLiteral("Student Admission Entry Is Not Made For The Following Division(s) D"));
    prompts.ExpectInformation(
        QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Following Division(s) C"));
    prompts.ExpectInformation(QStringLiteral(
        "Subjects' Maximum Mark For C Division(s) Does Not Match With The Selected Division(s)"));
    Press(allDivisions);
    prompts.Verify();
    EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 1}));
    EXPECT_FALSE(allDivisions->isChecked());
    EXPECT_EQ(Items(subjects), "  Subject 1") << "Mat has a mark less than there are students";

    prompts.ExpectInformation(QStringLiteral("Student Admission Entry Is Not Made In This Class-Division"));
    Tick(divisions, 3);
    prompts.Verify();
    prompts.ExpectInformation(
        QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For This Division"));
    Tick(divisions, 2);
    prompts.Verify();
    EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 1}));
}

TEST_F(StudentsListScreen, ASubjectInWhichOneWhoIsGoneHasAMarkForAnotherIsOfferedWithoutAWord)
{
    GivenTwoDivisions();
    Given("INSERT INTO StudentMaster (StudentCode, AdmissionNo, OptionalAdmissionNo, StudentName, "
          "AcademicYearCode, CityCode, BloodGroupCode, TCNo) VALUES (50, 50, '50', 'Gone', 1, 0, 0, '')");
    Given("UPDATE MarkMaster SET StudentCode = 50 WHERE StudentCode = 3 AND SubjectCode = 2");
    OpenBelow();
    ChooseClass();
    Press(allDivisions);
    EXPECT_EQ(Items(subjects), "  Subject 1|  Subject 2");
    Press(allSubjects);
    EXPECT_EQ(subjects->TickedIndexes(), (QList<int>{0, 1}));
}

TEST_F(StudentsListScreen, ADivisionWithAnotherSetUpIsUntickedAlsoForWhatIsNotDisplayed)
{
    GivenTwoDivisions();
    GivenDivision(3, "C");
    Given("UPDATE ClassSubjectTeacher SET MaximumMark = 40 WHERE DivisionCode = 3 AND SubjectCode = 3");
    GivenStudentWithMarks(3, "Dev", {10, 20, 30});
    OpenBelow();
    ChooseClass();
    Tick(divisions, 0);
    prompts.ExpectInformation(SetupsDiffer);
    Tick(divisions, 2);
    prompts.Verify();
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{0});
    Tick(divisions, 1);
    EXPECT_EQ(divisions->TickedIndexes(), (QList<int>{0, 1}));
}

TEST_F(StudentsListScreen, BelowTheClassAverageStandWithTheirMarks)
{
    GivenTwoDivisions();
    OpenBelow();
    Proceed(Detail);
    EXPECT_EQ(ListText(), "|Student Name (Admission No)|Eng|Mat\n"
                          "|Binu(A2)|30|0\n"
                          "|Cara(A3)||50\n"
                          "|||\n"
                          "||45.17|65\n");
    EXPECT_TRUE(IsShown("Frame2"));
    EXPECT_FALSE(IsShown("Frame6"));
    EXPECT_TRUE(IsEnabled("cmdPrint"));
    EXPECT_TRUE(Button("cmdExport")->hasFocus());
}

TEST_F(StudentsListScreen, AboveTheClassAverageStandWithTheirMarks)
{
    GivenTwoDivisions();
    Session().gblnFractionMarks = true;
    OpenAbove();
    Proceed(Detail);
    EXPECT_EQ(ListText(), "|Student Name (Admission No)|Eng|Mat\n"
                          "|Asha(A1)|60.00|80.00\n"
                          "|Cara(A3)|45.50|\n"
                          "|||\n"
                          "||45.17|65\n");
}

TEST_F(StudentsListScreen, MarksAreShownByTheOptionsOfTheSession)
{
    GivenTwoDivisions();
    OpenAbove();
    const auto shown = [this](bool fraction, bool rounded) {
        Session().gblnFractionMarks = fraction;
        Session().gblnRoundedMarks = rounded;
        Press(Button("cmdView"));
        return grid->TextMatrix(2, 2).toStdString();
    };
    Proceed(Detail);
    EXPECT_EQ(shown(true, false), "45.50");
    EXPECT_EQ(shown(true, true), "46");
    EXPECT_EQ(shown(false, false), "46");
    EXPECT_EQ(shown(false, true), "46");
}

TEST_F(StudentsListScreen, TheSummaryCountsThemBySubject)
{
    GivenTwoDivisions();
    OpenBelow();
    Proceed(Summary);
    EXPECT_FALSE(IsShown("Frame2"));
    EXPECT_TRUE(IsShown("Frame6"));
    EXPECT_EQ(SummaryText(), "Subject|No.Of Students|\n"
                             "Eng|1|30\n"
                             "Mat|2|0\n");
    Choose("cboReportType", Detail);
    Press(Button("cmdView"));
    EXPECT_TRUE(IsShown("Frame2"));
    EXPECT_FALSE(IsShown("Frame6"));
}

TEST_F(StudentsListScreen, AStudentAbsentInAllStandsBelowWithZerosAndNotAbove)
{
    GivenTwoDivisions();
    Given("UPDATE MarkMaster SET Mark = 0, LeaveOrPresent = 'A' WHERE StudentCode = 1");
    OpenBelow();
    Proceed(Detail);
    EXPECT_EQ(Row(1), "|Asha(A1)|0|0");
    OpenAbove();
    Proceed(Detail);
    EXPECT_EQ(Row(1), "|Cara(A3)|46|");
}

TEST_F(StudentsListScreen, WithNobodyCountedTheAveragesStandAloneAndCanLeaveTheScreen)
{
    GivenTwoDivisions();
    OpenAbove();
    ProceedWithValue("1e9");
    EXPECT_EQ(ListText(), "|Student Name (Admission No)|Eng|Mat\n"
                          "|||\n"
                          "||1000000000|1000000000\n");
    EXPECT_TRUE(IsEnabled("cmdExport"));
    EXPECT_TRUE(IsEnabled("cmdPrint"));
}

TEST_F(StudentsListScreen, WithoutAnyStudentNothingCanLeaveTheScreen)
{
    GivenTwoDivisions();
    OpenBelow();
    ChooseAll();
    Choose("cboReportType", Detail);
    Given("DELETE FROM StudentClassDivision WHERE StudentCode < 10 AND AcademicYearCode = 1");
    Press(Button("cmdView"));
    EXPECT_EQ(grid->Rows(), 3);
    EXPECT_FALSE(IsEnabled("cmdExport"));
    EXPECT_FALSE(IsEnabled("cmdPrint"));
}

TEST_F(StudentsListScreen, AMarkGoneSinceIsInNeitherList)
{
    GivenTwoDivisions();
    OpenBelow();
    ChooseAll();
    Choose("cboReportType", Detail);
    Given("DELETE FROM MarkMaster WHERE StudentCode = 2 AND SubjectCode = 1 AND AcademicYearCode = 1 AND "
          "ExamCode = 1 AND ClassCode = 1 AND DivisionCode = 1");
    Press(Button("cmdView"));
    EXPECT_EQ(Row(1), "|Binu(A2)||0");
    EXPECT_EQ(Row(4), "||52.75|65");
}

TEST_F(StudentsListScreen, ASetUpGoneSinceLeavesZerosBelowAndNobodyAbove)
{
    GivenTwoDivisions();
    const auto view = [this] {
        ChooseAll();
        Choose("cboReportType", Detail);
        Given("CREATE TEMP TABLE Kept AS SELECT * FROM ClassSubjectTeacher WHERE ClassCode = 1 AND "
              "AcademicYearCode = 1 AND DivisionCode < 10");
        Given(
            "DELETE FROM ClassSubjectTeacher WHERE ClassCode = 1 AND AcademicYearCode = 1 AND DivisionCode < "
            "10");
        Press(Button("cmdView"));
        Given("INSERT INTO ClassSubjectTeacher SELECT * FROM Kept");
        Given("DROP TABLE Kept");
        return ListText();
    };
    OpenBelow();
    EXPECT_EQ(view(), "|Student Name (Admission No)|Eng|Mat\n"
                      "|Binu(A2)||0\n"
                      "|||\n"
                      "|||\n");
    OpenAbove();
    EXPECT_EQ(view(), "|Student Name (Admission No)|Eng|Mat\n"
                      "|||\n"
                      "|||\n");
}

TEST_F(StudentsListScreen, AYearGoneSinceLeavesNothingToTakeAway)
{
    GivenTwoDivisions();
    OpenBelow();
    ChooseAll();
    Choose("cboReportType", Detail);
    GivenNothingOfTheYear();
    Press(Button("cmdView"));
    EXPECT_EQ(ListText(), "|Student Name (Admission No)|Eng|Mat\n"
                          "|||\n"
                          "|||\n");
    EXPECT_FALSE(IsEnabled("cmdExport"));
    EXPECT_FALSE(IsEnabled("cmdPrint"));
}

TEST_F(StudentsListScreen, WithoutAnySubjectNothingCanLeaveTheScreen)
{
    GivenTwoDivisions();
    OpenBelow();
    ChooseAll();
    Choose("cboReportType", Detail);
    LeaveOthersUnguarded();
    for (const char* table : {"MarkMaster", "ClassSubjectTeacher", "SubjectMaster"})
        Session().gcnnMain->Execute(
            QStringLiteral("DELETE FROM %1 WHERE SubjectCode > 0").arg(QLatin1String(table)));
    Press(Button("cmdView"));
    EXPECT_EQ(ListText(), "|Student Name (Admission No)\n|\n|\n");
    EXPECT_FALSE(IsEnabled("cmdExport"));
    EXPECT_FALSE(IsEnabled("cmdPrint"));
}

TEST_F(StudentsListScreen, WhatWasSeenLeavesTheScreenWhateverHappenedSince)
{
    GivenTwoDivisions();
    OpenBelow();
    Proceed(Detail);
    GivenNothingOfTheYear();
    Press(Button("cmdExport"));
    EXPECT_EQ(WorkbookReader(output->workbook).At(QStringLiteral("A9")).value, QStringLiteral("Cara(A3)"));
    Press(Button("cmdPrint"));
    ASSERT_EQ(output->printed.size(), 1U);
    TestPaper paper(output->printed[0].orientation);
    output->printed[0].paint(paper);
    EXPECT_TRUE(paper.Holds(0, "|Cara(A3)|50")) << paper.Text(0);
}

TEST_F(StudentsListScreen, TheTextOfWhatWasSeenIsPrintedWhateverHappenedSince)
{
    GivenTwoDivisions();
    OpenAbove();
    Proceed(Detail);
    GivenNothingOfTheYear();
    Press(Button("cmdPrint"));
    EXPECT_TRUE(output->text.contains(QLatin1String("Cara"))) << output->text.toStdString();
}

TEST_F(StudentsListScreen, SixtyExamsAndFortySubjectsAreListedAndPrinted)
{
    GivenManyExamsAndSubjects();
    OpenAbove();
    EXPECT_EQ(exams->count(), ManyExams + 1);
    Choose("Cboexamname", QStringLiteral("Test 60"));
    EXPECT_TRUE(classes->isEnabled());
    Proceed(Detail);
    EXPECT_EQ(grid->Cols(), 2 + ManySubjects);
    EXPECT_EQ(grid->Rows(), 5);
    EXPECT_EQ(grid->TextMatrix(2, 1), QStringLiteral("Cara(A3)"));
    EXPECT_EQ(grid->TextMatrix(2, 41), QStringLiteral("90"));
    EXPECT_EQ(grid->TextMatrix(4, 41), QStringLiteral("63.33"));
    Press(Button("cmdPrint"));
    const QStringList lines = output->text.split(u'\n');
    EXPECT_EQ(lines.filter(QStringLiteral("Cara")),
              QStringList(QStringLiteral("|      Cara     |  A3 |") +
                          QStringLiteral("  90 |").repeated(ManySubjects)));
    EXPECT_TRUE(lines.contains(QString(23 + 6 * ManySubjects, u'-')));
    Press(Button("cmdExport"));
    EXPECT_EQ(WorkbookReader(output->workbook).At(QStringLiteral("AO9")).value, QStringLiteral("90"));
}

TEST_F(StudentsListScreen, TheLongestNamesKeepScreenPagesAndTextInShape)
{
    GivenTwoDivisions();
    GivenLongNames();
    window->setWindowState(Qt::WindowNoState);
    window->resize(800, 600);
    OpenAbove();
    const int widest = form->width();
    ChooseAllWithLongNames();
    Choose("cboReportType", Detail);
    Press(Button("cmdView"));
    EXPECT_LE(form->minimumSizeHint().width(), widest);
    EXPECT_EQ(grid->TextMatrix(2, 1), LongName('C', 100) + QStringLiteral("(A3)"));
    EXPECT_LT(grid->ColWidth(1), grid->viewport()->width() / 2) << "the marks are to be seen beside it";

    Press(Button("cmdPrint"));
    const QString line = output->text.split(u'\n').filter(QStringLiteral("|Cwww")).value(0);
    EXPECT_EQ(line.toStdString(), "|Cwwwwwwwwwwwwww|  A3 |  46 |     |");

    form->activateWindow();
    PressKey(form, Qt::Key_P, Qt::ControlModifier);
    ExpectPrintWithinItsPages();
}

TEST_F(StudentsListScreen, ThePlaceOfAClearedListKeepsItsBox)
{
    GivenTwoDivisions();
    OpenBelow();
    Proceed(Detail);
    EXPECT_GE(grid->rowHeight(0), 21);
    EXPECT_EQ(grid->ColWidth(0), 0);
    Tick(subjects, 0);
    ExpectNoList();
    EXPECT_GT(grid->ColWidth(0), 0);
}

TEST_F(StudentsListScreen, TheListsOfTheSelectionUseTheRoom)
{
    ExpectListsToUseTheRoom("frmstudentslistbelow");
}

TEST_F(StudentsListScreen, AMaximumMarkOfNothingGivesNoAverage)
{
    GivenTwoDivisions();
    Given("UPDATE ClassSubjectTeacher SET MaximumMark = 0 WHERE SubjectCode = 1");
    OpenBelow();
    Proceed(Detail);
    EXPECT_EQ(ListText(), "|Student Name (Admission No)|Eng|Mat\n"
                          "|Binu(A2)||0\n"
                          "|Cara(A3)||50\n"
                          "|||\n"
                          "|||65\n");
}

TEST_F(StudentsListScreen, AllOrAnyOneSubjectChangesNoList)
{
    GivenTwoDivisions();
    OpenBelow();
    Proceed(Detail);
    const std::string all = ListText();
    Press(Option("optAnyOne"));
    ExpectNoList();
    Press(Button("cmdView"));
    EXPECT_EQ(ListText(), all);
}

TEST_F(StudentsListScreen, EveryChangeOfTheSelectionTakesTheListsAway)
{
    GivenTwoDivisions();
    Given("INSERT INTO ExamMaster VALUES (2, 'Term Two', 2, 0)");
    Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 9, 2, 0)");
    const std::vector<std::pair<const char*, std::function<void()>>> changes{
        {"the exam", [&] { Choose("Cboexamname", QStringLiteral("Term Two")); }},
        {"the class", [&] { Choose("cboClass", QStringLiteral("IX")); }},
        {"a division", [&] { Tick(divisions, 0); }},
        {"a subject", [&] { Tick(subjects, 0); }},
        {"all subjects", [&] { Press(allSubjects); }},
        {"the option", [&] { Display("Optsubjectdisplayyes"); }},
        {"what is compared with", [&] { Press(Option("optGivenValue")); }},
        {"how many subjects", [&] { Press(Option("optAnyOne")); }},
        {"the report type", [&] { Choose("cboReportType", Detail); }},
    };
    for (const auto& [what, change] : changes) {
        SCOPED_TRACE(what);
        OpenBelow();
        Proceed(Summary);
        change();
        ExpectNoList();
        EXPECT_EQ(Find<FlexGrid>(form, "msgSummary")->Rows(), 2);
        EXPECT_EQ(Find<FlexGrid>(form, "msgSummary")->TextMatrix(1, 0), QString());
        Press(Button("cmdCancel"));
    }
    OpenBelow();
    ProceedWithValue("40");
    Retype("Txtgivenvalue", "41");
    ExpectNoList();
}

TEST_F(StudentsListScreen, TheListBelowIsExportedForBothTypes)
{
    GivenTwoDivisions();
    OpenBelow();
    for (const QString& type : {Detail, Summary}) {
        SCOPED_TRACE(type.toStdString());
        Proceed(type);
        Press(Button("cmdExport"));
        const WorkbookReader sheet(output->workbook);
        EXPECT_EQ(sheet.At(QStringLiteral("A5")).value,
                  QStringLiteral("List Of Students Below Class Average"));
        EXPECT_EQ(sheet.At(QStringLiteral("A6")).value,
                  QStringLiteral("Exam Name :Term One Class :X Division :A,B"));
        EXPECT_EQ(sheet.At(QStringLiteral("A7")).value, QStringLiteral("Student Name (Admission No)"));
        EXPECT_EQ(sheet.At(QStringLiteral("A8")).value, QStringLiteral("Binu(A2)"));
        EXPECT_EQ(sheet.At(QStringLiteral("B8")).value, QStringLiteral("30"));
        Press(Button("cmdCancel"));
    }
}

TEST_F(StudentsListScreen, TheTitleOfTheListBelowNamesTheGivenValue)
{
    GivenTwoDivisions();
    OpenBelow();
    ProceedWithValue("50.5");
    Press(Button("cmdExport"));
    EXPECT_EQ(WorkbookReader(output->workbook).At(QStringLiteral("A5")).value,
              QStringLiteral("List Of Students Average Below 50.5"));
}

TEST_F(StudentsListScreen, TheListAboveIsExportedAsItIsShown)
{
    GivenTwoDivisions();
    OpenAbove();
    ProceedWithValue("40", Summary);
    Press(Button("cmdExport"));
    const WorkbookReader summary(output->workbook);
    EXPECT_EQ(summary.At(QStringLiteral("A5")).value, QStringLiteral("List Of Students Above Class Average"));
    EXPECT_EQ(summary.At(QStringLiteral("A6")).value,
              QStringLiteral("Exam Name :Term One Class :X Division : A,B"));
    EXPECT_EQ(summary.At(QStringLiteral("A8")).value, QStringLiteral("Eng"));
    EXPECT_EQ(summary.At(QStringLiteral("B8")).value, QStringLiteral("2"));
    EXPECT_EQ(Find<FlexGrid>(form, "msgSummary")->TextMatrix(1, 2), QStringLiteral("60"));
    EXPECT_FALSE(summary.At(QStringLiteral("C8")).value.contains(QLatin1String("60"))) << "it is hidden";
    Choose("cboReportType", Detail);
    Press(Button("cmdView"));
    Press(Button("cmdExport"));
    EXPECT_EQ(WorkbookReader(output->workbook).At(QStringLiteral("A8")).value, QStringLiteral("Asha(A1)"));
}

TEST_F(StudentsListScreen, TheListAboveIsPrintedAsATextWithoutItsFirstStudent)
{
    GivenTwoDivisions();
    OpenAbove();
    Proceed(Detail);
    Press(Button("cmdPrint"));
    EXPECT_TRUE(output->printed.empty());
    EXPECT_TRUE(output->textFile.endsWith(QLatin1String("Details.txt"))) << output->textFile.toStdString();
    const QString& text = output->text;
    EXPECT_TRUE(text.contains(QLatin1String("Details of List of Students Above Class Average/Given value")));
    EXPECT_TRUE(text.contains(QLatin1String("Cara"))) << text.toStdString();
    EXPECT_FALSE(text.contains(QLatin1String("Asha"))) << text.toStdString();
}

TEST_F(StudentsListScreen, TheSummaryAboveIsPrintedAsAText)
{
    GivenTwoDivisions();
    OpenAbove();
    Proceed(Summary);
    Press(Button("cmdPrint"));
    EXPECT_TRUE(output->textFile.endsWith(QLatin1String("Summary.txt"))) << output->textFile.toStdString();
    EXPECT_TRUE(
        output->text.contains(QLatin1String("Summary of List of Students Above Class Average/Given value")));
}

TEST_F(StudentsListScreen, TheListBelowIsPrintedAsPages)
{
    GivenTwoDivisions();
    OpenBelow();
    Proceed(Detail);
    Press(Button("cmdPrint"));
    EXPECT_FALSE(output->printed.empty());
    EXPECT_TRUE(output->textFile.isEmpty());
}

TEST_F(StudentsListScreen, WithoutTheRightExportSaysWhyAndPrintSaysNothing)
{
    GivenTwoDivisions();
    GivenUser(7, QStringLiteral("clerk"), QStringLiteral("pass"));
    Session().gintPrivilegeUserCode = 7;
    for (const bool below : {true, false}) {
        below ? OpenBelow() : OpenAbove();
        Proceed(Detail);
        prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
        Press(Button("cmdExport"));
        prompts.Verify();
        prompts.ExpectInformation(QString());
        Press(Button("cmdPrint"));
        prompts.Verify();
        Press(Button("cmdExit"));
        Settle();
    }
    EXPECT_TRUE(output->workbook.isEmpty());
    EXPECT_TRUE(output->textFile.isEmpty());
    EXPECT_TRUE(output->printed.empty());
}

TEST_F(StudentsListScreen, CancelBringsTheScreenBackToItsStart)
{
    GivenTwoDivisions();
    OpenBelow();
    ProceedWithValue("50", Summary);
    Display("Optsubjectdisplayyes");
    Press(Option("optAnyOne"));
    Press(Button("cmdCancel"));
    Settle();
    ExpectNoList();
    EXPECT_TRUE(exams->IsBlank());
    EXPECT_TRUE(classes->IsBlank());
    EXPECT_FALSE(classes->isEnabled());
    EXPECT_EQ(divisions->count(), 0);
    EXPECT_EQ(subjects->count(), 0);
    EXPECT_FALSE(allDivisions->isChecked());
    EXPECT_FALSE(allSubjects->isChecked());
    for (const char* option : {"Optsubjectdisplayno", "optClassAverage", "optAll"})
        EXPECT_TRUE(Option(option)->isChecked()) << option;
    EXPECT_EQ(TextOf("Txtgivenvalue"), "");
    EXPECT_FALSE(IsEnabled("Txtgivenvalue"));
    EXPECT_TRUE(List("cboReportType")->IsBlank());
    EXPECT_EQ(List("cboReportType")->count(), 2);
    EXPECT_TRUE(IsShown("Frame2"));
    EXPECT_FALSE(IsShown("Frame6"));
    EXPECT_TRUE(exams->hasFocus());
}

TEST_F(StudentsListScreen, TheHeadOfTheListBelowIsTheHigherOne)
{
    OpenBelow();
    EXPECT_GE(grid->horizontalHeader()->minimumHeight(), 26);
    OpenAbove();
    EXPECT_EQ(grid->horizontalHeader()->minimumHeight(), 21);
}

TEST_F(StudentsListScreen, TheWorkTableIsGoneWithTheView)
{
    GivenTwoDivisions();
    OpenBelow();
    Proceed(Detail);
    EXPECT_EQ(Count("SELECT count(*) FROM sqlite_master WHERE name = 'TempClassAverage'"), 0);
    EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
}

TEST_F(StudentsListScreen, WhileAnotherClientSavesNothingIsShownAndTheNextTryDoes)
{
    GivenTwoDivisions();
    OpenBelow();
    ChooseAll();
    Choose("cboReportType", Detail);
    const auto other = AnotherClient();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(0));
    {
        const store::Transaction saving(*other);
        prompts.ExpectCritical(HeldByAnotherClient);
        Press(Button("cmdView"));
        prompts.Verify();
        ExpectNoList();
    }
    Press(Button("cmdView"));
    EXPECT_EQ(grid->Rows(), 5);
}

TEST_F(StudentsListScreen, WhatCannotBeReadIsToldAndShowsNothing)
{
    GivenTwoDivisions();
    OpenBelow();
    ChooseAll();
    Choose("cboReportType", Detail);
    LeaveOthersUnguarded();
    for (const char* table : {"SubjectMaster", "ClassSubjectTeacher", "MarkMaster", "StudentMaster"}) {
        SCOPED_TRACE(table);
        Session().gcnnMain->Execute(
            QStringLiteral("ALTER TABLE %1 RENAME TO Lost").arg(QLatin1String(table)));
        prompts.ExpectCritical(NoSuchTable(table));
        Press(Button("cmdView"));
        prompts.Verify();
        ExpectNoList();
        Session().gcnnMain->Execute(
            QStringLiteral("ALTER TABLE Lost RENAME TO %1").arg(QLatin1String(table)));
    }
    Press(Button("cmdView"));
    EXPECT_EQ(grid->Rows(), 5);
}

} // namespace
} // namespace tally::test
