#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace tally {

/// What the cells of a sheet hold, without keeping it: two sheets with the same cells have equal tallies,
/// whatever order the cells were added in, and sheets that differ have different ones, as surely as a
/// checksum says.
class CellTally
{
public:
    /// An empty text stands for a cell that has a style only.
    void AddText(int row, int column, QStringView text);
    void AddNumber(int row, int column, double number);

    bool operator==(const CellTally&) const = default;

private:
    void Add(std::size_t cell);

    std::size_t count_ = 0;
    std::size_t sum_ = 0;
};

/// Reads an .xlsx file from its first byte to its last. True when every part in it is sound and whole and its
/// sheets hold just these cells; false also when it cannot be read.
bool IsWholeWorkbook(const QString& path, const std::vector<CellTally>& sheets);

} // namespace tally
