#include "exams/GradeSetupRepository.h"
#include "exams/SetupCopyRepository.h"
#include "exams/SubjectSetupRepository.h"
#include "exams/SubjectSetupSave.h"
#include "store/StoreError.h"
#include "support/KilledSchool.h"

namespace tally::test {
namespace {

constexpr SchoolScope Source{1, 1, 1, 1};
constexpr SchoolScope Target{1, 1, 1, 2};

/// Division A takes two subjects and has the usual grades; B takes one subject of its own and, as C, has no
/// grades yet.
class SetupCopyKill : public KilledSchool
{
protected:
    void SetUp() override
    {
        Lay(1, [](store::Transaction& transaction) {
            for (const char* row :
                 {"INSERT INTO ClassDivisionDetails VALUES (1, 'B', 2), (1, 'C', 3)",
                  "INSERT INTO SubjectMaster VALUES (9, 'Art', 'Art', 0)",
                  "INSERT INTO ClassSubjectTeacher VALUES (1, 1, 2, 9, 0, 10, 10, 'No', 1)"})
                transaction.Execute(QString::fromLatin1(row));
        });
    }

    static void CopySubjects(store::Transaction& transaction)
    {
        SubjectTargets targets = SetupCopyRepository(transaction.On()).TargetsOfSubjects(Target);
        const auto refusal = ReplaceSubjects(transaction, Target, targets.subjects[Target.divisionCode],
                                             SubjectSetupRepository(transaction.On()).Read(Source));
        if (refusal)
            throw store::StoreError(refusal->text);
    }
    static void CopyGrades(store::Transaction& transaction)
    {
        const QString refusal = SaveGradeCopy(transaction, Target, {2, 3},
                                              GradeSetupRepository(transaction.On()).Rows(Source), 1);
        if (!refusal.isEmpty())
            throw store::StoreError(refusal);
    }
};

TEST_F(SetupCopyKill, ASubjectCopyKilledAtAnyFileOperationLeavesTheOldSubjectOrTheNewOnesWhole)
{
    ExpectWhole(CopySubjects, RowsOf("SELECT * FROM ClassSubjectTeacher ORDER BY DivisionCode, SlNo"));
}

TEST_F(SetupCopyKill, AGradeCopyKilledAtAnyFileOperationGivesAllDivisionsTheirTableOrNone)
{
    ExpectWhole(CopyGrades, RowsOf("SELECT * FROM RankMaster ORDER BY DivisionCode, Status"));
}

} // namespace
} // namespace tally::test
