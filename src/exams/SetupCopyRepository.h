#pragma once

#include "core/school/SchoolTypes.h"
#include "exams/GradeRecord.h"
#include "exams/SetupCopy.h"
#include "store/Transaction.h"

#include <vector>

namespace tally {

/// What a copy screen offers to choose from. No list has a blank line but that of the exams.
struct CopyChoices
{
    CodedTexts fromYears; ///< the current year alone
    CodedTexts toYears;   ///< the current year and, where there is one, the year that follows it
    CodedTexts exams;     ///< nothing at all in a school without exams
    CodedTexts classes;
};

/// The divisions that subjects may be copied to.
struct SubjectTargets
{
    std::vector<ListItem> items; ///< by name
    SubjectsByDivision subjects; ///< what they take; the names of subjects and teachers are left out
};

/// From where and to where setups are copied. Of a scope the division is not looked at. Throws StoreError.
class SetupCopyRepository
{
public:
    /// `main` must outlive the repository.
    explicit SetupCopyRepository(store::Connection& main) : main_(main) {}

    CopyChoices Choices(int academicYearCode);
    SubjectTargets TargetsOfSubjects(const SchoolScope& scope);
    /// By name.
    std::vector<ListItem> TargetsOfGrades(const SchoolScope& scope);

private:
    store::Connection& main_;
};

/// Gives these divisions the table for the exam, all of them or none: where another client has entered a
/// table for one of them meanwhile, it says so and stores nothing. Throws a StoreError with IsConflict() for
/// a year, an exam or a class-division that is gone.
[[nodiscard]] QString SaveGradeCopy(store::Transaction& transaction, const SchoolScope& to,
                                    const std::vector<int>& divisions, const std::vector<GradeRecord>& table,
                                    int userCode);

} // namespace tally
