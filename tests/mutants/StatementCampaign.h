#pragma once

#include <QStringList>

#include <optional>

namespace tally::mutants {

/// Takes each term out of each statement of these files, or of all, in turn, and says on the standard output
/// which of these mutants no test notices. Whether there is none, save those that are known to be equivalent.
bool ProveStatements(const std::optional<QStringList>& files);

} // namespace tally::mutants
