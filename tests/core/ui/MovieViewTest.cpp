#include "core/ui/controls/MovieView.h"

#include "support/EventCounter.h"

#include <QApplication>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace tally::test {
namespace {

const QByteArray Disk = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 100 100">
<rect width="100" height="100" fill="#0000ff"/><circle cx="50" cy="50" r="20" fill="#00ff00"/></svg>)";
const QByteArray MovingDisk = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 100 100">
<circle cx="50" cy="50" r="20" fill="#00ff00"><animateTransform attributeName="transform" type="translate"
 from="0,0" to="30,0" begin="0s" dur="9s" repeatCount="indefinite"/></circle></svg>)";

/// A view that has been painted, with no movie yet.
class MovieViewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        view.AddButton(QStringLiteral("cmdEnter"), QStringLiteral("&Enter"), QStringLiteral("quit"),
                       QStringLiteral("enter"));
        view.AddButton(QStringLiteral("cmdQuit"), QStringLiteral("&Quit"), QStringLiteral("quit"),
                       QStringLiteral("true"));
        view.resize(400, 200);
        view.show();
        QApplication::setActiveWindow(&view);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
        QTest::qWait(0);
    }

    void Play(const QByteArray& movie)
    {
        view.SetMovie(movie);
        EXPECT_TRUE(QTest::qWaitFor([this] { return view.IsPlaying(); }));
    }
    /// Where the view shows the disk.
    QRect Shown()
    {
        const QImage picture = view.grab().toImage();
        QRect shown;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) == QColor(0, 255, 0))
                    shown |= QRect(x, y, 1, 1);
        return shown;
    }

    MovieView view;
    EventCounter paints{&view, QEvent::Paint};
};

TEST_F(MovieViewTest, EachPictureOfAMovieIsShown)
{
    Play(MovingDisk);
    paints.Taken();
    EXPECT_TRUE(QTest::qWaitFor([this] { return paints.Count() > 5; }));
}

TEST_F(MovieViewTest, TheWindowStandsBeforeTheTitleIsWritten)
{
    const auto hasLetters = [](const QImage& picture) {
        for (int y = 0; y < 80; ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) == QColor(Qt::white))
                    return true;
        return false;
    };
    MovieView other;
    other.resize(400, 200);
    EXPECT_FALSE(hasLetters(other.grab().toImage()));
    EXPECT_TRUE(hasLetters(other.grab().toImage()));
}

TEST_F(MovieViewTest, AMovieThatDoesNotMoveIsShownAtOnceAndOnce)
{
    QTest::qWait(50);
    paints.Taken();
    Play(Disk);
    EXPECT_TRUE(QTest::qWaitFor([this] { return paints.Count() > 0; }));
    QTest::qWait(200);
    EXPECT_EQ(paints.Count(), 1);
}

TEST_F(MovieViewTest, AMovieCoversTheWholeViewAndIsNotPulledOutOfShape)
{
    Play(Disk);
    const QImage picture = view.grab().toImage();
    for (const QPoint& corner : {QPoint(2, 2), QPoint(397, 2), QPoint(2, 197), QPoint(397, 197)})
        EXPECT_EQ(picture.pixelColor(corner), QColor(Qt::blue));
    EXPECT_NEAR(Shown().width(), Shown().height(), 2);
    EXPECT_NEAR(Shown().center().x(), 200, 2);
    EXPECT_NEAR(Shown().center().y(), 100, 2);
}

TEST_F(MovieViewTest, AnotherMovieTakesThePlaceOfTheOneBefore)
{
    Play(Disk);
    Play(QByteArray(Disk).replace("00ff00", "ff0000"));
    EXPECT_TRUE(Shown().isEmpty());
}

TEST_F(MovieViewTest, WithoutAMovieThereIsItsSky)
{
    view.SetMovie({});
    QTest::qWait(0);
    EXPECT_FALSE(view.IsPlaying());
    EXPECT_EQ(view.grab().toImage().pixelColor(200, 190), QColor(0x1f, 0x5f, 0x8b));
}

TEST_F(MovieViewTest, AHiddenMoviePlaysWhenItIsShownAgain)
{
    Play(Disk);
    view.hide();
    EXPECT_FALSE(view.IsPlaying());
    view.SetMovie(MovingDisk);
    QTest::qWait(0);
    EXPECT_FALSE(view.IsPlaying());
    view.show();
    view.hide();
    QTest::qWait(0);
    EXPECT_FALSE(view.IsPlaying()) << "it had gone before its first picture came";
    view.show();
    EXPECT_TRUE(QTest::qWaitFor([this] { return view.IsPlaying(); }));
}

TEST_F(MovieViewTest, TheFirstButtonHasTheKeyboardAndEachSpeaksForTheMovie)
{
    const QSignalSpy commands(&view, &MovieView::FSCommand);
    const auto buttons = view.findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 2);
    EXPECT_TRUE(buttons[0]->hasFocus());
    EXPECT_LT(buttons[0]->x(), buttons[1]->x());
    for (QPushButton* button : buttons) {
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Return);
    }
    ASSERT_EQ(commands.count(), 2);
    EXPECT_EQ(commands[0], (QList<QVariant>{QStringLiteral("quit"), QStringLiteral("enter")}));
    EXPECT_EQ(commands[1], (QList<QVariant>{QStringLiteral("quit"), QStringLiteral("true")}));
    view.hide();
    view.show();
    EXPECT_EQ(view.focusWidget(), buttons[0]) << "shown anew";
}

TEST_F(MovieViewTest, AViewWithoutButtonsIsShownToo)
{
    MovieView other;
    other.SetMovie(Disk);
    other.show();
    EXPECT_TRUE(QTest::qWaitFor([&other] { return other.IsPlaying(); }));
}

} // namespace
} // namespace tally::test
