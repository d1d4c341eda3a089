#include "reports/frmrptClassList.h"

#include "reports/output/WorkbookReader.h"
#include "reports/ReportDriver.h"
#include "support/TestPaper.h"

#include <QCheckBox>
#include <QDir>

#include <functional>

namespace tally::test {
namespace {

/// Class X with divisions B (code 1) and A (code 2), in B Cara and Asha, in A Binu, who has left; class IX
/// without divisions.
class ClassListScreen : public ReportDriver<frmrptClassList>
{
protected:
    void SetUp() override
    {
        ReportDriver::SetUp();
        school->AddDivision(1, "B");
        school->AddDivision(2, "A");
        school->AddStudent(1, QStringLiteral("Cara"), QStringLiteral("20"));
        school->AddStudent(2, QStringLiteral("Binu"), QStringLiteral("100"));
        school->AddStudent(1, QStringLiteral("Asha"), QStringLiteral("3"));
        Given("UPDATE StudentMaster SET TCNo = 'T1' WHERE StudentCode = 2");
        Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 0, 2, 0)");
    }

    void Open()
    {
        OpenReport("frmrptClassList", {Side::Year, Side::Exam, Side::Class, Side::Division});
        divisions = Find<CheckList>(form, "Lstdivision");
        all = Find<QCheckBox>(form, "chkSelectAll");
    }
    void OpenAndView()
    {
        Open();
        Choose("cboClass", QStringLiteral("X"));
        Press(all);
        Press(Button("cmdView"));
        ASSERT_TRUE(Button("cmdExport")->isEnabled());
    }
    void ExpectNoList() const
    {
        EXPECT_EQ(GridText(grid->Table()), "Admission No.\n\n");
        EXPECT_FALSE(Button("cmdExport")->isEnabled());
    }

    CheckList* divisions = nullptr;
    QCheckBox* all = nullptr;
};

TEST_F(ClassListScreen, OpensWithTheClassesInFrontAndTheHeadsOfTheList)
{
    Open();
    EXPECT_EQ(form->windowTitle().toStdString(), "Class  List");
    EXPECT_TRUE(List("cboClass")->hasFocus());
    EXPECT_EQ(List("cboClass")->currentText().toStdString(), " ");
    EXPECT_EQ(Items(divisions), "");
    EXPECT_TRUE(Option("optAlphabeticalOrder")->isChecked());
    EXPECT_EQ(GridText(grid->Table()), "Admission No.|Student Name\n");
    EXPECT_FALSE(Button("cmdExport")->isEnabled());
    EXPECT_EQ(Button("cmdExport")->toolTip().toStdString(), "Export To EXCEL");
    EXPECT_EQ(Button("cmdView")->text().toStdString(), "&View");
}

TEST_F(ClassListScreen, ViewingAsksForTheClassAndThenForADivision)
{
    Open();
    prompts.ExpectInformation(QStringLiteral("Select Class"));
    Press(Button("cmdView"));
    EXPECT_TRUE(HasFocus("cboClass"));
    Choose("cboClass", QStringLiteral("X"));
    prompts.ExpectInformation(QStringLiteral("Select Division(s)"));
    Press(Button("cmdView"));
    EXPECT_TRUE(HasFocus("Lstdivision"));
}

TEST_F(ClassListScreen, AClassWithoutDivisionsHasNothingToTick)
{
    Open();
    Choose("cboClass", QStringLiteral("IX"));
    EXPECT_EQ(Items(divisions), "");
    Press(all);
    prompts.ExpectInformation(QStringLiteral("Select Division(s)"));
    Press(Button("cmdView"));
}

TEST_F(ClassListScreen, TheStudentsOfTheTickedDivisionsShowByNameThoseWhoLeftAmongThem)
{
    OpenAndView();
    EXPECT_EQ(Items(divisions), "A|B");
    EXPECT_EQ(GridText(grid->Table()), "Admission No.|Student Name\n3|Asha\n100|Binu\n20|Cara\n");
    EXPECT_TRUE(HasFocus("cmdExport"));
    EXPECT_GE(grid->ColWidth(0), 80);
    EXPECT_GE(grid->ColWidth(1), 233);
    Tick(divisions, 0);
    Press(Button("cmdView"));
    EXPECT_EQ(GridText(grid->Table()), "Admission No.|Student Name\n3|Asha\n20|Cara\n");
}

TEST_F(ClassListScreen, TheOrderOfAdmissionIsThatOfTheProgramsNumbers)
{
    OpenAndView();
    Press(Option("optAdmissionOrder"));
    ExpectNoList();
    Press(Button("cmdView"));
    EXPECT_EQ(GridText(grid->Table()), "Admission No.|Student Name\n20|Cara\n100|Binu\n3|Asha\n");
}

TEST_F(ClassListScreen, ADivisionWithoutStudentsShowsItsHeadsAlone)
{
    Given("INSERT INTO ClassDivisionDetails VALUES (1, 'C', 3)");
    Open();
    Choose("cboClass", QStringLiteral("X"));
    Tick(divisions, 2);
    Press(Button("cmdView"));
    EXPECT_EQ(GridText(grid->Table()), "Admission No.|Student Name\n");
    EXPECT_TRUE(Button("cmdExport")->isEnabled());
}

TEST_F(ClassListScreen, EveryChangeOfTheSelectionTakesTheListAway)
{
    const std::vector<std::pair<const char*, std::function<void()>>> changes{
        {"the class", [&] { Choose("cboClass", QStringLiteral("IX")); }},
        {"a division", [&] { Tick(divisions, 1); }},
        {"all divisions", [&] { Press(all); }},
        {"the order", [&] { Press(Option("optAdmissionOrder")); }},
    };
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        OpenAndView();
        change();
        ExpectNoList();
        Press(Button("cmdExit"));
        Settle();
    }
}

TEST_F(ClassListScreen, UntickingOneDivisionClearsSelectAllAndLeavesTheOther)
{
    OpenAndView();
    Tick(divisions, 0);
    EXPECT_FALSE(all->isChecked());
    EXPECT_TRUE(divisions->IsTicked(1));
    Press(all);
    Press(all);
    EXPECT_TRUE(divisions->TickedIndexes().isEmpty());
}

TEST_F(ClassListScreen, ExportNeedsTheRightToPrint)
{
    GivenUser(1, QStringLiteral("anu"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 1;
    OpenAndView();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
    Press(Button("cmdExport"));
    EXPECT_EQ(output->workbook, QString());
    Given("INSERT INTO UserPrivilegeDetails VALUES ('frmrptClassList', 'P', 1)");
    Press(Button("cmdExport"));
    EXPECT_NE(output->workbook, QString());
}

TEST_F(ClassListScreen, TheWorkbookHasTheListUnderItsTitles)
{
    Session().gstrSchoolName = QStringLiteral("St. Mary's School");
    OpenAndView();
    Press(Button("cmdExport"));
    const WorkbookReader sheet(output->workbook);
    EXPECT_EQ(sheet.At(QStringLiteral("A1")).value.toStdString(), "St. Mary's School");
    EXPECT_EQ(sheet.At(QStringLiteral("A5")).value.toStdString(), "CLASS LIST");
    EXPECT_EQ(sheet.At(QStringLiteral("A6")).value.toStdString(), "STUDENT LIST FOR CLASS   X A,B");
    EXPECT_EQ(sheet.At(QStringLiteral("A7")).value.toStdString(), "Admission No.");
    EXPECT_EQ(sheet.At(QStringLiteral("B8")).value.toStdString(), "Asha");
    EXPECT_EQ(sheet.At(QStringLiteral("A10")).value.toStdString(), "20");
    EXPECT_FALSE(sheet.At(QStringLiteral("A11")).exists);
}

TEST_F(ClassListScreen, RowsThatGoMeanwhileStayInTheListThatIsExported)
{
    OpenAndView();
    Given("DELETE FROM StudentClassDivision WHERE StudentCode = 3 AND AcademicYearCode = 1");
    Press(Button("cmdExport"));
    EXPECT_EQ(WorkbookReader(output->workbook).At(QStringLiteral("B8")).value.toStdString(), "Asha");
}

TEST_F(ClassListScreen, WithoutASpreadsheetProgramTheUserIsToldAndThePointerIsAsBefore)
{
    OpenAndView();
    UseSpreadsheetProgram({});
    prompts.ExpectInformation(QStringLiteral("If You Want To Use Export Option, Microsoft Excel Is Needed "
                                             "To Be Installed In Your System"));
    Press(Button("cmdExport"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ClassListScreen, AFolderInWhichNoWorkbookCanBeSavedIsTold)
{
    OpenAndView();
    SetExportFolder(QStringLiteral("/dev/null/exports"));
    prompts.ExpectCritical(
        QStringLiteral("Workbooks are saved in the folder \"/dev/null/exports\", but nothing "
                       "can be written there. The disk may be full."));
    Press(Button("cmdExport"));
    prompts.Verify();
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ClassListScreen, EnterPassesABlankClassBy)
{
    Open();
    PressKey(List("cboClass"), Qt::Key_Return);
    EXPECT_FALSE(List("cboClass")->hasFocus());
}

TEST_F(ClassListScreen, ClassesThatCannotBeReadAreToldAndLeftOut)
{
    Given("ALTER TABLE ClassDivisionMaster RENAME TO Away");
    prompts.ExpectCritical(QStringLiteral("no such table: ClassDivisionMaster"));
    OpenForm("frmrptClassList");
    prompts.Verify();
    EXPECT_EQ(List("cboClass")->count(), 1);
    Given("ALTER TABLE Away RENAME TO ClassDivisionMaster");
    Press(Button("cmdCancel"));
    EXPECT_GT(List("cboClass")->count(), 1);
}

TEST_F(ClassListScreen, AYearThatIsDeletedMeanwhileHasNoStudents)
{
    OpenAndView();
    LeaveOthersUnguarded();
    Given("DELETE FROM StudentClassDivision WHERE AcademicYearCode = 1");
    Press(Button("cmdView"));
    EXPECT_EQ(GridText(grid->Table()), "Admission No.|Student Name\n");
}

TEST_F(ClassListScreen, ANameOfAHundredLettersIsThereOnTheScreenThePageAndTheSheet)
{
    const QString name = QString(99, u'n') + u'Z';
    school->AddStudent(1, name, QStringLiteral("7"));
    OpenAndView();
    EXPECT_TRUE(GridText(grid->Table()).find("7|" + name.toStdString()) != std::string::npos);
    EXPECT_LE(grid->ColWidth(1), grid->viewport()->width());
    Press(Button("cmdExport"));
    EXPECT_EQ(WorkbookReader(output->workbook).At(QStringLiteral("B11")).value.toStdString(),
              name.toStdString());
    PressKey(form, Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(output->printed.size(), 1U);
    TestPaper paper(output->printed[0].orientation);
    EXPECT_TRUE(output->printed[0].paint(paper));
    int letters = 0;
    for (const TestPaper::Word& word : paper.Pages()[0].words) {
        EXPECT_TRUE(paper.Edges().contains(word.place)) << word.text.toStdString();
        letters += static_cast<int>(word.text.count(u'n'));
    }
    EXPECT_GE(letters, 99);
}

TEST_F(ClassListScreen, CtrlPShowsThePagesOfTheList)
{
    OpenAndView();
    PressKey(form, Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(output->printed.size(), 1U);
    EXPECT_EQ(output->printed[0].title.toStdString(), "CLASS LIST");
    TestPaper paper(output->printed[0].orientation);
    output->printed[0].paint(paper);
    EXPECT_TRUE(paper.Holds(0, "STUDENT LIST FOR CLASS   X A,B"));
    EXPECT_TRUE(paper.Holds(0, "|3|Asha|100|Binu|20|Cara"));
}

TEST_F(ClassListScreen, CtrlPDoesNothingWithoutAListAndSaysWhyItIsRefused)
{
    Open();
    PressKey(form, Qt::Key_P, Qt::ControlModifier);
    GivenUser(1, QStringLiteral("anu"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 1;
    Choose("cboClass", QStringLiteral("X"));
    Press(all);
    Press(Button("cmdView"));
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
    PressKey(form, Qt::Key_P, Qt::ControlModifier);
    prompts.Verify();
    EXPECT_TRUE(output->printed.empty());
}

TEST_F(ClassListScreen, CancelStartsAnew)
{
    OpenAndView();
    Press(Option("optAdmissionOrder"));
    Press(Button("cmdView"));
    Given("UPDATE ClassDivisionMaster SET ClassName = 'XI' WHERE ClassCode = 2");
    Press(Button("cmdCancel"));
    EXPECT_EQ(List("cboClass")->currentText().toStdString(), " ");
    EXPECT_NE(List("cboClass")->findText(QStringLiteral("XI")), -1);
    EXPECT_EQ(Items(divisions), "");
    EXPECT_FALSE(all->isChecked());
    EXPECT_TRUE(Option("optAlphabeticalOrder")->isChecked());
    EXPECT_EQ(GridText(grid->Table()), "Admission No.|Student Name\n");
    EXPECT_FALSE(Button("cmdExport")->isEnabled());
    EXPECT_TRUE(HasFocus("cboClass"));
}

TEST_F(ClassListScreen, AListThatCannotBeReadIsToldAndNotShownAsEmpty)
{
    OpenAndView();
    Given("ALTER TABLE StudentClassDivision RENAME TO Away");
    prompts.ExpectCritical(QStringLiteral("no such table: StudentClassDivision"));
    Press(Button("cmdView"));
    prompts.Verify();
    ExpectNoList();
    Given("ALTER TABLE Away RENAME TO StudentClassDivision");
}

TEST_F(ClassListScreen, AClassWhoseDivisionsCannotBeReadIsTakenBackAndCanBeChosenAgain)
{
    Open();
    Choose("cboClass", QStringLiteral("X"));
    ASSERT_EQ(Items(divisions), "A|B");
    Given("ALTER TABLE ClassDivisionDetails RENAME TO Away");
    prompts.ExpectCritical(QStringLiteral("no such table: ClassDivisionDetails"));
    PressKey(form, Qt::Key_Down);
    prompts.Verify();
    EXPECT_TRUE(List("cboClass")->IsBlank());
    EXPECT_EQ(Items(divisions), "") << "those of the class before are none of this one";
    Given("ALTER TABLE Away RENAME TO ClassDivisionDetails");
    Choose("cboClass", QStringLiteral("X"));
    EXPECT_EQ(Items(divisions), "A|B");
}

TEST_F(ClassListScreen, EachUnderlinedLetterLeadsToOneControl)
{
    Open();
    EXPECT_EQ(ExpectOneControlALetter(form).join(QLatin1Char('|')).toStdString(),
              "Admission No. Order|Alphabetical Order|Select All");
    PressKey(form, Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(HasFocus("Lstdivision"));
    PressKey(form, Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(HasFocus("cboClass"));
}

TEST_F(ClassListScreen, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmrptClassList"));
}

TEST_F(ClassListScreen, HelpIsAskedForAtTheScreensNumber)
{
    Open();
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 29);
}

TEST_F(ClassListScreen, ExitAsksUnderTheCaption)
{
    Session().gblnPromptOnExit = true;
    Open();
    prompts.ExpectQuestion(QStringLiteral("Do You Want To Exit Class  List ?"), false);
    Press(Button("cmdExit"));
    EXPECT_FALSE(form->IsUnloaded());
}

} // namespace
} // namespace tally::test
