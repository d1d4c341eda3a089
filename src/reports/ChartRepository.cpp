#include "reports/ChartRepository.h"

#include "store/Transaction.h"
#include "store/WorkingTable.h"

namespace tally {

namespace {

constexpr int LabelWidth = 50;

store::WorkingTable TempChartReport(const ChartTable& chart)
{
    store::WorkingTable table("TempChartReport");
    table.Text(chart.labelColumn, LabelWidth);
    for (const QString& series : chart.series)
        table.DecimalOfData(series);
    return table;
}

} // namespace

ChartTable ChartRepository::LayDown(const ChartTable& chart)
{
    store::Transaction transaction(temp_);
    const store::WorkingTable table = TempChartReport(chart);
    table.Create(transaction);
    {
        store::Statement insert = table.Insert(transaction);
        for (const ChartTable::Row& row : chart.rows) {
            int position = 0;
            insert.BindAt(++position, row.label);
            for (const double value : row.values)
                insert.BindAt(++position, value);
            insert.RunBound();
        }
    }
    ChartTable laidDown{.labelColumn = chart.labelColumn, .series = {}, .rows = {}};
    {
        store::Statement rows = transaction.Prepare(QStringLiteral("SELECT * FROM TempChartReport"));
        for (int column = 1; column < rows.ColumnCount(); ++column)
            laidDown.series.append(rows.ColumnName(column));
        while (rows.Next()) {
            ChartTable::Row& row = laidDown.rows.emplace_back(ChartTable::Row{rows.Text(0), {}});
            for (int column = 1; column < rows.ColumnCount(); ++column)
                row.values.push_back(rows.Double(column));
        }
    }
    transaction.Commit();
    return laidDown;
}

} // namespace tally
