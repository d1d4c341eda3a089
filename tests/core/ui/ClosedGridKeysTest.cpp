#include "core/ui/controls/ClosedGridKeys.h"

#include "core/ui/controls/FlexGrid.h"
#include "support/EventCounter.h"
#include "support/ScreenFixture.h"
#include "support/TableOf.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace tally::test {
namespace {

/// A form with a grid of a hundred rows that is switched off, a field and a button; and a field beside it.
class ClosedGrid : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        auto* columns = new QVBoxLayout(around);
        columns->addWidget(form);
        columns->addWidget(outside);
        auto* rows = new QVBoxLayout(form);
        for (QWidget* widget : std::initializer_list<QWidget*>{grid, field, button})
            rows->addWidget(widget);
        Fill(100);
        grid->SetReadableWhileClosed();
        grid->setEnabled(false);
        new ClosedGridKeys(grid, form);
        around->resize(400, 300);
        around->show();
        QApplication::setActiveWindow(around);
        ASSERT_TRUE(QTest::qWaitForWindowActive(around));
    }

    void Fill(std::size_t rows)
    {
        grid->Show(TableOf(std::vector<GridTable::Row>(rows + 1, GridTable::Row(2))));
    }
    int At() const { return grid->verticalScrollBar()->value(); }
    /// How far the key turns the rows from the middle of the list, pressed on the control.
    int Turn(QWidget* control, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        grid->verticalScrollBar()->setValue(50);
        control->setFocus();
        QTest::keyClick(control, key, modifiers);
        return At() - 50;
    }
    void TurnWheel(int down, int across = 0)
    {
        const QPointF center = grid->viewport()->rect().center();
        QWheelEvent wheel(center, grid->viewport()->mapToGlobal(center), {}, QPoint(-across, -down),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(grid->viewport(), &wheel);
    }

    /// The fixture deletes all windows that a test leaves.
    QWidget* around = new QWidget;
    QWidget* form = new QWidget(around);
    FlexGrid* grid = new FlexGrid(form);
    QLineEdit* field = new QLineEdit(form);
    QPushButton* button = new QPushButton(form);
    QLineEdit* outside = new QLineEdit(around);
};

TEST_F(ClosedGrid, PagesAreTurnedFromAnywhereInTheFormAndSingleRowsFromAButton)
{
    const int page = grid->verticalScrollBar()->pageStep();
    ASSERT_GT(page, 1);
    for (QWidget* control : {static_cast<QWidget*>(field), static_cast<QWidget*>(button)}) {
        EXPECT_EQ(Turn(control, Qt::Key_PageDown), page);
        EXPECT_EQ(Turn(control, Qt::Key_PageUp), -page);
    }
    EXPECT_EQ(Turn(button, Qt::Key_Down), 1);
    EXPECT_EQ(Turn(button, Qt::Key_Up), -1);
    for (const auto key : {Qt::Key_Down, Qt::Key_Up})
        EXPECT_EQ(Turn(field, key), 0);
    EXPECT_EQ(Turn(outside, Qt::Key_PageDown), 0);
    EXPECT_EQ(Turn(field, Qt::Key_PageDown, Qt::ControlModifier), 0);
}

TEST_F(ClosedGrid, AKeyThatTurnsNothingDoesWhatItDoesElsewhere)
{
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("ab"));
    EXPECT_EQ(field->text().toStdString(), "ab");
    Fill(1);
    Settle();
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Up);
    EXPECT_TRUE(field->hasFocus()) << "all rows are in sight, and the arrows lead through the form";
    Fill(100);
    Settle();
    grid->setEnabled(true);
    EXPECT_EQ(Turn(field, Qt::Key_PageDown), 0) << "the grid takes its keys itself";
}

TEST_F(ClosedGrid, TheWheelTurnsItsRowsByWholeNotches)
{
    const int notch = QApplication::wheelScrollLines();
    TurnWheel(120);
    EXPECT_EQ(At(), notch);
    TurnWheel(60);
    EXPECT_EQ(At(), notch);
    TurnWheel(0, 120);
    EXPECT_EQ(At(), notch) << "across";
    TurnWheel(60);
    EXPECT_EQ(At(), 2 * notch) << "two halves";
    TurnWheel(90);
    TurnWheel(-60);
    TurnWheel(-60);
    EXPECT_EQ(At(), notch) << "who turns back begins anew";
    TurnWheel(-60);
    TurnWheel(90);
    TurnWheel(30);
    EXPECT_EQ(At(), 2 * notch);
    TurnWheel(300);
    EXPECT_EQ(At(), 4 * notch);
    TurnWheel(60);
    EXPECT_EQ(At(), 5 * notch);
}

TEST_F(ClosedGrid, TheWheelOverItTurnsNothingElse)
{
    const EventCounter wheels(form, QEvent::Wheel);
    TurnWheel(120);
    EXPECT_EQ(wheels.Count(), 0);
}

TEST_F(ClosedGrid, IsPaintedAsAnOpenOneIs)
{
    grid->SetTextMatrix(1, 0, QStringLiteral("WWW"));
    const QRect cell = grid->CellRect(1, 0);
    const QImage shown = grid->grab(cell.translated(grid->viewport()->pos())).toImage();
    int ink = 0;
    for (int x = 0; x < shown.width(); ++x)
        for (int y = 0; y < shown.height(); ++y)
            ink += shown.pixel(x, y) == shown.pixel(0, 0) ? 0 : 1;
    EXPECT_GT(ink, 20);
}

TEST_F(ClosedGrid, TheWheelTurnsNoGridThatIsNotToBeRead)
{
    auto* closed = new FlexGrid(form);
    form->layout()->addWidget(closed);
    closed->Show(TableOf(std::vector<GridTable::Row>(100, GridTable::Row(2))));
    closed->setEnabled(false);
    Settle();
    std::swap(grid, closed);
    TurnWheel(120);
    EXPECT_EQ(At(), 0);
    std::swap(grid, closed);
}

} // namespace
} // namespace tally::test
