#pragma once

#include "core/ui/controls/CellFollower.h"
#include "core/ui/controls/LeaveGuard.h"

#include <QLineEdit>

namespace tally {

/// An entry box that floats over a cell of a grid. What is typed goes to the cell at once, and Esc takes it
/// back. It follows the cell when the grid scrolls, and Enter is its own: the screen says where it leads.
class FloatingEditor : public QLineEdit
{
    Q_OBJECT

public:
    /// Hidden until it is opened. Lives inside the grid.
    explicit FloatingEditor(FlexGrid* grid);

    /// Opens over a cell of the grid, which becomes the current one, with the cell's text, all of it
    /// selected, and takes the focus. Scrolls the cell into sight.
    void OpenAt(int row, int col);
    /// Puts the box away without asking anything.
    void Close();
    /// The cell it stands over, or stood over last; 0 before it was opened.
    int Row() const { return follower_.Row(); }
    FlexGrid* Grid() const { return follower_.Grid(); }

    /// Asked when the focus is about to leave; on false the box keeps it, and the click that was to take it
    /// away has no effect. Empty lets everything pass.
    void SetValidate(std::function<bool()> validate) { guard_.SetValidate(std::move(validate)); }
    /// True from a refused leave until the focus is back: what a key wanted to start must not start.
    bool KeepsFocus() const { return guard_.KeepsFocus(); }

Q_SIGNALS:
    /// The user changed the text.
    void Typed(const QString& text);
    void EnterPressed();
    /// Esc was pressed: the box has the text again with which it was opened, and the screen gives the cell
    /// what it held then.
    void TakenBack();
    /// The focus has left, after it was validated.
    void Left();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    CellFollower follower_;
    QString opened_; ///< the text with which it was opened
    LeaveGuard guard_;
};

} // namespace tally
