#include "core/ui/controls/FloatingEditor.h"

#include "core/ui/controls/FlexGrid.h"
#include "core/ui/FormKeys.h"

#include <QKeyEvent>

namespace tally {

FloatingEditor::FloatingEditor(FlexGrid* grid)
    : QLineEdit(grid->viewport()), CellBox(grid, this), guard_(this)
{
    setProperty(TakesEnter, true);
    connect(this, &QLineEdit::textEdited, this, &FloatingEditor::Typed);
}

void FloatingEditor::OpenAt(int row, int col)
{
    opened_ = Grid()->TextMatrix(row, col);
    setText(opened_);
    setAlignment(Grid()->Table().Column(col).alignment);
    Follow(row, col);
    selectAll();
}

void FloatingEditor::Close()
{
    guard_.Unasked([this] { hide(); });
}

void FloatingEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT EnterPressed();
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        setText(opened_);
        selectAll();
        Q_EMIT TakenBack();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void FloatingEditor::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    guard_.Leaves(event);
}

} // namespace tally
