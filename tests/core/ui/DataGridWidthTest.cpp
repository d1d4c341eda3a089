#include "core/ui/controls/DataGrid.h"

#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace tally::test {
namespace {

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
    /// What is told when the mouse rests on a name.
    std::string ToldAtName(int row)
    {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        const QPoint spot = grid.visualRect(grid.model()->index(row, 0)).center();
        QHelpEvent rests(QEvent::ToolTip, spot, grid.viewport()->mapToGlobal(spot));
        QCoreApplication::sendEvent(grid.viewport(), &rests);
        return QToolTip::text().toStdString();
    }

    DataGrid grid;
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
}

TEST_F(DataGridWidth, WhatFitsSharesTheWholeWidth)
{
    Show(QStringLiteral("Binu"));
    EXPECT_EQ(grid.columnWidth(0) + grid.columnWidth(1), grid.viewport()->width());
}

} // namespace
} // namespace tally::test
