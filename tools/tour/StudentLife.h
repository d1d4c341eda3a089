#pragma once

class QWidget;

namespace tally {

class Tour;

/// Three students of the new school are numbered by the system and placed in division A of class IX; one is
/// found again, and one leaves and comes back. Needs the classes X and IX with a division A each, and the
/// year 2025. Throws TourError.
void AdmitFirstStudents(Tour& tour, QWidget* window);
/// The end of their first year: one is promoted, one detained and one taken back, and in the next year they
/// stand in their classes. Throws TourError.
void GoOnToNextYear(Tour& tour, QWidget* window);

} // namespace tally
