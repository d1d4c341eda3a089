#include "core/ui/ScreenRegistry.h"
#include "students/PromotionScreen.h"

namespace tally::test {
namespace {

const QString InUse =
    QStringLiteral("This Screen Is Already Opened By Another User. So You Cannot Open This Screen");

class PromotionOpening : public PromotionScreen
{
protected:
    /// New says why it can begin nothing.
    void NewTellsOnly(const QString& text)
    {
        prompts.ExpectInformation(text);
        Press(Button("cmdNew"));
        prompts.Verify();
        EXPECT_EQ(EnabledControls(), "cmdNew cmdCancel cmdExit");
        EXPECT_EQ(Label("lbltoacademicyear"), "");
    }
};

TEST_F(PromotionOpening, TheScreenOpensWithNothingChosenAndWaitsForNew)
{
    OpenForm();
    EXPECT_EQ(form->windowTitle().toStdString(), "Promotion Entry");
    ExpectIdle();
}

TEST_F(PromotionOpening, ItFitsASmallDisplayAndItsLettersLeadToOneControlEach)
{
    ExpectToFit(QStringLiteral("frmPromotionEntry"));
    ExpectOneControlALetter(Open<frmPromotionEntry>("frmPromotionEntry"));
}

TEST_F(PromotionOpening, OnlyOneClientMayHaveItOpen)
{
    OpenForm();
    EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus WHERE Screen = 'PromotionEntry'"), 1);
    Press(Button("cmdExit"));
    EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus"), 0);
    Other("INSERT INTO ScreenStatus VALUES ('PromotionEntry')");
    prompts.ExpectInformation(InUse);
    EXPECT_EQ(OpenScreen(QStringLiteral("frmPromotionEntry")), nullptr);
    EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus"), 1) << "the other client keeps it";
}

TEST_F(PromotionOpening, ItClosesOnAnyOtherFailureOfItsEntryToo)
{
    Given("ALTER TABLE ScreenStatus RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ScreenStatus"));
    EXPECT_EQ(OpenScreen(QStringLiteral("frmPromotionEntry")), nullptr);
}

TEST_F(PromotionOpening, NewNeedsItsRight)
{
    GivenUser(9, QStringLiteral("clerk"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 9;
    OpenForm();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    ExpectIdle();
}

TEST_F(PromotionOpening, NewShowsBothYearsAndLeadsToTheFirstOption)
{
    OpenNew();
    EXPECT_EQ(Label("lblfromacademicyear"), "2024 - 2025");
    EXPECT_EQ(Label("lbltoacademicyear"), "2025 - 2026");
    EXPECT_EQ(EnabledControls(), "fraMain cmdSave cmdCancel cmdExit");
    EXPECT_EQ(FocusName(), "optpromote");
    EXPECT_TRUE(Option("optpromote")->isChecked());
}

TEST_F(PromotionOpening, WithoutANextYearNewOnlyTellsWhichOneToEnter)
{
    Session().gintAcademicYearCode = YearBehind;
    OpenForm();
    NewTellsOnly(QStringLiteral("Enter Academic Year 2027 - 2028 In Academic Year Setup"));
    EXPECT_EQ(Label("lblfromacademicyear"), "2026 - 2027");
    Press(Button("cmdCancel"));
    ExpectIdle();
}

TEST_F(PromotionOpening, ASchoolWithOneYearHasNoNextOne)
{
    Given("DELETE FROM AcademicYearSetup WHERE AcademicYearCode IN (3, 9)");
    OpenForm();
    NewTellsOnly(QStringLiteral("Enter Academic Year 2025 - 2026 In Academic Year Setup"));
    EXPECT_EQ(Label("lblfromacademicyear"), "2024 - 2025");
}

TEST_F(PromotionOpening, WithoutARowForTheYearInUseNewTellsThatItIsNotInTheSetup)
{
    // No year is in use at all where the code is 0, though a row stands for that.
    for (const int code : {99, 0}) {
        Session().gintAcademicYearCode = code;
        OpenForm();
        NewTellsOnly(QStringLiteral("The Current Academic Year Is Not In Academic Year Setup"));
        EXPECT_EQ(Label("lblfromacademicyear"), "");
        form->Unload();
        Settle();
    }
}

TEST_F(PromotionOpening, WithoutTheClassesNothingCanBeBegunUntilTheyAreRead)
{
    Given("ALTER TABLE ClassDivisionMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionMaster"));
    OpenForm();
    prompts.Verify();
    EXPECT_EQ(EnabledControls(), "cmdCancel cmdExit");
    EXPECT_EQ(FocusName(), "cmdCancel");
    Given("ALTER TABLE Away RENAME TO ClassDivisionMaster");
    Press(Button("cmdCancel"));
    ExpectIdle();
    EXPECT_EQ(List("cbofromClass")->count(), 4) << "three classes behind a blank line";
}

TEST_F(PromotionOpening, ACancelThatCannotReadTheClassesIsToldOnceAndChoosesNothing)
{
    StartWithTwoMoved();
    Given("ALTER TABLE ClassDivisionMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionMaster"));
    Press(Button("cmdCancel"));
    prompts.Verify();
    EXPECT_EQ(EnabledControls(), "cmdCancel cmdExit");
    EXPECT_EQ(Places(), "- to -");
    EXPECT_EQ(Lines(from) + Lines(to), "");
}

TEST_F(PromotionOpening, AFailureInReadingTheYearsIsToldAndNothingIsEnabled)
{
    OpenForm();
    Given("ALTER TABLE AcademicYearSetup RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("AcademicYearSetup"));
    Press(Button("cmdNew"));
    EXPECT_EQ(EnabledControls(), "cmdNew cmdCancel cmdExit");
}

TEST_F(PromotionOpening, CancelGoesBackToTheBeginning)
{
    StartWithTwoMoved();
    Press(Button("cmdCancel"));
    ExpectIdle();
    EXPECT_EQ(school->Places(), "A1 IX-A Y; A2 IX-A Y; A3 IX-A Y");
    EXPECT_EQ(Count("SELECT count(*) FROM ScreenStatus"), 1) << "the screen is still open";
}

using PromotionChoosing = PromotionScreen;

TEST_F(PromotionChoosing, TheToClassFollowsTheFromClass)
{
    OpenNew();
    ChooseFromClass("VIII");
    EXPECT_EQ(Places(), "VIII- to IX-");
    ChooseFromClass("IX");
    EXPECT_EQ(Places(), "IX- to X-");
    EXPECT_EQ(List("Cbotodivision")->count(), 3) << "the divisions of X behind a blank line";
}

TEST_F(PromotionChoosing, ToRetainLeadsToTheSameClass)
{
    OpenNew();
    ChooseFromClass("IX");
    Press(Option("optnotpromote"));
    EXPECT_EQ(Places(), "IX- to IX-");
    Press(Option("optpromote"));
    EXPECT_EQ(Places(), "IX- to X-");
}

TEST_F(PromotionChoosing, TheHighestClassCannotBePromotedAndBothClassesAreEmptied)
{
    OpenNew();
    prompts.ExpectInformation(QStringLiteral("Higher Class Does Not Exist For Promotion"));
    ChooseFromClass("IX");
    QTest::keyClick(List("cbofromClass"), Qt::Key_Up);
    EXPECT_EQ(Places(), "- to -");
    EXPECT_EQ(List("cbofromDivision")->count(), 1);
}

TEST_F(PromotionChoosing, TheHighestClassDoesNotBarTheWayDownToTheOthers)
{
    OpenNew();
    DataCombo* list = List("cbofromClass");
    list->setFocus();
    prompts.ExpectInformation(QStringLiteral("Higher Class Does Not Exist For Promotion"));
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(Places(), "- to -");
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(Places(), "IX- to X-");
}

TEST_F(PromotionChoosing, WhereTheHighestClassIsTheOnlyOneItStaysRefused)
{
    for (const char* table : {"StudentClassDivision", "ClassDivisionDetails", "ClassDivisionMaster"})
        Session().gcnnMain->Execute(
            QStringLiteral("DELETE FROM %1 WHERE ClassCode > 1").arg(QLatin1String(table)));
    OpenNew();
    DataCombo* list = List("cbofromClass");
    ASSERT_EQ(list->count(), 2);
    list->setFocus();
    prompts.ExpectInformation(QStringLiteral("Higher Class Does Not Exist For Promotion"));
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(Places(), "- to -");
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(Places(), "- to -") << "there is no other class to go on to";
}

TEST_F(PromotionChoosing, WhoComesBackToTheClassesStartsFromTheTopAgain)
{
    OpenNew();
    DataCombo* list = List("cbofromClass");
    list->setFocus();
    for (int visit = 0; visit < 2; ++visit) {
        prompts.ExpectInformation(QStringLiteral("Higher Class Does Not Exist For Promotion"));
        QTest::keyClick(list, Qt::Key_Down);
        Button("cmdExit")->setFocus();
        list->setFocus();
    }
}

TEST_F(PromotionChoosing, TheHighestClassCanBeRetained)
{
    OpenNew();
    Press(Option("optnotpromote"));
    Choose("cbofromClass", QStringLiteral("X"));
    EXPECT_EQ(Places(), "X- to X-");
    prompts.ExpectInformation(QStringLiteral("Higher Class Does Not Exist For Promotion"));
    Press(Option("optpromote"));
    EXPECT_EQ(Places(), "- to -");
}

TEST_F(PromotionChoosing, TheFromDivisionListsItsStudentsAndWhoWasCarriedAlready)
{
    school->Carry(2, TenA);
    StartFromNineA();
    EXPECT_EQ(Lines(from), "    Asha - (A1)|#   Binu - (A2)|    Cara - (A3)");
    EXPECT_EQ(Lines(to), "");
    Choose("cbofromDivision", QStringLiteral("B"));
    EXPECT_EQ(Lines(from), "");
}

TEST_F(PromotionChoosing, NamesakesWithLongNamesAreToldApartByTheirNumbers)
{
    school->Add(QString(100, QLatin1Char('M')), NineA);
    StartFromNineA();
    const QString line = from->item(3)->text();
    const int room = from->viewport()->width();
    ASSERT_GT(from->fontMetrics().horizontalAdvance(line), room);
    for (const CheckList* list : {from, to}) {
        const QString shown = from->fontMetrics().elidedText(line, list->textElideMode(), room);
        EXPECT_TRUE(shown.endsWith(QLatin1String("M - (A4)"))) << shown.toStdString();
    }
}

TEST_F(PromotionChoosing, TheToDivisionListsItsStudentsWithTheirSigns)
{
    for (const int student : {1, 2, 3, school->Add(QStringLiteral("Dev"), NineA)})
        school->Carry(student, TenA);
    school->CarryOn(2, TenB);
    school->CarryOn(4, TenB);
    school->EnterMark(3, TenA, NextYear);
    school->EnterMark(4, TenA, NextYear);
    StartToTenA();
    EXPECT_EQ(Lines(to), "   Asha - (A1)| # Binu - (A2)| $ Cara - (A3)| #$ Dev - (A4)");
}

TEST_F(PromotionChoosing, ARelievedStudentShowsInNeitherList)
{
    school->Carry(1, TenA);
    school->Relieve(1);
    StartToTenA();
    EXPECT_EQ(Lines(from), "    Binu - (A2)|    Cara - (A3)");
    EXPECT_EQ(Lines(to), "");
}

TEST_F(PromotionChoosing, AClassTwoPlacesAboveIsOfferedAndRefused)
{
    OpenNew();
    ChooseFromClass("VIII");
    Choose("cbotoclass", QStringLiteral("X"));
    prompts.ExpectInformation(QStringLiteral("Promotion Can Be Done Only To Next Higher Class"));
    QTest::keyClick(List("Cbotodivision"), Qt::Key_Down);
    EXPECT_EQ(Places(), "VIII- to -");
    EXPECT_TRUE(HasFocus("cbotoclass"));
}

TEST_F(PromotionChoosing, WithoutAFromClassAnyClassOfTheNextYearCanBeLookedAt)
{
    school->Carry(1, TenA);
    OpenNew();
    Choose("cbotoclass", QStringLiteral("X"));
    Choose("Cbotodivision", QStringLiteral("A"));
    EXPECT_EQ(Lines(to), "   Asha - (A1)");
}

TEST_F(PromotionChoosing, TheSameAndALowerClassAreRefused)
{
    for (const char* name : {"IX", "VIII"}) {
        OpenNew();
        ChooseFromClass("IX");
        Choose("cbotoclass", QString::fromLatin1(name));
        prompts.ExpectInformation(QStringLiteral("Promotion Cannot Be Done To The Same/Lower Classes"));
        QTest::keyClick(List("Cbotodivision"), Qt::Key_Down);
        EXPECT_EQ(Places(), "IX- to -");
        Press(Button("cmdExit"));
        Settle();
    }
}

TEST_F(PromotionChoosing, ToRetainInAnotherClassIsRefusedThereAndInTheSave)
{
    StartFromNineA();
    Press(Option("optnotpromote"));
    Choose("cbotoclass", QStringLiteral("X"));
    prompts.ExpectInformation(QStringLiteral("Retain Can Be Made Only In The Same Class"));
    QTest::keyClick(List("Cbotodivision"), Qt::Key_Down);
    prompts.Verify();
    EXPECT_EQ(Places(), "IX-A to X-A");
    ExpectRefusal(QStringLiteral("Retain Can Be Made Only In The Same Class"), "cbotoclass");
}

TEST_F(PromotionChoosing, AListThatCannotBeReadIsToldAndItsDivisionIsNotChosen)
{
    StartFromNineA();
    Given("ALTER TABLE MarkMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("MarkMaster"));
    QTest::keyClick(List("Cbotodivision"), Qt::Key_Down);
    prompts.Verify();
    EXPECT_EQ(Places(), "IX-A to X-");
    prompts.ExpectCritical(NoSuchTable("MarkMaster"));
    QTest::keyClick(List("cbofromDivision"), Qt::Key_Down);
    EXPECT_EQ(Places(), "IX- to X-");
    EXPECT_EQ(Lines(from), "");
}

TEST_F(PromotionChoosing, WhoWasCarriedAlreadyIsToldWithHisPlaceAndNotTicked)
{
    school->Carry(2, TenB);
    StartFromNineA();
    prompts.ExpectInformation(QStringLiteral("Student 'Binu' Already Promoted/Detained To X-B"));
    Tick(from, 1);
    EXPECT_FALSE(from->IsTicked(1));
    EXPECT_EQ(Totals(), "0 0");
}

TEST_F(PromotionChoosing, WhoHasMarksOrWasCarriedOnCannotBeTickedOnTheRight)
{
    for (const int student : {1, 2, 3})
        school->Carry(student, TenA);
    school->EnterMark(1, TenA, NextYear);
    school->CarryOn(2, TenB);
    StartToTenA();
    prompts.ExpectInformation(
        QStringLiteral("Marks Are Already Entered For This Student, So Removing Of Student Is Not Possible"));
    Tick(to, 0);
    prompts.ExpectInformation(QStringLiteral(
        "Already Promotion/Detaining Made For This Student, So Removing Of Student Is Not Possible"));
    Tick(to, 1);
    prompts.Verify();
    EXPECT_FALSE(IsEnabled("cmdMoveToToFrom"));
    Tick(to, 2);
    EXPECT_TRUE(IsEnabled("cmdMoveToToFrom"));
    EXPECT_EQ(Totals(), "0 1");
    Tick(to, 2);
    EXPECT_FALSE(IsEnabled("cmdMoveToToFrom"));
}

TEST_F(PromotionChoosing, SelectAllTicksWhoeverCanBeTickedAndCountsThem)
{
    school->Carry(2, TenA);
    StartToTenA();
    auto* all = Find<QCheckBox>(form, "chkSelectAllFrom");
    Press(all);
    EXPECT_EQ(Totals(), "2 0");
    EXPECT_FALSE(from->IsTicked(1));
    Tick(from, 0);
    EXPECT_EQ(Totals(), "1 0");
    EXPECT_FALSE(all->isChecked()) << "not everybody is ticked any more";
    Tick(from, 0);
    EXPECT_TRUE(all->isChecked());
    Press(all);
    EXPECT_EQ(Totals(), "0 0");
    Press(Find<QCheckBox>(form, "chkSelectAllTo"));
    EXPECT_EQ(Totals(), "0 1");
    EXPECT_TRUE(IsEnabled("cmdMoveToToFrom"));
}

TEST_F(PromotionChoosing, NobodyTickedAsksForAStudent)
{
    StartToTenA();
    prompts.ExpectInformation(QStringLiteral("Select Student"));
    Press(Button("cmdMoveFromToTo"));
    EXPECT_TRUE(HasFocus("lstfromlist"));
}

TEST_F(PromotionChoosing, TheTickedGoToTheOtherSideAndTheTicksOfTheOthersStay)
{
    StartToTenA();
    Tick(from, 0);
    Tick(from, 2);
    EXPECT_EQ(Totals(), "2 0");
    Press(Button("cmdMoveFromToTo"));
    EXPECT_EQ(Lines(from), "    Binu - (A2)");
    EXPECT_EQ(Lines(to), "   Asha - (A1)|   Cara - (A3)");
    EXPECT_EQ(Totals(), "0 0");
    Tick(to, 0);
    Tick(from, 0);
    Press(Button("cmdMoveFromToTo"));
    EXPECT_EQ(Lines(to), "   Asha - (A1)|   Cara - (A3)|   Binu - (A2)");
    EXPECT_EQ(Totals(), "0 1") << "Asha is still ticked";
    Press(Button("cmdMoveToToFrom"));
    EXPECT_EQ(Lines(from), "    Asha - (A1)");
    EXPECT_TRUE(HasFocus("lsttolist")) << "the button is off, and the keyboard stays beside it";
}

TEST_F(PromotionChoosing, ATickGoesWithWhateverAllowedIt)
{
    school->Carry(2, TenA);
    StartToTenA();
    Tick(to, 0);
    Press(Button("cmdMoveToToFrom"));
    ASSERT_EQ(Lines(from), "    Asha - (A1)|    Binu - (A2)|    Cara - (A3)");
    Tick(from, 0);
    Tick(from, 1);
    EXPECT_EQ(Totals(), "2 0");
    Choose("Cbotodivision", QStringLiteral("B"));
    EXPECT_EQ(Lines(from), "    Asha - (A1)|#   Binu - (A2)|    Cara - (A3)");
    EXPECT_TRUE(from->IsTicked(0));
    EXPECT_FALSE(from->IsTicked(1));
    EXPECT_EQ(Totals(), "1 0");
}

TEST_F(PromotionChoosing, TheLineInHandStaysWhereItIsOrIsTheLastOne)
{
    StartToTenA();
    Tick(from, 0);
    from->setCurrentRow(1);
    Press(Button("cmdMoveFromToTo"));
    EXPECT_EQ(from->currentRow(), 1);
    EXPECT_EQ(to->currentRow(), 0);
    Tick(from, 1);
    Press(Button("cmdMoveFromToTo"));
    EXPECT_EQ(from->currentRow(), 0);
}

TEST_F(PromotionChoosing, AltAndTheArrowsMoveFromWithinTheLists)
{
    StartToTenA();
    Tick(from, 1);
    QTest::keyClick(from, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Lines(to), "   Binu - (A2)");
    Tick(to, 0);
    QTest::keyClick(to, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Lines(to), "");
    EXPECT_EQ(Lines(from), "    Asha - (A1)|    Cara - (A3)|    Binu - (A2)");
}

TEST_F(PromotionChoosing, WhoCameFromAnotherDivisionCannotBeTakenBack)
{
    school->Carry(school->Add(QStringLiteral("Esha"), NineB), TenA);
    school->Carry(1, TenA);
    StartToTenA();
    Tick(to, 0);
    Tick(to, 1);
    prompts.ExpectInformation(QStringLiteral(
        "Selected Class-Division On The 'From' Side  Is Not The Class-Division From Which The Student Was "
        "Promoted/Detained\nSo Promote/Detain Entry Removal Is Not Allowed"));
    Press(Button("cmdMoveToToFrom"));
    EXPECT_TRUE(HasFocus("cmdMoveToToFrom")) << "somebody is still ticked";
    EXPECT_EQ(Lines(to), "   Esha - (A4)");
    EXPECT_EQ(Lines(from), "    Asha - (A1)|    Binu - (A2)|    Cara - (A3)");
}

TEST_F(PromotionChoosing, AnotherFromClassStartsTheListsAnew)
{
    StartWithTwoMoved();
    ChooseFromClass("VIII");
    EXPECT_EQ(Places(), "VIII- to IX-");
    EXPECT_EQ(Lines(from) + Lines(to), "");
}

TEST_F(PromotionChoosing, AnotherOptionListsTheFromSideAnew)
{
    StartWithTwoMoved();
    Press(Option("optnotpromote"));
    EXPECT_EQ(Places(), "IX-A to IX-");
    EXPECT_EQ(Lines(from), "    Asha - (A1)|    Binu - (A2)|    Cara - (A3)");
    EXPECT_EQ(Lines(to), "");
}

TEST_F(PromotionChoosing, ListingSixtyStudentsTakesAsManyStatementsAsListingThree)
{
    const auto statements = [this] {
        OpenNew();
        ChooseFromClass("IX");
        const auto before = Session().gcnnMain->StatementsRun();
        Choose("cbofromDivision", QStringLiteral("A"));
        Choose("Cbotodivision", QStringLiteral("A"));
        const auto run = Session().gcnnMain->StatementsRun() - before;
        Press(Button("cmdExit"));
        Settle();
        return run;
    };
    StopPresence();
    school->Carry(1, TenA);
    const auto few = statements();
    for (int student = 4; student <= 63; ++student) {
        school->Add(QStringLiteral("Student"), NineA);
        if (student % 2 == 0)
            school->Carry(student, TenA);
    }
    EXPECT_EQ(statements(), few);
}

} // namespace
} // namespace tally::test
