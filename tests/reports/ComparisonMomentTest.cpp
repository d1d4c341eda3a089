#include "core/Numbers.h"
#include "ranks/RankCardSchool.h"
#include "reports/ComparisonRepository.h"
#include "support/OneMoment.h"
#include "support/ScreenFixture.h"

namespace tally::test {
namespace {

/// What exams and years are compared by, while another client changes all of it at once.
class ComparisonsOfOneMoment : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        school = std::make_unique<TestSchool>(*Session().gcnnMain, *Session().gcnnTemp);
        school->AddDivision(1, "A");
        school->AddSubject(1, 1, "0", 1);
        school->AddSubject(1, 2, "Art", 2);
        school->AddMarkedStudent(QStringLiteral("Asha"), {0});
        store::Transaction transaction(*Session().gcnnMain);
        Lay(transaction, 0);
        transaction.Commit();
    }
    void TearDown() override
    {
        school.reset();
        ScreenFixture::TearDown();
    }

    /// Names and marks tell the state, and whether the second subject has a mark.
    static void Lay(store::Transaction& transaction, int state)
    {
        for (const char* change : {"UPDATE SubjectMaster SET SubjectShortName = ?1, SubjectName = ?1 WHERE "
                                   "SubjectCode = 1",
                                   "UPDATE MarkMaster SET Mark = ?1"})
            transaction.Execute(QString::fromLatin1(change), QString::number(state));
        transaction.Execute(QStringLiteral("DELETE FROM MarkMaster WHERE SubjectCode = 2"));
        if (state == 1)
            transaction.Execute(
                QStringLiteral("INSERT INTO MarkMaster VALUES (1, 1, 1, 1, 1, 2, 1, 'P', 0, 0)"));
    }

    void Expect(const std::function<QStringList()>& load) { ExpectOneMoment(*AnotherClient(), Lay, load); }

    ComparisonRepository Repository() { return ComparisonRepository(*Session().gcnnMain); }

    static QStringList States(const SubjectListInput& input)
    {
        return {input.subjects.front().second, QString::number(input.entered.size() - 1)};
    }
    static QStringList States(const ComparisonInput& input)
    {
        return {input.subjects.front().second, PlainNumber(input.marks.front().mark)};
    }

    std::unique_ptr<TestSchool> school;
    const SchoolScope scope{1, 0, 1, 1};
};

TEST_F(ComparisonsOfOneMoment, TheSubjectsOfADivisionAreListedAsOfOneMoment)
{
    Expect([&] { return States(Repository().LoadDivisionSubjects(scope, {1}, SubjectDisplay::All)); });
}

TEST_F(ComparisonsOfOneMoment, TheSubjectsOfAStudentAreListedAsOfOneMoment)
{
    Expect([&] { return States(Repository().LoadStudentSubjects(scope, 1, {1}, SubjectDisplay::All)); });
}

TEST_F(ComparisonsOfOneMoment, TheSubjectsOfHisYearsAreListedAsOfOneMoment)
{
    Expect([&] { return States(Repository().LoadYearSubjects(1, 1, {1})); });
}

TEST_F(ComparisonsOfOneMoment, TheMarksOfADivisionAreOfOneMoment)
{
    Expect([&] { return States(Repository().LoadDivisionMarks(scope, {1}, {1}, SubjectDisplay::All)); });
}

TEST_F(ComparisonsOfOneMoment, TheMarksOfAStudentAreOfOneMoment)
{
    Expect([&] { return States(Repository().LoadStudentMarks(scope, 1, {1}, {1}, SubjectDisplay::All)); });
}

TEST_F(ComparisonsOfOneMoment, TheMarksOfHisYearsAreOfOneMoment)
{
    Expect([&] { return States(Repository().LoadYearMarks(1, 1, {1}, {1})); });
}

} // namespace
} // namespace tally::test
