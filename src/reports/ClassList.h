#pragma once

#include "core/GridTable.h"
#include "reports/ClassListRepository.h"
#include "reports/TextReport.h"

namespace tally {

/// The columns of a class list that are always there; columns to be filled by hand follow them.
enum class ClassListColumn
{
    AdmissionNo,
    StudentName,
    FirstAdded,
};

/// The students under their heads, with `added` empty columns behind them. `admissionHead` is how the form
/// calls the school's own number.
GridTable ClassListTable(const std::vector<ClassListStudent>& students, const QString& admissionHead,
                         int added);

/// The list of a class as a text, with room to write in each added column.
TextReport ClassListText(const GridTable& list, const QString& className, const QString& divisions);

/// Whether one of the added columns has this number, as typed; they count from 1.
bool IsAddedColumn(const QString& number, int added);

} // namespace tally
