#include "reports/output/ExportWorkbook.h"

#include "core/SessionContext.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/OpenDocument.h"
#include "core/ui/Prompts.h"
#include "reports/output/FileName.h"
#include "reports/output/Workbook.h"
#include "reports/output/WorkFolder.h"
#include "store/OwnFiles.h"

#include <QDateTime>
#include <QDir>

namespace tally {

namespace {

QString FileName(const QString& title)
{
    return FileNameOf(title) + QDateTime::currentDateTime().toString(QStringLiteral(" yyyy-MM-dd HH.mm.ss"));
}

/// Gives the finished file its name, which no other client may have taken meanwhile.
QString MoveIntoPlace(const QString& file, const QDir& folder, const QString& name)
{
    constexpr int MostTries = 1000;
    for (int number = 1; number < MostTries; ++number) {
        const QString suffix = number > 1 ? QStringLiteral(" (%1)").arg(number) : QString();
        QString path = folder.filePath(name + suffix + QStringLiteral(".xlsx"));
        if (store::MoveToFreeName(file, path))
            return path;
        if (store::IsFreeName(path))
            break;
    }
    throw ExportError(
        ExportError::Kind::FolderNotWritable,
        QStringLiteral("The workbook could not be saved in the folder \"%1\".").arg(folder.path()));
}

ExportError FullDisk(const QDir& folder)
{
    return {ExportError::Kind::DiskFull,
            QStringLiteral("The workbook could not be written. The disk of the folder \"%1\" may be full.")
                .arg(folder.path())};
}

} // namespace

ExportError::ExportError(Kind kind, QString description)
    : kind_(kind), description_(std::move(description)), what_(description_.toUtf8())
{}

QString ExportWorkbook(const ExportSubject& subject, const std::function<void(Workbook&)>& write)
{
    if (!HasSpreadsheetProgram())
        throw ExportError(ExportError::Kind::NoSpreadsheetProgram,
                          QStringLiteral("This machine has no program for spreadsheets."));

    const QDir folder(ExportFolder());
    // All work is done in a folder of its own beside the result: it is cleared on every way out, and the
    // finished file only needs a new name.
    const bool made = folder.mkpath(QStringLiteral("."));
    const WorkFolder work(folder);
    if (!made || !work.IsValid())
        throw ExportError(ExportError::Kind::FolderNotWritable,
                          QStringLiteral("Workbooks are saved in the folder \"%1\", but nothing can be "
                                         "written there. The disk may be full.")
                              .arg(folder.path()));

    QString finished;
    try {
        Workbook workbook(work.Path(), {.title = subject.title,
                                        .subject = subject.subTitle,
                                        .author = Session().gstrUserName,
                                        .company = Session().gstrSchoolName});
        write(workbook);
        finished = workbook.Finish();
    } catch (const WorkbookError&) {
        throw FullDisk(folder);
    }

    QString path = MoveIntoPlace(finished, folder, FileName(subject.title));
    if (!OpenSpreadsheet(path))
        throw ExportError(ExportError::Kind::NotOpened, SpreadsheetNotOpened(path));
    return path;
}

void ClearDeadExports()
{
    WorkFolder::ClearDead(QDir(ExportFolder()));
}

void RunExport(const std::function<void()>& work)
{
    try {
        const HourGlass hourGlass;
        work();
    } catch (const ExportError& error) {
        if (error.Reason() == ExportError::Kind::NoSpreadsheetProgram)
            Prompts::Information(QStringLiteral("If You Want To Use Export Option, Microsoft Excel Is Needed "
                                                "To Be Installed In Your System"));
        else
            Prompts::Critical(error.Description());
    } catch (const std::exception& error) {
        Prompts::Critical(QString::fromUtf8(error.what()));
    }
}

} // namespace tally
