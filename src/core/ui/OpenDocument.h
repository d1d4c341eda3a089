#pragma once

#include <QString>

#include <functional>

namespace tally {

/// The only code that hands a file to another program.

/// Whether this machine has a program for spreadsheets.
bool HasSpreadsheetProgram();
/// Opens a spreadsheet file in the machine's program for it. False when it could not be started, or when the
/// file has gone.
bool OpenSpreadsheet(const QString& path);
/// Opens a text file in the program that the user's desktop has for it, else in the first editor that the
/// machine has. False when there is none or it could not be started, or when the file has gone.
bool OpenText(const QString& path);

/// What the user is told where the file that was just saved could not be opened.
QString SpreadsheetNotOpened(const QString& path);
QString TextNotOpened(const QString& path);

/// What stands for the machine's spreadsheet program: gets the file's path and says whether it opened. Empty
/// brings the real one back. For tests and the guided tour.
struct SpreadsheetProgram
{
    bool installed = false;
    std::function<bool(const QString& path)> open;
};
void UseSpreadsheetProgram(SpreadsheetProgram program);
void UseRealSpreadsheetProgram();
/// The same for the program for texts; an empty function brings the real one back.
void UseTextProgram(std::function<bool(const QString& path)> open);

/// Where exported workbooks are put: a folder in the user's documents, so that a closed workbook is not lost.
QString ExportFolder();
void SetExportFolder(const QString& folder);

} // namespace tally
