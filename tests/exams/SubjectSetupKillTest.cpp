#include "exams/SubjectSetupRepository.h"
#include "exams/SubjectSetupSave.h"
#include "support/KilledSchool.h"

namespace tally::test {
namespace {

constexpr SchoolScope Division{1, 0, 1, 1};
constexpr int Subjects = 12;

/// A division that takes the subjects 1 to 12, as one client stored them, and 13 to 24 beside them.
class SubjectSetupKill : public KilledSchool
{
protected:
    void SetUp() override
    {
        Lay(0, [](store::Transaction& transaction) {
            for (int code = 3; code <= 2 * Subjects; ++code)
                transaction.Execute(QStringLiteral("INSERT INTO SubjectMaster VALUES (?, ?, ?, 0)"), code,
                                    QStringLiteral("Subject %1").arg(code), QString::number(code));
            SubjectSetupRepository::Delete(transaction, Division);
            SubjectSetupRepository::Insert(transaction, Division, SetFrom(1));
        });
    }

    static std::vector<TaughtSubject> SetFrom(int firstCode)
    {
        std::vector<TaughtSubject> subjects;
        for (int code = firstCode; code < firstCode + Subjects; ++code)
            subjects.push_back({.subjectCode = code,
                                .subjectName = {},
                                .teacherCode = 0,
                                .teacherName = {},
                                .maximumMark = 100,
                                .maximumAllowed = 90,
                                .takenForRank = YesText,
                                .slNo = code});
        return subjects;
    }
};

constexpr auto StoredSet = "SELECT SubjectCode, MaximumAllowed, SlNo FROM ClassSubjectTeacher ORDER BY SlNo";

TEST_F(SubjectSetupKill, AnEditKilledAtAnyFileOperationLeavesTheOldSetOrTheNewOneWhole)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            const auto shown = SubjectSetupRepository(transaction.On()).Read(Division);
            EXPECT_FALSE(ReplaceSubjects(transaction, Division, shown, SetFrom(Subjects + 1)));
        },
        RowsOf(StoredSet));
}

TEST_F(SubjectSetupKill, ADeleteKilledAtAnyFileOperationLeavesTheWholeSetOrNone)
{
    ExpectWhole(
        [](store::Transaction& transaction) {
            const auto shown = SubjectSetupRepository(transaction.On()).Read(Division);
            EXPECT_EQ(DeleteSubjects(transaction, Division, shown), QString());
        },
        RowsOf(StoredSet));
}

} // namespace
} // namespace tally::test
