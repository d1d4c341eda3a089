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
