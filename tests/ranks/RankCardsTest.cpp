#include "ranks/RankCards.h"

#include "core/Numbers.h"
#include "ranks/RankCardRepository.h"
#include "ranks/RankCardSchool.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

constexpr int FirstLine = RankCardGrid::FirstLineRow;

/// Class X, division A, with the exams First, Second and Third in this order, whatever their codes.
class RankCards : public testing::Test
{
protected:
    RankCards()
    {
        school.main.Execute(QStringLiteral("Update ExamMaster set ExamName='First' where ExamCode=1"));
        cards.AddExam(7, "Second", 2);
        cards.AddExam(3, "Third", 3);
    }

    RankCardGrid Show(const std::vector<int>& students, const std::vector<int>& exams,
                      SubjectDisplay display = SubjectDisplay::TakenForRankOnly, int decimals = 0)
    {
        return ComputeRankCards(
            RankCardRepository(school.main).LoadRankCards(scope, students, exams, display), decimals);
    }

    StudentListInput List() { return RankCardRepository(school.main).LoadStudentList(scope); }

    std::vector<bool> Complete(const std::vector<int>& exams) { return MarksComplete(List(), exams); }

    /// Beside class X, division A, in this year: the same division a year later, division B, and division 1
    /// of class IX, each with a student, a subject, and for `student` a mark and a saved rank in First and
    /// in Second.
    void AddNeighbours(int student)
    {
        cards.AddYear(5, 2025);
        Run("Insert into ClassDivisionMaster values(2,'IX',9,2,0)");
        Run("Insert into ClassDivisionDetails values(2,'P',1)");
        school.AddDivision(2, "B");
        Run("Insert into SubjectMaster values(9,'Strange','Str',0)");
        int stranger = 100; // far from the codes that a test's own students get
        for (const SchoolScope& place : {SchoolScope{5, 0, 1, 1}, {1, 0, 1, 2}, {1, 0, 2, 1}}) {
            Run("Insert into StudentMaster(StudentCode,AdmissionNo,OptionalAdmissionNo,StudentName,"
                "AcademicYearCode,CityCode,BloodGroupCode,TCNo) values(?,?,?,'Stranger',1,0,0,'')",
                stranger, stranger, stranger);
            Run("Insert into StudentClassDivision values(?,?,?,?,'Y',0)", stranger, place.academicYearCode,
                place.classCode, place.divisionCode);
            Run("Insert into ClassSubjectTeacher values(?,?,?,9,0,100,100,'Yes',9)", place.academicYearCode,
                place.classCode, place.divisionCode);
            for (const int exam : {1, 7}) {
                Run("Insert into MarkMaster values(?,?,?,?,?,1,99,'P',0,0)", place.academicYearCode, student,
                    exam, place.classCode, place.divisionCode);
                Run("Insert into TempRankTotal values(?,?,?,?,?,99,99,9,'Z')", student,
                    place.academicYearCode, exam, place.classCode, place.divisionCode);
            }
            ++stranger;
        }
    }

    /// Takes away what the same division has in another year, which cards show on purpose.
    void ForgetTheLaterYear()
    {
        Run("Delete from MarkMaster where AcademicYearCode=5");
        Run("Delete from TempRankTotal where AcademicYearCode=5");
    }

    template <typename... Values>
    void Run(const char* sql, const Values&... values)
    {
        school.main.Execute(QString::fromLatin1(sql), values...);
    }

    /// The texts of one row, from `first` on, parted by "|".
    static QString Texts(const RankCardGrid& shown, int row, GridCol first = CardColumn::Exam)
    {
        QStringList texts;
        for (int col = first; col < shown.table.Cols(); ++col)
            texts.append(shown.table.Text(row, col));
        return texts.join(QLatin1Char('|'));
    }

    static QString Marks(const RankCardGrid& shown, int row)
    {
        return Texts(shown, row, CardColumn::FirstSubject);
    }

    TestSchool school;
    RankCardSchool cards{school};
    SchoolScope scope{1, 0, 1, 1};
};

TEST_F(RankCards, AStudentWithMarksInTheFirstAndThirdExamHasTwoLinesInExamOrder)
{
    school.AddUsualDivision(1);
    const int asha = school.AddStudent(1, QStringLiteral("Asha"), QStringLiteral("0042"));
    cards.EnterMark(3, asha, 1, 70);
    cards.EnterMark(1, asha, 1, 60);
    const RankCardGrid shown = Show({asha}, {3, 1, 7});
    ASSERT_EQ(shown.table.Rows(), 5);
    EXPECT_EQ(shown.lines, 2);
    EXPECT_EQ(Texts(shown, FirstLine), QStringLiteral("First|Asha|0042|X|A|60||||"));
    EXPECT_EQ(Texts(shown, FirstLine + 1), QStringLiteral("Third|Asha|0042|X|A|70||||"));
}

TEST_F(RankCards, LinesFollowTheOrderOfTheExamsWhereTheirCodesRunAgainstIt)
{
    school.AddUsualDivision(1);
    const int asha = school.AddMarkedStudent(QStringLiteral("Asha"), {60});
    cards.EnterMark(3, asha, 1, 70);
    cards.EnterMark(7, asha, 1, 80);
    const RankCardGrid shown = Show({asha}, {1, 3, 7});
    QStringList names;
    for (int row = FirstLine; row < FirstLine + shown.lines; ++row)
        names.append(shown.table.Text(row, CardColumn::Exam));
    EXPECT_EQ(names.join(QLatin1Char(' ')), QStringLiteral("First Second Third"));
}

TEST_F(RankCards, ASavedRankForAnExamWithoutMarksMakesNoLineAndLeavesTheHeadsAlone)
{
    school.AddUsualDivision(1);
    const int asha = school.AddMarkedStudent(QStringLiteral("Asha"), {60});
    cards.SaveRank(7, asha, 60, 60, 1, "B");
    const RankCardGrid shown = Show({asha}, {1, 7});
    EXPECT_EQ(shown.lines, 1);
    ASSERT_EQ(shown.table.Rows(), 4);
    EXPECT_EQ(Marks(shown, 0), QStringLiteral("Eng|Total|Average|Rank|Grade"));
    EXPECT_EQ(Marks(shown, FirstLine), QStringLiteral("60||||"));
}

TEST_F(RankCards, OnlyTheStudentsOfTheDivisionInTheYearAreListed)
{
    school.AddUsualDivision(1);
    AddNeighbours(school.AddMarkedStudent(QStringLiteral("Asha"), {60}));
    const StudentListInput list = List();
    ASSERT_EQ(list.students.size(), 1U);
    EXPECT_EQ(list.students.front().studentName, QStringLiteral("Asha"));
}

TEST_F(RankCards, CompletenessCountsTheMarksAndSubjectsOfTheDivisionInTheYearOnly)
{
    school.AddUsualDivision(1);
    AddNeighbours(school.AddMarkedStudent(QStringLiteral("Asha"), {60}));
    EXPECT_EQ(List().subjectCount, 1);
    EXPECT_EQ(Complete({1}), std::vector<bool>{true});
    EXPECT_EQ(Complete({7}), std::vector<bool>{false});
}

TEST_F(RankCards, ACardTakesItsNamesAndSubjectsFromItsOwnDivisionAndYear)
{
    school.AddUsualDivision(1);
    const int asha = school.AddMarkedStudent(QStringLiteral("Asha"), {60});
    AddNeighbours(asha);
    ForgetTheLaterYear();
    const RankCardGrid shown = Show({asha}, {1});
    EXPECT_EQ(Marks(shown, 0), QStringLiteral("Eng|Total|Average|Rank|Grade"));
    EXPECT_EQ(Texts(shown, FirstLine), QStringLiteral("First|Asha|A1|X|A|60||||"));
    scope = {1, 0, 1, 2};
    EXPECT_EQ(Texts(Show({asha}, {7}), FirstLine), QStringLiteral("Second|Asha|A1|X|B||99|99|9|Z"));
    scope = {1, 0, 2, 1};
    EXPECT_EQ(Texts(Show({asha}, {7}), FirstLine), QStringLiteral("Second|Asha|A1|IX|P||99|99|9|Z"));
}

TEST_F(RankCards, MarksAndRanksOfOtherClassesAndDivisionsAreNotOnTheCard)
{
    school.AddUsualDivision(1);
    const int asha = school.AddMarkedStudent(QStringLiteral("Asha"), {60});
    AddNeighbours(asha);
    ForgetTheLaterYear();
    const RankCardGrid shown = Show({asha}, {1, 7});
    EXPECT_EQ(shown.lines, 1);
    EXPECT_EQ(Marks(shown, FirstLine), QStringLiteral("60||||"));
}

TEST_F(RankCards, OnlyMarksAndRanksOfTheTickedExamsAreRead)
{
    school.AddUsualDivision(1);
    const int asha = school.AddMarkedStudent(QStringLiteral("Asha"), {60});
    cards.EnterMark(7, asha, 1, 70);
    for (const int exam : {1, 7})
        cards.SaveRank(exam, asha, 60, 60, 1, "B");
    const RankCardInput input =
        RankCardRepository(school.main).LoadRankCards(scope, {asha}, {7}, SubjectDisplay::All);
    ASSERT_EQ(input.marks.size(), 1U);
    EXPECT_EQ(input.marks.front().examCode, 7);
    ASSERT_EQ(input.ranks.size(), 1U);
    EXPECT_EQ(input.ranks.front().examCode, 7);
}

TEST_F(RankCards, TheHeadsAreTheShortNamesInTheirOrderAndTheCodesStandBelow)
{
    school.AddDivision(1, "A");
    school.AddSubject(1, 4, "Mat", 2);
    school.AddSubject(1, 9, "Eng", 1);
    const RankCardGrid shown = Show({}, {1});
    EXPECT_EQ(Texts(shown, 0), QStringLiteral("|||||Eng|Mat|Total|Average|Rank|Grade"));
    EXPECT_EQ(Texts(shown, 1), QStringLiteral("|||||9|4||||"));
}

TEST_F(RankCards, ARankListThatWasNotSavedLeavesItsValuesBlankWhileTheMarksStand)
{
    school.AddUsualDivision(2);
    const int asha = school.AddMarkedStudent(QStringLiteral("Asha"), {60, 70});
    cards.EnterMarks(7, asha, {80, 90});
    cards.SaveRank(7, asha, 170, 85, 1, "A");
    const RankCardGrid shown = Show({asha}, {1, 7});
    EXPECT_EQ(Marks(shown, FirstLine), QStringLiteral("60|70||||"));
    EXPECT_EQ(Marks(shown, FirstLine + 1), QStringLiteral("80|90|170|85|1|A"));
}

TEST_F(RankCards, AFailedStudentOfASavedListHasAGradeAndABlankRank)
{
    school.AddUsualDivision(2);
    const int asha = school.AddMarkedStudent(QStringLiteral("Asha"), {90, 80});
    const int binu = school.AddMarkedStudent(QStringLiteral("Binu"), {20, 71});
    school.Prepare();
    school.Save();
    const RankCardGrid shown = Show({asha, binu}, {1});
    EXPECT_EQ(Marks(shown, FirstLine), QStringLiteral("90|80|170|85|1|A"));
    EXPECT_EQ(Marks(shown, FirstLine + 2), QStringLiteral("20|71|91|45.5||C"));
}

TEST_F(RankCards, ARankThatIsNullShowsBlank)
{
    school.AddUsualDivision(1);
    const int asha = school.AddMarkedStudent(QStringLiteral("Asha"), {60});
    cards.SaveRank(1, asha, 60, 60, 1, "B");
    school.main.Execute(QStringLiteral("Update TempRankTotal set Rank=Null,Average=Null"));
    EXPECT_EQ(Marks(Show({asha}, {1}), FirstLine), QStringLiteral("60|60|||B"));
}

TEST_F(RankCards, SubjectsNotTakenForRankAreLeftOutOrShownAndTheTotalIsTheSavedOneBothTimes)
{
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Mor", 2, "No");
    const int asha = school.AddMarkedStudent(QStringLiteral("Asha"), {60, 40});
    school.Prepare();
    school.Save();
    const RankCardGrid some = Show({asha}, {1});
    EXPECT_EQ(Marks(some, 0), QStringLiteral("Eng|Total|Average|Rank|Grade"));
    EXPECT_EQ(Marks(some, FirstLine), QStringLiteral("60|60|60|1|B"));
    const RankCardGrid all = Show({asha}, {1}, SubjectDisplay::All);
    EXPECT_EQ(Marks(all, 0), QStringLiteral("Eng|Mor|Total|Average|Rank|Grade"));
    EXPECT_EQ(Marks(all, FirstLine), QStringLiteral("60|40|60|60|1|B"));
}

TEST_F(RankCards, AMarkWithoutAColumnIsPassedOverButItsExamStillHasALine)
{
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Mor", 2, "No");
    const int asha = school.AddStudent(1, QStringLiteral("Asha"));
    cards.EnterMark(1, asha, 2, 40);
    EXPECT_EQ(Texts(Show({asha}, {1}), FirstLine), QStringLiteral("First|Asha|A1|X|A|||||"));
}

TEST_F(RankCards, MarksAndRanksOfOtherStudentsAndExamsAreNotOnTheCards)
{
    RankCardInput input;
    input.exams = {{1, QStringLiteral("First")}};
    input.students = {{1, QStringLiteral("Asha"), QStringLiteral("A1")}};
    input.subjects = {{1, QStringLiteral("Eng")}};
    input.marks = {{1, 1, 1, 60}, {2, 1, 1, 70}, {1, 9, 1, 80}};
    input.ranks = {{1, 1, 60, 60, 1, QStringLiteral("B")},
                   {2, 1, 70, 70, 2, QStringLiteral("C")},
                   {1, 9, 80, 80, 3, QStringLiteral("D")}};
    const RankCardGrid shown = ComputeRankCards(input, 0);
    EXPECT_EQ(shown.lines, 1);
    EXPECT_EQ(Marks(shown, FirstLine), QStringLiteral("60|60|60|1|B"));
}

TEST_F(RankCards, AnAbsenceIsShownAsTheStoredMark)
{
    school.AddUsualDivision(2);
    const int asha = school.AddStudent(1, QStringLiteral("Asha"));
    cards.EnterMark(1, asha, 1, 0, "A");
    cards.EnterMark(1, asha, 2, 12, "A");
    EXPECT_EQ(Marks(Show({asha}, {1}), FirstLine), QStringLiteral("0|12||||"));
}

TEST_F(RankCards, MarksFollowTheOptionsForFractionsAndRounding)
{
    school.AddUsualDivision(3);
    const int asha = school.AddMarkedStudent(QStringLiteral("Asha"), {62.5, 63.5, 40.126});
    const auto marks = [&](bool fractions, bool rounded) {
        return Marks(Show({asha}, {1}, SubjectDisplay::TakenForRankOnly, MarkDecimals(fractions, rounded)),
                     FirstLine);
    };
    EXPECT_EQ(marks(false, false), QStringLiteral("62|64|40||||"));
    EXPECT_EQ(marks(false, true), QStringLiteral("62|64|40||||"));
    EXPECT_EQ(marks(true, true), QStringLiteral("62|64|40||||"));
    EXPECT_EQ(marks(true, false), QStringLiteral("62.50|63.50|40.13||||"));
}

TEST_F(RankCards, ABlankLineFollowsEachStudentEvenOneWithoutMarks)
{
    school.AddUsualDivision(1);
    const int asha = school.AddMarkedStudent(QStringLiteral("Asha"), {60});
    const int binu = school.AddStudent(1, QStringLiteral("Binu"));
    const int cara = school.AddMarkedStudent(QStringLiteral("Cara"), {70});
    const RankCardGrid shown = Show({asha, binu, cara}, {1});
    ASSERT_EQ(shown.table.Rows(), 7);
    EXPECT_EQ(shown.lines, 2);
    for (const int blank : {3, 4, 6})
        EXPECT_EQ(Texts(shown, blank).remove(QLatin1Char('|')), QString()) << blank;
    EXPECT_TRUE(Texts(shown, 5).startsWith(QStringLiteral("First|Cara")));
}

TEST_F(RankCards, MarksAndRanksOfAnotherYearInTheSameDivisionAreShownToo)
{
    cards.AddYear(5, 2000);
    school.AddUsualDivision(1);
    const int asha = school.AddStudent(1, QStringLiteral("Asha"));
    cards.EnterMark(7, asha, 1, 33, "P", 5);
    cards.SaveRank(7, asha, 33, 33, 9, "C", 5);
    EXPECT_EQ(Marks(Show({asha}, {1, 7}), FirstLine), QStringLiteral("33|33|33|9|C"));
}

TEST_F(RankCards, OfAStudentWhoRepeatsTheClassTheLaterYearStands)
{
    // Rows whose order a statement leaves open come the other way round.
    Run("Pragma reverse_unordered_selects=1");
    cards.AddYear(5, 2025);
    school.AddUsualDivision(1);
    const int asha = school.AddStudent(1, QStringLiteral("Asha"));
    cards.EnterMark(1, asha, 1, 80, "P", 5);
    cards.EnterMark(1, asha, 1, 30);
    cards.SaveRank(1, asha, 80, 80, 2, "A", 5);
    cards.SaveRank(1, asha, 30, 30, NoRank, "D");
    const RankCardGrid shown = Show({asha}, {1});
    EXPECT_EQ(shown.lines, 1);
    EXPECT_EQ(Marks(shown, FirstLine), QStringLiteral("80|80|80|2|A"));
}

TEST_F(RankCards, NamesKeepTheirApostrophesAndLettersOfAllScripts)
{
    school.AddUsualDivision(1);
    const QString name = QString::fromUtf8("Zoë D'Souza-Núñez അഞ്ജലി");
    const int zoe = school.AddMarkedStudent(name, {60});
    EXPECT_EQ(Show({zoe}, {1}).table.Text(FirstLine, CardColumn::StudentName), name);
    EXPECT_EQ(List().students.at(0).studentName, name);
}

TEST_F(RankCards, StudentsAreListedByName)
{
    school.AddUsualDivision(1);
    for (const char* name : {"Cara", "asha", "Binu"})
        school.AddStudent(1, QString::fromLatin1(name));
    QStringList names;
    for (const ListedStudent& student : List().students)
        names.append(student.studentName);
    EXPECT_EQ(names.join(QLatin1Char(' ')), QStringLiteral("asha Binu Cara"));
}

TEST_F(RankCards, AStudentIsCompleteOnlyWithEveryMarkInEveryTickedExam)
{
    school.AddUsualDivision(2);
    const int asha = school.AddMarkedStudent(QStringLiteral("Asha"), {60, 70});
    const int binu = school.AddMarkedStudent(QStringLiteral("Binu"), {60, 70});
    cards.EnterMarks(7, asha, {60, 70});
    cards.EnterMarks(7, binu, {60});
    EXPECT_EQ(Complete({}), (std::vector<bool>{true, true}));
    EXPECT_EQ(Complete({1}), (std::vector<bool>{true, true}));
    EXPECT_EQ(Complete({1, 7}), (std::vector<bool>{true, false}));
    EXPECT_EQ(Complete({3}), (std::vector<bool>{false, false})) << "an exam without marks";
}

TEST_F(RankCards, CompletenessCountsSubjectsNotTakenForRankAsWell)
{
    school.AddUsualDivision(1);
    school.AddSubject(1, 2, "Mor", 2, "No");
    school.AddMarkedStudent(QStringLiteral("Asha"), {60});
    EXPECT_EQ(Complete({1}), std::vector<bool>{false});
}

TEST_F(RankCards, AMarkTooManyIsIncompleteToo)
{
    school.AddUsualDivision(2);
    school.AddMarkedStudent(QStringLiteral("Asha"), {60, 70});
    school.main.Execute(QStringLiteral("Delete from ClassSubjectTeacher where SubjectCode=2"));
    EXPECT_EQ(Complete({1}), std::vector<bool>{false});
}

TEST_F(RankCards, CompletenessLooksAtTheYearsOwnMarksOnly)
{
    cards.AddYear(5, 2000);
    school.AddUsualDivision(1);
    const int asha = school.AddStudent(1, QStringLiteral("Asha"));
    cards.EnterMark(1, asha, 1, 60, "P", 5);
    EXPECT_EQ(Complete({1}), std::vector<bool>{false});
}

TEST_F(RankCards, ADivisionWithoutSubjectsHasCompleteStudentsAndNoCards)
{
    school.AddDivision(1, "A");
    const int asha = school.AddStudent(1, QStringLiteral("Asha"));
    EXPECT_EQ(Complete({1}), std::vector<bool>{true});
    const RankCardGrid shown = Show({asha}, {1});
    EXPECT_EQ(shown.lines, 0);
    EXPECT_EQ(Marks(shown, 0), QStringLiteral("Total|Average|Rank|Grade"));
}

TEST_F(RankCards, TheItemOfAnIncompleteStudentSaysSoAndIsRefusedWithItsWholeText)
{
    const ListItem complete = StudentItem({3, QStringLiteral(".Asha")}, true);
    EXPECT_EQ(complete.code, 3);
    EXPECT_EQ(complete.text, QStringLiteral("  .Asha"));
    EXPECT_EQ(complete.refusal, QString());
    const ListItem incomplete = StudentItem({3, QStringLiteral("Asha")}, false);
    EXPECT_EQ(incomplete.text, QStringLiteral(". Asha"));
    EXPECT_EQ(incomplete.refusal,
              QStringLiteral("'Classwise Mark Entry' Is Not Made For This Student - . Asha"));
}

TEST_F(RankCards, ListingAndShowingRunAsManyStatementsForManyStudentsAsForFew)
{
    school.AddUsualDivision(2);
    std::vector<int> students;
    const auto statements = [&](int count) {
        while (static_cast<int>(students.size()) < count)
            students.push_back(school.AddMarkedStudent(QStringLiteral("Student"), {60, 70}));
        const auto before = school.main.StatementsRun();
        EXPECT_EQ(Complete({1}), std::vector<bool>(students.size(), true));
        EXPECT_EQ(Show(students, {1, 3, 7}).lines, count);
        return school.main.StatementsRun() - before;
    };
    const auto few = statements(2);
    EXPECT_EQ(statements(1200), few);
    EXPECT_LE(few, 13U) << "nine readings, and the two moments they are of";
}

} // namespace
} // namespace tally::test
