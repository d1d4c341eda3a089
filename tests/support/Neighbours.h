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

/// Whether the years, exams, classes and divisions of neighbours stand in their masters, so that lists offer
/// them. Where they do not, each student has neighbours of all marks and rank totals that may come to be.
enum class Listed
{
    Yes,
    No
};

/// Lays rows around those of a school that a careless statement would catch: beside each class, subject,
/// student, mark, band and rank total the same in another year, exam, class and division, with codes far
/// higher. Whoever asks for the school's own codes must not notice them.
void AddNeighbours(store::Connection& main,
                   const std::set<Side>& sides = {Side::Year, Side::Exam, Side::Class, Side::Division},
                   Listed listed = Listed::Yes);

/// Lays a row of somebody else, with the code -1 or the name "Next door", into each table of a delivered file
/// whose lists leave codes below 1 out. No screen may notice them.
void AddOthers(store::Connection& main, store::Connection& temp);

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
    friend class RowsOfOthers;

    std::map<QString, std::multiset<Row>> tables_;
};

/// All rows of a database that are nobody's business who works on a test's own school: those of neighbours
/// and of others, and those that stand for what is not chosen.
class RowsOfOthers
{
public:
    explicit RowsOfOthers(store::Connection& store);

    /// Fails the test for each of these rows that went or changed since, and for each one of a neighbour or
    /// of others that came. Leaves out tables that the test has taken away.
    void ExpectUntouched(store::Connection& store) const;

private:
    AllRows rows_;
};

} // namespace tally::test
