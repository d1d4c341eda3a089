#include "core/ui/controls/DataGrid.h"
#include "core/ui/FormKeys.h"
#include "support/ScreenFixture.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QHeaderView>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace tally::test {
namespace {

const QString Code = QStringLiteral("TeacherCode");
const QString Name = QStringLiteral("Teacher Name");
const QString Joined = QStringLiteral("Joined On");
const QString Years = QStringLiteral("Years");

/// A list of teachers in the office's order, which is that of their codes.
class DataGridSort : public ScreenFixture
{
protected:
    void SetUp() override
    {
        ScreenFixture::SetUp();
        auto* rows = new QVBoxLayout(form);
        rows->addWidget(grid);
        Bind(Teachers());
        form->resize(600, 300);
        form->show();
        QApplication::setActiveWindow(form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(form));
        grid->setFocus();
    }

    static GridResult Teachers()
    {
        const auto row = [](const char* code, const char* name, const char* joined, const char* years) {
            return QStringList{QString::fromLatin1(code), QString::fromLatin1(name),
                               QString::fromLatin1(joined), QString::fromLatin1(years)};
        };
        return {{Code, Name, Joined, Years},
                {row("1", "binu", "01/Jun/2001", "9"), row("2", "Asha", "15/Feb/2010", "10"),
                 row("3", "Chandra", "", "100"), row("4", "asha", "02/Dec/1999", "9.5")}};
    }

    void Bind(GridResult result) { grid->Bind(std::move(result), {Code}); }

    void ClickHead(const QString& head)
    {
        for (int column = 0; column < grid->model()->columnCount(); ++column)
            if (grid->model()->headerData(column, Qt::Horizontal).toString() == head)
                QTest::mouseClick(grid->horizontalHeader()->viewport(), Qt::LeftButton, {},
                                  {grid->columnViewportPosition(column) + 20, 8});
    }

    std::string Codes() const
    {
        QString codes;
        for (int row = 0; row < grid->RowCount(); ++row)
            codes += grid->Text(row, Code);
        return codes.toStdString();
    }

    bool ShowsAnArrow() const
    {
        return grid->horizontalHeader()->isSortIndicatorShown() &&
               grid->horizontalHeader()->sortIndicatorSection() >= 0;
    }

    /// The fixture deletes all windows that a test leaves.
    QWidget* form = new QWidget;
    DataGrid* grid = new DataGrid(form);
    QAbstractItemModelTester tester{grid->model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(DataGridSort, AListKeepsTheOfficesOrderUntilAHeadIsClicked)
{
    EXPECT_EQ(Codes(), "1234");
    EXPECT_FALSE(ShowsAnArrow());
}

TEST_F(DataGridSort, AHeadSortsItsTextsInSmallAndCapitalLettersAlikeAndTurnsTheOrderRoundAtTheNextClick)
{
    ClickHead(Name);
    EXPECT_EQ(Codes(), "2413") << "equal names stay in the office's order";
    EXPECT_TRUE(ShowsAnArrow());
    EXPECT_EQ(grid->horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
    ClickHead(Name);
    EXPECT_EQ(Codes(), "3124");
    EXPECT_EQ(grid->horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
    ClickHead(Name);
    EXPECT_EQ(Codes(), "2413");
}

TEST_F(DataGridSort, NumbersGoByTheirValueAndDatesByTheirDay)
{
    ClickHead(Years);
    EXPECT_EQ(Codes(), "1423");
    ClickHead(Joined);
    EXPECT_EQ(Codes(), "4123") << "the day that is not known comes last";
    ClickHead(Joined);
    EXPECT_EQ(Codes(), "2143") << "there as well";
}

TEST_F(DataGridSort, ARowIsTheOneShownForWhoeverHearsOfIt)
{
    ClickHead(Name);
    const QSignalSpy entered(grid, &DataGrid::RowEntered);
    const QSignalSpy chosen(grid, &DataGrid::RowDoubleClicked);
    const QSignalSpy clicked(grid, &QTableView::clicked);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                      grid->visualRect(grid->model()->index(2, 1)).center());
    EXPECT_EQ(clicked.count(), 1);
    ASSERT_EQ(entered.count(), 1);
    EXPECT_EQ(grid->Text(entered[0][0].toInt(), Name).toStdString(), "binu");
    EXPECT_EQ(grid->Code(entered[0][0].toInt(), Code), 1) << "the hidden code goes with its row";
    QTest::keyClick(grid, Qt::Key_Up);
    QTest::keyClick(grid, Qt::Key_Return);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(grid->Code(chosen[0][0].toInt(), Code), 4);
    const QPoint last = grid->visualRect(grid->model()->index(3, 2)).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, last);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, last);
    ASSERT_EQ(chosen.count(), 2);
    EXPECT_EQ(grid->Code(chosen[1][0].toInt(), Code), 3);
}

TEST_F(DataGridSort, TheCurrentRowGoesWithItsTeacherAndIsNotEnteredAnew)
{
    QTest::keyClick(grid, Qt::Key_Down);
    ASSERT_EQ(grid->Code(grid->CurrentRow(), Code), 1);
    const QSignalSpy entered(grid, &DataGrid::RowEntered);
    ClickHead(Name);
    EXPECT_EQ(grid->CurrentRow(), 2);
    EXPECT_EQ(grid->Code(grid->CurrentRow(), Code), 1);
    QTest::keyClick(grid, Qt::Key_Shift);
    EXPECT_EQ(entered.count(), 0);
    QTest::keyClick(grid, Qt::Key_Down);
    ASSERT_EQ(entered.count(), 1);
    EXPECT_EQ(grid->Code(entered[0][0].toInt(), Code), 3);
}

TEST_F(DataGridSort, TheChosenOrderStaysWhenTheListIsReadAnew)
{
    ClickHead(Name);
    GridResult fewer = Teachers();
    fewer.rows.erase(fewer.rows.begin() + 1);
    Bind(std::move(fewer));
    EXPECT_EQ(Codes(), "413");
    EXPECT_TRUE(ShowsAnArrow());
    EXPECT_EQ(grid->CurrentRow(), -1);
}

TEST_F(DataGridSort, TheEyeGoesWithTheCurrentRow)
{
    GridResult many = Teachers();
    for (int code = 5; code < 60; ++code)
        many.rows.push_back({QString::number(code), QStringLiteral("Devi %1").arg(code), {}, {}});
    Bind(std::move(many));
    QTest::keyClick(grid, Qt::Key_Down);
    ASSERT_EQ(grid->Code(grid->CurrentRow(), Code), 1);
    ClickHead(Name);
    ClickHead(Name);
    EXPECT_GT(grid->CurrentRow(), 40);
    EXPECT_TRUE(grid->viewport()->rect().contains(grid->visualRect(grid->currentIndex()).center()));
}

TEST_F(DataGridSort, AHeadIsPulledNoWider)
{
    const int width = grid->columnWidth(1);
    const QPoint edge(grid->columnViewportPosition(1) + width - 1, 8);
    QWidget* heads = grid->horizontalHeader()->viewport();
    QTest::mousePress(heads, Qt::LeftButton, {}, edge);
    QTest::mouseMove(heads, edge + QPoint(-40, 0));
    QTest::mouseRelease(heads, Qt::LeftButton, {}, edge + QPoint(-40, 0));
    EXPECT_EQ(grid->columnWidth(1), width);
}

TEST_F(DataGridSort, EnterIsOfferedToNoRowOfAListThatWasReadAnew)
{
    QTest::keyClick(grid, Qt::Key_Down);
    EXPECT_FALSE(grid->property(TakesEnter).toBool()) << "nobody waits for it";
    Bind(Teachers());
    QObject::connect(grid, &DataGrid::RowDoubleClicked, grid, [] {});
    QTest::keyClick(grid, Qt::Key_Down);
    EXPECT_TRUE(grid->property(TakesEnter).toBool());
    Bind(Teachers());
    EXPECT_FALSE(grid->property(TakesEnter).toBool());
}

TEST_F(DataGridSort, AListThatWasEmptiedBeginsInTheOfficesOrder)
{
    ClickHead(Name);
    grid->Bind({}, {});
    Bind(Teachers());
    EXPECT_EQ(Codes(), "1234");
    EXPECT_FALSE(ShowsAnArrow());
}

TEST_F(DataGridSort, ASelectedRowStaysSelectedAndIsCopiedInTheOrderShown)
{
    QTest::keyClick(grid, Qt::Key_Down);
    QTest::keyClick(grid, Qt::Key_Down, Qt::ShiftModifier);
    ClickHead(Name);
    QStringList selected;
    for (const QModelIndex& row : grid->selectionModel()->selectedRows(1))
        selected.append(row.data().toString());
    selected.sort();
    EXPECT_EQ(selected.join(QLatin1Char('|')).toStdString(), "Asha|binu");
}

TEST_F(DataGridSort, AnEmptyListStandsClicksOnItsHeads)
{
    GridResult none = Teachers();
    none.rows.clear();
    Bind(std::move(none));
    for (const QString& head : {Name, Joined, Years})
        ClickHead(head);
    EXPECT_EQ(grid->RowCount(), 0);
}

TEST_F(DataGridSort, EachColumnHoldsItsTextsAndSharesWhatIsLeft)
{
    const QString longest = QStringLiteral("Thiruvananthapuram Venkatanarasimharajuvaripeta");
    GridResult teachers = Teachers();
    teachers.rows[2][1] = longest;
    Bind(std::move(teachers));
    const int needed = grid->fontMetrics().horizontalAdvance(longest);
    EXPECT_GE(grid->columnWidth(1), needed);
    EXPECT_GT(grid->columnWidth(1), grid->columnWidth(2));
    const auto whole = [this] {
        return grid->columnWidth(1) + grid->columnWidth(2) + grid->columnWidth(3) ==
               grid->viewport()->width();
    };
    EXPECT_TRUE(whole());
    form->resize(900, 300);
    EXPECT_TRUE(whole());
    form->resize(300, 300);
    EXPECT_GE(grid->columnWidth(1), needed) << "what has no room is reached by scrolling";
}

} // namespace
} // namespace tally::test
