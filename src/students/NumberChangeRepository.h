#pragma once

#include "core/school/SchoolTypes.h"
#include "store/Transaction.h"
#include "students/OptionalNumbers.h"

namespace tally {

/// Every statement by which the optional admission numbers of a class-division are changed. Throws
/// StoreError.
class NumberChangeRepository
{
public:
    /// `main` must outlive the repository.
    explicit NumberChangeRepository(store::Connection& main) : main_(main) {}

    /// The number of each student of the school, relieved ones too.
    CodedTexts AllNumbers();
    /// The students of the class-division who were not relieved, by name.
    std::vector<NumberedStudent> Students(const SchoolScope& scope);
    /// Who has one of the numbers in `changes`, with that number.
    CodedTexts Holders(const CodedTexts& changes);

    /// A general failure for a student who is gone, and for a number that another one has.
    static void Update(store::Transaction& transaction, const CodedTexts& changes);

private:
    store::Connection& main_;
};

/// Stores the changed numbers, or gives the reason why not and stores nothing.
std::optional<NumberStep> SaveNumbers(store::Transaction& transaction, const OptionalNumbers& numbers);

} // namespace tally
