#pragma once

#include "core/CodedTexts.h"
#include "exams/SubjectSetup.h"
#include "store/Transaction.h"

namespace tally {

/// The subjects that the class-divisions take, year by year. Of a scope the exam is not looked at: a class
/// has the same subjects in all exams of a year. Throws StoreError.
class SubjectSetupRepository
{
public:
    /// `main` must outlive the repository.
    explicit SubjectSetupRepository(store::Connection& main) : main_(main) {}

    /// What a class-division takes in a year, by SlNo.
    std::vector<TaughtSubject> Read(const SchoolScope& scope);
    /// What has been entered for a class-division in a year, in one statement for all its subjects.
    MarksBySubject Marks(const SchoolScope& scope);

    /// All subjects and all teachers of the school, by name, behind a blank line with the code 0.
    CodedTexts SubjectsBehindBlank();
    CodedTexts TeachersBehindBlank();

    /// Takes out all that the class-division takes in the year. No error when that is nothing.
    static void Delete(store::Transaction& transaction, const SchoolScope& scope);
    /// Throws a StoreError with IsDuplicate() for a subject that is there already, and one with IsConflict()
    /// for a year, a division, a subject or a teacher that is not.
    static void Insert(store::Transaction& transaction, const SchoolScope& scope,
                       const std::vector<TaughtSubject>& subjects);

private:
    store::Connection& main_;
};

} // namespace tally
