#include "core/ui/controls/DataGrid.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

#include <algorithm>
#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// A list that tells what its columns need.
class MeasuredGrid : public DataGrid
{
public:
    int Needed(int column) const
    {
        return std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column));
    }
};

/// A list of two columns, 500 pixels wide.
class DataGridWidth : public testing::Test
{
protected:
    DataGridWidth()
    {
        grid.resize(500, 200);
        grid.show();
    }
    ~DataGridWidth() override { QToolTip::hideText(); }

    void Show(const QString& name)
    {
        grid.Bind({{QStringLiteral("Student Name"), QStringLiteral("Admission No")},
                   {{name, QStringLiteral("A101")}, {QStringLiteral("Anu"), QStringLiteral("A102")}}},
                  {});
    }
    /// The mouse rests on a name.
    void RestAtName(int row)
    {
        const QPoint spot = grid.visualRect(grid.model()->index(row, 0)).center();
        QHelpEvent rests(QEvent::ToolTip, spot, grid.viewport()->mapToGlobal(spot));
        QCoreApplication::sendEvent(grid.viewport(), &rests);
        EXPECT_TRUE(rests.isAccepted()) << "nobody else is asked";
    }
    /// What is told then.
    std::string ToldAtName(int row)
    {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        RestAtName(row);
        return QToolTip::text().toStdString();
    }

    MeasuredGrid grid;
};

TEST_F(DataGridWidth, OneLongNameDoesNotPushTheOtherColumnsOutOfSight)
{
    Show(QString(100, QLatin1Char('M')));
    EXPECT_LE(grid.columnWidth(0) + grid.columnWidth(1), grid.viewport()->width());
    EXPECT_GE(grid.columnWidth(0), 40 * grid.fontMetrics().averageCharWidth());
}

TEST_F(DataGridWidth, ANameThatIsCutIsToldWholeUnderTheMouse)
{
    const QString name = QStringLiteral("<b>") + QString(100, QLatin1Char('M'));
    Show(name);
    EXPECT_EQ(ToldAtName(0), "<p>&lt;b&gt;" + std::string(100, 'M') + "</p>");
    EXPECT_EQ(ToldAtName(1), "");
    EXPECT_NE(ToldAtName(0), "");
    RestAtName(1);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); })) << "of the name before";
}

TEST_F(DataGridWidth, ALongNameStandsWholeWhereAllHasJustRoom)
{
    Show(QString(100, QLatin1Char('M')));
    grid.resize(grid.width() + grid.Needed(0) + grid.Needed(1) - grid.viewport()->width(), 200);
    EXPECT_EQ(grid.columnWidth(0), grid.Needed(0));
    EXPECT_EQ(grid.columnWidth(1), grid.Needed(1));
    EXPECT_EQ(ToldAtName(0), "") << "nothing of it is cut";
    grid.resize(grid.width() - 1, 200);
    EXPECT_LT(grid.columnWidth(0), grid.Needed(0));
    EXPECT_NE(ToldAtName(0), "");
}

TEST_F(DataGridWidth, WhatFitsSharesTheWholeWidth)
{
    Show(QStringLiteral("Binu"));
    EXPECT_EQ(grid.columnWidth(0) + grid.columnWidth(1), grid.viewport()->width());
}

} // namespace
} // namespace tally::test
