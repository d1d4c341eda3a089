#include "core/shell/mdiTallyboard.h"
#include "ranks/GridEdge.h"
#include "ranks/RankCardScreen.h"
#include "reports/output/Workbook.h"
#include "reports/output/WorkbookReader.h"

#include <QFileInfo>
#include <QScrollBar>
#include <QTimer>

#include <functional>

namespace tally::test {
namespace {

class RankCardOutput : public RankCardScreen
{};

TEST_F(RankCardOutput, ProceedingShowsACardWithItsBlankLineForEachStudent)
{
    GivenTwoStudents();
    OpenAndProceed();
    ASSERT_EQ(grid->Rows(), 6);
    EXPECT_EQ(Row(0), QStringLiteral("|||||Eng|Mat|Total|Average|Rank|Grade"));
    EXPECT_TRUE(grid->isRowHidden(0));
    EXPECT_EQ(grid->TextMatrix(1, 6), QStringLiteral("2"));
    EXPECT_EQ(Row(2), QStringLiteral("Term One|Asha|A1|X|A|60|70|130|65|1|B"));
    EXPECT_EQ(Row(3), QStringLiteral("||||||||||"));
    EXPECT_EQ(Row(4), QStringLiteral("Term One|Binu|A2|X|A|20|71|91|45.5||C"));
    EXPECT_FALSE(grid->isRowHidden(1));
}

TEST_F(RankCardOutput, TheExamsAndNamesStayInSightBesideTheGrades)
{
    constexpr int Subjects = 25;
    school->AddDivision(1, "A");
    for (int subject = 1; subject <= Subjects; ++subject)
        school->AddSubject(1, subject, ("Subj" + QByteArray::number(subject)).constData(), subject);
    school->AddMarkedStudent(QStringLiteral("Asha"), std::vector<double>(Subjects, 60));
    OpenAndProceed();
    const int held = grid->ColWidth(0) + grid->ColWidth(1);
    const QImage names = LeftEdge(grid, held);
    grid->horizontalScrollBar()->setValue(grid->horizontalScrollBar()->maximum());
    EXPECT_TRUE(LeftEdge(grid, held) == names);
    EXPECT_LT(grid->CellRect(2, grid->Cols() - 1).right(), grid->viewport()->width());
}

TEST_F(RankCardOutput, TheSubjectsToDisplayDecideTheColumns)
{
    GivenTwoStudents();
    school->AddSubject(1, 3, "Mor", 3, "No");
    for (const int student : {1, 2})
        school->EnterMark(student, 3, 40);
    OpenAndProceed();
    EXPECT_EQ(Row(0), QStringLiteral("|||||Eng|Mat|Total|Average|Rank|Grade"));
    Press(Option("Optsubjectdisplayyes"));
    ExpectNoCards();
    Press(Button("cmdView"));
    EXPECT_EQ(Row(0), QStringLiteral("|||||Eng|Mat|Mor|Total|Average|Rank|Grade"));
    EXPECT_EQ(Row(2), QStringLiteral("Term One|Asha|A1|X|A|60|70|40|130|65|1|B"));
}

TEST_F(RankCardOutput, MarksFollowTheOptionsOfTheSession)
{
    GivenTwoStudents();
    Session().gblnFractionMarks = true;
    OpenAndProceed();
    EXPECT_EQ(grid->TextMatrix(2, 5), QStringLiteral("60.00"));
    Session().gblnRoundedMarks = true;
    Press(Button("cmdView"));
    EXPECT_EQ(grid->TextMatrix(2, 5), QStringLiteral("60"));
}

TEST_F(RankCardOutput, EveryChangeOfTheSelectionTakesTheCardsAway)
{
    GivenTwoStudents();
    Given("Insert into ClassDivisionMaster values(2,'IX',9,2,0)");
    const std::vector<std::pair<const char*, std::function<void()>>> changes{
        {"a student", [&] { Tick(students, 1); }},
        {"all students", [&] { Press(allStudents); }},
        {"an exam", [&] { Tick(exams, 1); }},
        {"all exams", [&] { Press(allExams); }},
        {"the class", [&] { Next(classes); }},
        {"the division",
         [&] {
             divisions->setFocus();
             QTest::keyClick(divisions, Qt::Key_Up);
         }},
        {"the subjects to display", [&] { Press(Option("Optsubjectdisplayyes")); }},
        {"a new start", [&] { Press(Button("cmdCancel")); }},
    };
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        OpenAndProceed();
        change();
        ExpectNoCards();
        Press(Button("cmdExit"));
        Settle();
    }
}

TEST_F(RankCardOutput, ARefusedTickLeavesTheCardsOnTheScreen)
{
    GivenTwoStudents();
    OpenForm();
    Tick(exams, 1);
    ChooseDivision();
    Press(allStudents);
    Press(Button("cmdView"));
    ASSERT_EQ(Row(2), QStringLiteral("Term Two|Asha|A1|X|A|80|90||||"));
    prompts.ExpectInformation(QStringLiteral("'Classwise Mark Entry' Is Not Made For This Student - . Binu"));
    Tick(students, 1);
    EXPECT_FALSE(students->IsTicked(1));
    EXPECT_EQ(Row(2), QStringLiteral("Term Two|Asha|A1|X|A|80|90||||"));
    EXPECT_TRUE(Button("cmdExport")->isEnabled());
}

TEST_F(RankCardOutput, NumbersStandAtTheRightAndTextsAtTheLeft)
{
    GivenTwoStudents();
    OpenAndProceed();
    const int gradeColumn = grid->Cols() - 1;
    for (int col = 0; col < grid->Cols(); ++col) {
        const bool text = col < static_cast<int>(CardColumn::FirstSubject) || col == gradeColumn;
        EXPECT_EQ(grid->Table().Column(col).alignment, text ? TextAlignment : NumberAlignment) << col;
    }
}

TEST_F(RankCardOutput, ListingAndShowingShowAnHourglassWhileTheyWork)
{
    GivenTwoStudents();
    OpenForm();
    Tick(exams, 0);
    const auto pointer = [] {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        return cursor != nullptr ? cursor->shape() : Qt::ArrowCursor;
    };
    Qt::CursorShape listing = Qt::ArrowCursor;
    QObject::connect(students->model(), &QAbstractItemModel::rowsInserted, form,
                     [&] { listing = pointer(); });
    ChooseDivision();
    EXPECT_EQ(listing, Qt::WaitCursor);
    EXPECT_EQ(pointer(), Qt::ArrowCursor);

    Press(allStudents);
    Qt::CursorShape showing = Qt::ArrowCursor;
    QObject::connect(grid->model(), &QAbstractItemModel::modelReset, form, [&] { showing = pointer(); });
    Press(Button("cmdView"));
    EXPECT_EQ(showing, Qt::WaitCursor);
    EXPECT_EQ(pointer(), Qt::ArrowCursor);
    QObject::disconnect(grid->model(), nullptr, form, nullptr);
    QObject::disconnect(students->model(), nullptr, form, nullptr);
}

TEST_F(RankCardOutput, AsManyExamsAsAreTickedFitOnTheExportedPage)
{
    GivenTwoStudents();
    constexpr int Exams = 40;
    for (int exam = 3; exam <= Exams; ++exam) {
        cards->AddExam(exam, "Test", exam);
        cards->EnterMarks(exam, 1, {60, 70});
    }
    OpenForm();
    Press(allExams);
    ChooseDivision();
    Press(allStudents);
    Press(Button("cmdView"));
    Press(Button("cmdExport"));
    const WorkbookReader sheet(exported);
    double height = 0;
    for (int row = 1; row <= 11 + Exams + 12; ++row)
        height += sheet.RowHeight(row) > 0 ? sheet.RowHeight(row) : Workbook::StandardRowHeight;
    const bool landscape = sheet.Attribute("pageSetup", "orientation") == u"landscape";
    const QString scale = sheet.Attribute("pageSetup", "scale");
    EXPECT_LE(height * (scale.isEmpty() ? 100 : scale.toInt()) / 100,
              Workbook::PrintableArea(landscape).height());
}

TEST_F(RankCardOutput, ADivisionWithoutSubjectsIsToldToHaveNoMarksAndCannotBeExported)
{
    school->AddDivision(1, "A");
    school->AddStudent(1, QStringLiteral("Asha"));
    OpenForm();
    Tick(exams, 0);
    ChooseDivision();
    Press(allStudents);
    prompts.ExpectInformation(
        QStringLiteral("No Marks Are Entered For The Selected Student(s) In The Selected Exam(s)"));
    Press(Button("cmdView"));
    EXPECT_FALSE(Button("cmdExport")->isEnabled());
}

TEST_F(RankCardOutput, TheKeysAloneLeadFromTheExamToTheWorkbook)
{
    GivenTwoStudents();
    OpenForm();
    PressKey(form, Qt::Key_Space);
    PressKey(form, Qt::Key_Return);
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Return);
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Return);
    PressKey(form, Qt::Key_Space);
    PressKey(form, Qt::Key_K, Qt::AltModifier);
    PressKey(form, Qt::Key_E, Qt::AltModifier);
    const WorkbookReader sheet(exported);
    EXPECT_EQ(sheet.At("A7").value, QStringLiteral(" Student Name : Asha"));
    EXPECT_EQ(sheet.At("A12").value, QStringLiteral("60"));
    EXPECT_EQ(sheet.At("F36").value, QStringLiteral("C"));
    EXPECT_TRUE(sheet.At("G11").exists) << "the exam stands at the end of the line";
    EXPECT_FALSE(sheet.At("H11").exists);
    EXPECT_FALSE(sheet.At("A50").exists);
}

TEST_F(RankCardOutput, ExportIsRefusedWithoutTheRight)
{
    GivenTwoStudents();
    GivenUser(7, QStringLiteral("clerk"), QStringLiteral("pass"));
    Session().gintPrivilegeUserCode = 7;
    OpenAndProceed();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
    Press(Button("cmdExport"));
    EXPECT_EQ(exported, QString());
}

TEST_F(RankCardOutput, ExportGoesOnWithTheRight)
{
    GivenTwoStudents();
    GivenUser(7, QStringLiteral("clerk"), QStringLiteral("pass"),
              {{QStringLiteral("frmRankCardPrinting"), QStringLiteral("P")}});
    Session().gintPrivilegeUserCode = 7;
    OpenAndProceed();
    Press(Button("cmdExport"));
    EXPECT_TRUE(QFileInfo::exists(exported));
}

TEST_F(RankCardOutput, ExportWithoutASpreadsheetProgramSaysSoAndThePointerIsNormal)
{
    GivenTwoStudents();
    OpenAndProceed();
    UseSpreadsheetProgram({false, {}});
    prompts.ExpectInformation(
        QStringLiteral("If You Want To Use Export Option, Microsoft Excel Is Needed To Be "
                       "Installed In Your System"));
    Press(Button("cmdExport"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(RankCardOutput, AFailureOfTheStoreIsToldAndTheScreenGoesOn)
{
    GivenTwoStudents();
    OpenForm();
    Tick(exams, 0);
    ChooseDivision();
    Press(allStudents);
    Press(Button("cmdView"));
    ASSERT_EQ(grid->Rows(), 6);
    Given("Alter table TempRankTotal rename to Away");
    prompts.ExpectCritical(NoSuchTable("TempRankTotal"));
    Press(Button("cmdView"));
    ExpectNoCards();
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    Given("Alter table Away rename to TempRankTotal");
    Press(Button("cmdView"));
    EXPECT_EQ(grid->Rows(), 6);
}

TEST_F(RankCardOutput, TickingAndProceedingRunAsManyStatementsForManyStudentsAsForFew)
{
    // The presence row that is written each second would be counted too.
    Find<QTimer>(window, "tmrTimer")->stop();
    school->AddUsualDivision(2);
    const auto statements = [&] {
        OpenForm();
        ChooseDivision();
        const auto before = Session().gcnnMain->StatementsRun();
        Tick(exams, 0);
        Press(allStudents);
        Press(Button("cmdView"));
        const auto run = Session().gcnnMain->StatementsRun() - before;
        EXPECT_EQ(grid->Rows(), 2 + 2 * students->count());
        Press(Button("cmdExit"));
        Settle();
        return run;
    };
    school->AddMarkedStudent(QStringLiteral("Asha"), {60, 70});
    const auto few = statements();
    for (int count = 0; count < 60; ++count)
        school->AddMarkedStudent(QStringLiteral("Student"), {60, 70});
    EXPECT_EQ(statements(), few);
}

} // namespace
} // namespace tally::test
