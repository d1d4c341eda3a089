#pragma once

#include "core/Numbers.h"

#include <QString>

#include <cmath>

namespace tally {

/// The average of marks, which come with two decimals.
class MarkAverage
{
public:
    void Add(double mark)
    {
        sum_.Add(mark);
        ++count_;
    }

    bool Exists() const { return count_ > 0; }
    /// Only with marks, as all below.
    double Value() const { return sum_.Value() / count_; }
    double PercentOf(double maximumMark) const { return sum_.Value() / (maximumMark * count_) * 100; }
    /// As lists show it: rounded to `decimals` (0 or 2), a half to the even neighbour. It is a half where it
    /// is one on paper: 65.02 and 65.03 give 65.02.
    QString Text(int decimals) const
    {
        // Sum and remainder are whole hundredths; the binary form of the average itself would lie a hair
        // beside a half, on this side or on that.
        const double hundredths = std::round(sum_.Value() * 100);
        const double step = decimals == 0 ? 100 : 1;
        const double rounded = (hundredths - std::remainder(hundredths, step * count_)) / count_;
        return FormatMark(rounded / 100, decimals);
    }

private:
    ExactSum sum_;
    int count_ = 0;
};

} // namespace tally
