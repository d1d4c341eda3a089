#pragma once

#include <QPageLayout>
#include <QString>

#include <functional>

class QPagedPaintDevice;

namespace tally {

/// The only code that shows the dialogs of a printer.

/// Something to be printed.
struct PrintJob
{
    QString title; ///< the document's name at the printer
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    /// Paints all pages, and says whether the paper took them; may be asked several times. Owns what it
    /// paints.
    std::function<bool(QPagedPaintDevice& paper)> paint;
};

/// Shows the pages in a window from which they are printed. Returns at once. When printing has failed, the
/// user is told after the window.
void ShowPrintPreview(PrintJob job);

/// What stands for the preview: gets the job. An empty function brings the real one back. For tests and the
/// guided tour.
void UsePrintPreview(std::function<void(const PrintJob& job)> preview);

} // namespace tally
