#pragma once

#include <QString>

namespace tally {

/// How marks are entered: one subject for all students, or one student in all subjects.
enum class MarkMode
{
    Subject,
    Student,
};

/// One exam of one class-division in one academic year. A code of 0 stands for nothing chosen.
struct MarkScope
{
    int academicYearCode = 0;
    int examCode = 0;
    int classCode = 0;
    int divisionCode = 0;

    bool IsComplete() const { return examCode != 0 && classCode != 0 && divisionCode != 0; }
};

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
