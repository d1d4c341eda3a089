#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tally {

/// In TempRankCalculation and TempRankTotal, so that students without a rank sort behind all others.
constexpr qint64 NoRank = 999999999;
/// As every list and card shows a rank: empty for NoRank.
QString RankText(qint64 rank);

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

/// What is saved of a student's rank list in TempRankTotal.
struct RankTotal
{
    int studentCode = 0;
    int divisionCode = 0;
    double rankTotal = 0; ///< of the subjects taken for rank
    double average = 0;
    std::optional<qint64> rank; ///< unset where it is Null
    QString grade;              ///< empty where it is Null
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

} // namespace tally
