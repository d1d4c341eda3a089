#pragma once

#include "reports/StudentsList.h"
#include "store/Transaction.h"

#include <vector>

namespace tally {

/// What the lists of students beside a class average read, through their work table TempClassAverage in the
/// main file. Throws StoreError.
class StudentsListRepository
{
public:
    /// `main` must outlive the repository.
    explicit StudentsListRepository(store::Connection& main) : main_(main) {}

    /// Fills TempClassAverage with the students of the divisions, relieved ones too, and their marks in the
    /// subjects, and gives what it holds by name. All of one moment, in a transaction that is taken back: the
    /// table is this client's alone, and nothing of it is stored. Of several marks of a student in one
    /// subject, made in several divisions, the highest counts. Runs a fixed number of statements, however
    /// many students, divisions and subjects there are.
    StudentsListInput LoadStudentsList(const SchoolScope& scope, const std::vector<int>& divisionCodes,
                                       const std::vector<int>& subjectCodes, AverageSide side);

private:
    CodedTexts LoadSubjects(const std::vector<int>& subjectCodes);
    std::vector<DivisionMark> LoadMarks(const SchoolScope& scope, const std::vector<int>& divisionCodes,
                                        const std::vector<int>& subjectCodes);
    /// The columns of the marks are named after the subjects.
    static void FillTempClassAverage(store::Transaction& transaction, const SchoolScope& scope,
                                     const std::vector<int>& divisionCodes, const CodedTexts& subjects,
                                     AverageSide side);
    std::vector<ClassAverageRow> LoadTempClassAverage();

    store::Connection& main_;
};

} // namespace tally
