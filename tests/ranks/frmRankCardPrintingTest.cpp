#include "ranks/frmRankCardPrinting.h"

#include "core/controls/CheckList.h"
#include "core/controls/DataCombo.h"
#include "core/controls/FlexGrid.h"
#include "core/mdiTallyboard.h"
#include "core/OpenDocument.h"
#include "core/ScreenRegistry.h"
#include "ranks/RankCardSchool.h"
#include "reports/Workbook.h"
#include "reports/WorkbookReader.h"
#include "support/FileSizeLimit.h"
#include "support/ScreenFixture.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolBar>

#include <functional>

namespace tally::test {
namespace {

/// "Rank Card" on a school whose rows a test lays down first.
class RankCardScreen : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        school = std::make_unique<RankSchool>(*Session().gcnnMain, *Session().gcnnTemp);
        cards = std::make_unique<RankCardSchool>(*school);
        Session().gintAcademicYearCode = 1;
        SetExportFolder(Folder() + QStringLiteral("/exports"));
        UseSpreadsheetProgram({true, [this](const QString& path) {
                                   exported = path;
                                   return true;
                               }});
    }

    void TearDown() override
    {
        UseRealSpreadsheetProgram();
        SetExportFolder({});
        cards.reset();
        school.reset();
        ScreenFixture::TearDown();
    }

    void OpenForm()
    {
        form = Open<frmRankCardPrinting>("frmRankCardPrinting");
        ASSERT_NE(form, nullptr);
        exams = Find<CheckList>(form, "Lstexamnames");
        allExams = Find<QCheckBox>(form, "chkSelectExamName");
        classes = Find<DataCombo>(form, "cboClass");
        divisions = Find<DataCombo>(form, "cboDivision");
        students = Find<CheckList>(form, "LstStudents");
        allStudents = Find<QCheckBox>(form, "chkSelectStudents");
        grid = Find<FlexGrid>(form, "msgDetails");
    }

    QPushButton* Button(const char* name) { return Find<QPushButton>(form, name); }
    QRadioButton* Option(const char* name) { return Find<QRadioButton>(form, name); }

    /// Toggles an item with the blank key.
    static void Tick(CheckList* list, int index)
    {
        list->setFocus();
        list->setCurrentRow(index);
        QTest::keyClick(list, Qt::Key_Space);
    }

    /// Chooses the next entry with the arrow key.
    static void Next(DataCombo* combo)
    {
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Down);
    }

    /// Exams Term One and Term Two; Asha is complete in both, Binu lacks a mark in the second.
    void GivenTwoStudents()
    {
        cards->AddExam(2, "Term Two", 2);
        school->AddUsualDivision(2);
        const int asha = school->AddMarkedStudent(QStringLiteral("Asha"), {60, 70});
        const int binu = school->AddMarkedStudent(QStringLiteral("Binu"), {20, 71});
        cards->EnterMarks(2, asha, {80, 90});
        cards->EnterMarks(2, binu, {50});
        cards->SaveRank(1, asha, 130, 65, 1, "B");
        cards->SaveRank(1, binu, 91, 45.5, NoRank, "C");
    }

    void ChooseDivision()
    {
        Next(classes);
        Next(divisions);
        ASSERT_EQ(divisions->currentText(), QStringLiteral("A"));
    }

    /// Shows the cards of all students in Term One.
    void OpenAndProceed()
    {
        OpenForm();
        Tick(exams, 0);
        ChooseDivision();
        Press(allStudents);
        Press(Button("cmdView"));
        ASSERT_TRUE(Button("cmdExport")->isEnabled());
    }

    QStringList Items(const CheckList* list) const
    {
        QStringList texts;
        for (int index = 0; index < list->count(); ++index)
            texts.append(list->item(index)->text());
        return texts;
    }

    QString Row(int row) const
    {
        QStringList texts;
        for (int col = 0; col < grid->Cols(); ++col)
            texts.append(grid->TextMatrix(row, col));
        return texts.join(QLatin1Char('|'));
    }

    void ExpectNoCards()
    {
        EXPECT_EQ(grid->Rows(), 2);
        EXPECT_EQ(Row(1), QString());
        EXPECT_FALSE(Button("cmdExport")->isEnabled());
    }

    std::unique_ptr<RankSchool> school;
    std::unique_ptr<RankCardSchool> cards;
    frmRankCardPrinting* form = nullptr;
    CheckList* exams = nullptr;
    QCheckBox* allExams = nullptr;
    DataCombo* classes = nullptr;
    DataCombo* divisions = nullptr;
    CheckList* students = nullptr;
    QCheckBox* allStudents = nullptr;
    FlexGrid* grid = nullptr;
    QString exported;
};

TEST_F(RankCardScreen, OpensWithTheExamsInFrontAndNothingChosen)
{
    GivenTwoStudents();
    OpenForm();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Rank Card"));
    EXPECT_TRUE(exams->hasFocus());
    EXPECT_EQ(Items(exams), QStringList({QStringLiteral("Term One"), QStringLiteral("Term Two")}));
    EXPECT_TRUE(exams->TickedIndexes().isEmpty());
    EXPECT_EQ(classes->currentText(), QStringLiteral(" "));
    EXPECT_EQ(divisions->count(), 1);
    EXPECT_EQ(students->count(), 0);
    EXPECT_TRUE(Option("Optsubjectdisplayno")->isChecked());
    EXPECT_EQ(Find<QLabel>(form, "Label5")->text(), QStringLiteral("."));
    EXPECT_EQ(Find<QLabel>(form, "Label4")->text(), QStringLiteral("[   ] Denotes Marks Are Not Entered "));
    EXPECT_EQ(Button("cmdExport")->toolTip(), QStringLiteral("Export To EXCEL"));
    ExpectNoCards();
}

TEST_F(RankCardScreen, ControlsThatDoNothingAreNotShown)
{
    OpenForm();
    EXPECT_FALSE(Button("cmdPrint")->isVisible());
    EXPECT_FALSE(Find<QToolBar>(form, "Toolbar1")->isVisible());
    EXPECT_FALSE(Find<QLineEdit>(form, "txtmarkobtained")->isVisible());
}

TEST_F(RankCardScreen, TabGoesThroughTheSelectionInReadingOrder)
{
    GivenTwoStudents();
    OpenAndProceed();
    allExams->setFocus();
    QStringList order;
    for (int step = 0; step < 13; ++step) {
        order.append(form->focusWidget()->objectName());
        PressKey(form, Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(QLatin1Char(' ')).toStdString(),
              "chkSelectExamName Lstexamnames cboClass cboDivision chkSelectStudents LstStudents "
              "Optsubjectdisplayno cmdView msgDetails cmdExport cmdCancel cmdExit chkSelectExamName");
}

TEST_F(RankCardScreen, EachUnderlinedLetterLeadsToOneControl)
{
    OpenForm();
    EXPECT_EQ(ExpectOneControlALetter(form),
              QStringList({QStringLiteral("Select All"), QStringLiteral("Select All"),
                           QStringLiteral("Don't Display The Subject(s) Which Is Not Taken For Rank"),
                           QStringLiteral("Display All Subject(s)")}));
    const std::vector<std::pair<Qt::Key, QWidget*>> letters{
        {Qt::Key_L, classes}, {Qt::Key_D, divisions}, {Qt::Key_S, students}, {Qt::Key_N, exams}};
    for (const auto& [letter, field] : letters) {
        PressKey(form, letter, Qt::AltModifier);
        EXPECT_TRUE(field->hasFocus()) << field->objectName().toStdString();
    }
}

TEST_F(RankCardScreen, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmRankCardPrinting"));
}

TEST_F(RankCardScreen, HelpIsAskedForAtTheScreensNumber)
{
    OpenForm();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 22);
}

TEST_F(RankCardScreen, ProceedingAsksForExamThenClassThenDivisionThenStudent)
{
    GivenTwoStudents();
    OpenForm();
    prompts.ExpectInformation(QStringLiteral("Select Exam Name(s)"));
    Press(Button("cmdView"));
    EXPECT_TRUE(exams->hasFocus());

    Tick(exams, 0);
    prompts.ExpectInformation(QStringLiteral("Select Class"));
    Press(Button("cmdView"));
    EXPECT_TRUE(classes->hasFocus());

    Next(classes);
    prompts.ExpectInformation(QStringLiteral("Select Division"));
    Press(Button("cmdView"));
    EXPECT_TRUE(divisions->hasFocus());

    Next(divisions);
    prompts.ExpectInformation(QStringLiteral("Select Student(s)"));
    Press(Button("cmdView"));
    EXPECT_TRUE(students->hasFocus());
    ExpectNoCards();
}

TEST_F(RankCardScreen, EnterOnABlankClassStaysAndOnAChosenOneMovesOn)
{
    GivenTwoStudents();
    OpenForm();
    classes->setFocus();
    QTest::keyClick(classes, Qt::Key_Return);
    EXPECT_TRUE(classes->hasFocus());
    QTest::keyClick(classes, Qt::Key_Down);
    QTest::keyClick(classes, Qt::Key_Return);
    EXPECT_TRUE(divisions->hasFocus());
}

TEST_F(RankCardScreen, AnotherClassBringsItsDivisionsAndTakesTheStudentsAway)
{
    GivenTwoStudents();
    Given("Insert into ClassDivisionMaster values(2,'IX',9,2,0)");
    Given("Insert into ClassDivisionDetails values(2,'Q',2)");
    Given("Insert into ClassDivisionDetails values(2,'P',1)");
    OpenForm();
    ChooseDivision();
    EXPECT_EQ(Items(students), QStringList({QStringLiteral("  Asha"), QStringLiteral("  Binu")}));
    Next(classes);
    EXPECT_EQ(students->count(), 0);
    QStringList texts;
    for (int index = 0; index < divisions->count(); ++index)
        texts.append(divisions->itemText(index));
    EXPECT_EQ(texts, QStringList({QStringLiteral(" "), QStringLiteral("P"), QStringLiteral("Q")}));
}

TEST_F(RankCardScreen, AStudentIncompleteInAnyTickedExamCannotBeTicked)
{
    GivenTwoStudents();
    OpenForm();
    ChooseDivision();
    Tick(exams, 0);
    EXPECT_EQ(Items(students), QStringList({QStringLiteral("  Asha"), QStringLiteral("  Binu")}));
    Tick(exams, 1);
    EXPECT_EQ(Items(students), QStringList({QStringLiteral("  Asha"), QStringLiteral(". Binu")}));
    prompts.ExpectInformation(QStringLiteral("'Classwise Mark Entry' Is Not Made For This Student - . Binu"));
    Tick(students, 1);
    EXPECT_FALSE(students->IsTicked(1));
    Tick(students, 0);
    EXPECT_TRUE(students->IsTicked(0));
    Tick(exams, 1);
    EXPECT_EQ(Items(students), QStringList({QStringLiteral("  Asha"), QStringLiteral("  Binu")}));
}

TEST_F(RankCardScreen, SelectAllPassesOverIncompleteStudentsAndUnticksAllWhenCleared)
{
    GivenTwoStudents();
    OpenForm();
    ChooseDivision();
    Tick(exams, 1);
    allStudents->setFocus();
    QTest::keyClick(allStudents, Qt::Key_Space);
    EXPECT_EQ(students->TickedIndexes(), QList<int>{0});
    QTest::keyClick(allStudents, Qt::Key_Space);
    EXPECT_TRUE(students->TickedIndexes().isEmpty());
}

TEST_F(RankCardScreen, UntickingOneStudentClearsSelectAllAndKeepsTheOthers)
{
    GivenTwoStudents();
    OpenForm();
    ChooseDivision();
    Press(allStudents);
    ASSERT_EQ(students->TickedIndexes(), (QList<int>{0, 1}));
    Tick(students, 0);
    EXPECT_FALSE(allStudents->isChecked());
    EXPECT_EQ(students->TickedIndexes(), QList<int>{1});
}

TEST_F(RankCardScreen, SelectAllTicksAndUnticksEveryExamAndJudgesTheStudentsAnew)
{
    GivenTwoStudents();
    OpenForm();
    ChooseDivision();
    Press(allExams);
    EXPECT_EQ(exams->TickedIndexes(), (QList<int>{0, 1}));
    EXPECT_EQ(Items(students), QStringList({QStringLiteral("  Asha"), QStringLiteral(". Binu")}));
    Tick(exams, 1);
    EXPECT_FALSE(allExams->isChecked());
    EXPECT_EQ(exams->TickedIndexes(), QList<int>{0});
    Press(allExams);
    Press(allExams);
    EXPECT_TRUE(exams->TickedIndexes().isEmpty());
    EXPECT_EQ(Items(students), QStringList({QStringLiteral("  Asha"), QStringLiteral("  Binu")}));
}

TEST_F(RankCardScreen, ProceedingShowsACardWithItsBlankLineForEachStudent)
{
    GivenTwoStudents();
    OpenAndProceed();
    ASSERT_EQ(grid->Rows(), 6);
    EXPECT_EQ(Row(0), QStringLiteral("|||||Eng|Mat|Total|Average|Rank|Grade"));
    EXPECT_EQ(grid->RowHeight(1), 0);
    EXPECT_EQ(grid->TextMatrix(1, 6), QStringLiteral("2"));
    EXPECT_EQ(Row(2), QStringLiteral("Term One|Asha|A1|X|A|60|70|130|65|1|B"));
    EXPECT_EQ(Row(3), QStringLiteral("||||||||||"));
    EXPECT_EQ(Row(4), QStringLiteral("Term One|Binu|A2|X|A|20|71|91|45.5||C"));
    EXPECT_GT(grid->RowHeight(2), 0);
}

TEST_F(RankCardScreen, TheSubjectsToDisplayDecideTheColumns)
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

TEST_F(RankCardScreen, MarksFollowTheOptionsOfTheSession)
{
    GivenTwoStudents();
    Session().gblnFractionMarks = true;
    OpenAndProceed();
    EXPECT_EQ(grid->TextMatrix(2, 5), QStringLiteral("60.00"));
    Session().gblnRoundedMarks = true;
    Press(Button("cmdView"));
    EXPECT_EQ(grid->TextMatrix(2, 5), QStringLiteral("60"));
}

TEST_F(RankCardScreen, EveryChangeOfTheSelectionTakesTheCardsAway)
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

TEST_F(RankCardScreen, ARefusedTickLeavesTheCardsOnTheScreen)
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

TEST_F(RankCardScreen, AListThatIsMadeAnewIsNoLongerMarkedAsAllSelected)
{
    GivenTwoStudents();
    OpenForm();
    ChooseDivision();
    Press(allStudents);
    ASSERT_TRUE(allStudents->isChecked());
    Tick(exams, 0);
    EXPECT_FALSE(allStudents->isChecked());
    EXPECT_TRUE(students->TickedIndexes().isEmpty());
}

TEST_F(RankCardScreen, NumbersStandAtTheRightAndTextsAtTheLeft)
{
    GivenTwoStudents();
    OpenAndProceed();
    const int gradeColumn = grid->Cols() - 1;
    for (int col = 0; col < grid->Cols(); ++col) {
        const bool text = col < RankCardRows::FirstSubjectColumn || col == gradeColumn;
        EXPECT_EQ(grid->ColAlignment(col), (text ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter) << col;
    }
}

TEST_F(RankCardScreen, ListingAndShowingShowAnHourglassWhileTheyWork)
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

TEST_F(RankCardScreen, AsManyExamsAsAreTickedFitOnTheExportedPage)
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

TEST_F(RankCardScreen, AnExamWithoutMarksLeavesNobodyToTick)
{
    GivenTwoStudents();
    cards->AddExam(3, "Term Three", 3);
    OpenForm();
    Tick(exams, 2);
    ChooseDivision();
    Press(allStudents);
    EXPECT_TRUE(students->TickedIndexes().isEmpty());
    prompts.ExpectInformation(QStringLiteral("Select Student(s)"));
    Press(Button("cmdView"));
}

TEST_F(RankCardScreen, ADivisionWithoutSubjectsIsToldToHaveNoMarksAndCannotBeExported)
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

TEST_F(RankCardScreen, CancelBringsTheScreenBackToItsStart)
{
    GivenTwoStudents();
    OpenAndProceed();
    Press(Option("Optsubjectdisplayyes"));
    Press(allExams);
    Press(Button("cmdCancel"));
    EXPECT_TRUE(Option("Optsubjectdisplayno")->isChecked());
    EXPECT_FALSE(allExams->isChecked());
    EXPECT_FALSE(allStudents->isChecked());
    EXPECT_EQ(exams->count(), 2);
    EXPECT_TRUE(exams->TickedIndexes().isEmpty());
    EXPECT_TRUE(classes->IsBlank());
    EXPECT_EQ(classes->count(), 2);
    EXPECT_EQ(divisions->count(), 1);
    EXPECT_EQ(students->count(), 0);
    EXPECT_TRUE(exams->hasFocus());
    ExpectNoCards();
}

TEST_F(RankCardScreen, LeavingAsksByTheCaption)
{
    OpenForm();
    Session().gblnPromptOnExit = true;
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Rank Card ?"), false);
    Press(Button("cmdExit"));
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Rank Card ?"), true);
    PressKey(form, Qt::Key_X, Qt::AltModifier);
    Settle();
    EXPECT_EQ(ScreenRegistry::OpenInstance(QStringLiteral("frmRankCardPrinting")), nullptr);
}

TEST_F(RankCardScreen, TheKeysAloneLeadFromTheExamToTheWorkbook)
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
}

TEST_F(RankCardScreen, ExportIsRefusedWithoutTheRight)
{
    GivenTwoStudents();
    GivenUser(7, QStringLiteral("clerk"), QStringLiteral("pass"));
    Session().gintPrivilegeUserCode = 7;
    OpenAndProceed();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
    Press(Button("cmdExport"));
    EXPECT_EQ(exported, QString());
}

TEST_F(RankCardScreen, ExportGoesOnWithTheRight)
{
    GivenTwoStudents();
    GivenUser(7, QStringLiteral("clerk"), QStringLiteral("pass"),
              {{QStringLiteral("frmRankCardPrinting"), QStringLiteral("P")}});
    Session().gintPrivilegeUserCode = 7;
    OpenAndProceed();
    Press(Button("cmdExport"));
    EXPECT_TRUE(QFileInfo::exists(exported));
}

TEST_F(RankCardScreen, ExportWithoutASpreadsheetProgramSaysSoAndThePointerIsNormal)
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

TEST_F(RankCardScreen, ExportShowsAnHourglassWhileItWorks)
{
    GivenTwoStudents();
    OpenAndProceed();
    Qt::CursorShape shape = Qt::ArrowCursor;
    UseSpreadsheetProgram({true, [&](const QString&) {
                               shape = QGuiApplication::overrideCursor()->shape();
                               return true;
                           }});
    Press(Button("cmdExport"));
    EXPECT_EQ(shape, Qt::WaitCursor);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(RankCardScreen, AFullDiskIsToldLeavesNoHalfFileAndTheCardsStay)
{
    GivenTwoStudents();
    OpenAndProceed();
    prompts.ExpectCritical(
        QStringLiteral("The workbook could not be written. The disk of the folder \"%1\" may be full.")
            .arg(QDir(ExportFolder()).path()));
    {
        const FileSizeLimit full(1024);
        Press(Button("cmdExport"));
    }
    EXPECT_TRUE(
        QDir(ExportFolder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty());
    Press(Button("cmdExport"));
    EXPECT_TRUE(QFileInfo::exists(exported));
}

TEST_F(RankCardScreen, AFailureOfTheStoreIsToldAndTheScreenGoesOn)
{
    GivenTwoStudents();
    OpenForm();
    Tick(exams, 0);
    ChooseDivision();
    Press(allStudents);
    Given("Alter table TempRankTotal rename to Away");
    prompts.ExpectCritical();
    Press(Button("cmdView"));
    ExpectNoCards();
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    Given("Alter table Away rename to TempRankTotal");
    Press(Button("cmdView"));
    EXPECT_EQ(grid->Rows(), 6);
}

TEST_F(RankCardScreen, TickingAndProceedingRunAsManyStatementsForManyStudentsAsForFew)
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
