#include "students/StudentRules.h"

namespace tally {

QString FaultText(StudentFault fault)
{
    switch (fault) {
    case StudentFault::None: break;
    case StudentFault::NumberTaken: return QStringLiteral("Admission No. Already Exists");
    case StudentFault::AdmissionInFuture: return QStringLiteral("Admission Cannot Be Made On Future Date");
    case StudentFault::Relieved: return QStringLiteral("Student Is Already Relieved");
    case StudentFault::LatestBirthNotSet:
        return QStringLiteral(
            "Without Setting 'Date Of Birth In Options Screen', Student Details Cannot Be Saved");
    case StudentFault::BornTooLate:
        return QStringLiteral("Date Of Birth Is Greater Than 'Date Of Birth In Options Screen'");
    case StudentFault::BirthNotBeforeAdmission:
        return QStringLiteral("Date Of Birth Should Be Less Than Admission Date");
    case StudentFault::OptionalNumberTaken: return QStringLiteral("Optional Admission No. Already Exists");
    case StudentFault::GenderNotSet:
        return QStringLiteral("Without Setting 'Gender In Options Screen' Student Details Cannot Be Saved");
    case StudentFault::NumbersUsedUp:
        return QStringLiteral("Auto Generation Of Admission No. Is Not Possible, Because It Has Reached The "
                              "Limit(999999999).\nYou Can Create Students With Manual Admission No. Entry "
                              "Option.\nAdmission No. Should Be Less Than The Above Mentioned Limit.");
    }
    return {};
}

bool TypesNumber(const Student& student, bool autoGenerate)
{
    return !autoGenerate || (student.code != 0 && !student.numberGenerated);
}

bool TypesOptionalNumber(const Student& student, bool autoGenerate)
{
    return !autoGenerate || student.code != 0;
}

StudentFault FaultOfAdmission(const QDate& admission, const QDate& today)
{
    return !today.isValid() || admission > today ? StudentFault::AdmissionInFuture : StudentFault::None;
}

StudentFault FaultOfBirth(const QDate& birth, const QDate& latestBirth, const QDate& admission)
{
    if (latestBirth.isValid() && birth > latestBirth)
        return StudentFault::BornTooLate;
    return birth >= admission ? StudentFault::BirthNotBeforeAdmission : StudentFault::None;
}

StudentFault FaultOf(const Student& student, const StudentFacts& facts)
{
    if (facts.numberTaken)
        return StudentFault::NumberTaken;
    if (const auto fault = FaultOfAdmission(student.admissionDate, facts.today); fault != StudentFault::None)
        return fault;
    if (facts.relieved)
        return StudentFault::Relieved;
    if (!facts.settings.latestBirth.isValid())
        return StudentFault::LatestBirthNotSet;
    if (const auto fault =
            FaultOfBirth(student.dateOfBirth, facts.settings.latestBirth, student.admissionDate);
        fault != StudentFault::None)
        return fault;
    if (facts.optionalNumberTaken)
        return StudentFault::OptionalNumberTaken;
    return facts.settings.gender.isEmpty() ? StudentFault::GenderNotSet : StudentFault::None;
}

} // namespace tally
