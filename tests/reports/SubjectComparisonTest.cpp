#include "reports/SubjectComparison.h"

#include "reports/GridText.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// The heads of the columns that can be seen.
std::string VisibleHeads(const GridTable& list)
{
    QStringList heads;
    for (int col = 0; col < list.Cols(); ++col)
        if (!list.Column(col).hidden)
            heads.append(list.Text(0, col));
    return heads.join(QLatin1Char('|')).toStdString();
}

/// Exams 1 and 2, subjects Eng (10) and Mat (20).
ComparisonInput TwoExams(const std::vector<ComparedMark>& marks)
{
    return {{{1, QStringLiteral("Term One")}, {2, QStringLiteral("Term Two")}},
            {{10, QStringLiteral("Eng")}, {20, QStringLiteral("Mat")}},
            marks};
}

std::string Items(const std::vector<ListItem>& items)
{
    QStringList texts;
    for (const ListItem& item : items)
        texts.append(QStringLiteral("%1=%2<%3>").arg(QString::number(item.code), item.text, item.refusal));
    return texts.join(QStringLiteral("; ")).toStdString();
}

const SubjectListInput TwoSubjects{{{20, QStringLiteral("Mathematics")}, {10, QStringLiteral("50% English")}},
                                   {{1, 10}, {2, 10}, {1, 20}, {3, 20}}};

TEST(ComparedSubjectList, ASubjectWithoutMarksInOneOfTheLinesIsMarkedAndSaysWhy)
{
    EXPECT_EQ(Items(SubjectItems(TwoSubjects, {1, 2}, QStringLiteral("No marks of %1"))),
              "20=. Mathematics<No marks of Mathematics>; 10=  50% English<>");
    EXPECT_EQ(Items(SubjectItems(TwoSubjects, {1}, QStringLiteral("No marks of %1"))),
              "20=  Mathematics<>; 10=  50% English<>");
    EXPECT_EQ(Items(SubjectItems(TwoSubjects, {3}, QStringLiteral("No marks of %1"))),
              "20=  Mathematics<>; 10=. 50% English<No marks of 50% English>");
}

TEST(ComparedSubjectList, WithoutAReasonTheMarkOnlyWarns)
{
    EXPECT_EQ(Items(SubjectItems(TwoSubjects, {2}, {})), "20=. Mathematics<>; 10=  50% English<>");
}

TEST(ComparedSubjectList, WithoutLinesNothingIsMissing)
{
    EXPECT_EQ(Items(SubjectItems({TwoSubjects.subjects, {}}, {}, QStringLiteral("%1"))),
              "20=  Mathematics<>; 10=  50% English<>");
}

TEST(ExamAverages, AreOverAllMarksOfASubjectInAnExamThoseOfNothingAmongThem)
{
    const GridTable list =
        ShowDivisionAverages(TwoExams({{1, 10, 60}, {1, 20, 0}, {1, 10, 71}, {1, 20, 45.5}, {2, 20, 0}}));
    ASSERT_EQ(list.Rows(), 3);
    EXPECT_EQ(RowText(list, 0), "Sl.No.|Student Name|Exam Name|Class|Div|10|Eng|20|Mat");
    EXPECT_EQ(RowText(list, 1), "1||Term One|||10|65.50|20|22.75");
    EXPECT_EQ(RowText(list, 2), "2||Term Two|||||20|0.00");
}

TEST(ExamAverages, ShowSerialNumberExamAndSubjectsOnly)
{
    const GridTable list = ShowDivisionAverages(TwoExams({}));
    EXPECT_EQ(VisibleHeads(list), "Sl.No.|Exam Name|Eng|Mat");
    EXPECT_EQ(list.Column(0).alignment, Qt::AlignHCenter | Qt::AlignVCenter);
    EXPECT_EQ(list.Column(ExamLineColumn::ExamName).alignment, TextAlignment);
    EXPECT_EQ(list.Column(FirstSubjectColumn + 1).alignment, NumberAlignment);
}

TEST(ExamAverages, RoundAHalfToTheEvenHundredth)
{
    const GridTable list =
        ShowDivisionAverages(TwoExams({{1, 10, 0.01}, {1, 10, 0.02}, {1, 20, 0.02}, {1, 20, 0.03}}));
    EXPECT_EQ(RowText(list, 1), "1||Term One|||10|0.02|20|0.02");
}

TEST(ExamAverages, AnExactHalfGoesToTheEvenHundredthWhateverItsBinaryForm)
{
    for (int hundredths = 0; hundredths < 10000; ++hundredths) {
        const double mark = hundredths / 100.0;
        const double next = (hundredths + 1) / 100.0;
        const int even = hundredths % 2 == 0 ? hundredths : hundredths + 1;
        const GridTable list = ShowDivisionAverages(TwoExams({{1, 10, mark}, {1, 10, next}}));
        ASSERT_EQ(
            list.Text(1, FirstSubjectColumn + 1).toStdString(),
            QStringLiteral("%1.%2").arg(even / 100).arg(even % 100, 2, 10, QLatin1Char('0')).toStdString())
            << mark << " and " << next;
    }
}

TEST(ExamAverages, AreCountedWithoutTheNoiseOfManyMarks)
{
    std::vector<ComparedMark> marks(30000, {1, 10, 0.02});
    marks.insert(marks.end(), 30000, {1, 10, 0.03});
    EXPECT_EQ(RowText(ShowDivisionAverages(TwoExams(marks)), 1), "1||Term One|||10|0.02||");
}

TEST(ExamAverages, AMarkFindsItsPlaceByItsCodesInWhateverOrderMarksCome)
{
    const GridTable list = ShowDivisionAverages(
        TwoExams({{2, 20, 4}, {9, 10, 99}, {1, 20, 2}, {2, 99, 99}, {2, 10, 3}, {1, 10, 1}}));
    EXPECT_EQ(RowText(list, 1), "1||Term One|||10|1.00|20|2.00");
    EXPECT_EQ(RowText(list, 2), "2||Term Two|||10|3.00|20|4.00");
}

TEST(ExamAverages, ASubjectMissingFromAnExamLeavesThoseBehindItInTheirPlaces)
{
    ComparisonInput input = TwoExams({{1, 30, 7}, {2, 20, 5}, {2, 30, 8}});
    input.subjects.emplace_back(30, QStringLiteral("Sci"));
    const GridTable list = ShowDivisionAverages(input);
    EXPECT_EQ(RowText(list, 1), "1||Term One|||||||30|7.00");
    EXPECT_EQ(RowText(list, 2), "2||Term Two|||||20|5.00|30|8.00");
}

TEST(ExamAverages, OfNoExamOrNoSubjectAreAListOfNothing)
{
    EXPECT_EQ(ShowDivisionAverages({}).Rows(), 1);
    EXPECT_EQ(ShowDivisionAverages({}).Cols(), 5);
    EXPECT_EQ(ShowDivisionAverages({{}, {{10, QStringLiteral("Eng")}}, {}}).Cols(), 7);
    EXPECT_EQ(RowText(ShowDivisionAverages({{{1, QStringLiteral("Term One")}}, {}, {{1, 10, 5}}}), 1),
              "1||Term One||");
}

TEST(ExamAverages, OfSixtyExamsAndFortySubjectsFillEveryCell)
{
    ComparisonInput input;
    for (int exam = 1; exam <= 60; ++exam)
        input.lines.emplace_back(exam, QString(100, QLatin1Char('e')));
    for (int subject = 1; subject <= 40; ++subject) {
        input.subjects.emplace_back(subject, QStringLiteral("Sub"));
        for (int exam = 1; exam <= 60; ++exam)
            input.marks.push_back({exam, subject, 1e9});
    }
    const GridTable list = ShowDivisionAverages(input);
    EXPECT_EQ(list.Rows(), 61);
    EXPECT_EQ(list.Cols(), 85);
    EXPECT_EQ(list.Text(60, ExamLineColumn::ExamName).size(), 100);
    EXPECT_EQ(list.Text(60, 84).toStdString(), "1000000000.00");
}

TEST(StudentMarks, StandAboveTheirAverageAndABlankRow)
{
    const GridTable list = ShowStudentMarks(TwoExams({{1, 10, 60}, {2, 10, 71.25}, {2, 20, 40}}), 2);
    ASSERT_EQ(list.Rows(), 5);
    EXPECT_EQ(RowText(list, 0), "SlNo|Student Name|ExamName|Class|Div|10|Eng|20|Mat");
    EXPECT_EQ(VisibleHeads(list), "SlNo|ExamName|Eng|Mat");
    EXPECT_EQ(RowText(list, 1), "1||Term One|||10|60.00||");
    EXPECT_EQ(RowText(list, 2), "2||Term Two|||10|71.25|20|40.00");
    EXPECT_EQ(RowText(list, 3), "||Total Average||||65.63||40.00");
    EXPECT_EQ(RowText(list, 4), "||||||||");
    EXPECT_EQ(list.Mark(3, 6), CellMark::Sum);
    EXPECT_EQ(list.Mark(2, 6), CellMark::None);
}

TEST(StudentMarks, WithoutFractionsAreShownWholeAHalfToTheEvenNumberButAveragedAsStored)
{
    const GridTable list =
        ShowStudentMarks(TwoExams({{1, 10, 70.5}, {2, 10, 71.5}, {1, 20, 0.4}, {2, 20, 60.25}}), 0);
    EXPECT_EQ(RowText(list, 1), "1||Term One|||10|70|20|0");
    EXPECT_EQ(RowText(list, 2), "2||Term Two|||10|72|20|60");
    EXPECT_EQ(RowText(list, 3), "||Total Average||||71.00||30.33");
}

TEST(StudentMarks, TheirAverageCountsAHalfUpAsWrittenNumbersDo)
{
    const GridTable list =
        ShowStudentMarks(TwoExams({{1, 10, 65.02}, {2, 10, 65.03}, {1, 20, 65.03}, {2, 20, 65.04}}), 2);
    EXPECT_EQ(RowText(list, 3), "||Total Average||||65.03||65.04");
}

TEST(StudentMarks, OfNothingKeepTheirDecimalsAndCountInNoAverage)
{
    const GridTable list = ShowStudentMarks(TwoExams({{1, 10, 0}, {2, 10, 50}, {1, 20, 0}}), 0);
    EXPECT_EQ(RowText(list, 1), "1||Term One|||10|0.00|20|0.00");
    EXPECT_EQ(RowText(list, 2), "2||Term Two|||10|50||");
    EXPECT_EQ(RowText(list, 3), "||Total Average||||50.00||");
}

TEST(StudentMarks, AnExamWithoutMarksIsABlankRowWithItsNumber)
{
    const GridTable list = ShowStudentMarks(TwoExams({{2, 10, 50}}), 0);
    EXPECT_EQ(RowText(list, 1), "1||Term One||||||");
}

TEST(StudentMarks, TheirChartShowsTheExamsAndNotTheAverage)
{
    const GridTable list = ShowStudentMarks(TwoExams({{2, 10, 0}, {2, 20, 50}}), 2);
    const ChartTable chart = ChartOf(list, "ExamName", ExamLabels(list));
    EXPECT_EQ(chart.series, QStringList({QStringLiteral("Eng"), QStringLiteral("Mat")}));
    ASSERT_EQ(chart.rows.size(), 2U);
    EXPECT_EQ(chart.rows[0].label, QStringLiteral("Term One"));
    EXPECT_EQ(chart.rows[0].values, (std::vector<double>{0, 0}));
    EXPECT_EQ(chart.rows[1].label, QStringLiteral("Term Two"));
    EXPECT_EQ(chart.rows[1].values, (std::vector<double>{0, 50}));
}

TEST(StudentMarks, TheirTextEndsWithTheAverage)
{
    const TextReport text = StudentMarksText(ShowStudentMarks(TwoExams({{1, 10, 60}, {2, 20, 40}}), 0),
                                             QStringLiteral("Marks For Asha"));
    EXPECT_EQ(text.title, QStringLiteral("Marks For Asha"));
    QStringList columns;
    for (const TextReport::Column& column : text.columns)
        columns.append(QStringLiteral("%1 %2").arg(column.head).arg(column.width));
    EXPECT_EQ(columns.join(QStringLiteral("; ")).toStdString(), "SlNo 6; ExamName 25; Eng 5; Mat 5");
    QStringList rows;
    for (const QStringList& row : text.rows)
        rows.append(row.join(QLatin1Char('|')));
    EXPECT_EQ(rows.join(QStringLiteral("; ")).toStdString(),
              "1|Term One|60|; 2|Term Two||40; |Total Average|60.00|40.00");
}

/// Years 3 and 5, subjects Eng (10) and Mat (20).
ComparisonInput TwoYears(const std::vector<ComparedMark>& marks)
{
    return {{{3, QStringLiteral("2023 - 2024 IX/A")}, {5, QStringLiteral("2024 - 2025 X/B")}},
            {{10, QStringLiteral("Eng")}, {20, QStringLiteral("Mat")}},
            marks};
}

TEST(YearMarks, StandBesideTheYearWithItsClassAndHaveNoClosingRow)
{
    const GridTable list = ShowYearMarks(TwoYears({{3, 20, 40.25}, {5, 10, 71.5}, {5, 20, 0}}), 2);
    ASSERT_EQ(list.Rows(), 3);
    EXPECT_EQ(RowText(list, 0), "Sl.No.|Academic Year/Class/Division|Ad.No|Class|Div|10|Eng|20|Mat");
    EXPECT_EQ(VisibleHeads(list), "Sl.No.|Academic Year/Class/Division|Eng|Mat");
    EXPECT_EQ(RowText(list, 1), "1|2023 - 2024 IX/A||||||20|40.25");
    EXPECT_EQ(RowText(list, 2), "2|2024 - 2025 X/B||||10|71.50|20|0.00");
    EXPECT_EQ(list.Column(0).alignment, Qt::AlignHCenter | Qt::AlignVCenter);
    EXPECT_EQ(list.Column(YearLineColumn::YearAndClass).alignment, TextAlignment);
    EXPECT_EQ(list.Column(FirstSubjectColumn + 3).alignment, NumberAlignment);
}

TEST(YearMarks, WithoutFractionsAreWholeAHalfToTheEvenNumber)
{
    const GridTable list = ShowYearMarks(TwoYears({{3, 10, 70.5}, {3, 20, 71.5}, {5, 10, 0}}), 0);
    EXPECT_EQ(RowText(list, 1), "1|2023 - 2024 IX/A||||10|70|20|72");
    EXPECT_EQ(RowText(list, 2), "2|2024 - 2025 X/B||||10|0||");
}

TEST(YearMarks, OfTwoClassesInOneYearAreAveraged)
{
    const GridTable list = ShowYearMarks(TwoYears({{5, 10, 60}, {5, 10, 71}}), 2);
    EXPECT_EQ(RowText(list, 2), "2|2024 - 2025 X/B||||10|65.50||");
}

TEST(YearMarks, OfTwoClassesInOneYearAHalfGoesToTheEvenNeighbour)
{
    const ComparisonInput marks =
        TwoYears({{3, 10, 65.02}, {3, 10, 65.03}, {5, 20, 70.4}, {5, 20, 70.6}, {5, 10, 70}, {5, 10, 71}});
    EXPECT_EQ(RowText(ShowYearMarks(marks, 2), 1), "1|2023 - 2024 IX/A||||10|65.02||");
    EXPECT_EQ(RowText(ShowYearMarks(marks, 0), 2), "2|2024 - 2025 X/B||||10|70|20|70");
}

TEST(YearMarks, TheirChartLeavesOutAYearWithoutAMarkInTheFirstSubject)
{
    const GridTable list = ShowYearMarks(TwoYears({{3, 20, 40}, {5, 10, 0}}), 0);
    const ChartTable chart = ChartOf(list, "AcdYear", YearLabels(list));
    ASSERT_EQ(chart.rows.size(), 1U);
    EXPECT_EQ(chart.rows[0].label, QStringLiteral("2024 - 2025 X/B"));
    EXPECT_EQ(chart.rows[0].values, (std::vector<double>{0, 0}));
    const GridTable none = ShowYearMarks(TwoYears({{3, 20, 40}}), 0);
    EXPECT_TRUE(YearLabels(none).empty());
}

} // namespace
} // namespace tally::test
