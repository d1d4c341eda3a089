#include "store/UnfinishedFile.h"

#include "store/OwnFiles.h"
#include "store/StoreError.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>

namespace tally::store {

namespace {

/// Two programs that begin a file at the same moment take the same name by a chance of one in four thousand
/// millions; the second tries once more.
constexpr int Tries = 10;
/// A live program writes all the time; one that has been silent for so long is dead, or its computer sleeps
/// and will find that its copy has gone.
constexpr qint64 SecondsUntilDead = 3600;

QString FreshName(const QString& folder)
{
    const quint32 number = QRandomGenerator::global()->generate();
    return QDir(folder).filePath(QStringLiteral("Tallyboard.%1.part").arg(number, 8, 16, QLatin1Char('0')));
}

StoreError NoName()
{
    return StoreError(QStringLiteral("The Copy Could Not Be Written (its name could not be given)"));
}

/// The engine would take a journal beside the place for one of this file, and put old pages into it.
void RefuseForeignJournal(const QString& path)
{
    const QFileInfo journal(path + QLatin1String("-journal"));
    if (journal.size() > 0)
        throw StoreError(QStringLiteral("The Copy Could Not Be Written (%1 belongs to a file that is in use, "
                                        "or holds an unfinished save)")
                             .arg(QDir::toNativeSeparators(journal.filePath())));
}

} // namespace

UnfinishedFile::UnfinishedFile(const QString& folder, const QString& original)
{
    for (int tried = 1;; ++tried) {
        file_.setFileName(FreshName(folder));
        if (file_.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered,
                       QFileDevice::ReadOwner | QFileDevice::WriteOwner))
            break;
        const StoreError failure = CopyFailure();
        if (tried == Tries || IsFreeName(Path()))
            throw failure;
    }
    TakeRightsOf(file_, original);
}

UnfinishedFile::~UnfinishedFile()
{
    if (placed_)
        return;
    file_.close();
    QFile::remove(Path());
    // An engine that was stopped while it worked in the file has left this beside it.
    QFile::remove(Path() + QLatin1String("-journal"));
}

void UnfinishedFile::Finish()
{
    if (!BringToDisk(file_))
        throw CopyFailure();
    file_.close();
}

void UnfinishedFile::TakePlace(const QString& path)
{
    RefuseForeignJournal(path);
    if (!MoveInPlace(Path(), path))
        throw NoName();
    placed_ = true;
}

void UnfinishedFile::TakeFreePlace(const QString& path)
{
    RefuseForeignJournal(path);
    if (!MoveToFreeName(Path(), path))
        throw IsFreeName(path)
            ? NoName()
            : StoreError(QStringLiteral("File With The Given Name Already Exists. It Is Left As It Is"));
    placed_ = true;
}

QString UnfinishedFile::TakeNumberedName(const QString& base, const QString& suffix)
{
    QString path = MoveToNumberedName(Path(), QFileInfo(Path()).path(), base, suffix);
    if (path.isEmpty())
        throw NoName();
    placed_ = true;
    return path;
}

void RemoveDeadUnfinishedFiles(const QString& folder)
{
    static const QRegularExpression OwnName(QStringLiteral("^Tallyboard\\.[0-9a-f]{8}\\.part(-journal)?$"));
    const QDateTime dead = QDateTime::currentDateTime().addSecs(-SecondsUntilDead);
    const QDir all(folder);
    for (const QString& name : all.entryList({QStringLiteral("Tallyboard.*.part*")}, QDir::Files)) {
        const QString path = all.filePath(name);
        if (OwnName.match(name).hasMatch() && IsPlainFile(path) && QFileInfo(path).lastModified() < dead)
            QFile::remove(path);
    }
}

} // namespace tally::store
