#include "students/RelievingRules.h"

namespace tally {

namespace {

bool IsFuture(const QDate& date, const RelievingFacts& facts)
{
    return !facts.lastWorkingDay.isValid() || date > facts.lastWorkingDay;
}

/// An admission date that nobody knows lies before no day.
bool IsBeforeAdmission(const QDate& date, const RelievingFacts& facts)
{
    return facts.admissionDate.isValid() && date < facts.admissionDate;
}

} // namespace

RelievingFault FaultOfStudent(const RelievingFacts& facts)
{
    if (facts.relieved)
        return RelievingFault::AlreadyRelieved;
    return facts.promoted ? RelievingFault::Promoted : RelievingFault::None;
}

RelievingFault FaultOfRelievingDate(const QDate& relievingDate, const RelievingFacts& facts)
{
    if (IsBeforeAdmission(relievingDate, facts))
        return RelievingFault::RelievedBeforeAdmission;
    return IsFuture(relievingDate, facts) ? RelievingFault::RelievedInFuture : RelievingFault::None;
}

RelievingFault FaultOfTCDate(const Relieving& entry, const RelievingFacts& facts)
{
    if (IsBeforeAdmission(entry.tcDate, facts))
        return RelievingFault::TCBeforeAdmission;
    if (entry.tcDate < entry.relievingDate)
        return RelievingFault::TCBeforeRelievingWhileChoosing;
    return IsFuture(entry.tcDate, facts) ? RelievingFault::TCInFuture : RelievingFault::None;
}

RelievingFault FaultOfRelieving(const Relieving& entry, const RelievingFacts& facts)
{
    if (facts.relieved)
        return RelievingFault::AlreadyRelieved;
    if (!facts.placed)
        return RelievingFault::NotPlaced;
    if (facts.promoted)
        return RelievingFault::Promoted;
    if (const auto fault = FaultOfRelievingDate(entry.relievingDate, facts); fault != RelievingFault::None)
        return fault;
    if (entry.tcNo.isEmpty())
        return RelievingFault::TCNoMissing;
    if (IsBeforeAdmission(entry.tcDate, facts))
        return RelievingFault::TCBeforeAdmission;
    if (IsFuture(entry.tcDate, facts))
        return RelievingFault::TCInFuture;
    if (entry.tcDate < entry.relievingDate)
        return RelievingFault::TCBeforeRelieving;
    return facts.tcNoTaken ? RelievingFault::TCNoTaken : RelievingFault::None;
}

QString TextOf(RelievingFault fault)
{
    switch (fault) {
    case RelievingFault::None: break;
    case RelievingFault::NumberUnknown: return QStringLiteral("Admission No. Does Not Exist");
    case RelievingFault::AlreadyRelieved: return QStringLiteral("Student Is Already Relieved");
    case RelievingFault::NotPlaced:
        return QStringLiteral("'Student Admission Entry' Not Exists For This Student");
    case RelievingFault::Promoted:
        return QStringLiteral("Already Student Promoted Or Detained.\n"
                              "So You Cannot Relieve This Student In This Academic Year");
    case RelievingFault::RelievedBeforeAdmission:
        return QStringLiteral("Relieving Date Should Be Greater Than Admission Date");
    case RelievingFault::RelievedInFuture:
        return QStringLiteral("Future Date Cannot Be Given For 'Relieving Date'");
    case RelievingFault::TCNoMissing: return QStringLiteral("Enter TC No.");
    case RelievingFault::TCBeforeAdmission:
        return QStringLiteral("TC Date Should Be Greater Than Admission Date");
    case RelievingFault::TCInFuture: return QStringLiteral("Future Date Cannot Be Given For 'TC Date'");
    case RelievingFault::TCBeforeRelieving:
        return QStringLiteral("TC Date Should Not Be Less Than Relieving Date");
    case RelievingFault::TCBeforeRelievingWhileChoosing:
        return QStringLiteral("TC Date Should Not Be Lesser Than Relieving Date");
    case RelievingFault::TCNoTaken: return QStringLiteral("TC No. Already Exists");
    }
    return {};
}

} // namespace tally
