#include "reports/DivisionReport.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

constexpr auto Taken = SubjectDisplay::TakenForRankOnly;
constexpr auto All = SubjectDisplay::All;

/// Of the averages of divisions.
constexpr DivisionReportRules OfAverages{.wantsAllMarks = true,
                                         .comparesAllSubjects = false,
                                         .tellsOneReason = true,
                                         .marksSubjects = true,
                                         .subjectsDiffer = "",
                                         .noDivision = ""};
/// Of the students beside a class average.
constexpr DivisionReportRules OfStudents{.wantsAllMarks = false,
                                         .comparesAllSubjects = true,
                                         .tellsOneReason = false,
                                         .marksSubjects = false,
                                         .subjectsDiffer = "",
                                         .noDivision = ""};

SubjectSetup Subject(int division, int code, bool taken = true, double maximum = 100, double allowed = 100)
{
    return {division, code, {}, taken, maximum, allowed};
}

using Codes = std::vector<int>;

/// A division in which all is entered: two students, three subjects, two of them taken for rank.
DivisionFacts CompleteDivision()
{
    return {.division = {3, QStringLiteral("C")},
            .students = 2,
            .subjects = 3,
            .subjectsTakenForRank = 2,
            .gradeBands = 0,
            .completeSubjects = 3,
            .completeSubjectsTakenForRank = 2};
}

std::string LineOf(const DivisionFacts& facts, SubjectDisplay display, const DivisionReportRules& rules)
{
    const ListItem item = DivisionLine(facts, display, rules);
    EXPECT_EQ(item.code, 3);
    return item.text.toStdString() + '|' + item.refusal.toStdString();
}

std::string Join(const QStringList& texts)
{
    return texts.join(QLatin1Char('\n')).toStdString();
}

std::vector<ListItem> Items(std::initializer_list<const char*> texts)
{
    std::vector<ListItem> items;
    for (const char* text : texts)
        items.push_back({static_cast<int>(items.size()) + 1, QString::fromLatin1(text), {}});
    return items;
}

TEST(DivisionLines, NameTheFirstThingThatIsMissing)
{
    DivisionFacts facts = CompleteDivision();
    EXPECT_EQ(LineOf(facts, Taken, OfAverages), "  C|") << "a grade table is not asked for";
    facts.completeSubjectsTakenForRank = 1;
    EXPECT_EQ(LineOf(facts, Taken, OfAverages), "# C|") << "refused without a word";
    EXPECT_EQ(LineOf(facts, All, OfAverages), "  C|");
    facts.subjectsTakenForRank = 0;
    EXPECT_EQ(LineOf(facts, Taken, OfAverages),
              "$ C|'Classwise Subject-Teacher-Mark Entry' Is Not Made For This Division");
    EXPECT_EQ(LineOf(facts, All, OfAverages), "  C|");
    facts.subjects = 0;
    EXPECT_EQ(LineOf(facts, All, OfAverages),
              "$ C|'Classwise Subject-Teacher-Mark Entry' Is Not Made For This Division");
    facts.students = 0;
    EXPECT_EQ(LineOf(facts, All, OfAverages),
              ". C|Student Admission Entry Is Not Made In This Class-Division");
}

TEST(DivisionLines, AskForAllMarksOnlyWhereTheyMatter)
{
    DivisionFacts facts = CompleteDivision();
    facts.completeSubjects = facts.completeSubjectsTakenForRank = 0;
    EXPECT_EQ(LineOf(facts, All, OfAverages), "# C|");
    EXPECT_EQ(LineOf(facts, All, OfStudents), "  C|");
    facts.subjects = facts.subjectsTakenForRank = 0;
    EXPECT_EQ(LineOf(facts, Taken, OfStudents),
              "$ C|'Classwise Subject-Teacher-Mark Entry' Is Not Made For This Division");
}

TEST(DivisionLines, AreUsableWithoutAMarkOnly)
{
    EXPECT_TRUE(IsUsable(QStringLiteral("  A")));
    for (const char* text : {". A", "$ A", "# A"})
        EXPECT_FALSE(IsUsable(QString::fromLatin1(text))) << text;
    EXPECT_EQ(WithoutMark(QStringLiteral("# A")).toStdString(), "A");
}

TEST(AddedDivisions, OfTheAveragesMustTakeAsManySubjectsAsTheBase)
{
    const std::vector<SubjectSetup> setup{Subject(1, 1), Subject(1, 2, false), Subject(2, 7), Subject(3, 1),
                                          Subject(3, 2)};
    EXPECT_EQ(DivisionsThatDiffer(setup, 1, {2, 3}, Taken, OfAverages), Codes({3}));
    EXPECT_EQ(DivisionsThatDiffer(setup, 1, {2, 3}, All, OfAverages), Codes({2}));
}

TEST(AddedDivisions, OfTheStudentsMustTakeTheSameSubjectsAsTheBaseWhateverIsDisplayed)
{
    const auto differs = [](const SubjectSetup& subject) {
        const std::vector<SubjectSetup> setup{Subject(1, 1), Subject(1, 2, false, 50, 40), Subject(2, 1),
                                              subject};
        const Codes differing = DivisionsThatDiffer(setup, 1, {2}, Taken, OfStudents);
        EXPECT_EQ(DivisionsThatDiffer(setup, 1, {2}, All, OfStudents), differing);
        return !differing.empty();
    };
    EXPECT_FALSE(differs(Subject(2, 2, false, 50, 40)));
    EXPECT_TRUE(differs(Subject(2, 3, false, 50, 40))) << "another subject";
    EXPECT_TRUE(differs(Subject(2, 2, true, 50, 40))) << "taken for rank";
    EXPECT_TRUE(differs(Subject(2, 2, false, 60, 40))) << "another maximum mark";
    EXPECT_TRUE(differs(Subject(2, 2, false, 50, 50))) << "another mark allowed";
    EXPECT_TRUE(differs(Subject(3, 2, false, 50, 40))) << "one subject less";
}

TEST(AddedDivisions, OfTheStudentsMayNotTakeMoreThanTheBase)
{
    EXPECT_EQ(DivisionsThatDiffer({Subject(1, 1), Subject(2, 1), Subject(2, 2)}, 1, {2}, Taken, OfStudents),
              Codes({2}));
}

TEST(AllDivisionsAtOnce, AreTickedWhereTheyAgree)
{
    const auto all =
        ChooseAllDivisions(Items({"  A", "  B"}), {Subject(1, 1), Subject(2, 1)}, Taken, OfAverages);
    EXPECT_EQ(all.ticked, Codes({1, 2}));
    EXPECT_TRUE(all.messages.isEmpty());
}

TEST(AllDivisionsAtOnce, LeaveOutThoseThatDifferFromTheFirstOneThatIsTickedAndNameThem)
{
    const std::vector<SubjectSetup> setup{Subject(1, 1, true, 90), Subject(2, 1), Subject(3, 1, true, 50),
                                          Subject(4, 1),           Subject(5, 1), Subject(5, 2)};
    const auto all = ChooseAllDivisions(Items({". A", "  B", "  C", "  D", "  E"}), setup, Taken, OfAverages);
    EXPECT_EQ(all.ticked, Codes({2, 4}));
    EXPECT_EQ(Join(all.messages),
              "Student Admission Entry Is Not Made For The Following Division(s) A\n"
              "Subjects' Maximum Mark For A,C,E Division(s) Does Not Match With The Selected Division(s)")
        << "A is compared although it cannot be ticked";
}

TEST(AllDivisionsAtOnce, OfTheAveragesAreComparedInTheSubjectsDisplayed)
{
    const std::vector<SubjectSetup> setup{Subject(1, 1), Subject(2, 1), Subject(2, 2, false)};
    EXPECT_EQ(ChooseAllDivisions(Items({"  A", "  B"}), setup, Taken, OfAverages).ticked, Codes({1, 2}));
    EXPECT_EQ(ChooseAllDivisions(Items({"  A", "  B"}), setup, All, OfAverages).ticked, Codes({1}));
    EXPECT_EQ(ChooseAllDivisions(Items({"  A", "  B"}), setup, Taken, OfStudents).ticked, Codes({1}));
}

TEST(AllDivisionsAtOnce, TellOneReasonOfTwoForTheAveragesAndBothForTheStudents)
{
    const std::vector<ListItem> items = Items({". A", "$ B", ". C", "$ D"});
    const std::string students = "Student Admission Entry Is Not Made For The Following Division(s) A,C";
    const std::string subjects =
        "'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Following Division(s) B,D";
    EXPECT_EQ(Join(ChooseAllDivisions(items, {}, Taken, OfAverages).messages), students);
    EXPECT_EQ(Join(ChooseAllDivisions(items, {}, Taken, OfStudents).messages), students + '\n' + subjects);
    EXPECT_EQ(Join(ChooseAllDivisions(Items({"$ A"}), {}, Taken, OfAverages).messages),
              "'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Following Division(s) A");
    EXPECT_TRUE(ChooseAllDivisions(items, {}, Taken, OfStudents).ticked.empty());
}

TEST(AllDivisionsAtOnce, PassOverOneWithIncompleteMarksWithoutAWord)
{
    const auto all =
        ChooseAllDivisions(Items({"# A", "  B"}), {Subject(1, 1), Subject(2, 1)}, Taken, OfAverages);
    EXPECT_EQ(all.ticked, Codes({2}));
    EXPECT_TRUE(all.messages.isEmpty());
}

/// What stands in the list of subjects under any combination of marks before the divisions: A stands for a
/// mark at each of three divisions.
class EveryCombinationOfMarks : public testing::TestWithParam<int>
{};

TEST_P(EveryCombinationOfMarks, TicksExactlyTheUsableDivisions)
{
    const char* const marks[] = {"  ", ". ", "$ ", "# "};
    std::vector<ListItem> items;
    std::vector<SubjectSetup> setup;
    Codes usable;
    int combination = GetParam();
    for (int division = 1; division <= 3; ++division, combination /= 4) {
        const char* const mark = marks[combination % 4];
        items.push_back({division, QLatin1String(mark) + QStringLiteral("D%1").arg(division), {}});
        if (QLatin1String(mark) != QLatin1String("$ "))
            setup.push_back(Subject(division, 1));
        if (QLatin1String(mark) == QLatin1String("  "))
            usable.push_back(division);
    }
    for (const DivisionReportRules& rules : {OfAverages, OfStudents})
        EXPECT_EQ(ChooseAllDivisions(items, setup, Taken, rules).ticked, usable) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(OfThreeDivisions, EveryCombinationOfMarks, testing::Range(0, 64));

TEST(SubjectsOfADivision, AreShownByTheOptionInTheOrderOfTheSetUp)
{
    const std::vector<SubjectSetup> setup{Subject(1, 3), Subject(2, 1), Subject(1, 1, false), Subject(1, 2)};
    const auto codes = [&setup](int division, SubjectDisplay display) {
        Codes found;
        for (const SubjectSetup& subject : SubjectsOf(setup, division, display))
            found.push_back(subject.subjectCode);
        return found;
    };
    EXPECT_EQ(codes(1, Taken), (Codes{3, 2}));
    EXPECT_EQ(codes(1, All), (Codes{3, 1, 2}));
    EXPECT_EQ(codes(2, Taken), (Codes{1}));
    EXPECT_EQ(codes(3, All), Codes());
}

std::string Texts(const std::vector<ListItem>& items)
{
    QStringList texts;
    for (const ListItem& item : items)
        texts.append(QStringLiteral("%1:%2").arg(item.code).arg(item.text));
    return Join(texts);
}

CommonSubjectsInput TwoStudents(std::vector<EnteredMark> marks)
{
    return {.subjects = {{7, QStringLiteral("English")}, {2, QStringLiteral("Maths")}},
            .students = {1, 2},
            .marks = std::move(marks)};
}

TEST(SubjectsInCommon, AreThoseWithAsManyMarksAsStudents)
{
    EXPECT_EQ(Texts(CommonSubjects(TwoStudents({{1, 7}, {2, 7}, {1, 2}}), OfAverages)), "7:  English");
    EXPECT_EQ(Texts(CommonSubjects(TwoStudents({{1, 7}, {2, 7}, {3, 7}, {1, 2}, {2, 2}}), OfAverages)),
              "2:  Maths")
        << "more marks are as wrong as fewer";
    EXPECT_EQ(Texts(CommonSubjects(TwoStudents({{1, 9}, {2, 9}}), OfAverages)), "") << "of another subject";
}

TEST(SubjectsInCommon, AreNoneWithoutStudents)
{
    CommonSubjectsInput input = TwoStudents({});
    input.students.clear();
    EXPECT_EQ(Texts(CommonSubjects(input, OfAverages)), "");
}

TEST(SubjectsInCommon, AreMarkedWhereOneWhoIsGoneCountsForOneWithoutAMark)
{
    const CommonSubjectsInput input = TwoStudents({{1, 7}, {99, 7}, {1, 2}, {2, 2}});
    const std::vector<ListItem> items = CommonSubjects(input, OfAverages);
    EXPECT_EQ(Texts(items), "7:. English\n2:  Maths");
    EXPECT_EQ(items[0].refusal.toStdString(),
              "'Classwise Mark Entry' Is Not Made To The Subject-English For One Or More Student(s)");
    EXPECT_TRUE(items[1].refusal.isEmpty());
    EXPECT_EQ(Texts(CommonSubjects(input, OfStudents)), "7:  English\n2:  Maths");
}

TEST(SubjectsInCommon, CountAStudentOnceWhoHasMarksInTwoDivisions)
{
    EXPECT_EQ(Texts(CommonSubjects(TwoStudents({{1, 7}, {1, 7}}), OfAverages)), "7:. English");
    CommonSubjectsInput input = TwoStudents({{1, 7}, {1, 7}, {99, 7}});
    input.students.push_back(3);
    EXPECT_EQ(Texts(CommonSubjects(input, OfAverages)), "7:. English");
}

} // namespace
} // namespace tally::test
