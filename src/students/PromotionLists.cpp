#include "students/PromotionLists.h"

#include <algorithm>

namespace tally {

namespace {

using Students = std::vector<PromotionStudent>;

Students::const_iterator Find(const Students& students, int studentCode)
{
    return std::find_if(students.begin(), students.end(), [studentCode](const PromotionStudent& student) {
        return student.studentCode == studentCode;
    });
}

bool Contains(const Students& students, int studentCode)
{
    return Find(students, studentCode) != students.end();
}

QString Line(const char* mark, const PromotionStudent& student)
{
    return QStringLiteral("%1%2 - (%3)").arg(QLatin1String(mark), student.name, student.admissionNo);
}

const char* TakeBackMark(const PromotionStudent& student)
{
    if (student.carriedOn)
        return student.hasMarks ? " #$ " : " # ";
    return student.hasMarks ? " $ " : "   ";
}

} // namespace

void PromotionLists::Clear()
{
    *this = {};
}

void PromotionLists::ShowFrom(std::vector<PromotionStudent> students)
{
    from_ = std::move(students);
    std::erase_if(from_, [this](const PromotionStudent& student) { return IsMoved(student.studentCode); });
}

void PromotionLists::ShowTo(std::vector<PromotionStudent> students)
{
    Students moved;
    std::copy_if(to_.begin(), to_.end(), std::back_inserter(moved), [&](const PromotionStudent& student) {
        return IsMoved(student.studentCode) && !Contains(students, student.studentCode);
    });
    before_ = std::move(students);
    to_ = before_;
    to_.insert(to_.end(), moved.begin(), moved.end());
}

std::vector<ListItem> PromotionLists::FromItems() const
{
    std::vector<ListItem> items;
    items.reserve(from_.size());
    for (const PromotionStudent& student : from_) {
        const bool carried = IsCarried(student);
        items.push_back({student.studentCode, Line(carried ? "#   " : "    ", student),
                         carried ? AlreadyCarried(student) : QString()});
    }
    return items;
}

std::vector<ListItem> PromotionLists::ToItems() const
{
    std::vector<ListItem> items;
    items.reserve(to_.size());
    for (const PromotionStudent& student : to_) {
        // What is not stored yet can always be undone.
        const bool moved = IsMoved(student.studentCode);
        items.push_back({student.studentCode, Line(moved ? "   " : TakeBackMark(student), student),
                         moved ? QString() : TakeBackRefusal(student)});
    }
    return items;
}

void PromotionLists::Move(const std::vector<int>& studentCodes)
{
    for (const int code : studentCodes) {
        const auto student = Find(from_, code);
        if (student == from_.end() || IsCarried(*student))
            continue;
        to_.push_back(*student);
        from_.erase(student);
    }
}

bool PromotionLists::TakeBack(const std::vector<int>& studentCodes, const Placement& from)
{
    bool all = true;
    for (const int code : studentCodes) {
        const auto student = Find(to_, code);
        if (student == to_.end())
            continue;
        if (student->current != from) {
            all = false;
            continue;
        }
        // Whoever was carried on before stands in the list of his class-division already.
        if (!Contains(from_, code))
            from_.push_back(*student);
        to_.erase(student);
    }
    return all;
}

PromotionPlan PromotionLists::Plan() const
{
    PromotionPlan plan;
    plan.before = before_;
    plan.listed = to_;
    std::copy_if(before_.begin(), before_.end(), std::back_inserter(plan.takenBack),
                 [this](const PromotionStudent& student) { return IsTakenBack(student.studentCode); });
    return plan;
}

bool PromotionLists::IsCarried(const PromotionStudent& student) const
{
    return student.next.IsComplete() && !IsTakenBack(student.studentCode);
}

bool PromotionLists::IsMoved(int studentCode) const
{
    return Contains(to_, studentCode) && !Contains(before_, studentCode);
}

bool PromotionLists::IsTakenBack(int studentCode) const
{
    return Contains(before_, studentCode) && !Contains(to_, studentCode);
}

} // namespace tally
