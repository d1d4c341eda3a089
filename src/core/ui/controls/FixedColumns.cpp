#include "core/ui/controls/FixedColumns.h"

#include "core/ui/controls/FlexGrid.h"
#include "core/ui/look/Look.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

namespace tally {

FixedColumns::FixedColumns(FlexGrid* grid, int columns) : QTableView(grid), grid_(grid), columns_(columns)
{
    setModel(grid->model());
    delete selectionModel();
    setSelectionModel(grid->selectionModel());
    DressGrid(this);
    setSelectionMode(grid->selectionMode());
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::ClickFocus);
    setFocusProxy(grid);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);

    for (int col = 0; col < grid->Cols(); ++col)
        TakeColumnWidth(col, grid->ColWidth(col));
    verticalHeader()->restoreState(grid->verticalHeader()->saveState());
    connect(grid->horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int col, int, int width) { TakeColumnWidth(col, width); });
    connect(grid->verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(), &QScrollBar::setValue);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, grid->verticalScrollBar(), &QScrollBar::setValue);
    connect(this, &QTableView::clicked, grid, &QTableView::clicked);
}

void FixedColumns::Place()
{
    const QRect viewport = grid_->viewport()->geometry();
    const int head = grid_->horizontalHeader()->height();
    horizontalHeader()->setFixedHeight(head);
    setGeometry(viewport.left(), viewport.top() - head, ColumnsWidth(), viewport.height() + head);
    show();
    verticalScrollBar()->setValue(grid_->verticalScrollBar()->value());
}

int FixedColumns::ColumnsWidth() const
{
    return horizontalHeader()->length();
}

void FixedColumns::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(viewport()->rect().topRight(), viewport()->rect().bottomRight());
}

void FixedColumns::TakeColumnWidth(int col, int width)
{
    setColumnHidden(col, col >= columns_);
    setColumnWidth(col, width);
}

} // namespace tally
