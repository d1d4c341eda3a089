#pragma once

#include "core/ui/controls/Grid.h"

#include <cstdint>
#include <vector>

namespace tally {

class FixedColumns;

/// The meaning of a cell that its background shows. Screens say the meaning; FlexGrid chooses the paint.
enum class CellMark : std::uint8_t
{
    None,
    NotTakenForRank, ///< RGB(255,255,176)
    FailedOrAbsent,  ///< RGB(255,216,176)
    Sum,             ///< a row that sums up the ones above it
};

/// The paint of a mark; an invalid colour for None and Sum.
QColor CellColor(CellMark mark);
/// The mark in words, for a screen reader; empty for None.
QString CellWords(CellMark mark);

/// A grid of texts. Row 0 is the head, which stays in sight; the rows below it are numbered from 1. Width 0
/// hides a column and height 0 hides a row; hidden cells keep their texts. Built for ten thousand rows: one
/// plain model, no object per cell.
class FlexGrid : public Grid
{
    Q_OBJECT
    Q_PROPERTY(int Rows READ Rows WRITE SetRows)
    Q_PROPERTY(int Cols READ Cols WRITE SetCols)

public:
    struct Cell
    {
        QString text;
        CellMark mark = CellMark::None;
    };
    using Row = std::vector<Cell>;

    explicit FlexGrid(QWidget* parent = nullptr);
    ~FlexGrid() override;

    /// The number of rows with the head; at least 1. New rows are empty, rows cut off are forgotten.
    int Rows() const;
    void SetRows(int rows);
    int Cols() const;
    void SetCols(int cols);

    /// Empty outside the grid.
    QString TextMatrix(int row, int col) const;
    void SetTextMatrix(int row, int col, const QString& text);
    CellMark Mark(int row, int col) const;
    void SetMark(int row, int col, CellMark mark);
    /// Puts all rows at once, the head first. Rows shorter than the head are filled up with empty cells.
    void SetContent(std::vector<Row> rows);

    /// In pixels; 0 hides.
    void SetColWidth(int col, int width);
    void SetColHidden(int col, bool hidden) { setColumnHidden(col, hidden); }
    int ColWidth(int col) const;
    void SetRowHeight(int row, int height);
    int RowHeight(int row) const;
    void SetColAlignment(int col, Qt::Alignment alignment);
    Qt::Alignment ColAlignment(int col) const;
    /// Takes one row out; the rows below it move up. The head stays.
    void RemoveItem(int row);

    /// The cell the user stands on, 0 and 0 for none. Rows count with the head, so the first one below it
    /// is 1.
    int CurrentRow() const;
    int CurrentCol() const;
    /// Makes a cell current and scrolls it into sight. Tells nobody.
    void SetCurrentCell(int row, int col);
    /// Where the cell lies within the viewport.
    QRect CellRect(int row, int col) const;

    /// Gives every visible column the width of its longest text, within `most` pixels.
    void FitColumns(int most = 260);

    /// The first `cols` columns stay in sight when the others scroll to the right; 0 lets all scroll. Columns
    /// that would take more than half of the grid scroll too, since the rest could not be read beside them.
    void SetFixedCols(int cols);

    /// Brings a cell into sight, beside the columns that stay.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

Q_SIGNALS:
    /// The user clicked a cell, or pressed Enter, F2 or the blank key on it.
    void CellClicked(int row, int col);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void updateGeometries() override;

private:
    class Model;

    void PlaceFixedColumns();
    void DropFixedColumns();

    Model* model_;
    int fixedCols_ = 0;
    FixedColumns* fixedColumns_ = nullptr; ///< only while the grid is scrolled to the right
};

} // namespace tally
