#include "reports/output/GridPrint.h"

#include "core/ui/controls/HourGlass.h"
#include "reports/output/GridPages.h"
#include "reports/output/PrintPreview.h"

#include <memory>

namespace tally {

void ShowGridPreview(const GridTable& grid, const QString& title, const QString& subTitle)
{
    const HourGlass hourGlass;
    const auto pages = std::make_shared<GridPages>(grid, title, subTitle);
    ShowPrintPreview(
        {title, pages->Orientation(), [pages](QPagedPaintDevice& paper) { return pages->Paint(paper) > 0; }});
}

} // namespace tally
