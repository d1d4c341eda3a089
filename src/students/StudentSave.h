#pragma once

#include "students/StudentRules.h"

namespace tally {

/// Who saves, and how his office numbers its students.
struct StudentSaving
{
    bool autoGenerate = false; ///< new students get the next number
    QDate today;               ///< the working date; invalid while there is none
    int userCode = 0;
};

StudentSettings ReadStudentSettings(store::Connection& main);
/// What the student, new with code 0, is held against at this moment.
StudentFacts ReadStudentFacts(store::Connection& main, const Student& student, const StudentSaving& saving);

/// Stores a student unless something speaks against it: then nothing is written. What other clients have
/// stored up to now counts. A new student, who has code 0, gets his code, and his numbers where they are
/// generated; `student` has them afterwards.
StudentFault SaveStudent(store::Transaction& transaction, Student& student, const StudentSaving& saving);

} // namespace tally
