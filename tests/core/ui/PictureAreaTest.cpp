#include "core/ui/controls/PictureArea.h"

#include "core/ui/look/Look.h"
#include "support/EventCounter.h"

#include <QMdiSubWindow>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// The room of the child windows, and one of them.
class PictureAreaTest : public testing::Test
{
protected:
    PictureAreaTest()
    {
        area.resize(400, 300);
        area.show();
        frame->setGeometry(10, 10, 120, 90);
        frame->show();
        QTest::qWait(0);
    }

    static QPixmap Plain(const QColor& color)
    {
        QPixmap picture(40, 30);
        picture.fill(color);
        return picture;
    }
    QColor Ground() { return area.grab().toImage().pixelColor(200, 200); }

    PictureArea area;
    QMdiSubWindow* frame = area.addSubWindow(new QWidget);
};

TEST_F(PictureAreaTest, AnotherPictureIsShownAtOnce)
{
    area.SetPicture(Plain(Qt::white));
    EXPECT_EQ(Ground(), QColor(Qt::white));
    QTest::qWait(0);
    const EventCounter paints(area.viewport(), QEvent::Paint);
    area.SetPicture(Plain(Qt::yellow));
    QTest::qWait(0);
    EXPECT_GT(paints.Count(), 0);
    EXPECT_EQ(Ground(), QColor(Qt::yellow));
}

TEST_F(PictureAreaTest, ThePictureIsThatOfTheEveningAsSoonAsTheColoursAreDark)
{
    area.SetPicture(Plain(Qt::white));
    ASSERT_EQ(Ground(), QColor(Qt::white));
    QPalette evening(QColor(40, 40, 40));
    ASSERT_TRUE(IsDark(evening));
    area.setPalette(evening);
    EXPECT_LT(Ground().lightness(), 110);
}

TEST_F(PictureAreaTest, AScreenThatIsPulledOverTheEdgeStaysThereAndIsReachedByScrolling)
{
    frame->move(350, 260);
    QTest::qWait(0);
    EXPECT_TRUE(area.horizontalScrollBar()->isVisible());
    EXPECT_TRUE(area.verticalScrollBar()->isVisible());
    EXPECT_EQ(frame->pos(), QPoint(350, 260));
}

TEST_F(PictureAreaTest, AScreenStaysInSightWhenTheRoomBecomesSmaller)
{
    frame->move(270, 200);
    area.resize(200, 150);
    QTest::qWait(0);
    EXPECT_TRUE(area.viewport()->rect().contains(frame->geometry()));
    EXPECT_EQ(frame->size(), QSize(120, 90));
    area.resize(100, 80);
    QTest::qWait(0);
    EXPECT_LE(frame->width(), 100);
    EXPECT_EQ(frame->pos(), QPoint(0, 0));
}

TEST_F(PictureAreaTest, AScreenThatFillsTheRoomGoesOnFillingIt)
{
    frame->showMaximized();
    for (const QSize& size : {QSize(600, 500), QSize(300, 200)}) {
        area.resize(size);
        QTest::qWait(0);
        EXPECT_EQ(frame->size(), area.viewport()->size());
        EXPECT_TRUE(frame->isMaximized());
    }
}

} // namespace
} // namespace tally::test
