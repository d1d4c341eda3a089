#include "core/ui/controls/DataGrid.h"
#include "core/ui/controls/FlexGrid.h"
#include "support/TableOf.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QHeaderView>
#include <QSignalSpy>

#include <array>
#include <gtest/gtest.h>

namespace tally::test {
namespace {

/// Ends the test program at the first rule of Qt's models that the grid's model breaks.
class Watched
{
public:
    explicit Watched(const QTableView& grid)
        : tester_(grid.model(), QAbstractItemModelTester::FailureReportingMode::Fatal)
    {}

private:
    QAbstractItemModelTester tester_;
};

GridResult Teachers(int count)
{
    GridResult result{{QStringLiteral("Code"), QStringLiteral("Name"), QStringLiteral("City")}, {}};
    for (int row = 0; row < count; ++row)
        result.rows.push_back(
            {QString::number(row), QStringLiteral("Teacher %1").arg(row), QStringLiteral("Kochi")});
    return result;
}

/// Asks a model for everything that a view or a screen reader may ask, where there is a cell and where not.
void AskForAll(const QAbstractItemModel& model)
{
    QList<QModelIndex> cells{QModelIndex()};
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column)
            cells.append(model.index(row, column));
    for (const QModelIndex& cell : cells)
        for (int role = Qt::DisplayRole; role <= Qt::StatusTipPropertyRole; ++role)
            model.data(cell, role);
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical})
        for (const int section : {-1, 0, model.columnCount(), model.rowCount()})
            for (int role = Qt::DisplayRole; role <= Qt::StatusTipPropertyRole; ++role)
                model.headerData(section, orientation, role);
}

TEST(GridModelTest, WhereThereIsNoCellAListHoldsNothing)
{
    for (const int rows : {0, 3}) {
        DataGrid grid;
        grid.Bind(Teachers(rows), {});
        const Watched watched(grid);
        EXPECT_FALSE(grid.model()->data(QModelIndex(), Qt::DisplayRole).isValid()) << rows << " rows";
        for (const int row : {-1, rows})
            EXPECT_EQ(grid.Text(row, QStringLiteral("Code")), QString());
        AskForAll(*grid.model());
    }
}

TEST(GridModelTest, AListStandsTheRulesWhileItsResultsChange)
{
    DataGrid grid;
    const Watched watched(grid);
    AskForAll(*grid.model());
    for (const int rows : {5, 1, 0, 12}) {
        grid.Bind(Teachers(rows), {QStringLiteral("Code")});
        AskForAll(*grid.model());
        EXPECT_EQ(grid.RowCount(), rows);
    }
    grid.Bind({}, {});
    AskForAll(*grid.model());
}

TEST(GridModelTest, AGridStandsTheRulesWhileItIsFilledGrowsAndShrinks)
{
    FlexGrid grid;
    const Watched watched(grid);
    AskForAll(*grid.model());
    for (const int rows : {2, 1, 40, 3, 0, -1}) {
        grid.SetRows(rows);
        AskForAll(*grid.model());
    }
    for (const int cols : {8, 1, 0, -1, 4}) {
        grid.SetCols(cols);
        AskForAll(*grid.model());
    }
    grid.SetRows(5);
    grid.SetTextMatrix(0, 1, QStringLiteral("Name"));
    grid.SetTextMatrix(4, 3, QStringLiteral("Asha"));
    grid.SetMark(4, 3, CellMark::FailedOrAbsent);
    for (const auto& [row, col] : {std::pair(5, 3), {4, 4}, {-1, 0}, {4, -1}})
        grid.SetTextMatrix(row, col, QStringLiteral("outside"));
    AskForAll(*grid.model());
    for (const int row : {0, 9, 4, 1, 1, 1, 1}) {
        grid.RemoveItem(row);
        AskForAll(*grid.model());
    }
    EXPECT_EQ(grid.Rows(), 1);
    grid.Show(
        TableOf(std::vector<GridTable::Row>(4, GridTable::Row(3, {QStringLiteral("x"), CellMark::Sum}))));
    AskForAll(*grid.model());
    grid.Show(TableOf({GridTable::Row(3), GridTable::Row(1), {}}));
    AskForAll(*grid.model());
    grid.Show({});
    AskForAll(*grid.model());
}

TEST(GridModelTest, ACellHoldsNoCellsOfItsOwn)
{
    DataGrid list;
    list.Bind(Teachers(2), {});
    FlexGrid grid;
    grid.Show(TableOf({GridTable::Row(3), GridTable::Row(3)}));
    for (const QAbstractItemModel* model : {list.model(), grid.model()}) {
        EXPECT_EQ(model->rowCount(model->index(0, 0)), 0);
        EXPECT_EQ(model->columnCount(model->index(0, 0)), 0);
    }
}

TEST(GridModelTest, OnlyColumnsHaveHeadsAndTextsStandAtTheLeftBelowThem)
{
    constexpr int AtTheLeft = int(Qt::AlignLeft | Qt::AlignVCenter);
    DataGrid list;
    list.Bind(Teachers(2), {});
    FlexGrid grid;
    grid.Show(TableOf({GridTable::Row(3, {QStringLiteral("Code"), CellMark::None}), GridTable::Row(3)}));
    for (const QAbstractItemModel* model : {list.model(), grid.model()}) {
        EXPECT_EQ(model->data(model->index(0, 0), Qt::TextAlignmentRole).toInt(), AtTheLeft);
        EXPECT_EQ(model->headerData(0, Qt::Horizontal, Qt::TextAlignmentRole).toInt(), AtTheLeft);
        EXPECT_EQ(model->headerData(0, Qt::Horizontal).toString().toStdString(), "Code");
        for (const auto role : {Qt::DisplayRole, Qt::TextAlignmentRole})
            EXPECT_FALSE(model->headerData(0, Qt::Vertical, role).isValid());
    }
}

TEST(GridModelTest, AMarkHasALetteringOfItsOwn)
{
    FlexGrid grid;
    grid.Show(
        TableOf({GridTable::Row(4),
                 {{{}, CellMark::NotTakenForRank}, {{}, CellMark::FailedOrAbsent}, {{}, CellMark::Sum}}}));
    const auto font = [&grid](int col) {
        return grid.model()->data(grid.model()->index(0, col), Qt::FontRole).value<QFont>();
    };
    EXPECT_TRUE(font(0).italic());
    EXPECT_FALSE(font(0).bold());
    for (const int col : {1, 2}) {
        EXPECT_TRUE(font(col).bold());
        EXPECT_FALSE(font(col).italic());
    }
    EXPECT_FALSE(grid.model()->data(grid.model()->index(0, 3), Qt::FontRole).isValid());
}

TEST(GridModelTest, AColumnIsAsWideAsTheLongestTextThatIsSeenInIt)
{
    const auto widthWith = [](int row, bool hidden) {
        GridTable table({{QStringLiteral("Name")}, {QStringLiteral("Code")}});
        for (int other = 1; other < 4; ++other)
            table.AddRow({{QStringLiteral("Anu")}});
        table.SetText(row, 0, QStringLiteral("Chandrasekharan"));
        table.HideRow(hidden ? row : -1);
        FlexGrid grid;
        grid.Show(std::move(table));
        return grid.ColWidth(0);
    };
    QFont bold = FlexGrid().font();
    bold.setBold(true);
    for (int row = 0; row < 4; ++row)
        EXPECT_GE(widthWith(row, false),
                  QFontMetrics(bold).horizontalAdvance(QStringLiteral("Chandrasekharan")))
            << row;
    EXPECT_LT(widthWith(2, true), widthWith(2, false));
}

TEST(GridModelTest, ALoneColumnTakesTheWholeGrid)
{
    FlexGrid grid;
    grid.resize(400, 200);
    grid.show();
    grid.SetCols(2);
    EXPECT_LT(grid.ColWidth(1), 200);
    grid.SetCols(1);
    EXPECT_EQ(grid.ColWidth(0), grid.viewport()->width());
}

TEST(GridModelTest, AHiddenColumnIsHiddenForWhoeverTakesTheTable)
{
    FlexGrid grid;
    grid.Show(TableOf({GridTable::Row(3), GridTable::Row(3)}));
    grid.SetColHidden(1, true);
    EXPECT_TRUE(grid.Table().Column(1).hidden);
    EXPECT_TRUE(grid.isColumnHidden(1));
    grid.SetColHidden(1, false);
    EXPECT_FALSE(grid.Table().Column(1).hidden);
    EXPECT_FALSE(grid.isColumnHidden(1));
    grid.SetColWidth(1, 33);
    grid.SetColWidth(1, 0);
    EXPECT_TRUE(grid.isColumnHidden(1));
    grid.SetColHidden(1, false);
    EXPECT_EQ(grid.ColWidth(1), 33);
}

TEST(GridModelTest, AScreenReaderHearsWhatAMarkMeansBehindItsText)
{
    FlexGrid grid;
    grid.Show(TableOf({GridTable::Row(4),
                       {{QStringLiteral("34"), CellMark::FailedOrAbsent},
                        {{}, CellMark::NotTakenForRank},
                        {QStringLiteral("61.50"), CellMark::Sum},
                        {QStringLiteral("90")}}}));
    const auto heard = [&grid](int col) {
        QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&grid);
        return table->tableInterface()->cellAt(0, col)->text(QAccessible::Name).toStdString();
    };
    EXPECT_EQ(heard(0), "34, Failed Or Absent");
    EXPECT_EQ(heard(1), "Not Taken For Rank");
    EXPECT_EQ(heard(2), "61.50, Sum");
    EXPECT_EQ(heard(3), "90");
}

/// Three columns, the second one hidden, and rows that are called by their numbers; one of them hidden.
GridTable Numbered(int rows, int hiddenRow)
{
    GridTable table({{QStringLiteral("Name")},
                     {.head = QStringLiteral("Code"), .hidden = true},
                     {QStringLiteral("Mark"), NumberAlignment}});
    for (int row = 1; row < rows; ++row)
        table.AddRow({{QStringLiteral("Row %1").arg(row)}, {}, {QString::number(row)}});
    table.HideRow(hiddenRow);
    return table;
}

TEST(GridModelTest, AGridShowsATableAndLeavesNothingOfTheOneBefore)
{
    FlexGrid grid;
    const Watched watched(grid);
    for (const int hidden : {2, 4, 0, 3}) {
        grid.Show(Numbered(6, hidden));
        AskForAll(*grid.model());
        for (int row = 0; row < 6; ++row)
            EXPECT_EQ(row > 0 ? grid.isRowHidden(row - 1) : grid.horizontalHeader()->isHidden(),
                      row == hidden)
                << row;
        EXPECT_EQ(grid.ColWidth(1), 0);
        EXPECT_GT(grid.ColWidth(0), grid.ColWidth(2)) << "a longer text takes a wider column";
        EXPECT_EQ(grid.TextMatrix(5, 0).toStdString(), "Row 5");
        const QVariant alignment = grid.model()->headerData(2, Qt::Horizontal, Qt::TextAlignmentRole);
        EXPECT_EQ(alignment.toInt(), static_cast<int>(NumberAlignment));
    }
    grid.Show({});
    AskForAll(*grid.model());
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(grid.Cols(), 0);
}

TEST(GridModelTest, AColumnIsAsWideAsItIsGivenAtLeastAndWiderForItsTexts)
{
    const auto widths = [](const QString& text) {
        FlexGrid grid;
        GridTable table({{.head = QStringLiteral("Free")},
                         {.head = QStringLiteral("Given"), .twips = 3000},
                         {.head = {}, .twips = 1500},
                         {.head = QStringLiteral("Hidden"), .hidden = true, .twips = 1500},
                         {}});
        table.AddRow({{text}, {text}, {}, {text}});
        grid.Show(std::move(table));
        return std::array{grid.ColWidth(0), grid.ColWidth(1), grid.ColWidth(2), grid.ColWidth(3),
                          grid.ColWidth(4)};
    };
    const auto narrow = widths(QStringLiteral("12"));
    EXPECT_LT(narrow[0], 100);
    EXPECT_EQ(narrow[1], 200);
    EXPECT_EQ(narrow[2], 100) << "though nothing stands in it";
    EXPECT_EQ(narrow[3], 0);
    EXPECT_GT(narrow[4], 0) << "where nothing says how wide it is";
    const auto wide = widths(QString(90, u'm'));
    EXPECT_GT(wide[1], 200);
    EXPECT_EQ(wide[1], wide[0]);
}

TEST(GridModelTest, AMergedColumnShowsATextThatRepeatsOnceButTellsAndKeepsItInEachRow)
{
    FlexGrid grid;
    GridTable table({{.head = QStringLiteral("Class"), .merged = true},
                     {.head = QStringLiteral("Division"), .merged = true},
                     {.head = QStringLiteral("Subject")}});
    const QString cells[][3] = {{QStringLiteral("X"), QStringLiteral("A"), QStringLiteral("Eng")},
                                {QStringLiteral("X"), QStringLiteral("A"), QStringLiteral("Eng")},
                                {QStringLiteral("X"), QStringLiteral("B"), QStringLiteral("Eng")},
                                {QStringLiteral("XI"), QStringLiteral("B"), QStringLiteral("Eng")}};
    for (const auto& row : cells)
        table.AddRow({{row[0]}, {row[1]}, {row[2]}});
    grid.Show(std::move(table));
    const auto shown = [&grid](int row) {
        QStringList texts;
        for (int col = 0; col < 3; ++col)
            texts.append(grid.model()->index(row - 1, col).data().toString());
        return texts.join(u'|').toStdString();
    };
    EXPECT_EQ(shown(1), "X|A|Eng");
    EXPECT_EQ(shown(2), "||Eng");
    EXPECT_EQ(shown(3), "|B|Eng");
    EXPECT_EQ(shown(4), "XI|B|Eng") << "the division of another class is another one";
    EXPECT_EQ(grid.TextMatrix(2, 0).toStdString(), "X");
    EXPECT_EQ(grid.model()->index(1, 0).data(Qt::AccessibleTextRole).toString().toStdString(), "X");
}

TEST(GridModelTest, OtherRowsUnderTheSameColumnsKeepTheCurrentCellAndTheWidths)
{
    FlexGrid grid;
    const Watched watched(grid);
    grid.Show(Numbered(4, -1));
    grid.SetColWidth(0, 77);
    grid.SetCurrentCell(2, 2);
    for (const int rows : {9, 3, 3}) {
        grid.ShowRows(Numbered(rows, -1));
        AskForAll(*grid.model());
        EXPECT_EQ(grid.Rows(), rows);
        EXPECT_EQ(grid.TextMatrix(rows - 1, 2).toInt(), rows - 1);
        EXPECT_EQ(grid.CurrentRow(), 2);
        EXPECT_EQ(grid.ColWidth(0), 77);
    }
    grid.ShowRows(Numbered(1, -1));
    EXPECT_EQ(grid.CurrentRow(), 0);
}

TEST(GridModelTest, NoRowComesOrGoesWhereThereAreAsManyAsBefore)
{
    FlexGrid grid;
    grid.Show(Numbered(4, -1));
    const QSignalSpy come(grid.model(), &QAbstractItemModel::rowsInserted);
    const QSignalSpy gone(grid.model(), &QAbstractItemModel::rowsRemoved);
    grid.SetRows(4);
    EXPECT_EQ(come.count(), 0);
    EXPECT_EQ(gone.count(), 0);
    grid.SetRows(5);
    grid.SetRows(3);
    EXPECT_EQ(come.count(), 1);
    EXPECT_EQ(gone.count(), 1);
}

TEST(GridModelTest, AnyColumnMayBeHiddenOrTakeTheRoomThatIsLeft)
{
    for (int special = 0; special < 3; ++special) {
        std::vector<GridColumn> columns(3, {.head = QStringLiteral("Name")});
        FlexGrid grid;
        grid.resize(600, 200);
        grid.show();
        columns[static_cast<std::size_t>(special)].stretched = true;
        grid.Show(GridTable(columns));
        for (int col = 0; col < 3; ++col)
            EXPECT_EQ(grid.ColWidth(col) > 300, col == special) << col;
        columns[static_cast<std::size_t>(special)] = {.head = QStringLiteral("Code"), .hidden = true};
        grid.Show(GridTable(columns));
        for (int col = 0; col < 3; ++col)
            EXPECT_EQ(grid.isColumnHidden(col), col == special) << col;
    }
}

TEST(GridModelTest, OneRowIsShownAnewAndNoneThatIsNotThere)
{
    FlexGrid grid;
    const Watched watched(grid);
    grid.Show(Numbered(3, -1));
    const QSignalSpy changes(grid.model(), &QAbstractItemModel::dataChanged);
    const QSignalSpy heads(grid.model(), &QAbstractItemModel::headerDataChanged);
    for (const int row : {-1, 0, 3})
        grid.ShowRow(row, {{QStringLiteral("nowhere")}});
    EXPECT_EQ(changes.count(), 0);
    grid.ShowRow(2, {{QStringLiteral("Asha")}});
    AskForAll(*grid.model());
    EXPECT_EQ(grid.TextMatrix(2, 0).toStdString(), "Asha");
    EXPECT_EQ(grid.TextMatrix(2, 2).toStdString(), "");
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex(), grid.model()->index(1, 0));
    EXPECT_EQ(changes[0][1].toModelIndex(), grid.model()->index(1, 2));
    grid.SetTextMatrix(1, 2, QStringLiteral("7"));
    ASSERT_EQ(changes.count(), 2);
    for (const int corner : {0, 1})
        EXPECT_EQ(changes[1][corner].toModelIndex(), grid.model()->index(0, 2));
    EXPECT_EQ(heads.count(), 0);
    grid.SetTextMatrix(0, 2, QStringLiteral("Marks"));
    EXPECT_EQ(changes.count(), 2);
    ASSERT_EQ(heads.count(), 1);
    for (const int end : {1, 2})
        EXPECT_EQ(heads[0][end].toInt(), 2);
    grid.ShowRows(Numbered(3, -1));
    ASSERT_EQ(heads.count(), 2);
    EXPECT_EQ(heads[1][1].toInt(), 0);
    EXPECT_EQ(heads[1][2].toInt(), 2);
    ASSERT_EQ(changes.count(), 3);
    EXPECT_EQ(changes[2][0].toModelIndex(), grid.model()->index(0, 0));
    EXPECT_EQ(changes[2][1].toModelIndex(), grid.model()->index(1, 2));
    grid.ShowRow(1, {{QStringLiteral("Binu")}});
    EXPECT_EQ(changes.count(), 4) << "the first row";
    EXPECT_EQ(grid.TextMatrix(1, 0).toStdString(), "Binu");
    grid.SetCols(0);
    grid.ShowRow(1, {{QStringLiteral("Asha")}});
    EXPECT_EQ(changes.count(), 4);
}

} // namespace
} // namespace tally::test
