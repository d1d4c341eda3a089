#include "ranks/ExportFlexGridToExcel1.h"

#include "ranks/RankCards.h"
#include "reports/output/ExportWorkbook.h"
#include "reports/output/SheetParts.h"
#include "reports/output/Workbook.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
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

// Every row has a height of its own: an office program makes a row of the standard height as high as its
// font, and a row more here and there would push the signatures off the page.
constexpr double PlainRowHeight = Workbook::StandardRowHeight + 1;
constexpr double StudentRowHeight = 18;
constexpr double HeadRowHeight = 22;
constexpr double ExamRowHeight = 20;

// The widths of columns, in points. A text in a wider font than the standard one becomes smaller in its
// column; the exam goes on in a second line instead.
constexpr double RoomAroundText = 9;
constexpr double RoomAroundExam = 14;
constexpr double WidestExam = 20 * Workbook::LetterPoints;
/// The part of a line that words fill before the next one no longer fits.
constexpr double FilledLine = 0.75;
constexpr CellStyle ExamNameStyle{
    .align = CellStyle::Align::Center, .middle = true, .border = true, .wrap = true};

constexpr int ExamColumn = static_cast<int>(CardColumn::Exam);
constexpr int FirstSubject = static_cast<int>(CardColumn::FirstSubject);

const QString Signatures =
    QStringLiteral(" Principal:                   Class Teacher:                  Parents/Guardian:");

/// What a card says of its student, and the grid's column that it takes it from.
struct StudentText
{
    const char* label;
    CardColumn column;
};
constexpr std::array<StudentText, 4> StudentTexts{{{" Student Name : ", CardColumn::StudentName},
                                                   {"  Admission No : ", CardColumn::AdmissionNo},
                                                   {"               Class : ", CardColumn::Class},
                                                   {"           Division : ", CardColumn::Division}}};

/// The exam lines of one student in the grid.
struct Card
{
    int firstRow = 0;
    int lines = 0;
};

bool IsExamLine(const GridTable& grid, int row)
{
    for (int col = 0; col < FirstSubject; ++col) {
        if (!grid.Text(row, col).isEmpty())
            return true;
    }
    return false;
}

std::vector<Card> CardsOf(const GridTable& grid, int lastRow)
{
    std::vector<Card> cards;
    bool within = false;
    for (int row = RankCardGrid::FirstLineRow; row <= lastRow; ++row) {
        const bool line = IsExamLine(grid, row);
        if (line && !within)
            cards.push_back({row});
        if (line)
            ++cards.back().lines;
        within = line;
    }
    return cards;
}

/// The grid's columns in the order of the sheet's: those from the subjects on, and last what exam the line
/// is.
std::vector<int> SheetColumns(int lastCol)
{
    std::vector<int> columns;
    for (int col = FirstSubject; col <= lastCol; ++col)
        columns.push_back(col);
    columns.push_back(ExamColumn);
    return columns;
}

QString CellText(const GridTable& grid, int row, int col)
{
    if (row == 0 && col == ExamColumn)
        return QStringLiteral("Exam");
    return grid.Text(row, col).trimmed();
}

QString StudentLine(const GridTable& grid, const Card& card, const StudentText& text)
{
    return QString::fromLatin1(text.label) + grid.Text(card.firstRow, text.column);
}

/// The longest of all cards for each of the lines that tell the student.
std::vector<QString> LongestStudentLines(const GridTable& grid, const std::vector<Card>& cards)
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

    double examLineHeight = 0;

    /// As many go into a line over all columns, whatever the font.
    double Letters() const
    {
        return std::accumulate(points.begin(), points.end(), 0.0) / Workbook::WidestLetterPoints;
    }
};

/// The least widths of the sheet's columns that keep their texts apart.
std::vector<double> NeededPoints(const GridTable& grid, int lastRow, const std::vector<int>& columns)
{
    std::vector<double> points;
    for (const int col : columns) {
        double letters = 1;
        for (int row = 0; row <= lastRow; ++row) {
            if (!grid.RowHidden(row))
                letters = std::max(letters, LettersOnPaper(CellText(grid, row, col)));
        }
        const double width = letters * Workbook::LetterPoints;
        points.push_back(col == ExamColumn ? std::min(width, WidestExam) + RoomAroundExam
                                           : width + RoomAroundText);
    }
    return points;
}

QString LongestExam(const GridTable& grid, int lastRow)
{
    QString longest;
    for (int row = RankCardGrid::FirstLineRow; row <= lastRow; ++row) {
        QString exam = CellText(grid, row, ExamColumn);
        if (LettersOnPaper(exam) > LettersOnPaper(longest))
            longest = std::move(exam);
    }
    return longest;
}

/// The height of an exam line whose exam has a column of `points`.
double ExamLineHeight(const QString& exam, double points)
{
    const double letters = (points - RoomAroundExam) / Workbook::WidestLetterPoints;
    return LettersOnPaper(exam) <= letters
               ? ExamRowHeight
               : std::max(ExamRowHeight, HeadLineHeight(exam, ExamNameStyle, FilledLine * letters));
}

/// Printers and office programs differ a little in how wide a letter is.
constexpr double SureRoom = 0.96;

/// What all cards have to fit on their pages.
struct CardSize
{
    std::vector<double> neededPoints; ///< widths of the columns
    std::vector<HeadLine> headLines;
    std::vector<QString> studentLines;
    QString longestExam;
    int examLines = 0;
};

Page FitPage(bool landscape, const CardSize& card)
{
    const std::vector<double>& neededPoints = card.neededPoints;
    const QSizeF room = Workbook::PrintableArea(landscape) * SureRoom;
    const double needed = std::accumulate(neededPoints.begin(), neededPoints.end(), 0.0);
    Page page{.landscape = landscape,
              .scale = std::min(1.0, room.width() / needed),
              .points = neededPoints,
              .examLineHeight = 0};
    // The card spans the page, so that the school's head and the signatures have room on a narrow one too.
    const auto span = [&] {
        for (std::size_t col = 0; col < page.points.size(); ++col)
            page.points[col] = neededPoints[col] * room.width() / page.scale / needed;
    };
    span();

    page.examLineHeight = ExamLineHeight(card.longestExam, page.points.back());
    double height = HeadRowHeight + card.examLines * page.examLineHeight;
    for (const HeadLine& line : card.headLines)
        height += HeadLineHeight(line.text, line.style, page.Letters(), PlainRowHeight);
    for (const QString& line : card.studentLines)
        height += HeadLineHeight(line, StudentStyle, page.Letters(), StudentRowHeight);
    const auto plainRows = FirstStudentRow - static_cast<int>(card.headLines.size()) + NextCard - 1;
    height += plainRows * PlainRowHeight;
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
    CardWriter(Workbook& workbook, const GridTable& grid, std::vector<int> columns, const CardSize& card,
               const Page& page)
        : workbook_(workbook), grid_(grid), columns_(std::move(columns)), card_(card), page_(page),
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
    int LastSheetColumn() const { return static_cast<int>(columns_.size()) - 1; }

    void WriteCard(const Card& card)
    {
        for (const HeadLine& line : card_.headLines)
            WriteHeadLine(workbook_, row_++, LastSheetColumn(), line.text, line.style, letters_,
                          PlainRowHeight);
        WritePlainRows(FirstStudentRow - static_cast<int>(card_.headLines.size()));
        for (const StudentText& text : StudentTexts)
            WriteHeadLine(workbook_, row_++, LastSheetColumn(), StudentLine(grid_, card, text), StudentStyle,
                          letters_, StudentRowHeight);
        WriteLine(0, HeadRowHeight);
        for (int line = 0; line < card.lines; ++line)
            WriteLine(card.firstRow + line, page_.examLineHeight);
        WritePlainRows(SignatureRow);
        workbook_.WriteText(row_ - 1, 0, Signatures, {});
        WritePlainRows(NextCard - SignatureRow - 1);
    }

    void WritePlainRows(int count)
    {
        for (int row = 0; row < count; ++row)
            workbook_.SetRowHeight(row_++, PlainRowHeight);
    }

    void WriteLine(int gridRow, double height)
    {
        workbook_.SetRowHeight(row_, height);
        CellStyle style{.align = CellStyle::Align::Center, .middle = true, .border = true, .shrink = true};
        CellStyle examStyle = ExamNameStyle;
        style.bold = examStyle.bold = gridRow == 0;
        for (int col = 0; col <= LastSheetColumn(); ++col) {
            const int gridCol = columns_[static_cast<std::size_t>(col)];
            const QString text = CellText(grid_, gridRow, gridCol);
            if (gridCol == ExamColumn)
                workbook_.WriteText(row_, col, text, examStyle);
            else if (gridRow == 0)
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
    const GridTable& grid_;
    const std::vector<int> columns_; ///< of the grid, in the sheet's order
    const CardSize& card_;
    const Page& page_;
    const double letters_; ///< over the whole width of a card
    int row_ = 0;
    std::vector<int> newPage_;
};

} // namespace

QString ExportFlexGridToExcel1(const GridTable& grid, int lastRow, int lastCol, const QString& title,
                               const QString& heading, int examCount)
{
    const std::vector<Card> cards = CardsOf(grid, lastRow);
    const std::vector<int> columns = SheetColumns(lastCol);
    const CardSize size{NeededPoints(grid, lastRow, columns), HeadLines(title, heading),
                        LongestStudentLines(grid, cards), LongestExam(grid, lastRow), examCount};
    const Page page = BestPage(size);

    const ExportSubject subject{title.isEmpty() ? QStringLiteral("Rank Card") : title, heading};
    return ExportWorkbook(subject, [&](Workbook& workbook) {
        workbook.BoundColumns();
        CardWriter(workbook, grid, columns, size, page).Write(cards);
    });
}

} // namespace tally
