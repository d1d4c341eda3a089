#include "core/ui/controls/CheckList.h"

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
    for (int height = 60; height <= 160; ++height) {
        list.resize(200, height);
        QTest::qWait(0);
        ASSERT_EQ(list.viewport()->height() % Line(), 0) << height;
        ASSERT_GE(list.viewport()->height() + Line(), list.contentsRect().height()) << height;
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
