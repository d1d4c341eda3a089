#pragma once

#include "core/GridTable.h"

#include <QColor>
#include <QFont>

namespace tally {

/// The paint behind a marked cell, in both looks; an invalid colour for a mark that has none.
QColor CellColor(CellMark mark);
/// A mark shows in the letters too, for those whom its colour does not reach. Changes nothing for None.
QFont CellFont(CellMark mark);

} // namespace tally
