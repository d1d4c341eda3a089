#include "tools/DeliveredDatabases.h"

#include "store/DeliveredRows.h"
#include "store/OwnFiles.h"
#include "store/StoreError.h"
#include "store/Tables.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QScopeGuard>

namespace tally {

namespace {

/// In milliseconds. What another machine was making for so long has been given up there.
constexpr int LongestMaking = 30 * 60 * 1000;

} // namespace

bool MakeDatabase(const QString& path, const QString& password,
                  const std::function<void(store::Transaction&)>& fill)
{
    if (QFileInfo::exists(path))
        return false;
    const QString journal = path + QLatin1String("-journal");
    if (QFileInfo::exists(journal))
        throw store::StoreError(
            QStringLiteral(
                "%1 Belongs To A Save That Was Cut Off. Put The Database It Belongs To Back Beside It, Or "
                "Move It Away, And Try Again")
                .arg(QDir::toNativeSeparators(journal)));
    const QString unfinished = path + QLatin1String(".new");
    QLockFile lock(unfinished + QLatin1String(".lock"));
    lock.setStaleLockTime(LongestMaking);
    if (!lock.tryLock(0) && lock.error() == QLockFile::LockFailedError)
        throw store::StoreError(
            QStringLiteral("The File %1 Is Just Being Made By Another Run. Wait For It, And "
                           "Try Again")
                .arg(QDir::toNativeSeparators(path)));
    const auto removeUnfinished = [&unfinished] {
        QFile::remove(unfinished);
        QFile::remove(unfinished + QLatin1String("-journal"));
    };
    const auto removeInTheEnd = qScopeGuard(removeUnfinished);
    removeUnfinished();
    {
        store::Connection connection(unfinished, password, store::Connection::Mode::Create);
        store::Transaction transaction(connection);
        fill(transaction);
        transaction.Commit();
    }
    // No file is ever replaced, so a database that was copied here meanwhile stays.
    if (!store::MoveToFreeName(unfinished, path))
        throw store::StoreError(
            QStringLiteral("The File %1 Could Not Be Made").arg(QDir::toNativeSeparators(path)));
    return true;
}

QVector<DeliveredFile> MakeDeliveredDatabases(const QString& folder, const QString& password,
                                              const std::function<void(store::Transaction&)>& fillMain)
{
    const QDir directory(folder);
    if (!directory.exists())
        throw store::StoreError(
            QStringLiteral("The Folder %1 Is Missing").arg(QDir::toNativeSeparators(folder)));

    QVector<DeliveredFile> files;
    const auto make = [&](const char* name, const std::function<void(store::Transaction&)>& fill) {
        const QString fileName = QLatin1String(name);
        files.append({fileName, MakeDatabase(directory.filePath(fileName), password, fill)});
    };
    make("Tallyboard.mdb", [&](store::Transaction& transaction) {
        store::CreateMainTables(transaction);
        store::InsertDeliveredMainRows(transaction);
        if (fillMain)
            fillMain(transaction);
    });
    make("TempTallyboard.mdb", store::CreateTempTables);
    make("BackupRestoreDetails.mdb", store::CreateBackupTables);
    make("Tallyboardhelp.mdb", [](store::Transaction& transaction) {
        store::CreateHelpTables(transaction);
        store::InsertDeliveredHelpRows(transaction);
    });
    return files;
}

} // namespace tally
