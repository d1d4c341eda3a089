#pragma once

#include <QString>

namespace tally {

class GridTable;

/// Writes rows 0 to `lastRow` and the visible columns 0 to `lastCol` into a new workbook in ExportFolder()
/// and opens it: the school's head in rows 1 to 6, the grid from row 7 on. A hidden row leaves an empty row.
/// Gives the file's path. Throws ExportError as ExportWorkbook does.
QString ExportGridToExcel(const GridTable& grid, int lastRow, int lastCol, const QString& title,
                          const QString& subTitle);

/// What the Export button of each report does once the privilege is proved: RunExport of the whole grid.
void ExportReport(const GridTable& grid, const QString& title, const QString& subTitle);

} // namespace tally
