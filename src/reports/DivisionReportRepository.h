#pragma once

#include "reports/ClassDivisionAverage.h"
#include "reports/DivisionReport.h"
#include "store/Connection.h"

#include <vector>

namespace tally {

/// What the reports over several divisions of a class read. Each function runs a fixed number of statements,
/// however many students, divisions and subjects there are, and reads all of one moment. Throws StoreError.
class DivisionReportRepository
{
public:
    /// `main` must outlive the repository.
    explicit DivisionReportRepository(store::Connection& main) : main_(main) {}

    /// The subjects that one of the divisions takes, each once, at the first of its numbers in them; the
    /// students of all divisions, relieved ones too; who has marks in the exam.
    CommonSubjectsInput LoadCommonSubjects(const SchoolScope& scope, const std::vector<int>& divisionCodes,
                                           SubjectDisplay display);
    /// The subjects of the class, and the marks of those who were present.
    DivisionAverageInput LoadDivisionAverages(const SchoolScope& scope,
                                              const std::vector<int>& divisionCodes);

private:
    store::Connection& main_;
};

} // namespace tally
