#include "students/PromotionScreen.h"
#include "support/StoreWords.h"

#include <chrono>

namespace tally::test {
namespace {

class PromotionSave : public PromotionScreen
{
protected:
    /// Saves, is told `text` and has to start anew; what is stored stays as the other client left it.
    void SaveStartsAnew(const char* text)
    {
        const std::string stored = school->Places();
        prompts.ExpectInformation(QString::fromUtf8(text));
        Press(Button("cmdSave"));
        prompts.Verify();
        ExpectIdle();
        EXPECT_EQ(school->Places(), stored);
    }
    /// Saves, is told `text` and finds the lists as they were.
    void SaveIsRefused(const char* text)
    {
        const std::string stored = school->Places();
        const std::string lists = Lines(from) + Lines(to);
        prompts.ExpectInformation(QString::fromUtf8(text));
        Press(Button("cmdSave"));
        prompts.Verify();
        EXPECT_EQ(Lines(from) + Lines(to), lists);
        EXPECT_EQ(EnabledControls(), "fraMain cmdSave cmdCancel cmdExit");
        EXPECT_EQ(school->Places(), stored);
        EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    }
    /// Binu is carried into X-A already, and the clerk takes him back.
    void StartWithOneTakenBack()
    {
        school->Carry(1, TenA);
        school->Carry(2, TenA);
        StartToTenA();
        Tick(to, 1);
        Press(Button("cmdMoveToToFrom"));
        ASSERT_EQ(Lines(to), "   Asha - (A1)");
    }
};

TEST_F(PromotionSave, WhatIsMissingIsToldInItsOrderAndTheBoxGetsTheFocus)
{
    OpenNew();
    ExpectRefusal(QStringLiteral("Select Class On The 'From' Side"), "cbofromClass");
    ChooseFromClass("IX");
    ExpectRefusal(QStringLiteral("Select Division On The 'From' Side"), "cbofromDivision");
    Choose("cbofromDivision", QStringLiteral("A"));
    Choose("cbotoclass", QStringLiteral(" "));
    ExpectRefusal(QStringLiteral("Select Class On The 'To' Side"), "cbotoclass");
    Choose("cbotoclass", QStringLiteral("X"));
    ExpectRefusal(QStringLiteral("Select Division On The 'To' Side"), "Cbotodivision");
    Choose("Cbotodivision", QStringLiteral("A"));
    ExpectRefusal(QStringLiteral("Select Student To Promote/Detain"), "lstfromlist");
    EXPECT_EQ(school->Places(), "A1 IX-A Y; A2 IX-A Y; A3 IX-A Y");
}

TEST_F(PromotionSave, ADivisionIsPromotedByKeyboardAlone)
{
    OpenForm();
    const auto key = [this](Qt::Key pressed, Qt::KeyboardModifiers with = Qt::NoModifier) {
        PressKey(form, pressed, with);
        Settle();
    };
    key(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(FocusName(), "optpromote");
    key(Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(FocusName(), "cbofromClass");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("IX"));
    key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "cbofromDivision");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("A"));
    key(Qt::Key_I, Qt::AltModifier);
    EXPECT_EQ(FocusName(), "Cbotodivision");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("B"));
    key(Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(FocusName(), "lstfromlist");
    key(Qt::Key_Space);
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    key(Qt::Key_Space);
    key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Lines(to), "   Asha - (A1)|   Cara - (A3)");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    key(Qt::Key_S, Qt::AltModifier);
    prompts.Verify();
    EXPECT_EQ(school->Places(), "A1 IX-A N, X-B Y; A2 IX-A Y; A3 IX-A N, X-B Y");
    ExpectIdle();
}

TEST_F(PromotionSave, ARetainedStudentStaysInTheClassAndThePresentYearIsClosedForHim)
{
    OpenNew();
    Press(Option("optnotpromote"));
    ChooseFromClass("IX");
    Choose("cbofromDivision", QStringLiteral("A"));
    Choose("Cbotodivision", QStringLiteral("B"));
    Tick(from, 1);
    Press(Button("cmdMoveFromToTo"));
    Save();
    EXPECT_EQ(school->Places(), "A1 IX-A Y; A2 IX-A N, IX-B Y; A3 IX-A Y");
    EXPECT_EQ(Count("SELECT UserCode FROM StudentClassDivision WHERE AcademicYearCode = 9"), 5);
}

TEST_F(PromotionSave, WhoWasTakenBackIsInThisYearOnlyAgain)
{
    StartWithOneTakenBack();
    Save();
    EXPECT_EQ(school->Places(), "A1 IX-A N, X-A Y; A2 IX-A Y; A3 IX-A Y");
}

TEST_F(PromotionSave, WhenTheLastOneIsTakenBackTheEmptyGroupIsRefused)
{
    school->Carry(1, TenA);
    StartToTenA();
    Tick(to, 0);
    Press(Button("cmdMoveToToFrom"));
    ExpectRefusal(QStringLiteral("Select Student To Promote/Detain"), "lstfromlist");
    EXPECT_EQ(school->Places(), "A1 IX-A N, X-A Y; A2 IX-A Y; A3 IX-A Y");
}

TEST_F(PromotionSave, AStudentOfTheNextYearAloneKeepsTheGroupFromBeingSaved)
{
    school->Add(QStringLiteral("New"), TenA, NextYear);
    StartToTenA();
    Tick(from, 0);
    Press(Button("cmdMoveFromToTo"));
    SaveIsRefused("'Student Admission Entry' Not Exists For The Student New");
}

TEST_F(PromotionSave, TwoDivisionsMovedOneAfterTheOtherAreSavedTogether)
{
    const int esha = school->Add(QStringLiteral("Esha"), NineB);
    ASSERT_EQ(esha, 4);
    StartWithTwoMoved();
    Choose("cbofromDivision", QStringLiteral("B"));
    Tick(from, 0);
    Press(Button("cmdMoveFromToTo"));
    Save();
    EXPECT_EQ(school->Places(), "A1 IX-A N, X-A Y; A2 IX-A N, X-A Y; A3 IX-A Y; A4 IX-B N, X-A Y");
}

TEST_F(PromotionSave, TheNextPromotionStartsWithTheFirstOptionAgain)
{
    OpenNew();
    Press(Option("optnotpromote"));
    Press(Button("cmdCancel"));
    Press(Button("cmdNew"));
    EXPECT_TRUE(Option("optpromote")->isChecked());
}

TEST_F(PromotionSave, AStudentRelievedMeanwhileIsToldAndTheListsStay)
{
    StartWithTwoMoved();
    Other("UPDATE StudentMaster SET TCNo = 'TC 1' WHERE StudentCode = 2");
    SaveIsRefused("Promotion Cannot Be Done To The Relieved Student(s)");
    Tick(to, 1);
    Press(Button("cmdMoveToToFrom"));
    Save();
    EXPECT_EQ(school->Places(), "A1 IX-A N, X-A Y; A2 IX-A Y; A3 IX-A Y") << "the others can still be saved";
}

TEST_F(PromotionSave, AStudentWhoLostHisClassMeanwhileIsNamedAndTheListsStay)
{
    StartWithTwoMoved();
    Other("DELETE FROM StudentClassDivision WHERE StudentCode = 2");
    SaveIsRefused("'Student Admission Entry' Not Exists For The Student Binu");
}

TEST_F(PromotionSave, AStudentDeletedMeanwhileIsNamedAndTheListsStay)
{
    StartWithTwoMoved();
    Other("DELETE FROM StudentClassDivision WHERE StudentCode = 2");
    Other("DELETE FROM StudentMaster WHERE StudentCode = 2");
    SaveIsRefused("'Student Admission Entry' Not Exists For The Student Binu");
}

TEST_F(PromotionSave, AStudentMovedToAnotherDivisionMeanwhileIsTold)
{
    StartWithTwoMoved();
    Other("UPDATE StudentClassDivision SET DivisionCode = 2 WHERE StudentCode = 2");
    SaveStartsAnew("The Class-Division Of 'Binu' Was Changed By Another User Meanwhile.\n"
                   "You Cannot Save This Data.");
}

TEST_F(PromotionSave, AStudentCarriedMeanwhileIsToldWithHisPlace)
{
    StartWithTwoMoved();
    Other("INSERT INTO StudentClassDivision VALUES (2, 9, 1, 2, 'Y', 1)");
    SaveStartsAnew("Student 'Binu' Already Promoted/Detained To X-B");
}

TEST_F(PromotionSave, AStudentPlacedInTheGroupMeanwhileIsNotLost)
{
    school->Add(QStringLiteral("New"));
    StartWithTwoMoved();
    Other("INSERT INTO StudentClassDivision VALUES (4, 9, 1, 1, 'Y', 1)");
    SaveStartsAnew("'New' Was Placed In X-A By Another User Meanwhile.\nYou Cannot Save This Data.");
    EXPECT_EQ(school->Places(), "A1 IX-A Y; A2 IX-A Y; A3 IX-A Y; A4 X-A Y");
}

TEST_F(PromotionSave, MarksEnteredMeanwhileKeepAStudentFromBeingTakenBack)
{
    StartWithOneTakenBack();
    Other("INSERT INTO MarkMaster VALUES (9, 2, 1, 1, 1, 1, 50, 'P', 0, 1)");
    SaveStartsAnew("Marks Are Already Entered For This Student, So Removing Of Student Is Not Possible");
    EXPECT_EQ(school->Places(), "A1 IX-A N, X-A Y; A2 IX-A N, X-A Y; A3 IX-A Y");
}

TEST_F(PromotionSave, MarksEnteredMeanwhileForOneWhoStaysAreNoHindrance)
{
    school->Carry(1, TenA);
    StartToTenA();
    Tick(from, 1);
    Press(Button("cmdMoveFromToTo"));
    Other("INSERT INTO MarkMaster VALUES (9, 1, 1, 1, 1, 1, 50, 'P', 0, 1)");
    Save();
    EXPECT_EQ(school->Places(), "A1 IX-A N, X-A Y; A2 IX-A N, X-A Y; A3 IX-A Y");
    EXPECT_EQ(Count("SELECT count(*) FROM MarkMaster"), 1);
}

TEST_F(PromotionSave, AStudentRelievedMeanwhileIsNotTakenBack)
{
    StartWithOneTakenBack();
    Other("UPDATE StudentMaster SET TCNo = 'TC 1' WHERE StudentCode = 2");
    SaveStartsAnew("Promotion Cannot Be Done To The Relieved Student(s)");
}

TEST_F(PromotionSave, AStudentOfTheGroupWhoIsCarriedOnMeanwhileIsTold)
{
    school->Carry(3, TenA);
    StartToTenA();
    Tick(from, 0);
    Press(Button("cmdMoveFromToTo"));
    Other("INSERT INTO StudentClassDivision VALUES (3, 3, 1, 2, 'Y', 1)");
    SaveStartsAnew("The Promote/Detain Entry Of 'Cara' In The Next Academic Year Was Changed By Another User "
                   "Meanwhile.\nYou Cannot Save This Data.");
}

TEST_F(PromotionSave, AStudentCarriedOnMeanwhileIsNotTakenBack)
{
    StartWithOneTakenBack();
    Other("INSERT INTO StudentClassDivision VALUES (2, 3, 1, 2, 'Y', 1)");
    SaveStartsAnew(
        "Already Promotion/Detaining Made For This Student, So Removing Of Student Is Not Possible");
}

TEST_F(PromotionSave, ADivisionDeletedMeanwhileIsToldAndNothingIsStored)
{
    StartWithTwoMoved();
    Other("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 1");
    SaveStartsAnew("The Class-Division On The 'To' Side Was Deleted By Another User Meanwhile.\n"
                   "You Cannot Save This Data.");
}

TEST_F(PromotionSave, ANextYearDeletedMeanwhileIsToldAndNothingIsStored)
{
    StartWithTwoMoved();
    Other("DELETE FROM AcademicYearSetup WHERE AcademicYearCode = 9");
    SaveStartsAnew("The Academic Year Setup Was Changed By Another User Meanwhile.\n"
                   "You Cannot Save This Data.");
}

TEST_F(PromotionSave, AYearEnteredBehindTheNextOneMeanwhileIsTold)
{
    Given("DELETE FROM AcademicYearSetup WHERE AcademicYearCode = 3");
    StartWithTwoMoved();
    Other("INSERT INTO AcademicYearSetup VALUES (3, 2026, 2027, '2026-06-01', '2027-05-31', 'N', 'N', 1)");
    SaveStartsAnew("The Academic Year Setup Was Changed By Another User Meanwhile.\n"
                   "You Cannot Save This Data.");
}

TEST_F(PromotionSave, AFailureThatNobodyForesawIsDescribedAndNothingIsStored)
{
    StartWithTwoMoved();
    Given("CREATE TRIGGER TakeNobody BEFORE INSERT ON StudentClassDivision"
          " BEGIN SELECT RAISE(ABORT, 'no'); END");
    prompts.ExpectCritical(QStringLiteral("The Data Contradicts Other Data That Is Already Stored (no)"));
    Press(Button("cmdSave"));
    prompts.Verify();
    ExpectIdle();
    EXPECT_EQ(school->Places(), "A1 IX-A Y; A2 IX-A Y; A3 IX-A Y");
}

TEST_F(PromotionSave, AStoreLockedByAnotherClientIsToldAndTheSaveCanBeRepeated)
{
    StartWithTwoMoved();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    {
        const auto other = AnotherClient();
        const store::Transaction holding(*other);
        prompts.ExpectCritical(HeldByAnotherClient);
        Press(Button("cmdSave"));
        prompts.Verify();
        EXPECT_EQ(Lines(to), "   Asha - (A1)|   Binu - (A2)");
    }
    Save();
    EXPECT_EQ(school->Places(), "A1 IX-A N, X-A Y; A2 IX-A N, X-A Y; A3 IX-A Y");
}

TEST_F(PromotionSave, AFullDiskIsToldAndTheSaveCanBeRepeated)
{
    {
        store::Transaction transaction(*Session().gcnnMain);
        for (int student = 4; student <= 400; ++student)
            school->Add(QStringLiteral("Student %1").arg(student), NineA);
        transaction.Commit();
    }
    StartToTenA();
    Press(Find<QCheckBox>(form, "chkSelectAllFrom"));
    Press(Button("cmdMoveFromToTo"));
    Count("PRAGMA max_page_count = 1");
    prompts.ExpectCritical(DiskIsFull);
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(to->count(), 400);
    EXPECT_EQ(Count("SELECT count(*) FROM StudentClassDivision WHERE Status = 'N'"), 0);
    Count("PRAGMA max_page_count = 1073741823");
    Save();
    EXPECT_EQ(Count("SELECT count(*) FROM StudentClassDivision WHERE AcademicYearCode = 9"), 400);
}

TEST_F(PromotionSave, AFaultInReadingTheListsAnewSaysThatThePromotionIsSaved)
{
    StartWithTwoMoved();
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind kind, const QString& text) {
        EXPECT_NE(kind, Prompts::Kind::Critical);
        if (told.isEmpty())
            Given("ALTER TABLE ClassDivisionMaster RENAME TO Away");
        told.append(text);
        return true;
    });
    Press(Button("cmdSave"));
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told.at(0).toStdString(), "Record Saved");
    EXPECT_TRUE(told.at(1).startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
    EXPECT_EQ(Count("SELECT count(*) FROM StudentClassDivision WHERE AcademicYearCode = 9"), 2);
}

} // namespace
} // namespace tally::test
