#pragma once

#include "core/GridTable.h"

#include <QString>

namespace tally {

/// Shows how the visible part of the list comes out of a printer, from where it is printed: the school, the
/// title and the subtitle on the first page, the head of the list and the page's number on each. The list is
/// fitted to the width of the page, which lies on its side for a wide one. The preview has a copy of its own.
void ShowGridPreview(const GridTable& grid, const QString& title, const QString& subTitle);

} // namespace tally
