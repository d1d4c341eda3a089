#include "store/Backup.h"

#include "store/OwnFiles.h"
#include "store/StoreError.h"
#include "store/Transaction.h"
#include "store/UnfinishedFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <memory>

namespace tally::store {

namespace {

constexpr qsizetype DaysKept = 7;
/// What the names of the copies go on with that the program makes beside the file by itself.
constexpr std::array OwnCopies{" copy of ", " before restore ", " before upgrade "};

StoreError InvalidName()
{
    return StoreError(QStringLiteral("Invalid File Name"));
}

/// Where the file would really lie: a link leads on to the place that somebody meant by it.
QString PlaceOf(const QString& destination)
{
    const QFileInfo place(destination);
    if (!place.isAbsolute() || !QFileInfo(place.path()).isDir() ||
        (!place.isFile() && !IsFreeName(destination)))
        throw InvalidName();
    return place.exists() ? place.canonicalFilePath() : destination;
}

/// Sees, in a folder that takes files, whether its disk takes this name, of which a long copy would else be
/// told at its end. A program that is killed meanwhile leaves an empty file.
void ProveName(const QString& place)
{
    QFile file(place);
    if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        file.remove();
    else if (IsFreeName(place))
        throw InvalidName();
}

void CopyMoment(Connection& main, QFile& copy, const Progress& progress)
{
    const ReadTransaction moment(main);
    // The lock comes with the first reading.
    main.SchemaVersion();
    main.CopyTo(copy, progress);
}

/// Hears of one half of the work and tells of the whole.
Progress Half(const Progress& progress, int half)
{
    if (!progress)
        return {};
    return [progress, half](qint64 done, qint64 total) { return progress(half * total + done, 2 * total); };
}

void CopyFile(QFile& from, QFile& to, const Progress& progress)
{
    constexpr qint64 Step = 1 << 20;
    const qint64 size = from.size();
    if (!from.seek(0))
        throw CopyFailure();
    while (!from.atEnd()) {
        Tell(progress, from.pos(), size);
        const QByteArray bytes = from.read(Step);
        if (bytes.isEmpty())
            throw CopyFailure();
        WriteAll(to, bytes);
    }
}

/// For a disk that may be slow: others wait for a copy on the own disk only. False where that has no room for
/// one.
bool CopyByOwnDisk(Connection& main, QFile& copy, const Progress& progress)
{
    const QFileInfo file(main.Path());
    if (!HasRoomFor(file.size(), file.path()))
        return false;
    std::unique_ptr<UnfinishedFile> own;
    try {
        own = std::make_unique<UnfinishedFile>(file.path(), main.Path());
        CopyMoment(main, own->File(), Half(progress, 0));
    } catch (const Cancelled&) {
        throw;
    } catch (const StoreError& error) {
        if (error.IsLocked())
            throw;
        return false;
    }
    CopyFile(own->File(), copy, Half(progress, 1));
    return true;
}

QString DayName(const QFileInfo& main, const QDate& day)
{
    return QStringLiteral("%1 copy of %2.%3")
        .arg(main.completeBaseName(), day.toString(Qt::ISODate), main.suffix());
}

} // namespace

void BackUp(Connection& main, const QString& password, const QString& destination, const Progress& progress,
            Occupied occupied)
{
    const QString place = PlaceOf(destination);
    const QString folder = QFileInfo(place).path();
    RemoveDeadUnfinishedFiles(folder);
    UnfinishedFile copy(folder, main.Path());
    ProveName(place);
    if (AreOnOneDisk(folder, QFileInfo(main.Path()).path()) || !CopyByOwnDisk(main, copy.File(), progress))
        CopyMoment(main, copy.File(), progress);
    copy.Finish();
    Connection(copy.Path(), password).Prove(false, progress);
    if (occupied == Occupied::Replace)
        copy.TakePlace(place);
    else
        copy.TakeFreePlace(place);
}

void KeepDayCopy(Connection& main, const QString& password, const QDate& day)
{
    const QFileInfo file(main.Path());
    const QString made = file.dir().filePath(DayName(file, day));
    try {
        if (!HasRoomFor(file.size(), file.path()))
            return;
        BackUp(main, password, made);
    } catch (const StoreError&) {
        return;
    }
    QStringList others = DayCopies(main.Path());
    others.removeOne(made);
    std::stable_partition(others.begin(), others.end(), [&made](const QString& copy) { return copy > made; });
    while (others.size() >= DaysKept)
        QFile::remove(others.takeFirst());
}

QStringList DayCopies(const QString& main)
{
    const QFileInfo file(main);
    const QRegularExpression ownName(QStringLiteral("^%1 copy of (\\d{4}-\\d\\d-\\d\\d)\\.%2$")
                                         .arg(QRegularExpression::escape(file.completeBaseName()),
                                              QRegularExpression::escape(file.suffix())));
    QStringList copies;
    for (const QString& name : file.dir().entryList(QDir::Files, QDir::Name)) {
        const auto match = ownName.match(name);
        const QString path = file.dir().filePath(name);
        if (QDate::fromString(match.captured(1), Qt::ISODate).isValid() && IsPlainFile(path))
            copies.append(path);
    }
    return copies;
}

bool IsOwnCopy(const QString& path, const QString& main)
{
    const QFileInfo file(main);
    const QFileInfo copy(path);
    // A disk may take capitals and small letters for the same.
    return QDir(copy.path()).canonicalPath() == QDir(file.path()).canonicalPath() &&
           std::any_of(OwnCopies.begin(), OwnCopies.end(), [&](const char* kind) {
               return copy.fileName().startsWith(file.completeBaseName() + QLatin1String(kind),
                                                 Qt::CaseInsensitive);
           });
}

} // namespace tally::store
