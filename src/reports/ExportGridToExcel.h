#pragma once

#include <QString>

#include <exception>

namespace tally {

class FlexGrid;

/// Why a grid did not become a workbook, in words for the user.
class ExportError : public std::exception
{
public:
    enum class Kind
    {
        FolderNotWritable,
        DiskFull,
        NotOpened,                  ///< the workbook is saved, but its program did not start
        NoSpreadsheetProgram = 429, ///< the number under which the office's support notes know it
    };

    ExportError(Kind kind, QString description);

    Kind Reason() const { return kind_; }
    const QString& Description() const { return description_; }
    const char* what() const noexcept override { return what_.constData(); }

private:
    Kind kind_;
    QString description_;
    QByteArray what_;
};

/// Writes rows 0 to `lastRow` and the visible columns 0 to `lastCol` into a new workbook in ExportFolder()
/// and opens it: the school's head in rows 1 to 6, the grid from row 7 on. A hidden row leaves an empty row.
/// Gives the file's path. Throws ExportError; unless the kind is NotOpened no file is left then.
QString ExportGridToExcel(const FlexGrid& grid, int lastRow, int lastCol, const QString& title,
                          const QString& subTitle);

/// What the Export button of each report does once the privilege is proved: exports the whole grid under an
/// hourglass and tells the user what went wrong, if anything did.
void ExportReport(const FlexGrid& grid, const QString& title, const QString& subTitle);

} // namespace tally
