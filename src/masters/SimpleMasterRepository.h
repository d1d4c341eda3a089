#pragma once

#include "core/CodedTexts.h"
#include "core/GridResult.h"
#include "masters/SimpleMasterDefinitions.h"
#include "store/Transaction.h"

#include <QString>
#include <QStringList>

namespace tally {

/// What the boxes of a simple master hold when they are saved.
struct SimpleMasterEntry
{
    int code = 0;       ///< 0 for a new row
    int parentCode = 0; ///< 0 where none is chosen, or the master has no parent
    QStringList values; ///< one per field of the definition, trimmed
    QString heldName;   ///< the name when the row was selected; empty for a new row
};

/// Runs the statements of one definition. Throws StoreError.
class SimpleMasterRepository
{
public:
    /// `definition` and `main` must outlive the repository.
    SimpleMasterRepository(store::Connection& main, const SimpleMasterDefinition& definition)
        : main_(main), definition_(definition)
    {}

    /// The rows whose name holds `search`, small and capital letters alike, of the parent chosen; of all with
    /// 0.
    GridResult Rows(const QString& search, int parentCode);
    /// Code and text of each line of the parent list, the blank one first; nothing where there is no parent.
    CodedTexts Parents();
    /// The first test by which another row has what the entry holds; null when none has.
    const DuplicateTest* Duplicate(const SimpleMasterEntry& entry);

    /// Stores a new row under the next code.
    void Insert(store::Transaction& transaction, const SimpleMasterEntry& entry, int userCode);
    /// A general failure when the row is no longer there.
    void Update(store::Transaction& transaction, const SimpleMasterEntry& entry, int userCode);
    /// A general failure when other rows refer to the row. One that is gone already is no failure.
    void Delete(store::Transaction& transaction, int code);

private:
    /// `statement` with every placeholder bound that it has.
    store::Statement Bound(store::Statement statement, const SimpleMasterEntry& entry,
                           int userCode = 0) const;

    store::Connection& main_;
    const SimpleMasterDefinition& definition_;
};

} // namespace tally
