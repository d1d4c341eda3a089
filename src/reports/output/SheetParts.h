#pragma once

#include "reports/output/Workbook.h"

#include <QString>

#include <array>

namespace tally {

/// What the sheets of all exports have in common: the school's head, merged lines of text, typed cells.

/// The first rows of a sheet or of a card on it: the school's name, address and city. Their texts are bold.
inline constexpr int SchoolHeadRows = 3;
std::array<QString, SchoolHeadRows> SchoolHead();

/// Who made the sheet, and when by the clock of the machine.
QString StampLine();

/// The lines over a list span these columns, however many the list has.
inline constexpr int TitleColumns = 9;
/// The sheet row of the heads of a list, counted from 0.
inline constexpr int ListRow = 6;
/// A column is so much wider than its longest text, in letters.
inline constexpr double WidthReserve = 3.5;
/// What fits on a portrait page in letters without becoming too small to read.
inline constexpr double PortraitLetters = 100;

/// The width of the text in digits of the standard font, roughly.
double LettersOnPaper(const QString& text);
/// The height in points, `least` or more, of a row that holds `text` over `width` letters: a merged cell cuts
/// its text at its edges, so a long one goes on in further lines.
double HeadLineHeight(const QString& text, const CellStyle& style, double width,
                      double least = Workbook::StandardRowHeight);
/// Merges the columns 0 to `lastColumn`, together `width` letters wide, for one text.
void WriteHeadLine(Workbook& workbook, int row, int lastColumn, const QString& text, CellStyle style,
                   double width, double least = Workbook::StandardRowHeight);

/// A text of digits that stands for a person or a thing and not for an amount: 0042, or a long card number.
bool IsIdentity(const QString& text);
/// A number that a cell can hold and show just as it is written here.
bool IsNumber(const QString& text);
/// Writes a number as a number with the decimals that it has here, and any other text as a text.
void WriteTyped(Workbook& workbook, int row, int column, const QString& text, CellStyle style);

} // namespace tally
