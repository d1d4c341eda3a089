#pragma once

#include <QFont>
#include <QPaintEngine>
#include <QPen>
#include <QPrintEngine>
#include <QPrinter>
#include <QStringList>

#include <limits>
#include <set>
#include <string>
#include <vector>

namespace tally::test {

/// A printer that remembers what was painted on each of its A4 pages.
class TestPaper : public QPrinter
{
public:
    struct Word
    {
        QString text;
        QRectF place; ///< in dots
        QFont font;
        QRgb ink;
    };
    struct Page
    {
        std::vector<Word> words;
        std::set<QRgb> fills;       ///< the colours of filled shapes
        std::set<QRgb> lines;       ///< and of their outlines
        std::vector<QRectF> frames; ///< the outlined rectangles, in dots
        int shapes = 0;             ///< lines, polygons and paths
        int pixmaps = 0;
    };

    explicit TestPaper(QPageLayout::Orientation orientation) : engine_(orientation)
    {
        setEngines(&engine_, &engine_);
    }

    /// Takes no more pages than that.
    void TakeAtMost(std::size_t pages) { engine_.mostPages = pages; }
    /// Says that it cannot print.
    void Fail() { engine_.state = QPrinter::Error; }

    const std::vector<Page>& Pages() const { return engine_.pages; }
    /// All texts of a page in the order in which they were painted, parted by "|".
    std::string Text(std::size_t page) const
    {
        QStringList texts;
        for (const Word& word : engine_.pages.at(page).words)
            texts.append(word.text.trimmed());
        return texts.join(QLatin1Char('|')).toStdString();
    }
    bool Holds(std::size_t page, const char* text) const
    {
        return Text(page).find(text) != std::string::npos;
    }
    /// The page, in dots.
    QRectF Edges() const { return {0, 0, static_cast<double>(width()), static_cast<double>(height())}; }

private:
    class Engine : public QPaintEngine, public QPrintEngine
    {
    public:
        explicit Engine(QPageLayout::Orientation orientation)
            : QPaintEngine(AllFeatures), upright_(orientation == QPageLayout::Portrait)
        {}

        std::vector<Page> pages;
        std::size_t mostPages = std::numeric_limits<std::size_t>::max();
        QPrinter::PrinterState state = QPrinter::Active;

        bool begin(QPaintDevice*) override
        {
            pages.assign(1, {});
            return true;
        }
        bool end() override { return true; }
        Type type() const override { return User; }
        void updateState(const QPaintEngineState& changed) override
        {
            if (changed.state().testFlag(DirtyTransform))
                transform_ = changed.transform();
            if (changed.state().testFlag(DirtyBrush))
                brush_ = changed.brush();
            if (changed.state().testFlag(DirtyPen))
                pen_ = changed.pen();
        }
        void drawTextItem(const QPointF& p, const QTextItem& item) override
        {
            pages.back().words.push_back(
                {item.text(),
                 transform_.mapRect(
                     QRectF(p.x(), p.y() - item.ascent(), item.width(), item.ascent() + item.descent())),
                 item.font(), pen_.color().rgb()});
        }
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override { ++pages.back().pixmaps; }
        void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override
        {
            ++pages.back().pixmaps;
        }
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override { NoteShape(); }
        void drawPath(const QPainterPath&) override { NoteShape(); }
        void drawLines(const QLineF*, int) override { ++pages.back().shapes; }
        void drawRects(const QRectF* rects, int count) override
        {
            NoteShape();
            for (int rect = 0; rect < count && pen_.style() != Qt::NoPen; ++rect)
                pages.back().frames.push_back(transform_.mapRect(rects[rect]));
        }

        void setProperty(PrintEnginePropertyKey, const QVariant&) override {}
        QVariant property(PrintEnginePropertyKey) const override { return {}; }
        bool newPage() override
        {
            if (pages.size() == mostPages)
                return false;
            pages.emplace_back();
            return true;
        }
        bool abort() override { return false; }
        QPrinter::PrinterState printerState() const override { return state; }
        int metric(QPaintDevice::PaintDeviceMetric metric) const override
        {
            constexpr int Dots = 300; // to the inch
            constexpr int Short = 2240;
            constexpr int Long = 3260;
            constexpr int MillimetersShort = 190;
            constexpr int MillimetersLong = 276;
            switch (metric) {
            case QPaintDevice::PdmWidth: return upright_ ? Short : Long;
            case QPaintDevice::PdmHeight: return upright_ ? Long : Short;
            case QPaintDevice::PdmWidthMM: return upright_ ? MillimetersShort : MillimetersLong;
            case QPaintDevice::PdmHeightMM: return upright_ ? MillimetersLong : MillimetersShort;
            case QPaintDevice::PdmNumColors: return 1 << 24;
            case QPaintDevice::PdmDepth: return 24;
            case QPaintDevice::PdmDevicePixelRatio: return 1;
            case QPaintDevice::PdmDevicePixelRatioScaled:
                return static_cast<int>(QPaintDevice::devicePixelRatioFScale());
            default: return Dots;
            }
        }

    private:
        void NoteShape()
        {
            ++pages.back().shapes;
            if (brush_.style() != Qt::NoBrush)
                pages.back().fills.insert(brush_.color().rgb());
            if (pen_.style() != Qt::NoPen)
                pages.back().lines.insert(pen_.color().rgb());
        }

        bool upright_;
        QTransform transform_;
        QBrush brush_;
        QPen pen_;
    };

    Engine engine_;
};

} // namespace tally::test
