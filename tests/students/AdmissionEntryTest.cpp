#include "students/frmMasStudentAdmissionEntry.h"
#include "students/StudentOffice.h"
#include "support/FileSizeLimit.h"

namespace tally::test {
namespace {

const QString MasterIsGone = QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data.");
const QString DeleteThis = QStringLiteral("Do You Want To Delete This Admission ?");
const QString HasMarks = QStringLiteral("'Classwise Mark Entry' Is Already Made For The Selected Student. So "
                                        "You Cannot Edit/Delete");
const QString IsPromoted = QStringLiteral("Already Promotion-Retain Entry Made For The Selected Student, So "
                                          "You Cannot Modify This Entry");
const QString IsRelieved =
    QStringLiteral("Student Has Been Already Relieved, So You Cannot Modify This Entry");

constexpr const char* Idle = "cmdNew cmdCancel cmdSearch cmdExit";
constexpr const char* Entering = "Frame1 cmdSave cmdCancel cmdSearch cmdExit";
constexpr const char* Selected = "cmdEdit cmdDelete cmdCancel cmdSearch cmdExit";
constexpr const char* Viewing = "cmdCancel cmdSearch cmdExit";

class AdmissionEntry : public StudentOffice
{
protected:
    void SetUp() override
    {
        StudentOffice::SetUp();
        Student anu = StudentNamed(1, "Anu");
        anu.fatherOrGuardian = QStringLiteral("Babu");
        anu.male = true;
        anu.address1 = QStringLiteral("House");
        anu.address2 = QStringLiteral("Street");
        anu.cityCode = 3;
        anu.pinCode = QStringLiteral("682001");
        GivenStudent(anu);
        GivenStudent(2, "Binu");
    }

    void OpenEntry() { OpenForm("frmMasStudentAdmissionEntry"); }
    void StartNew(const char* number = "A101")
    {
        OpenEntry();
        Press(Button("cmdNew"));
        Choose("dbcAdmissionNo", QString::fromLatin1(number));
    }
    /// Anu's placement in V-A.
    void GivenLoaded(bool viewOnly = false)
    {
        GivenPlacement(1);
        OpenEntry();
        ASSERT_TRUE(qobject_cast<frmMasStudentAdmissionEntry*>(form)->LoadPlacement(1, viewOnly));
    }
    void StartEdit()
    {
        GivenLoaded();
        Press(Button("cmdEdit"));
    }
    void ChooseDivision(const char* className, const char* divisionName)
    {
        Choose("dbcClass", QString::fromLatin1(className));
        Choose("dbcDivision", QString::fromLatin1(divisionName));
    }
    std::string Enabled() const
    {
        return EnabledOf(
            {"Frame1", "cmdNew", "cmdEdit", "cmdDelete", "cmdSave", "cmdCancel", "cmdSearch", "cmdExit"});
    }
    std::string Details() const
    {
        QStringList texts;
        for (const char* name : {"lblStudentName", "lblFGName", "lblDob", "lblSex", "lblAddress1", "lblCity",
                                 "lblStateName", "lblPincode"})
            texts.append(QString::fromStdString(LabelOf(name)));
        return texts.join(QLatin1Char('|')).toStdString();
    }
    std::string Chosen(const char* list) const { return List(list)->currentText().trimmed().toStdString(); }
    void ExpectSaveTold(const QString& text)
    {
        prompts.ExpectInformation(text);
        Press(Button("cmdSave"));
        prompts.Verify();
    }
};

TEST_F(AdmissionEntry, OpensClosedWithTheStudentsWhoHaveNoPlaceAndTheClassesInTheirOrder)
{
    OpenEntry();
    EXPECT_EQ(form->windowTitle().toStdString(), "Student Admission Entry");
    EXPECT_EQ(Enabled(), Idle);
    EXPECT_EQ(ListedIn(List("dbcAdmissionNo")), " |A101|A102");
    EXPECT_EQ(ListedIn(List("dbcClass")), " |V|IV");
    EXPECT_EQ(ListedIn(List("dbcDivision")), " ");
    EXPECT_FALSE(IsShown("lblAdmissionNo"));
    EXPECT_TRUE(IsShown("dbcAdmissionNo"));
    EXPECT_EQ(Details(), "|||||||");
}

TEST_F(AdmissionEntry, AStudentAdmittedInAnEarlierYearIsNotOfferedEvenWithoutAPlace)
{
    Student earlier = StudentNamed(3, "Cara");
    earlier.academicYearCode = 1;
    GivenStudent(earlier);
    GivenPlacement(2);
    OpenEntry();
    EXPECT_EQ(ListedIn(List("dbcAdmissionNo")), " |A101");
}

TEST_F(AdmissionEntry, TheChosenStudentsDetailsAreShownAndGoWithTheChoice)
{
    StartNew();
    EXPECT_EQ(Enabled(), Entering);
    EXPECT_EQ(Details(), "Anu|Babu|02/Jan/2015|Male|House\nStreet|Aluva|Kerala|682001");
    Choose("dbcAdmissionNo", QStringLiteral("A102"));
    EXPECT_EQ(Details(), "Binu||02/Jan/2015|Female|\n|||") << "without a city the row of none closes the gap";
    Choose("dbcAdmissionNo", QStringLiteral(" "));
    EXPECT_EQ(Details(), "|||||||");
}

TEST_F(AdmissionEntry, TheDivisionsAreThoseOfTheClassByName)
{
    StartNew();
    Choose("dbcClass", QStringLiteral("V"));
    EXPECT_EQ(ListedIn(List("dbcDivision")), " |A|B");
    Choose("dbcDivision", QStringLiteral("B"));
    Choose("dbcClass", QStringLiteral("IV"));
    EXPECT_TRUE(List("dbcDivision")->IsBlank());
}

TEST_F(AdmissionEntry, AStudentIsPlacedWithKeysAloneAndLeavesTheListAtOnce)
{
    OpenEntry();
    PressKey(form, Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(FocusName(), "dbcAdmissionNo");
    QTest::keyClicks(form->focusWidget(), QStringLiteral("A102"));
    EXPECT_EQ(LabelOf("lblStudentName"), "Binu");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(FocusName(), "dbcClass");
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(FocusName(), "dbcDivision");
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(FocusName(), "cmdSave");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(Placements(Main()), "2/2 V-B Y 3");
    EXPECT_EQ(ListedIn(List("dbcAdmissionNo")), " |A101");
    EXPECT_EQ(Enabled(), Idle);
    EXPECT_EQ(FocusName(), "cmdNew");
    EXPECT_EQ(Details(), "|||||||");
    EXPECT_TRUE(List("dbcClass")->IsBlank());
}

TEST_F(AdmissionEntry, WhatIsMissingIsAskedForInOrder)
{
    OpenEntry();
    Press(Button("cmdNew"));
    ExpectRefusal(QStringLiteral("Select Admission No."), "dbcAdmissionNo");
    Choose("dbcAdmissionNo", QStringLiteral("A101"));
    ExpectRefusal(QStringLiteral("Select Class"), "dbcClass");
    Choose("dbcClass", QStringLiteral("V"));
    ExpectRefusal(QStringLiteral("Select Division"), "dbcDivision");
    EXPECT_EQ(Placements(Main()), "");
}

TEST_F(AdmissionEntry, ARelievedStudentIsNotPlacedAndTheScreenStartsOver)
{
    Relieve(Main(), 1);
    StartNew();
    ChooseDivision("V", "A");
    ExpectSaveTold(IsRelieved);
    EXPECT_EQ(Placements(Main()), "");
    EXPECT_EQ(Enabled(), Idle);
}

TEST_F(AdmissionEntry, AStudentWhomAnotherClientPlacedMeanwhileKeepsHisPlace)
{
    StartNew();
    ChooseDivision("V", "A");
    Other("INSERT INTO StudentClassDivision VALUES (1, 2, 2, 2, 'Y', 9)");
    ExpectSaveTold(QStringLiteral("Admission Already Made"));
    EXPECT_TRUE(HasFocus("dbcAdmissionNo"));
    EXPECT_EQ(Enabled(), Entering);
    EXPECT_EQ(Placements(Main()), "1/2 IV-B Y 9");
}

TEST_F(AdmissionEntry, OneLaterYearCountsAsAnAdmissionAndTwoAsPromotion)
{
    StartNew();
    ChooseDivision("V", "A");
    Other("INSERT INTO StudentClassDivision VALUES (1, 3, 2, 2, 'Y', 9)");
    ExpectSaveTold(QStringLiteral("Admission Already Made"));
    Other("INSERT INTO StudentClassDivision VALUES (1, 4, 2, 2, 'Y', 9)");
    ExpectSaveTold(IsPromoted);
    EXPECT_EQ(Enabled(), Idle);
    EXPECT_EQ(Placements(Main()), "1/3 IV-B Y 9; 1/4 IV-B Y 9");
}

TEST_F(AdmissionEntry, AStudentWithMarksInTheYearIsNotPlaced)
{
    EnterMark(Main(), 1, 2);
    StartNew();
    ChooseDivision("V", "A");
    ExpectSaveTold(HasMarks);
    EXPECT_EQ(Placements(Main()), "");
    EXPECT_EQ(Enabled(), Entering);
}

TEST_F(AdmissionEntry, AStoredPlacementIsShownWithTheNumberInPlaceOfTheList)
{
    GivenLoaded();
    EXPECT_EQ(Enabled(), Selected);
    EXPECT_TRUE(HasFocus("cmdEdit"));
    EXPECT_FALSE(IsShown("dbcAdmissionNo"));
    EXPECT_TRUE(List("dbcAdmissionNo")->IsBlank());
    EXPECT_TRUE(IsShown("lblAdmissionNo"));
    EXPECT_EQ(LabelOf("lblAdmissionNo"), "A101");
    EXPECT_EQ(Chosen("dbcClass"), "V");
    EXPECT_EQ(Chosen("dbcDivision"), "A");
    EXPECT_EQ(Details(), "Anu|Babu|02/Jan/2015|Male|House\nStreet|Aluva|Kerala|682001");
}

TEST_F(AdmissionEntry, APlacementThatIsOnlyViewedCannotBeTouched)
{
    GivenLoaded(true);
    EXPECT_EQ(Enabled(), Viewing);
    EXPECT_TRUE(HasFocus("cmdCancel"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Enabled(), Idle);
}

TEST_F(AdmissionEntry, APlacementIsCorrected)
{
    StartEdit();
    EXPECT_EQ(Enabled(), Entering);
    EXPECT_TRUE(HasFocus("cmdSave"));
    ChooseDivision("IV", "B");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Placements(Main()), "1/2 IV-B Y 3");
    EXPECT_EQ(Enabled(), Idle);
}

TEST_F(AdmissionEntry, WhoHasASecondYearKeepsHisClass)
{
    GivenPlacement(1, 1, {2, 1}, "N");
    StartEdit();
    EXPECT_FALSE(List("dbcClass")->isEnabled());
    EXPECT_TRUE(List("dbcDivision")->isEnabled());
    Choose("dbcDivision", QStringLiteral("B"));
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Placements(Main()), "1/1 IV-A N 1; 1/2 V-B Y 3");
    Press(Button("cmdNew"));
    EXPECT_TRUE(List("dbcClass")->isEnabled()) << "Cancel's steps free it";
}

TEST_F(AdmissionEntry, MarksThatCameMeanwhileAreNotLeftInAnotherDivision)
{
    StartEdit();
    Other("INSERT INTO MarkMaster VALUES (2, 1, 1, 1, 1, 1, 40, 'P', 0, 1)");
    Choose("dbcDivision", QStringLiteral("B"));
    ExpectSaveTold(HasMarks);
    EXPECT_EQ(Placements(Main()), "1/2 V-A Y 1");
    EXPECT_EQ(Chosen("dbcDivision"), "B");
    EXPECT_EQ(Enabled(), Entering);
}

TEST_F(AdmissionEntry, ARelievingThatCameMeanwhileStopsTheCorrection)
{
    StartEdit();
    Other("UPDATE StudentMaster SET TCNo = 'TC 1' WHERE StudentCode = 1");
    Choose("dbcDivision", QStringLiteral("B"));
    ExpectSaveTold(IsRelieved);
    EXPECT_EQ(Placements(Main()), "1/2 V-A Y 1");
    EXPECT_EQ(Enabled(), Idle);
}

TEST_F(AdmissionEntry, OneLaterYearAloneDoesNotStopACorrectionButTwoDo)
{
    StartEdit();
    Other("INSERT INTO StudentClassDivision VALUES (1, 3, 2, 2, 'Y', 9)");
    Choose("dbcDivision", QStringLiteral("B"));
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Placements(Main()), "1/2 V-B Y 3; 1/3 IV-B Y 9");
    ASSERT_TRUE(qobject_cast<frmMasStudentAdmissionEntry*>(form)->LoadPlacement(1, false));
    Press(Button("cmdEdit"));
    Other("INSERT INTO StudentClassDivision VALUES (1, 4, 2, 2, 'Y', 9)");
    ExpectSaveTold(IsPromoted);
    EXPECT_EQ(Enabled(), Idle);
}

TEST_F(AdmissionEntry, APlacementThatAnotherClientDeletedIsNotTakenForSaved)
{
    StartEdit();
    Other("DELETE FROM StudentClassDivision");
    Choose("dbcDivision", QStringLiteral("B"));
    prompts.ExpectCritical(MasterIsGone);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(Placements(Main()), "");
}

TEST_F(AdmissionEntry, APlacementIsDeletedAfterAQuestionAndTheStudentIsOfferedAgain)
{
    GivenLoaded();
    prompts.ExpectQuestion(DeleteThis, false);
    Press(Button("cmdDelete"));
    EXPECT_EQ(Placements(Main()), "1/2 V-A Y 1");
    prompts.ExpectQuestion(DeleteThis, true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Placements(Main()), "");
    EXPECT_EQ(ListedIn(List("dbcAdmissionNo")), " |A101|A102");
    EXPECT_EQ(Enabled(), Idle);
    EXPECT_TRUE(HasFocus("cmdNew"));
}

TEST_F(AdmissionEntry, WhatAnotherClientBuiltOnAPlacementMeanwhileKeepsItFromBeingDeleted)
{
    const std::pair<const char*, QString> changes[] = {
        {"INSERT INTO MarkMaster VALUES (2, 1, 1, 1, 1, 1, 40, 'P', 0, 1)", HasMarks},
        {"INSERT INTO StudentClassDivision VALUES (1, 3, 2, 2, 'Y', 9)", IsPromoted},
        {"UPDATE StudentMaster SET TCNo = 'TC 1' WHERE StudentCode = 1", IsRelieved},
    };
    GivenPlacement(1);
    OpenEntry();
    for (const auto& [change, text] : changes) {
        Given("DELETE FROM MarkMaster");
        ASSERT_TRUE(qobject_cast<frmMasStudentAdmissionEntry*>(form)->LoadPlacement(1, false));
        Other(change);
        prompts.ExpectQuestion(DeleteThis, true);
        prompts.ExpectInformation(text);
        Press(Button("cmdDelete"));
        prompts.Verify();
        EXPECT_EQ(Count("SELECT count(*) FROM StudentClassDivision WHERE AcademicYearCode = 2"), 1);
    }
}

TEST_F(AdmissionEntry, APlaceThatAnotherClientDeletedBetweenChoiceAndSaveIsToldAndNoLongerOffered)
{
    StartNew();
    ChooseDivision("V", "B");
    Other("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 2");
    prompts.ExpectCritical(MasterIsGone);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(Placements(Main()), "");
    EXPECT_EQ(Chosen("dbcAdmissionNo"), "A101");
    EXPECT_EQ(Chosen("dbcClass"), "V");
    EXPECT_EQ(ListedIn(List("dbcDivision")), " |A");
    Choose("dbcDivision", QStringLiteral("A"));
    Save();

    Press(Button("cmdNew"));
    Choose("dbcAdmissionNo", QStringLiteral("A102"));
    ChooseDivision("IV", "B");
    Other("DELETE FROM ClassDivisionDetails WHERE ClassCode = 2");
    Other("DELETE FROM ClassDivisionMaster WHERE ClassCode = 2");
    prompts.ExpectCritical(MasterIsGone);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(ListedIn(List("dbcClass")), " |V");
    EXPECT_TRUE(List("dbcDivision")->IsBlank());
}

TEST_F(AdmissionEntry, AStudentWhomAnotherClientDeletedIsToldAndNoLongerOffered)
{
    StartNew();
    ChooseDivision("V", "B");
    Other("DELETE FROM StudentMaster WHERE StudentCode = 1");
    prompts.ExpectCritical(MasterIsGone);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(ListedIn(List("dbcAdmissionNo")), " |A102");
    EXPECT_EQ(Details(), "|||||||");
    EXPECT_EQ(Chosen("dbcDivision"), "B");
}

TEST_F(AdmissionEntry, AFileHeldByAnotherClientOrADiskThatTakesNothingMoreLosesNothingThatWasChosen)
{
    StartNew();
    ChooseDivision("V", "B");
    Main().SetPatience(std::chrono::milliseconds(50));
    {
        const auto other = AnotherClient();
        const store::Transaction held(*other);
        prompts.ExpectCritical(HeldByAnotherClient);
        Press(Button("cmdSave"));
        prompts.Verify();
    }
    {
        const FileSizeLimit full(0);
        prompts.ExpectCritical(DiskTakesNothing);
        Press(Button("cmdSave"));
        prompts.Verify();
    }
    EXPECT_EQ(Chosen("dbcAdmissionNo") + Chosen("dbcClass") + Chosen("dbcDivision"), "A101VB");
    Save();
    EXPECT_EQ(Placements(Main()), "1/2 V-B Y 3");
}

TEST_F(AdmissionEntry, AFaultInReadingTheListsAnewSaysThatThePlacementIsSaved)
{
    StartNew();
    ChooseDivision("V", "A");
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind kind, const QString& text) {
        EXPECT_EQ(kind, Prompts::Kind::Information);
        if (told.isEmpty())
            Given("ALTER TABLE StudentMaster RENAME TO Away");
        told.append(text.section(QLatin1Char('\n'), 0, 0));
        return true;
    });
    Press(Button("cmdSave"));
    EXPECT_EQ(told.join(QLatin1Char('|')).toStdString(),
              "Record Saved|Your Change Is Saved. You Need Not Make It Again.");
    EXPECT_EQ(Placements(Main()), "1/2 V-A Y 3");
}

TEST_F(AdmissionEntry, AClassAddedOnTopCanBeChosenAndWhatIsChosenStays)
{
    StartNew();
    ChooseDivision("V", "B");
    Press(Button("cmdAddClass"));
    ASSERT_TRUE(IsOpen("frmMasClassSectionEntry"));
    Given("INSERT INTO ClassDivisionMaster VALUES (3, 'III', 1, 3, 1)");
    ScreenRegistry::OpenInstance(QStringLiteral("frmMasClassSectionEntry"))->Unload();
    Settle();
    EXPECT_EQ(Chosen("dbcClass") + Chosen("dbcDivision"), "VB");
    EXPECT_EQ(ListedIn(List("dbcClass")), " |V|IV|III");
    EXPECT_TRUE(HasFocus("dbcClass"));
}

TEST_F(AdmissionEntry, AStudentEnteredMeanwhileIsOfferedOnReturnAndTheChosenOneStays)
{
    StartNew();
    OpenScreen(QStringLiteral("frmMasStudentMaster"));
    GivenStudent(3, "Cara");
    OpenScreen(QStringLiteral("frmMasStudentAdmissionEntry"));
    EXPECT_EQ(ListedIn(List("dbcAdmissionNo")), " |A101|A102|A103");
    EXPECT_EQ(Chosen("dbcAdmissionNo"), "A101");
    EXPECT_EQ(LabelOf("lblStudentName"), "Anu");
}

TEST_F(AdmissionEntry, CancelChoosesNobody)
{
    StartNew();
    Press(Button("cmdCancel"));
    EXPECT_TRUE(List("dbcAdmissionNo")->IsBlank());
    EXPECT_EQ(Details(), "|||||||");
}

TEST_F(AdmissionEntry, WhoWasChosenBeforeAPlacementWasLoadedIsForgottenWithIt)
{
    GivenPlacement(1);
    StartNew("A102");
    ASSERT_TRUE(qobject_cast<frmMasStudentAdmissionEntry*>(form)->LoadPlacement(1, false));
    Press(Button("cmdCancel"));
    EXPECT_TRUE(List("dbcAdmissionNo")->IsBlank());
}

TEST_F(AdmissionEntry, AStudentWhomAnotherClientDeletedIsNotShown)
{
    OpenEntry();
    Press(Button("cmdNew"));
    Other("DELETE FROM StudentMaster WHERE StudentCode = 1");
    List("dbcAdmissionNo")->setFocus();
    QTest::keyClick(List("dbcAdmissionNo"), Qt::Key_Down);
    EXPECT_EQ(Details(), "|||||||");
}

TEST_F(AdmissionEntry, AStudentWhoCannotBeReadIsToldOnceAndNotShown)
{
    OpenEntry();
    Press(Button("cmdNew"));
    Given("ALTER TABLE BloodGroupMaster RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("BloodGroupMaster"));
    List("dbcAdmissionNo")->setFocus();
    QTest::keyClick(List("dbcAdmissionNo"), Qt::Key_Down);
    EXPECT_EQ(Details(), "|||||||");
    Given("ALTER TABLE Away RENAME TO BloodGroupMaster");
}

TEST_F(AdmissionEntry, APlacementWithoutItsStudentInADamagedFileIsNotLoaded)
{
    GivenPlacement(1);
    Given("PRAGMA foreign_keys = OFF");
    Given("DELETE FROM StudentMaster WHERE StudentCode = 1");
    OpenEntry();
    prompts.ExpectInformation(NoRecord);
    EXPECT_FALSE(qobject_cast<frmMasStudentAdmissionEntry*>(form)->LoadPlacement(1, false));
    EXPECT_EQ(Enabled(), Idle);
}

TEST_F(AdmissionEntry, NewOffersTheStudentsThatThereAreByThen)
{
    OpenEntry();
    StoreStudent(*AnotherClient(), StudentNamed(3, "Cara"));
    Press(Button("cmdNew"));
    EXPECT_EQ(ListedIn(List("dbcAdmissionNo")), " |A101|A102|A103");
}

TEST_F(AdmissionEntry, CancelForgetsThePlacementInHand)
{
    StartEdit();
    Press(Button("cmdCancel"));
    EXPECT_EQ(Enabled(), Idle);
    EXPECT_TRUE(HasFocus("cmdNew"));
    EXPECT_FALSE(IsShown("lblAdmissionNo"));
    EXPECT_TRUE(IsShown("dbcAdmissionNo"));
    EXPECT_EQ(Details(), "|||||||");
    Press(Button("cmdNew"));
    Choose("dbcAdmissionNo", QStringLiteral("A102"));
    ChooseDivision("V", "A");
    Save();
    EXPECT_EQ(Placements(Main()), "1/2 V-A Y 1; 2/2 V-A Y 3");
}

TEST_F(AdmissionEntry, NewEditAndDeleteNeedTheirRightsAndSearchNeedsNone)
{
    GivenUser(3, QStringLiteral("clerk"), QStringLiteral("word"));
    Session().gintPrivilegeUserCode = 3;
    GivenPlacement(1);
    OpenEntry();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    EXPECT_EQ(Enabled(), Idle);
    ASSERT_TRUE(qobject_cast<frmMasStudentAdmissionEntry*>(form)->LoadPlacement(1, false));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Press(Button("cmdEdit"));
    EXPECT_EQ(Enabled(), Selected);
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Delete"));
    Press(Button("cmdDelete"));
    prompts.Verify();
    Session().gblnCalledFromSearch = true;
    Press(Button("cmdSearch"));
    EXPECT_TRUE(IsOpen("frmMasStudentAdmissionSearch"));
    EXPECT_FALSE(Session().gblnCalledFromSearch);
}

TEST_F(AdmissionEntry, HelpOpensAtTheNumberOfTheScreen)
{
    OpenEntry();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 11);
}

TEST_F(AdmissionEntry, ManyStudentsTakeAsManyStatementsAsFew)
{
    const auto statements = [this](const char* number) {
        const auto before = Main().StatementsRun();
        StartNew(number);
        ChooseDivision("V", "A");
        Save();
        form->Unload();
        Settle();
        return Main().StatementsRun() - before;
    };
    const auto few = statements("A101");
    Given(
        "WITH RECURSIVE n(i) AS (VALUES(100) UNION ALL SELECT i + 1 FROM n WHERE i < 599)"
        " INSERT INTO StudentMaster SELECT i, i + 1000, 'B' || i, '2024-06-03', 2, 'Student ' || i, '', 'M',"
        " '', '', 0, '', '', '', '2015-01-02', 0, 'N', NULL, '', '', NULL, 1 FROM n");
    EXPECT_EQ(statements("A102"), few);
}

TEST_F(AdmissionEntry, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmMasStudentAdmissionEntry"));
}

TEST_F(AdmissionEntry, EachUnderlinedLetterLeadsToOneControl)
{
    OpenEntry();
    ExpectOneControlALetter(form);
}

TEST_F(AdmissionEntry, APlacementWhoseListsCannotBeReadIsNotShownAsBlank)
{
    GivenPlacement(1);
    for (const char* table : {"ClassDivisionMaster", "ClassDivisionDetails"}) {
        OpenEntry();
        Main().Execute(QStringLiteral("ALTER TABLE %1 RENAME TO Away").arg(QLatin1String(table)));
        prompts.ExpectCritical(NoSuchTable(table));
        EXPECT_FALSE(qobject_cast<frmMasStudentAdmissionEntry*>(form)->LoadPlacement(1, false));
        EXPECT_EQ(Enabled(), Idle);
        Main().Execute(QStringLiteral("ALTER TABLE Away RENAME TO %1").arg(QLatin1String(table)));
        form->Unload();
        Settle();
    }
}

TEST_F(AdmissionEntry, WhatIsChosenStaysWhereTheListsCannotBeReadAnew)
{
    StartNew();
    ChooseDivision("V", "B");
    Press(Button("cmdAddClass"));
    ASSERT_TRUE(IsOpen("frmMasClassSectionEntry"));
    Given("ALTER TABLE ClassDivisionDetails RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("ClassDivisionDetails"));
    ScreenRegistry::OpenInstance(QStringLiteral("frmMasClassSectionEntry"))->Unload();
    Settle();
    prompts.Verify();
    EXPECT_EQ(Chosen("dbcClass") + Chosen("dbcDivision"), "VB");
    Given("ALTER TABLE Away RENAME TO ClassDivisionDetails");
}

} // namespace
} // namespace tally::test
