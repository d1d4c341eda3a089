// Measures the preparing of a rank list against the least work that could give its totals, on encrypted
// files. Prints a table of ratios at the end. Exit code 1: a ratio is beyond its limit.

#include "bench/BareStore.h"
#include "bench/BenchProgram.h"
#include "bench/BenchSchool.h"
#include "bench/RankScreen.h"
#include "bench/RatioReport.h"
#include "core/SessionContext.h"
#include "ranks/frmRankCalculation.h"
#include "ranks/RankRepository.h"
#include "ranks/TempRankRepository.h"

#include <QApplication>

#include <array>
#include <cstdio>

namespace {

using namespace tally;
using namespace tally::bench;

constexpr std::array Sizes{600, 1000, 10000};
constexpr int Repetitions = 5;
constexpr double SecondsPerRepetition = 0.2;

int StudentsOf(const benchmark::State& state)
{
    return static_cast<int>(state.range(0));
}

void BareSum(benchmark::State& state)
{
    BareStore store(SchoolOf(StudentsOf(state)));
    for (auto _ : state)
        benchmark::DoNotOptimize(store.SumByStudent());
}

void MarkByMark(benchmark::State& state)
{
    BareStore store(SchoolOf(StudentsOf(state)));
    for (auto _ : state)
        benchmark::DoNotOptimize(store.MarkByMark());
}

void MarkByMarkPrepared(benchmark::State& state)
{
    BareStore store(SchoolOf(StudentsOf(state)));
    for (auto _ : state)
        benchmark::DoNotOptimize(store.MarkByMarkPrepared());
}

void ReadComputeFill(benchmark::State& state)
{
    OpenSession(SchoolOf(StudentsOf(state)).Folder());
    const SessionContext& session = Session();
    RankRepository repository(*session.gcnnMain);
    const std::uint64_t before = session.gcnnMain->StatementsRun();
    for (auto _ : state) {
        const RankList list = ComputeRankList(
            repository.LoadRankInput(BenchSchool::Scope(), BenchSchool::DivisionCodes()), RankOptions());
        store::Transaction working(*session.gcnnTemp);
        TempRankRepository::FillTempRankCalculation(working, list);
        working.Commit();
    }
    state.counters["reads"] = static_cast<double>(session.gcnnMain->StatementsRun() - before) /
                              static_cast<double>(state.iterations());
}

void ProceedOnScreen(benchmark::State& state)
{
    OpenSession(SchoolOf(StudentsOf(state)).Folder());
    frmRankCalculation screen;
    screen.resize(1024, 700);
    screen.show();
    QApplication::processEvents();
    std::uint64_t reads = 0;
    for (auto _ : state) {
        ChooseAll(&screen);
        const std::uint64_t before = Session().gcnnMain->StatementsRun();
        state.SetIterationTime(Proceed(&screen).count());
        reads = Session().gcnnMain->StatementsRun() - before;
        Cancel(&screen);
    }
    state.counters["reads"] = static_cast<double>(reads);
}

std::string Name(const char* function, int students)
{
    return std::string(function) + '/' + std::to_string(students);
}

/// Prints one ratio a size and says whether each keeps its limit.
class Table
{
public:
    explicit Table(const RatioReport& report) : report_(report) {}

    void AtMost(const char* work, const char* base, double limit)
    {
        for (const int students : Sizes) {
            const double ratio =
                report_.Milliseconds(Name(work, students)) / report_.Milliseconds(Name(base, students));
            Line(std::string(work) + " / " + base, std::to_string(students), ratio, "at most", limit,
                 ratio <= limit);
        }
    }

    void FasterThan(const char* work, const char* base, double limit)
    {
        for (const int students : Sizes) {
            const double ratio =
                report_.Milliseconds(Name(base, students)) / report_.Milliseconds(Name(work, students));
            Line(std::string(base) + " / " + work, std::to_string(students), ratio, "at least", limit,
                 ratio >= limit);
        }
    }

    void GrowsAtMost(const char* work, double limit)
    {
        const double ratio = report_.Milliseconds(Name(work, 10000)) / report_.Milliseconds(Name(work, 1000));
        Line(work, "1000 to 10000", ratio, "at most", limit, ratio <= limit);
    }

    void SameReads(const char* work)
    {
        const double small = report_.Counter(Name(work, Sizes.front()), "reads");
        const double large = report_.Counter(Name(work, Sizes.back()), "reads");
        Line(std::string(work) + ", statements", "600 to 10000", large / small, "exactly", 1, large == small);
    }

    bool AllKept() const { return allKept_; }

private:
    void Line(const std::string& what, const std::string& students, double ratio, const char* relation,
              double limit, bool kept)
    {
        std::printf("%-44s %-14s %8.2f   %s %g%s\n", what.c_str(), students.c_str(), ratio, relation, limit,
                    Verdict(ratio, kept));
        allKept_ = allKept_ && kept;
    }

    const RatioReport& report_;
    bool allKept_ = true;
};

void Register(const char* name, void (*function)(benchmark::State&), bool manualTime = false)
{
    auto* entry = benchmark::RegisterBenchmark(name, function);
    for (const int students : Sizes)
        entry->Arg(students);
    entry->Unit(benchmark::kMillisecond)
        ->Repetitions(Repetitions)
        ->ReportAggregatesOnly()
        ->MinTime(SecondsPerRepetition);
    if (manualTime)
        entry->UseManualTime();
    else
        entry->UseRealTime();
}

} // namespace

int main(int argc, char** argv)
{
    const auto application = StartApplication(argc, argv);
    // Taking turns spreads a busy moment of the machine over all of them.
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, interleave.data());
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());

    Register("BareSum", &BareSum);
    Register("ReadComputeFill", &ReadComputeFill);
    Register("ProceedOnScreen", &ProceedOnScreen, true);
    Register("MarkByMark", &MarkByMark);
    Register("MarkByMarkPrepared", &MarkByMarkPrepared);
    RatioReport report;
    benchmark::RunSpecifiedBenchmarks(&report);
    Session() = SessionContext();

    std::printf("\n%-44s %-14s %8s   %s\n", "Ratio of medians", "Students", "Ratio", "Limit");
    Table table(report);
    table.AtMost("ReadComputeFill", "BareSum", 4);
    table.AtMost("ProceedOnScreen", "BareSum", 10);
    table.FasterThan("ProceedOnScreen", "MarkByMark", 5);
    table.GrowsAtMost("ReadComputeFill", 11);
    table.GrowsAtMost("ProceedOnScreen", 11);
    table.SameReads("ReadComputeFill");
    table.SameReads("ProceedOnScreen");
    return table.AllKept() ? 0 : 1;
}
