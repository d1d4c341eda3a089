#include "exams/GradeScreen.h"

#include <chrono>

namespace tally::test {
namespace {

const QString DeleteQuestion = QStringLiteral("Do You Want To Delete This 'Classwise Rank-Grade Setup' ?");

/// What is stored, what is refused, and what another client, a full disk or a lost file does meanwhile.
class GradeSave : public GradeScreen
{
protected:
    void EnterUsual()
    {
        StartNew();
        TypeRows({{"80", "50", "A"}, {"60", "40", "B"}, {"0", "0", "C"}});
    }
    /// Grade B of the stored table begins at 55.
    void EditUsual()
    {
        GivenGrades();
        StartEdit();
        Click(2, 1);
        Enter("55");
    }
    /// Refused with this text, and everything typed is still there.
    void ExpectKept(Prompts::Kind kind, const QString& text, const std::string& rows = UsualRows)
    {
        prompts.Expect(kind, text);
        PressKey(form, Qt::Key_S, Qt::AltModifier);
        prompts.Verify();
        EXPECT_EQ(Rows(), rows);
        for (const FloatingEditor* box : {totalAverage, subjectAverage, grade})
            EXPECT_FALSE(box->isVisible());
        EXPECT_TRUE(IsEnabled("cmdSave"));
        EXPECT_EQ(division->currentText().toStdString(), "A");
        EXPECT_EQ(Session().gcnnMain->TransactionDepth(), 0);
    }
    void ExpectFault(const QString& message, const std::string& box)
    {
        prompts.ExpectInformation(message);
        Press(Button("cmdSave"));
        prompts.Verify();
        EXPECT_EQ(OpenBox(), box);
    }
    void ExpectMasterIsGone()
    {
        prompts.ExpectCritical(
            QStringLiteral("Selected Master Data Is Deleted.\nYou Cannot Save This Data."));
        Press(Button("cmdSave"));
        prompts.Verify();
        EXPECT_EQ(EnabledControls(), Idle);
        EXPECT_EQ(Rows(), "|||");
        EXPECT_EQ(Stored(), "");
    }
    void ExpectLockedByMarks()
    {
        EXPECT_EQ(EnabledControls(), Locked);
        EXPECT_TRUE(division->IsBlank());
        EXPECT_TRUE(HasFocus("cboDivision"));
    }
    /// What is stored is shown by the time that the box tells of the marks.
    void ExpectLockAtASave(const std::string& rows)
    {
        QStringList told;
        std::string shown;
        Prompts::AnswerWith([&](Prompts::Kind, const QString& text) {
            told.append(text);
            shown = Rows();
            return true;
        });
        Press(Button("cmdSave"));
        EXPECT_EQ(told, QStringList(MarksStandAgainstIt));
        EXPECT_EQ(shown, rows);
        EXPECT_EQ(Rows(), rows);
        ExpectLockedByMarks();
    }
    static QString Meanwhile(const char* how, const char* what = "Save")
    {
        return QStringLiteral("This 'Classwise Rank-Grade Setup' Was %1 By Another User Meanwhile.\n"
                              "You Cannot %2 This Data.")
            .arg(QLatin1String(how), QLatin1String(what));
    }
};

TEST_F(GradeSave, ANewTableIsStoredInItsOrderWithoutAUser)
{
    EnterUsual();
    Save();
    EXPECT_EQ(Stored(), "1 80 50 A -; 2 60 40 B -; 3 0 0 C -");
    EXPECT_EQ(Stored(2), "");
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(FocusName(), "cmdNew");
    EXPECT_EQ(Rows(), "|||");
}

TEST_F(GradeSave, AnEditReplacesTheWholeTableAndNoOther)
{
    GivenGrades();
    school->AddBand(2, 0, 0, "P", 1);
    Given("INSERT INTO RankMaster VALUES (1, 2, 1, 1, 0, 0, 'Q', 1, 0)");
    StartEdit();
    Click(2, 1);
    Enter("55");
    Save(QStringLiteral("Record Updated"));
    EXPECT_EQ(Stored(), "1 80 50 A -; 2 55 40 B -; 3 0 0 C -");
    EXPECT_EQ(Stored(2), "1 0 0 P 0");
    EXPECT_EQ(Count("SELECT count(*) FROM RankMaster WHERE ExamCode = 2 AND AcademicYearCode = 1 AND "
                    "ClassCode = 1 AND DivisionCode = 1"),
              1);
}

TEST_F(GradeSave, ATypedZeroInTheLastRowIsStored)
{
    StartNew();
    TypeRows({{"0", "0", "C"}});
    Save();
    EXPECT_EQ(Stored(), "1 0 0 C -");
}

TEST_F(GradeSave, ATableWithoutARowOfTwoFiguresIsStoredUnasked)
{
    StartNew();
    TypeRows({{"50", "0", "P"}});
    Save();
    EXPECT_EQ(Stored(), "1 50 0 P -");
}

TEST_F(GradeSave, AHighFigureThatNobodyReachesIsStored)
{
    StartNew();
    TypeRows({{"999999", "50", "A"}, {"0", "", "B"}});
    Save();
    EXPECT_EQ(Stored(), "1 999999 50 A -; 2 0 0 B -");
}

TEST_F(GradeSave, TheChoiceIsAskedForInItsOrder)
{
    OpenForm();
    Press(Button("cmdNew"));
    ExpectRefusal(QStringLiteral("Select Exam Name"), "dbcExam");
    Choose("dbcExam", QStringLiteral("Term One"));
    ExpectRefusal(QStringLiteral("Select Class"), "cboClass");
    Choose("cboClass", QStringLiteral("X"));
    ExpectRefusal(QStringLiteral("Select Division"), "cboDivision");
    EXPECT_EQ(Stored(), "");
}

TEST_F(GradeSave, ATableWithoutRowsIsRefused)
{
    StartNew();
    ExpectFault(ReferNotes, "Txttotalaverage 1");
}

TEST_F(GradeSave, AnEditThatEmptiesTheTableIsRefused)
{
    GivenGrades();
    StartEdit();
    for (int row = 0; row < 3; ++row) {
        Retype("txtDeleteSlNo", "1");
        prompts.ExpectQuestion(QStringLiteral("Do You Want To Delete S.No. 1 ?"), true);
        Press(Button("cmdDeleteRow"));
    }
    ExpectFault(ReferNotes, "Txttotalaverage 1");
    EXPECT_EQ(Stored(), UsualStored);
}

TEST_F(GradeSave, ARowWithoutGradeIsRefusedAtItsGrade)
{
    StartNew();
    TypeRows({{"80", "50", "A"}, {"60", "40"}});
    ExpectFault(QStringLiteral("Grade Should Not Be Empty"), "Txtgrade 2");
    Enter(" ");
    ExpectFault(QStringLiteral("Grade Should Not Be Empty"), "Txtgrade 2");
}

TEST_F(GradeSave, ARepeatedGradeThatWasNotEndedWithEnterIsRefused)
{
    EnterUsual();
    Click(3, 3);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("B"));
    ExpectFault(QStringLiteral("Grade Already Exists"), "Txtgrade 3");
}

TEST_F(GradeSave, AFirstRowThatWasLoweredBelowTheSecondIsRefusedWhereTheTableRises)
{
    EnterUsual();
    Click(1, 1);
    Enter("50");
    ExpectFault(FromHighestToZero, "Txttotalaverage 2");
}

TEST_F(GradeSave, StoredTotalAveragesThatRepeatAreRefusedAtASave)
{
    school->AddBand(1, 60, 50, "A", 1);
    school->AddBand(1, 60, 0, "B", 2);
    StartEdit();
    ExpectFault(AlreadyThere, "Txttotalaverage 2");
}

TEST_F(GradeSave, ATableWithoutItsRowOfZeroesIsRefusedAndNoBoxOpens)
{
    StartNew();
    TypeRows({{"80", "50", "A"}});
    ExpectFault(ReferNotes, "none");
    EXPECT_EQ(Stored(), "");
}

TEST_F(GradeSave, ARowLeftHalfFilledIsRefusedInTheMiddleAndAtTheEnd)
{
    EnterUsual();
    Click(2, 1);
    PressKey(form, Qt::Key_Delete);
    ExpectFault(ReferNotes, "Txttotalaverage 2");
    Enter("60");
    Click(4, 1);
    PressKey(form, Qt::Key_Return);
    Enter("30");
    ExpectFault(ReferNotes, "Txttotalaverage 4");
    EXPECT_EQ(Stored(), "");
}

TEST_F(GradeSave, ADeleteIsAskedForAndToldWhenItIsDone)
{
    GivenGrades();
    school->AddBand(2, 0, 0, "P", 1);
    ShowStored();
    prompts.ExpectQuestion(DeleteQuestion, false);
    Press(Button("cmdDelete"));
    EXPECT_EQ(Stored(), UsualStored);
    EXPECT_EQ(EnabledControls(), Found);
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Stored(), "");
    EXPECT_EQ(Stored(2), "1 0 0 P 0");
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(FocusName(), "cmdNew");
}

TEST_F(GradeSave, ADeletedTableCanBeEnteredAnew)
{
    GivenGrades();
    ShowStored();
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    Press(Button("cmdNew"));
    ChooseDivision();
    PressKey(form, Qt::Key_Return);
    TypeRows({{"0", "0", "P"}});
    Save();
    EXPECT_EQ(Stored(), "1 0 0 P -");
}

TEST_F(GradeSave, MarksThatArriveWhileAnEditIsOpenKeepTheTableAsItIs)
{
    EditUsual();
    OtherEntersMark();
    ExpectLockAtASave(UsualRows);
    EXPECT_EQ(Stored(), UsualStored);
}

TEST_F(GradeSave, MarksThatArriveWhileATableIsEnteredAreToldAndNothingIsStored)
{
    EnterUsual();
    OtherEntersMark();
    ExpectLockAtASave("1|||");
    EXPECT_EQ(Stored(), "");
}

TEST_F(GradeSave, MarksThatArriveBeforeADeleteKeepTheTable)
{
    GivenGrades();
    ShowStored();
    OtherEntersMark();
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(MarksStandAgainstIt);
    Press(Button("cmdDelete"));
    ExpectLockedByMarks();
    EXPECT_EQ(Stored(), UsualStored);
}

TEST_F(GradeSave, AnEditThatWasSavedBeforeTheFirstMarkIsTheOneThatTheMarksMeet)
{
    EditUsual();
    Save(QStringLiteral("Record Updated"));
    OtherEntersMark();
    ChooseDivision();
    prompts.ExpectInformation(MarksStandAgainstIt);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Rows(), "1|80|50|A 2|55|40|B 3|0|0|C 4|||");
}

TEST_F(GradeSave, ATableThatAnotherUserEnteredMeanwhileIsNeverDoubled)
{
    EnterUsual();
    school->AddBand(1, 0, 0, "P", 1);
    ExpectKept(Prompts::Kind::Information, Meanwhile("Entered"));
    EXPECT_EQ(Stored(), "1 0 0 P 0");
}

TEST_F(GradeSave, ATableThatAnotherUserChangedMeanwhileStaysAsHeChangedIt)
{
    EditUsual();
    OtherInDivision("UPDATE RankMaster SET SubjectAverage = 45 WHERE Grade = 'B'");
    ExpectKept(Prompts::Kind::Information, Meanwhile("Changed"), "1|80|50|A 2|55|40|B 3|0|0|C 4|||");
    EXPECT_EQ(Stored(), "1 80 50 A 0; 2 60 45 B 0; 3 0 0 C 0");
}

TEST_F(GradeSave, ATableThatAnotherUserDeletedMeanwhileStaysDeleted)
{
    EditUsual();
    OtherInDivision("DELETE FROM RankMaster WHERE Status > 0");
    ExpectKept(Prompts::Kind::Information, Meanwhile("Deleted"), "1|80|50|A 2|55|40|B 3|0|0|C 4|||");
    EXPECT_EQ(Stored(), "");
}

TEST_F(GradeSave, ATableThatAnotherUserChangedIsNotDeletedUnseen)
{
    GivenGrades();
    ShowStored();
    OtherInDivision("UPDATE RankMaster SET Grade = 'D' WHERE Grade = 'C'");
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(Meanwhile("Changed", "Delete"));
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(Stored(), "1 80 50 A 0; 2 60 40 B 0; 3 0 0 D 0");
    EXPECT_EQ(Rows(), "1|80|50|A 2|60|40|B 3|0|0|D 4|||");
    EXPECT_EQ(EnabledControls(), Found);
    EXPECT_EQ(FocusName(), "cmdEdit");
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(QStringLiteral("Record Deleted"));
    Press(Button("cmdDelete"));
    EXPECT_EQ(Stored(), "");
}

TEST_F(GradeSave, ATableThatAnotherUserDeletedIsShownNoMoreAfterADelete)
{
    GivenGrades();
    ShowStored();
    OtherInDivision("DELETE FROM RankMaster WHERE Status > 0");
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectInformation(Meanwhile("Deleted", "Delete"));
    Press(Button("cmdDelete"));
    prompts.Verify();
    EXPECT_EQ(Rows(), "1|||");
    EXPECT_EQ(EnabledControls(), Idle);
    EXPECT_EQ(FocusName(), "cboDivision");
}

TEST_F(GradeSave, AnExamDeletedMeanwhileIsToldAndNothingIsStored)
{
    LeaveOthersUnguarded();
    EnterUsual();
    for (const char* table : {"RankMaster", "MarkMaster", "TempRankTotal", "ExamMaster"})
        AnotherClient()->Execute(
            QStringLiteral("DELETE FROM %1 WHERE ExamCode = 1").arg(QString::fromLatin1(table)));
    ExpectMasterIsGone();
    EXPECT_EQ(List("dbcExam")->findText(QStringLiteral("Term One")), -1);
}

TEST_F(GradeSave, AClassDivisionDeletedMeanwhileIsToldAndNothingIsStored)
{
    OpenForm();
    Press(Button("cmdNew"));
    ChooseDivision("B");
    PressKey(form, Qt::Key_Return);
    TypeRows({{"0", "0", "C"}});
    AnotherClient()->Execute(
        QStringLiteral("DELETE FROM ClassDivisionDetails WHERE ClassCode = 1 AND DivisionCode = 2"));
    ExpectMasterIsGone();
    EXPECT_EQ(Stored(2), "");
}

TEST_F(GradeSave, AStoreLockedByAnotherClientIsToldAndTheSaveCanBeRepeated)
{
    EnterUsual();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    {
        const auto other = AnotherClient();
        const store::Transaction holding(*other);
        ExpectKept(Prompts::Kind::Critical, HeldByAnotherClient);
    }
    Save();
    EXPECT_EQ(Stored(), "1 80 50 A -; 2 60 40 B -; 3 0 0 C -");
}

TEST_F(GradeSave, AFullDiskIsToldAndTheSaveCanBeRepeated)
{
    constexpr int ManyRows = 200;
    StartNew();
    for (int row = ManyRows - 1; row >= 0; --row) {
        const QByteArray average = QByteArray::number(row);
        const QByteArray sign =
            QByteArray(1, static_cast<char>('A' + row / 10)) + QByteArray::number(row % 10);
        TypeRows({{average.constData(), average.constData(), sign.constData()}});
    }
    const std::string typed = Rows();
    Count("PRAGMA max_page_count = 1");
    ExpectKept(Prompts::Kind::Critical, DiskIsFull, typed);
    EXPECT_EQ(Stored(), "");
    Count("PRAGMA max_page_count = 1000000");
    Save();
    EXPECT_EQ(Count("SELECT count(*) FROM RankMaster WHERE ExamCode = 1 AND ClassCode = 1 AND "
                    "DivisionCode = 1 AND AcademicYearCode = 1"),
              ManyRows);
}

TEST_F(GradeSave, ALockDuringADeleteIsToldAndTheTableStays)
{
    GivenGrades();
    ShowStored();
    Session().gcnnMain->SetPatience(std::chrono::milliseconds(50));
    const auto other = AnotherClient();
    const store::Transaction holding(*other);
    prompts.ExpectQuestion(DeleteQuestion, true);
    prompts.ExpectCritical(HeldByAnotherClient);
    Press(Button("cmdDelete"));
    EXPECT_EQ(Stored(), UsualStored);
    EXPECT_EQ(EnabledControls(), Found);
}

TEST_F(GradeSave, AFaultInReadingTheListsAnewSaysThatTheTableIsSaved)
{
    EnterUsual();
    Given("ALTER TABLE ClassDivisionMaster RENAME TO Away");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    prompts.ExpectSavedButNotReadAnew();
    Press(Button("cmdSave"));
    EXPECT_EQ(Stored(), "1 80 50 A -; 2 60 40 B -; 3 0 0 C -");
    EXPECT_EQ(EnabledControls(), Idle);
    Given("ALTER TABLE Away RENAME TO ClassDivisionMaster");
}

} // namespace
} // namespace tally::test
