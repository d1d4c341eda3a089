#pragma once

#include "mutants/TestRuns.h"

#include <QByteArray>
#include <QHash>

#include <cstdint>
#include <vector>

namespace tally::mutants {

/// Tests of one program that are run by one process.
struct Batch
{
    QString program;
    QStringList names;
    int milliseconds = 0; ///< that they took when nothing was changed
};

/// Which tests reach which change, and in which order they are tried on it.
class Reach
{
public:
    /// `files` has for each change its file.
    Reach(const std::vector<Test>& tests, QHash<std::uint32_t, QString> files);

    /// Takes the numbers that one test was seen to ask for, a line each, and how long it took.
    void Add(std::size_t test, const QByteArray& record, int milliseconds);
    /// When all are taken: what every test of a program reaches, since it is made before any of them begins,
    /// no longer says where one of them is at home.
    void ForgetWhatAllReach();

    /// The tests that reach a change: first those that noticed a change near by, then those at home with its
    /// folder, then those that are quick and reach little in other files, and in other folders. Of more than
    /// `most` all at home stay, and as many as make up the first half; of the others each suite keeps its
    /// first, however many suites there are, then its second, and so on, so that none that looks at a thing
    /// of its own is passed over.
    std::vector<std::size_t> TestsOf(std::uint32_t number, const std::vector<std::size_t>& noticers,
                                     std::size_t most) const;

    /// These tests in their order, in batches that grow: the first tests have a process each, and the more
    /// have passed, the more share the next.
    std::vector<Batch> Batches(const std::vector<std::size_t>& order) const;

private:
    const std::vector<Test>& tests_;
    std::vector<int> milliseconds_;
    std::vector<bool> seen_;
    QHash<std::uint32_t, QString> files_;
    std::vector<QHash<QString, int>> reached_; ///< how many changes each test reaches in each file and folder
    std::vector<int> reachedInAll_;
    QHash<std::uint32_t, std::vector<std::size_t>> testsOf_;
};

} // namespace tally::mutants
