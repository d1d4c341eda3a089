#pragma once

#include <QObject>

class QWidget;

namespace tally {

class FlexGrid;

/// Keeps an entry box over a cell of a grid, also while the grid scrolls or its columns change.
class CellFollower : public QObject
{
    Q_OBJECT

public:
    /// Hides `box`, which lives in the grid's viewport, until it is opened.
    CellFollower(FlexGrid* grid, QWidget* box);

    /// Makes the cell the current one, scrolls it into sight, and shows the box over it with the focus. The
    /// box is called by the head of its column.
    void OpenAt(int row, int col);
    /// The cell the box stands over, or stood over last; 0 before it was opened.
    int Row() const { return row_; }
    FlexGrid* Grid() const { return grid_; }

private:
    void Follow();

    FlexGrid* grid_;
    QWidget* box_;
    int row_ = 0;
    int col_ = 0;
};

} // namespace tally
