#pragma once

#include "ranks/RankComputation.h"
#include "ranks/RankSelection.h"
#include "ranks/TempRankTable.h"
#include "store/Transaction.h"

#include <optional>
#include <vector>

namespace tally {

/// The four orders in which a rank list is shown.
enum class RankOrder : std::uint8_t
{
    Rank,         ///< optRankOrder
    Grade,        ///< optGradeOrder
    AdmissionNo,  ///< optAdmissionNoOrder
    Alphabetical, ///< optAlphabeticalOrder
};

/// All statements of the rank list; those on its working table stand in TempRankCalculation.cpp. Each
/// function runs a fixed number of them, whatever the size of the class. Throws StoreError.
class RankRepository
{
public:
    /// Both connections must outlive the repository.
    RankRepository(store::Connection& main, store::Connection& temp) : main_(main), temp_(temp) {}

    std::vector<RankExam> LoadExam();   ///< by ExamOrder
    std::vector<RankClass> LoadClass(); ///< by ClassOrder

    /// The divisions of the class by code, with what their marks in the list depend on.
    std::vector<DivisionFacts> LoadDivisions(const RankScope& scope);
    /// The subjects of the class, all divisions, by SlNo.
    std::vector<SubjectSetup> LoadSubjectSetup(const RankScope& scope);
    /// The grade tables of the class for the exam, all divisions, each in its own order.
    std::vector<GradeBand> LoadGradeBands(const RankScope& scope);

    /// All that ComputeRankList needs for the divisions, which are given in list order.
    RankInput LoadRankInput(const RankScope& scope, const std::vector<int>& divisionCodes);

    /// Makes TempRankCalculation anew from the list; one that an earlier run left is dropped. `temp` is a
    /// transaction on the temporary file: a run that dies leaves the old table or the new one, never a part
    /// of it.
    void FillTempRankCalculation(store::Transaction& temp, const RankList& list);
    void DropTempRankCalculation(store::Transaction& temp);

    /// Rows of TempRankCalculation: for the grade order those of the divisions whose grade is not Null, by
    /// rank and total, for the other orders all of them.
    TempRankTable LoadTempRankCalculation(RankOrder order, const std::vector<int>& divisionCodes);
    /// Adds the rows of TempRankCalculation whose grade is Null.
    void AppendRowsWithoutGrade(TempRankTable& table);
    /// The grades of the divisions in the order of their tables; a grade at two positions comes twice.
    std::vector<QString> LoadGradesInOrder(const RankScope& scope, const std::vector<int>& divisionCodes);
    /// Each grade of the divisions once, alphabetically.
    std::vector<QString> LoadDistinctGrades(const RankScope& scope, const std::vector<int>& divisionCodes);
    /// Per division, in the order given: the sum of MaximumAllowed of the subjects taken for rank, if there
    /// is any.
    std::vector<std::optional<double>> LoadFullMarks(const RankScope& scope,
                                                     const std::vector<int>& divisionCodes);

    /// Replaces the saved result of the divisions by the rows of TempRankCalculation. `main` is a transaction
    /// on the main file. Total receives the total of the subjects taken for rank.
    void ReplaceRankTotals(store::Transaction& main, const RankScope& scope,
                           const std::vector<int>& divisionCodes);

private:
    store::Connection& main_;
    store::Connection& temp_;
};

} // namespace tally
