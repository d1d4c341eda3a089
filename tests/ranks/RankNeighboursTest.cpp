#include "support/Neighbours.h"
#include "support/TestSchool.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// Two divisions with three subjects, bands, marks and saved totals.
class RankNeighbours : public testing::Test
{
protected:
    void SetUp() override
    {
        school.AddUsualDivision(2);
        school.AddSubject(1, 3, "Art", 3, "No", 50, 40);
        school.AddMarkedStudent(QStringLiteral("Anil"), {70, 90, 30});
        school.AddMarkedStudent(QStringLiteral("Bina"), {20, 50});
        school.AddDivision(2, "B");
        school.AddSubject(2, 2, "Mat", 1, "Yes", 80, 60);
        school.AddBand(2, 50, 40, "E", 1);
        school.AddBand(2, 0, 0, "F", 2);
        school.EnterMark(school.AddStudent(2, QStringLiteral("Chand")), 2, 55);
    }

    /// What is told of the whole class, all divisions.
    std::string OfTheClass(const SchoolScope& scope)
    {
        QString text;
        for (const DivisionFacts& facts : ofTheClass.LoadDivisionFacts(scope))
            text += QStringLiteral("%1 %2: %3 %4 %5 %6 %7 %8; ")
                        .arg(facts.division.divisionCode)
                        .arg(facts.division.divisionName)
                        .arg(facts.students)
                        .arg(facts.subjects)
                        .arg(facts.subjectsTakenForRank)
                        .arg(facts.gradeBands)
                        .arg(facts.completeSubjects)
                        .arg(facts.completeSubjectsTakenForRank);
        text += QLatin1Char('|');
        for (const SubjectSetup& subject : ofTheClass.LoadSubjectSetup(scope))
            text += Line(subject);
        text += QLatin1Char('|');
        for (const GradeBand& band : ofTheClass.LoadGradeBands(scope))
            text += Line(band);
        return text.toStdString();
    }

    /// What a list of these divisions is made from.
    std::string OfTheList(const SchoolScope& scope, const std::vector<int>& divisions)
    {
        const RankInput input = repository.LoadRankInput(scope, divisions);
        QString text = input.className + QLatin1Char('|');
        for (const SchoolDivision& division : input.divisions)
            text += QStringLiteral("%1 %2; ").arg(division.divisionCode).arg(division.divisionName);
        text += QLatin1Char('|');
        for (const RankStudent& student : input.students)
            text += QStringLiteral("%1 %2 %3; ")
                        .arg(student.studentCode)
                        .arg(student.divisionCode)
                        .arg(student.studentName);
        text += QLatin1Char('|');
        for (const SubjectSetup& subject : input.subjects)
            text += Line(subject);
        text += QLatin1Char('|');
        QStringList marks;
        for (const StudentMark& mark : input.marks)
            marks.append(QStringLiteral("%1 %2 %3 %4")
                             .arg(mark.studentCode)
                             .arg(mark.divisionCode)
                             .arg(mark.subjectCode)
                             .arg(mark.mark));
        marks.sort();
        text += marks.join(QStringLiteral("; ")) + QLatin1Char('|');
        for (const GradeBand& band : input.gradeTable)
            text += Line(band);
        text += QLatin1Char('|') +
                QStringList(input.grades.begin(), input.grades.end()).join(QLatin1Char(' ')) +
                QLatin1Char('|');
        for (const auto& full : input.fullMarks)
            text += full ? QStringLiteral("%1 ").arg(*full) : QStringLiteral("none ");
        text += QLatin1Char('|');
        for (const QString& grade : repository.LoadGradesInOrder(scope, divisions))
            text += grade;
        return text.toStdString();
    }

    static QString Line(const SubjectSetup& subject)
    {
        return QStringLiteral("%1 %2 %3 %4 %5/%6; ")
            .arg(subject.divisionCode)
            .arg(subject.subjectCode)
            .arg(subject.shortName)
            .arg(subject.takenForRank)
            .arg(subject.maximumAllowed)
            .arg(subject.maximumMark);
    }
    static QString Line(const GradeBand& band)
    {
        return QStringLiteral("%1 %2 %3 %4; ")
            .arg(band.divisionCode)
            .arg(band.totalAverage)
            .arg(band.subjectAverage)
            .arg(band.grade);
    }

    TestSchool school;
    RankRepository repository{school.main};
    DivisionRepository ofTheClass{school.main};
};

TEST_F(RankNeighbours, AListIsMadeOfItsOwnYearExamClassAndDivisions)
{
    EXPECT_EQ(OfTheList(school.scope, {2}),
              "X|2 B; |3 2 Chand; |2 2 Mat 1 60/80; |3 2 2 55|2 0 0 F; 2 50 40 E; |E F|60 |EF");
    EXPECT_EQ(OfTheList({1, 2, 1}, {2}), "X|2 B; |3 2 Chand; |2 2 Mat 1 60/80; ||||60 |") << "another exam";
    EXPECT_EQ(OfTheList({2, 1, 1}, {2}), "X|2 B; ||||||none |") << "another year";
    EXPECT_EQ(OfTheList({1, 1, 2}, {2}), "|2 ; ||||||none |") << "another class";
}

TEST_F(RankNeighbours, TheDivisionsAreThoseOfTheClassWithTheFactsOfTheYearAndTheExam)
{
    EXPECT_EQ(OfTheClass(school.scope),
              "1 A: 2 3 2 4 2 2; 2 B: 1 1 1 2 1 1; |1 1 Eng 1 100/100; 2 2 Mat 1 60/80; 1 2 Mat 1 100/100; "
              "1 3 Art 0 40/50; |1 80 50 A; 1 60 40 B; 1 35 20 C; 1 0 0 D; 2 50 40 E; 2 0 0 F; ");
    EXPECT_EQ(OfTheClass({2, 1, 1}), "1 A: 0 0 0 0 0 0; 2 B: 0 0 0 0 0 0; ||") << "another year";
    EXPECT_EQ(OfTheClass({1, 1, 2}), "||") << "another class";
}

TEST_F(RankNeighbours, RowsOnAllSidesAreNotNoticed)
{
    const std::string both = OfTheList(school.scope, {1, 2});
    const std::string first = OfTheList(school.scope, {1});
    AddNeighbours(school.main);
    EXPECT_EQ(OfTheList(school.scope, {1, 2}), both);
    EXPECT_EQ(OfTheList(school.scope, {1}), first);
}

TEST_F(RankNeighbours, OtherYearsExamsAndClassesAreNotNoticedInTheDivisions)
{
    const std::string alone = OfTheClass(school.scope);
    AddNeighbours(school.main, {Side::Year, Side::Exam, Side::Class});
    EXPECT_EQ(OfTheClass(school.scope), alone);
}

TEST_F(RankNeighbours, SavingTouchesNoTotalOutsideItsYearExamClassAndDivision)
{
    school.Prepare({1, 2});
    school.Save({1, 2});
    AddNeighbours(school.main);
    school.EnterMark(2, 3, 10);
    const AllRows before(school.main);
    school.Prepare({1});
    school.Save({1});
    before.ExpectTouchedOnly(school.main, "TempRankTotal",
                             {{QStringLiteral("AcademicYearCode"), QStringLiteral("1")},
                              {QStringLiteral("ExamCode"), QStringLiteral("1")},
                              {QStringLiteral("ClassCode"), QStringLiteral("1")},
                              {QStringLiteral("DivisionCode"), QStringLiteral("1")}});
}

} // namespace
} // namespace tally::test
