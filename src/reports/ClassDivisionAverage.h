#pragma once

#include "core/GridTable.h"
#include "core/school/ListItem.h"
#include "core/school/SchoolTypes.h"
#include "reports/ChartTable.h"
#include "reports/PercentAverage.h"

#include <vector>

namespace tally {

/// From what the averages of the divisions of a class are made.
struct DivisionAverageInput
{
    std::vector<SubjectSetup> setup; ///< of the whole class, by SlNo
    std::vector<DivisionMark> marks; ///< of the exam, all divisions chosen and all subjects, of those present
};

/// What is chosen for the list.
struct DivisionAverageChoice
{
    QString className;
    std::vector<ListItem> divisions; ///< in the order of the rows, each with its mark before its name
    std::vector<int> subjectCodes;
    SubjectDisplay display = SubjectDisplay::TakenForRankOnly;
};

/// The columns before the subjects; each subject has two, of which the first is hidden and holds its code.
enum class DivisionAverageColumn : int
{
    SerialNo,
    StudentName, ///< hidden, as the next one is
    AdmissionNo,
    Class,
    Division,
};

/// A row for each division with its average of each subject, in percent of the maximum mark and with two
/// decimals: absent students count neither for the sum nor for the number, a mark of 0 for both. The columns
/// are the subjects of the first division. A cell stays blank where the division does not take the subject or
/// nobody was present, and where marks out of 0 give no average.
GridTable ShowClassDivisionAverages(const DivisionAverageInput& input, const DivisionAverageChoice& choice);

/// The same as a chart, with "{Class} {Division}" on its axis.
ChartTable ChartOfDivisionAverages(const GridTable& list);

} // namespace tally
