#include "reports/output/TextFile.h"

#include "core/ProgramFolder.h"
#include "core/ui/controls/HourGlass.h"
#include "core/ui/OpenDocument.h"
#include "core/ui/Prompts.h"
#include "store/OwnFiles.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <map>
#include <memory>

namespace tally {

namespace {

/// A file of the shared folder that this client alone writes as long as its program runs: nobody knows when
/// an editor has read the last report.
struct OwnFile
{
    QString path;
    std::unique_ptr<QLockFile> lock;
};

std::map<QString, OwnFile>& OwnFiles()
{
    static std::map<QString, OwnFile> files;
    return files;
}

/// "Summary.txt", and for the further clients "Summary 2.txt" and so on.
QString NumberedName(const QString& fileName, int number)
{
    if (number == 1)
        return fileName;
    const QFileInfo name(fileName);
    return QStringLiteral("%1 %2.%3").arg(name.completeBaseName(), QString::number(number), name.suffix());
}

/// The lock of the first file that is no other client's. Its path is empty where nothing can be locked.
OwnFile TakeOwnFile(const QString& fileName)
{
    constexpr int MostClients = 100;
    for (int number = 1; number <= MostClients; ++number) {
        const QString path = ProgramFile(NumberedName(fileName, number));
        // A link, or whatever else somebody has put there, is none of the program's files.
        if (!store::IsFreeName(path) && !store::IsPlainFile(path))
            continue;
        // So is a report that was written under another account, whose owner alone may replace it.
        if (!store::IsFreeName(path) && !QFile(path).open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
            continue;
        auto lock = std::make_unique<QLockFile>(path + QStringLiteral(".lock"));
        // Age says nothing, only whether the program lives does.
        lock->setStaleLockTime(0);
        if (lock->tryLock(0))
            return {path, std::move(lock)};
        if (lock->error() != QLockFile::LockFailedError)
            break;
    }
    return {};
}

/// The path of the report; empty when it could not be written.
QString WriteTextFile(const QString& fileName, const QString& text)
{
    const QString wanted = ProgramFile(fileName);
    auto own = OwnFiles().find(wanted);
    if (own == OwnFiles().end()) {
        OwnFile taken = TakeOwnFile(fileName);
        if (taken.path.isEmpty())
            return {};
        own = OwnFiles().emplace(wanted, std::move(taken)).first;
    }
    const bool written =
        store::ReplaceFile(own->second.path, text.toUtf8(), QIODevice::WriteOnly | QIODevice::Text);
    return written ? own->second.path : QString();
}

} // namespace

void ShowTextFile(const QString& fileName, const QString& text)
{
    QString path;
    bool opened = false;
    {
        const HourGlass hourGlass;
        path = WriteTextFile(fileName, text);
        opened = !path.isEmpty() && OpenText(path);
    }
    if (path.isEmpty())
        Prompts::Critical(
            QStringLiteral("The report could not be written into the folder \"%1\". The disk may be full, or "
                           "you may not write there.")
                .arg(ProgramFolder()));
    else if (!opened)
        Prompts::Critical(TextNotOpened(path));
}

void GiveTextFilesBack()
{
    OwnFiles().clear();
}

} // namespace tally
