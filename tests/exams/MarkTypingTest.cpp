#include "core/ui/controls/FieldHint.h"
#include "exams/MarkScreen.h"

namespace tally::test {
namespace {

const QString OfAbsent = QStringLiteral("Mark Entry Is Not Allowed When A Student Is Absent");

/// What the boxes take, and what they refuse.
class MarkTyping : public MarkScreenOfThree
{
protected:
    std::string Cell(int row) const { return grid->TextMatrix(row, 2).toStdString(); }
    std::string Box() const { return mark->text().toStdString(); }
};

TEST_F(MarkTyping, AMarkAboveTheAllowedOneIsRefusedAtTheKeyThatMakesItSo)
{
    StartSubject(QStringLiteral("English"));
    Enter("50");
    QTest::keyClick(mark, Qt::Key_7);
    prompts.ExpectInformation(AboveFiftyText);
    QTest::keyClick(mark, Qt::Key_5);
    EXPECT_EQ(Box(), "");
    EXPECT_EQ(Cell(2), "0");
    EXPECT_EQ(mark->Row(), 2);
    EXPECT_TRUE(mark->hasFocus());
}

TEST_F(MarkTyping, EscTakesBackWhatWasTyped)
{
    StartSubject(QStringLiteral("English"));
    QTest::keyClicks(mark, QStringLiteral("47"));
    EXPECT_EQ(Cell(1), "47");
    QTest::keyClick(mark, Qt::Key_Escape);
    EXPECT_EQ(Box(), "");
    EXPECT_EQ(Cell(1), "") << "a mark that was not entered yet is no zero";
    EXPECT_EQ(Average(), "");
    EXPECT_TRUE(mark->hasFocus());

    Enter("47");
    Click(1, 2);
    QTest::keyClicks(mark, QStringLiteral("8"));
    prompts.ExpectInformation(AboveFiftyText);
    QTest::keyClick(mark, Qt::Key_1);
    QTest::keyClick(mark, Qt::Key_Escape);
    EXPECT_EQ(Box(), "47");
    EXPECT_EQ(Cell(1), "47");
    EXPECT_EQ(Average(), "15.67");
}

TEST_F(MarkTyping, EscLeavesTheAverageOfTheMarksThatWereEntered)
{
    StartSubject(QStringLiteral("English"));
    Enter("47");
    QTest::keyClicks(mark, QStringLiteral("9"));
    for (const int col : {2, 3}) {
        Click(3, col);
        EXPECT_EQ(Average(), "15.67");
        PressKey(form, Qt::Key_Escape);
        EXPECT_EQ(Average(), "15.67") << "the 9 was not entered; column " << col;
    }
}

TEST_F(MarkTyping, EscTakesBackAPresence)
{
    StartSubject(QStringLiteral("English"));
    Enter("0");
    ASSERT_EQ(Focus(), "cboPresentAbsent");
    PressKey(form, Qt::Key_Down);
    EXPECT_EQ(grid->TextMatrix(1, 3).toStdString(), "Absent");
    PressKey(form, Qt::Key_Escape);
    EXPECT_EQ(grid->TextMatrix(1, 3).toStdString(), "Present");
    EXPECT_EQ(Focus(), "cboPresentAbsent");

    Enter("a");
    Click(1, 2);
    prompts.ExpectInformation(OfAbsent);
    QTest::keyClick(mark, Qt::Key_9);
    QTest::keyClick(mark, Qt::Key_Escape);
    EXPECT_EQ(RowText(1), "1|Asha(A1)|0|Absent");
}

TEST_F(MarkTyping, AStudentsMarksAreHeldToTheLimitOfEachSubject)
{
    StartStudent(QStringLiteral("Asha(A1)"));
    Enter("100");
    prompts.ExpectInformation(AboveFiftyText);
    QTest::keyClicks(mark, QStringLiteral("51"));
    EXPECT_EQ(Box(), "");
    EXPECT_EQ(Focus(), "txtmarkobtained");
}

TEST_F(MarkTyping, AThousandIsRefusedByTheAllowedMarkFirst)
{
    StartSubject(QStringLiteral("Maths"));
    prompts.ExpectInformation(QStringLiteral("Entered Mark Should Not Exceed Maximum Allowed Mark : 100"));
    QTest::keyClicks(mark, QStringLiteral("1000"));
    EXPECT_EQ(Box(), "");
}

TEST_F(MarkTyping, NoMarkExceeds999AndNinetyNineHundredthsWhereTheSubjectAllowsMore)
{
    Given("UPDATE ClassSubjectTeacher SET MaximumAllowed = 5000");
    StartSubject(QStringLiteral("Maths"));
    QTest::keyClicks(mark, QStringLiteral("999.99"));
    EXPECT_EQ(Cell(1), "999.99");
    QTest::keyClick(mark, Qt::Key_Return);
    prompts.ExpectInformation(QStringLiteral("Mark Obtained Should Not Exceed 999.99"));
    QTest::keyClicks(mark, QStringLiteral("1000"));
    EXPECT_EQ(Box(), "");
    EXPECT_EQ(Cell(2), "0");
}

TEST_F(MarkTyping, LettersAndSignsNeverGetIntoAMark)
{
    StartSubject(QStringLiteral("English"));
    QTest::keyClicks(mark, QStringLiteral("abc"));
    EXPECT_EQ(Box(), "");
    EXPECT_EQ(Cell(1), "");
    QTest::keyClicks(mark, QStringLiteral("-5"));
    EXPECT_EQ(Box(), "5");
    EXPECT_EQ(Cell(1), "5");
}

TEST_F(MarkTyping, AThirdDecimalIsCutOff)
{
    StartSubject(QStringLiteral("English"));
    QTest::keyClicks(mark, QStringLiteral("12.345"));
    EXPECT_EQ(Box(), "12.34");
    EXPECT_EQ(Cell(1), "12.34");
    EXPECT_EQ(FieldHintAt(mark), QStringLiteral("Not More Than 2 Decimals Can Be Entered Here"));
}

struct Pasted
{
    const char* text;
    const char* box;
    const char* cell;

    friend void PrintTo(const Pasted& row, std::ostream* out) { *out << '"' << row.text << '"'; }
};

class PastedMarks : public MarkTyping, public testing::WithParamInterface<Pasted>
{};

TEST_P(PastedMarks, ObeyTheSameFiltersAsKeys)
{
    StartSubject(QStringLiteral("English"));
    Paste(QString::fromLatin1(GetParam().text));
    EXPECT_EQ(Box(), GetParam().box);
    EXPECT_EQ(Cell(1), GetParam().cell);
}

INSTANTIATE_TEST_SUITE_P(MarkTyping, PastedMarks,
                         testing::Values(Pasted{"12.345", "12.34", "12.34"},
                                         Pasted{"1.23456", "1.23", "1.23"}, Pasted{"-5", "5", "5"},
                                         Pasted{"abc", "", ""}, Pasted{" 45 ", "45", "45"}));

TEST_F(MarkTyping, APastedMarkAboveTheLimitIsToldOnce)
{
    StartSubject(QStringLiteral("English"));
    prompts.ExpectInformation(AboveFiftyText);
    Paste(QStringLiteral("x1000"));
    EXPECT_EQ(Box(), "");
}

TEST_F(MarkTyping, APastedMarkWithItsLineEndIsRefusedOnce)
{
    StartSubject(QStringLiteral("English"));
    prompts.ExpectInformation(AboveFiftyText);
    Paste(QStringLiteral("100\r"));
    EXPECT_EQ(Box(), "");
    prompts.Verify();
    Paste(QStringLiteral("50\r"));
    EXPECT_EQ(Box(), "50");
    EXPECT_EQ(Cell(1), "50");
}

TEST_F(MarkTyping, EnterOnAnEmptyBoxIsAZeroThatHasToBeDeclared)
{
    StartSubject(QStringLiteral("English"));
    Enter("");
    EXPECT_EQ(Focus(), "cboPresentAbsent");
    EXPECT_EQ(presence->currentText().toStdString(), "Present");
    EXPECT_EQ(Cell(1), "0");
    Enter("");
    EXPECT_EQ(RowText(1), "1|Asha(A1)|0|Present");
    EXPECT_EQ(mark->Row(), 2);
}

TEST_F(MarkTyping, AMarkForAnAbsentStudentIsRefusedWhileTyping)
{
    StartSubject(QStringLiteral("English"));
    Enter("0");
    Enter("a");
    Click(1, 2);
    prompts.ExpectInformation(OfAbsent);
    QTest::keyClick(mark, Qt::Key_4);
    EXPECT_EQ(Box(), "");
    EXPECT_EQ(RowText(1), "1|Asha(A1)|0|Absent");
}

TEST_F(MarkTyping, AnAbsenceChosenForAStudentWithAMarkLeadsBackToTheMark)
{
    StartSubject(QStringLiteral("English"));
    Enter("45");
    Click(1, 3);
    EXPECT_EQ(Focus(), "cboPresentAbsent");
    prompts.ExpectInformation(OfAbsent);
    Enter("a");
    EXPECT_EQ(Focus(), "txtmarkobtained");
    EXPECT_EQ(mark->Row(), 1);
    EXPECT_EQ(RowText(1), "1|Asha(A1)|45|Absent");
    Enter("");
    EXPECT_EQ(RowText(1), "1|Asha(A1)|45|Present") << "who has a mark was there";
}

TEST_F(MarkTyping, AWordThatIsNoPresenceIsRefused)
{
    StartSubject(QStringLiteral("English"));
    Enter("0");
    prompts.ExpectInformation(QStringLiteral("Select Present/Absent "));
    Enter("late");
    EXPECT_EQ(Focus(), "cboPresentAbsent");
    EXPECT_EQ(presence->currentText().toStdString(), "late") << "the word stays to be mended";
    EXPECT_EQ(RowText(1), "1|Asha(A1)|0|Present");
}

TEST_F(MarkTyping, APresenceTakesLettersOnlyAndAnEmptyOneLeadsNowhere)
{
    StartSubject(QStringLiteral("English"));
    Enter("0");
    QTest::keyClicks(presence, QStringLiteral("5-"));
    EXPECT_EQ(presence->currentText().toStdString(), "Present");
    QTest::keyClick(presence, Qt::Key_Delete);
    EXPECT_EQ(presence->currentText().toStdString(), "");
    QTest::keyClick(presence, Qt::Key_Return);
    EXPECT_EQ(Focus(), "cboPresentAbsent");
    prompts.ExpectInformation(QStringLiteral("Select Present/Absent"));
    QTest::mouseClick(presence->lineEdit(), Qt::LeftButton);
    EXPECT_EQ(RowText(1), "1|Asha(A1)|0|Present");
}

TEST_F(MarkTyping, APresenceTakesAsManyLettersAsItsWordHas)
{
    StartSubject(QStringLiteral("English"));
    Enter("0");
    QTest::keyClicks(presence, QStringLiteral("presents"));
    EXPECT_EQ(presence->currentText().toLower().toStdString(), "present");
}

TEST_F(MarkTyping, APresenceTypedByItsFirstLetterIsInItsCellAtOnce)
{
    StartSubject(QStringLiteral("English"));
    Enter("0");
    QTest::keyClick(presence, Qt::Key_A);
    QTest::keyClick(presence, Qt::Key_Delete);
    ASSERT_EQ(presence->currentText().toStdString(), "a") << "without the letters that the list adds";
    Click(2, 2);
    EXPECT_EQ(RowText(1), "1|Asha(A1)|0|Absent");
}

TEST_F(MarkTyping, TheArrowChoosesThePresenceAndTheCellHasItAtOnce)
{
    StartSubject(QStringLiteral("English"));
    Enter("0");
    QTest::keyClick(presence, Qt::Key_Down);
    EXPECT_EQ(RowText(1), "1|Asha(A1)|0|Absent");
    EXPECT_EQ(grid->Mark(1, 3), CellMark::FailedOrAbsent);
    QTest::keyClick(presence, Qt::Key_Up);
    EXPECT_EQ(RowText(1), "1|Asha(A1)|0|Present");
    EXPECT_EQ(grid->Mark(1, 3), CellMark::None);
}

} // namespace
} // namespace tally::test
