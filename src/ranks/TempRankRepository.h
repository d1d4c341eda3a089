#pragma once

#include "ranks/RankComputation.h"
#include "ranks/TempRankTable.h"
#include "store/Transaction.h"

#include <cstdint>
#include <vector>

namespace tally {

/// The four orders in which a rank list is shown.
enum class RankOrder : std::uint8_t
{
    Rank,         ///< optRankOrder
    Grade,        ///< optGradeOrder
    AdmissionNo,  ///< optAdmissionNoOrder
    Alphabetical, ///< optAlphabeticalOrder
};

/// All statements on TempRankCalculation, the rank list's working table in the temporary file, which all
/// clients share: screens go through OwnRankTable. Each function runs a fixed number of statements, whatever
/// the size of the class. Throws StoreError.
class TempRankRepository
{
public:
    /// `temp` must outlive the repository.
    explicit TempRankRepository(store::Connection& temp) : temp_(temp) {}

    /// Makes TempRankCalculation anew from the list; one that stands already is dropped. A run that dies
    /// leaves the old table or the new one, never a part of it.
    static void FillTempRankCalculation(store::Transaction& temp, const RankList& list);
    /// Nothing happens where there is no table.
    static void DropTempRankCalculation(store::Transaction& temp);

    /// For the grade order the rows of those divisions whose grade is not Null, by rank and total; for the
    /// other orders all rows.
    TempRankTable LoadTempRankCalculation(RankOrder order, const std::vector<int>& divisionCodes);
    /// Adds the rows whose grade is Null.
    void AppendRowsWithoutGrade(TempRankTable& table);
    /// What is saved of each student.
    std::vector<RankTotal> LoadRankTotals();

private:
    store::Connection& temp_;
};

} // namespace tally
