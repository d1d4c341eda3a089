#pragma once

#include <QString>

namespace tally {

class GridTable;

/// Writes the rank cards that stand in the rows up to `lastRow` and the columns up to `lastCol` of the grid,
/// as ComputeRankCards lays them out, into a new workbook and opens it: one card a page, with the school's
/// head, the student and the exam lines, each of which ends in the name of its exam. `title` and `heading`
/// stand under the school's head of each card and are mostly empty. No card may have more than `examCount`
/// lines; the page is chosen so that as many fit on it, whatever font an office program has in place of the
/// workbook's own. Gives the file's path. Throws ExportError as ExportWorkbook does.
QString ExportFlexGridToExcel1(const GridTable& grid, int lastRow, int lastCol, const QString& title,
                               const QString& heading, int examCount);

} // namespace tally
