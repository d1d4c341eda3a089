#include "reports/output/ExportGridToExcel.h"

#include "core/GridTable.h"
#include "core/ui/look/CellPaint.h"
#include "reports/output/ExportWorkbook.h"
#include "reports/output/SheetParts.h"
#include "reports/output/Workbook.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tally {

namespace {

constexpr int TitleRows = 6;

/// A visible column of the grid on its way to the sheet.
struct Column
{
    int source = 0;
    int longest = 0;
    bool identities = false; ///< all its texts stay texts, so that the column sorts and lines up as one
    CellStyle::Align align = CellStyle::Align::Left;

    double Width() const { return longest > 0 ? longest + WidthReserve : Workbook::StandardColumnWidth; }
};

CellStyle::Align AlignmentOf(Qt::Alignment shown, bool numbers)
{
    if (shown.testFlag(Qt::AlignHCenter))
        return CellStyle::Align::Center;
    return numbers || shown.testFlag(Qt::AlignRight) ? CellStyle::Align::Right : CellStyle::Align::Left;
}

std::vector<Column> VisibleColumns(const GridTable& grid, int lastRow, int lastCol)
{
    std::vector<Column> columns;
    for (int col = 0; col <= lastCol; ++col) {
        if (grid.Column(col).hidden)
            continue;
        Column column{.source = col};
        bool numbers = false;
        for (int row = 0; row <= lastRow; ++row) {
            if (grid.RowHidden(row))
                continue;
            const QString text = grid.Text(row, col).trimmed();
            column.longest = std::max(column.longest, static_cast<int>(text.size()));
            column.identities = column.identities || (row > 0 && IsIdentity(text));
            numbers = numbers || (row > 0 && IsNumber(text));
        }
        column.align = AlignmentOf(grid.Column(col).alignment, numbers && !column.identities);
        columns.push_back(column);
    }
    return columns;
}

std::array<QString, TitleRows> TitleTexts(const QString& title, const QString& subTitle)
{
    const auto [name, address, city] = SchoolHead();
    return {name, address, city, StampLine(), title, subTitle};
}

double WidthOfTitle(const std::vector<Column>& columns)
{
    double width = 0;
    for (std::size_t i = 0; i < TitleColumns; ++i)
        width += i < columns.size() ? columns[i].Width() : Workbook::StandardColumnWidth;
    return width;
}

void WriteTitles(Workbook& workbook, const std::array<QString, TitleRows>& texts,
                 const std::vector<Column>& columns)
{
    const double width = WidthOfTitle(columns);
    for (int row = 0; row < TitleRows; ++row) {
        CellStyle style{.align = CellStyle::Align::Center, .middle = true, .bold = row < SchoolHeadRows};
        WriteHeadLine(workbook, row, TitleColumns - 1, texts.at(static_cast<std::size_t>(row)), style, width);
        style.middle = false;
        for (int col = TitleColumns; col <= static_cast<int>(columns.size()); ++col)
            workbook.WriteText(row, col, {}, style);
    }
}

void WriteGrid(Workbook& workbook, const GridTable& grid, int lastRow, const std::vector<Column>& columns)
{
    const int count = static_cast<int>(columns.size());
    for (int row = 0; row <= lastRow; ++row) {
        const bool hidden = grid.RowHidden(row);
        for (int col = 0; col < count; ++col) {
            const Column& column = columns[static_cast<std::size_t>(col)];
            CellStyle style{.align = column.align, .middle = true, .bold = row == 0, .border = true};
            QString text;
            if (!hidden) {
                const CellMark mark = grid.Mark(row, column.source);
                const QColor fill = CellColor(mark);
                style.bold = style.bold || mark == CellMark::Sum;
                style.fill = fill.isValid() ? fill.rgb() : 0;
                text = grid.Text(row, column.source).trimmed();
            }
            if (row > 0 && !column.identities)
                WriteTyped(workbook, ListRow + row, col, text, style);
            else
                workbook.WriteText(ListRow + row, col, text, style);
        }
        if (row == 0)
            workbook.WriteText(ListRow, count, {}, {.bold = true});
    }
}

void WriteSheet(Workbook& workbook, const GridTable& grid, int lastRow, int lastCol, const QString& title,
                const QString& subTitle)
{
    const std::vector<Column> columns = VisibleColumns(grid, lastRow, lastCol);
    const int count = static_cast<int>(columns.size());
    double width = 0;
    for (int col = 0; col < count; ++col) {
        const Column& column = columns[static_cast<std::size_t>(col)];
        if (column.longest > 0)
            workbook.SetColumnWidth(col, column.Width());
        width += column.Width();
    }

    WriteTitles(workbook, TitleTexts(title, subTitle), columns);
    WriteGrid(workbook, grid, lastRow, columns);

    const int lastColumn = std::max(count, TitleColumns) - 1;
    workbook.FreezeRowsAbove(ListRow + 1);
    workbook.AllowDigitTexts(ListRow, ListRow + lastRow, lastColumn);
    workbook.SetUpPrint({.headRow = ListRow,
                         .lastRow = ListRow + lastRow,
                         .lastColumn = lastColumn,
                         .landscape = std::max(width, WidthOfTitle(columns)) > PortraitLetters,
                         .footer = title});
}

} // namespace

QString ExportGridToExcel(const GridTable& grid, int lastRow, int lastCol, const QString& title,
                          const QString& subTitle)
{
    return ExportWorkbook({title, subTitle}, [&](Workbook& workbook) {
        WriteSheet(workbook, grid, lastRow, lastCol, title, subTitle);
    });
}

void ExportReport(const GridTable& grid, const QString& title, const QString& subTitle)
{
    RunExport([&] { ExportGridToExcel(grid, grid.Rows() - 1, grid.Cols() - 1, title, subTitle); });
}

} // namespace tally
