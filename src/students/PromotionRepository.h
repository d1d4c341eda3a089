#pragma once

#include "store/Transaction.h"
#include "students/Promotion.h"

namespace tally {

/// The students of two academic years and what carries them from one into the other. Reads in sets: no
/// statement for a single student. Throws StoreError.
class PromotionRepository
{
public:
    /// `main` must outlive the repository.
    explicit PromotionRepository(store::Connection& main) : main_(main) {}

    PromotionYears Years(int academicYearCode);
    /// The students of a class-division who were not relieved, by name.
    std::vector<PromotionStudent> FromStudents(const PromotionYears& years, const Placement& from);
    std::vector<PromotionStudent> ToStudents(const PromotionYears& years, const Placement& to);
    /// Those that there are, relieved ones too.
    std::vector<PromotionStudent> Find(const PromotionYears& years, const std::vector<int>& studentCodes);
    PromotionFacts Facts(const PromotionPlan& plan);

    /// Replaces who is in the target, relieved students left as they are, for a plan without a fault.
    static void Store(store::Transaction& transaction, const PromotionPlan& plan, int userCode);

private:
    std::vector<PromotionStudent> StudentsOf(const PromotionYears& years, int yearCode,
                                             const Placement& place);

    store::Connection& main_;
};

/// Stores the plan where it still fits what is stored, else gives the reason and stores nothing.
std::optional<PromotionFault> SavePromotion(store::Transaction& transaction, const PromotionPlan& plan,
                                            int userCode);

} // namespace tally
