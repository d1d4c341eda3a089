#include "support/TestSchool.h"

#include <array>
#include <gtest/gtest.h>

namespace tally::test {

namespace {

constexpr auto Taken = SubjectDisplay::TakenForRankOnly;
constexpr auto All = SubjectDisplay::All;

QStringList Marks(TestSchool& school, SubjectDisplay display = Taken)
{
    QStringList marks;
    for (const DivisionFacts& facts : school.Divisions().LoadDivisionFacts(school.scope))
        marks.append(DivisionItem(facts, display).text);
    return marks;
}

SubjectSetup Subject(int division, int code, bool taken = true, double maximum = 100, double allowed = 100)
{
    return {division, code, {}, taken, maximum, allowed};
}

using Codes = std::vector<int>;

} // namespace

TEST(DivisionMarks, NameTheFirstThingThatIsMissing)
{
    TestSchool school;
    for (int division = 1; division <= 5; ++division)
        school.AddDivision(division,
                           std::array{"A", "B", "C", "D", "E"}[static_cast<std::size_t>(division - 1)]);
    for (int division = 2; division <= 5; ++division)
        school.AddStudent(division, QStringLiteral("Student %1").arg(division));
    for (int division = 3; division <= 5; ++division)
        school.AddSubject(division, 1, "Eng", 1);
    school.AddUsualBands(4);
    school.AddUsualBands(5);
    school.EnterMark(4, 1, 50);
    EXPECT_EQ(Marks(school), QStringList({". A", "* B", "# C", "$ D", "  E"}));
}

TEST(DivisionMarks, LookAtTheChosenExamOnly)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddMarkedStudent("Anil", {50});
    school.main.Execute("Insert into ExamMaster values(2,'Term Two',2,0)");
    EXPECT_EQ(Marks(school), QStringList({"  A"}));
    school.scope.examCode = 2;
    EXPECT_EQ(Marks(school), QStringList({"# A"}));
    school.main.Execute("Insert into RankMaster values(1,2,1,1,0,0,'D',1,0)");
    EXPECT_EQ(Marks(school), QStringList({"$ A"}));
}

TEST(DivisionMarks, CountOneStudentWithoutMarksAsIncomplete)
{
    TestSchool school;
    school.AddUsualDivision(2);
    school.AddMarkedStudent("Anil", {50, 60});
    EXPECT_EQ(Marks(school), QStringList({"  A"}));
    school.AddStudent(1, "New student");
    EXPECT_EQ(Marks(school), QStringList({"$ A"}));
}

TEST(DivisionMarks, CountMoreMarksThanStudentsAsIncomplete)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddMarkedStudent("Anil", {50});
    const int gone = school.AddMarkedStudent("Gone", {50});
    school.main.Execute("Delete from StudentClassDivision where StudentCode=?", gone);
    EXPECT_EQ(Marks(school), QStringList({"$ A"}));
}

TEST(DivisionMarks, CountStudentsOfALaterYearToo)
{
    TestSchool school;
    school.AddUsualDivision(1);
    const int promoted = school.AddMarkedStudent("Promoted", {50});
    school.main.Execute("Update StudentClassDivision set Status='N' where StudentCode=?", promoted);
    EXPECT_EQ(Marks(school), QStringList({"  A"}));
}

TEST(DivisionMarks, AskOnlyForTheSubjectsThatTheOptionShows)
{
    TestSchool school;
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Art", 2, "No");
    school.AddMarkedStudent("Anil", {50});
    EXPECT_EQ(Marks(school, Taken), QStringList({"  A"}));
    EXPECT_EQ(Marks(school, All), QStringList({"$ A"}));
    school.EnterMark(1, 2, 50);
    EXPECT_EQ(Marks(school, Taken), QStringList({"  A"}));
    EXPECT_EQ(Marks(school, All), QStringList({"  A"}));
}

TEST(DivisionMarks, StandByCodeOrByName)
{
    TestSchool school;
    school.AddDivision(1, "B");
    school.AddDivision(2, "A");
    const auto codes = [&school](DivisionOrder order) {
        Codes found;
        for (const DivisionFacts& facts : school.Divisions().LoadDivisionFacts(school.scope, order))
            found.push_back(facts.division.divisionCode);
        return found;
    };
    EXPECT_EQ(codes(DivisionOrder::ByCode), (Codes{1, 2}));
    EXPECT_EQ(codes(DivisionOrder::ByName), (Codes{2, 1}));
}

TEST(DivisionMarks, CostTheSameStatementsForOneDivisionAndForTwenty)
{
    const auto statements = [](int divisions) {
        TestSchool school;
        for (int division = 1; division <= divisions; ++division) {
            school.AddDivision(division, QByteArray::number(division).constData());
            school.AddUsualBands(division);
            school.AddSubject(division, 1, "Eng", 1);
            school.EnterMark(school.AddStudent(division, "Anil"), 1, 50);
        }
        const auto before = school.main.StatementsRun();
        EXPECT_EQ(Marks(school).filter("  ").size(), divisions);
        return school.main.StatementsRun() - before;
    };
    EXPECT_EQ(statements(1), statements(20));
}

TEST(DivisionRefusals, SayWhatIsMissing)
{
    const auto refusal = [](const DivisionFacts& facts) {
        return DivisionItem(facts, SubjectDisplay::TakenForRankOnly).refusal.toStdString();
    };
    DivisionFacts facts{{3, QStringLiteral("A")}};
    EXPECT_EQ(refusal(facts), "Student Admission Entry Is Not Made In This Division");
    facts.students = 1;
    EXPECT_EQ(refusal(facts), "'Classwise Subject-Teacher-Mark Entry' Is Not Made For This Division");
    facts.subjects = facts.subjectsTakenForRank = 2;
    EXPECT_EQ(refusal(facts), "'Classwise Rank-Grade Setup' Is Not Made For This Division");
    facts.gradeBands = 1;
    EXPECT_EQ(refusal(facts),
              "'Classwise Mark Entry' Is Not Fully Completed For Student(s) In This Division");
    facts.completeSubjectsTakenForRank = 2;
    EXPECT_EQ(refusal(facts), "");
    EXPECT_EQ(DivisionItem(facts, SubjectDisplay::TakenForRankOnly).code, 3);
}

TEST(SubjectMatch, PassesDivisionsWithTheSameSubjectsAndMaximumMarks)
{
    MatchBase base;
    const auto result =
        CheckSubjectMatch({Subject(1, 1), Subject(1, 2), Subject(2, 2), Subject(2, 1)}, {1, 2}, Taken, base);
    EXPECT_FALSE(result.mismatch);
    EXPECT_TRUE(result.untick.empty());
    EXPECT_TRUE(base.set);
    EXPECT_EQ(base.divisionCode, 1);
}

TEST(SubjectMatch, UnticksEveryDivisionWithAnotherNumberOfSubjects)
{
    MatchBase base;
    const auto result = CheckSubjectMatch(
        {Subject(1, 1), Subject(2, 1), Subject(2, 2), Subject(3, 1), Subject(4, 1), Subject(4, 3)},
        {1, 2, 3, 4}, Taken, base);
    EXPECT_TRUE(result.mismatch);
    EXPECT_EQ(result.untick, (Codes{2, 4}));
}

TEST(SubjectMatch, UnticksOnlyTheFirstDivisionWithOtherSubjects)
{
    MatchBase base;
    const auto result =
        CheckSubjectMatch({Subject(1, 1), Subject(2, 5), Subject(3, 6)}, {1, 2, 3}, Taken, base);
    EXPECT_TRUE(result.mismatch);
    EXPECT_EQ(result.untick, (Codes{2}));
}

TEST(SubjectMatch, ComparesBothMaximumMarks)
{
    MatchBase base;
    EXPECT_EQ(CheckSubjectMatch({Subject(1, 1), Subject(2, 1, true, 50)}, {1, 2}, Taken, base).untick,
              (Codes{2}));
    EXPECT_EQ(CheckSubjectMatch({Subject(1, 1), Subject(2, 1, true, 100, 50)}, {1, 2}, Taken, base).untick,
              (Codes{2}));
}

TEST(SubjectMatch, LooksAtSubjectsNotTakenForRankOnlyWhenAllAreShown)
{
    const std::vector<SubjectSetup> setup{Subject(1, 1), Subject(1, 2, false), Subject(2, 1)};
    MatchBase base;
    EXPECT_FALSE(CheckSubjectMatch(setup, {1, 2}, Taken, base).mismatch);
    const auto all = CheckSubjectMatch(setup, {1, 2}, All, base);
    EXPECT_TRUE(all.mismatch);
    EXPECT_EQ(all.untick, (Codes{2}));
}

TEST(SubjectMatch, UnticksADivisionWithOneMoreSubjectThatIsNotTakenForRankWhenAllAreShown)
{
    const std::vector<SubjectSetup> setup{Subject(1, 1), Subject(2, 1), Subject(2, 2, false)};
    MatchBase base;
    EXPECT_FALSE(CheckSubjectMatch(setup, {1, 2}, Taken, base).mismatch);
    const auto all = CheckSubjectMatch(setup, {1, 2}, All, base);
    EXPECT_TRUE(all.mismatch);
    EXPECT_EQ(all.untick, (Codes{2}));
}

TEST(SubjectMatch, TakesASubjectForTheSameWhenAllAreShownAndOnlyItsRoleDiffers)
{
    const std::vector<SubjectSetup> setup{Subject(1, 1), Subject(1, 2, false), Subject(2, 1, false),
                                          Subject(2, 2)};
    MatchBase base;
    EXPECT_FALSE(CheckSubjectMatch(setup, {1, 2}, All, base).mismatch);
    EXPECT_TRUE(CheckSubjectMatch(setup, {1, 2}, Taken, base).mismatch);
}

TEST(SubjectMatch, KeepsItsBaseBetweenTwoChecksEvenWhenItIsUnticked)
{
    const std::vector<SubjectSetup> setup{Subject(1, 1), Subject(2, 1), Subject(2, 2)};
    MatchBase base;
    CheckSubjectMatch(setup, {1}, Taken, base);
    const auto result = CheckSubjectMatch(setup, {2}, Taken, base);
    EXPECT_TRUE(result.mismatch);
    EXPECT_EQ(result.untick, (Codes{2}));
    MatchBase anew;
    EXPECT_FALSE(CheckSubjectMatch(setup, {2}, Taken, anew).mismatch);
}

TEST(SubjectMatch, UnticksAllWhenTheBaseHasNoSubjectButCallsItNoMismatch)
{
    MatchBase base;
    const auto result = CheckSubjectMatch({Subject(1, 1, false), Subject(2, 1, false)}, {1, 2}, Taken, base);
    EXPECT_FALSE(result.mismatch);
    EXPECT_EQ(result.untick, (Codes{1, 2}));
}

TEST(SubjectMatch, OfNothingTickedChoosesNoBase)
{
    MatchBase base;
    EXPECT_FALSE(CheckSubjectMatch({Subject(1, 1)}, {}, Taken, base).mismatch);
    EXPECT_FALSE(base.set);
}

TEST(GradeMatch, PassesATableWithAllRowsOfTheBaseAndOneMore)
{
    MatchBase base;
    const std::vector<GradeBand> bands{
        {1, 50, 35, "A"}, {1, 0, 0, "B"}, {2, 50, 35, "a"}, {2, 40, 30, "C"}, {2, 0, 0, "B"}};
    EXPECT_FALSE(CheckGradeMatch(bands, {1, 2}, base).mismatch);
    EXPECT_EQ(base.divisionCode, 1);
    MatchBase other;
    const auto reverse = CheckGradeMatch(bands, {2, 1}, other);
    EXPECT_TRUE(reverse.mismatch);
    EXPECT_EQ(reverse.untick, (Codes{1}));
}

TEST(GradeMatch, UnticksEveryDivisionThatDiffersInAverageOrGrade)
{
    MatchBase base;
    const std::vector<GradeBand> bands{
        {1, 50, 35, "A"}, {2, 51, 35, "A"}, {3, 50, 36, "A"}, {4, 50, 35, "B"}, {5, 50, 35, "A"}};
    const auto result = CheckGradeMatch(bands, {1, 2, 3, 4, 5}, base);
    EXPECT_TRUE(result.mismatch);
    EXPECT_EQ(result.untick, (Codes{2, 3, 4}));
}

TEST(GradeMatch, TakesThePercentSignOfTheBaseForAnyLetters)
{
    MatchBase base;
    EXPECT_FALSE(CheckGradeMatch({{1, 50, 35, "A%"}, {2, 50, 35, "A+"}}, {1, 2}, base).mismatch);
    MatchBase reverse;
    EXPECT_TRUE(CheckGradeMatch({{1, 50, 35, "A%"}, {2, 50, 35, "A+"}}, {2, 1}, reverse).mismatch);
}

TEST(GradeMatch, ManyPercentSignsAreAnsweredAsSoonAsOne)
{
    const QString percents = QString(40, QLatin1Char('%'));
    const QString letters = QString(40, QLatin1Char('W'));
    const auto mismatch = [&](const QString& wanted) {
        MatchBase base;
        return CheckGradeMatch({{1, 50, 35, wanted}, {2, 50, 35, letters}}, {1, 2}, base).mismatch;
    };
    EXPECT_FALSE(mismatch(percents));
    EXPECT_FALSE(mismatch(percents + QLatin1String("w_W") + percents));
    EXPECT_TRUE(mismatch(percents + QLatin1Char('b')));
    EXPECT_TRUE(mismatch(QLatin1Char('b') + percents));
    EXPECT_TRUE(mismatch(letters + QLatin1String("_%")));
    EXPECT_TRUE(mismatch(QString()));
}

TEST(GradeMatch, ThePercentSignStandsForNoLetterThatIsTakenAlready)
{
    const auto mismatch = [](const char* wanted, const char* grade) {
        MatchBase base;
        return CheckGradeMatch(
                   {{1, 50, 35, QString::fromLatin1(wanted)}, {2, 50, 35, QString::fromLatin1(grade)}},
                   {1, 2}, base)
            .mismatch;
    };
    EXPECT_TRUE(mismatch("AB%BC", "ABC"));
    EXPECT_FALSE(mismatch("AB%BC", "ABBC"));
    EXPECT_FALSE(mismatch("AB%BC", "ABCBC"));
}

TEST(GradeMatch, UnticksNoBaseThatIsNotTicked)
{
    MatchBase base{true, 1};
    const auto result = CheckGradeMatch({{2, 50, 35, "A"}}, {2}, base);
    EXPECT_FALSE(result.mismatch);
    EXPECT_TRUE(result.untick.empty());
}

TEST(GradeMatch, UnticksABaseWithoutTableButCallsItNoMismatch)
{
    MatchBase base;
    const auto result = CheckGradeMatch({{2, 50, 35, "A"}}, {1, 2}, base);
    EXPECT_FALSE(result.mismatch);
    EXPECT_EQ(result.untick, (Codes{1}));
}

} // namespace tally::test
