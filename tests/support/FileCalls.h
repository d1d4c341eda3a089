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

/// What the system may answer to a file operation that it does not do.
enum class Fault
{
    Broken, ///< the disk could not
    Full,   ///< the disk has no room
    Short,  ///< half of a write was done; any other operation was not, as on a broken disk
};

/// Runs `work`, whose file operation `number`, counted from 0, fails with that fault and no other one does.
/// True when the work came to its end before. What it throws is passed on.
bool RunWithFault(std::size_t number, Fault fault, const std::function<void()>& work);

/// What `work` asks of its files, in order, as far as it changes them: "write Tallyboard.mdb".
QStringList OperationsOf(const std::function<void()>& work);

} // namespace tally::test
