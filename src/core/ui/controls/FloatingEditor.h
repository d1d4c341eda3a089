#pragma once

#include "core/ui/controls/CellBox.h"
#include "core/ui/controls/LeaveGuard.h"

#include <QLineEdit>

namespace tally {

/// An entry box that floats over a cell of a grid. What is typed goes to the cell at once, and Esc takes it
/// back. It follows the cell when the grid scrolls, and Enter is its own: the screen says where it leads.
class FloatingEditor : public QLineEdit, public CellBox
{
    Q_OBJECT

public:
    /// Hidden until it is opened. Lives inside the grid.
    explicit FloatingEditor(FlexGrid* grid);

    void OpenAt(int row, int col) override;
    void Close() override;
    QString Text() const override { return text(); }
    void SelectText() override { selectAll(); }
    bool KeepsFocus() const override { return guard_.KeepsFocus(); }

    /// Asked when the focus is about to leave; on false the box keeps it, and the click that was to take it
    /// away has no effect. Empty lets everything pass.
    void SetValidate(std::function<bool()> validate) { guard_.SetValidate(std::move(validate)); }

Q_SIGNALS:
    /// The user changed the text.
    void Typed(const QString& text);
    void EnterPressed();
    /// Esc was pressed: the box has the text again with which it was opened, and the screen gives the cell
    /// what it held then.
    void TakenBack();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QString opened_; ///< the text with which it was opened
    LeaveGuard guard_;
};

} // namespace tally
