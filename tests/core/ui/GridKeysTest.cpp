#include "core/ui/controls/CheckList.h"
#include "core/ui/controls/DataCombo.h"
#include "core/ui/controls/DataGrid.h"
#include "core/ui/controls/FlexGrid.h"
#include "support/EventCounter.h"
#include "support/ScreenFixture.h"
#include "support/TableOf.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace tally::test {
namespace {

struct Stroke
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

/// Every key that a list of any program answers to.
const QList<Stroke> StandardKeys = [] {
    QList<Stroke> strokes;
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(Qt::NoModifier), Qt::KeyboardModifiers(Qt::ShiftModifier),
          Qt::KeyboardModifiers(Qt::ControlModifier), Qt::ControlModifier | Qt::ShiftModifier})
        for (const Qt::Key key :
             {Qt::Key_Up,     Qt::Key_Down,      Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Home, Qt::Key_End,
              Qt::Key_PageUp, Qt::Key_PageDown,  Qt::Key_Return, Qt::Key_Enter,  Qt::Key_F2,   Qt::Key_Space,
              Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Insert, Qt::Key_Escape, Qt::Key_A,    Qt::Key_C,
              Qt::Key_V,      Qt::Key_X,         Qt::Key_K,      Qt::Key_1,      Qt::Key_Menu})
            strokes.append({key, modifiers});
    return strokes;
}();

/// One grid in a form, in each state in which a key may meet it.
class GridKeys : public ScreenFixture
{
protected:
    template <typename View>
    View* Show(View* view)
    {
        auto* form = new QWidget;
        auto* rows = new QVBoxLayout(form);
        rows->addWidget(view);
        form->resize(420, 260);
        form->show();
        QApplication::setActiveWindow(form);
        EXPECT_TRUE(QTest::qWaitForWindowActive(form));
        view->setFocus();
        return view;
    }

    static GridResult Cities(int count)
    {
        GridResult result{
            {QStringLiteral("CityCode"), QStringLiteral("City Name"), QStringLiteral("State Name")}, {}};
        for (int row = 0; row < count; ++row)
            result.rows.push_back({QString::number(row + 1),
                                   QStringLiteral("%1ochi %2").arg(QChar(u'K' + row % 3)).arg(row),
                                   QStringLiteral("Kerala")});
        return result;
    }

    static constexpr int NoRow = -1;

    static void Fill(FlexGrid* grid, int rows, int hidden = NoRow)
    {
        std::vector<GridTable::Row> content(static_cast<std::size_t>(rows) + 1, GridTable::Row(5));
        for (int row = 0; row <= rows; ++row)
            for (int col = 0; col < 5; ++col)
                content[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)].text =
                    QStringLiteral("K%1/%2").arg(row).arg(col);
        GridTable table = TableOf(std::move(content));
        table.HideRow(hidden);
        grid->Show(std::move(table));
    }

    /// Each key alone, from the state that `prepare` makes, and then all of them one after the other.
    static void PressAll(QWidget* view, const std::function<void()>& prepare)
    {
        for (const Stroke& stroke : StandardKeys) {
            prepare();
            QTest::keyClick(view, stroke.key, stroke.modifiers);
        }
        prepare();
        for (const Stroke& stroke : StandardKeys)
            QTest::keyClick(view, stroke.key, stroke.modifiers);
        prepare();
        QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(5, 5), view->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(view, &menu);
        Settle();
    }
};

TEST_F(GridKeys, AListOfRowsStandsEveryKeyWhateverItHolds)
{
    auto* grid = Show(new DataGrid);
    for (const int rows : {0, 1, 60})
        for (const QStringList& hidden : {QStringList(), QStringList{QStringLiteral("CityCode")},
                                          QStringList{QStringLiteral("CityCode"), QStringLiteral("City Name"),
                                                      QStringLiteral("State Name")}})
            for (const bool onRow : {false, true})
                PressAll(grid, [&] {
                    grid->Bind(Cities(rows), hidden);
                    ASSERT_EQ(grid->CurrentRow(), -1);
                    if (onRow)
                        grid->setCurrentIndex(grid->model()->index(rows - 1, 1));
                });
}

TEST_F(GridKeys, AListThatWasEmptiedStandsEveryKey)
{
    auto* grid = Show(new DataGrid);
    PressAll(grid, [&] {
        grid->Bind(Cities(3), {});
        grid->setCurrentIndex(grid->model()->index(2, 0));
        grid->Bind({}, {});
    });
}

TEST_F(GridKeys, AGridStandsEveryKeyWhateverItHolds)
{
    for (const auto selection : {QAbstractItemView::SingleSelection, QAbstractItemView::ExtendedSelection}) {
        auto* grid = Show(new FlexGrid);
        grid->setSelectionMode(selection);
        for (const int rows : {0, 1, 60})
            for (const bool hiding : {false, true})
                for (const int currentRow : {0, rows})
                    PressAll(grid, [&] {
                        Fill(grid, rows, hiding ? 1 : NoRow);
                        grid->SetColHidden(0, hiding);
                        grid->SetCurrentCell(currentRow, 2);
                    });
    }
}

TEST_F(GridKeys, AGridThatHoldsItsFirstColumnStandsEveryKey)
{
    auto* grid = Show(new FlexGrid);
    grid->SetFixedCols(1);
    PressAll(grid, [&] {
        Fill(grid, 60);
        for (int col = 0; col < 5; ++col)
            grid->SetColWidth(col, 120);
        grid->SetCurrentCell(30, 4);
    });
    ASSERT_GT(grid->horizontalScrollBar()->maximum(), 0);
}

TEST_F(GridKeys, AGridStandsEveryKeyWhileItsRowsGo)
{
    auto* grid = Show(new FlexGrid);
    PressAll(grid, [&] {
        Fill(grid, 4);
        grid->SetCurrentCell(4, 1);
        grid->RemoveItem(4);
        grid->SetCurrentCell(2, 1);
        grid->SetRows(1);
    });
}

TEST_F(GridKeys, TypedLettersFindTheFirstTextInSightThatBeginsWithThem)
{
    auto* list = Show(new DataGrid);
    list->Bind(Cities(6), {QStringLiteral("CityCode")});
    QTest::keyClicks(list, "mo");
    EXPECT_EQ(list->CurrentRow(), 2);
    auto* open = Show(new DataGrid);
    open->Bind(Cities(6), {});
    QTest::keyClick(open, Qt::Key_6);
    EXPECT_EQ(open->CurrentRow(), 5) << "the first column in sight";
    auto* another = Show(new DataGrid);
    another->Bind(Cities(6), {QStringLiteral("CityCode")});
    QTest::keyClick(another, Qt::Key_3);
    EXPECT_EQ(another->CurrentRow(), -1) << "the code 3 is hidden";
}

TEST_F(GridKeys, TypedLettersFindNoHiddenColumnFromACellInIt)
{
    auto* list = Show(new DataGrid);
    list->Bind(Cities(6), {QStringLiteral("CityCode")});
    list->setCurrentIndex(list->model()->index(1, 0));
    QTest::keyClick(list, Qt::Key_4);
    EXPECT_EQ(list->CurrentRow(), 1) << "the code 4 is hidden";
}

TEST_F(GridKeys, LettersThatBeginNoTextLeaveNoRowCurrent)
{
    auto* list = Show(new DataGrid);
    list->Bind(Cities(6), {});
    QTest::keyClick(list, Qt::Key_Z);
    EXPECT_EQ(list->CurrentRow(), -1);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Z);
    EXPECT_EQ(list->CurrentRow(), 0);
}

TEST_F(GridKeys, EnterF2AndTheBlankKeyOpenTheCurrentCellAndNoOtherKeyDoes)
{
    auto* grid = Show(new FlexGrid);
    Fill(grid, 3);
    const QSignalSpy opened(grid, &FlexGrid::CellClicked);
    const QList<Qt::Key> keys{Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2, Qt::Key_Space};
    for (const Qt::Key key : keys)
        QTest::keyClick(grid, key);
    EXPECT_EQ(opened.count(), 0) << "no cell is current";
    EXPECT_EQ(grid->CurrentRow(), 0);
    EXPECT_EQ(grid->CurrentCol(), 0);
    grid->SetCurrentCell(2, 3);
    for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_F3})
        QTest::keyClick(grid, key);
    EXPECT_EQ(opened.count(), 0);
    for (const Qt::Key key : keys)
        QTest::keyClick(grid, key);
    ASSERT_EQ(opened.count(), keys.size());
    for (const QList<QVariant>& cell : opened)
        EXPECT_EQ(cell, (QList<QVariant>{2, 3}));
}

TEST_F(GridKeys, TheCurrentCellIsBroughtBackIntoSightWhereItStands)
{
    auto* grid = Show(new FlexGrid);
    Fill(grid, 60);
    grid->SetCurrentCell(50, 2);
    EXPECT_TRUE(grid->viewport()->rect().contains(grid->CellRect(50, 2).center()));
    grid->verticalScrollBar()->setValue(0);
    ASSERT_FALSE(grid->viewport()->rect().contains(grid->CellRect(50, 2).center()));
    grid->SetCurrentCell(50, 2);
    EXPECT_TRUE(grid->viewport()->rect().contains(grid->CellRect(50, 2).center()));
}

TEST_F(GridKeys, ALongListGoesWithItsCurrentRowAndWithItsWindow)
{
    auto* list = Show(new DataGrid);
    list->Bind(Cities(60), {});
    const auto isInSight = [list] {
        const QRect row = list->visualRect(list->model()->index(list->CurrentRow(), 0));
        return list->viewport()->rect().contains(row.center());
    };
    QTest::keyClick(list, Qt::Key_Down);
    for (int page = 0; page < 3; ++page)
        QTest::keyClick(list, Qt::Key_PageDown);
    EXPECT_GT(list->CurrentRow(), 10);
    EXPECT_TRUE(isInSight());
    const int lower = list->verticalScrollBar()->maximum();
    list->window()->resize(420, 400);
    EXPECT_LT(list->verticalScrollBar()->maximum(), lower);
    EXPECT_GT(list->verticalScrollBar()->maximum(), 0);
}

TEST_F(GridKeys, EnterOnARowOfAListIsTheScreensToAnswerAndEndsThere)
{
    auto* list = Show(new DataGrid);
    list->Bind(Cities(3), {});
    const QSignalSpy chosen(list, &DataGrid::RowDoubleClicked);
    const EventCounter keys(list->parentWidget(), QEvent::KeyPress);
    QTest::keyClick(list, Qt::Key_Down);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(list, key);
    EXPECT_EQ(chosen.count(), 2);
    EXPECT_EQ(keys.Count(), 0);
}

TEST_F(GridKeys, ARowThatIsCurrentBesideTheSelectedOneIsNeitherEnteredNorChosen)
{
    auto* list = Show(new DataGrid);
    list->Bind(Cities(3), {});
    const QSignalSpy entered(list, &DataGrid::RowEntered);
    const QSignalSpy chosen(list, &DataGrid::RowDoubleClicked);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down, Qt::ControlModifier);
    ASSERT_EQ(list->CurrentRow(), 1);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(entered.count(), 1);
    EXPECT_EQ(chosen.count(), 0);
    QTest::keyClick(list, Qt::Key_Z);
    EXPECT_EQ(list->CurrentRow(), 1) << "no text begins with it";
}

TEST_F(GridKeys, TypedLettersFindNoHiddenRow)
{
    auto* grid = Show(new FlexGrid);
    Fill(grid, 3, 1);
    grid->SetTextMatrix(1, 1, QStringLiteral("Zero"));
    grid->SetCurrentCell(2, 1);
    QTest::keyClick(grid, Qt::Key_Z);
    EXPECT_EQ(grid->CurrentRow(), 2);
    EXPECT_EQ(grid->CurrentCol(), 1);
}

TEST_F(GridKeys, AListOfTicksAndAListToChooseFromStandEveryKey)
{
    auto* ticks = Show(new CheckList);
    for (const int items : {0, 1, 30})
        PressAll(ticks, [&] {
            ticks->clear();
            for (int item = 0; item < items; ++item)
                ticks->AddItem({item, QStringLiteral("K %1").arg(item), {}});
        });
    auto* combo = Show(new DataCombo);
    for (const bool filled : {false, true})
        PressAll(combo, [&] {
            combo->hidePopup();
            combo->SetListBehindBlank(filled ? DataCombo::Entries{{1, QStringLiteral("Kochi")}}
                                             : DataCombo::Entries{});
        });
    combo->hidePopup();
}

} // namespace
} // namespace tally::test
