#include "core/ui/controls/CheckList.h"
#include "core/ui/ScreenRegistry.h"
#include "exams/CopyScreen.h"
#include "exams/frmClassRankTransferSetup.h"

#include <QLabel>

#include <chrono>

namespace tally::test {
namespace {

const char* const Form = "frmClassRankTransferSetup";
const char* const Copied = "Rank Criteria Copied";
const QString Exists = QStringLiteral("'Classwise Rank-Grade Setup' Already Exists For This Division");
const QString NotMadeText =
    QStringLiteral("'Classwise Rank-Grade Setup' Is Not Made For The Selected Combination");
const QString NoReference =
    QStringLiteral("The Data Contradicts Other Data That Is Already Stored (FOREIGN KEY constraint failed)");
const std::string Usual = "80/50 A 1 5; 0/0 D 2 5";
/// The same as the grids show it.
const std::string Shown = "1 80 50 A|2 0 0 D";

class GradeCopy : public CopyScreen<frmClassRankTransferSetup>
{
protected:
    void OpenForm()
    {
        CopyScreen::OpenForm(Form);
        divisions = Find<CheckList>(form, "lstDivision");
        all = Find<QCheckBox>(form, "chkSelectAll");
    }
    void OpenNew()
    {
        OpenForm();
        Press(Button("cmdNew"));
    }
    /// New, with the table of X-A for the first exam on the left.
    void StartFromTenA()
    {
        school->SetUpGrades(TenA);
        OpenNew();
        ChooseSource();
        ASSERT_EQ(Rows("msgFromDetails"), Shown);
    }
    void ChooseSource()
    {
        Choose("cboFromAcademicyear", QStringLiteral("2024 - 2025"));
        Choose("dbcExamFrom", QStringLiteral("Term One"));
        Choose("cboFromClass", QStringLiteral("X"));
        Choose("cboFromDivision", QStringLiteral("A"));
    }
    void ChooseTarget(const char* exam = "Term One", const char* year = "2024 - 2025")
    {
        Choose("cboToAcademicYear", QString::fromLatin1(year));
        Choose("dbcExamTo", QString::fromLatin1(exam));
        Choose("cboToClass", QStringLiteral("X"));
    }
    /// The same, with the divisions of X on the right.
    void StartTo(const char* exam = "Term One", const char* year = "2024 - 2025")
    {
        StartFromTenA();
        ChooseTarget(exam, year);
    }
    /// The same, and copied to B and C of this exam.
    void StartCopied()
    {
        StartTo();
        Tick(divisions, 1);
        Tick(divisions, 2);
        Press(Button("cmdTransfer"));
        ASSERT_EQ(Rows("msgToDetails"), Shown);
    }
    /// Ticks with the mouse, on the box before the name.
    void ClickBox(int index) const
    {
        const QRect line = divisions->visualItemRect(divisions->item(index));
        QTest::mouseClick(divisions->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(line.left() + 10, line.center().y()));
    }
    /// With a star behind those that are ticked.
    std::string Divisions() const
    {
        QStringList lines;
        for (int index = 0; index < divisions->count(); ++index)
            lines.append(divisions->item(index)->text() +
                         (divisions->IsTicked(index) ? QStringLiteral("*") : QString()));
        return lines.join(QLatin1Char('|')).toStdString();
    }
    std::string Choices() const
    {
        return ChosenIn({"cboFromAcademicyear", "dbcExamFrom", "cboFromClass", "cboFromDivision",
                         "cboToAcademicYear", "dbcExamTo", "cboToClass"});
    }
    std::string EnabledControls() const
    {
        return Enabled({"fraMainFrom", "fraMainTo", "Frame1", "Frame5", "cmdTransfer", "cmdNew", "cmdSave",
                        "cmdCancel", "cmdExit"});
    }
    void ExpectIdle() const
    {
        EXPECT_EQ(EnabledControls(), "cmdNew cmdCancel cmdExit");
        EXPECT_EQ(Choices(), "//////");
        EXPECT_EQ(Entries("cboFromDivision"), " ");
        EXPECT_EQ(Divisions(), "");
        EXPECT_FALSE(all->isChecked());
        EXPECT_EQ(Rows("msgFromDetails") + Rows("msgToDetails"), "");
        EXPECT_EQ(FocusName(), "cmdNew");
    }

    CheckList* divisions = nullptr;
    QCheckBox* all = nullptr;
};

const std::string InEntry = "fraMainFrom fraMainTo Frame1 Frame5 cmdSave cmdCancel cmdExit";

using GradeCopyOpening = GradeCopy;

TEST_F(GradeCopyOpening, TheScreenOpensWithNothingChosenAndWaitsForNew)
{
    OpenForm();
    EXPECT_EQ(form->windowTitle().toStdString(), "Classwise Rank - Grade Setup -  Copy");
    ExpectIdle();
    EXPECT_EQ(Entries("cboFromAcademicyear"), " |2024 - 2025");
    EXPECT_EQ(Entries("cboToAcademicYear"), " |2024 - 2025|2025 - 2026");
    for (const char* list : {"dbcExamFrom", "dbcExamTo"})
        EXPECT_EQ(Entries(list), " |Term One|Term Two");
    for (const char* list : {"cboFromClass", "cboToClass"})
        EXPECT_EQ(Entries(list), " |IX|X");
}

TEST_F(GradeCopyOpening, ItFitsASmallDisplayAndItsLettersLeadToOneControlEach)
{
    ExpectToFit(QString::fromLatin1(Form));
    ExpectOneControlALetter(Open<frmClassRankTransferSetup>(Form));
}

TEST_F(GradeCopyOpening, HelpOpensAtTheNumberOfTheScreen)
{
    OpenForm();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 18);
}

TEST_F(GradeCopyOpening, TheNoteTheButtonTheTickAndTheHeadsReadAsTheOfficeKnowsThem)
{
    OpenForm();
    EXPECT_EQ(Find<QLabel>(form, "lblNote")->text().toStdString(),
              "Prefix With Division Name Denotes Entry Already Posted To That Division");
    EXPECT_EQ(Find<QLabel>(form, "lblMark")->text().toStdString(), "[ # ]");
    EXPECT_EQ(Button("cmdTransfer")->text().toStdString(), "C&opy");
    EXPECT_EQ(all->text().toStdString(), "Select All");
    const char* const heads[] = {"S.No.", "Total Average Is >=", "Subject Average Is >=", "Grade"};
    for (const char* name : {"msgFromDetails", "msgToDetails"})
        for (int col = 0; col < 4; ++col)
            EXPECT_EQ(Find<FlexGrid>(form, name)->TextMatrix(0, col).toStdString(), heads[col]) << name;
}

TEST_F(GradeCopyOpening, NewNeedsItsRight)
{
    GivenUser(9, QStringLiteral("clerk"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 9;
    OpenForm();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    prompts.Verify();
    ExpectIdle();
}

TEST_F(GradeCopyOpening, NewEnablesAllFramesTogether)
{
    OpenNew();
    EXPECT_EQ(EnabledControls(), InEntry);
    EXPECT_EQ(FocusName(), "cboFromAcademicyear");
}

TEST_F(GradeCopyOpening, ASchoolWithoutExamsHasNothingToChooseFrom)
{
    Given("DELETE FROM ExamMaster");
    OpenNew();
    EXPECT_EQ(Entries("dbcExamFrom") + Entries("dbcExamTo"), "");
    Choose("cboFromAcademicyear", QStringLiteral("2024 - 2025"));
    ExpectRefusal(QStringLiteral("Select Exam Name On The 'From' Side"), "dbcExamFrom");
}

TEST_F(GradeCopyOpening, WithoutTheListsNothingCanBeBegunUntilTheyAreRead)
{
    Given("ALTER TABLE ExamMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ExamMaster"));
    Driver::OpenForm(Form);
    prompts.Verify();
    EXPECT_EQ(EnabledControls(), "cmdCancel cmdExit");
    EXPECT_EQ(FocusName(), "cmdCancel");
    Given("ALTER TABLE Away RENAME TO ExamMaster");
    Press(Button("cmdCancel"));
    EXPECT_EQ(EnabledControls(), "cmdNew cmdCancel cmdExit");
    EXPECT_EQ(Entries("dbcExamTo"), " |Term One|Term Two");
}

TEST_F(GradeCopyOpening, CancelGoesBackToTheBeginning)
{
    StartCopied();
    Press(Button("cmdCancel"));
    ExpectIdle();
    EXPECT_EQ(school->Grades(TenB), "");
}

using GradeCopyChoosing = GradeCopy;

TEST_F(GradeCopyChoosing, TheFromDivisionsNeedYearExamAndClass)
{
    OpenNew();
    Choose("cboFromClass", QStringLiteral("X"));
    EXPECT_EQ(Entries("cboFromDivision"), " ");
    Choose("dbcExamFrom", QStringLiteral("Term One"));
    Choose("cboFromClass", QStringLiteral("X"));
    EXPECT_EQ(Entries("cboFromDivision"), " ") << "the year is missing";
    Choose("cboFromAcademicyear", QStringLiteral("2024 - 2025"));
    Choose("cboFromClass", QStringLiteral("X"));
    EXPECT_EQ(Entries("cboFromDivision"), " ") << "the exam is missing";
    Choose("dbcExamFrom", QStringLiteral("Term One"));
    Choose("cboFromClass", QStringLiteral("X"));
    EXPECT_EQ(Entries("cboFromDivision"), " |A|B|C");
}

TEST_F(GradeCopyChoosing, TheFromDivisionShowsItsTableInItsOrderAndABlankRow)
{
    school->AddGrade(TenA, 0, 0, "D", 3);
    school->AddGrade(TenA, 90.5, 60, "A+", 1);
    school->AddGrade(TenA, 80, 50.25, "A", 2);
    OpenNew();
    ChooseSource();
    EXPECT_EQ(Rows("msgFromDetails"), "1 90.5 60 A+|2 80 50.25 A|3 0 0 D");
    EXPECT_EQ(Find<FlexGrid>(form, "msgFromDetails")->Rows(), 5);
    Choose("cboFromDivision", QStringLiteral(" "));
    EXPECT_EQ(Rows("msgFromDetails"), "");
}

TEST_F(GradeCopyChoosing, ADivisionWithoutATableIsToldAndNotChosen)
{
    StartFromTenA();
    prompts.ExpectInformation(NotMadeText);
    Choose("cboFromDivision", QStringLiteral("B"));
    prompts.Verify();
    EXPECT_EQ(ChosenIn("cboFromDivision"), "");
    EXPECT_EQ(FocusName(), "cboFromDivision");
    EXPECT_EQ(Rows("msgFromDetails"), "");
    prompts.ExpectInformation(NotMadeText);
    QTest::keyClick(List("cboFromDivision"), Qt::Key_Down);
    EXPECT_EQ(ChosenIn("cboFromDivision"), "C") << "the arrows go on behind it";
    QTest::keyClick(List("cboFromDivision"), Qt::Key_Tab);
}

TEST_F(GradeCopyChoosing, TheArrowsReadNothingAndWhatBelongsToAnotherChoiceDoesNotStay)
{
    StartCopied();
    const auto before = Session().gcnnMain->StatementsRun();
    // Who gives up waits for nothing.
    for (const char* list : {"cboFromDivision", "cboFromClass", "cboToClass"}) {
        WalkTo(list, QStringLiteral(" "));
        QTest::keyClick(List(list), Qt::Key_End);
        Button("cmdCancel")->setFocus();
    }
    EXPECT_EQ(Rows("msgFromDetails") + Rows("msgToDetails") + Divisions(), "");
    EXPECT_EQ(Entries("cboFromDivision"), " ");
    EXPECT_EQ(Session().gcnnMain->StatementsRun(), before);
    List("cboToClass")->setFocus();
    QTest::keyClick(List("cboToClass"), Qt::Key_Tab);
    EXPECT_EQ(Divisions(), "# A|B|C");
}

TEST_F(GradeCopyChoosing, ASourceEmptiedMeanwhileIsToldWhenItIsChosen)
{
    StartFromTenA();
    Choose("cboFromDivision", QStringLiteral(" "));
    Other("DELETE FROM RankMaster WHERE AcademicYearCode = 7 AND ExamCode = 1 AND ClassCode = 1 AND "
          "DivisionCode = 1");
    prompts.ExpectInformation(NotMadeText);
    Choose("cboFromDivision", QStringLiteral("A"));
}

TEST_F(GradeCopyChoosing, ADivisionWithATableForTheExamInTheYearIsListedWithItsMark)
{
    school->AddGrade(InTermTwo(TenB), 0, 0, "D", 1);
    school->SetUpGrades(InNextYear(TenC));
    StartTo();
    EXPECT_EQ(Divisions(), "# A|B|C");
    Choose("dbcExamTo", QStringLiteral("Term Two"));
    EXPECT_EQ(Divisions(), "");
    Choose("cboToClass", QStringLiteral("X"));
    EXPECT_EQ(Divisions(), "A|# B|C");
    ChooseTarget("Term One", "2025 - 2026");
    EXPECT_EQ(Divisions(), "A|B|# C");
}

TEST_F(GradeCopyChoosing, AToClassWithoutAYearAsksForIt)
{
    StartFromTenA();
    Choose("dbcExamTo", QStringLiteral("Term One"));
    prompts.ExpectInformation(QStringLiteral("Select Academic Year On The 'To' Side"));
    Choose("cboToClass", QStringLiteral("X"));
    prompts.Verify();
    EXPECT_EQ(FocusName(), "cboToAcademicYear");
    EXPECT_EQ(Divisions(), "");
    Choose("cboToClass", QStringLiteral(" "));
}

TEST_F(GradeCopyChoosing, AToClassWithoutAnExamListsNothing)
{
    StartFromTenA();
    Choose("cboToAcademicYear", QStringLiteral("2024 - 2025"));
    Choose("cboToClass", QStringLiteral("X"));
    EXPECT_EQ(Divisions(), "");
}

TEST_F(GradeCopyChoosing, ADivisionWithATableIsToldAndNotTicked)
{
    StartTo();
    prompts.ExpectInformation(QStringLiteral("Classwise Rank-Grade Setup' Already Exists For This Division"));
    Tick(divisions, 0);
    prompts.Verify();
    EXPECT_EQ(Divisions(), "# A|B|C");
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
}

TEST_F(GradeCopyChoosing, ADivisionWithATableThatIsClickedIsToldInOtherWords)
{
    StartTo();
    prompts.ExpectInformation(Exists);
    ClickBox(0);
    prompts.Verify();
    EXPECT_EQ(Divisions(), "# A|B|C");
    prompts.ExpectInformation(QStringLiteral("Classwise Rank-Grade Setup' Already Exists For This Division"));
    QTest::keyClick(divisions, Qt::Key_Space);
}

TEST_F(GradeCopyChoosing, CopyIsOnWhileADivisionIsTickedAndATableIsShown)
{
    StartTo();
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
    Tick(divisions, 1);
    EXPECT_TRUE(IsEnabled("cmdTransfer"));
    Press(Button("cmdTransfer"));
    EXPECT_EQ(Rows("msgToDetails"), Shown);
    EXPECT_EQ(school->Grades(TenB), "") << "nothing is stored yet";
    Tick(divisions, 1);
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
    EXPECT_EQ(Rows("msgToDetails"), "");
}

TEST_F(GradeCopyChoosing, DivisionsTickedBeforeTheSourceIsChosenCanBeCopiedTo)
{
    school->SetUpGrades(TenA);
    OpenNew();
    ChooseTarget();
    Tick(divisions, 1);
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
    ChooseSource();
    EXPECT_TRUE(IsEnabled("cmdTransfer"));
}

TEST_F(GradeCopyChoosing, CopyIsOffWhereTheSourceHasNoTable)
{
    StartTo();
    Tick(divisions, 1);
    ASSERT_TRUE(IsEnabled("cmdTransfer"));
    prompts.ExpectInformation(NotMadeText);
    Choose("cboFromDivision", QStringLiteral("B"));
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
}

TEST_F(GradeCopyChoosing, SelectAllLeavesOutWhoHasATable)
{
    StartTo();
    Press(all);
    EXPECT_EQ(Divisions(), "# A|B*|C*");
    EXPECT_TRUE(IsEnabled("cmdTransfer"));
    Press(all);
    EXPECT_EQ(Divisions(), "# A|B|C");
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
}

TEST_F(GradeCopyChoosing, UntickingOneDivisionClearsSelectAllAndLeavesTheOthers)
{
    StartTo();
    Press(all);
    Tick(divisions, 1);
    EXPECT_EQ(Divisions(), "# A|B|C*");
    EXPECT_FALSE(all->isChecked());
    EXPECT_TRUE(IsEnabled("cmdTransfer"));
}

TEST_F(GradeCopyChoosing, ATickThatIsRefusedLeavesSelectAllAsItIs)
{
    StartTo();
    Press(all);
    prompts.ExpectInformation(QStringLiteral("Classwise Rank-Grade Setup' Already Exists For This Division"));
    Tick(divisions, 0);
    EXPECT_EQ(Divisions(), "# A|B*|C*");
    EXPECT_TRUE(all->isChecked());
}

TEST_F(GradeCopyChoosing, AnotherFromChoiceEmptiesWhatDependsOnIt)
{
    StartTo();
    Choose("cboFromClass", QStringLiteral("IX"));
    EXPECT_EQ(Choices(), "2024 - 2025/Term One/IX//2024 - 2025/Term One/X");
    EXPECT_EQ(Entries("cboFromDivision"), " |A|B");
    EXPECT_EQ(Rows("msgFromDetails"), "");
    ChooseSource();
    Choose("dbcExamFrom", QStringLiteral("Term Two"));
    EXPECT_EQ(Choices(), "2024 - 2025/Term Two///2024 - 2025/Term One/X");
    EXPECT_EQ(Entries("cboFromDivision"), " ");
    EXPECT_EQ(Rows("msgFromDetails"), "");
    ChooseSource();
    Choose("cboFromAcademicyear", QStringLiteral(" "));
    EXPECT_EQ(Choices(), "////2024 - 2025/Term One/X");
    EXPECT_EQ(Rows("msgFromDetails"), "");
    EXPECT_EQ(Divisions(), "# A|B|C");
}

TEST_F(GradeCopyChoosing, ACopyThatWasNotSavedGoesWithItsSource)
{
    school->AddGrade(TenB, 0, 0, "Z", 1);
    school->AddGrade(InTermTwo(TenA), 0, 0, "Y", 1);
    StartTo("Term One", "2025 - 2026");
    Tick(divisions, 2);
    Press(Button("cmdTransfer"));
    ASSERT_EQ(Rows("msgToDetails"), Shown);
    Choose("cboFromDivision", QStringLiteral("B"));
    EXPECT_EQ(Rows("msgToDetails"), "");
    EXPECT_TRUE(IsEnabled("cmdTransfer"));
    ExpectRefusal(QStringLiteral("Record Does Not Exist On The 'To' Side For Copying"), "msgToDetails");
    EXPECT_EQ(school->Grades(InNextYear(TenC)), "");
    Press(Button("cmdTransfer"));
    EXPECT_EQ(Rows("msgToDetails"), "1 0 0 Z");
    Choose("dbcExamFrom", QStringLiteral("Term Two"));
    EXPECT_EQ(Rows("msgToDetails"), "");
    Choose("cboFromClass", QStringLiteral("X"));
    Choose("cboFromDivision", QStringLiteral("A"));
    Press(Button("cmdTransfer"));
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Grades(InNextYear(TenC)), "0/0 Y 1 5");
}

TEST_F(GradeCopyChoosing, SelectAllStaysTickedOnlyWhileAllThatCanBeAre)
{
    StartCopied();
    Press(all);
    ASSERT_TRUE(all->isChecked());
    const auto changeInMasters = [this](const char* sql) {
        QTest::keyClick(divisions, Qt::Key_C, Qt::AltModifier | Qt::ShiftModifier);
        Settle();
        auto* master = ScreenRegistry::OpenInstance(QStringLiteral("frmMasClassSectionEntry"));
        ASSERT_NE(master, nullptr);
        Given(sql);
        master->Unload();
        Settle();
    };
    changeInMasters("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 3");
    EXPECT_EQ(Divisions(), "# A|B*");
    EXPECT_TRUE(all->isChecked());
    changeInMasters("INSERT INTO ClassDivisionDetails VALUES (1, 'D', 4)");
    EXPECT_EQ(Divisions(), "# A|B*|D");
    EXPECT_FALSE(all->isChecked());
    Press(all);
    EXPECT_EQ(Divisions(), "# A|B*|D*");
    changeInMasters("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode IN (2, 4)");
    EXPECT_EQ(Divisions(), "# A");
    EXPECT_FALSE(all->isChecked()) << "nothing is left that it could tick";
}

TEST_F(GradeCopyChoosing, CopyWithoutATableThatIsShownSaysSo)
{
    StartTo();
    Tick(divisions, 1);
    Choose("cboFromClass", QStringLiteral("IX"));
    prompts.ExpectInformation(QStringLiteral("No Record Exists For Copying"));
    Press(Button("cmdTransfer"));
    prompts.Verify();
    EXPECT_EQ(FocusName(), "cboFromDivision");
    EXPECT_EQ(Rows("msgToDetails"), "");
}

TEST_F(GradeCopyChoosing, AnotherToChoiceEmptiesWhatDependsOnIt)
{
    StartCopied();
    Press(all);
    Choose("dbcExamTo", QStringLiteral("Term Two"));
    EXPECT_EQ(Choices(), "2024 - 2025/Term One/X/A/2024 - 2025/Term Two/");
    EXPECT_EQ(Divisions() + Rows("msgToDetails"), "");
    EXPECT_FALSE(all->isChecked());
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
    EXPECT_EQ(Rows("msgFromDetails"), Shown);
    ChooseTarget("Term Two");
    Press(all);
    Choose("cboToAcademicYear", QStringLiteral("2025 - 2026"));
    EXPECT_EQ(Choices(), "2024 - 2025/Term One/X/A/2025 - 2026/Term Two/");
    EXPECT_EQ(Divisions(), "");
    EXPECT_FALSE(all->isChecked());
    ChooseTarget("Term Two");
    Press(all);
    Choose("cboToClass", QStringLiteral("IX"));
    EXPECT_EQ(Divisions(), "A|B");
    EXPECT_FALSE(all->isChecked());
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
}

TEST_F(GradeCopyChoosing, AListThatCannotBeReadIsToldAndWhatItIsOfIsNotChosen)
{
    StartFromTenA();
    Choose("cboToAcademicYear", QStringLiteral("2024 - 2025"));
    Choose("dbcExamTo", QStringLiteral("Term One"));
    Given("ALTER TABLE RankMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("RankMaster"));
    Choose("cboToClass", QStringLiteral("X"));
    prompts.Verify();
    EXPECT_EQ(ChosenIn("cboToClass"), "");
    prompts.ExpectCritical(NoSuchTable("RankMaster"));
    Choose("cboFromDivision", QStringLiteral("A"));
    prompts.Verify();
    EXPECT_EQ(ChosenIn("cboFromDivision"), "");
    EXPECT_EQ(Rows("msgFromDetails"), "");
    Given("ALTER TABLE ClassDivisionDetails RENAME TO Gone");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionDetails"));
    Choose("cboFromClass", QStringLiteral("IX"));
    prompts.Verify();
    EXPECT_EQ(ChosenIn("cboFromClass"), "");
    Given("ALTER TABLE Away RENAME TO RankMaster");
    Given("ALTER TABLE Gone RENAME TO ClassDivisionDetails");
}

TEST_F(GradeCopyChoosing, TheButtonsOpenTheMastersAndTheListsAreReadAnewOnTheWayBack)
{
    StartCopied();
    QTest::keyClick(divisions, Qt::Key_E, Qt::AltModifier | Qt::ShiftModifier);
    Settle();
    auto* master = ScreenRegistry::OpenInstance(QStringLiteral("frmexamnamemaster"));
    ASSERT_NE(master, nullptr);
    Given("INSERT INTO ExamMaster VALUES (3, 'Term Three', 3, 1)");
    Given("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 3");
    master->Unload();
    Settle();
    EXPECT_EQ(Entries("dbcExamTo"), " |Term One|Term Two|Term Three");
    EXPECT_EQ(Choices(), "2024 - 2025/Term One/X/A/2024 - 2025/Term One/X");
    EXPECT_EQ(Divisions(), "# A|B*");
    EXPECT_EQ(divisions->currentRow(), 1) << "the line of C, on which the keys were, has gone";
    EXPECT_EQ(Rows("msgFromDetails"), Shown);
    EXPECT_EQ(Rows("msgToDetails"), Shown);
}

TEST_F(GradeCopyChoosing, ListsThatCannotBeReadAnewStayAsTheyAre)
{
    StartCopied();
    QTest::keyClick(divisions, Qt::Key_E, Qt::AltModifier | Qt::ShiftModifier);
    Settle();
    auto* master = ScreenRegistry::OpenInstance(QStringLiteral("frmexamnamemaster"));
    ASSERT_NE(master, nullptr);
    Given("ALTER TABLE ExamMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ExamMaster"));
    master->Unload();
    Settle();
    prompts.Verify();
    Given("ALTER TABLE Away RENAME TO ExamMaster");
    EXPECT_EQ(Choices(), "2024 - 2025/Term One/X/A/2024 - 2025/Term One/X");
    EXPECT_EQ(Divisions(), "# A|B*|C*");
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Grades(TenC), Usual);
}

TEST_F(GradeCopyChoosing, WhatWasDeletedInTheMastersIsChosenNoMore)
{
    StartFromTenA();
    Choose("cboToAcademicYear", QStringLiteral("2024 - 2025"));
    Choose("dbcExamTo", QStringLiteral("Term Two"));
    Choose("cboToClass", QStringLiteral("IX"));
    LeaveOthersUnguarded();
    QTest::keyClick(divisions, Qt::Key_C, Qt::AltModifier | Qt::ShiftModifier);
    Settle();
    auto* master = ScreenRegistry::OpenInstance(QStringLiteral("frmMasClassSectionEntry"));
    ASSERT_NE(master, nullptr);
    Given("DELETE FROM RankMaster");
    Given("DELETE FROM ClassDivisionDetails WHERE ClassCode IN (1, 2)");
    Given("DELETE FROM ClassDivisionMaster WHERE ClassCode IN (1, 2)");
    master->Unload();
    Settle();
    EXPECT_EQ(Choices(), "2024 - 2025/Term One///2024 - 2025/Term Two/");
    EXPECT_EQ(Rows("msgFromDetails") + Divisions(), "");
}

using GradeCopySave = GradeCopy;

TEST_F(GradeCopySave, WhatIsMissingIsToldInItsOrderAndTheListGetsTheFocus)
{
    school->SetUpGrades(TenA);
    OpenNew();
    ExpectRefusal(QStringLiteral("Select Academic Year On The 'From' Side"), "cboFromAcademicyear");
    Choose("cboFromAcademicyear", QStringLiteral("2024 - 2025"));
    ExpectRefusal(QStringLiteral("Select Exam Name On The 'From' Side"), "dbcExamFrom");
    Choose("dbcExamFrom", QStringLiteral("Term One"));
    ExpectRefusal(QStringLiteral("Select Class On The 'From' Side"), "cboFromClass");
    Choose("cboFromClass", QStringLiteral("X"));
    ExpectRefusal(QStringLiteral("Select Division On The 'From' Side"), "cboFromDivision");
    Choose("cboFromDivision", QStringLiteral("A"));
    ExpectRefusal(QStringLiteral("Select Academic Year On The 'To' Side"), "cboToAcademicYear");
    Choose("cboToAcademicYear", QStringLiteral("2024 - 2025"));
    ExpectRefusal(QStringLiteral("Select Exam Name On The 'To' Side"), "dbcExamTo");
    Choose("dbcExamTo", QStringLiteral("Term One"));
    ExpectRefusal(QStringLiteral("Select Class On The 'To' Side"), "cboToClass");
    Choose("cboToClass", QStringLiteral("X"));
    ExpectRefusal(QStringLiteral("Select Division(s) On The 'To' Side"), "lstDivision");
    Tick(divisions, 1);
    ExpectRefusal(QStringLiteral("Record Does Not Exist On The 'To' Side For Copying"), "msgToDetails");
    EXPECT_EQ(school->Grades(TenB), "");
}

TEST_F(GradeCopySave, EachTickedDivisionGetsTheTableAndTheScreenBeginsAnewOnNo)
{
    StartCopied();
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Grades(TenB), Usual);
    EXPECT_EQ(school->Grades(TenC), Usual);
    EXPECT_EQ(school->Grades(TenA), "80/50 A 1 -; 0/0 D 2 -");
    EXPECT_EQ(school->Grades(InTermTwo(TenB)) + school->Grades(InNextYear(TenB)), "");
    ExpectIdle();
}

TEST_F(GradeCopySave, DecimalsAreCopiedAsTheyStand)
{
    school->AddGrade(TenA, 66.25, 33.3333333333333, "A", 1);
    school->AddGrade(TenA, 0.5, 0, "D", 2);
    OpenNew();
    ChooseSource();
    ChooseTarget();
    Tick(divisions, 1);
    Press(Button("cmdTransfer"));
    SaveCopy(Copied, false);
    EXPECT_EQ(Count("SELECT count(*) FROM RankMaster a, RankMaster b WHERE a.DivisionCode = 1 AND "
                    "b.DivisionCode = 2 AND a.ClassCode = 1 AND b.ClassCode = 1 AND a.ExamCode = 1 AND "
                    "b.ExamCode = 1 AND a.AcademicYearCode = 7 AND b.AcademicYearCode = 7 AND "
                    "a.TotalAverage = b.TotalAverage AND a.SubjectAverage = b.SubjectAverage AND "
                    "a.Grade = b.Grade AND a.Status = b.Status"),
              2);
}

TEST_F(GradeCopySave, OnYesTheFromSideStaysAndTheToSideIsChosenAnew)
{
    StartCopied();
    SaveCopy(Copied, true);
    EXPECT_EQ(Choices(), "2024 - 2025/Term One/X/A///");
    EXPECT_EQ(Rows("msgFromDetails"), Shown);
    EXPECT_EQ(Divisions() + Rows("msgToDetails"), "");
    EXPECT_EQ(EnabledControls(), InEntry);
    EXPECT_EQ(FocusName(), "cboToAcademicYear");
    ChooseTarget();
    EXPECT_EQ(Divisions(), "# A|# B|# C");
    ChooseTarget("Term Two", "2025 - 2026");
    Press(all);
    Press(Button("cmdTransfer"));
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Grades(InNextYear(InTermTwo(TenA))), Usual);
    EXPECT_EQ(school->Grades(InNextYear(InTermTwo(TenC))), Usual);
}

TEST_F(GradeCopySave, ACopyIsMadeByKeyboardAlone)
{
    school->SetUpGrades(TenA);
    OpenForm();
    const auto key = [this](Qt::Key pressed, Qt::KeyboardModifiers with = Qt::NoModifier) {
        PressKey(form, pressed, with);
        Settle();
    };
    const auto type = [](const char* text) {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
    };
    key(Qt::Key_N, Qt::AltModifier);
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    type("X");
    key(Qt::Key_Return);
    type("A");
    key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "cboToAcademicYear");
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    type("X");
    key(Qt::Key_I, Qt::AltModifier);
    EXPECT_EQ(FocusName(), "lstDivision");
    key(Qt::Key_Down);
    key(Qt::Key_Space);
    key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "cmdTransfer");
    key(Qt::Key_Return);
    EXPECT_EQ(Rows("msgToDetails"), Shown);
    prompts.ExpectInformation(QString::fromLatin1(Copied));
    prompts.ExpectQuestion(CopyAgain, false);
    key(Qt::Key_S, Qt::AltModifier);
    prompts.Verify();
    EXPECT_EQ(school->Grades(TenB), Usual);
    EXPECT_EQ(school->Grades(TenC), "");
    ExpectIdle();
}

TEST_F(GradeCopySave, ADivisionThatGotATableMeanwhileIsToldAndKeepsIt)
{
    StartCopied();
    Other("INSERT INTO RankMaster VALUES (7, 1, 1, 2, 0, 0, 'Z', 1, NULL)");
    SaveTells(Prompts::Kind::Information,
              QStringLiteral("'Classwise Rank-Grade Setup' Of Division(s) B Was Entered By Another User "
                             "Meanwhile.\nYou Cannot Save This Data."));
    EXPECT_EQ(school->Grades(TenB), "0/0 Z 1 -");
    EXPECT_EQ(school->Grades(TenC), "");
    EXPECT_EQ(Divisions(), "# A|# B|C*");
    EXPECT_EQ(Choices(), "2024 - 2025/Term One/X/A/2024 - 2025/Term One/X");
    EXPECT_EQ(Rows("msgToDetails"), Shown);
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Grades(TenB), "0/0 Z 1 -");
    EXPECT_EQ(school->Grades(TenC), Usual);
}

TEST_F(GradeCopySave, ASourceEmptiedAfterItWasShownIsCopiedAsItIsShown)
{
    StartCopied();
    Other("DELETE FROM RankMaster WHERE AcademicYearCode = 7 AND ExamCode = 1 AND ClassCode = 1 AND "
          "DivisionCode = 1");
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Grades(TenB), Usual);
    EXPECT_EQ(school->Grades(TenA), "");
}

TEST_F(GradeCopySave, MarksOfTheExamAreNoHindranceForADivisionWithoutATable)
{
    StartCopied();
    school->EnterMark(TenB, 1, 45);
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Grades(TenB), Usual);
}

TEST_F(GradeCopySave, ADivisionDeletedMeanwhileIsDescribedAndTheOthersStayTicked)
{
    StartCopied();
    Other("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 3");
    SaveTells(Prompts::Kind::Critical, NoReference);
    EXPECT_EQ(school->Grades(TenB), "") << "all divisions or none";
    EXPECT_EQ(Divisions(), "# A|B*");
    EXPECT_EQ(Rows("msgToDetails"), Shown);
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Grades(TenB), Usual);
}

TEST_F(GradeCopySave, AnExamDeletedMeanwhileIsDescribedAndCanBeChosenNoMore)
{
    StartTo("Term Two");
    Tick(divisions, 1);
    Press(Button("cmdTransfer"));
    Other("DELETE FROM ExamMaster WHERE ExamCode = 2");
    SaveTells(Prompts::Kind::Critical, NoReference);
    EXPECT_EQ(Choices(), "2024 - 2025/Term One/X/A/2024 - 2025//X");
    EXPECT_EQ(Divisions(), "");
    EXPECT_EQ(school->Grades(InTermTwo(TenB)), "");
}

TEST_F(GradeCopySave, AYearDeletedMeanwhileIsDescribedAndCanBeChosenNoMore)
{
    StartTo("Term One", "2025 - 2026");
    Tick(divisions, 1);
    Press(Button("cmdTransfer"));
    Other("DELETE FROM AcademicYearSetup WHERE AcademicYearCode = 9");
    SaveTells(Prompts::Kind::Critical, NoReference);
    EXPECT_EQ(Choices(), "2024 - 2025/Term One/X/A//Term One/X");
    EXPECT_EQ(Entries("cboToAcademicYear"), " |2024 - 2025");
    EXPECT_EQ(Divisions(), "");
}

TEST_F(GradeCopySave, AStoreLockedByAnotherClientIsToldAndTheSaveCanBeRepeated)
{
    StartCopied();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    {
        const auto other = AnotherClient();
        const store::Transaction holding(*other);
        SaveTells(Prompts::Kind::Critical, HeldByAnotherClient);
        EXPECT_EQ(Rows("msgToDetails"), Shown);
        EXPECT_EQ(Divisions(), "# A|B*|C*");
    }
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Grades(TenC), Usual);
}

TEST_F(GradeCopySave, AFullDiskIsToldAndTheSaveCanBeRepeated)
{
    {
        store::Transaction transaction(*Session().gcnnMain);
        for (int grade = 1; grade < 400; ++grade)
            school->AddGrade(TenA, 400 - grade, 0, "G", grade);
        transaction.Commit();
    }
    OpenNew();
    ChooseSource();
    ChooseTarget();
    Press(all);
    Press(Button("cmdTransfer"));
    Count("PRAGMA max_page_count = 1");
    SaveTells(Prompts::Kind::Critical, DiskIsFull);
    EXPECT_EQ(school->Grades(TenB), "");
    EXPECT_EQ(Divisions(), "# A|B*|C*");
    Count("PRAGMA max_page_count = 1073741823");
    SaveCopy(Copied, false);
    EXPECT_EQ(Count("SELECT count(*) FROM RankMaster WHERE UserCode = 5"), 2 * 399);
}

TEST_F(GradeCopySave, AFaultInReadingTheListsAnewSaysThatTheCopyIsSaved)
{
    StartCopied();
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind kind, const QString& text) {
        EXPECT_NE(kind, Prompts::Kind::Critical);
        if (told.isEmpty())
            Given("ALTER TABLE ExamMaster RENAME TO Away");
        told.append(text);
        return kind != Prompts::Kind::Question;
    });
    Press(Button("cmdSave"));
    ASSERT_EQ(told.size(), 3);
    EXPECT_EQ(told.at(0).toStdString(), Copied);
    EXPECT_TRUE(told.at(2).startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
    EXPECT_EQ(school->Grades(TenB), Usual);
}

} // namespace
} // namespace tally::test
