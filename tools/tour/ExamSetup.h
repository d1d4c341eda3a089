#pragma once

class QWidget;

namespace tally {

class Tour;

/// What the classes of the new school are examined in: subjects, a second teacher, two exams, the subjects of
/// division A of class IX with their maximum marks, and its grades for the first exam; then their copies to
/// division B and to the second exam. Needs the class IX with two divisions as the last of the classes, a
/// salutation and the teacher Asha Menon. Throws TourError.
void SetUpExams(Tour& tour, QWidget* window);
/// The first exam of the division: the marks of its three students in all subjects, the rank list and the
/// rank cards. Throws TourError.
void RankFirstExam(Tour& tour, QWidget* window);

} // namespace tally
