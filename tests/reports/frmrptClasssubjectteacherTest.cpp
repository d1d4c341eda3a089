#include "reports/frmrptClasssubjectteacher.h"

#include "reports/output/WorkbookReader.h"
#include "reports/ReportDriver.h"
#include "support/TestPaper.h"

#include <QDateTime>
#include <QGroupBox>

#include <functional>

namespace tally::test {
namespace {

/// Class X with divisions B (code 1) and A (code 2), which take subjects from Anu; class IX, which comes
/// first and takes nothing.
class SetupReportScreen : public ReportDriver<frmrptClasssubjectteacher>
{
protected:
    void SetUp() override
    {
        ReportDriver::SetUp();
        Given("INSERT INTO TeacherMaster (TeacherCode, TeacherName, TeacherShortName) VALUES (1, 'Anu', "
              "'ANU')");
        school->AddDivision(1, "B");
        school->AddDivision(2, "A");
        school->AddSubject(1, 1, "Eng", 1, "Yes", 50, 60);
        school->AddSubject(1, 2, "Art", 2, "No", 20, 20);
        school->AddSubject(2, 1, "Eng", 1, "Yes", 80.5, 100);
        Given("UPDATE ClassSubjectTeacher SET TeacherCode = 1");
        Given("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 1, 0, 0)");
        Given("INSERT INTO ClassDivisionDetails VALUES (2, 'A', 1)");
    }

    void Open() { OpenReport("frmrptClasssubjectteacher", {Side::Year}); }
    void ChooseClass(const char* name)
    {
        Press(Option("optSpecificClass"));
        Choose("dbcClass", QString::fromLatin1(name));
    }
    void OpenAndView()
    {
        Open();
        Press(Button("cmdView"));
        ASSERT_TRUE(Button("cmdExport")->isEnabled());
    }
    void ExpectNoList() const
    {
        EXPECT_EQ(grid->Rows(), 2);
        EXPECT_EQ(Row(1), "");
        EXPECT_FALSE(Button("cmdExport")->isEnabled());
    }
};

TEST_F(SetupReportScreen, OpensOnAllClassesWithEverythingElseOff)
{
    Open();
    EXPECT_EQ(form->windowTitle().toStdString(), "Classwise  Subject - Teacher - Marks Details");
    EXPECT_EQ(Find<QGroupBox>(form, "Frame2")->title().toStdString(), "Class ");
    EXPECT_EQ(Find<QGroupBox>(form, "Frame3")->title().toStdString(), "Division");
    for (const char* option : {"optAllClass", "optAllDivision"}) {
        EXPECT_TRUE(Option(option)->isChecked()) << option;
        EXPECT_EQ(Option(option)->text().toStdString(), "All ") << option;
    }
    for (const char* option : {"optSpecificClass", "optSpecificDivision"})
        EXPECT_EQ(Option(option)->text().toStdString(), "Specific ") << option;
    for (const char* control : {"dbcClass", "dbcDivision", "Frame3", "cmdExport"})
        EXPECT_FALSE(IsEnabled(control)) << control;
    EXPECT_TRUE(HasFocus("optAllClass"));
    EXPECT_EQ(Button("cmdExport")->toolTip().toStdString(), "Export To EXCEL");
    EXPECT_EQ(List("dbcClass")->itemText(1).toStdString(), "IX") << "in the order of classes";
    PressKey(form, Qt::Key_F1);
    EXPECT_EQ(Session().glngScreenNo, 30);
}

TEST_F(SetupReportScreen, AChosenClassOffersItsDivisionsByName)
{
    Open();
    Press(Option("optSpecificClass"));
    EXPECT_TRUE(IsEnabled("dbcClass"));
    EXPECT_FALSE(IsEnabled("Frame3"));
    Choose("dbcClass", QStringLiteral("X"));
    EXPECT_TRUE(IsEnabled("Frame3"));
    EXPECT_TRUE(Option("optAllDivision")->isChecked());
    EXPECT_FALSE(IsEnabled("dbcDivision"));
    Press(Option("optSpecificDivision"));
    EXPECT_TRUE(IsEnabled("dbcDivision"));
    EXPECT_EQ(Items(List("dbcDivision")), " |A|B");

    Choose("dbcDivision", QStringLiteral("B"));
    Press(Option("optAllDivision"));
    EXPECT_TRUE(List("dbcDivision")->IsBlank());
    EXPECT_FALSE(IsEnabled("dbcDivision"));
    Press(Option("optSpecificDivision"));
    Choose("dbcDivision", QStringLiteral("B"));
    Choose("dbcClass", QStringLiteral(" "));
    EXPECT_FALSE(IsEnabled("Frame3"));
    EXPECT_TRUE(Option("optAllDivision")->isChecked());
    EXPECT_EQ(List("dbcDivision")->count(), 1);
}

TEST_F(SetupReportScreen, AllClassesTakesClassAndDivisionBack)
{
    Open();
    ChooseClass("X");
    Press(Option("optSpecificDivision"));
    Choose("dbcDivision", QStringLiteral("A"));
    Press(Option("optAllClass"));
    EXPECT_TRUE(List("dbcClass")->IsBlank());
    EXPECT_TRUE(List("dbcDivision")->IsBlank());
    EXPECT_TRUE(Option("optAllDivision")->isChecked());
    for (const char* control : {"dbcClass", "dbcDivision", "Frame3"})
        EXPECT_FALSE(IsEnabled(control)) << control;
}

TEST_F(SetupReportScreen, ViewingAsksForTheClassAndTheDivisionThatAreToBeSpecific)
{
    Open();
    Press(Option("optSpecificClass"));
    prompts.ExpectInformation(QStringLiteral("Select Class"));
    Press(Button("cmdView"));
    EXPECT_TRUE(HasFocus("dbcClass"));
    Choose("dbcClass", QStringLiteral("X"));
    Press(Option("optSpecificDivision"));
    prompts.ExpectInformation(QStringLiteral("Select Division"));
    Press(Button("cmdView"));
    EXPECT_TRUE(HasFocus("dbcDivision"));
    ExpectNoList();
}

TEST_F(SetupReportScreen, AllClassesStandInTheirOrderEachDivisionByItsCode)
{
    Given("INSERT INTO ClassSubjectTeacher VALUES (1, 2, 1, 2, 1, 100, 100, 'Yes', 7)");
    OpenAndView();
    ASSERT_EQ(grid->Rows(), 5);
    EXPECT_EQ(Row(1), "1|IX|A|Subject 2|Anu|100|100|Yes|7");
    EXPECT_EQ(Row(2), "2|X|B|Subject 1|Anu|50|60|Yes|1");
    EXPECT_EQ(Row(3), "3|X|B|Subject 2|Anu|20|20|No|2");
    EXPECT_EQ(Row(4), "4|X|A|Subject 1|Anu|80.5|100|Yes|1");
    EXPECT_TRUE(HasFocus("cmdExport"));
}

TEST_F(SetupReportScreen, OneClassOrOneDivisionShowsAlone)
{
    Open();
    ChooseClass("X");
    Press(Button("cmdView"));
    EXPECT_EQ(grid->Rows(), 4);
    Press(Option("optSpecificDivision"));
    Choose("dbcDivision", QStringLiteral("A"));
    Press(Button("cmdView"));
    ASSERT_EQ(grid->Rows(), 2);
    EXPECT_EQ(Row(1), "1|X|A|Subject 1|Anu|80.5|100|Yes|1");
}

TEST_F(SetupReportScreen, AClassThatTakesNothingIsTold)
{
    Open();
    ChooseClass("IX");
    prompts.ExpectInformation(QStringLiteral("No Record Exists"));
    Press(Button("cmdView"));
    ExpectNoList();
}

TEST_F(SetupReportScreen, EveryChangeTakesTheListAway)
{
    const std::vector<std::pair<const char*, std::function<void()>>> changes{
        {"one class", [&] { Press(Option("optAllClass")); }},
        {"another class", [&] { Choose("dbcClass", QStringLiteral("IX")); }},
        {"one division", [&] { Press(Option("optSpecificDivision")); }},
    };
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        Open();
        ChooseClass("X");
        Press(Button("cmdView"));
        ASSERT_TRUE(Button("cmdExport")->isEnabled());
        change();
        ExpectNoList();
        Press(Button("cmdExit"));
        Settle();
    }
    Open();
    ChooseClass("X");
    Press(Option("optSpecificDivision"));
    Choose("dbcDivision", QStringLiteral("A"));
    Press(Button("cmdView"));
    Choose("dbcDivision", QStringLiteral("B"));
    ExpectNoList();
    Press(Button("cmdView"));
    Press(Option("optAllDivision"));
    ExpectNoList();
    Press(Button("cmdView"));
    Press(Option("optAllClass"));
    ExpectNoList();
    Press(Button("cmdView"));
    Press(Option("optSpecificClass"));
    ExpectNoList();
}

TEST_F(SetupReportScreen, ExportAsksForNoRight)
{
    GivenUser(1, QStringLiteral("anu"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 1;
    OpenAndView();
    Press(Button("cmdExport"));
    EXPECT_NE(output->workbook, QString());
}

TEST_F(SetupReportScreen, TheSheetHasAHeadingAndATotalForEachDivision)
{
    Session().gstrSchoolName = QStringLiteral("St. Mary's School");
    Session().gstrSchoolAddress = QStringLiteral("Hill Road");
    Session().gstrSchoolCity = QStringLiteral("Kochi");
    Session().gstrUserName = QStringLiteral("Anu");
    OpenAndView();
    Press(Button("cmdExport"));
    const WorkbookReader sheet(output->workbook);
    const auto at = [&sheet](const char* cell) {
        return sheet.At(QString::fromLatin1(cell)).value.toStdString();
    };
    EXPECT_EQ(at("A1"), "St. Mary's School");
    EXPECT_EQ(at("A2"), "Hill Road");
    EXPECT_EQ(at("A3"), "Kochi");
    EXPECT_EQ(at("A4").rfind("User Name : Anu    Date : ", 0), 0U) << at("A4");
    EXPECT_EQ(sheet.At(QStringLiteral("A4")).style.horizontal.toStdString(), "right");
    EXPECT_EQ(at("A5"), "Classwise  Subject / Teacher / Marks Details");
    EXPECT_EQ(at("A6"), "");
    for (int row = 1; row <= 6; ++row)
        EXPECT_TRUE(sheet.Merges().contains(QStringLiteral("A%1:I%1").arg(row))) << row;

    EXPECT_EQ(at("A7"), "Sl.No.");
    EXPECT_EQ(at("B7"), "Subject");
    EXPECT_EQ(at("G7"), "Order");
    EXPECT_EQ(at("A8"), "Class : X");
    EXPECT_EQ(at("E8"), "Division :B");
    EXPECT_TRUE(sheet.Merges().contains(QStringLiteral("A8:D8")));
    EXPECT_TRUE(sheet.Merges().contains(QStringLiteral("E8:F8")));
    EXPECT_EQ(sheet.At(QStringLiteral("A8")).style.numberFormat.toStdString(), "@");
    EXPECT_EQ(sheet.At(QStringLiteral("E8")).style.numberFormat.toStdString(), "@");
    EXPECT_EQ(at("B9"), "Subject 1");
    EXPECT_EQ(at("C9"), "Anu");
    EXPECT_EQ(at("D9"), "50");
    EXPECT_EQ(at("E9"), "60");
    EXPECT_EQ(at("F9"), "Yes");
    EXPECT_EQ(at("E11"), "Total :");
    EXPECT_EQ(at("F11"), "50");
    EXPECT_EQ(sheet.At(QStringLiteral("F11")).style.numberFormat.toStdString(), "0.00");
    EXPECT_EQ(at("A12"), "Class : X");
    EXPECT_EQ(at("E12"), "Division :A");
    EXPECT_EQ(at("D13"), "80.5");
    EXPECT_EQ(at("F14"), "80.5");
    EXPECT_FALSE(sheet.At(QStringLiteral("A15")).exists);
    for (int row = 7; row <= 14; ++row) {
        for (const char* column : {"A", "D", "G"})
            EXPECT_TRUE(sheet.At(QLatin1String(column) + QString::number(row)).style.border) << column << row;
        EXPECT_FALSE(sheet.At(QStringLiteral("H%1").arg(row)).exists) << row;
    }
}

TEST_F(SetupReportScreen, TheLinesOfTheSheetAreToldApartByTheirLook)
{
    OpenAndView();
    Press(Button("cmdExport"));
    const WorkbookReader sheet(output->workbook);
    struct
    {
        const char* cell;
        const char* side;
        bool bold;
    } const looks[] = {
        {"A1", "center", true}, {"A2", "center", true},  {"A3", "center", true},
        {"A4", "right", false}, {"A5", "center", false}, {"A6", "center", false},
        {"A7", "left", true},   {"G7", "left", true},                          // the heads
        {"A8", "left", true},   {"E8", "left", true},    {"G8", "left", true}, // class and division
        {"A9", "right", false}, {"B9", "left", false},   {"D9", "right", false},
        {"F9", "left", false},  {"A11", "right", true},  {"E11", "right", true},
        {"F11", "right", true}, {"G11", "right", true},
    };
    for (const auto& [cell, side, bold] : looks) {
        const WorkbookReader::Style style = sheet.At(QString::fromLatin1(cell)).style;
        EXPECT_EQ(style.horizontal.toStdString(), side) << cell;
        EXPECT_EQ(style.vertical.toStdString(), "center") << cell;
        EXPECT_EQ(style.bold, bold) << cell;
    }
    EXPECT_TRUE(sheet.At(QStringLiteral("D9")).isNumber);
    EXPECT_FALSE(sheet.At(QStringLiteral("F9")).isNumber);
}

TEST_F(SetupReportScreen, TheColumnsOfTheSheetAreWideEnoughForTheirLongestTexts)
{
    const QString name(40, u'n');
    Given("UPDATE TeacherMaster SET TeacherName = ?", name);
    OpenAndView();
    Press(Button("cmdExport"));
    const WorkbookReader sheet(output->workbook);
    EXPECT_NEAR(sheet.ColumnWidth(3), 43.5, 1) << "the teacher, and some room";
    EXPECT_NEAR(sheet.ColumnWidth(5), 18.5, 1)
        << "the head \"Maximum Allowed\", which is longer than any mark";
    EXPECT_LT(sheet.ColumnWidth(1), 12) << "of a heading over several columns nothing is counted";
}

TEST_F(SetupReportScreen, TheSheetPrintsAcrossWithItsHeadsOnEachPage)
{
    OpenAndView();
    Press(Button("cmdExport"));
    const WorkbookReader sheet(output->workbook);
    EXPECT_EQ(sheet.DefinedName(QStringLiteral("_xlnm.Print_Titles")).toStdString(), "Sheet1!$7:$7");
    EXPECT_EQ(sheet.DefinedName(QStringLiteral("_xlnm.Print_Area")).toStdString(), "Sheet1!$A$1:$I$14");
    EXPECT_EQ(sheet.Attribute(QStringLiteral("pane"), QStringLiteral("topLeftCell")).toStdString(), "A8");
    EXPECT_EQ(sheet.Attribute(QStringLiteral("pageSetup"), QStringLiteral("orientation")).toStdString(),
              "landscape");
    EXPECT_EQ(sheet.Footer().toStdString(), "&LClasswise  Subject / Teacher / Marks Details&RPage &P of &N");
}

TEST_F(SetupReportScreen, ASchoolNameThatIsLongerThanTheSheetIsWideGoesOnInASecondLine)
{
    OpenAndView();
    const auto height = [this](int letters) {
        Session().gstrSchoolName = QString(letters, u'n');
        Press(Button("cmdExport"));
        return WorkbookReader(output->workbook).RowHeight(1);
    };
    EXPECT_EQ(height(80), 0) << "as every row is";
    EXPECT_GT(height(160), 25);
}

TEST_F(SetupReportScreen, TheSecondLineOfTheSheetTellsWhatWasChosen)
{
    Open();
    ChooseClass("X");
    Press(Button("cmdView"));
    Press(Button("cmdExport"));
    EXPECT_EQ(WorkbookReader(output->workbook).At(QStringLiteral("A6")).value.trimmed().toStdString(),
              "Class : X  Division :");
    Press(Option("optSpecificDivision"));
    Choose("dbcDivision", QStringLiteral("A"));
    Press(Button("cmdView"));
    Press(Button("cmdExport"));
    EXPECT_EQ(WorkbookReader(output->workbook).At(QStringLiteral("A6")).value.toStdString(),
              "Class : X  Division : A");
}

TEST_F(SetupReportScreen, WithoutASpreadsheetProgramTheUserIsTold)
{
    OpenAndView();
    UseSpreadsheetProgram({});
    prompts.ExpectInformation(QStringLiteral("If You Want To Use Export Option, Microsoft Excel Is Needed "
                                             "To Be Installed In Your System"));
    Press(Button("cmdExport"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SetupReportScreen, AListThatCannotBeReadIsToldAndNotCalledEmpty)
{
    OpenAndView();
    Given("ALTER TABLE ClassSubjectTeacher RENAME TO Away");
    prompts.ExpectCritical(QStringLiteral("no such table: ClassSubjectTeacher"));
    Press(Button("cmdView"));
    prompts.Verify();
    ExpectNoList();
    Given("ALTER TABLE Away RENAME TO ClassSubjectTeacher");
}

TEST_F(SetupReportScreen, AFolderInWhichNoWorkbookCanBeSavedIsTold)
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

TEST_F(SetupReportScreen, EnterPassesBlankListsBy)
{
    Open();
    Press(Option("optSpecificClass"));
    List("dbcClass")->setFocus();
    PressKey(List("dbcClass"), Qt::Key_Return);
    EXPECT_FALSE(HasFocus("dbcClass"));
    Choose("dbcClass", QStringLiteral("X"));
    Press(Option("optSpecificDivision"));
    List("dbcDivision")->setFocus();
    PressKey(List("dbcDivision"), Qt::Key_Return);
    EXPECT_FALSE(HasFocus("dbcDivision"));
}

TEST_F(SetupReportScreen, AClassShowsOnceOnTheScreenAndStandsInEachRow)
{
    OpenAndView();
    EXPECT_EQ(Row(2), "2|X|B|Subject 2|Anu|20|20|No|2");
    EXPECT_EQ(grid->model()->index(0, 1).data().toString().toStdString(), "X");
    EXPECT_EQ(grid->model()->index(1, 1).data().toString().toStdString(), "");
    EXPECT_EQ(grid->model()->index(1, 2).data().toString().toStdString(), "");
    EXPECT_EQ(grid->model()->index(2, 2).data().toString().toStdString(), "A");
}

TEST_F(SetupReportScreen, CtrlPShowsThePagesEachWithItsClass)
{
    for (int subject = 3; subject < 120; ++subject)
        school->AddSubject(1, subject, ("S" + std::to_string(subject)).c_str(), subject);
    Given("UPDATE ClassSubjectTeacher SET TeacherCode = 1");
    OpenAndView();
    PressKey(form, Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(output->printed.size(), 1U);
    EXPECT_EQ(output->printed[0].title.toStdString(), "Classwise  Subject / Teacher / Marks Details");
    TestPaper paper(output->printed[0].orientation);
    EXPECT_TRUE(output->printed[0].paint(paper));
    ASSERT_GE(paper.Pages().size(), 2U);
    for (std::size_t page = 0; page < paper.Pages().size(); ++page)
        EXPECT_EQ(QString::fromStdString(paper.Text(page)).count(QStringLiteral("|X|B|Subject")), 1) << page;
}

TEST_F(SetupReportScreen, CtrlPSaysWhyItIsRefusedThoughTheExportAsksForNoRight)
{
    GivenUser(1, QStringLiteral("anu"), QStringLiteral("x"));
    Session().gintPrivilegeUserCode = 1;
    OpenAndView();
    prompts.ExpectInformation(QStringLiteral("You Have No Privilege To Export This Report"));
    PressKey(form, Qt::Key_P, Qt::ControlModifier);
    prompts.Verify();
    EXPECT_TRUE(output->printed.empty());
}

TEST_F(SetupReportScreen, RowsThatGoMeanwhileStayInTheListThatIsExported)
{
    OpenAndView();
    Given("DELETE FROM ClassSubjectTeacher WHERE AcademicYearCode = 1 AND DivisionCode = 1");
    Press(Button("cmdExport"));
    EXPECT_EQ(WorkbookReader(output->workbook).At(QStringLiteral("B9")).value.toStdString(), "Subject 1");
    Given("DELETE FROM ClassSubjectTeacher WHERE AcademicYearCode = 1");
    prompts.ExpectInformation(QStringLiteral("No Record Exists"));
    Press(Button("cmdView"));
    ExpectNoList();
}

TEST_F(SetupReportScreen, ADivisionWithoutASubjectForRankHasATotalOfZeroOnTheSheet)
{
    Given("UPDATE ClassSubjectTeacher SET TakenForRank = 'No'");
    OpenAndView();
    Press(Button("cmdExport"));
    const WorkbookReader::Cell total = WorkbookReader(output->workbook).At(QStringLiteral("F11"));
    EXPECT_EQ(total.value.toStdString(), "0");
    EXPECT_EQ(total.style.numberFormat.toStdString(), "0.00");
}

TEST_F(SetupReportScreen, ANameOfAHundredLettersIsThereOnTheScreenAndTheSheet)
{
    const QString name = QString(99, u'n') + u'Z';
    Given(QStringLiteral("UPDATE TeacherMaster SET TeacherName = '%1'").arg(name).toLatin1().constData());
    OpenAndView();
    EXPECT_NE(Row(1).find(name.toStdString()), std::string::npos);
    Press(Button("cmdExport"));
    EXPECT_EQ(WorkbookReader(output->workbook).At(QStringLiteral("C9")).value.toStdString(),
              name.toStdString());
}

TEST_F(SetupReportScreen, ListsThatCannotBeReadAreToldAndCanBeReadAgain)
{
    Given("ALTER TABLE ClassDivisionMaster RENAME TO Away");
    prompts.ExpectCritical(QStringLiteral("no such table: ClassDivisionMaster"));
    OpenForm("frmrptClasssubjectteacher");
    prompts.Verify();
    EXPECT_EQ(List("dbcClass")->count(), 1);
    Given("ALTER TABLE Away RENAME TO ClassDivisionMaster");
    Press(Button("cmdCancel"));

    ChooseClass("IX");
    ASSERT_EQ(Items(List("dbcDivision")), " |A");
    Given("ALTER TABLE ClassDivisionDetails RENAME TO Away");
    prompts.ExpectCritical(QStringLiteral("no such table: ClassDivisionDetails"));
    PressKey(form, Qt::Key_Down);
    prompts.Verify();
    EXPECT_TRUE(List("dbcClass")->IsBlank());
    EXPECT_FALSE(IsEnabled("Frame3"));
    EXPECT_EQ(Items(List("dbcDivision")), " ") << "those of the class before are none of this one";
    Given("ALTER TABLE Away RENAME TO ClassDivisionDetails");
    Choose("dbcClass", QStringLiteral("X"));
    EXPECT_TRUE(IsEnabled("Frame3"));
    EXPECT_EQ(Items(List("dbcDivision")), " |A|B");
}

TEST_F(SetupReportScreen, CancelStartsAnew)
{
    Open();
    ChooseClass("X");
    Press(Button("cmdView"));
    Press(Button("cmdCancel"));
    EXPECT_TRUE(Option("optAllClass")->isChecked());
    EXPECT_TRUE(List("dbcClass")->IsBlank());
    EXPECT_FALSE(IsEnabled("dbcClass"));
    EXPECT_FALSE(IsEnabled("Frame3"));
    EXPECT_TRUE(HasFocus("optAllClass"));
    ExpectNoList();
}

TEST_F(SetupReportScreen, FitsTheSmallestScreenWithNothingCutOff)
{
    ExpectToFit(QStringLiteral("frmrptClasssubjectteacher"));
}

} // namespace
} // namespace tally::test
