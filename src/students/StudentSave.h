#pragma once

#include "students/StudentRules.h"

namespace tally {

/// Who saves, and how his office numbers its students.
struct StudentSaving
{
    bool autoGenerate = false; ///< new students get the next number
    QDate today;               ///< the working date; invalid while there is none
    int userCode = 0;
    /// The school's own number with which a stored student was loaded. Where it is still what is entered, the
    /// stored one stays: the numbers of a whole division may have been changed meanwhile.
    QString loadedOptionalNo{};
};

StudentSettings ReadStudentSettings(store::Connection& main);
/// Gives a stored student the school's own number that he has by now, where the clerk left it alone.
void KeepStoredNumber(store::Connection& main, Student& student, const StudentSaving& saving);
/// What the student, new with code 0, is held against at this moment.
StudentFacts ReadStudentFacts(store::Connection& main, const Student& student, const StudentSaving& saving);

/// Stores a student unless something speaks against it: then nothing is written. What other clients have
/// stored up to now counts. A new student, who has code 0, gets his code, and his numbers where they are
/// generated; `student` has them afterwards, and has as well a generated number that is taken already.
StudentFault SaveStudent(store::Transaction& transaction, Student& student, const StudentSaving& saving);

} // namespace tally
