#include "reports/output/ExportGridToExcel.h"

#include "core/SessionContext.h"
#include "core/ui/OpenDocument.h"
#include "core/ui/Prompts.h"
#include "reports/output/Disk.h"
#include "reports/output/ExportWorkbook.h"
#include "reports/output/Workbook.h"
#include "reports/output/WorkbookReader.h"
#include "support/AsOrdinaryUser.h"
#include "support/FileSizeLimit.h"
#include "support/OpenFiles.h"
#include "support/TableOf.h"

#include <QCursor>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <optional>
#include <sys/stat.h>
#include <utility>

namespace tally::test {

namespace {

QString Latin(const char* text)
{
    return QString::fromUtf8(text);
}

/// Whether a file in which the library collects the rows of a sheet is among those that are open, in an
/// export's own folder.
bool HoldRowsApart(const std::string& openFiles)
{
    return QString::fromStdString(openFiles).contains(QRegularExpression(Latin(R"(/\.export-\w{6}/tmp\.)")));
}

/// A school, a folder for workbooks, and a spreadsheet program that remembers what it was asked to open.
class Export : public testing::Test
{
protected:
    void SetUp() override
    {
        Session().gstrSchoolName = Latin("St. Mary's School");
        Session().gstrSchoolAddress = Latin("Hill Road");
        Session().gstrSchoolCity = Latin("Kochi");
        Session().gstrUserName = Latin("Anu");
        SetExportFolder(home_.filePath(Latin("Exports")));
        UseSpreadsheetProgram({true, [this](const QString& path) {
                                   opened_.push_back(path);
                                   return true;
                               }});
        Prompts::AnswerWith([this](Prompts::Kind kind, const QString& text) {
            boxes_.push_back({kind, text});
            pointerInBox_ = QGuiApplication::overrideCursor();
            return false;
        });
    }

    void TearDown() override
    {
        Prompts::AnswerWith({});
        UseRealSpreadsheetProgram();
        SetExportFolder({});
        Session() = SessionContext();
    }

    /// Fills the grid with rows of texts; "|" parts the cells.
    void Fill(const std::vector<const char*>& rows)
    {
        std::vector<GridTable::Row> content;
        for (const char* row : rows) {
            GridTable::Row cells;
            for (const QString& text : Latin(row).split(u'|'))
                cells.push_back({text});
            content.push_back(cells);
        }
        grid_ = TableOf(content);
    }

    /// Names of students and their marks, each cell different.
    void FillLargeList()
    {
        constexpr int Students = 1000;
        std::vector<GridTable::Row> rows{{{Latin("Name")}, {Latin("Maths")}, {Latin("Total")}}};
        for (int student = 0; student < Students; ++student)
            rows.push_back({{Latin("Student %1").arg(student)},
                            {QString::number(student * 1.25)},
                            {QString::number(student)}});
        grid_ = TableOf(rows);
    }

    /// The last export left either a workbook with the cells of `whole` from the list's head on, and no
    /// message, or a message and nothing else.
    void ExpectWholeOrToldAndGone(const WorkbookReader& whole, int run)
    {
        const QStringList files = FilesLeft();
        if (!boxes_.empty()) {
            EXPECT_EQ(boxes_.size(), 1U) << run;
            EXPECT_EQ(boxes_[0].kind, Prompts::Kind::Critical) << run;
            EXPECT_TRUE(boxes_[0].text.contains(Latin("full")) && boxes_[0].text.contains(ExportFolder()))
                << boxes_[0].text.toStdString();
            EXPECT_EQ(files, QStringList()) << run;
            boxes_.clear();
            ++toldOfFullDisk_;
            return;
        }
        ASSERT_EQ(files.size(), 1) << run;
        const WorkbookReader sheet(ExportFolder() + u'/' + files[0]);
        for (auto cell = whole.Cells().begin(); cell != whole.Cells().end(); ++cell) {
            const bool ofList = cell.key().mid(1).toInt() > 6;
            ASSERT_TRUE(!ofList || sheet.At(cell.key()).value == cell->value)
                << run << ' ' << cell.key().toStdString();
        }
    }

    WorkbookReader Exported(const char* title = "Rank List", const char* subTitle = "Exam Name :Annual")
    {
        return WorkbookReader(
            ExportGridToExcel(grid_, grid_.Rows() - 1, grid_.Cols() - 1, Latin(title), Latin(subTitle)));
    }

    QStringList FilesLeft() const
    {
        return QDir(ExportFolder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    struct Box
    {
        Prompts::Kind kind;
        QString text;
    };

    QTemporaryDir home_;
    GridTable grid_;
    std::vector<QString> opened_;
    std::vector<Box> boxes_;
    int toldOfFullDisk_ = 0;
    const QCursor* pointerInBox_ = nullptr;
};

} // namespace

TEST_F(Export, HeadsTheSheetWithSchoolUserTitleAndSubTitle)
{
    Fill({"Name|Total", "Asha|251"});
    const WorkbookReader sheet = Exported("Rank List", "Exam Name :Annual  Class :X");
    EXPECT_EQ(sheet.At("A1").value, Latin("St. Mary's School"));
    EXPECT_EQ(sheet.At("A2").value, Latin("Hill Road"));
    EXPECT_EQ(sheet.At("A3").value, Latin("Kochi"));
    EXPECT_EQ(sheet.At("A5").value, Latin("Rank List"));
    EXPECT_EQ(sheet.At("A6").value, Latin("Exam Name :Annual  Class :X"));
    EXPECT_EQ(sheet.Property("Company"), Latin("St. Mary's School"));
    const QRegularExpression stamp(Latin(
        R"(^User Name : Anu    Date : \d\d/[A-Z][a-z]{2}/\d{4}    Time : (0[1-9]|1[0-2]):\d\d [AP]M$)"));
    EXPECT_TRUE(stamp.match(sheet.At("A4").value).hasMatch()) << sheet.At("A4").value.toStdString();
}

TEST_F(Export, StampsTheMachineDateAndNotTheWorkingDate)
{
    Session().gdtmApplicationDate = QDate(2001, 2, 3);
    Fill({"Name", "Asha"});
    const QDate before = QDate::currentDate();
    const QString stamp = Exported().At("A4").value;
    const auto shows = [&](const QDate& date) {
        return stamp.contains(QLocale::c().toString(date, Latin("dd/MMM/yyyy")));
    };
    EXPECT_TRUE(shows(before) || shows(QDate::currentDate())) << stamp.toStdString();
}

TEST_F(Export, MergesTheSixTitleRowsOverNineColumnsInANarrowGrid)
{
    Fill({"Name", "Asha"});
    EXPECT_EQ(Exported().Merges(), QStringList({"A1:I1", "A2:I2", "A3:I3", "A4:I4", "A5:I5", "A6:I6"}));
}

TEST_F(Export, MergesTheTitleRowsOverNineColumnsOnlyInAWideGrid)
{
    Fill({"1|2|3|4|5|6|7|8|9|10|11|12", "a|b|c|d|e|f|g|h|i|j|k|l"});
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.Merges(), QStringList({"A1:I1", "A2:I2", "A3:I3", "A4:I4", "A5:I5", "A6:I6"}));
    EXPECT_EQ(sheet.At("L8").value, Latin("l"));
    EXPECT_EQ(sheet.At("M1").style.horizontal, Latin("center"));
    EXPECT_TRUE(sheet.At("M1").style.bold);
}

TEST_F(Export, CentersTheTitleRowsAndPrintsTheSchoolAndTheHeadsBold)
{
    Fill({"Name|Total", "Asha|251"});
    const WorkbookReader sheet = Exported();
    for (const char* cell : {"A1", "A2", "A3", "A4", "A5", "A6"})
        EXPECT_EQ(sheet.At(cell).style.horizontal, Latin("center")) << cell;
    for (const char* cell : {"A1", "A2", "A3", "A7", "B7", "C7"})
        EXPECT_TRUE(sheet.At(cell).style.bold) << cell;
    for (const char* cell : {"A4", "A5", "A6", "A8", "B8"})
        EXPECT_FALSE(sheet.At(cell).style.bold) << cell;
    for (const char* cell : {"A1", "A6", "A7", "A8", "B8"})
        EXPECT_EQ(sheet.At(cell).style.vertical, Latin("center")) << cell;
}

TEST_F(Export, CopiesTheTrimmedGridFromRowSevenOn)
{
    Fill({" Name |Division", "  Asha Menon |  A ", "Binu|B"});
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("A7").value, Latin("Name"));
    EXPECT_EQ(sheet.At("A8").value, Latin("Asha Menon"));
    EXPECT_EQ(sheet.At("B8").value, Latin("A"));
    EXPECT_EQ(sheet.At("B9").value, Latin("B"));
    EXPECT_FALSE(sheet.At("A10").exists);
}

TEST_F(Export, OfAReportHoldsTheListToItsLastLineAndColumn)
{
    Fill({"Name|Maths|Total", "Asha|40|251", "Binu|30|198"});
    ExportReport(grid_, Latin("Rank List"), Latin("Exam Name :Annual"));
    ASSERT_EQ(opened_.size(), 1U);
    const WorkbookReader sheet(opened_[0]);
    EXPECT_EQ(sheet.At("C9").value, Latin("198"));
    EXPECT_FALSE(sheet.At("A10").exists);
    EXPECT_FALSE(sheet.At("D8").exists);
    EXPECT_EQ(sheet.At("A6").value, Latin("Exam Name :Annual"));
}

TEST_F(Export, LeavesNoGapForAHiddenColumn)
{
    Fill({"Name|Code|Grade", "Asha|17|A+"});
    grid_.Column(1).hidden = true;
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("B7").value, Latin("Grade"));
    EXPECT_EQ(sheet.At("B8").value, Latin("A+"));
    EXPECT_FALSE(sheet.At("C8").exists);
}

TEST_F(Export, LeavesAnEmptyRowForAHiddenRow)
{
    Fill({"Name|Maths", "secret|12", "Asha|90"});
    grid_.HideRow(1);
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("A8").value, QString());
    EXPECT_EQ(sheet.At("B8").value, QString());
    EXPECT_TRUE(sheet.At("B8").style.border);
    EXPECT_EQ(sheet.At("A9").value, Latin("Asha"));
    EXPECT_EQ(sheet.At("B9").value, Latin("90"));
}

TEST_F(Export, MakesEachColumnAsWideAsItsLongestShownTextAndAReserve)
{
    Fill({"Name|Tot|Maximum Mark", "a very long hidden text|1|", "Asha Menon|251.50|50"});
    grid_.HideRow(1);
    const WorkbookReader sheet = Exported();
    const double pixelRounding = 1.0;
    EXPECT_NEAR(sheet.ColumnWidth(1), 10 + 3.5, pixelRounding);
    EXPECT_NEAR(sheet.ColumnWidth(2), 6 + 3.5, pixelRounding);
    EXPECT_NEAR(sheet.ColumnWidth(3), 12 + 3.5, pixelRounding);
}

TEST_F(Export, DrawsThinLinesAroundTheCellsOfTheListOnly)
{
    Fill({"Name|Total", "Asha|", "|"});
    const WorkbookReader sheet = Exported();
    for (const char* cell : {"A7", "B7", "A8", "B8", "A9", "B9"})
        EXPECT_TRUE(sheet.At(cell).style.border) << cell;
    for (const char* cell : {"A6", "C7", "A10"})
        EXPECT_FALSE(sheet.At(cell).style.border) << cell;
    EXPECT_EQ(sheet.At("A8").style.lineColor, Latin("FF808080"));
}

TEST_F(Export, KeepsTheTextsOfAColumnApartFromTheNumbersBesideIt)
{
    Fill({"Total|Name", "251|Asha"});
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("A8").style.indent, 0);
    EXPECT_EQ(sheet.At("B8").style.indent, 1);
}

TEST_F(Export, LeavesTheCellOfAMarkWithoutAValueEmpty)
{
    Fill({"Name|Maths", "Asha|", "Binu|40"});
    const WorkbookReader sheet = Exported();
    EXPECT_TRUE(sheet.At("B8").exists);
    EXPECT_FALSE(sheet.At("B8").isNumber);
    EXPECT_EQ(sheet.At("B8").value, QString());
}

TEST_F(Export, TurnsMarksIntoNumbersThatLookAsInTheGrid)
{
    Fill({"Total|Average|Balance|Share", "251|62.75|-3|33.3333333333333", "0|0.50|12|100"});
    const WorkbookReader sheet = Exported();
    const auto shows = [&](const char* reference, double number, const char* format) {
        const WorkbookReader::Cell cell = sheet.At(reference);
        EXPECT_TRUE(cell.isNumber) << reference;
        EXPECT_DOUBLE_EQ(cell.value.toDouble(), number) << reference;
        EXPECT_EQ(cell.style.numberFormat, Latin(format)) << reference;
        EXPECT_EQ(cell.style.horizontal, Latin("right")) << reference;
    };
    shows("A8", 251, "0");
    shows("B8", 62.75, "0.00");
    shows("C8", -3, "0");
    shows("D8", 33.3333333333333, "0.0000000000000");
    shows("A9", 0, "0");
    shows("B9", 0.5, "0.00");
}

TEST_F(Export, KeepsTextsThatOnlyLookLikeNumbers)
{
    Fill({"Text", "12/A", "1e5", "-", ".", "5.", "1.2.3", "+7", "A", "=1+1", "1,000", ".5"});
    const WorkbookReader sheet = Exported();
    for (int row = 8; row <= 18; ++row) {
        const WorkbookReader::Cell cell = sheet.At(Latin("A%1").arg(row));
        EXPECT_FALSE(cell.isNumber) << row;
        EXPECT_EQ(cell.value, grid_.Text(row - 7, 0)) << row;
    }
}

TEST_F(Export, KeepsAColumnOfAdmissionNumbersWithLeadingZerosAsTexts)
{
    Fill({"Adm.No.|Roll", "0042|7", "1250|08"});
    const WorkbookReader sheet = Exported();
    for (const char* cell : {"A8", "A9", "B8", "B9"})
        EXPECT_FALSE(sheet.At(cell).isNumber) << cell;
    EXPECT_EQ(sheet.At("A8").value, Latin("0042"));
    EXPECT_EQ(sheet.At("A9").style.horizontal, Latin("left"));
    EXPECT_EQ(sheet.Attribute("ignoredError", "numberStoredAsText"), Latin("1"));
    EXPECT_EQ(sheet.Attribute("ignoredError", "sqref"), Latin("A7:I9"));
}

TEST_F(Export, KeepsNumbersThatAreTooLongForASpreadsheetAsTexts)
{
    Fill({"Card|Number", "1234567890123456|123456789012345", "12|3"});
    const WorkbookReader sheet = Exported();
    EXPECT_FALSE(sheet.At("A8").isNumber);
    EXPECT_EQ(sheet.At("A8").value, Latin("1234567890123456"));
    EXPECT_FALSE(sheet.At("A9").isNumber) << "a column is one kind";
    EXPECT_TRUE(sheet.At("B8").isNumber);
}

TEST_F(Export, TakesTheHeadOfAColumnForATextThatSaysNothingOfWhatStandsBelow)
{
    Fill({"007|2024", "7|A"});
    const WorkbookReader sheet = Exported();
    for (const char* head : {"A7", "B7"})
        EXPECT_FALSE(sheet.At(head).isNumber) << head;
    EXPECT_TRUE(sheet.At("A8").isNumber);
    EXPECT_EQ(sheet.At("B8").style.horizontal, Latin("left"));
}

TEST_F(Export, LinesUpAnAbsenceWithTheMarksOfItsColumn)
{
    Fill({"Name|Maths", "Asha|45", "Binu|A"});
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("B9").style.horizontal, Latin("right"));
    EXPECT_EQ(sheet.At("B7").style.horizontal, Latin("right"));
    EXPECT_EQ(sheet.At("A9").style.horizontal, Latin("left"));
}

TEST_F(Export, FollowsTheGridInCenteringAColumnAndInLeadingItToTheRight)
{
    Fill({"Name|Grade|Note", "Asha|A|late"});
    grid_.Column(1).alignment = Qt::AlignCenter;
    grid_.Column(2).alignment = Qt::AlignRight;
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("B8").style.horizontal, Latin("center"));
    EXPECT_EQ(sheet.At("C8").style.horizontal, Latin("right"));
}

TEST_F(Export, PaintsFailuresAbsencesAndSubjectsNotTakenAsTheScreenDoes)
{
    Fill({"Name|Maths|Art", "Asha|12|50", "Average|12|50"});
    grid_.SetMark(1, 1, CellMark::FailedOrAbsent);
    grid_.SetMark(1, 2, CellMark::NotTakenForRank);
    grid_.SetMark(2, 0, CellMark::Sum);
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("A8").style.fill, QString());
    EXPECT_EQ(sheet.At("B8").style.fill, Latin("FFFFD8B0"));
    EXPECT_EQ(sheet.At("C8").style.fill, Latin("FFFFFFB0"));
    EXPECT_TRUE(sheet.At("B8").isNumber);
    EXPECT_TRUE(sheet.At("A9").style.bold);
}

TEST_F(Export, PrintsOnePageWideWithTheHeadsOnEachPage)
{
    Fill({"Name|Total", "Asha|251"});
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.Attribute("pageSetUpPr", "fitToPage"), Latin("1"));
    EXPECT_EQ(sheet.Attribute("pageSetup", "fitToHeight"), Latin("0"));
    EXPECT_EQ(sheet.Attribute("pageSetup", "fitToWidth"), QString()) << "one page, unless it says more";
    EXPECT_EQ(sheet.Attribute("pageSetup", "paperSize"), Latin("9"));
    EXPECT_EQ(sheet.Attribute("printOptions", "horizontalCentered"), Latin("1"));
    for (const auto& [side, inches] :
         {std::pair("left", 0.5), {"right", 0.5}, {"top", 0.6}, {"bottom", 0.75}})
        EXPECT_EQ(sheet.Attribute("pageMargins", Latin(side)).toDouble(), inches) << side;
    EXPECT_EQ(sheet.Attribute("pageSetup", "orientation"), Latin("portrait"));
    EXPECT_EQ(sheet.DefinedName("_xlnm.Print_Titles"), Latin("Sheet1!$7:$7"));
    EXPECT_EQ(sheet.DefinedName("_xlnm.Print_Area"), Latin("Sheet1!$A$1:$I$8"));
    EXPECT_EQ(sheet.Footer(), Latin("&LRank List&RPage &P of &N"));
    const QByteArray longTitle(120, 'x');
    EXPECT_EQ(Exported(longTitle.constData()).Footer(),
              QStringLiteral("&L") + QString(100, u'x') + QStringLiteral("&RPage &P of &N"));
    EXPECT_EQ(sheet.Attribute("pane", "topLeftCell"), Latin("A8"));
    EXPECT_EQ(sheet.Attribute("pane", "state"), Latin("frozen"));
}

TEST_F(Export, PrintsAWideListAcross)
{
    Fill({"Name|A|B|C|D|E|F|G|H|I|J", "A student with a rather long name of six words and one more|"
                                      "12.00|12.00|12.00|12.00|12.00|12.00|12.00|12.00|12.00|12.00"});
    EXPECT_EQ(Exported().Attribute("pageSetup", "orientation"), Latin("landscape"));
    const QByteArray columns = QByteArray("Name") + QByteArray("|Science").repeated(20);
    Fill({columns.constData()});
    EXPECT_EQ(Exported().Attribute("pageSetup", "orientation"), Latin("landscape"))
        << "wide by its many columns";
}

TEST_F(Export, LiesAcrossAsSoonAsTheListOrItsTitleIsWiderThanAnUprightPageHolds)
{
    struct Case
    {
        std::vector<int> letters; ///< of the text in each column
        const char* orientation;
    };
    // A column takes 3.5 letters more than its text; an empty one, and each of the nine columns of the title
    // that the list does not have, 8.43. An upright page holds 100.
    const Case cases[] = {{{29}, "portrait"},
                          {{30}, "landscape"},
                          {{29, 0}, "portrait"},
                          {{30, 0}, "landscape"},
                          {{7, 7, 7, 7, 7, 6, 6, 6, 6, 6}, "portrait"},
                          {{7, 7, 7, 7, 7, 7, 6, 6, 6, 6}, "landscape"}};
    for (const auto& [letters, orientation] : cases) {
        GridTable::Row cells;
        for (const int count : letters)
            cells.push_back({QString(count, u'x')});
        grid_ = TableOf({GridTable::Row(letters.size()), cells});
        EXPECT_EQ(Exported().Attribute("pageSetup", "orientation"), Latin(orientation))
            << letters.size() << " columns, the first of " << letters[0];
    }
}

TEST_F(Export, WrapsATitleThatIsLongerThanItsNineColumns)
{
    Fill({"Name", "Asha"});
    const QByteArray divisions = QByteArray("Division :") + QByteArray("  A,").repeated(60);
    const WorkbookReader sheet = Exported("Rank List", divisions.constData());
    EXPECT_GT(sheet.RowHeight(6), 30);
    EXPECT_TRUE(sheet.At("A6").style.wrap);
    EXPECT_EQ(sheet.RowHeight(5), 0);
    EXPECT_FALSE(sheet.At("A5").style.wrap);
}

TEST_F(Export, CarriesSignsAndLettersOfAllScriptsUnchanged)
{
    Fill({"Name|<b>&amp;", "D'Souza & \"Söhne\" <1>|അഞ്ജലി"});
    const WorkbookReader sheet = Exported("Marks & 'Ranks' <A/B>", "Class :\"X\" & Élite");
    EXPECT_EQ(sheet.At("A8").value, Latin("D'Souza & \"Söhne\" <1>"));
    EXPECT_EQ(sheet.At("B7").value, Latin("<b>&amp;"));
    EXPECT_EQ(sheet.At("B8").value, Latin("അഞ്ജലി"));
    EXPECT_EQ(sheet.At("A5").value, Latin("Marks & 'Ranks' <A/B>"));
    EXPECT_EQ(sheet.At("A6").value, Latin("Class :\"X\" & Élite"));
    EXPECT_EQ(sheet.Property("title"), Latin("Marks & 'Ranks' <A/B>"));
    EXPECT_EQ(sheet.Footer(), Latin("&LMarks && 'Ranks' <A/B>&RPage &P of &N"));
}

TEST_F(Export, OpensTheFileThatItNamedAfterTitleAndTime)
{
    Fill({"Name", "Asha"});
    const QString path =
        ExportGridToExcel(grid_, 1, 0, Latin("Subject\x01 Average Based On Class/Division"), QString());
    const QRegularExpression name(
        Latin(R"(^Subject- Average Based On Class-Division \d{4}-\d\d-\d\d \d\d\.\d\d\.\d\d\.xlsx$)"));
    EXPECT_TRUE(name.match(QFileInfo(path).fileName()).hasMatch()) << path.toStdString();
    ASSERT_EQ(opened_.size(), 1U);
    EXPECT_EQ(opened_[0], path);
    EXPECT_EQ(FilesLeft(), QStringList(QFileInfo(path).fileName()));
}

TEST_F(Export, GivesTwoExportsOfOneSecondDifferentNames)
{
    Fill({"Name", "Asha"});
    for (int i = 0; i < 3; ++i)
        ExportGridToExcel(grid_, 1, 0, Latin("Rank List"), QString());
    EXPECT_EQ(FilesLeft().size(), 3);
    EXPECT_EQ(QSet<QString>(opened_.begin(), opened_.end()).size(), 3);
}

TEST_F(Export, HoldsTenThousandRowsWithoutLosingOne)
{
    std::vector<GridTable::Row> rows(10001, GridTable::Row(27));
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (GridCell& cell : rows[row])
            cell.text = QString::number(row);
    }
    grid_ = TableOf(rows);
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("A8").value, Latin("1"));
    EXPECT_EQ(sheet.At("AA10007").value, Latin("10000"));
    EXPECT_FALSE(sheet.At("A10008").exists);
}

TEST_F(Export, WithoutASpreadsheetProgramSaysSoWithAnOrdinaryPointerAndLeavesNoFile)
{
    UseSpreadsheetProgram({});
    Fill({"Name", "Asha"});
    ExportReport(grid_, Latin("Rank List"), QString());
    ASSERT_EQ(boxes_.size(), 1U);
    EXPECT_EQ(boxes_[0].kind, Prompts::Kind::Information);
    EXPECT_EQ(boxes_[0].text, Latin("If You Want To Use Export Option, Microsoft Excel Is Needed To Be "
                                    "Installed In Your System"));
    EXPECT_EQ(pointerInBox_, nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_FALSE(QFileInfo::exists(ExportFolder()));
}

TEST_F(Export, KnowsTheMissingProgramByItsNumber)
{
    UseSpreadsheetProgram({});
    try {
        ExportGridToExcel(grid_, 0, 0, QString(), QString());
        FAIL() << "exported without a program";
    } catch (const ExportError& error) {
        EXPECT_EQ(static_cast<int>(error.Reason()), 429);
        EXPECT_STREQ(error.what(), "This machine has no program for spreadsheets.");
    }
}

TEST_F(Export, ShowsAnHourglassWhileItWorks)
{
    Fill({"Name", "Asha"});
    Qt::CursorShape shape = Qt::ArrowCursor;
    UseSpreadsheetProgram({true, [&](const QString&) {
                               shape = QGuiApplication::overrideCursor() != nullptr
                                           ? QGuiApplication::overrideCursor()->shape()
                                           : Qt::ArrowCursor;
                               return true;
                           }});
    ExportReport(grid_, Latin("Rank List"), QString());
    EXPECT_EQ(shape, Qt::WaitCursor);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(boxes_.empty());
}

TEST_F(Export, SaysInPlainWordsThatTheFolderCannotBeWritten)
{
    // A file in the folder's place stops even a user who may write everywhere.
    QFile file(home_.filePath(Latin("Taken")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    SetExportFolder(file.fileName());
    Fill({"Name", "Asha"});
    ExportReport(grid_, Latin("Rank List"), QString());
    ASSERT_EQ(boxes_.size(), 1U);
    EXPECT_EQ(boxes_[0].kind, Prompts::Kind::Critical);
    EXPECT_EQ(boxes_[0].text,
              Latin("Workbooks are saved in the folder \"%1\", but nothing can be written there. "
                    "The disk may be full.")
                  .arg(file.fileName()));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(opened_.empty());
}

TEST_F(Export, SaysSoWhereTheFinishedWorkbookGetsNoName)
{
    constexpr auto Reads = QFile::ReadOwner | QFile::ExeOwner;
    constexpr mode_t Everybody = S_IRWXU | S_IRWXG | S_IRWXO;
    ASSERT_EQ(chmod(QFile::encodeName(home_.path()).constData(), Everybody), 0);
    const AsOrdinaryUser clerk;
    RunExport([&] {
        ExportWorkbook({Latin("Rank List"), {}}, [&](Workbook& workbook) {
            workbook.WriteText(0, 0, Latin("Asha"), {});
            EXPECT_TRUE(QFile::setPermissions(ExportFolder(), Reads)) << "nothing new may come into it";
        });
    });
    ASSERT_EQ(boxes_.size(), 1U);
    EXPECT_EQ(boxes_[0].kind, Prompts::Kind::Critical);
    EXPECT_EQ(boxes_[0].text,
              Latin("The workbook could not be saved in the folder \"%1\".").arg(ExportFolder()));
    Fill({"Name", "Asha"});
    ExportReport(grid_, Latin("Rank List"), QString());
    ASSERT_EQ(boxes_.size(), 2U);
    EXPECT_TRUE(boxes_[1].text.contains(Latin("nothing can be written there")))
        << "the next one is not even begun: " << boxes_[1].text.toStdString();
    EXPECT_TRUE(opened_.empty());
}

TEST_F(Export, LeavesNoHalfFileWhenTheDiskIsFull)
{
    Fill({"Name", "Asha"});
    {
        const FileSizeLimit full(1024);
        ExportReport(grid_, Latin("Rank List"), QString());
    }
    ASSERT_EQ(boxes_.size(), 1U);
    EXPECT_EQ(boxes_[0].kind, Prompts::Kind::Critical);
    EXPECT_EQ(boxes_[0].text,
              Latin("The workbook could not be written. The disk of the folder \"%1\" may be full.")
                  .arg(ExportFolder()));
    EXPECT_EQ(FilesLeft(), QStringList());
    EXPECT_TRUE(opened_.empty());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Export, IsWholeOrToldAndGoneWhereverTheDiskEnds)
{
    FillLargeList();
    const WorkbookReader whole = Exported();
    // Small steps at first: there the disk ends between the many small parts of the workbook.
    constexpr int SmallStep = 301;
    constexpr int Step = 2777;
    const std::string open = OpenFiles();
    for (int bytes = 0; bytes < 200'000; bytes += bytes < Step ? SmallStep : Step) {
        QDir(ExportFolder()).removeRecursively();
        {
            const FileSizeLimit full(static_cast<rlim_t>(bytes));
            ExportReport(grid_, Latin("Rank List"), Latin("Exam Name :Annual"));
        }
        ExpectWholeOrToldAndGone(whole, bytes);
        ASSERT_EQ(OpenFiles(), open) << bytes << ": an open file goes on filling the disk";
    }
    EXPECT_TRUE(opened_.size() > 10 && toldOfFullDisk_ > 10) << "both sides of the edge were seen";
}

TEST_F(Export, IsWholeOrToldAndGoneWhenTheDiskFillsAndFreesAgain)
{
    FillLargeList();
    const WorkbookReader whole = Exported();
    const std::string open = OpenFiles();
    for (int full = 0; full < 1000; full += 31) {
        QDir(ExportFolder()).removeRecursively();
        std::optional<FileSizeLimit> noRoom;
        RunExport([&] {
            ExportWorkbook({Latin("Rank List"), {}}, [&](Workbook& workbook) {
                for (int row = 0; row < grid_.Rows(); ++row) {
                    if (row == full)
                        noRoom.emplace(0);
                    if (row == full + 40)
                        noRoom.reset();
                    for (int col = 0; col < grid_.Cols(); ++col)
                        workbook.WriteText(6 + row, col, grid_.Text(row, col), {});
                }
            });
        });
        noRoom.reset();
        ExpectWholeOrToldAndGone(whole, full);
        ASSERT_EQ(OpenFiles(), open) << full;
    }
    EXPECT_GT(toldOfFullDisk_, 10);
}

TEST_F(Export, TellsAnyOtherFaultToo)
{
    RunExport([] { throw std::runtime_error("no room"); });
    ASSERT_EQ(boxes_.size(), 1U);
    EXPECT_EQ(boxes_[0].kind, Prompts::Kind::Critical);
    EXPECT_EQ(boxes_[0].text, Latin("no room"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Export, LiesOnTheDiskAndThenItsNameToo)
{
    Fill({"Name", "Asha"});
    disk.synced.clear();
    const QString path = ExportGridToExcel(grid_, 1, 0, Latin("Rank List"), QString());
    ASSERT_TRUE(disk.synced.contains(Latin("workbook.xlsx")));
    EXPECT_EQ(disk.synced[Latin("workbook.xlsx")], QFileInfo(path).size());
    EXPECT_TRUE(disk.synced.contains(Latin("Exports"))) << "the folder that holds the name";
    EXPECT_FALSE(HoldRowsApart(disk.openMeanwhile[Latin("workbook.xlsx")])) << "they take room on the disk";
}

TEST_F(Export, CollectsTheRowsInAFolderOfItsOwnBesideTheResult)
{
    ExportWorkbook({Latin("Rank List"), {}}, [](Workbook& workbook) {
        workbook.WriteText(0, 0, Latin("Asha"), {});
        EXPECT_TRUE(HoldRowsApart(OpenFiles())) << OpenFiles();
    });
}

TEST_F(Export, IsToldAndGoneWhenTheDiskDoesNotTakeIt)
{
    Fill({"Name", "Asha"});
    disk.fails = Latin("workbook.xlsx");
    ExportReport(grid_, Latin("Rank List"), QString());
    disk.fails.clear();
    ASSERT_EQ(boxes_.size(), 1U);
    EXPECT_EQ(boxes_[0].kind, Prompts::Kind::Critical);
    EXPECT_EQ(FilesLeft(), QStringList());
    EXPECT_TRUE(opened_.empty());
}

TEST_F(Export, KeepsNoFileOpenWhenItIsGivenUpOrHasNothingToWrite)
{
    const std::string open = OpenFiles();
    const auto givenUp = [](Workbook& workbook) {
        workbook.WriteText(0, 0, Latin("Asha"), {});
        workbook.NewSheet();
        workbook.WriteText(0, 0, Latin("Binu"), {});
        throw WorkbookError("given up");
    };
    EXPECT_THROW(ExportWorkbook({Latin("Rank List"), {}}, givenUp), ExportError);
    EXPECT_EQ(OpenFiles(), open);
    ExportWorkbook({Latin("Rank List"), {}}, [](Workbook& workbook) { workbook.NewSheet(); });
    EXPECT_EQ(OpenFiles(), open);
}

TEST_F(Export, TurnsSignsThatNoSheetCanHoldIntoBlanks)
{
    const QString lonely = QString(QChar(0xD83D)) + u'x';
    grid_ = TableOf({{{Latin("Name")}},
                     {{Latin("As\x01ha\x1b\tMenon\r")}},
                     {{lonely}},
                     {{QString::fromUcs4(U"\U0001F600 \uFFFF")}},
                     {{QString::fromUcs4(U"\uFFFD \uFFFE.")}},
                     {{Latin("Hill\nRoad")}},
                     {{Latin("Asha\x1f.") + QString::fromUcs4(U"\U0001F600")}},
                     {{Latin("ab") + QChar(0xDE00) + u'c' + QChar(0xD83D)}}});
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("A8").value, Latin("As ha \tMenon"));
    EXPECT_EQ(sheet.At("A9").value, Latin(" x"));
    EXPECT_EQ(sheet.At("A10").value, QString::fromUcs4(U"\U0001F600  "));
    EXPECT_EQ(sheet.At("A11").value, QString::fromUcs4(U"\uFFFD  ."));
    EXPECT_EQ(sheet.At("A12").value, Latin("Hill\nRoad")) << "lines may end within a cell";
    EXPECT_EQ(sheet.At("A13").value, Latin("Asha .") + QString::fromUcs4(U"\U0001F600"));
    EXPECT_EQ(sheet.At("A14").value, Latin("ab c ")) << "halves of a letter";
    EXPECT_TRUE(boxes_.empty());
}

TEST_F(Export, TurnsSuchSignsIntoBlanksInWhatTheFileSaysOfItselfToo)
{
    Session().gstrSchoolName = Latin("Hill\x1bSchool");
    Session().gstrUserName = Latin("An\x02u");
    Fill({"Name", "Asha"});
    const WorkbookReader sheet = Exported("Rank\x01List", "Exam Name :Term\x03One");
    EXPECT_EQ(sheet.Property("title"), Latin("Rank List"));
    EXPECT_EQ(sheet.Property("subject"), Latin("Exam Name :Term One"));
    EXPECT_EQ(sheet.Property("creator"), Latin("An u"));
    EXPECT_EQ(sheet.At("A1").value, Latin("Hill School"));
}

TEST_F(Export, KeepsTheWorkbookWhenItsProgramDoesNotStart)
{
    UseSpreadsheetProgram({true, [](const QString&) { return false; }});
    Fill({"Name", "Asha"});
    ExportReport(grid_, Latin("Rank List"), QString());
    ASSERT_EQ(boxes_.size(), 1U);
    EXPECT_EQ(boxes_[0].kind, Prompts::Kind::Critical);
    ASSERT_EQ(FilesLeft().size(), 1);
    EXPECT_TRUE(boxes_[0].text.contains(FilesLeft().first()));
}

} // namespace tally::test
