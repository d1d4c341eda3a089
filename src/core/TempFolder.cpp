#include "core/TempFolder.h"

#include "core/ProgramFolder.h"
#include "core/SessionContext.h"
#include "store/OwnFiles.h"

#include <QDir>
#include <QFile>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace tally {

namespace {

QString TempFolder()
{
    return ProgramFile(QStringLiteral("Temp"));
}

QString FileName(int id, const QString& extension)
{
    return QStringLiteral("%1.%2").arg(id).arg(extension);
}

/// What the program puts into the folder.
QStringList FileNames()
{
    QStringList names;
    for (const int picture : {1001, 1002, 1003, 1004})
        names.append(FileName(picture, QStringLiteral("jpg")));
    for (const int movie : {1005, 1006})
        names.append(FileName(movie, QStringLiteral("swf")));
    return names;
}

void HideFolder([[maybe_unused]] const QString& folder)
{
#ifdef Q_OS_WIN
    SetFileAttributesW(reinterpret_cast<const wchar_t*>(folder.utf16()),
                       FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
#else
    // File managers leave out what a ".hidden" list beside it names.
    const QString path = QDir(folder).filePath(QStringLiteral("../.hidden"));
    QByteArray names;
    if (!store::IsFreeName(path)) {
        QFile list(path);
        if (!store::IsPlainFile(path) || !list.open(QIODevice::ReadOnly))
            return;
        names = list.readAll();
        if (list.error() != QFile::NoError)
            return;
    }
    if (names.split('\n').contains("Temp"))
        return;
    if (!names.isEmpty() && !names.endsWith('\n'))
        names += '\n';
    names += "Temp\n";
    // The folder is seen then, which harms nobody.
    (void)store::ReplaceFile(path, names);
#endif
}

bool MakeFolder(const QString& folder)
{
    if (folder.isEmpty())
        return false;
    if (QDir().mkdir(folder))
        HideFolder(folder);
    return store::IsPlainFolder(folder);
}

} // namespace

void CreateTempFolder()
{
    Session().gstrTempPath = TempFolder();
    DeleteTempFolder();
    MakeFolder(TempFolder());
}

void DeleteTempFolder()
{
    store::RemoveOwnFolder(TempFolder(), FileNames());
}

QString ExtractResource(int id, const QString& folder, const QString& extension)
{
    QFile resource(QStringLiteral(":/tallyboard/%1").arg(id));
    if (!resource.open(QIODevice::ReadOnly) || !MakeFolder(folder))
        return {};
    QFile target(QDir(folder).filePath(FileName(id, extension)));
    if (store::IsPlainFile(target.fileName()))
        target.remove();
    // A link that took the name since fails this opening.
    if (!target.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return {};
    const QByteArray content = resource.readAll();
    if (target.write(content) == content.size() && target.flush())
        return target.fileName();
    target.remove();
    return {};
}

QByteArray ReadResource(int id, const QString& extension)
{
    QFile embedded(QStringLiteral(":/tallyboard/%1").arg(id));
    if (!embedded.open(QIODevice::ReadOnly))
        return {};
    const QString path = ExtractResource(id, Session().gstrTempPath, extension);
    QFile extracted(path);
    QByteArray content;
    if (!path.isEmpty() && extracted.open(QIODevice::ReadOnly))
        content = extracted.readAll();
    return content.size() == embedded.size() ? content : embedded.readAll();
}

} // namespace tally
