#include "ranks/OwnRankTable.h"

#include "support/TestSchool.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// One client's list in the table that all clients share.
class OwnRankTableTest : public testing::Test
{
protected:
    OwnRankTableTest()
    {
        school.AddUsualDivision(1);
        school.AddMarkedStudent(QStringLiteral("Asha"), {60});
    }

    QStringList Names()
    {
        return table.Read([](TempRankRepository& working) {
            QStringList names;
            for (const TempRankRow& row : working.LoadTempRankCalculation(RankOrder::Rank, {}).rows)
                names.append(row.studentName);
            return names;
        });
    }

    TestSchool school;
    OwnRankTable table{school.temp};
};

TEST_F(OwnRankTableTest, ReadsTheListPreparedLast)
{
    table.Prepare(school.Compute());
    ASSERT_EQ(Names(), QStringList(QStringLiteral("Asha")));
    school.AddMarkedStudent(QStringLiteral("Binu"), {70});
    table.Prepare(school.Compute());
    EXPECT_EQ(Names(), QStringList({QStringLiteral("Binu"), QStringLiteral("Asha")}));
}

TEST_F(OwnRankTableTest, WhoHasLaidNothingDownDropsNothingAndWaitsForNobody)
{
    table.Prepare(school.Compute());
    auto before = school.temp.StatementsRun();
    table.Drop();
    EXPECT_EQ(school.temp.StatementsRun(), before);

    table.Prepare(school.Compute());
    Names();
    table.Drop();
    EXPECT_FALSE(table.IsPrepared());
    before = school.temp.StatementsRun();
    table.Drop();
    EXPECT_EQ(school.temp.StatementsRun(), before) << "a second time";
}

} // namespace
} // namespace tally::test
