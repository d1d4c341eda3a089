#pragma once

#include <QString>

namespace tally {

/// What the clerk is told at more than one place of the mark screen.
inline const QString NoStudents =
    QStringLiteral("Student Admission Entry Is Not Made For The Selected Class-Division");
inline const QString NoSubjects =
    QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Selected Class-Division");

} // namespace tally
