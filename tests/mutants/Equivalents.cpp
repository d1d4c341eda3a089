#include "mutants/Equivalents.h"

#include <stdexcept>

namespace tally::mutants {

Equivalents Equivalents::FromText(const QString& text)
{
    Equivalents equivalents;
    QString statement;
    QString change;
    int number = 0;
    const auto fail = [&number](const char* what) {
        throw std::runtime_error("line " + std::to_string(number) + ": " + what);
    };
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        ++number;
        if (line.trimmed().isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        if (line.startsWith(QLatin1String("    "))) {
            if (change.isEmpty())
                fail("a reason for no change");
            equivalents.taken_.insert({statement, change}, false);
            continue;
        }
        if (!change.isEmpty() && !equivalents.taken_.contains({statement, change}))
            fail("the change before has no reason");
        change.clear();
        if (!line.startsWith(QLatin1String("  ")))
            statement = line.trimmed();
        else if (statement.isEmpty())
            fail("a change of no statement");
        else
            change = line.trimmed();
    }
    if (!change.isEmpty() && !equivalents.taken_.contains({statement, change}))
        fail("the last change has no reason");
    return equivalents;
}

bool Equivalents::Take(const QString& statement, const QString& change)
{
    const auto found = taken_.find({statement, change});
    if (found == taken_.end())
        return false;
    *found = true;
    return true;
}

QStringList Equivalents::Rest() const
{
    QStringList rest;
    for (auto entry = taken_.begin(); entry != taken_.end(); ++entry)
        if (!entry.value())
            rest.append(entry.key().first + QLatin1String("\n    ") + entry.key().second);
    rest.sort();
    return rest;
}

} // namespace tally::mutants
