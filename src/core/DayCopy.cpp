#include "core/DayCopy.h"

#include "core/DatabasePassword.h"
#include "core/SessionContext.h"
#include "store/Backup.h"
#include "store/StoreError.h"

#include <QDate>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace tally {

namespace {

QDateTime TimeOf(const QString& path)
{
    return QFileInfo(path).lastModified();
}

/// The copy that was made or noted last, whatever day its name tells; empty for none. What a wrong clock has
/// made in days to come says nothing.
QString NewestCopy(const store::Connection& main)
{
    const QDateTime now = QDateTime::currentDateTime();
    QString newest;
    for (const QString& copy : store::DayCopies(main.Path()))
        if (TimeOf(copy) <= now && (newest.isEmpty() || TimeOf(copy) > TimeOf(newest)))
            newest = copy;
    return newest;
}

} // namespace

void DayCopy::NoteFile(const store::Connection& main)
{
    const QString newest = NewestCopy(main);
    allWasCopied_ = !newest.isEmpty() && TimeOf(newest) >= TimeOf(main.Path());
}

void DayCopy::NoteStart(store::Connection& main)
{
    noted_ = openings;
    ownChanges_ = main.RowsChanged();
    changesByOthers_ = main.ChangesByOthers();
}

bool DayCopy::IsDue(store::Connection& main) const
{
    try {
        // A connection that was opened since knows nothing of the changes before, and the file may be a
        // restored one.
        return !allWasCopied_ || noted_ != openings || main.RowsChanged() != ownChanges_ ||
               main.ChangesByOthers() != changesByOthers_;
    } catch (const store::StoreError&) {
        return true;
    }
}

void DayCopy::Keep(store::Connection& main)
{
    store::KeepDayCopy(main, DatabasePassword(Session()), QDate::currentDate());
}

void DayCopy::NoteNoWork(store::Connection& main) const
{
    try {
        const QDateTime left = TimeOf(main.Path());
        // What another client has stored since IsDue is behind this time, or is seen here.
        QFile copy(NewestCopy(main));
        if (main.ChangesByOthers() == changesByOthers_ &&
            copy.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
            copy.setFileTime(left, QFileDevice::FileModificationTime);
    } catch (const store::StoreError&) {
        // The next session makes a copy too many.
    }
}

} // namespace tally
