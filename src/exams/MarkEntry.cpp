#include "exams/MarkEntry.h"

#include "store/StoreError.h"

#include <algorithm>

namespace tally {

MarkChoices MarkEntry::List(store::Connection& main, const SchoolScope& scope)
{
    MarkRepository marks(main);
    MarkChoices choices;
    if (sheet_.Mode() == MarkMode::Subject) {
        choices.entries = marks.Subjects(scope);
        choices.noEntry = choices.entries.empty() ? NoSubjects : QString();
        const CodedTexts students = marks.StudentsToMark(scope, true);
        choices.noRow = students.empty() && !marks.HasStudents(scope) ? NoStudents : QString();
        sheet_.ListStudents(students);
    } else {
        choices.entries = marks.Students(scope);
        choices.noEntry = choices.entries.empty() ? NoStudents : QString();
        const std::vector<MarkSubject> subjects = marks.SubjectsToMark(scope);
        choices.noRow = subjects.empty() ? NoSubjects : QString();
        sheet_.ListSubjects(subjects);
    }
    return choices;
}

bool MarkEntry::Choose(store::Connection& main, const SchoolScope& scope, int code)
{
    const store::ReadTransaction reading(main);
    MarkRepository marks(main);
    std::optional<MarkSubject> subject;
    if (sheet_.Mode() == MarkMode::Subject) {
        subject = marks.FindSubject(scope, code);
        if (!subject) {
            marksExist_ = false;
            return false;
        }
    }
    Take(subject, marks.StoredMarks(scope, sheet_.Mode(), code));
    return true;
}

void MarkEntry::ListForEdit(store::Connection& main, const SchoolScope& scope, int subjectCode)
{
    const store::ReadTransaction reading(main);
    MarkRepository marks(main);
    const CodedTexts students = marks.StudentsToMark(scope, false);
    const std::optional<MarkSubject> subject = marks.FindSubject(scope, subjectCode);
    const std::vector<StoredMark> stored = marks.StoredMarks(scope, sheet_.Mode(), subjectCode);
    sheet_.ListStudentsAgain(students);
    Take(subject, stored);
}

void MarkEntry::Take(const std::optional<MarkSubject>& subject, const std::vector<StoredMark>& stored)
{
    if (subject)
        sheet_.StartSubject(*subject);
    else
        sheet_.StartStudent();
    sheet_.TakeMarks(stored);
    marksExist_ = !stored.empty();
}

void MarkEntry::TakeLimits(store::Connection& main, const SchoolScope& scope, int chosenCode, bool editing)
{
    MarkRepository marks(main);
    const std::vector<int> lost = sheet_.TakeLimits(marks.SubjectsToMark(scope), chosenCode);
    if (lost.empty())
        return;
    std::vector<StoredMark> stored;
    if (editing)
        stored = marks.StoredMarks(scope, sheet_.Mode(), chosenCode);
    const bool mends = std::all_of(lost.begin(), lost.end(), [&](int subjectCode) {
        return std::any_of(stored.begin(), stored.end(), [&](const StoredMark& mark) {
            return sheet_.Mode() == MarkMode::Subject || mark.code == subjectCode;
        });
    });
    if (!mends)
        throw store::StoreError::RowIsGone(QStringLiteral("ClassSubjectTeacher"));
}

QString MarkEntry::Missing(store::Connection& main, const SchoolScope& scope)
{
    MarkRepository marks(main);
    if (!marks.HasStudents(scope))
        return NoStudents;
    return marks.HasSubjects(scope) ? QString() : NoSubjects;
}

} // namespace tally
