#include "store/StoreError.h"
#include "support/TestSchool.h"

#include <gtest/gtest.h>

namespace tally::test {

namespace {

/// The rows of a statement, columns parted by bars; Null is "<null>".
QStringList Rows(store::Connection& connection, const char* sql)
{
    QStringList rows;
    store::Statement statement = connection.Query(QLatin1String(sql));
    while (statement.Next()) {
        QStringList row;
        for (int column = 0; column < statement.ColumnCount(); ++column)
            row.append(statement.IsNull(column) ? QStringLiteral("<null>") : statement.Text(column));
        rows.append(row.join('|'));
    }
    return rows;
}

QStringList Saved(TestSchool& school)
{
    return Rows(school.main,
                "Select StudentCode,DivisionCode,cast(Total as integer),Rank,Grade from TempRankTotal "
                "order by StudentCode");
}

} // namespace

TEST(TempRankCalculation, HoldsTheMarksBehindFailAndNoRankAsAllNines)
{
    TestSchool school;
    school.AddUsualDivision(2);
    school.AddSubject(1, 3, "Art", 3, "No");
    school.AddMarkedStudent(" Anil ", {35, 80, 20});
    school.AddMarkedStudent("Bina", {34, 80, 20});
    const int chand = school.AddStudent(1, "Chand");
    school.EnterAbsence(chand, 1);
    school.EnterMark(chand, 2, 80);
    school.EnterAbsence(chand, 3);
    const int devi = school.AddStudent(1, "Devi");
    school.EnterMark(devi, 1, 0);
    school.EnterMark(devi, 2, 0);
    school.Prepare();
    EXPECT_EQ(Rows(school.temp,
                   "Select StudentName,AdmissionNo,Class,Division,DivisionCode,Eng_,Mat_,Art_,cast(Total as "
                   "integer),"
                   "Average,Rank,Grade,cast(RankTotal as integer),StudentCode from TempRankCalculation order "
                   "by StudentCode"),
              QStringList({"Anil|A1|X|A|1|35|80|20|135|57.5|1|C|115|1",
                           "Bina|A2|X|A|1|Fail34|80|20|134|57.0|999999999|C|114|2",
                           "Chand|A3|X|A|1|FailA|80|A|80|40.0|999999999| |80|3",
                           "Devi|A4|X|A|1|Fail0|Fail0||0|0.0|999999999|D|0|4"}));
}

TEST(TempRankCalculation, KeepsTheColumnsInTheirPlaces)
{
    TestSchool school;
    school.AddUsualDivision(2);
    school.AddMarkedStudent("Anil", {50, 60});
    school.Prepare();
    store::Statement table = school.temp.Query("Select * from TempRankCalculation");
    QStringList names;
    for (int column = 0; column < table.ColumnCount(); ++column)
        names.append(table.ColumnName(column));
    EXPECT_EQ(names, QStringList({"StudentName", "AdmissionNo", "Class", "Division", "DivisionCode", "Eng_",
                                  "Mat_", "Total", "Average", "Rank", "Grade", "RankTotal", "StudentCode"}));
    QStringList kinds;
    store::Statement columns = school.temp.Query("PRAGMA table_info(TempRankCalculation)");
    while (columns.Next())
        kinds.append(columns.Text(2));
    EXPECT_EQ(kinds.join(QLatin1Char(' ')).toStdString(),
              "VARCHAR(100) VARCHAR(15) VARCHAR(4) VARCHAR(3) INTEGER VARCHAR(10) VARCHAR(10) DOUBLE DOUBLE "
              "INTEGER VARCHAR(2) DOUBLE INTEGER")
        << "as wide as what stands in them";
}

TEST(TempRankCalculation, LeftByAnEarlierRunIsMadeAnew)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.temp.Execute("Create Table TempRankCalculation(Leftover Text(5))");
    school.AddMarkedStudent("Anil", {50});
    school.Prepare();
    EXPECT_EQ(Rows(school.temp, "Select StudentName,Eng_ from TempRankCalculation"),
              QStringList({"Anil|50"}));
    school.Prepare();
    EXPECT_EQ(Rows(school.temp, "Select StudentName,Eng_ from TempRankCalculation"),
              QStringList({"Anil|50"}));
}

TEST(TempRankCalculation, StaysAsItWasWhenAFillIsNotFinished)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddMarkedStudent("Anil", {50});
    const RankList list = school.Prepare();
    school.AddMarkedStudent("Bina", {60});
    {
        store::Transaction abandoned(school.temp);
        TempRankRepository::FillTempRankCalculation(abandoned, school.Compute());
    }
    EXPECT_EQ(NamesOf(school.Show(list, RankOrder::Rank)), QStringList({"Anil"}));
}

TEST(TempRankCalculation, IsGoneAfterTheDrop)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddMarkedStudent("Anil", {50});
    const RankList list = school.Prepare();
    store::Transaction transaction(school.temp);
    TempRankRepository::DropTempRankCalculation(transaction);
    transaction.Commit();
    try {
        school.Show(list, RankOrder::Rank);
        FAIL() << "the table is still there";
    } catch (const store::StoreError& error) {
        EXPECT_EQ(error.Kind(), store::ErrorKind::NoSuchTable);
    }
}

TEST(TempRankCalculation, TakesNamesWithAnySigns)
{
    const QStringList names{QStringLiteral("D'Souza"), QStringLiteral("100% [Anil] \"x\""),
                            QString::fromUtf8("\xC3\x89lo\xC3\xAFse \xE0\xAE\x85"), QStringLiteral("a;--")};
    TestSchool school;
    school.AddUsualDivision(1);
    for (const QString& name : names)
        school.AddMarkedStudent(name, {50});
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    EXPECT_EQ(NamesOf(view), names);
}

TEST(TempRankCalculation, TakesShortNamesThatAreAlikeOrQuoted)
{
    TestSchool school;
    school.AddDivision(1, "A");
    school.AddUsualBands(1);
    school.AddSubject(1, 1, "Mat", 1);
    school.AddSubject(1, 2, " mat ", 2);
    school.AddSubject(1, 3, "Mat_", 3);
    school.AddSubject(1, 4, "a\"b,", 4);
    school.AddSubject(1, 5, "Total", 5);
    school.AddMarkedStudent("Anil", {51, 52, 53, 54, 55});
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    QStringList marks;
    for (int column = 5; column < 10; ++column)
        marks.append(view.Text(2, column));
    EXPECT_EQ(marks, QStringList({"51", "52", "53", "54", "55"}));
    EXPECT_EQ(view.Text(0, 6), "mat");
}

TEST(TempRankCalculation, WritesFractionsWithTwoDecimals)
{
    TestSchool school;
    school.options.fractionMarks = true;
    school.AddUsualDivision(2);
    school.AddMarkedStudent("Anil", {34.4, 80.125});
    const GridTable view = school.Show(school.Prepare(), RankOrder::Rank);
    EXPECT_EQ(view.Text(2, 5), "34.40");
    EXPECT_EQ(view.Mark(2, 5), CellMark::FailedOrAbsent);
    EXPECT_EQ(view.Text(2, 6), "80.12");
    EXPECT_EQ(view.Text(2, 7), "114.52");
}

TEST(Saving, WritesTheRankTotalAsTotalAndAllNinesForNoRank)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Art", 2, "No");
    school.AddMarkedStudent("Anil", {80, 90});
    school.AddMarkedStudent("Bina", {30, 90});
    school.EnterAbsence(school.AddStudent(1, "Chand"), 1);
    school.Prepare();
    school.Save();
    EXPECT_EQ(Saved(school), QStringList({"1|1|80|1|A", "2|1|30|999999999|D", "3|1|0|999999999| "}));
}

TEST(Saving, TwiceReplacesTheRows)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddMarkedStudent("Anil", {80});
    school.Prepare();
    school.Save();
    school.main.Execute("Update MarkMaster set Mark=70");
    school.Prepare();
    school.Save();
    EXPECT_EQ(Saved(school), QStringList({"1|1|70|1|B"}));
}

TEST(Saving, OneDivisionLeavesTheOthersWithTheRanksOfTheJointList)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddDivision(2, "B");
    school.AddUsualBands(2);
    school.AddSubject(2, 1, "Eng", 1);
    school.AddMarkedStudent("Anil", {60});
    school.EnterMark(school.AddStudent(2, "Bina"), 1, 90);
    school.EnterMark(school.AddStudent(2, "Chand"), 1, 50);
    school.Prepare({1, 2});
    school.Save({1, 2});
    EXPECT_EQ(Saved(school), QStringList({"1|1|60|2|B", "2|2|90|1|A", "3|2|50|3|C"}));
    school.Prepare({1});
    school.Save({1});
    EXPECT_EQ(Saved(school), QStringList({"1|1|60|1|B", "2|2|90|1|A", "3|2|50|3|C"}));
}

TEST(Saving, LeavesOtherExamsAlone)
{
    TestSchool school;
    school.AddUsualDivision(1);
    const int anil = school.AddMarkedStudent("Anil", {80});
    school.main.Execute("Insert into ExamMaster values(2,'Term Two',2,0)");
    school.main.Execute("Insert into TempRankTotal values(?,1,2,1,1,10,10,1,'D')", anil);
    school.Prepare();
    school.Save();
    EXPECT_EQ(
        Rows(school.main, "Select ExamCode,cast(Total as integer) from TempRankTotal order by ExamCode"),
        QStringList({"1|80", "2|10"}));
}

TEST(Saving, PassesOnARankThatIsNullAndWritesNoGradeForNull)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddMarkedStudent("Anil", {80});
    school.AddMarkedStudent("Bina", {70});
    school.Prepare();
    school.temp.Execute("Update TempRankCalculation set Rank=Null where StudentCode=1");
    school.temp.Execute("Update TempRankCalculation set Grade=Null where StudentCode=2");
    school.Save();
    EXPECT_EQ(Saved(school), QStringList({"1|1|80|<null>|A", "2|1|70|2|"}));
}

TEST(Saving, ThatFailsHalfwayLeavesTheOldRows)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddMarkedStudent("Anil", {80});
    const int gone = school.AddMarkedStudent("Gone", {70});
    school.Prepare();
    school.Save();
    school.temp.Execute("Update TempRankCalculation set StudentCode=4711 where StudentCode=?", gone);
    EXPECT_THROW(school.Save(), store::StoreError);
    EXPECT_EQ(Saved(school), QStringList({"1|1|80|1|A", "2|1|70|2|B"}));
}

} // namespace tally::test
