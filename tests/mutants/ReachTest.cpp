#include "mutants/Reach.h"

#include <gtest/gtest.h>

namespace tally::mutants {
namespace {

constexpr std::size_t All = 100;

std::string Told(const std::vector<Batch>& batches)
{
    QStringList told;
    for (const Batch& batch : batches)
        told.append(QStringLiteral("%1 %2 %3")
                        .arg(batch.program, batch.names.join(QLatin1Char(':')))
                        .arg(batch.milliseconds));
    return told.join(QLatin1String("; ")).toStdString();
}

class ReachTest : public testing::Test
{
protected:
    ReachTest()
    {
        reach.Add(0, "1\n2\n3\n4\n", 10);
        reach.Add(1, "1\n", 20);
        reach.Add(2, "1\n2\n1\n", 20);
        reach.Add(3, "1\n2\n3\n", 10);
    }

    std::vector<mutants::Test> tests{
        {QStringLiteral("p"), QStringLiteral("A"), true},
        {QStringLiteral("q"), QStringLiteral("B"), true},
        {QStringLiteral("p"), QStringLiteral("C"), true},
        {QStringLiteral("p"), QStringLiteral("D"), true},
    };
    Reach reach{tests,
                {{1, QStringLiteral("src/core/a.cpp")},
                 {2, QStringLiteral("src/marks/a.cpp")},
                 {3, QStringLiteral("src/ranks/a.cpp")},
                 {4, QStringLiteral("src/ranks/a.cpp")}}};
};

TEST_F(ReachTest, OnlyTestsThatReachAChangeAreTried)
{
    EXPECT_EQ(reach.TestsOf(4, {}, All), std::vector<std::size_t>{0});
    EXPECT_TRUE(reach.TestsOf(5, {}, All).empty());
}

TEST_F(ReachTest, TestsThatAreQuickAndReachLittleInOtherFilesComeFirst)
{
    EXPECT_EQ(reach.TestsOf(1, {}, All), (std::vector<std::size_t>{1, 3, 0, 2}));
    EXPECT_EQ(reach.TestsOf(3, {}, All), (std::vector<std::size_t>{0, 3}))
        << "half of what 0 reaches is near";
}

TEST_F(ReachTest, AFileThatATestReachesMuchOfGoesBeforeItsFolder)
{
    Reach within{tests,
                 {{1, QStringLiteral("src/a.cpp")},
                  {2, QStringLiteral("src/a.cpp")},
                  {3, QStringLiteral("src/b.cpp")},
                  {4, QStringLiteral("src/b.cpp")}}};
    within.Add(0, "1\n3\n4\n", 10);
    within.Add(1, "1\n2\n", 11);
    EXPECT_EQ(within.TestsOf(1, {}, All), (std::vector<std::size_t>{1, 0}));
}

TEST_F(ReachTest, TestsThatNoticedAChangeNearByComeBeforeAllOthers)
{
    EXPECT_EQ(reach.TestsOf(1, {2, 0}, All), (std::vector<std::size_t>{2, 0, 1, 3}));
    EXPECT_EQ(reach.TestsOf(3, {2, 0}, All), (std::vector<std::size_t>{0, 3})) << "and only if they reach it";
}

TEST_F(ReachTest, BatchesGrowWithWhatHasPassed)
{
    EXPECT_EQ(Told(reach.Batches({0, 1, 2, 3})), "p A 10; q B 20; p C:D 30");
    EXPECT_EQ(Told(reach.Batches({0, 2, 3, 1})), "p A 10; p C 20; p D 10; q B 20");
}

TEST_F(ReachTest, OfOneSuiteNoMoreTestsAreTriedThanAskedFor)
{
    const std::vector<mutants::Test> one(4, {QStringLiteral("p"), QStringLiteral("Marks.A"), true});
    Reach within{one, {}};
    for (std::size_t test = 0; test < one.size(); ++test)
        within.Add(test, "1\n", static_cast<int>(test));
    EXPECT_EQ(within.TestsOf(1, {2}, 2), (std::vector<std::size_t>{2, 0}));
    EXPECT_EQ(reach.TestsOf(4, {}, 2), std::vector<std::size_t>{0});
}

TEST_F(ReachTest, OfTooManyTestsEachSuiteKeepsSome)
{
    std::vector<mutants::Test> many(6, {QStringLiteral("p"), QStringLiteral("Marks.A"), true});
    many.push_back({QStringLiteral("p"), QStringLiteral("Keyboard.A"), true});
    Reach wide{many, {}};
    for (std::size_t test = 0; test < many.size(); ++test)
        wide.Add(test, "1\n", static_cast<int>(test));
    EXPECT_EQ(wide.TestsOf(1, {}, 4), (std::vector<std::size_t>{0, 1, 2, 6}));
    EXPECT_EQ(wide.TestsOf(1, {5}, 4), (std::vector<std::size_t>{5, 0, 1, 6}));
}

TEST_F(ReachTest, AllTestsThatStandInTheFolderOfAFileAreTriedBeforeOthers)
{
    std::vector<mutants::Test> many(
        6, {QStringLiteral("p"), QStringLiteral("Marks.A"), true, QStringLiteral("exams")});
    for (const std::size_t test : {2, 4, 5})
        many[test] = {QStringLiteral("q"), QStringLiteral("Masters.A"), true, QStringLiteral("masters")};
    Reach wide{many, {{1, QStringLiteral("src/masters/fields/a.cpp")}}};
    for (std::size_t test = 0; test < many.size(); ++test)
        wide.Add(test, "1\n", static_cast<int>(test));
    EXPECT_EQ(wide.TestsOf(1, {}, 2), (std::vector<std::size_t>{2, 4, 5, 0}));
}

TEST_F(ReachTest, EverySuiteIsTriedHoweverManyThereAre)
{
    std::vector<mutants::Test> many;
    for (const char* name : {"A.A", "A.B", "A.C", "B.A", "C.A", "D.A"})
        many.push_back({QStringLiteral("p"), QString::fromLatin1(name), true});
    Reach wide{many, {}};
    for (std::size_t test = 0; test < many.size(); ++test)
        wide.Add(test, "1\n", static_cast<int>(test));
    EXPECT_EQ(wide.TestsOf(1, {}, 2), (std::vector<std::size_t>{0, 3, 4, 5}));
}

TEST_F(ReachTest, WhatAllTestsOfAProgramReachIsNearToNoneOfThem)
{
    constexpr std::size_t Tests = 12;
    std::vector<mutants::Test> many(Tests, {QStringLiteral("p"), QStringLiteral("Marks.A"), true});
    many.push_back({QStringLiteral("q"), QStringLiteral("Keyboard.A"), true});
    Reach wide{many,
               {{1, QStringLiteral("src/words.cpp")},
                {2, QStringLiteral("src/words.cpp")},
                {3, QStringLiteral("src/marks/a.cpp")}}};
    for (std::size_t test = 0; test < Tests; ++test)
        wide.Add(test, test == Tests - 1 ? "1\n2\n3\n" : "1\n3\n", 10);
    wide.Add(Tests, "1\n2\n", 40);
    wide.ForgetWhatAllReach();
    const std::vector<std::size_t> order = wide.TestsOf(1, {}, All);
    ASSERT_EQ(order.size(), Tests + 1);
    EXPECT_EQ(order[0], Tests - 1) << "the only one of its program that reaches more of the words";
    EXPECT_EQ(order[1], Tests);
}

} // namespace
} // namespace tally::mutants
