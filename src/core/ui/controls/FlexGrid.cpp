#include "core/ui/controls/FlexGrid.h"

#include "core/Twips.h"
#include "core/ui/controls/FixedColumns.h"
#include "core/ui/look/CellPaint.h"
#include "core/ui/look/Look.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace tally {

namespace {

constexpr int CellPadding = 14;
/// However long a text is, other columns are to be seen beside it.
constexpr int WidestColumn = 260;

} // namespace

class FlexGrid::Model : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    const GridTable& Table() const { return table_; }

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : table_.Rows() - 1;
    }

    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : table_.Cols();
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid))
            return {};
        const QString& text = table_.Text(index.row() + 1, index.column());
        const CellMark mark = table_.Mark(index.row() + 1, index.column());
        switch (role) {
        case Qt::DisplayRole: return table_.Repeats(index.row() + 1, index.column()) ? QString() : text;
        case Qt::EditRole: return text;
        case Qt::TextAlignmentRole: return static_cast<int>(table_.Column(index.column()).alignment);
        case Qt::BackgroundRole: {
            const QColor color = CellColor(mark);
            return color.isValid() ? QVariant(color) : QVariant();
        }
        case Qt::ForegroundRole:
            // The marked cells keep their light paint in a dark look too, so their text stays dark.
            return CellColor(mark).isValid() ? QVariant(QColor(Qt::black)) : QVariant();
        case Qt::FontRole: return mark == CellMark::None ? QVariant() : CellFont(mark);
        case Qt::AccessibleTextRole:
            if (mark != CellMark::None)
                return Spoken(text, mark);
            return table_.Column(index.column()).merged ? QVariant(text) : QVariant();
        default: return {};
        }
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation == Qt::Vertical || !table_.HasCol(section))
            return {};
        const GridColumn& column = table_.Column(section);
        if (role == Qt::DisplayRole)
            return column.head;
        if (role == Qt::TextAlignmentRole)
            return static_cast<int>(column.alignment);
        return {};
    }

    void Reset(GridTable table)
    {
        beginResetModel();
        table_ = std::move(table);
        endResetModel();
    }

    void TakeRows(GridTable table)
    {
        SetRows(table.Rows());
        table_ = std::move(table);
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, table_.Cols() - 1);
        if (table_.Rows() > 1)
            RowsChanged(1, table_.Rows() - 1);
    }

    void SetRows(int rows)
    {
        const int wanted = std::max(1, rows);
        const int have = table_.Rows();
        if (wanted > have) {
            beginInsertRows({}, have - 1, wanted - 2);
            table_.SetRows(wanted);
            endInsertRows();
        } else if (wanted < have) {
            beginRemoveRows({}, wanted - 1, have - 2);
            table_.SetRows(wanted);
            endRemoveRows();
        }
    }

    void SetCols(int cols)
    {
        beginResetModel();
        table_.SetCols(cols);
        endResetModel();
    }

    void SetRow(int row, GridTable::Row cells)
    {
        if (row < 1 || row >= table_.Rows() || table_.Cols() == 0)
            return;
        table_.SetRow(row, std::move(cells));
        RowsChanged(row, row);
    }

    /// For a change of one cell, of the head also.
    template <typename Change>
    void ChangeCell(int row, int col, Change change)
    {
        if (row < 0 || row >= table_.Rows() || !table_.HasCol(col))
            return;
        change(table_);
        if (row == 0)
            Q_EMIT headerDataChanged(Qt::Horizontal, col, col);
        else
            Q_EMIT dataChanged(index(row - 1, col), index(row - 1, col));
    }

    void Remove(int row)
    {
        if (row < 1 || row >= table_.Rows())
            return;
        beginRemoveRows({}, row - 1, row - 1);
        table_.RemoveRow(row);
        endRemoveRows();
    }

    void HideCol(int col, bool hidden)
    {
        if (table_.HasCol(col))
            table_.Column(col).hidden = hidden;
    }

private:
    /// The text first, as it is what the clerk waits for.
    static QString Spoken(const QString& text, CellMark mark)
    {
        const QString words = CellWords(mark);
        return text.isEmpty() ? words : text + QStringLiteral(", ") + words;
    }

    void RowsChanged(int first, int last)
    {
        Q_EMIT dataChanged(index(first - 1, 0), index(last - 1, table_.Cols() - 1));
    }

    GridTable table_;
};

FlexGrid::FlexGrid(QWidget* parent) : Grid(parent), model_(new Model(this))
{
    setModel(model_);
    DressGrid(this);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    // A lone column, as an emptied grid has it, is no narrow box in the grid's corner.
    connect(model_, &QAbstractItemModel::modelReset, this,
            [this] { horizontalHeader()->setStretchLastSection(Cols() == 1); });
    connect(model_, &QAbstractItemModel::modelReset, this, &FlexGrid::DropFixedColumns);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &FlexGrid::PlaceFixedColumns);
    connect(this, &QTableView::clicked, this,
            [this](const QModelIndex& index) { Q_EMIT CellClicked(index.row() + 1, index.column()); });
}

FlexGrid::~FlexGrid() = default;

const GridTable& FlexGrid::Table() const
{
    return model_->Table();
}

void FlexGrid::Show(GridTable table)
{
    // The views keep what is hidden as long as the number of rows and columns stays.
    for (const int row : Table().HiddenRows())
        ShowRowHidden(row, false);
    model_->Reset(std::move(table));
    for (const int row : Table().HiddenRows())
        ShowRowHidden(row, true);
    for (int col = 0; col < Cols(); ++col) {
        const GridColumn& column = Table().Column(col);
        setColumnHidden(col, column.hidden);
        horizontalHeader()->setSectionResizeMode(col, column.stretched ? QHeaderView::Stretch
                                                                       : QHeaderView::Interactive);
    }
    FitColumns();
}

void FlexGrid::ShowRows(GridTable table)
{
    model_->TakeRows(std::move(table));
}

void FlexGrid::ShowRow(int row, GridTable::Row cells)
{
    model_->SetRow(row, std::move(cells));
}

void FlexGrid::SetRows(int rows)
{
    model_->SetRows(rows);
}

void FlexGrid::SetCols(int cols)
{
    model_->SetCols(cols);
}

void FlexGrid::SetTextMatrix(int row, GridCol col, const QString& text)
{
    model_->ChangeCell(row, col, [&](GridTable& table) { table.SetText(row, col, text); });
}

void FlexGrid::SetMark(int row, GridCol col, CellMark mark)
{
    model_->ChangeCell(row, col, [&](GridTable& table) { table.SetMark(row, col, mark); });
}

void FlexGrid::SetColWidth(GridCol col, int width)
{
    SetColHidden(col, width <= 0);
    if (width > 0)
        setColumnWidth(col, width);
}

void FlexGrid::SetColHidden(GridCol col, bool hidden)
{
    model_->HideCol(col, hidden);
    setColumnHidden(col, hidden);
}

int FlexGrid::ColWidth(GridCol col) const
{
    return isColumnHidden(col) ? 0 : columnWidth(col);
}

void FlexGrid::ShowRowHidden(int row, bool hidden)
{
    if (row == 0)
        horizontalHeader()->setVisible(!hidden);
    else
        setRowHidden(row - 1, hidden);
}

void FlexGrid::RemoveItem(int row)
{
    model_->Remove(row);
}

int FlexGrid::CurrentRow() const
{
    return currentIndex().isValid() ? currentIndex().row() + 1 : 0;
}

int FlexGrid::CurrentCol() const
{
    return currentIndex().isValid() ? currentIndex().column() : 0;
}

void FlexGrid::SetCurrentCell(int row, GridCol col)
{
    const QModelIndex index = model_->index(row - 1, col);
    setCurrentIndex(index);
    scrollTo(index);
}

QRect FlexGrid::CellRect(int row, GridCol col) const
{
    return visualRect(model_->index(row - 1, col));
}

void FlexGrid::SetFixedCols(int cols)
{
    fixedCols_ = cols;
    DropFixedColumns();
    PlaceFixedColumns();
}

void FlexGrid::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    Grid::scrollTo(index, hint);
    if (!fixedColumns_)
        return;
    const int covered = std::max(0, fixedColumns_->ColumnsWidth() - visualRect(index).left());
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - covered);
}

void FlexGrid::updateGeometries()
{
    Grid::updateGeometries();
    PlaceFixedColumns();
}

void FlexGrid::PlaceFixedColumns()
{
    int width = 0;
    for (int col = 0; col < fixedCols_; ++col)
        width += ColWidth(col);
    if (width == 0 || width > viewport()->width() / 2 || horizontalScrollBar()->value() == 0) {
        DropFixedColumns();
        return;
    }
    if (!fixedColumns_)
        fixedColumns_ = new FixedColumns(this, fixedCols_);
    fixedColumns_->Place();
}

/// It may be asked to go while it is handling a turn of the wheel, so it goes later.
void FlexGrid::DropFixedColumns()
{
    if (!fixedColumns_)
        return;
    fixedColumns_->hide();
    fixedColumns_->deleteLater();
    fixedColumns_ = nullptr;
}

void FlexGrid::keyPressEvent(QKeyEvent* event)
{
    const bool opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                       event->key() == Qt::Key_F2 || event->key() == Qt::Key_Space;
    if (opens && currentIndex().isValid())
        Q_EMIT CellClicked(CurrentRow(), CurrentCol());
    else
        Grid::keyPressEvent(event);
}

bool FlexGrid::viewportEvent(QEvent* event)
{
    if (!readableWhileClosed_ || isEnabled() || event->type() != QEvent::Wheel)
        return Grid::viewportEvent(event);
    TurnWheel(static_cast<QWheelEvent*>(event)->angleDelta().y());
    return true;
}

void FlexGrid::TurnWheel(int turn)
{
    if (turn * wheelTurned_ < 0)
        wheelTurned_ = 0;
    wheelTurned_ += turn;
    const int notches = wheelTurned_ / QWheelEvent::DefaultDeltasPerStep;
    wheelTurned_ -= notches * QWheelEvent::DefaultDeltasPerStep;
    QScrollBar* bar = verticalScrollBar();
    bar->setValue(bar->value() - notches * QApplication::wheelScrollLines() * bar->singleStep());
}

void FlexGrid::FitColumns()
{
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    for (int col = 0; col < Cols(); ++col) {
        if (Table().Column(col).hidden || Table().Column(col).stretched)
            continue;
        // Measuring ten thousand texts would be slow; the longest one by letters is wide enough.
        const QString* longest = &Table().Text(0, col);
        for (int row = 1; row < Rows(); ++row) {
            const QString& text = Table().Text(row, col);
            if (text.size() > longest->size() && !Table().RowHidden(row))
                longest = &text;
        }
        int width = Table().Column(col).twips / TwipsPerPixel;
        if (!longest->isEmpty())
            width =
                std::max(width, std::min(WidestColumn, metrics.horizontalAdvance(*longest) + CellPadding));
        if (width > 0)
            setColumnWidth(col, width);
    }
}

} // namespace tally
