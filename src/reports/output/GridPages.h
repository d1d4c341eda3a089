#pragma once

#include "core/GridTable.h"

#include <QFont>
#include <QPageLayout>
#include <QString>

#include <vector>

class QPagedPaintDevice;
class QPainter;

namespace tally {

/// The visible part of a list on the pages of a printer: the school, the title and the subtitle over the
/// first page, the heads of the columns and the page's number on each. The letters become smaller until all
/// columns fit on the width. Empty rows at the end are left out.
class GridPages
{
public:
    GridPages(const GridTable& grid, const QString& title, const QString& subTitle);

    /// On its side where the list is wider than an upright page at the usual size of letters.
    QPageLayout::Orientation Orientation() const;
    /// Paints all pages, at least one. Gives their number; 0 when the paper takes them not or not all.
    int Paint(QPagedPaintDevice& paper) const;

private:
    struct Column
    {
        int source = 0;
        double width = 0; ///< in points, at the usual size of letters
        bool wraps = false;
    };

    QString CellText(int row, const Column& column) const;
    QFont Letters(int row, const Column& column) const;
    double RowHeight(int row) const;
    void PaintRow(QPainter& painter, int row, double top, double height, bool firstOfPage) const;
    /// The rows of the list that each page begins with, and behind the last one.
    std::vector<std::size_t> PageStarts(double room, double roomOfFirst) const;

    const GridTable grid_;
    const QString title_;
    const QString subTitle_;
    std::vector<Column> columns_;
    std::vector<int> rows_;       ///< visible ones
    std::vector<double> heights_; ///< of each of rows_, as widths are counted
    double headHeight_ = 0;
    double width_ = 0;
};

} // namespace tally
