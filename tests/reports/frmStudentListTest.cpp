#include "reports/frmStudentList.h"

#include "core/shell/MenuTree.h"
#include "core/ui/controls/CheckList.h"
#include "core/ui/ScreenRegistry.h"
#include "reports/ReportOutput.h"
#include "support/FormDriver.h"
#include "support/TestSchool.h"

#include <QCheckBox>
#include <QFileInfo>

#include <memory>

namespace tally::test {
namespace {

/// Class X with division A, in it Cara and Asha.
class StudentListScreen : public FormDriver<frmStudentList>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        Session().gintAcademicYearCode = 1;
        TestSchool school(*Session().gcnnMain, *Session().gcnnTemp);
        school.AddDivision(1, "A");
        school.AddStudent(1, QStringLiteral("Cara"), QStringLiteral("100"));
        school.AddStudent(1, QStringLiteral("Asha"), QStringLiteral("20"));
        output = std::make_unique<ReportOutput>(Folder());
    }
    void TearDown() override
    {
        output.reset();
        ScreenFixture::TearDown();
    }

    void Open()
    {
        if (!form)
            SurroundSchool();
        OpenForm("frmStudentList");
        divisions = Find<CheckList>(form, "Lstdivision");
        grid = Find<FlexGrid>(form, "msgDetails");
    }
    void OpenAndView(const char* columns = "")
    {
        Open();
        Choose("cboClass", QStringLiteral("X"));
        Tick(divisions, 0);
        Retype("txtNoOfColumn", columns);
        Press(Button("cmdView"));
        ASSERT_TRUE(Button("cmdPrint")->isEnabled());
    }
    std::string Rows() const
    {
        QStringList rows;
        for (int row = 0; row < grid->Rows(); ++row) {
            QStringList texts;
            for (int col = 0; col < grid->Cols(); ++col)
                texts.append(grid->TextMatrix(row, col));
            rows.append(texts.join(QLatin1Char('|')));
        }
        return rows.join(QStringLiteral("; ")).toStdString();
    }
    void ExpectColumnBoxes(bool on) const
    {
        for (const char* control : {"txtColumnNumber", "txtColumnName", "cmdAddColumnName"})
            EXPECT_EQ(IsEnabled(control), on) << control;
    }

    std::unique_ptr<ReportOutput> output;
    CheckList* divisions = nullptr;
    FlexGrid* grid = nullptr;
};

TEST_F(StudentListScreen, IsThereThoughNoMenuLeadsToIt)
{
    EXPECT_TRUE(ScreenRegistry::Knows(QStringLiteral("frmStudentList")));
    for (const MenuDefinition& line : MenuDefinitions())
        EXPECT_STRNE(line.opens, "frmStudentList") << line.name;
}

TEST_F(StudentListScreen, OpensWithItsOwnHeadAndWithoutAddedColumns)
{
    Open();
    EXPECT_EQ(form->windowTitle().toStdString(), "Student Name List");
    EXPECT_EQ(Rows(), "Admission.No.|Student Name");
    EXPECT_TRUE(Option("optAlphabeticalOrder")->isChecked());
    ExpectColumnBoxes(false);
    EXPECT_FALSE(Button("cmdPrint")->isEnabled());
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 29);
}

TEST_F(StudentListScreen, ViewingAsksForTheClassNameAndThenForADivision)
{
    Open();
    prompts.ExpectInformation(QStringLiteral("Select Class Name"));
    Press(Button("cmdView"));
    EXPECT_TRUE(HasFocus("cboClass"));
    Choose("cboClass", QStringLiteral("X"));
    prompts.ExpectInformation(QStringLiteral("Select Division"));
    Press(Button("cmdView"));
    EXPECT_TRUE(HasFocus("Lstdivision"));
}

TEST_F(StudentListScreen, TheListGrowsByTheNumberOfColumnsTyped)
{
    OpenAndView("2");
    EXPECT_EQ(Rows(), "Admission.No.|Student Name||; 20|Asha||; 100|Cara||");
    ExpectColumnBoxes(true);
    Press(Option("optAdmissionOrder"));
    ExpectColumnBoxes(false);
    Press(Button("cmdView"));
    EXPECT_EQ(Rows(), "Admission.No.|Student Name||; 100|Cara||; 20|Asha||") << "the numbers are texts";
}

TEST_F(StudentListScreen, WithoutANumberOfColumnsNoneCanBeNamed)
{
    OpenAndView("0");
    EXPECT_EQ(Rows(), "Admission.No.|Student Name; 20|Asha; 100|Cara");
    ExpectColumnBoxes(false);
}

TEST_F(StudentListScreen, AColumnGetsTheNameTypedForItsNumber)
{
    OpenAndView("2");
    Retype("txtColumnNumber", "2");
    Retype("txtColumnName", "Test 1");
    Press(Button("cmdAddColumnName"));
    EXPECT_EQ(grid->TextMatrix(0, 3).toStdString(), "Test 1");
    EXPECT_EQ(TextOf("txtColumnNumber"), "");
    EXPECT_EQ(TextOf("txtColumnName"), "");

    Retype("txtColumnNumber", "3");
    Retype("txtColumnName", "Late");
    prompts.ExpectInformation(QStringLiteral("Enter Correct Column number"));
    Press(Button("cmdAddColumnName"));
    EXPECT_EQ(TextOf("txtColumnName"), "Late") << "what was typed stays for a second try";
    Retype("txtColumnNumber", "1");
    Retype("txtColumnName", "");
    prompts.ExpectInformation(QStringLiteral("Enter Column Name"));
    Press(Button("cmdAddColumnName"));
}

TEST_F(StudentListScreen, AnotherNumberOfColumnsTakesTheListAway)
{
    OpenAndView("2");
    Retype("txtNoOfColumn", "3");
    EXPECT_EQ(grid->Cols(), 1);
    EXPECT_FALSE(Button("cmdPrint")->isEnabled());
}

TEST_F(StudentListScreen, PrintWritesTheTextReport)
{
    Given("INSERT INTO SchoolSetUp VALUES ('St. Mary''s', 'Hill Road', 'Fort', 0, '682001')");
    OpenAndView("1");
    Press(Button("cmdPrint"));
    EXPECT_EQ(QFileInfo(output->textFile).fileName().toStdString(), "Studentlist.txt");
    EXPECT_TRUE(output->text.contains(QStringLiteral("St. Mary's\n"))) << output->text.toStdString();
    EXPECT_TRUE(output->text.contains(QStringLiteral("Hill Road,Fort\n")));
    EXPECT_TRUE(output->text.contains(QStringLiteral("STUDENT NAME LIST FOR CLASS X A\n")));
    EXPECT_TRUE(output->text.contains(QStringLiteral("|     20     |          Asha           |     |\n")));
    EXPECT_TRUE(output->printed.empty());
}

TEST_F(StudentListScreen, PrintIsRefusedWithAnEmptyBox)
{
    GivenUser(1, QStringLiteral("anu"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 1;
    OpenAndView();
    prompts.ExpectInformation(QString());
    Press(Button("cmdPrint"));
    prompts.Verify();
    EXPECT_EQ(output->textFile, QString());
}

TEST_F(StudentListScreen, CancelStartsAnew)
{
    OpenAndView("2");
    Press(Button("cmdCancel"));
    EXPECT_EQ(Rows(), "Admission.No.|Student Name");
    EXPECT_EQ(TextOf("txtNoOfColumn"), "");
    ExpectColumnBoxes(false);
    EXPECT_FALSE(Button("cmdPrint")->isEnabled());
    EXPECT_TRUE(HasFocus("cboClass"));
}

TEST_F(StudentListScreen, EachUnderlinedLetterLeadsToOneControl)
{
    Open();
    EXPECT_EQ(ExpectOneControlALetter(form).join(QLatin1Char('|')).toStdString(),
              "Admission No. Order|Alphabetical Order|Select All");
}

TEST_F(StudentListScreen, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmStudentList"));
}

} // namespace
} // namespace tally::test
