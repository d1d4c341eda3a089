#include "reports/ChartTable.h"

#include "reports/ChartRepository.h"
#include "store/StoreError.h"
#include "support/TestStore.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// A report's grid with pairs of columns for these subjects, the codes hidden.
GridTable ReportGrid(const QStringList& shortNames, const std::vector<QStringList>& marks)
{
    std::vector<GridColumn> columns(FirstSubjectColumn);
    for (const QString& name : shortNames) {
        columns.push_back({.head = QStringLiteral("1"), .hidden = true});
        columns.push_back({.head = name});
    }
    GridTable grid(columns);
    for (const QStringList& line : marks) {
        GridTable::Row row(FirstSubjectColumn);
        for (const QString& mark : line) {
            row.push_back({QStringLiteral("1")});
            row.push_back({mark});
        }
        grid.AddRow(row);
    }
    return grid;
}

std::string Text(const ChartTable& chart)
{
    QStringList lines{QLatin1String(chart.labelColumn) + QStringLiteral(": ") +
                      chart.series.join(QLatin1Char('|'))};
    for (const ChartTable::Row& row : chart.rows) {
        QStringList values;
        for (const double value : row.values)
            values.append(QString::number(value));
        lines.append(row.label + QStringLiteral(": ") + values.join(QLatin1Char('|')));
    }
    return lines.join(QStringLiteral("; ")).toStdString();
}

ChartTable ChartOfSeries(const QStringList& series)
{
    ChartTable chart{.labelColumn = "ExamName", .series = series, .rows = {}};
    chart.rows.push_back({QStringLiteral("Term One"), {}});
    for (qsizetype number = 0; number < series.size(); ++number)
        chart.rows.back().values.push_back(static_cast<double>(number) + 0.5);
    return chart;
}

TEST(ChartTableTest, TheVisibleSubjectsOfTheRowsAskedForGoIntoTheChart)
{
    const GridTable grid = ReportGrid({QStringLiteral(" Eng "), QStringLiteral("Mat")},
                                      {{QStringLiteral("56.67"), QStringLiteral("80")},
                                       {QStringLiteral("1"), QStringLiteral("2")},
                                       {QStringLiteral("45"), QStringLiteral("70.5")}});
    EXPECT_EQ(Text(ChartOf(grid, "Class", {{1, QStringLiteral("X A")}, {3, QStringLiteral("X C")}})),
              "Class: Eng|Mat; X A: 56.67|80; X C: 45|70.5");
}

TEST(ChartTableTest, ACellWithoutANumberAboveZeroCountsAsZero)
{
    const GridTable grid = ReportGrid({QStringLiteral("Eng"), QStringLiteral("Mat"), QStringLiteral("Sci")},
                                      {{QString(), QStringLiteral("A"), QStringLiteral("-5")}});
    EXPECT_EQ(Text(ChartOf(grid, "Class", {{1, QStringLiteral("X A")}})), "Class: Eng|Mat|Sci; X A: 0|0|0");
}

TEST(ChartTableTest, AGridWithoutSubjectsGivesAChartWithoutSeries)
{
    EXPECT_EQ(Text(ChartOf(ReportGrid({}, {{}}), "Class", {{1, QStringLiteral("X A")}})), "Class: ; X A: ");
    EXPECT_EQ(Text(ChartOf(ReportGrid({QStringLiteral("Eng")}, {}), "Class", {})), "Class: Eng");
}

TEST(ChartTableTest, TheAxisOfValuesEndsAtARoundNumberThatNoValueExceeds)
{
    struct
    {
        double largest;
        double top;
        double step;
    } const cases[] = {{0, 10, 2},       {100, 100, 20},  {96.4, 100, 20},    {56.67, 60, 10},
                       {60, 60, 10},     {60.01, 80, 20}, {45, 50, 10},       {120, 120, 20},
                       {120.5, 150, 50}, {8, 8, 2},       {1.3, 1.5, 0.5},    {0.6, 0.6, 0.1},
                       {250, 250, 50},   {1e9, 1e9, 2e8}, {0.07, 0.08, 0.02}, {301, 400, 100}};
    for (const auto& [largest, top, step] : cases) {
        ChartTable chart{.labelColumn = "", .series = {QStringLiteral("Eng")}, .rows = {}};
        chart.rows = {{QStringLiteral("A"), {largest / 2}}, {QStringLiteral("B"), {largest}}};
        const ChartAxis axis = AxisOf(chart);
        EXPECT_DOUBLE_EQ(axis.top, top) << largest;
        EXPECT_DOUBLE_EQ(axis.step, step) << largest;
        EXPECT_EQ(axis.Lines(), qRound(top / step) + 1) << largest;
    }
}

TEST(ChartTableTest, TheNumbersAtTheAxisHaveTheDecimalsOfItsStep)
{
    const auto decimals = [](double value) {
        return AxisOf({.labelColumn = "", .series = {QStringLiteral("Eng")}, .rows = {{{}, {value}}}})
            .Decimals();
    };
    EXPECT_EQ(decimals(100), 0);
    EXPECT_EQ(decimals(6), 0);
    EXPECT_EQ(decimals(3), 1) << "in halves";
    EXPECT_EQ(decimals(0.6), 1);
    EXPECT_EQ(decimals(0.1), 2) << "in steps of 0.02";
    EXPECT_EQ(decimals(0.01), 3);
    EXPECT_EQ(AxisOf({}).Decimals(), 0);
}

TEST(ChartTableTest, AboveTheLargestValueAsMuchOfTheAxisIsFreeAsIsAskedFor)
{
    for (const double largest : {100.0, 96.4, 99.99, 0.1, 61.0, 250.0})
        for (const double free : {0.0, 0.05, 0.2, 0.5}) {
            const ChartTable chart{
                .labelColumn = "", .series = {QStringLiteral("Eng")}, .rows = {{{}, {largest}}}};
            const ChartAxis axis = AxisOf(chart, free);
            EXPECT_GE(axis.top - largest, axis.top * free - 1e-9) << largest << " with " << free;
            EXPECT_NEAR(std::remainder(axis.top, axis.step), 0, 1e-9) << largest;
            const bool stepLess = axis.top - axis.step - largest < (axis.top - axis.step) * free - 1e-9;
            EXPECT_TRUE(stepLess || axis.top - axis.step < largest)
                << "no step more than needed, " << largest;
        }
}

TEST(ChartTableTest, AChartWithoutRowsHasAnAxisAllTheSame)
{
    EXPECT_DOUBLE_EQ(AxisOf({}).top, 10);
    EXPECT_EQ(AxisOf({}).Lines(), 6);
}

TEST(ChartTableTest, WhatTheTableHoldsIsWhatWasLaidDown)
{
    store::Connection temp = DeliveredTempStore();
    ChartTable chart{
        .labelColumn = "ExamName",
        .series = {QStringLiteral("Eng"), QStringLiteral("Mat")},
        .rows = {{QStringLiteral("Mid Term"), {56.67, 0}}, {QStringLiteral("Annual"), {100, 70.5}}}};
    EXPECT_EQ(Text(ChartRepository(temp).LayDown(chart)),
              "ExamName: Eng|Mat; Mid Term: 56.67|0; Annual: 100|70.5");
    auto rows = temp.Query(QStringLiteral("SELECT ExamName, Eng, Mat FROM TempChartReport ORDER BY Mat"));
    ASSERT_TRUE(rows.Next());
    EXPECT_EQ(rows.Text(0).toStdString(), "Mid Term");
    EXPECT_DOUBLE_EQ(rows.Double(1), 56.67);
}

TEST(ChartTableTest, EachChartTakesThePlaceOfTheOneBefore)
{
    store::Connection temp = DeliveredTempStore();
    ChartRepository(temp).LayDown(ChartOfSeries({QStringLiteral("Eng"), QStringLiteral("Mat")}));
    EXPECT_EQ(Text(ChartRepository(temp).LayDown(ChartOfSeries({QStringLiteral("Sci")}))),
              "ExamName: Sci; Term One: 0.5");
    EXPECT_EQ(temp.Number(QStringLiteral("SELECT count(*) FROM TempChartReport")), 1);
}

TEST(ChartTableTest, ShortNamesThatWouldBreakATableAreNamesOfSeriesAllTheSame)
{
    store::Connection temp = DeliveredTempStore();
    const QStringList odd{QStringLiteral("Eng"),    QStringLiteral("ENG"),      QStringLiteral("Eng"),
                          QStringLiteral("2nd L"),  QStringLiteral("Select"),   QStringLiteral("a\"b"),
                          QStringLiteral("x'; --"), QStringLiteral("ExamName"), QString(),
                          QStringLiteral("(a, b)")};
    EXPECT_EQ(Text(ChartRepository(temp).LayDown(ChartOfSeries(odd))),
              "ExamName: Eng|ENG_|Eng__|2nd L|Select|a\"b|x'; --|ExamName_|_|(a, b); "
              "Term One: 0.5|1.5|2.5|3.5|4.5|5.5|6.5|7.5|8.5|9.5");
}

TEST(ChartTableTest, AChartOfManySubjectsAndExamsIsLaidDownWhole)
{
    constexpr int Subjects = 40;
    constexpr int Exams = 60;
    ChartTable chart{.labelColumn = "ExamName", .series = {}, .rows = {}};
    for (int subject = 0; subject < Subjects; ++subject)
        chart.series.append(QStringLiteral("S%1").arg(subject));
    for (int exam = 0; exam < Exams; ++exam)
        chart.rows.push_back(
            {QString(100, QLatin1Char('x')) + QString::number(exam), std::vector<double>(Subjects, exam)});
    store::Connection temp = DeliveredTempStore();
    EXPECT_EQ(Text(ChartRepository(temp).LayDown(chart)), Text(chart));
}

TEST(ChartTableTest, WhatCannotBeLaidDownLeavesTheChartBefore)
{
    store::Connection temp = DeliveredTempStore();
    ChartRepository(temp).LayDown(ChartOfSeries({QStringLiteral("Eng")}));
    temp.Execute(QStringLiteral("PRAGMA query_only = 1"));
    EXPECT_THROW(ChartRepository(temp).LayDown(ChartOfSeries({QStringLiteral("Sci")})), store::StoreError);
    temp.Execute(QStringLiteral("PRAGMA query_only = 0"));
    EXPECT_EQ(temp.Number(QStringLiteral("SELECT count(Eng) FROM TempChartReport")), 1);
    EXPECT_EQ(temp.TransactionDepth(), 0);
}

} // namespace
} // namespace tally::test
