#include "core/ui/OpenDocument.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <initializer_list>
#include <optional>

namespace tally {

namespace {

std::optional<SpreadsheetProgram>& SpreadsheetStandIn()
{
    static std::optional<SpreadsheetProgram> program;
    return program;
}

std::function<bool(const QString& path)>& TextStandIn()
{
    static std::function<bool(const QString& path)> open;
    return open;
}

QString& ChosenExportFolder()
{
    static QString folder;
    return folder;
}

#ifdef Q_OS_LINUX
/// The first of the programs that is on the path; empty when none is.
QString FirstInstalled(std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        QString path = QStandardPaths::findExecutable(QString::fromLatin1(name));
        if (!path.isEmpty())
            return path;
    }
    return {};
}

QString InstalledSpreadsheetProgram()
{
    return FirstInstalled({"localc", "libreoffice", "soffice", "gnumeric"});
}

QString InstalledEditor()
{
    return FirstInstalled(
        {"gnome-text-editor", "gedit", "kate", "kwrite", "mousepad", "xed", "pluma", "featherpad"});
}

bool Start(const QString& program, const QString& path)
{
    return !program.isEmpty() && QProcess::startDetached(program, {QFileInfo(path).absoluteFilePath()});
}

/// Hands the file to the desktop, which knows the program that its user has for such files. False where it
/// has none.
bool OpenThroughDesktop(const QString& path)
{
    constexpr int PatienceInMs = 5000;
    auto* desktop = new QProcess;
    // The program inherits these, and would be stopped by what it writes once nobody reads it any more.
    desktop->setStandardInputFile(QProcess::nullDevice());
    desktop->setStandardOutputFile(QProcess::nullDevice());
    desktop->setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(desktop, &QProcess::finished, desktop, &QObject::deleteLater);
    desktop->start(QStringLiteral("gio"), {QStringLiteral("open"), QFileInfo(path).absoluteFilePath()});
    if (!desktop->waitForStarted()) {
        delete desktop;
        return false;
    }
    // One that takes its time is starting the program.
    return !desktop->waitForFinished(PatienceInMs) ||
           (desktop->exitStatus() == QProcess::NormalExit && desktop->exitCode() == 0);
}
#else
bool OpenThroughDesktop(const QString& path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}
#endif

/// `document` and `program` are words of the text.
QString NotOpened(const QString& document, const QString& program, const QString& path)
{
    if (!QFile::exists(path))
        return QStringLiteral("The %1 was saved as \"%2\", but it has gone meanwhile.").arg(document, path);
    return QStringLiteral("The %1 is saved as \"%2\", but the program for %3 did not start.")
        .arg(document, path, program);
}

} // namespace

bool HasSpreadsheetProgram()
{
    if (SpreadsheetStandIn())
        return SpreadsheetStandIn()->installed;
#ifdef Q_OS_LINUX
    return !InstalledSpreadsheetProgram().isEmpty();
#else
    return true;
#endif
}

bool OpenSpreadsheet(const QString& path)
{
    if (!QFile::exists(path))
        return false;
    if (SpreadsheetStandIn())
        return SpreadsheetStandIn()->open && SpreadsheetStandIn()->open(path);
#ifdef Q_OS_LINUX
    return Start(InstalledSpreadsheetProgram(), path);
#else
    return OpenThroughDesktop(path);
#endif
}

bool OpenText(const QString& path)
{
    if (!QFile::exists(path))
        return false;
    if (TextStandIn())
        return TextStandIn()(path);
#ifdef Q_OS_LINUX
    return OpenThroughDesktop(path) || Start(InstalledEditor(), path);
#else
    return OpenThroughDesktop(path);
#endif
}

QString SpreadsheetNotOpened(const QString& path)
{
    return NotOpened(QStringLiteral("workbook"), QStringLiteral("spreadsheets"), path);
}

QString TextNotOpened(const QString& path)
{
    return NotOpened(QStringLiteral("report"), QStringLiteral("texts"), path);
}

void UseSpreadsheetProgram(SpreadsheetProgram program)
{
    SpreadsheetStandIn() = std::move(program);
}

void UseRealSpreadsheetProgram()
{
    SpreadsheetStandIn().reset();
}

void UseTextProgram(std::function<bool(const QString& path)> open)
{
    TextStandIn() = std::move(open);
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
