#include "ranks/TempRankRepository.h"

#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// Rows in no order at all, some of them equal in what they are ordered by.
class TempRankRows : public testing::Test
{
protected:
    void SetUp() override
    {
        store::Transaction transaction(temp);
        TempRankRepository::FillTempRankCalculation(transaction, {});
        transaction.Commit();
        Add(1, "Cara", "B7", 1, 2, 50, "'C'");
        Add(4, "Asha", "B7", 1, 1, 80, "'A'");
        Add(3, "Asha", "A9", 2, 1, 80, "'A'");
        Add(2, "Binu", "A9", 1, 1, 90, "'A'");
        Add(6, "Dev", "C1", 2, 3, 40, "NULL");
    }

    void Add(int studentCode, const char* name, const char* admissionNo, int divisionCode, int rank,
             double total, const char* grade)
    {
        temp.Execute(QStringLiteral("INSERT INTO TempRankCalculation (StudentCode, StudentName, AdmissionNo, "
                                    "DivisionCode, Rank, Total, Grade) VALUES (?, ?, ?, ?, ?, ?, %1)")
                         .arg(QLatin1String(grade)),
                     studentCode, name, admissionNo, divisionCode, rank, total);
    }

    static std::string Codes(const TempRankTable& table)
    {
        QStringList codes;
        for (const TempRankRow& row : table.rows)
            codes.append(QString::number(row.studentCode));
        return codes.join(QLatin1Char(' ')).toStdString();
    }
    std::string Codes(RankOrder order, const std::vector<int>& divisions = {1, 2})
    {
        return Codes(working.LoadTempRankCalculation(order, divisions));
    }

    store::Connection temp = DeliveredTempStore();
    TempRankRepository working{temp};
};

TEST_F(TempRankRows, StandByRankThenByTotalThenByStudent)
{
    EXPECT_EQ(Codes(RankOrder::Rank), "3 4 2 1 6");
}

TEST_F(TempRankRows, StandByAdmissionNumberThenByStudent)
{
    EXPECT_EQ(Codes(RankOrder::AdmissionNo), "2 3 1 4 6");
}

TEST_F(TempRankRows, StandByNameThenByStudent)
{
    EXPECT_EQ(Codes(RankOrder::Alphabetical), "3 4 2 1 6");
}

TEST_F(TempRankRows, WithAGradeAreThoseOfTheDivisionsInTheOrderOfTheRank)
{
    EXPECT_EQ(Codes(RankOrder::Grade), "3 4 2 1");
    EXPECT_EQ(Codes(RankOrder::Grade, {1}), "4 2 1");
    EXPECT_EQ(Codes(RankOrder::Grade, {2}), "3");
    EXPECT_EQ(Codes(RankOrder::Grade, {}), "");
}

TEST_F(TempRankRows, WithoutARankAreReadAsThoseThatGotNone)
{
    temp.Execute(QStringLiteral("UPDATE TempRankCalculation SET Rank = NULL, Division = 'A' WHERE "
                                "StudentCode = 1"));
    QStringList ranks;
    for (const TempRankRow& row : working.LoadTempRankCalculation(RankOrder::Alphabetical, {}).rows)
        ranks.append(QString::number(row.rank));
    EXPECT_EQ(ranks.join(QLatin1Char(' ')).toStdString(), "1 1 1 999999999 3");
}

TEST_F(TempRankRows, WithoutAGradeAreAppended)
{
    TempRankTable table;
    working.AppendRowsWithoutGrade(table);
    EXPECT_EQ(Codes(table), "6");
}

TEST(TextPoolTest, KeepsEachTextOnceUnderTheNumberItWasGivenFirst)
{
    TextPool pool;
    EXPECT_EQ(pool.Add("90"), 0U);
    EXPECT_EQ(pool.Add("80"), 1U);
    EXPECT_EQ(pool.Add("90"), 0U);
    EXPECT_EQ(pool.Size(), 2U);
    EXPECT_EQ(pool[1], QStringLiteral("80"));
}

} // namespace
} // namespace tally::test
