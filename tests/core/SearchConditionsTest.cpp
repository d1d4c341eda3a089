#include "core/SearchConditions.h"

#include <gtest/gtest.h>

namespace tally {
namespace {

/// Students with a name, a city and a day of admission.
class SearchConditionsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        store.Execute(QStringLiteral("CREATE TABLE Student (Name Text, City Integer, Admitted Text)"));
        for (const auto& [name, city, day] :
             {std::tuple("Asha", 1, 1), std::tuple("Binu", 2, 2), std::tuple("O'Neil; --", 2, 3)})
            store.Execute(QStringLiteral("INSERT INTO Student (Name, City, Admitted) VALUES (?, ?, ?)"),
                          QString::fromLatin1(name), city, QDate(2024, 6, day));
    }

    /// The names found, the last admitted first.
    QString Found()
    {
        QStringList names;
        auto rows = conditions.Query(store, QStringLiteral("SELECT Name FROM Student WHERE City > 0"),
                                     QStringLiteral(" ORDER BY Admitted DESC"));
        while (rows.Next())
            names.append(rows.Text(0));
        return names.join(QLatin1Char('|'));
    }

    store::Connection store = store::Connection::InMemory();
    SearchConditions conditions;
    const QString nameHolds = QStringLiteral("Name LIKE '%' || ? || '%'");
    const QString cityIs = QStringLiteral("City = ?");
    const QString from = QStringLiteral("Admitted >= ?");
    const QString to = QStringLiteral("Admitted <= ?");
};

TEST_F(SearchConditionsTest, WithoutAFilterAllRowsAreFoundInTheirOrder)
{
    EXPECT_EQ(Found(), QStringLiteral("O'Neil; --|Binu|Asha"));
}

TEST_F(SearchConditionsTest, AnEmptyTextNoCodeAndNoDateFilterNothing)
{
    conditions.Add(nameHolds, QString());
    conditions.Add(nameHolds, QStringLiteral(""));
    conditions.Add(cityIs, 0);
    conditions.Add(from, QDate());
    EXPECT_EQ(Found(), QStringLiteral("O'Neil; --|Binu|Asha"));
}

TEST_F(SearchConditionsTest, EachFilterNarrowsWhatTheOthersFind)
{
    conditions.Add(cityIs, 2);
    EXPECT_EQ(Found(), QStringLiteral("O'Neil; --|Binu"));
    conditions.Add(from, QDate());
    conditions.Add(to, QDate(2024, 6, 2));
    EXPECT_EQ(Found(), QStringLiteral("Binu"));
    conditions.Add(nameHolds, QStringLiteral("ash"));
    EXPECT_EQ(Found(), QString());
}

TEST_F(SearchConditionsTest, FirstAndLastDayOfARangeBelongToIt)
{
    conditions.Add(from, QDate(2024, 6, 2));
    conditions.Add(to, QDate(2024, 6, 3));
    EXPECT_EQ(Found(), QStringLiteral("O'Neil; --|Binu"));
}

TEST_F(SearchConditionsTest, AValueIsNeverPartOfTheStatement)
{
    conditions.Add(nameHolds, QStringLiteral("'Neil; --"));
    conditions.Add(cityIs, 2);
    EXPECT_EQ(Found(), QStringLiteral("O'Neil; --"));
    EXPECT_EQ(Found(), QStringLiteral("O'Neil; --")) << "it may be asked again";
}

} // namespace
} // namespace tally
