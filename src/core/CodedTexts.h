#pragma once

#include "store/Statement.h"

#include <QString>

#include <utility>
#include <vector>

namespace tally {

/// The lines of a list: codes with their texts.
using CodedTexts = std::vector<std::pair<int, QString>>;

/// All rows of a query whose first column is the code and whose second one is the text, in its order.
CodedTexts ReadCodedTexts(store::Statement query);

} // namespace tally
