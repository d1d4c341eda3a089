#include "core/GridResult.h"

#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tally::test {

namespace {

/// A column of these texts, parted by blanks; a point stands for an empty one.
GridResult ColumnOfTexts(const char* texts)
{
    GridResult result{{QStringLiteral("Any")}, {}};
    for (const QString& text : QString::fromLatin1(texts).split(u' '))
        result.rows.push_back({text == QLatin1String(".") ? QString() : text});
    return result;
}

} // namespace

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
        const GridResult result = ColumnOfTexts(texts);
        EXPECT_EQ(RowsInOrder(result, 0, Qt::AscendingOrder), (std::vector<std::size_t>{1, 3, 0, 2}))
            << texts;
        EXPECT_EQ(RowsInOrder(result, 0, Qt::DescendingOrder), (std::vector<std::size_t>{0, 2, 1, 3}))
            << texts;
        EXPECT_EQ(RowsInOrder(result, 1, Qt::AscendingOrder), (std::vector<std::size_t>{0, 1, 2, 3}));
        EXPECT_EQ(RowsInOrder(result, -1, Qt::AscendingOrder), (std::vector<std::size_t>{0, 1, 2, 3}));
    }
}

TEST(GridResult, EmptyTextsComeLastInBothOrders)
{
    for (const char* texts : {"10 . 9 .", "b . a .", "01/Jul/2025 . 02/Jun/2025 ."}) {
        const GridResult result = ColumnOfTexts(texts);
        EXPECT_EQ(RowsInOrder(result, 0, Qt::AscendingOrder), (std::vector<std::size_t>{2, 0, 1, 3}))
            << texts;
        EXPECT_EQ(RowsInOrder(result, 0, Qt::DescendingOrder), (std::vector<std::size_t>{0, 2, 1, 3}))
            << texts;
    }
    for (const char* texts : {". 10 . 9", ". b . a", ". 01/Jul/2025 . 02/Jun/2025"})
        EXPECT_EQ(RowsInOrder(ColumnOfTexts(texts), 0, Qt::AscendingOrder),
                  (std::vector<std::size_t>{3, 1, 0, 2}))
            << texts;
}

TEST(GridResult, TheWordsForWhatIsNoNumberMakeAColumnOneOfTexts)
{
    using Rows = std::vector<std::size_t>;
    for (const char* texts : {"5 inf 10", "5 nan 10", "5 x 10"})
        EXPECT_EQ(RowsInOrder(ColumnOfTexts(texts), 0, Qt::AscendingOrder), (Rows{2, 0, 1})) << texts;
    EXPECT_EQ(RowsInOrder(ColumnOfTexts("5 01/Jun/2025 10"), 0, Qt::AscendingOrder), (Rows{1, 2, 0}));
    EXPECT_EQ(RowsInOrder(ColumnOfTexts("5 9 10"), 0, Qt::AscendingOrder), (Rows{0, 1, 2}));
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
