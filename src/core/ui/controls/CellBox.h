#pragma once

#include "core/ui/controls/CellFollower.h"

#include <QString>

namespace tally {

/// What all boxes have in common that float over a cell of a grid.
class CellBox
{
public:
    virtual ~CellBox() = default;
    CellBox(const CellBox&) = delete;
    CellBox& operator=(const CellBox&) = delete;

    /// Opens over a cell of the grid, which becomes the current one, with the cell's text, all of it
    /// selected, and takes the focus. Scrolls the cell into sight.
    virtual void OpenAt(int row, int col) = 0;
    /// Puts the box away without asking anything.
    virtual void Close() = 0;
    virtual QString Text() const = 0;
    virtual void SelectText() = 0;
    /// True from a refused leave until the focus is back: what a key wanted to start must not start.
    virtual bool KeepsFocus() const = 0;
    /// The cell it stands over, or stood over last; 0 before it was opened.
    int Row() const { return follower_.Row(); }
    FlexGrid* Grid() const { return follower_.Grid(); }

protected:
    CellBox(FlexGrid* grid, QWidget* box) : follower_(grid, box) {}
    /// Shows the box over the cell.
    void Follow(int row, int col) { follower_.OpenAt(row, col); }

private:
    CellFollower follower_;
};

} // namespace tally
