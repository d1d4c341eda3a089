#include "exams/GradeSetupRepository.h"
#include "support/KilledSchool.h"

namespace tally::test {
namespace {

constexpr SchoolScope Division{1, 1, 1, 1};

/// The grade table of a division, beside one of another exam, while clients are killed that work on it.
class GradeSetupKill : public KilledSchool
{
protected:
    void SetUp() override
    {
        Lay(3, [](store::Transaction& transaction) {
            transaction.Execute(
                QStringLiteral("INSERT INTO ExamMaster (ExamCode, ExamName, ExamOrder) VALUES (2, 'T', 2)"));
            GradeSetupRepository::Replace(transaction, {1, 2, 1, 1}, {{0, 0, "P"}});
        });
    }

    static const Reading& AllGrades()
    {
        static const Reading reading =
            RowsOf("SELECT ExamCode, Status, TotalAverage, SubjectAverage, Grade FROM RankMaster "
                   "ORDER BY ExamCode, Status");
        return reading;
    }
    static std::vector<GradeRecord> FortyGrades()
    {
        std::vector<GradeRecord> rows;
        for (int row = 39; row >= 0; --row)
            rows.push_back({row * 1.0, row * 1.0, QString::number(row)});
        return rows;
    }
};

TEST_F(GradeSetupKill, AnEditKilledAtAnyFileOperationLeavesTheOldTableOrTheNewOneWhole)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            const auto found = GradeSetupRepository(transaction.On()).Rows(Division);
            ASSERT_FALSE(found.empty());
            EXPECT_EQ(SaveGrades(transaction, Division, found, FortyGrades()), QString());
        },
        AllGrades());
}

TEST_F(GradeSetupKill, ADeleteKilledAtAnyFileOperationLeavesTheWholeTableOrNone)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            const auto found = GradeSetupRepository(transaction.On()).Rows(Division);
            EXPECT_EQ(DeleteGrades(transaction, Division, found), QString());
        },
        AllGrades());
}

} // namespace
} // namespace tally::test
