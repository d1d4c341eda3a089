#pragma once

#include "core/CodedTexts.h"
#include "core/school/DivisionSelection.h"

#include <QStringList>

#include <vector>

namespace tally {

/// How the reports over several divisions of a class let them and their subjects be chosen.

/// In which the reports differ there.
struct DivisionReportRules
{
    /// A division whose marks are incomplete cannot be chosen, and while one of the class cannot, neither can
    /// all at once.
    bool wantsAllMarks;
    /// Divisions are compared in the subjects not taken for rank too, whatever is displayed, and one that is
    /// added is compared subject by subject; else in those displayed, and one that is added only in their
    /// number.
    bool comparesAllSubjects;
    /// The divisions without students are told; those without subjects only where there are none of the
    /// others.
    bool tellsOneReason;
    /// Each subject is marked for which some student has no mark, though the marks are as many as the
    /// students.
    bool marksSubjects;
    const char* subjectsDiffer; ///< told of a division that was added
    const char* noDivision;     ///< told where subjects are to be listed
};

/// A mark before a name, as it stands in the lists of divisions and subjects; two blanks where all is there.
inline constexpr int LengthOfMark = 2;
/// Whether the item may be ticked by its mark.
bool IsUsable(const QString& item);
/// The item's name without its mark.
QString WithoutMark(const QString& item);

/// The division's line in the list: ". " without students, "$ " without subjects, "# " with incomplete marks
/// where those matter. Why such a division cannot be ticked is told of the first two only.
ListItem DivisionLine(const DivisionFacts& facts, SubjectDisplay display, const DivisionReportRules& rules);

/// Those of the divisions that do not go with the base, as a division that is added must.
std::vector<int> DivisionsThatDiffer(const std::vector<SubjectSetup>& setup, int base,
                                     const std::vector<int>& divisions, SubjectDisplay display,
                                     const DivisionReportRules& rules);

/// What becomes of all divisions being chosen at once.
struct AllDivisions
{
    std::vector<int> ticked;
    QStringList messages; ///< why the others are not, in the order in which they are told
};

/// Ticks the usable ones of the items that agree with the first of them in subjects, maximum marks and what
/// counts for rank. Also those that cannot be ticked are compared and told. `setup` holds the whole class.
AllDivisions ChooseAllDivisions(const std::vector<ListItem>& items, const std::vector<SubjectSetup>& setup,
                                SubjectDisplay display, const DivisionReportRules& rules);

/// The division's subjects that are displayed, in the order of the set-up.
std::vector<SubjectSetup> SubjectsOf(const std::vector<SubjectSetup>& setup, int division,
                                     SubjectDisplay display);

/// That a student has a mark in a subject.
struct EnteredMark
{
    int studentCode = 0;
    int subjectCode = 0;
};

/// From what the list of subjects is made that several divisions can be compared in.
struct CommonSubjectsInput
{
    CodedTexts subjects;            ///< in list order, each once
    std::vector<int> students;      ///< of the divisions
    std::vector<EnteredMark> marks; ///< of the exam in the divisions
};

/// The subjects that have as many marks as there are students. Where they are to be marked, one of which a
/// student has none, in whose stead one counts who is not there any more, stands behind ". " and says so.
std::vector<ListItem> CommonSubjects(const CommonSubjectsInput& input, const DivisionReportRules& rules);

} // namespace tally
