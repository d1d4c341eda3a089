#pragma once

namespace tally {

class Tour;

/// Sets up a school on databases as they are delivered, in a folder that is gone afterwards: the first start,
/// from the school to its first academic year and first login, then classes, teachers, what the classes are
/// examined in, a working day, students, their first marks, rank list and rank cards, and their next year.
/// Throws TourError and StoreError.
void SetUpNewSchool(Tour& tour);

} // namespace tally
