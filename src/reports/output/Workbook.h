#pragma once

#include "reports/output/SheetFile.h"
#include "reports/output/WorkbookCheck.h"

#include <QColor>
#include <QSizeF>
#include <QString>

#include <compare>
#include <deque>
#include <exception>
#include <map>
#include <memory>
#include <vector>

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace tally {

/// A workbook could not be written; mostly the disk is full or the folder has gone.
class WorkbookError : public std::exception
{
public:
    explicit WorkbookError(const char* reason) : reason_(reason) {}
    const char* what() const noexcept override { return reason_; }

private:
    const char* reason_; ///< lives as long as the program
};

struct CellStyle
{
    enum class Align
    {
        Left,
        Center,
        Right,
    };

    Align align = Align::Left;
    bool middle = false; ///< vertically centred
    bool bold = false;
    bool border = false; ///< a thin line on all four sides
    bool wrap = false;   ///< a long text goes on in a second line
    bool shrink = false; ///< a text that is too wide becomes smaller; not together with wrap
    QRgb fill = 0;       ///< 0: no fill
    bool text = false;   ///< what is typed over it stays a text too
    int decimals = 0;    ///< shown behind the point of a number
    int points = 0;      ///< size of the letters; 0: the standard size

    auto operator<=>(const CellStyle&) const = default; // NOLINT(modernize-use-nullptr)
};

/// How the sheet comes out of the printer, on A4.
struct PrintSetup
{
    int headRow = -1; ///< printed on top of each page; -1: none
    int lastRow = 0;
    int lastColumn = 0;
    bool landscape = false;
    QString footer = {};           ///< at the left, with the page number at the right; empty: no footer
    int percent = 0;               ///< 0: one page wide and as many pages high as it takes
    std::vector<int> newPage = {}; ///< rows that begin a page, in order, at most MostPageBreaks; office
                                   ///< programs keep them only with a percentage of their own
};

/// A real .xlsx file. Rows and columns are numbered from 0. The rows go straight to disk, so that a large
/// list costs no memory; each row must be complete before the next one is begun.
class Workbook
{
public:
    struct Properties
    {
        QString title;
        QString subject;
        QString author;
        QString company;
    };

    static constexpr double StandardColumnWidth = 8.43;
    static constexpr double WidestColumn = 255;
    static constexpr double StandardRowHeight = 15; ///< in points
    static constexpr double StandardPoints = 11;
    /// What office programs take on one sheet.
    static constexpr int MostPageBreaks = 1023;
    static constexpr int LeastPercent = 10;

    /// The room between the margins of a page, in points.
    static QSizeF PrintableArea(bool landscape);
    /// The width on paper, in points, of a letter of the standard font, and of the same letter in the widest
    /// font that office programs put in the place of one that they have not got.
    static constexpr double LetterPoints = 5.6;
    static constexpr double WidestLetterPoints = 7;
    /// The letters, from 1 on, of a column that has this most width on paper, in points, in a workbook that
    /// has BoundColumns.
    static double ColumnLetters(double points);

    /// All files are put into `workFolder`, which the caller clears away.
    Workbook(const QString& workFolder, const Properties& properties);

    /// Leaves the sheet as it is and goes on with a new one behind it.
    void NewSheet();

    /// Bounds the widths of all columns on paper, for sheets that are printed in a given percentage. Office
    /// programs count columns in digits of one font; where they have not got it, its substitute would make
    /// all columns wider and push the last one off the page. So they are counted in a font that is as wide as
    /// any substitute. Comes before everything else; the letters in the cells stay as they are.
    void BoundColumns();
    /// In letters of the standard font.
    void SetColumnWidth(int column, double width);
    /// In points. Comes before the row's cells. A row of StandardRowHeight, or without a height, becomes as
    /// high as its text in the font that the office program has.
    void SetRowHeight(int row, double height);
    /// An empty text makes an empty cell that has the style only. A text never becomes a formula; signs that
    /// no sheet can hold become blanks. No cell is written twice.
    void WriteText(int row, int column, const QString& text, const CellStyle& style);
    void WriteNumber(int row, int column, double number, const CellStyle& style);
    /// One text over several columns of a row.
    void WriteMerged(int row, int firstColumn, int lastColumn, const QString& text, const CellStyle& style);
    /// The rows above `row` stay in sight.
    void FreezeRowsAbove(int row);
    /// Spares the reader the small warning triangles on admission numbers kept as texts.
    void AllowDigitTexts(int firstRow, int lastRow, int lastColumn);
    void SetUpPrint(const PrintSetup& setup);
    /// Writes the file, reads it back and gives its path; before that there is none. It is on the disk then
    /// and holds every cell. Nothing can be added afterwards.
    QString Finish();

private:
    struct Free
    {
        void operator()(lxw_workbook* book) const;
    };

    lxw_format* Format(const CellStyle& style);
    QString WorkFile(const char* name) const;

    QString workFolder_;
    std::deque<SheetFile> sheetFiles_; ///< outlive book_, which may still write to them
    std::unique_ptr<lxw_workbook, Free> book_;
    lxw_worksheet* sheet_ = nullptr;
    std::map<CellStyle, lxw_format*> formats_;
    std::vector<CellTally> tallies_; ///< of all sheets, the last one is sheet_
};

} // namespace tally
