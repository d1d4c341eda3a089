#include "core/ui/controls/FlexGrid.h"

#include "core/ui/controls/FixedColumns.h"
#include "core/ui/look/Look.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace tally {

namespace {

constexpr int CellPadding = 14;

/// A mark shows in the letters too, for those whom its colour does not reach.
QVariant MarkFont(CellMark mark)
{
    if (mark == CellMark::None)
        return {};
    QFont font;
    if (mark == CellMark::NotTakenForRank)
        font.setItalic(true);
    else
        font.setBold(true);
    return font;
}

} // namespace

QColor CellColor(CellMark mark)
{
    switch (mark) {
    case CellMark::NotTakenForRank: return {255, 255, 176};
    case CellMark::FailedOrAbsent: return {255, 216, 176};
    case CellMark::None:
    case CellMark::Sum: break;
    }
    return {};
}

QString CellWords(CellMark mark)
{
    switch (mark) {
    case CellMark::NotTakenForRank: return QStringLiteral("Not Taken For Rank");
    case CellMark::FailedOrAbsent: return QStringLiteral("Failed Or Absent");
    case CellMark::Sum: return QStringLiteral("Sum");
    case CellMark::None: break;
    }
    return {};
}

class FlexGrid::Model : public QAbstractTableModel
{
public:
    explicit Model(QObject* parent) : QAbstractTableModel(parent), rows_(1) {}

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size()) - 1;
    }

    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : cols_; }

    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid))
            return {};
        const Cell& cell = At(index.row() + 1, index.column());
        switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole: return cell.text;
        case Qt::TextAlignmentRole: return static_cast<int>(Alignment(index.column()));
        case Qt::BackgroundRole: {
            const QColor color = CellColor(cell.mark);
            return color.isValid() ? QVariant(color) : QVariant();
        }
        case Qt::ForegroundRole:
            // The marked cells keep their light paint in a dark look too, so their text stays dark.
            return CellColor(cell.mark).isValid() ? QVariant(QColor(Qt::black)) : QVariant();
        case Qt::FontRole: return MarkFont(cell.mark);
        case Qt::AccessibleTextRole: return cell.mark == CellMark::None ? QVariant() : Spoken(cell);
        default: return {};
        }
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation == Qt::Vertical)
            return {};
        if (role == Qt::DisplayRole)
            return At(0, section).text;
        if (role == Qt::TextAlignmentRole)
            return static_cast<int>(Alignment(section));
        return {};
    }

    const Cell& At(int row, int col) const
    {
        static const Cell Empty;
        const auto r = static_cast<std::size_t>(row);
        const auto c = static_cast<std::size_t>(col);
        return row >= 0 && r < rows_.size() && col >= 0 && c < rows_[r].size() ? rows_[r][c] : Empty;
    }

    void SetRows(int rows)
    {
        const int wanted = std::max(1, rows);
        const int have = static_cast<int>(rows_.size());
        if (wanted > have) {
            beginInsertRows({}, have - 1, wanted - 2);
            rows_.resize(static_cast<std::size_t>(wanted));
            endInsertRows();
        } else if (wanted < have) {
            beginRemoveRows({}, wanted - 1, have - 2);
            rows_.resize(static_cast<std::size_t>(wanted));
            endRemoveRows();
        }
    }

    void SetCols(int cols)
    {
        beginResetModel();
        cols_ = std::max(0, cols);
        for (Row& row : rows_)
            row.resize(std::min(row.size(), static_cast<std::size_t>(cols_)));
        endResetModel();
    }

    void SetContent(std::vector<Row> rows)
    {
        beginResetModel();
        rows_ = std::move(rows);
        if (rows_.empty())
            rows_.resize(1);
        cols_ = static_cast<int>(rows_.front().size());
        endResetModel();
    }

    template <typename Change>
    void ChangeCell(int row, int col, Change change)
    {
        if (row < 0 || static_cast<std::size_t>(row) >= rows_.size() || col < 0 || col >= cols_)
            return;
        Row& cells = rows_[static_cast<std::size_t>(row)];
        if (cells.size() <= static_cast<std::size_t>(col))
            cells.resize(static_cast<std::size_t>(cols_));
        change(cells[static_cast<std::size_t>(col)]);
        if (row == 0)
            Q_EMIT headerDataChanged(Qt::Horizontal, col, col);
        else
            Q_EMIT dataChanged(index(row - 1, col), index(row - 1, col));
    }

    void SetAlignment(int col, Qt::Alignment alignment)
    {
        if (col < 0)
            return;
        if (alignments_.size() <= static_cast<std::size_t>(col))
            alignments_.resize(static_cast<std::size_t>(col) + 1, Qt::AlignLeft | Qt::AlignVCenter);
        alignments_[static_cast<std::size_t>(col)] = alignment;
        if (col < cols_)
            Q_EMIT headerDataChanged(Qt::Horizontal, col, col);
    }

    void Remove(int row)
    {
        if (row < 1 || static_cast<std::size_t>(row) >= rows_.size())
            return;
        beginRemoveRows({}, row - 1, row - 1);
        rows_.erase(rows_.begin() + row);
        endRemoveRows();
    }

    Qt::Alignment Alignment(int col) const
    {
        const auto c = static_cast<std::size_t>(col);
        return c < alignments_.size() ? alignments_[c] : Qt::AlignLeft | Qt::AlignVCenter;
    }

private:
    /// The text first, as it is what the clerk waits for.
    static QString Spoken(const Cell& cell)
    {
        const QString words = CellWords(cell.mark);
        return cell.text.isEmpty() ? words : cell.text + QStringLiteral(", ") + words;
    }

    std::vector<Row> rows_; ///< the head first; a row may be shorter than cols_, its missing cells are empty
    int cols_ = 0;
    std::vector<Qt::Alignment> alignments_;
};

FlexGrid::FlexGrid(QWidget* parent) : Grid(parent), model_(new Model(this))
{
    setModel(model_);
    DressGrid(this);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    // The office's lists hide rows and columns by their size.
    verticalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setMinimumSectionSize(1);
    // A lone column, as an emptied grid has it, is no narrow box in the grid's corner.
    connect(model_, &QAbstractItemModel::modelReset, this,
            [this] { horizontalHeader()->setStretchLastSection(Cols() == 1); });
    connect(model_, &QAbstractItemModel::modelReset, this, &FlexGrid::DropFixedColumns);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &FlexGrid::PlaceFixedColumns);
    connect(this, &QTableView::clicked, this,
            [this](const QModelIndex& index) { Q_EMIT CellClicked(index.row() + 1, index.column()); });
}

FlexGrid::~FlexGrid() = default;

int FlexGrid::Rows() const
{
    return model_->rowCount() + 1;
}

void FlexGrid::SetRows(int rows)
{
    model_->SetRows(rows);
}

int FlexGrid::Cols() const
{
    return model_->columnCount();
}

void FlexGrid::SetCols(int cols)
{
    model_->SetCols(cols);
}

QString FlexGrid::TextMatrix(int row, int col) const
{
    return model_->At(row, col).text;
}

void FlexGrid::SetTextMatrix(int row, int col, const QString& text)
{
    model_->ChangeCell(row, col, [&](Cell& cell) { cell.text = text; });
}

CellMark FlexGrid::Mark(int row, int col) const
{
    return model_->At(row, col).mark;
}

void FlexGrid::SetMark(int row, int col, CellMark mark)
{
    model_->ChangeCell(row, col, [&](Cell& cell) { cell.mark = mark; });
}

void FlexGrid::SetContent(std::vector<Row> rows)
{
    model_->SetContent(std::move(rows));
}

void FlexGrid::SetColWidth(int col, int width)
{
    setColumnHidden(col, width <= 0);
    if (width > 0)
        setColumnWidth(col, width);
}

int FlexGrid::ColWidth(int col) const
{
    return isColumnHidden(col) ? 0 : columnWidth(col);
}

void FlexGrid::SetRowHeight(int row, int height)
{
    if (row == 0) {
        horizontalHeader()->setVisible(height > 0);
        return;
    }
    setRowHidden(row - 1, height <= 0);
    if (height > 0)
        setRowHeight(row - 1, height);
    DropFixedColumns();
}

int FlexGrid::RowHeight(int row) const
{
    if (row == 0)
        return horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sizeHint().height();
    return isRowHidden(row - 1) ? 0 : rowHeight(row - 1);
}

void FlexGrid::SetColAlignment(int col, Qt::Alignment alignment)
{
    model_->SetAlignment(col, alignment);
}

Qt::Alignment FlexGrid::ColAlignment(int col) const
{
    return model_->Alignment(col);
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

void FlexGrid::SetCurrentCell(int row, int col)
{
    const QModelIndex index = model_->index(row - 1, col);
    setCurrentIndex(index);
    scrollTo(index);
}

QRect FlexGrid::CellRect(int row, int col) const
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
    if (!fixedColumns_ || index.column() < fixedCols_)
        return;
    const int covered = fixedColumns_->ColumnsWidth() - visualRect(index).left();
    if (covered > 0)
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

void FlexGrid::FitColumns(int most)
{
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    for (int col = 0; col < Cols(); ++col) {
        if (isColumnHidden(col))
            continue;
        // Measuring ten thousand texts would be slow; the longest one by letters is wide enough.
        QString longest = TextMatrix(0, col);
        for (int row = 1; row < Rows(); ++row) {
            const QString& text = model_->At(row, col).text;
            if (!isRowHidden(row - 1) && text.size() > longest.size())
                longest = text;
        }
        setColumnWidth(col, std::min(most, metrics.horizontalAdvance(longest) + CellPadding));
    }
}

} // namespace tally
