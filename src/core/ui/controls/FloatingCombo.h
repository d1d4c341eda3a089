#pragma once

#include "core/ui/controls/CellBox.h"
#include "core/ui/controls/DataCombo.h"

namespace tally {

/// A list that floats over a cell of a grid, the counterpart of FloatingEditor. Its text can be typed or
/// chosen, and Esc takes it back. Enter is its own: the screen says where it leads.
class FloatingCombo : public DataCombo, public CellBox
{
    Q_OBJECT

public:
    /// Hidden until it is opened. Lives inside the grid.
    explicit FloatingCombo(FlexGrid* grid);

    /// Without the blanks around the cell's text.
    void OpenAt(int row, int col) override;
    void Close() override;
    QString Text() const override { return currentText(); }
    void SelectText() override;
    bool KeepsFocus() const override { return DataCombo::KeepsFocus(); }

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

    QString opened_; ///< the text with which it was opened
};

} // namespace tally
