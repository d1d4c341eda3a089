#include "students/PromotionLists.h"
#include "students/PromotionRepository.h"
#include "students/PromotionSchool.h"
#include "support/KilledSchool.h"

namespace tally::test {
namespace {

constexpr int Students = 60;
constexpr int FirstMoved = 21; ///< whoever has a lower code is in the next year already

/// Class X, division A, of year 1, which is retained in the same class: a third is there already, and the
/// work moves the others and takes ten back.
class PromotionKill : public KilledSchool
{
protected:
    void SetUp() override
    {
        Lay(Students, [](store::Transaction& transaction) {
            transaction.Execute(
                QStringLiteral("INSERT INTO AcademicYearSetup VALUES (2, 2025, 2026, '2025-06-01', "
                               "'2026-05-31', 'N', 'N', 1)"));
            transaction.Execute(
                QStringLiteral("UPDATE StudentClassDivision SET Status = 'N' WHERE StudentCode < ?"),
                FirstMoved);
            transaction.Execute(
                QStringLiteral(
                    "INSERT INTO StudentClassDivision SELECT StudentCode, 2, ClassCode, DivisionCode, 'Y', 1 "
                    "FROM StudentClassDivision WHERE StudentCode < ?"),
                FirstMoved);
        });
    }

    static void Promote(store::Transaction& transaction)
    {
        PromotionRepository repository(transaction.On());
        const PromotionYears years = repository.Years(1);
        PromotionLists lists;
        lists.ShowFrom(repository.FromStudents(years, TenA));
        lists.ShowTo(repository.ToStudents(years, TenA));
        std::vector<int> moved;
        std::vector<int> takenBack;
        for (int student = 1; student <= Students; ++student)
            if (student >= FirstMoved)
                moved.push_back(student);
            else if (student <= 10)
                takenBack.push_back(student);
        lists.Move(moved);
        if (!lists.TakeBack(takenBack, TenA))
            throw store::StoreError(QStringLiteral("not taken back"));
        PromotionPlan plan = lists.Plan();
        plan.kind = PromotionKind::Retain;
        plan.years = years;
        plan.fromClass = TenA.classCode;
        plan.target = TenA;
        if (const auto fault = SavePromotion(transaction, plan, 1))
            throw store::StoreError(fault->text);
    }
};

TEST_F(PromotionKill, APromotionKilledAtAnyFileOperationLeavesTheTwoYearsAsTheyWereOrAsTheyShallBe)
{
    ExpectWhole(Promote, [](store::Connection& main) { return Carried(main, 1, 2); });
}

} // namespace
} // namespace tally::test
