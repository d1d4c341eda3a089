#pragma once

#include "core/school/SchoolTypes.h"

#include <QString>

#include <map>
#include <vector>

namespace tally {

/// The two texts of whether a subject counts towards rank.
inline const QString YesText = QStringLiteral("Yes");
inline const QString NoText = QStringLiteral("No");

/// A subject as one class-division takes it in one year.
struct TaughtSubject
{
    int subjectCode = 0;
    QString subjectName;
    int teacherCode = 0; ///< 0: no teacher
    QString teacherName;
    double maximumMark = 0;    ///< what a mark is out of
    double maximumAllowed = 0; ///< the highest mark that may be entered
    QString takenForRank;      ///< YesText or NoText
    int slNo = 0;              ///< its place among the subjects of the class-division
};

/// What has been entered in one subject of a class-division in a year, all exams together.
struct EnteredMarks
{
    int count = 0;      ///< at least 1 where somebody has a mark, absences too
    double highest = 0; ///< 0 while everybody was absent
};

/// By the code of the subject. One without any mark is not in it.
using MarksBySubject = std::map<int, EnteredMarks>;

} // namespace tally
