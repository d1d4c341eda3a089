#pragma once

#include "core/GridTable.h"
#include "reports/SetupReportRepository.h"

#include <QStringList>

#include <vector>

namespace tally {

/// The columns of the list of what the divisions take.
enum class SetupReportColumn
{
    Serial,
    Class,
    Division,
    Subject,
    Teacher,
    MaximumMark,
    MaximumAllowed,
    TakenForRank,
    SlNo,
};

/// The list, numbered from 1, in which classes and divisions are merged columns.
GridTable SetupReportTable(const std::vector<SetupReportRow>& setup);

/// A line of the sheet into which the list is exported.
struct SetupSheetLine
{
    enum class Kind
    {
        Head,    ///< what the columns hold
        Heading, ///< the class and the division of the lines below
        Subject,
        Total, ///< of the maximum marks that are taken for rank, since the last heading
    };

    Kind kind = Kind::Subject;
    QStringList texts; ///< heading: class and division; total: the sum; else one for each column of the sheet
};

/// The list without the columns of class and division, which stand in headings instead, and a total below
/// each division. `lastRow` and `lastCol` are the last row and column of the list that go in.
std::vector<SetupSheetLine> SetupSheetLines(const GridTable& list, int lastRow, int lastCol);

} // namespace tally
