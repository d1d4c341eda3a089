#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

/// render_picture drawing.svg picture.jpg: paints a drawing at its own size. Part of the build; needs no
/// display.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: render_picture drawing.svg picture.jpg\n", stderr);
        return 2;
    }
    QSvgRenderer drawing(arguments.at(1));
    if (!drawing.isValid()) {
        std::fprintf(stderr, "%s is not a drawing\n", qPrintable(arguments.at(1)));
        return 1;
    }
    QImage picture(drawing.defaultSize(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    drawing.render(&painter);
    painter.end();
    constexpr int Quality = 90;
    if (!picture.save(arguments.at(2), "JPEG", Quality)) {
        std::fprintf(stderr, "%s can't be written\n", qPrintable(arguments.at(2)));
        return 1;
    }
    return 0;
}
