#pragma once

#include "core/ui/controls/FlexGrid.h"

#include <QCoreApplication>
#include <QImage>

namespace tally::test {

/// What the eye sees at the left edge of the grid, head and rows, up to the line that sets its fixed columns
/// off.
inline QImage LeftEdge(FlexGrid* grid, int width)
{
    constexpr int Line = 2;
    QCoreApplication::processEvents();
    return grid->grab(QRect(0, 0, width - Line, grid->viewport()->geometry().bottom())).toImage();
}

} // namespace tally::test
