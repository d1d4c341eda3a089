#pragma once

#include "core/school/SchoolTypes.h"
#include "exams/GradeRecord.h"
#include "store/Transaction.h"

#include <optional>
#include <set>
#include <vector>

namespace tally {

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

/// What a class-division has for an exam, of one moment.
struct StoredGrades
{
    std::vector<GradeRecord> rows; ///< none where there is no table
    bool hasMarks = false;         ///< then the table stays as it is
};

StoredGrades ReadGrades(store::Connection& main, const SchoolScope& scope);

/// What the clerk is told of a table whose exam has marks already.
inline const QString GradesHaveMarks = QStringLiteral(
    "Already Marks Are Entered For This 'Classwise Rank-Grade Setup'. So You Can't Edit/Delete");

/// Stores the rows in the place of those that the clerk found, or gives the reason why not and stores
/// nothing: marks were entered, or another user has changed the table meanwhile. `found` is empty for a new
/// table.
[[nodiscard]] QString SaveGrades(store::Transaction& transaction, const SchoolScope& scope,
                                 const std::vector<GradeRecord>& found, const std::vector<GradeRecord>& rows);
/// The same for a table that is to go.
[[nodiscard]] QString DeleteGrades(store::Transaction& transaction, const SchoolScope& scope,
                                   const std::vector<GradeRecord>& found);

} // namespace tally
