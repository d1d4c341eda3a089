#pragma once

class QWidget;

namespace tally {

class Tour;

/// Types the marks that the exam in progress still lacks in the second division of the highest class: the
/// largest part of a clerk's work. Throws TourError.
void EnterMissingMarks(Tour& tour, QWidget* window);

/// Shows and exports the rank cards of that division for the first exam and the last. Their rank lists must
/// have been saved. Throws TourError.
void ExportRankCards(Tour& tour, QWidget* window);

} // namespace tally
