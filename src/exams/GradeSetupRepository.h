#pragma once

#include "core/school/SchoolTypes.h"
#include "store/Transaction.h"

#include <optional>
#include <set>
#include <vector>

namespace tally {

/// One row of a grade table as it is stored. Both averages are lower bounds.
struct GradeRecord
{
    double totalAverage = 0;   ///< percent
    double subjectAverage = 0; ///< percent
    QString grade;

    friend bool operator==(const GradeRecord& a, const GradeRecord& b)
    {
        return a.totalAverage == b.totalAverage && a.subjectAverage == b.subjectAverage && a.grade == b.grade;
    }
    friend bool operator!=(const GradeRecord& a, const GradeRecord& b) { return !(a == b); }
};

/// The grade tables, one for each year, exam and class-division. A scope names one; all four of its codes are
/// chosen then. Throws StoreError.
class GradeSetupRepository
{
public:
    /// `main` must outlive the repository.
    explicit GradeSetupRepository(store::Connection& main) : main_(main) {}

    /// In their order, whatever the averages; none where there is no table.
    std::vector<GradeRecord> Rows(const SchoolScope& scope);
    /// Whether any mark of the exam was entered for the class-division in the year.
    bool HasMarks(const SchoolScope& scope);
    /// The divisions of the class that have a table for the exam in the year, in one statement. The scope's
    /// division is not looked at.
    std::set<int> DivisionsWithTable(const SchoolScope& scope);

    /// No error where there is no table.
    static void Delete(store::Transaction& transaction, const SchoolScope& scope);
    /// Takes the place of the table that there may be; the rows keep their order. `userCode` is kept with
    /// each row of a copied table alone. Throws a StoreError with IsConflict() for a year, an exam or a
    /// class-division that is gone.
    static void Replace(store::Transaction& transaction, const SchoolScope& scope,
                        const std::vector<GradeRecord>& rows, std::optional<int> userCode = {});

private:
    store::Connection& main_;
};

} // namespace tally
