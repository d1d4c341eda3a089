#pragma once

#include "core/CodedTexts.h"
#include "core/school/SchoolTypes.h"
#include "reports/SubjectComparison.h"
#include "store/Connection.h"

#include <vector>

namespace tally {

/// All statements of the lists that compare exams and years, but for those of SchoolListRepository. Each
/// function runs a fixed number of them, however many students, exams and subjects there are. Throws
/// StoreError.
class ComparisonRepository
{
public:
    /// `main` must outlive the repository.
    explicit ComparisonRepository(store::Connection& main) : main_(main) {}

    /// The students of the division in the year, relieved ones too, by name: "Asha (A17)".
    CodedTexts Students(const SchoolScope& scope);

    /// The subjects of the division in their order. Entered is what at least one student who has been in the
    /// division, in whatever year, has a mark of in this one.
    SubjectListInput LoadDivisionSubjects(const SchoolScope& scope, const std::vector<int>& examCodes,
                                          SubjectDisplay display);
    /// The same for one student. A mark of another year counts as entered where it was made in this division.
    SubjectListInput LoadStudentSubjects(const SchoolScope& scope, int studentCode,
                                         const std::vector<int>& examCodes, SubjectDisplay display);
    /// Which of the subjects the division takes, in their order, and all marks of those present in the exams.
    /// The lines are left to the caller, as in the two below.
    ComparisonInput LoadDivisionMarks(const SchoolScope& scope, const std::vector<int>& examCodes,
                                      const std::vector<int>& subjectCodes, SubjectDisplay display);
    /// The same with the marks of one student, absent or not.
    ComparisonInput LoadStudentMarks(const SchoolScope& scope, int studentCode,
                                     const std::vector<int>& examCodes, const std::vector<int>& subjectCodes,
                                     SubjectDisplay display);

    /// The years in which the student has a place, each with it: "2024 - 2025 X/A".
    CodedTexts StudentYears(int studentCode);
    /// The subjects by name in which the student has marks in the years, in any exam; entered is what has one
    /// in this exam.
    SubjectListInput LoadYearSubjects(int studentCode, int examCode, const std::vector<int>& yearCodes);
    /// The subjects that there are, in the order given, and the student's marks in the exam in all years,
    /// wherever in the school they were made and whether he was absent or not.
    ComparisonInput LoadYearMarks(int studentCode, int examCode, const std::vector<int>& yearCodes,
                                  const std::vector<int>& subjectCodes);

private:
    CodedTexts DivisionSubjects(const SchoolScope& scope, SubjectDisplay display);
    CodedTexts SubjectColumns(const SchoolScope& scope, const std::vector<int>& subjectCodes,
                              SubjectDisplay display);

    store::Connection& main_;
};

} // namespace tally
