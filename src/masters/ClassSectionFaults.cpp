#include "masters/ClassSectionGrid.h"

namespace tally {

namespace {

using Fault = std::optional<ClassSectionFault>;

/// The first row that `faulty` finds wrong.
template <typename Faulty>
Fault FirstRow(const ClassSectionGrid& grid, const QString& message, ClassColumn column, Faulty faulty)
{
    for (int row = 1; row <= grid.RowCount(); ++row)
        if (faulty(grid.Row(row)))
            return ClassSectionFault{message, column, row};
    return {};
}

/// The later one of the first two rows that `alike` takes for each other.
template <typename Alike>
int LaterOfPair(const ClassSectionGrid& grid, int row, Alike alike)
{
    for (int later = row + 1; later <= grid.RowCount(); ++later)
        if (alike(grid.Row(row), grid.Row(later)))
            return later;
    return 0;
}

Fault SameName(const ClassSectionGrid& grid)
{
    const auto alike = [](const ClassRow& row, const ClassRow& later) {
        return row.className == later.className;
    };
    for (int row = 1; row <= grid.RowCount(); ++row)
        if (const int later = LaterOfPair(grid, row, alike))
            return ClassSectionFault{QStringLiteral("Class Name Already Exists"), ClassColumn::ClassName,
                                     later};
    return {};
}

/// A missing order is told before a double one, row by row.
Fault OrderMissingOrDouble(const ClassSectionGrid& grid)
{
    const auto alike = [](const ClassRow& row, const ClassRow& later) {
        return later.IsNamed() && row.Order() == later.Order();
    };
    for (int row = 1; row <= grid.RowCount(); ++row) {
        if (!grid.Row(row).IsNamed())
            continue;
        if (grid.Row(row).Order() == 0)
            return ClassSectionFault{QStringLiteral("Class Order Should Not Be Empty"),
                                     ClassColumn::ClassOrder, row};
        if (const int later = LaterOfPair(grid, row, alike))
            return ClassSectionFault{QStringLiteral("Class Order Already Exists"), ClassColumn::ClassOrder,
                                     later};
    }
    return {};
}

Fault NamelessDivision(const ClassSectionGrid& grid)
{
    if (grid.Divisions().empty())
        return ClassSectionFault{QStringLiteral("Enter Class-Division Details"), ClassColumn::ClassName, 1};
    for (const ClassDivision& division : grid.Divisions()) {
        if (!division.divisionName.trimmed().isEmpty() || division.classCode <= 0)
            continue;
        const int row = grid.FindClassRow(division.classCode);
        const QString className = row ? grid.Row(row).className : QString();
        return ClassSectionFault{QStringLiteral("Enter Division Name To Class ") + className,
                                 ClassColumn::NoOfDivisions, row};
    }
    return {};
}

} // namespace

std::optional<ClassSectionFault> FindFault(const ClassSectionGrid& grid)
{
    if (Fault fault = SameName(grid))
        return fault;
    if (Fault fault = FirstRow(grid, QStringLiteral("Class Name Should Not Be Empty"), ClassColumn::ClassName,
                               [](const ClassRow& row) { return !row.IsNamed() && row.Divisions() > 0; }))
        return fault;
    if (Fault fault = FirstRow(grid, QStringLiteral("Each Class Should Have Atleast One Division"),
                               ClassColumn::NoOfDivisions,
                               [](const ClassRow& row) { return row.IsNamed() && row.Divisions() == 0; }))
        return fault;
    if (Fault fault = OrderMissingOrDouble(grid))
        return fault;
    if (Fault fault = FirstRow(grid, QStringLiteral("Class Order Should Not Be Blank. Enter Class Order"),
                               ClassColumn::ClassOrder,
                               [](const ClassRow& row) { return row.IsNamed() && row.Order() == 0; }))
        return fault;
    return NamelessDivision(grid);
}

} // namespace tally
