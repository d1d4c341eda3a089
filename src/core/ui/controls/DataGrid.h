#pragma once

#include "core/GridResult.h"
#include "core/ui/controls/Grid.h"

namespace tally {

/// A read-only grid bound to a result. Columns that carry codes are hidden but can be read. A click on a head
/// sorts by that column, a second one the other way round; rows are counted as they are shown. Each column is
/// as wide as its texts need, and the columns share what is left of the width.
class DataGrid : public Grid
{
    Q_OBJECT

public:
    explicit DataGrid(QWidget* parent = nullptr);
    ~DataGrid() override;

    /// Shows `result`; no row is current afterwards. Columns named in `hidden` get the width 0. The rows
    /// stand in the order that the user has chosen for these heads, and in the result's own until then.
    void Bind(GridResult result, const QStringList& hidden);
    int RowCount() const;
    /// The row the user stands on; -1 for none.
    int CurrentRow() const;
    /// Empty for a row or column that is not there.
    QString Text(int row, const QString& head) const;
    /// The same as a whole number, 0 where it is none.
    int Code(int row, const QString& head) const { return Text(row, head).toInt(); }

Q_SIGNALS:
    /// The user moved to a row, with the mouse or the arrow keys, and it alone is selected.
    void RowEntered(int row);
    /// The user double clicked a row or pressed Enter on it.
    void RowDoubleClicked(int row);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    /// A text that is cut is told whole under the mouse.
    bool viewportEvent(QEvent* event) override;

private:
    class Model;

    /// Rows that are picked together, to be copied, are not entered one by one.
    bool StandsOnOneRow() const;
    void TellEntered();
    /// Enter chooses the row only where somebody waits for that; elsewhere it goes on to the next field.
    void TakeEnter(bool onRow);
    void MeasureColumns();
    /// What a column may take of a list of this width.
    int MostWidth(int width) const;
    void ShareWidth();

    Model* model_;
    QPersistentModelIndex entered_;          ///< the row told last
    std::vector<std::pair<int, int>> needs_; ///< each shown column, and the pixels its texts need
};

} // namespace tally
