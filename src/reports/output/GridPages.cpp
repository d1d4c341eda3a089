#include "reports/output/GridPages.h"

#include "core/modTallyboard.h"
#include "core/SessionContext.h"
#include "core/ui/look/CellPaint.h"

#include <QApplication>
#include <QDate>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace tally {

namespace {

// Everything is counted in points, a 72nd of an inch, whatever the printer's own dots are.
constexpr double PointsPerInch = 72;
constexpr int LetterSize = 10;
constexpr int SchoolSize = 14;
constexpr int FooterSize = 8;
constexpr double Padding = 3;
constexpr double WidestColumn = 220;
constexpr double UprightWidth = 523; ///< of an A4 page between usual margins
constexpr double LineWidth = 0.5;
constexpr double FooterHeight = 20;
constexpr double Endless = 1e6; ///< room for texts whose height is to be found
constexpr int HeadFlags = Qt::AlignHCenter | Qt::TextWordWrap;

const QColor Ink = Qt::black;
const QColor Rule(0x90, 0x98, 0xa0);
const QColor HeadGround(0xea, 0xee, 0xf2);

QFont PaperFont(int size, bool bold = false)
{
    QFont font = QApplication::font();
    // Paper has other dots than the display, so letters must not keep to those of the display.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(size);
    font.setBold(bold);
    return font;
}

QFont CellLetters(CellMark mark)
{
    const QFont marked = CellFont(mark);
    QFont font = PaperFont(LetterSize, marked.bold());
    font.setItalic(marked.italic());
    return font;
}

struct HeadLine
{
    QString text;
    int size;
    bool bold;
};

std::vector<HeadLine> HeadLines(const QString& title, const QString& subTitle)
{
    const SessionContext& session = Session();
    std::vector<HeadLine> lines{{session.gstrSchoolName, SchoolSize, true},
                                {session.gstrSchoolAddress, LetterSize, false},
                                {session.gstrSchoolCity, LetterSize, false},
                                {title, LetterSize + 1, true},
                                {subTitle, LetterSize, false}};
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [](const HeadLine& line) { return line.text.trimmed().isEmpty(); }),
                lines.end());
    return lines;
}

double HeightOf(const HeadLine& line, double width)
{
    constexpr double Gap = 2;
    return QFontMetricsF(PaperFont(line.size, line.bold))
               .boundingRect(QRectF(0, 0, width, Endless), HeadFlags, line.text)
               .height() +
           Gap;
}

/// With the room below them.
double HeightOf(const std::vector<HeadLine>& lines, double width)
{
    double height = Padding;
    for (const HeadLine& line : lines)
        height += HeightOf(line, width);
    return height;
}

void PaintHeadLines(QPainter& painter, const std::vector<HeadLine>& lines, double width)
{
    painter.setPen(Ink);
    double top = 0;
    for (const HeadLine& line : lines) {
        const double height = HeightOf(line, width);
        painter.setFont(PaperFont(line.size, line.bold));
        painter.drawText(QRectF(0, top, width, height), HeadFlags, line.text);
        top += height;
    }
}

void PaintFooter(QPainter& painter, const QRectF& room, const QString& title, const QString& page)
{
    painter.setPen(Ink);
    painter.setFont(PaperFont(FooterSize));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignBottom,
                     title + QStringLiteral("    ") + ShownDate(QDate::currentDate()));
    painter.drawText(room, Qt::AlignRight | Qt::AlignBottom, page);
}

/// The text with places to break, which nobody sees, in words that are too long for a line.
QString Breakable(QString text)
{
    static const QRegularExpression longPiece(QStringLiteral("(\\S{16})(?=\\S)"));
    return text.replace(longPiece, QStringLiteral("\\1\u200b"));
}

bool IsEmptyRow(const GridTable& grid, int row)
{
    for (int col = 0; col < grid.Cols(); ++col)
        if (!grid.Column(col).hidden && !grid.Text(row, col).trimmed().isEmpty())
            return false;
    return true;
}

} // namespace

GridPages::GridPages(const GridTable& grid, const QString& title, const QString& subTitle)
    : grid_(grid), title_(title), subTitle_(subTitle)
{
    int last = grid_.Rows() - 1;
    while (last > 0 && IsEmptyRow(grid_, last))
        --last;
    for (int row = 1; row <= last; ++row)
        if (!grid_.RowHidden(row))
            rows_.push_back(row);

    const QFontMetricsF bold(PaperFont(LetterSize, true));
    const QFontMetricsF plain(PaperFont(LetterSize));
    for (int col = 0; col < grid_.Cols(); ++col) {
        if (grid_.Column(col).hidden)
            continue;
        double width = bold.horizontalAdvance(grid_.Text(0, col).trimmed());
        for (const int row : rows_) {
            const QString text = grid_.Text(row, col).trimmed();
            width = std::max(width, grid_.Mark(row, col) == CellMark::None ? plain.horizontalAdvance(text)
                                                                           : bold.horizontalAdvance(text));
        }
        width = std::ceil(width) + 2 * Padding + 1;
        columns_.push_back({col, std::min(width, WidestColumn), width > WidestColumn});
        width_ += columns_.back().width;
    }
    headHeight_ = RowHeight(0);
    for (const int row : rows_)
        heights_.push_back(RowHeight(row));
}

QString GridPages::CellText(int row, const Column& column) const
{
    const QString text = grid_.Text(row, column.source).trimmed();
    return column.wraps ? Breakable(text) : text;
}

QFont GridPages::Letters(int row, const Column& column) const
{
    return row == 0 ? PaperFont(LetterSize, true) : CellLetters(grid_.Mark(row, column.source));
}

double GridPages::RowHeight(int row) const
{
    double height = QFontMetricsF(PaperFont(LetterSize, row == 0)).height();
    for (const Column& column : columns_)
        if (column.wraps)
            height =
                std::max(height, QFontMetricsF(Letters(row, column))
                                     .boundingRect(QRectF(0, 0, column.width - 2 * Padding, Endless),
                                                   Qt::AlignLeft | Qt::TextWordWrap, CellText(row, column))
                                     .height());
    return std::ceil(height) + 2 * Padding;
}

QPageLayout::Orientation GridPages::Orientation() const
{
    return width_ > UprightWidth ? QPageLayout::Landscape : QPageLayout::Portrait;
}

std::vector<std::size_t> GridPages::PageStarts(double room, double roomOfFirst) const
{
    std::vector<std::size_t> starts{0};
    double left = roomOfFirst;
    for (std::size_t number = 0; number < heights_.size(); ++number) {
        // A row that is higher than a whole page is cut rather than put off for ever.
        if (heights_[number] > left && number > starts.back()) {
            starts.push_back(number);
            left = room;
        }
        left -= heights_[number];
    }
    starts.push_back(heights_.size());
    return starts;
}

void GridPages::PaintRow(QPainter& painter, int row, double top, double height, bool firstOfPage) const
{
    double left = 0;
    for (const Column& column : columns_) {
        const CellMark mark = row == 0 ? CellMark::None : grid_.Mark(row, column.source);
        const QRectF cell(left, top, column.width, height);
        const QColor ground = row == 0 ? HeadGround : CellColor(mark);
        if (ground.isValid())
            painter.fillRect(cell, ground);
        painter.setPen(QPen(Rule, LineWidth));
        painter.drawRect(cell);
        painter.setPen(Ink);
        painter.setFont(Letters(row, column));
        // A page is read without the one before it.
        if (firstOfPage || !grid_.Repeats(row, column.source))
            painter.drawText(cell.adjusted(Padding, 0, -Padding, 0),
                             static_cast<int>(grid_.Column(column.source).alignment) |
                                 (column.wraps ? Qt::TextWordWrap : 0),
                             CellText(row, column));
        left += column.width;
    }
}

int GridPages::Paint(QPagedPaintDevice& paper) const
{
    QPainter painter;
    if (!painter.begin(&paper))
        return 0;
    const double dots = paper.logicalDpiX() / PointsPerInch;
    painter.scale(dots, dots);
    const double pageWidth = paper.width() / dots;
    const double pageHeight = paper.height() / dots;
    const double scale = width_ > 0 ? std::min(1.0, pageWidth / width_) : 1;

    const std::vector<HeadLine> headLines = HeadLines(title_, subTitle_);
    const double headHeight = HeightOf(headLines, pageWidth);
    const double room = (pageHeight - FooterHeight) / scale - headHeight_;
    const std::vector<std::size_t> starts = PageStarts(room, room - headHeight / scale);
    const std::size_t pages = starts.size() - 1;

    for (std::size_t page = 0; page < pages; ++page) {
        if (page > 0 && !paper.newPage())
            return 0;
        if (page == 0)
            PaintHeadLines(painter, headLines, pageWidth);
        PaintFooter(painter, {0, pageHeight - FooterHeight, pageWidth, FooterHeight}, title_,
                    QStringLiteral("Page %1 of %2").arg(page + 1).arg(pages));

        painter.save();
        painter.translate((pageWidth - width_ * scale) / 2, page == 0 ? headHeight : 0);
        painter.scale(scale, scale);
        PaintRow(painter, 0, 0, headHeight_, true);
        double top = headHeight_;
        for (std::size_t number = starts[page]; number < starts[page + 1]; ++number) {
            PaintRow(painter, rows_[number], top, heights_[number], number == starts[page]);
            top += heights_[number];
        }
        painter.restore();
    }
    return static_cast<int>(pages);
}

} // namespace tally
