#include "ranks/ExportFlexGridToExcel1.h"

#include "core/controls/FlexGrid.h"
#include "ranks/RankCards.h"
#include "reports/ExportWorkbook.h"
#include "reports/SheetParts.h"
#include "reports/Workbook.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace tally {

namespace {

// The rows of a card, counted from its first one.
constexpr int FirstStudentRow = 6;
constexpr int HeadRow = 10;
// From its last exam line on: room to sign, the signatures, and the next card.
constexpr int SignatureRow = 10;
constexpr int NextCard = 13;

constexpr int SchoolNamePoints = 16;
constexpr CellStyle StudentStyle{.middle = true};
constexpr double StudentRowHeight = 18;
constexpr double HeadRowHeight = 22;
constexpr double ExamRowHeight = 20;

const QString Signatures =
    QStringLiteral(" Principal:                   Class Teacher:                  Parents/Guardian:");

/// What a card says of its student, and the grid's column that it takes it from.
struct StudentText
{
    const char* label;
    int column;
};
constexpr std::array<StudentText, 4> StudentTexts{{{" Student Name : ", 1},
                                                   {"  Admission No : ", 2},
                                                   {"               Class : ", 3},
                                                   {"           Division : ", 4}}};

/// The exam lines of one student in the grid.
struct Card
{
    int firstRow = 0;
    int lines = 0;
};

bool IsExamLine(const FlexGrid& grid, int row)
{
    for (int col = 0; col < RankCardRows::FirstSubjectColumn; ++col) {
        if (!grid.TextMatrix(row, col).isEmpty())
            return true;
    }
    return false;
}

std::vector<Card> CardsOf(const FlexGrid& grid, int lastRow)
{
    std::vector<Card> cards;
    bool within = false;
    for (int row = RankCardRows::FirstLineRow; row <= lastRow; ++row) {
        const bool line = IsExamLine(grid, row);
        if (line && !within)
            cards.push_back({row});
        if (line)
            ++cards.back().lines;
        within = line;
    }
    return cards;
}

QString StudentLine(const FlexGrid& grid, const Card& card, const StudentText& text)
{
    return QString::fromLatin1(text.label) + grid.TextMatrix(card.firstRow, text.column);
}

/// The longest of all cards for each of the lines that tell the student.
std::vector<QString> LongestStudentLines(const FlexGrid& grid, const std::vector<Card>& cards)
{
    std::vector<QString> longest;
    for (const StudentText& text : StudentTexts) {
        QString& line = longest.emplace_back();
        for (const Card& card : cards) {
            QString other = StudentLine(grid, card, text);
            if (LettersOnPaper(other) > LettersOnPaper(line))
                line = std::move(other);
        }
    }
    return longest;
}

/// The lines under which a card begins: the school, and what else the caller puts there.
struct HeadLine
{
    QString text;
    CellStyle style;
};

std::vector<HeadLine> HeadLines(const QString& title, const QString& heading)
{
    std::vector<HeadLine> lines;
    for (const QString& text : SchoolHead())
        lines.push_back({text, {.align = CellStyle::Align::Center, .middle = true, .bold = true}});
    lines.front().style.points = SchoolNamePoints;
    for (const QString& text : {title, heading})
        lines.push_back({text, {.align = CellStyle::Align::Center, .middle = true}});
    return lines;
}

/// How the cards come to lie on their pages.
struct Page
{
    bool landscape = false;
    double scale = 1;           ///< of the standard size
    std::vector<double> points; ///< widths of the columns

    double Letters() const
    {
        double letters = 0;
        for (const double width : points)
            letters += Workbook::ColumnLetters(width);
        return letters;
    }
};

/// The least widths of the grid's columns from the subjects on that keep their texts apart.
std::vector<double> NeededPoints(const FlexGrid& grid, int lastRow, int lastCol)
{
    constexpr double RoomAroundText = 1.5;
    std::vector<double> points;
    for (int col = RankCardRows::FirstSubjectColumn; col <= lastCol; ++col) {
        qsizetype longest = 1;
        for (int row = 0; row <= lastRow; ++row) {
            if (grid.RowHeight(row) > 0)
                longest = std::max(longest, grid.TextMatrix(row, col).trimmed().size());
        }
        points.push_back(Workbook::ColumnPoints(static_cast<double>(longest) + RoomAroundText));
    }
    return points;
}

/// Printers and office programs differ a little in how wide a letter is.
constexpr double SureRoom = 0.96;

/// What all cards have to fit on their pages.
struct CardSize
{
    std::vector<double> neededPoints; ///< widths of the columns
    std::vector<HeadLine> headLines;
    std::vector<QString> studentLines;
    int examLines = 0;
};

Page FitPage(bool landscape, const CardSize& card)
{
    const std::vector<double>& neededPoints = card.neededPoints;
    const QSizeF room = Workbook::PrintableArea(landscape) * SureRoom;
    double needed = 0;
    for (const double points : neededPoints)
        needed += points;
    Page page{.landscape = landscape, .scale = std::min(1.0, room.width() / needed), .points = neededPoints};
    // The card spans the page, so that the school's head and the signatures have room on a narrow one too.
    const auto span = [&] {
        for (std::size_t col = 0; col < page.points.size(); ++col)
            page.points[col] = neededPoints[col] * room.width() / page.scale / needed;
    };
    span();

    double height = HeadRowHeight + card.examLines * ExamRowHeight;
    for (const HeadLine& line : card.headLines)
        height += HeadLineHeight(line.text, line.style, page.Letters());
    for (const QString& line : card.studentLines)
        height += HeadLineHeight(line, StudentStyle, page.Letters(), StudentRowHeight);
    const auto plainRows = FirstStudentRow - static_cast<int>(card.headLines.size()) + NextCard - 1;
    height += plainRows * Workbook::StandardRowHeight;
    if (height * page.scale > room.height()) {
        page.scale = room.height() / height;
        span();
    }
    return page;
}

Page BestPage(const CardSize& card)
{
    Page portrait = FitPage(false, card);
    Page landscape = FitPage(true, card);
    return landscape.scale > portrait.scale ? landscape : portrait;
}

class CardWriter
{
public:
    CardWriter(Workbook& workbook, const FlexGrid& grid, int lastCol, std::vector<HeadLine> headLines,
               const Page& page)
        : workbook_(workbook), grid_(grid), lastCol_(lastCol), headLines_(std::move(headLines)), page_(page),
          letters_(page.Letters())
    {}

    void Write(const std::vector<Card>& cards)
    {
        for (const Card& card : cards) {
            if (static_cast<int>(newPage_.size()) == Workbook::MostPageBreaks) {
                FinishSheet();
                workbook_.NewSheet();
            }
            if (row_ > 0)
                newPage_.push_back(row_);
            WriteCard(card);
        }
        FinishSheet();
    }

private:
    int LastSheetColumn() const { return lastCol_ - RankCardRows::FirstSubjectColumn; }

    void WriteCard(const Card& card)
    {
        for (const HeadLine& line : headLines_)
            WriteHeadLine(workbook_, row_++, LastSheetColumn(), line.text, line.style, letters_);
        row_ += FirstStudentRow - static_cast<int>(headLines_.size());
        for (const StudentText& text : StudentTexts)
            WriteHeadLine(workbook_, row_++, LastSheetColumn(), StudentLine(grid_, card, text), StudentStyle,
                          letters_, StudentRowHeight);
        WriteLine(0, HeadRowHeight);
        for (int line = 0; line < card.lines; ++line)
            WriteLine(card.firstRow + line, ExamRowHeight);
        const int lastLine = row_ - 1;
        workbook_.WriteText(lastLine + SignatureRow, 0, Signatures, {});
        row_ = lastLine + NextCard;
    }

    void WriteLine(int gridRow, double height)
    {
        workbook_.SetRowHeight(row_, height);
        CellStyle style{.align = CellStyle::Align::Center, .middle = true, .border = true};
        style.bold = gridRow == 0;
        for (int col = 0; col <= LastSheetColumn(); ++col) {
            const QString text = grid_.TextMatrix(gridRow, RankCardRows::FirstSubjectColumn + col).trimmed();
            if (gridRow == 0)
                workbook_.WriteText(row_, col, text, style);
            else
                WriteTyped(workbook_, row_, col, text, style);
        }
        ++row_;
    }

    void FinishSheet()
    {
        for (int col = 0; col <= LastSheetColumn(); ++col)
            workbook_.SetColumnWidth(col,
                                     Workbook::ColumnLetters(page_.points[static_cast<std::size_t>(col)]));
        workbook_.SetUpPrint(
            {.lastRow = std::max(0, row_ - 1),
             .lastColumn = LastSheetColumn(),
             .landscape = page_.landscape,
             .percent = std::max(Workbook::LeastPercent, static_cast<int>(std::floor(page_.scale * 100))),
             .newPage = std::move(newPage_)});
        newPage_.clear();
        row_ = 0;
    }

    Workbook& workbook_;
    const FlexGrid& grid_;
    const int lastCol_;
    const std::vector<HeadLine> headLines_;
    const Page& page_;
    const double letters_; ///< over the whole width of a card
    int row_ = 0;
    std::vector<int> newPage_;
};

} // namespace

QString ExportFlexGridToExcel1(const FlexGrid& grid, int lastRow, int lastCol, const QString& title,
                               const QString& heading, int examCount)
{
    const std::vector<Card> cards = CardsOf(grid, lastRow);
    const std::vector<HeadLine> headLines = HeadLines(title, heading);
    const Page page = BestPage(
        {NeededPoints(grid, lastRow, lastCol), headLines, LongestStudentLines(grid, cards), examCount});

    const auto columns = static_cast<qint64>(page.points.size());
    const auto fullRows = static_cast<qint64>(headLines.size() + StudentTexts.size()) + 1 + examCount;
    const qint64 cellsOfCard = fullRows * columns + 1; // the signatures
    ExportSubject subject{title.isEmpty() ? QStringLiteral("Rank Card") : title, heading,
                          cellsOfCard * static_cast<qint64>(cards.size())};
    return ExportWorkbook(subject, [&](Workbook& workbook) {
        CardWriter(workbook, grid, lastCol, headLines, page).Write(cards);
    });
}

} // namespace tally
