#pragma once

#include "core/Numbers.h"
#include "reports/MarkAverage.h"

#include <QString>

namespace tally {

/// A mark of some student of the division.
struct DivisionMark
{
    int divisionCode = 0;
    int subjectCode = 0;
    double mark = 0;
};

/// The average of marks in percent of the maximum mark.
class PercentAverage
{
public:
    void Add(double mark) { marks_.Add(mark); }

    /// With two decimals; empty for marks out of 0, by which nobody can be measured. Only with marks.
    QString Text(double maximumMark) const
    {
        return maximumMark == 0 ? QString() : Format2(marks_.PercentOf(maximumMark));
    }

private:
    MarkAverage marks_;
};

} // namespace tally
