#pragma once

#include "reports/ChartTable.h"
#include "store/Connection.h"

namespace tally {

/// All statements on TempChartReport, the working table of the charts in the temporary file, which all
/// clients share. Throws StoreError.
class ChartRepository
{
public:
    /// `temp` must outlive the repository.
    explicit ChartRepository(store::Connection& temp) : temp_(temp) {}

    /// Lays the chart down as TempChartReport, in the place of the one before, and gives what the table then
    /// holds. All in one transaction, so that no other client's chart gets between. The series come back
    /// under the names of their columns: of two subjects with one short name the second has an underscore
    /// behind it.
    ChartTable LayDown(const ChartTable& chart);

private:
    store::Connection& temp_;
};

} // namespace tally
