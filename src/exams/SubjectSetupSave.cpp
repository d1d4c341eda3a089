#include "exams/SubjectSetupSave.h"

#include "exams/SubjectSetupRepository.h"

#include <algorithm>

namespace tally {

namespace {

const TaughtSubject* Find(const std::vector<TaughtSubject>& subjects, int subjectCode)
{
    const auto found =
        std::find_if(subjects.begin(), subjects.end(), [subjectCode](const TaughtSubject& subject) {
            return subject.subjectCode == subjectCode;
        });
    return found == subjects.end() ? nullptr : &*found;
}

/// What is frozen as soon as a mark is entered.
bool IsSameForMarks(const TaughtSubject& subject, const TaughtSubject& other)
{
    return subject.teacherCode == other.teacherCode && subject.maximumMark == other.maximumMark &&
           subject.slNo == other.slNo;
}

/// Names belong to the masters: one that was written anew there changes no set.
bool IsSame(const TaughtSubject& subject, const TaughtSubject& other)
{
    return IsSameForMarks(subject, other) && subject.maximumAllowed == other.maximumAllowed &&
           subject.takenForRank == other.takenForRank;
}

/// Empty while what was shown is what is stored.
QString StoredMeanwhile(const std::vector<TaughtSubject>& shown, const std::vector<TaughtSubject>& stored)
{
    const auto isStored = [&stored](const TaughtSubject& subject) {
        const TaughtSubject* found = Find(stored, subject.subjectCode);
        return found && IsSame(subject, *found);
    };
    if (shown.size() == stored.size() && std::all_of(shown.begin(), shown.end(), isStored))
        return {};
    return shown.empty()
               ? QStringLiteral("Subjects Of This Class-Division Were Entered By Another User Meanwhile.\n")
               : QStringLiteral("Subjects Of This Class-Division Were Changed By Another User Meanwhile.\n");
}

} // namespace

StoredSubjects ReadStoredSubjects(store::Connection& main, const SchoolScope& scope)
{
    const store::ReadTransaction moment(main);
    SubjectSetupRepository repository(main);
    return {repository.Read(scope), repository.Marks(scope)};
}

std::optional<SubjectRefusal> FindRefusal(const std::vector<TaughtSubject>& shown,
                                          const StoredSubjects& stored,
                                          const std::vector<TaughtSubject>& wanted)
{
    if (const QString meanwhile = StoredMeanwhile(shown, stored.subjects); !meanwhile.isEmpty())
        return SubjectRefusal{meanwhile + QStringLiteral("You Cannot Save This Data."), 0, stored.marks};
    for (const TaughtSubject& before : stored.subjects) {
        if (stored.marks.count(before.subjectCode) == 0)
            continue;
        const TaughtSubject* after = Find(wanted, before.subjectCode);
        if (!after)
            return SubjectRefusal{SubjectsHaveMarks, before.subjectCode, stored.marks};
        if (!IsSameForMarks(before, *after))
            return SubjectRefusal{SubjectIsFrozen, before.subjectCode, stored.marks};
    }
    for (const TaughtSubject& subject : wanted) {
        const auto entered = stored.marks.find(subject.subjectCode);
        if (entered != stored.marks.end() && entered->second.highest > subject.maximumAllowed)
            return SubjectRefusal{BelowEnteredMark(entered->second.highest), subject.subjectCode,
                                  stored.marks};
    }
    return {};
}

std::optional<SubjectRefusal> ReplaceSubjects(store::Transaction& transaction, const SchoolScope& scope,
                                              const std::vector<TaughtSubject>& shown,
                                              const std::vector<TaughtSubject>& wanted)
{
    if (auto refusal = FindRefusal(shown, ReadStoredSubjects(transaction.On(), scope), wanted))
        return refusal;
    if (!shown.empty())
        SubjectSetupRepository::Delete(transaction, scope);
    SubjectSetupRepository::Insert(transaction, scope, wanted);
    return {};
}

QString DeleteSubjects(store::Transaction& transaction, const SchoolScope& scope,
                       const std::vector<TaughtSubject>& shown)
{
    const StoredSubjects stored = ReadStoredSubjects(transaction.On(), scope);
    if (!stored.marks.empty())
        return SubjectsHaveMarks;
    if (const QString meanwhile = StoredMeanwhile(shown, stored.subjects); !meanwhile.isEmpty())
        return meanwhile + QStringLiteral("You Cannot Delete This Data.");
    SubjectSetupRepository::Delete(transaction, scope);
    return {};
}

} // namespace tally
