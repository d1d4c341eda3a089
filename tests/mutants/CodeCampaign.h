#pragma once

#include <QStringList>

#include <optional>

namespace tally::mutants {

/// Which changes of the code are tried; all where nothing is said.
struct CodeChoice
{
    std::optional<QStringList> files; ///< those of these files
    std::optional<QString> within;    ///< those of this file, or of this folder and what is below it
    std::optional<int> sample;        ///< so many, evenly over all
    bool again = false;               ///< those that lived in the last run
};

/// Tries the changes that are compiled into the copy of the program in this folder, each on the tests that
/// reach it, and says on the standard output which of them no test notices. Whether the tests notice as many
/// as they ought to, and none that is known to be equivalent.
bool ProveCode(const QString& folder, const CodeChoice& choice);

} // namespace tally::mutants
