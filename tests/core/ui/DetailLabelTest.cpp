#include "core/ui/controls/DetailLabel.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace tally::test {
namespace {

class DetailLabelTest : public testing::Test
{
protected:
    DetailLabelTest()
    {
        label.resize(120, label.minimumSizeHint().height());
        label.show();
    }
    ~DetailLabelTest() override { QToolTip::hideText(); }

    std::string ToolTip()
    {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        QHelpEvent ask(QEvent::ToolTip, QPoint(1, 1), label.mapToGlobal(QPoint(1, 1)));
        QCoreApplication::sendEvent(&label, &ask);
        EXPECT_TRUE(ask.isAccepted()) << "nobody else is asked";
        return QToolTip::text().toStdString();
    }

    DetailLabel label;
};

TEST_F(DetailLabelTest, KeepsItsSizeWhateverItShows)
{
    const QSize before = label.sizeHint();
    label.setText(QString(300, QLatin1Char('x')));
    EXPECT_EQ(label.sizeHint(), before);
    EXPECT_EQ(label.minimumSizeHint(), before);
    label.SetLines(2);
    EXPECT_EQ(label.sizeHint().width(), before.width());
    EXPECT_GT(label.sizeHint().height(), before.height());
}

TEST_F(DetailLabelTest, AsksItsFormForTheRoomOfItsLines)
{
    QWidget form;
    QVBoxLayout rows(&form);
    auto* detail = new DetailLabel;
    rows.addWidget(detail);
    rows.addStretch();
    form.resize(200, 400);
    form.show();
    detail->SetLines(3);
    QCoreApplication::processEvents();
    EXPECT_EQ(detail->height(), 3 * detail->fontMetrics().lineSpacing());
}

TEST_F(DetailLabelTest, IsReadOutAsItStandsThere)
{
    label.setText(QStringLiteral("<b>Anu</b>"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name).toStdString(),
              "<b>Anu</b>");
}

TEST_F(DetailLabelTest, TellsTheWholeOnlyWhereItHasNoRoomForIt)
{
    label.setText(QStringLiteral("Anu"));
    EXPECT_EQ(ToolTip(), "");
    label.setText(QStringLiteral("<b>") + QString(60, QLatin1Char('x')));
    EXPECT_EQ(ToolTip(), "<p>&lt;b&gt;" + std::string(60, 'x') + "</p>");
    label.setText(QStringLiteral("House\nStreet"));
    EXPECT_EQ(ToolTip(), "<p>House<br>Street</p>");
    label.SetLines(2);
    EXPECT_EQ(ToolTip(), "");
}

TEST_F(DetailLabelTest, WhatDoesNotFitEndsInDots)
{
    label.setText(QString(40, QLatin1Char('x')));
    const QImage cut = label.grab().toImage();
    label.setText(QString(400, QLatin1Char('x')));
    EXPECT_EQ(label.grab().toImage(), cut);
    label.setText(QStringLiteral("xx"));
    EXPECT_NE(label.grab().toImage(), cut);
}

} // namespace
} // namespace tally::test
