#include "ranks/RankRepository.h"
#include "support/KilledSchool.h"

namespace tally::test {
namespace {

constexpr int Students = 120;
constexpr SchoolScope Class{1, 1, 1};

class RankKill : public KilledSchool
{
protected:
    void SetUp() override
    {
        Lay(Students, [](store::Transaction& transaction) {
            RankRepository::ReplaceRankTotals(transaction, Class, {1}, Totals(transaction.On(), 1));
        });
    }

    /// A saved list in which all have the same rank.
    static std::vector<RankTotal> Totals(store::Connection& main, int rank)
    {
        std::vector<RankTotal> totals;
        auto rows = main.Query(QStringLiteral("SELECT StudentCode FROM StudentClassDivision"));
        while (rows.Next()) {
            RankTotal total;
            total.studentCode = rows.Int(0);
            total.divisionCode = 1;
            total.rank = rank;
            total.grade = QStringLiteral("A");
            totals.push_back(total);
        }
        return totals;
    }

    static std::string State(store::Connection& main)
    {
        auto row = main.Query(QStringLiteral("SELECT count(*), min(Rank), max(Rank) FROM TempRankTotal"));
        row.Next();
        return QStringLiteral("%1 of %2 to %3").arg(row.Text(0), row.Text(1), row.Text(2)).toStdString();
    }
};

TEST_F(RankKill, ASaveKilledAtAnyFileOperationLeavesTheOldRowsOrTheNewOnesWhole)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            RankRepository::ReplaceRankTotals(transaction, Class, {1}, Totals(transaction.On(), 2));
        },
        State);
}

} // namespace
} // namespace tally::test
