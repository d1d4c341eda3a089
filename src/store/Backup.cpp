#include "store/Backup.h"

#include "store/OwnFiles.h"
#include "store/StoreError.h"
#include "store/Transaction.h"
#include "store/UnfinishedFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStorageInfo>

namespace tally::store {

namespace {

constexpr qsizetype DaysKept = 7;
/// A copy leaves as much room as this many files like it, since the next save needs room too.
constexpr qint64 RoomKept = 2;

/// Where the file would really lie: a link leads on to the place that somebody meant by it.
QString PlaceOf(const QString& destination)
{
    const QFileInfo place(destination);
    if (!place.isAbsolute() || place.isDir() || !QFileInfo(place.path()).isDir())
        throw StoreError(QStringLiteral("Invalid File Name"));
    return place.exists() ? place.canonicalFilePath() : destination;
}

QString DayName(const QFileInfo& main, const QDate& day)
{
    return QStringLiteral("%1 copy of %2.%3")
        .arg(main.completeBaseName(), day.toString(Qt::ISODate), main.suffix());
}

} // namespace

void BackUp(Connection& main, const QString& password, const QString& destination, const Progress& progress)
{
    const QString place = PlaceOf(destination);
    const QString folder = QFileInfo(place).path();
    RemoveDeadUnfinishedFiles(folder);
    UnfinishedFile copy(folder, main.Path());
    {
        const ReadTransaction moment(main);
        // The lock comes with the first reading.
        main.SchemaVersion();
        main.CopyTo(copy.File(), progress);
    }
    copy.Finish();
    Connection(copy.Path(), password).Prove(false, progress);
    copy.TakePlace(place);
}

void KeepDayCopy(Connection& main, const QString& password, const QDate& day)
{
    const QFileInfo file(main.Path());
    try {
        const QStorageInfo disk(file.path());
        if (disk.isValid() && disk.bytesAvailable() < file.size() * (1 + RoomKept))
            return;
        BackUp(main, password, file.dir().filePath(DayName(file, day)));
    } catch (const StoreError&) {
        return;
    }
    QStringList copies = DayCopies(main.Path());
    while (copies.size() > DaysKept)
        QFile::remove(copies.takeFirst());
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
        if (match.hasMatch() && QDate::fromString(match.captured(1), Qt::ISODate).isValid() &&
            IsPlainFile(path))
            copies.append(path);
    }
    return copies;
}

} // namespace tally::store
