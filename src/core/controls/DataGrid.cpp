#include "core/controls/DataGrid.h"

#include "core/FormKeys.h"
#include "core/look/Look.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMetaMethod>

namespace tally {

class DataGrid::Model : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(result_.rows.size());
    }

    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(result_.heads.size());
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role == Qt::TextAlignmentRole)
            return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
        if (role != Qt::DisplayRole)
            return {};
        return result_.rows[static_cast<std::size_t>(index.row())].value(index.column());
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation == Qt::Vertical)
            return {};
        if (role == Qt::TextAlignmentRole)
            return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
        return role == Qt::DisplayRole ? QVariant(result_.heads.value(section)) : QVariant();
    }

    void SetResult(GridResult result)
    {
        beginResetModel();
        result_ = std::move(result);
        endResetModel();
    }

    const GridResult& Result() const { return result_; }

private:
    GridResult result_;
};

DataGrid::DataGrid(QWidget* parent) : QTableView(parent), model_(new Model(this))
{
    setModel(model_);
    DressGrid(this);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setStretchLastSection(false);
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { Q_EMIT RowDoubleClicked(index.row()); });
}

DataGrid::~DataGrid() = default;

void DataGrid::Bind(GridResult result, const QStringList& hidden)
{
    const QStringList heads = result.heads;
    model_->SetResult(std::move(result));
    entered_ = -1;
    TakeEnter(false);
    int lastVisible = -1;
    for (int column = 0; column < heads.size(); ++column) {
        const bool hide = hidden.contains(heads.at(column), Qt::CaseInsensitive);
        setColumnHidden(column, hide);
        if (!hide)
            lastVisible = column;
    }
    // The columns share the width, so that none is cut off and no empty strip is left.
    for (int column = 0; column < heads.size(); ++column)
        horizontalHeader()->setSectionResizeMode(column, column <= lastVisible ? QHeaderView::Stretch
                                                                               : QHeaderView::Fixed);
}

int DataGrid::RowCount() const
{
    return model_->rowCount();
}

int DataGrid::CurrentRow() const
{
    return currentIndex().isValid() ? currentIndex().row() : -1;
}

QString DataGrid::Text(int row, const QString& head) const
{
    const GridResult& result = model_->Result();
    const auto column = result.heads.indexOf(head, 0);
    if (row < 0 || static_cast<std::size_t>(row) >= result.rows.size() || column < 0)
        return {};
    return result.rows[static_cast<std::size_t>(row)].value(column);
}

void DataGrid::focusInEvent(QFocusEvent* event)
{
    // Passing through with Tab enters no row, as the item view's own answer would.
    QAbstractScrollArea::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
    viewport()->update();
}

void DataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    TakeEnter(current.isValid());
}

void DataGrid::TakeEnter(bool onRow)
{
    setProperty(TakesEnter, onRow && isSignalConnected(QMetaMethod::fromSignal(&DataGrid::RowDoubleClicked)));
}

void DataGrid::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && property(TakesEnter).toBool() && CurrentRow() >= 0) {
        Q_EMIT RowDoubleClicked(CurrentRow());
        return;
    }
    QTableView::keyPressEvent(event);
    TellEntered();
}

void DataGrid::mouseReleaseEvent(QMouseEvent* event)
{
    QTableView::mouseReleaseEvent(event);
    TellEntered();
}

void DataGrid::TellEntered()
{
    const int row = CurrentRow();
    if (row < 0 || row == entered_)
        return;
    entered_ = row;
    Q_EMIT RowEntered(row);
}

} // namespace tally
