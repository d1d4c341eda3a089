#pragma once

#include <QDir>
#include <QFile>
#include <QStringList>

#include <string>

namespace tally::test {

/// The files that this program holds open, one to a line, also those whose name is gone.
inline std::string OpenFiles()
{
    const QDir descriptors(QStringLiteral("/proc/self/fd"));
    const QStringList names = descriptors.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    QStringList files;
    for (const QString& name : names)
        files += QFile::symLinkTarget(descriptors.filePath(name));
    files.sort();
    return files.join(u'\n').toStdString();
}

} // namespace tally::test
