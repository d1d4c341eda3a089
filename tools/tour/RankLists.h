#pragma once

class QWidget;

namespace tally {

class Tour;

/// Prepares the rank lists of the highest class for the first exam and the last, shows the first one in its
/// four orders with its summary and exports it, and saves both. The last exam's marks must be complete in the
/// first two divisions. Throws TourError.
void PrepareRankLists(Tour& tour, QWidget* window);

} // namespace tally
