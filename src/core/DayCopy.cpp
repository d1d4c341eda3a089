#include "core/DayCopy.h"

#include "core/DatabasePassword.h"
#include "core/SessionContext.h"
#include "store/Backup.h"
#include "store/StoreError.h"

#include <QDate>
#include <QDateTime>
#include <QFileInfo>
#include <QStringList>

namespace tally {

void DayCopy::NoteFile(const store::Connection& main)
{
    const QStringList copies = store::DayCopies(main.Path());
    allWasCopied_ =
        !copies.isEmpty() && QFileInfo(copies.last()).lastModified() >= QFileInfo(main.Path()).lastModified();
}

void DayCopy::NoteStart(store::Connection& main)
{
    noted_ = &main;
    ownChanges_ = main.RowsChanged();
    changesByOthers_ = main.ChangesByOthers();
}

bool DayCopy::IsDue(store::Connection& main) const
{
    try {
        // A connection that was opened since is one to a restored or compacted file.
        return !allWasCopied_ || noted_ != &main || main.RowsChanged() != ownChanges_ ||
               main.ChangesByOthers() != changesByOthers_;
    } catch (const store::StoreError&) {
        return true;
    }
}

void DayCopy::Keep(store::Connection& main)
{
    store::KeepDayCopy(main, DatabasePassword(Session()), QDate::currentDate());
}

} // namespace tally
