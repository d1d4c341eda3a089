#pragma once

#include <QString>
#include <QStringList>

#include <gtest/gtest.h>
#include <map>

namespace tally::test {

/// One filter of a search, and whom of a school it leaves out.
template <typename Filters>
struct Narrowing
{
    void (*fill)(Filters&);
    QStringList leavesOut;
};

/// The filters of a search by short names.
template <typename Filters>
using Narrowings = std::map<QString, Narrowing<Filters>>;

template <typename Filters>
Filters Filled(const Narrowings<Filters>& narrowings, const QString& names)
{
    Filters filters;
    for (const QString& name : names.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        narrowings.at(name).fill(filters);
    return filters;
}

/// Expects of each of the combinations, which are names of filters with blanks between, that found(filters)
/// tells, with "|" between, those of `all` whom none of its filters leaves out, in their order.
template <typename Filters, typename Found>
void ExpectNarrowed(const Narrowings<Filters>& narrowings, const QStringList& combinations,
                    const QStringList& all, Found found)
{
    for (const QString& combination : combinations) {
        QStringList expected = all;
        for (const QString& name : combination.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            for (const QString& out : narrowings.at(name).leavesOut)
                expected.removeAll(out);
        EXPECT_EQ(found(Filled(narrowings, combination)), expected.join(QLatin1Char('|')).toStdString())
            << combination.toStdString();
    }
}

} // namespace tally::test
