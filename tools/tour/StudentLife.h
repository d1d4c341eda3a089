#pragma once

class QWidget;

namespace tally {

class Tour;

/// Goes with three students of the new school through their first year: they are numbered by the system and
/// placed, one is found again, leaves and comes back, one is promoted, one detained and one taken back, and
/// in the next year they stand in their classes. Needs the classes X and IX with a division A each, and the
/// year 2025. Throws TourError.
void FollowStudents(Tour& tour, QWidget* window);

} // namespace tally
