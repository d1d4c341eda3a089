#pragma once

#include <QString>

#include <exception>
#include <functional>

namespace tally {

class Workbook;

/// Why an export did not become a workbook, in words for the user.
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

/// What a workbook is about.
struct ExportSubject
{
    QString title; ///< gives the file its name, together with the time
    QString subTitle;
};

/// Lets `write` fill a new workbook in ExportFolder() and opens it. Gives the file's path. Throws
/// ExportError; unless the kind is NotOpened no file is left then. A workbook that is left holds every cell
/// that was written, at whatever moment the disk was full.
QString ExportWorkbook(const ExportSubject& subject, const std::function<void(Workbook&)>& write);

/// Clears away what exports left in ExportFolder() whose program was ended in their midst. Exports that other
/// copies of the program are at, on this machine or on another one that shares the folder, are left alone.
void ClearDeadExports();

/// What every Export button does once the privilege is proved: runs `work` under an hourglass and tells the
/// user what went wrong, if anything did.
void RunExport(const std::function<void()>& work);

} // namespace tally
