#pragma once

#include <QString>

#include <functional>

namespace tally {

/// The only code that hands a file to another program.

/// Whether this machine has a program for spreadsheets.
bool HasSpreadsheetProgram();
/// Opens a spreadsheet file in the machine's program for it. False when it could not be started.
bool OpenSpreadsheet(const QString& path);

/// What stands for the machine's spreadsheet program: gets the file's path and says whether it opened. Empty
/// brings the real one back. For tests and the guided tour.
struct SpreadsheetProgram
{
    bool installed = false;
    std::function<bool(const QString& path)> open;
};
void UseSpreadsheetProgram(SpreadsheetProgram program);
void UseRealSpreadsheetProgram();

/// Where exported workbooks are put: a folder in the user's documents, so that a closed workbook is not lost.
QString ExportFolder();
void SetExportFolder(const QString& folder);

} // namespace tally
