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

    /// The median of the repetitions, in milliseconds. NaN for a run that was filtered out, so that no ratio
    /// made of it keeps a limit.
    double Milliseconds(const std::string& name) const;
    /// The median of the repetitions; NaN likewise.
    double Counter(const std::string& name, const std::string& counter) const;

private:
    std::map<std::string, double> times_;
    std::map<std::string, double> counters_;
};

/// What stands behind a figure that does not keep its limit; nothing behind one that does.
const char* Verdict(double figure, bool kept);

} // namespace tally::bench
