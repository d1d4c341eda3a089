#include "store/Upgrade.h"

#include "store/Dialect.h"
#include "store/OwnFiles.h"
#include "store/StoreError.h"
#include "store/Tables.h"
#include "store/Transaction.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>
#include <iterator>
#include <span>

namespace tally::store {

namespace {

void GuardDeletes(Transaction& transaction)
{
    transaction.Execute(QStringLiteral("DROP INDEX StudentRanks"));
    CreateGuardIndexes(transaction);
}

/// Each brings a file of the version before to the next one; the first step makes version 2.
constexpr void (*Steps[])(Transaction&) = {
    GuardDeletes,
};
static_assert(MainVersion == std::size(Steps) + 1);

QString Shown(const Connection& main)
{
    return QDir::toNativeSeparators(main.Path());
}

/// From 1 on.
int VersionOf(Connection& main)
{
    return std::max(1, main.SchemaVersion());
}

void RefuseNewer(const Connection& main, int version)
{
    if (version > MainVersion)
        throw StoreError(QStringLiteral("The Database File %1 Belongs To A Newer Tally Board Than This One, "
                                        "And Is Left As It Is. Please Start The Newer Program")
                             .arg(Shown(main)));
}

/// The marker table tells the main file from all others that open with the same password.
void RefuseOtherFiles(Connection& main)
{
    try {
        main.Number(QStringLiteral("SELECT count(*) FROM MRCODE"));
    } catch (const StoreError& error) {
        if (error.Kind() == ErrorKind::NoSuchTable)
            throw StoreError(QStringLiteral("This Is Not The Main Database Of This Program"));
        throw;
    }
}

StoreError NoCopy(const QString& reason)
{
    return StoreError(QStringLiteral("No Copy Of It Could Be Made Beside It (%1)").arg(reason));
}

/// A free name for the finished copy. Gives the name taken.
QString NameCopy(const QString& unfinished, const QFileInfo& file)
{
    QString name = MoveToNumberedName(
        unfinished, file.path(),
        QStringLiteral("%1 before upgrade %2").arg(file.completeBaseName()).arg(MainVersion), file.suffix());
    if (name.isEmpty())
        throw NoCopy(QStringLiteral("its name could not be given"));
    return name;
}

/// Copies the file under the write lock that the caller holds. Gives the copy's name, under which it appears
/// when it lies whole on the disk.
QString CopyBeside(Connection& main)
{
    const QFileInfo file(main.Path());
    QFile copy(main.Path() + QLatin1String(".copy"));
    // Only who holds the lock makes a copy, so what has this name was left by one that was killed.
    if (IsPlainFile(copy.fileName()))
        copy.remove();
    if (!copy.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        throw NoCopy(copy.errorString());
    auto removeUnfinished = qScopeGuard([&copy] { copy.remove(); });
    copy.setPermissions(file.permissions());
    main.CopyTo(copy);
    if (!BringToDisk(copy))
        throw NoCopy(qt_error_string());
    copy.close();
    QString name = NameCopy(copy.fileName(), file);
    removeUnfinished.dismiss();
    return name;
}

/// Where an upgrade failed, its copy is one file too many, but only as long as the file itself can be read.
void RemoveNeedless(const QString& copy, Connection& main, int version)
{
    try {
        if (VersionOf(main) == version)
            QFile::remove(copy);
    } catch (const StoreError&) {
        // The copy is what the school has.
    }
}

void UpgradeAlone(Connection& main)
{
    QString copy;
    int version = 0;
    try {
        Transaction upgrading(main);
        // Another client may have done it while this one waited.
        version = VersionOf(main);
        if (version >= MainVersion)
            return;
        RefuseOtherFiles(main);
        if (!main.Path().isEmpty())
            copy = CopyBeside(main);
        for (const auto step : std::span(Steps).subspan(static_cast<std::size_t>(version - 1)))
            step(upgrading);
        upgrading.Execute(dialect::WriteSchemaVersion(MainVersion));
        upgrading.Commit();
    } catch (const StoreError& error) {
        if (!copy.isEmpty())
            RemoveNeedless(copy, main, version);
        if (error.IsLocked())
            throw;
        throw StoreError(
            QStringLiteral("The Database File %1 Must Be Upgraded For This Program, And Could Not "
                           "Be. It Is As It Was. %2")
                .arg(Shown(main), error.Description()));
    }
}

} // namespace

void Upgrade(Connection& main, std::chrono::milliseconds patience)
{
    int version = VersionOf(main);
    if (version < MainVersion) {
        main.SetPatience(patience);
        const auto asBefore = qScopeGuard([&main] { main.SetPatience(Connection::DefaultPatience); });
        UpgradeAlone(main);
        version = VersionOf(main);
    }
    RefuseNewer(main, version);
}

} // namespace tally::store
