#pragma once

#include <QTableView>

namespace tally {

class FlexGrid;

/// The first columns of a grid, shown over its left edge while the others are scrolled to the right, so that
/// the student's name stays beside the rank. A click on it is a click on the grid, and the keyboard stays
/// with the grid.
class FixedColumns : public QTableView
{
    Q_OBJECT

public:
    /// Takes over the grid's rows and columns as they are. Lives in the grid, and is first seen when it is
    /// placed.
    FixedColumns(FlexGrid* grid, int columns);

    /// Stands over the grid's left edge, its rows beside the grid's.
    void Place();
    /// The width of the columns, in pixels.
    int ColumnsWidth() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void TakeColumnWidth(int col, int width);

    FlexGrid* grid_;
    int columns_;
};

} // namespace tally
