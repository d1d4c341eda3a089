#pragma once

#include "exams/MarkTypes.h"

namespace tally {

/// What the clerk is told at more than one place of the mark screen.
inline const QString NoStudents =
    QStringLiteral("Student Admission Entry Is Not Made For The Selected Class-Division");
inline const QString NoSubjects =
    QStringLiteral("'Classwise Subject-Teacher-Mark Entry' Is Not Made For The Selected Class-Division");

/// Two clients entered the first marks at once, and the other one was faster.
inline QString EnteredMeanwhile(MarkMode mode)
{
    return QStringLiteral(
               "Marks Of This %1 Were Entered By Another User Meanwhile.\nYou Cannot Save This Data.")
        .arg(mode == MarkMode::Student ? QStringLiteral("Student") : QStringLiteral("Subject"));
}

} // namespace tally
