#pragma once

#include "ranks/RankCards.h"
#include "store/Connection.h"

#include <vector>

namespace tally {

/// All statements of the rank cards but for the lists of exams, classes and divisions, which RankRepository
/// has. Each function runs a fixed number of statements, whatever the size of the division. Throws
/// StoreError.
class RankCardRepository
{
public:
    /// The connection must outlive the repository.
    explicit RankCardRepository(store::Connection& main) : main_(main) {}

    /// The students of the division in the year, relieved ones too, by name, and what tells whether their
    /// marks are complete, as of one moment.
    StudentListInput LoadStudentList(const SchoolScope& scope);
    /// All that the cards of these students (in list order) and exams are made from, as of one moment. Marks
    /// and ranks are those of the class-division in these exams in any year, the latest year last.
    RankCardInput LoadRankCards(const SchoolScope& scope, const std::vector<int>& studentCodes,
                                const std::vector<int>& examCodes, SubjectDisplay display);

private:
    void LoadNames(const SchoolScope& scope, RankCardInput& input);
    void LoadStudents(const SchoolScope& scope, const std::vector<int>& studentCodes, RankCardInput& input);
    void LoadExams(const std::vector<int>& examCodes, RankCardInput& input);
    void LoadSubjects(const SchoolScope& scope, SubjectDisplay display, RankCardInput& input);
    void LoadMarks(const SchoolScope& scope, const std::vector<int>& examCodes, RankCardInput& input);
    void LoadRanks(const SchoolScope& scope, const std::vector<int>& examCodes, RankCardInput& input);

    store::Connection& main_;
};

} // namespace tally
