#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace tally {

/// What a screen has chosen of the school. 0 stands for nothing chosen, or for what the screen does not ask.
struct SchoolScope
{
    int academicYearCode = 0;
    int examCode = 0;
    int classCode = 0;
    int divisionCode = 0; ///< unique only within its class
};

/// Which subjects a rank list shows, and by which its marks count as complete.
enum class SubjectDisplay : std::uint8_t
{
    TakenForRankOnly, ///< Optsubjectdisplayno
    All,              ///< Optsubjectdisplayyes
};

/// By the state of Optsubjectdisplayyes.
inline SubjectDisplay ChosenDisplay(bool displayAll)
{
    return displayAll ? SubjectDisplay::All : SubjectDisplay::TakenForRankOnly;
}

struct SchoolExam
{
    int examCode = 0;
    QString examName;
};

struct SchoolDivision
{
    int divisionCode = 0; ///< unique only within its class
    QString divisionName;
};

/// What one division takes in one subject.
struct SubjectSetup
{
    int divisionCode = 0;
    int subjectCode = 0;
    QString shortName;
    bool takenForRank = false;
    double maximumMark = 0;
    double maximumAllowed = 0;
};

/// One row of a division's grade table. Averages are lower bounds.
struct GradeBand
{
    int divisionCode = 0;
    double totalAverage = 0; ///< percent
    double subjectAverage = 0;
    QString grade;
    double upperSubjectAverage =
        0; ///< filled by LoadGradeTable: the next band's SubjectAverage minus 1, or 100
};

} // namespace tally
