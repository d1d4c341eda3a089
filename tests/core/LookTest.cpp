#include "core/look/Look.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QRadioButton>
#include <QTest>

#include <cstdlib>
#include <gtest/gtest.h>

namespace tally::test {
namespace {

class Look : public ::testing::TestWithParam<bool>
{
protected:
    void SetUp() override { ApplyLook(*qApp, GetParam()); }
    void TearDown() override { ApplyLook(*qApp, false); }

    /// How far the box before the text stands out from the window at most, in steps of lightness.
    static int Contrast(QWidget& button)
    {
        button.show();
        const QImage picture = button.grab().toImage();
        const int window = button.palette().color(QPalette::Window).lightness();
        int most = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < std::min(picture.width(), picture.height()); ++x)
                most = std::max(most, std::abs(picture.pixelColor(x, y).lightness() - window));
        return most;
    }
};

constexpr int Legible = 40;

TEST_P(Look, AnUntickedBoxIsSeen)
{
    QCheckBox box;
    EXPECT_GE(Contrast(box), Legible);
}

TEST_P(Look, AnOptionThatIsNotChosenIsSeen)
{
    QRadioButton option;
    EXPECT_GE(Contrast(option), Legible);
}

TEST_P(Look, WhatIsChosenInASwitchedOffMenuOrListCanBeRead)
{
    const QPalette palette = QApplication::palette();
    const int behind = palette.color(QPalette::Disabled, QPalette::Highlight).lightness();
    for (const auto role : {QPalette::Text, QPalette::HighlightedText})
        EXPECT_GE(std::abs(palette.color(QPalette::Disabled, role).lightness() - behind), Legible) << role;
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, Look, ::testing::Bool(),
                         [](const auto& dark) { return dark.param ? "Dark" : "Light"; });

} // namespace
} // namespace tally::test
