#include "reports/output/Workbook.h"

#include "reports/output/WorkFolder.h"
#include "store/OwnFiles.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>
#include <xlsxwriter.h>

namespace tally {

namespace {

/// The most letters that a cell may hold.
constexpr int LongestText = 32767;
constexpr std::uint8_t A4 = 9;
constexpr double A4Width = 595;
constexpr double A4Height = 842;
/// Margins in inches.
constexpr double Side = 0.5;
constexpr double Top = 0.6;
constexpr double Bottom = 0.75;
constexpr double PointsPerInch = 72;
/// The font in which bounded columns are counted, a digit of it on paper, and the part of one that is left
/// free around a column's letters.
constexpr const char* WidestFont = "Verdana";
constexpr double WidestFontPoints = 10;
constexpr double WidestDigit = 0.636 * WidestFontPoints;
constexpr double LettersAround = 5.0 / 7;
/// Grey, so that the lines lead the eye and the figures stand out.
constexpr lxw_color_t LineColor = 0x808080;

lxw_row_t AsRow(int row)
{
    return static_cast<lxw_row_t>(row);
}

lxw_col_t AsColumn(int column)
{
    return static_cast<lxw_col_t>(column);
}

std::uint8_t AsAlignment(CellStyle::Align align)
{
    switch (align) {
    case CellStyle::Align::Left: return LXW_ALIGN_LEFT;
    case CellStyle::Align::Center: return LXW_ALIGN_CENTER;
    case CellStyle::Align::Right: return LXW_ALIGN_RIGHT;
    }
    return LXW_ALIGN_NONE;
}

/// The text as a workbook can hold it.
QString HeldText(const QString& text)
{
    QString held = text.left(LongestText);
    for (qsizetype i = 0; i < held.size(); ++i) {
        const QChar sign = std::as_const(held).at(i);
        if (sign.isHighSurrogate() && i + 1 < held.size() && std::as_const(held).at(i + 1).isLowSurrogate())
            ++i;
        else if ((sign < u' ' && sign != u'\t' && sign != u'\n') || sign.isSurrogate() || sign >= u'\xFFFE')
            held[i] = u' ';
    }
    return held;
}

void Check(lxw_error error)
{
    if (error != LXW_NO_ERROR)
        throw WorkbookError(lxw_strerror(error));
}

void SaveCopy(const QString& file, const QString& path)
{
    QFile source(file);
    QFile copy(path);
    if (!source.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw WorkbookError("The workbook could not be opened.");
    const QByteArray content = source.readAll();
    if (copy.write(content) != content.size() || !store::BringToDisk(copy))
        throw WorkbookError("The workbook could not be saved.");
}

} // namespace

Workbook::Workbook(const QString& workFolder, const Properties& properties) : workFolder_(workFolder)
{
    QByteArray folder = QFile::encodeName(workFolder);
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.data();
    book_.reset(workbook_new_opt(QFile::encodeName(WorkFile(WorkFolder::Draft)).constData(), &options));
    NewSheet();

    QByteArray title = HeldText(properties.title).toUtf8();
    QByteArray subject = HeldText(properties.subject).toUtf8();
    QByteArray author = HeldText(properties.author).toUtf8();
    QByteArray company = HeldText(properties.company).toUtf8();
    lxw_doc_properties document{};
    document.title = title.data();
    document.subject = subject.data();
    document.author = author.data();
    document.company = company.data();
    Check(workbook_set_properties(book_.get(), &document));
}

QSizeF Workbook::PrintableArea(bool landscape)
{
    const QSizeF paper = landscape ? QSizeF(A4Height, A4Width) : QSizeF(A4Width, A4Height);
    return paper - QSizeF(2 * Side, Top + Bottom) * PointsPerInch;
}

double Workbook::ColumnLetters(double points)
{
    return points / WidestDigit - LettersAround;
}

void Workbook::NewSheet()
{
    sheet_ = book_ ? workbook_add_worksheet(book_.get(), nullptr) : nullptr;
    if (sheet_ == nullptr)
        throw WorkbookError("The working file could not be made.");
    sheetFiles_.emplace_back(sheet_->optimize_tmpfile);
    tallies_.emplace_back();
}

void Workbook::BoundColumns()
{
    // Columns are counted in the font of the first format, which no cell has.
    lxw_format* counted = STAILQ_FIRST(book_->formats);
    format_set_font_name(counted, WidestFont);
    format_set_font_size(counted, WidestFontPoints);
}

void Workbook::SetColumnWidth(int column, double width)
{
    Check(worksheet_set_column(sheet_, AsColumn(column), AsColumn(column), std::min(width, WidestColumn),
                               nullptr));
}

void Workbook::SetRowHeight(int row, double height)
{
    Check(worksheet_set_row(sheet_, AsRow(row), height, nullptr));
}

void Workbook::WriteText(int row, int column, const QString& text, const CellStyle& style)
{
    const QString held = HeldText(text);
    tallies_.back().AddText(row, column, held);
    if (held.isEmpty())
        Check(worksheet_write_blank(sheet_, AsRow(row), AsColumn(column), Format(style)));
    else
        Check(worksheet_write_string(sheet_, AsRow(row), AsColumn(column), held.toUtf8().constData(),
                                     Format(style)));
}

void Workbook::WriteNumber(int row, int column, double number, const CellStyle& style)
{
    tallies_.back().AddNumber(row, column, number);
    Check(worksheet_write_number(sheet_, AsRow(row), AsColumn(column), number, Format(style)));
}

void Workbook::WriteMerged(int row, int firstColumn, int lastColumn, const QString& text,
                           const CellStyle& style)
{
    const QString held = HeldText(text);
    tallies_.back().AddText(row, firstColumn, held);
    for (int column = firstColumn + 1; column <= lastColumn; ++column)
        tallies_.back().AddText(row, column, {});
    Check(worksheet_merge_range(sheet_, AsRow(row), AsColumn(firstColumn), AsRow(row), AsColumn(lastColumn),
                                held.toUtf8().constData(), Format(style)));
}

void Workbook::FreezeRowsAbove(int row)
{
    worksheet_freeze_panes(sheet_, AsRow(row), 0);
}

void Workbook::AllowDigitTexts(int firstRow, int lastRow, int lastColumn)
{
    std::array<char, LXW_MAX_CELL_RANGE_LENGTH> range{};
    lxw_rowcol_to_range(range.data(), AsRow(firstRow), 0, AsRow(lastRow), AsColumn(lastColumn));
    Check(worksheet_ignore_errors(sheet_, LXW_IGNORE_NUMBER_STORED_AS_TEXT, range.data()));
}

void Workbook::SetUpPrint(const PrintSetup& setup)
{
    constexpr int LongestFooter = 200;

    worksheet_set_paper(sheet_, A4);
    if (setup.landscape)
        worksheet_set_landscape(sheet_);
    worksheet_set_margins(sheet_, Side, Side, Top, Bottom);
    if (setup.percent > 0)
        worksheet_set_print_scale(sheet_, static_cast<std::uint16_t>(setup.percent));
    else
        worksheet_fit_to_pages(sheet_, 1, 0);
    worksheet_center_horizontally(sheet_);
    Check(worksheet_print_area(sheet_, 0, 0, AsRow(setup.lastRow), AsColumn(setup.lastColumn)));
    if (setup.headRow >= 0)
        Check(worksheet_repeat_rows(sheet_, AsRow(setup.headRow), AsRow(setup.headRow)));
    if (!setup.footer.isEmpty()) {
        QString text = HeldText(setup.footer).left(LongestFooter / 2);
        text.replace(u'&', QStringLiteral("&&"));
        Check(worksheet_set_footer(sheet_,
                                   QStringLiteral("&L%1&RPage &P of &N").arg(text).toUtf8().constData()));
    }
    if (!setup.newPage.empty()) {
        std::vector<lxw_row_t> breaks(setup.newPage.begin(), setup.newPage.end());
        breaks.push_back(0); // ends the list
        Check(worksheet_set_h_pagebreaks(sheet_, breaks.data()));
    }
}

QString Workbook::Finish()
{
    sheet_ = nullptr;
    const lxw_error closed = workbook_close(book_.release());
    sheetFiles_.clear();
    Check(closed);
    // The library does not notice when the disk cuts one of its files short. The copy is written where every
    // error is seen, and is read back.
    QString path = WorkFile(WorkFolder::Finished);
    SaveCopy(WorkFile(WorkFolder::Draft), path);
    if (!IsWholeWorkbook(path, tallies_))
        throw WorkbookError("The workbook came out incomplete.");
    return path;
}

QString Workbook::WorkFile(const char* name) const
{
    return QDir(workFolder_).filePath(QLatin1String(name));
}

lxw_format* Workbook::Format(const CellStyle& style)
{
    lxw_format*& format = formats_[style];
    if (format != nullptr)
        return format;
    format = workbook_add_format(book_.get());
    format_set_align(format, AsAlignment(style.align));
    if (style.middle)
        format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
    if (style.bold)
        format_set_bold(format);
    if (style.points != 0)
        format_set_font_size(format, style.points);
    if (style.border) {
        format_set_border(format, LXW_BORDER_THIN);
        format_set_border_color(format, LineColor);
        // Keeps the number at the right of one column apart from the text of the next.
        if (style.align == CellStyle::Align::Left)
            format_set_indent(format, 1);
    }
    if (style.wrap)
        format_set_text_wrap(format);
    if (style.shrink)
        format_set_shrink(format);
    if (style.fill != 0)
        format_set_bg_color(format, style.fill & 0xFFFFFFU);
    const QString number = style.text           ? QStringLiteral("@")
                           : style.decimals > 0 ? QStringLiteral("0.") + QString(style.decimals, u'0')
                                                : QStringLiteral("0");
    format_set_num_format(format, number.toLatin1().constData());
    return format;
}

void Workbook::Free::operator()(lxw_workbook* book) const
{
    lxw_workbook_free(book);
}

} // namespace tally
