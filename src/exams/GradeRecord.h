#pragma once

#include <QString>

namespace tally {

/// One row of a grade table as it is stored. Both averages are lower bounds.
struct GradeRecord
{
    double totalAverage = 0;   ///< percent
    double subjectAverage = 0; ///< percent
    QString grade;

    friend bool operator==(const GradeRecord& a, const GradeRecord& b)
    {
        return a.totalAverage == b.totalAverage && a.subjectAverage == b.subjectAverage && a.grade == b.grade;
    }
    friend bool operator!=(const GradeRecord& a, const GradeRecord& b) { return !(a == b); }
};

} // namespace tally
