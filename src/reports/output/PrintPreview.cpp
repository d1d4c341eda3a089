#include "reports/output/PrintPreview.h"

#include "core/ui/Prompts.h"
#include "core/ui/ScreenHost.h"

#include <QFile>
#include <QMdiArea>
#include <QPaintEngine>
#include <QPrinter>
#include <QPrintPreviewDialog>

#include <algorithm>
#include <memory>
#include <utility>

namespace tally {

namespace {

std::function<void(const PrintJob& job)>& StandIn()
{
    static std::function<void(const PrintJob& job)> preview;
    return preview;
}

/// Whether all that was printed has come out. A file on a full disk lacks its end, of which the printer says
/// nothing.
bool HasTaken(const QPrinter& printer)
{
    if (printer.printerState() == QPrinter::Error)
        return false;
    if (printer.outputFormat() != QPrinter::PdfFormat || printer.outputFileName().isEmpty())
        return true;
    const QByteArray end("%%EOF");
    QFile file(printer.outputFileName());
    return file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(0, file.size() - end.size() - 2)) &&
           file.readAll().contains(end);
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
    auto failed = std::make_shared<bool>(false);
    QObject::connect(preview, &QPrintPreviewDialog::paintRequested, preview,
                     [printer, failed, paint = std::move(job.paint)](QPrinter* paper) {
                         // The window paints for itself too, and nothing comes out then.
                         const bool shows = paper->paintEngine()->type() == QPaintEngine::Picture;
                         if (!(paint(*paper) && HasTaken(*paper)) && !shows)
                             *failed = true;
                     });
    QObject::connect(preview, &QDialog::finished, preview, [failed, title = job.title] {
        if (*failed)
            Prompts::Critical(
                QStringLiteral("\"%1\" could not be printed. The printer may not be there, or the "
                               "file may not be written.")
                    .arg(title));
    });
    if (preview->parentWidget())
        preview->resize(preview->parentWidget()->size() * 4 / 5);
    preview->open();
}

void UsePrintPreview(std::function<void(const PrintJob& job)> preview)
{
    StandIn() = std::move(preview);
}

} // namespace tally
