#include "exams/MarkScreen.h"

#include <QAbstractItemView>

namespace tally::test {
namespace {

/// Where keys and clicks lead, from New to Save.
class MarkKeys : public MarkScreenOfThree
{};

TEST_F(MarkKeys, ASubjectIsEnteredFromNewToSaveWithTheKeyboardAlone)
{
    OpenForm();
    EXPECT_EQ(Focus(), "cmdNew");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "dbcExam");
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "cboClass");
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "cboDivision");
    PressKey(form, Qt::Key_Down);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "Optsubject");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "dbcSubject");
    PressKey(form, Qt::Key_E);
    EXPECT_EQ(subjects->currentText().toStdString(), "English");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "txtmarkobtained");
    Enter("45");
    EXPECT_EQ(mark->Row(), 2);
    Enter("0");
    EXPECT_EQ(Focus(), "cboPresentAbsent");
    Enter("a");
    EXPECT_EQ(mark->Row(), 3);
    Enter("12.5");
    EXPECT_FALSE(mark->isVisible());
    EXPECT_EQ(Focus(), "cmdSave");
    EXPECT_EQ(Rows(), "1|Asha(A1)|45|Present 2|Binu(A2)|0|Absent 3|Cara(A3)|12.5|Present |||");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    prompts.ExpectQuestion(SameAgain, false);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Stored(), "1 1 45 P 7 5; 2 1 0 A 7 5; 3 1 12.5 P 7 5");
    EXPECT_EQ(Focus(), "cmdNew");
}

TEST_F(MarkKeys, AStudentIsEnteredFromNewToSaveWithTheKeyboardAlone)
{
    OpenForm();
    PressKey(form, Qt::Key_N, Qt::AltModifier);
    for (int list = 0; list < 3; ++list) {
        PressKey(form, Qt::Key_Down);
        PressKey(form, Qt::Key_Return);
    }
    EXPECT_EQ(Focus(), "Optsubject");
    PressKey(form, Qt::Key_Right);
    EXPECT_EQ(Focus(), "Optstudent");
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "dbcStudent");
    PressKey(form, Qt::Key_B);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "txtmarkobtained");
    EXPECT_EQ(Rows(), "1|Maths||Present 2|English||Present |||");
    Enter("88");
    EXPECT_EQ(Average(), "44");
    Enter("0");
    Enter("");
    EXPECT_EQ(Focus(), "cmdSave");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    prompts.ExpectQuestion(SameAgain, true);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Stored(), "2 1 0 P 7 5; 2 2 88 P 8 5");
    EXPECT_EQ(Focus(), "dbcStudent");
    EXPECT_EQ(Rows(), "1|Maths|| 2|English|| |||");
}

TEST_F(MarkKeys, AClassIsEnteredWithOneKeyBesidesTheDigitsOfEachMarkAndNoStatementRuns)
{
    for (int student = 4; student <= 40; ++student)
        school->AddStudent(1, QStringLiteral("Student %1").arg(student));
    StartSubject(QStringLiteral("English"));
    const auto before = Session().gcnnMain->StatementsRun();
    int keys = 0;
    for (int row = 1; row <= 40; ++row) {
        ASSERT_EQ(mark->Row(), row);
        const QString digits = QString::number(row + 9);
        QTest::keyClicks(QApplication::focusWidget(), digits);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        keys += static_cast<int>(digits.size()) + 1;
    }
    EXPECT_EQ(Session().gcnnMain->StatementsRun(), before);
    EXPECT_EQ(keys, 40 * 3);
    EXPECT_EQ(Focus(), "cmdSave");
    EXPECT_EQ(Average(), "29.5");
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    prompts.ExpectQuestion(SameAgain, false);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Count("SELECT count(*) FROM MarkMaster WHERE LeaveOrPresent = 'P' AND UserCode = 5"), 40);
    EXPECT_EQ(Count("SELECT sum(Mark) FROM MarkMaster WHERE UserCode = 5"), 40 * 29 + 20);
}

TEST_F(MarkKeys, NoStatementRunsForAZeroAnAbsenceOrARefusal)
{
    StartSubject(QStringLiteral("English"));
    const auto before = Session().gcnnMain->StatementsRun();
    Enter("0");
    Enter("a");
    Enter("0");
    Enter("");
    prompts.ExpectInformation(AboveFiftyText);
    Enter("99");
    EXPECT_EQ(Focus(), "cboPresentAbsent");
    Enter("");
    EXPECT_EQ(Focus(), "cmdSave");
    EXPECT_EQ(Rows(), "1|Asha(A1)|0|Absent 2|Binu(A2)|0|Present 3|Cara(A3)|0|Present |||");
    Click(1, 3);
    QTest::keyClick(presence, Qt::Key_Up);
    Click(2, 2);
    EXPECT_EQ(RowText(1), "1|Asha(A1)|0|Present");
    EXPECT_EQ(Session().gcnnMain->StatementsRun(), before);
}

TEST_F(MarkKeys, NoStatementRunsWhileAStudentsMarksAreTyped)
{
    StartStudent(QStringLiteral("Asha(A1)"));
    const auto before = Session().gcnnMain->StatementsRun();
    Enter("88.5");
    Enter("0");
    Enter("a");
    EXPECT_EQ(Focus(), "cmdSave");
    EXPECT_EQ(Rows(), "1|Maths|88.5|Present 2|English|0|Absent |||");
    EXPECT_EQ(Session().gcnnMain->StatementsRun(), before);
}

TEST_F(MarkKeys, ChoosingTheSameAgainKeepsWhatWasTyped)
{
    StartSubject(QStringLiteral("English"));
    Enter("45");
    for (QComboBox* list : {static_cast<QComboBox*>(exam), classes, divisions}) {
        list->showPopup();
        QTest::keyClick(list->view(), Qt::Key_Return);
        Settle();
        EXPECT_EQ(RowText(1), "1|Asha(A1)|45|Present") << list->objectName().toStdString();
    }
}

TEST_F(MarkKeys, TabLeadsFromTheSubjectToTheFirstMarkToo)
{
    OpenNew();
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    PressKey(form, Qt::Key_Tab);
    EXPECT_EQ(Focus(), "txtmarkobtained");
    EXPECT_EQ(mark->Row(), 1);
}

TEST_F(MarkKeys, TheAverageIsCountedWhenEnterEndsAMarkAboveZero)
{
    StartSubject(QStringLiteral("English"));
    QTest::keyClicks(mark, QStringLiteral("45"));
    EXPECT_EQ(Average(), "") << "the mark is still being typed";
    QTest::keyClick(mark, Qt::Key_Return);
    EXPECT_EQ(Average(), "15");
    QTest::keyClick(mark, Qt::Key_0);
    QTest::keyClick(mark, Qt::Key_Return);
    ASSERT_EQ(Focus(), "cboPresentAbsent");
    Enter("a");
    EXPECT_EQ(Average(), "15") << "a declared zero waits for the next mark";
    Enter("30");
    EXPECT_EQ(Average(), "37.5") << "the absent one is left out";
}

TEST_F(MarkKeys, APresenceChosenInItsBoxLeavesTheAverage)
{
    StartSubject(QStringLiteral("English"));
    Enter("45");
    Enter("0");
    Enter("p");
    Click(2, 3);
    QTest::keyClick(presence, Qt::Key_Down);
    ASSERT_EQ(RowText(2), "2|Binu(A2)|0|Absent");
    EXPECT_EQ(Average(), "15");
}

TEST_F(MarkKeys, AStudentsAverageIsCountedOnEnterToo)
{
    StartStudent(QStringLiteral("Asha(A1)"));
    QTest::keyClicks(mark, QStringLiteral("88"));
    EXPECT_EQ(Average(), "");
    QTest::keyClick(mark, Qt::Key_Return);
    EXPECT_EQ(Average(), "44");
}

TEST_F(MarkKeys, AClickOpensTheBoxOfItsColumnAndNoneOnTheBlankRow)
{
    StartSubject(QStringLiteral("English"));
    Click(2, 2);
    EXPECT_TRUE(mark->isVisible());
    EXPECT_EQ(mark->Row(), 2);
    EXPECT_EQ(mark->geometry(), grid->CellRect(2, 2));
    Click(3, 3);
    EXPECT_FALSE(mark->isVisible());
    EXPECT_EQ(presence->geometry(), grid->CellRect(3, 3));
    Click(2, 1);
    EXPECT_FALSE(presence->isVisible());
    Click(1, 2);
    EXPECT_TRUE(mark->isVisible());
    Click(4, 2);
    EXPECT_FALSE(mark->isVisible()) << "the blank row takes no mark";
}

TEST_F(MarkKeys, EnterOnACellOpensItsBox)
{
    StartSubject(QStringLiteral("English"));
    Click(2, 1);
    ASSERT_EQ(Focus(), "msgDetails");
    PressKey(form, Qt::Key_Right);
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(Focus(), "txtmarkobtained");
    EXPECT_EQ(mark->Row(), 2);
}

TEST_F(MarkKeys, EnterStaysInAListInWhichNothingIsChosen)
{
    OpenNew();
    const auto expectToStay = [this](QWidget* list) {
        list->setFocus();
        PressKey(form, Qt::Key_Return);
        EXPECT_EQ(Focus(), list->objectName().toStdString());
    };
    for (QComboBox* list : {static_cast<QComboBox*>(exam), classes, divisions})
        expectToStay(list);
    ChooseClassDivision();
    expectToStay(subjects);
    Press(byStudent);
    expectToStay(students);
}

TEST_F(MarkKeys, AKeyThatTheScreenHasNoUseForGoesOn)
{
    OpenForm();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F9, Qt::NoModifier);
    QApplication::sendEvent(form, &key);
    EXPECT_FALSE(key.isAccepted());
}

TEST_F(MarkKeys, AClickBeforeASubjectIsChosenAsksForIt)
{
    OpenNew();
    ChooseClassDivision();
    prompts.ExpectInformation(QStringLiteral("Select Subject Name"));
    Click(1, 2);
    EXPECT_EQ(Focus(), "dbcSubject");
    Press(byStudent);
    prompts.ExpectInformation(QStringLiteral("Select Student Name"));
    Click(1, 2);
    EXPECT_EQ(Focus(), "dbcStudent");
}

TEST_F(MarkKeys, TheBoxFollowsItsCellWhenTheGridScrolls)
{
    for (int student = 4; student <= 60; ++student)
        school->AddStudent(1, QStringLiteral("Student %1").arg(student));
    StartSubject(QStringLiteral("English"));
    for (int row = 1; row < 60; ++row)
        Enter("10");
    EXPECT_EQ(mark->Row(), 60);
    EXPECT_EQ(mark->geometry(), grid->CellRect(60, 2));
    EXPECT_TRUE(grid->viewport()->rect().contains(mark->geometry()));
}

TEST_F(MarkKeys, TabGoesInReadingOrder)
{
    OpenForm();
    exam->setFocus();
    for (const char* next : {"cboClass", "cboDivision", "Optsubject", "dbcSubject", "cmdNew", "cmdCancel",
                             "cmdExit", "dbcExam"}) {
        PressKey(form, Qt::Key_Tab);
        EXPECT_EQ(Focus(), next);
    }
}

TEST_F(MarkKeys, LettersLeadToTheFieldsAndButtons)
{
    OpenForm();
    for (const auto& [key, name] :
         {std::pair{Qt::Key_M, "dbcExam"}, {Qt::Key_L, "cboClass"}, {Qt::Key_V, "cboDivision"}}) {
        PressKey(form, key, Qt::AltModifier);
        EXPECT_EQ(Focus(), name);
    }
    PressKey(form, Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(IsEnabled("cmdSave"));
    prompts.ExpectInformation(QStringLiteral("Select Exam Name"));
    PressKey(form, Qt::Key_S, Qt::AltModifier);
    PressKey(form, Qt::Key_C, Qt::AltModifier);
    EXPECT_FALSE(IsEnabled("cmdSave"));
}

TEST_F(MarkKeys, EachLetterLeadsToOneControlAndEnterAloneToModeAndSubject)
{
    OpenForm();
    const QStringList without = ExpectOneControlALetter(form);
    EXPECT_EQ(without.join(QLatin1Char('|')).toStdString(),
              "Subject Name :|Maximum Allowed Mark :|Subjectwise|Studentwise");
}

/// Sees whether a box is ever shown, however shortly.
class ShowWatch : public QObject
{
public:
    explicit ShowWatch(QWidget* box) { box->installEventFilter(this); }
    bool Shown() const { return shown_; }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        shown_ = shown_ || event->type() == QEvent::Show;
        return false;
    }

private:
    bool shown_ = false;
};

TEST_F(MarkKeys, TheSecondBoxOfThePresenceNeverOpensInAWholeEntry)
{
    OpenForm();
    const ShowWatch second(Find<FloatingEditor>(form, "txtpresentorabsent"));
    Press(Button("cmdNew"));
    ChooseClassDivision();
    Choose(subjects, QStringLiteral("English"));
    PressKey(form, Qt::Key_Return);
    Enter("45");
    Enter("0");
    Enter("a");
    Enter("0");
    Enter("");
    ASSERT_EQ(Focus(), "cmdSave");
    Click(1, 3);
    Click(1, 2);
    prompts.ExpectInformation(QStringLiteral("Record Saved"));
    prompts.ExpectQuestion(SameAgain, false);
    Press(Button("cmdSave"));
    EXPECT_FALSE(second.Shown());
}

TEST_F(MarkKeys, TheSecondBoxOfThePresenceWritesCapitals)
{
    StartSubject(QStringLiteral("English"));
    auto* second = Find<FloatingEditor>(form, "txtpresentorabsent");
    second->OpenAt(1, 3);
    QTest::keyClicks(second, QStringLiteral("a"));
    EXPECT_EQ(second->text().toStdString(), "A");
    Click(1, 2);
    EXPECT_FALSE(second->isVisible());
}

} // namespace
} // namespace tally::test
