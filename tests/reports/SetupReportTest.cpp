#include "reports/SetupReport.h"

#include "reports/GridText.h"
#include "support/Neighbours.h"
#include "support/TestSchool.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

SetupReportRow Row(int classCode, const char* className, int divisionCode, const char* divisionName,
                   const char* subject, double maximumMark, const char* takenForRank, int slNo = 1)
{
    return {.className = QString::fromLatin1(className),
            .divisionName = QString::fromLatin1(divisionName),
            .classCode = classCode,
            .divisionCode = divisionCode,
            .subjectName = QString::fromLatin1(subject),
            .teacherName = QStringLiteral("Mr. T"),
            .maximumMark = maximumMark,
            .maximumAllowed = 100,
            .takenForRank = QString::fromLatin1(takenForRank),
            .slNo = slNo};
}

std::string Sheet(const std::vector<SetupReportRow>& setup)
{
    const GridTable list = SetupReportTable(setup);
    QStringList lines;
    for (const SetupSheetLine& line : SetupSheetLines(list, list.Rows() - 1, list.Cols() - 1)) {
        const QString texts = line.texts.join(QLatin1Char('|'));
        switch (line.kind) {
        case SetupSheetLine::Kind::Head: lines.append(QStringLiteral("head ") + texts); break;
        case SetupSheetLine::Kind::Heading: lines.append(QStringLiteral("heading ") + texts); break;
        case SetupSheetLine::Kind::Total: lines.append(QStringLiteral("total ") + texts); break;
        case SetupSheetLine::Kind::Subject: lines.append(texts); break;
        }
    }
    return lines.join(QLatin1Char('\n')).toStdString();
}

TEST(SetupReportTest, EachRowTellsItsClassAndDivisionOfWhichTheFirstShows)
{
    const GridTable list = SetupReportTable(
        {Row(1, "X", 1, "A", "English", 100, "Yes", 1), Row(1, "X", 1, "A", "Maths", 50.5, "No", 2),
         Row(1, "X", 2, "B", "English", 100, "Yes", 1), Row(2, "XI", 2, "B", "English", 100, "Yes", 1)});
    ASSERT_EQ(list.Rows(), 5);
    EXPECT_EQ(RowText(list, 0),
              "Sl.No.|Class|Division|Subject|Teacher|Maximum Mark|Maximum Allowed|Taken For Rank|Order");
    EXPECT_EQ(RowText(list, 1), "1|X|A|English|Mr. T|100|100|Yes|1");
    EXPECT_EQ(RowText(list, 2), "2|X|A|Maths|Mr. T|50.5|100|No|2");
    EXPECT_EQ(RowText(list, 3), "3|X|B|English|Mr. T|100|100|Yes|1");
    EXPECT_EQ(RowText(list, 4), "4|XI|B|English|Mr. T|100|100|Yes|1");
    const auto shows = [&list](int row, SetupReportColumn col) { return !list.Repeats(row, col); };
    std::string classes;
    std::string divisions;
    for (int row = 1; row < list.Rows(); ++row) {
        classes += shows(row, SetupReportColumn::Class) ? std::to_string(row) : "-";
        divisions += shows(row, SetupReportColumn::Division) ? std::to_string(row) : "-";
    }
    EXPECT_EQ(classes, "1--4");
    EXPECT_EQ(divisions, "1-34") << "the division of another class shows, though it has the same name";
}

TEST(SetupReportTest, AClassWithTwoDivisionsHasTwoHeadingsAndTwoTotals)
{
    EXPECT_EQ(
        Sheet({Row(1, "X", 1, "A", "English", 100, "Yes", 1), Row(1, "X", 1, "A", "Maths", 50.5, "Yes", 2),
               Row(1, "X", 2, "B", "English", 80, "Yes", 1), Row(1, "X", 2, "B", "Art", 20, "No", 2)}),
        "head Sl.No.|Subject|Teacher|Maximum Mark|Maximum Allowed|Taken For Rank|Order\n"
        "heading X|A\n"
        "1|English|Mr. T|100|100|Yes|1\n"
        "2|Maths|Mr. T|50.5|100|Yes|2\n"
        "total 150.50\n"
        "heading X|B\n"
        "3|English|Mr. T|80|100|Yes|1\n"
        "4|Art|Mr. T|20|100|No|2\n"
        "total 80.00");
}

TEST(SetupReportTest, ADivisionWithoutASubjectForRankHasATotalOfZero)
{
    EXPECT_EQ(Sheet({Row(1, "X", 1, "A", "Art", 20, "No")}),
              "head Sl.No.|Subject|Teacher|Maximum Mark|Maximum Allowed|Taken For Rank|Order\n"
              "heading X|A\n"
              "1|Art|Mr. T|20|100|No|1\n"
              "total 0.00");
}

TEST(SetupReportTest, EachDivisionHasAHeadingAlsoThatOfAnotherClassWithItsName)
{
    const std::string sheet =
        Sheet({Row(1, "X", 1, "A", "English", 100, "Yes"), Row(2, "XI", 1, "A", "English", 90, "Yes"),
               Row(2, "XI", 3, "B", "English", 80, "Yes")});
    EXPECT_NE(sheet.find("heading X|A\n"), std::string::npos);
    EXPECT_NE(sheet.find("total 100.00\nheading XI|A\n"), std::string::npos);
    EXPECT_NE(sheet.find("total 90.00\nheading XI|B\n"), std::string::npos);
}

TEST(SetupReportTest, AnEmptyListHasNeitherHeadingNorTotal)
{
    EXPECT_EQ(Sheet({}), "head Sl.No.|Subject|Teacher|Maximum Mark|Maximum Allowed|Taken For Rank|Order");
}

TEST(SetupReportTest, HundredthsAddUpWithoutNoise)
{
    std::vector<SetupReportRow> setup;
    for (int subject = 0; subject < 3; ++subject)
        setup.push_back(Row(1, "X", 1, "A", "English", 0.1, "yes"));
    EXPECT_NE(Sheet(setup).find("total 0.30"), std::string::npos);
}

/// Classes X and IX, the second one first in the order of classes, and neighbours in another year.
class SetupReportRows : public testing::Test
{
protected:
    SetupReportRows()
    {
        Run("INSERT INTO ClassDivisionMaster VALUES (2, 'IX', 2, 0, 0)");
        Run("INSERT INTO TeacherMaster (TeacherCode, TeacherName, TeacherShortName) VALUES (1, 'Anu', "
            "'ANU')");
        school.AddDivision(2, "A");
        school.AddDivision(1, "B");
        Run("INSERT INTO ClassDivisionDetails VALUES (2, 'A', 2)");
        school.AddSubject(1, 4, "His", 4);
        school.AddSubject(1, 3, "Geo", 4);
        school.AddSubject(1, 1, "Eng", 3);
        school.AddSubject(1, 2, "Mat", 1, "No", 50, 60);
        school.AddSubject(2, 1, "Eng", 1);
        Run("INSERT INTO ClassSubjectTeacher VALUES (1, 2, 2, 1, 1, 100, 100, 'Yes', 4)");
        AddNeighbours(school.main, {Side::Year});
    }

    void Run(const char* sql) { school.main.Execute(QString::fromLatin1(sql)); }

    std::string Load(int classCode, int divisionCode)
    {
        QStringList lines;
        for (const SetupReportRow& row :
             SetupReportRepository(school.main).LoadSetup(1, classCode, divisionCode))
            lines.append(row.className + QLatin1Char('/') + row.divisionName + QLatin1Char(' ') +
                         row.subjectName + QLatin1Char(' ') + QString::number(row.slNo));
        return lines.join(QStringLiteral("; ")).toStdString();
    }

    TestSchool school;
};

TEST_F(SetupReportRows, OfAllClassesStandInTheOrderOfClassesThenByDivisionAndOrder)
{
    EXPECT_EQ(Load(0, 0), "IX/A Subject 1 4; X/B Subject 2 1; X/B Subject 1 3; X/B Subject 3 4; X/B Subject "
                          "4 4; X/A Subject 1 1");
}

TEST_F(SetupReportRows, AreThoseOfOneClassOrOneDivisionWhereThatIsChosen)
{
    EXPECT_EQ(Load(1, 0),
              "X/B Subject 2 1; X/B Subject 1 3; X/B Subject 3 4; X/B Subject 4 4; X/A Subject 1 1");
    EXPECT_EQ(Load(1, 2), "X/A Subject 1 1");
    EXPECT_EQ(Load(2, 2), "IX/A Subject 1 4");
    EXPECT_EQ(Load(2, 1), "");
}

TEST_F(SetupReportRows, TellWhatTheDivisionTakesFromWhom)
{
    const std::vector<SetupReportRow> rows = SetupReportRepository(school.main).LoadSetup(1, 0, 0);
    ASSERT_EQ(rows.size(), 6U);
    EXPECT_EQ(rows[0].teacherName.toStdString(), "Anu");
    EXPECT_EQ(rows[0].classCode, 2);
    EXPECT_EQ(rows[0].divisionCode, 2);
    EXPECT_EQ(rows[5].classCode, 1);
    EXPECT_EQ(rows[5].divisionCode, 2);
    EXPECT_EQ(rows[1].maximumMark, 50);
    EXPECT_EQ(rows[1].maximumAllowed, 60);
    EXPECT_EQ(rows[1].takenForRank.toStdString(), "No");
}

TEST_F(SetupReportRows, TakeOneStatement)
{
    const auto before = school.main.StatementsRun();
    Load(0, 0);
    EXPECT_EQ(school.main.StatementsRun() - before, 1);
}

} // namespace
} // namespace tally::test
