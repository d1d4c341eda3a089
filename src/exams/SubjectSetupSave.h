#pragma once

#include "exams/SubjectSetupSheet.h"
#include "store/Transaction.h"

#include <optional>
#include <vector>

namespace tally {

/// What is stored for a class-division, all of one moment.
struct StoredSubjects
{
    std::vector<TaughtSubject> subjects; ///< by SlNo
    MarksBySubject marks;
};

StoredSubjects ReadStoredSubjects(store::Connection& main, const SchoolScope& scope);

/// Why a set can't take the place of what is stored.
struct SubjectRefusal
{
    QString text;
    int subjectCode = 0; ///< the subject whose marks speak against the set; 0 where the set as a whole does
    MarksBySubject marks = {}; ///< what is entered by then
};

/// What speaks against storing `wanted`: another client has stored another set than the one that was shown,
/// or has entered marks that the new one does not agree with. `shown` is empty for a first set; its order
/// does not matter.
std::optional<SubjectRefusal> FindRefusal(const std::vector<TaughtSubject>& shown,
                                          const StoredSubjects& stored,
                                          const std::vector<TaughtSubject>& wanted);

/// Puts `wanted` in the place of what is stored, unless something speaks against it; then nothing is written.
/// Throws StoreError.
std::optional<SubjectRefusal> ReplaceSubjects(store::Transaction& transaction, const SchoolScope& scope,
                                              const std::vector<TaughtSubject>& shown,
                                              const std::vector<TaughtSubject>& wanted);

/// Takes out the set that was shown, unless marks or another client's set speak against it; then nothing is
/// written, and the text says why. Throws StoreError.
QString DeleteSubjects(store::Transaction& transaction, const SchoolScope& scope,
                       const std::vector<TaughtSubject>& shown);

} // namespace tally
