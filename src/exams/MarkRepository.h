#pragma once

#include "core/CodedTexts.h"
#include "exams/MarkTypes.h"
#include "store/Transaction.h"

#include <optional>
#include <vector>

namespace tally {

/// The marks of the school and what they are entered against. Throws StoreError.
class MarkRepository
{
public:
    explicit MarkRepository(store::Connection& main) : main_(main) {}

    /// The subjects that the class-division takes, by name.
    CodedTexts Subjects(const MarkScope& scope);
    /// The students of the class-division who were not relieved, by name: "Asha(A12)".
    CodedTexts Students(const MarkScope& scope);

    /// The rows of a subject, by name. With `withRelieved`, students come up who were relieved after they got
    /// a mark in this exam; those relieved before it never do.
    CodedTexts StudentsToMark(const MarkScope& scope, bool withRelieved);
    /// The rows of a student, in the order of the subjects.
    std::vector<MarkSubject> SubjectsToMark(const MarkScope& scope);
    /// None when the class-division does not take the subject.
    std::optional<MarkSubject> FindSubject(const MarkScope& scope, int subjectCode);
    /// What is stored for one subject, or for one student.
    std::vector<StoredMark> StoredMarks(const MarkScope& scope, MarkMode mode, int code);

    /// Whether anybody was admitted to the class-division, relieved or not.
    bool HasStudents(const MarkScope& scope);
    bool HasSubjects(const MarkScope& scope);

    /// Takes out all marks of one subject, or of one student.
    static void Delete(store::Transaction& transaction, const MarkScope& scope, MarkMode mode, int code);
    /// A mark that is there already is a conflict.
    static void Insert(store::Transaction& transaction, const MarkScope& scope,
                       const std::vector<MarkRecord>& marks, int userCode);

private:
    store::Connection& main_;
};

} // namespace tally
