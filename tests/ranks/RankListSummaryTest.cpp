#include "core/shell/mdiTallyboard.h"
#include "ranks/RankScreen.h"

#include <QApplication>
#include <QClipboard>
#include <QFrame>
#include <QMap>

namespace tally::test {
namespace {

/// The panel of the rank list that counts the grades.
class RankListSummary : public RankScreen
{
protected:
    QFrame* Panel() { return Find<QFrame>(form, "Frame5"); }
    FlexGrid* Summary() { return Find<FlexGrid>(form, "msgGrade"); }

    /// The summary's counts by the texts before them.
    QMap<QString, QString> SummaryLines()
    {
        const FlexGrid* summary = Summary();
        QMap<QString, QString> lines;
        for (int row = 1; row < summary->Rows(); ++row)
            lines[summary->TextMatrix(row, 0)] = summary->TextMatrix(row, 1) + summary->TextMatrix(row, 2);
        return lines;
    }

    /// A student each in as many divisions, ranked by as many grades.
    void GivenDivisionsAndGrades(int divisionCount, int gradeCount)
    {
        const auto letter = [](int number) { return QByteArray(1, static_cast<char>('A' + number - 1)); };
        for (int division = 1; division <= divisionCount; ++division) {
            school->AddDivision(division, letter(division).constData());
            school->AddSubject(division, 1, "Eng", 1);
            for (int grade = 1; grade <= gradeCount; ++grade)
                school->AddBand(division, 100 - 10 * grade, 0, letter(grade).constData(), grade);
            school->EnterMark(school->AddStudent(division, QStringLiteral("Student")), 1, 60);
        }
    }
};

TEST_F(RankListSummary, TheSummaryCountsGradesAbsenteesAndFullMarksAndClosesAgain)
{
    GivenFiveStudents();
    OpenAndProceed();
    EXPECT_FALSE(Panel()->isVisible());
    Press(Button("cmdTotalDetails"));
    EXPECT_TRUE(Panel()->isVisible());
    EXPECT_GT(Button("cmdClose")->geometry().top(), Summary()->geometry().bottom());
    EXPECT_TRUE(Button("cmdClose")->hasFocus());
    EXPECT_FALSE(Find<QFrame>(form, "fraMain")->isEnabled());
    EXPECT_FALSE(Find<QFrame>(form, "Frame4")->isEnabled());
    EXPECT_FALSE(Button("cmdTotalDetails")->isEnabled());

    const QMap<QString, QString> lines = SummaryLines();
    EXPECT_EQ(lines.value(QStringLiteral("TOTAL STRENGTH")), QStringLiteral("5"));
    EXPECT_EQ(lines.value(QStringLiteral("No. Of 'A' Grades")), QStringLiteral("2"));
    EXPECT_EQ(lines.value(QStringLiteral("No. Of 'C' Grades")), QStringLiteral("2"));
    EXPECT_EQ(lines.value(QStringLiteral("TOTAL")), QStringLiteral("4"));
    EXPECT_EQ(lines.value(QStringLiteral("ABSENTEE")), QStringLiteral("1"));
    EXPECT_EQ(lines.value(QStringLiteral("Full Mark For X  A")), QStringLiteral("200"));
    EXPECT_EQ(Summary()->ColWidth(3), 0);

    Press(Button("cmdClose"));
    EXPECT_FALSE(Panel()->isVisible());
    EXPECT_TRUE(Find<QFrame>(form, "fraMain")->isEnabled());
    EXPECT_TRUE(Button("cmdTotalDetails")->isEnabled());
}

TEST_F(RankListSummary, TheGradeOrderThatLeavesTheAbsentOutKeepsTheSummary)
{
    GivenFiveStudents();
    OpenAndProceed();
    Press(Option("optGradeOrder"));
    ASSERT_FALSE(ShownNames().contains(QStringLiteral("Esa")));
    Press(Button("cmdTotalDetails"));
    const QMap<QString, QString> lines = SummaryLines();
    EXPECT_EQ(lines.value(QStringLiteral("ABSENTEE")), QStringLiteral("1"));
    EXPECT_EQ(lines.value(QStringLiteral("TOTAL STRENGTH")), QStringLiteral("5"));
}

TEST_F(RankListSummary, OnTheSmallestScreenAllLinesAreInSightWhereThereIsRoom)
{
    GivenDivisionsAndGrades(3, 7);
    window->setWindowState(Qt::WindowNoState);
    window->resize(800, 600);
    OpenAndProceed();
    Press(Button("cmdTotalDetails"));
    Settle();
    const FlexGrid* summary = Summary();
    const int last = summary->Rows() - 1;
    ASSERT_EQ(summary->TextMatrix(last, 0), QStringLiteral("Full Mark For X  C"));
    EXPECT_TRUE(summary->viewport()->rect().contains(summary->CellRect(last, 0)));
    EXPECT_TRUE(form->rect().contains(Panel()->geometry()));
}

TEST_F(RankListSummary, APanelOfManyLinesStaysWithinTheFormAndScrolls)
{
    GivenDivisionsAndGrades(26, 9);
    OpenAndProceed();
    Press(Button("cmdTotalDetails"));
    Settle();
    EXPECT_TRUE(form->rect().contains(Panel()->geometry()));
    EXPECT_TRUE(Panel()->rect().contains(Button("cmdClose")->geometry()));
    FlexGrid* summary = Summary();
    summary->SetCurrentCell(summary->Rows() - 1, 0);
    EXPECT_TRUE(summary->viewport()->rect().contains(summary->CellRect(summary->Rows() - 1, 0)));
}

TEST_F(RankListSummary, ThePanelStaysInTheMiddleOfAFormThatChangesItsSize)
{
    GivenFiveStudents();
    window->setWindowState(Qt::WindowNoState);
    window->resize(1000, 700);
    OpenAndProceed();
    Press(Button("cmdTotalDetails"));
    Settle();
    form->resize(form->size() + QSize(80, 60));
    EXPECT_LE((Panel()->geometry().center() - form->rect().center()).manhattanLength(), 2);
}

TEST_F(RankListSummary, ThePanelIsSetOffAndItsLinesCanBeCopiedAllAtOnce)
{
    GivenFiveStudents();
    OpenAndProceed();
    Press(Button("cmdTotalDetails"));
    EXPECT_TRUE(Panel()->property("floating").toBool());
    QTest::keyClick(Summary(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(Summary(), Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    EXPECT_EQ(lines.size(), Summary()->Rows() - 1) << "all but the hidden head";
    EXPECT_TRUE(lines.front().startsWith(QStringLiteral("TOTAL STRENGTH")));
}

TEST_F(RankListSummary, TabGoesRoundWithinThePanel)
{
    GivenFiveStudents();
    OpenAndProceed();
    Press(Button("cmdTotalDetails"));
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        PressKey(form, key);
        EXPECT_TRUE(Summary()->hasFocus());
        PressKey(form, key);
        EXPECT_TRUE(Button("cmdClose")->hasFocus());
    }
}

TEST_F(RankListSummary, TheKeyboardGoesToCloseAndBackToTheButtonThatOpenedThePanel)
{
    GivenFiveStudents();
    OpenAndProceed();
    Button("cmdTotalDetails")->setFocus();
    PressKey(form, Qt::Key_Space);
    EXPECT_TRUE(Button("cmdClose")->hasFocus());
    PressKey(form, Qt::Key_Return);
    EXPECT_FALSE(Panel()->isVisible());
    EXPECT_TRUE(Button("cmdTotalDetails")->hasFocus());
}

TEST_F(RankListSummary, CancelClosesThePanelAndOpensTheSelection)
{
    GivenFiveStudents();
    OpenAndProceed();
    Press(Button("cmdTotalDetails"));
    Press(Button("cmdCancel"));
    EXPECT_FALSE(Panel()->isVisible());
    for (const char* frame : {"fraMain", "Frame4"})
        EXPECT_TRUE(Find<QFrame>(form, frame)->isEnabled()) << frame;
    EXPECT_FALSE(Button("cmdTotalDetails")->isEnabled());
    EXPECT_TRUE(exam->hasFocus());
    ChooseExamAndClass();
    EXPECT_EQ(divisions->count(), 1);
}

} // namespace
} // namespace tally::test
