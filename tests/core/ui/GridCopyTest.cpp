#include "core/ui/controls/DataGrid.h"
#include "core/ui/controls/FlexGrid.h"
#include "support/ScreenFixture.h"
#include "support/TableOf.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace tally::test {
namespace {

const QString Before = QStringLiteral("what was copied before");

class GridCopy : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        auto* rows = new QVBoxLayout(form);
        rows->addWidget(list);
        rows->addWidget(grid);
        form->resize(500, 400);
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        QApplication::clipboard()->setText(Before);
    }

    void BindCities(const QStringList& hidden)
    {
        list->Bind({{QStringLiteral("CityCode"), QStringLiteral("City Name"), QStringLiteral("State Name")},
                    {{QStringLiteral("7"), QStringLiteral("Kochi"), QStringLiteral("Kerala")},
                     {QStringLiteral("8"), QStringLiteral("Panaji"), QStringLiteral("Goa")}}},
                   hidden);
    }

    /// Three columns of four rows below the head: "11", "12" and so on.
    void FillGrid(QAbstractItemView::SelectionMode selection)
    {
        std::vector<GridTable::Row> content(5, GridTable::Row(3));
        for (int row = 0; row < 5; ++row)
            for (int col = 0; col < 3; ++col)
                content[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)].text =
                    QStringLiteral("%1%2").arg(row).arg(col + 1);
        grid->Show(TableOf(std::move(content)));
        grid->setSelectionMode(selection);
    }

    static std::string Copied(QWidget* view)
    {
        QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
        return QApplication::clipboard()->text().toStdString();
    }

    /// The fixture deletes all windows that a test leaves.
    QWidget* form = new QWidget;
    DataGrid* list = new DataGrid(form);
    FlexGrid* grid = new FlexGrid(form);
};

TEST_F(GridCopy, WhereNothingIsSelectedTheClipboardStaysAsItIs)
{
    EXPECT_EQ(Copied(list), Before.toStdString()) << "an empty list";
    EXPECT_EQ(Copied(grid), Before.toStdString()) << "an empty grid";
    BindCities({});
    FillGrid(QAbstractItemView::ExtendedSelection);
    EXPECT_EQ(Copied(list), Before.toStdString()) << "no row is current";
    EXPECT_EQ(Copied(grid), Before.toStdString()) << "no cell is current";
}

TEST_F(GridCopy, ARowOfAListIsCopiedWithoutItsCode)
{
    BindCities({QStringLiteral("CityCode")});
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(Copied(list), "Panaji\tGoa");
}

TEST_F(GridCopy, CtrlAAndCtrlCTakeTheWholeListWithoutChoosingARow)
{
    BindCities({QStringLiteral("CityCode")});
    QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Copied(list), "Kochi\tKerala\nPanaji\tGoa");
    EXPECT_EQ(list->CurrentRow(), -1);
}

TEST_F(GridCopy, RowsPickedTogetherAreCopiedWithoutChoosingAny)
{
    BindCities({QStringLiteral("CityCode")});
    QTest::keyClick(list, Qt::Key_Down);
    const QSignalSpy entered(list, &DataGrid::RowEntered);
    const QSignalSpy chosen(list, &DataGrid::RowDoubleClicked);
    QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(list, Qt::Key_Return);
    QTest::keyClick(list, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(entered.size(), 0);
    EXPECT_EQ(chosen.size(), 0);
    EXPECT_EQ(Copied(list), "Kochi\tKerala\nPanaji\tGoa");
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(entered.size(), 1);
    EXPECT_EQ(chosen.size(), 1);
}

TEST_F(GridCopy, ABlockOfCellsIsCopiedAsATable)
{
    FillGrid(QAbstractItemView::ExtendedSelection);
    grid->SetCurrentCell(2, 1);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Right})
        QTest::keyClick(grid, key, Qt::ShiftModifier);
    EXPECT_EQ(Copied(grid), "22\t23\n32\t33\n42\t43");
}

TEST_F(GridCopy, HiddenRowsAndColumnsStayOutOfTheTable)
{
    FillGrid(QAbstractItemView::ExtendedSelection);
    GridTable table = grid->Table();
    table.HideRow(1);
    grid->Show(std::move(table));
    grid->SetColWidth(1, 0);
    QTest::keyClick(grid, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Copied(grid), "21\t23\n31\t33\n41\t43");
}

TEST_F(GridCopy, CellsPickedHereAndThereKeepTheirPlaces)
{
    FillGrid(QAbstractItemView::ExtendedSelection);
    const auto click = [this](int row, int col, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, modifiers, grid->CellRect(row, col).center());
    };
    click(1, 0, Qt::NoModifier);
    click(3, 2, Qt::ControlModifier);
    EXPECT_EQ(Copied(grid), "11\t\n\t33");
}

TEST_F(GridCopy, AHeadSelectsItsColumn)
{
    FillGrid(QAbstractItemView::ExtendedSelection);
    const QWidget* head = grid->horizontalHeader();
    QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {},
                      {grid->columnViewportPosition(1) + 10, head->height() / 2});
    EXPECT_EQ(Copied(grid), "12\n22\n32\n42");
}

TEST_F(GridCopy, AGridThatIsTypedIntoCopiesItsCurrentCell)
{
    FillGrid(QAbstractItemView::SingleSelection);
    grid->SetCurrentCell(2, 1);
    QTest::keyClick(grid, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Copied(grid), "22");
}

TEST_F(GridCopy, TabsAndLineBreaksWithinATextDoNotBreakTheTable)
{
    FillGrid(QAbstractItemView::ExtendedSelection);
    grid->SetTextMatrix(1, 0, QStringLiteral("St.\tMary's\r\nHigh School"));
    grid->SetTextMatrix(1, 1,
                        QStringLiteral("one") + QChar(QChar::LineSeparator) + QStringLiteral("two") +
                            QChar(QChar::ParagraphSeparator) + QStringLiteral("three"));
    grid->SetCurrentCell(1, 0);
    QTest::keyClick(grid, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(Copied(grid), "St. Mary's  High School\tone two three");
}

TEST_F(GridCopy, CellsOfTheHeldColumnAreCopiedAsWell)
{
    FillGrid(QAbstractItemView::ExtendedSelection);
    for (int col = 0; col < 3; ++col)
        grid->SetColWidth(col, 230);
    grid->SetFixedCols(1);
    grid->horizontalScrollBar()->setValue(grid->horizontalScrollBar()->maximum());
    Settle();
    const auto click = [this](int row, Qt::KeyboardModifiers modifiers) {
        const QPoint inViewport(20, grid->CellRect(row, 0).center().y());
        QWidget* held = form->childAt(grid->viewport()->mapTo(form, inViewport));
        QTest::mouseClick(held, Qt::LeftButton, modifiers,
                          held->mapFrom(form, grid->viewport()->mapTo(form, inViewport)));
    };
    click(2, Qt::NoModifier);
    click(4, Qt::ShiftModifier);
    EXPECT_EQ(Copied(grid), "21\n31\n41");
}

} // namespace
} // namespace tally::test
