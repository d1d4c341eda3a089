#pragma once

#include <span>

namespace tally::store {

/// What the help window shows for one screen, in UTF-8.
struct HelpText
{
    int screenNumber; ///< the number that the screen's F1 key asks for
    const char* screenName;
    const char* details;
};

/// One text for each help number, in the order of the numbers.
std::span<const HelpText> HelpTexts();

} // namespace tally::store
