#pragma once

#include <QString>

#include <vector>

namespace tally::mutants {

/// A piece of a statement as a source file holds it: what stands between two gaps such as %1.
struct SourceText
{
    QString file; ///< as the caller named it
    int line;
    QString text;
};

/// The pieces of statements in the code of one file: each text literal that begins as a statement or as one
/// of its clauses does, literals that follow one another taken as one.
std::vector<SourceText> StatementTextsIn(const QString& file, const QString& code);

} // namespace tally::mutants
