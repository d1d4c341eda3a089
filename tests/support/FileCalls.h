#pragma once

#include <QStringList>

#include <cstddef>
#include <functional>

namespace tally::test {

/// A program that links these takes the place of the system's calls by which files are changed, so that a
/// test can stop a client at each of them.

/// Runs `work` in a process of its own, which dies with its file operation `number`, counted from 0, when
/// that is half done. True when the work came to its end before. Work that throws fails the test.
bool RunAndDieAt(std::size_t number, const std::function<void()>& work);

/// What `work` asks of its files, in order, as far as it changes them: "write Tallyboard.mdb".
QStringList OperationsOf(const std::function<void()>& work);

} // namespace tally::test
