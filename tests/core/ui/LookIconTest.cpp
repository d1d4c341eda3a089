#include "core/ui/look/Look.h"

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <gtest/gtest.h>

namespace tally::test {
namespace {

QPixmap Save(const QSize& size, QIcon::Mode mode = QIcon::Normal)
{
    return LookIcon(QStringLiteral("save")).pixmap(size, mode);
}

/// The colour of the lines; an invalid one where they are not all of one colour.
QColor InkOf(const QPixmap& drawing)
{
    const QImage picture = drawing.toImage();
    QColor ink;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (const QColor point = picture.pixelColor(x, y); point.alpha() == 255) {
                if (ink.isValid() && ink != point)
                    return {};
                ink = point;
            }
    return ink;
}

TEST(LookIconTest, AnUnknownNameHasNoIcon)
{
    EXPECT_TRUE(LookIcon(QStringLiteral("kite of tomorrow")).isNull());
}

TEST(LookIconTest, ItsLinesAreInTheColourOfWhatItStandsIn)
{
    const QPalette palette = QApplication::palette();
    const QSize size(32, 32);
    for (const auto mode : {QIcon::Normal, QIcon::Active})
        EXPECT_EQ(InkOf(Save(size, mode)), palette.color(QPalette::Highlight));
    EXPECT_EQ(InkOf(Save(size, QIcon::Disabled)), palette.color(QPalette::Disabled, QPalette::ButtonText));
    EXPECT_EQ(InkOf(Save(size, QIcon::Selected)), palette.color(QPalette::HighlightedText));
}

TEST(LookIconTest, IsDrawnOnceForEachSizeAndColour)
{
    const auto drawing = [](int size, QIcon::Mode mode) { return Save({size, size}, mode).cacheKey(); };
    EXPECT_EQ(drawing(20, QIcon::Normal), drawing(20, QIcon::Normal));
    EXPECT_NE(drawing(20, QIcon::Normal), drawing(22, QIcon::Normal));
    EXPECT_NE(drawing(20, QIcon::Normal), drawing(20, QIcon::Disabled));
}

TEST(LookIconTest, KeepsItsShapeInAWideOrHighPlace)
{
    const QImage square = Save({16, 16}).toImage();
    EXPECT_EQ(Save({48, 16}).toImage().copy(16, 0, 16, 16), square);
    EXPECT_EQ(Save({16, 48}).toImage().copy(0, 16, 16, 16), square);
}

TEST(LookIconTest, IsAsSharpAsTheDisplayIs)
{
    QImage display(64, 64, QImage::Format_ARGB32_Premultiplied);
    display.setDevicePixelRatio(2);
    display.fill(Qt::transparent);
    QPainter painter(&display);
    LookIcon(QStringLiteral("save")).paint(&painter, QRect(0, 0, 32, 32));
    painter.end();
    display.setDevicePixelRatio(1);
    EXPECT_EQ(display, Save({64, 64}).toImage().convertToFormat(display.format()));
}

} // namespace
} // namespace tally::test
