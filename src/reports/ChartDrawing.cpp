#include "reports/ChartDrawing.h"

#include "core/Numbers.h"

#include <QApplication>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QFontMetricsF>
#include <QGraphicsLayout>
#include <QGraphicsPathItem>
#include <QGraphicsScene>
#include <QLegend>
#include <QLineSeries>
#include <QPainter>
#include <QScatterSeries>
#include <QtMath>
#include <QValueAxis>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>

namespace tally {

namespace {

constexpr int MostLabelLines = 3;
constexpr int Upright = -90;
constexpr double MostUpright = 0.3; ///< of the height, for labels that stand upright
constexpr double MostLegend = 0.4;  ///< of the width
constexpr int Margin = 9;           ///< around the whole
// In heights of a letter:
constexpr double LegendLine = 1.4;
constexpr double LegendSign = 1.8; ///< the width of what stands before a name
constexpr double LegendGap = 0.4;
constexpr double WidestGroup = 0.86; ///< of the room between two labels
constexpr double WidestBar = 0.1;    ///< of the whole axis
constexpr double MarkSize = 9;
constexpr double LinePen = 2.2;

constexpr std::array Marks{QScatterSeries::MarkerShapeCircle,   QScatterSeries::MarkerShapeRectangle,
                           QScatterSeries::MarkerShapeTriangle, QScatterSeries::MarkerShapeRotatedRectangle,
                           QScatterSeries::MarkerShapePentagon, QScatterSeries::MarkerShapeStar};

QFont TitleFont(QFont letters)
{
    constexpr double Larger = 1.2;
    if (letters.pixelSize() > 0)
        letters.setPixelSize(qRound(letters.pixelSize() * Larger));
    else
        letters.setPointSizeF(letters.pointSizeF() * Larger);
    letters.setBold(true);
    return letters;
}

QFont Bold(QFont letters)
{
    letters.setBold(true);
    return letters;
}

/// The drawing takes its texts for markup.
QString Plain(const QString& text)
{
    return text.toHtmlEscaped();
}

/// The words in lines within the room; nothing where a word is wider, or the lines are too many.
std::optional<QStringList> Lines(const QString& text, const QFontMetricsF& letters, double room)
{
    QStringList lines;
    for (const QString& word : text.simplified().split(u' ')) {
        if (letters.horizontalAdvance(word) > room)
            return {};
        if (!lines.isEmpty() && letters.horizontalAdvance(lines.last() + u' ' + word) <= room)
            lines.last() += u' ' + word;
        else
            lines.append(word);
    }
    return lines.size() <= MostLabelLines ? std::optional(lines) : std::nullopt;
}

/// Puts blanks before the shorter lines and makes them plain.
void CenterLines(QStringList& lines, const QFontMetricsF& letters)
{
    double widest = 0;
    for (const QString& line : lines)
        widest = std::max(widest, letters.horizontalAdvance(line));
    const double blank = letters.horizontalAdvance(QChar(QChar::Nbsp));
    for (QString& line : lines) {
        const double before = (widest - letters.horizontalAdvance(line)) / 2;
        line = QString(qRound(before / blank), QChar::Nbsp) + Plain(line);
    }
}

struct AxisLabels
{
    QStringList texts; ///< all different, as the axis wants them; what makes them so is not to be seen
    bool upright = false;
};

/// Level where each label has room in some lines, else upright and cut in its middle, since the names of
/// exams mostly differ at their ends. `room` is that of one label when level, and of its length upright.
AxisLabels LabelsOf(const ChartTable& table, const QFontMetricsF& letters, QSizeF room)
{
    const double level = room.width() - letters.averageCharWidth();
    AxisLabels labels;
    labels.upright = std::any_of(table.rows.begin(), table.rows.end(), [&](const ChartTable::Row& row) {
        return !Lines(row.label, letters, level);
    });
    // Where even upright ones would lie over one another, some are left out.
    const auto apart = static_cast<qsizetype>(std::ceil(letters.height() / std::max(1.0, room.width())));
    for (const ChartTable::Row& row : table.rows) {
        QStringList lines;
        if (!labels.upright)
            lines = *Lines(row.label, letters, level);
        else if (labels.texts.size() % apart == 0)
            lines = {letters.elidedText(row.label.simplified(), Qt::ElideMiddle, room.height())};
        CenterLines(lines, letters);
        QString text = lines.join(QStringLiteral("<br>"));
        while (text.isEmpty() || labels.texts.contains(text))
            text += QChar(0x200b);
        labels.texts.append(text);
    }
    return labels;
}

QString HoverText(const ChartTable& table, qsizetype series, qsizetype row)
{
    if (series < 0 || series >= table.series.size() || row < 0 || row >= std::ssize(table.rows))
        return {};
    const ChartTable::Row& shown = table.rows[static_cast<std::size_t>(row)];
    return QStringLiteral("%1\n%2: %3")
        .arg(table.series[series], shown.label, PlainNumber(shown.values[static_cast<std::size_t>(series)]));
}

/// How often the colours have been gone through before this series.
std::size_t Turn(qsizetype series, const ChartColors& colors)
{
    return static_cast<std::size_t>(series) / colors.series.size();
}

QColor ColorOf(qsizetype series, const ChartColors& colors)
{
    return colors.series[static_cast<std::size_t>(series) % colors.series.size()];
}

QColor Mixed(const QColor& one, const QColor& other, double share)
{
    const auto mix = [share](int a, int b) { return static_cast<int>(a * share + b * (1 - share)); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

void Attach(QChart& drawing, QAbstractSeries* series)
{
    drawing.addSeries(series);
    for (QAbstractAxis* axis : drawing.axes())
        series->attachAxis(axis);
}

/// The drawing may outlive the chart that it was made from.
using KeptTable = std::shared_ptr<const ChartTable>;

KeptTable Kept(const Chart& chart, const ChartHover& hover)
{
    return hover ? std::make_shared<const ChartTable>(chart.table) : nullptr;
}

/// The bars of a colour that comes again differ in what their edge holds.
QColor FillOf(qsizetype series, const ChartColors& colors)
{
    const QColor color = ColorOf(series, colors);
    constexpr double Light = 0.3;
    constexpr double Lighter = 0.65;
    constexpr double Dark = 0.45;
    const std::array fills{color, Mixed(color, colors.ground, Light), Mixed(color, colors.ground, Lighter),
                           colors.ground, Mixed(color, colors.text, Dark)};
    return fills.at(Turn(series, colors) % fills.size());
}

QBarSeries* AddBars(QChart& drawing, const Chart& chart, const ChartColors& colors, const ChartHover& hover)
{
    const ChartTable& table = chart.table;
    const KeptTable kept = Kept(chart, hover);
    auto* bars = new QBarSeries;
    for (qsizetype series = 0; series < table.series.size(); ++series) {
        auto* set = new QBarSet(table.series[series]);
        for (const ChartTable::Row& row : table.rows)
            set->append(row.values[static_cast<std::size_t>(series)]);
        set->setPen(QPen(ColorOf(series, colors), 1));
        set->setBrush(FillOf(series, colors));
        set->setLabelColor(colors.text);
        if (hover)
            QObject::connect(set, &QBarSet::hovered, &drawing, [kept, hover, series](bool on, int row) {
                hover(on ? HoverText(*kept, series, row) : QString());
            });
        bars->append(set);
    }
    const qsizetype count = table.series.size() * std::ssize(table.rows);
    bars->setBarWidth(std::min(WidestGroup, WidestBar * static_cast<double>(count)));
    bars->setLabelsPosition(QAbstractBarSeries::LabelsOutsideEnd);
    Attach(drawing, bars);
    return bars;
}

/// A series as a line.
struct SeriesLook
{
    QPen line;
    QScatterSeries::MarkerShape mark;
    QColor fill; ///< of its marks
    QColor edge;
};

SeriesLook LookOf(qsizetype series, const ChartColors& colors)
{
    constexpr std::array Dashes{Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                                Qt::DashDotDotLine};
    // By then each colour has had each mark.
    constexpr std::size_t FilledTurns = 3;
    const QColor color = ColorOf(series, colors);
    const std::size_t turn = Turn(series, colors);
    const bool filled = turn < FilledTurns;
    return {.line = QPen(color, LinePen, Dashes.at(turn % Dashes.size())),
            .mark = Marks.at(static_cast<std::size_t>(series) % Marks.size()),
            .fill = filled ? color : colors.ground,
            .edge = filled ? colors.ground : color};
}

void AddLines(QChart& drawing, const Chart& chart, const ChartColors& colors, const ChartHover& hover)
{
    const ChartTable& table = chart.table;
    const KeptTable kept = Kept(chart, hover);
    for (qsizetype series = 0; series < table.series.size(); ++series) {
        auto* line = new QLineSeries;
        auto* marks = new QScatterSeries;
        double place = 0;
        for (const ChartTable::Row& row : table.rows) {
            const QPointF point(place++, row.values[static_cast<std::size_t>(series)]);
            line->append(point);
            marks->append(point);
        }
        const SeriesLook look = LookOf(series, colors);
        line->setPen(look.line);
        marks->setMarkerShape(look.mark);
        marks->setMarkerSize(MarkSize);
        marks->setColor(look.fill);
        marks->setBorderColor(look.edge);
        if (hover)
            QObject::connect(marks, &QXYSeries::hovered, &drawing,
                             [kept, hover, series](const QPointF& point, bool on) {
                                 hover(on ? HoverText(*kept, series, qRound(point.x())) : QString());
                             });
        Attach(drawing, line);
        Attach(drawing, marks);
    }
}

struct Axes
{
    QBarCategoryAxis* labels;
    QValueAxis* values;
};

void ShowRange(QValueAxis* values, const ChartAxis& range)
{
    values->setRange(0, range.top);
    values->setTickCount(range.Lines());
    values->setLabelFormat(QStringLiteral("%.%1f").arg(range.Decimals()));
}

Axes AddAxes(QChart& drawing, const Chart& chart, const ChartColors& colors, const QFont& letters)
{
    auto* labels = new QBarCategoryAxis;
    for (std::size_t row = 0; row < chart.table.rows.size(); ++row)
        labels->append(QString::number(row));
    labels->setTruncateLabels(false);
    labels->setGridLineVisible(false);
    labels->setTitleText(Plain(chart.heads.xAxis));

    auto* values = new QValueAxis;
    ShowRange(values, AxisOf(chart.table));
    values->setTitleText(Plain(chart.heads.yAxis));

    for (QAbstractAxis* axis : std::initializer_list<QAbstractAxis*>{labels, values}) {
        axis->setLabelsBrush(colors.text);
        axis->setTitleBrush(colors.text);
        axis->setLabelsFont(letters);
        axis->setTitleFont(Bold(letters));
        axis->setLinePen(QPen(colors.text, 1));
        axis->setGridLinePen(QPen(colors.grid, 1));
    }
    drawing.addAxis(labels, Qt::AlignBottom);
    drawing.addAxis(values, Qt::AlignLeft);
    return {labels, values};
}

/// The room that the drawing leaves to what stands between its axes.
QRectF LaidOut(QChart& drawing)
{
    drawing.layout()->invalidate();
    drawing.layout()->activate();
    return drawing.plotArea();
}

QPainterPath MarkPath(QScatterSeries::MarkerShape shape)
{
    constexpr double Radius = MarkSize / 2;
    constexpr double Inner = 0.45; ///< of a star
    constexpr double Pi = std::numbers::pi;
    const auto path = [](int corners, double inner) {
        QPolygonF polygon;
        for (int corner = 0; corner < corners; ++corner) {
            const double radius = corner % 2 == 0 ? Radius : Radius * inner;
            const double angle = 2 * Pi * corner / corners;
            polygon.append(QPointF(std::sin(angle), -std::cos(angle)) * radius);
        }
        QPainterPath closed;
        closed.addPolygon(polygon);
        closed.closeSubpath();
        return closed;
    };
    QPainterPath round;
    switch (shape) {
    case QScatterSeries::MarkerShapeRectangle: round.addRect(-Radius, -Radius, MarkSize, MarkSize); break;
    case QScatterSeries::MarkerShapeTriangle: return path(3, 1);
    case QScatterSeries::MarkerShapeRotatedRectangle: return path(4, 1);
    case QScatterSeries::MarkerShapePentagon: return path(5, 1);
    case QScatterSeries::MarkerShapeStar: return path(10, Inner);
    case QScatterSeries::MarkerShapeCircle: round.addEllipse({}, Radius, Radius); break;
    }
    return round;
}

/// What stands for the series before its name.
void AddSign(QChart& drawing, ChartKind kind, qsizetype series, const ChartColors& colors, const QRectF& room)
{
    auto* sign = new QGraphicsPathItem(&drawing);
    if (kind == ChartKind::Line) {
        auto* line = new QGraphicsLineItem(
            QLineF(room.left(), room.center().y(), room.right(), room.center().y()), &drawing);
        const SeriesLook look = LookOf(series, colors);
        line->setPen(look.line);
        line->stackBefore(sign);
        sign->setPath(MarkPath(look.mark).translated(room.center()));
        sign->setPen(look.edge);
        sign->setBrush(look.fill);
    } else {
        const double side = room.height() / LegendLine * 0.8;
        QPainterPath square;
        square.addRect(room.right() - side, room.center().y() - side / 2, side, side);
        sign->setPath(square);
        sign->setPen(QPen(ColorOf(series, colors), 1));
        sign->setBrush(FillOf(series, colors));
    }
}

/// Puts the names of the series to the right, in as many columns as they need. The chart's own legend would
/// have a single one, from which a chart of many subjects has no way out.
void AddLegend(QChart& drawing, const Chart& chart, const ChartColors& colors, const ChartRoom& room)
{
    const QStringList& names = chart.table.series;
    const QFontMetricsF letters(room.letters);
    const double above = QFontMetricsF(TitleFont(room.letters)).height() + 2 * Margin;
    const double height = std::max(1.0, room.size.height() - above - Margin);
    const double line = letters.height() * LegendLine;
    const qsizetype lines =
        std::min(std::max<qsizetype>(1, static_cast<qsizetype>(height / line)), names.size());
    const qsizetype columns = (names.size() + lines - 1) / lines;
    const double sign = letters.height() * LegendSign;
    const double gap = letters.height() * LegendGap;
    double widest = 0;
    for (const QString& name : names)
        widest = std::max(widest, letters.horizontalAdvance(name));
    const double column = std::min(sign + gap + std::ceil(widest) + 1 + gap,
                                   room.size.width() * MostLegend / static_cast<double>(columns));
    const double width = column * static_cast<double>(columns);
    const QPointF first(room.size.width() - Margin - width,
                        above + (height - static_cast<double>(lines) * line) / 2);
    for (qsizetype series = 0; series < names.size(); ++series) {
        const qsizetype of = series / lines;
        const QPointF place = first + QPointF(column * static_cast<double>(of),
                                              line * static_cast<double>(series - of * lines));
        AddSign(drawing, chart.kind, series, colors, {place, QSizeF(sign, line)});
        auto* text = new QGraphicsSimpleTextItem(
            letters.elidedText(names[series], Qt::ElideRight, column - sign - 2 * gap), &drawing);
        text->setFont(room.letters);
        text->setBrush(colors.text);
        text->setPos(place + QPointF(sign + gap, (line - letters.height()) / 2));
    }
    drawing.legend()->hide();
    drawing.setMargins({Margin, Margin, qCeil(width) + 2 * Margin, Margin});
}

/// What stands at an end of the axis of values is to be seen whole.
void LetMarksPassTheEdge(const QChart& drawing)
{
    for (QGraphicsItem* item : drawing.childItems())
        item->setFlag(QGraphicsItem::ItemClipsChildrenToShape, false);
}

/// Whether the numbers over the bars have room side by side.
bool NumbersHaveRoom(const ChartTable& table, const QBarSeries& bars, const QFontMetricsF& letters,
                     double width)
{
    double widest = 0;
    for (const ChartTable::Row& row : table.rows)
        for (const double value : row.values)
            widest = std::max(widest, letters.horizontalAdvance(PlainNumber(value)));
    const double bar =
        width * bars.barWidth() / static_cast<double>(table.series.size() * std::ssize(table.rows));
    return widest + letters.averageCharWidth() / 2 <= bar;
}

} // namespace

ChartColors ColorsOfCharts(bool dark)
{
    if (dark)
        return {QColor(0x1d, 0x21, 0x25),
                QColor(0xe8, 0xec, 0xef),
                QColor(0x3c, 0x45, 0x4e),
                {QColor(0x53, 0xd2, 0xff), QColor(0xed, 0x74, 0x00), QColor(0x00, 0x9a, 0x57),
                 QColor(0xfe, 0xad, 0xa6), QColor(0xff, 0xf9, 0x6d), QColor(0x51, 0x5d, 0xe1),
                 QColor(0xce, 0xff, 0xff), QColor(0x9c, 0x77, 0xa7)}};
    return {QColor(0xff, 0xff, 0xff),
            QColor(0x1d, 0x27, 0x30),
            QColor(0xd5, 0xdc, 0xe2),
            {QColor(0x25, 0x4c, 0xdc), QColor(0xd3, 0x7c, 0x22), QColor(0x1a, 0x54, 0x33),
             QColor(0xb3, 0x23, 0x9e), QColor(0x7d, 0x4e, 0x00), QColor(0x17, 0x99, 0xf2),
             QColor(0x11, 0x00, 0x1e), QColor(0x93, 0x92, 0x7d)}};
}

std::unique_ptr<QChart> DrawChart(const Chart& chart, const ChartColors& colors, const ChartRoom& room,
                                  const ChartHover& hover)
{
    auto drawing = std::make_unique<QChart>();
    drawing->setBackgroundBrush(colors.ground);
    drawing->setBackgroundRoundness(0);
    drawing->setTitle(Plain(chart.heads.title));
    drawing->setTitleFont(TitleFont(room.letters));
    drawing->setTitleBrush(colors.text);
    drawing->resize(room.size);
    const ChartTable& table = chart.table;
    if (table.rows.empty() || table.series.isEmpty())
        return drawing;

    const Axes axes = AddAxes(*drawing, chart, colors, room.letters);
    AddLegend(*drawing, chart, colors, room);
    QBarSeries* bars = nullptr;
    if (chart.kind == ChartKind::Line)
        AddLines(*drawing, chart, colors, hover);
    else
        bars = AddBars(*drawing, chart, colors, hover);

    const QFontMetricsF letters(room.letters);
    QRectF plot = LaidOut(*drawing);
    const AxisLabels labels =
        LabelsOf(table, letters,
                 {plot.width() / static_cast<double>(table.rows.size()), room.size.height() * MostUpright});
    axes.labels->setCategories(labels.texts);
    if (labels.upright)
        axes.labels->setLabelsAngle(Upright);
    plot = LaidOut(*drawing);
    if (bars && NumbersHaveRoom(table, *bars, letters, plot.width())) {
        bars->setLabelsVisible(true);
        ShowRange(axes.values, AxisOf(table, letters.height() / std::max(1.0, plot.height())));
    }
    LetMarksPassTheEdge(*drawing);
    return drawing;
}

void PaintChart(QPainter& painter, const QRectF& room, const Chart& chart, QSizeF size)
{
    // Counted in the units of the size: what paper or picture the drawing goes to has other dots than the
    // display.
    constexpr int LetterSize = 12;
    QFont letters = QApplication::font();
    letters.setPixelSize(LetterSize);
    letters.setHintingPreference(QFont::PreferNoHinting);
    QGraphicsScene scene;
    QChart* drawing = DrawChart(chart, ColorsOfCharts(false), {size, letters}).release();
    scene.addItem(drawing);
    LaidOut(*drawing);
    scene.setSceneRect(QRectF({}, size));
    scene.render(&painter, room, scene.sceneRect(), Qt::KeepAspectRatio);
}

} // namespace tally
