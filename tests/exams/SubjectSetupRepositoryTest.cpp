#include "exams/SubjectSetupRepository.h"

#include "exams/SubjectSetupSave.h"
#include "store/StoreError.h"
#include "support/Neighbours.h"
#include "support/TestSchool.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace tally::test {
namespace {

constexpr SchoolScope DivisionA{1, 0, 1, 1};
constexpr SchoolScope DivisionB{1, 0, 1, 2};
const std::set<Side> AllButExams{Side::Year, Side::Class, Side::Division};

/// Division A takes Maths and English, in this order; English has marks of two students, 45 and 30, and an
/// absence. Division B takes nothing.
class SubjectSetupRepositoryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        school.AddDivision(1, "A");
        school.AddDivision(2, "B");
        school.AddSubject(1, 1, "Eng", 2, "No", 100, 60.5);
        school.AddSubject(1, 2, "Mat", 1);
        school.main.Execute(QStringLiteral("INSERT INTO SubjectMaster VALUES (3, 'Art', 'Art', 0)"));
        for (const int teacher : {7, 8})
            school.main.Execute(QStringLiteral("INSERT INTO TeacherMaster (TeacherCode, TeacherName, "
                                               "TeacherShortName) VALUES (?, ?, ?)"),
                                teacher, QStringLiteral("Teacher %1").arg(teacher), QString::number(teacher));
        school.main.Execute(
            QStringLiteral("UPDATE ClassSubjectTeacher SET TeacherCode = 7 WHERE SubjectCode = 1"));
        for (const double mark : {45.0, 30.0})
            school.EnterMark(school.AddStudent(1, QStringLiteral("Student")), 1, mark);
        school.EnterAbsence(school.AddStudent(1, QStringLiteral("Absent")), 1);
    }

    std::string Sets(const SchoolScope& scope)
    {
        QStringList rows;
        for (const TaughtSubject& subject : repository.Read(scope))
            rows.append(QStringLiteral("%1 %2 %3 %4 %5/%6 %7 %8")
                            .arg(QString::number(subject.slNo), QString::number(subject.subjectCode),
                                 subject.subjectName, QString::number(subject.teacherCode),
                                 QString::number(subject.maximumAllowed),
                                 QString::number(subject.maximumMark), subject.takenForRank,
                                 subject.teacherName));
        return rows.join(QStringLiteral("; ")).toStdString();
    }

    template <typename Work>
    auto Write(Work work)
    {
        store::Transaction transaction(school.main);
        auto result = work(transaction);
        transaction.Commit();
        return result;
    }

    std::optional<SubjectRefusal> Replace(const SchoolScope& scope, const std::vector<TaughtSubject>& shown,
                                          const std::vector<TaughtSubject>& wanted)
    {
        return Write([&](store::Transaction& transaction) {
            return ReplaceSubjects(transaction, scope, shown, wanted);
        });
    }
    std::string Delete(const SchoolScope& scope, const std::vector<TaughtSubject>& shown)
    {
        return Write(
                   [&](store::Transaction& transaction) { return DeleteSubjects(transaction, scope, shown); })
            .toStdString();
    }
    /// Refused, and what is stored stays.
    void ExpectRefused(const char* text, const std::vector<TaughtSubject>& shown,
                       const std::vector<TaughtSubject>& wanted, int subjectCode = 0)
    {
        const AllRows before(school.main);
        const auto refusal = Replace(DivisionA, shown, wanted);
        ASSERT_TRUE(refusal);
        EXPECT_EQ(refusal->text.toStdString(), text);
        EXPECT_EQ(refusal->subjectCode, subjectCode);
        EXPECT_EQ(refusal->marks.size(), repository.Marks(DivisionA).size());
        before.ExpectTouchedOnly(school.main, "", {});
    }

    static TaughtSubject Art()
    {
        return {.subjectCode = 3,
                .subjectName = {},
                .teacherCode = 8,
                .teacherName = {},
                .maximumMark = 50,
                .maximumAllowed = 40,
                .takenForRank = YesText,
                .slNo = 3};
    }

    TestSchool school;
    SubjectSetupRepository repository{school.main};
};

TEST_F(SubjectSetupRepositoryTest, TheSubjectsOfADivisionComeInTheirOrder)
{
    EXPECT_EQ(Sets(DivisionA), "1 2 Subject 2 0 100/100 Yes ; 2 1 Subject 1 7 60.5/100 No Teacher 7");
    EXPECT_EQ(Sets(DivisionB), "");
}

TEST_F(SubjectSetupRepositoryTest, TheMarksOfAllSubjectsAndExamsAreCountedTogetherInOneStatement)
{
    school.main.Execute(QStringLiteral("INSERT INTO ExamMaster VALUES (2, 'Term Two', 2, 0)"));
    school.main.Execute(QStringLiteral("INSERT INTO MarkMaster VALUES (1, 1, 2, 1, 1, 1, 58.5, 'P', 0, 0)"));
    const auto statements = school.main.StatementsRun();
    const MarksBySubject marks = repository.Marks(DivisionA);
    EXPECT_EQ(school.main.StatementsRun() - statements, 1U);
    ASSERT_EQ(marks.size(), 1U) << "Maths has no mark";
    EXPECT_EQ(marks.at(1).count, 4) << "an absence is a mark";
    EXPECT_EQ(marks.at(1).highest, 58.5);
    EXPECT_TRUE(repository.Marks(DivisionB).empty());
}

TEST_F(SubjectSetupRepositoryTest, TheListsStandBehindABlankLineByName)
{
    const auto texts = [](const CodedTexts& list) {
        QStringList all;
        for (const auto& [code, name] : list)
            all.append(QString::number(code) + name);
        return all.join(QLatin1Char('|')).toStdString();
    };
    EXPECT_EQ(texts(repository.SubjectsBehindBlank()), "0 |3Art|1Subject 1|2Subject 2");
    school.main.Execute(
        QStringLiteral("UPDATE TeacherMaster SET TeacherName = 'Asha' WHERE TeacherCode = 8"));
    EXPECT_EQ(texts(repository.TeachersBehindBlank()), "0 |8Asha|7Teacher 7");
}

TEST_F(SubjectSetupRepositoryTest, NeighboursOnAllSidesAreNotNoticed)
{
    const auto all = [this] {
        QString text = QString::fromStdString(Sets(DivisionA) + '|' + Sets(DivisionB) + '|');
        for (const auto& [subject, marks] : repository.Marks(DivisionA))
            text += QStringLiteral("%1 %2 %3 ").arg(subject).arg(marks.count).arg(marks.highest);
        return text.toStdString();
    };
    const std::string alone = all();
    AddNeighbours(school.main, AllButExams);
    EXPECT_EQ(all(), alone);
}

TEST_F(SubjectSetupRepositoryTest, AWriteTouchesNothingOutsideItsYearClassAndDivision)
{
    AddNeighbours(school.main, AllButExams);
    const AllRows::Row own{{QStringLiteral("AcademicYearCode"), QStringLiteral("1")},
                           {QStringLiteral("ClassCode"), QStringLiteral("1")},
                           {QStringLiteral("DivisionCode"), QStringLiteral("1")}};
    const AllRows before(school.main);
    const auto shown = repository.Read(DivisionA);
    auto wanted = shown;
    wanted.push_back(Art());
    EXPECT_FALSE(Replace(DivisionA, shown, wanted));
    EXPECT_EQ(Sets(DivisionA), "1 2 Subject 2 0 100/100 Yes ; 2 1 Subject 1 7 60.5/100 No Teacher 7; "
                               "3 3 Art 8 40/50 Yes Teacher 8");
    before.ExpectTouchedOnly(school.main, "ClassSubjectTeacher", own);

    school.main.Execute(QStringLiteral("DELETE FROM MarkMaster WHERE ClassCode = 1 AND DivisionCode = 1 AND "
                                       "AcademicYearCode = 1"));
    const AllRows whole(school.main);
    EXPECT_EQ(Delete(DivisionA, repository.Read(DivisionA)), "");
    EXPECT_EQ(Sets(DivisionA), "");
    whole.ExpectTouchedOnly(school.main, "ClassSubjectTeacher", own);
}

TEST_F(SubjectSetupRepositoryTest, AFirstSetIsStoredAndASecondOneIsNeverAddedToIt)
{
    EXPECT_FALSE(Replace(DivisionB, {}, {Art()}));
    EXPECT_EQ(Sets(DivisionB), "3 3 Art 8 40/50 Yes Teacher 8");
    ExpectRefused("Subjects Of This Class-Division Were Entered By Another User Meanwhile.\n"
                  "You Cannot Save This Data.",
                  {}, {Art()});
}

TEST_F(SubjectSetupRepositoryTest, ASetThatAnotherClientHasChangedMeanwhileIsNotWrittenOver)
{
    const auto shown = repository.Read(DivisionA);
    for (const char* change : {"TeacherCode = 8", "MaximumMark = 90", "MaximumAllowed = 50",
                               "TakenForRank = 'Yes'", "SlNo = 5", "SubjectCode = 3"}) {
        store::Transaction transaction(school.main);
        transaction.Execute(QStringLiteral("UPDATE ClassSubjectTeacher SET %1 WHERE SubjectCode = 1")
                                .arg(QLatin1String(change)));
        const auto refusal = ReplaceSubjects(transaction, DivisionA, shown, shown);
        ASSERT_TRUE(refusal) << change;
        EXPECT_EQ(refusal->text.toStdString(),
                  "Subjects Of This Class-Division Were Changed By Another User Meanwhile.\n"
                  "You Cannot Save This Data.");
    }
    EXPECT_FALSE(Replace(DivisionA, shown, shown)) << "all that was rolled back";
}

TEST_F(SubjectSetupRepositoryTest, TheOrderInWhichASetWasShownIsNoChange)
{
    const auto shown = repository.Read(DivisionA);
    EXPECT_FALSE(Replace(DivisionA, {shown[1], shown[0]}, shown));
}

TEST_F(SubjectSetupRepositoryTest, ASetThatAnotherClientHasDeletedMeanwhileIsNotStoredAgain)
{
    const auto shown = repository.Read(DivisionA);
    school.main.Execute(QStringLiteral("DELETE FROM ClassSubjectTeacher WHERE SubjectCode = 2"));
    ExpectRefused("Subjects Of This Class-Division Were Changed By Another User Meanwhile.\n"
                  "You Cannot Save This Data.",
                  shown, shown);
}

TEST_F(SubjectSetupRepositoryTest, ANameThatWasWrittenAnewInItsMasterChangesNoSet)
{
    const auto shown = repository.Read(DivisionA);
    school.main.Execute(QStringLiteral("UPDATE SubjectMaster SET SubjectName = 'New' WHERE SubjectCode = 1"));
    EXPECT_FALSE(Replace(DivisionA, shown, shown));
}

TEST_F(SubjectSetupRepositoryTest, ASubjectThatGotMarksMeanwhileStaysInTheSet)
{
    const auto shown = repository.Read(DivisionA);
    ASSERT_EQ(shown[1].subjectCode, 1);
    ExpectRefused("Already Marks Are Entered For This Class-Division-Subject(s). So You Can't Delete", shown,
                  {shown[0]}, 1);
    EXPECT_FALSE(Replace(DivisionA, shown, {shown[1]})) << "Maths, which has no mark, may go";
}

TEST_F(SubjectSetupRepositoryTest, ASubjectThatGotMarksMeanwhileKeepsItsTeacherMaximumMarkAndOrder)
{
    const auto shown = repository.Read(DivisionA);
    const auto refuse = [&](auto change) {
        auto wanted = shown;
        change(wanted[1]);
        ExpectRefused("Already Marks Are Entered For This Subject\r\nYou Can Edit Only 'Maximum Allowed' And "
                      "'Taken For Rank' Fields",
                      shown, wanted, 1);
    };
    refuse([](TaughtSubject& subject) { subject.teacherCode = 8; });
    refuse([](TaughtSubject& subject) { subject.maximumMark = 90; });
    refuse([](TaughtSubject& subject) { subject.slNo = 9; });

    auto wanted = shown;
    wanted[1].takenForRank = YesText;
    wanted[1].maximumAllowed = 45;
    EXPECT_FALSE(Replace(DivisionA, shown, wanted));
    EXPECT_EQ(Sets(DivisionA), "1 2 Subject 2 0 100/100 Yes ; 2 1 Subject 1 7 45/100 Yes Teacher 7");
}

TEST_F(SubjectSetupRepositoryTest, NoMarkEverStandsAboveWhatIsAllowed)
{
    const auto shown = repository.Read(DivisionA);
    auto wanted = shown;
    wanted[1].maximumAllowed = 44;
    ExpectRefused("'Maximum Allowed' Marks Should Not Be Lesser Than Mark (45) Entered In 'Classwise Mark "
                  "Entry'",
                  shown, wanted, 1);
}

TEST_F(SubjectSetupRepositoryTest, ASetWithMarksOrChangedMeanwhileIsNotDeleted)
{
    const auto shown = repository.Read(DivisionA);
    for (const auto& seen : {shown, std::vector<TaughtSubject>{shown[0]}})
        EXPECT_EQ(Delete(DivisionA, seen),
                  "Already Marks Are Entered For This Class-Division-Subject(s). So You Can't Delete");
    school.main.Execute(QStringLiteral("DELETE FROM MarkMaster"));
    EXPECT_EQ(Delete(DivisionA, {shown[0]}),
              "Subjects Of This Class-Division Were Changed By Another User Meanwhile.\n"
              "You Cannot Delete This Data.");
    EXPECT_EQ(repository.Read(DivisionA).size(), 2U);
    EXPECT_EQ(Delete(DivisionA, shown), "");
    EXPECT_EQ(repository.Read(DivisionA).size(), 0U);
}

TEST_F(SubjectSetupRepositoryTest, AMasterThatIsGoneIsAConflictAndTheOldSetStays)
{
    const auto shown = repository.Read(DivisionA);
    const auto expectConflict = [&](const SchoolScope& scope, auto change) {
        auto wanted = scope.divisionCode == 1 ? shown : std::vector<TaughtSubject>{};
        wanted.push_back(Art());
        change(wanted.back());
        const auto before = scope.divisionCode == 1 ? shown : std::vector<TaughtSubject>{};
        try {
            static_cast<void>(Replace(scope, before, wanted));
            ADD_FAILURE() << "nothing was refused";
        } catch (const store::StoreError& error) {
            EXPECT_TRUE(error.IsConflict());
            EXPECT_FALSE(error.IsDuplicate());
        }
        EXPECT_EQ(repository.Read(DivisionA).size(), 2U);
    };
    expectConflict(DivisionA, [](TaughtSubject& subject) { subject.subjectCode = 99; });
    expectConflict(DivisionA, [](TaughtSubject& subject) { subject.teacherCode = 99; });
    expectConflict({1, 0, 1, 9}, [](TaughtSubject&) {});
    expectConflict({9, 0, 1, 2}, [](TaughtSubject&) {});
}

TEST_F(SubjectSetupRepositoryTest, AnEditRunsTheSameStatementsForTwelveSubjectsAsForTwo)
{
    const auto run = [this](const std::vector<TaughtSubject>& wanted) {
        const auto shown = repository.Read(DivisionA);
        const auto before = school.main.StatementsRun();
        EXPECT_FALSE(Replace(DivisionA, shown, wanted));
        return school.main.StatementsRun() - before - wanted.size();
    };
    const auto two = repository.Read(DivisionA);
    auto twelve = two;
    for (int code = 11; code <= 20; ++code) {
        school.main.Execute(QStringLiteral("INSERT INTO SubjectMaster VALUES (?, ?, ?, 0)"), code,
                            QStringLiteral("Subject %1").arg(code), QString::number(code));
        twelve.push_back(Art());
        twelve.back().subjectCode = code;
        twelve.back().slNo = code;
    }
    const auto forTwo = run(two);
    EXPECT_EQ(run(twelve), forTwo);
    EXPECT_EQ(run(two), forTwo);
}

} // namespace
} // namespace tally::test
