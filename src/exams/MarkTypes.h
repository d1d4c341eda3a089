#pragma once

#include "core/school/SchoolTypes.h"

#include <QString>

namespace tally {

/// How marks are entered: one subject for all students, or one student in all subjects.
enum class MarkMode
{
    Subject,
    Student,
};

/// Whether exam, class and division are chosen, for which marks are entered.
inline bool IsComplete(const SchoolScope& scope)
{
    return scope.examCode != 0 && scope.classCode != 0 && scope.divisionCode != 0;
}

/// A subject as the class-division takes it.
struct MarkSubject
{
    int subjectCode = 0;
    QString name;
    int teacherCode = 0;       ///< 0: no teacher
    double maximumAllowed = 0; ///< the highest mark that may be entered
    double maximumMark = 0;    ///< what a mark is out of
};

/// A mark that was entered before, by student in a subject or by subject of a student.
struct StoredMark
{
    int code = 0; ///< of the student in subject mode, of the subject in student mode
    double mark = 0;
    bool present = true;
};

/// A mark as it is to be stored.
struct MarkRecord
{
    int studentCode = 0;
    int subjectCode = 0;
    double mark = 0;
    bool present = true;
    int teacherCode = 0; ///< 0: no teacher
};

} // namespace tally
