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

} // namespace

bool IsMainFile(Connection& file)
{
    const QStringList tables = TableNames(file);
    return std::any_of(tables.begin(), tables.end(), [](const QString& table) {
        return table.compare(QLatin1String("MRCODE"), Qt::CaseInsensitive) == 0;
    });
}

Restore::Restore(const QString& source, const QString& password, const Progress& progress)
    : source_(std::make_unique<Connection>(source, password))
{
    {
        const ReadTransaction moment(*source_);
        if (!IsMainFile(*source_))
            throw StoreError(QStringLiteral("This Is Not The Main Database Of This Program"));
        source_->Prove(true, progress);
    }
    if (source_->SchemaVersion() < MainVersion)
        UpgradeInCopy(password, progress);
    Upgrade(*source_);
    const ReadTransaction moment(*source_);
    ProveTables(*source_);
    provedAt_ = source_->ChangesByOthers();
}

Restore::~Restore()
{
    // The file in the folder is closed before the folder goes.
    source_.reset();
}

void Restore::UpgradeInCopy(const QString& password, const Progress& progress)
{
    workFolder_ = std::make_unique<QTemporaryDir>();
    QFile copy(workFolder_->filePath(QStringLiteral("Restore.mdb")));
    if (!workFolder_->isValid() ||
        !copy.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        throw StoreError(QStringLiteral("The Copy Could Not Be Written (%1)")
                             .arg(workFolder_->isValid() ? copy.errorString() : workFolder_->errorString()));
    {
        const ReadTransaction moment(*source_);
        source_->SchemaVersion();
        source_->CopyTo(copy, progress);
    }
    copy.close();
    source_ = std::make_unique<Connection>(copy.fileName(), password);
}

QString Restore::PourInto(Connection& main, const QDateTime& now, const Progress& progress)
{
    const QFileInfo file(main.Path());
    const QStringList earlier = KeptBeforeRestore(main.Path());
    RemoveDeadUnfinishedFiles(file.path());
    QString kept;
    try {
        const ReadTransaction still(*source_);
        // The user has been asked meanwhile, and the file may be another client's school.
        if (source_->ChangesByOthers() != provedAt_) {
            source_->Prove(true, progress);
            ProveTables(*source_);
        }
        main.PourFrom(
            *source_,
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
        QFile::remove(path);
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
