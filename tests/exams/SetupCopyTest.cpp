#include "exams/CopySchool.h"
#include "exams/GradeSetupRepository.h"
#include "exams/SetupCopyRepository.h"
#include "exams/SubjectSetupRepository.h"
#include "exams/SubjectSetupSave.h"
#include "store/StoreError.h"
#include "support/Neighbours.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {
namespace {

constexpr int Clerk = 5;
const std::string Usual = "Maths Sen 50/50 No 1; English Rao 100/80 Yes 2";

std::string TextsOf(const CodedTexts& list)
{
    QStringList texts;
    for (const auto& [code, text] : list)
        texts.append(QStringLiteral("%1=%2").arg(QString::number(code), text));
    return texts.join(QLatin1Char('|')).toStdString();
}

/// "1=.A|2=B"; those that can't be chosen with a bang.
std::string TextsOf(const std::vector<ListItem>& items)
{
    QStringList texts;
    for (const ListItem& item : items)
        texts.append(QStringLiteral("%1=%2%3").arg(QString::number(item.code), item.text,
                                                   item.refusal.isEmpty() ? QString() : QStringLiteral("!")));
    return texts.join(QLatin1Char('|')).toStdString();
}

TEST(SetupCopyRules, ADivisionThatIsSetUpCarriesTheMarkOfWhatIsCopiedAndSaysWhyItCannotBeChosen)
{
    const CodedTexts divisions{{2, QStringLiteral("A")}, {1, QStringLiteral("B")}};
    EXPECT_EQ(TextsOf(CopyItems(SubjectCopy, divisions, {2})), "2=.A!|1=B");
    EXPECT_EQ(TextsOf(CopyItems(GradeCopy, divisions, {1, 7})), "2=A|1=# B!");
    EXPECT_EQ(TextsOf(CopyItems(GradeCopy, divisions, {})), "2=A|1=B");
    EXPECT_EQ(CopyItems(SubjectCopy, divisions, {2})[0].refusal.toStdString(),
              "'Classwise Subject-Teacher-Mark Entry' Already Exists For This Division");
    EXPECT_EQ(CopyItems(GradeCopy, divisions, {2})[0].refusal.toStdString(),
              "'Classwise Rank-Grade Setup' Already Exists For This Division");
}

TEST(SetupCopyRules, OneSubjectIsNoSetUpYet)
{
    const TaughtSubject one;
    EXPECT_EQ(SetUpDivisions({{1, {one}}, {2, {one, one}}, {3, {}}, {4, {one, one, one}}}),
              (std::set<int>{2, 4}));
    EXPECT_EQ(SetUpDivisions({}), std::set<int>());
}

TEST(SetupCopyRules, TheTextsAreThoseThatTheOfficeKnows)
{
    EXPECT_EQ(NotMade(SubjectCopy).toStdString(),
              "'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Selected Combination");
    EXPECT_EQ(NotMade(GradeCopy).toStdString(),
              "'Classwise Rank-Grade Setup' Is Not Made For The Selected Combination");
    EXPECT_EQ(AlreadyExistsWhileTicking(GradeCopy).toStdString(),
              "Classwise Rank-Grade Setup' Already Exists For This Division");
    EXPECT_EQ(TablesEnteredMeanwhile({QStringLiteral("B"), QStringLiteral("C")}).toStdString(),
              "'Classwise Rank-Grade Setup' Of Division(s) B, C Was Entered By Another User Meanwhile.\n"
              "You Cannot Save This Data.");
}

class SetupCopyTest : public testing::Test
{
protected:
    SetupCopyRepository Repository() { return SetupCopyRepository(main); }
    CopyChoices Choices(int year = ThisYear) { return Repository().Choices(year); }
    void Run(const char* sql) { main.Execute(QString::fromLatin1(sql)); }
    /// What the clerk is told; empty when it is stored.
    std::string CopyGrades(const SchoolScope& from, const SchoolScope& to, const std::vector<int>& divisions)
    {
        store::Transaction transaction(main);
        const QString told =
            SaveGradeCopy(transaction, to, divisions, GradeSetupRepository(main).Rows(from), Clerk);
        transaction.Commit();
        return told.toStdString();
    }
    /// The same as the divisions were listed before `meanwhile`.
    std::string CopySubjects(const SchoolScope& from, const SchoolScope& to, const char* meanwhile = nullptr)
    {
        SubjectTargets targets = Repository().TargetsOfSubjects(to);
        const std::vector<TaughtSubject> source = SubjectSetupRepository(main).Read(from);
        if (meanwhile)
            Run(meanwhile);
        store::Transaction transaction(main);
        const auto refusal = ReplaceSubjects(transaction, to, targets.subjects[to.divisionCode], source);
        transaction.Commit();
        return refusal ? refusal->text.toStdString() : std::string();
    }

    store::Connection main = DeliveredMainStore();
    CopySchool school{main};
};

TEST_F(SetupCopyTest, TheCurrentYearAloneIsASourceAndTheYearThatFollowsItIsATargetToo)
{
    EXPECT_EQ(TextsOf(Choices().fromYears), "7=2024 - 2025");
    EXPECT_EQ(TextsOf(Choices().toYears), "7=2024 - 2025|9=2025 - 2026");
    EXPECT_EQ(TextsOf(Choices(NextYear).fromYears), "9=2025 - 2026");
    EXPECT_EQ(TextsOf(Choices(NextYear).toYears), "9=2025 - 2026|3=2026 - 2027");
    EXPECT_EQ(TextsOf(Choices(YearBehind).toYears), "3=2026 - 2027");
}

TEST_F(SetupCopyTest, AYearThatDoesNotBeginTheDayAfterTheCurrentOneIsNotTheNext)
{
    Run("UPDATE AcademicYearSetup SET FromDate = '2025-06-02' WHERE AcademicYearCode = 9");
    EXPECT_EQ(TextsOf(Choices().toYears), "7=2024 - 2025");
    Run("UPDATE AcademicYearSetup SET FromDate = '2025-06-01', YearFrom = 2026 WHERE AcademicYearCode = 9");
    EXPECT_EQ(TextsOf(Choices().toYears), "7=2024 - 2025");
}

TEST_F(SetupCopyTest, WithoutACurrentYearThereIsNone)
{
    for (const int year : {0, 99}) {
        EXPECT_EQ(TextsOf(Choices(year).fromYears), "");
        EXPECT_EQ(TextsOf(Choices(year).toYears), "");
    }
}

TEST_F(SetupCopyTest, ClassesAndExamsComeInTheirOrder)
{
    EXPECT_EQ(TextsOf(Choices().classes), "2=IX|1=X");
    EXPECT_EQ(TextsOf(Choices().exams), "0= |1=Term One|2=Term Two");
}

TEST_F(SetupCopyTest, ADivisionIsMarkedForMoreThanOneSubjectOfTheYearAndForNothingElse)
{
    school.SetUpSubjects(TenA);
    school.AddSubject(TenB, 3, 1);
    school.SetUpSubjects(InNextYear(TenC));
    school.SetUpSubjects(NineB);
    school.SetUpGrades(TenC);
    EXPECT_EQ(TextsOf(Repository().TargetsOfSubjects(TenA).items), "1=.A!|2=B|3=C");
    EXPECT_EQ(TextsOf(Repository().TargetsOfSubjects(InNextYear(TenA)).items), "1=A|2=B|3=.C!");
    EXPECT_EQ(TextsOf(Repository().TargetsOfSubjects(NineB).items), "1=A|2=.B!");
}

TEST_F(SetupCopyTest, ADivisionIsMarkedForASingleGradeOfTheExamInTheYearAndForNothingElse)
{
    school.AddGrade(TenA, 0, 0, "D", 1);
    school.SetUpGrades(InTermTwo(TenB));
    school.SetUpGrades(InNextYear(TenC));
    school.SetUpGrades(NineB);
    school.SetUpSubjects(TenC);
    EXPECT_EQ(TextsOf(Repository().TargetsOfGrades(TenA)), "1=# A!|2=B|3=C");
    EXPECT_EQ(TextsOf(Repository().TargetsOfGrades(InTermTwo(TenA))), "1=A|2=# B!|3=C");
    EXPECT_EQ(TextsOf(Repository().TargetsOfGrades(InNextYear(TenA))), "1=A|2=B|3=# C!");
    EXPECT_EQ(TextsOf(Repository().TargetsOfGrades(NineB)), "1=A|2=# B!");
}

TEST_F(SetupCopyTest, TheSubjectsOfATargetAreReadAsTheyAreStored)
{
    school.SetUpSubjects(TenA);
    SubjectTargets targets = Repository().TargetsOfSubjects(TenA);
    ASSERT_EQ(targets.subjects[1].size(), 2U);
    const TaughtSubject& english = targets.subjects[1][0];
    EXPECT_EQ(english.subjectCode, 1);
    EXPECT_EQ(english.teacherCode, 1);
    EXPECT_EQ(english.maximumMark, 100);
    EXPECT_EQ(english.maximumAllowed, 80);
    EXPECT_EQ(english.takenForRank, YesText);
    EXPECT_EQ(english.slNo, 2);
    EXPECT_EQ(targets.subjects.count(2), 0U);
}

TEST_F(SetupCopyTest, ListsTakeAsManyStatementsForManyDivisionsAsForOne)
{
    const auto statements = [this](const SchoolScope& scope) {
        const auto before = main.StatementsRun();
        Repository().TargetsOfSubjects(scope);
        Repository().TargetsOfGrades(scope);
        return main.StatementsRun() - before;
    };
    const auto few = statements(TenA);
    for (int division = 4; division < 60; ++division) {
        main.Execute(QStringLiteral("INSERT INTO ClassDivisionDetails VALUES (1, ?, ?)"),
                     QString::number(division), division);
        school.SetUpSubjects({ThisYear, 1, 1, division});
        school.SetUpGrades({ThisYear, 1, 1, division});
    }
    EXPECT_EQ(statements(TenA), few);
}

TEST_F(SetupCopyTest, CopiedSubjectsKeepTheirOrderTheirMaximumMarksAndTheirRank)
{
    school.SetUpSubjects(TenA);
    EXPECT_EQ(CopySubjects(TenA, InNextYear(TenB)), "");
    EXPECT_EQ(school.Subjects(InNextYear(TenB)), Usual);
    EXPECT_EQ(school.Subjects(TenA), Usual);
}

TEST_F(SetupCopyTest, ACopyReplacesTheOneSubjectOfItsTarget)
{
    school.SetUpSubjects(TenA);
    school.AddSubject(TenB, 3, 1);
    EXPECT_EQ(CopySubjects(TenA, TenB), "");
    EXPECT_EQ(school.Subjects(TenB), Usual);
}

TEST_F(SetupCopyTest, ASourceWithOneSubjectReplacesTheOneSubjectOfItsTarget)
{
    school.AddSubject(TenA, 1, 4, 60);
    school.AddSubject(TenB, 3, 1);
    EXPECT_EQ(CopySubjects(TenA, TenB), "");
    EXPECT_EQ(school.Subjects(TenB), "English Rao 60/60 Yes 4");
}

TEST_F(SetupCopyTest, SubjectsEnteredAtTheTargetMeanwhileAreNotReplaced)
{
    school.SetUpSubjects(TenA);
    EXPECT_EQ(
        CopySubjects(TenA, TenB, "INSERT INTO ClassSubjectTeacher VALUES (7, 1, 2, 3, 1, 9, 9, 'No', 1)"),
        "Subjects Of This Class-Division Were Entered By Another User Meanwhile.\n"
        "You Cannot Save This Data.");
    EXPECT_EQ(school.Subjects(TenB), "Art Rao 9/9 No 1");
}

TEST_F(SetupCopyTest, TheOneSubjectOfATargetThatWasChangedMeanwhileIsNotReplaced)
{
    school.SetUpSubjects(TenA);
    school.AddSubject(TenB, 3, 1);
    const std::string told = "Subjects Of This Class-Division Were Changed By Another User Meanwhile.\n"
                             "You Cannot Save This Data.";
    for (const char* column : {"SubjectCode = 2", "TeacherCode = 2", "MaximumMark = 7", "MaximumAllowed = 7",
                               "TakenForRank = 'No'", "SlNo = 7"}) {
        store::Transaction around(main);
        const QString change = QStringLiteral("UPDATE ClassSubjectTeacher SET %1 WHERE DivisionCode = 2")
                                   .arg(QLatin1String(column));
        EXPECT_EQ(CopySubjects(TenA, TenB, change.toLatin1().constData()), told) << column;
    }
    EXPECT_EQ(school.Subjects(TenB), "Art Rao 100/100 Yes 1");
}

TEST_F(SetupCopyTest, TheOneSubjectOfATargetThatHasMarksIsNotLost)
{
    school.SetUpSubjects(TenA);
    school.AddSubject(TenB, 3, 1);
    school.EnterMark(TenB, 3, 45);
    EXPECT_EQ(CopySubjects(TenA, TenB),
              "Already Marks Are Entered For This Class-Division-Subject(s). So You Can't Delete");
    EXPECT_EQ(school.Subjects(TenB), "Art Rao 100/100 Yes 1");
}

TEST_F(SetupCopyTest, NoMarkStandsAboveWhatACopyAllows)
{
    school.AddSubject(TenA, 1, 1, 40);
    school.EnterMark(TenB, 1, 45);
    EXPECT_EQ(CopySubjects(TenA, TenB), "'Maximum Allowed' Marks Should Not Be Lesser Than Mark (45) Entered "
                                        "In 'Classwise Mark Entry'");
    EXPECT_EQ(school.Subjects(TenB), "");
}

TEST_F(SetupCopyTest, ASubjectCopyTouchesItsTargetAndNothingElse)
{
    school.SetUpSubjects(TenA);
    school.AddSubject(TenB, 3, 1);
    AddNeighbours(main);
    const AllRows before(main);
    EXPECT_EQ(CopySubjects(TenA, TenB), "");
    before.ExpectTouchedOnly(main, "ClassSubjectTeacher",
                             {{QStringLiteral("AcademicYearCode"), QStringLiteral("7")},
                              {QStringLiteral("ClassCode"), QStringLiteral("1")},
                              {QStringLiteral("DivisionCode"), QStringLiteral("2")}});
}

TEST_F(SetupCopyTest, ATableIsCopiedToEachDivisionWithItsRowsInTheirOrderAndTheUser)
{
    school.AddGrade(TenA, 60, 40, "B", 5);
    school.AddGrade(TenA, 80, 50, "A", 2);
    school.AddGrade(TenA, 0, 0, "D", 9);
    EXPECT_EQ(CopyGrades(TenA, InTermTwo(TenA), {1, 3}), "");
    const std::string copied = "80/50 A 1 5; 60/40 B 2 5; 0/0 D 3 5";
    EXPECT_EQ(school.Grades(InTermTwo(TenA)), copied);
    EXPECT_EQ(school.Grades(InTermTwo(TenB)), "");
    EXPECT_EQ(school.Grades(InTermTwo(TenC)), copied);
    EXPECT_EQ(school.Grades(TenA), "80/50 A 2 -; 60/40 B 5 -; 0/0 D 9 -");
}

TEST_F(SetupCopyTest, WhereOneOfTheDivisionsHasGotATableMeanwhileNoneIsStored)
{
    school.SetUpGrades(TenA);
    school.AddGrade(TenB, 0, 0, "Z", 1);
    const AllRows before(main);
    EXPECT_EQ(CopyGrades(TenA, TenA, {2, 3}),
              "'Classwise Rank-Grade Setup' Of Division(s) B Was Entered By Another User Meanwhile.\n"
              "You Cannot Save This Data.");
    before.ExpectTouchedOnly(main, "none", {});
    EXPECT_EQ(CopyGrades(TenA, TenA, {3}), "") << "the table of a division that gets none is no hindrance";
}

TEST_F(SetupCopyTest, AGradeCopyReadsNoNamesButForItsRefusal)
{
    school.SetUpGrades(TenA);
    const auto statements = [this](int division) {
        const auto before = main.StatementsRun();
        CopyGrades(TenA, TenA, {division});
        return main.StatementsRun() - before;
    };
    // Reads the source, begins, asks who has a table, deletes, inserts twice, commits.
    EXPECT_EQ(statements(2), 7U);
}

TEST_F(SetupCopyTest, AGradeCopyTouchesItsTargetsAndNothingElse)
{
    school.SetUpGrades(TenA);
    AddNeighbours(main);
    const AllRows before(main);
    EXPECT_EQ(CopyGrades(TenA, InTermTwo(TenB), {2}), "");
    before.ExpectTouchedOnly(main, "RankMaster",
                             {{QStringLiteral("AcademicYearCode"), QStringLiteral("7")},
                              {QStringLiteral("ExamCode"), QStringLiteral("2")},
                              {QStringLiteral("ClassCode"), QStringLiteral("1")},
                              {QStringLiteral("DivisionCode"), QStringLiteral("2")}});
}

TEST_F(SetupCopyTest, WhateverACopyRefersToMustStillBeThere)
{
    school.SetUpSubjects(TenA);
    school.SetUpGrades(TenA);
    for (const char* gone : {"DELETE FROM ClassDivisionDetails WHERE ClassCode = 2 AND DivisionCode = 1",
                             "DELETE FROM AcademicYearSetup WHERE AcademicYearCode = 9"}) {
        store::Transaction around(main);
        Run(gone);
        try {
            CopyGrades(TenA, InNextYear(NineA), {1});
            ADD_FAILURE() << gone;
        } catch (const store::StoreError& error) {
            EXPECT_TRUE(error.IsConflict()) << error.what();
        }
        EXPECT_THROW(CopySubjects(TenA, InNextYear(NineA)), store::StoreError) << gone;
    }
}

} // namespace
} // namespace tally::test
