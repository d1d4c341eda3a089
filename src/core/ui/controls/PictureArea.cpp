#include "core/ui/controls/PictureArea.h"

#include "core/ui/look/Look.h"

#include <QMdiSubWindow>
#include <QPainter>
#include <QPaintEvent>

#include <algorithm>

namespace tally {

namespace {

/// Over the picture in a dark look, so that nothing behind the forms is brighter than they are.
constexpr QColor Dusk(12, 18, 24, 190);

} // namespace

PictureArea::PictureArea(QWidget* parent) : QMdiArea(parent)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // A form of a few fields that opens over a list which fills the window keeps its own size.
    setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    // Who leaves a form goes on in the one from which it was opened.
    setActivationOrder(QMdiArea::ActivationHistoryOrder);
}

void PictureArea::SetPicture(const QPixmap& picture)
{
    picture_ = picture;
    scaled_ = QPixmap();
    viewport()->update();
}

void PictureArea::changeEvent(QEvent* event)
{
    QMdiArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        scaled_ = QPixmap();
}

void PictureArea::resizeEvent(QResizeEvent* event)
{
    QMdiArea::resizeEvent(event);
    // The scroll bars change the viewport too, and while a screen is being moved nothing may push it back.
    if (size() == sizeBefore_)
        return;
    sizeBefore_ = size();
    const QSize room = maximumViewportSize();
    for (QMdiSubWindow* frame : subWindowList()) {
        if (frame->isMaximized())
            continue;
        frame->resize(frame->size().boundedTo(room));
        frame->move(std::clamp(frame->x(), 0, std::max(0, room.width() - frame->width())),
                    std::clamp(frame->y(), 0, std::max(0, room.height() - frame->height())));
    }
}

void PictureArea::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    if (picture_.isNull())
        painter.fillRect(event->rect(), palette().window());
    else
        painter.drawPixmap(0, 0, Scaled());
}

const QPixmap& PictureArea::Scaled()
{
    const qreal ratio = devicePixelRatioF();
    const QSize wanted = viewport()->size() * ratio;
    if (scaled_.size() != wanted) {
        const QPixmap covering =
            picture_.scaled(wanted, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
        scaled_ = covering.copy(
            QRect(QPoint((covering.width() - wanted.width()) / 2, (covering.height() - wanted.height()) / 2),
                  wanted));
        if (IsDark(palette()))
            QPainter(&scaled_).fillRect(scaled_.rect(), Dusk);
        scaled_.setDevicePixelRatio(ratio);
    }
    return scaled_;
}

} // namespace tally
