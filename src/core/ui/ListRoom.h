#pragma once

#include <QSize>

namespace tally {

/// The size with which a screen opens that lives of its list: as much of it as most displays can show. A
/// smaller display bounds it.
inline constexpr QSize ListRoom{1400, 1400};

} // namespace tally
