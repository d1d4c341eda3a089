#include "core/TempFolder.h"

#include "core/ProgramFolder.h"
#include "core/SessionContext.h"

#include <QDir>
#include <QFile>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace tally {

namespace {

void HideFolder([[maybe_unused]] const QString& folder)
{
#ifdef Q_OS_WIN
    SetFileAttributesW(reinterpret_cast<const wchar_t*>(folder.utf16()),
                       FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
#else
    // File managers leave out what a ".hidden" list beside it names.
    QFile list(QDir(folder).filePath(QStringLiteral("../.hidden")));
    if (!list.open(QIODevice::ReadWrite))
        return;
    const QByteArray names = list.readAll();
    if (names.split('\n').contains("Temp"))
        return;
    if (!names.isEmpty() && !names.endsWith('\n'))
        list.write("\n");
    list.write("Temp\n");
#endif
}

} // namespace

bool CreateTempFolder()
{
    const QString folder = ProgramFile(QStringLiteral("Temp"));
    Session().gstrTempPath = folder;
    DeleteTempFolder();
    if (!QDir().mkpath(folder))
        return false;
    HideFolder(folder);
    return true;
}

void DeleteTempFolder()
{
    QDir folder(ProgramFile(QStringLiteral("Temp")));
    if (folder.exists())
        folder.removeRecursively();
}

QString ExtractResource(int id, const QString& folder, const QString& extension)
{
    QFile resource(QStringLiteral(":/tallyboard/%1").arg(id));
    QFile target(folder + QLatin1Char('/') + QString::number(id) + QLatin1Char('.') + extension);
    if (!resource.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return {};
    const QByteArray content = resource.readAll();
    const bool written = target.write(content) == content.size() && target.flush();
    return written ? target.fileName() : QString();
}

} // namespace tally
