#include "reports/frmStudentList.h"

#include "core/ProgramFolder.h"
#include "core/shell/MenuTree.h"
#include "core/ui/ScreenRegistry.h"
#include "reports/ReportDriver.h"
#include "support/FileSizeLimit.h"
#include "support/TestPaper.h"

#include <QCheckBox>
#include <QFileInfo>

namespace tally::test {
namespace {

/// Class X with division A, in it Cara and Asha.
class StudentListScreen : public ReportDriver<frmStudentList>
{
protected:
    void SetUp() override
    {
        ReportDriver::SetUp();
        school->AddDivision(1, "A");
        school->AddStudent(1, QStringLiteral("Cara"), QStringLiteral("100"));
        school->AddStudent(1, QStringLiteral("Asha"), QStringLiteral("20"));
    }

    void Open()
    {
        OpenReport("frmStudentList", {Side::Year, Side::Exam, Side::Class, Side::Division});
        divisions = Find<CheckList>(form, "Lstdivision");
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
    void ExpectColumnBoxes(bool on) const
    {
        for (const char* control : {"txtColumnNumber", "txtColumnName", "cmdAddColumnName"})
            EXPECT_EQ(IsEnabled(control), on) << control;
    }

    CheckList* divisions = nullptr;
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
    EXPECT_EQ(GridText(grid->Table()), "Admission.No.|Student Name\n");
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
    const auto before = GridText(grid->Table());
    Press(Button("cmdView"));
    EXPECT_TRUE(HasFocus("Lstdivision"));
    EXPECT_EQ(GridText(grid->Table()), before);
}

TEST_F(StudentListScreen, TheListGrowsByTheNumberOfColumnsTyped)
{
    OpenAndView("2");
    EXPECT_EQ(GridText(grid->Table()), "Admission.No.|Student Name||\n20|Asha||\n100|Cara||\n");
    ExpectColumnBoxes(true);
    Press(Option("optAdmissionOrder"));
    ExpectColumnBoxes(false);
    Press(Button("cmdView"));
    EXPECT_EQ(GridText(grid->Table()), "Admission.No.|Student Name||\n100|Cara||\n20|Asha||\n")
        << "the numbers are texts";
}

TEST_F(StudentListScreen, WithoutANumberOfColumnsNoneCanBeNamed)
{
    OpenAndView("0");
    EXPECT_EQ(GridText(grid->Table()), "Admission.No.|Student Name\n20|Asha\n100|Cara\n");
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

TEST_F(StudentListScreen, EveryChangeOfTheSelectionTakesTheListAndItsColumnNamesAway)
{
    school->AddDivision(2, "B");
    const std::vector<std::pair<const char*, std::function<void()>>> changes{
        {"the class", [&] { Choose("cboClass", QStringLiteral(" ")); }},
        {"a division", [&] { Tick(divisions, 1); }},
        {"all divisions", [&] { Press(Find<QCheckBox>(form, "chkSelectAll")); }},
        {"the order", [&] { Press(Option("optAdmissionOrder")); }},
    };
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        OpenAndView("2");
        change();
        EXPECT_EQ(grid->Cols(), 1);
        EXPECT_FALSE(Button("cmdPrint")->isEnabled());
        ExpectColumnBoxes(false);
        Press(Button("cmdCancel"));
    }
}

TEST_F(StudentListScreen, AListThatCannotBeReadIsToldAndHasNoColumnsToName)
{
    OpenAndView("2");
    Given("ALTER TABLE StudentClassDivision RENAME TO Away");
    prompts.ExpectCritical(NoSuchTable("StudentClassDivision"));
    Press(Button("cmdView"));
    prompts.Verify();
    EXPECT_EQ(grid->Cols(), 1);
    EXPECT_FALSE(Button("cmdPrint")->isEnabled());
    ExpectColumnBoxes(false);
    Given("ALTER TABLE Away RENAME TO StudentClassDivision");
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

TEST_F(StudentListScreen, WhereTheRightOrTheSchoolCannotBeReadNothingIsPrinted)
{
    GivenUser(1, QStringLiteral("anu"), QStringLiteral("x"),
              {{QStringLiteral("frmStudentList"), QStringLiteral("P")}});
    Session().gintPrivilegeUserCode = 1;
    OpenAndView();
    for (const char* table : {"UserPrivilegeDetails", "SchoolSetUp"}) {
        SCOPED_TRACE(table);
        const QString name = QString::fromLatin1(table);
        Session().gcnnMain->Execute(QStringLiteral("ALTER TABLE %1 RENAME TO Away").arg(name));
        prompts.ExpectCritical(NoSuchTable(table));
        Press(Button("cmdPrint"));
        prompts.Verify();
        EXPECT_EQ(output->textFile, QString());
        Session().gcnnMain->Execute(QStringLiteral("ALTER TABLE Away RENAME TO %1").arg(name));
    }
    Press(Button("cmdPrint"));
    EXPECT_NE(output->textFile, QString());
}

TEST_F(StudentListScreen, AfterANameTheNextNumberIsTypedAndAfterARefusalTheFieldThatIsMeant)
{
    OpenAndView("2");
    Retype("txtColumnNumber", "3");
    prompts.ExpectInformation(QStringLiteral("Enter Correct Column number"));
    Press(Button("cmdAddColumnName"));
    EXPECT_TRUE(HasFocus("txtColumnNumber")) << FocusName();
    Retype("txtColumnNumber", "2");
    prompts.ExpectInformation(QStringLiteral("Enter Column Name"));
    Press(Button("cmdAddColumnName"));
    EXPECT_TRUE(HasFocus("txtColumnName")) << FocusName();
    Retype("txtColumnName", "Test");
    Press(Button("cmdAddColumnName"));
    EXPECT_TRUE(HasFocus("txtColumnNumber")) << FocusName();
}

TEST_F(StudentListScreen, CtrlPShowsThePagesOfTheListWithTheAddedColumns)
{
    OpenAndView("1");
    Retype("txtColumnNumber", "1");
    Retype("txtColumnName", "Test");
    Press(Button("cmdAddColumnName"));
    PressKey(form, Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(output->printed.size(), 1U);
    TestPaper paper(output->printed[0].orientation);
    EXPECT_TRUE(output->printed[0].paint(paper));
    EXPECT_TRUE(paper.Holds(0, "STUDENT NAME LIST|CLASS X A|")) << paper.Text(0);
    EXPECT_TRUE(paper.Holds(0, "|Admission.No.|Student Name|Test|20|Asha")) << paper.Text(0);
    EXPECT_EQ(output->textFile, QString());
}

TEST_F(StudentListScreen, CtrlPSaysWhyItIsRefused)
{
    GivenUser(1, QStringLiteral("anu"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 1;
    OpenAndView();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
    PressKey(form, Qt::Key_P, Qt::ControlModifier);
    prompts.Verify();
    EXPECT_TRUE(output->printed.empty());
}

TEST_F(StudentListScreen, WithoutAProgramForTextsTheUserIsToldWhereTheReportIs)
{
    OpenAndView();
    UseTextProgram([](const QString&) { return false; });
    prompts.ExpectCritical(
        QStringLiteral("The report is saved as \"%1\", but the program for texts did not start.")
            .arg(ProgramFile(QStringLiteral("Studentlist.txt"))));
    Press(Button("cmdPrint"));
    prompts.Verify();
}

TEST_F(StudentListScreen, AReportThatCannotBeWrittenIsToldAndTheListStays)
{
    OpenAndView();
    const QString message =
        QStringLiteral("The report could not be written into the folder \"%1\". The disk may be full, or "
                       "you may not write there.");
    {
        const FileSizeLimit full(16);
        prompts.ExpectCritical(message.arg(ProgramFolder()));
        Press(Button("cmdPrint"));
        prompts.Verify();
    }
    EXPECT_FALSE(QFile::exists(ProgramFile(QStringLiteral("Studentlist.txt"))));
    const QString folder = ProgramFolder();
    SetProgramFolder(QStringLiteral("/dev/null"));
    prompts.ExpectCritical(message.arg(QStringLiteral("/dev/null")));
    Press(Button("cmdPrint"));
    prompts.Verify();
    SetProgramFolder(folder);
    EXPECT_EQ(GridText(grid->Table()), "Admission.No.|Student Name\n20|Asha\n100|Cara\n");
    EXPECT_TRUE(Button("cmdPrint")->isEnabled());
}

TEST_F(StudentListScreen, ANameOfAHundredLettersIsWholeOnTheScreenAndCutInTheText)
{
    const QString name = QString(99, u'n') + u'Z';
    school->AddStudent(1, name, QStringLiteral("7"));
    OpenAndView();
    EXPECT_NE(GridText(grid->Table()).find("7|" + name.toStdString()), std::string::npos);
    Press(Button("cmdPrint"));
    EXPECT_TRUE(output->text.contains(u'|' + QString(25, u'n') + QStringLiteral("|\n")))
        << output->text.toStdString();
}

TEST_F(StudentListScreen, CancelStartsAnew)
{
    OpenAndView("2");
    Press(Option("optAdmissionOrder"));
    Press(Button("cmdView"));
    Press(Button("cmdCancel"));
    EXPECT_TRUE(Option("optAlphabeticalOrder")->isChecked());
    EXPECT_EQ(GridText(grid->Table()), "Admission.No.|Student Name\n");
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
