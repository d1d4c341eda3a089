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

} // namespace

UnfinishedFile::UnfinishedFile(const QString& folder, const QString& original)
{
    bool open = false;
    for (int tried = 0; tried < Tries && !open; ++tried) {
        file_.setFileName(FreshName(folder));
        open = file_.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        if (!open && IsFreeName(file_.fileName()))
            break;
    }
    if (!open)
        Fail(file_.errorString());
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

void UnfinishedFile::Fail(const QString& reason) const
{
    throw StoreError(QStringLiteral("The Copy Could Not Be Written (%1)").arg(reason));
}

void UnfinishedFile::Finish()
{
    if (!BringToDisk(file_))
        Fail(file_.errorString());
    file_.close();
}

void UnfinishedFile::TakePlace(const QString& path)
{
    // The engine would take a journal beside the place for one of this file, and put old pages into it.
    const QFileInfo journal(path + QLatin1String("-journal"));
    if (journal.exists() && journal.size() > 0)
        Fail(QStringLiteral("the file in its place is in use, or holds an unfinished save"));
    if (!MoveInPlace(Path(), path))
        Fail(QStringLiteral("its name could not be given"));
    placed_ = true;
}

QString UnfinishedFile::TakeNumberedName(const QString& base, const QString& suffix)
{
    QString path = MoveToNumberedName(Path(), QFileInfo(Path()).path(), base, suffix);
    if (path.isEmpty())
        Fail(QStringLiteral("its name could not be given"));
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
