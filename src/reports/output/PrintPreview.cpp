#include "reports/output/PrintPreview.h"

#include "core/ui/ScreenHost.h"

#include <QMdiArea>
#include <QPrinter>
#include <QPrintPreviewDialog>

#include <memory>
#include <utility>

namespace tally {

namespace {

std::function<void(const PrintJob& job)>& StandIn()
{
    static std::function<void(const PrintJob& job)> preview;
    return preview;
}

} // namespace

void ShowPrintPreview(PrintJob job)
{
    if (StandIn()) {
        StandIn()(job);
        return;
    }
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(job.title);
    printer->setPageSize(QPageSize(QPageSize::A4));
    printer->setPageOrientation(job.orientation);

    const auto* host = ScreenHost::Instance();
    auto* preview =
        new QPrintPreviewDialog(printer.get(), host ? host->Area()->window() : nullptr,
                                Qt::Window | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
    preview->setAttribute(Qt::WA_DeleteOnClose);
    preview->setWindowTitle(job.title);
    // The preview does not own its printer, which goes with the last painting that may still come.
    QObject::connect(preview, &QPrintPreviewDialog::paintRequested, preview,
                     [printer, paint = std::move(job.paint)](QPrinter* paper) { paint(*paper); });
    if (preview->parentWidget())
        preview->resize(preview->parentWidget()->size() * 9 / 10);
    preview->open();
}

void UsePrintPreview(std::function<void(const PrintJob& job)> preview)
{
    StandIn() = std::move(preview);
}

} // namespace tally
