#pragma once

#include <QString>

namespace tally {

class GridTable;

/// Writes the list of what the divisions take, as SetupReportTable makes it, up to `lastRow` and `lastCol`
/// into a new workbook and opens it: a heading and a total for each division, without the columns that the
/// headings hold. Gives the file's path. Throws ExportError as ExportWorkbook does.
QString ExportFlexGridToExcel1(const GridTable& grid, int lastRow, int lastCol, const QString& title,
                               const QString& subTitle);

} // namespace tally
