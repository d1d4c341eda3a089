#include "core/controls/FloatingEditor.h"

#include "core/controls/FlexGrid.h"
#include "core/FormKeys.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTimer>

namespace tally {

FloatingEditor::FloatingEditor(FlexGrid* grid) : QLineEdit(grid->viewport()), grid_(grid)
{
    setProperty(TakesEnter, true);
    setFrame(true);
    hide();
    connect(this, &QLineEdit::textEdited, this, &FloatingEditor::Typed);
    for (const QScrollBar* bar : {grid->verticalScrollBar(), grid->horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &FloatingEditor::Follow);
    connect(grid->horizontalHeader(), &QHeaderView::sectionResized, this, &FloatingEditor::Follow);
}

void FloatingEditor::OpenAt(int row, int col)
{
    row_ = row;
    col_ = col;
    grid_->SetCurrentCell(row, col);
    setText(grid_->TextMatrix(row, col));
    setAlignment(grid_->ColAlignment(col));
    show();
    raise();
    Follow();
    setFocus();
    selectAll();
}

void FloatingEditor::Close()
{
    if (isHidden())
        return;
    validating_ = true;
    hide();
    validating_ = false;
}

void FloatingEditor::Follow()
{
    if (isVisibleTo(grid_))
        setGeometry(grid_->CellRect(row_, col_));
}

void FloatingEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT EnterPressed();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void FloatingEditor::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    const bool leavesTheForm = event->reason() == Qt::ActiveWindowFocusReason ||
                               event->reason() == Qt::PopupFocusReason ||
                               event->reason() == Qt::MenuBarFocusReason;
    if (validating_ || leavesTheForm)
        return;
    validating_ = true;
    const bool accepted = !validate_ || validate_();
    validating_ = false;
    if (accepted)
        Q_EMIT Left();
    else if (isVisible())
        KeepFocus();
}

void FloatingEditor::KeepFocus()
{
    keepsFocus_ = true;
    // The click that was to take the focus away must not act on what it hits.
    qApp->installEventFilter(this);
    QTimer::singleShot(0, this, [this] {
        qApp->removeEventFilter(this);
        keepsFocus_ = false;
        if (isVisible())
            setFocus();
    });
}

bool FloatingEditor::eventFilter(QObject* receiver, QEvent* event)
{
    const bool mouse = event->type() == QEvent::MouseButtonPress ||
                       event->type() == QEvent::MouseButtonRelease ||
                       event->type() == QEvent::MouseButtonDblClick;
    return (keepsFocus_ && mouse) || QLineEdit::eventFilter(receiver, event);
}

} // namespace tally
