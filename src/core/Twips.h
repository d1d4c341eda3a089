#pragma once

namespace tally {

/// The sizes of windows and their parts were laid down in twips, of which this many make a pixel.
inline constexpr int TwipsPerPixel = 15;

} // namespace tally
