#pragma once

#include <QString>

#include <vector>

namespace tally::mutants {

/// A statement that lacks one of its terms, or has one turned round.
struct Mutant
{
    QString change; ///< what sets it apart, such as "without ClassCode = ?"; unique within its statement
    QString sql;
};

/// What the texts of one statement have in common, on one line: however many codes a list holds, and whether
/// its placeholders have numbers, it is the same statement.
QString ShapeOf(const QString& sql);

/// All mutants of a statement that reads or writes rows; none of any other. A WHERE, ON and HAVING goes as a
/// whole and by each operand of its ANDs and ORs, a BETWEEN by each of its bounds, a SET, GROUP BY and ORDER
/// BY by each item; DISTINCT and COLLATE go, and ASC and DESC change places; inside sub-selects too. A mutant
/// takes the same values as the statement, in the same places. Whether the engine takes it is not looked at.
std::vector<Mutant> MutantsOf(const QString& sql);

} // namespace tally::mutants
