#include "core/GridResult.h"

#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {

TEST(GridResult, AColumnIsFoundInWhateverLettersTheStoreGivesItsName)
{
    const QStringList heads{QStringLiteral("State Name"), QStringLiteral("statecode"),
                            QStringLiteral("STATECODE")};
    EXPECT_EQ(ColumnOf(heads, QStringLiteral("StateCode")), 1);
    EXPECT_EQ(ColumnOf(heads, QStringLiteral("state name")), 0);
    EXPECT_EQ(ColumnOf(heads, QStringLiteral("State")), -1);
    EXPECT_EQ(ColumnOf({}, QString()), -1);
}

TEST(GridResult, RowsThatAreAlikeKeepTheOfficesOrder)
{
    for (const char* texts : {"7 5 7 5", "b a B A", "02/Jun/2025 01/Jun/2025 02/Jun/2025 01/Jun/2025"}) {
        GridResult result{{QStringLiteral("Any")}, {}};
        for (const QString& text : QString::fromLatin1(texts).split(u' '))
            result.rows.push_back({text});
        EXPECT_EQ(RowsInOrder(result, 0, Qt::AscendingOrder), (std::vector<std::size_t>{1, 3, 0, 2}))
            << texts;
        EXPECT_EQ(RowsInOrder(result, 0, Qt::DescendingOrder), (std::vector<std::size_t>{0, 2, 1, 3}))
            << texts;
        EXPECT_EQ(RowsInOrder(result, 1, Qt::AscendingOrder), (std::vector<std::size_t>{0, 1, 2, 3}));
        EXPECT_EQ(RowsInOrder(result, -1, Qt::AscendingOrder), (std::vector<std::size_t>{0, 1, 2, 3}));
    }
}

TEST(GridResult, ADateIsShownAsOneThoughTheStoreGivesItsHeadInSmallLetters)
{
    store::Connection main = DeliveredMainStore();
    main.Execute(QStringLiteral("INSERT INTO ApplicationDate (ApplicationDate) VALUES ('2025-06-02')"));
    const GridResult grid =
        ReadGrid(main.Query(QStringLiteral("SELECT ApplicationDate AS \"last day\" FROM ApplicationDate")),
                 {QStringLiteral("Last Day")});
    ASSERT_EQ(grid.rows.size(), 1U);
    EXPECT_EQ(grid.rows[0].join(u'|').toStdString(), "02/Jun/2025");
    EXPECT_EQ(grid.heads.join(u'|').toStdString(), "last day");
}

} // namespace tally::test
