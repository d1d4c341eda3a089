#include "ranks/GridEdge.h"
#include "ranks/RankScreen.h"
#include "reports/output/PrintPreview.h"
#include "reports/output/WorkbookReader.h"
#include "support/TestPaper.h"

#include <QClipboard>
#include <QFileInfo>
#include <QLabel>
#include <QScrollBar>

namespace tally::test {
namespace {

class RankListOutput : public RankScreen
{};

TEST_F(RankListOutput, ProceedingFreezesTheSelectionAndShowsTheListByRank)
{
    GivenFiveStudents();
    OpenAndProceed();
    for (const char* name : {"cmdSave", "cmdExport", "cmdPrintSetup", "cmdTotalDetails"})
        EXPECT_TRUE(Button(name)->isEnabled()) << name;
    EXPECT_EQ(ShownNames(),
              (QStringList{QStringLiteral("Asha"), QStringLiteral("Binu"), QStringLiteral("Cara"),
                           QStringLiteral("Esa"), QStringLiteral("Dev")}));
    EXPECT_EQ(Cell(QStringLiteral("Asha"), QStringLiteral("Rank")), QStringLiteral("1"));
    EXPECT_EQ(Cell(QStringLiteral("Binu"), QStringLiteral("Rank")), QStringLiteral("1"));
    EXPECT_EQ(Cell(QStringLiteral("Cara"), QStringLiteral("Rank")), QStringLiteral("2"));
    EXPECT_EQ(Cell(QStringLiteral("Cara"), QStringLiteral("Average")), QStringLiteral("55.00"));
}

TEST_F(RankListOutput, AfterProceedingTheKeyboardIsAtTheListAndALetterReachesEachButton)
{
    GivenFiveStudents();
    OpenAndProceed();
    QWidget* focused = QApplication::focusWidget();
    ASSERT_NE(focused, nullptr);
    EXPECT_TRUE(form->isAncestorOf(focused) && focused->isEnabled()) << focused->objectName().toStdString();
    EXPECT_FALSE(Find<QGroupBox>(form, "Frame2")->isAncestorOf(focused));
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    QTest::keyClick(focused, Qt::Key_S, Qt::AltModifier);
}

TEST_F(RankListOutput, AFailedMarkIsPaintedAndUnrankedButGradedAndAnAbsenceHasNeitherRankNorGrade)
{
    GivenFiveStudents();
    OpenAndProceed();
    const int dev = GridRowOf(QStringLiteral("Dev"));
    const int esa = GridRowOf(QStringLiteral("Esa"));
    EXPECT_EQ(grid->TextMatrix(dev, 5), QStringLiteral("20"));
    EXPECT_EQ(grid->Mark(dev, 5), CellMark::FailedOrAbsent);
    EXPECT_EQ(grid->Mark(dev, 6), CellMark::None);
    EXPECT_EQ(Cell(QStringLiteral("Dev"), QStringLiteral("Rank")), QString());
    EXPECT_EQ(Cell(QStringLiteral("Dev"), QStringLiteral("Grade")), QStringLiteral("C"));
    EXPECT_EQ(grid->TextMatrix(esa, 6), QStringLiteral("A"));
    EXPECT_EQ(grid->Mark(esa, 6), CellMark::FailedOrAbsent);
    EXPECT_EQ(Cell(QStringLiteral("Esa"), QStringLiteral("Rank")), QString());
    EXPECT_EQ(Cell(QStringLiteral("Esa"), QStringLiteral("Grade")), QString());
}

TEST_F(RankListOutput, SkippingRanksMakesTheRankAfterTwoFirstOnesTheThird)
{
    GivenFiveStudents();
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    Press(Find<QCheckBox>(form, "chkRankSkipping"));
    Press(Button("cmdUpdate"));
    EXPECT_EQ(Cell(QStringLiteral("Cara"), QStringLiteral("Rank")), QStringLiteral("3"));
}

TEST_F(RankListOutput, TheFourOrdersShowTheSameListAnew)
{
    GivenFiveStudents();
    OpenAndProceed();
    Press(Option("optAlphabeticalOrder"));
    EXPECT_EQ(ShownNames(),
              (QStringList{QStringLiteral("Asha"), QStringLiteral("Binu"), QStringLiteral("Cara"),
                           QStringLiteral("Dev"), QStringLiteral("Esa")}));
    Press(Option("optGradeOrder"));
    EXPECT_EQ(ShownNames(), (QStringList{QStringLiteral("Asha"), QStringLiteral("Binu"),
                                         QStringLiteral("Cara"), QStringLiteral("Dev")}))
        << "the absent student is left out";
    EXPECT_EQ(Cell(QStringLiteral("Cara"), QStringLiteral("Average")), QStringLiteral("55"));
    Press(Option("optAdmissionNoOrder"));
    EXPECT_EQ(ShownNames().size(), 5);
    EXPECT_EQ(Cell(QStringLiteral("Cara"), QStringLiteral("Average")), QStringLiteral("55.00"));
}

TEST_F(RankListOutput, AnotherOrderStartsAtItsTopInTheSameColumns)
{
    GivenALongAndWideList();
    OpenAndProceed();
    grid->SetCurrentCell(40, 9);
    QScrollBar* across = grid->horizontalScrollBar();
    across->setValue(across->maximum() - 5);
    ASSERT_GT(across->value(), 0);
    ASSERT_GT(grid->verticalScrollBar()->value(), 0);
    const int place = across->value();
    Press(Option("optAlphabeticalOrder"));
    Settle();
    EXPECT_EQ(grid->verticalScrollBar()->value(), 0);
    EXPECT_EQ(across->value(), place);
    EXPECT_EQ(grid->CurrentRow(), RankListRows::FirstStudent);
    EXPECT_EQ(grid->CurrentCol(), 9);
}

TEST_F(RankListOutput, TheNamesStayInSightBesideTheRanks)
{
    GivenALongAndWideList();
    OpenAndProceed();
    const int two = grid->ColWidth(0) + grid->ColWidth(1);
    const QImage names = LeftEdge(grid, grid->ColWidth(0));
    const QImage namesAndNumbers = LeftEdge(grid, two);
    grid->horizontalScrollBar()->setValue(grid->horizontalScrollBar()->maximum());
    EXPECT_TRUE(LeftEdge(grid, grid->ColWidth(0)) == names);
    EXPECT_FALSE(LeftEdge(grid, two) == namesAndNumbers) << "nothing else stays";
    EXPECT_LT(grid->CellRect(RankListRows::FirstStudent, grid->Cols() - 1).right(),
              grid->viewport()->width());
}

TEST_F(RankListOutput, TheWholeListCanBeCopiedIntoASpreadsheetAsItIsSeen)
{
    GivenFiveStudents();
    OpenAndProceed();
    QTest::keyClick(grid, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), grid->Rows() - 2) << "neither the head nor the hidden codes of the subjects";
    EXPECT_EQ(lines.front().toStdString(), "Asha\tA1\tX\tA\t90\t80\t170\t85.00\t1\tA");
}

TEST_F(RankListOutput, ProceedingShowsTheRankOrderWhateverOrderWasPickedBefore)
{
    GivenFiveStudents();
    OpenForm();
    Press(Option("optAlphabeticalOrder"));
    ChooseExamAndClass();
    Press(selectAll);
    Press(Button("cmdUpdate"));
    EXPECT_TRUE(Option("optRankOrder")->isChecked());
    EXPECT_EQ(ShownNames().last(), QStringLiteral("Dev"));
}

TEST_F(RankListOutput, ARelievedStudentStaysInTheList)
{
    GivenFiveStudents();
    Given("UPDATE StudentMaster SET TCNo = '17' WHERE StudentName = 'Cara'");
    OpenAndProceed();
    EXPECT_EQ(Cell(QStringLiteral("Cara"), QStringLiteral("Rank")), QStringLiteral("2"));
}

TEST_F(RankListOutput, FractionMarksThatAreRoundedAreRankedByTheirRoundedTotals)
{
    school->AddUsualDivision(3);
    school->AddMarkedStudent(QStringLiteral("Asha"), {85.4, 83, 83});
    school->AddMarkedStudent(QStringLiteral("Binu"), {84.6, 83, 83});
    Session().gblnFractionMarks = true;
    const auto ranks = [&] {
        OpenAndProceed();
        QStringList shown{Cell(QStringLiteral("Asha"), QStringLiteral("Rank")),
                          Cell(QStringLiteral("Binu"), QStringLiteral("Rank"))};
        Press(Button("cmdExit"));
        Settle();
        return shown;
    };
    EXPECT_EQ(ranks(), (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
    Session().gblnRoundedMarks = true;
    EXPECT_EQ(ranks(), (QStringList{QStringLiteral("1"), QStringLiteral("1")}));
}

TEST_F(RankListOutput, ProceedingAndViewingShowAnHourglassWhileTheyWork)
{
    GivenFiveStudents();
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    Qt::CursorShape working = Qt::ArrowCursor;
    QObject::connect(grid->model(), &QAbstractItemModel::modelReset, form, [&] {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        working = cursor != nullptr ? cursor->shape() : Qt::ArrowCursor;
    });
    for (const char* name : {"cmdUpdate", "cmdView"}) {
        working = Qt::ArrowCursor;
        Press(Button(name));
        EXPECT_EQ(working, Qt::WaitCursor) << name;
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr) << name;
    }
    QObject::disconnect(grid->model(), nullptr, form, nullptr);
}

TEST_F(RankListOutput, TheAverageRowLeavesOutAbsencesAndZeros)
{
    GivenFiveStudents();
    OpenAndProceed();
    const int average = GridRowOf(QStringLiteral("Average"));
    ASSERT_GT(average, 0);
    EXPECT_EQ(grid->TextMatrix(average, 5), QStringLiteral("59.00"));
    EXPECT_EQ(grid->TextMatrix(average, 6), QStringLiteral("75.00"));
    EXPECT_EQ(grid->Rows(), average + 2);
}

TEST_F(RankListOutput, ASubjectNotTakenForRankIsHiddenOrShownPaintedAsChosen)
{
    school->AddUsualDivision(1);
    school->AddSubject(1, 2, "Mor", 2, "No");
    school->AddMarkedStudent(QStringLiteral("Asha"), {60, 40});
    OpenAndProceed();
    EXPECT_EQ(grid->ColWidth(6), 0);
    EXPECT_EQ(Cell(QStringLiteral("Asha"), QStringLiteral("Total")), QStringLiteral("60"));

    Press(Button("cmdCancel"));
    ChooseExamAndClass();
    Press(selectAll);
    DisplayAllSubjects();
    Press(Button("cmdUpdate"));
    EXPECT_GT(grid->ColWidth(6), 0);
    EXPECT_EQ(grid->Mark(GridRowOf(QStringLiteral("Asha")), 6), CellMark::NotTakenForRank);
    EXPECT_EQ(Cell(QStringLiteral("Asha"), QStringLiteral("Total")), QStringLiteral("100"));
}

TEST_F(RankListOutput, ColoursHaveALegendAndShowInTheLettersToo)
{
    GivenFiveStudents();
    OpenAndProceed();
    EXPECT_TRUE(Find<QLabel>(form, "lblFailed")->isVisible());
    EXPECT_TRUE(Find<QLabel>(form, "lblNotTaken")->isVisible());
    const QModelIndex failed = grid->model()->index(GridRowOf(QStringLiteral("Dev")) - 1, 5);
    EXPECT_TRUE(failed.data(Qt::FontRole).value<QFont>().bold());
    EXPECT_EQ(failed.data(Qt::BackgroundRole).value<QColor>(), QColor(255, 216, 176));
}

TEST_F(RankListOutput, SavingWritesOneRowAStudentOnceHoweverOftenItIsDone)
{
    GivenFiveStudents();
    for (int time = 0; time < 2; ++time) {
        OpenAndProceed();
        prompts.ExpectInformation(QStringLiteral("Record Saved"));
        Press(Button("cmdSave"));
        EXPECT_FALSE(Button("cmdSave")->isEnabled());
        Press(Button("cmdCancel"));
    }
    EXPECT_EQ(SavedTotals(), 5);
    EXPECT_EQ(SavedTotals("Rank = 999999999"), 2);
}

TEST_F(RankListOutput, ALockedDatabaseRefusesTheSaveInPlainWordsAndTheSaveCanBeRepeated)
{
    GivenFiveStudents();
    OpenAndProceed();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    const auto other = AnotherClient();
    other->Begin();
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
    other->Rollback();
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    Press(Button("cmdSave"));
    EXPECT_EQ(SavedTotals(), 5);
}

TEST_F(RankListOutput, AFullDiskDuringTheSaveKeepsTheOldRowsAndTheScreen)
{
    school->AddUsualDivision(2);
    for (int student = 0; student < 300; ++student)
        school->AddMarkedStudent(QStringLiteral("Student %1").arg(student), {60, 40});
    Given("INSERT INTO TempRankTotal VALUES (1, 1, 1, 1, 1, 7, 7, 7, 'Z')");
    OpenAndProceed();
    const auto pages = Count("PRAGMA page_count");
    Given(QStringLiteral("PRAGMA max_page_count = %1").arg(pages).toLatin1().constData());
    prompts.ExpectCritical(DiskIsFull);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(SavedTotals("Grade = 'Z'"), 1);
    EXPECT_EQ(SavedTotals(), 1);
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
}

TEST_F(RankListOutput, AWorkingTableLeftByAKilledRunIsReplaced)
{
    GivenFiveStudents();
    Session().gcnnTemp->Execute(QStringLiteral("CREATE TABLE TempRankCalculation (Something)"));
    OpenAndProceed();
    EXPECT_EQ(ShownNames().size(), 5);
}

TEST_F(RankListOutput, NamesWithSignsAndOtherLettersAreListedSavedAndFound)
{
    school->AddUsualDivision(1);
    const QStringList names{QStringLiteral("O'Neil"), QStringLiteral("100% [Best]_"),
                            QString::fromUtf8("Zo\xC3\xAB \xE0\xAE\x85")};
    for (const QString& name : names)
        school->AddMarkedStudent(name, {60});
    OpenAndProceed();
    for (const QString& name : names)
        EXPECT_GT(GridRowOf(name), 0) << name.toStdString();
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    Press(Button("cmdSave"));
}

TEST_F(RankListOutput, ExportIsRefusedWithoutTheRight)
{
    GivenFiveStudents();
    GivenUser(7, QStringLiteral("clerk"), QStringLiteral("pass"));
    Session().gintPrivilegeUserCode = 7;
    OpenAndProceed();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
    Press(Button("cmdExport"));
}

TEST_F(RankListOutput, PrintShowsThePagesOfTheListAsItStands)
{
    GivenFiveStudents();
    OpenAndProceed();
    Press(Option("optAlphabeticalOrder"));
    std::vector<PrintJob> shown;
    UsePrintPreview([&shown](const PrintJob& job) { shown.push_back(job); });
    Press(Button("cmdPrintSetup"));
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].title.toStdString(), "Rank List");
    TestPaper paper(shown[0].orientation);
    shown[0].paint(paper);
    EXPECT_TRUE(paper.Holds(0, "Exam Name :Term One  Class :X Division :  A")) << paper.Text(0);
    EXPECT_TRUE(paper.Holds(0, "|Asha|A1|X|A|90|80|170|85.00|1|")) << paper.Text(0);
    EXPECT_LT(paper.Text(0).find("|Dev|"), paper.Text(0).find("|Esa|"));
}

TEST_F(RankListOutput, PrintIsRefusedWithoutTheRightToExport)
{
    GivenFiveStudents();
    GivenUser(7, QStringLiteral("clerk"), QStringLiteral("pass"));
    Session().gintPrivilegeUserCode = 7;
    OpenAndProceed();
    UsePrintPreview([](const PrintJob&) { ADD_FAILURE(); });
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
    Press(Button("cmdPrintSetup"));
}

TEST_F(RankListOutput, ExportHandsTheWorkbookToTheSpreadsheetProgram)
{
    GivenFiveStudents();
    OpenAndProceed();
    SetExportFolder(Folder() + QStringLiteral("/exports"));
    QString opened;
    UseSpreadsheetProgram({true, [&](const QString& path) {
                               opened = path;
                               return true;
                           }});
    Press(Button("cmdExport"));
    EXPECT_TRUE(QFileInfo::exists(opened)) << opened.toStdString();
    EXPECT_TRUE(opened.contains(QStringLiteral("Rank List")));
}

TEST_F(RankListOutput, TheWorkbookIsHeadedByExamClassAndTheTickedDivisions)
{
    Given("UPDATE ExamMaster SET ExamName = ' Term One '");
    Given("UPDATE ClassDivisionMaster SET ClassName = ' X ' WHERE ClassCode = 1");
    GivenFiveStudents();
    school->AddDivision(2, "B");
    school->AddDivision(3, "C");
    for (int subject = 1; subject <= 2; ++subject)
        for (const int division : {2, 3})
            school->AddSubject(division, subject, "Same", subject);
    for (const int division : {2, 3}) {
        school->AddUsualBands(division);
        const int student = school->AddStudent(division, QStringLiteral("Farid"));
        school->EnterMark(student, 1, 60);
        school->EnterMark(student, 2, 60);
    }
    OpenForm();
    ChooseExamAndClass();
    Tick(0);
    Tick(2);
    Press(Button("cmdUpdate"));
    SetExportFolder(Folder() + QStringLiteral("/exports"));
    QString opened;
    UseSpreadsheetProgram({true, [&](const QString& path) {
                               opened = path;
                               return true;
                           }});
    Press(Button("cmdExport"));
    const WorkbookReader sheet(opened);
    EXPECT_EQ(sheet.At("A6").value, QStringLiteral("Exam Name :Term One  Class :X Division :  A,  C"));
}

TEST_F(RankListOutput, ExportWithoutASpreadsheetProgramSaysSoAndThePointerIsNormal)
{
    GivenFiveStudents();
    OpenAndProceed();
    UseSpreadsheetProgram({false, {}});
    prompts.ExpectInformation(
        QStringLiteral("If You Want To Use Export Option, Microsoft Excel Is Needed To Be "
                       "Installed In Your System"));
    Press(Button("cmdExport"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(RankListOutput, ProceedingRunsAsManyStatementsForManyStudentsAsForFew)
{
    school->AddUsualDivision(2);
    const auto statements = [&] {
        OpenForm();
        ChooseExamAndClass();
        Press(selectAll);
        const auto before = Session().gcnnMain->StatementsRun();
        Press(Button("cmdUpdate"));
        const auto run = Session().gcnnMain->StatementsRun() - before;
        Press(Button("cmdExit"));
        Settle();
        return run;
    };
    for (int student = 0; student < 5; ++student)
        school->AddMarkedStudent(QStringLiteral("Few %1").arg(student), {60, 40});
    const auto few = statements();
    for (int student = 0; student < 200; ++student)
        school->AddMarkedStudent(QStringLiteral("Many %1").arg(student), {60, 40});
    EXPECT_EQ(statements(), few);
    EXPECT_LE(few, 20U);
}

} // namespace
} // namespace tally::test
