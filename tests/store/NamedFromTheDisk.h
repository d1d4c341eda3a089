#pragma once

#include "StoreFiles.h"

#include <QDir>
#include <QStringList>

namespace tally::test {

/// So many copies have taken their names in these file operations, each when all of it lay on the disk, and
/// nothing but the removal of the old name came before the name lay there too.
inline void ExpectNamedFromTheDisk(const QStringList& operations, const StoreFiles& files, int copies)
{
    bool onDisk = false;
    int named = 0;
    for (qsizetype at = 0; at < operations.size(); ++at) {
        const QString& operation = operations[at];
        const bool ofCopy =
            operation.endsWith(QLatin1String(".part")) || operation.endsWith(QLatin1String(".copy"));
        if (ofCopy && operation.startsWith(QLatin1String("write ")))
            onDisk = false;
        if (ofCopy && operation.startsWith(QLatin1String("sync ")))
            onDisk = true;
        if (!operation.startsWith(QLatin1String("name ")))
            continue;
        EXPECT_TRUE(onDisk) << operation.toStdString();
        qsizetype next = at + 1;
        while (operations.value(next).startsWith(QLatin1String("remove ")))
            ++next;
        EXPECT_EQ(operations.value(next), QStringLiteral("sync ") + QDir(files.Folder()).dirName());
        ++named;
    }
    EXPECT_EQ(named, copies) << operations.join(u'\n').toStdString();
}

} // namespace tally::test
