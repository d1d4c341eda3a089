#include "core/ui/controls/FloatingCombo.h"

#include "core/ui/controls/FlexGrid.h"
#include "core/ui/FormKeys.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace tally {

FloatingCombo::FloatingCombo(FlexGrid* grid) : DataCombo(grid->viewport()), CellBox(grid, this)
{
    setProperty(TakesEnter, true);
    setEditable(true);
}

void FloatingCombo::OpenAt(int row, int col)
{
    opened_ = Grid()->TextMatrix(row, col).trimmed();
    Show(opened_);
    Follow(row, col);
}

void FloatingCombo::Show(const QString& text)
{
    SetText(text);
    setEditText(text);
    SelectText();
}

void FloatingCombo::SelectText()
{
    lineEdit()->selectAll();
}

void FloatingCombo::Close()
{
    LeaveUnasked([this] { hide(); });
}

void FloatingCombo::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT EnterPressed();
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        Show(opened_);
        Q_EMIT TakenBack();
        return;
    }
    DataCombo::keyPressEvent(event);
}

} // namespace tally
