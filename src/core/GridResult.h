#pragma once

#include "store/Statement.h"

#include <QStringList>

#include <vector>

namespace tally {

/// The result of a query as a grid shows it: heads, and rows of texts.
struct GridResult
{
    QStringList heads;
    std::vector<QStringList> rows; ///< each as long as `heads`
};

/// All rows of a query whose column names are the heads of the grid. ISO dates become "dd/MMM/yyyy" in the
/// columns named in `dateHeads`.
GridResult ReadGrid(store::Statement query, const QStringList& dateHeads = {});

} // namespace tally
