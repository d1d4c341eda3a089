#include "reports/TextReport.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

QString Latin(const char* text)
{
    return QString::fromUtf8(text);
}

TEST(TextReportTest, TheTableStandsUnderTheSchoolAndTheTitleWithDashesBetweenAllRows)
{
    const TextReport report{Latin("Marks"),
                            {{Latin("No"), 6}, {Latin("Exam"), 10}, {Latin("Eng"), 5}},
                            {{Latin("1"), Latin("Mid Term"), Latin("60")}, {Latin("2"), Latin("Annual")}}};
    EXPECT_EQ(LayOutText(report, {Latin("St. Mary's"), Latin("Hill Road,Fort"), Latin("Kochi-682001")})
                  .toStdString(),
              "        St. Mary's\n"
              "      Hill Road,Fort\n"
              "      Kochi-682001\n"
              "          Marks\n"
              "-------------------------\n"
              "|  No  |   Exam   | Eng |\n"
              "-------------------------\n"
              "|  1   | Mid Term |  60 |\n"
              "-------------------------\n"
              "|  2   |  Annual  |     |\n"
              "-------------------------\n");
}

/// The single cell of a report whose one column has this width.
std::string Cell(int width, const char* text)
{
    const QString layout = LayOutText({{}, {{{}, width}}, {{Latin(text)}}}, {});
    return layout.section(u'\n', 7, 7).toStdString();
}

TEST(TextReportTest, HalfABlankBeforeATextGoesToTheEvenNumber)
{
    EXPECT_EQ(Cell(5, "60"), "|  60 |") << "one and a half blanks are two";
    EXPECT_EQ(Cell(5, "56.7"), "|56.7 |") << "half a blank is none";
    EXPECT_EQ(Cell(6, "1"), "|  1   |") << "two and a half blanks are two";
    EXPECT_EQ(Cell(8, "1"), "|    1   |") << "three and a half blanks are four";
    EXPECT_EQ(Cell(5, "100"), "| 100 |");
}

TEST(TextReportTest, ATextThatIsTooLongIsCutAtTheWidth)
{
    EXPECT_EQ(Cell(5, "56.67"), "|56.67|");
    EXPECT_EQ(Cell(5, "100.00"), "|100.0|");
    EXPECT_EQ(Cell(12, "Admission.No."), "|Admission.No|");
    EXPECT_EQ(Cell(5, ""), "|     |");
}

TEST(TextReportTest, ATitleThatIsLongerThanTheTableBeginsAtTheLeft)
{
    const QString layout = LayOutText({Latin("Marks For Asha Of X/A In Each Exam"), {{{}, 3}}, {}}, {});
    EXPECT_EQ(layout.toStdString(), "\n\n\nMarks For Asha Of X/A In Each Exam\n-----\n|   |\n-----\n")
        << "a school without details leaves its lines blank";
}

TEST(TextReportTest, ALineBreakWithinATextDoesNotBreakTheTable)
{
    EXPECT_EQ(Cell(9, "Mid\nTerm"), "|Mid Term |");
    EXPECT_EQ(Cell(9, "Mid\tTerm"), "|Mid Term |");
    EXPECT_EQ(Cell(8, "\u2028A\u2029\r"), "|   A    |");
}

TEST(TextReportTest, BlanksWithinATextStayAsTheyAre)
{
    EXPECT_EQ(Cell(9, "A  B"), "|  A  B   |");
}

TEST(TextReportTest, LettersOfAllLanguagesAreCountedAsLetters)
{
    EXPECT_EQ(Cell(7, "Élève"), "| Élève |");
}

} // namespace
} // namespace tally::test
