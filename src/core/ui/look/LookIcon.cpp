#include "core/ui/look/Look.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace tally {

namespace {

QString FileOf(const QString& name)
{
    return QStringLiteral(":/tallyboard/icons/%1.svg").arg(name);
}

QColor LineColor(QIcon::Mode mode)
{
    const QPalette palette = QApplication::palette();
    switch (mode) {
    case QIcon::Disabled: return palette.color(QPalette::Disabled, QPalette::ButtonText);
    case QIcon::Selected: return palette.color(QPalette::Active, QPalette::HighlightedText);
    case QIcon::Normal:
    case QIcon::Active: break;
    }
    return palette.color(QPalette::Active, QPalette::Highlight);
}

/// A drawing whose lines are in "currentColor", which is the palette's at the time of painting.
class LineIcon : public QIconEngine
{
public:
    explicit LineIcon(const QString& name) : name_(name) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatioF();
        painter->drawPixmap(area, pixmap((QSizeF(area.size()) * ratio).toSize(), mode, state));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        const QString color = LineColor(mode).name();
        const QString key =
            QStringLiteral("LineIcon %1 %2 %3x%4")
                .arg(name_, color, QString::number(size.width()), QString::number(size.height()));
        QPixmap picture;
        if (QPixmapCache::find(key, &picture))
            return picture;
        QFile file(FileOf(name_));
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        if (file.open(QIODevice::ReadOnly)) {
            QSvgRenderer drawing(file.readAll().replace("currentColor", color.toLatin1()));
            drawing.setAspectRatioMode(Qt::KeepAspectRatio);
            QPainter painter(&picture);
            drawing.render(&painter);
        }
        QPixmapCache::insert(key, picture);
        return picture;
    }

    QString key() const override { return QStringLiteral("LineIcon"); }
    QIconEngine* clone() const override { return new LineIcon(*this); }

private:
    QString name_;
};

} // namespace

QIcon LookIcon(const QString& name)
{
    return QFile::exists(FileOf(name)) ? QIcon(new LineIcon(name)) : QIcon();
}

} // namespace tally
