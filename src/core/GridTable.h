#pragma once

#include <QString>

#include <cstdint>
#include <type_traits>
#include <vector>

namespace tally {

/// What a cell means beyond its text. Rules say the meaning; the look chooses the paint.
enum class CellMark : std::uint8_t
{
    None,
    NotTakenForRank,
    FailedOrAbsent,
    Sum, ///< of a row that sums up the ones above it
};

/// The mark in words, for a screen reader; empty for None.
QString CellWords(CellMark mark);

inline constexpr Qt::Alignment TextAlignment = Qt::AlignLeft | Qt::AlignVCenter;
inline constexpr Qt::Alignment NumberAlignment = Qt::AlignRight | Qt::AlignVCenter;

/// A column by its number from 0, or by the name that an enum gives it.
class GridCol
{
public:
    constexpr GridCol(int number) : number_(number) {} // NOLINT(google-explicit-constructor)
    template <typename Name, typename = std::enable_if_t<std::is_enum_v<Name>>>
    constexpr GridCol(Name name) : number_(static_cast<int>(name)) // NOLINT(google-explicit-constructor)
    {}

    constexpr operator int() const { return number_; } // NOLINT(google-explicit-constructor)

private:
    int number_;
};

struct GridColumn
{
    QString head;
    Qt::Alignment alignment = TextAlignment;
    bool hidden = false;    ///< its texts are there for the screen alone
    bool stretched = false; ///< takes the room that the other columns leave
    int twips = 0;          ///< the least width; longer texts make it wider
    bool merged = false;    ///< a text that repeats the one above is shown once
};

struct GridCell
{
    QString text;
    CellMark mark = CellMark::None;
};

/// A list as a grid shows it and a workbook holds it: columns, and below their heads rows of cells. Knows no
/// widget, so that rules can make it. Rows count with the head, which is row 0. What lies outside is empty.
class GridTable
{
public:
    /// May be shorter than the columns are many; the missing cells are empty.
    using Row = std::vector<GridCell>;

    GridTable() = default;
    explicit GridTable(std::vector<GridColumn> columns) : columns_(std::move(columns)) {}

    /// With the head; at least 1.
    int Rows() const { return static_cast<int>(rows_.size()) + 1; }
    int Cols() const { return static_cast<int>(columns_.size()); }
    bool HasCol(GridCol col) const { return col >= 0 && col < Cols(); }
    /// Only for columns that there are.
    GridColumn& Column(GridCol col) { return columns_[static_cast<std::size_t>(col)]; }
    const GridColumn& Column(GridCol col) const { return columns_[static_cast<std::size_t>(col)]; }

    const QString& Text(int row, GridCol col) const;
    CellMark Mark(int row, GridCol col) const { return CellAt(row, col).mark; }
    void SetText(int row, GridCol col, const QString& text);
    /// A head has no mark.
    void SetMark(int row, GridCol col, CellMark mark);
    /// All cells of a row below the head.
    void SetRow(int row, Row cells);

    /// Room for so many rows, for lists whose length is known.
    void Reserve(int rows) { rows_.reserve(static_cast<std::size_t>(rows)); }
    void AddRow(Row cells = {}) { rows_.push_back(std::move(cells)); }
    /// New rows are empty, rows cut off are forgotten. The head stays.
    void SetRows(int rows);
    void SetCols(int cols);
    /// The rows below it move up. The head stays.
    void RemoveRow(int row);

    /// Whether a merged column holds the text of the visible row above, and so do all merged ones before it.
    bool Repeats(int row, GridCol col) const;

    /// A hidden row keeps its texts.
    void HideRow(int row, bool hidden = true);
    bool RowHidden(int row) const;
    /// From the first one on.
    const std::vector<int>& HiddenRows() const { return hiddenRows_; }

private:
    const GridCell& CellAt(int row, GridCol col) const;
    /// Null outside, and for the head.
    GridCell* Find(int row, GridCol col);

    std::vector<GridColumn> columns_;
    std::vector<Row> rows_;
    std::vector<int> hiddenRows_;
};

} // namespace tally
