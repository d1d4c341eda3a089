#include "core/ui/controls/FlexGrid.h"
#include "support/ScreenFixture.h"
#include "support/TableOf.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace tally::test {
namespace {

constexpr int NameWidth = 120;

/// A list of fifty names with twelve columns of marks, most of them out of sight; two of its rows are hidden.
class FixedColumnsOfAGrid : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        auto* rows = new QVBoxLayout(form);
        rows->addWidget(grid);
        Fill(QStringLiteral("Student %1"));
        grid->SetFixedCols(1);
        form->resize(520, 320);
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        grid->setFocus();
    }

    void Fill(const QString& names, const QList<int>& hidden = {1, 7})
    {
        std::vector<GridTable::Row> rows(52, GridTable::Row(13));
        rows[0][0].text = QStringLiteral("Name");
        for (int row = 2; row < 52; ++row)
            rows[static_cast<std::size_t>(row)][0].text = names.arg(row);
        for (int row = 0; row < 52; ++row)
            for (int col = 1; col < 13; ++col)
                rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)].text =
                    QStringLiteral("%1/%2").arg(row).arg(col);
        GridTable table = TableOf(std::move(rows));
        for (const int row : hidden)
            table.HideRow(row);
        grid->Show(std::move(table));
        grid->SetColWidth(0, NameWidth);
        for (int col = 1; col < 13; ++col)
            grid->SetColWidth(col, 70);
    }

    /// What the eye sees at the left edge of the grid, head and rows, up to the line that sets the names off.
    QImage Names()
    {
        QCoreApplication::processEvents();
        return grid->grab(QRect(0, 0, NameWidth - 2, grid->viewport()->geometry().bottom())).toImage();
    }
    void ScrollRight(int pixels) { grid->horizontalScrollBar()->setValue(pixels); }
    /// The middle of a name, as it stands at the left edge.
    QPoint NameAt(int row) const { return {NameWidth / 2, grid->CellRect(row, 0).center().y()}; }
    QWidget* WidgetAt(QPoint inViewport) { return form->childAt(grid->viewport()->mapTo(form, inViewport)); }

    /// The fixture deletes all windows that a test leaves.
    QWidget* form = new QWidget;
    FlexGrid* grid = new FlexGrid(form);
};

TEST_F(FixedColumnsOfAGrid, TheNamesStayInSightBesideTheLastMarks)
{
    const QImage before = Names();
    ScrollRight(grid->horizontalScrollBar()->maximum());
    EXPECT_TRUE(Names() == before);
    EXPECT_LT(grid->CellRect(2, 12).right(), grid->viewport()->width()) << "the last mark is shown";
    ScrollRight(0);
    EXPECT_TRUE(Names() == before);
}

TEST_F(FixedColumnsOfAGrid, AreSelectedAsTheRestIs)
{
    EXPECT_EQ(grid->selectionMode(), QAbstractItemView::SingleSelection);
    grid->SetFixedCols(0);
    grid->setSelectionMode(QAbstractItemView::ExtendedSelection);
    grid->SetFixedCols(1);
    ScrollRight(grid->horizontalScrollBar()->maximum());
    Settle();
    const auto* names = grid->findChild<QTableView*>();
    ASSERT_NE(names, nullptr);
    EXPECT_EQ(names->selectionMode(), QAbstractItemView::ExtendedSelection);
}

TEST_F(FixedColumnsOfAGrid, WithoutFixedColumnsTheNamesScrollAway)
{
    const QImage before = Names();
    grid->SetFixedCols(0);
    ScrollRight(300);
    EXPECT_FALSE(Names() == before);
}

TEST_F(FixedColumnsOfAGrid, TheNamesMoveUpAndDownWithTheirMarks)
{
    grid->verticalScrollBar()->setValue(20);
    const QImage before = Names();
    ScrollRight(300);
    EXPECT_TRUE(Names() == before) << "scrolled down before the names were held";
    grid->verticalScrollBar()->setValue(31);
    const QImage held = Names();
    ScrollRight(0);
    EXPECT_TRUE(Names() == held) << "scrolled down while the names were held";
    EXPECT_FALSE(held == before);
}

TEST_F(FixedColumnsOfAGrid, TheWheelOverANameMovesTheWholeList)
{
    ScrollRight(300);
    QCoreApplication::processEvents();
    QWidget* names = WidgetAt(NameAt(5));
    const QPoint center = names->rect().center();
    QWheelEvent wheel(center, names->mapToGlobal(center), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(names, &wheel);
    EXPECT_GT(grid->verticalScrollBar()->value(), 0);
    const QImage held = Names();
    ScrollRight(0);
    EXPECT_TRUE(Names() == held);
}

TEST_F(FixedColumnsOfAGrid, TheWheelGoesAcrossAGridThatCanBeReadWhileItIsOffAsLongAsItIsOn)
{
    grid->SetReadableWhileClosed();
    const QPoint center = grid->viewport()->rect().center();
    QWheelEvent wheel(center, grid->viewport()->mapToGlobal(center), {}, QPoint(-120, 0), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(grid->viewport(), &wheel);
    EXPECT_GT(grid->horizontalScrollBar()->value(), 0);
}

TEST_F(FixedColumnsOfAGrid, AClickOnANameIsAClickOnTheGridWhichKeepsTheKeyboard)
{
    ScrollRight(300);
    QCoreApplication::processEvents();
    const QSignalSpy clicks(grid, &FlexGrid::CellClicked);
    QWidget* names = WidgetAt(NameAt(5));
    QTest::mouseClick(names, Qt::LeftButton, {},
                      names->mapFrom(form, grid->viewport()->mapTo(form, NameAt(5))));
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks[0][0].toInt(), 5);
    EXPECT_EQ(clicks[0][1].toInt(), 0);
    EXPECT_EQ(grid->CurrentRow(), 5);
    EXPECT_TRUE(grid->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(grid->CurrentRow(), 6);
}

TEST_F(FixedColumnsOfAGrid, TheArrowKeysLeadToNoCellBehindTheNames)
{
    grid->SetCurrentCell(3, 12);
    for (int col = 11; col >= 1; --col) {
        QTest::keyClick(grid, Qt::Key_Left);
        ASSERT_EQ(grid->CurrentCol(), col);
        EXPECT_GE(grid->CellRect(3, col).left(), NameWidth) << "column " << col;
    }
    QTest::keyClick(grid, Qt::Key_Left);
    EXPECT_EQ(grid->CurrentCol(), 0);
}

TEST_F(FixedColumnsOfAGrid, AnotherListShowsItsOwnNames)
{
    ScrollRight(300);
    QCoreApplication::processEvents();
    Fill(QStringLiteral("Teacher %1"), {3, 5});
    ScrollRight(200);
    const QImage held = Names();
    ScrollRight(0);
    EXPECT_TRUE(Names() == held);
}

TEST_F(FixedColumnsOfAGrid, AWiderAndAHiddenColumnShowWhileTheNamesAreHeld)
{
    grid->SetFixedCols(2);
    grid->SetColWidth(1, 30);
    ScrollRight(300);
    QCoreApplication::processEvents();
    grid->SetColWidth(0, NameWidth + 30);
    QImage held = Names();
    ScrollRight(0);
    EXPECT_TRUE(Names() == held);
    ScrollRight(300);
    grid->SetColHidden(1, true);
    grid->SetColWidth(0, NameWidth - 30);
    held = Names();
    ScrollRight(0);
    EXPECT_TRUE(Names().copy(0, 0, NameWidth - 32, 200) == held.copy(0, 0, NameWidth - 32, 200));
}

TEST_F(FixedColumnsOfAGrid, ALineSetsTheNamesOff)
{
    ScrollRight(300);
    QCoreApplication::processEvents();
    const QPoint origin = grid->viewport()->pos();
    const QImage edge = grid->grab(QRect(origin + QPoint(NameWidth - 1, 0), QSize(1, 200))).toImage();
    for (int y = 0; y < edge.height(); ++y)
        EXPECT_EQ(edge.pixelColor(0, y), grid->palette().color(QPalette::Mid)) << y;
}

TEST_F(FixedColumnsOfAGrid, TheHeadOfTheNamesIsPulledNoWider)
{
    ScrollRight(300);
    QCoreApplication::processEvents();
    const QPoint edge(NameWidth - 1, 8);
    QWidget* head = WidgetAt(QPoint(edge.x(), edge.y() - grid->horizontalHeader()->height()));
    const QImage before = Names();
    QTest::mousePress(head, Qt::LeftButton, {}, edge);
    QTest::mouseMove(head, edge + QPoint(-40, 0));
    QTest::mouseRelease(head, Qt::LeftButton, {}, edge + QPoint(-40, 0));
    EXPECT_TRUE(Names() == before);
}

TEST_F(FixedColumnsOfAGrid, TabLeadsPastTheNamesInBothDirections)
{
    auto* before = new QLineEdit(form);
    auto* behind = new QLineEdit(form);
    auto* rows = qobject_cast<QVBoxLayout*>(form->layout());
    rows->insertWidget(0, before);
    rows->addWidget(behind);
    QWidget::setTabOrder(before, grid);
    QWidget::setTabOrder(grid, behind);
    ScrollRight(300);
    Settle();
    grid->setFocus();
    PressKey(form, Qt::Key_Tab);
    EXPECT_TRUE(behind->hasFocus());
    PressKey(form, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(grid->hasFocus());
    PressKey(form, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before->hasFocus());
}

TEST_F(FixedColumnsOfAGrid, NothingIsLeftOfTheNamesThatWereHeld)
{
    const auto held = [this] { return grid->findChildren<QTableView*>().size(); };
    ScrollRight(300);
    EXPECT_EQ(held(), 1);
    ScrollRight(0);
    Settle();
    EXPECT_EQ(held(), 0);
    const QImage names = Names();
    ScrollRight(300);
    grid->SetFixedCols(0);
    EXPECT_FALSE(Names() == names) << "gone at once";
    Settle();
    ScrollRight(200);
    EXPECT_EQ(held(), 0) << "none is held that takes no room";
}

TEST_F(FixedColumnsOfAGrid, AHeldColumnIsReachedWithTheWholeList)
{
    grid->SetFixedCols(2);
    ScrollRight(300);
    grid->SetCurrentCell(3, 1);
    EXPECT_EQ(grid->horizontalScrollBar()->value(), 0);
    ScrollRight(300);
    const int before = grid->horizontalScrollBar()->value();
    grid->SetCurrentCell(3, 8);
    EXPECT_EQ(grid->horizontalScrollBar()->value(), before) << "it was in sight";
}

TEST_F(FixedColumnsOfAGrid, WhoHoldsFewerColumnsLetsTheOthersGo)
{
    grid->SetFixedCols(2);
    ScrollRight(300);
    const QImage two = grid->grab().toImage();
    grid->SetFixedCols(1);
    const QImage one = grid->grab().toImage();
    EXPECT_FALSE(one == two);
    ScrollRight(0);
    ScrollRight(300);
    EXPECT_TRUE(grid->grab().toImage() == one);
}

TEST_F(FixedColumnsOfAGrid, NamesThatWouldTakeMoreThanHalfOfTheGridScrollWithTheRest)
{
    form->resize(2 * NameWidth, 320);
    QCoreApplication::processEvents();
    const QImage before = Names();
    ScrollRight(300);
    EXPECT_FALSE(Names() == before);
    form->resize(form->width() + 2 * NameWidth - grid->viewport()->width(), 320);
    QCoreApplication::processEvents();
    ASSERT_EQ(grid->viewport()->width(), 2 * NameWidth);
    EXPECT_NE(grid->findChild<QTableView*>(), nullptr) << "just the half";
    form->resize(520, 320);
    QCoreApplication::processEvents();
    const QImage held = Names();
    ScrollRight(0);
    EXPECT_TRUE(Names() == held) << "a wider window holds them at once";
}

} // namespace
} // namespace tally::test
