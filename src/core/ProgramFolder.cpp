#include "core/ProgramFolder.h"

#include <QCoreApplication>
#include <QDir>

namespace tally {

namespace {

QString& Folder()
{
    static QString folder;
    return folder;
}

} // namespace

QString ProgramFolder()
{
    return Folder().isEmpty() ? QCoreApplication::applicationDirPath() : Folder();
}

void SetProgramFolder(const QString& folder)
{
    Folder() = folder;
}

QString ProgramFile(const QString& name)
{
    return QDir(ProgramFolder()).filePath(name);
}

} // namespace tally
