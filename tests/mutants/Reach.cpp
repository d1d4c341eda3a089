#include "mutants/Reach.h"

#include <QList>

#include <algorithm>
#include <limits>
#include <set>
#include <tuple>
#include <utility>

namespace tally::mutants {

namespace {

/// The tests that stand together in a suite look at one thing from many sides.
QString SuiteOf(const Test& test)
{
    return test.name.section(QLatin1Char('.'), 0, 0);
}

QString FolderOf(const QString& file)
{
    return file.section(QLatin1Char('/'), 0, -2);
}

/// The tests in tests/core/ui are at home with the files in src/core/ui and below.
bool IsAtHome(const Test& test, const QString& file)
{
    return !test.folder.isEmpty() && file.startsWith(QLatin1String("src/") + test.folder + QLatin1Char('/'));
}

/// What a test reaches in the file of a change weighs so much more than what it reaches beside the file.
constexpr int FileBeforeFolder = 10;

/// What all of fewer tests reach may well be what they are there for.
constexpr std::size_t FewTests = 10;

} // namespace

Reach::Reach(const std::vector<Test>& tests, QHash<std::uint32_t, QString> files)
    : tests_(tests), milliseconds_(tests.size(), 0), seen_(tests.size(), false), files_(std::move(files)),
      reached_(tests.size()), reachedInAll_(tests.size(), 0)
{}

void Reach::Add(std::size_t test, const QByteArray& record, int milliseconds)
{
    milliseconds_[test] = milliseconds;
    seen_[test] = true;
    QList<QByteArray> lines = record.split('\n');
    // Programs that the test started wrote their own.
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    for (const QByteArray& line : lines) {
        if (line.isEmpty())
            continue;
        const std::uint32_t number = line.toUInt();
        testsOf_[number].push_back(test);
        const QString file = files_.value(number);
        ++reached_[test][file];
        ++reached_[test][FolderOf(file)];
        ++reachedInAll_[test];
    }
}

void Reach::ForgetWhatAllReach()
{
    QHash<QString, std::vector<std::size_t>> programs;
    for (std::size_t test = 0; test < tests_.size(); ++test)
        if (seen_[test])
            programs[tests_[test].program].push_back(test);
    for (auto found = testsOf_.cbegin(); found != testsOf_.cend(); ++found) {
        QHash<QString, std::size_t> times;
        for (const std::size_t test : found.value())
            ++times[tests_[test].program];
        const QString file = files_.value(found.key());
        for (auto program = times.cbegin(); program != times.cend(); ++program) {
            const std::vector<std::size_t>& all = programs[program.key()];
            if (all.size() < FewTests || program.value() < all.size())
                continue;
            for (const std::size_t test : all) {
                --reached_[test][file];
                --reached_[test][FolderOf(file)];
                --reachedInAll_[test];
            }
        }
    }
}

std::vector<std::size_t> Reach::TestsOf(std::uint32_t number, const std::vector<std::size_t>& noticers,
                                        std::size_t most) const
{
    std::vector<std::size_t> tests = testsOf_.value(number);
    const QString file = files_.value(number);
    const auto rank = [&](std::size_t test) {
        const auto noticer = std::find(noticers.begin(), noticers.end(), test);
        const int near = FileBeforeFolder * reached_[test].value(file) + reached_[test].value(FolderOf(file));
        return std::tuple(noticer - noticers.begin(), !IsAtHome(tests_[test], file),
                          near > 0 ? static_cast<double>(milliseconds_[test]) * reachedInAll_[test] / near
                                   : std::numeric_limits<double>::infinity(),
                          test);
    };
    std::sort(tests.begin(), tests.end(),
              [&](std::size_t left, std::size_t right) { return rank(left) < rank(right); });
    if (tests.size() <= most)
        return tests;
    const auto half = tests.begin() + static_cast<std::ptrdiff_t>(most / 2);
    const auto others =
        std::find_if(half, tests.end(), [&](std::size_t test) { return !IsAtHome(tests_[test], file); });
    std::set<std::size_t> kept(tests.begin(), others);
    std::vector<std::pair<std::size_t, std::size_t>> turns; // of each other test in its suite, and the test
    QHash<QString, std::size_t> taken;
    for (const std::size_t test : kept)
        ++taken[SuiteOf(tests_[test])];
    std::size_t firsts = 0;
    for (auto test = others; test != tests.end(); ++test)
        if (turns.emplace_back(taken[SuiteOf(tests_[*test])]++, *test).first == 0)
            ++firsts;
    std::stable_sort(turns.begin(), turns.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    const std::size_t room = most > kept.size() ? most - kept.size() : 0;
    turns.resize(std::min(turns.size(), std::max(room, firsts)));
    for (const auto& [turn, test] : turns)
        kept.insert(test);
    std::erase_if(tests, [&](std::size_t test) { return kept.count(test) == 0; });
    return tests;
}

std::vector<Batch> Reach::Batches(const std::vector<std::size_t>& order) const
{
    std::vector<Batch> batches;
    std::vector<bool> taken(order.size(), false);
    int spent = 0;
    for (std::size_t first = 0; first < order.size(); ++first) {
        if (taken[first])
            continue;
        Batch batch{tests_[order[first]].program, {}, 0};
        for (std::size_t next = first; next < order.size(); ++next) {
            const Test& test = tests_[order[next]];
            const int longer = batch.milliseconds + milliseconds_[order[next]];
            if (taken[next] || test.program != batch.program)
                continue;
            if (next != first && longer > spent)
                break;
            taken[next] = true;
            batch.names.append(test.name);
            batch.milliseconds = longer;
        }
        spent += batch.milliseconds;
        batches.push_back(batch);
    }
    return batches;
}

} // namespace tally::mutants
