#include "exams/CopyScreen.h"
#include "exams/frmClassSubjectTeacherTransfer.h"

#include <QAbstractItemView>
#include <QLabel>

#include <chrono>

namespace tally::test {
namespace {

const char* const Form = "frmClassSubjectTeacherTransfer";
const char* const Copied = "'Classwise Subject-Teacher-Mark Entry' Copied";
const QString Exists =
    QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Already Exists For This Division");
const QString SamePlace =
    QStringLiteral("Copying Cannot Be Made Within The Same 'Academic Year-Class-Division'");
const QString Gone = QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data.");
const std::string Usual = "Maths Sen 50/50 No 1; English Rao 100/80 Yes 2";
/// The same as the grids show it.
const std::string Shown = "1 Maths Sen 50 50 No 1 2 2|2 English Rao 100 80 Yes 2 1 1";

class SubjectCopy : public CopyScreen<frmClassSubjectTeacherTransfer>
{
protected:
    void OpenForm() { CopyScreen::OpenForm(Form); }
    void OpenNew()
    {
        OpenForm();
        Press(Button("cmdNew"));
    }
    /// New, with X-A of this year on the left.
    void StartFromTenA()
    {
        school->SetUpSubjects(TenA);
        OpenNew();
        Choose("cboFromAcademicyear", QStringLiteral("2024 - 2025"));
        Choose("cboClassFrom", QStringLiteral("X"));
        Choose("cboDivision", QStringLiteral("A"));
        ASSERT_EQ(Rows("msgDetails"), Shown);
    }
    /// The same, and a division of X on the right.
    void StartTo(const char* division, const char* year = "2024 - 2025")
    {
        StartFromTenA();
        Choose("cboAcademicYearTo", QString::fromLatin1(year));
        Choose("cboClassTo", QStringLiteral("X"));
        Choose("cboDivisionTo", QString::fromLatin1(division));
    }
    /// The same, and copied.
    void StartCopied(const char* division, const char* year = "2024 - 2025")
    {
        StartTo(division, year);
        Press(Button("cmdTransfer"));
        ASSERT_EQ(Rows("msgToDetails"), Shown);
    }
    std::string Choices() const
    {
        return ChosenIn({"cboFromAcademicyear", "cboClassFrom", "cboDivision", "cboAcademicYearTo",
                         "cboClassTo", "cboDivisionTo"});
    }
    std::string EnabledControls() const
    {
        return Enabled({"fraMain", "cmdTransfer", "cmdNew", "cmdSave", "cmdCancel", "cmdExit"});
    }
    void ExpectIdle() const
    {
        EXPECT_EQ(EnabledControls(), "cmdNew cmdCancel cmdExit");
        EXPECT_EQ(Choices(), "/////");
        EXPECT_EQ(Entries("cboDivision") + Entries("cboDivisionTo"), "  ");
        EXPECT_EQ(Rows("msgDetails") + Rows("msgToDetails"), "");
        EXPECT_EQ(FocusName(), "cmdNew");
    }
    /// Saves, is told `text`, and finds all as it was but for the chosen division, which is chosen anew.
    void SaveIsRefused(const char* text)
    {
        SaveTells(Prompts::Kind::Information, QString::fromLatin1(text));
        EXPECT_EQ(Choices(), "2024 - 2025/X/A/2024 - 2025/X/");
        EXPECT_EQ(Rows("msgToDetails"), Shown) << "it can still go to another division";
        EXPECT_EQ(EnabledControls(), "fraMain cmdSave cmdCancel cmdExit");
        EXPECT_EQ(FocusName(), "cboDivisionTo");
    }
    /// Copies to X-B of the next year, for which another client deletes what is needed.
    void SaveFindsGone(std::initializer_list<const char*> deletions)
    {
        StartCopied("B", "2025 - 2026");
        for (const char* deletion : deletions)
            Other(deletion);
        SaveTells(Prompts::Kind::Critical, Gone);
        ExpectIdle();
        EXPECT_EQ(school->Subjects(InNextYear(TenB)), "");
    }
};

using SubjectCopyOpening = SubjectCopy;

TEST_F(SubjectCopyOpening, TheScreenOpensWithNothingChosenAndWaitsForNew)
{
    OpenForm();
    EXPECT_EQ(form->windowTitle().toStdString(), "Classwise Subject - Teacher - Mark  Entry - Copy");
    EXPECT_EQ(Find<QLabel>(form, "lblMark")->text().toStdString(), ".");
    EXPECT_EQ(Find<QLabel>(form, "lblNote")->text().toStdString(),
              "Prefix With Division Name Denotes Entry Already Posted To That Division");
    ExpectIdle();
    EXPECT_EQ(Entries("cboFromAcademicyear"), " |2024 - 2025");
    EXPECT_EQ(Entries("cboAcademicYearTo"), " |2024 - 2025|2025 - 2026");
    EXPECT_EQ(Entries("cboClassFrom"), " |IX|X");
    EXPECT_EQ(Entries("cboClassTo"), " |IX|X");
}

TEST_F(SubjectCopyOpening, ItFitsASmallDisplayAndItsLettersLeadToOneControlEach)
{
    ExpectToFit(QString::fromLatin1(Form));
    ExpectOneControlALetter(Open<frmClassSubjectTeacherTransfer>(Form));
}

TEST_F(SubjectCopyOpening, TheGridsShowWhatTheScreenOfTheSetUpShowsAndEndInABlankRow)
{
    OpenForm();
    const auto* grid = Find<FlexGrid>(form, "msgDetails");
    std::string heads;
    for (int col = 0; col < grid->Cols(); ++col)
        heads += grid->TextMatrix(0, col).toStdString() + '|';
    EXPECT_EQ(heads, "S.No.|Subject Name|Teacher Name|Maximum Mark|Maximum Allowed|Taken For Rank|Subject "
                     "Order|SubjectCode|Teachercode|");
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_TRUE(grid->isColumnHidden(7));
    EXPECT_TRUE(grid->isColumnHidden(8));
}

TEST_F(SubjectCopyOpening, NewAsksForNoRight)
{
    GivenUser(9, QStringLiteral("clerk"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 9;
    OpenNew();
    EXPECT_EQ(EnabledControls(), "fraMain cmdSave cmdCancel cmdExit");
    EXPECT_EQ(FocusName(), "cboFromAcademicyear");
}

TEST_F(SubjectCopyOpening, WithoutANextYearOnlyTheCurrentOneIsATarget)
{
    Given("DELETE FROM AcademicYearSetup WHERE AcademicYearCode = 9");
    OpenForm();
    EXPECT_EQ(Entries("cboAcademicYearTo"), " |2024 - 2025");
}

TEST_F(SubjectCopyOpening, WithoutTheListsNothingCanBeBegunUntilTheyAreRead)
{
    Given("ALTER TABLE ClassDivisionMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionMaster"));
    Driver::OpenForm(Form);
    prompts.Verify();
    EXPECT_EQ(EnabledControls(), "cmdCancel cmdExit");
    EXPECT_EQ(FocusName(), "cmdCancel");
    Given("ALTER TABLE Away RENAME TO ClassDivisionMaster");
    Press(Button("cmdCancel"));
    ExpectIdle();
    EXPECT_EQ(Entries("cboClassTo"), " |IX|X");
}

TEST_F(SubjectCopyOpening, CancelGoesBackToTheBeginning)
{
    StartCopied("C");
    Press(Button("cmdCancel"));
    ExpectIdle();
    EXPECT_EQ(school->Subjects(TenC), "");
}

using SubjectCopyChoosing = SubjectCopy;

TEST_F(SubjectCopyChoosing, TheFromDivisionShowsItsSubjectsInTheirOrder)
{
    StartFromTenA();
    EXPECT_EQ(Entries("cboDivision"), " |A|B|C");
    Choose("cboDivision", QStringLiteral(" "));
    EXPECT_EQ(Rows("msgDetails"), "");
}

TEST_F(SubjectCopyChoosing, ADivisionWithoutASetUpIsToldAndNotChosen)
{
    OpenNew();
    Choose("cboClassFrom", QStringLiteral("X"));
    prompts.ExpectInformation(
        QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Selected Combination"));
    Choose("cboDivision", QStringLiteral("A"));
    prompts.Verify();
    EXPECT_EQ(ChosenIn("cboDivision"), "");
    EXPECT_EQ(FocusName(), "cboDivision");
    EXPECT_EQ(Rows("msgDetails"), "");
}

TEST_F(SubjectCopyChoosing, TheArrowsReadNothingAndWhatBelongsToAnotherChoiceDoesNotStay)
{
    StartTo("B");
    Press(Button("cmdTransfer"));
    const auto before = Session().gcnnMain->StatementsRun();
    const auto walk = [this](const char* name) {
        List(name)->setFocus();
        QTest::keyClick(List(name), Qt::Key_Home);
        QTest::keyClick(List(name), Qt::Key_End);
    };
    walk("cboDivisionTo");
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
    // Who gives up waits for nothing.
    Button("cmdCancel")->setFocus();
    walk("cboDivision");
    EXPECT_EQ(Rows("msgDetails") + Rows("msgToDetails"), "");
    Button("cmdCancel")->setFocus();
    walk("cboClassFrom");
    EXPECT_EQ(Entries("cboDivision"), " ");
    Button("cmdCancel")->setFocus();
    walk("cboClassTo");
    EXPECT_EQ(Entries("cboDivisionTo"), " ");
    EXPECT_EQ(Session().gcnnMain->StatementsRun(), before);
    QTest::keyClick(List("cboClassTo"), Qt::Key_Tab);
    EXPECT_EQ(Entries("cboDivisionTo"), " |.A|B|C");
}

TEST_F(SubjectCopyChoosing, WhoGoesBackFromATargetIsNotLedToCopy)
{
    StartTo("C");
    List("cboDivisionTo")->setFocus();
    QTest::keyClick(List("cboDivisionTo"), Qt::Key_Up);
    QTest::keyClick(List("cboDivisionTo"), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(FocusName(), "cboClassTo");
    EXPECT_TRUE(IsEnabled("cmdTransfer"));
}

TEST_F(SubjectCopyChoosing, ATargetThatWasNotReadIsNotStoredInEither)
{
    school->AddSubject(TenB, 3, 1);
    StartTo("C");
    Choose("cboDivision", QStringLiteral("B"));
    Press(Button("cmdTransfer"));
    for (const auto& [presses, text] : {std::pair(1, SamePlace), std::pair(2, Exists)}) {
        List("cboDivisionTo")->setFocus();
        QTest::keyClick(List("cboDivisionTo"), Qt::Key_End);
        for (int press = 0; press < presses; ++press)
            QTest::keyClick(List("cboDivisionTo"), Qt::Key_Up);
        Button("cmdExit")->setFocus();
        ExpectRefusal(text, "cboDivisionTo");
    }
    EXPECT_EQ(school->Subjects(TenB), "Art Rao 100/100 Yes 1");
    EXPECT_EQ(school->Subjects(TenA), Usual);
}

TEST_F(SubjectCopyChoosing, ADivisionWithoutASetUpDoesNotBarTheWayToTheNextOne)
{
    school->SetUpSubjects(TenB);
    OpenNew();
    Choose("cboClassFrom", QStringLiteral("X"));
    prompts.ExpectInformation(
        QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Selected Combination"));
    Choose("cboDivision", QStringLiteral("A"));
    QTest::keyClick(List("cboDivision"), Qt::Key_Down);
    QTest::keyClick(List("cboDivision"), Qt::Key_Return);
    EXPECT_EQ(ChosenIn("cboDivision"), "B");
    EXPECT_EQ(Rows("msgDetails"), Shown);
}

TEST_F(SubjectCopyChoosing, ASourceEmptiedMeanwhileIsToldWhenItIsChosen)
{
    school->SetUpSubjects(TenA);
    OpenNew();
    Choose("cboClassFrom", QStringLiteral("X"));
    Other(
        "DELETE FROM ClassSubjectTeacher WHERE AcademicYearCode = 7 AND ClassCode = 1 AND DivisionCode = 1");
    prompts.ExpectInformation(
        QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Selected Combination"));
    Choose("cboDivision", QStringLiteral("A"));
}

TEST_F(SubjectCopyChoosing, ADivisionWithMoreThanOneSubjectIsListedWithAPoint)
{
    school->AddSubject(TenB, 3, 1);
    StartTo("C");
    EXPECT_EQ(Entries("cboDivisionTo"), " |.A|B|C");
    Choose("cboAcademicYearTo", QStringLiteral("2025 - 2026"));
    Choose("cboClassTo", QStringLiteral("X"));
    EXPECT_EQ(Entries("cboDivisionTo"), " |A|B|C");
}

TEST_F(SubjectCopyChoosing, TheTargetsNeedYearAndClass)
{
    StartFromTenA();
    Choose("cboClassTo", QStringLiteral("X"));
    EXPECT_EQ(Entries("cboDivisionTo"), " ");
    Choose("cboAcademicYearTo", QStringLiteral("2024 - 2025"));
    EXPECT_EQ(ChosenIn("cboClassTo"), "");
    EXPECT_EQ(Entries("cboDivisionTo"), " ");
}

TEST_F(SubjectCopyChoosing, ATargetWithASetUpIsToldAndCannotBeCopiedTo)
{
    school->SetUpSubjects(TenB);
    StartTo("C");
    EXPECT_TRUE(IsEnabled("cmdTransfer"));
    prompts.ExpectInformation(Exists);
    Choose("cboDivisionTo", QStringLiteral(".B"));
    prompts.Verify();
    EXPECT_EQ(ChosenIn("cboDivisionTo"), ".B");
    EXPECT_EQ(FocusName(), "cboDivisionTo");
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
}

TEST_F(SubjectCopyChoosing, AClassDivisionIsNotCopiedOntoItself)
{
    school->AddSubject(TenB, 3, 1);
    StartTo("B");
    prompts.ExpectInformation(SamePlace);
    Choose("cboDivision", QStringLiteral("B"));
    prompts.Verify();
    EXPECT_EQ(Choices(), "2024 - 2025/X/B/2024 - 2025/X/");
    EXPECT_EQ(FocusName(), "cboDivisionTo");
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
    prompts.ExpectInformation(SamePlace);
    Choose("cboDivisionTo", QStringLiteral("B"));
    prompts.Verify();
    EXPECT_EQ(ChosenIn("cboDivisionTo"), "");
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
}

TEST_F(SubjectCopyChoosing, ASourceThatIsChosenAsItsTargetIsToldAsTheSamePlaceThoughItIsSetUp)
{
    StartTo("B");
    prompts.ExpectInformation(SamePlace);
    Choose("cboDivisionTo", QStringLiteral(".A"));
    prompts.Verify();
    EXPECT_EQ(ChosenIn("cboDivisionTo"), "");
}

TEST_F(SubjectCopyChoosing, TheSameClassDivisionOfTheNextYearIsAnotherPlace)
{
    StartTo("A", "2025 - 2026");
    EXPECT_TRUE(IsEnabled("cmdTransfer"));
}

TEST_F(SubjectCopyChoosing, ADivisionOfTheSameLetterInAnotherClassIsAnotherPlace)
{
    StartFromTenA();
    Choose("cboAcademicYearTo", QStringLiteral("2024 - 2025"));
    Choose("cboClassTo", QStringLiteral("IX"));
    Choose("cboDivisionTo", QStringLiteral("A"));
    EXPECT_TRUE(IsEnabled("cmdTransfer"));
    Choose("cboDivisionTo", QStringLiteral(" "));
    EXPECT_FALSE(IsEnabled("cmdTransfer")) << "nowhere is none";
}

TEST_F(SubjectCopyChoosing, EnterOnAFreeTargetLeadsToCopy)
{
    StartTo("C");
    WalkTo("cboDivisionTo", QStringLiteral("B"));
    EXPECT_EQ(FocusName(), "cboDivisionTo");
    QTest::keyClick(List("cboDivisionTo"), Qt::Key_Return);
    EXPECT_EQ(FocusName(), "cmdTransfer");
    QTest::keyClick(Button("cmdTransfer"), Qt::Key_Return);
    EXPECT_EQ(Rows("msgToDetails"), Shown);
}

TEST_F(SubjectCopyChoosing, WhenTheOpenListClosesOverAFreeTargetCopyTakesTheFocus)
{
    StartTo("C");
    DataCombo* list = List("cboDivisionTo");
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_Up);
    QTest::keyClick(list->view(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(ChosenIn("cboDivisionTo"), "B");
    EXPECT_EQ(FocusName(), "cmdTransfer");
}

TEST_F(SubjectCopyChoosing, WhenTheOpenListClosesOverARefusedTargetTheFocusStays)
{
    school->SetUpSubjects(TenB);
    StartTo("C");
    DataCombo* list = List("cboDivisionTo");
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_Up);
    prompts.ExpectInformation(Exists);
    QTest::keyClick(list->view(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(FocusName(), "cboDivisionTo");
}

TEST_F(SubjectCopyChoosing, CopyShowsEveryColumnOfTheSourceAndStoresNothing)
{
    StartCopied("B");
    EXPECT_EQ(school->Subjects(TenB), "");
    EXPECT_TRUE(IsEnabled("cmdTransfer"));
}

TEST_F(SubjectCopyChoosing, AnotherFromClassEmptiesBothGridsAndSwitchesCopyOff)
{
    StartCopied("B");
    Choose("cboClassFrom", QStringLiteral("IX"));
    EXPECT_EQ(Choices(), "2024 - 2025/IX//2024 - 2025/X/B");
    EXPECT_EQ(Rows("msgDetails") + Rows("msgToDetails"), "");
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
    EXPECT_EQ(Entries("cboDivision"), " |A|B");
}

TEST_F(SubjectCopyChoosing, AnotherSourceBringsCopyBackForTheTargetThatIsChosen)
{
    school->SetUpSubjects(NineA);
    school->SetUpSubjects(TenB);
    StartTo("C");
    Choose("cboClassFrom", QStringLiteral("IX"));
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
    Choose("cboDivision", QStringLiteral("A"));
    EXPECT_TRUE(IsEnabled("cmdTransfer"));
    prompts.ExpectInformation(Exists);
    Choose("cboDivisionTo", QStringLiteral(".B"));
    prompts.Verify();
    Choose("cboClassFrom", QStringLiteral("X"));
    Choose("cboDivision", QStringLiteral("A"));
    EXPECT_FALSE(IsEnabled("cmdTransfer")) << "the target is no free one";
}

TEST_F(SubjectCopyChoosing, ACopyOfOneDivisionIsNotStoredAsThatOfAnotherOne)
{
    school->AddSubject(TenB, 3, 1);
    StartCopied("C");
    Choose("cboDivision", QStringLiteral("B"));
    EXPECT_EQ(Rows("msgDetails"), "1 Art Rao 100 100 Yes 1 3 1");
    EXPECT_EQ(Rows("msgToDetails"), "");
    EXPECT_TRUE(IsEnabled("cmdTransfer"));
    ExpectRefusal(QStringLiteral("Record Does Not Exist On The 'To' Side For Copying"), "msgToDetails");
    Press(Button("cmdTransfer"));
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Subjects(TenC), "Art Rao 100/100 Yes 1");
}

TEST_F(SubjectCopyChoosing, CopyIsOffWhileTheSourceIsEmpty)
{
    StartCopied("C");
    Choose("cboDivision", QStringLiteral(" "));
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
    prompts.ExpectInformation(
        QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Selected Combination"));
    Choose("cboDivision", QStringLiteral("B"));
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
    EXPECT_EQ(Rows("msgToDetails"), "");
}

TEST_F(SubjectCopyChoosing, AnotherFromYearEmptiesTheGridsTheClassesAndTheDivisions)
{
    StartCopied("B");
    Choose("cboFromAcademicyear", QStringLiteral(" "));
    EXPECT_EQ(Choices(), "///2024 - 2025//");
    EXPECT_EQ(Rows("msgDetails") + Rows("msgToDetails"), "");
    EXPECT_EQ(Entries("cboDivision") + Entries("cboDivisionTo"), "  ");
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
}

TEST_F(SubjectCopyChoosing, AnotherToYearEmptiesItsGridItsClassAndItsDivisions)
{
    StartCopied("B");
    Choose("cboAcademicYearTo", QStringLiteral("2025 - 2026"));
    EXPECT_EQ(Choices(), "2024 - 2025/X/A/2025 - 2026//");
    EXPECT_EQ(Rows("msgDetails"), Shown);
    EXPECT_EQ(Rows("msgToDetails"), "");
    EXPECT_EQ(Entries("cboDivisionTo"), " ");
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
}

TEST_F(SubjectCopyChoosing, AnotherToClassEmptiesItsGridAndListsItsDivisions)
{
    StartCopied("B");
    Choose("cboClassTo", QStringLiteral("IX"));
    EXPECT_EQ(Choices(), "2024 - 2025/X/A/2024 - 2025/IX/");
    EXPECT_EQ(Rows("msgToDetails"), "");
    EXPECT_EQ(Entries("cboDivisionTo"), " |A|B");
    EXPECT_FALSE(IsEnabled("cmdTransfer"));
}

TEST_F(SubjectCopyChoosing, AListThatCannotBeReadIsToldAndWhatItIsOfIsNotChosen)
{
    StartFromTenA();
    Choose("cboAcademicYearTo", QStringLiteral("2024 - 2025"));
    Given("ALTER TABLE ClassSubjectTeacher RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ClassSubjectTeacher"));
    Choose("cboClassTo", QStringLiteral("X"));
    prompts.Verify();
    EXPECT_EQ(ChosenIn("cboClassTo"), "");
    prompts.ExpectCritical(NoSuchTable("ClassSubjectTeacher"));
    Choose("cboDivision", QStringLiteral("A"));
    prompts.Verify();
    EXPECT_EQ(ChosenIn("cboDivision"), "");
    EXPECT_EQ(Rows("msgDetails"), "");
    Given("ALTER TABLE ClassDivisionDetails RENAME TO Gone");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionDetails"));
    Choose("cboClassFrom", QStringLiteral("IX"));
    prompts.Verify();
    EXPECT_EQ(ChosenIn("cboClassFrom"), "");
    Given("ALTER TABLE Away RENAME TO ClassSubjectTeacher");
    Given("ALTER TABLE Gone RENAME TO ClassDivisionDetails");
}

using SubjectCopySave = SubjectCopy;

TEST_F(SubjectCopySave, WhatIsMissingIsToldInItsOrderAndTheListGetsTheFocus)
{
    school->SetUpSubjects(TenA);
    OpenNew();
    ExpectRefusal(QStringLiteral("Select Academic Year On The 'From' Side"), "cboFromAcademicyear");
    Choose("cboFromAcademicyear", QStringLiteral("2024 - 2025"));
    ExpectRefusal(QStringLiteral("Select Class On The 'From' Side"), "cboClassFrom");
    Choose("cboClassFrom", QStringLiteral("X"));
    ExpectRefusal(QStringLiteral("Select Division On The 'From' Side"), "cboDivision");
    Choose("cboDivision", QStringLiteral("A"));
    ExpectRefusal(QStringLiteral("Select Academic Year On The 'To' Side"), "cboAcademicYearTo");
    Choose("cboAcademicYearTo", QStringLiteral("2024 - 2025"));
    ExpectRefusal(QStringLiteral("Select Class On The 'To' Side"), "cboClassTo");
    Choose("cboClassTo", QStringLiteral("X"));
    ExpectRefusal(QStringLiteral("Select Division On The 'To' Side"), "cboDivisionTo");
    Choose("cboDivisionTo", QStringLiteral("C"));
    ExpectRefusal(QStringLiteral("Record Does Not Exist On The 'To' Side For Copying"), "msgToDetails");
    EXPECT_EQ(school->Subjects(TenC), "");
}

TEST_F(SubjectCopySave, ATargetThatIsSetUpIsToldBehindWhatIsMissingAndBeforeThatNothingIsCopied)
{
    school->SetUpSubjects(TenB);
    StartFromTenA();
    Choose("cboAcademicYearTo", QStringLiteral("2024 - 2025"));
    Choose("cboClassTo", QStringLiteral("X"));
    prompts.ExpectInformation(Exists);
    Choose("cboDivisionTo", QStringLiteral(".B"));
    ExpectRefusal(Exists, "cboDivisionTo");
    Choose("cboDivision", QStringLiteral(" "));
    ExpectRefusal(QStringLiteral("Select Division On The 'From' Side"), "cboDivision");
}

TEST_F(SubjectCopySave, ACopyKeepsOrderMaximumMarksAndRankAndTheScreenBeginsAnewOnNo)
{
    StartCopied("B");
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Subjects(TenB), Usual);
    EXPECT_EQ(school->Subjects(TenA), Usual);
    EXPECT_EQ(school->Subjects(TenC), "");
    ExpectIdle();
}

TEST_F(SubjectCopySave, OnYesTheFromSideStaysAndTheToSideIsChosenAnew)
{
    StartCopied("B");
    SaveCopy(Copied, true);
    EXPECT_EQ(Choices(), "2024 - 2025/X/A///");
    EXPECT_EQ(Rows("msgDetails"), Shown);
    EXPECT_EQ(Rows("msgToDetails"), "");
    EXPECT_EQ(Entries("cboDivisionTo"), " ");
    EXPECT_EQ(EnabledControls(), "fraMain cmdSave cmdCancel cmdExit");
    EXPECT_EQ(FocusName(), "cboAcademicYearTo");
    Choose("cboAcademicYearTo", QStringLiteral("2024 - 2025"));
    Choose("cboClassTo", QStringLiteral("X"));
    EXPECT_EQ(Entries("cboDivisionTo"), " |.A|.B|C");
    Choose("cboDivisionTo", QStringLiteral("C"));
    Press(Button("cmdTransfer"));
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Subjects(TenC), Usual);
}

TEST_F(SubjectCopySave, InTheNextYearTheSameClassDivisionGetsTheCopy)
{
    StartCopied("A", "2025 - 2026");
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Subjects(InNextYear(TenA)), Usual);
}

TEST_F(SubjectCopySave, ASourceWithOneSubjectReplacesTheOneSubjectOfItsTarget)
{
    school->AddSubject(NineA, 1, 4, 60);
    school->AddSubject(TenB, 3, 1);
    OpenNew();
    Choose("cboFromAcademicyear", QStringLiteral("2024 - 2025"));
    Choose("cboClassFrom", QStringLiteral("IX"));
    Choose("cboDivision", QStringLiteral("A"));
    Choose("cboAcademicYearTo", QStringLiteral("2024 - 2025"));
    Choose("cboClassTo", QStringLiteral("X"));
    Choose("cboDivisionTo", QStringLiteral("B"));
    Press(Button("cmdTransfer"));
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Subjects(TenB), "English Rao 60/60 Yes 4");
}

TEST_F(SubjectCopySave, ACopyIsMadeByKeyboardAlone)
{
    school->SetUpSubjects(TenA);
    OpenForm();
    const auto key = [this](Qt::Key pressed, Qt::KeyboardModifiers with = Qt::NoModifier) {
        PressKey(form, pressed, with);
        Settle();
    };
    key(Qt::Key_N, Qt::AltModifier);
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "cboClassFrom");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("X"));
    key(Qt::Key_Return);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("A"));
    key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "cboAcademicYearTo");
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("X"));
    key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "cboDivisionTo");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("B"));
    key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "cmdTransfer");
    key(Qt::Key_Return);
    prompts.ExpectInformation(QString::fromLatin1(Copied));
    prompts.ExpectQuestion(CopyAgain, false);
    key(Qt::Key_S, Qt::AltModifier);
    prompts.Verify();
    EXPECT_EQ(school->Subjects(TenB), Usual);
    ExpectIdle();
}

TEST_F(SubjectCopySave, ACopyMadeForAFreeDivisionIsNotStoredOverOneThatIsSetUp)
{
    school->SetUpSubjects(InNextYear(TenB));
    StartCopied("C", "2025 - 2026");
    prompts.ExpectInformation(Exists);
    Choose("cboDivisionTo", QStringLiteral(".B"));
    prompts.Verify();
    ExpectRefusal(Exists, "cboDivisionTo");
    EXPECT_EQ(school->Subjects(InNextYear(TenB)), Usual);
}

TEST_F(SubjectCopySave, ATargetSetUpMeanwhileIsToldAndNothingOfItIsLost)
{
    StartCopied("B");
    Other("INSERT INTO ClassSubjectTeacher VALUES (7, 1, 2, 3, 1, 10, 10, 'No', 1), "
          "(7, 1, 2, 2, 1, 10, 10, 'No', 2)");
    SaveIsRefused("Subjects Of This Class-Division Were Entered By Another User Meanwhile.\n"
                  "You Cannot Save This Data.");
    EXPECT_EQ(school->Subjects(TenB), "Art Rao 10/10 No 1; Maths Rao 10/10 No 2");
    EXPECT_EQ(Entries("cboDivisionTo"), " |.A|.B|C");
    Choose("cboDivisionTo", QStringLiteral("C"));
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Subjects(TenC), Usual);
}

TEST_F(SubjectCopySave, ASingleSubjectEnteredAtTheTargetMeanwhileIsToldAndNotLost)
{
    StartCopied("B");
    Other("INSERT INTO ClassSubjectTeacher VALUES (7, 1, 2, 3, 1, 10, 10, 'No', 1)");
    SaveIsRefused("Subjects Of This Class-Division Were Entered By Another User Meanwhile.\n"
                  "You Cannot Save This Data.");
    EXPECT_EQ(school->Subjects(TenB), "Art Rao 10/10 No 1");
    Choose("cboDivisionTo", QStringLiteral("B"));
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Subjects(TenB), Usual) << "chosen once more, it is known";
}

TEST_F(SubjectCopySave, TheOneSubjectOfTheTargetThatWasChangedMeanwhileIsToldAndNotLost)
{
    school->AddSubject(TenB, 3, 1);
    StartCopied("B");
    Other("UPDATE ClassSubjectTeacher SET TeacherCode = 2 WHERE AcademicYearCode = 7 AND ClassCode = 1 AND "
          "DivisionCode = 2");
    SaveIsRefused("Subjects Of This Class-Division Were Changed By Another User Meanwhile.\n"
                  "You Cannot Save This Data.");
    EXPECT_EQ(school->Subjects(TenB), "Art Sen 100/100 Yes 1");
}

TEST_F(SubjectCopySave, TheOneSubjectOfTheTargetThatGotAMarkMeanwhileIsToldAndNotLost)
{
    school->AddSubject(TenB, 3, 1);
    StartCopied("B");
    school->EnterMark(TenB, 3, 45);
    SaveIsRefused("Already Marks Are Entered For This Class-Division-Subject(s). So You Can't Delete");
    EXPECT_EQ(school->Subjects(TenB), "Art Rao 100/100 Yes 1");
}

TEST_F(SubjectCopySave, TheOneSubjectOfTheTargetThatGotAMarkKeepsWhatIsFrozen)
{
    school->AddSubject(TenB, 1, 5, 60);
    StartCopied("B");
    school->EnterMark(TenB, 1, 45);
    SaveIsRefused("Already Marks Are Entered For This Subject\r\n"
                  "You Can Edit Only 'Maximum Allowed' And 'Taken For Rank' Fields");
    EXPECT_EQ(school->Subjects(TenB), "English Rao 60/60 Yes 5");
}

TEST_F(SubjectCopySave, ASourceEmptiedAfterItWasShownIsCopiedAsItIsShown)
{
    StartCopied("B");
    Other(
        "DELETE FROM ClassSubjectTeacher WHERE AcademicYearCode = 7 AND ClassCode = 1 AND DivisionCode = 1");
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Subjects(TenB), Usual);
    EXPECT_EQ(school->Subjects(TenA), "");
}

TEST_F(SubjectCopySave, ASubjectDeletedMeanwhileIsToldAndTheScreenBeginsAnew)
{
    LeaveOthersUnguarded();
    SaveFindsGone({"DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 2",
                   "DELETE FROM SubjectMaster WHERE SubjectCode = 2"});
}

TEST_F(SubjectCopySave, ATeacherDeletedMeanwhileIsToldAndTheScreenBeginsAnew)
{
    LeaveOthersUnguarded();
    SaveFindsGone({"DELETE FROM ClassSubjectTeacher WHERE TeacherCode = 2",
                   "DELETE FROM TeacherMaster WHERE TeacherCode = 2"});
}

TEST_F(SubjectCopySave, ADivisionDeletedMeanwhileIsToldAndTheScreenBeginsAnew)
{
    SaveFindsGone({"DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 2"});
}

TEST_F(SubjectCopySave, AClassDeletedMeanwhileIsToldAndTheScreenBeginsAnew)
{
    LeaveOthersUnguarded();
    SaveFindsGone({"DELETE FROM ClassSubjectTeacher WHERE ClassCode = 1",
                   "DELETE FROM ClassDivisionDetails WHERE ClassCode = 1",
                   "DELETE FROM ClassDivisionMaster WHERE ClassCode = 1"});
}

TEST_F(SubjectCopySave, AYearDeletedMeanwhileIsToldAndTheScreenBeginsAnew)
{
    SaveFindsGone({"DELETE FROM AcademicYearSetup WHERE AcademicYearCode = 9"});
}

TEST_F(SubjectCopySave, AStoreLockedByAnotherClientIsToldAndTheSaveCanBeRepeated)
{
    StartCopied("B");
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    {
        const auto other = AnotherClient();
        const store::Transaction holding(*other);
        SaveTells(Prompts::Kind::Critical, HeldByAnotherClient);
        EXPECT_EQ(Rows("msgToDetails"), Shown);
        EXPECT_EQ(Choices(), "2024 - 2025/X/A/2024 - 2025/X/B");
    }
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Subjects(TenB), Usual);
}

TEST_F(SubjectCopySave, AFullDiskIsToldAndTheSaveCanBeRepeated)
{
    {
        store::Transaction transaction(*Session().gcnnMain);
        for (int subject = 10; subject < 400; ++subject) {
            Given("INSERT INTO SubjectMaster VALUES (?, ?, 'Sub', 1)", subject,
                  QStringLiteral("Subject %1").arg(subject));
            school->AddSubject(NineA, subject, subject);
        }
        transaction.Commit();
    }
    OpenNew();
    Choose("cboFromAcademicyear", QStringLiteral("2024 - 2025"));
    Choose("cboClassFrom", QStringLiteral("IX"));
    Choose("cboDivision", QStringLiteral("A"));
    Choose("cboAcademicYearTo", QStringLiteral("2024 - 2025"));
    Choose("cboClassTo", QStringLiteral("X"));
    Choose("cboDivisionTo", QStringLiteral("B"));
    Press(Button("cmdTransfer"));
    Count("PRAGMA max_page_count = 1");
    SaveTells(Prompts::Kind::Critical, DiskIsFull);
    EXPECT_EQ(school->Subjects(TenB), "");
    Count("PRAGMA max_page_count = 1073741823");
    SaveCopy(Copied, false);
    EXPECT_EQ(school->Subjects(TenB), school->Subjects(NineA));
}

TEST_F(SubjectCopySave, AFaultInReadingTheListsAnewSaysThatTheCopyIsSaved)
{
    StartCopied("B");
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind kind, const QString& text) {
        EXPECT_NE(kind, Prompts::Kind::Critical);
        if (told.isEmpty())
            Given("ALTER TABLE ClassDivisionMaster RENAME TO Away");
        told.append(text);
        return kind != Prompts::Kind::Question;
    });
    Press(Button("cmdSave"));
    ASSERT_EQ(told.size(), 3);
    EXPECT_EQ(told.at(0).toStdString(), Copied);
    EXPECT_TRUE(told.at(2).startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
    EXPECT_EQ(school->Subjects(TenB), Usual);
}

} // namespace
} // namespace tally::test
