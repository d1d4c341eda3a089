#include "store/Compact.h"

#include "store/StoreError.h"
#include "store/Transaction.h"
#include "store/UnfinishedFile.h"

#include <QDir>
#include <QFileInfo>

namespace tally::store {

void Compact(Connection& main, const QString& password, const Progress& progress)
{
    const QDir folder(QFileInfo(main.Path()).path());
    const QString compacted = folder.filePath(QStringLiteral("MarkTemp.mdb"));
    RemoveDeadUnfinishedFiles(folder.path());
    QByteArray asCopied;
    {
        // Whoever saves meanwhile waits for this transaction, which writes nothing itself.
        const Transaction others(main);
        asCopied = main.CommitMark();
        UnfinishedFile before(folder.path(), main.Path());
        main.CopyTo(before.File(), progress);
        before.Finish();
        before.TakePlace(folder.filePath(QStringLiteral("Tallyboard.Bak")));

        UnfinishedFile work(folder.path(), main.Path());
        main.CopyTo(work.File(), progress);
        work.Finish();
        {
            Connection copy(work.Path(), password);
            copy.Vacuum();
            copy.Prove(false, progress);
        }
        work.TakePlace(compacted);
    }
    Connection source(compacted, password);
    main.PourFrom(
        source,
        [&] {
            // Between the two locks there is a moment.
            if (main.CommitMark() != asCopied)
                throw StoreError(
                    QStringLiteral("Another Client Has Saved Meanwhile. The Database Is As It Was. "
                                   "Please Try Again In A Moment"));
        },
        progress);
}

} // namespace tally::store
