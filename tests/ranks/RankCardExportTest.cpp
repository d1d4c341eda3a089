#include "core/SessionContext.h"
#include "core/ui/OpenDocument.h"
#include "ranks/ExportFlexGridToExcel1.h"
#include "ranks/RankCards.h"
#include "reports/output/ExportWorkbook.h"
#include "reports/output/SheetParts.h"
#include "reports/output/Workbook.h"
#include "reports/output/WorkbookReader.h"
#include "support/FileSizeLimit.h"
#include "support/OpenFiles.h"
#include "support/TableOf.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <set>

namespace tally::test {
namespace {

const QString LongestName = QStringLiteral("Venkatanarasimharajuvaripeta Subrahmanyam Lakshminarayana Iyer "
                                           "Of Tiruchirappalli The Younger Cousin");

/// A grid of rank cards, a folder for workbooks and a spreadsheet program that opens everything.
class RankCardExport : public testing::Test
{
protected:
    void SetUp() override
    {
        Session().gstrSchoolName = QStringLiteral("St. Mary's School");
        Session().gstrSchoolAddress = QStringLiteral("Hill Road,Fort");
        Session().gstrSchoolCity = QStringLiteral("Kochi,Kerala - 682001");
        SetExportFolder(home_.filePath(QStringLiteral("Exports")));
        UseSpreadsheetProgram({true, [](const QString&) { return true; }});
    }

    void TearDown() override
    {
        UseRealSpreadsheetProgram();
        SetExportFolder({});
        Session() = SessionContext();
    }

    /// "|" parts the cells; the heads come first, the subject codes are added, and an empty text is the blank
    /// line behind a card.
    void Fill(const QStringList& texts)
    {
        std::vector<GridTable::Row> rows;
        for (const QString& text : texts) {
            GridTable::Row cells;
            for (const QString& cell : text.split(u'|'))
                cells.push_back({cell});
            rows.push_back(text.isEmpty() ? GridTable::Row() : cells);
            if (rows.size() == 1)
                rows.push_back({{}, {}, {}, {}, {}, {QStringLiteral("1234567890123")}});
        }
        grid_ = TableOf(rows);
        grid_.HideRow(RankCardGrid::CodesRow);
    }

    /// Asha with two exams, Binu with one.
    void FillTwoCards()
    {
        Fill({"|||||Eng|Mat|Total|Average|Rank|Grade", "First|Asha Menon|0042|X|A|74|80.50|154.5|77.25|1|A",
              "Second|Asha Menon|0042|X|A|60|||||", "", "First|Binu|=1+1|X|A|20|71|91|45.5||C", ""});
    }

    QString Export(int examCount = 2, const QString& title = {}, const QString& heading = {})
    {
        return ExportFlexGridToExcel1(grid_, grid_.Rows() - 1, grid_.Cols() - 1, title, heading, examCount);
    }

    WorkbookReader Exported(int examCount = 2) { return WorkbookReader(Export(examCount)); }

    QStringList FilesLeft() const
    {
        return QDir(ExportFolder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    /// One card of many exams and subjects.
    void FillLargeCard(int exams, int subjects, const QString& name = LongestName,
                       const QString& examName = QStringLiteral("Half Yearly"))
    {
        QString heads = QStringLiteral("||||");
        QString line = QStringLiteral("%1|%2|7|X|A").arg(examName, name);
        for (int subject = 1; subject <= subjects; ++subject) {
            heads += QStringLiteral("|Sub%1").arg(subject);
            line += QStringLiteral("|100.00");
        }
        QStringList rows{heads + QStringLiteral("|Total|Average|Rank|Grade")};
        for (int exam = 0; exam < exams; ++exam)
            rows.append(line + QStringLiteral("|1200|100.00|1|A"));
        Fill(rows + QStringList(QString()));
    }

    /// Height on paper of the sheet's rows 1 to `last`, in points.
    static double PrintedHeight(const WorkbookReader& sheet, int last)
    {
        double height = 0;
        for (int row = 1; row <= last; ++row)
            height += sheet.RowHeight(row) > 0 ? sheet.RowHeight(row) : Workbook::StandardRowHeight;
        return height * Percent(sheet) / 100;
    }

    /// The sheet counts the room around the letters of a column as letters too.
    static constexpr double PointsOfDigit = 6.36;

    static double PrintedWidth(const WorkbookReader& sheet, int columns)
    {
        double letters = 0;
        for (int column = 1; column <= columns; ++column)
            letters += sheet.ColumnWidth(column);
        EXPECT_EQ(sheet.ColumnFont(), QStringLiteral("Verdana 10"));
        return letters * PointsOfDigit * Percent(sheet) / 100;
    }

    static double Percent(const WorkbookReader& sheet)
    {
        const QString scale = sheet.Attribute("pageSetup", "scale");
        return scale.isEmpty() ? 100 : scale.toDouble();
    }

    static bool Landscape(const WorkbookReader& sheet)
    {
        return sheet.Attribute("pageSetup", "orientation") == QStringLiteral("landscape");
    }

    QTemporaryDir home_;
    GridTable grid_;
};

TEST_F(RankCardExport, ACardBeginsWithTheSchoolOverItsWholeWidthAndTwoBlankLines)
{
    FillTwoCards();
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("A1").value, QStringLiteral("St. Mary's School"));
    EXPECT_EQ(sheet.At("A2").value, QStringLiteral("Hill Road,Fort"));
    EXPECT_EQ(sheet.At("A3").value, QStringLiteral("Kochi,Kerala - 682001"));
    for (const char* cell : {"A1", "A2", "A3"}) {
        EXPECT_EQ(sheet.At(cell).style.horizontal, QStringLiteral("center")) << cell;
        EXPECT_TRUE(sheet.At(cell).style.bold) << cell;
        EXPECT_EQ(sheet.At(cell).style.vertical, QStringLiteral("center")) << cell;
    }
    EXPECT_GT(sheet.At("A1").style.points, sheet.At("A2").style.points);
    for (const char* cell : {"A4", "A5", "A6"})
        EXPECT_EQ(sheet.At(cell).value, QString()) << cell;
    EXPECT_EQ(sheet.Merges().mid(0, 5), QStringList({"A1:G1", "A2:G2", "A3:G3", "A4:G4", "A5:G5"}));
}

TEST_F(RankCardExport, TheStudentStandsBelowInFourLinesTakenFromTheFirstExamLine)
{
    FillTwoCards();
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("A7").value, QStringLiteral(" Student Name : Asha Menon"));
    EXPECT_EQ(sheet.At("A8").value, QStringLiteral("  Admission No : 0042"));
    EXPECT_EQ(sheet.At("A9").value, QStringLiteral("               Class : X"));
    EXPECT_EQ(sheet.At("A10").value, QStringLiteral("           Division : A"));
}

TEST_F(RankCardExport, TheHeadsAndExamLinesFollowWithBordersAndEmptyCellsStayEmpty)
{
    FillTwoCards();
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("A11").value, QStringLiteral("Eng"));
    EXPECT_EQ(sheet.At("F11").value, QStringLiteral("Grade"));
    EXPECT_TRUE(sheet.At("A11").style.bold);
    EXPECT_EQ(sheet.At("A12").value, QStringLiteral("74"));
    EXPECT_EQ(sheet.At("F12").value, QStringLiteral("A"));
    EXPECT_EQ(sheet.At("A13").value, QStringLiteral("60"));
    EXPECT_EQ(sheet.At("B13").value, QString());
    EXPECT_FALSE(sheet.At("B13").isNumber);
    for (const char* cell : {"A11", "F11", "G11", "A12", "F12", "G12", "A13", "B13", "F13", "G13"})
        EXPECT_TRUE(sheet.At(cell).style.border) << cell;
    for (const char* cell : {"A11", "F11", "G11", "A12", "B12", "F12", "G12", "B13", "G13"}) {
        EXPECT_EQ(sheet.At(cell).style.horizontal, QStringLiteral("center")) << cell;
        EXPECT_EQ(sheet.At(cell).style.vertical, QStringLiteral("center")) << cell;
    }
    for (const char* cell : {"A10", "H12", "A14"})
        EXPECT_FALSE(sheet.At(cell).style.border) << cell;
}

TEST_F(RankCardExport, EachLineEndsInTheNameOfItsExam)
{
    FillTwoCards();
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("G11").value, QStringLiteral("Exam"));
    EXPECT_TRUE(sheet.At("G11").style.bold);
    EXPECT_EQ(sheet.At("G12").value, QStringLiteral("First"));
    EXPECT_EQ(sheet.At("G13").value, QStringLiteral("Second"));
    EXPECT_EQ(sheet.At("G37").value, QStringLiteral("First"));
}

TEST_F(RankCardExport, ALongNameOfAnExamGoesOnInFurtherLinesAndTheMarksKeepTheirRoom)
{
    const QString exam = QStringLiteral("Revision Before The Quarterly Examination 2024/25");
    FillLargeCard(2, 12, LongestName, exam);
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("Q12").value, exam);
    EXPECT_TRUE(sheet.At("Q12").style.wrap);
    EXPECT_GE(sheet.RowHeight(12), 3 * Workbook::StandardRowHeight);
    EXPECT_LT(sheet.ColumnWidth(17), 4 * sheet.ColumnWidth(1));
}

TEST_F(RankCardExport, EveryRowHasAHeightOfItsOwnWhateverTheFont)
{
    FillTwoCards();
    const WorkbookReader sheet = Exported();
    for (int row = 1; row <= 49; ++row)
        EXPECT_GT(sheet.RowHeight(row), Workbook::StandardRowHeight) << row;
}

TEST_F(RankCardExport, AMarkThatIsTooWideInAnotherFontBecomesSmallerInItsCell)
{
    FillTwoCards();
    const WorkbookReader sheet = Exported();
    for (const char* cell : {"A11", "A12", "F12"})
        EXPECT_TRUE(sheet.At(cell).style.shrink) << cell;
}

TEST_F(RankCardExport, MarksAreNumbersThatLookAsInTheGrid)
{
    FillTwoCards();
    const WorkbookReader sheet = Exported();
    for (const char* cell : {"A12", "B12", "C12", "D12", "E12"})
        EXPECT_TRUE(sheet.At(cell).isNumber) << cell;
    EXPECT_DOUBLE_EQ(sheet.At("B12").value.toDouble(), 80.5);
    EXPECT_EQ(sheet.At("B12").style.numberFormat, QStringLiteral("0.00"));
    EXPECT_EQ(sheet.At("C12").style.numberFormat, QStringLiteral("0.0"));
    EXPECT_FALSE(sheet.At("F12").isNumber);
}

TEST_F(RankCardExport, TheSignaturesStandTenRowsAndTheNextCardThirteenBehindTheLastExamLine)
{
    FillTwoCards();
    const WorkbookReader sheet = Exported();
    const QString signatures =
        QStringLiteral(" Principal:                   Class Teacher:                  Parents/Guardian:");
    for (int row = 14; row <= 25; ++row)
        EXPECT_EQ(sheet.At(QStringLiteral("A%1").arg(row)).value, row == 23 ? signatures : QString()) << row;
    EXPECT_EQ(sheet.At("A26").value, QStringLiteral("St. Mary's School"));
    EXPECT_EQ(sheet.At("A32").value, QStringLiteral(" Student Name : Binu"));
    EXPECT_EQ(sheet.At("A36").value, QStringLiteral("Eng"));
    EXPECT_EQ(sheet.At("C37").value, QStringLiteral("91"));
    EXPECT_EQ(sheet.At("E37").value, QString());
    EXPECT_EQ(sheet.At("A47").value, signatures);
    EXPECT_FALSE(sheet.At("A50").exists);
}

TEST_F(RankCardExport, EachCardHasAPageOfItsOwn)
{
    FillTwoCards();
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.Attribute("rowBreaks", "manualBreakCount"), QStringLiteral("1"));
    EXPECT_EQ(sheet.Attribute("brk", "id"), QStringLiteral("25"));
    EXPECT_EQ(sheet.Attribute("pageSetUpPr", "fitToPage"), QString())
        << "fitting to pages makes office programs forget the page breaks";
    EXPECT_EQ(sheet.Attribute("pageSetup", "paperSize"), QStringLiteral("9"));
    EXPECT_EQ(sheet.Attribute("printOptions", "horizontalCentered"), QStringLiteral("1"));
    EXPECT_EQ(sheet.DefinedName("_xlnm.Print_Area"), QStringLiteral("Sheet1!$A$1:$G$49"));
}

TEST_F(RankCardExport, ACardOfFewSubjectsSpansAnUprightPageInFullSize)
{
    FillTwoCards();
    const WorkbookReader sheet = Exported();
    EXPECT_FALSE(Landscape(sheet));
    EXPECT_EQ(Percent(sheet), 100);
    const double room = Workbook::PrintableArea(false).width();
    EXPECT_LE(PrintedWidth(sheet, 7), room);
    EXPECT_GE(PrintedWidth(sheet, 7), 0.9 * room);
}

TEST_F(RankCardExport, EachColumnHoldsItsLongestTextAndThoseOfEqualTextsAreEqual)
{
    for (const int subjects : {1, 20}) {
        FillLargeCard(1, subjects);
        const WorkbookReader sheet = Exported(1);
        for (int column = 1; column <= subjects; ++column) {
            EXPECT_GT(sheet.ColumnWidth(column), LettersOnPaper(QStringLiteral("100.00"))) << column;
            EXPECT_DOUBLE_EQ(sheet.ColumnWidth(column), sheet.ColumnWidth(1)) << column;
        }
        const int exam = subjects + 5;
        EXPECT_GT(sheet.ColumnWidth(exam), LettersOnPaper(QStringLiteral("Half Yearly")));
        EXPECT_GT(sheet.ColumnWidth(subjects + 2), LettersOnPaper(QStringLiteral("Average")));
    }
}

TEST_F(RankCardExport, AnExamStandsOnOneLineOnlyWhereItFitsInAnyFont)
{
    std::set<bool> linesSeen;
    for (int letters = 15; letters <= 35; ++letters) {
        const QString exam = QString(letters, u'x');
        FillLargeCard(1, 2, QStringLiteral("Asha"), exam);
        const WorkbookReader sheet = Exported(1);
        const bool onOneLine = sheet.RowHeight(12) < sheet.RowHeight(11);
        linesSeen.insert(onOneLine);
        const double letterRoom = sheet.ColumnWidth(7) * PointsOfDigit / Workbook::WidestLetterPoints;
        if (onOneLine) {
            EXPECT_LE(LettersOnPaper(exam), letterRoom) << letters;
        }
    }
    EXPECT_EQ(linesSeen.size(), 2U);
}

TEST_F(RankCardExport, WhatStandsInTheLastRowAndColumnAskedForIsWrittenAndCountsForTheSizes)
{
    const QString exam = QStringLiteral("Revision Before The Quarterly Examination 2024/25");
    Fill({"|||||Eng|Total|Grade", "First|Asha|7|X|A|60|60|B",
          exam + QStringLiteral("|Asha|7|X|A|70|70|Distinction"), "", "First|Binu|8|X|A|80|80|A"});
    const int lastLine = 3;
    const auto exported = [&](int lastRow) {
        return WorkbookReader(ExportFlexGridToExcel1(grid_, lastRow, grid_.Cols() - 1, {}, {}, 2));
    };
    const WorkbookReader sheet = exported(lastLine);
    const WorkbookReader withTheBlankRow = exported(lastLine + 1);
    EXPECT_EQ(sheet.At("D13").value, exam);
    EXPECT_FALSE(sheet.At("A26").exists) << "Binu stands below";
    EXPECT_TRUE(sheet.Cells() == withTheBlankRow.Cells());
    for (int column = 1; column <= 4; ++column)
        EXPECT_DOUBLE_EQ(sheet.ColumnWidth(column), withTheBlankRow.ColumnWidth(column)) << column;
    EXPECT_DOUBLE_EQ(sheet.RowHeight(13), withTheBlankRow.RowHeight(13));
}

TEST_F(RankCardExport, ALineIsOneWhateverItTellsOfItsExamAndStudent)
{
    Fill({"|||||Eng", "First|||||60", "||||A|70", "|||||80", ""});
    const WorkbookReader sheet = Exported();
    EXPECT_EQ(sheet.At("A12").value, QStringLiteral("60"));
    EXPECT_EQ(sheet.At("A13").value, QStringLiteral("70"));
    EXPECT_EQ(sheet.At("A14").value, QString()) << "a mark of nobody";
}

TEST_F(RankCardExport, TwelveSubjectsLieAcrossThePageInAReadableSize)
{
    FillLargeCard(5, 12);
    const WorkbookReader sheet = Exported(5);
    EXPECT_TRUE(Landscape(sheet));
    EXPECT_GE(Percent(sheet), 75);
    EXPECT_LE(PrintedWidth(sheet, 17), Workbook::PrintableArea(true).width());
    EXPECT_LE(PrintedHeight(sheet, 11 + 5 + 12), Workbook::PrintableArea(true).height());
}

TEST_F(RankCardExport, NoCardIsCutByThePagesEdgeHoweverManyExamsAndSubjectsItHas)
{
    for (const int exams : {1, 12, 40}) {
        for (const int subjects : {0, 4, 20}) {
            FillLargeCard(exams, subjects);
            const WorkbookReader sheet = Exported(exams);
            const QSizeF room = Workbook::PrintableArea(Landscape(sheet));
            EXPECT_LE(PrintedWidth(sheet, subjects + 5), room.width()) << exams << ' ' << subjects;
            EXPECT_GE(PrintedWidth(sheet, subjects + 5), 0.9 * room.width()) << exams << ' ' << subjects;
            EXPECT_LE(PrintedHeight(sheet, 11 + exams + 12), room.height()) << exams << ' ' << subjects;
        }
    }
}

TEST_F(RankCardExport, ACardThatIsTooHighFillsItsPageButForTheRoomThatOtherFontsTake)
{
    constexpr int Exams = 20;
    constexpr double Filled = 0.96;
    FillLargeCard(Exams, 2);
    const WorkbookReader sheet = Exported(Exams);
    const double height = PrintedHeight(sheet, 11 + Exams + 12);
    const double room = Filled * Workbook::PrintableArea(Landscape(sheet)).height();
    EXPECT_LE(height, room);
    EXPECT_GT(height * (Percent(sheet) + 1) / Percent(sheet), room) << "one percent more would not fit";
}

TEST_F(RankCardExport, AnAdmissionNumberThatLooksLikeANumberOrAFormulaStaysText)
{
    FillTwoCards();
    const WorkbookReader sheet = Exported();
    EXPECT_FALSE(sheet.At("A8").isNumber);
    EXPECT_EQ(sheet.At("A33").value, QStringLiteral("  Admission No : =1+1"));
    EXPECT_FALSE(sheet.At("A33").isNumber);
}

TEST_F(RankCardExport, NamesKeepTheirApostrophesSignsAndLettersOfAllScripts)
{
    const QString name = QString::fromUtf8("Zoë <D'Souza> & അഞ്ജലി");
    Fill({"|||||Eng|Total|Average|Rank|Grade",
          QStringLiteral("First|") + name + QStringLiteral("|7|X|A|60||||"), ""});
    EXPECT_EQ(Exported().At("A7").value, QStringLiteral(" Student Name : ") + name);
}

TEST_F(RankCardExport, ALongSchoolNameGoesOnInASecondLine)
{
    FillTwoCards();
    Session().gstrSchoolName =
        QString(20, u'W') + QStringLiteral(" and Sons' Higher Secondary School ") + QString(40, u'W');
    const WorkbookReader sheet = Exported();
    EXPECT_GT(sheet.RowHeight(1), 40);
    EXPECT_TRUE(sheet.At("A1").style.wrap);
    EXPECT_EQ(sheet.At("A1").value, Session().gstrSchoolName);
}

TEST_F(RankCardExport, TheLongestStudentNameGoesOnInASecondLineAndOtherCardsStayAsTheyAre)
{
    ASSERT_EQ(LongestName.size(), 100);
    Fill({"|||||Eng|Mat|Total|Average|Rank|Grade",
          QStringLiteral("First|") + LongestName + QStringLiteral("|0042|X|A|74|80|154|77|1|A"), "",
          "First|Binu|7|X|A|20|71|91|45.5||C", ""});
    const WorkbookReader sheet = Exported(1);
    EXPECT_EQ(sheet.At("A7").value, QStringLiteral(" Student Name : ") + LongestName);
    EXPECT_TRUE(sheet.Merges().contains(QStringLiteral("A7:G7")));
    EXPECT_TRUE(sheet.At("A7").style.wrap);
    EXPECT_EQ(sheet.RowHeight(7), 2 * Workbook::StandardRowHeight);
    EXPECT_FALSE(sheet.At("A8").style.wrap);
    EXPECT_EQ(sheet.At("A31").value, QStringLiteral(" Student Name : Binu"));
    EXPECT_FALSE(sheet.At("A31").style.wrap);
    EXPECT_EQ(sheet.RowHeight(31), sheet.RowHeight(8));
    EXPECT_GT(sheet.RowHeight(8), Workbook::StandardRowHeight);
}

TEST_F(RankCardExport, ACardThatFillsItsPageBecomesSmallerForTheSecondLineOfAName)
{
    constexpr int ExamsOfAFullPage = 16;
    FillLargeCard(ExamsOfAFullPage, 2, QStringLiteral("Asha"));
    EXPECT_EQ(Percent(Exported(ExamsOfAFullPage)), 100);
    FillLargeCard(ExamsOfAFullPage, 2);
    EXPECT_LT(Percent(Exported(ExamsOfAFullPage)), 100);
}

TEST_F(RankCardExport, ANameInCapitalsGoesOnInASecondLineEarlier)
{
    const auto height = [&](const QString& name) {
        Fill({"|||||Eng|Mat|Total|Average|Rank|Grade",
              QStringLiteral("First|") + name + QStringLiteral("|7|X|A|74|80|154|77|1|A"), ""});
        return Exported(1).RowHeight(7);
    };
    const QString name = QStringLiteral("Hemachandran ").repeated(4);
    EXPECT_LT(height(name), 2 * Workbook::StandardRowHeight);
    EXPECT_EQ(height(name.toUpper()), 2 * Workbook::StandardRowHeight);
}

TEST_F(RankCardExport, ATitleAndAHeadingTakeTheTwoBlankLines)
{
    FillTwoCards();
    const WorkbookReader sheet(Export(2, QStringLiteral("Progress Card"), QStringLiteral("2024-2025")));
    EXPECT_EQ(sheet.At("A4").value, QStringLiteral("Progress Card"));
    EXPECT_EQ(sheet.At("A5").value, QStringLiteral("2024-2025"));
    for (const char* cell : {"A4", "A5"})
        EXPECT_EQ(sheet.At(cell).style.vertical, QStringLiteral("center")) << cell;
    EXPECT_EQ(sheet.At("A29").value, QStringLiteral("Progress Card"));
}

TEST_F(RankCardExport, BlankLinesOnlyMakeNoCard)
{
    Fill({"|||||Eng|Total|Average|Rank|Grade", "", "", "First|Asha|7|X|A|60||||", "", ""});
    const WorkbookReader sheet = Exported(1);
    EXPECT_EQ(sheet.At("A7").value, QStringLiteral(" Student Name : Asha"));
    EXPECT_FALSE(sheet.At("A25").exists);
}

TEST_F(RankCardExport, MoreCardsThanASheetCanPartIntoPagesGoOnOnASecondSheet)
{
    QStringList rows{QStringLiteral("|||||Eng|Total|Average|Rank|Grade")};
    constexpr int Cards = Workbook::MostPageBreaks + 3;
    for (int card = 1; card <= Cards; ++card)
        rows << QStringLiteral("First|Student %1|7|X|A|60||||").arg(card) << QString();
    Fill(rows);
    const QString path = Export(1);
    const WorkbookReader first(path);
    const int blockRows = 24;
    const auto name = [&](int card) { return QStringLiteral("A%1").arg((card - 1) * blockRows + 7); };
    EXPECT_EQ(first.Attribute("rowBreaks", "count"), QString::number(Workbook::MostPageBreaks));
    EXPECT_EQ(first.At(name(Workbook::MostPageBreaks + 1)).value,
              QStringLiteral(" Student Name : Student 1024"));
    EXPECT_FALSE(first.At(name(Workbook::MostPageBreaks + 2)).exists);

    const WorkbookReader second(path, 2);
    EXPECT_EQ(second.At(name(1)).value, QStringLiteral(" Student Name : Student 1025"));
    EXPECT_EQ(second.At(name(2)).value, QStringLiteral(" Student Name : Student 1026"));
    EXPECT_EQ(second.Attribute("rowBreaks", "count"), QStringLiteral("1"));
    EXPECT_EQ(second.ColumnWidth(1), first.ColumnWidth(1));
    EXPECT_EQ(second.Attribute("pageSetup", "orientation"), first.Attribute("pageSetup", "orientation"));
}

TEST_F(RankCardExport, IsWholeOrToldAndGoneWhereverTheDiskEnds)
{
    QStringList rows{QStringLiteral("|||||Eng|Mat|Total|Average|Rank|Grade")};
    for (int student = 0; student < 60; ++student) {
        for (const char* exam : {"First", "Second"})
            rows += QStringLiteral("%1|Student %2|%2|X|A|%2|80.50|154.5|77.25|%2|A")
                        .arg(QString::fromLatin1(exam))
                        .arg(student);
        rows += QString();
    }
    Fill(rows);
    const WorkbookReader whole = Exported();
    const std::string open = OpenFiles();
    int told = 0;
    int made = 0;
    constexpr int Step = 7777;
    for (int bytes = 0; bytes < 400'000; bytes += Step) {
        QDir(ExportFolder()).removeRecursively();
        QString path;
        try {
            const FileSizeLimit full(static_cast<rlim_t>(bytes));
            path = Export();
        } catch (const ExportError& error) {
            EXPECT_TRUE(error.Description().contains(QStringLiteral("full"))) << bytes;
            EXPECT_TRUE(error.Description().contains(ExportFolder())) << bytes;
            EXPECT_EQ(FilesLeft(), QStringList()) << bytes;
            ASSERT_EQ(OpenFiles(), open) << bytes;
            ++told;
            continue;
        }
        ++made;
        const WorkbookReader sheet(path);
        EXPECT_TRUE(sheet.Cells() == whole.Cells()) << bytes;
        EXPECT_EQ(sheet.Merges(), whole.Merges()) << bytes;
    }
    EXPECT_TRUE(told > 10 && made > 5) << told << ' ' << made << ": both sides of the edge were seen";
}

TEST_F(RankCardExport, AFullDiskIsToldAndLeavesNoHalfFile)
{
    FillTwoCards();
    try {
        const FileSizeLimit full(1024);
        Export();
        FAIL() << "exported onto a full disk";
    } catch (const ExportError& error) {
        EXPECT_EQ(error.Reason(), ExportError::Kind::DiskFull);
        EXPECT_TRUE(error.Description().contains(QStringLiteral("full")));
    }
    EXPECT_EQ(FilesLeft(), QStringList());
}

TEST_F(RankCardExport, TheFileIsNamedAfterTheRankCard)
{
    FillTwoCards();
    EXPECT_TRUE(QFileInfo(Export()).fileName().startsWith(QStringLiteral("Rank Card 2")));
    EXPECT_EQ(FilesLeft().size(), 1);
}

} // namespace
} // namespace tally::test
