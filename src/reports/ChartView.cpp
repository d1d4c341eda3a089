#include "reports/ChartView.h"

#include "core/ui/look/Look.h"
#include "core/ui/Prompts.h"
#include "reports/output/FileName.h"
#include "store/OwnFiles.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QCursor>
#include <QEvent>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <QToolTip>

namespace tally {

namespace {

// What is handed to others is drawn at one size, whatever the window's is.
constexpr QSize PictureSize(1000, 640);
constexpr int PictureDots = 2; ///< to each unit of the size, in either direction

} // namespace

ChartView::ChartView(QWidget* parent) : QChartView(parent)
{
    setRenderHint(QPainter::Antialiasing);
    setFrameShape(QFrame::NoFrame);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    AddEntry(QStringLiteral("Copy Picture"), QKeySequence::Copy, &ChartView::CopyPicture);
    AddEntry(QStringLiteral("Save As PNG..."), {}, &ChartView::SavePicture);
    AddEntry(QStringLiteral("Save As SVG..."), {}, &ChartView::SaveDrawing);
    Redraw();
}

void ChartView::AddEntry(const QString& text, const QKeySequence& keys, void (ChartView::*handler)())
{
    auto* entry = new QAction(text, this);
    entry->setShortcut(keys);
    entry->setShortcutContext(Qt::WidgetShortcut);
    connect(entry, &QAction::triggered, this, handler);
    addAction(entry);
}

void ChartView::SetChart(const Chart& chart)
{
    shown_ = chart;
    Redraw();
}

void ChartView::Redraw()
{
    const QChart* before = chart();
    const auto hover = [this](const QString& text) {
        if (text.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(QCursor::pos(), WrappedToolTip(text), this);
    };
    setChart(DrawChart(shown_, ColorsOfCharts(IsDark(palette())), {viewport()->size(), QApplication::font()},
                       hover)
                 .release());
    delete before;
}

void ChartView::changeEvent(QEvent* event)
{
    QChartView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        Redraw();
}

void ChartView::resizeEvent(QResizeEvent* event)
{
    QChartView::resizeEvent(event);
    Redraw();
}

bool ChartView::viewportEvent(QEvent* event)
{
    // The scene, which has no tips of its own, would take away that of the value where the mouse rests.
    return event->type() == QEvent::ToolTip || QChartView::viewportEvent(event);
}

QImage ChartView::Picture() const
{
    QImage picture(PictureSize * PictureDots, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintChart(painter, picture.rect(), shown_, PictureSize);
    return picture;
}

QByteArray ChartView::Drawing() const
{
    QBuffer bytes;
    QSvgGenerator generator;
    generator.setOutputDevice(&bytes);
    generator.setSize(PictureSize);
    generator.setViewBox(QRect(QPoint(), PictureSize));
    generator.setTitle(shown_.heads.title);
    QPainter painter(&generator);
    PaintChart(painter, QRectF(QPointF(), PictureSize), shown_, PictureSize);
    painter.end();
    return bytes.data();
}

void ChartView::CopyPicture()
{
    QApplication::clipboard()->setImage(Picture());
}

void ChartView::SavePicture()
{
    QByteArray content;
    QBuffer bytes(&content);
    bytes.open(QIODevice::WriteOnly);
    Picture().save(&bytes, "PNG");
    Save(QStringLiteral("Pictures (*.png)"), QStringLiteral(".png"), content);
}

void ChartView::SaveDrawing()
{
    Save(QStringLiteral("Drawings (*.svg)"), QStringLiteral(".svg"), Drawing());
}

void ChartView::Save(const QString& filter, const QString& ending, const QByteArray& content) const
{
    const QString name = FileNameOf(shown_.heads.title);
    const QString path = Prompts::ChooseFileToSave(QStringLiteral("Save Chart As"),
                                                   name.isEmpty() ? QString() : name + ending, filter);
    if (path.isEmpty())
        return;
    if (QFile::exists(path) &&
        !Prompts::Ask(
            QStringLiteral("The File \"%1\" Already Exists. Do You Want To Replace It ?").arg(path)))
        return;
    if (!store::ReplaceFile(path, content))
        Prompts::Critical(
            QStringLiteral("The chart could not be saved as \"%1\". The disk may be full, or you may not "
                           "write there.")
                .arg(path));
}

} // namespace tally
