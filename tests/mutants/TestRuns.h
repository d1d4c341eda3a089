#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace tally::mutants {

/// One test of the build.
struct Test
{
    QString program; ///< its path
    QString name;
    bool ofRules;        ///< else of a screen, which is slower by far
    QString folder = {}; ///< where it stands: "core/ui" for the tests in tests/core/ui
};

/// How a run of tests ended.
struct Outcome
{
    bool passed;
    QString last; ///< the test that was started last: the one that failed, where one did
};

/// All tests of a build that run within minutes and without a display. Throws std::runtime_error where the
/// build does not tell them.
std::vector<Test> TestsOf(const QString& buildFolder);

/// What a command says; throws std::runtime_error when it cannot be run or fails.
QString OutputOf(const QString& program, const QStringList& arguments, const QByteArray& input = {});

constexpr int LongestRun = 120'000;

/// Runs these tests of one program up to the first that fails. A program that is not through after `longest`
/// milliseconds has failed. Nothing that it started outlives it.
Outcome RunTests(const QString& program, const QStringList& names, const QProcessEnvironment& environment,
                 int longest = LongestRun);

/// How many pieces of work run at once.
inline unsigned Workers()
{
    return std::max(1U, std::thread::hardware_concurrency());
}

/// Calls work(number, worker) for each number below `count`, on all processors at once. The first failure
/// ends it.
template <typename Work>
void ForEach(std::size_t count, Work work)
{
    std::atomic<std::size_t> next{0};
    std::exception_ptr failure;
    std::mutex guard;
    std::vector<std::thread> workers;
    for (unsigned worker = 0; worker < Workers(); ++worker) {
        workers.emplace_back([&, worker] {
            try {
                for (std::size_t number = next++; number < count; number = next++)
                    work(number, worker);
            } catch (...) {
                const std::lock_guard lock(guard);
                failure = std::current_exception();
                next = count;
            }
        });
    }
    for (std::thread& worker : workers)
        worker.join();
    if (failure)
        std::rethrow_exception(failure);
}

/// The bytes of a file, none where it cannot be read.
QByteArray ReadAll(const QString& path);

/// Says a line on the standard output at once.
void Say(const QString& line);

} // namespace tally::mutants
