#pragma once

#include "core/school/ListItem.h"
#include "core/school/SchoolTypes.h"

#include <vector>

namespace tally {

/// What has been entered for one division of the chosen class, as far as its mark in the list depends on it.
struct DivisionFacts
{
    SchoolDivision division;
    int students = 0; ///< in the year, relieved ones too
    int subjects = 0; ///< set up for the division
    int subjectsTakenForRank = 0;
    int gradeBands = 0;       ///< of the chosen exam
    int completeSubjects = 0; ///< with exactly one mark for each student
    int completeSubjectsTakenForRank = 0;
};

bool CheckStudentsExist(const DivisionFacts& facts);
bool CheckSubjectsExist(const DivisionFacts& facts);
bool CheckGradesExist(const DivisionFacts& facts);
/// Every subject that counts under `display` has exactly as many marks as the division has students.
bool CheckMarksComplete(const DivisionFacts& facts, SubjectDisplay display);

/// The division's line in the list: its name behind two characters that tell the first thing that is missing,
/// ". ", "* ", "# " or "$ ", and why it cannot be ticked; behind two blanks when it is ready.
ListItem DivisionItem(const DivisionFacts& facts, SubjectDisplay display);

/// The division that the others are compared with. It stays between two checks until the selection starts
/// anew.
struct MatchBase
{
    bool set = false;
    int divisionCode = 0;
};

struct MatchResult
{
    bool mismatch = false;
    std::vector<int> untick; ///< codes of the divisions whose ticks must go, each once
};

/// Whether the ticked divisions (codes in list order) agree with the base in number of subjects, in subjects
/// and in both maximum marks. `setup` holds the rows of the whole class. A base that is not set becomes the
/// first ticked division. A base without subjects unticks every division without being called a mismatch.
MatchResult CheckSubjectMatch(const std::vector<SubjectSetup>& setup, const std::vector<int>& ticked,
                              SubjectDisplay display, MatchBase& base);

/// Whether each ticked division's grade table holds all bands of the base's; it may hold more. `bands` are
/// those of the chosen exam for the whole class. A base without bands is unticked without being called a
/// mismatch.
MatchResult CheckGradeMatch(const std::vector<GradeBand>& bands, const std::vector<int>& ticked,
                            MatchBase& base);

} // namespace tally
