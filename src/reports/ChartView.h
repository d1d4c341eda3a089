#pragma once

#include "reports/ChartDrawing.h"

#include <QChartView>

class QImage;

namespace tally {

/// Shows a chart in the look of the display and names the value under the mouse. Its context menu copies the
/// chart as a picture and saves it as a PNG or an SVG file.
class ChartView : public QChartView
{
    Q_OBJECT

public:
    explicit ChartView(QWidget* parent = nullptr);

    void SetChart(const Chart& chart);
    const Chart& ShownChart() const { return shown_; }

    /// Light, on white, and sharp enough for a page.
    QImage Picture() const;
    /// The chart as an SVG drawing.
    QByteArray Drawing() const;

    void CopyPicture();
    /// Asks for the file, and before one is replaced. A failure is told; no half of a file is left then.
    void SavePicture();
    void SaveDrawing();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void Redraw();
    void AddEntry(const QString& text, const QKeySequence& keys, void (ChartView::*handler)());
    void Save(const QString& filter, const QString& ending, const QByteArray& content) const;

    Chart shown_;
};

} // namespace tally
