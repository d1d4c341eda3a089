#include "core/ui/controls/CheckList.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// A list on the screen, with room for some of its twenty lines.
class CheckListTest : public testing::Test
{
protected:
    void SetUp() override
    {
        for (int code = 1; code <= 20; ++code)
            list.AddItem({code, QStringLiteral("  Subject %1").arg(code), {}});
        list.resize(200, 100);
        list.show();
    }

    int Line() { return list.visualItemRect(list.item(1)).top() - list.visualItemRect(list.item(0)).top(); }

    CheckList list;
};

TEST_F(CheckListTest, ShowsWholeLinesWhateverItsHeightIs)
{
    for (int height = Line() + 2 * list.frameWidth(); height <= 160; ++height) {
        list.resize(200, height);
        QTest::qWait(0);
        ASSERT_EQ(list.viewport()->height() % Line(), 0) << height;
        ASSERT_GE(list.viewport()->height() + Line(), list.contentsRect().height()) << height;
    }
}

TEST_F(CheckListTest, WhatNoWholeLineFitsIntoLooksAsTheListDoes)
{
    const QColor ground = QApplication::palette().color(QPalette::Base);
    for (const int height : {111, 121}) {
        list.resize(200, height);
        QTest::qWait(0);
        const QImage shown = list.grab().toImage();
        for (int y = list.viewport()->geometry().bottom() + 1; y <= list.contentsRect().bottom(); ++y)
            EXPECT_EQ(shown.pixelColor(40, y), ground) << height << ": " << y;
        EXPECT_NE(shown.pixelColor(40, height - 1), ground) << "its edge";
    }
}

TEST_F(CheckListTest, AllAreTickedWhereEachIsThatCanBeAndAtLeastOne)
{
    EXPECT_FALSE(list.AreAllTicked());
    list.SetAllTicked(true);
    EXPECT_TRUE(list.AreAllTicked());
    for (const int index : {0, 19}) {
        list.SetTicked(index, false);
        EXPECT_FALSE(list.AreAllTicked()) << index;
        list.SetTicked(index, true);
    }
    list.AddItem({21, QStringLiteral("  Subject 21"), QStringLiteral("Has Marks")});
    EXPECT_TRUE(list.AreAllTicked()) << "but one that cannot be";
    list.clear();
    list.AddItem({21, QStringLiteral("  Subject 21"), QStringLiteral("Has Marks")});
    EXPECT_FALSE(list.AreAllTicked()) << "none can be";
}

TEST_F(CheckListTest, ALoneLineHasTheWholeList)
{
    CheckList lone;
    lone.AddItem({1, QStringLiteral("  Subject"), {}});
    lone.show();
    for (int height = 100; height < 130; ++height) {
        lone.resize(200, height);
        QTest::qWait(0);
        EXPECT_EQ(lone.viewport()->height(), lone.contentsRect().height()) << height;
    }
}

TEST_F(CheckListTest, ShowsTheLastLineWholeAtTheEnd)
{
    list.resize(200, 111);
    QTest::qWait(0);
    list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum());
    QTest::qWait(0);
    EXPECT_LE(list.visualItemRect(list.item(19)).bottom(), list.viewport()->height());
    EXPECT_GE(list.visualItemRect(list.item(19)).top(), 0);
}

TEST_F(CheckListTest, WithRoomForLessThanALineShowsWhatItCan)
{
    list.resize(200, Line());
    QTest::qWait(0);
    EXPECT_GT(list.viewport()->height(), 0);
}

TEST_F(CheckListTest, FilledWhileItIsShownShowsWholeLinesToo)
{
    list.clear();
    list.resize(200, 111);
    QTest::qWait(0);
    for (int code = 1; code <= 20; ++code)
        list.AddItem({code, QStringLiteral("  Subject"), {}});
    QTest::qWait(0);
    EXPECT_EQ(list.viewport()->height() % Line(), 0);
}

} // namespace
} // namespace tally::test
