#include "reports/ClassDivisionAverage.h"

#include "reports/GridText.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

SubjectSetup Subject(int division, int code, const char* shortName, bool taken = true, double maximum = 100)
{
    return {division, code, QString::fromLatin1(shortName), taken, maximum, maximum};
}

DivisionAverageChoice Choice(std::vector<int> subjects,
                             SubjectDisplay display = SubjectDisplay::TakenForRankOnly)
{
    return {.className = QStringLiteral("X"),
            .divisions = {{1, QStringLiteral("  A"), {}}, {2, QStringLiteral("  B"), {}}},
            .subjectCodes = std::move(subjects),
            .display = display};
}

TEST(DivisionAverages, AreThePercentOfTheMaximumMarkOfThoseWhoWerePresent)
{
    // A: Eng (60 + 0) of 2 x 100, Mat (33.33 + 40.5) of 2 x 50; B: Eng 71.255 of 100.
    const DivisionAverageInput input{
        .setup = {Subject(1, 1, "Eng"), Subject(2, 1, "Eng"), Subject(1, 2, "Mat", true, 50),
                  Subject(2, 2, "Mat", true, 80)},
        .marks = {{1, 1, 60}, {1, 1, 0}, {1, 2, 33.33}, {1, 2, 40.5}, {2, 1, 70}, {2, 1, 72.51}, {2, 2, 20}}};
    EXPECT_EQ(GridText(ShowClassDivisionAverages(input, Choice({2, 1}))),
              "Sl.No.|Student Name|Ad.No|Class|Div|1|Eng|2|Mat\n"
              "1|||X|  A|1|30.00|2|73.83\n"
              "2|||X|  B|1|71.26|2|25.00\n");
}

TEST(DivisionAverages, HideWhatTheScreenAloneNeeds)
{
    const GridTable list =
        ShowClassDivisionAverages({.setup = {Subject(1, 1, "Eng")}, .marks = {}}, Choice({1}));
    std::string hidden;
    for (int col = 0; col < list.Cols(); ++col)
        hidden += list.Column(col).hidden ? '-' : '+';
    EXPECT_EQ(hidden, "+--++-+");
    EXPECT_EQ(list.Column(6).alignment, NumberAlignment);
    EXPECT_EQ(list.Column(0).alignment, Qt::AlignHCenter | Qt::AlignVCenter);
}

TEST(DivisionAverages, HaveColumnsOfTheWidthsThatTheOfficeKnows)
{
    const GridTable list =
        ShowClassDivisionAverages({.setup = {Subject(1, 1, "Eng")}, .marks = {}}, Choice({1}));
    std::vector<int> twips;
    for (int col = 0; col < list.Cols(); ++col)
        if (!list.Column(col).hidden)
            twips.push_back(list.Column(col).twips);
    EXPECT_EQ(twips, (std::vector{525, 500, 500, 600}));
}

TEST(DivisionAverages, StayBlankWithoutMarksOrWithoutTheSubject)
{
    const DivisionAverageInput input{
        .setup = {Subject(1, 1, "Eng"), Subject(1, 2, "Mat"), Subject(2, 1, "Eng")},
        .marks = {{1, 2, 50}, {2, 1, 40}, {2, 2, 90}}};
    const GridTable list = ShowClassDivisionAverages(input, Choice({1, 2}));
    EXPECT_EQ(RowText(list, 1), "1|||X|  A|||2|50.00");
    EXPECT_EQ(RowText(list, 2), "2|||X|  B|1|40.00||") << "B has marks in Mat but does not take it";
}

TEST(DivisionAverages, HaveTheColumnsOfTheFirstDivisionInItsOrder)
{
    const DivisionAverageInput input{
        .setup = {Subject(2, 3, "Art"), Subject(1, 2, "Mat"), Subject(1, 1, "Eng"), Subject(2, 1, "Eng")},
        .marks = {{2, 3, 10}, {2, 1, 20}, {1, 1, 30}}};
    EXPECT_EQ(GridText(ShowClassDivisionAverages(input, Choice({1, 2, 3}))),
              "Sl.No.|Student Name|Ad.No|Class|Div|2|Mat|1|Eng\n"
              "1|||X|  A|||1|30.00\n"
              "2|||X|  B|||1|20.00\n");
}

TEST(DivisionAverages, ShowSubjectsNotTakenForRankOnRequestOnly)
{
    const DivisionAverageInput input{
        .setup = {Subject(1, 1, "Eng"), Subject(2, 1, "Eng", false), Subject(1, 2, "Mor", false)},
        .marks = {{1, 1, 30}, {2, 1, 40}, {1, 2, 50}}};
    EXPECT_EQ(GridText(ShowClassDivisionAverages(input, Choice({1, 2}))),
              "Sl.No.|Student Name|Ad.No|Class|Div|1|Eng\n"
              "1|||X|  A|1|30.00\n"
              "2|||X|  B||\n");
    EXPECT_EQ(GridText(ShowClassDivisionAverages(input, Choice({1, 2}, SubjectDisplay::All))),
              "Sl.No.|Student Name|Ad.No|Class|Div|1|Eng|2|Mor\n"
              "1|||X|  A|1|30.00|2|50.00\n"
              "2|||X|  B|1|40.00||\n");
}

TEST(DivisionAverages, ShowTheSubjectsChosenOnly)
{
    const DivisionAverageInput input{.setup = {Subject(1, 1, "Eng"), Subject(1, 2, "Mat")},
                                     .marks = {{1, 1, 30}, {1, 2, 40}}};
    EXPECT_EQ(RowText(ShowClassDivisionAverages(input, Choice({2})), 0),
              "Sl.No.|Student Name|Ad.No|Class|Div|2|Mat");
}

TEST(DivisionAverages, OfMarksOutOfZeroAreBlank)
{
    const DivisionAverageInput input{.setup = {Subject(1, 1, "Eng", true, 0), Subject(1, 2, "Mat")},
                                     .marks = {{1, 1, 30}, {1, 2, 40}}};
    EXPECT_EQ(RowText(ShowClassDivisionAverages(input, Choice({1, 2})), 1), "1|||X|  A|1||2|40.00");
}

TEST(DivisionAverages, CountAHalfOfTheLastDigitUp)
{
    // 200.1 of 4 x 100 is 50.025 percent; 2 x 33.335 of 2 x 100 is 33.335.
    const DivisionAverageInput input{
        .setup = {Subject(1, 1, "Eng"), Subject(1, 2, "Mat")},
        .marks = {{1, 1, 50.1}, {1, 1, 50}, {1, 1, 50}, {1, 1, 50}, {1, 2, 33.33}, {1, 2, 33.34}}};
    EXPECT_EQ(RowText(ShowClassDivisionAverages(input, Choice({1, 2})), 1), "1|||X|  A|1|50.03|2|33.34");
}

TEST(DivisionAverages, KeepTwoSubjectsWithOneShortNameApart)
{
    const DivisionAverageInput input{.setup = {Subject(1, 1, "Sci"), Subject(1, 2, "Sci")},
                                     .marks = {{1, 2, 40}, {1, 1, 30}}};
    EXPECT_EQ(GridText(ShowClassDivisionAverages(input, Choice({1, 2}))),
              "Sl.No.|Student Name|Ad.No|Class|Div|1|Sci|2|Sci\n"
              "1|||X|  A|1|30.00|2|40.00\n"
              "2|||X|  B||||\n");
}

TEST(DivisionAverages, OfASetUpThatIsGoneHaveNoSubjects)
{
    EXPECT_EQ(GridText(ShowClassDivisionAverages({}, Choice({1}))), "Sl.No.|Student Name|Ad.No|Class|Div\n"
                                                                    "1|||X|  A\n"
                                                                    "2|||X|  B\n");
}

TEST(DivisionAverages, MakeAChartOfClassAndDivision)
{
    const DivisionAverageInput input{
        .setup = {Subject(1, 1, "Eng"), Subject(1, 2, " Mat "), Subject(2, 1, "Eng")},
        .marks = {{1, 1, 30}, {2, 1, 40.5}, {1, 2, 1}}};
    const ChartTable chart = ChartOfDivisionAverages(ShowClassDivisionAverages(input, Choice({1, 2})));
    EXPECT_STREQ(chart.labelColumn, "Class");
    EXPECT_EQ(chart.series, QStringList({QStringLiteral("Eng"), QStringLiteral("Mat")}));
    ASSERT_EQ(chart.rows.size(), 2U);
    EXPECT_EQ(chart.rows[0].label.toStdString(), "X A");
    EXPECT_EQ(chart.rows[0].values, std::vector<double>({30, 1}));
    EXPECT_EQ(chart.rows[1].label.toStdString(), "X B");
    EXPECT_EQ(chart.rows[1].values, std::vector<double>({40.5, 0})) << "blank counts as 0";
}

} // namespace
} // namespace tally::test
