#include "exams/MarkScreen.h"

#include <chrono>

namespace tally::test {
namespace {

/// What another client, a full disk or a lost file does between the typing and the save.
class MarkFaults : public MarkScreen
{
protected:
    void SetUp() override
    {
        MarkScreen::SetUp();
        GivenThreeStudents();
    }

    void EnterEnglish()
    {
        StartSubject(QStringLiteral("English"));
        for (const char* digits : {"45", "40", "35"})
            Enter(digits);
        ASSERT_EQ(Focus(), "cmdSave");
    }

    /// Runs a statement as another client of the same files.
    template <typename... Values>
    void Other(const char* sql, const Values&... values)
    {
        AnotherClient()->Execute(QString::fromLatin1(sql), values...);
    }

    void SavesAsTyped()
    {
        prompts.ExpectInformation(QStringLiteral("Record Saved"));
        prompts.ExpectQuestion(SameAgain, false);
        PressKey(form, Qt::Key_Return);
        EXPECT_EQ(Stored(), "1 1 45 P 7 5; 2 1 40 P 7 5; 3 1 35 P 7 5");
    }

    void IsToldThatTheMasterIsGone()
    {
        prompts.ExpectCritical(MasterIsGone);
        PressKey(form, Qt::Key_Return);
        prompts.Verify();
        EXPECT_EQ(EnabledControls(), "Frame1 dbcSubject cmdNew cmdCancel cmdExit");
    }

    void KeepsEverythingTyped()
    {
        EXPECT_EQ(Rows(), "1|Asha(A1)|45|Present 2|Binu(A2)|40|Present 3|Cara(A3)|35|Present |||");
        EXPECT_EQ(subjects->currentText().toStdString(), "English");
        EXPECT_TRUE(IsEnabled("cmdSave"));
        EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    }
};

TEST_F(MarkFaults, AStudentRelievedMeanwhileKeepsTheMarkThatWasTyped)
{
    EnterEnglish();
    Other("UPDATE StudentMaster SET TCNo = 'TC1' WHERE StudentCode = 2");
    SavesAsTyped();
}

TEST_F(MarkFaults, AStudentMovedMeanwhileKeepsTheMarkOfTheDivisionItWasTypedFor)
{
    EnterEnglish();
    Other("INSERT INTO ClassDivisionDetails VALUES (1, 'B', 2)");
    Other("UPDATE StudentClassDivision SET DivisionCode = 2 WHERE StudentCode = 2");
    SavesAsTyped();
}

TEST_F(MarkFaults, ASubjectTakenOutOfTheClassMeanwhileKeepsTheMarksThatWereTyped)
{
    EnterEnglish();
    Other("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 1");
    SavesAsTyped();
}

TEST_F(MarkFaults, AStudentDeletedMeanwhileIsToldAndNothingIsStored)
{
    EnterEnglish();
    Other("DELETE FROM StudentClassDivision WHERE StudentCode = 2");
    Other("DELETE FROM StudentMaster WHERE StudentCode = 2");
    IsToldThatTheMasterIsGone();
    EXPECT_EQ(Stored(), "");
}

TEST_F(MarkFaults, ASubjectDeletedMeanwhileIsToldAndNothingIsStored)
{
    EnterEnglish();
    Other("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 1");
    Other("DELETE FROM SubjectMaster WHERE SubjectCode = 1");
    IsToldThatTheMasterIsGone();
    EXPECT_EQ(Stored(), "");
}

TEST_F(MarkFaults, TheLastSubjectTakenOutOfTheClassMeanwhileIsTold)
{
    EnterEnglish();
    Other("DELETE FROM ClassSubjectTeacher");
    prompts.ExpectInformation(NoSubjectsText);
    PressKey(form, Qt::Key_Return);
    KeepsEverythingTyped();
}

TEST_F(MarkFaults, AllStudentsMovedMeanwhileIsTold)
{
    EnterEnglish();
    Other("DELETE FROM StudentClassDivision");
    prompts.ExpectInformation(NoStudentsText);
    PressKey(form, Qt::Key_Return);
    KeepsEverythingTyped();
}

TEST_F(MarkFaults, TheSecondFirstEntryOfASubjectIsToldAndTheFirstOneStays)
{
    EnterEnglish();
    Other("INSERT INTO MarkMaster VALUES (1, 2, 1, 1, 1, 1, 20, 'P', 7, 6)");
    prompts.ExpectCritical(QStringLiteral(
        "Marks Of This Subject Were Entered By Another User Meanwhile.\nYou Cannot Save This Data."));
    PressKey(form, Qt::Key_Return);
    KeepsEverythingTyped();
    EXPECT_EQ(Stored(), "2 1 20 P 7 6");
}

TEST_F(MarkFaults, AStudentWhoGotAMarkMeanwhileIsToldAsTheStudent)
{
    StartStudent(QStringLiteral("Asha(A1)"));
    Enter("60");
    Enter("45");
    Other("INSERT INTO MarkMaster VALUES (1, 1, 1, 1, 1, 1, 20, 'P', 7, 6)");
    prompts.ExpectCritical(QStringLiteral(
        "Marks Of This Student Were Entered By Another User Meanwhile.\nYou Cannot Save This Data."));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Stored(), "1 1 20 P 7 6");
}

TEST_F(MarkFaults, MarksOfAnotherSubjectSavedMeanwhileStay)
{
    EnterEnglish();
    Other("INSERT INTO MarkMaster VALUES (1, 2, 1, 1, 1, 2, 20, 'P', 8, 6)");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    prompts.ExpectQuestion(SameAgain, false);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Stored(), "1 1 45 P 7 5; 2 1 40 P 7 5; 2 2 20 P 8 6; 3 1 35 P 7 5");
}

TEST_F(MarkFaults, AnEditAfterAnotherClientsDeleteStoresTheWholeSubject)
{
    for (int student = 1; student <= 3; ++student)
        school->EnterMark(student, 1, 10 + student);
    ShowStoredSubject(QStringLiteral("English"));
    Press(Button("cmdEdit"));
    Other("DELETE FROM MarkMaster");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Stored(), "1 1 11 P 7 5; 2 1 12 P 7 5; 3 1 13 P 7 5");
}

TEST_F(MarkFaults, AStoreLockedByAnotherClientIsToldAndTheSaveCanBeRepeated)
{
    EnterEnglish();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    {
        const auto other = AnotherClient();
        const store::Transaction holding(*other);
        prompts.ExpectCritical(QStringLiteral(
            "The Data Is In Use By Another Client. Please Try Again In A Moment (database is locked)"));
        PressKey(form, Qt::Key_Return);
        prompts.Verify();
        KeepsEverythingTyped();
    }
    SavesAsTyped();
}

TEST_F(MarkFaults, AFullDiskIsToldAndTheSaveCanBeRepeated)
{
    constexpr int Students = 400;
    for (int student = 4; student <= Students; ++student)
        school->AddStudent(1, QStringLiteral("Student %1").arg(student));
    StartSubject(QStringLiteral("English"));
    for (int row = 1; row <= Students; ++row)
        Enter("10");
    Count("PRAGMA max_page_count = 1");
    prompts.ExpectCritical();
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(Count("SELECT count(*) FROM MarkMaster"), 0);
    EXPECT_EQ(grid->TextMatrix(Students, 2).toStdString(), "10");
    EXPECT_TRUE(IsEnabled("cmdSave"));
    Count("PRAGMA max_page_count = 1000000");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    prompts.ExpectQuestion(SameAgain, false);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Count("SELECT count(*) FROM MarkMaster"), Students);
}

TEST_F(MarkFaults, ALockDuringADeleteIsToldAndTheMarksStay)
{
    school->EnterMark(1, 1, 45);
    ShowStoredSubject(QStringLiteral("English"));
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    const auto other = AnotherClient();
    const store::Transaction holding(*other);
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This 'Classwise Mark Entry' ?"), true);
    prompts.ExpectCritical(QStringLiteral(
        "The Data Is In Use By Another Client. Please Try Again In A Moment (database is locked)"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Stored(), "1 1 45 P 0 0");
    EXPECT_TRUE(IsEnabled("cmdDelete"));
}

TEST_F(MarkFaults, ALostTableIsToldWhileChoosingAndTheScreenGoesOn)
{
    OpenForm();
    Choose(exam, QStringLiteral("Term One"));
    Choose(classes, QStringLiteral("X"));
    Given("ALTER TABLE ClassSubjectTeacher RENAME TO Lost");
    prompts.ExpectCritical();
    Choose(divisions, QStringLiteral("A"));
    Given("ALTER TABLE Lost RENAME TO ClassSubjectTeacher");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(grid->Rows(), 5);
}

} // namespace
} // namespace tally::test
