#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace tally {

/// What speaks against giving a student another class-division in a year, or any at all.
struct PlacementFacts
{
    bool relieved = false;
    int placements = 0;      ///< in all years
    int laterPlacements = 0; ///< in the years behind this one
    int marks = 0;           ///< in this year
};

enum class PlacementFault : std::uint8_t
{
    None,
    Relieved,
    Promoted,
    AlreadyPlaced,
    HasMarks,
};

/// Why a student must not be placed. The first fault in the order in which the office is told.
PlacementFault FaultOfPlacing(const PlacementFacts& facts);
/// Why a placement must not be corrected. A single later year is no fault: whoever may open the placement for
/// a correction has none.
PlacementFault FaultOfCorrecting(const PlacementFacts& facts);
/// Why a placement must not be deleted. A later year or marks would be left without it.
PlacementFault FaultOfDeleting(const PlacementFacts& facts);

/// What the user is told of a fault; empty for none.
QString TextOf(PlacementFault fault);

/// A student with a second year keeps his class; only his division may be corrected.
bool KeepsClass(const PlacementFacts& facts);

/// What the user is asked, one after the other, before he may look at a placement that can no longer be
/// changed; nothing where it can be.
QStringList QuestionsBeforeViewing(const PlacementFacts& facts, const QString& admissionNo);

} // namespace tally
