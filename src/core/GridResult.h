#pragma once

#include "store/Statement.h"

#include <QStringList>

#include <cstddef>
#include <vector>

namespace tally {

/// The result of a query as a grid shows it: heads, and rows of texts.
struct GridResult
{
    QStringList heads;
    std::vector<QStringList> rows; ///< each as long as `heads`
};

/// Where `head` stands among the heads, in whatever letters: a store may give back the names of columns in
/// small ones. -1 when it is not among them.
int ColumnOf(const QStringList& heads, const QString& head);

/// All rows of a query whose column names are the heads of the grid. ISO dates become "dd/MMM/yyyy" in the
/// columns named in `dateHeads`.
GridResult ReadGrid(store::Statement query, const QStringList& dateHeads = {});

/// The numbers of the rows, sorted by a column: by value where all its texts are whole or decimal numbers or
/// all are dates as ShownDate gives them, else by text, small and capital letters alike. Empty texts come
/// last in both orders, and rows that are equal stay as they are. Column -1 leaves all rows as they are.
std::vector<std::size_t> RowsInOrder(const GridResult& result, int column, Qt::SortOrder order);

} // namespace tally
