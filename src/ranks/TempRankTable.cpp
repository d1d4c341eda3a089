#include "ranks/TempRankTable.h"

namespace tally {

QString RankText(qint64 rank)
{
    return rank == NoRank ? QString() : QString::number(rank);
}

std::uint32_t TextPool::Add(std::string_view utf8)
{
    const auto found = numbers_.find(utf8);
    if (found != numbers_.end())
        return found->second;
    const auto number = static_cast<std::uint32_t>(texts_.size());
    texts_.push_back(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
    numbers_.emplace(utf8, number);
    return number;
}

TempRankTable TempRankTable::Picked(const std::vector<std::size_t>& numbers) const
{
    TempRankTable picked{subjectCount, {}, {}, texts};
    picked.rows.reserve(numbers.size());
    picked.marks.reserve(numbers.size() * subjectCount);
    for (const std::size_t number : numbers) {
        picked.rows.push_back(rows[number]);
        const auto first = marks.begin() + static_cast<std::ptrdiff_t>(number * subjectCount);
        picked.marks.insert(picked.marks.end(), first, first + static_cast<std::ptrdiff_t>(subjectCount));
    }
    return picked;
}

} // namespace tally
