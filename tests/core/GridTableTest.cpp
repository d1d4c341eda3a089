#include "core/GridTable.h"

#include <gtest/gtest.h>

namespace tally {
namespace {

enum class Mark
{
    Name,
    Maths,
    Code,
};

/// Three rows below the head, called by their numbers.
GridTable ThreeRows()
{
    GridTable table({{QStringLiteral("Name")},
                     {QStringLiteral("Maths"), NumberAlignment},
                     {.head = QStringLiteral("Code"), .hidden = true}});
    for (int row = 1; row <= 3; ++row)
        table.AddRow({{QString::number(row)}});
    return table;
}

std::string Names(const GridTable& table)
{
    QString names;
    for (int row = 0; row < table.Rows(); ++row)
        names += table.Text(row, Mark::Name) + QLatin1Char(' ');
    return names.trimmed().toStdString();
}

TEST(GridTableTest, RowsCountWithTheHeadAndColumnsHaveNames)
{
    const GridTable table = ThreeRows();
    EXPECT_EQ(table.Rows(), 4);
    EXPECT_EQ(table.Cols(), 3);
    EXPECT_EQ(table.Text(0, Mark::Maths).toStdString(), "Maths");
    EXPECT_EQ(table.Column(Mark::Maths).alignment, NumberAlignment);
    EXPECT_EQ(table.Column(Mark::Name).alignment, TextAlignment);
    EXPECT_TRUE(table.Column(Mark::Code).hidden);
    EXPECT_EQ(table.Text(3, 0).toStdString(), "3");
    EXPECT_EQ(GridTable().Rows(), 1) << "there always is a head";
}

TEST(GridTableTest, OutsideAndInAShortRowThereIsNothing)
{
    GridTable table = ThreeRows();
    for (const auto& [row, col] : {std::pair{-1, 0}, {0, 3}, {0, -1}, {4, 0}, {1, 1}, {1, -1}, {1, 3}}) {
        EXPECT_EQ(table.Text(row, col).toStdString(), "") << row << ' ' << col;
        EXPECT_EQ(table.Mark(row, col), CellMark::None) << row << ' ' << col;
    }
    for (const auto& [row, col] : {std::pair{-1, 0}, {0, 3}, {4, 0}, {1, -1}, {1, 3}}) {
        table.SetText(row, col, QStringLiteral("outside"));
        table.SetMark(row, col, CellMark::Sum);
    }
    for (const int row : {-1, 0, 4})
        table.SetRow(row, {{QStringLiteral("outside")}});
    EXPECT_EQ(Names(table), "Name 1 2 3");
}

TEST(GridTableTest, AShortRowTakesACellBehindItsEnd)
{
    GridTable table = ThreeRows();
    table.SetText(2, Mark::Code, QStringLiteral("17"));
    table.SetMark(1, Mark::Maths, CellMark::FailedOrAbsent);
    EXPECT_EQ(table.Text(2, Mark::Code).toStdString(), "17");
    EXPECT_EQ(table.Text(2, Mark::Name).toStdString(), "2");
    EXPECT_EQ(table.Mark(1, Mark::Maths), CellMark::FailedOrAbsent);
    for (const int row : {1, 2, 3})
        table.SetRow(row, {{QStringLiteral("new")}});
    EXPECT_EQ(Names(table), "Name new new new");
    EXPECT_EQ(table.Text(2, Mark::Code).toStdString(), "") << "a row is replaced as a whole";
}

TEST(GridTableTest, AHeadIsATextAndHasNoMark)
{
    GridTable table = ThreeRows();
    table.SetText(0, Mark::Name, QStringLiteral("Subject Name"));
    table.SetMark(0, Mark::Name, CellMark::Sum);
    EXPECT_EQ(table.Column(Mark::Name).head.toStdString(), "Subject Name");
    EXPECT_EQ(table.Mark(0, Mark::Name), CellMark::None);
}

TEST(GridTableTest, GrowsShrinksAndKeepsItsHead)
{
    GridTable table = ThreeRows();
    table.SetRows(6);
    EXPECT_EQ(Names(table), "Name 1 2 3");
    EXPECT_EQ(table.Rows(), 6);
    for (const int none : {1, 0, -4}) {
        table.SetRows(none);
        EXPECT_EQ(table.Rows(), 1);
    }
    table.SetRows(3);
    EXPECT_EQ(table.Text(1, Mark::Name).toStdString(), "") << "what was cut off is forgotten";

    table = ThreeRows();
    table.SetText(1, Mark::Maths, QStringLiteral("40"));
    table.SetCols(1);
    table.SetCols(4);
    EXPECT_EQ(table.Cols(), 4);
    EXPECT_EQ(table.Text(0, Mark::Maths).toStdString(), "");
    EXPECT_EQ(table.Text(1, Mark::Maths).toStdString(), "");
    EXPECT_FALSE(table.Column(Mark::Code).hidden);
    table.SetCols(-1);
    EXPECT_EQ(table.Cols(), 0);
}

TEST(GridTableTest, ARemovedRowLetsThoseBelowItMoveUp)
{
    GridTable table = ThreeRows();
    for (const int row : {0, -1, 4})
        table.RemoveRow(row);
    EXPECT_EQ(Names(table), "Name 1 2 3");
    table.RemoveRow(2);
    EXPECT_EQ(Names(table), "Name 1 3");
}

TEST(GridTableTest, AHiddenRowStaysHiddenWhereverItMoves)
{
    GridTable table = ThreeRows();
    for (const int row : {3, 1, 3, 0, 4, -1})
        table.HideRow(row);
    EXPECT_EQ(table.HiddenRows(), std::vector<int>({0, 1, 3})) << "rows that there are, once each";
    table.RemoveRow(2);
    EXPECT_EQ(table.HiddenRows(), std::vector<int>({0, 1, 2}));
    table.HideRow(0, false);
    EXPECT_FALSE(table.RowHidden(0));
    EXPECT_TRUE(table.RowHidden(2));
    table.RemoveRow(1);
    EXPECT_EQ(table.HiddenRows(), std::vector<int>({1}));
    table.SetRows(2);
    EXPECT_TRUE(table.RowHidden(1)) << "it is not cut off";
    table.SetRows(1);
    table.SetRows(4);
    EXPECT_FALSE(table.RowHidden(1)) << "a new row is seen";
}

TEST(GridTableTest, ATextRepeatsWhereAllMergedColumnsBeforeItDoToo)
{
    GridTable table({{.head = QStringLiteral("Class"), .merged = true},
                     {.head = QStringLiteral("Free")},
                     {.head = QStringLiteral("Division"), .merged = true}});
    for (const char* name : {"X", "X", "XI", "X", "X"})
        table.AddRow({{QString::fromLatin1(name)}, {QString::number(table.Rows())}, {QStringLiteral("A")}});
    const auto repeating = [&table](int col) {
        std::string rows;
        for (int row = -1; row <= table.Rows(); ++row)
            if (table.Repeats(row, col))
                rows += std::to_string(row);
        return rows;
    };
    EXPECT_EQ(repeating(0), "25");
    EXPECT_EQ(repeating(1), "");
    EXPECT_EQ(repeating(2), "25") << "the division of another class is another one";
    EXPECT_EQ(repeating(3), "");
    table.HideRow(3);
    EXPECT_EQ(repeating(0), "245") << "what is hidden parts nothing";
    table.HideRow(1);
    EXPECT_EQ(repeating(0), "45") << "what is hidden is not repeated either";
    table.AddRow();
    EXPECT_EQ(repeating(0), "45") << "nothing stands below the last row, and so repeats nothing";
}

TEST(GridTableTest, EveryMarkIsToldInWordsButNone)
{
    EXPECT_EQ(CellWords(CellMark::NotTakenForRank).toStdString(), "Not Taken For Rank");
    EXPECT_EQ(CellWords(CellMark::FailedOrAbsent).toStdString(), "Failed Or Absent");
    EXPECT_EQ(CellWords(CellMark::Sum).toStdString(), "Sum");
    EXPECT_EQ(CellWords(CellMark::None).toStdString(), "");
}

} // namespace
} // namespace tally
