#pragma once

#include <span>

namespace tally {

/// The two reports that compare exams are one screen. What sets them apart follows from whose marks they are.
struct ExamComparison
{
    const char* formName;
    const char* caption; ///< also the title of what is exported and printed
    int helpScreenNo;
    bool ofStudent;             ///< one student's marks with their average; else the averages of the division
    const char* subjectRefusal; ///< why a subject cannot be ticked; %1 stands for it
};

std::span<const ExamComparison> ExamComparisons();

} // namespace tally
