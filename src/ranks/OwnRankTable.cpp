#include "ranks/OwnRankTable.h"

#include "store/StoreError.h"

#include <utility>

namespace tally {

void OwnRankTable::Prepare(RankList list)
{
    list_ = std::move(list);
    laidDownAt_.reset();
}

bool OwnRankTable::IsLaidDown()
{
    return laidDownAt_ && *laidDownAt_ == temp_.ChangesByOthers();
}

void OwnRankTable::CommitOwn(store::Transaction& writing)
{
    // Asked while nobody else can commit; the own commit leaves the number as it is.
    const qint64 now = temp_.ChangesByOthers();
    writing.Commit();
    laidDownAt_ = now;
}

void OwnRankTable::Drop()
{
    list_.reset();
    if (!laidDownAt_)
        return;
    try {
        store::Transaction dropping(temp_);
        if (IsLaidDown())
            TempRankRepository::DropTempRankCalculation(dropping);
        dropping.Commit();
    } catch (const store::StoreError&) {
        // The table is working space.
    }
    laidDownAt_.reset();
}

} // namespace tally
