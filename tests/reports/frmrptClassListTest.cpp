#include "reports/frmrptClassList.h"

#include "core/ui/controls/CheckList.h"
#include "reports/output/WorkbookReader.h"
#include "reports/ReportOutput.h"
#include "support/FormDriver.h"
#include "support/TestPaper.h"
#include "support/TestSchool.h"

#include <QCheckBox>
#include <QDir>

#include <functional>
#include <memory>

namespace tally::test {
namespace {

/// Class X with divisions B (code 1) and A (code 2), in B Cara and Asha, in A Binu, who has left; class IX
/// without divisions.
class ClassListScreen : public FormDriver<frmrptClassList>
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        Session().gintAcademicYearCode = 1;
        TestSchool school(*Session().gcnnMain, *Session().gcnnTemp);
        school.AddDivision(1, "B");
        school.AddDivision(2, "A");
        school.AddStudent(1, QStringLiteral("Cara"), QStringLiteral("20"));
        school.AddStudent(2, QStringLiteral("Binu"), QStringLiteral("100"));
        school.AddStudent(1, QStringLiteral("Asha"), QStringLiteral("3"));
        Given("UPDATE StudentMaster SET TCNo = 'T1' WHERE StudentCode = 2");
        Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 0, 2, 0)");
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
        OpenForm("frmrptClassList");
        divisions = Find<CheckList>(form, "Lstdivision");
        all = Find<QCheckBox>(form, "chkSelectAll");
        grid = Find<FlexGrid>(form, "msgDetails");
    }
    void OpenAndView()
    {
        Open();
        Choose("cboClass", QStringLiteral("X"));
        Press(all);
        Press(Button("cmdView"));
        ASSERT_TRUE(Button("cmdExport")->isEnabled());
    }
    std::string Items() const
    {
        QStringList texts;
        for (int index = 0; index < divisions->count(); ++index)
            texts.append(divisions->item(index)->text());
        return texts.join(QLatin1Char('|')).toStdString();
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
    void ExpectNoList() const
    {
        EXPECT_EQ(Rows(), "Admission No.; ");
        EXPECT_FALSE(Button("cmdExport")->isEnabled());
    }

    std::unique_ptr<ReportOutput> output;
    CheckList* divisions = nullptr;
    QCheckBox* all = nullptr;
    FlexGrid* grid = nullptr;
};

TEST_F(ClassListScreen, OpensWithTheClassesInFrontAndTheHeadsOfTheList)
{
    Open();
    EXPECT_EQ(form->windowTitle().toStdString(), "Class  List");
    EXPECT_TRUE(List("cboClass")->hasFocus());
    EXPECT_EQ(List("cboClass")->currentText().toStdString(), " ");
    EXPECT_EQ(Items(), "");
    EXPECT_TRUE(Option("optAlphabeticalOrder")->isChecked());
    EXPECT_EQ(Rows(), "Admission No.|Student Name");
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
    EXPECT_EQ(Items(), "");
    Press(all);
    prompts.ExpectInformation(QStringLiteral("Select Division(s)"));
    Press(Button("cmdView"));
}

TEST_F(ClassListScreen, TheStudentsOfTheTickedDivisionsShowByNameThoseWhoLeftAmongThem)
{
    OpenAndView();
    EXPECT_EQ(Items(), "A|B");
    EXPECT_EQ(Rows(), "Admission No.|Student Name; 3|Asha; 100|Binu; 20|Cara");
    EXPECT_TRUE(HasFocus("cmdExport"));
    EXPECT_GE(grid->ColWidth(0), 80);
    EXPECT_GE(grid->ColWidth(1), 233);
    Tick(divisions, 0);
    Press(Button("cmdView"));
    EXPECT_EQ(Rows(), "Admission No.|Student Name; 3|Asha; 20|Cara");
}

TEST_F(ClassListScreen, TheOrderOfAdmissionIsThatOfTheProgramsNumbers)
{
    OpenAndView();
    Press(Option("optAdmissionOrder"));
    ExpectNoList();
    Press(Button("cmdView"));
    EXPECT_EQ(Rows(), "Admission No.|Student Name; 20|Cara; 100|Binu; 3|Asha");
}

TEST_F(ClassListScreen, ADivisionWithoutStudentsShowsItsHeadsAlone)
{
    Given("INSERT INTO ClassDivisionDetails VALUES (1, 'C', 3)");
    Open();
    Choose("cboClass", QStringLiteral("X"));
    Tick(divisions, 2);
    Press(Button("cmdView"));
    EXPECT_EQ(Rows(), "Admission No.|Student Name");
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

TEST_F(ClassListScreen, CtrlPDoesNothingWithoutAListAndIsRefusedWithAnEmptyBox)
{
    Open();
    PressKey(form, Qt::Key_P, Qt::ControlModifier);
    GivenUser(1, QStringLiteral("anu"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 1;
    Choose("cboClass", QStringLiteral("X"));
    Press(all);
    Press(Button("cmdView"));
    prompts.ExpectInformation(QString());
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
    EXPECT_EQ(Items(), "");
    EXPECT_FALSE(all->isChecked());
    EXPECT_TRUE(Option("optAlphabeticalOrder")->isChecked());
    EXPECT_EQ(Rows(), "Admission No.|Student Name");
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
