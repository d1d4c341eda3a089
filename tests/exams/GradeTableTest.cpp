#include "exams/GradeTable.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <string>

namespace tally::test {
namespace {

const QString GradeExists = QStringLiteral("Grade Already Exists");
const QString TotalAverageExists = QStringLiteral("'Total Average' Already Exists");
const QString Rises = QStringLiteral("'Total Average' Should Be Entered From Highest Average To 0(Zero)");
const QString ReferNotes = QStringLiteral("Enter Values Properly, Refer Notes Given Below");

/// A table with these rows as they were typed, a row to be typed next behind them.
GradeTable TableOf(const std::vector<GradeRow>& rows)
{
    GradeTable table;
    table.Load(std::vector<GradeRecord>(rows.size()));
    for (std::size_t index = 0; index < rows.size(); ++index)
        table.PutBack(static_cast<int>(index) + 1, rows[index]);
    return table;
}

/// A from 80, B from 60, C below.
GradeTable UsualTable()
{
    return TableOf({{"80", "50", "A"}, {"60", "40", "B"}, {"0", "0", "C"}});
}

/// "1|80|50|A 2|||", a row as the grid shows it behind the other.
std::string Shown(const GradeTable& table)
{
    QStringList rows;
    const GridTable grid = table.Table();
    for (int row = 1; row < grid.Rows(); ++row) {
        QStringList cells;
        for (int col = 0; col < grid.Cols(); ++col)
            cells.append(grid.Text(row, col));
        rows.append(cells.join(QLatin1Char('|')));
    }
    return rows.join(QLatin1Char(' ')).toStdString();
}

/// "60 40 B; 0 0 C", what would be stored.
std::string Stored(const GradeTable& table)
{
    QStringList rows;
    for (const GradeRecord& row : table.Records())
        rows.append(
            QStringLiteral("%1 %2 %3")
                .arg(QString::number(row.totalAverage), QString::number(row.subjectAverage), row.grade));
    return rows.join(QStringLiteral("; ")).toStdString();
}

/// "3 2 Grade Already Exists": column, row and words; "none" where the step leads nowhere and says nothing.
std::string ToText(const GradeStep& step)
{
    return QStringLiteral("%1 %2 %3")
        .arg(static_cast<int>(step.column))
        .arg(step.row)
        .arg(step.message)
        .trimmed()
        .toStdString();
}

std::string FaultOf(const GradeTable& table)
{
    const auto fault = table.FindFault();
    return fault ? ToText(*fault) : std::string("none");
}

std::string FaultOf(const std::vector<GradeRow>& rows)
{
    return FaultOf(TableOf(rows));
}

std::string At(int column, int row, const QString& message)
{
    return ToText({message, static_cast<GradeColumn>(column), row});
}

TEST(GradeTableTest, ANewTableHasOneNumberedBlankRow)
{
    EXPECT_EQ(Shown(GradeTable()), "1|||");
}

TEST(GradeTableTest, TheHeadsSayWhatAGradeAsksFor)
{
    const GridTable grid = GradeTable().Table();
    ASSERT_EQ(grid.Cols(), 4);
    EXPECT_EQ(grid.Text(0, 0), QStringLiteral("S.No."));
    EXPECT_EQ(grid.Text(0, 1), QStringLiteral("Total Average Is >="));
    EXPECT_EQ(grid.Text(0, 2), QStringLiteral("Subject Average Is >="));
    EXPECT_EQ(grid.Text(0, 3), QStringLiteral("Grade"));
}

TEST(GradeTableTest, StoredRowsComeInTheirOrderWithABlankRowBehindThem)
{
    GradeTable table;
    table.Load({{40, 33.5, "B"}, {79.25, 0, "A"}});
    EXPECT_EQ(Shown(table), "1|40|33.5|B 2|79.25|0|A 3|||");
}

TEST(GradeTableTest, LoadingAndClearingForgetsWhatStoodThere)
{
    GradeTable table = UsualTable();
    table.Load({{50, 40, "P"}});
    EXPECT_EQ(Shown(table), "1|50|40|P 2|||");
    table.Clear();
    EXPECT_EQ(Shown(table), "1|||");
}

TEST(GradeTableTest, ARowBeginsWithItsTotalAverage)
{
    const GradeTable table = UsualTable();
    for (const GradeColumn column :
         {GradeColumn::TotalAverage, GradeColumn::SubjectAverage, GradeColumn::Grade})
        EXPECT_TRUE(table.MayEnter(2, column)) << static_cast<int>(column);
    EXPECT_TRUE(table.MayEnter(4, GradeColumn::TotalAverage));
    EXPECT_FALSE(table.MayEnter(4, GradeColumn::SubjectAverage));
    EXPECT_FALSE(table.MayEnter(4, GradeColumn::Grade));
}

TEST(GradeTableTest, ARowWhoseTotalAverageIsZeroIsFilled)
{
    EXPECT_TRUE(UsualTable().MayEnter(3, GradeColumn::Grade));
}

TEST(GradeTableTest, NothingIsEnteredOutsideTheRows)
{
    const GradeTable table = UsualTable();
    for (const int row : {-1, 0, 5})
        EXPECT_FALSE(table.MayEnter(row, GradeColumn::TotalAverage)) << row;
}

TEST(GradeTableTest, TypedFiguresAndGradesStandInTheirCells)
{
    GradeTable table;
    table.SetTotalAverage(1, QStringLiteral("75"));
    table.SetSubjectAverage(1, QStringLiteral("40"));
    table.SetGrade(1, QStringLiteral("A+"));
    EXPECT_EQ(Shown(table), "1|75|40|A+");
}

TEST(GradeTableTest, ATotalAverageThatAnotherRowHasIsRefusedAboveAndBelow)
{
    const GradeTable table = UsualTable();
    EXPECT_EQ(table.RefusalOfTotalAverage(4, QStringLiteral("60")), TotalAverageExists);
    EXPECT_EQ(table.RefusalOfTotalAverage(1, QStringLiteral("60")), TotalAverageExists);
    EXPECT_EQ(table.RefusalOfTotalAverage(4, QStringLiteral("0")), TotalAverageExists);
    EXPECT_EQ(table.RefusalOfTotalAverage(4, QStringLiteral("060")), TotalAverageExists);
}

TEST(GradeTableTest, ARowMayKeepItsOwnTotalAverage)
{
    EXPECT_EQ(UsualTable().RefusalOfTotalAverage(2, QStringLiteral("60")), QString());
}

TEST(GradeTableTest, TheLastRowIsNotAskedWhileARowAboveItIsTyped)
{
    GradeTable table = UsualTable();
    table.SetTotalAverage(4, QStringLiteral("20"));
    EXPECT_EQ(table.RefusalOfTotalAverage(1, QStringLiteral("20")), QString());
    EXPECT_EQ(table.RefusalOfTotalAverage(4, QStringLiteral("80")), TotalAverageExists);
    table.PutBack(1, {"20", "50", "A"});
    table.PutBack(4, {"20", "10", "D"});
    EXPECT_EQ(FaultOf(table), At(1, 4, TotalAverageExists)) << "the save asks all rows";
}

TEST(GradeTableTest, ATotalAverageAboveThatOfTheRowBeforeIsRefused)
{
    GradeTable table = UsualTable();
    EXPECT_EQ(table.RefusalOfTotalAverage(2, QStringLiteral("81")), Rises);
    EXPECT_EQ(table.RefusalOfTotalAverage(2, QStringLiteral("79")), QString());
    EXPECT_EQ(table.RefusalOfTotalAverage(2, QStringLiteral("8")), QString());
}

TEST(GradeTableTest, ATotalAverageThatAnotherRowHasIsToldBeforeThatItRises)
{
    const GradeTable table = TableOf({{"60", "", ""}, {"80", "", ""}, {"40", "", ""}});
    EXPECT_EQ(table.RefusalOfTotalAverage(3, QStringLiteral("80")), TotalAverageExists);
}

TEST(GradeTableTest, TheFirstRowMayHaveAnyTotalAverage)
{
    EXPECT_EQ(UsualTable().RefusalOfTotalAverage(1, QStringLiteral("10")), QString());
    EXPECT_EQ(GradeTable().RefusalOfTotalAverage(1, QStringLiteral("999999")), QString());
}

TEST(GradeTableTest, AnEmptyTotalAverageIsNotCompared)
{
    GradeTable table = UsualTable();
    for (const char* text : {"", " "})
        EXPECT_EQ(table.RefusalOfTotalAverage(2, QString::fromLatin1(text)), QString());
    table.SetTotalAverage(2, {});
    EXPECT_EQ(table.RefusalOfTotalAverage(4, QStringLiteral("70")), Rises) << "row 3 has 0";
    table.SetTotalAverage(3, {});
    EXPECT_EQ(table.RefusalOfTotalAverage(4, QStringLiteral("70")), QString()) << "row 1 is the one before";
    EXPECT_EQ(table.RefusalOfTotalAverage(4, QStringLiteral("81")), Rises);
    EXPECT_EQ(table.RefusalOfTotalAverage(4, QStringLiteral("0")), QString()) << "an emptied row has no 0";
}

TEST(GradeTableTest, AGradeOnTheLastRowLeadsToANewRow)
{
    GradeTable table = TableOf({});
    table.PutBack(1, {"80", "50", "A"});
    EXPECT_EQ(ToText(table.EnterGrade(1)), "1 2");
    EXPECT_EQ(Shown(table), "1|80|50|A 2|||");
}

TEST(GradeTableTest, AGradeOnARowInBetweenLeadsToTheNextOne)
{
    GradeTable table = UsualTable();
    EXPECT_EQ(ToText(table.EnterGrade(2)), "1 3");
    EXPECT_EQ(table.RowCount(), 4);
}

TEST(GradeTableTest, ABlankGradeLeadsNowhere)
{
    for (const char* grade : {"", " ", "  "}) {
        GradeTable table = UsualTable();
        table.SetGrade(3, QString::fromLatin1(grade));
        EXPECT_EQ(ToText(table.EnterGrade(3)), "1 0");
        EXPECT_EQ(table.RowCount(), 4);
    }
}

TEST(GradeTableTest, AGradeThatAnotherRowHasIsTakenOut)
{
    for (const char* grade : {"A", " A", "A ", "a"}) {
        GradeTable table = UsualTable();
        table.SetGrade(3, QString::fromLatin1(grade));
        EXPECT_EQ(ToText(table.EnterGrade(3)), At(3, 3, GradeExists)) << grade;
        EXPECT_EQ(Shown(table), "1|80|50|A 2|60|40|B 3|0|0| 4|||");
    }
}

TEST(GradeTableTest, AGradeThatARowBelowHasIsTakenOutToo)
{
    GradeTable table = UsualTable();
    table.SetGrade(1, QStringLiteral("C"));
    EXPECT_EQ(ToText(table.EnterGrade(1)), At(3, 1, GradeExists));
    EXPECT_EQ(Shown(table), "1|80|50| 2|60|40|B 3|0|0|C 4|||");
    table.PutBack(4, {"0", "0", "D"});
    table.SetGrade(1, QStringLiteral("D"));
    EXPECT_EQ(ToText(table.EnterGrade(1)), At(3, 1, GradeExists)) << "the last row counts too";
}

TEST(GradeTableTest, GradesOfOneAndTwoSignsAreDifferent)
{
    GradeTable table = UsualTable();
    table.SetGrade(2, QStringLiteral("A+"));
    EXPECT_EQ(ToText(table.EnterGrade(2)), "1 3");
}

TEST(GradeTableTest, TheRowsBelowADeletedOneMoveUpAndAreNumberedAnew)
{
    GradeTable table = UsualTable();
    table.DeleteRow(1);
    EXPECT_EQ(Shown(table), "1|60|40|B 2|0|0|C 3|||");
    table.DeleteRow(2);
    EXPECT_EQ(Shown(table), "1|60|40|B 2|||");
}

TEST(GradeTableTest, TheOnlyRowLeavesABlankOne)
{
    GradeTable table = TableOf({});
    table.PutBack(1, {"80", "50", "A"});
    table.DeleteRow(1);
    EXPECT_EQ(Shown(table), "1|||");
}

TEST(GradeTableTest, ADeletedBlankRowLeavesRoomForTheNextGrade)
{
    GradeTable table = UsualTable();
    table.DeleteRow(4);
    EXPECT_EQ(Shown(table), "1|80|50|A 2|60|40|B 3|0|0|C 4|||");
}

TEST(GradeTableTest, AUsualTableMayBeStored)
{
    EXPECT_EQ(FaultOf(UsualTable()), "none");
    EXPECT_EQ(Stored(UsualTable()), "80 50 A; 60 40 B; 0 0 C");
}

TEST(GradeTableTest, ATableOfFortyRowsMayBeStored)
{
    std::vector<GradeRow> rows;
    rows.reserve(40);
    for (int row = 39; row >= 0; --row)
        rows.push_back({QString::number(row), QString::number(row), QString::number(row)});
    EXPECT_EQ(FaultOf(rows), "none");
    EXPECT_EQ(TableOf(rows).Records().size(), 40U);
}

TEST(GradeTableTest, AFilledRowWithoutGradeIsRefusedAtItsGrade)
{
    const QString missing = QStringLiteral("Grade Should Not Be Empty");
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"60", "40", ""}, {"0", "0", "C"}}), At(3, 2, missing));
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"0", "0", "C"}, {"0", "", "  "}}), At(3, 3, missing));
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"0", "0", ""}}), At(3, 2, missing));
}

TEST(GradeTableTest, ARepeatedGradeIsRefusedAtTheRowThatRepeatsIt)
{
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"60", "40", "B"}, {"0", "0", " a"}}), At(3, 3, GradeExists));
}

TEST(GradeTableTest, ARepeatedTotalAverageIsRefusedAtTheRowThatRepeatsIt)
{
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"080", "40", "B"}, {"0", "0", "C"}}),
              At(1, 2, TotalAverageExists));
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"0", "0", "B"}, {"0", "0", "C"}}), At(1, 3, TotalAverageExists));
}

TEST(GradeTableTest, ATableThatRisesIsRefusedWhereItRises)
{
    EXPECT_EQ(FaultOf({{"0", "0", "C"}, {"60", "40", "B"}, {"80", "50", "A"}}), At(1, 2, Rises));
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"60", "40", "B"}, {"70", "0", "C"}}), At(1, 3, Rises));
}

TEST(GradeTableTest, ATableWithoutARowOfZeroesIsRefused)
{
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"60", "40", "B"}}), At(1, 0, ReferNotes));
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"0", "40", "B"}}), At(1, 0, ReferNotes));
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"60", "0", "B"}}), At(1, 0, ReferNotes));
}

TEST(GradeTableTest, AnEmptySubjectAverageIsZero)
{
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"0", "", "B"}}), "none");
    EXPECT_EQ(Stored(TableOf({{"80", "", "A"}})), "80 0 A");
}

TEST(GradeTableTest, WithoutARowOfTwoFiguresNoRowOfZeroesIsAskedFor)
{
    EXPECT_EQ(FaultOf({{"80", "0", "A"}, {"60", "0", "B"}}), "none");
    EXPECT_EQ(FaultOf({{"0", "30", "A"}}), "none");
    EXPECT_EQ(FaultOf({{"0", "0", "A"}}), "none");
}

TEST(GradeTableTest, TheFaultsAreToldInTheirOrder)
{
    std::vector<GradeRow> rows{{"20", "20", "A"}, {"40", "10", "A"}, {"40", "30", ""}};
    EXPECT_EQ(FaultOf(rows), At(3, 3, QStringLiteral("Grade Should Not Be Empty")));
    rows[2].grade = QStringLiteral("C");
    EXPECT_EQ(FaultOf(rows), At(3, 2, GradeExists));
    rows[1].grade = QStringLiteral("B");
    EXPECT_EQ(FaultOf(rows), At(1, 3, TotalAverageExists));
    rows[2].totalAverage = QStringLiteral("30");
    EXPECT_EQ(FaultOf(rows), At(1, 2, Rises));
    rows[0].totalAverage = QStringLiteral("50");
    EXPECT_EQ(FaultOf(rows), At(1, 0, ReferNotes));
    rows[2] = {QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("C")};
    EXPECT_EQ(FaultOf(rows), "none");
}

TEST(GradeTableTest, ARowWithoutTotalAverageIsRefusedRatherThanLost)
{
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"", "40", "B"}, {"0", "0", "C"}}), At(1, 2, ReferNotes));
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"0", "0", "C"}, {"", "", "D"}}), At(1, 3, ReferNotes));
    EXPECT_EQ(FaultOf({{"80", "50", "A"}, {"0", "0", "C"}, {" ", "7", ""}}), At(1, 3, ReferNotes));
}

TEST(GradeTableTest, AnEmptiedRowInBetweenIsLeftOut)
{
    const GradeTable table = TableOf({{"80", "50", "A"}, {"", "", " "}, {"0", "0", "C"}});
    EXPECT_EQ(FaultOf(table), "none");
    EXPECT_EQ(Stored(table), "80 50 A; 0 0 C");
}

TEST(GradeTableTest, ATableWithoutRowsIsRefused)
{
    EXPECT_EQ(FaultOf(GradeTable()), At(1, 1, ReferNotes));
    EXPECT_EQ(FaultOf({{"", "", ""}, {"", "", ""}}), At(1, 1, ReferNotes));
    EXPECT_EQ(FaultOf({{"", "", ""}, {"", "7", ""}}), At(1, 2, ReferNotes)) << "where something was typed";
}

TEST(GradeTableTest, AGradeIsStoredWithoutTheBlanksAroundIt)
{
    EXPECT_EQ(Stored(TableOf({{"0", "0", " B"}})), "0 0 B");
}

TEST(GradeTableTest, FiguresAreStoredAsTheyWereLoaded)
{
    GradeTable table;
    table.Load({{79.25, 33.5, "A"}, {0, 0, "B"}});
    EXPECT_EQ(Stored(table), "79.25 33.5 A; 0 0 B");
}

} // namespace
} // namespace tally::test
