#pragma once

namespace tally {

class Tour;

/// Sets up a school on databases as they are delivered, in a folder that is gone afterwards: the first start,
/// from the school to its first academic year, then classes, a teacher, a working day and students. Throws
/// TourError and StoreError.
void SetUpNewSchool(Tour& tour);

} // namespace tally
