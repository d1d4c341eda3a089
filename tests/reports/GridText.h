#pragma once

#include "core/GridTable.h"

#include <QStringList>

#include <string>

namespace tally::test {

/// The cells of a row, hidden ones too, parted by "|".
inline std::string RowText(const GridTable& table, int row)
{
    QStringList cells;
    for (int col = 0; col < table.Cols(); ++col)
        cells.append(table.Text(row, col));
    return cells.join(QLatin1Char('|')).toStdString();
}

/// All rows, the heads first, each on a line of its own.
inline std::string GridText(const GridTable& table)
{
    std::string text;
    for (int row = 0; row < table.Rows(); ++row)
        text += RowText(table, row) + '\n';
    return text;
}

} // namespace tally::test
