#pragma once

#include "core/school/ListItem.h"
#include "students/Promotion.h"

namespace tally {

/// The two lists between which students are moved: a class-division of the current year, and one of the next.
/// Nothing is stored before the plan is. What is moved keeps the order in which it was moved.
class PromotionLists
{
public:
    /// Nobody in either list, nobody moved.
    void Clear();
    /// Another class-division of the current year. Whoever was moved from it before stays moved.
    void ShowFrom(std::vector<PromotionStudent> students);
    /// Another class-division of the next year. Whoever was moved goes along into it; whoever was taken back
    /// from the one before is where he was.
    void ShowTo(std::vector<PromotionStudent> students);

    /// With "#" before whoever is carried on already, who can't be ticked.
    std::vector<ListItem> FromItems() const;
    /// With "#" and "$" before whoever can't be taken back.
    std::vector<ListItem> ToItems() const;
    const std::vector<PromotionStudent>& Listed() const { return to_; }

    /// From the current year into the next one. Whoever is carried on already stays.
    void Move(const std::vector<int>& studentCodes);
    /// From the next year back into `from`, whose list is shown. False where somebody came from another
    /// class-division; he stays.
    [[nodiscard]] bool TakeBack(const std::vector<int>& studentCodes, const Placement& from);

    /// The students of the plan; the rest of it is the screen's.
    PromotionPlan Plan() const;

private:
    /// The next year holds the student, as far as it is stored and not taken back.
    bool IsCarried(const PromotionStudent& student) const;
    bool IsMoved(int studentCode) const;
    bool IsTakenBack(int studentCode) const;

    std::vector<PromotionStudent> from_;
    std::vector<PromotionStudent> to_;
    std::vector<PromotionStudent>
        before_; ///< who was in the class-division of the next year when it was read
};

} // namespace tally
