#include "core/ui/controls/DataGrid.h"

#include "core/ui/FormKeys.h"
#include "core/ui/look/Look.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QToolTip>

#include <algorithm>

namespace tally {

namespace {

constexpr int MeasuredRows = 200;

} // namespace

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
        if (role != Qt::DisplayRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
            return {};
        return Row(index.row()).value(index.column());
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
        shown_ = RowsInOrder(result_, -1, Qt::AscendingOrder);
        endResetModel();
    }

    void sort(int column, Qt::SortOrder order) override
    {
        Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
        std::vector<std::size_t> now = RowsInOrder(result_, column, order);
        std::vector<int> place(now.size());
        for (std::size_t row = 0; row < now.size(); ++row)
            place[now[row]] = static_cast<int>(row);
        const QModelIndexList before = persistentIndexList();
        QModelIndexList after;
        for (const QModelIndex& cell : before)
            after.append(index(place[shown_[static_cast<std::size_t>(cell.row())]], cell.column()));
        shown_ = std::move(now);
        changePersistentIndexList(before, after);
        Q_EMIT layoutChanged({}, VerticalSortHint);
    }

    const QStringList& Heads() const { return result_.heads; }
    const QStringList& Row(int shown) const { return result_.rows[shown_[static_cast<std::size_t>(shown)]]; }

private:
    GridResult result_;
    std::vector<std::size_t> shown_; ///< the rows of the result in the order in which they are shown
};

DataGrid::DataGrid(QWidget* parent) : Grid(parent), model_(new Model(this))
{
    setModel(model_);
    DressGrid(this);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    // More rows than anybody sees at once are not measured.
    horizontalHeader()->setResizeContentsPrecision(MeasuredRows);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    // The row that the user stands on moves with its name, and the eye goes with it.
    connect(model_, &QAbstractItemModel::layoutChanged, this, [this] { scrollTo(currentIndex()); });
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { Q_EMIT RowDoubleClicked(index.row()); });
}

DataGrid::~DataGrid() = default;

void DataGrid::Bind(GridResult result, const QStringList& hidden)
{
    const QStringList heads = result.heads;
    const int sortedBy = heads == model_->Heads() ? horizontalHeader()->sortIndicatorSection() : -1;
    model_->SetResult(std::move(result));
    sortByColumn(sortedBy, horizontalHeader()->sortIndicatorOrder());
    TakeEnter(false);
    for (int column = 0; column < heads.size(); ++column)
        setColumnHidden(column, ColumnOf(hidden, heads.at(column)) >= 0);
    MeasureColumns();
    ShareWidth();
}

void DataGrid::MeasureColumns()
{
    needs_.clear();
    for (int column = 0; column < model_->columnCount(); ++column)
        if (!isColumnHidden(column))
            needs_.emplace_back(
                column, std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column)));
}

int DataGrid::MostWidth(int width) const
{
    constexpr int LongestName = 60;
    constexpr double MostOfList = 0.4;
    int needed = 0;
    for (const auto& [column, need] : needs_)
        needed += need;
    // Where not all has room, a name longer than names are does not push the other columns out of sight.
    return needed <= width ? width
                           : std::max(LongestName * fontMetrics().averageCharWidth(),
                                      static_cast<int>(MostOfList * width));
}

void DataGrid::ShareWidth()
{
    const int width = viewport()->width();
    const int most = MostWidth(width);
    int spare = width;
    for (const auto& [column, need] : needs_)
        spare -= std::min(need, most);
    spare = std::max(spare, 0);
    auto left = static_cast<int>(needs_.size());
    for (const auto& [column, need] : needs_) {
        const int share = spare / left--;
        setColumnWidth(column, std::min(need, most) + share);
        spare -= share;
    }
}

bool DataGrid::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return Grid::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex cell = indexAt(help->pos());
    if (sizeHintForIndex(cell).width() > columnWidth(cell.column()))
        QToolTip::showText(help->globalPos(), WrappedToolTip(cell.data().toString()), viewport());
    else
        QToolTip::hideText();
    return true;
}

void DataGrid::resizeEvent(QResizeEvent* event)
{
    Grid::resizeEvent(event);
    ShareWidth();
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
    const int column = ColumnOf(model_->Heads(), head);
    if (row < 0 || row >= RowCount())
        return {};
    return model_->Row(row).value(column);
}

void DataGrid::focusInEvent(QFocusEvent* event)
{
    // Passing through with Tab enters no row, as the item view's own answer would.
    QAbstractScrollArea::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
    viewport()->update();
}

void DataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    Grid::currentChanged(current, previous);
    TakeEnter(current.isValid());
}

void DataGrid::TakeEnter(bool onRow)
{
    setProperty(TakesEnter, onRow && isSignalConnected(QMetaMethod::fromSignal(&DataGrid::RowDoubleClicked)));
}

void DataGrid::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && StandsOnOneRow()) {
        Q_EMIT RowDoubleClicked(CurrentRow());
        return;
    }
    Grid::keyPressEvent(event);
    TellEntered();
}

void DataGrid::mouseReleaseEvent(QMouseEvent* event)
{
    Grid::mouseReleaseEvent(event);
    TellEntered();
}

bool DataGrid::StandsOnOneRow() const
{
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.size() == 1 && rows.first().row() == CurrentRow();
}

void DataGrid::TellEntered()
{
    const int row = CurrentRow();
    if (!StandsOnOneRow() || row == entered_.row())
        return;
    entered_ = currentIndex();
    Q_EMIT RowEntered(row);
}

} // namespace tally
