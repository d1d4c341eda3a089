#include "exams/MarkScreen.h"

#include <chrono>

namespace tally::test {
namespace {

/// What another client, a full disk or a lost file does between the typing and the save.
class MarkFaults : public MarkScreenOfThree
{
protected:
    void EnterEnglish()
    {
        StartSubject(QStringLiteral("English"));
        for (const char* digits : {"45", "40", "35"})
            Enter(digits);
        ASSERT_EQ(Focus(), "cmdSave");
    }

    /// Runs a statement as another client of the same files.
    void Other(const char* sql) { AnotherClient()->Execute(QString::fromLatin1(sql)); }
    /// The same on the division's own rows; `sql` ends in a condition.
    void OtherInDivision(const char* sql)
    {
        AnotherClient()->Execute(
            QString::fromLatin1(sql) +
            QStringLiteral(" AND ClassCode = 1 AND DivisionCode = 1 AND AcademicYearCode = 1"));
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
        EXPECT_EQ(EnabledControls(), Browse);
    }

    void KeepsEverythingTyped()
    {
        EXPECT_EQ(Rows(), "1|Asha(A1)|45|Present 2|Binu(A2)|40|Present 3|Cara(A3)|35|Present |||");
        EXPECT_EQ(subjects->currentText().toStdString(), "English");
        EXPECT_TRUE(IsEnabled("cmdSave"));
        EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    }
};

TEST_F(MarkFaults, AFaultInReadingTheListsAnewSaysThatTheMarksAreSavedInOneBox)
{
    EnterEnglish();
    QStringList told;
    Prompts::AnswerWith([&](Prompts::Kind kind, const QString& text) {
        EXPECT_NE(kind, Prompts::Kind::Critical);
        if (text == SameAgain) {
            Given("ALTER TABLE ExamMaster RENAME TO Away");
            Given("ALTER TABLE ClassDivisionMaster RENAME TO FarAway");
        }
        told.append(text);
        return false;
    });
    PressKey(form, Qt::Key_Return);
    ASSERT_EQ(told.size(), 3);
    EXPECT_EQ(told.at(0), QStringLiteral("Record Saved"));
    EXPECT_TRUE(told.at(2).startsWith(QStringLiteral("Your Change Is Saved. You Need Not Make It Again.")));
    EXPECT_EQ(EnabledControls(), Browse);
    EXPECT_EQ(Stored(), "1 1 45 P 7 5; 2 1 40 P 7 5; 3 1 35 P 7 5");
}

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
    OtherInDivision("UPDATE StudentClassDivision SET DivisionCode = 2 WHERE StudentCode = 2");
    SavesAsTyped();
}

TEST_F(MarkFaults, ASubjectTakenOutOfTheClassMeanwhileIsToldAndGetsNoMarks)
{
    EnterEnglish();
    OtherInDivision("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 1");
    IsToldThatTheMasterIsGone();
    EXPECT_EQ(Stored(), "");
}

TEST_F(MarkFaults, ASubjectTakenOutOfTheClassWhileAStudentIsEnteredIsToldAndNoMarkIsStored)
{
    StartStudent(QStringLiteral("Asha(A1)"));
    Enter("88");
    Enter("40");
    OtherInDivision("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 1");
    IsToldThatTheMasterIsGone();
    EXPECT_EQ(Stored(), "");
}

TEST_F(MarkFaults, AMarkAboveWhatIsAllowedByNowIsToldAndCanBeMended)
{
    EnterEnglish();
    OtherInDivision("UPDATE ClassSubjectTeacher SET MaximumAllowed = 40 WHERE SubjectCode = 1");
    prompts.ExpectInformation(QStringLiteral("Entered Mark Should Not Exceed Maximum Allowed Mark : 40"));
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    KeepsEverythingTyped();
    EXPECT_EQ(Stored(), "");
    EXPECT_EQ(Focus(), "txtmarkobtained");
    EXPECT_EQ(mark->Row(), 1);
    EXPECT_EQ(Find<QLineEdit>(form, "txtmaximumallowed")->text().toStdString(), "40");
    Enter("39");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    prompts.ExpectQuestion(SameAgain, false);
    Press(Button("cmdSave"));
    EXPECT_EQ(Stored(), "1 1 39 P 7 5; 2 1 40 P 7 5; 3 1 35 P 7 5");
}

TEST_F(MarkFaults, AStudentsMarkAboveWhatIsAllowedByNowIsToldToo)
{
    StartStudent(QStringLiteral("Asha(A1)"));
    Enter("88");
    Enter("40");
    OtherInDivision("UPDATE ClassSubjectTeacher SET MaximumAllowed = 30 WHERE SubjectCode = 1");
    prompts.ExpectInformation(QStringLiteral("Entered Mark Should Not Exceed Maximum Allowed Mark : 30"));
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(mark->Row(), 2);
    EXPECT_EQ(Stored(), "");
}

TEST_F(MarkFaults, AnEditAboveWhatIsAllowedByNowLeavesTheStoredMarks)
{
    for (int student = 1; student <= 3; ++student)
        school->EnterMark(student, 1, 20);
    ShowStoredSubject(QStringLiteral("English"));
    Press(Button("cmdEdit"));
    Click(1, 2);
    Enter("35");
    OtherInDivision("UPDATE ClassSubjectTeacher SET MaximumAllowed = 30 WHERE SubjectCode = 1");
    prompts.ExpectInformation(QStringLiteral("Entered Mark Should Not Exceed Maximum Allowed Mark : 30"));
    Press(Button("cmdSave"));
    prompts.Verify();
    EXPECT_EQ(Stored(), "1 1 20 P 0 0; 2 1 20 P 0 0; 3 1 20 P 0 0");
}

TEST_F(MarkFaults, ATeacherWhoTookOverTheSubjectMeanwhileGetsItsMarks)
{
    EnterEnglish();
    OtherInDivision("UPDATE ClassSubjectTeacher SET TeacherCode = 8 WHERE SubjectCode = 1");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    prompts.ExpectQuestion(SameAgain, false);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Stored(), "1 1 45 P 8 5; 2 1 40 P 8 5; 3 1 35 P 8 5");
}

TEST_F(MarkFaults, AStudentDeletedMeanwhileIsToldAndNothingIsStored)
{
    LeaveOthersUnguarded();
    EnterEnglish();
    for (const char* table : {"MarkMaster", "TempRankTotal", "StudentClassDivision"})
        Other((QByteArray("DELETE FROM ") + table + " WHERE StudentCode = 2").constData());
    Other("DELETE FROM StudentMaster WHERE StudentCode = 2");
    IsToldThatTheMasterIsGone();
    EXPECT_EQ(Stored(), "");
}

TEST_F(MarkFaults, ASubjectDeletedMeanwhileIsToldAndNothingIsStored)
{
    LeaveOthersUnguarded();
    EnterEnglish();
    for (const char* table : {"MarkMaster", "ClassSubjectTeacher", "SubjectMaster"})
        Other((QByteArray("DELETE FROM ") + table + " WHERE SubjectCode = 1").constData());
    IsToldThatTheMasterIsGone();
    EXPECT_EQ(Stored(), "");
}

TEST_F(MarkFaults, TheLastSubjectTakenOutOfTheClassMeanwhileIsTold)
{
    EnterEnglish();
    OtherInDivision("DELETE FROM ClassSubjectTeacher WHERE SubjectCode > 0");
    prompts.ExpectInformation(NoSubjectsText);
    PressKey(form, Qt::Key_Return);
    KeepsEverythingTyped();
}

TEST_F(MarkFaults, WhatTheDivisionLacksIsToldBeforeWhatARowLacks)
{
    StartSubject(QStringLiteral("English"));
    OtherInDivision("DELETE FROM ClassSubjectTeacher WHERE SubjectCode > 0");
    prompts.ExpectInformation(NoSubjectsText);
    Press(Button("cmdSave"));
}

TEST_F(MarkFaults, AllStudentsMovedMeanwhileIsTold)
{
    EnterEnglish();
    OtherInDivision("DELETE FROM StudentClassDivision WHERE StudentCode > 0");
    prompts.ExpectInformation(NoStudentsText);
    PressKey(form, Qt::Key_Return);
    KeepsEverythingTyped();
}

TEST_F(MarkFaults, AllStudentsMovedWhileOneOfThemIsEnteredIsToldAndNobodyIsChosen)
{
    StartStudent(QStringLiteral("Asha(A1)"));
    Enter("60");
    Enter("45");
    OtherInDivision("DELETE FROM StudentClassDivision WHERE StudentCode > 0");
    prompts.ExpectInformation(NoStudentsText);
    PressKey(form, Qt::Key_Return);
    EXPECT_TRUE(students->IsBlank());
    EXPECT_EQ(Rows(), "1|Maths|60|Present 2|English|45|Present |||");
    EXPECT_EQ(Stored(), "");
    prompts.Verify();
    prompts.ExpectInformation(QStringLiteral("Select Student Name"));
    PressKey(form, Qt::Key_S, Qt::AltModifier);
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
    OtherInDivision("DELETE FROM MarkMaster WHERE ExamCode = 1");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Stored(), "1 1 11 P 7 5; 2 1 12 P 7 5; 3 1 13 P 7 5");
}

TEST_F(MarkFaults, AnEditOfASubjectWhoseStudentsHaveAllGoneMeanwhileSaysSo)
{
    school->EnterMark(1, 1, 45);
    ShowStoredSubject(QStringLiteral("English"));
    OtherInDivision("DELETE FROM MarkMaster WHERE ExamCode = 1");
    OtherInDivision("DELETE FROM StudentClassDivision WHERE StudentCode > 0");
    prompts.ExpectInformation(NoStudentsText);
    Press(Button("cmdEdit"));
    prompts.Verify();
}

TEST_F(MarkFaults, AStoreLockedByAnotherClientIsToldAndTheSaveCanBeRepeated)
{
    EnterEnglish();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    {
        const auto other = AnotherClient();
        const store::Transaction holding(*other);
        prompts.ExpectCritical(HeldByAnotherClient);
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
    prompts.ExpectCritical(DiskIsFull);
    PressKey(form, Qt::Key_Return);
    prompts.Verify();
    EXPECT_EQ(Marks(), 0);
    EXPECT_EQ(grid->TextMatrix(Students, 2).toStdString(), "10");
    EXPECT_TRUE(IsEnabled("cmdSave"));
    Count("PRAGMA max_page_count = 1000000");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    prompts.ExpectQuestion(SameAgain, false);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Marks(), Students);
}

TEST_F(MarkFaults, ALockDuringADeleteIsToldAndTheMarksStay)
{
    school->EnterMark(1, 1, 45);
    ShowStoredSubject(QStringLiteral("English"));
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    const auto other = AnotherClient();
    const store::Transaction holding(*other);
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete This 'Classwise Mark Entry' ?"), true);
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdDelete"));
    EXPECT_EQ(Stored(), "1 1 45 P 0 0");
    EXPECT_TRUE(IsEnabled("cmdDelete"));
}

TEST_F(MarkFaults, MarksThatCannotBeReadLeaveNoSubjectChosenSoThatNothingIsSavedUnderIt)
{
    StartSubject(QStringLiteral("English"));
    Enter("45");
    Given("ALTER TABLE MarkMaster RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("MarkMaster"));
    subjects->setFocus();
    QTest::keyClick(subjects, Qt::Key_Down);
    prompts.Verify();
    Given("ALTER TABLE Lost RENAME TO MarkMaster");
    EXPECT_TRUE(subjects->IsBlank());
    EXPECT_FALSE(mark->isVisible());
    EXPECT_EQ(Rows(), "1|Asha(A1)|| 2|Binu(A2)|| 3|Cara(A3)|| |||");
    prompts.ExpectInformation(QStringLiteral("Select Subject Name"));
    Press(Button("cmdSave"));
    EXPECT_EQ(Stored(), "");
}

TEST_F(MarkFaults, MarksThatCannotBeReadLeaveNoStudentChosenSoThatNothingIsSavedForHim)
{
    StartStudent(QStringLiteral("Asha(A1)"));
    Enter("60");
    Given("ALTER TABLE MarkMaster RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("MarkMaster"));
    students->setFocus();
    QTest::keyClick(students, Qt::Key_Down);
    prompts.Verify();
    Given("ALTER TABLE Lost RENAME TO MarkMaster");
    EXPECT_TRUE(students->IsBlank());
    EXPECT_FALSE(mark->isVisible());
    EXPECT_EQ(Rows(), "1|Maths|| 2|English|| |||");
    prompts.ExpectInformation(QStringLiteral("Select Student Name"));
    Press(Button("cmdSave"));
    EXPECT_EQ(Stored(), "");
}

TEST_F(MarkFaults, AFileThatWasClosedAndOpenedAnewMeanwhileTakesTheMarks)
{
    OpenForm();
    auto reopened = AnotherClient();
    Session().gcnnMain = std::move(reopened);
    EnterEnglish();
    SavesAsTyped();
}

TEST_F(MarkFaults, AFileThatIsClosedIsToldWhileChoosing)
{
    StartSubject(QStringLiteral("English"));
    Enter("45");
    Session().gcnnMain.reset();
    prompts.ExpectCritical(QStringLiteral("The Database Is Closed"));
    subjects->setFocus();
    QTest::keyClick(subjects, Qt::Key_Down);
    prompts.Verify();
    EXPECT_TRUE(subjects->IsBlank());
}

TEST_F(MarkFaults, WithoutItsRowsAListOffersNothingToChoose)
{
    OpenForm();
    ChooseClassDivision();
    Given("ALTER TABLE ClassSubjectTeacher RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("ClassSubjectTeacher"));
    Press(byStudent);
    prompts.Verify();
    EXPECT_EQ(students->count(), 0) << "an edit without rows would empty a student's marks";
    EXPECT_EQ(grid->Rows(), 2);
    Given("ALTER TABLE Lost RENAME TO ClassSubjectTeacher");
    Given("ALTER TABLE StudentClassDivision RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("StudentClassDivision"));
    Press(bySubject);
    EXPECT_EQ(subjects->count(), 0);
    EXPECT_EQ(grid->Rows(), 2);
}

TEST_F(MarkFaults, AnEditWhoseMarksCannotBeReadDoesNotBegin)
{
    school->EnterMark(1, 1, 45);
    GivenRelieved(3);
    school->EnterMark(3, 1, 35);
    ShowStoredSubject(QStringLiteral("English"));
    const std::string enabled = EnabledControls();
    Given("ALTER TABLE MarkMaster RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("MarkMaster"));
    Press(Button("cmdEdit"));
    prompts.Verify();
    Given("ALTER TABLE Lost RENAME TO MarkMaster");
    EXPECT_EQ(EnabledControls(), enabled);
    EXPECT_EQ(subjects->currentText().toStdString(), "English");
    EXPECT_EQ(Rows(), "1|Asha(A1)|45|Present 2|Binu(A2)||Present 3|Cara(A3)|35|Present |||");
    Press(Button("cmdEdit"));
    EXPECT_EQ(Rows(), "1|Asha(A1)|45|Present 2|Binu(A2)||Present |||");
    EXPECT_EQ(EnabledControls(), "fraMain cmdSave cmdCancel cmdExit");
}

TEST_F(MarkFaults, AnEditOfASubjectNoLongerTakenKeepsTheMarksThatWereShown)
{
    school->EnterMark(1, 1, 45);
    school->EnterAbsence(2, 1);
    school->EnterMark(3, 1, 35);
    GivenRelieved(3);
    ShowStoredSubject(QStringLiteral("English"));
    OtherInDivision("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 1");
    Press(Button("cmdEdit"));
    EXPECT_EQ(Rows(), "1|Asha(A1)|45|Present 2|Binu(A2)|0|Absent |||");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Stored(), "1 1 45 P 7 5; 2 1 0 A 7 5");
}

TEST_F(MarkFaults, MarksOfASubjectNoLongerTakenAreMendedWhoeverHasThem)
{
    GivenRelieved(2);
    school->EnterMark(1, 2, 45);
    school->EnterMark(3, 2, 35);
    ShowStoredSubject(QStringLiteral("Maths"));
    Press(Button("cmdEdit"));
    OtherInDivision("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 2");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Stored(), "1 2 45 P 8 5; 3 2 35 P 8 5");
}

TEST_F(MarkFaults, AStudentsMarkOfASubjectNoLongerTakenIsMended)
{
    school->EnterMark(1, 1, 45);
    school->EnterMark(1, 2, 99);
    ShowStoredStudent(QStringLiteral("Asha(A1)"));
    Press(Button("cmdEdit"));
    OtherInDivision("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 1");
    prompts.ExpectInformation(QStringLiteral("Record Updated"));
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Stored(), "1 1 45 P 7 5; 1 2 99 P 8 5");
}

TEST_F(MarkFaults, AStudentGetsNoFirstMarkOfASubjectNoLongerTakenInAnEditEither)
{
    school->EnterMark(1, 2, 99);
    ShowStoredStudent(QStringLiteral("Asha(A1)"));
    Press(Button("cmdEdit"));
    Click(2, 2);
    Enter("40");
    OtherInDivision("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 1");
    IsToldThatTheMasterIsGone();
    EXPECT_EQ(Stored(), "1 2 99 P 0 0");
}

TEST_F(MarkFaults, AnEditOfASubjectNoLongerTakenBringsBackNoMarksThatWereDeletedToo)
{
    school->EnterMark(1, 1, 45);
    ShowStoredSubject(QStringLiteral("English"));
    Press(Button("cmdEdit"));
    Click(2, 2);
    Enter("40");
    Enter("35");
    OtherInDivision("DELETE FROM MarkMaster WHERE SubjectCode = 1 AND ExamCode = 1");
    OtherInDivision("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 1");
    IsToldThatTheMasterIsGone();
    EXPECT_EQ(Stored(), "");
}

TEST_F(MarkFaults, AnEditOfASubjectNoLongerTakenNeverBeginsWithTheMarksOfTheSubjectShownBefore)
{
    school->EnterMark(1, 1, 45);
    school->EnterMark(1, 2, 99);
    ShowStoredSubject(QStringLiteral("English"));
    OtherInDivision("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 2");
    Choose(subjects, QStringLiteral("Maths"));
    EXPECT_EQ(RowText(1), "1|Asha(A1)|45|Present");
    Press(Button("cmdEdit"));
    EXPECT_EQ(RowText(1), "1|Asha(A1)|99|Present");
}

TEST_F(MarkFaults, ALostTableIsToldWhileChoosingAndTheScreenGoesOn)
{
    OpenForm();
    Choose(exam, QStringLiteral("Term One"));
    Choose(classes, QStringLiteral("X"));
    Given("ALTER TABLE ClassSubjectTeacher RENAME TO Lost");
    prompts.ExpectCritical(NoSuchTable("ClassSubjectTeacher"));
    Choose(divisions, QStringLiteral("A"));
    Given("ALTER TABLE Lost RENAME TO ClassSubjectTeacher");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(grid->Rows(), 5);
}

} // namespace
} // namespace tally::test
