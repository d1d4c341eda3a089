#pragma once

#include "store/Connection.h"

#include <QStringList>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace tally::test {

/// In which direction rows lie that do not belong to what a test asks for.
enum class Side
{
    Year,
    Exam,
    Class,
    Division
};

/// Lays rows around those of a school that a careless statement would catch: beside each class, subject,
/// student, mark, band and rank total the same in another year, exam, class and division, with codes 1000
/// higher. Whoever asks for the school's own codes must not notice them.
void AddNeighbours(store::Connection& main,
                   const std::set<Side>& sides = {Side::Year, Side::Exam, Side::Class, Side::Division});

/// All rows of a database, to see afterwards which of them a write has touched.
class AllRows
{
public:
    explicit AllRows(store::Connection& store);

    /// A row by its columns, in text.
    using Row = std::map<QString, QString>;
    /// Fails the test for each row that came, went or changed since in any table but `table`, or there
    /// without having these values.
    void ExpectTouchedOnly(store::Connection& store, const char* table, const Row& scope) const;

private:
    std::map<QString, std::multiset<Row>> tables_;
};

} // namespace tally::test
