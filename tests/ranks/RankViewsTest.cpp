#include "support/TestSchool.h"

#include <gtest/gtest.h>
#include <ostream>

namespace tally::test {

namespace {

/// The text of the student's cell in the column with this head, counted from the right: 1 the grade, 5 the
/// total.
QString FromRight(const GridTable& view, const char* name, int fromRight)
{
    return view.Text(RowOf(view, QLatin1String(name)), view.Cols() - fromRight);
}

QString Summary(const GridTable& summary)
{
    QStringList lines;
    for (int row = 1; row < summary.Rows(); ++row) {
        QStringList texts;
        for (int column = 0; column < summary.Cols(); ++column)
            texts.append(summary.Text(row, column));
        lines.append(texts.join('|'));
    }
    return lines.join('\n');
}

} // namespace

TEST(RankOrderView, PutsTheSmallerTotalOfAllSubjectsFirstWithinARank)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Art", 2, "No");
    school.AddMarkedStudent("Much art", {80, 90});
    school.AddMarkedStudent("Little art", {80, 20});
    school.AddMarkedStudent("Failed high", {30, 99});
    school.AddMarkedStudent("Failed low", {20, 1});
    school.AddMarkedStudent("Second", {70, 50});
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    EXPECT_EQ(NamesOf(view), QStringList({"Little art", "Much art", "Second", "Failed low", "Failed high"}));
    EXPECT_EQ(FromRight(view, "Little art", 2), "1");
    EXPECT_EQ(FromRight(view, "Much art", 2), "1");
    EXPECT_EQ(FromRight(view, "Second", 2), "2");
    EXPECT_EQ(FromRight(view, "Failed high", 2), "");
}

TEST(RankOrderView, SortsTenBehindNine)
{
    TestSchool school;
    school.AddUsualDivision(1);
    for (int student = 1; student <= 11; ++student)
        school.AddMarkedStudent(QStringLiteral("Student %1").arg(student), {100.0 - student});
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    EXPECT_EQ(NamesOf(view).mid(7), QStringList({"Student 8", "Student 9", "Student 10", "Student 11"}));
}

TEST(RankList, AClassThatIsCalledAsAMarkReadsTakesNoMarkAway)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.main.Execute("UPDATE ClassDivisionMaster SET ClassName = '50' WHERE ClassCode = 1");
    school.AddMarkedStudent("Anil", {50});
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    EXPECT_EQ(FromRight(view, "Anil", 6), "50");
}

TEST(RankList, LaysOutHeadsCodesStudentsAndAverage)
{
    TestSchool school;
    school.AddUsualDivision(2);
    school.AddMarkedStudent("Anil", {90, 80});
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    ASSERT_EQ(view.Cols(), 12);
    QStringList heads;
    QStringList codes;
    QStringList student;
    QStringList average;
    for (int column = 0; column < view.Cols(); ++column) {
        heads.append(view.Text(0, column));
        codes.append(view.Text(1, column));
        student.append(view.Text(2, column));
        average.append(view.Text(AverageRow(view), column));
    }
    EXPECT_EQ(heads, QStringList({"", "Adm.No.", "Class", "Division", "", "Eng", "Mat", "Total", "Total",
                                  "Average", "Rank", "Grade"}));
    EXPECT_EQ(codes, QStringList({"", "", "", "", "", "1", "2", "", "", "", "", ""}));
    EXPECT_EQ(student,
              QStringList({"Anil", "A1", "X", "A", "1", "90", "80", "170", "170", "85.00", "1", "A"}));
    EXPECT_EQ(average, QStringList({"Average", "", "", "", "", "90.00", "80.00", "170.00", "", "", "", ""}));
    EXPECT_EQ(view.Text(view.Rows() - 1, 0), "");
    EXPECT_TRUE(view.RowHidden(1));
    EXPECT_TRUE(view.Column(4).hidden);
}

TEST(RankList, ShowsAFailedStudentWithGradeAndPaintedMarkButWithoutRank)
{
    TestSchool school;
    school.AddUsualDivision(2);
    school.AddMarkedStudent("Anil", {34, 90});
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    EXPECT_EQ(view.Text(2, 5), "34");
    EXPECT_EQ(view.Mark(2, 5), CellMark::FailedOrAbsent);
    EXPECT_EQ(view.Mark(2, 6), CellMark::None);
    EXPECT_EQ(FromRight(view, "Anil", 2), "");
    EXPECT_EQ(FromRight(view, "Anil", 1), "C");
}

TEST(RankList, ShowsAnAbsentStudentWithoutRankAndGrade)
{
    TestSchool school;
    school.AddUsualDivision(2);
    const int anil = school.AddStudent(1, "Anil");
    school.EnterMark(anil, 1, 90);
    school.EnterAbsence(anil, 2);
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    EXPECT_EQ(view.Text(2, 6), "A");
    EXPECT_EQ(view.Mark(2, 6), CellMark::FailedOrAbsent);
    EXPECT_EQ(FromRight(view, "Anil", 2), "");
    EXPECT_EQ(FromRight(view, "Anil", 1), "");
}

TEST(RankList, ShowsNoGradeInWhicheverSubjectTheStudentWasAbsent)
{
    TestSchool school;
    school.AddUsualDivision(2);
    const int anil = school.AddStudent(1, "Anil");
    school.EnterAbsence(anil, 1);
    school.EnterMark(anil, 2, 90);
    EXPECT_EQ(FromRight(school.Show(school.Prepare(), RankOrder::Rank), "Anil", 1), "");
}

TEST(RankList, ShowsTheGradeOfAStudentAbsentInASubjectNotTakenForRank)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Art", 2, "No");
    const int anil = school.AddStudent(1, "Anil");
    school.EnterMark(anil, 1, 90);
    school.EnterAbsence(anil, 2);
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    EXPECT_EQ(view.Text(2, 6), "A");
    EXPECT_EQ(FromRight(view, "Anil", 1), "A");
}

TEST(RankList, HidesSubjectsNotTakenForRankAndTheTotalOfAllUnlessAllAreShown)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Art", 2, "No");
    school.AddMarkedStudent("Anil", {80, 90});
    const RankList list = school.Prepare();
    const GridTable taken = school.Show(list, RankOrder::Rank, SubjectDisplay::TakenForRankOnly);
    EXPECT_FALSE(taken.Column(5).hidden);
    EXPECT_TRUE(taken.Column(6).hidden);
    EXPECT_TRUE(taken.Column(7).hidden);
    EXPECT_FALSE(taken.Column(8).hidden);
    EXPECT_EQ(taken.Text(2, 8), "80");

    const GridTable all = school.Show(list, RankOrder::Rank, SubjectDisplay::All);
    EXPECT_FALSE(all.Column(6).hidden);
    EXPECT_FALSE(all.Column(7).hidden);
    EXPECT_TRUE(all.Column(8).hidden);
    EXPECT_EQ(all.Text(2, 7), "170");
    EXPECT_EQ(all.Mark(1, 6), CellMark::NotTakenForRank);
    EXPECT_EQ(all.Mark(2, 6), CellMark::NotTakenForRank);
    EXPECT_EQ(all.Mark(AverageRow(all), 6), CellMark::Sum);
    for (int column = 9; column < all.Cols(); ++column)
        EXPECT_FALSE(all.Column(column).hidden);
}

TEST(AverageRow, LeavesOutAbsencesZerosAndBlanks)
{
    TestSchool school;
    school.AddUsualDivision(4);
    school.AddMarkedStudent("Anil", {90, 0, 0});
    school.AddMarkedStudent("Bina", {0, 41, 0});
    const int chand = school.AddStudent(1, "Chand");
    school.EnterMark(chand, 1, 45);
    school.EnterAbsence(chand, 2);
    school.EnterMark(chand, 3, 0);
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    EXPECT_EQ(view.Text(AverageRow(view), 5), "67.50");
    EXPECT_EQ(view.Text(AverageRow(view), 6), "41.00");
    EXPECT_EQ(view.Text(AverageRow(view), 7), "");
    EXPECT_EQ(view.Text(AverageRow(view), 8), "");
    EXPECT_EQ(view.Text(AverageRow(view), 9), "58.67");
    EXPECT_EQ(view.Text(AverageRow(view), 10), "");
}

struct AverageOnAHalf
{
    int marks;
    std::int64_t hundredths; ///< of all marks together
    const char* average;

    friend void PrintTo(const AverageOnAHalf& row, std::ostream* out)
    {
        *out << row.marks << " marks, " << row.average;
    }
};

class AverageOnAHalfTest : public testing::TestWithParam<AverageOnAHalf>
{};

TEST_P(AverageOnAHalfTest, IsCountedUpInALongListToo)
{
    const AverageOnAHalf& list = GetParam();
    TestSchool school;
    school.options.fractionMarks = true;
    school.AddUsualDivision(1);
    std::int64_t left = list.hundredths;
    for (int student = 1; student < list.marks; ++student) {
        // Never a mark whose binary form is exact.
        const std::int64_t mark = list.hundredths / list.marks + student % 7 * std::int64_t{10} - 29;
        school.AddMarkedStudent(QStringLiteral("Student %1").arg(student), {static_cast<double>(mark) / 100});
        left -= mark;
    }
    school.AddMarkedStudent("Last", {static_cast<double>(left) / 100});
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    EXPECT_EQ(view.Text(AverageRow(view), 5).toStdString(), list.average);
    EXPECT_EQ(view.Text(AverageRow(view), 6).toStdString(), list.average) << "the column of the totals";
}

INSTANTIATE_TEST_SUITE_P(Lists, AverageOnAHalfTest,
                         testing::Values(AverageOnAHalf{80, 447400, "55.93"},
                                         AverageOnAHalf{100, 504050, "50.41"},
                                         AverageOnAHalf{400, 2010200, "50.26"}));

TEST(AlphabeticView, MixesSmallAndCapitalLetters)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddMarkedStudent("bina", {50});
    school.AddMarkedStudent("Anil", {60});
    school.AddMarkedStudent("Chand", {70});
    const GridTable view = school.Show(school.Prepare(), RankOrder::Alphabetical);
    EXPECT_EQ(NamesOf(view), QStringList({"Anil", "bina", "Chand"}));
}

TEST(AdmissionNoView, SortsTheNumbersAsTexts)
{
    TestSchool school;
    school.AddUsualDivision(1);
    for (const char* number : {"9", "10", "b2", "B1"}) {
        const int student = school.AddStudent(1, number, number);
        school.EnterMark(student, 1, 50);
    }
    const GridTable view = school.Show(school.Prepare(), RankOrder::AdmissionNo);
    EXPECT_EQ(NamesOf(view), QStringList({"10", "9", "B1", "b2"}));
}

TEST(GradeOrderView, FollowsTheGradeTableAndLeavesAbsentStudentsOut)
{
    TestSchool school;
    school.options.fractionMarks = true;
    school.AddUsualDivision(2);
    school.AddMarkedStudent("Low", {10, 10});
    school.AddMarkedStudent("Second", {81, 80});
    school.AddMarkedStudent("First", {90, 90});
    const int absent = school.AddStudent(1, "Absent");
    school.EnterMark(absent, 1, 99);
    school.EnterAbsence(absent, 2);
    const RankList list = school.Prepare();
    const GridTable view = school.Show(list, RankOrder::Grade);
    EXPECT_EQ(NamesOf(view), QStringList({"First", "Second", "Low"}));
    EXPECT_EQ(FromRight(view, "Second", 3), "80.5");
    EXPECT_EQ(FromRight(school.Show(list, RankOrder::Rank), "Second", 3), "80.50");
}

TEST(GradeOrderView, ListsAGradeAtTwoPositionsTwice)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddDivision(2, "B");
    school.AddSubject(2, 1, "Eng", 1);
    school.AddBand(2, 35, 20, "C", 1);
    school.AddBand(2, 0, 0, "D", 2);
    school.AddMarkedStudent("Anil", {40});
    school.AddMarkedStudent("Bina", {90});
    const GridTable view = school.Show(school.Prepare({1, 2}), RankOrder::Grade);
    EXPECT_EQ(NamesOf(view), QStringList({"Bina", "Anil", "Anil"}));
}

TEST(GradeOrderView, AddsRowsWhoseGradeIsNullButNotThoseWithoutAGrade)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddSubject(1, 1, "Eng", 1);
    school.AddBand(1, 50, 50, "A", 1);
    school.AddMarkedStudent("Ungraded", {40});
    school.AddMarkedStudent("Null grade", {30});
    school.AddMarkedStudent("Graded", {60});
    const RankList list = school.Prepare();
    school.temp.Execute("Update TempRankCalculation set Grade=Null where StudentName='Null grade'");
    EXPECT_EQ(NamesOf(school.Show(list, RankOrder::Grade)), QStringList({"Graded", "Null grade"}));
    EXPECT_EQ(StudentCount(school.Show(list, RankOrder::Rank)), 3);
}

TEST(Views, RunAsManyStatementsForFiveHundredStudentsAsForTen)
{
    const auto statements = [](int students, RankOrder order) {
        TestSchool school;
        school.AddUsualDivision(2);
        for (int student = 0; student < students; ++student)
            school.AddMarkedStudent(QStringLiteral("Student %1").arg(student), {50, 60});
        const RankList list = school.Prepare();
        const auto before = school.main.StatementsRun() + school.temp.StatementsRun();
        EXPECT_EQ(StudentCount(school.Show(list, order)), students);
        return school.main.StatementsRun() + school.temp.StatementsRun() - before;
    };
    for (const RankOrder order :
         {RankOrder::Rank, RankOrder::Grade, RankOrder::AdmissionNo, RankOrder::Alphabetical})
        EXPECT_EQ(statements(10, order), statements(500, order));
}

TEST(GradeSummary, CountsGradesAbsenteesAndFullMarks)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Art", 2, "No", 100, 70);
    school.AddMarkedStudent("Anil", {90, 10});
    school.AddMarkedStudent("Bina", {85, 10});
    school.AddMarkedStudent("Chand", {10, 10});
    school.EnterAbsence(school.AddStudent(1, "Devi"), 1);
    school.AddDivision(2, "B");
    school.AddSubject(2, 2, "Art", 1, "No");
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    const RankInput input = school.Input({1, 2});
    const auto summary = LoadGradeSummary(view, input.grades, "X",
                                          {{"  A", input.fullMarks.at(0)}, {"  B", input.fullMarks.at(1)}});
    EXPECT_EQ(Summary(summary), "TOTAL STRENGTH|4||\n"
                                "No. Of 'A' Grades||2|A\n"
                                "No. Of 'B' Grades||0|B\n"
                                "No. Of 'C' Grades||0|C\n"
                                "No. Of 'D' Grades||1|D\n"
                                "TOTAL||3|\n"
                                "ABSENTEE||1|\n"
                                "||4|\n"
                                "Full Mark For X  A|100||\n"
                                "Full Mark For X  B|||");
}

TEST(GradeSummary, CountsStudentsWithANameAndGradesOfThoseWithAnAdmissionNumber)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddMarkedStudent("Anil", {90});
    school.AddMarkedStudent(" ", {90});
    school.EnterMark(school.AddStudent(1, "No number", " "), 1, 90);
    school.EnterAbsence(school.AddStudent(1, "Absent without a number", "  "), 1);
    school.AddMarkedStudent("Average", {90});
    school.EnterAbsence(school.AddStudent(1, "Absent"), 1);
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    const auto summary = LoadGradeSummary(view, {"A", " "}, "X", {});
    EXPECT_EQ(Summary(summary), "TOTAL STRENGTH|4||\n"
                                "No. Of 'A' Grades||2|A\n"
                                "No. Of ' ' Grades||0| \n"
                                "TOTAL||2|\n"
                                "ABSENTEE||1|\n"
                                "||3|");
    EXPECT_TRUE(summary.RowHidden(0));
    EXPECT_FALSE(summary.RowHidden(1));
}

} // namespace tally::test
