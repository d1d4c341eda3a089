#include "reports/ChartDrawing.h"

#include "support/TestPaper.h"

#include <QApplication>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QFontMetricsF>
#include <QGraphicsLayout>
#include <QGraphicsLineItem>
#include <QGraphicsPathItem>
#include <QGraphicsScene>
#include <QImage>
#include <QLineSeries>
#include <QPainter>
#include <QRegularExpression>
#include <QScatterSeries>
#include <QValueAxis>

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <set>

namespace tally::test {
namespace {

/// Exams and subjects, each with a value of its own.
Chart ChartOfSize(int subjects, int exams, ChartKind kind)
{
    Chart chart{.table = {.labelColumn = "ExamName", .series = {}, .rows = {}},
                .heads = {QStringLiteral("Marks Of Asha"), QStringLiteral("EXAMS"), QStringLiteral("MARKS")},
                .kind = kind};
    for (int subject = 0; subject < subjects; ++subject)
        chart.table.series.append(QStringLiteral("Su%1").arg(subject));
    for (int exam = 0; exam < exams; ++exam) {
        chart.table.rows.push_back({QStringLiteral("Exam%1").arg(exam), {}});
        for (int subject = 0; subject < subjects; ++subject)
            chart.table.rows.back().values.push_back((exam * 7 + subject * 13) % 97 + 0.25);
    }
    return chart;
}

/// The chart on a page of the printer.
std::unique_ptr<TestPaper> Print(const Chart& chart)
{
    auto paper = std::make_unique<TestPaper>(QPageLayout::Landscape);
    QPainter painter(paper.get());
    constexpr QSizeF Size(1000, 640);
    PaintChart(painter, paper->Edges(), chart, Size);
    painter.end();
    return paper;
}

struct Linear
{
    double red, green, blue;
};

double Linearized(int channel)
{
    const double share = channel / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

Linear LinearOf(const QColor& color)
{
    return {Linearized(color.red()), Linearized(color.green()), Linearized(color.blue())};
}

double Contrast(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& color) {
        const Linear light = LinearOf(color);
        return 0.2126 * light.red + 0.7152 * light.green + 0.0722 * light.blue;
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

using Sight = std::array<std::array<double, 3>, 3>;
/// How eyes see that lack nothing, and those without one of the three kinds of cones.
constexpr std::array<Sight, 4> Sights{
    {{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
     {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
     {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
     {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}}};

std::array<double, 3> Seen(const QColor& color, const Sight& sight)
{
    const Linear light = LinearOf(color);
    std::array<double, 3> rgb{};
    for (std::size_t channel = 0; channel < 3; ++channel)
        rgb.at(channel) = std::clamp(sight.at(channel)[0] * light.red + sight.at(channel)[1] * light.green +
                                         sight.at(channel)[2] * light.blue,
                                     0.0, 1.0);
    const auto cone = [](double share) {
        return share > 0.008856 ? std::cbrt(share) : 7.787 * share + 16.0 / 116;
    };
    const double x = cone((0.4124 * rgb[0] + 0.3576 * rgb[1] + 0.1805 * rgb[2]) / 0.95047);
    const double y = cone(0.2126 * rgb[0] + 0.7152 * rgb[1] + 0.0722 * rgb[2]);
    const double z = cone((0.0193 * rgb[0] + 0.1192 * rgb[1] + 0.9505 * rgb[2]) / 1.08883);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double Difference(const QColor& one, const QColor& other, const Sight& sight)
{
    const auto a = Seen(one, sight);
    const auto b = Seen(other, sight);
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

class ChartColorsTest : public testing::TestWithParam<bool>
{};

TEST_P(ChartColorsTest, NobodyTakesOneSeriesForAnother)
{
    constexpr double PlainlyDifferent = 20;
    const ChartColors colors = ColorsOfCharts(GetParam());
    ASSERT_GE(colors.series.size(), 8U);
    for (const Sight& sight : Sights)
        for (std::size_t one = 0; one < colors.series.size(); ++one)
            for (std::size_t other = 0; other < one; ++other)
                EXPECT_GT(Difference(colors.series[one], colors.series[other], sight), PlainlyDifferent)
                    << one << " and " << other << " with sight " << &sight - Sights.data();
}

TEST_P(ChartColorsTest, EachSeriesAndEachTextStandsOutFromTheGround)
{
    const ChartColors colors = ColorsOfCharts(GetParam());
    for (const QColor& color : colors.series)
        EXPECT_GE(Contrast(color, colors.ground), 3.0) << color.name().toStdString();
    EXPECT_GE(Contrast(colors.text, colors.ground), 4.5);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, ChartColorsTest, testing::Bool());

class ChartDrawingTest : public testing::Test
{
protected:
    static std::unique_ptr<QChart> Draw(const Chart& chart, const ChartHover& hover = {})
    {
        return DrawChart(chart, ColorsOfCharts(false), {QSizeF(1000, 640), QApplication::font()}, hover);
    }
    template <typename Series>
    static QList<Series*> Of(const QChart& drawing)
    {
        QList<Series*> found;
        for (QAbstractSeries* series : drawing.series())
            if (auto* one = qobject_cast<Series*>(series))
                found.append(one);
        return found;
    }
};

TEST_F(ChartDrawingTest, BarsStandInGroupsWithABarForEachSubject)
{
    const auto drawing = Draw(ChartOfSize(3, 2, ChartKind::Bar));
    ASSERT_EQ(drawing->series().size(), 1);
    const auto sets = Of<QBarSeries>(*drawing).at(0)->barSets();
    ASSERT_EQ(sets.size(), 3);
    EXPECT_EQ(sets[1]->label().toStdString(), "Su1");
    EXPECT_DOUBLE_EQ(sets[1]->at(0), 13.25);
    EXPECT_DOUBLE_EQ(sets[1]->at(1), 20.25);
}

TEST_F(ChartDrawingTest, LinesRunFromLabelToLabelWithAMarkAtEach)
{
    const auto drawing = Draw(ChartOfSize(3, 4, ChartKind::Line));
    const auto lines = Of<QLineSeries>(*drawing);
    const auto marks = Of<QScatterSeries>(*drawing);
    ASSERT_EQ(lines.size(), 3);
    ASSERT_EQ(marks.size(), 3);
    EXPECT_EQ(lines[2]->points(), marks[2]->points());
    EXPECT_EQ(lines[2]->points().at(3), QPointF(3, 47.25));
}

TEST_F(ChartDrawingTest, NoTwoOfFortySeriesLookAlike)
{
    const auto bars = Draw(ChartOfSize(40, 1, ChartKind::Bar));
    std::set<std::pair<QRgb, QRgb>> looks;
    for (const QBarSet* set : Of<QBarSeries>(*bars).at(0)->barSets()) {
        looks.emplace(set->pen().color().rgb(), set->brush().color().rgb());
        EXPECT_TRUE(set->brush().color().isValid());
    }
    EXPECT_EQ(looks.size(), 40U);

    const auto lines = Draw(ChartOfSize(40, 2, ChartKind::Line));
    std::set<std::tuple<QRgb, int>> dashes;
    std::set<std::tuple<QRgb, QRgb, int>> marks;
    for (qsizetype series = 0; series < 40; ++series) {
        const QScatterSeries* mark = Of<QScatterSeries>(*lines)[series];
        marks.emplace(mark->color().rgb(), mark->borderColor().rgb(), mark->markerShape());
        const QPen pen = Of<QLineSeries>(*lines)[series]->pen();
        dashes.emplace(pen.color().rgb(), pen.style());
    }
    EXPECT_EQ(dashes.size(), 40U);
    EXPECT_EQ(marks.size(), 40U) << "the legend shows the marks alone";
}

TEST_F(ChartDrawingTest, LinesThatShareAColorDifferInTheirMarksAndDashes)
{
    const auto drawing = Draw(ChartOfSize(9, 2, ChartKind::Line));
    const auto lines = Of<QLineSeries>(*drawing);
    const auto marks = Of<QScatterSeries>(*drawing);
    ASSERT_EQ(marks[0]->color(), marks[8]->color());
    EXPECT_NE(marks[0]->markerShape(), marks[8]->markerShape());
    EXPECT_NE(lines[0]->pen().style(), lines[8]->pen().style());
}

TEST_F(ChartDrawingTest, TheAxisOfValuesBeginsAtZeroAndEndsAtARoundNumber)
{
    Chart chart = ChartOfSize(2, 2, ChartKind::Line);
    chart.table.rows[0].values = {45, 96.4};
    const auto drawing = Draw(chart);
    const auto axes = drawing->axes(Qt::Vertical);
    ASSERT_EQ(axes.size(), 1);
    const auto* values = qobject_cast<QValueAxis*>(axes[0]);
    ASSERT_NE(values, nullptr);
    EXPECT_DOUBLE_EQ(values->min(), 0);
    EXPECT_DOUBLE_EQ(values->max(), 100);
    EXPECT_EQ(values->tickCount(), 6);
    EXPECT_EQ(values->titleText().toStdString(), "MARKS");
    EXPECT_EQ(drawing->axes(Qt::Horizontal).at(0)->titleText().toStdString(), "EXAMS");
}

TEST_F(ChartDrawingTest, NumbersOverBarsHaveALineOfRoomBelowTheTopOfTheAxis)
{
    for (const double largest : {100.0, 99.99, 96.4, 60.0}) {
        Chart chart = ChartOfSize(1, 1, ChartKind::Bar);
        chart.table.rows[0].values = {largest};
        const auto drawing = Draw(chart);
        ASSERT_TRUE(Of<QBarSeries>(*drawing).at(0)->isLabelsVisible());
        EXPECT_GE(drawing->mapToPosition(QPointF(0, largest)).y() - drawing->plotArea().top(),
                  QFontMetricsF(QApplication::font()).height() - 1)
            << largest;
    }
}

TEST_F(ChartDrawingTest, NumbersThatHaveNoRoomSideBySideAreLeftOutWithTheirRoomAbove)
{
    Chart chart = ChartOfSize(15, 12, ChartKind::Bar);
    chart.table.rows[0].values[0] = 100;
    const auto drawing = Draw(chart);
    EXPECT_FALSE(Of<QBarSeries>(*drawing).at(0)->isLabelsVisible());
    EXPECT_DOUBLE_EQ(qobject_cast<QValueAxis*>(drawing->axes(Qt::Vertical)[0])->max(), 100);
}

TEST_F(ChartDrawingTest, TheAxisWritesTheDecimalsOfItsStep)
{
    Chart chart = ChartOfSize(1, 2, ChartKind::Line);
    chart.table.rows[0].values = {0.07};
    chart.table.rows[1].values = {0.05};
    EXPECT_EQ(qobject_cast<QValueAxis*>(Draw(chart)->axes(Qt::Vertical)[0])->labelFormat().toStdString(),
              "%.2f");
}

/// How many dots of the height of each mark are to be seen, from the first exam on.
std::vector<int> MarkHeights(const std::vector<double>& values)
{
    Chart chart = ChartOfSize(1, static_cast<int>(values.size()), ChartKind::Line);
    for (std::size_t row = 0; row < values.size(); ++row)
        chart.table.rows[row].values = {values[row]};
    QGraphicsScene scene;
    const ChartColors colors = ColorsOfCharts(false);
    QChart* drawing = DrawChart(chart, colors, {QSizeF(800, 500), QApplication::font()}).release();
    scene.addItem(drawing);
    // The marks alone.
    for (QAbstractSeries* series : drawing->series())
        series->setVisible(qobject_cast<QScatterSeries*>(series) != nullptr);
    drawing->layout()->activate();
    QImage picture(800, 500, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    scene.render(&painter, picture.rect(), QRectF(0, 0, 800, 500));
    painter.end();
    std::vector<int> heights;
    for (std::size_t row = 0; row < values.size(); ++row) {
        const QPointF place = drawing->mapToPosition(QPointF(static_cast<double>(row), values[row]),
                                                     drawing->series().value(1));
        int height = 0;
        for (int y = 0; y < picture.height(); ++y)
            height += picture.pixelColor(qRound(place.x()), y) == colors.series[0] ? 1 : 0;
        heights.push_back(height);
    }
    return heights;
}

TEST(ChartMarksTest, MarksAtTheEndsOfTheAxisAreWhole)
{
    const std::vector<int> heights = MarkHeights({50, 100, 0, 50});
    EXPECT_GE(heights[0], 7);
    for (const int height : heights)
        EXPECT_NEAR(height, heights[0], 1);
}

TEST_F(ChartDrawingTest, TheMouseIsToldTheSeriesTheLabelAndTheValue)
{
    QStringList told;
    const ChartHover hover = [&told](const QString& text) { told.append(text); };
    const auto bars = Draw(ChartOfSize(2, 2, ChartKind::Bar), hover);
    Q_EMIT Of<QBarSeries>(*bars).at(0)->barSets()[1]->hovered(true, 0);
    Q_EMIT Of<QBarSeries>(*bars).at(0)->barSets()[1]->hovered(false, 0);
    const auto lines = Draw(ChartOfSize(2, 2, ChartKind::Line), hover);
    Q_EMIT Of<QScatterSeries>(*lines)[0]->hovered(QPointF(1.001, 7.3), true);
    EXPECT_EQ(told.join(QLatin1Char('|')).toStdString(), "Su1\nExam0: 13.25||Su0\nExam1: 7.25");
}

TEST_F(ChartDrawingTest, BesideTheLabelsTheMouseIsToldNothing)
{
    QStringList told;
    const auto bars =
        Draw(ChartOfSize(2, 2, ChartKind::Bar), [&told](const QString& text) { told.append(text); });
    for (const int row : {-1, 2})
        Q_EMIT Of<QBarSeries>(*bars).at(0)->barSets()[0]->hovered(true, row);
    EXPECT_EQ(told, QStringList({QString(), QString()}));
}

TEST_F(ChartDrawingTest, FewBarsAreNarrowAndManyFillTheRoomOfTheirLabelButForAGap)
{
    EXPECT_DOUBLE_EQ(Of<QBarSeries>(*Draw(ChartOfSize(1, 1, ChartKind::Bar))).at(0)->barWidth(), 0.1);
    const auto many = Draw(ChartOfSize(4, 6, ChartKind::Bar));
    EXPECT_DOUBLE_EQ(Of<QBarSeries>(*many).at(0)->barWidth(), 0.86);
    EXPECT_EQ(Of<QBarSeries>(*many).at(0)->labelsPosition(), QAbstractBarSeries::LabelsOutsideEnd);
}

TEST_F(ChartDrawingTest, MarksAreFilledAndFromTheFourthRoundOfColorsOnOpen)
{
    const ChartColors colors = ColorsOfCharts(false);
    const auto drawing = Draw(ChartOfSize(25, 2, ChartKind::Line));
    const auto marks = Of<QScatterSeries>(*drawing);
    EXPECT_EQ(marks[0]->color(), colors.series[0]);
    EXPECT_EQ(marks[0]->borderColor(), colors.ground);
    EXPECT_EQ(marks[24]->color(), colors.ground);
    EXPECT_EQ(marks[24]->borderColor(), colors.series[0]);
    EXPECT_LT(marks[0]->markerSize(), 12) << "small beside the line";
}

class ChartLookTest : public ChartDrawingTest, public testing::WithParamInterface<bool>
{};

TEST_P(ChartLookTest, WhatIsWrittenHasTheColorAndTheLettersOfTheLook)
{
    const ChartColors colors = ColorsOfCharts(GetParam());
    QFont letters = QApplication::font();
    letters.setPointSizeF(letters.pointSizeF() + 1);
    const auto drawing =
        DrawChart(ChartOfSize(2, 2, ChartKind::Bar), colors, {QSizeF(1000, 640), letters}, {});
    EXPECT_EQ(drawing->backgroundBrush().color(), colors.ground);
    EXPECT_EQ(drawing->backgroundRoundness(), 0) << "the ground reaches into the corners";
    EXPECT_EQ(drawing->titleBrush().color(), colors.text);
    for (QBarSet* set : Of<QBarSeries>(*drawing).at(0)->barSets())
        EXPECT_EQ(set->labelColor(), colors.text);
    for (const QAbstractAxis* axis : drawing->axes()) {
        EXPECT_EQ(axis->labelsBrush().color(), colors.text);
        EXPECT_EQ(axis->titleBrush().color(), colors.text);
        EXPECT_EQ(axis->linePen().color(), colors.text);
        EXPECT_EQ(axis->gridLinePen().color(), colors.grid);
        EXPECT_EQ(axis->labelsFont(), letters);
        EXPECT_TRUE(axis->titleFont().bold());
    }
    EXPECT_FALSE(drawing->axes(Qt::Horizontal)[0]->isGridLineVisible()) << "only values are read off";
    EXPECT_TRUE(drawing->axes(Qt::Vertical)[0]->isGridLineVisible());
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, ChartLookTest, testing::Bool());

TEST_F(ChartDrawingTest, TheTitleIsLargerThanTheRestWhetherLettersAreCountedInPointsOrInDots)
{
    const auto title = [](const QFont& letters) {
        return QFontMetricsF(DrawChart(ChartOfSize(1, 1, ChartKind::Bar), ColorsOfCharts(false),
                                       {QSizeF(1000, 640), letters})
                                 ->titleFont())
                   .height() /
               QFontMetricsF(letters).height();
    };
    QFont letters = QApplication::font();
    letters.setPointSizeF(20);
    EXPECT_NEAR(title(letters), 1.2, 0.07);
    letters.setPixelSize(20);
    EXPECT_NEAR(title(letters), 1.2, 0.07);
}

/// A name at the right of a chart with the sign before it.
struct LegendLine
{
    const QGraphicsSimpleTextItem* name = nullptr;
    const QGraphicsPathItem* sign = nullptr;
    const QGraphicsLineItem* line = nullptr; ///< under the sign; null in a chart of bars

    QRectF NamePlace() const { return name->sceneBoundingRect(); }
    QRectF SignPlace() const { return sign->sceneBoundingRect(); }
};

std::vector<LegendLine> LegendOf(const QChart& drawing)
{
    std::vector<LegendLine> legend;
    const auto add = [&legend](auto LegendLine::*part, auto* item) {
        if (!item)
            return;
        const auto place = std::find_if(legend.begin(), legend.end(),
                                        [part](const LegendLine& one) { return !(one.*part); });
        LegendLine& line = place == legend.end() ? legend.emplace_back() : *place;
        line.*part = item;
    };
    for (const QGraphicsItem* item : drawing.childItems()) {
        add(&LegendLine::name, qgraphicsitem_cast<const QGraphicsSimpleTextItem*>(item));
        add(&LegendLine::sign, qgraphicsitem_cast<const QGraphicsPathItem*>(item));
        add(&LegendLine::line, qgraphicsitem_cast<const QGraphicsLineItem*>(item));
    }
    return legend;
}

/// Subjects, and bars or lines.
class ChartLegend : public ChartDrawingTest, public testing::WithParamInterface<std::tuple<int, ChartKind>>
{
protected:
    static constexpr QSizeF Room{760, 420};
    std::unique_ptr<QChart> drawing =
        DrawChart(ChartOfSize(std::get<0>(GetParam()), 2, std::get<1>(GetParam())), ColorsOfCharts(true),
                  {Room, QApplication::font()});
    std::vector<LegendLine> legend = LegendOf(*drawing);
};

TEST_P(ChartLegend, NamesStandBesideTheDrawingUnderItsTitleEachBehindItsSign)
{
    ASSERT_EQ(legend.size(), static_cast<std::size_t>(std::get<0>(GetParam())));
    const double title = QFontMetricsF(drawing->titleFont()).height();
    for (const LegendLine& line : legend) {
        SCOPED_TRACE(line.name->text().toStdString());
        EXPECT_TRUE(line.name->text().startsWith(QLatin1String("Su"))) << "not cut";
        EXPECT_EQ(line.name->brush().color(), ColorsOfCharts(true).text);
        const QRectF name = line.NamePlace();
        const QRectF sign = line.SignPlace();
        EXPECT_LE(sign.right(), name.left());
        EXPECT_NEAR(sign.center().y(), name.center().y(), 1.5);
        EXPECT_GE(sign.left(), drawing->plotArea().right());
        EXPECT_LE(name.right(), Room.width());
        EXPECT_GE(name.top(), title);
        EXPECT_LE(name.bottom(), Room.height());
    }
    EXPECT_FALSE(drawing->legend()->isVisible()) << "the toolkit's own would tell them twice";
}

TEST_P(ChartLegend, NamesStandInTheMiddleOfTheHeightAndNotInMoreColumnsThanTheyNeed)
{
    std::set<int> columns;
    double top = Room.height();
    double bottom = 0;
    for (const LegendLine& line : legend) {
        columns.insert(qRound(line.NamePlace().left()));
        top = std::min(top, line.NamePlace().top());
        bottom = std::max(bottom, line.NamePlace().bottom());
    }
    const double title = QFontMetricsF(drawing->titleFont()).height();
    const double line = QFontMetricsF(QApplication::font()).height() * 1.4;
    const int lines = static_cast<int>((Room.height() - title - 3 * 9) / line);
    EXPECT_EQ(static_cast<int>(columns.size()), (std::get<0>(GetParam()) + lines - 1) / lines);
    if (columns.size() == 1) {
        EXPECT_NEAR((top + bottom) / 2, (title + 2 * 9 + Room.height() - 9) / 2, 3);
    }
    const double right = Room.width() - drawing->plotArea().right();
    const double column = legend[0].NamePlace().right() - legend[0].SignPlace().left();
    EXPECT_LT(right, (column + 35) * static_cast<double>(columns.size()) + 30)
        << "the rest of the room is the drawing's";
}

TEST_P(ChartLegend, TheSignOfASeriesLooksAsTheSeriesDoes)
{
    const auto [subjects, kind] = GetParam();
    for (int series = 0; series < subjects; ++series) {
        SCOPED_TRACE(series);
        const LegendLine& line = legend[static_cast<std::size_t>(series)];
        if (kind == ChartKind::Bar) {
            const QBarSet* set = Of<QBarSeries>(*drawing).at(0)->barSets()[series];
            EXPECT_EQ(line.line, nullptr);
            EXPECT_EQ(line.sign->pen().color(), set->pen().color());
            EXPECT_EQ(line.sign->brush(), set->brush());
            EXPECT_NEAR(line.SignPlace().width(), line.SignPlace().height(), 0.1);
            EXPECT_LT(line.SignPlace().height(), QFontMetricsF(QApplication::font()).height());
            EXPECT_LT(line.NamePlace().left() - line.SignPlace().right(), 12) << "just before the name";
            continue;
        }
        const QScatterSeries* marks = Of<QScatterSeries>(*drawing)[series];
        ASSERT_NE(line.line, nullptr);
        EXPECT_EQ(line.line->pen(), Of<QLineSeries>(*drawing)[series]->pen());
        EXPECT_EQ(line.sign->pen().color(), marks->borderColor());
        EXPECT_EQ(line.sign->brush().color(), marks->color());
        const auto order = drawing->childItems();
        EXPECT_LT(order.indexOf(const_cast<QGraphicsLineItem*>(line.line)),
                  order.indexOf(const_cast<QGraphicsPathItem*>(line.sign)))
            << "the mark lies over its line";
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, ChartLegend,
                         testing::Combine(testing::Values(1, 4, 13, 14, 30, 40),
                                          testing::Values(ChartKind::Bar, ChartKind::Line)));

TEST_F(ChartDrawingTest, TheMarksOfTheLegendAreTheShapesOfTheMarksOnTheLines)
{
    const auto drawing = Draw(ChartOfSize(6, 2, ChartKind::Line));
    const auto legend = LegendOf(*drawing);
    ASSERT_EQ(legend.size(), 6U);
    const std::vector<std::pair<QScatterSeries::MarkerShape, int>> cornersOf{
        {QScatterSeries::MarkerShapeCircle, 0},   {QScatterSeries::MarkerShapeRectangle, 4},
        {QScatterSeries::MarkerShapeTriangle, 3}, {QScatterSeries::MarkerShapeRotatedRectangle, 4},
        {QScatterSeries::MarkerShapePentagon, 5}, {QScatterSeries::MarkerShapeStar, 10}};
    for (std::size_t series = 0; series < cornersOf.size(); ++series) {
        const auto& [shape, corners] = cornersOf[series];
        SCOPED_TRACE(shape);
        EXPECT_EQ(Of<QScatterSeries>(*drawing)[static_cast<qsizetype>(series)]->markerShape(), shape);
        const QPainterPath path = legend[series].sign->path();
        const QRectF bounds = path.boundingRect();
        EXPECT_NEAR(bounds.width(), 8.4, 0.7);
        EXPECT_NEAR(bounds.height(), 8.2, 1.5);
        // Each is its own mirror image, and a point of a shape with an upper corner is its highest.
        const QPainterPath mirrored =
            QTransform::fromTranslate(2 * bounds.center().x(), 0).scale(-1, 1).map(path);
        EXPECT_NEAR(path.intersected(mirrored).boundingRect().width(), bounds.width(), 0.1);
        if (corners == 0)
            continue;
        const QPolygonF polygon = path.toFillPolygon();
        EXPECT_EQ(path.elementCount() - 1, corners) << "and back to the first";
        EXPECT_EQ(polygon.first(), polygon.last());
        if (shape == QScatterSeries::MarkerShapeRectangle)
            continue;
        EXPECT_NEAR(polygon[0].x(), bounds.center().x(), 0.1);
        EXPECT_NEAR(polygon[0].y(), bounds.top(), 0.1);
        for (int corner = 1; corner < corners; ++corner)
            EXPECT_GT(polygon[corner].y(), polygon[0].y() + 0.5);
    }
}

/// The labels of the exams as the axis has them, of which what only makes them different is taken away.
QStringList LabelsOf(const QChart& drawing)
{
    QStringList labels = qobject_cast<QBarCategoryAxis*>(drawing.axes(Qt::Horizontal).value(0))->categories();
    for (QString& label : labels)
        label.remove(QChar(0x200b));
    return labels;
}

double AngleOfLabels(const QChart& drawing)
{
    return drawing.axes(Qt::Horizontal).value(0)->labelsAngle();
}

TEST_F(ChartDrawingTest, LabelsGoOverThreeLinesAndNotMore)
{
    const QFontMetricsF letters(QApplication::font());
    const auto angle = [&letters](int lines) {
        Chart chart = ChartOfSize(1, 4, ChartKind::Bar);
        // Two of these words have no room in one line.
        const QString word(static_cast<qsizetype>(1000 / 4 * 0.6 / letters.horizontalAdvance(u'x')), u'x');
        for (ChartTable::Row& row : chart.table.rows)
            row.label = QStringList(QList<QString>(lines, word)).join(u' ');
        return AngleOfLabels(*Draw(chart));
    };
    EXPECT_EQ(angle(1), 0);
    EXPECT_EQ(angle(3), 0);
    EXPECT_EQ(angle(4), -90);
}

TEST_F(ChartDrawingTest, TheLinesOfALabelStandInTheMiddleOfOneAnother)
{
    Chart chart = ChartOfSize(1, 6, ChartKind::Bar);
    for (ChartTable::Row& row : chart.table.rows)
        row.label = QStringLiteral("II Examinationofthisyear");
    const auto drawing = Draw(chart);
    const QFontMetricsF letters(QApplication::font());
    const double blank = letters.horizontalAdvance(QChar(QChar::Nbsp));
    const double free = letters.horizontalAdvance(QStringLiteral("Examinationofthisyear")) -
                        letters.horizontalAdvance(QStringLiteral("II"));
    const QStringList lines = LabelsOf(*drawing).value(0).split(QStringLiteral("<br>"));
    ASSERT_EQ(lines.size(), 2) << LabelsOf(*drawing).value(0).toStdString();
    EXPECT_NEAR(static_cast<double>(lines[0].count(QChar(QChar::Nbsp))) * blank, free / 2, blank);
    EXPECT_TRUE(lines[0].endsWith(QLatin1String("II")));
    EXPECT_EQ(lines[1].toStdString(), "Examinationofthisyear");
}

TEST_F(ChartDrawingTest, ALevelLabelLeavesALetterOfRoomToTheNext)
{
    const QFontMetricsF letters(QApplication::font());
    constexpr int Exams = 4;
    int level = 0;
    for (int length = 1; level == length - 1 && length < 1000; ++length) {
        Chart chart = ChartOfSize(1, Exams, ChartKind::Bar);
        for (ChartTable::Row& row : chart.table.rows)
            row.label = QString(length, u'i');
        const auto drawing = Draw(chart);
        if (AngleOfLabels(*drawing) != 0)
            continue;
        level = length;
        EXPECT_LE(letters.horizontalAdvance(chart.table.rows[0].label) + letters.averageCharWidth(),
                  drawing->plotArea().width() / Exams + 1)
            << length;
    }
    EXPECT_GT(level, 10);
    EXPECT_LT(level, 900) << "it stands upright at some length";
}

TEST_F(ChartDrawingTest, EachExamHasItsPlaceOnTheAxisAlsoWhereItsLabelIsLeftOutOrBlank)
{
    constexpr int Many = 200;
    const QStringList labels = LabelsOf(*Draw(ChartOfSize(1, Many, ChartKind::Bar)));
    ASSERT_EQ(labels.size(), Many);
    EXPECT_EQ(labels[0].toStdString(), "Exam0");
    EXPECT_EQ(labels[1].toStdString(), "") << "where it would lie over the first";
    Chart blank = ChartOfSize(1, 3, ChartKind::Bar);
    for (ChartTable::Row& row : blank.table.rows)
        row.label.clear();
    EXPECT_EQ(LabelsOf(*Draw(blank)), QStringList({QString(), QString(), QString()}));
}

TEST_F(ChartDrawingTest, AChartWithoutAnythingIsDrawnEmpty)
{
    EXPECT_TRUE(Draw({})->series().isEmpty());
    EXPECT_TRUE(Draw(ChartOfSize(0, 3, ChartKind::Bar))->series().isEmpty());
    EXPECT_TRUE(Draw(ChartOfSize(3, 0, ChartKind::Line))->series().isEmpty());
}

/// No text may lie beyond the edges or over another.
void ExpectReadable(const TestPaper& paper)
{
    std::vector<TestPaper::Word> words;
    for (const TestPaper::Word& word : paper.Pages()[0].words)
        if (word.text.contains(QRegularExpression(QStringLiteral("[^\\s\\x{200b}]"))))
            words.push_back(word);
    for (std::size_t one = 0; one < words.size(); ++one) {
        EXPECT_TRUE(paper.Edges().contains(words[one].place)) << words[one].text.toStdString();
        for (std::size_t other = 0; other < one; ++other)
            EXPECT_FALSE(
                words[one].place.adjusted(2, 2, -2, -2).intersects(words[other].place.adjusted(2, 2, -2, -2)))
                << words[one].text.toStdString() << " over " << words[other].text.toStdString();
    }
}

/// Subjects, exams, and bars or lines.
class ChartOnPaper : public testing::TestWithParam<std::tuple<int, int, ChartKind>>
{};

TEST_P(ChartOnPaper, EveryTextLiesWithinThePageAndOverNoOther)
{
    const auto [subjects, exams, kind] = GetParam();
    const auto paper = Print(ChartOfSize(subjects, exams, kind));
    ASSERT_EQ(paper->Pages().size(), 1U);
    for (const char* text : {"Marks Of Asha", "EXAMS", "MARKS", "Su0", "Exam0"})
        EXPECT_TRUE(paper->Holds(0, text)) << text << " not in " << paper->Text(0);
    EXPECT_TRUE(paper->Holds(0, QStringLiteral("Su%1").arg(subjects - 1).toLatin1().constData()));
    EXPECT_TRUE(paper->Holds(0, QStringLiteral("Exam%1").arg(exams - 1).toLatin1().constData()));
    ExpectReadable(*paper);
}

TEST_P(ChartOnPaper, LinesAndLettersStaySoForThePrinter)
{
    const auto [subjects, exams, kind] = GetParam();
    const auto paper = Print(ChartOfSize(subjects, exams, kind));
    EXPECT_EQ(paper->Pages()[0].pixmaps, 0);
    EXPECT_GE(paper->Pages()[0].shapes, subjects);
}

TEST_P(ChartOnPaper, EachSeriesIsPaintedInItsColor)
{
    const auto [subjects, exams, kind] = GetParam();
    const auto paper = Print(ChartOfSize(subjects, exams, kind));
    const ChartColors colors = ColorsOfCharts(false);
    for (std::size_t series = 0;
         series < std::min<std::size_t>(colors.series.size(), static_cast<std::size_t>(subjects)); ++series)
        EXPECT_TRUE(paper->Pages()[0].fills.contains(colors.series[series].rgb())) << series;
}

INSTANTIATE_TEST_SUITE_P(Sizes, ChartOnPaper,
                         testing::Combine(testing::Values(1, 4, 8, 15), testing::Values(1, 2, 7, 12),
                                          testing::Values(ChartKind::Bar, ChartKind::Line)));

/// Names as a school has them.
Chart RealChart(int subjects, int exams, ChartKind kind)
{
    static const QStringList names{
        QStringLiteral("ENGLIS"), QStringLiteral("MALAYA"), QStringLiteral("HINDI"),
        QStringLiteral("MATHS"),  QStringLiteral("PHYSIC"), QStringLiteral("CHEMIS"),
        QStringLiteral("BIOLOG"), QStringLiteral("HISTOR"), QStringLiteral("GEOGRA"),
        QStringLiteral("COMPUT"), QStringLiteral("MORAL"),  QStringLiteral("ART"),
        QStringLiteral("MUSIC"),  QStringLiteral("P.T."),   QStringLiteral("G.K.")};
    static const QStringList labels{QStringLiteral("First Terminal Examination"),
                                    QStringLiteral("Half Yearly Examination"),
                                    QStringLiteral("Unit Test 1"),
                                    QStringLiteral("Unit Test 2"),
                                    QStringLiteral("Model Examination"),
                                    QStringLiteral("Annual Examination")};
    Chart chart = ChartOfSize(subjects, exams, kind);
    for (int subject = 0; subject < subjects; ++subject)
        chart.table.series[subject] = subject < names.size()
                                          ? names[subject]
                                          : names[subject % names.size()].left(4) + QString::number(subject);
    for (int exam = 0; exam < exams; ++exam)
        chart.table.rows[static_cast<std::size_t>(exam)].label =
            labels[exam % labels.size()] + (exam < labels.size() ? QString() : u' ' + QString::number(exam));
    return chart;
}

/// What a window of this size, or a page of so many units, shows.
class ChartInAWindow : public testing::TestWithParam<std::tuple<QSize, int, int, ChartKind>>
{};

TEST_P(ChartInAWindow, IsReadableWithRealNames)
{
    const auto [size, subjects, exams, kind] = GetParam();
    const Chart chart = RealChart(subjects, exams, kind);
    TestPaper paper(QPageLayout::Landscape);
    QPainter painter(&paper);
    // As wide as high, so that the drawing is not bounded otherwise than in the window.
    const double scale =
        std::min(paper.width() / double(size.width()), paper.height() / double(size.height()));
    PaintChart(painter, QRectF(QPointF(), QSizeF(size) * scale), chart, size);
    painter.end();
    ExpectReadable(paper);
    for (const QString& series : chart.table.series)
        EXPECT_TRUE(paper.Holds(0, series.toLatin1().constData())) << series.toStdString();
    EXPECT_TRUE(paper.Holds(0, chart.table.rows[0].label.left(3).toLatin1().constData())) << paper.Text(0);
}

INSTANTIATE_TEST_SUITE_P(Sizes, ChartInAWindow,
                         testing::Combine(testing::Values(QSize(760, 420), QSize(1100, 700),
                                                          QSize(1880, 960)),
                                          testing::Values(1, 3, 15, 40), testing::Values(1, 3, 6, 12, 60),
                                          testing::Values(ChartKind::Bar, ChartKind::Line)));

TEST(ChartTextsTest, NamesOfAHundredLettersLeaveRoomForTheChart)
{
    const QString name = QString(99, u'n') + u'Z';
    for (const ChartKind kind : {ChartKind::Bar, ChartKind::Line}) {
        Chart chart = ChartOfSize(40, 60, kind);
        chart.heads = {name, name, name};
        for (QString& series : chart.table.series)
            series += name;
        for (ChartTable::Row& row : chart.table.rows)
            row.label += name;
        ExpectReadable(*Print(chart));
        const auto drawing =
            DrawChart(chart, ColorsOfCharts(false), {QSizeF(760, 420), QApplication::font()});
        EXPECT_GE(drawing->plotArea().width(), 760 * 0.4);
        EXPECT_GE(drawing->plotArea().height(), 420 * 0.3);
    }
}

TEST(ChartTextsTest, TheLettersOfPaperAreCountedInItsUnitsWhateverTheDisplayHas)
{
    const QFont before = QApplication::font();
    const auto height = [] {
        return Print(ChartOfSize(1, 1, ChartKind::Bar))->Pages()[0].words[0].place.height();
    };
    const double usual = height();
    QFont large = before;
    large.setPointSizeF(before.pointSizeF() * 2);
    QApplication::setFont(large);
    EXPECT_NEAR(height(), usual, 1);
    QApplication::setFont(before);
}

TEST(ChartTextsTest, WhatLooksLikeMarkupIsWrittenAsItIs)
{
    Chart chart = ChartOfSize(1, 1, ChartKind::Bar);
    chart.table.series[0] = QStringLiteral("<b>");
    chart.heads.title = QStringLiteral("A & B <i>");
    const auto paper = Print(chart);
    EXPECT_TRUE(paper->Holds(0, "<b>")) << paper->Text(0);
    EXPECT_TRUE(paper->Holds(0, "A & B <i>")) << paper->Text(0);
}

/// The texts of a chart whose exams are called so, each behind its number.
std::string TextsWithExams(int exams, const QString& name)
{
    Chart chart = ChartOfSize(2, exams, ChartKind::Bar);
    for (int exam = 0; exam < exams; ++exam)
        chart.table.rows[static_cast<std::size_t>(exam)].label = name + QString::number(exam + 1);
    return Print(chart)->Text(0);
}

TEST(ChartTextsTest, ALabelThatIsTooLongForItsPlaceGoesOnInFurtherLines)
{
    EXPECT_NE(TextsWithExams(2, QStringLiteral("Half Yearly Examination ")).find("Half Yearly Examination 2"),
              std::string::npos);
    const std::string six = TextsWithExams(6, QStringLiteral("Half Yearly Examination "));
    EXPECT_NE(six.find("Half Yearly|Examination 6"), std::string::npos) << six;
}

TEST(ChartTextsTest, LabelsThatHaveNoRoomInLinesStandUprightAndKeepTheirEnds)
{
    const std::string texts = TextsWithExams(12, QStringLiteral("Half Yearly Examination "));
    EXPECT_NE(texts.find("Half Yearly Examination 12"), std::string::npos) << texts;
    const std::string long100 = TextsWithExams(3, QString(100, QLatin1Char('x')));
    EXPECT_NE(long100.find("\u2026xxx"), std::string::npos) << long100;
    EXPECT_NE(long100.find("xxx3"), std::string::npos) << long100;
}

TEST(ChartTextsTest, TwoExamsOfOneNameAreTwoLabels)
{
    Chart chart = ChartOfSize(1, 2, ChartKind::Bar);
    chart.table.rows[1].label = chart.table.rows[0].label;
    const auto paper = Print(chart);
    EXPECT_EQ(QString::fromStdString(paper->Text(0)).count(QStringLiteral("Exam0")), 2) << paper->Text(0);
}

} // namespace
} // namespace tally::test
