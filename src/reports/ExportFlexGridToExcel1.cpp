#include "reports/ExportFlexGridToExcel1.h"

#include "reports/output/ExportWorkbook.h"
#include "reports/output/SheetParts.h"
#include "reports/output/Workbook.h"
#include "reports/SetupReport.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace tally {

namespace {

using Kind = SetupSheetLine::Kind;

// In a heading the class spans the columns up to the fourth, the division the two behind them.
constexpr int LastClassColumn = 3;
constexpr int LastDivisionColumn = 5;
constexpr int TotalColumn = 5;

/// In letters, by the longest text of each column. A heading spans several and has room in any case.
std::vector<double> Widths(const std::vector<SetupSheetLine>& lines, int columns)
{
    std::vector<double> widths(static_cast<std::size_t>(columns), Workbook::StandardColumnWidth);
    for (const SetupSheetLine& line : lines)
        if (line.kind == Kind::Head || line.kind == Kind::Subject)
            for (qsizetype col = 0; col < line.texts.size(); ++col) {
                double& width = widths[static_cast<std::size_t>(col)];
                width = std::max(width, static_cast<double>(line.texts[col].size()) + WidthReserve);
            }
    return widths;
}

void WriteTitles(Workbook& workbook, const QString& title, const QString& subTitle, double width)
{
    int row = 0;
    for (const QString& text : SchoolHead())
        WriteHeadLine(workbook, row++, TitleColumns - 1, text,
                      {.align = CellStyle::Align::Center, .middle = true, .bold = true}, width);
    WriteHeadLine(workbook, row++, TitleColumns - 1, StampLine(),
                  {.align = CellStyle::Align::Right, .middle = true}, width);
    for (const QString& text : {title, subTitle})
        WriteHeadLine(workbook, row++, TitleColumns - 1, text,
                      {.align = CellStyle::Align::Center, .middle = true}, width);
}

void WriteHeading(Workbook& workbook, int row, int columns, const QStringList& texts)
{
    const CellStyle style{.middle = true, .bold = true, .border = true, .text = true};
    workbook.WriteMerged(row, 0, LastClassColumn, QStringLiteral("Class : ") + texts[0], style);
    workbook.WriteMerged(row, LastClassColumn + 1, LastDivisionColumn,
                         QStringLiteral("Division :") + texts[1], style);
    for (int col = LastDivisionColumn + 1; col < columns; ++col)
        workbook.WriteText(row, col, {}, style);
}

void WriteTotal(Workbook& workbook, int row, int columns, const QString& sum)
{
    const CellStyle style{.align = CellStyle::Align::Right, .middle = true, .bold = true, .border = true};
    for (int col = 0; col < columns; ++col)
        if (col == TotalColumn)
            WriteTyped(workbook, row, col, sum, style);
        else
            workbook.WriteText(row, col, col == TotalColumn - 1 ? QStringLiteral("Total :") : QString(),
                               style);
}

void WriteCells(Workbook& workbook, int row, const SetupSheetLine& line)
{
    for (int col = 0; col < static_cast<int>(line.texts.size()); ++col) {
        const QString& text = line.texts[col];
        const bool number = line.kind == Kind::Subject && IsNumber(text);
        const CellStyle style{.align = number ? CellStyle::Align::Right : CellStyle::Align::Left,
                              .middle = true,
                              .bold = line.kind == Kind::Head,
                              .border = true};
        if (number)
            WriteTyped(workbook, row, col, text, style);
        else
            workbook.WriteText(row, col, text, style);
    }
}

void WriteSheet(Workbook& workbook, const std::vector<SetupSheetLine>& lines, const QString& title,
                const QString& subTitle)
{
    const int columns = static_cast<int>(lines.front().texts.size());
    const std::vector<double> widths = Widths(lines, columns);
    for (int col = 0; col < columns; ++col)
        workbook.SetColumnWidth(col, widths[static_cast<std::size_t>(col)]);
    const double beside = std::max(0, TitleColumns - columns) * Workbook::StandardColumnWidth;
    const double width = std::accumulate(widths.begin(), widths.end(), beside);
    WriteTitles(workbook, title, subTitle, width);

    int row = ListRow;
    for (const SetupSheetLine& line : lines) {
        switch (line.kind) {
        case Kind::Heading: WriteHeading(workbook, row, columns, line.texts); break;
        case Kind::Total: WriteTotal(workbook, row, columns, line.texts.front()); break;
        case Kind::Head:
        case Kind::Subject: WriteCells(workbook, row, line); break;
        }
        ++row;
    }

    workbook.FreezeRowsAbove(ListRow + 1);
    workbook.SetUpPrint({.headRow = ListRow,
                         .lastRow = row - 1,
                         .lastColumn = std::max(columns, TitleColumns) - 1,
                         .landscape = width > PortraitLetters,
                         .footer = title});
}

} // namespace

QString ExportFlexGridToExcel1(const GridTable& grid, int lastRow, int lastCol, const QString& title,
                               const QString& subTitle)
{
    const std::vector<SetupSheetLine> lines = SetupSheetLines(grid, lastRow, lastCol);
    return ExportWorkbook({title, subTitle},
                          [&](Workbook& workbook) { WriteSheet(workbook, lines, title, subTitle); });
}

} // namespace tally
