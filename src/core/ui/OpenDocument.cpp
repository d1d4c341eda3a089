#include "core/ui/OpenDocument.h"

#include <QDesktopServices>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <array>
#include <optional>

namespace tally {

namespace {

std::optional<SpreadsheetProgram>& Replacement()
{
    static std::optional<SpreadsheetProgram> program;
    return program;
}

QString& ChosenExportFolder()
{
    static QString folder;
    return folder;
}

#ifdef Q_OS_LINUX
/// The first spreadsheet program on the path; empty when there is none.
QString InstalledProgram()
{
    static const std::array Names{"localc", "libreoffice", "soffice", "gnumeric"};
    for (const char* name : Names) {
        QString path = QStandardPaths::findExecutable(QString::fromLatin1(name));
        if (!path.isEmpty())
            return path;
    }
    return {};
}
#endif

} // namespace

bool HasSpreadsheetProgram()
{
    if (Replacement())
        return Replacement()->installed;
#ifdef Q_OS_LINUX
    return !InstalledProgram().isEmpty();
#else
    return true;
#endif
}

bool OpenSpreadsheet(const QString& path)
{
    if (Replacement())
        return Replacement()->open && Replacement()->open(path);
#ifdef Q_OS_LINUX
    return QProcess::startDetached(InstalledProgram(), {path});
#else
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
#endif
}

void UseSpreadsheetProgram(SpreadsheetProgram program)
{
    Replacement() = std::move(program);
}

void UseRealSpreadsheetProgram()
{
    Replacement().reset();
}

QString ExportFolder()
{
    if (!ChosenExportFolder().isEmpty())
        return ChosenExportFolder();
    return QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
        .filePath(QStringLiteral("Tally Board"));
}

void SetExportFolder(const QString& folder)
{
    ChosenExportFolder() = folder;
}

} // namespace tally
