#include "core/ui/look/CellPaint.h"

namespace tally {

QColor CellColor(CellMark mark)
{
    switch (mark) {
    case CellMark::NotTakenForRank: return {255, 255, 176};
    case CellMark::FailedOrAbsent: return {255, 216, 176};
    case CellMark::None:
    case CellMark::Sum: break;
    }
    return {};
}

QFont CellFont(CellMark mark)
{
    QFont font;
    if (mark == CellMark::NotTakenForRank)
        font.setItalic(true);
    else if (mark != CellMark::None)
        font.setBold(true);
    return font;
}

} // namespace tally
