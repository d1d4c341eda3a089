#include "core/ui/ScreenRegistry.h"
#include "exams/GradeScreen.h"

#include <QAbstractItemView>
#include <QLabel>

namespace tally::test {
namespace {

/// What the screen offers, and what it shows of a choice.
class GradeChoosing : public GradeScreen
{
protected:
    std::string Entries(const char* name) const
    {
        QStringList texts;
        for (int index = 0; index < List(name)->count(); ++index)
            texts.append(List(name)->itemText(index));
        return texts.join(QLatin1Char('|')).toStdString();
    }
    /// Leaves the other screen, from which this one gets the keyboard back.
    static void Leave(const char* master)
    {
        ScreenRegistry::OpenInstance(QString::fromLatin1(master))->Unload();
        Settle();
    }
    /// Opens the list and takes an entry of it.
    void Pick(const char* name, const QString& text)
    {
        DataCombo* list = List(name);
        list->setFocus();
        list->showPopup();
        list->view()->setCurrentIndex(list->model()->index(list->findText(text), 0));
        QTest::keyClick(list->view(), Qt::Key_Return);
        Settle();
    }
};

TEST_F(GradeChoosing, TheScreenOpensForBrowsing)
{
    OpenForm();
    EXPECT_EQ(form->windowTitle().toStdString(), "Classwise Rank - Grade Setup");
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(FocusName(), "cmdNew");
    EXPECT_EQ(Entries("dbcExam"), " |Term One|Term Two");
    EXPECT_EQ(Entries("cboClass"), " |X");
    EXPECT_EQ(Entries("cboDivision"), " ");
    EXPECT_EQ(Rows(), "|||");
    const char* const heads[] = {"S.No.", "Total Average Is >=", "Subject Average Is >=", "Grade"};
    for (int col = 0; col < 4; ++col)
        EXPECT_EQ(Cell(0, col), heads[col]);
}

TEST_F(GradeChoosing, TheNoteTellsWhatATableNeeds)
{
    OpenForm();
    EXPECT_EQ(Find<QLabel>(form, "lblNote")->text().toStdString(),
              "Note :                                                           1. Enter Grade For All "
              "Criteria - From Maximum          Average To 0                                              "
              "2. Enter Last Row As 0 (Zero) In Both Average        Columns (Total Average and Subject  "
              "Average)");
    EXPECT_EQ(Box("txtDeleteSlNo")->toolTip().toStdString(), "Enter Sl No. To Delete ");
}

TEST_F(GradeChoosing, TheNoteStandsBelowTheGrades)
{
    OpenForm();
    const auto* note = Find<QLabel>(form, "lblNote");
    EXPECT_GE(note->mapTo(form, QPoint()).y(), grid->mapTo(form, QPoint(0, grid->height())).y());
}

TEST_F(GradeChoosing, EachListAndBoxHasItsLabel)
{
    OpenForm();
    for (const auto& [label, text, buddy] :
         {std::tuple("lblExam", "Exam Name :", "dbcExam"), std::tuple("lblClass", "Class :", "cboClass"),
          std::tuple("lblDivision", "Division :", "cboDivision"),
          std::tuple("lblDeleteSlNo", "S.No : ", "txtDeleteSlNo")}) {
        const auto* shown = Find<QLabel>(form, label);
        EXPECT_EQ(shown->text().remove(QLatin1Char('&')).toStdString(), text);
        EXPECT_EQ(shown->buddy(), Find<QWidget>(form, buddy)) << text;
    }
    EXPECT_EQ(Button("cmdDeleteRow")->text().remove(QLatin1Char('&')).toStdString(), "Delete Row");
}

TEST_F(GradeChoosing, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmClassRankSetup"));
}

TEST_F(GradeChoosing, HelpOpensAtTheNumberOfTheScreen)
{
    OpenForm();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 17);
}

TEST_F(GradeChoosing, ASchoolWithoutExamsHasNoneToChoose)
{
    Given("DELETE FROM ExamMaster");
    OpenForm();
    EXPECT_EQ(Entries("dbcExam"), "");
    Press(Button("cmdNew"));
    EXPECT_EQ(FocusName(), "dbcExam");
    prompts.ExpectInformation(QStringLiteral("Select Exam Name"));
    Press(Button("cmdSave"));
}

TEST_F(GradeChoosing, EnterInTheDivisionShowsWhatIsStoredBeforeNewIsPressed)
{
    GivenGrades();
    OpenForm();
    ChooseDivision();
    EXPECT_EQ(Rows(), "|||");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Rows(), UsualRows);
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(FocusName(), "cmdEdit");
}

TEST_F(GradeChoosing, TabShowsItToo)
{
    GivenGrades();
    OpenForm();
    ChooseDivision();
    PressKey(form, Qt::Key_Tab);
    EXPECT_EQ(Rows(), UsualRows);
    EXPECT_EQ(FocusName(), "cmdEdit");
}

TEST_F(GradeChoosing, AnEntryPickedFromTheOpenListIsShownAtOnce)
{
    GivenGrades();
    OpenForm();
    Pick("dbcExam", QStringLiteral("Term One"));
    Pick("cboClass", QStringLiteral("X"));
    EXPECT_EQ(Rows(), "|||");
    Pick("cboDivision", QStringLiteral("A"));
    EXPECT_EQ(Rows(), UsualRows);
    EXPECT_EQ(EnabledControls(), Found);
}

TEST_F(GradeChoosing, TheExamMayBeChosenLast)
{
    GivenGrades();
    OpenForm();
    Choose("cboClass", QStringLiteral("X"));
    Choose("cboDivision", QStringLiteral("A"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Rows(), "|||");
    Choose("dbcExam", QStringLiteral("Term One"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Rows(), UsualRows);
}

TEST_F(GradeChoosing, EnterStaysInAListInWhichNothingIsChosen)
{
    OpenForm();
    for (const char* name : {"dbcExam", "cboClass", "cboDivision"}) {
        List(name)->setFocus();
        PressKey(form, Qt::Key_Return);
        EXPECT_EQ(FocusName(), name);
    }
}

TEST_F(GradeChoosing, TheArrowsGoThroughTheDivisionsWithoutReading)
{
    GivenGrades();
    GivenMark();
    OpenForm();
    const auto reads = [] { return Session().gcnnMain->StatementsRun(); };
    auto before = reads();
    Choose("dbcExam", QStringLiteral("Term One"));
    Choose("cboClass", QStringLiteral("X"));
    EXPECT_EQ(reads(), before);
    EXPECT_EQ(Entries("cboDivision"), " ");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Entries("cboDivision"), " |A|B");
    before = reads();
    Choose("cboDivision", QStringLiteral("B"));
    EXPECT_EQ(reads(), before);
}

TEST_F(GradeChoosing, WhatIsTypedForAChoiceThatWasLeftToGiveUpStays)
{
    OpenForm();
    ChooseDivision("B");
    Button("cmdExit")->setFocus();
    Press(Button("cmdNew"));
    ASSERT_EQ(OpenBox(), "Txttotalaverage 1");
    TypeRows({{"80", "50", "A"}});
    Click(1, 1);
    EXPECT_EQ(Rows(), "1|80|50|A 2|||");
}

TEST_F(GradeChoosing, ASaveShowsTheGradesOfAChoiceThatWasLeftToGiveUpAndStoresNothing)
{
    GivenGrades();
    OpenForm();
    Press(Button("cmdNew"));
    ChooseDivision();
    Button("cmdExit")->setFocus();
    Press(Button("cmdSave"));
    EXPECT_EQ(Rows(), UsualRows);
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(Stored(), UsualStored) << "without a user they would have been stored anew";
}

TEST_F(GradeChoosing, AChoiceThatWasLeftToGiveUpIsReadOnTheWayBackFromAMaster)
{
    GivenGrades();
    OpenForm();
    for (const auto& [button, master] : {std::pair{"cmdAddExam", "frmexamnamemaster"},
                                         std::pair{"cmdAddClass", "frmMasClassSectionEntry"}}) {
        ChooseDivision();
        Button("cmdExit")->setFocus();
        Press(Button(button));
        EXPECT_EQ(Rows(), "|||");
        Leave(master);
        EXPECT_EQ(Rows(), UsualRows) << master;
        EXPECT_EQ(EnabledControls(), Found);
        Press(Button("cmdCancel"));
    }
}

TEST_F(GradeChoosing, AnotherChoicePutsTheOpenBoxAway)
{
    StartNew();
    ASSERT_EQ(OpenBox(), "Txttotalaverage 1");
    Choose("dbcExam", QStringLiteral("Term Two"));
    EXPECT_FALSE(totalAverage->isVisible());
}

TEST_F(GradeChoosing, GradesThatAnotherClientEnteredMeanwhilePutTheOpenBoxAway)
{
    StartNew();
    ASSERT_EQ(OpenBox(), "Txttotalaverage 1");
    GivenGrades();
    division->setFocus();
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_FALSE(totalAverage->isVisible());
}

TEST_F(GradeChoosing, WhoGoesBackFromADivisionIsNotLedOn)
{
    GivenGrades();
    OpenForm();
    ChooseDivision();
    QTest::keyClick(division, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Rows(), UsualRows);
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(FocusName(), "cboClass");
}

TEST_F(GradeChoosing, AChoiceIsReadInTwoStatementsWhateverTheTable)
{
    for (int row = 0; row < 40; ++row)
        school->AddBand(1, 40 - row, 10, QByteArray::number(row).constData(), row);
    OpenForm();
    ChooseDivision();
    const auto before = Session().gcnnMain->StatementsRun();
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(grid->Rows(), 42);
    EXPECT_LE(Session().gcnnMain->StatementsRun() - before, 4U) << "the two, and what holds their moment";
}

TEST_F(GradeChoosing, EachEnterInTheDivisionReadsAnewAndOnlyLeavingItDoesNot)
{
    GivenGrades();
    ShowStored();
    OtherInDivision("UPDATE RankMaster SET TotalAverage = 90 WHERE Grade = 'A'");
    const auto before = Session().gcnnMain->StatementsRun();
    division->setFocus();
    PressKey(form, Qt::Key_Tab);
    EXPECT_EQ(Session().gcnnMain->StatementsRun(), before);
    EXPECT_EQ(Rows(), UsualRows);
    division->setFocus();
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Rows(), "1|90|50|A 2|60|40|B 3|0|0|C 4|||");
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(FocusName(), "cmdEdit");
    OtherInDivision("DELETE FROM RankMaster WHERE Status > 0");
    division->setFocus();
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Rows(), "1|||");
    EXPECT_EQ(EnabledControls(), Idle);
}

TEST_F(GradeChoosing, AnEditBeginsWithWhatIsStoredByThen)
{
    GivenGrades();
    ShowStored();
    OtherInDivision("UPDATE RankMaster SET TotalAverage = 90 WHERE Grade = 'A'");
    Press(Button("cmdEdit"));
    EXPECT_EQ(Rows(), "1|90|50|A 2|60|40|B 3|0|0|C 4|||");
    EXPECT_EQ(EnabledControls(), Editing);
    EXPECT_EQ(FocusName(), "msgDetails");
}

TEST_F(GradeChoosing, WhatIsNoLongerThereIsNotEdited)
{
    GivenGrades();
    ShowStored();
    OtherInDivision("DELETE FROM RankMaster WHERE Status > 0");
    Press(Button("cmdEdit"));
    EXPECT_EQ(Rows(), "1|||");
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(FocusName(), "cboDivision");
}

TEST_F(GradeChoosing, WhatIsNoLongerThereIsEnteredAnewOnceNewWasPressed)
{
    GivenGrades();
    StartNew();
    ASSERT_EQ(EnabledControls(), Found);
    OtherInDivision("DELETE FROM RankMaster WHERE Status > 0");
    Press(Button("cmdEdit"));
    EXPECT_EQ(EnabledControls(), Entering);
    EXPECT_EQ(OpenBox(), "Txttotalaverage 1");
}

TEST_F(GradeChoosing, MarksThatCameSinceTheChoiceAreToldBeforeAnEdit)
{
    GivenGrades();
    ShowStored();
    OtherEntersMark();
    prompts.ExpectInformation(MarksStandAgainstIt);
    Press(Button("cmdEdit"));
    prompts.Verify();
    EXPECT_EQ(Rows(), UsualRows);
    EXPECT_EQ(EnabledControls(), Locked);
}

TEST_F(GradeChoosing, AnEditOfWhatCannotBeReadDoesNotBegin)
{
    GivenGrades();
    ShowStored();
    Given("ALTER TABLE RankMaster RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("RankMaster"));
    Press(Button("cmdEdit"));
    prompts.Verify();
    Given("ALTER TABLE Lost RENAME TO RankMaster");
    EXPECT_EQ(Rows(), "|||");
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_TRUE(division->IsBlank());
    EXPECT_EQ(FocusName(), "cboDivision");
}

TEST_F(GradeChoosing, ALongTableThatIsOnlyShownIsLookedThroughWithTheKeys)
{
    constexpr int Grades = 60;
    for (int row = 1; row <= Grades; ++row)
        school->AddBand(1, Grades - row, 10, QByteArray::number(row).constData(), row);
    GivenMark();
    OpenForm();
    ChooseDivision();
    prompts.ExpectInformation(MarksStandAgainstIt);
    PressKey(form, Qt::Key_Return);
    ASSERT_EQ(EnabledControls(), Locked);
    const auto isSeen = [this](int row) {
        return grid->viewport()->rect().intersects(grid->CellRect(row, 1));
    };
    ASSERT_FALSE(isSeen(Grades));
    ASSERT_EQ(FocusName(), "cboDivision");
    for (int page = 0; page < 20; ++page)
        PressKey(form, Qt::Key_PageDown);
    EXPECT_TRUE(isSeen(Grades));
    EXPECT_TRUE(division->IsBlank());
    for (int page = 0; page < 20; ++page)
        PressKey(form, Qt::Key_PageUp);
    EXPECT_TRUE(isSeen(1));
    Button("cmdCancel")->setFocus();
    PressKey(form, Qt::Key_Down);
    EXPECT_FALSE(isSeen(1));
    EXPECT_TRUE(isSeen(2));
    EXPECT_EQ(FocusName(), "cmdCancel");
    PressKey(form, Qt::Key_Up);
    EXPECT_TRUE(isSeen(1));
}

TEST_F(GradeChoosing, WhereNothingLiesOutOfSightTheKeysOfListsAndButtonsAreTheirOwn)
{
    GivenGrades();
    ShowStored();
    PressKey(form, Qt::Key_Down);
    EXPECT_EQ(FocusName(), "cmdDelete");
    List("dbcExam")->setFocus();
    PressKey(form, Qt::Key_PageDown);
    EXPECT_EQ(List("dbcExam")->currentText().toStdString(), "Term Two");
}

TEST_F(GradeChoosing, StoredRowsComeInTheirPlacesWhateverTheirAverages)
{
    school->AddBand(1, 10, 10.5, "B", 1);
    school->AddBand(1, 66.25, 30, "A", 2);
    ShowStored();
    EXPECT_EQ(Rows(), "1|10|10.5|B 2|66.25|30|A 3|||");
}

TEST_F(GradeChoosing, ADivisionWithoutGradesIsEnteredByNew)
{
    OpenForm();
    ChooseDivision();
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(FocusName(), "cmdNew");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(EnabledControls(), Entering);
    EXPECT_EQ(OpenBox(), "Txttotalaverage 1");
    EXPECT_EQ(Rows(), "1|||");
}

TEST_F(GradeChoosing, NewTakesToTheFirstChoiceThatIsMissing)
{
    OpenForm();
    Choose("dbcExam", QStringLiteral("Term One"));
    Press(Button("cmdNew"));
    EXPECT_EQ(FocusName(), "cboClass");
    EXPECT_EQ(EnabledControls(), Entering);
    EXPECT_EQ(Rows(), "1|||");
}

TEST_F(GradeChoosing, NewOnAChoiceThatHasItsGradesShowsThemForAnEdit)
{
    GivenGrades();
    StartNew();
    EXPECT_EQ(Rows(), UsualRows);
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(FocusName(), "cmdEdit");
    EXPECT_EQ(OpenBox(), "none");
}

TEST_F(GradeChoosing, NewShowsGradesThatWereEnteredSinceTheChoice)
{
    OpenForm();
    ChooseDivision();
    PressKey(form, Qt::Key_Return);
    GivenGrades();
    Press(Button("cmdNew"));
    EXPECT_EQ(Rows(), UsualRows);
    EXPECT_EQ(EnabledControls(), Found);
}

TEST_F(GradeChoosing, AfterADivisionWithGradesTheEntryGoesOnWithAnotherOne)
{
    GivenGrades();
    StartNew();
    Choose("cboDivision", QStringLiteral("B"));
    EXPECT_EQ(EnabledControls(), Entering);
    EXPECT_EQ(Rows(), "1|||");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(OpenBox(), "Txttotalaverage 1");
}

TEST_F(GradeChoosing, EachOtherChoiceTakesTheShownGradesAway)
{
    GivenGrades();
    ShowStored();
    for (const auto& [list, other, own] :
         {std::tuple("cboDivision", "B", "A"), std::tuple("dbcExam", "Term Two", "Term One")}) {
        Choose(list, QString::fromLatin1(other));
        EXPECT_EQ(Rows(), "|||") << list;
        EXPECT_EQ(EnabledControls(), Idle) << list;
        PressKey(form, Qt::Key_Tab);
        EXPECT_EQ(Rows().find("80"), std::string::npos) << list;
        Choose(list, QString::fromLatin1(own));
        PressKey(form, Qt::Key_Tab);
        EXPECT_EQ(Rows(), UsualRows) << list;
    }
    Choose("cboClass", QStringLiteral(" "));
    EXPECT_EQ(Rows(), "|||");
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(Entries("cboDivision"), " ");
}

TEST_F(GradeChoosing, GradesWhoseExamHasMarksAreShownAndLocked)
{
    GivenGrades();
    GivenMark();
    OpenForm();
    ChooseDivision();
    prompts.ExpectInformation(MarksStandAgainstIt);
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(Rows(), UsualRows);
    EXPECT_EQ(EnabledControls(), Locked);
    EXPECT_TRUE(division->IsBlank());
    EXPECT_TRUE(HasFocus("cboDivision"));
}

TEST_F(GradeChoosing, NewOnAnExamWithMarksIsLockedToo)
{
    GivenMark();
    OpenForm();
    Press(Button("cmdNew"));
    ChooseDivision();
    prompts.ExpectInformation(MarksStandAgainstIt);
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(EnabledControls(), Locked);
    EXPECT_EQ(OpenBox(), "none");
    Choose("cboDivision", QStringLiteral("B"));
    EXPECT_EQ(EnabledControls(), Entering);
}

TEST_F(GradeChoosing, AnExamWithMarksAndWithoutGradesLeavesNewOpen)
{
    GivenMark();
    OpenForm();
    ChooseDivision();
    prompts.ExpectInformation(MarksStandAgainstIt);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_TRUE(division->IsBlank());
}

TEST_F(GradeChoosing, TheArrowsGoOnBehindADivisionThatWasRefused)
{
    GivenMark();
    OpenForm();
    ChooseDivision();
    prompts.ExpectInformation(MarksStandAgainstIt);
    PressKey(form, Qt::Key_Return);
    QTest::keyClick(division, Qt::Key_Down);
    EXPECT_EQ(division->currentText().toStdString(), "B");
}

TEST_F(GradeChoosing, MarksOfAnotherExamLockNothing)
{
    GivenGrades();
    GivenMark();
    Given("UPDATE MarkMaster SET ExamCode = 2");
    ShowStored();
}

TEST_F(GradeChoosing, CancelAsksNothingOfAChoiceThatWasNotReadYet)
{
    GivenMark();
    OpenForm();
    ChooseDivision();
    PressKey(form, Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_TRUE(division->IsBlank());
}

TEST_F(GradeChoosing, GradesThatCannotBeReadLeaveNoDivisionChosen)
{
    GivenGrades();
    OpenForm();
    Press(Button("cmdNew"));
    ChooseDivision();
    Given("ALTER TABLE RankMaster RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("RankMaster"));
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    Given("ALTER TABLE Lost RENAME TO RankMaster");
    EXPECT_TRUE(division->IsBlank());
    EXPECT_EQ(OpenBox(), "none");
    prompts.ExpectInformation(QStringLiteral("Select Division"));
    Press(Button("cmdSave"));
    EXPECT_EQ(Stored(), UsualStored);
}

TEST_F(GradeChoosing, MarksThatCannotBeReadAreNotTakenForNone)
{
    GivenGrades();
    OpenForm();
    ChooseDivision();
    Given("ALTER TABLE MarkMaster RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("MarkMaster"));
    PressKey(form, Qt::Key_Return);
    Given("ALTER TABLE Lost RENAME TO MarkMaster");
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_TRUE(division->IsBlank());
}

TEST_F(GradeChoosing, WhoHasNoRightIsToldSo)
{
    GivenGrades();
    GivenUser(9, QStringLiteral("clerk"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 9;
    OpenForm();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Create New Entry"));
    Press(Button("cmdNew"));
    EXPECT_EQ(EnabledControls(), Idle);
    ChooseDivision();
    PressKey(form, Qt::Key_Return);
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Modify This Entry"));
    Press(Button("cmdEdit"));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Delete"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(Stored(), UsualStored);
}

TEST_F(GradeChoosing, EachRightOpensItsOwnButton)
{
    GivenGrades();
    GivenUser(9, QStringLiteral("clerk"), QStringLiteral("x"),
              {{QStringLiteral("frmClassRankSetup"), QStringLiteral("E")}});
    Session().gintPrivilegeUserCode = 9;
    StartEdit();
}

TEST_F(GradeChoosing, AnExamAddedBesideTheScreenIsOffered)
{
    OpenForm();
    ChooseDivision();
    Press(Button("cmdAddExam"));
    auto* master = ScreenRegistry::OpenInstance(QStringLiteral("frmexamnamemaster"));
    ASSERT_NE(master, nullptr);
    Given("INSERT INTO ExamMaster VALUES (3, 'Final', 3, 0)");
    master->Unload();
    Settle();
    EXPECT_EQ(Entries("dbcExam"), " |Term One|Term Two|Final");
    EXPECT_EQ(List("dbcExam")->currentText().toStdString(), "Term One");
}

TEST_F(GradeChoosing, AnExamDeletedBesideTheScreenTakesItsGradesOffTheScreen)
{
    GivenGrades();
    ShowStored();
    Press(Button("cmdAddExam"));
    auto* master = ScreenRegistry::OpenInstance(QStringLiteral("frmexamnamemaster"));
    ASSERT_NE(master, nullptr);
    LeaveOthersUnguarded();
    for (const char* table : {"RankMaster", "MarkMaster", "TempRankTotal", "ExamMaster"})
        AnotherClient()->Execute(
            QStringLiteral("DELETE FROM %1 WHERE ExamCode = 1").arg(QString::fromLatin1(table)));
    master->Unload();
    Settle();
    EXPECT_TRUE(List("dbcExam")->IsBlank());
    EXPECT_EQ(Rows(), "|||");
    EXPECT_EQ(EnabledControls(), Idle);
}

TEST_F(GradeChoosing, ADivisionDeletedBesideTheScreenTakesItsGradesOffTheScreen)
{
    GivenGrades();
    ShowStored();
    Press(Button("cmdAddClass"));
    LeaveOthersUnguarded();
    for (const char* table : {"RankMaster", "MarkMaster", "TempRankTotal", "StudentClassDivision",
                              "ClassSubjectTeacher", "ClassDivisionDetails"})
        AnotherClient()->Execute(QStringLiteral("DELETE FROM %1 WHERE ClassCode = 1 AND DivisionCode = 1")
                                     .arg(QString::fromLatin1(table)));
    Leave("frmMasClassSectionEntry");
    EXPECT_TRUE(division->IsBlank());
    EXPECT_EQ(Rows(), "|||");
    EXPECT_EQ(EnabledControls(), Idle);
}

TEST_F(GradeChoosing, AClassAddedBesideTheScreenIsOfferedAndTheChoiceStays)
{
    GivenGrades();
    ShowStored();
    Press(Button("cmdAddClass"));
    auto* master = ScreenRegistry::OpenInstance(QStringLiteral("frmMasClassSectionEntry"));
    ASSERT_NE(master, nullptr);
    Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 1, 2, 0)");
    master->Unload();
    Settle();
    EXPECT_EQ(Entries("cboClass"), " |X|IX");
    EXPECT_EQ(division->currentText().toStdString(), "A");
    EXPECT_EQ(Rows(), UsualRows);
    EXPECT_EQ(EnabledControls(), Found);
}

TEST_F(GradeChoosing, CancelClearsAllAndReadsTheListsAnew)
{
    GivenGrades();
    StartEdit();
    Given("INSERT INTO ExamMaster VALUES (3, 'Final', 3, 0)");
    Press(Button("cmdCancel"));
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(FocusName(), "cmdNew");
    EXPECT_EQ(Rows(), "|||");
    for (const char* name : {"dbcExam", "cboClass", "cboDivision"})
        EXPECT_TRUE(List(name)->IsBlank()) << name;
    EXPECT_EQ(Entries("dbcExam"), " |Term One|Term Two|Final");
    EXPECT_EQ(Entries("cboDivision"), " ");
    EXPECT_EQ(Stored(), UsualStored);
    ChooseDivision();
    EXPECT_EQ(EnabledControls(), Idle) << "the entry that New began is over";
}

} // namespace
} // namespace tally::test
