#pragma once

#include <QDate>
#include <QString>

#include <cstdint>

namespace tally {

/// How a student leaves the school.
struct Relieving
{
    QDate relievingDate;
    QString reason;
    QString tcNo; ///< of the transfer certificate
    QDate tcDate;
};

/// What speaks against entering that a student leaves.
struct RelievingFacts
{
    bool relieved = false; ///< by another entry than the one in hand
    bool placed = false;   ///< in the year in use
    bool promoted = false; ///< to a later year, which holds him now
    QDate admissionDate;   ///< invalid where it is not known; nothing is compared with it then
    QDate lastWorkingDay;  ///< the last day that any year's calendar has reached; invalid for none
    bool tcNoTaken = false;
};

enum class RelievingFault : std::uint8_t
{
    None,
    NumberUnknown,
    AlreadyRelieved,
    NotPlaced,
    Promoted,
    RelievedBeforeAdmission,
    RelievedInFuture,
    TCNoMissing,
    TCBeforeAdmission,
    TCInFuture,
    TCBeforeRelieving,
    TCBeforeRelievingWhileChoosing, ///< the same, which the office is told in a word of its own
    TCNoTaken,
};

/// Of a number that has been entered and belongs to a student.
RelievingFault FaultOfStudent(const RelievingFacts& facts);
/// Of the relieving date that has been chosen. The day of the admission itself passes.
RelievingFault FaultOfRelievingDate(const QDate& relievingDate, const RelievingFacts& facts);
/// Of the date of the certificate, while it is chosen.
RelievingFault FaultOfTCDate(const Relieving& entry, const RelievingFacts& facts);
/// Of the whole entry: the first fault in the order in which the office is told.
RelievingFault FaultOfRelieving(const Relieving& entry, const RelievingFacts& facts);

/// What the user is told of a fault; empty for none.
QString TextOf(RelievingFault fault);

} // namespace tally
