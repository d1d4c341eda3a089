#include "bench/RatioReport.h"

#include <cmath>
#include <limits>

namespace tally::bench {

namespace {

constexpr double NotRun = std::numeric_limits<double>::quiet_NaN();

} // namespace

void RatioReport::ReportRuns(const std::vector<Run>& runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        if (run.aggregate_name != "median")
            continue;
        std::string name = run.run_name.function_name;
        name.append("/").append(run.run_name.args);
        times_[name] = run.GetAdjustedRealTime();
        for (const auto& [counter, value] : run.counters)
            counters_[std::string(name).append(" ").append(counter)] = value.value;
    }
}

double RatioReport::Milliseconds(const std::string& name) const
{
    const auto found = times_.find(name);
    return found == times_.end() ? NotRun : found->second;
}

double RatioReport::Counter(const std::string& name, const std::string& counter) const
{
    const auto found = counters_.find(name + ' ' + counter);
    return found == counters_.end() ? NotRun : found->second;
}

const char* Verdict(double figure, bool kept)
{
    if (std::isnan(figure))
        return "   NOT RUN";
    return kept ? "" : "   MISSED";
}

} // namespace tally::bench
