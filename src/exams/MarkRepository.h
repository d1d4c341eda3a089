#pragma once

#include "core/CodedTexts.h"
#include "exams/MarkTypes.h"
#include "store/Transaction.h"

#include <optional>
#include <vector>

namespace tally {

/// The marks of a class-division and the students and subjects that they are entered for. Throws StoreError.
class MarkRepository
{
public:
    /// `main` must outlive the repository.
    explicit MarkRepository(store::Connection& main) : main_(main) {}

    /// The subjects that the class-division takes, by name.
    CodedTexts Subjects(const SchoolScope& scope);
    /// The students of the class-division who were not relieved, by name: "Asha(A12)".
    CodedTexts Students(const SchoolScope& scope);

    /// The rows of a subject, by name. With `withRelieved`, students come up who were relieved after they got
    /// a mark in this exam; those relieved before it never do.
    CodedTexts StudentsToMark(const SchoolScope& scope, bool withRelieved);
    /// The rows of a student, in the order of the subjects.
    std::vector<MarkSubject> SubjectsToMark(const SchoolScope& scope);
    /// None when the class-division does not take the subject. The name stays empty.
    std::optional<MarkSubject> FindSubject(const SchoolScope& scope, int subjectCode);
    /// What is stored for one subject, or for one student.
    std::vector<StoredMark> StoredMarks(const SchoolScope& scope, MarkMode mode, int code);

    /// Whether anybody was admitted to the class-division, relieved or not.
    bool HasStudents(const SchoolScope& scope);
    /// Whether the class-division takes any subject.
    bool HasSubjects(const SchoolScope& scope);

    /// Takes out all marks of one subject, or of one student. No error when there are none.
    static void Delete(store::Transaction& transaction, const SchoolScope& scope, MarkMode mode, int code);
    /// Throws a StoreError with IsDuplicate() for a mark that is there already, and one with IsConflict() for
    /// a student or a master that is not.
    static void Insert(store::Transaction& transaction, const SchoolScope& scope,
                       const std::vector<MarkRecord>& marks, int userCode);

private:
    /// Whether the class-division has a row in the first of the joined `tables`, which is called "a".
    bool HasRows(const QString& tables, const SchoolScope& scope);

    store::Connection& main_;
};

} // namespace tally
