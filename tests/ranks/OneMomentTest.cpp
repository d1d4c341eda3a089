#include "support/OneMoment.h"

#include "core/Numbers.h"
#include "ranks/RankCardRepository.h"
#include "ranks/RankScreen.h"

namespace tally::test {
namespace {

/// What ranks and cards are made from, while another client changes all of it at once.
class RanksOfOneMoment : public RankScreen
{
protected:
    void SetUp() override
    {
        RankScreen::SetUp();
        school->AddUsualDivision(1);
        school->AddSubject(1, 2, "Art", 2, "Yes", 100, 0);
        school->AddMarkedStudent(QStringLiteral("0"), {0});
        Given("INSERT INTO TempRankTotal VALUES (1, 1, 1, 1, 1, 0, 0, 0, '0')");
        store::Transaction transaction(*Session().gcnnMain);
        Lay(transaction, 0);
        transaction.Commit();
    }

    /// In every table something tells the state: a name, a number, or how many rows there are.
    static void Lay(store::Transaction& transaction, int state)
    {
        for (const char* change : {"UPDATE ClassDivisionMaster SET ClassName = ?1 WHERE ClassCode = 1",
                                   "UPDATE ClassDivisionDetails SET DivisionName = ?1 WHERE ClassCode = 1",
                                   "UPDATE StudentMaster SET StudentName = ?1 WHERE StudentCode = 1",
                                   "UPDATE ExamMaster SET ExamName = ?1 WHERE ExamCode = 1",
                                   "UPDATE SubjectMaster SET SubjectShortName = ?1 WHERE SubjectCode = 1",
                                   "UPDATE ClassSubjectTeacher SET MaximumAllowed = ?1 WHERE SubjectCode = 1",
                                   "UPDATE RankMaster SET Grade = ?1", "UPDATE MarkMaster SET Mark = ?1",
                                   "UPDATE TempRankTotal SET Grade = ?1"})
            transaction.Execute(QString::fromLatin1(change), QString::number(state));
        transaction.Execute(
            QStringLiteral("UPDATE ClassSubjectTeacher SET TakenForRank = ? WHERE SubjectCode = 2"),
            state == 1 ? "Yes" : "No");
        if (state == 1) {
            transaction.Execute(
                QStringLiteral("INSERT INTO RankMaster VALUES (1, 1, 1, 1, 0, 0, '1', 5, 0)"));
            transaction.Execute(
                QStringLiteral("INSERT INTO MarkMaster VALUES (1, 1, 1, 1, 1, 2, 1, 'P', 0, 0)"));
        } else {
            transaction.Execute(QStringLiteral("DELETE FROM RankMaster WHERE Status = 5"));
            transaction.Execute(QStringLiteral("DELETE FROM MarkMaster WHERE SubjectCode = 2"));
        }
    }

    /// `load` on the session's connection.
    void Expect(const std::function<QStringList()>& load) { ExpectOneMoment(*AnotherClient(), Lay, load); }

    RankCardRepository Cards() { return RankCardRepository(*Session().gcnnMain); }

    const SchoolScope division{1, 0, 1, 1};
};

TEST_F(RanksOfOneMoment, TheListIsComputedFromOneMoment)
{
    Expect([&] {
        const RankInput input = school->Input();
        return QStringList{input.className,
                           input.students.front().studentName,
                           input.subjects.front().shortName,
                           PlainNumber(input.marks.front().mark),
                           input.gradeTable.front().grade,
                           input.grades.front(),
                           PlainNumber(input.fullMarks.front().value_or(0))};
    });
}

TEST_F(RanksOfOneMoment, TheDivisionsAreListedAsOfOneMoment)
{
    Expect([&] {
        const DivisionFacts facts = school->Divisions().LoadDivisionFacts(school->scope).front();
        return QStringList{facts.division.divisionName, QString::number(facts.gradeBands - 4),
                           QString::number(facts.completeSubjects - 1),
                           QString::number(facts.subjectsTakenForRank - 1)};
    });
}

TEST_F(RanksOfOneMoment, TheCardsAreOfOneMoment)
{
    Expect([&] {
        const RankCardInput input = Cards().LoadRankCards(division, {1}, {1}, SubjectDisplay::All);
        return QStringList{input.className,
                           input.students.front().studentName,
                           input.exams.front().examName,
                           input.subjects.front().shortName,
                           PlainNumber(input.marks.front().mark),
                           input.ranks.front().grade};
    });
}

TEST_F(RanksOfOneMoment, TheStudentsAreListedAsOfOneMoment)
{
    Expect([&] {
        const StudentListInput input = Cards().LoadStudentList(division);
        return QStringList{input.students.front().studentName,
                           QString::number(input.counts.front().marks - 1)};
    });
}

} // namespace
} // namespace tally::test
