#include "store/Compact.h"

#include "store/Dialect.h"
#include "store/StoreError.h"
#include "store/Transaction.h"
#include "store/UnfinishedFile.h"

#include <QDir>
#include <QFileInfo>

#include <memory>

namespace tally::store {

void Compact(Connection& main, const QString& password, const Progress& progress)
{
    const QDir folder(QFileInfo(main.Path()).path());
    const QString compacted = folder.filePath(QStringLiteral("MarkTemp.mdb"));
    RemoveDeadUnfinishedFiles(folder.path());
    QByteArray asCopied;
    std::unique_ptr<Connection> source;
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
        source = std::make_unique<Connection>(compacted, password);
    }
    main.PourFrom(
        *source,
        [&] {
            // Between the two locks there is a moment.
            if (main.CommitMark() != asCopied)
                throw StoreError(dialect::FileInUse(), QStringLiteral("another client has saved meanwhile"));
        },
        progress);
}

} // namespace tally::store
