#include "core/GridResult.h"

#include "core/modTallyboard.h"

namespace tally {

GridResult ReadGrid(store::Statement query, const QStringList& dateHeads)
{
    GridResult result;
    for (int column = 0; column < query.ColumnCount(); ++column)
        result.heads.append(query.ColumnName(column));
    while (query.Next()) {
        QStringList row;
        row.reserve(result.heads.size());
        for (int column = 0; column < result.heads.size(); ++column)
            row.append(dateHeads.contains(result.heads.at(column)) ? ShownDate(query.Date(column))
                                                                   : query.Text(column));
        result.rows.push_back(std::move(row));
    }
    return result;
}

} // namespace tally
