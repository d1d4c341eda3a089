#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace tally::mutants {

/// A change that is compiled into the copy of the program.
struct CodePlace
{
    std::uint32_t number; ///< by which the copy is told to make it
    QString file;         ///< from src/ on
    int line;
    QString change;
    QString text; ///< of the line
};

/// The changes as the copy lists them: a line for each, its fields parted by tabs. Throws std::runtime_error,
/// with the number of the line, where that is not so.
std::vector<CodePlace> CodePlacesIn(const QString& list);

/// So many of them, evenly from the first to the last, and always the same; all where there are no more.
std::vector<CodePlace> EvenlyFrom(const std::vector<CodePlace>& places, std::size_t count);

/// Those of a file, or of all files in a folder and below.
std::vector<CodePlace> PlacesWithin(const std::vector<CodePlace>& places, QString path);

} // namespace tally::mutants
