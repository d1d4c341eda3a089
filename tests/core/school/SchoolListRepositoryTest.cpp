#include "core/school/SchoolListRepository.h"

#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

class SchoolListRepositoryTest : public testing::Test
{
protected:
    void Run(const char* sql) { main.Execute(QString::fromLatin1(sql)); }

    store::Connection main = DeliveredMainStore();
    SchoolListRepository lists{main};
};

TEST_F(SchoolListRepositoryTest, ADeliveredSystemHasNothingToChoose)
{
    EXPECT_TRUE(lists.Exams().empty());
    EXPECT_TRUE(lists.ExamsBehindBlank().empty()) << "a blank line alone offers nothing";
    EXPECT_TRUE(lists.Classes().empty()) << "the row that means not chosen is no class";
    EXPECT_TRUE(lists.DivisionsByName(0).empty());
    EXPECT_TRUE(lists.DivisionsByCode(0).empty());
}

TEST_F(SchoolListRepositoryTest, ExamsAndClassesComeInTheOrderThatTheSchoolGaveThem)
{
    Run("INSERT INTO ExamMaster VALUES (1, 'First', 1, 0), (2, 'Annual', 3, 0), (3, 'Mid', 2, 0)");
    Run("INSERT INTO ClassDivisionMaster VALUES (1, 'X', 1, 2, 0), (2, 'IX', 1, 1, 0)");
    const CodedTexts exams{
        {1, QStringLiteral("First")}, {3, QStringLiteral("Mid")}, {2, QStringLiteral("Annual")}};
    EXPECT_EQ(lists.Exams(), exams);
    CodedTexts behindBlank{{0, QStringLiteral(" ")}};
    behindBlank.insert(behindBlank.end(), exams.begin(), exams.end());
    EXPECT_EQ(lists.ExamsBehindBlank(), behindBlank);
    EXPECT_EQ(lists.Classes(), (CodedTexts{{2, QStringLiteral("IX")}, {1, QStringLiteral("X")}}));
}

TEST_F(SchoolListRepositoryTest, TheDivisionsAreThoseOfTheClassByNameOrByCode)
{
    Run("INSERT INTO ClassDivisionMaster VALUES (1, 'X', 2, 1, 0), (2, 'IX', 1, 2, 0)");
    Run("INSERT INTO ClassDivisionDetails VALUES (1, 'B', 1), (1, 'A', 2), (2, 'C', 1)");
    const std::pair a{2, QStringLiteral("A")};
    const std::pair b{1, QStringLiteral("B")};
    EXPECT_EQ(lists.DivisionsByName(1), (CodedTexts{a, b}));
    EXPECT_EQ(lists.DivisionsByCode(1), (CodedTexts{b, a}));
    EXPECT_TRUE(lists.DivisionsByName(3).empty());
}

TEST_F(SchoolListRepositoryTest, BloodGroupsStandByNameBehindABlankLine)
{
    const std::pair blank{0, QStringLiteral(" ")};
    EXPECT_EQ(lists.BloodGroups(), CodedTexts{blank});
    Run("INSERT INTO BloodGroupMaster VALUES (1, 'O+', 1), (2, 'A+', 1)");
    EXPECT_EQ(lists.BloodGroups(), (CodedTexts{blank, {2, QStringLiteral("A+")}, {1, QStringLiteral("O+")}}));
}

} // namespace
} // namespace tally::test
