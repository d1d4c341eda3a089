#include "reports/ExamComparison.h"

#include <array>

namespace tally {

std::span<const ExamComparison> ExamComparisons()
{
    static constexpr std::array Known{
        ExamComparison{"frmdivisionsubjectexamavg", "Subject Average Based On Exam(s)", 24, false,
                       "'Classwise Mark Entry' Is Not Made To The Subject-%1 For One Or More Student(s)"},
        ExamComparison{"frmstudentexamavg", "Student Marks Based on Exam(s)", 25, true,
                       "'Classwise Mark Entry' Is Not Made For The Subject - %1"},
    };
    return Known;
}

} // namespace tally
