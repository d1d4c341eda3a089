#include "reports/ChartDrawing.h"

#include "core/Numbers.h"

#include <QApplication>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QLegend>
#include <QLegendMarker>
#include <QLineSeries>
#include <QPainter>
#include <QScatterSeries>
#include <QValueAxis>

#include <algorithm>
#include <array>
#include <optional>

namespace tally {

namespace {

/// With more bars than these the numbers over them would lie over one another.
constexpr int MostNumberedBars = 14;
/// So many letters have room side by side along the axis of the smallest window.
constexpr qsizetype LettersAlongAxis = 88;
constexpr int MostLabelLines = 3;
/// Upright labels take from the height of the chart.
constexpr qsizetype MostUprightLetters = 16;
constexpr int Upright = -90;
constexpr double WidestGroup = 0.86; ///< of the room between two labels
constexpr double WidestBar = 0.1;    ///< of the whole axis
constexpr double MarkSize = 9;
constexpr double LinePen = 2.2;

constexpr std::array Marks{QScatterSeries::MarkerShapeCircle,   QScatterSeries::MarkerShapeRectangle,
                           QScatterSeries::MarkerShapeTriangle, QScatterSeries::MarkerShapeRotatedRectangle,
                           QScatterSeries::MarkerShapePentagon, QScatterSeries::MarkerShapeStar};

QFont ChartFont(double factor, bool bold = false)
{
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    return font;
}

/// The drawing takes its texts for markup.
QString Plain(const QString& text)
{
    return text.toHtmlEscaped();
}

/// The words in lines of at most so many letters; nothing where a word has more, or the lines are too many.
std::optional<QStringList> Lines(const QString& text, qsizetype letters)
{
    QStringList lines;
    for (const QString& word : text.simplified().split(u' ')) {
        if (word.size() > letters)
            return {};
        if (!lines.isEmpty() && lines.last().size() + 1 + word.size() <= letters)
            lines.last() += u' ' + word;
        else
            lines.append(word);
    }
    return lines.size() <= MostLabelLines ? std::optional(lines) : std::nullopt;
}

/// Puts blanks before the shorter lines, each about half as wide as a letter, and makes them plain.
void CenterLines(QStringList& lines)
{
    qsizetype longest = 0;
    for (const QString& line : lines)
        longest = std::max(longest, line.size());
    for (QString& line : lines)
        line = QString(longest - line.size(), QChar::Nbsp) + Plain(line);
}

/// Cut in its middle, since the names of exams mostly differ at their ends.
QString Shortened(const QString& text)
{
    if (text.size() <= MostUprightLetters)
        return text;
    constexpr qsizetype Half = MostUprightLetters / 2;
    return text.left(Half) + QChar(0x2026) + text.right(Half - 1);
}

struct AxisLabels
{
    QStringList texts; ///< all different, as the axis wants them; what makes them so is not to be seen
    bool upright = false;
};

/// Level where all labels have room in some lines, else upright.
AxisLabels LabelsOf(const ChartTable& table)
{
    const qsizetype letters = LettersAlongAxis / std::max<qsizetype>(1, std::ssize(table.rows));
    AxisLabels labels;
    labels.upright = std::any_of(table.rows.begin(), table.rows.end(), [letters](const ChartTable::Row& row) {
        return !Lines(row.label, letters);
    });
    for (const ChartTable::Row& row : table.rows) {
        QStringList lines = labels.upright ? QStringList(Shortened(row.label)) : *Lines(row.label, letters);
        CenterLines(lines);
        QString text = lines.join(QStringLiteral("<br>"));
        while (labels.texts.contains(text))
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

void AddBars(QChart& drawing, const Chart& chart, const ChartColors& colors, const ChartHover& hover)
{
    // Of a colour that comes again, the bars have less and less of it within their edge.
    constexpr std::array Fill{1.0, 0.3, 0.65};
    const ChartTable& table = chart.table;
    const KeptTable kept = Kept(chart, hover);
    auto* bars = new QBarSeries;
    for (qsizetype series = 0; series < table.series.size(); ++series) {
        auto* set = new QBarSet(Plain(table.series[series]));
        for (const ChartTable::Row& row : table.rows)
            set->append(row.values[static_cast<std::size_t>(series)]);
        const QColor color = ColorOf(series, colors);
        set->setPen(QPen(color, 1));
        set->setBrush(Mixed(color, colors.ground, Fill[Turn(series, colors) % Fill.size()]));
        set->setLabelColor(colors.text);
        if (hover)
            QObject::connect(set, &QBarSet::hovered, &drawing, [kept, hover, series](bool on, int row) {
                hover(on ? HoverText(*kept, series, row) : QString());
            });
        bars->append(set);
    }
    const qsizetype count = table.series.size() * std::ssize(table.rows);
    bars->setBarWidth(std::min(WidestGroup, WidestBar * static_cast<double>(count)));
    if (count <= MostNumberedBars) {
        bars->setLabelsVisible(true);
        bars->setLabelsPosition(QAbstractBarSeries::LabelsOutsideEnd);
    }
    Attach(drawing, bars);
}

void AddLines(QChart& drawing, const Chart& chart, const ChartColors& colors, const ChartHover& hover)
{
    constexpr std::array Dashes{Qt::SolidLine, Qt::DashLine, Qt::DotLine};
    const ChartTable& table = chart.table;
    const KeptTable kept = Kept(chart, hover);
    for (qsizetype series = 0; series < table.series.size(); ++series) {
        const QColor color = ColorOf(series, colors);
        auto* line = new QLineSeries;
        auto* marks = new QScatterSeries;
        double place = 0;
        for (const ChartTable::Row& row : table.rows) {
            const QPointF point(place++, row.values[static_cast<std::size_t>(series)]);
            line->append(point);
            marks->append(point);
        }
        line->setPen(QPen(color, LinePen, Dashes[Turn(series, colors) % Dashes.size()]));
        marks->setName(Plain(table.series[series]));
        marks->setMarkerShape(Marks[static_cast<std::size_t>(series) % Marks.size()]);
        marks->setMarkerSize(MarkSize);
        marks->setColor(color);
        marks->setBorderColor(colors.ground);
        if (hover)
            QObject::connect(marks, &QXYSeries::hovered, &drawing,
                             [kept, hover, series](const QPointF& point, bool on) {
                                 hover(on ? HoverText(*kept, series, qRound(point.x())) : QString());
                             });
        Attach(drawing, line);
        Attach(drawing, marks);
        const auto ofLine = drawing.legend()->markers(line);
        for (QLegendMarker* marker : ofLine)
            marker->setVisible(false);
    }
}

void AddAxes(QChart& drawing, const Chart& chart, const ChartColors& colors)
{
    auto* labels = new QBarCategoryAxis;
    const AxisLabels texts = LabelsOf(chart.table);
    labels->append(texts.texts);
    labels->setTruncateLabels(false);
    if (texts.upright)
        labels->setLabelsAngle(Upright);
    labels->setGridLineVisible(false);
    labels->setTitleText(Plain(chart.heads.xAxis));

    const ChartAxis range = AxisOf(chart.table);
    auto* values = new QValueAxis;
    values->setRange(0, range.top);
    values->setTickCount(range.Lines());
    values->setLabelFormat(range.step < 1 ? QStringLiteral("%.1f") : QStringLiteral("%.0f"));
    values->setTitleText(Plain(chart.heads.yAxis));

    for (QAbstractAxis* axis : std::initializer_list<QAbstractAxis*>{labels, values}) {
        axis->setLabelsBrush(colors.text);
        axis->setTitleBrush(colors.text);
        axis->setLabelsFont(ChartFont(1));
        axis->setTitleFont(ChartFont(1, true));
        axis->setLinePen(QPen(colors.text, 1));
        axis->setGridLinePen(QPen(colors.grid, 1));
    }
    drawing.addAxis(labels, Qt::AlignBottom);
    drawing.addAxis(values, Qt::AlignLeft);
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

std::unique_ptr<QChart> DrawChart(const Chart& chart, const ChartColors& colors, const ChartHover& hover)
{
    auto drawing = std::make_unique<QChart>();
    drawing->setBackgroundBrush(colors.ground);
    drawing->setBackgroundRoundness(0);
    drawing->setTitle(Plain(chart.heads.title));
    drawing->setTitleFont(ChartFont(1.2, true));
    drawing->setTitleBrush(colors.text);
    drawing->legend()->setAlignment(Qt::AlignRight);
    drawing->legend()->setFont(ChartFont(1));
    drawing->legend()->setLabelColor(colors.text);
    drawing->legend()->setMarkerShape(chart.kind == ChartKind::Line ? QLegend::MarkerShapeFromSeries
                                                                    : QLegend::MarkerShapeRectangle);
    if (chart.table.rows.empty() || chart.table.series.isEmpty())
        return drawing;
    AddAxes(*drawing, chart, colors);
    if (chart.kind == ChartKind::Line)
        AddLines(*drawing, chart, colors, hover);
    else
        AddBars(*drawing, chart, colors, hover);
    return drawing;
}

void PaintChart(QPainter& painter, const QRectF& room, const Chart& chart, QSizeF size)
{
    QGraphicsScene scene;
    QChart* drawing = DrawChart(chart, ColorsOfCharts(false)).release();
    scene.addItem(drawing);
    drawing->resize(size);
    drawing->layout()->activate();
    scene.setSceneRect(QRectF({}, size));
    scene.render(&painter, room, scene.sceneRect(), Qt::KeepAspectRatio);
}

} // namespace tally
