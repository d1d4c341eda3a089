#include "exams/MarkRepository.h"
#include "support/KilledSchool.h"

namespace tally::test {
namespace {

constexpr int Students = 60;
constexpr SchoolScope Division{1, 1, 1, 1};

/// English, subject 1, with a mark of 10 for each student, as one client stored it.
class MarkKill : public KilledSchool
{
protected:
    void SetUp() override
    {
        Lay(Students, [](store::Transaction& transaction) {
            MarkRepository::Insert(transaction, Division, Marks(transaction.On(), 10), 1);
        });
    }

    static std::vector<MarkRecord> Marks(store::Connection& main, double mark)
    {
        std::vector<MarkRecord> marks;
        auto rows = main.Query(QStringLiteral("SELECT StudentCode FROM StudentClassDivision"));
        while (rows.Next())
            marks.push_back({rows.Int(0), 1, mark, true, 0});
        return marks;
    }

    /// "60 of 10 to 10"; "none" without marks.
    static std::string State(store::Connection& main)
    {
        auto row = main.Query(QStringLiteral("SELECT count(*), min(Mark), max(Mark) FROM MarkMaster"));
        row.Next();
        return row.Int(0) == 0 ? std::string("none")
                               : QStringLiteral("%1 of %2 to %3")
                                     .arg(row.Text(0), row.Text(1), row.Text(2))
                                     .toStdString();
    }
};

TEST_F(MarkKill, AnEditKilledAtAnyFileOperationLeavesTheOldMarksOrTheNewOnesWhole)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            MarkRepository::Delete(transaction, Division, MarkMode::Subject, 1);
            MarkRepository::Insert(transaction, Division, Marks(transaction.On(), 20), 1);
        },
        State);
}

TEST_F(MarkKill, ADeleteKilledAtAnyFileOperationLeavesAllMarksOrNone)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            MarkRepository::Delete(transaction, Division, MarkMode::Subject, 1);
        },
        State);
}

} // namespace
} // namespace tally::test
