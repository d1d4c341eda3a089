#include "core/GridResult.h"

#include "core/modTallyboard.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <utility>

namespace tally {

int ColumnOf(const QStringList& heads, const QString& head)
{
    for (int column = 0; column < heads.size(); ++column)
        if (heads.at(column).compare(head, Qt::CaseInsensitive) == 0)
            return column;
    return -1;
}

GridResult ReadGrid(store::Statement query, const QStringList& dateHeads)
{
    GridResult result;
    for (int column = 0; column < query.ColumnCount(); ++column)
        result.heads.append(query.ColumnName(column));
    std::vector<bool> isDate;
    for (const QString& head : std::as_const(result.heads))
        isDate.push_back(ColumnOf(dateHeads, head) >= 0);
    while (query.Next()) {
        QStringList row;
        row.reserve(result.heads.size());
        for (int column = 0; column < result.heads.size(); ++column)
            row.append(isDate[static_cast<std::size_t>(column)] ? ShownDate(query.Date(column))
                                                                : query.Text(column));
        result.rows.push_back(std::move(row));
    }
    return result;
}

namespace {

std::optional<double> NumberOf(const QString& text)
{
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<double> DayOf(const QString& text)
{
    const QDate date = DateShown(text);
    return date.isValid() ? std::optional(static_cast<double>(date.toJulianDay())) : std::nullopt;
}

/// What each row counts as in a column whose filled cells all are of one kind; nothing where one is not.
std::optional<std::vector<double>> Values(const GridResult& result, int column,
                                          std::optional<double> (*valueOf)(const QString&))
{
    std::vector<double> values;
    values.reserve(result.rows.size());
    for (const QStringList& row : result.rows) {
        const QString& text = row.at(column);
        const std::optional<double> value = text.isEmpty() ? 0 : valueOf(text);
        if (!value)
            return {};
        values.push_back(*value);
    }
    return values;
}

} // namespace

std::vector<std::size_t> RowsInOrder(const GridResult& result, int column, Qt::SortOrder order)
{
    std::vector<std::size_t> rows(result.rows.size());
    std::iota(rows.begin(), rows.end(), std::size_t(0));
    if (column < 0 || column >= result.heads.size())
        return rows;
    const auto sort = [&](const auto& isLess) {
        const auto text = [&](std::size_t row) -> const QString& { return result.rows[row].at(column); };
        std::stable_sort(rows.begin(), rows.end(), [&](std::size_t left, std::size_t right) {
            if (text(left).isEmpty() || text(right).isEmpty())
                return !text(left).isEmpty() && text(right).isEmpty();
            return order == Qt::AscendingOrder ? isLess(left, right) : isLess(right, left);
        });
    };
    auto values = Values(result, column, &NumberOf);
    if (!values)
        values = Values(result, column, &DayOf);
    if (values)
        sort([&](std::size_t left, std::size_t right) { return (*values)[left] < (*values)[right]; });
    else
        sort([&](std::size_t left, std::size_t right) {
            return result.rows[left].at(column).compare(result.rows[right].at(column), Qt::CaseInsensitive) <
                   0;
        });
    return rows;
}

} // namespace tally
