#pragma once

namespace tally {

/// The class-division in which a student sits in one year; without codes for none.
struct Placement
{
    int classCode = 0;
    int divisionCode = 0; ///< unique only within its class

    bool IsComplete() const { return classCode != 0 && divisionCode != 0; }
    bool operator==(const Placement&) const = default;
};

} // namespace tally
