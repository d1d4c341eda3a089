#include "reports/StudentsList.h"

#include "reports/GridText.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

using Marks = std::vector<std::optional<double>>;

SubjectSetup Subject(int code, double maximum = 100, int division = 1)
{
    return {division, code, {}, true, maximum, maximum};
}

/// English (1) out of 100 and Maths (2) out of 50, in one division.
///
/// Asha 90 and 10, Binu 0 and 45, Cara 60 and none, Dev absent in both. English: 150 of 2 x 100 is 75 %.
/// Maths: 55 of 2 x 50 is 55 %.
StudentsListInput Class(AverageSide side)
{
    const bool below = side == AverageSide::Below;
    const auto zero = below ? std::optional<double>(StoredZero) : std::nullopt;
    return {.subjects = {{1, QStringLiteral("Eng")}, {2, QStringLiteral("Mat")}},
            .setup = {Subject(1), Subject(2, 50)},
            .marks = {{1, 1, 90}, {1, 2, 10}, {1, 1, 0}, {1, 2, 45}, {1, 1, 60}, {1, 1, 0}, {1, 2, 0}},
            .students = {{QStringLiteral("Asha(A1)"), Marks{90.0, 10.0}},
                         {QStringLiteral("Binu(A2)"), Marks{zero, 45.0}},
                         {QStringLiteral("Cara(A3)"), Marks{60.0, std::nullopt}},
                         {QStringLiteral("Dev(A4)"), Marks{zero, zero}}}};
}

StudentsListOptions Below(int decimals = 2)
{
    return {.side = AverageSide::Below, .givenValue = {}, .markDecimals = decimals};
}

StudentsListOptions Above(int decimals = 2)
{
    return {.side = AverageSide::Above, .givenValue = {}, .markDecimals = decimals};
}

StudentsListOptions Given(AverageSide side, const char* value, int decimals = 2)
{
    return {.side = side, .givenValue = QString::fromLatin1(value), .markDecimals = decimals};
}

std::string List(const StudentsListOptions& options)
{
    return GridText(ListStudents(Class(options.side), options));
}

std::string Limits(const StudentsListInput& input, const StudentsListOptions& options)
{
    QStringList texts;
    for (const SubjectLimit& limit : SubjectLimits(input, options))
        texts.append(QStringLiteral("%1:%2").arg(limit.subjectCode).arg(limit.text));
    return texts.join(QLatin1Char(' ')).toStdString();
}

TEST(StudentsBelow, HaveAMarkBelowTheAverageOfTheMarksAboveZero)
{
    EXPECT_EQ(List(Below()), "|Student Name (Admission No)|Eng|Mat\n"
                             "|Asha(A1)||10.00\n"
                             "|Binu(A2)|0.00|45.00\n"
                             "|Cara(A3)|60.00|\n"
                             "|Dev(A4)|0.00|0.00\n"
                             "|||\n"
                             "||75|55\n");
}

TEST(StudentsAbove, HaveAMarkAboveTheAverageAndNeverAZero)
{
    EXPECT_EQ(List(Above()), "|Student Name (Admission No)|Eng|Mat\n"
                             "|Asha(A1)|90.00|\n"
                             "|||\n"
                             "||75|55\n");
}

TEST(StudentsBelow, ArePlacedByRawMarksAlthoughTheAverageIsInPercent)
{
    // 45 of 50 is far above 55 percent, and still the mark 45 is less than the number 55.
    const GridTable list = ListStudents(Class(AverageSide::Below), Below());
    EXPECT_EQ(list.Text(2, 3).toStdString(), "45.00");
}

TEST(StudentsBesideAnAverage, AreNotThoseWhoHaveExactlyIt)
{
    StudentsListInput input{.subjects = {{1, QStringLiteral("Eng")}},
                            .setup = {Subject(1)},
                            .marks = {{1, 1, 40}, {1, 1, 60}, {1, 1, 50}},
                            .students = {{QStringLiteral("Asha(1)"), Marks{50.0}}}};
    for (const auto& options :
         {Below(), Above(), Given(AverageSide::Below, "50"), Given(AverageSide::Above, "50")})
        EXPECT_EQ(GridText(ListStudents(input, options)), "|Student Name (Admission No)|Eng\n"
                                                          "||\n"
                                                          "||50\n");
}

TEST(StudentsBesideAGivenValue, AreComparedWithIt)
{
    EXPECT_EQ(List(Given(AverageSide::Below, "50")), "|Student Name (Admission No)|Eng|Mat\n"
                                                     "|Asha(A1)||10.00\n"
                                                     "|Binu(A2)|0.00|45.00\n"
                                                     "|Dev(A4)|0.00|0.00\n"
                                                     "|||\n"
                                                     "||50|50\n");
    EXPECT_EQ(List(Given(AverageSide::Above, "50")), "|Student Name (Admission No)|Eng|Mat\n"
                                                     "|Asha(A1)|90.00|\n"
                                                     "|Cara(A3)|60.00|\n"
                                                     "|||\n"
                                                     "||50|50\n");
}

TEST(StudentsBesideAGivenValue, SeeItRoundedBelowAndAsTypedAbove)
{
    const auto lastRow = [](AverageSide side, const char* value) {
        const GridTable list = ListStudents(Class(side), Given(side, value));
        return RowText(list, list.Rows() - 1);
    };
    EXPECT_EQ(lastRow(AverageSide::Below, "33.336"), "||33.34|33.34");
    EXPECT_EQ(lastRow(AverageSide::Above, "33.336"), "||33.336|33.336");
    EXPECT_EQ(lastRow(AverageSide::Above, "40.50 marks"), "||40.5|40.5");
    EXPECT_EQ(Limits(Class(AverageSide::Below), Given(AverageSide::Below, "7")), "1:7.00 2:7.00");
    EXPECT_EQ(Limits(Class(AverageSide::Above), Given(AverageSide::Above, "7")), "1:7 2:7");
}

TEST(StudentsBesideAGivenValue, AreAllOrNoneWhereItIsEnormous)
{
    EXPECT_EQ(ListStudents(Class(AverageSide::Below), Given(AverageSide::Below, "1e9")).Rows(), 7);
    EXPECT_EQ(ListStudents(Class(AverageSide::Above), Given(AverageSide::Above, "1e9")).Rows(), 3);
    const GridTable list = ListStudents(Class(AverageSide::Below), Given(AverageSide::Below, "1e9"));
    EXPECT_EQ(list.Text(6, 2).toStdString(), "1000000000");
}

TEST(StudentsBesideAnAverage, AreShownWithTheDecimalsThatTheOfficeUses)
{
    StudentsListInput input{.subjects = {{1, QStringLiteral("Eng")}},
                            .setup = {Subject(1)},
                            .marks = {{1, 1, 100}},
                            .students = {{QStringLiteral("Asha(1)"), Marks{10.5}},
                                         {QStringLiteral("Binu(2)"), Marks{11.5}},
                                         {QStringLiteral("Cara(3)"), Marks{0.3}},
                                         {QStringLiteral("Dev(4)"), Marks{StoredZero}}}};
    EXPECT_EQ(GridText(ListStudents(input, Below(0))), "|Student Name (Admission No)|Eng\n"
                                                       "|Asha(1)|10\n"
                                                       "|Binu(2)|12\n"
                                                       "|Cara(3)|0\n"
                                                       "|Dev(4)|0\n"
                                                       "||\n"
                                                       "||100\n")
        << "a half goes to the even neighbour";
    EXPECT_EQ(ListStudents(input, Below(2)).Text(1, 2).toStdString(), "10.50");
}

TEST(StudentsBesideAnAverage, AreNeverListedForAMarkThatIsNotThere)
{
    StudentsListInput input = Class(AverageSide::Below);
    input.students = {{QStringLiteral("Esa(A5)"), Marks{std::nullopt, std::nullopt}}};
    EXPECT_EQ(ListStudents(input, Below()).Rows(), 3);
    EXPECT_EQ(ListStudents(input, Given(AverageSide::Below, "99")).Rows(), 3);
    EXPECT_EQ(ListStudents(input, Above()).Rows(), 3);
}

TEST(StudentsBesideAnAverage, AreNoneWhereNobodyCountsAndTheAveragesStillStand)
{
    StudentsListInput input = Class(AverageSide::Above);
    input.students.clear();
    EXPECT_EQ(GridText(ListStudents(input, Above())), "|Student Name (Admission No)|Eng|Mat\n"
                                                      "|||\n"
                                                      "||75|55\n");
}

TEST(StudentsBelow, WhoWereAllAbsentAreListedWithZerosAndThereIsNoAverage)
{
    const StudentsListInput below{.subjects = {{1, QStringLiteral("Eng")}},
                                  .setup = {Subject(1)},
                                  .marks = {{1, 1, 0}, {1, 1, 0}},
                                  .students = {{QStringLiteral("Asha(1)"), Marks{StoredZero}}}};
    EXPECT_EQ(GridText(ListStudents(below, Below())), "|Student Name (Admission No)|Eng\n"
                                                      "|Asha(1)|0.00\n"
                                                      "||\n"
                                                      "||\n");
}

TEST(StudentsBesideAnAverage, AreNotMeasuredByMarksOutOfZero)
{
    for (const AverageSide side : {AverageSide::Below, AverageSide::Above}) {
        StudentsListInput input = Class(side);
        input.setup = {Subject(1, 0), Subject(2, 50)};
        const StudentsListOptions options{.side = side, .givenValue = {}, .markDecimals = 2};
        EXPECT_EQ(Limits(input, options), "1: 2:55.00");
        const GridTable list = ListStudents(input, options);
        for (int row = 1; row < list.Rows(); ++row)
            EXPECT_EQ(list.Text(row, 2).toStdString(), "") << row;
    }
}

TEST(StudentsBesideAnAverage, OfASubjectWithoutOneAreThoseWithZerosBelowAndNobodyAbove)
{
    const auto list = [](AverageSide side) {
        StudentsListInput input = Class(side);
        input.setup = {Subject(1)};
        return GridText(ListStudents(input, {.side = side, .givenValue = {}, .markDecimals = 0}));
    };
    EXPECT_EQ(list(AverageSide::Below), "|Student Name (Admission No)|Eng|Mat\n"
                                        "|Binu(A2)|0|\n"
                                        "|Cara(A3)|60|\n"
                                        "|Dev(A4)|0|0\n"
                                        "|||\n"
                                        "||75|\n");
    EXPECT_EQ(list(AverageSide::Above), "|Student Name (Admission No)|Eng|Mat\n"
                                        "|Asha(A1)|90|\n"
                                        "|||\n"
                                        "||75|\n")
        << "a set-up that is gone names nobody";
}

TEST(StudentsBesideAnAverage, StandInAColumnThatIsWideFromTheStart)
{
    const GridTable list = ListStudents(Class(AverageSide::Below), Below());
    EXPECT_EQ(list.Column(StudentsListColumn::StudentName).twips, 2500);
    EXPECT_TRUE(list.Column(StudentsListColumn::Blank).hidden);
}

TEST(ClassAverages, CountMarksAboveZeroWhetherPresentOrNot)
{
    EXPECT_EQ(Limits(Class(AverageSide::Below), Below()), "1:75.00 2:55.00");
}

TEST(ClassAverages, LeaveOutMarksInDivisionsThatDoNotTakeTheSubject)
{
    StudentsListInput input = Class(AverageSide::Below);
    input.marks.push_back({2, 1, 30});
    EXPECT_EQ(Limits(input, Below()), "1:75.00 2:55.00");
    input.setup.push_back(Subject(1, 100, 2));
    EXPECT_EQ(Limits(input, Below()), "1:60.00 2:55.00");
}

TEST(ClassAverages, OfDifferentMaximumMarksAreThoseOfTheHighest)
{
    StudentsListInput input = Class(AverageSide::Below);
    input.setup = {Subject(1, 100, 1), Subject(1, 200, 2)};
    input.marks = {{2, 1, 50}, {1, 1, 90}};
    EXPECT_EQ(Limits(input, Below()), "1:25.00");
}

TEST(ClassAverages, HaveTwoDecimalsBeforeTheyAreComparedWith)
{
    // 200 of 3 x 100 is 66.666..., which is told and compared as 66.67.
    const StudentsListInput input{
        .subjects = {{1, QStringLiteral("Eng")}},
        .setup = {Subject(1)},
        .marks = {{1, 1, 66.67}, {1, 1, 66.66}, {1, 1, 66.67}},
        .students = {{QStringLiteral("Asha(1)"), Marks{66.67}}, {QStringLiteral("Binu(2)"), Marks{66.66}}}};
    EXPECT_EQ(GridText(ListStudents(input, Below())), "|Student Name (Admission No)|Eng\n"
                                                      "|Binu(2)|66.66\n"
                                                      "||\n"
                                                      "||66.67\n");
    EXPECT_EQ(ListStudents(input, Above()).Rows(), 3);
}

TEST(StudentsBesideAnAverage, StandUnderTheSubjectOfTheirMarkThoughTwoHaveOneShortName)
{
    StudentsListInput input = Class(AverageSide::Above);
    for (auto& subject : input.subjects)
        subject.second = QStringLiteral("Sci");
    EXPECT_EQ(GridText(ListStudents(input, Above())), "|Student Name (Admission No)|Sci|Sci\n"
                                                      "|Asha(A1)|90.00|\n"
                                                      "|||\n"
                                                      "||75|55\n");
}

TEST(StudentsSummary, CountsZerosInTheListBelow)
{
    const GridTable list = ListStudents(Class(AverageSide::Below), Below());
    EXPECT_EQ(GridText(SummariseStudents(list, AverageSide::Below)), "Subject|No.Of Students|\n"
                                                                     "Eng|3|\n"
                                                                     "Mat|3|10.00\n");
    const GridTable whole = ListStudents(Class(AverageSide::Below), Below(0));
    EXPECT_EQ(RowText(SummariseStudents(whole, AverageSide::Below), 1), "Eng|3|");
}

TEST(StudentsSummary, CountsOnlyMarksThatAreWrittenAboveZeroInTheListAbove)
{
    const StudentsListInput input{.subjects = {{1, QStringLiteral("Eng")}, {2, QStringLiteral("Mat")}},
                                  .setup = {Subject(1), Subject(2)},
                                  .marks = {{1, 1, 0.1}, {1, 1, 0.4}, {1, 2, 80}},
                                  .students = {{QStringLiteral("Asha(1)"), Marks{0.1, std::nullopt}},
                                               {QStringLiteral("Binu(2)"), Marks{0.4, 80.0}}}};
    const GridTable list = ListStudents(input, Above(0));
    EXPECT_EQ(RowText(list, 1), "|Binu(2)|0|") << "0.4 is above the average 0.25 and written as 0";
    EXPECT_EQ(GridText(SummariseStudents(list, AverageSide::Above)), "Subject|No.Of Students|\n"
                                                                     "Eng||0\n"
                                                                     "Mat||\n");
    EXPECT_EQ(RowText(SummariseStudents(list, AverageSide::Below), 1), "Eng|1|0");
}

TEST(StudentsSummary, CountsNeitherTheAveragesNorTheBlankRow)
{
    StudentsListInput input = Class(AverageSide::Above);
    input.students.clear();
    const GridTable list = ListStudents(input, Above());
    EXPECT_EQ(GridText(SummariseStudents(list, AverageSide::Above)), "Subject|No.Of Students|\n"
                                                                     "Eng||\n"
                                                                     "Mat||\n");
}

std::string Text(const TextReport& report)
{
    QStringList lines{report.title};
    QStringList heads;
    for (const TextReport::Column& column : report.columns)
        heads.append(QStringLiteral("%1:%2").arg(column.head).arg(column.width));
    lines.append(heads.join(QLatin1Char('|')));
    for (const QStringList& row : report.rows)
        lines.append(row.join(QLatin1Char('|')));
    return lines.join(QLatin1Char('\n')).toStdString();
}

TEST(PrintedDetails, LeaveOutTheFirstStudentAndTheBlankRow)
{
    const GridTable list = ListStudents(Class(AverageSide::Above), Given(AverageSide::Above, "30"));
    ASSERT_EQ(list.Text(1, 1).toStdString(), "Asha(A1)");
    EXPECT_EQ(Text(PrintedStudents(list)), "Details of List of Students Above Class Average/Given value\n"
                                           "Student Name:15|Ad.No:5|Eng:5|Mat:5\n"
                                           "Binu|A2||45.00\n"
                                           "Cara|A3|60.00|\n"
                                           "||30|30");
}

TEST(PrintedDetails, HoldTheAveragesAloneWhereNobodyOrOneStudentIsListed)
{
    const std::string averages = "Details of List of Students Above Class Average/Given value\n"
                                 "Student Name:15|Ad.No:5|Eng:5|Mat:5\n"
                                 "||75|55";
    EXPECT_EQ(Text(PrintedStudents(ListStudents(Class(AverageSide::Above), Above()))), averages);
    StudentsListInput nobody = Class(AverageSide::Above);
    nobody.students.clear();
    EXPECT_EQ(Text(PrintedStudents(ListStudents(nobody, Above()))), averages);
}

TEST(PrintedDetails, PartANameWithBracketsFromItsNumberAtTheLastOfThem)
{
    StudentsListInput input = Class(AverageSide::Above);
    input.students = {{QStringLiteral("Asha(A1)"), Marks{90.0, std::nullopt}},
                      {QStringLiteral("Binu (S) K(12)"), Marks{91.0, std::nullopt}},
                      {QString(), Marks{92.0, std::nullopt}}};
    EXPECT_EQ(Text(PrintedStudents(ListStudents(input, Above()))),
              "Details of List of Students Above Class Average/Given value\n"
              "Student Name:15|Ad.No:5|Eng:5|Mat:5\n"
              "Binu (S) K|12|91.00|\n"
              "||92.00|\n"
              "||75|55");
}

TEST(PrintedDetails, CutNamesAndNumbersThatAreLongerThanTheirColumns)
{
    StudentsListInput input = Class(AverageSide::Above);
    input.students = {{QStringLiteral("Asha(A1)"), Marks{90.0, std::nullopt}},
                      {QStringLiteral("Bartholomew Kurian Paul(A12345)"), Marks{91.0, std::nullopt}},
                      {QStringLiteral("Cara(7)"), Marks{std::nullopt, 45.0}}};
    EXPECT_EQ(
        LayOutText(PrintedStudents(ListStudents(input, Given(AverageSide::Above, "30"))),
                   {QStringLiteral("Hill School"), QStringLiteral("Hill Road"), QStringLiteral("Kochi")})
            .toStdString(),
        "            Hill School\n"
        "             Hill Road\n"
        "               Kochi\n"
        "Details of List of Students Above Class Average/Given value\n"
        "-----------------------------------\n"
        "|  Student Name |Ad.No| Eng | Mat |\n"
        "-----------------------------------\n"
        "|Bartholomew Kur|A1234|91.00|     |\n"
        "-----------------------------------\n"
        "|      Cara     |  7  |     |45.00|\n"
        "-----------------------------------\n"
        "|               |     |  30 |  30 |\n"
        "-----------------------------------\n");
}

TEST(PrintedSummary, HasALineForEachSubject)
{
    const GridTable list = ListStudents(Class(AverageSide::Above), Given(AverageSide::Above, "50"));
    EXPECT_EQ(Text(PrintedSummary(SummariseStudents(list, AverageSide::Above))),
              "Summary of List of Students Above Class Average/Given value\n"
              "Subject:10|No.Of Students:15\n"
              "Eng|2\n"
              "Mat|");
}

} // namespace
} // namespace tally::test
