#include "exams/GradeSetupRepository.h"

#include "store/StoreError.h"
#include "support/Neighbours.h"
#include "support/TestSchool.h"

#include <gtest/gtest.h>
#include <string>

namespace tally::test {
namespace {

/// Divisions A and B of a class, A with a table for the exam.
class GradeSetupRepositoryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        school.AddDivision(1, "A");
        school.AddDivision(2, "B");
        school.AddBand(1, 80, 50, "A", 1);
        school.AddBand(1, 60, 40.5, "B", 2);
        school.AddBand(1, 0, 0, "C", 3);
    }

    static std::string ToText(const std::vector<GradeRecord>& rows)
    {
        QStringList texts;
        for (const GradeRecord& row : rows)
            texts.append(
                QStringLiteral("%1 %2 %3")
                    .arg(QString::number(row.totalAverage), QString::number(row.subjectAverage), row.grade));
        return texts.join(QStringLiteral("; ")).toStdString();
    }
    std::string RowsOf(const SchoolScope& scope) { return ToText(grades.Rows(scope)); }

    void GivenMark()
    {
        school.AddSubject(1, 1, "Eng", 1);
        school.EnterMark(school.AddStudent(1, QStringLiteral("Asha")), 1, 40);
    }

    /// What the work gives that runs in one transaction.
    template <typename Work>
    QString Write(const Work& work)
    {
        store::Transaction transaction(school.main);
        QString reason = work(transaction);
        transaction.Commit();
        return reason;
    }
    QString Save(const std::vector<GradeRecord>& found, const std::vector<GradeRecord>& rows)
    {
        return Write(
            [&](store::Transaction& transaction) { return SaveGrades(transaction, A, found, rows); });
    }
    QString Delete(const std::vector<GradeRecord>& found)
    {
        return Write([&](store::Transaction& transaction) { return DeleteGrades(transaction, A, found); });
    }

    TestSchool school;
    GradeSetupRepository grades{school.main};
    const SchoolScope A{1, 1, 1, 1};
    const SchoolScope B{1, 1, 1, 2};
    const std::vector<GradeRecord> Usual{{80, 50, "A"}, {60, 40.5, "B"}, {0, 0, "C"}};
    const std::vector<GradeRecord> Other{{45, 35, "P"}, {0, 0, "F"}};
};

TEST_F(GradeSetupRepositoryTest, TheRowsComeByTheirPlaceWhateverTheAverages)
{
    EXPECT_EQ(RowsOf(A), "80 50 A; 60 40.5 B; 0 0 C");
    school.main.Execute(QStringLiteral("UPDATE RankMaster SET Status = 4 - Status"));
    EXPECT_EQ(RowsOf(A), "0 0 C; 60 40.5 B; 80 50 A");
}

TEST_F(GradeSetupRepositoryTest, ADivisionWithoutTableHasNoRows)
{
    EXPECT_EQ(RowsOf(B), "");
}

TEST_F(GradeSetupRepositoryTest, TheDivisionsWithATableAreThoseOfTheExam)
{
    EXPECT_EQ(grades.DivisionsWithTable(A), (std::set<int>{1}));
    school.AddBand(2, 0, 0, "P", 1);
    EXPECT_EQ(grades.DivisionsWithTable({1, 1, 1, 0}), (std::set<int>{1, 2}));
    EXPECT_EQ(grades.DivisionsWithTable({1, 2, 1, 0}), std::set<int>());
}

TEST_F(GradeSetupRepositoryTest, OneMarkOfTheExamIsAMark)
{
    EXPECT_FALSE(grades.HasMarks(A));
    GivenMark();
    EXPECT_TRUE(grades.HasMarks(A));
    EXPECT_FALSE(grades.HasMarks(B));
}

TEST_F(GradeSetupRepositoryTest, NeighboursOnAllSidesAreNeverRead)
{
    GivenMark();
    school.AddBand(2, 0, 0, "P", 1);
    const auto all = [this] {
        return RowsOf(A) + '|' + RowsOf(B) + '|' + std::to_string(grades.DivisionsWithTable(A).size()) +
               (grades.HasMarks(A) ? " marks " : " ") + (grades.HasMarks(B) ? "marks" : "");
    };
    const std::string alone = all();
    AddNeighbours(school.main, {Side::Year, Side::Exam, Side::Class});
    EXPECT_EQ(all(), alone);
}

TEST_F(GradeSetupRepositoryTest, MarksOfNeighboursAreNoMarks)
{
    GivenMark();
    AddNeighbours(school.main);
    school.main.Execute(QStringLiteral("DELETE FROM MarkMaster WHERE AcademicYearCode = 1 AND ExamCode = 1 "
                                       "AND ClassCode = 1 AND DivisionCode = 1"));
    EXPECT_FALSE(grades.HasMarks(A));
}

TEST_F(GradeSetupRepositoryTest, EachReadIsOneStatement)
{
    const auto before = school.main.StatementsRun();
    grades.DivisionsWithTable(A);
    EXPECT_EQ(school.main.StatementsRun() - before, 1U);
    grades.Rows(A);
    EXPECT_EQ(school.main.StatementsRun() - before, 2U);
}

TEST_F(GradeSetupRepositoryTest, AReplacedTableTouchesNoOtherOne)
{
    GivenMark();
    school.AddBand(2, 0, 0, "P", 1);
    AddNeighbours(school.main);
    const AllRows before(school.main);
    Write([&](store::Transaction& transaction) {
        GradeSetupRepository::Replace(transaction, A, Other);
        return QString();
    });
    EXPECT_EQ(RowsOf(A), "45 35 P; 0 0 F");
    before.ExpectTouchedOnly(
        school.main, "RankMaster",
        {{"AcademicYearCode", "1"}, {"ExamCode", "1"}, {"ClassCode", "1"}, {"DivisionCode", "1"}});
}

TEST_F(GradeSetupRepositoryTest, ADeletedTableTouchesNoOtherOne)
{
    school.AddBand(2, 0, 0, "P", 1);
    AddNeighbours(school.main);
    const AllRows before(school.main);
    Write([&](store::Transaction& transaction) {
        GradeSetupRepository::Delete(transaction, A);
        return QString();
    });
    EXPECT_EQ(RowsOf(A), "");
    before.ExpectTouchedOnly(
        school.main, "RankMaster",
        {{"AcademicYearCode", "1"}, {"ExamCode", "1"}, {"ClassCode", "1"}, {"DivisionCode", "1"}});
}

TEST_F(GradeSetupRepositoryTest, TheRowsAreNumberedFromOneAndOnlyACopyNamesItsUser)
{
    const auto stored = [this] {
        QStringList rows;
        auto found = school.main.Query(
            QStringLiteral("SELECT Status, Grade, UserCode FROM RankMaster WHERE DivisionCode = 2 "
                           "ORDER BY Status"));
        while (found.Next())
            rows.append(QStringLiteral("%1 %2 %3")
                            .arg(found.Int(0))
                            .arg(found.Text(1), found.IsNull(2) ? QStringLiteral("-") : found.Text(2)));
        return rows.join(QStringLiteral("; ")).toStdString();
    };
    const auto replace = [this](std::optional<int> user) {
        Write([&](store::Transaction& transaction) {
            GradeSetupRepository::Replace(transaction, B, Other, user);
            return QString();
        });
    };
    replace({});
    EXPECT_EQ(stored(), "1 P -; 2 F -");
    replace(7);
    EXPECT_EQ(stored(), "1 P 7; 2 F 7");
}

TEST_F(GradeSetupRepositoryTest, ATableOfAnExamThatIsGoneIsAConflict)
{
    for (const SchoolScope& gone : {SchoolScope{9, 1, 1, 1}, SchoolScope{1, 9, 1, 1}, SchoolScope{1, 1, 9, 1},
                                    SchoolScope{1, 1, 1, 9}}) {
        store::Transaction transaction(school.main);
        try {
            GradeSetupRepository::Replace(transaction, gone, Other);
            transaction.Commit();
            ADD_FAILURE() << "stored";
        } catch (const store::StoreError& error) {
            EXPECT_TRUE(error.IsConflict());
        }
    }
}

TEST_F(GradeSetupRepositoryTest, AGradeOfThreeSignsIsNotStored)
{
    store::Transaction transaction(school.main);
    EXPECT_THROW(GradeSetupRepository::Replace(transaction, A, {{0, 0, "ABC"}}), store::StoreError);
}

TEST_F(GradeSetupRepositoryTest, ASavedTableTakesThePlaceOfTheOneThatWasFound)
{
    EXPECT_EQ(Save(Usual, Other), QString());
    EXPECT_EQ(RowsOf(A), "45 35 P; 0 0 F");
}

TEST_F(GradeSetupRepositoryTest, AFirstTableIsSavedWhereThereIsNone)
{
    EXPECT_EQ(Delete(Usual), QString());
    EXPECT_EQ(Save({}, Other), QString());
    EXPECT_EQ(RowsOf(A), "45 35 P; 0 0 F");
}

TEST_F(GradeSetupRepositoryTest, ATableWhoseExamHasMarksStays)
{
    GivenMark();
    EXPECT_EQ(Save(Usual, Other), GradesHaveMarks);
    EXPECT_EQ(Delete(Usual), GradesHaveMarks);
    EXPECT_EQ(RowsOf(A), "80 50 A; 60 40.5 B; 0 0 C");
}

TEST_F(GradeSetupRepositoryTest, AFirstTableDoesNotTakeThePlaceOfOneEnteredMeanwhile)
{
    EXPECT_EQ(Save({}, Other).toStdString(),
              "This 'Classwise Rank-Grade Setup' Was Entered By Another User Meanwhile.\n"
              "You Cannot Save This Data.");
    EXPECT_EQ(RowsOf(A), "80 50 A; 60 40.5 B; 0 0 C");
}

TEST_F(GradeSetupRepositoryTest, ATableChangedOrDeletedMeanwhileStaysSo)
{
    const QString was = QStringLiteral("This 'Classwise Rank-Grade Setup' Was %1 By Another User Meanwhile.\n"
                                       "You Cannot %2 This Data.");
    school.main.Execute(QStringLiteral("UPDATE RankMaster SET SubjectAverage = 41 WHERE Grade = 'B'"));
    EXPECT_EQ(Save(Usual, Other), was.arg(QStringLiteral("Changed"), QStringLiteral("Save")));
    EXPECT_EQ(Delete(Usual), was.arg(QStringLiteral("Changed"), QStringLiteral("Delete")));
    EXPECT_EQ(RowsOf(A), "80 50 A; 60 41 B; 0 0 C");
    school.main.Execute(QStringLiteral("DELETE FROM RankMaster"));
    EXPECT_EQ(Save(Usual, Other), was.arg(QStringLiteral("Deleted"), QStringLiteral("Save")));
    EXPECT_EQ(Delete(Usual), was.arg(QStringLiteral("Deleted"), QStringLiteral("Delete")));
    EXPECT_EQ(RowsOf(A), "");
}

TEST_F(GradeSetupRepositoryTest, EachFigureAndGradeCountsAsAChange)
{
    for (const char* change : {"TotalAverage = 61", "SubjectAverage = 41", "Grade = 'D'"}) {
        const store::Transaction undone(school.main);
        school.main.Execute(
            QStringLiteral("UPDATE RankMaster SET %1 WHERE Grade = 'B'").arg(QString::fromLatin1(change)));
        EXPECT_NE(Save(Usual, Other), QString()) << change;
    }
}

} // namespace
} // namespace tally::test
