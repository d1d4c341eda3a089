#pragma once

#include "reports/ChartTable.h"

#include <QChart>
#include <QColor>
#include <QFont>
#include <QSizeF>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QPainter;

namespace tally {

/// The colours of a chart. Whoever cannot tell red from green, or blue from yellow, can tell all colours of
/// the series, and each of them has 3:1 against the ground.
struct ChartColors
{
    QColor ground;
    QColor text;
    QColor grid;
    std::vector<QColor> series;
};
/// `dark` for a display in the dark look; paper and pictures are light.
ChartColors ColorsOfCharts(bool dark);

/// Hears of the value under the mouse; an empty text when the mouse has left it.
using ChartHover = std::function<void(const QString& text)>;

/// What a drawing is to fill, and the letters that it takes.
struct ChartRoom
{
    QSizeF size;
    QFont letters;
};

/// The drawing, to be put into a scene; labels, legend and numbers have their places for this room. Series
/// beyond the number of colours come in bars with an edge of their colour and other fillings, lines with
/// other marks and dashes, so that no two of forty look alike.
std::unique_ptr<QChart> DrawChart(const Chart& chart, const ChartColors& colors, const ChartRoom& room,
                                  const ChartHover& hover = {});

/// Paints the chart, light, over the whole of `room`, with letters as large as on a page or picture of
/// `size`. All lines and letters stay lines and letters, so that paper and drawings show them sharp.
void PaintChart(QPainter& painter, const QRectF& room, const Chart& chart, QSizeF size);

} // namespace tally
