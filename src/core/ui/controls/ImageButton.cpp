#include "core/ui/controls/ImageButton.h"

#include <QKeyEvent>
#include <QPainter>

namespace tally {

ImageButton::ImageButton(QWidget* parent) : QAbstractButton(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ImageButton::SetPicture(const QPixmap& picture)
{
    picture_ = picture;
    updateGeometry();
    update();
}

QSize ImageButton::sizeHint() const
{
    return picture_.deviceIndependentSize().toSize();
}

void ImageButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
    if (!hasFocus())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), 6, 6);
}

void ImageButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace tally
