#pragma once

#include "core/ui/controls/CellFollower.h"
#include "core/ui/controls/DataCombo.h"

namespace tally {

/// A list that floats over a cell of a grid, the counterpart of FloatingEditor. Its text can be typed or
/// chosen, and Esc takes it back. Enter is its own: the screen says where it leads.
class FloatingCombo : public DataCombo
{
    Q_OBJECT

public:
    /// Hidden until it is opened. Lives inside the grid.
    explicit FloatingCombo(FlexGrid* grid);

    /// Opens over a cell of the grid, which becomes the current one, with the cell's text without the blanks
    /// around it, all of it selected, and takes the focus. Scrolls the cell into sight.
    void OpenAt(int row, int col);
    /// Puts the box away without asking anything.
    void Close();
    /// The cell it stands over, or stood over last; 0 before it was opened.
    int Row() const { return follower_.Row(); }

Q_SIGNALS:
    void EnterPressed();
    /// Esc was pressed: the list has the text again with which it was opened, and the screen gives the cell
    /// what it held then.
    void TakenBack();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// All of the text is selected.
    void Show(const QString& text);

    CellFollower follower_;
    QString opened_; ///< the text with which it was opened
};

} // namespace tally
