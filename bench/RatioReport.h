#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace tally::bench {

/// Prints the runs as usual and keeps their times and counters, so that ratios come from one run.
class RatioReport : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override;

    /// The median of the repetitions, in milliseconds; 0 for a name that did not run.
    double Milliseconds(const std::string& name) const;
    double Counter(const std::string& name, const std::string& counter) const;

private:
    std::map<std::string, double> times_;
    std::map<std::string, double> counters_;
};

} // namespace tally::bench
