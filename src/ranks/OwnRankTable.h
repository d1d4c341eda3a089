#pragma once

#include "ranks/TempRankRepository.h"

#include <optional>

namespace tally {

/// This client's rank list in TempRankCalculation. All clients use the one table, and each replaces what
/// another left there; whatever they do, what is read through here is the own list.
class OwnRankTable
{
public:
    /// `temp` must outlive the table.
    explicit OwnRankTable(store::Connection& temp) : temp_(temp) {}

    /// The list prepared. The next Read lays it down.
    void Prepare(RankList list);
    bool IsPrepared() const { return list_.has_value(); }
    /// Only while one is prepared.
    const RankList& List() const { return *list_; }

    /// What `work` gives when it runs on the table while that holds the own list. Where another client has
    /// written to the file, the list is laid down again in the transaction that reads it. `work` should keep
    /// off the other files, whose writers would wait for this one. Throws StoreError; the list stays
    /// prepared.
    template <typename Work>
    auto Read(const Work& work)
    {
        TempRankRepository table(temp_);
        {
            const store::ReadTransaction reading(temp_);
            if (IsLaidDown())
                return work(table);
        }
        store::Transaction writing(temp_);
        TempRankRepository::FillTempRankCalculation(writing, *list_);
        auto result = work(table);
        CommitOwn(writing);
        return result;
    }

    /// Forgets the list and drops the table, unless another client may have laid down its own there since. A
    /// drop that fails is let go: the next list that anyone prepares replaces what is left.
    void Drop();

private:
    bool IsLaidDown();
    void CommitOwn(store::Transaction& writing);

    store::Connection& temp_;
    std::optional<RankList> list_;
    std::optional<qint64> laidDownAt_; ///< ChangesByOthers() when the list was laid down
};

} // namespace tally
