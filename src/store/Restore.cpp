#include "store/Restore.h"

#include "store/Dialect.h"
#include "store/OwnFiles.h"
#include "store/StoreError.h"
#include "store/Tables.h"
#include "store/Transaction.h"
#include "store/UnfinishedFile.h"
#include "store/Upgrade.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace tally::store {

namespace {

QString KeptBase(const QFileInfo& main)
{
    return main.completeBaseName() + QStringLiteral(" before restore");
}

QStringList TableNames(Connection& file)
{
    QStringList names;
    auto rows = file.Query(dialect::ReadTableNames());
    while (rows.Next())
        names.append(rows.Text(0));
    return names;
}

QStringList Columns(Connection& file, const QString& table)
{
    const Statement row = file.Prepare(QStringLiteral("SELECT * FROM \"%1\"").arg(table));
    QStringList columns;
    for (int column = 0; column < row.ColumnCount(); ++column)
        columns.append(row.ColumnName(column));
    return columns;
}

/// Every table and column that this program's statements may name.
void ProveTables(Connection& file)
{
    Connection known = Connection::InMemory();
    {
        Transaction making(known);
        CreateMainTables(making);
        making.Commit();
    }
    const QStringList there = TableNames(file);
    for (const QString& table : TableNames(known)) {
        const QStringList columns = there.contains(table) ? Columns(file, table) : QStringList();
        for (const QString& column : Columns(known, table))
            if (!columns.contains(column))
                throw StoreError(
                    QStringLiteral("The Source File Is Not Complete. It Lacks %1 Of %2").arg(column, table));
    }
}

/// Where nothing was restored, what was kept is one file too many, but only as long as the file itself can be
/// read.
void RemoveNeedless(const QString& kept, Connection& main)
{
    if (kept.isEmpty())
        return;
    try {
        main.SchemaVersion();
        QFile::remove(kept);
    } catch (const StoreError&) {
        // It is what the school has.
    }
}

QStringList ScreensInUse(Connection& file)
{
    QStringList screens;
    auto rows = file.Query(QStringLiteral("SELECT Screen FROM ScreenStatus"));
    while (rows.Next())
        screens.append(rows.Text(0));
    return screens;
}

/// Behind a restore the clients have open what they had open before it, as the file `kept` tells, and nothing
/// of what was open when the source was made.
void KeepScreensInUse(Connection& main, const QStringList& ofSource, const QString& kept,
                      const QString& password)
{
    try {
        Connection before(kept, password);
        const QStringList ofNow = ScreensInUse(before);
        if (ofSource.isEmpty() && ofNow.isEmpty())
            return;
        Transaction transaction(main);
        for (const QString& screen : ofSource)
            transaction.Execute(QStringLiteral("DELETE FROM ScreenStatus WHERE Screen = ?"), screen);
        for (const QString& screen : ofNow)
            transaction.Execute(QStringLiteral("INSERT INTO ScreenStatus (Screen) VALUES (?)"), screen);
        transaction.Commit();
    } catch (const StoreError&) {
        // A row too many shuts a screen for all of them until the next start of a client, which clears it;
        // that is not worth a word.
    }
}

/// A copy of the source beside the main file where the source lies on another disk, which may be slow: nobody
/// can read or save while it is poured. Null where it lies on the same one, or no room is left for a copy.
std::unique_ptr<UnfinishedFile> CopyFromOtherDisk(Connection& source, const Connection& main,
                                                  const Progress& progress)
{
    const QString folder = QFileInfo(main.Path()).path();
    if (AreOnOneDisk(source.Path(), folder) || !HasRoomFor(QFileInfo(source.Path()).size(), folder))
        return {};
    try {
        auto copy = std::make_unique<UnfinishedFile>(folder, main.Path());
        source.CopyTo(copy->File(), progress);
        return copy;
    } catch (const Cancelled&) {
        throw;
    } catch (const StoreError&) {
        return {};
    }
}

} // namespace

bool IsMainFile(Connection& file)
{
    const QStringList tables = TableNames(file);
    return std::any_of(tables.begin(), tables.end(), [](const QString& table) {
        return table.compare(QLatin1String("MRCODE"), Qt::CaseInsensitive) == 0;
    });
}

Restore::Restore(const QString& source, const QString& password, const Progress& progress)
    : path_(source), password_(password), source_(std::make_unique<Connection>(source, password))
{
    QString copy;
    {
        const ReadTransaction moment(*source_);
        if (!IsMainFile(*source_))
            throw StoreError(QStringLiteral(
                "The Source File Is Not A 'KITE-Tally Board' Database File. Select Correct File"));
        source_->Prove(true, progress);
        if (source_->SchemaVersion() < MainVersion) {
            copy = CopyForUpgrade(progress);
        } else {
            Upgrade(*source_);
            ProveTables(*source_);
            provedAt_ = source_->ChangesByOthers();
        }
    }
    if (!copy.isEmpty())
        UpgradeCopy(copy);
}

QString Restore::CopyForUpgrade(const Progress& progress)
{
    workFolder_ = std::make_unique<QTemporaryDir>();
    if (!workFolder_->isValid())
        throw StoreError(
            QStringLiteral("The Copy Could Not Be Written (%1)").arg(workFolder_->errorString()));
    QFile copy(workFolder_->filePath(QStringLiteral("Restore.mdb")));
    if (!copy.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        throw CopyFailure();
    source_->CopyTo(copy, progress);
    return copy.fileName();
}

void Restore::UpgradeCopy(const QString& copy)
{
    try {
        source_ = std::make_unique<Connection>(copy, password_);
        Upgrade(*source_);
        ProveTables(*source_);
        provedAt_ = source_->ChangesByOthers();
    } catch (const StoreError& error) {
        // The clerk knows the file that he chose, and no other.
        QString told = error.Description();
        throw StoreError(told.replace(QDir::toNativeSeparators(copy), QDir::toNativeSeparators(path_)));
    }
}

QString Restore::PourInto(Connection& main, const QDateTime& now, const Progress& progress)
{
    const QFileInfo file(main.Path());
    const QStringList earlier = KeptBeforeRestore(main.Path());
    RemoveDeadUnfinishedFiles(file.path());
    QString kept;
    QStringList screensOfSource;
    try {
        const ReadTransaction still(*source_);
        // The user has been asked meanwhile, and the file may be another client's school.
        if (source_->ChangesByOthers() != provedAt_) {
            source_->Prove(true, progress);
            ProveTables(*source_);
        }
        screensOfSource = ScreensInUse(*source_);
        const std::unique_ptr<UnfinishedFile> copy = CopyFromOtherDisk(*source_, main, progress);
        const auto copied = copy ? std::make_unique<Connection>(copy->Path(), password_) : nullptr;
        main.PourFrom(
            copied ? *copied : *source_,
            [&] {
                UnfinishedFile before(file.path(), main.Path());
                main.CopyTo(before.File(), progress);
                before.Finish();
                kept = before.TakeNumberedName(
                    KeptBase(file) + now.toString(QStringLiteral(" yyyy-MM-dd HH.mm")), file.suffix());
            },
            progress);
    } catch (const StoreError&) {
        RemoveNeedless(kept, main);
        throw;
    }
    for (const QString& path : earlier)
        if (!AreOneFile(path, path_))
            QFile::remove(path);
    KeepScreensInUse(main, screensOfSource, kept, password_);
    return kept;
}

QStringList KeptBeforeRestore(const QString& main)
{
    const QFileInfo file(main);
    const QRegularExpression ownName(
        QStringLiteral("^%1 \\d{4}-\\d\\d-\\d\\d \\d\\d\\.\\d\\d( \\(\\d+\\))?\\.%2$")
            .arg(QRegularExpression::escape(KeptBase(file)), QRegularExpression::escape(file.suffix())));
    QStringList kept;
    for (const QString& name : file.dir().entryList(QDir::Files, QDir::Name)) {
        const QString path = file.dir().filePath(name);
        if (ownName.match(name).hasMatch() && IsPlainFile(path))
            kept.append(path);
    }
    return kept;
}

} // namespace tally::store
