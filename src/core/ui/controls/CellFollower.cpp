#include "core/ui/controls/CellFollower.h"

#include "core/ui/controls/FlexGrid.h"

#include <QHeaderView>
#include <QScrollBar>

namespace tally {

CellFollower::CellFollower(FlexGrid* grid, QWidget* box) : QObject(box), grid_(grid), box_(box)
{
    box->hide();
    for (const QScrollBar* bar : {grid->verticalScrollBar(), grid->horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &CellFollower::Follow);
    const QHeaderView* head = grid->horizontalHeader();
    connect(head, &QHeaderView::sectionResized, this, &CellFollower::Follow);
    // A column that takes the room of a larger form tells its width before those behind it have moved.
    connect(head, &QHeaderView::sectionResized, this, &CellFollower::Follow, Qt::QueuedConnection);
}

void CellFollower::OpenAt(int row, int col)
{
    row_ = row;
    col_ = col;
    grid_->SetCurrentCell(row, col);
    box_->show();
    Follow();
    box_->setFocus();
}

void CellFollower::Follow()
{
    if (box_->isVisibleTo(grid_))
        box_->setGeometry(grid_->CellRect(row_, col_));
}

} // namespace tally
