#include "ranks/frmRankCalculation.h"

#include "core/controls/CheckList.h"
#include "core/controls/FlexGrid.h"
#include "core/mdiTallyboard.h"
#include "core/OpenDocument.h"
#include "core/ScreenRegistry.h"
#include "ranks/RankSchool.h"
#include "support/ScreenFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QMdiArea>
#include <QPushButton>
#include <QRadioButton>

namespace tally::test {
namespace {

class RankScreen : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        school = std::make_unique<RankSchool>(*Session().gcnnMain, *Session().gcnnTemp);
        Session().gintAcademicYearCode = 1;
    }

    void TearDown() override
    {
        UseRealSpreadsheetProgram();
        SetExportFolder({});
        school.reset();
        ScreenFixture::TearDown();
    }

    void OpenForm()
    {
        form = Open<frmRankCalculation>("frmRankCalculation");
        ASSERT_NE(form, nullptr);
        exam = Find<QComboBox>(form, "Cboexamname");
        classes = Find<QComboBox>(form, "cboClass");
        divisions = Find<CheckList>(form, "Lstdivision");
        selectAll = Find<QCheckBox>(form, "chkSelectAll");
        grid = Find<FlexGrid>(form, "msgDisplayDetails");
    }

    QPushButton* Button(const char* name) { return Find<QPushButton>(form, name); }
    QRadioButton* Option(const char* name) { return Find<QRadioButton>(form, name); }

    /// Chooses the exam and the class with the arrow keys.
    void ChooseExamAndClass()
    {
        exam->setFocus();
        QTest::keyClick(exam, Qt::Key_Down);
        QTest::keyClick(exam, Qt::Key_Return);
        QTest::keyClick(classes, Qt::Key_Down);
    }

    /// Toggles a division with the blank key.
    void Tick(int index)
    {
        divisions->setFocus();
        divisions->setCurrentRow(index);
        QTest::keyClick(divisions, Qt::Key_Space);
    }

    void OpenAndProceed()
    {
        OpenForm();
        ChooseExamAndClass();
        Press(selectAll);
        Press(Button("cmdUpdate"));
        ASSERT_FALSE(Find<QGroupBox>(form, "Frame2")->isEnabled());
    }

    int GridRowOf(const QString& name) const
    {
        for (int row = 0; row < grid->Rows(); ++row)
            if (grid->TextMatrix(row, 0) == name)
                return row;
        return -1;
    }

    QString Cell(const QString& name, const QString& head) const
    {
        for (int col = 0; col < grid->Cols(); ++col)
            if (grid->TextMatrix(0, col) == head && grid->ColWidth(col) > 0)
                return grid->TextMatrix(GridRowOf(name), col);
        return QStringLiteral("no column ") + head;
    }

    QStringList ShownNames() const
    {
        QStringList names;
        for (int row = 2; row < grid->Rows(); ++row)
            if (!grid->TextMatrix(row, 1).isEmpty())
                names.append(grid->TextMatrix(row, 0));
        return names;
    }

    /// Asha 90 80 (170), Binu 80 90 (170), Cara 50 60 (110), Dev 20 fails 70, Esa absent.
    void GivenFiveStudents()
    {
        school->AddUsualDivision(2);
        school->AddMarkedStudent(QStringLiteral("Asha"), {90, 80});
        school->AddMarkedStudent(QStringLiteral("Binu"), {80, 90});
        school->AddMarkedStudent(QStringLiteral("Cara"), {50, 60});
        school->AddMarkedStudent(QStringLiteral("Dev"), {20, 70});
        const int esa = school->AddStudent(1, QStringLiteral("Esa"));
        school->EnterMark(esa, 1, 55);
        school->EnterAbsence(esa, 2);
    }

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

    /// The summary's counts by the texts before them.
    QMap<QString, QString> SummaryLines()
    {
        const auto* summary = Find<FlexGrid>(form, "msgGrade");
        QMap<QString, QString> lines;
        for (int row = 1; row < summary->Rows(); ++row)
            lines[summary->TextMatrix(row, 0)] = summary->TextMatrix(row, 1) + summary->TextMatrix(row, 2);
        return lines;
    }

    std::unique_ptr<RankSchool> school;
    frmRankCalculation* form = nullptr;
    QComboBox* exam = nullptr;
    QComboBox* classes = nullptr;
    CheckList* divisions = nullptr;
    QCheckBox* selectAll = nullptr;
    FlexGrid* grid = nullptr;
};

TEST_F(RankScreen, OpensWithTheClassClosedUntilAnExamIsChosen)
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

TEST_F(RankScreen, EnterOnABlankExamStaysAndOnAChosenOneMovesOn)
{
    OpenForm();
    QTest::keyClick(exam, Qt::Key_Return);
    EXPECT_TRUE(exam->hasFocus());
    QTest::keyClick(exam, Qt::Key_Down);
    QTest::keyClick(exam, Qt::Key_Return);
    EXPECT_TRUE(classes->hasFocus());
}

TEST_F(RankScreen, ProceedingAsksForExamThenClassThenDivisions)
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
}

TEST_F(RankScreen, EachDivisionThatIsNotReadyCarriesItsMarkAndIsRefusedWithItsReason)
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

TEST_F(RankScreen, TheMarksOfTheDivisionsStayWhenTheSubjectsToDisplayChange)
{
    GivenDivision(1, "A");
    school->AddSubject(1, 2, "Mor", 2, "No");
    OpenForm();
    ChooseExamAndClass();
    EXPECT_EQ(divisions->item(0)->text(), QStringLiteral("  A"));
    Tick(0);
    Press(Option("Optsubjectdisplayyes"));
    EXPECT_EQ(divisions->item(0)->text(), QStringLiteral("  A"));

    QTest::keyClick(classes, Qt::Key_Up);
    QTest::keyClick(classes, Qt::Key_Down);
    EXPECT_EQ(divisions->item(0)->text(), QStringLiteral("$ A"));
}

TEST_F(RankScreen, DisplayingAllSubjectsBeforeAnExamIsChosenAsksForIt)
{
    OpenForm();
    prompts.ExpectInformation(QStringLiteral("Select Exam Name"));
    Press(Option("Optsubjectdisplayyes"));
}

TEST_F(RankScreen, ADivisionWithOtherMaximumMarksIsUntickedWithOneMessage)
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

TEST_F(RankScreen, ADivisionWithAnotherGradeTableIsUntickedWithOneMessage)
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

TEST_F(RankScreen, DisplayingAllSubjectsUnticksADivisionThatDiffersInASubjectNotTakenForRank)
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
    Press(Option("Optsubjectdisplayyes"));
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{0});
}

TEST_F(RankScreen, AnotherClassStartsTheComparisonOfDivisionsAnew)
{
    GivenDivision(1, "A");
    GivenDivision(2, "B");
    GivenClassIXWithDivisionsThatDiffer();
    OpenForm();
    ChooseExamAndClass();
    Tick(1);
    ASSERT_EQ(divisions->TickedIndexes(), QList<int>{1});

    QTest::keyClick(classes, Qt::Key_Down);
    ASSERT_EQ(classes->currentText(), QStringLiteral("IX"));
    Tick(0);
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{0});
    prompts.ExpectInformation(
        QStringLiteral("Selected Division's 'Subjects Taken For Rank' Does Not Match With "
                       "Already Selected Division(s)"));
    Tick(1);
    EXPECT_EQ(divisions->TickedIndexes(), QList<int>{0});
}

TEST_F(RankScreen, SelectAllUnticksTheDivisionsThatDifferWithOneMessageAndClearsItself)
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

TEST_F(RankScreen, SelectAllWithDifferingGradeTablesSaysSo)
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

TEST_F(RankScreen, UntickingOneDivisionClearsSelectAllAndKeepsTheOthers)
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

TEST_F(RankScreen, ProceedingFreezesTheSelectionAndShowsTheListByRank)
{
    GivenFiveStudents();
    OpenAndProceed();
    for (const char* name : {"cmdSave", "cmdExport", "cmdTotalDetails"})
        EXPECT_TRUE(Button(name)->isEnabled()) << name;
    EXPECT_EQ(ShownNames(),
              (QStringList{QStringLiteral("Asha"), QStringLiteral("Binu"), QStringLiteral("Cara"),
                           QStringLiteral("Esa"), QStringLiteral("Dev")}));
    EXPECT_EQ(Cell(QStringLiteral("Asha"), QStringLiteral("Rank")), QStringLiteral("1"));
    EXPECT_EQ(Cell(QStringLiteral("Binu"), QStringLiteral("Rank")), QStringLiteral("1"));
    EXPECT_EQ(Cell(QStringLiteral("Cara"), QStringLiteral("Rank")), QStringLiteral("2"));
    EXPECT_EQ(Cell(QStringLiteral("Cara"), QStringLiteral("Average")), QStringLiteral("55.00"));
}

TEST_F(RankScreen, AFailedMarkIsPaintedAndUnrankedButGradedAndAnAbsenceHasNeitherRankNorGrade)
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

TEST_F(RankScreen, SkippingRanksMakesTheRankAfterTwoFirstOnesTheThird)
{
    GivenFiveStudents();
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    Press(Find<QCheckBox>(form, "chkRankSkipping"));
    Press(Button("cmdUpdate"));
    EXPECT_EQ(Cell(QStringLiteral("Cara"), QStringLiteral("Rank")), QStringLiteral("3"));
}

TEST_F(RankScreen, TheFourOrdersShowTheSameListAnew)
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

TEST_F(RankScreen, TheAverageRowLeavesOutAbsencesAndZeros)
{
    GivenFiveStudents();
    OpenAndProceed();
    const int average = GridRowOf(QStringLiteral("Average"));
    ASSERT_GT(average, 0);
    EXPECT_EQ(grid->TextMatrix(average, 5), QStringLiteral("59.00"));
    EXPECT_EQ(grid->TextMatrix(average, 6), QStringLiteral("75.00"));
    EXPECT_EQ(grid->Rows(), average + 2);
}

TEST_F(RankScreen, ASubjectNotTakenForRankIsHiddenOrShownPaintedAsChosen)
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
    Press(Option("Optsubjectdisplayyes"));
    Press(Button("cmdUpdate"));
    EXPECT_GT(grid->ColWidth(6), 0);
    EXPECT_EQ(grid->Mark(GridRowOf(QStringLiteral("Asha")), 6), CellMark::NotTakenForRank);
    EXPECT_EQ(Cell(QStringLiteral("Asha"), QStringLiteral("Total")), QStringLiteral("100"));
}

TEST_F(RankScreen, ColoursHaveALegendAndShowInTheLettersToo)
{
    GivenFiveStudents();
    OpenAndProceed();
    EXPECT_TRUE(Find<QLabel>(form, "lblFailed")->isVisible());
    EXPECT_TRUE(Find<QLabel>(form, "lblNotTaken")->isVisible());
    const QModelIndex failed = grid->model()->index(GridRowOf(QStringLiteral("Dev")) - 1, 5);
    EXPECT_TRUE(failed.data(Qt::FontRole).value<QFont>().bold());
    EXPECT_EQ(failed.data(Qt::BackgroundRole).value<QColor>(), QColor(255, 216, 176));
}

TEST_F(RankScreen, TheSummaryCountsGradesAbsenteesAndFullMarksAndClosesAgain)
{
    GivenFiveStudents();
    OpenAndProceed();
    auto* panel = Find<QFrame>(form, "Frame5");
    EXPECT_FALSE(panel->isVisible());
    Press(Button("cmdTotalDetails"));
    EXPECT_TRUE(panel->isVisible());
    EXPECT_FALSE(Find<QFrame>(form, "fraMain")->isEnabled());
    EXPECT_FALSE(Find<QFrame>(form, "Frame4")->isEnabled());
    EXPECT_FALSE(Button("cmdTotalDetails")->isEnabled());

    const QMap<QString, QString> lines = SummaryLines();
    EXPECT_EQ(lines.value(QStringLiteral("TOTAL STRENGTH")), QStringLiteral("5"));
    EXPECT_EQ(lines.value(QStringLiteral("No. Of 'A' Grades")), QStringLiteral("2"));
    EXPECT_EQ(lines.value(QStringLiteral("No. Of 'C' Grades")), QStringLiteral("2"));
    EXPECT_EQ(lines.value(QStringLiteral("TOTAL")), QStringLiteral("4"));
    EXPECT_EQ(lines.value(QStringLiteral("ABSENTEE")), QStringLiteral("1"));
    EXPECT_EQ(lines.value(QStringLiteral("Full Mark For X  A")), QStringLiteral("200"));
    EXPECT_EQ(Find<FlexGrid>(form, "msgGrade")->ColWidth(3), 0);

    Press(Button("cmdClose"));
    EXPECT_FALSE(panel->isVisible());
    EXPECT_TRUE(Find<QFrame>(form, "fraMain")->isEnabled());
    EXPECT_TRUE(Button("cmdTotalDetails")->isEnabled());
}

TEST_F(RankScreen, TheGradeOrderThatLeavesTheAbsentOutKeepsTheSummary)
{
    GivenFiveStudents();
    OpenAndProceed();
    Press(Option("optGradeOrder"));
    ASSERT_FALSE(ShownNames().contains(QStringLiteral("Esa")));
    Press(Button("cmdTotalDetails"));
    const QMap<QString, QString> lines = SummaryLines();
    EXPECT_EQ(lines.value(QStringLiteral("ABSENTEE")), QStringLiteral("1"));
    EXPECT_EQ(lines.value(QStringLiteral("TOTAL STRENGTH")), QStringLiteral("5"));
}

TEST_F(RankScreen, SavingWritesOneRowAStudentOnceHoweverOftenItIsDone)
{
    GivenFiveStudents();
    for (int time = 0; time < 2; ++time) {
        OpenAndProceed();
        prompts.ExpectInformation(QStringLiteral("Record Saved"));
        Press(Button("cmdSave"));
        EXPECT_FALSE(Button("cmdSave")->isEnabled());
        Press(Button("cmdCancel"));
    }
    EXPECT_EQ(Count("SELECT count(*) FROM TempRankTotal"), 5);
    EXPECT_EQ(Count("SELECT count(*) FROM TempRankTotal WHERE Rank = 999999999"), 2);
}

TEST_F(RankScreen, ALockedDatabaseRefusesTheSaveInPlainWordsAndTheSaveCanBeRepeated)
{
    GivenFiveStudents();
    OpenAndProceed();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    const auto other = AnotherClient();
    other->Begin();
    prompts.Expect(Prompts::Kind::Critical,
                   QStringLiteral("The Data Is In Use By Another Client. Please Try Again In "
                                  "A Moment (database is locked)"));
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
    other->Rollback();
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    Press(Button("cmdSave"));
    EXPECT_EQ(Count("SELECT count(*) FROM TempRankTotal"), 5);
}

TEST_F(RankScreen, AFullDiskDuringTheSaveKeepsTheOldRowsAndTheScreen)
{
    school->AddUsualDivision(2);
    for (int student = 0; student < 300; ++student)
        school->AddMarkedStudent(QStringLiteral("Student %1").arg(student), {60, 40});
    Given("INSERT INTO TempRankTotal VALUES (1, 1, 1, 1, 1, 7, 7, 7, 'Z')");
    OpenAndProceed();
    const auto pages = Count("PRAGMA page_count");
    Given(QStringLiteral("PRAGMA max_page_count = %1").arg(pages).toLatin1().constData());
    prompts.ExpectCritical();
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(Count("SELECT count(*) FROM TempRankTotal WHERE Grade = 'Z'"), 1);
    EXPECT_EQ(Count("SELECT count(*) FROM TempRankTotal"), 1);
    EXPECT_TRUE(Button("cmdSave")->isEnabled());
}

TEST_F(RankScreen, WithoutAnyMaximumMarkTheListIsRefusedAndTheSelectionStaysOpen)
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

TEST_F(RankScreen, AWorkingTableLeftByAKilledRunIsReplaced)
{
    GivenFiveStudents();
    Session().gcnnTemp->Execute(QStringLiteral("CREATE TABLE TempRankCalculation (Something)"));
    OpenAndProceed();
    EXPECT_EQ(ShownNames().size(), 5);
}

TEST_F(RankScreen, NamesWithSignsAndOtherLettersAreListedSavedAndFound)
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

TEST_F(RankScreen, CancelEmptiesEverythingAndDropsTheWorkingTable)
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
    for (const char* name : {"cmdSave", "cmdExport", "cmdTotalDetails"})
        EXPECT_FALSE(Button(name)->isEnabled()) << name;
    EXPECT_EQ(Session().gcnnTemp->Number(
                  QStringLiteral("SELECT count(*) FROM sqlite_master WHERE name = 'TempRankCalculation'")),
              0);
}

TEST_F(RankScreen, ExitAsksWithItsOwnNameAndDropsTheWorkingTable)
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

TEST_F(RankScreen, ExportIsRefusedWithoutTheRight)
{
    GivenFiveStudents();
    GivenUser(7, QStringLiteral("clerk"), QStringLiteral("pass"));
    Session().gintPrivilegeUserCode = 7;
    OpenAndProceed();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
    Press(Button("cmdExport"));
}

TEST_F(RankScreen, ExportHandsTheWorkbookToTheSpreadsheetProgram)
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

TEST_F(RankScreen, ExportWithoutASpreadsheetProgramSaysSoAndThePointerIsNormal)
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

TEST_F(RankScreen, AltAndKProceedsInsteadOfLockingTheProgram)
{
    GivenFiveStudents();
    OpenForm();
    ChooseExamAndClass();
    Press(selectAll);
    QTest::keyClick(divisions, Qt::Key_K, Qt::AltModifier);
    EXPECT_EQ(ShownNames().size(), 5);
}

TEST_F(RankScreen, TheWholeListIsPreparedAndSavedWithKeysAlone)
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

TEST_F(RankScreen, ProceedingRunsAsManyStatementsForManyStudentsAsForFew)
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

TEST_F(RankScreen, FitsTheSmallestScreenWithNothingCutOff)
{
    window->resize(800, 600);
    OpenForm();
    const QWidget* frame = form->parentWidget();
    EXPECT_TRUE(window->Area()->viewport()->rect().contains(frame->geometry()));
    EXPECT_LE(form->minimumSizeHint().width(), form->width());
    EXPECT_LE(form->minimumSizeHint().height(), form->height());
}

} // namespace
} // namespace tally::test
