#include "masters/ClassSectionGrid.h"

#include <gtest/gtest.h>
#include <ostream>

namespace tally::test {
namespace {

/// "name/divisions/order" for each row.
ClassSectionGrid GridOf(const std::vector<ClassRecord>& classes)
{
    std::vector<ClassDivision> divisions;
    for (const ClassRecord& record : classes)
        for (int code = record.noOfDivisions; code >= 1; --code)
            divisions.push_back({record.classCode, DefaultDivisionName(code), code});
    ClassSectionGrid grid;
    EXPECT_TRUE(grid.Load(classes, divisions));
    return grid;
}

std::vector<int> Orders(const ClassSectionGrid& grid)
{
    std::vector<int> orders;
    for (int row = 1; row <= grid.RowCount(); ++row)
        orders.push_back(grid.Row(row).Order());
    return orders;
}

std::string Names(const ClassSectionGrid& grid, int classCode)
{
    QString names;
    for (const ClassDivision& division : grid.DivisionsOf(classCode))
        names += QString::number(division.divisionCode) + division.divisionName + QLatin1Char(' ');
    return names.trimmed().toStdString();
}

struct NamedDivision
{
    int code;
    const char* name;

    friend void PrintTo(const NamedDivision& row, std::ostream* out)
    {
        *out << row.code << " is " << row.name;
    }
};

class DefaultDivisionNameTest : public testing::TestWithParam<NamedDivision>
{};

TEST_P(DefaultDivisionNameTest, FollowsTheAlphabetAndThenTwoLetters)
{
    EXPECT_EQ(DefaultDivisionName(GetParam().code).toStdString(), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Turns, DefaultDivisionNameTest,
                         testing::Values(NamedDivision{1, "A"}, NamedDivision{2, "B"}, NamedDivision{26, "Z"},
                                         NamedDivision{27, "AA"}, NamedDivision{52, "AZ"},
                                         NamedDivision{53, "BA"}, NamedDivision{78, "BZ"},
                                         NamedDivision{79, "CA"}, NamedDivision{99, "CU"}));

TEST(ClassSectionGridTest, TheFirstRowOfANewSchoolIsClassOne)
{
    ClassSectionGrid grid;
    grid.StartFirstRow();
    ASSERT_EQ(grid.RowCount(), 1);
    EXPECT_EQ(grid.Row(1).serial, 1);
    EXPECT_EQ(grid.Row(1).classCode, 1);
}

TEST(ClassSectionGridTest, ALoadedClassRemembersItsNumberOfDivisions)
{
    const ClassSectionGrid grid = GridOf({{7, "XII", 2, 1}, {3, "XI", 1, 2}});
    ASSERT_EQ(grid.RowCount(), 2);
    EXPECT_EQ(grid.Row(1).serial, 1);
    EXPECT_EQ(grid.Row(1).className.toStdString(), "XII");
    EXPECT_EQ(grid.Row(1).noOfDivisions.toStdString(), "2");
    EXPECT_EQ(grid.Row(1).classOrder.toStdString(), "1");
    EXPECT_EQ(grid.Row(1).oldNoOfDivisions, 2);
    EXPECT_EQ(grid.Row(1).oldDivision, 2);
    EXPECT_EQ(grid.Row(1).classCode, 7);
    EXPECT_EQ(grid.Row(2).serial, 2);
    EXPECT_EQ(Names(grid, 7), "1A 2B");
}

TEST(ClassSectionGridTest, TheGridHoldsNinetyEightClassesAndNoDivisionsOfMore)
{
    std::vector<ClassRecord> classes;
    for (int code = 1; code <= 98; ++code)
        classes.push_back({code, QString::number(code), 1, code});
    ClassSectionGrid grid;
    EXPECT_TRUE(grid.Load(classes, {{1, "A", 1}}));
    EXPECT_TRUE(grid.IsFull());
    EXPECT_EQ(grid.Divisions().size(), 1U);

    classes.push_back({99, "99", 1, 99});
    EXPECT_FALSE(grid.Load(classes, {{1, "A", 1}}));
    EXPECT_EQ(grid.RowCount(), 98);
    EXPECT_TRUE(grid.Divisions().empty());
}

TEST(ClassSectionGridTest, ANewRowGetsTheHighestCodeOfTheScreenPlusOne)
{
    ClassSectionGrid grid = GridOf({{3, "XII", 1, 1}, {7, "XI", 1, 2}, {5, "X", 1, 3}});
    grid.AddRow();
    EXPECT_EQ(grid.Row(4).serial, 4);
    EXPECT_EQ(grid.Row(4).classCode, 8);
    EXPECT_TRUE(grid.Row(4).className.isEmpty());
    ClassSectionGrid empty;
    empty.AddRow();
    EXPECT_EQ(empty.Row(1).classCode, 1);
}

TEST(ClassSectionGridTest, TheCodeOfARemovedHighestClassIsGivenAgain)
{
    ClassSectionGrid grid = GridOf({{1, "XII", 1, 1}, {2, "XI", 1, 2}, {3, "X", 1, 3}});
    grid.DeleteRow(3);
    grid.AddRow();
    EXPECT_EQ(grid.Row(3).classCode, 3);
}

TEST(ClassSectionGridTest, ADeletedRowTakesItsDivisionsAndTheRowsBehindItMoveUp)
{
    ClassSectionGrid grid = GridOf({{1, "XII", 2, 1}, {2, "XI", 2, 2}, {3, "X", 1, 3}});
    grid.DeleteRow(2);
    ASSERT_EQ(grid.RowCount(), 2);
    EXPECT_EQ(grid.Row(2).className.toStdString(), "X");
    EXPECT_EQ(grid.Row(2).serial, 2);
    EXPECT_EQ(grid.Row(2).classCode, 3);
    EXPECT_EQ(Names(grid, 2), "");
    EXPECT_EQ(Names(grid, 1), "1A 2B");
}

TEST(ClassSectionGridTest, DeletingTheFirstRowGivesTheNextClassTheCodeOne)
{
    ClassSectionGrid grid = GridOf({{4, "XII", 1, 1}, {5, "XI", 2, 2}, {6, "X", 1, 3}});
    grid.DeleteRow(1);
    EXPECT_EQ(grid.Row(1).className.toStdString(), "XI");
    EXPECT_EQ(grid.Row(1).classCode, 1);
    EXPECT_EQ(grid.Row(2).classCode, 6);
    EXPECT_EQ(Names(grid, 5), "1A 2B") << "the divisions keep the code they had";
}

TEST(ClassSectionGridTest, DeletingTheOnlyRowLeavesABlankOne)
{
    ClassSectionGrid grid = GridOf({{4, "XII", 3, 1}});
    grid.DeleteRow(1);
    ASSERT_EQ(grid.RowCount(), 1);
    EXPECT_FALSE(grid.Row(1).IsNamed());
    EXPECT_EQ(grid.Row(1).serial, 1);
    EXPECT_EQ(grid.Row(1).classCode, 1);
    EXPECT_TRUE(grid.Divisions().empty());
}

TEST(ClassSectionGridTest, AClearedGridIsOneBlankRowWithoutDivisions)
{
    ClassSectionGrid grid = GridOf({{4, "XII", 3, 1}, {5, "XI", 1, 2}});
    grid.Clear();
    ASSERT_EQ(grid.RowCount(), 1);
    EXPECT_FALSE(grid.Row(1).IsNamed());
    EXPECT_TRUE(grid.Divisions().empty());
}

TEST(ClassSectionGridTest, AnotherNumberOfDivisionsResetsAllNames)
{
    ClassSectionGrid grid = GridOf({{1, "XII", 3, 1}, {2, "XI", 2, 2}});
    grid.NameDivision(1, 2, QStringLiteral("Red"));
    EXPECT_EQ(Names(grid, 1), "1A 2Red 3C");
    EXPECT_EQ(Names(grid, 2), "1A 2B");
    grid.SetNoOfDivisions(1, QStringLiteral("4"));
    grid.SetNoOfDivisions(1, QStringLiteral("3"));
    EXPECT_EQ(Names(grid, 1), "1A 2B 3C");
    EXPECT_EQ(Names(grid, 2), "1A 2B");
}

TEST(ClassSectionGridTest, TheSameNumberTypedAgainKeepsTheNames)
{
    ClassSectionGrid grid = GridOf({{1, "XII", 3, 1}});
    grid.NameDivision(1, 2, QStringLiteral("Red"));
    grid.SetNoOfDivisions(1, QStringLiteral("3"));
    EXPECT_EQ(Names(grid, 1), "1A 2Red 3C");
}

TEST(ClassSectionGridTest, NoNumberMeansNoDivisions)
{
    for (const char* none : {"", "0", "00"}) {
        ClassSectionGrid grid = GridOf({{1, "XII", 3, 1}});
        grid.SetNoOfDivisions(1, QString::fromLatin1(none));
        EXPECT_EQ(Names(grid, 1), "") << none;
        EXPECT_EQ(grid.Row(1).oldNoOfDivisions, 0) << none;
    }
}

TEST(ClassSectionGridTest, NoDivisionsAreMadeOfThoseThatAClassHasBesideItsStoredNumber)
{
    ClassSectionGrid grid;
    ASSERT_TRUE(grid.Load({{1, "XII", 0, 1}}, {{1, "A", 1}}));
    grid.SetNoOfDivisions(1, QStringLiteral("0"));
    EXPECT_EQ(Names(grid, 1), "");
}

TEST(ClassSectionGridTest, NinetyNineDivisionsEndWithCU)
{
    ClassSectionGrid grid = GridOf({{1, "XII", 1, 1}});
    grid.SetNoOfDivisions(1, QStringLiteral("99"));
    const auto divisions = grid.DivisionsOf(1);
    ASSERT_EQ(divisions.size(), 99U);
    EXPECT_EQ(divisions.front().divisionCode, 1);
    EXPECT_EQ(divisions.back().divisionName.toStdString(), "CU");
}

struct Shift
{
    const char* what;
    std::vector<int> orders;
    int row;
    int typed;
    std::vector<int> shifted;

    friend void PrintTo(const Shift& shift, std::ostream* out) { *out << shift.what; }
};

class ShiftClassOrdersTest : public testing::TestWithParam<Shift>
{};

TEST_P(ShiftClassOrdersTest, PushesTheClassesAtAndBelowTheTypedOrderBehindIt)
{
    std::vector<ClassRecord> classes;
    for (const int order : GetParam().orders)
        classes.push_back({static_cast<int>(classes.size()) + 1, QString::number(order), 1, order});
    ClassSectionGrid grid = GridOf(classes);
    grid.Row(GetParam().row).classOrder = QString::number(GetParam().typed);
    grid.ShiftClassOrders(GetParam().row);
    EXPECT_EQ(Orders(grid), GetParam().shifted) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    Orders, ShiftClassOrdersTest,
    testing::Values(
        Shift{"2 typed where 2, 3 and 4 stand", {1, 2, 3, 4, 5}, 5, 2, {1, 3, 4, 5, 2}},
        Shift{"in grid order, not in the order of the numbers", {1, 4, 3, 2, 5}, 5, 2, {1, 3, 4, 5, 2}},
        Shift{"gaps close up", {5, 9, 20}, 1, 5, {5, 6, 7}},
        Shift{"an order below all others moves all", {3, 4}, 2, 1, {2, 1}},
        Shift{"0 moves nothing", {1, 2, 3}, 2, 0, {1, 0, 3}},
        Shift{"an order behind all others moves nothing", {1, 2, 3}, 1, 9, {9, 2, 3}}));

TEST(ClassSectionGridTest, ABlankOrderIsNotShifted)
{
    ClassSectionGrid grid = GridOf({{1, "XII", 1, 1}});
    grid.AddRow();
    grid.ShiftClassOrders(1);
    EXPECT_EQ(grid.Row(2).classOrder.toStdString(), "");
}

TEST(ClassSectionGridTest, TheNextOrderIsBehindTheHighest)
{
    EXPECT_EQ(ClassSectionGrid().NextClassOrder(), 1);
    EXPECT_EQ(GridOf({{1, "XII", 1, 7}, {2, "XI", 1, 3}}).NextClassOrder(), 8);
}

TEST(ClassSectionGridTest, FindsTiesClassesAndDivisions)
{
    const ClassSectionGrid tied = GridOf({{1, "XII", 1, 2}, {2, "XI", 2, 1}, {3, "X", 1, 2}});
    EXPECT_TRUE(tied.HasOrderTie());
    EXPECT_FALSE(GridOf({{1, "XII", 1, 2}, {2, "XI", 1, 1}}).HasOrderTie());
    EXPECT_EQ(tied.FindClassRow(3), 3);
    EXPECT_EQ(tied.FindClassRow(9), 0);
    EXPECT_TRUE(tied.ArrayScan(2, 2));
    EXPECT_FALSE(tied.ArrayScan(2, 3));
    EXPECT_FALSE(tied.ArrayScan(1, 2));
    EXPECT_TRUE(tied.Grid2Scan(2));
    EXPECT_FALSE(tied.Grid2Scan(4));
}

TEST(ClassSectionGridTest, AClassWithoutANameIsNotOnTheGrid)
{
    ClassSectionGrid grid = GridOf({{1, "XII", 1, 1}});
    grid.Row(1).className = QStringLiteral(" ");
    EXPECT_FALSE(grid.Grid2Scan(1));
}

TEST(ClassSectionGridTest, ClassNamesAreTakenExactlyAsWritten)
{
    const ClassSectionGrid grid = GridOf({{1, "X a", 1, 1}, {2, "X B", 1, 2}});
    EXPECT_TRUE(grid.ClassNameTaken(1, QStringLiteral("X B")));
    EXPECT_TRUE(grid.ClassNameTaken(2, QStringLiteral("X a")));
    EXPECT_FALSE(grid.ClassNameTaken(1, QStringLiteral("X b")));
    EXPECT_FALSE(grid.ClassNameTaken(2, QStringLiteral("X B"))) << "its own name";
}

TEST(ClassSectionGridTest, DivisionNamesAreTakenWithinTheirClassAndTheLastOneOnlyWhenAskedFor)
{
    const ClassSectionGrid grid = GridOf({{1, "XII", 3, 1}, {2, "XI", 5, 2}});
    EXPECT_TRUE(grid.DivisionNameTaken(1, 1, QStringLiteral("B"), false));
    EXPECT_FALSE(grid.DivisionNameTaken(1, 1, QStringLiteral("C"), false));
    EXPECT_TRUE(grid.DivisionNameTaken(1, 1, QStringLiteral("C"), true));
    EXPECT_FALSE(grid.DivisionNameTaken(1, 1, QStringLiteral("A"), true)) << "its own name";
    EXPECT_FALSE(grid.DivisionNameTaken(1, 1, QStringLiteral("E"), true)) << "of another class";
    EXPECT_FALSE(grid.DivisionNameTaken(9, 1, QStringLiteral("A"), false)) << "a class without divisions";
}

struct FaultCase
{
    const char* what;
    void (*spoil)(ClassSectionGrid&);
    const char* message;
    ClassColumn column;
    int row;

    friend void PrintTo(const FaultCase& fault, std::ostream* out) { *out << fault.what; }
};

class FindFaultTest : public testing::TestWithParam<FaultCase>
{};

TEST_P(FindFaultTest, NamesTheFirstFaultAndWhereItStands)
{
    ClassSectionGrid grid = GridOf({{4, "XII", 2, 1}, {5, "XI", 2, 2}, {6, "X", 1, 3}});
    ASSERT_FALSE(FindFault(grid));
    GetParam().spoil(grid);
    const auto fault = FindFault(grid);
    ASSERT_TRUE(fault) << GetParam().what;
    EXPECT_EQ(fault->message.toStdString(), GetParam().message);
    EXPECT_EQ(fault->column, GetParam().column) << GetParam().what;
    EXPECT_EQ(fault->row, GetParam().row) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    EachCheck, FindFaultTest,
    testing::Values(
        FaultCase{"two classes with one name", [](ClassSectionGrid& grid) { grid.Row(3).className = "XII"; },
                  "Class Name Already Exists", ClassColumn::ClassName, 3},
        FaultCase{"a double name below a missing one",
                  [](ClassSectionGrid& grid) {
                      grid.Row(1).className.clear();
                      grid.Row(3).className = "XI";
                  },
                  "Class Name Already Exists", ClassColumn::ClassName, 3},
        FaultCase{"divisions of a nameless class in the first row",
                  [](ClassSectionGrid& grid) { grid.Row(1).className.clear(); },
                  "Class Name Should Not Be Empty", ClassColumn::ClassName, 1},
        FaultCase{"divisions of a nameless class",
                  [](ClassSectionGrid& grid) { grid.Row(2).className = " "; },
                  "Class Name Should Not Be Empty", ClassColumn::ClassName, 2},
        FaultCase{"a class without divisions",
                  [](ClassSectionGrid& grid) { grid.SetNoOfDivisions(2, QStringLiteral("0")); },
                  "Each Class Should Have Atleast One Division", ClassColumn::NoOfDivisions, 2},
        FaultCase{"a last class without divisions",
                  [](ClassSectionGrid& grid) { grid.SetNoOfDivisions(3, QStringLiteral("0")); },
                  "Each Class Should Have Atleast One Division", ClassColumn::NoOfDivisions, 3},
        FaultCase{"a missing name below a class without divisions",
                  [](ClassSectionGrid& grid) {
                      grid.SetNoOfDivisions(1, QStringLiteral("0"));
                      grid.Row(3).className.clear();
                  },
                  "Class Name Should Not Be Empty", ClassColumn::ClassName, 3},
        FaultCase{"a class without divisions below one without an order",
                  [](ClassSectionGrid& grid) {
                      grid.Row(1).classOrder.clear();
                      grid.SetNoOfDivisions(2, QStringLiteral("0"));
                  },
                  "Each Class Should Have Atleast One Division", ClassColumn::NoOfDivisions, 2},
        FaultCase{"two classes without an order",
                  [](ClassSectionGrid& grid) {
                      grid.Row(2).classOrder.clear();
                      grid.Row(3).classOrder.clear();
                  },
                  "Class Order Should Not Be Empty", ClassColumn::ClassOrder, 2},
        FaultCase{"a class without an order", [](ClassSectionGrid& grid) { grid.Row(1).classOrder.clear(); },
                  "Class Order Should Not Be Empty", ClassColumn::ClassOrder, 1},
        FaultCase{"order 0", [](ClassSectionGrid& grid) { grid.Row(2).classOrder = "00"; },
                  "Class Order Should Not Be Empty", ClassColumn::ClassOrder, 2},
        FaultCase{"a last class without an order",
                  [](ClassSectionGrid& grid) { grid.Row(3).classOrder.clear(); },
                  "Class Order Should Not Be Empty", ClassColumn::ClassOrder, 3},
        FaultCase{"two classes at one order", [](ClassSectionGrid& grid) { grid.Row(3).classOrder = "1"; },
                  "Class Order Already Exists", ClassColumn::ClassOrder, 3},
        FaultCase{"a double order above a missing one",
                  [](ClassSectionGrid& grid) {
                      grid.Row(2).classOrder = "1";
                      grid.Row(3).classOrder.clear();
                  },
                  "Class Order Already Exists", ClassColumn::ClassOrder, 2},
        FaultCase{"a nameless division of the first class",
                  [](ClassSectionGrid& grid) { grid.NameDivision(4, 1, QString()); },
                  "Enter Division Name To Class XII", ClassColumn::NoOfDivisions, 1},
        FaultCase{"a nameless division",
                  [](ClassSectionGrid& grid) { grid.NameDivision(5, 2, QStringLiteral(" ")); },
                  "Enter Division Name To Class XI", ClassColumn::NoOfDivisions, 2},
        FaultCase{"a nameless division of a class that moved up and left it",
                  [](ClassSectionGrid& grid) {
                      grid.NameDivision(5, 2, QString());
                      grid.DeleteRow(1);
                  },
                  "Enter Division Name To Class ", ClassColumn::NoOfDivisions, 0},
        FaultCase{"a name fault goes before an order fault",
                  [](ClassSectionGrid& grid) {
                      grid.Row(1).classOrder.clear();
                      grid.Row(2).className.clear();
                  },
                  "Class Name Should Not Be Empty", ClassColumn::ClassName, 2},
        FaultCase{"nothing entered at all",
                  [](ClassSectionGrid& grid) {
                      grid.Clear();
                      grid.StartFirstRow();
                  },
                  "Enter Class-Division Details", ClassColumn::ClassName, 1}));

TEST(ClassSectionGridTest, ADivisionOfTheRowForNoClassNeedsNoName)
{
    ClassSectionGrid grid;
    ASSERT_TRUE(grid.Load({{4, "XII", 1, 1}}, {{4, "A", 1}, {0, "", 1}}));
    EXPECT_FALSE(FindFault(grid));
}

TEST(ClassSectionGridTest, NamesThatDifferOnlyInCasePassEveryCheck)
{
    EXPECT_FALSE(FindFault(GridOf({{1, "X a", 1, 1}, {2, "X A", 1, 2}})));
}

TEST(ClassSectionGridTest, ABlankLastRowIsNoFaultWhateverItsOrder)
{
    ClassSectionGrid grid = GridOf({{1, "XII", 1, 1}});
    grid.AddRow();
    EXPECT_FALSE(FindFault(grid));
    grid.Row(2).classOrder = QStringLiteral("1");
    EXPECT_FALSE(FindFault(grid));
}

} // namespace
} // namespace tally::test
