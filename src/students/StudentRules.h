#pragma once

#include "students/StudentRepository.h"

namespace tally {

/// An admission number has at most nine digits.
inline constexpr int HighestAdmissionNo = 999999999;

/// What the office has set in Options for its students.
struct StudentSettings
{
    QDate latestBirth; ///< nobody born later is taken; invalid while it is not set
    QString gender;    ///< "M", "F", "A" for all; empty while it is not set
};

/// What speaks against storing a student as he was entered.
enum class StudentFault
{
    None,
    NumberTaken,
    AdmissionInFuture,
    Relieved,
    LatestBirthNotSet,
    BornTooLate,
    BirthNotBeforeAdmission,
    OptionalNumberTaken,
    GenderNotSet,
    NumbersUsedUp, ///< the next number to be generated would have ten digits
};

/// What the office is told. Empty for None.
QString FaultText(StudentFault fault);

/// What a student is held against.
struct StudentFacts
{
    StudentSettings settings;
    QDate today;                      ///< the working date; invalid while there is none
    bool numberTaken = false;         ///< false as well where nobody typed it
    bool optionalNumberTaken = false; ///< the same
    bool relieved = false;
};

/// Whether the clerk types the numbers of this student; code 0 stands for a new one. A generated number stays
/// the system's while numbers are generated; the school's own number of a stored student is always the
/// clerk's.
bool TypesNumber(const Student& student, bool autoGenerate);
bool TypesOptionalNumber(const Student& student, bool autoGenerate);

/// Nobody is admitted after the working date, nor on any day while there is none.
StudentFault FaultOfAdmission(const QDate& admission, const QDate& today);
/// A student is born by the latest day that the office has set, and before his admission.
StudentFault FaultOfBirth(const QDate& birth, const QDate& latestBirth, const QDate& admission);
/// The first fault, in the order in which the office asks for them.
StudentFault FaultOf(const Student& student, const StudentFacts& facts);

} // namespace tally
