#pragma once

#include "exams/MarkTypes.h"

namespace tally {

/// What the clerk is told at more than one place of the mark screen.
inline const QString NoStudents =
    QStringLiteral("Student Admission Entry Is Not Made For The Selected Class-Division");
inline const QString NoSubjects =
    QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Selected Class-Division");

/// Asks for the choice without which there is nothing to enter a mark for.
inline QString NothingChosen(MarkMode mode)
{
    return mode == MarkMode::Student ? QStringLiteral("Select Student Name")
                                     : QStringLiteral("Select Subject Name");
}

} // namespace tally
