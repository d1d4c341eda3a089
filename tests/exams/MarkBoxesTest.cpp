#include "exams/MarkScreen.h"

namespace tally::test {
namespace {

constexpr int MarkCol = 2;
constexpr int PresenceCol = 3;

/// English is entered and a box stands over the last student, in either column.
class OpenBoxes : public MarkScreenOfThree, public testing::WithParamInterface<int>
{
protected:
    void SetUp() override
    {
        MarkScreenOfThree::SetUp();
        Given("INSERT INTO ExamMaster VALUES (2, 'Term Two', 2, 1)");
        Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 1, 2, 0)");
        Given("INSERT INTO ClassDivisionDetails VALUES (1, 'B', 2)");
        StartSubject(QStringLiteral("English"));
        Click(3, GetParam());
        ASSERT_TRUE(mark->isVisible() || presence->isVisible());
    }

    /// Neither Tab nor Shift+Tab finds a box to type in.
    void NoBoxIsLeft()
    {
        EXPECT_FALSE(mark->isVisible());
        EXPECT_FALSE(presence->isVisible());
        EXPECT_EQ(grid->CurrentRow(), 0) << "Enter would open the box of a row that was chosen before";
        for (const auto& back : {Qt::ShiftModifier, Qt::NoModifier}) {
            for (int step = 0; step < 12; ++step) {
                PressKey(form, back ? Qt::Key_Backtab : Qt::Key_Tab, back);
                ASSERT_NE(Focus(), "txtmarkobtained");
                ASSERT_NE(Focus(), "cboPresentAbsent");
            }
        }
    }
};

TEST_P(OpenBoxes, CloseWhenTheExamChanges)
{
    Choose(exam, QStringLiteral("Term Two"));
    NoBoxIsLeft();
    EXPECT_EQ(RowText(3), "3|Cara(A3)||Present");
}

TEST_P(OpenBoxes, CloseWhenTheClassChanges)
{
    Choose(classes, QStringLiteral("IX"));
    NoBoxIsLeft();
    EXPECT_EQ(Rows(), "|||");
}

TEST_P(OpenBoxes, CloseWhenTheDivisionChanges)
{
    prompts.ExpectInformation(NoSubjectsText);
    prompts.ExpectInformation(NoStudentsText);
    Choose(divisions, QStringLiteral("B"));
    NoBoxIsLeft();
    EXPECT_EQ(Rows(), "|||");
}

TEST_P(OpenBoxes, CloseWhenTheModeChanges)
{
    Press(byStudent);
    NoBoxIsLeft();
    EXPECT_EQ(Rows(), "1|Maths|| 2|English|| |||");
}

TEST_P(OpenBoxes, CloseWhenTheSubjectChangesAndTheEntryStartsAnew)
{
    Choose(subjects, QStringLiteral("Maths"));
    EXPECT_FALSE(mark->isVisible());
    EXPECT_FALSE(presence->isVisible());
    PressKey(form, Qt::Key_Return);
    EXPECT_EQ(mark->Row(), 1);
    Enter("60");
    EXPECT_EQ(Rows(), "1|Asha(A1)|60|Present 2|Binu(A2)||Present 3|Cara(A3)||Present |||");
}

TEST_P(OpenBoxes, CloseWhenTheSubjectIsPutBackOnNo)
{
    school->EnterMark(1, 2, 99);
    Choose(subjects, QStringLiteral("Maths"));
    prompts.ExpectQuestion(AlreadyEntered, false);
    PressKey(form, Qt::Key_Return);
    NoBoxIsLeft();
    EXPECT_EQ(Rows(), "1|Asha(A1)|| 2|Binu(A2)|| 3|Cara(A3)|| |||");
}

TEST_P(OpenBoxes, CloseWhenTheSubjectIsNoLongerTaken)
{
    Given("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 2 AND ClassCode = 1 "
          "AND DivisionCode = 1 AND AcademicYearCode = 1");
    Choose(subjects, QStringLiteral("Maths"));
    EXPECT_FALSE(mark->isVisible());
    EXPECT_FALSE(presence->isVisible());
}

TEST_P(OpenBoxes, WriteNothingOnTheBlankRow)
{
    const std::string before = Rows();
    if (GetParam() == MarkCol) {
        mark->OpenAt(4, MarkCol);
        Enter("7");
    } else {
        presence->OpenAt(4, PresenceCol);
        QTest::keyClick(presence, Qt::Key_Down);
        Enter("a");
    }
    EXPECT_EQ(Rows(), before);
}

INSTANTIATE_TEST_SUITE_P(Mark, OpenBoxes, testing::Values(MarkCol));
INSTANTIATE_TEST_SUITE_P(Presence, OpenBoxes, testing::Values(PresenceCol));

} // namespace
} // namespace tally::test
