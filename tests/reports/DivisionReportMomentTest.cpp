#include "core/Numbers.h"
#include "reports/DivisionReportRepository.h"
#include "reports/StudentsListRepository.h"
#include "support/OneMoment.h"
#include "support/ScreenFixture.h"
#include "support/TestSchool.h"

namespace tally::test {
namespace {

/// What the reports over divisions are made from, while another client changes all of it at once.
class DivisionReportsOfOneMoment : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        school = std::make_unique<TestSchool>(*Session().gcnnMain, *Session().gcnnTemp);
        school->AddDivision(1, "A");
        school->AddSubject(1, 1, "0", 1);
        school->AddSubject(1, 2, "Art", 2);
        school->AddMarkedStudent(QStringLiteral("0"), {0});
        school->AddStudent(1, QStringLiteral("1"));
        store::Transaction transaction(*Session().gcnnMain);
        Lay(transaction, 0);
        transaction.Commit();
    }
    void TearDown() override
    {
        school.reset();
        ScreenFixture::TearDown();
    }

    /// Names and marks tell the state, and whether the second student is in the division and has a mark.
    static void Lay(store::Transaction& transaction, int state)
    {
        for (const char* change :
             {"UPDATE SubjectMaster SET SubjectShortName = ?1, SubjectName = ?1 WHERE SubjectCode = 1",
              "UPDATE ClassSubjectTeacher SET MaximumMark = ?1 WHERE SubjectCode = 1",
              "UPDATE MarkMaster SET Mark = ?1",
              "UPDATE StudentMaster SET StudentName = ?1 WHERE StudentCode = 1"})
            transaction.Execute(QString::fromLatin1(change), QString::number(state));
        transaction.Execute(QStringLiteral("DELETE FROM MarkMaster WHERE StudentCode = 2"));
        transaction.Execute(QStringLiteral("DELETE FROM StudentClassDivision WHERE StudentCode = 2"));
        if (state == 0)
            return;
        transaction.Execute(QStringLiteral("INSERT INTO StudentClassDivision VALUES (2, 1, 1, 1, 'Y', 0)"));
        transaction.Execute(QStringLiteral("INSERT INTO MarkMaster VALUES (1, 2, 1, 1, 1, 1, 1, 'P', 0, 0)"));
    }

    void Expect(const std::function<QStringList()>& load) { ExpectOneMoment(*AnotherClient(), Lay, load); }

    DivisionReportRepository Divisions() { return DivisionReportRepository(*Session().gcnnMain); }

    std::unique_ptr<TestSchool> school;
};

TEST_F(DivisionReportsOfOneMoment, TheSubjectsAreListedAsOfOneMoment)
{
    Expect([&] {
        const CommonSubjectsInput input =
            Divisions().LoadCommonSubjects(school->scope, {1}, SubjectDisplay::All);
        return QStringList{input.subjects.front().second, QString::number(input.students.size() - 1),
                           QString::number(input.marks.size() - 1)};
    });
}

TEST_F(DivisionReportsOfOneMoment, TheAveragesAreOfOneMoment)
{
    Expect([&] {
        const DivisionAverageInput input = Divisions().LoadDivisionAverages(school->scope, {1});
        return QStringList{input.setup.front().shortName, PlainNumber(input.setup.front().maximumMark),
                           PlainNumber(input.marks.front().mark), QString::number(input.marks.size() - 1)};
    });
}

TEST_F(DivisionReportsOfOneMoment, TheStudentsBesideAnAverageAreOfOneMoment)
{
    Expect([&] {
        const StudentsListInput input = StudentsListRepository(*Session().gcnnMain)
                                            .LoadStudentsList(school->scope, {1}, {1}, AverageSide::Below);
        return QStringList{input.subjects.front().second, PlainNumber(input.setup.front().maximumMark),
                           PlainNumber(input.marks.front().mark), QString::number(input.students.size() - 1),
                           input.students.front().studentName.left(1)};
    });
}

} // namespace
} // namespace tally::test
