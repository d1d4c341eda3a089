#pragma once

#include <QString>

namespace tally {

/// The title, or its beginning, as a name that every file system takes; without an ending.
QString FileNameOf(const QString& title);

} // namespace tally
