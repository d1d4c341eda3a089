#include "reports/ExportGridToExcel.h"

#include "core/controls/FlexGrid.h"
#include "core/controls/HourGlass.h"
#include "core/modTallyboard.h"
#include "core/OpenDocument.h"
#include "core/Prompts.h"
#include "core/SessionContext.h"
#include "reports/Workbook.h"

#include <QDateTime>
#include <QDir>
#include <QLocale>
#include <QStorageInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace tally {

namespace {

constexpr int TitleRows = 6;
constexpr int BoldTitleRows = 3;
/// The title rows span these columns, however many the grid has.
constexpr int TitleColumns = 9;
/// The sheet row of the grid's row 0.
constexpr int FirstGridRow = 6;
constexpr double WidthReserve = 3.5;
/// What fits on a portrait page in letters without becoming too small to read.
constexpr double PortraitLetters = 100;
/// Office programs keep no more digits of a number.
constexpr int MostDigits = 15;

bool IsDigit(QChar letter)
{
    return letter >= u'0' && letter <= u'9';
}

/// A text of digits that stands for a person or a thing and not for an amount: 0042, or a long card number.
bool IsIdentity(const QString& text)
{
    return text.size() > 1 && (text.front() == u'0' || text.size() > MostDigits) &&
           std::all_of(text.begin(), text.end(), IsDigit);
}

struct NumberText
{
    double value = 0;
    int decimals = 0;
};

/// A number that a cell can hold and show just as it is written here; none for any other text.
std::optional<NumberText> AsNumber(const QString& text)
{
    const qsizetype first = text.startsWith(u'-') ? 1 : 0;
    const qsizetype point = text.indexOf(u'.');
    const qsizetype wholeEnd = point < 0 ? text.size() : point;
    const qsizetype decimals = point < 0 ? 0 : text.size() - point - 1;
    if (wholeEnd == first || (point >= 0 && decimals == 0) || wholeEnd - first + decimals > MostDigits)
        return std::nullopt;
    if (text.at(first) == u'0' && wholeEnd - first > 1)
        return std::nullopt;
    for (qsizetype i = first; i < text.size(); ++i) {
        if (i != point && !IsDigit(text.at(i)))
            return std::nullopt;
    }
    return NumberText{text.toDouble(), static_cast<int>(decimals)};
}

/// A visible column of the grid on its way to the sheet.
struct Column
{
    int source = 0;
    int longest = 0;
    bool identities = false; ///< all its texts stay texts, so that the column sorts and lines up as one
    CellStyle::Align align = CellStyle::Align::Left;

    double Width() const { return longest > 0 ? longest + WidthReserve : Workbook::StandardColumnWidth; }
};

CellStyle::Align AlignmentOf(const FlexGrid& grid, int col, bool numbers)
{
    const auto shown =
        Qt::Alignment::fromInt(grid.model()->headerData(col, Qt::Horizontal, Qt::TextAlignmentRole).toInt());
    if (shown.testFlag(Qt::AlignHCenter))
        return CellStyle::Align::Center;
    return numbers || shown.testFlag(Qt::AlignRight) ? CellStyle::Align::Right : CellStyle::Align::Left;
}

std::vector<Column> VisibleColumns(const FlexGrid& grid, int lastRow, int lastCol)
{
    std::vector<Column> columns;
    for (int col = 0; col <= lastCol; ++col) {
        if (grid.ColWidth(col) == 0)
            continue;
        Column column{.source = col};
        bool numbers = false;
        for (int row = 0; row <= lastRow; ++row) {
            if (grid.RowHeight(row) <= 0)
                continue;
            const QString text = grid.TextMatrix(row, col).trimmed();
            column.longest = std::max(column.longest, static_cast<int>(text.size()));
            column.identities = column.identities || (row > 0 && IsIdentity(text));
            numbers = numbers || (row > 0 && AsNumber(text));
        }
        column.align = AlignmentOf(grid, col, numbers && !column.identities);
        columns.push_back(column);
    }
    return columns;
}

std::array<QString, TitleRows> TitleTexts(const QString& title, const QString& subTitle)
{
    const SessionContext& session = Session();
    const QDateTime now = QDateTime::currentDateTime();
    return {session.gstrSchoolName,
            session.gstrSchoolAddress,
            session.gstrSchoolCity,
            QStringLiteral("User Name : %1    Date : %2    Time : %3")
                .arg(session.gstrUserName, ShownDate(now.date()),
                     QLocale::c().toString(now.time(), QStringLiteral("hh:mm AP"))),
            title,
            subTitle};
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
        const QString& text = texts.at(static_cast<std::size_t>(row));
        CellStyle style{.align = CellStyle::Align::Center, .middle = true, .bold = row < BoldTitleRows};
        // A merged cell cuts its text at its edges, and a list of many divisions may be longer.
        const int lines = 1 + static_cast<int>(static_cast<double>(text.size()) / width);
        if (lines > 1) {
            style.wrap = true;
            workbook.SetRowHeight(row, lines * Workbook::StandardRowHeight);
        }
        workbook.WriteMerged(row, 0, TitleColumns - 1, text, style);
        style.middle = false;
        for (int col = TitleColumns; col <= static_cast<int>(columns.size()); ++col)
            workbook.WriteText(row, col, {}, style);
    }
}

void WriteCell(Workbook& workbook, int row, int col, const QString& text, CellStyle style, bool mayBeNumber)
{
    const std::optional<NumberText> number = mayBeNumber ? AsNumber(text) : std::nullopt;
    if (number) {
        style.decimals = number->decimals;
        workbook.WriteNumber(row, col, number->value, style);
    } else {
        workbook.WriteText(row, col, text, style);
    }
}

void WriteGrid(Workbook& workbook, const FlexGrid& grid, int lastRow, const std::vector<Column>& columns)
{
    const int count = static_cast<int>(columns.size());
    for (int row = 0; row <= lastRow; ++row) {
        const bool hidden = grid.RowHeight(row) <= 0;
        for (int col = 0; col < count; ++col) {
            const Column& column = columns[static_cast<std::size_t>(col)];
            CellStyle style{.align = column.align, .middle = true, .bold = row == 0, .border = true};
            QString text;
            if (!hidden) {
                const CellMark mark = grid.Mark(row, column.source);
                const QColor fill = CellColor(mark);
                style.bold = style.bold || mark == CellMark::Sum;
                style.fill = fill.isValid() ? fill.rgb() : 0;
                text = grid.TextMatrix(row, column.source).trimmed();
            }
            WriteCell(workbook, FirstGridRow + row, col, text, style, row > 0 && !column.identities);
        }
        if (row == 0)
            workbook.WriteText(FirstGridRow, count, {}, {.bold = true});
    }
}

void WriteSheet(Workbook& workbook, const FlexGrid& grid, int lastRow, int lastCol, const QString& title,
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
    workbook.FreezeRowsAbove(FirstGridRow + 1);
    workbook.AllowDigitTexts(FirstGridRow, FirstGridRow + lastRow, lastColumn);
    workbook.SetUpPrint({.headRow = FirstGridRow,
                         .lastRow = FirstGridRow + lastRow,
                         .lastColumn = lastColumn,
                         .landscape = std::max(width, WidthOfTitle(columns)) > PortraitLetters,
                         .footer = title});
}

/// A name that every file system takes.
QString FileName(const QString& title)
{
    constexpr int LongestTitle = 70;
    QString name = title.simplified().left(LongestTitle);
    for (QChar& letter : name) {
        if (QStringLiteral("/\\:*?\"<>|").contains(letter) || !letter.isPrint())
            letter = u'-';
    }
    return name + QDateTime::currentDateTime().toString(QStringLiteral(" yyyy-MM-dd HH.mm.ss"));
}

/// Gives the finished file its name, which no other client may have taken meanwhile.
QString MoveIntoPlace(const QString& file, const QDir& folder, const QString& name)
{
    constexpr int MostTries = 1000;
    for (int number = 1; number < MostTries; ++number) {
        const QString suffix = number > 1 ? QStringLiteral(" (%1)").arg(number) : QString();
        const QString path = folder.filePath(name + suffix + QStringLiteral(".xlsx"));
        if (QFile::rename(file, path))
            return path;
        if (!QFile::exists(path))
            break;
    }
    throw ExportError(
        ExportError::Kind::FolderNotWritable,
        QStringLiteral("The workbook could not be saved in the folder \"%1\".").arg(folder.path()));
}

ExportError FullDisk(const QDir& folder)
{
    return {ExportError::Kind::DiskFull,
            QStringLiteral("The workbook could not be written. The disk of the folder \"%1\" may be full.")
                .arg(folder.path())};
}

/// The writer of workbooks does not notice when its working files are cut short, so there must be room for
/// all of them beforehand.
void RequireRoom(const QDir& folder, int rows, int cols)
{
    constexpr qint64 BytesForACell = 200;
    constexpr qint64 BytesForTheRest = 1024 * 1024;
    const qint64 needed = BytesForTheRest + BytesForACell * rows * cols;
    const QStorageInfo disk(folder.path());
    if (disk.isValid() && disk.bytesAvailable() < needed)
        throw FullDisk(folder);
}

} // namespace

ExportError::ExportError(Kind kind, QString description)
    : kind_(kind), description_(std::move(description)), what_(description_.toUtf8())
{}

QString ExportGridToExcel(const FlexGrid& grid, int lastRow, int lastCol, const QString& title,
                          const QString& subTitle)
{
    if (!HasSpreadsheetProgram())
        throw ExportError(ExportError::Kind::NoSpreadsheetProgram,
                          QStringLiteral("This machine has no program for spreadsheets."));

    const QDir folder(ExportFolder());
    // All work is done in a folder of its own beside the result: it is cleared on every way out, and the
    // finished file only needs a new name.
    const bool made = folder.mkpath(QStringLiteral("."));
    const QTemporaryDir work(folder.filePath(QStringLiteral(".export-XXXXXX")));
    if (!made || !work.isValid())
        throw ExportError(
            ExportError::Kind::FolderNotWritable,
            QStringLiteral("Workbooks are saved in the folder \"%1\", but nothing can be written there.")
                .arg(folder.path()));
    RequireRoom(folder, lastRow + 1, lastCol + 1);

    const QString draft = work.filePath(QStringLiteral("workbook.xlsx"));
    try {
        Workbook workbook(draft, work.path(),
                          {.title = title,
                           .subject = subTitle,
                           .author = Session().gstrUserName,
                           .company = Session().gstrSchoolName});
        WriteSheet(workbook, grid, lastRow, lastCol, title, subTitle);
        workbook.Finish();
    } catch (const WorkbookError&) {
        throw FullDisk(folder);
    }

    const QString path = MoveIntoPlace(draft, folder, FileName(title));
    if (!OpenSpreadsheet(path))
        throw ExportError(
            ExportError::Kind::NotOpened,
            QStringLiteral("The workbook is saved as \"%1\", but the program for spreadsheets did not start.")
                .arg(path));
    return path;
}

void ExportReport(const FlexGrid& grid, const QString& title, const QString& subTitle)
{
    try {
        const HourGlass hourGlass;
        ExportGridToExcel(grid, grid.Rows() - 1, grid.Cols() - 1, title, subTitle);
    } catch (const ExportError& error) {
        if (error.Reason() == ExportError::Kind::NoSpreadsheetProgram)
            Prompts::Information(QStringLiteral("If You Want To Use Export Option, Microsoft Excel Is Needed "
                                                "To Be Installed In Your System"));
        else
            Prompts::Critical(error.Description());
    } catch (const std::exception& error) {
        Prompts::Critical(QString::fromUtf8(error.what()));
    }
}

} // namespace tally
