#pragma once

#include "core/GridTable.h"
#include "core/ui/controls/Grid.h"

namespace tally {

class FixedColumns;

/// Shows a GridTable. Its head stays in sight; the rows below it are numbered from 1. Hidden rows and columns
/// keep their texts. Built for ten thousand rows: one plain model, no object per cell.
class FlexGrid : public Grid
{
    Q_OBJECT
    Q_PROPERTY(int Rows READ Rows WRITE SetRows)
    Q_PROPERTY(int Cols READ Cols WRITE SetCols)

public:
    explicit FlexGrid(QWidget* parent = nullptr);
    ~FlexGrid() override;

    /// Takes the place of all that was shown, with no current cell and every column as wide as its texts.
    void Show(GridTable table);
    /// Other rows under the same columns: the current cell and the columns' widths stay.
    void ShowRows(GridTable table);
    /// Other cells in one row.
    void ShowRow(int row, GridTable::Row cells);
    const GridTable& Table() const;

    /// The number of rows with the head; at least 1. New rows are empty, rows cut off are forgotten.
    int Rows() const { return Table().Rows(); }
    void SetRows(int rows);
    int Cols() const { return Table().Cols(); }
    void SetCols(int cols);

    /// Empty outside the grid.
    QString TextMatrix(int row, GridCol col) const { return Table().Text(row, col); }
    void SetTextMatrix(int row, GridCol col, const QString& text);
    CellMark Mark(int row, GridCol col) const { return Table().Mark(row, col); }
    void SetMark(int row, GridCol col, CellMark mark);

    /// In pixels; 0 hides.
    void SetColWidth(GridCol col, int width);
    void SetColHidden(GridCol col, bool hidden);
    int ColWidth(GridCol col) const;
    /// Takes one row out; the rows below it move up. The head stays.
    void RemoveItem(int row);

    /// The cell the user stands on, 0 and 0 for none. Rows count with the head, so the first one below it
    /// is 1.
    int CurrentRow() const;
    int CurrentCol() const;
    /// Makes a cell current and scrolls it into sight. Tells nobody.
    void SetCurrentCell(int row, GridCol col);
    /// Where the cell lies within the viewport.
    QRect CellRect(int row, GridCol col) const;

    /// The first `cols` columns stay in sight when the others scroll to the right; 0 lets all scroll. Columns
    /// that would take more than half of the grid scroll too, since the rest could not be read beside them.
    void SetFixedCols(int cols);

    /// The wheel turns the rows also while the grid is switched off, so that a list can be looked through
    /// that may not be entered.
    void SetReadableWhileClosed() { readableWhileClosed_ = true; }

    /// Brings a cell into sight, beside the columns that stay.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

Q_SIGNALS:
    /// The user clicked a cell, or pressed Enter, F2 or the blank key on it.
    void CellClicked(int row, int col);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void updateGeometries() override;
    bool viewportEvent(QEvent* event) override;

private:
    class Model;

    void ShowRowHidden(int row, bool hidden);
    void FitColumns();
    void TurnWheel(int turn);
    void PlaceFixedColumns();
    void DropFixedColumns();

    Model* model_;
    int fixedCols_ = 0;
    bool readableWhileClosed_ = false;
    int wheelTurned_ = 0; ///< the part of a notch that has not moved the rows yet, in eighths of a degree
    FixedColumns* fixedColumns_ = nullptr; ///< only while the grid is scrolled to the right
};

} // namespace tally
