#pragma once

#include "ranks/RankComputation.h"
#include "ranks/RankSelection.h"
#include "store/Transaction.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tally {

/// In TempRankCalculation and TempRankTotal, so that students without a rank sort behind all others.
constexpr qint64 NoRank = 999999999;

/// The four orders in which a rank list is shown.
enum class RankOrder : std::uint8_t
{
    Rank,         ///< optRankOrder
    Grade,        ///< optGradeOrder
    AdmissionNo,  ///< optAdmissionNoOrder
    Alphabetical, ///< optAlphabeticalOrder
};

/// Keeps each different text once. Numbers count from 0 in the order first met.
class TextPool
{
public:
    std::uint32_t Add(std::string_view utf8);
    const QString& operator[](std::uint32_t number) const { return texts_[number]; }
    std::size_t Size() const { return texts_.size(); }

private:
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };

    std::vector<QString> texts_;
    std::unordered_map<std::string, std::uint32_t, Hash, std::equal_to<>> numbers_;
};

/// One row of TempRankCalculation but for its subject cells.
struct TempRankRow
{
    QString studentName;
    QString admissionNo;
    std::uint32_t className = 0; ///< in TempRankTable::texts
    std::uint32_t division = 0;  ///< in TempRankTable::texts
    std::uint32_t grade = 0;     ///< in TempRankTable::texts; empty where it is Null
    int divisionCode = 0;
    int studentCode = 0;
    qint64 rank = NoRank;
    double total = 0;
    double average = 0;
    double rankTotal = 0;
};

/// Rows of TempRankCalculation as read.
struct TempRankTable
{
    std::size_t subjectCount = 0;
    std::vector<TempRankRow> rows;
    std::vector<std::uint32_t> marks; ///< row after row, subjectCount of each; in `texts`
    TextPool texts;

    /// The rows of these numbers, in this order; a number may come twice.
    TempRankTable Picked(const std::vector<std::size_t>& numbers) const;
};

/// All statements of the rank list. Each function runs a fixed number of them, whatever the size of the class.
/// Throws StoreError.
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
    /// transaction on the temporary file: a run that dies leaves the old table or the new one, never a part of it.
    void FillTempRankCalculation(store::Transaction& temp, const RankList& list);
    void DropTempRankCalculation(store::Transaction& temp);

    /// Rows of TempRankCalculation: for the grade order those of the divisions whose grade is not Null, by rank and
    /// total, for the other orders all of them.
    TempRankTable LoadTempRankCalculation(RankOrder order, const std::vector<int>& divisionCodes);
    /// Adds the rows of TempRankCalculation whose grade is Null.
    void AppendRowsWithoutGrade(TempRankTable& table);
    /// The grades of the divisions in the order of their tables; a grade at two positions comes twice.
    std::vector<QString> LoadGradesInOrder(const RankScope& scope, const std::vector<int>& divisionCodes);
    /// Each grade of the divisions once, alphabetically.
    std::vector<QString> LoadDistinctGrades(const RankScope& scope, const std::vector<int>& divisionCodes);
    /// Per division, in the order given: the sum of MaximumAllowed of the subjects taken for rank, if there is any.
    std::vector<std::optional<double>> LoadFullMarks(const RankScope& scope, const std::vector<int>& divisionCodes);

    /// Replaces the saved result of the divisions by the rows of TempRankCalculation. `main` is a transaction on the
    /// main file. Total receives the total of the subjects taken for rank.
    void ReplaceRankTotals(store::Transaction& main, const RankScope& scope, const std::vector<int>& divisionCodes);

private:
    store::Connection& main_;
    store::Connection& temp_;
};

} // namespace tally
