#pragma once

#include "ranks/RankComputation.h"
#include "ranks/TempRankTable.h"
#include "store/Transaction.h"

#include <optional>
#include <vector>

namespace tally {

/// All statements of the rank list on the school's own tables but for those of SchoolListRepository and
/// DivisionRepository. Each function runs a fixed number of them, whatever the size of the class. Throws
/// StoreError.
class RankRepository
{
public:
    /// `main` must outlive the repository.
    explicit RankRepository(store::Connection& main) : main_(main) {}

    /// All that a list of the divisions needs, which are given in list order, as of one moment.
    RankInput LoadRankInput(const SchoolScope& scope, const std::vector<int>& divisionCodes);

    /// The grades of the divisions in the order of their tables; a grade at two positions comes twice.
    std::vector<QString> LoadGradesInOrder(const SchoolScope& scope, const std::vector<int>& divisionCodes);

    /// Replaces the saved result of the divisions by these totals.
    static void ReplaceRankTotals(store::Transaction& main, const SchoolScope& scope,
                                  const std::vector<int>& divisionCodes,
                                  const std::vector<RankTotal>& totals);

private:
    std::vector<QString> LoadDistinctGrades(const SchoolScope& scope, const std::vector<int>& divisionCodes);
    std::vector<std::optional<double>> LoadFullMarks(const SchoolScope& scope,
                                                     const std::vector<int>& divisionCodes);

    store::Connection& main_;
};

} // namespace tally
