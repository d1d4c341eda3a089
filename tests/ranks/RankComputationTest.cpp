#include "support/TestSchool.h"

#include <gtest/gtest.h>
#include <ostream>
#include <tuple>

namespace tally::test {

namespace {

int RankOf(const RankList& list, const char* name)
{
    return RowOf(list, QLatin1String(name)).rank;
}

QString GradeOf(const RankList& list, const char* name)
{
    return RowOf(list, QLatin1String(name)).grade;
}

} // namespace

TEST(RankNumbers, TwoStudentsOnOneTotalShareTheRankAndTheNextIsTwo)
{
    TestSchool school;
    school.AddUsualDivision(2);
    school.AddMarkedStudent("Anil", {90, 80});
    school.AddMarkedStudent("Bina", {80, 90});
    school.AddMarkedStudent("Chand", {70, 70});
    const RankList list = school.Compute();
    EXPECT_EQ(RankOf(list, "Anil"), 1);
    EXPECT_EQ(RankOf(list, "Bina"), 1);
    EXPECT_EQ(RankOf(list, "Chand"), 2);
}

TEST(RankNumbers, WithSkippingTheRankAfterTwoFirstsIsThree)
{
    TestSchool school;
    school.options.skipRanks = true;
    school.AddUsualDivision(2);
    school.AddMarkedStudent("Anil", {90, 80});
    school.AddMarkedStudent("Bina", {80, 90});
    school.AddMarkedStudent("Chand", {70, 70});
    school.AddMarkedStudent("Devi", {60, 60});
    const RankList list = school.Compute();
    EXPECT_EQ(RankOf(list, "Anil"), 1);
    EXPECT_EQ(RankOf(list, "Bina"), 1);
    EXPECT_EQ(RankOf(list, "Chand"), 3);
    EXPECT_EQ(RankOf(list, "Devi"), 4);
}

class FailedSharers : public testing::TestWithParam<bool>
{};

TEST_P(FailedSharers, TakeNoPlaceFromTheOneWhoPassed)
{
    TestSchool school;
    school.options.skipRanks = GetParam();
    school.AddUsualDivision(2);
    school.AddMarkedStudent("Failed one", {34, 86});
    school.AddMarkedStudent("Failed two", {86, 34});
    school.AddMarkedStudent("Passed", {60, 60});
    school.AddMarkedStudent("Next", {50, 50});
    const RankList list = school.Compute();
    EXPECT_EQ(RankOf(list, "Failed one"), 0);
    EXPECT_EQ(RankOf(list, "Failed two"), 0);
    EXPECT_EQ(RankOf(list, "Passed"), 1);
    EXPECT_EQ(RankOf(list, "Next"), 2);
}

TEST_P(FailedSharers, OnTheirOwnTotalSpendNoRank)
{
    TestSchool school;
    school.options.skipRanks = GetParam();
    school.AddUsualDivision(2);
    school.AddMarkedStudent("Failed one", {30, 90});
    school.AddMarkedStudent("Failed two", {90, 30});
    school.AddMarkedStudent("Passed", {50, 50});
    const RankList list = school.Compute();
    EXPECT_EQ(RankOf(list, "Failed one"), 0);
    EXPECT_EQ(RankOf(list, "Failed two"), 0);
    EXPECT_EQ(RankOf(list, "Passed"), 1);
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutSkipping, FailedSharers, testing::Bool());

TEST(RankNumbers, RunAcrossAllDivisionsTogether)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddDivision(2, "B");
    school.AddUsualBands(2);
    school.AddSubject(2, 1, "Eng", 1);
    school.AddMarkedStudent("Anil", {70});
    school.EnterMark(school.AddStudent(2, "Bina"), 1, 80);
    school.AddMarkedStudent("Chand", {60});
    const RankList list = school.Compute({1, 2});
    EXPECT_EQ(RankOf(list, "Bina"), 1);
    EXPECT_EQ(RankOf(list, "Anil"), 2);
    EXPECT_EQ(RankOf(list, "Chand"), 3);
    EXPECT_EQ(list.divisions[RowOf(list, "Bina").division].divisionName, "B");
    EXPECT_EQ(list.className, "X");
}

TEST(RankNumbers, ATotalOfZeroGetsNone)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Art", 2, "No");
    school.AddMarkedStudent("Only art", {0, 70});
    school.AddMarkedStudent("Nothing", {0, 0});
    school.AddMarkedStudent("Passed", {40, 0});
    const RankList list = school.Compute();
    EXPECT_EQ(RankOf(list, "Only art"), 0);
    EXPECT_EQ(RowOf(list, "Only art").total, 70);
    EXPECT_EQ(RowOf(list, "Only art").rankTotal, 0);
    EXPECT_EQ(RankOf(list, "Nothing"), 0);
    EXPECT_EQ(RankOf(list, "Passed"), 1);
}

TEST(RankNumbers, ATotalOfZeroGetsNoneEvenWithoutAFailedSubject)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddSubject(1, 1, "Eng", 1);
    school.AddSubject(1, 2, "Art", 2, "No");
    school.AddUsualBands(1);
    school.EnterMark(school.AddStudent(1, "No English mark"), 2, 70);
    const RankList list = school.Compute();
    EXPECT_EQ(CellOf(list, "No English mark", 0).mark, CellMark::None);
    EXPECT_EQ(RankOf(list, "No English mark"), 0);
}

TEST(Absence, InASubjectNotTakenForRankStopsNeitherRankNorGrade)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Art", 2, "No");
    const int student = school.AddStudent(1, "Anil");
    school.EnterMark(student, 1, 90);
    school.EnterAbsence(student, 2);
    const RankList list = school.Compute();
    EXPECT_EQ(CellOf(list, "Anil", 1).mark, CellMark::NotTakenForRank);
    EXPECT_EQ(StoredCell(list, "Anil", 1), "A");
    EXPECT_EQ(RankOf(list, "Anil"), 1);
    EXPECT_EQ(GradeOf(list, "Anil"), "A");
    EXPECT_FALSE(list.MarkedAbsent(0));
}

TEST(Absence, InASubjectTakenForRankCostsRankAndGrade)
{
    TestSchool school;
    school.AddUsualDivision(2);
    const int student = school.AddStudent(1, "Anil");
    school.EnterMark(student, 1, 90);
    school.EnterAbsence(student, 2);
    school.AddMarkedStudent("Bina", {40, 40});
    const RankList list = school.Compute();
    EXPECT_EQ(StoredCell(list, "Anil", 1), "FailA");
    EXPECT_EQ(CellOf(list, "Anil", 1).mark, CellMark::FailedOrAbsent);
    EXPECT_EQ(RankOf(list, "Anil"), 0);
    EXPECT_EQ(RankOf(list, "Bina"), 1);
    EXPECT_TRUE(list.MarkedAbsent(0));
    EXPECT_EQ(RowOf(list, "Anil").total, 90);
    EXPECT_EQ(RowOf(list, "Anil").average, 45);
}

TEST(Absence, CostsRankAndGradeWhateverMarkStandsWithIt)
{
    TestSchool school;
    school.AddUsualDivision(2);
    const int student = school.AddMarkedStudent("Anil", {90, 80});
    school.main.Execute("Update MarkMaster set LeaveOrPresent='A' where StudentCode=? and SubjectCode=2",
                        student);
    const RankList list = school.Compute();
    EXPECT_EQ(StoredCell(list, "Anil", 1), "FailA");
    EXPECT_EQ(RankOf(list, "Anil"), 0);
    EXPECT_EQ(RowOf(list, "Anil").total, 90);
}

TEST(BlankCell, IsNoFailureAndLeavesTheStudentARank)
{
    TestSchool school;
    school.AddUsualDivision(2);
    school.EnterMark(school.AddStudent(1, "Anil"), 1, 90);
    const RankList list = school.Compute();
    EXPECT_EQ(CellOf(list, "Anil", 1).kind, RankCell::Kind::Blank);
    EXPECT_EQ(CellOf(list, "Anil", 1).mark, CellMark::None);
    EXPECT_EQ(StoredCell(list, "Anil", 1), "");
    EXPECT_EQ(RankOf(list, "Anil"), 1);
    EXPECT_EQ(RowOf(list, "Anil").average, 45);
}

TEST(BlankCell, InASubjectNotTakenForRankCarriesNoFlagEither)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Art", 2, "No");
    school.AddMarkedStudent("Anil", {90});
    EXPECT_EQ(CellOf(school.Compute(), "Anil", 1).mark, CellMark::None);
}

TEST(Students, WithoutAnyMarkOfTheExamAreLeftOut)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddStudent(1, "No marks");
    school.AddMarkedStudent("Anil", {50});
    const RankList list = school.Compute();
    ASSERT_EQ(list.rows.size(), 1U);
    EXPECT_EQ(list.rows[0].studentName, "Anil");
}

TEST(Students, WithMarksInASubjectThatTheDivisionDoesNotTakeShowOnlyTheOthers)
{
    TestSchool school;
    school.AddUsualDivision(2);
    school.AddDivision(2, "B");
    school.AddSubject(2, 3, "Art", 1);
    school.AddMarkedStudent("Anil", {50});
    school.AddMarkedStudent("Binu", {60, 70, 90});
    const RankList list = school.Compute();
    ASSERT_EQ(list.subjects.size(), 2U);
    EXPECT_EQ(RowOf(list, "Binu").total, 130);
    EXPECT_EQ(RowOf(list, "Anil").total, 50);
    EXPECT_EQ(CellOf(list, "Anil", 1).kind, RankCell::Kind::Blank);
}

TEST(Students, OfADivisionThatIsNotInTheListAreLeftOutWithTheirMarks)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddDivision(2, "B");
    school.AddUsualBands(2);
    school.AddSubject(2, 1, "Eng", 1);
    school.AddMarkedStudent("Anil", {70});
    school.EnterMark(school.AddStudent(2, "Bina"), 1, 80);
    RankInput input = school.Input({1, 2});
    input.divisions.pop_back();
    const RankList list = ComputeRankList(input, school.options);
    ASSERT_EQ(list.rows.size(), 1U);
    EXPECT_EQ(CellOf(list, "Anil", 0).value, 70);
    EXPECT_EQ(RankOf(list, "Anil"), 1);
}

TEST(Students, InAClassWithoutSubjectsHaveNeitherMarksNorALowestOne)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddDivision(2, "B");
    school.AddSubject(2, 1, "Eng", 1);
    school.AddMarkedStudent("Anil", {70});
    const RankList list = school.Compute();
    EXPECT_TRUE(list.cells.empty());
    EXPECT_EQ(RowOf(list, "Anil").minMarks, 0);
    EXPECT_EQ(RankOf(list, "Anil"), 0);
}

TEST(Students, WhoChangedDivisionKeepNoMarksOfTheOldOne)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddDivision(2, "B");
    school.AddUsualBands(2);
    school.AddSubject(2, 1, "Eng", 1);
    const int student = school.AddMarkedStudent("Anil", {90});
    school.main.Execute("Update StudentClassDivision set DivisionCode=2 where StudentCode=?", student);
    const RankList list = school.Compute({1, 2});
    EXPECT_EQ(CellOf(list, "Anil", 0).kind, RankCell::Kind::Blank);
    EXPECT_EQ(RankOf(list, "Anil"), 0);
}

struct PassCase
{
    double mark;
    bool failed;

    friend void PrintTo(const PassCase& row, std::ostream* out) { *out << row.mark; }
};

class PassMark : public testing::TestWithParam<PassCase>
{};

TEST_P(PassMark, IsTheTotalAverageOfTheSecondLowestBand)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddMarkedStudent("Anil", {GetParam().mark});
    const RankCell cell = CellOf(school.Compute(), "Anil", 0);
    EXPECT_EQ(cell.mark, GetParam().failed ? CellMark::FailedOrAbsent : CellMark::None) << GetParam().mark;
}

// A mark is held against the pass mark as a whole number, a half going to the even neighbour.
INSTANTIATE_TEST_SUITE_P(Marks, PassMark,
                         testing::Values(PassCase{0, true}, PassCase{0.4, true}, PassCase{34, true},
                                         PassCase{34.4, true}, PassCase{34.5, true}, PassCase{34.6, false},
                                         PassCase{35, false}, PassCase{36, false}));

TEST(PassMarks, AreRawMarksWhateverTheMaximumOfTheSubject)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddUsualBands(1);
    school.AddSubject(1, 1, "Eng", 1, "Yes", 40, 40);
    school.AddMarkedStudent("Anil", {34});
    const RankList list = school.Compute();
    EXPECT_EQ(CellOf(list, "Anil", 0).mark, CellMark::FailedOrAbsent);
    EXPECT_EQ(RowOf(list, "Anil").average, 85);
}

TEST(PassMarks, ComeFromTheFirstDivisionForAllDivisions)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddDivision(2, "B");
    school.AddBand(2, 90, 60, "A", 1);
    school.AddBand(2, 50, 20, "C", 2);
    school.AddBand(2, 0, 0, "D", 3);
    school.AddSubject(2, 1, "Eng", 1);
    school.EnterMark(school.AddStudent(2, "Bina"), 1, 40);
    school.AddMarkedStudent("Anil", {40});
    EXPECT_EQ(CellOf(school.Compute({1, 2}), "Bina", 0).mark, CellMark::None);
    EXPECT_EQ(CellOf(school.Compute({2, 1}), "Anil", 0).mark, CellMark::FailedOrAbsent);
}

TEST(PassMarks, FailNobodyInASubjectNotTakenForRank)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Art", 2, "No");
    school.AddMarkedStudent("Anil", {90, 10});
    const RankList list = school.Compute();
    EXPECT_EQ(CellOf(list, "Anil", 1).mark, CellMark::NotTakenForRank);
    EXPECT_EQ(StoredCell(list, "Anil", 1), "10");
    EXPECT_EQ(RankOf(list, "Anil"), 1);
}

TEST(GradeTable, WithoutRowsFailsOnlyAZeroAndGivesNoGrade)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddSubject(1, 1, "Eng", 1);
    school.AddMarkedStudent("Zero", {0});
    school.AddMarkedStudent("One", {1});
    const RankList list = school.Compute();
    EXPECT_EQ(CellOf(list, "Zero", 0).mark, CellMark::FailedOrAbsent);
    EXPECT_EQ(CellOf(list, "One", 0).mark, CellMark::None);
    EXPECT_EQ(GradeOf(list, "One"), "");
}

TEST(GradeTable, OfOneRowFailsOnlyAMarkEqualToIt)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddSubject(1, 1, "Eng", 1);
    school.AddBand(1, 35, 0, "P", 1);
    school.AddMarkedStudent("Equal", {35});
    school.AddMarkedStudent("Below", {34});
    school.AddMarkedStudent("Zero", {0});
    const RankList list = school.Compute();
    EXPECT_EQ(CellOf(list, "Equal", 0).mark, CellMark::FailedOrAbsent);
    EXPECT_EQ(CellOf(list, "Below", 0).mark, CellMark::None);
    EXPECT_EQ(CellOf(list, "Zero", 0).mark, CellMark::None);
}

TEST(GradeTable, StandsInRisingSubjectAveragesDivisionByDivision)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddDivision(2, "B");
    school.AddBand(2, 40, 30, "P", 1);
    school.AddBand(2, 0, 0, "F", 2);
    const std::vector<GradeBand> table = school.Input({2, 1}).gradeTable;
    QStringList grades;
    std::vector<double> upper;
    for (const GradeBand& band : table) {
        grades.append(band.grade);
        upper.push_back(band.upperSubjectAverage);
    }
    EXPECT_EQ(grades, QStringList({"F", "P", "D", "C", "B", "A"}));
    EXPECT_EQ(upper, (std::vector<double>{29, 100, 19, 39, 49, 100}));
}

TEST(GradeTable, KeepsBandsOfTheSameAveragesInTheirOrder)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddBand(1, 80, 50, "A", 1);
    school.AddBand(1, 80, 50, "B", 2);
    const std::vector<GradeBand> table = school.Input().gradeTable;
    ASSERT_EQ(table.size(), 2U);
    EXPECT_EQ(table[0].grade, "A");
    EXPECT_EQ(table[1].grade, "B");
}

TEST(GradeTable, WithOneSubjectAverageForAllStillGivesTheHighestGradeReached)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddSubject(1, 1, "Eng", 1);
    school.AddBand(1, 80, 35, "A", 1);
    school.AddBand(1, 60, 35, "B", 2);
    school.AddBand(1, 35, 35, "C", 3);
    school.AddBand(1, 0, 0, "D", 4);
    school.AddMarkedStudent("High", {85});
    school.AddMarkedStudent("Middle", {65});
    school.AddMarkedStudent("Low", {34});
    const RankList list = school.Compute();
    EXPECT_EQ(GradeOf(list, "High"), "A");
    EXPECT_EQ(GradeOf(list, "Middle"), "B");
    EXPECT_EQ(GradeOf(list, "Low"), "D");
    EXPECT_EQ(CellOf(list, "Low", 0).mark, CellMark::FailedOrAbsent);
}

TEST(Grades, NeedBothAveragesAndEqualIsEnough)
{
    TestSchool school;
    school.AddUsualDivision(2);
    school.AddMarkedStudent("Both reached", {100, 60});
    school.AddMarkedStudent("Both just reached", {50, 110});
    school.AddMarkedStudent("Total short", {80, 79});
    school.AddMarkedStudent("Lowest mark short", {49, 120});
    school.AddMarkedStudent("Bottom", {10, 10});
    const RankList list = school.Compute();
    EXPECT_EQ(GradeOf(list, "Both reached"), "A");
    EXPECT_EQ(GradeOf(list, "Both just reached"), "A");
    EXPECT_EQ(GradeOf(list, "Total short"), "B");
    EXPECT_EQ(GradeOf(list, "Lowest mark short"), "B");
    EXPECT_EQ(GradeOf(list, "Bottom"), "D");
}

TEST(Grades, FollowTheTableOfTheStudentsOwnDivision)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddDivision(2, "B");
    school.AddBand(2, 50, 50, "P", 1);
    school.AddBand(2, 0, 0, "F", 2);
    school.AddSubject(2, 1, "Eng", 1);
    school.AddMarkedStudent("Anil", {55});
    school.EnterMark(school.AddStudent(2, "Bina"), 1, 55);
    school.AddDivision(3, "C");
    school.AddSubject(3, 1, "Eng", 1);
    school.EnterMark(school.AddStudent(3, "Chand"), 1, 55);
    const RankList list = school.Compute({1, 2, 3});
    EXPECT_EQ(GradeOf(list, "Anil"), "C");
    EXPECT_EQ(GradeOf(list, "Bina"), "P");
    EXPECT_EQ(GradeOf(list, "Chand"), "");
}

TEST(Grades, StandWithoutTheBlanksOfTheirTable)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddSubject(1, 1, "Eng", 1);
    school.AddBand(1, 50, 50, "P ", 1);
    school.AddMarkedStudent("Anil", {55});
    EXPECT_EQ(GradeOf(school.Compute(), "Anil"), "P");
}

TEST(LowestMark, OpensWithASubjectNotTakenForRank)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddUsualBands(1);
    school.AddSubject(1, 1, "Art", 1, "No");
    school.AddSubject(1, 2, "Eng", 2);
    school.AddMarkedStudent("Low art", {15, 90});
    const RankList list = school.Compute();
    EXPECT_EQ(RowOf(list, "Low art").minMarks, 15);
    EXPECT_EQ(GradeOf(list, "Low art"), "D");
}

TEST(LowestMark, IgnoresASubjectNotTakenForRankOnceItIsOpen)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Art", 2, "No");
    school.AddMarkedStudent("Low art", {90, 15});
    EXPECT_EQ(RowOf(school.Compute(), "Low art").minMarks, 90);
}

struct LowestCase
{
    std::vector<double> marks;
    double lowest;

    friend void PrintTo(const LowestCase& row, std::ostream* out)
    {
        *out << testing::PrintToString(row.marks);
    }
};

class LowestMarks : public testing::TestWithParam<LowestCase>
{};

TEST_P(LowestMarks, TakeAPresentZeroFromTheSecondSubjectOnOnly)
{
    TestSchool school;
    school.AddUsualDivision(3);
    school.AddMarkedStudent("Anil", GetParam().marks);
    EXPECT_EQ(RowOf(school.Compute(), "Anil").minMarks, GetParam().lowest);
}

INSTANTIATE_TEST_SUITE_P(Rows, LowestMarks,
                         testing::Values(LowestCase{{60, 40, 50}, 40}, LowestCase{{0, 40, 50}, 40},
                                         LowestCase{{60, 0, 50}, 0}, LowestCase{{60, 50, 0}, 0},
                                         LowestCase{{0, 0, 50}, 0}, LowestCase{{0, 0, 0}, 0},
                                         LowestCase{{0}, 0}));

TEST(LowestMark, LeavesAbsencesAndBlanksOut)
{
    TestSchool school;
    school.AddUsualDivision(4);
    const int student = school.AddStudent(1, "Anil");
    school.EnterAbsence(student, 1);
    school.EnterMark(student, 2, 70);
    school.EnterAbsence(student, 3);
    EXPECT_EQ(RowOf(school.Compute(), "Anil").minMarks, 70);
}

TEST(Columns, FollowTheSerialNumbersAsFirstSeenAndMarksGoByCode)
{
    TestSchool school;
    school.AddUsualDivision(2);
    school.AddDivision(2, "B");
    school.AddUsualBands(2);
    school.AddSubject(2, 2, "Mat", 1);
    school.AddSubject(2, 1, "Eng", 2);
    school.AddSubject(2, 3, "Sci", 0);
    const int bina = school.AddStudent(2, "Bina");
    school.EnterMark(bina, 1, 61);
    school.EnterMark(bina, 2, 72);
    school.EnterMark(bina, 3, 83);
    const RankList list = school.Compute({1, 2});
    ASSERT_EQ(list.subjects.size(), 3U);
    EXPECT_EQ(list.subjects[0].subjectCode, 3);
    EXPECT_EQ(list.subjects[1].subjectCode, 1);
    EXPECT_EQ(list.subjects[2].subjectCode, 2);
    EXPECT_EQ(CellOf(list, "Bina", 0).value, 83);
    EXPECT_EQ(CellOf(list, "Bina", 1).value, 61);
    EXPECT_EQ(CellOf(list, "Bina", 2).value, 72);
}

TEST(MaximumTotal, CountsEachSubjectOnceFromTheFirstDivisionThatHasIt)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddDivision(2, "B");
    school.AddUsualBands(2);
    school.AddSubject(2, 1, "Eng", 2, "Yes", 50, 50);
    school.AddMarkedStudent("Anil", {50});
    EXPECT_EQ(RowOf(school.Compute({1, 2}), "Anil").average, 50);
    EXPECT_EQ(RowOf(school.Compute({2, 1}), "Anil").average, 50);
}

TEST(MaximumTotal, OfZeroIsADivisionByZeroAsSoonAsSomebodyHasMarks)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddUsualBands(1);
    school.AddSubject(1, 1, "Art", 1, "No");
    school.AddMarkedStudent("Zero", {0});
    EXPECT_NO_THROW(school.Compute());
    school.AddMarkedStudent("Anil", {50});
    try {
        school.Compute();
        FAIL() << "no error";
    } catch (const DivisionError& error) {
        EXPECT_STREQ(error.what(), "Division by zero");
    }
}

struct FormatCase
{
    bool fraction;
    bool rounded;
    const char* cell;
    double total;
    double average;

    friend void PrintTo(const FormatCase& row, std::ostream* out)
    {
        *out << (row.fraction ? "fractions" : "whole") << (row.rounded ? ", rounded" : "");
    }
};

class MarkFormats : public testing::TestWithParam<FormatCase>
{};

TEST_P(MarkFormats, DecideHowManyDecimalsCount)
{
    TestSchool school;
    school.options.fractionMarks = GetParam().fraction;
    school.options.roundedMarks = GetParam().rounded;
    school.AddUsualDivision(3);
    school.AddMarkedStudent("Anil", {62.505, 71.3333, 40.5});
    const RankList list = school.Compute();
    EXPECT_EQ(StoredCell(list, "Anil", 0), GetParam().cell);
    EXPECT_DOUBLE_EQ(RowOf(list, "Anil").rankTotal, GetParam().total);
    EXPECT_DOUBLE_EQ(RowOf(list, "Anil").total, GetParam().total);
    EXPECT_DOUBLE_EQ(RowOf(list, "Anil").average, GetParam().average);
}

// 62.505 * 100 is 6250.5: the half goes to 6250. Whole marks: 63 + 71 + 40 = 174, of 300 that is 58.
// Fractions: 62.50 + 71.33 + 40.50 = 174.33, of 300 that is 58.11.
INSTANTIATE_TEST_SUITE_P(Options, MarkFormats,
                         testing::Values(FormatCase{true, true, "63", 174, 58},
                                         FormatCase{true, false, "62.50", 174.33, 58.11},
                                         FormatCase{false, true, "63", 174, 58},
                                         FormatCase{false, false, "63", 174, 58}));

TEST(Averages, AreWholeWhenMarksAreRoundedAndHaveTwoDecimalsOtherwise)
{
    for (const auto& [fraction, rounded, expected] :
         {std::tuple{true, true, 67.0}, std::tuple{true, false, 66.67}, std::tuple{false, false, 66.67}}) {
        TestSchool school;
        school.options.fractionMarks = fraction;
        school.options.roundedMarks = rounded;
        school.AddUsualDivision(3);
        school.AddMarkedStudent("Anil", {50, 60, 90});
        EXPECT_DOUBLE_EQ(RowOf(school.Compute(), "Anil").average, expected);
    }
}

TEST(Averages, OnAHalfGoToTheEvenNeighbourOnlyWhereMarksAreRounded)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddUsualBands(1);
    school.AddSubject(1, 1, "Eng", 1, "Yes", 800, 800);
    school.AddMarkedStudent("Anil", {500.0});
    school.AddMarkedStudent("Bina", {1});
    EXPECT_DOUBLE_EQ(RowOf(school.Compute(), "Anil").average, 62.5);
    EXPECT_DOUBLE_EQ(RowOf(school.Compute(), "Bina").average, 0.13);
    school.options.fractionMarks = true;
    EXPECT_DOUBLE_EQ(RowOf(school.Compute(), "Bina").average, 0.12);
    school.options.roundedMarks = true;
    EXPECT_DOUBLE_EQ(RowOf(school.Compute(), "Anil").average, 62);
}

TEST(Ties, CompareTheTotalsAsTheyAreWritten)
{
    TestSchool school;
    school.options.fractionMarks = true;
    school.options.roundedMarks = true;
    school.AddUsualDivision(1);
    school.AddMarkedStudent("Anil", {251.4});
    school.AddMarkedStudent("Bina", {250.6});
    const RankList rounded = school.Compute();
    EXPECT_EQ(RowOf(rounded, "Anil").rankTotal, 251);
    EXPECT_EQ(RowOf(rounded, "Bina").rankTotal, 251);
    EXPECT_EQ(RankOf(rounded, "Anil"), 1);
    EXPECT_EQ(RankOf(rounded, "Bina"), 1);

    school.options.roundedMarks = false;
    const RankList exact = school.Compute();
    EXPECT_EQ(RankOf(exact, "Anil"), 1);
    EXPECT_EQ(RankOf(exact, "Bina"), 2);
}

TEST(Ties, OfFractionsDoNotDependOnTheOrderOfAdding)
{
    TestSchool school;
    school.options.fractionMarks = true;
    school.AddUsualDivision(3);
    school.AddMarkedStudent("Anil", {50.1, 50.2, 50.3});
    school.AddMarkedStudent("Bina", {50.3, 50.2, 50.1});
    school.AddMarkedStudent("Chand", {50.6, 50, 50});
    const RankList list = school.Compute();
    EXPECT_EQ(RankOf(list, "Anil"), 1);
    EXPECT_EQ(RankOf(list, "Bina"), 1);
    EXPECT_EQ(RankOf(list, "Chand"), 1);
}

TEST(Ties, OfTheRankTotalIgnoreSubjectsNotTakenForRank)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Art", 2, "No");
    school.AddMarkedStudent("Anil", {80, 20});
    school.AddMarkedStudent("Bina", {80, 90});
    const RankList list = school.Compute();
    EXPECT_EQ(RankOf(list, "Anil"), 1);
    EXPECT_EQ(RankOf(list, "Bina"), 1);
    EXPECT_EQ(RowOf(list, "Bina").total, 170);
    EXPECT_EQ(RowOf(list, "Bina").rankTotal, 80);
}

TEST(Reading, RunsAsManyStatementsForFiveHundredStudentsAsForTen)
{
    const auto statements = [](int students) {
        TestSchool school;
        school.AddUsualDivision(4);
        for (int student = 0; student < students; ++student)
            school.AddMarkedStudent(QStringLiteral("Student %1").arg(student), {50, 60, 70, 80});
        const auto before = school.main.StatementsRun();
        const RankInput input = school.Input();
        EXPECT_EQ(input.marks.size(), static_cast<std::size_t>(students) * 4);
        return school.main.StatementsRun() - before;
    };
    EXPECT_EQ(statements(10), statements(500));
}

} // namespace tally::test
